#pragma once
#include "base/messages.h"

#include <QStringList>

// The presenter of the batch tool: boxes go to stderr as "title: text"; questions get the
// answer given on the command line; nothing is launched or played.
class ConsolePresenter final : public IPresenter {
public:
    explicit ConsolePresenter(Answer questionAnswer = Answer::No) : m_questionAnswer(questionAnswer) {}

    // Every box shown so far (its text), and those that were no question: the failures.
    const QStringList& shown() const { return m_shown; }
    int failures() const { return m_failures; }

    Answer messageBox(const QString& text, const QString& title, Icon icon, Buttons buttons) override;
    void beep() override {}
    void setStatusText(const QString&) override {}
    void setMousePointer(int16_t code) override { m_pointer = code; }
    int16_t mousePointer() const override { return m_pointer; }
    void advanceProgress() override {}
    int launch(const QString&) override { return 31; }
    int runProgram(const QString&, const QStringList&) override { return 2; }
    bool playWave(const QString&) override { return false; }
    std::optional<QString> chooseFile(const FileDialogRequest&) override { return std::nullopt; }

private:
    Answer m_questionAnswer;
    QStringList m_shown;
    int16_t m_pointer = 0;
    int m_failures = 0;
};
