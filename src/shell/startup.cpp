#include "shell/startup.h"
#include "base/app_globals.h"
#include "base/messages.h"
#include "base/runtime_error.h"
#include "shell/settings.h"
#include "store/connection.h"
#include "store/maintenance.h"
#include "store/schema.h"

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

// Makes the folder if it is not there; one that cannot be made or written is the run-time error.
void makeFolder(const QString& folder)
{
    if (!QDir().mkpath(folder) || !QFileInfo(folder).isWritable())
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

bool openOrCreateDatabase()
{
    if (!QFileInfo::exists(dataFilePath())) {
        QString error;
        if (!createDataFile(dataFilePath(), error)) {
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
    backupDatabase(gBackupsPath + u'/' + kDataFileName);
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
