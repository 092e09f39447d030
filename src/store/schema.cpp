#define SQLITE_HAS_CODEC 1
#include "store/schema.h"
#include "store/connection.h"
#include "store/safe_files.h"

#include <sqlite3.h>

#include <QFile>
#include <QStringList>

namespace {

QString resourceText(const QString& name)
{
    QFile file(QStringLiteral(":/store/") + name);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll());
}

// One "SELECT <every column> FROM <table> LIMIT 0" per table of the schema, worked out once by
// running the schema script on a scratch in-memory database and reading back its tables.
const QStringList& schemaProbes()
{
    static const QStringList probes = [] {
        QStringList result;
        sqlite3* scratch = nullptr;
        if (sqlite3_open(":memory:", &scratch) != SQLITE_OK) {
            sqlite3_close(scratch);
            return result;
        }
        QString error;
        if (store::runScript(scratch, schemaScript(), error)) {
            sqlite3_stmt* tables = nullptr;
            sqlite3_prepare_v2(scratch, "SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name", -1,
                               &tables, nullptr);
            while (tables && sqlite3_step(tables) == SQLITE_ROW) {
                const QString table = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(tables, 0)));
                QStringList columns;
                sqlite3_stmt* info = nullptr;
                const QByteArray pragma = (QStringLiteral("PRAGMA table_info(") + table + u')').toUtf8();
                sqlite3_prepare_v2(scratch, pragma.constData(), -1, &info, nullptr);
                while (info && sqlite3_step(info) == SQLITE_ROW)
                    columns << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(info, 1)));
                sqlite3_finalize(info);
                result << QStringLiteral("SELECT ") + columns.join(u',') + QStringLiteral(" FROM ") + table +
                              QStringLiteral(" LIMIT 0");
            }
            sqlite3_finalize(tables);
        }
        sqlite3_close(scratch);
        return result;
    }();
    return probes;
}

} // namespace

QString schemaScript()
{
    return resourceText(QStringLiteral("schema.sql"));
}

QString seedScript()
{
    return resourceText(QStringLiteral("seed.sql")) + u'\n' + resourceText(QStringLiteral("seed_reports.sql"));
}

bool createDataFile(const QString& path, QString& error)
{
    // The file is made private to the owner before the engine fills it; an existing file is
    // never taken over.
    if (!store::createPrivateFile(path, error))
        return false;
    sqlite3* db = store::openKeyed(path, true, error);
    if (!db) {
        QFile::remove(path);
        return false;
    }
    const QString script = QStringLiteral("BEGIN;\n") + schemaScript() + u'\n' + seedScript() +
                           QStringLiteral("\nPRAGMA user_version = %1;\nCOMMIT;\n").arg(kSchemaVersion);
    const bool ok = store::runScript(db, script, error);
    sqlite3_close_v2(db);
    if (!ok)
        QFile::remove(path);
    return ok;
}

bool verifySchema(sqlite3* db, QString& error)
{
    if (schemaProbes().isEmpty()) {
        error = QStringLiteral("The table definitions of the program could not be read.");
        return false;
    }
    for (const QString& probe : schemaProbes()) {
        sqlite3_stmt* stmt = nullptr;
        const QByteArray sql = probe.toUtf8();
        const int rc = sqlite3_prepare_v2(db, sql.constData(), -1, &stmt, nullptr);
        sqlite3_finalize(stmt);
        if (rc != SQLITE_OK) {
            error = QString::fromUtf8(sqlite3_errmsg(db));
            return false;
        }
    }
    return true;
}
