#pragma once
#include "base/messages.h"

#include <QStringList>

// The presenter of the batch tool: boxes go to stderr as "title: text"; questions get the
// answer given on the command line; nothing is launched or played.
class ConsolePresenter final : public cWindowlessPresenter {
public:
    explicit ConsolePresenter(Answer questionAnswer = Answer::No) : m_questionAnswer(questionAnswer) {}

    // Every box shown so far (its text), and those that were no question: the failures.
    const QStringList& shown() const { return m_shown; }
    int failures() const { return m_failures; }

    Answer messageBox(const QString& text, const QString& title, Icon icon, Buttons buttons) override;

private:
    Answer m_questionAnswer;
    QStringList m_shown;
    int m_failures = 0;
};
