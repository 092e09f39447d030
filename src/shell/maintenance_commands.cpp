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
        backupDatabase(*file);
        setMousePointer(kPointerDefault);
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
        // A failed copy leaves the connection closed and the hourglass up until the pointer
        // next moves over the main window.
        if (restoreDataFile(*file))
            setMousePointer(kPointerDefault);
    } catch (...) {
    }
}
