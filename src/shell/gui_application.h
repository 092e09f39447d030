#pragma once
#include <QApplication>

// The program's application object. A run-time error that no routine traps ends here, at the
// top of the event loop: it is shown in a critical box titled "Lapkeeper" with its description,
// and the program goes on with the next event.
class GuiApplication : public QApplication {
public:
    GuiApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
};
