#include "shell/startup.h"
#include "base/app_globals.h"
#include "base/messages.h"
#include "base/runtime_error.h"
#include "shell/settings.h"
#include "store/connection.h"
#include "store/maintenance.h"
#include "store/schema.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <cmath>

cInstanceGuard::cInstanceGuard() = default;

cInstanceGuard::~cInstanceGuard() = default;

QString cInstanceGuard::lockFilePath()
{
    return applicationFolder() + QStringLiteral("/.lapkeeper.lock");
}

namespace {

// The run-time error of a folder that cannot be made or written, naming it.
cRuntimeError folderError(const QString& folder)
{
    return cRuntimeError(75, QStringLiteral("Path/File access error\n\n") + QDir::toNativeSeparators(folder));
}

// Makes the folder, private to the user, if it is not there; one that cannot be made or written
// is the run-time error.
void makeFolder(const QString& folder)
{
    if (!makePrivateFolder(folder) || !QFileInfo(folder).isWritable())
        throw folderError(folder);
}

} // namespace

bool cInstanceGuard::acquire()
{
    if (isHeld())
        return true;
    // The guard runs before the folders are made: on a first start the folder is new.
    makeFolder(applicationFolder());
    auto lock = std::make_unique<QLockFile>(lockFilePath());
    // A lock is stale only when its process is gone, never by its age: a run lasts for hours.
    lock->setStaleLockTime(0);
    if (!lock->tryLock(0)) {
        // Only a lock held by a running copy refuses the start; a lock file that cannot be
        // written at all is a folder the program cannot use.
        if (lock->error() == QLockFile::LockFailedError)
            return false;
        throw folderError(applicationFolder());
    }
    m_lock = std::move(lock);
    return true;
}

bool cInstanceGuard::isHeld() const
{
    return m_lock && m_lock->isLocked();
}

void prepareApplicationFolder()
{
    makeFolder(applicationFolder());
    QDir::setCurrent(applicationFolder());
    if (makeApplicationFolders())
        return;
    for (const QString& folder : {gReportsPath, gBackupsPath, gImportsPath})
        makeFolder(folder);
    throw folderError(applicationFolder());
}

namespace {

// Asks whether to restore the newest backup in place of a missing data file, and does so on Yes.
// A refused backup says why; the caller's open then shows the missing file's two messages.
void offerRestore(const QString& backup)
{
    const QFileInfo info(backup);
    const QString question =
        QStringLiteral("The data file %1 is missing.\n\nDo you want to restore the newest backup, %2 of %3?")
            .arg(QDir::toNativeSeparators(dataFilePath()), info.fileName(),
                 info.lastModified().toString(QStringLiteral("yyyy-MM-dd HH:mm")));
    if (messageBox(question, QStringLiteral("Lapkeeper"), Icon::Question, Buttons::YesNo) != Answer::Yes)
        return;
    QString failure;
    if (!restoreDataFile(backup, failure))
        messageBox(failure, QStringLiteral("Lapkeeper"), Icon::Critical);
}

} // namespace

bool openOrCreateDatabase()
{
    // A new data file is made only on a true first run: no data file and no backup. A data
    // file that has gone missing since is never silently replaced by an empty one.
    if (!QFileInfo::exists(dataFilePath())) {
        QString error;
        if (const QString backup = newestBackup(); !backup.isEmpty()) {
            offerRestore(backup);
        } else if (!createDataFile(dataFilePath(), error)) {
            messageBox(error, QStringLiteral("Lapkeeper"), Icon::Critical);
            messageBox(QStringLiteral("Unable to connect to Database"), QStringLiteral("Lapkeeper"), Icon::Critical);
            return false;
        }
    }
    return openDatabase();
}

void finishRun()
{
    showHelp(QStringLiteral("Quit"));
    saveSettings();
    // The automatic backup shows nothing; a failure is logged and the earlier backup stays.
    QString failure;
    if (!automaticBackup(failure))
        writeRunLog(QStringLiteral("automatic backup: ") + failure);
    if (gConnection)
        gConnection->CloseConnection();
}

int twipsToPixels(int twips, double dotsPerInch)
{
    return static_cast<int>(std::lround(twips * dotsPerInch / kTwipsPerInch));
}

int pixelsToTwips(int pixels, double dotsPerInch)
{
    if (dotsPerInch <= 0)
        return 0;
    return static_cast<int>(std::lround(pixels * kTwipsPerInch / dotsPerInch));
}
