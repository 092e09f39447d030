#include "store/maintenance.h"
#include "base/app_globals.h"
#include "store/connection.h"
#include "store/safe_files.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

const QString kRestoreFromDataFile =
    QStringLiteral("The data file cannot be restored from itself. Choose a backup file.");

QString backupsFolder()
{
    return gBackupsPath.isEmpty() ? applicationFolder() + u'/' + kBackupsFolder : gBackupsPath;
}

// "lapkeeper30": the data file's name without ".lk", which every dated copy starts with.
QString dataFileStem()
{
    return QFileInfo(kDataFileName).completeBaseName();
}

// Copies source to folder/<stem><date and time>.lk under a name not taken yet; the time is
// stepped on by a millisecond while a name is taken, so names sort in the order of writing.
bool copyToDatedFile(const QString& source, const QString& stem, QString& error)
{
    if (!makePrivateFolder(backupsFolder())) {
        error = QStringLiteral("the folder %1 cannot be made").arg(backupsFolder());
        return false;
    }
    QDateTime when = QDateTime::currentDateTime();
    for (int attempt = 0; attempt < 1000; ++attempt, when = when.addMSecs(1)) {
        const QString path = backupsFolder() + u'/' + stem +
                             when.toString(QStringLiteral("yyyy-MM-dd-HHmmss-zzz")) + QStringLiteral(".lk");
        if (!QFileInfo::exists(path))
            return store::copyToNewFile(source, path, error);
    }
    error = QStringLiteral("no free name for a dated copy");
    return false;
}

// Removes the oldest dated automatic backups beyond the number kept.
void pruneDatedBackups()
{
    const QRegularExpression dated(u'^' + QRegularExpression::escape(dataFileStem()) +
                                   QStringLiteral("-\\d{4}-\\d{2}-\\d{2}-\\d{6}-\\d{3}\\.lk$"));
    QStringList names = QDir(backupsFolder()).entryList(QDir::Files, QDir::Name);
    names.removeIf([&dated](const QString& name) { return !dated.match(name).hasMatch(); });
    for (qsizetype i = 0; i + kDatedBackupsKept < names.size(); ++i)
        QFile::remove(backupsFolder() + u'/' + names[i]);
}

} // namespace

bool backupDatabase(const QString& path, QString& failure)
{
    if (store::sameFile(path, dataFilePath())) {
        failure = kBackupOverDataFile;
        return false;
    }
    IDatabase db;
    if (gConnection)
        gConnection->CloseConnection();
    QString destination = path;
    QString reason;
    const bool written = db.compactDatabaseNow(destination, &reason);
    openDatabase();
    if (!written)
        failure = QStringLiteral("The backup to %1 failed: %2.\nAny earlier file there is unchanged.")
                      .arg(QDir::toNativeSeparators(destination), reason);
    return written;
}

bool automaticBackup(QString& failure)
{
    const QString newest = backupsFolder() + u'/' + kDataFileName;
    if (!backupDatabase(newest, failure))
        return false;
    QString error;
    if (!copyToDatedFile(newest, dataFileStem() + u'-', error)) {
        failure = QStringLiteral("The dated copy of %1 failed: %2.").arg(QDir::toNativeSeparators(newest), error);
        return false;
    }
    pruneDatedBackups();
    return true;
}

bool restoreDataFile(const QString& source, QString& failure)
{
    const QString target = dataFilePath();
    if (store::sameFile(source, target)) {
        failure = kRestoreFromDataFile;
        return false;
    }
    if (!gConnection)
        gConnection = std::make_unique<cConnection>();
    const bool wasOpen = gConnection->getConnection() != nullptr;
    const auto failed = [&](const QString& reason) {
        failure = QStringLiteral("The data file could not be restored from %1: %2.\nThe data file is unchanged.")
                      .arg(QDir::toNativeSeparators(source), reason);
        return false;
    };

    // A private copy beside the data file is checked first: the bytes checked are the bytes
    // that take the data file's place.
    QString staging;
    QString error;
    if (!store::makeTemporaryFile(applicationFolder(), u'.' + kDataFileName, staging, error))
        return failed(error);
    if (!store::copyInto(source, staging, error)) {
        store::removeTemporary(staging);
        return failed(error);
    }
    if (!store::verifyDataFile(staging, error)) {
        store::removeTemporary(staging);
        failure = error;   // the engine's own description, as when the file is opened
        return false;
    }

    gConnection->CloseConnection();
    const auto reopen = [&] {
        if (wasOpen)
            gConnection->openAccessConnection();
    };
    if (QFileInfo::exists(target)) {
        // A journal that closing did not fold back holds rows the copy below would miss.
        if (QFileInfo(target + QStringLiteral("-wal")).size() > 0) {
            store::removeTemporary(staging);
            reopen();
            return failed(QStringLiteral("the data file's journal could not be folded back"));
        }
        // The current file goes to the backups folder first, so a wrong choice can be undone.
        if (!copyToDatedFile(target, dataFileStem() + QStringLiteral("-before-restore-"), error)) {
            store::removeTemporary(staging);
            reopen();
            return failed(QStringLiteral("the copy of the current data file failed: ") + error);
        }
    }
    // Empty leftovers of the old file's journal must not be paired with the restored file.
    QFile::remove(target + QStringLiteral("-wal"));
    QFile::remove(target + QStringLiteral("-shm"));
    if (!store::renameOver(staging, target, error)) {
        store::removeTemporary(staging);
        reopen();
        return failed(error);
    }
    gConnection->openAccessConnection();
    return true;
}

QString newestBackup()
{
    const QFileInfoList files =
        QDir(backupsFolder()).entryInfoList({QStringLiteral("*.lk")}, QDir::Files | QDir::Readable, QDir::Time);
    return files.isEmpty() ? QString() : files.first().absoluteFilePath();
}
