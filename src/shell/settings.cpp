#include "shell/settings.h"
#include "base/app_globals.h"
#include "base/messages.h"

#include <QDir>
#include <QFileInfo>
#include <climits>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStringList>

LkSettings gSettings;

namespace {

const QString kSection = QStringLiteral("Lapkeeper");

QStringList readLines(const QString& file)
{
    QFile f(file);
    if (!f.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromUtf8(f.readAll()).split(u'\n');
}

bool isSectionLine(const QString& line, QString* name = nullptr)
{
    const QString t = line.trimmed();
    if (!t.startsWith(u'[') || !t.endsWith(u']'))
        return false;
    if (name)
        *name = t.mid(1, t.size() - 2).trimmed();
    return true;
}

// Index of the "key=value" line of key inside section, -1 if none; sectionEnd gets the line
// after the section's last line (-1 when the section is missing).
qsizetype findKey(const QStringList& lines, const QString& section, const QString& key, qsizetype& sectionEnd)
{
    sectionEnd = -1;
    bool inSection = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        QString name;
        if (isSectionLine(lines[i], &name)) {
            if (inSection)
                return -1;
            inSection = name.compare(section, Qt::CaseInsensitive) == 0;
            if (inSection)
                sectionEnd = i + 1;
            continue;
        }
        if (!inSection)
            continue;
        if (!lines[i].trimmed().isEmpty())
            sectionEnd = i + 1;
        const qsizetype eq = lines[i].indexOf(u'=');
        if (eq > 0 && lines[i].left(eq).trimmed().compare(key, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

QString readKey(const QString& key, const QString& fallback, int width)
{
    return readProfileString(settingsFilePath(), kSection, key, fallback).left(width);
}

bool isYesNo(const QString& v)
{
    return v == u"Y" || v == u"N";
}

QString checkFlag(const QString& v, const QString& fallback)
{
    return isYesNo(v) ? v : fallback;
}

QString checkNumber(const QString& v, const QString& fallback, int low, int high)
{
    bool ok = false;
    const double n = v.trimmed().toDouble(&ok);
    return ok && n >= low && n <= high ? v : fallback;
}

} // namespace

QString windowsFolder()
{
    QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    if (!folder.endsWith(u'/'))
        folder += u'/';
    return folder;
}

QString settingsFilePath()
{
    return windowsFolder() + kSettingsFileName;
}

QString readProfileString(const QString& file, const QString& section, const QString& key, const QString& fallback)
{
    const QStringList lines = readLines(file);
    qsizetype end = -1;
    const qsizetype at = findKey(lines, section, key, end);
    if (at < 0)
        return fallback;
    QString value = lines[at].mid(lines[at].indexOf(u'=') + 1).trimmed();
    if (value.size() >= 2 && value.startsWith(u'"') && value.endsWith(u'"'))
        value = value.mid(1, value.size() - 2);
    return value;
}

bool writeProfileString(const QString& file, const QString& section, const QString& key, const QString& value)
{
    QStringList lines = readLines(file);
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    qsizetype end = -1;
    const qsizetype at = findKey(lines, section, key, end);
    const QString line = key + u'=' + value;
    if (at >= 0)
        lines[at] = line;
    else if (end >= 0)
        lines.insert(end, line);
    else
        lines << u'[' + section + u']' << line;
    QDir().mkpath(QFileInfo(file).absolutePath());
    QSaveFile out(file);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    out.write((lines.join(u'\n') + u'\n').toUtf8());
    return out.commit();
}

void loadSettings()
{
    const LkSettings defaults;
    LkSettings& s = gSettings;
    s.firstTime = checkFlag(readKey(QStringLiteral("First Time"), defaults.firstTime, 1), defaults.firstTime);
    s.statusBar = checkFlag(readKey(QStringLiteral("Status Bar"), defaults.statusBar, 1), defaults.statusBar);
    s.toolBar = checkFlag(readKey(QStringLiteral("Tool Bar"), defaults.toolBar, 1), defaults.toolBar);
    s.mdiWidth = checkNumber(readKey(QStringLiteral("MDI Width"), defaults.mdiWidth, 5), defaults.mdiWidth, INT_MIN, 32767);
    s.mdiLeft = checkNumber(readKey(QStringLiteral("MDI Left"), defaults.mdiLeft, 5), defaults.mdiLeft, INT_MIN, 32767);
    s.mdiTop = checkNumber(readKey(QStringLiteral("MDI Top"), defaults.mdiTop, 5), defaults.mdiTop, INT_MIN, 32767);
    s.mdiHeight = checkNumber(readKey(QStringLiteral("MDI Height"), defaults.mdiHeight, 5), defaults.mdiHeight, INT_MIN, 32767);
    s.mdiState = checkNumber(readKey(QStringLiteral("MDI State"), defaults.mdiState, 1), defaults.mdiState, 0, 2);
    s.splitterLeft = checkNumber(readKey(QStringLiteral("Splitter Left"), defaults.splitterLeft, 5), defaults.splitterLeft,
                                 INT_MIN, 32767);
    // Not one of the saved keys: an operator who hosts the download files writes it by hand.
    const QString server = readProfileString(settingsFilePath(), kSection, QStringLiteral("DownloadServer"), QString()).trimmed();
    gDownloadServer = server.isEmpty() ? kDownloadServer : server;
}

void saveSettings()
{
    const QString file = settingsFilePath();
    const LkSettings& s = gSettings;
    const std::pair<QString, QString> keys[] = {
        {QStringLiteral("First Time"), QStringLiteral("N")}, {QStringLiteral("Status Bar"), s.statusBar},
        {QStringLiteral("Tool Bar"), s.toolBar},             {QStringLiteral("MDI Top"), s.mdiTop},
        {QStringLiteral("MDI Left"), s.mdiLeft},             {QStringLiteral("MDI Height"), s.mdiHeight},
        {QStringLiteral("MDI Width"), s.mdiWidth},           {QStringLiteral("MDI State"), s.mdiState},
        {QStringLiteral("Splitter Left"), s.splitterLeft},
    };
    for (const auto& [key, value] : keys)
        writeProfileString(file, kSection, key, value);
}
