#pragma once
// The presenter of the running program: message boxes, the override cursor, the status bar,
// the race screen's progress bar, the desktop's handlers, a command-line wave player and the
// file dialogs.
#include "base/messages.h"

#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QStatusBar>

// Turns the filter "Lapkeeper Data File (*.lk)|*.lk|" (description|pattern|...) into the form of
// the file dialog, "Lapkeeper Data File (*.lk)"; several pairs are joined with ";;".
QString qtFileFilter(const QString& filter);

class GuiPresenter final : public IPresenter {
public:
    GuiPresenter() = default;
    ~GuiPresenter() override;

    // The first panel of this bar gets the status texts (a label added on the left).
    void setStatusBar(QStatusBar* bar);
    QLabel* statusPanel() const { return m_statusPanel; }
    void setProgressBar(QProgressBar* bar) override { m_progressBar = bar; }

    Answer messageBox(const QString& text, const QString& title, Icon icon, Buttons buttons) override;
    void beep() override;
    void setStatusText(const QString& text) override;
    void setMousePointer(int16_t code) override;
    int16_t mousePointer() const override { return m_pointer; }
    void advanceProgress() override;
    int launch(const QString& target) override;
    int runProgram(const QString& program, const QStringList& arguments) override;
    bool playWave(const QString& path) override;
    std::optional<QString> chooseFile(const FileDialogRequest& request) override;

private:
    QPointer<QStatusBar> m_statusBar;
    QPointer<QLabel> m_statusPanel;
    QPointer<QProgressBar> m_progressBar;
    int16_t m_pointer = 0;
};
