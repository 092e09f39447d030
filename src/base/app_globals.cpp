#include "base/app_globals.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

QString gReportsPath;
QString gBackupsPath;
QString gImportsPath;
int16_t gViewMode = 0;
int32_t gHelpContext = 0;
int32_t gLastBoxResult = 0;

namespace {
QString& folderStore()
{
    static QString folder;
    return folder;
}
} // namespace

void setApplicationFolder(const QString& folder)
{
    folderStore() = QDir::cleanPath(folder);
}

const QString& applicationFolder()
{
    return folderStore();
}

QString dataFilePath()
{
    return applicationFolder() + u'/' + kDataFileName;
}

QString defaultApplicationFolder()
{
    const QString exeFolder = QCoreApplication::applicationDirPath();
    if (!exeFolder.isEmpty() && QFileInfo::exists(exeFolder + QStringLiteral("/portable")))
        return exeFolder;
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

bool makeApplicationFolders()
{
    gReportsPath = applicationFolder() + u'/' + kReportsFolder;
    gBackupsPath = applicationFolder() + u'/' + kBackupsFolder;
    gImportsPath = applicationFolder() + u'/' + kImportsFolder;
    for (const QString& path : {gReportsPath, gBackupsPath, gImportsPath}) {
        if (!QDir().mkpath(path))
            return false;
    }
    return true;
}
