#include "base/app_globals.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QFile>
#include <QStandardPaths>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

QString gReportsPath;
QString gBackupsPath;
QString gImportsPath;
QString gDownloadServer = kDownloadServer;
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
        if (!makePrivateFolder(path))
            return false;
    }
    return true;
}

bool makePrivateFolder(const QString& path)
{
    const QFileInfo info(path);
    if (info.isDir())
        return true;
    if (!QDir().mkpath(info.absolutePath()))
        return false;
    const QByteArray name = QFile::encodeName(path);
    if (::mkdir(name.constData(), S_IRWXU) != 0)
        return errno == EEXIST && QFileInfo(path).isDir();
    // The mask of the process may only take bits away; set the mode whole.
    ::chmod(name.constData(), S_IRWXU);
    return true;
}

void writeRunLog(const QString& text)
{
    const QString line = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss ")) + text;
    std::fprintf(stderr, "%s\n", qPrintable(line));
    if (applicationFolder().isEmpty())
        return;
    const QByteArray name = QFile::encodeName(applicationFolder() + QStringLiteral("/lapkeeper.log"));
    const int fd = ::open(name.constData(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (fd < 0)
        return;
    const QByteArray bytes = line.toUtf8() + '\n';
    const ssize_t written = ::write(fd, bytes.constData(), static_cast<size_t>(bytes.size()));
    (void)written;   // a log that cannot be written has nowhere else to go
    ::close(fd);
}
