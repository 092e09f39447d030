#pragma once
#include "base/messages.h"

#include <QList>
#include <deque>

// Records every box (text, title, icon, buttons) and every status text, pointer, launch and
// file or folder dialog; answers boxes and dialogs from queues. A box that the test did not queue an
// answer for fails the test (a plain Ok box needs no answer).
struct RecordedBox {
    QString text;
    QString title;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
};

class RecordingPresenter final : public IPresenter {
public:
    RecordingPresenter();            // installs itself
    ~RecordingPresenter() override;  // puts the previous presenter back

    void queueAnswer(Answer answer) { m_answers.push_back(answer); }
    void queueFile(std::optional<QString> file) { m_files.push_back(std::move(file)); }
    // The folder the next folder chooser picks, or nullopt for Cancel.
    void queueFolder(std::optional<QString> folder) { m_folders.push_back(std::move(folder)); }
    void setLaunchResult(int result) { m_launchResult = result; }
    void setPlayResult(bool ok) { m_playResult = ok; }

    const QList<RecordedBox>& boxes() const { return m_boxes; }
    QStringList boxTexts() const;
    void clear();
    const QStringList& statusTexts() const { return m_statusTexts; }
    const QList<int16_t>& pointers() const { return m_pointers; }
    const QStringList& launches() const { return m_launches; }
    const QList<FileDialogRequest>& fileRequests() const { return m_fileRequests; }
    const QList<int>& folderRequests() const { return m_folderRequests; }   // their modes
    int beeps() const { return m_beeps; }
    int progressTicks() const { return m_progress; }

    Answer messageBox(const QString& text, const QString& title, Icon icon, Buttons buttons) override;
    void beep() override { ++m_beeps; }
    void setStatusText(const QString& text) override { m_statusTexts << text; }
    void setMousePointer(int16_t code) override { m_pointer = code; m_pointers << code; }
    int16_t mousePointer() const override { return m_pointer; }
    void advanceProgress() override { ++m_progress; }
    int launch(const QString& target) override { m_launches << target; return m_launchResult; }
    int runProgram(const QString& program, const QStringList& arguments) override;
    bool playWave(const QString& path) override { m_launches << path; return m_playResult; }
    std::optional<QString> chooseFile(const FileDialogRequest& request) override;
    bool chooseFolder(int mode) override;

private:
    IPresenter* m_previous = nullptr;
    std::deque<Answer> m_answers;
    std::deque<std::optional<QString>> m_files;
    std::deque<std::optional<QString>> m_folders;
    QList<RecordedBox> m_boxes;
    QStringList m_statusTexts;
    QList<int16_t> m_pointers;
    QStringList m_launches;
    QList<FileDialogRequest> m_fileRequests;
    QList<int> m_folderRequests;
    int16_t m_pointer = 0;
    int m_launchResult = 42;
    bool m_playResult = true;
    int m_beeps = 0;
    int m_progress = 0;
};
