#include "base/messages.h"
#include "base/app_globals.h"

#include <cstdio>

namespace {

// Used until a presenter is installed: boxes go to stderr, questions get their first button.
class StderrPresenter final : public cWindowlessPresenter {
public:
    Answer messageBox(const QString& text, const QString& title, Icon, Buttons buttons) override
    {
        std::fprintf(stderr, "%s: %s\n", qPrintable(title), qPrintable(text));
        switch (buttons) {
        case Buttons::YesNo:
        case Buttons::YesNoCancel: return Answer::Yes;
        case Buttons::AbortRetryIgnore: return Answer::Abort;
        case Buttons::RetryCancel: return Answer::Retry;
        default: return Answer::Ok;
        }
    }
};

IPresenter*& current()
{
    static StderrPresenter fallback;
    static IPresenter* installed = &fallback;
    return installed;
}

IPresenter* fallbackPresenter()
{
    static IPresenter* first = current();
    return first;
}

Answer sharedBox(const QString& text, const QString& title, Icon icon)
{
    const int16_t pointer = mousePointer();
    if (pointer == kPointerHourglass)
        setMousePointer(kPointerDefault);
    presenter().beep();
    const Answer answer = presenter().messageBox(text, title, icon, Buttons::Ok);
    gLastBoxResult = static_cast<int32_t>(answer);
    setMousePointer(pointer);
    return answer;
}

} // namespace

IPresenter* installPresenter(IPresenter* p)
{
    fallbackPresenter();
    IPresenter* previous = current();
    current() = p ? p : fallbackPresenter();
    return previous;
}

IPresenter& presenter()
{
    return *current();
}

Answer messageBox(const QString& text, const QString& title, Icon icon, Buttons buttons)
{
    return presenter().messageBox(text, title, icon, buttons);
}

void showErrorMessage(const QString& text)
{
    sharedBox(text, QStringLiteral("Lapkeeper Error"), Icon::Critical);
}

void showInfoMessage(const QString& text)
{
    sharedBox(text, QStringLiteral("Lapkeeper Message"), Icon::Information);
}

void showStopMessage(const QString& text)
{
    sharedBox(text, QStringLiteral("Lapkeeper Message"), Icon::Critical);
}

void setStatusText(const QString& text)
{
    presenter().setStatusText(text);
}

void setStatusTextFor(const QString& text, int milliseconds)
{
    presenter().setStatusTextFor(text, milliseconds);
}

void setMousePointer(int16_t code)
{
    presenter().setMousePointer(code);
}

int16_t mousePointer()
{
    return presenter().mousePointer();
}

void advanceProgress()
{
    presenter().advanceProgress();
}

bool isOdd(int64_t number)
{
    return (number & 1) != 0;
}
