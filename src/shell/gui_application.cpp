#include "shell/gui_application.h"
#include "shell/app_globals.h"
#include "shell/messages.h"
#include "store/runtime_error.h"

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

GuiApplication::GuiApplication(int& argc, char** argv) : QApplication(argc, argv) {}

bool GuiApplication::notify(QObject* receiver, QEvent* event)
{
    return runTrapped([&] { return QApplication::notify(receiver, event); });
}
