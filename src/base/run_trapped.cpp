#include "base/run_trapped.h"
#include "base/app_globals.h"
#include "base/messages.h"
#include "base/runtime_error.h"

#include <exception>

bool runTrapped(const std::function<bool()>& work)
{
    QString description;
    try {
        return work();
    } catch (const cRuntimeError& error) {
        description = error.description();
    } catch (const std::exception& error) {
        description = QString::fromLocal8Bit(error.what());
    }
    // The job that failed may have left the hourglass on.
    setMousePointer(kPointerDefault);
    messageBox(description, QStringLiteral("Lapkeeper"), Icon::Critical);
    return false;
}
