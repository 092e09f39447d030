#include "shell/maintenance_commands.h"
#include "base/app_globals.h"
#include "base/messages.h"
#include "store/maintenance.h"

namespace {

FileDialogRequest dataFileDialog(FileDialogRequest::Mode mode, const QString& title)
{
    FileDialogRequest request;
    request.mode = mode;
    request.title = title;
    request.folder = gBackupsPath;
    request.filter = QStringLiteral("Lapkeeper Data File (*.lk)|*.lk|");
    request.fileName = kDataFileName;
    return request;
}

} // namespace

void backupDataFileCommand()
{
    try {
        const auto file = presenter().chooseFile(dataFileDialog(FileDialogRequest::Mode::Save,
                                                                QStringLiteral("Lapkeeper Save")));
        if (!file)
            return;
        setMousePointer(kPointerHourglass);
        QString failure;
        const bool written = backupDatabase(*file, failure);
        setMousePointer(kPointerDefault);
        if (!written)
            messageBox(failure, QStringLiteral("Lapkeeper"), Icon::Critical);
    } catch (...) {
        // Any failure ends the command silently, as a cancel does.
    }
}

void restoreDataFileCommand()
{
    try {
        const auto file = presenter().chooseFile(dataFileDialog(FileDialogRequest::Mode::Open,
                                                                QStringLiteral("Lapkeeper Restore")));
        if (!file)
            return;
        setMousePointer(kPointerHourglass);
        // A file that is refused leaves the data file as it was, and open.
        QString failure;
        const bool restored = restoreDataFile(*file, failure);
        setMousePointer(kPointerDefault);
        if (!restored)
            messageBox(failure, QStringLiteral("Lapkeeper"), Icon::Critical);
    } catch (...) {
    }
}
