#include "base/input_file.h"
#include "base/app_globals.h"
#include "base/messages.h"

#include <QFile>
#include <QFileInfo>
#include <map>
#include <memory>

namespace {

QString& mark()
{
    static QString value = QStringLiteral("N");
    return value;
}

std::map<int, std::unique_ptr<QFile>>& channels()
{
    static std::map<int, std::unique_ptr<QFile>> open;
    return open;
}

struct FileError {
    int number;
    QString description;
};

FileError errorOf(const QFile& file)
{
    const QFileInfo info(file.fileName());
    if (!info.exists())
        return {53, QStringLiteral("File not found")};
    if (info.isDir())
        return {75, QStringLiteral("Path/File access error")};
    if (file.error() == QFileDevice::PermissionsError || !info.isReadable())
        return {70, QStringLiteral("Permission denied")};
    return {57, QStringLiteral("Device I/O error")};
}

void fail(const QString& action, const QString& fileName, const FileError& error)
{
    mark() = QStringLiteral("Y");
    showErrorMessage(QStringLiteral("Error trying to ") + action + u' ' + applicationFolder() + u'/' +
                     QFileInfo(fileName).fileName() +
                     QStringLiteral(".\n\nError: ") + QString::number(error.number) + u'/' + error.description);
}

} // namespace

QString fileErrorMark()
{
    return mark();
}

int openInputFile(const QString& path)
{
    mark() = QStringLiteral("N");
    auto file = std::make_unique<QFile>(path);
    if (QFileInfo(path).isDir() || !file->open(QIODevice::ReadOnly)) {
        fail(QStringLiteral("open"), path, errorOf(*file));
        return 0;
    }
    int channel = 1;
    while (channels().count(channel))
        ++channel;
    channels()[channel] = std::move(file);
    return channel;
}

QString readWholeFile(int channel)
{
    mark() = QStringLiteral("N");
    const auto it = channels().find(channel);
    if (it == channels().end()) {
        fail(QStringLiteral("read"), QString(), {52, QStringLiteral("Bad file name or number")});
        return {};
    }
    QFile& file = *it->second;
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        fail(QStringLiteral("read"), file.fileName(), {57, QStringLiteral("Device I/O error")});
        return {};
    }
    return QString::fromUtf8(bytes);
}

void closeInputFile(int channel)
{
    mark() = QStringLiteral("N");
    const auto it = channels().find(channel);
    if (it == channels().end()) {
        fail(QStringLiteral("close"), QString(), {52, QStringLiteral("Bad file name or number")});
        return;
    }
    it->second->close();
    channels().erase(it);
}
