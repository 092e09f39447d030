#include "store/maintenance.h"
#include "base/app_globals.h"
#include "store/connection.h"

#include <QFile>
#include <QFileInfo>

namespace {

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

bool restoreDataFile(const QString& source)
{
    if (!gConnection)
        gConnection = std::make_unique<cConnection>();
    gConnection->CloseConnection();
    if (!copyOverDataFile(source))
        return false;
    gConnection->openAccessConnection();
    return true;
}
