#include "store/safe_files.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace store {

namespace {

constexpr mode_t kPrivateMode = S_IRUSR | S_IWUSR;

QString systemError(int code)
{
    return QString::fromLocal8Bit(std::strerror(code));
}

QByteArray encoded(const QString& path)
{
    return QFile::encodeName(path);
}

// Closes fd; a failed close (a delayed write error) is reported like any other.
bool closeChecked(int fd, QString& error)
{
    if (::close(fd) != 0) {
        if (error.isEmpty())
            error = systemError(errno);
        return false;
    }
    return true;
}

bool writeAll(int fd, const char* data, ssize_t size, QString& error)
{
    while (size > 0) {
        const ssize_t written = ::write(fd, data, static_cast<size_t>(size));
        if (written < 0) {
            if (errno == EINTR)
                continue;
            error = systemError(errno);
            return false;
        }
        data += written;
        size -= written;
    }
    return true;
}

// Copies the contents of source to the open file out and flushes it.
bool copyToDescriptor(const QString& source, int out, QString& error)
{
    const int in = ::open(encoded(source).constData(), O_RDONLY | O_CLOEXEC);
    if (in < 0) {
        error = systemError(errno);
        return false;
    }
    struct stat info {};
    const int statError = ::fstat(in, &info) != 0 ? errno : 0;
    if (statError != 0 || !S_ISREG(info.st_mode)) {
        error = systemError(statError != 0 ? statError : S_ISDIR(info.st_mode) ? EISDIR : EINVAL);
        ::close(in);
        return false;
    }
    char buffer[64 * 1024];
    bool ok = true;
    for (;;) {
        const ssize_t got = ::read(in, buffer, sizeof buffer);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0) {
            error = systemError(errno);
            ok = false;
            break;
        }
        if (got == 0)
            break;
        if (!writeAll(out, buffer, got, error)) {
            ok = false;
            break;
        }
    }
    ::close(in);
    if (ok && ::fsync(out) != 0) {
        error = systemError(errno);
        ok = false;
    }
    return ok;
}

bool syncFolder(const QString& folder, QString& error)
{
    const int fd = ::open(encoded(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) {
        error = systemError(errno);
        return false;
    }
    // Some file systems cannot flush a folder; the rename itself has happened by then.
    if (::fsync(fd) != 0 && errno != EINVAL && errno != EROFS) {
        error = systemError(errno);
        ::close(fd);
        return false;
    }
    ::close(fd);
    return true;
}

} // namespace

bool sameFile(const QString& a, const QString& b)
{
    const QString canonicalA = QFileInfo(a).canonicalFilePath();
    if (!canonicalA.isEmpty() && canonicalA == QFileInfo(b).canonicalFilePath())
        return true;
    struct stat infoA {};
    struct stat infoB {};
    if (::stat(encoded(a).constData(), &infoA) == 0 && ::stat(encoded(b).constData(), &infoB) == 0)
        return infoA.st_dev == infoB.st_dev && infoA.st_ino == infoB.st_ino;
    // Neither exists (or one cannot be read): the spelled-out paths decide.
    return QDir::cleanPath(QFileInfo(a).absoluteFilePath()) == QDir::cleanPath(QFileInfo(b).absoluteFilePath());
}

bool makeTemporaryFile(const QString& folder, const QString& prefix, QString& path, QString& error)
{
    QByteArray pattern = encoded(folder + u'/' + prefix + QStringLiteral(".XXXXXX"));
    // mkstemp creates the file with mode 0600 and a name no other file has.
    const int fd = ::mkstemp(pattern.data());
    if (fd < 0) {
        error = systemError(errno);
        return false;
    }
    ::fchmod(fd, kPrivateMode);
    path = QFile::decodeName(pattern);
    if (!closeChecked(fd, error)) {
        ::unlink(pattern.constData());
        return false;
    }
    return true;
}

bool copyInto(const QString& source, const QString& path, QString& error)
{
    const int out = ::open(encoded(path).constData(), O_WRONLY | O_TRUNC | O_CLOEXEC);
    if (out < 0) {
        error = systemError(errno);
        return false;
    }
    const bool copied = copyToDescriptor(source, out, error);
    return closeChecked(out, error) && copied;
}

bool copyToNewFile(const QString& source, const QString& path, QString& error)
{
    const QByteArray name = encoded(path);
    const int out = ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kPrivateMode);
    if (out < 0) {
        error = systemError(errno);
        return false;
    }
    ::fchmod(out, kPrivateMode);
    const bool copied = copyToDescriptor(source, out, error);
    if (closeChecked(out, error) && copied && syncFolder(QFileInfo(path).absolutePath(), error))
        return true;
    ::unlink(name.constData());
    return false;
}

bool createPrivateFile(const QString& path, QString& error)
{
    const int fd = ::open(encoded(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kPrivateMode);
    if (fd < 0) {
        error = systemError(errno);
        return false;
    }
    ::fchmod(fd, kPrivateMode);
    return closeChecked(fd, error);
}

bool flushFile(const QString& path, QString& error)
{
    const int fd = ::open(encoded(path).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        error = systemError(errno);
        return false;
    }
    if (::fsync(fd) != 0) {
        error = systemError(errno);
        ::close(fd);
        return false;
    }
    return closeChecked(fd, error);
}

bool renameOver(const QString& from, const QString& to, QString& error)
{
    if (std::rename(encoded(from).constData(), encoded(to).constData()) != 0) {
        error = systemError(errno);
        return false;
    }
    // The rename has happened; a folder that cannot be flushed does not undo it.
    QString ignored;
    syncFolder(QFileInfo(to).absolutePath(), ignored);
    return true;
}

void removeTemporary(const QString& path)
{
    if (path.isEmpty())
        return;
    for (const QString& name : {path, path + QStringLiteral("-journal"), path + QStringLiteral("-wal"),
                                path + QStringLiteral("-shm")})
        ::unlink(encoded(name).constData());
}

} // namespace store
