#include <QLabel>
#include <QProgressBar>

#include "base/app_globals.h"
#include "base/run_trapped.h"
#include "shell/gui_application.h"
#include "shell/gui_presenter.h"
#include "shell/main_window.h"

#include <QIcon>

using namespace Qt::StringLiterals;

// The program has no command line: its start is the load of the main window.
int main(int argc, char* argv[])
{
    GuiApplication app(argc, argv);
    QApplication::setApplicationName(kProductName);
    QApplication::setApplicationVersion(kVersion);
    QApplication::setDesktopFileName(u"lapkeeper"_s);
    QApplication::setWindowIcon(QIcon(u":/images/lapkeeper.svg"_s));

    GuiPresenter gui;
    installPresenter(&gui);
    setApplicationFolder(defaultApplicationFolder());

    int result = 0;
    {
        frmMain main;
        // A folder that cannot be made is shown like any untrapped run-time error, and ends the start.
        if (runTrapped([&] { return main.load(); }))
            result = app.exec();
    }
    installPresenter(nullptr);
    return result;
}
