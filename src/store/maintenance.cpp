#include "store/maintenance.h"
#include "racing/races.h"
#include "racing/results.h"
#include "shell/app_globals.h"
#include "shell/messages.h"
#include "store/connection.h"

#include <QFile>
#include <QFileInfo>
#include <vector>

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

bool sameFile(const QString& a, const QString& b)
{
    const QString ca = QFileInfo(a).canonicalFilePath();
    return !ca.isEmpty() && ca == QFileInfo(b).canonicalFilePath();
}

// Copies source over the data file. The copy goes to a neighbour first and is renamed into
// place, so a source that cannot be read leaves the old data file whole.
bool copyOverDataFile(const QString& source)
{
    const QString target = dataFilePath();
    if (sameFile(source, target) || !QFileInfo(source).isFile())
        return false;
    const QString staging = target + QStringLiteral(".restoring");
    QFile::remove(staging);
    if (!QFile::copy(source, staging))
        return false;
    // A journal left beside the old file must not be replayed into the restored one.
    QFile::remove(target + QStringLiteral("-wal"));
    QFile::remove(target + QStringLiteral("-shm"));
    QFile::remove(target);
    if (!QFile::rename(staging, target)) {
        QFile::remove(staging);
        return false;
    }
    QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
    return true;
}

} // namespace

void backupDatabase(const QString& path)
{
    IDatabase db;
    if (gConnection)
        gConnection->CloseConnection();
    QString destination = path;
    db.compactDatabaseNow(destination);
    openDatabase();
}

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
        if (!gConnection)
            gConnection = std::make_unique<cConnection>();
        gConnection->CloseConnection();
        // A failed copy leaves the connection closed and the hourglass up until the pointer
        // next moves over the main window.
        if (!copyOverDataFile(*file))
            return;
        gConnection->openAccessConnection();
        setMousePointer(kPointerDefault);
    } catch (...) {
    }
}

void clearPostingsForNewSeason()
{
    cRacesCollection races;
    races.load();
    cResultsCollection results;
    for (const cRaces& race : races)
        results.deletePosting(race.raceNmbr());
}
