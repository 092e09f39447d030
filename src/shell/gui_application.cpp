#include "shell/gui_application.h"
#include "base/run_trapped.h"

GuiApplication::GuiApplication(int& argc, char** argv) : QApplication(argc, argv) {}

bool GuiApplication::notify(QObject* receiver, QEvent* event)
{
    return runTrapped([&] { return QApplication::notify(receiver, event); });
}
