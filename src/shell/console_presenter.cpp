#include "shell/console_presenter.h"

#include <cstdio>

Answer ConsolePresenter::messageBox(const QString& text, const QString& title, Icon, Buttons buttons)
{
    m_shown << text;
    if (buttons == Buttons::Ok)
        ++m_failures;
    std::fprintf(stderr, "%s: %s\n", qPrintable(title), qPrintable(text));
    switch (buttons) {
    case Buttons::YesNo:
    case Buttons::YesNoCancel:
        return m_questionAnswer;
    case Buttons::OkCancel:
        return m_questionAnswer == Answer::Yes ? Answer::Ok : Answer::Cancel;
    default:
        return Answer::Ok;
    }
}
