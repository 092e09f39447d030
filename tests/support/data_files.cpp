#define SQLITE_HAS_CODEC 1
#include "support/data_files.h"
#include "store/connection.h"

#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <cstring>
#include <sys/stat.h>

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
}

QString tableRows(const QString& path)
{
    QString error;
    sqlite3* db = store::openKeyed(path, false, error);
    if (!db)
        return QStringLiteral("<unreadable: ") + error + u'>';
    QStringList tables;
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(db, "SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name", -1, &stmt, nullptr);
    while (stmt && sqlite3_step(stmt) == SQLITE_ROW)
        tables << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0)));
    sqlite3_finalize(stmt);
    QString text;
    for (const QString& table : std::as_const(tables)) {
        text += table + u'\n';
        const QByteArray sql = (QStringLiteral("SELECT * FROM ") + table + QStringLiteral(" ORDER BY rowid")).toUtf8();
        sqlite3_prepare_v2(db, sql.constData(), -1, &stmt, nullptr);
        while (stmt && sqlite3_step(stmt) == SQLITE_ROW) {
            QStringList cells;
            for (int c = 0; c < sqlite3_column_count(stmt); ++c)
                cells << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, c)));
            text += cells.join(u'|') + u'\n';
        }
        sqlite3_finalize(stmt);
    }
    sqlite3_close_v2(db);
    return text;
}

int fileMode(const QString& path)
{
    struct stat info {};
    if (::stat(QFile::encodeName(path).constData(), &info) != 0)
        return -1;
    return static_cast<int>(info.st_mode & 07777);
}

QStringList folderEntries(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

void writeForeignDataFile(const QString& path, const char* key)
{
    QFile::remove(path);
    sqlite3* db = nullptr;
    sqlite3_open(QFile::encodeName(path).constData(), &db);
    if (key)
        sqlite3_key(db, key, static_cast<int>(std::strlen(key)));
    sqlite3_exec(db, "CREATE TABLE leagues (league_nmbr INTEGER); INSERT INTO leagues VALUES (1);", nullptr, nullptr,
                 nullptr);
    sqlite3_close(db);
}
