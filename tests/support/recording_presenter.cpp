#include "support/recording_presenter.h"

#include "base/app_globals.h"

#include <gtest/gtest.h>

RecordingPresenter::RecordingPresenter()
{
    m_previous = installPresenter(this);
}

RecordingPresenter::~RecordingPresenter()
{
    installPresenter(m_previous);
}

QStringList RecordingPresenter::boxTexts() const
{
    QStringList texts;
    for (const RecordedBox& box : m_boxes)
        texts << box.text;
    return texts;
}

void RecordingPresenter::clear()
{
    m_boxes.clear();
    m_statusTexts.clear();
    m_pointers.clear();
    m_launches.clear();
    m_fileRequests.clear();
    m_folderRequests.clear();
}

Answer RecordingPresenter::messageBox(const QString& text, const QString& title, Icon icon, Buttons buttons)
{
    m_boxes.append({text, title, icon, buttons});
    if (!m_answers.empty()) {
        const Answer answer = m_answers.front();
        m_answers.pop_front();
        return answer;
    }
    if (buttons != Buttons::Ok)
        ADD_FAILURE() << "unexpected question: " << qPrintable(title) << ": " << qPrintable(text);
    return Answer::Ok;
}

int RecordingPresenter::runProgram(const QString& program, const QStringList& arguments)
{
    m_launches << (program + u' ' + arguments.join(u' ')).trimmed();
    return m_launchResult;
}

std::optional<QString> RecordingPresenter::chooseFile(const FileDialogRequest& request)
{
    m_fileRequests.append(request);
    if (m_files.empty()) {
        ADD_FAILURE() << "unexpected file dialog: " << qPrintable(request.title);
        return std::nullopt;
    }
    const bool chosen = m_files.front().has_value();
    const QString file = m_files.front().value_or(QString());
    m_files.pop_front();
    if (!chosen)
        return std::nullopt;
    return file;
}

bool RecordingPresenter::chooseFolder(int mode)
{
    m_folderRequests.append(mode);
    if (m_folders.empty()) {
        ADD_FAILURE() << "unexpected folder chooser, mode " << mode;
        return false;
    }
    const std::optional<QString> folder = m_folders.front();
    m_folders.pop_front();
    if (!folder)
        return false;
    (mode == 1 ? gReportsPath : gBackupsPath) = *folder;
    return true;
}
