#pragma once
// The one seam for every message box, question, status text, pointer change, progress tick,
// file dialog and launch of an outside program. Core code calls the routines below; they
// delegate to the installed presenter: the GUI presenter in the program, a console presenter
// in a batch tool, a recording presenter in tests. No Widgets header here.
#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>

class QProgressBar;   // only passed through: the GUI presenter steps it

enum class Icon { None, Critical, Question, Exclamation, Information };
enum class Buttons { Ok, OkCancel, AbortRetryIgnore, YesNoCancel, YesNo, RetryCancel };
// The values the system gives the answers.
enum class Answer { Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

struct FileDialogRequest {
    enum class Mode { Open, Save };
    Mode mode = Mode::Open;
    QString title;
    QString folder;      // initial folder
    QString filter;      // the system's form: "Lapkeeper Data File (*.lk)|*.lk|"
    QString fileName;    // initial file name
};

class IPresenter {
public:
    virtual ~IPresenter() = default;
    virtual Answer messageBox(const QString& text, const QString& title, Icon icon, Buttons buttons) = 0;
    virtual void beep() = 0;
    virtual void setStatusText(const QString& text) = 0;
    // A status text that gives way to the idle text after the given time, unless another text
    // came first. Presenters without a window show it as any other status text.
    virtual void setStatusTextFor(const QString& text, int milliseconds)
    {
        (void)milliseconds;
        setStatusText(text);
    }
    virtual void setMousePointer(int16_t code) = 0;
    virtual int16_t mousePointer() const = 0;
    virtual void advanceProgress() = 0;
    // The bar that advanceProgress steps while a screen shows one; nullptr when none does.
    // Presenters without a window ignore it.
    virtual void setProgressBar(QProgressBar* bar) { (void)bar; }
    // Opens a file or address with the desktop's handler. The result follows the shell's
    // convention: 33 or more is success, 2 no such file, 31 no application for the kind.
    virtual int launch(const QString& target) = 0;
    // Starts a program with arguments; the same result convention as launch.
    virtual int runProgram(const QString& program, const QStringList& arguments) = 0;
    // Plays a wave file to its end; false when it could not be played.
    virtual bool playWave(const QString& path) = 0;
    // The open or save dialog; nullopt when cancelled.
    virtual std::optional<QString> chooseFile(const FileDialogRequest& request) = 0;
    // The folder chooser on the report folder (mode 1) or the backup folder (any other mode):
    // Ok puts the chosen folder into that global, Cancel leaves it as it was. True on Ok.
    virtual bool chooseFolder(int mode) = 0;
};

// What a presenter without a window does: nothing to show but its boxes, no status bar, nothing
// launched or played, no file dialog; the pointer is only remembered.
class cWindowlessPresenter : public IPresenter {
public:
    void beep() override {}
    void setStatusText(const QString&) override {}
    void setMousePointer(int16_t code) override { m_pointer = code; }
    int16_t mousePointer() const override { return m_pointer; }
    void advanceProgress() override {}
    int launch(const QString&) override { return 31; }
    int runProgram(const QString&, const QStringList&) override { return 2; }
    bool playWave(const QString&) override { return false; }
    std::optional<QString> chooseFile(const FileDialogRequest&) override { return std::nullopt; }
    bool chooseFolder(int) override { return false; }

private:
    int16_t m_pointer = 0;
};

// Installs the presenter every routine delegates to (not owned). Returns the previous one.
IPresenter* installPresenter(IPresenter* presenter);
IPresenter& presenter();

// A plain box that a screen shows by itself; the answer is returned.
Answer messageBox(const QString& text, const QString& title = QStringLiteral("Lapkeeper"),
                  Icon icon = Icon::None, Buttons buttons = Buttons::Ok);

// The boxes of shared code: critical "Lapkeeper Error", information and critical "Lapkeeper Message".
// Each drops an hourglass while the box stands, beeps, keeps the result in gLastBoxResult.
void showErrorMessage(const QString& text);
void showInfoMessage(const QString& text);
void showStopMessage(const QString& text);

void setStatusText(const QString& text = QStringLiteral("Status"));
// How long a passing status text ("Posted " + race name) stands before the idle text returns.
inline constexpr int kPassingStatusMs = 5000;
void setStatusTextFor(const QString& text, int milliseconds = kPassingStatusMs);
void setMousePointer(int16_t code);
int16_t mousePointer();
void advanceProgress();
bool isOdd(int64_t number);

// Opens a file or address; failures are shown with the text for their kind ("HTML", "EXPORT",
// "SYSINFO"). Returns the shell's result.
int launchFile(const QString& path, int showMode, const QString& kind);
// "HOME", "SUPPORT", "UPDATES" or an address.
void openWebPage(const QString& word);
void openInBrowser(const QString& address);
// Plays <settings folder>/<name>.wav, or beeps.
void playSound(const QString& name);
// "Quit", "Index", "Sensative" (context gHelpContext), "Partialkey", "Context", "HelponHelp".
void showHelp(const QString& word);
// The folder that holds LK.INI and the sounds, with a trailing "/".
QString windowsFolder();
