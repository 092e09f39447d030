#pragma once
// The presenter of the running program: message boxes, the override cursor, the status bar,
// the race screen's progress bar, the desktop's handlers, a command-line wave player and the
// file dialogs and the folder chooser.
#include "base/messages.h"

#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QStatusBar>
#include <QTimer>

// Turns the filter "Lapkeeper Data File (*.lk)|*.lk|" (description|pattern|...) into the form of
// the file dialog, "Lapkeeper Data File (*.lk)"; several pairs are joined with ";;".
QString qtFileFilter(const QString& filter);

class GuiPresenter final : public IPresenter {
public:
    GuiPresenter();
    ~GuiPresenter() override;

    // The first panel of this bar gets the status texts (a label added on the left).
    void setStatusBar(QStatusBar* bar);
    QLabel* statusPanel() const { return m_statusPanel; }
    // The bar is painted at once, laid out where its screen just showed it: the work that
    // follows blocks the event loop.
    void setProgressBar(QProgressBar* bar) override;

    // The desktop's opener: a program that takes one file or address, hands it to the handler
    // for its type and exits with 0, or with 2 (no such file), 3 (no handler) or 4 (the handler
    // failed). When the program is not installed, the desktop services of the toolkit open it.
    void setOpener(const QString& program) { m_opener = program; }
    // How long launch waits for the opener. One still running then (a handler that stays in the
    // foreground) has started, which counts as success.
    void setOpenerPatience(int milliseconds) { m_openerPatienceMs = milliseconds; }

    Answer messageBox(const QString& text, const QString& title, Icon icon, Buttons buttons) override;
    void beep() override;
    // The panel is repainted at once: a long job that follows would otherwise hide the text.
    void setStatusText(const QString& text) override;
    void setStatusTextFor(const QString& text, int milliseconds) override;
    void setMousePointer(int16_t code) override;
    int16_t mousePointer() const override { return m_pointer; }
    void advanceProgress() override;
    int launch(const QString& target) override;
    int runProgram(const QString& program, const QStringList& arguments) override;
    bool playWave(const QString& path) override;
    std::optional<QString> chooseFile(const FileDialogRequest& request) override;
    // "Select Report Folder" (frmBrowser), modal.
    bool chooseFolder(int mode) override;

private:
    void showStatus(const QString& text);

    QString m_opener = QStringLiteral("xdg-open");
    int m_openerPatienceMs = 5000;
    QTimer m_statusReset;                // gives a passing status text way to the idle text
    QPointer<QStatusBar> m_statusBar;
    QPointer<QLabel> m_statusPanel;
    QPointer<QProgressBar> m_progressBar;
    int16_t m_pointer = 0;
};
