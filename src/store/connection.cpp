#define SQLITE_HAS_CODEC 1
#include "store/connection.h"
#include "base/app_globals.h"
#include "base/messages.h"
#include "base/runtime_error.h"
#include "store/jet_dialect.h"
#include "store/safe_files.h"
#include "store/schema.h"
#include "store/statement_shape.h"

#include <sqlite3.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>

std::unique_ptr<cConnection> gConnection;

namespace {

const QString kClosedDescription = QStringLiteral("Object invalid or no longer set.");

sqlite3* currentDatabase()
{
    return gConnection ? gConnection->getConnection() : nullptr;
}

QString engineMessage(sqlite3* db)
{
    return QString::fromUtf8(sqlite3_errmsg(db));
}

bool exec(sqlite3* db, const char* sql, QString* error = nullptr)
{
    char* message = nullptr;
    const int rc = sqlite3_exec(db, sql, nullptr, nullptr, &message);
    if (rc != SQLITE_OK && error)
        *error = message ? QString::fromUtf8(message) : QString::fromUtf8(sqlite3_errstr(rc));
    sqlite3_free(message);
    return rc == SQLITE_OK;
}

cVariant columnValue(sqlite3_stmt* stmt, int column)
{
    switch (sqlite3_column_type(stmt, column)) {
    case SQLITE_INTEGER: return cVariant(static_cast<int64_t>(sqlite3_column_int64(stmt, column)));
    case SQLITE_FLOAT: return cVariant(sqlite3_column_double(stmt, column));
    case SQLITE_NULL: return {};
    default:
        return cVariant(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, column)),
                                          sqlite3_column_bytes(stmt, column)));
    }
}

// The description given for text that follows the one statement of an execute or OpenResultSet.
const QString kTrailingTextDescription = QStringLiteral("Characters found after end of SQL statement.");

// Prepares the first statement of sql and makes sure that nothing but blanks, comments and
// semicolons follows it (text the engine cannot parse counts as more). False with the engine's
// description, or with kTrailingTextDescription; stmt is null for text without a statement.
bool prepareOne(sqlite3* db, const QByteArray& sql, sqlite3_stmt*& stmt, QString& error)
{
    stmt = nullptr;
    const char* tail = nullptr;
    if (sqlite3_prepare_v2(db, sql.constData(), static_cast<int>(sql.size()), &stmt, &tail) != SQLITE_OK) {
        error = engineMessage(db);
        sqlite3_finalize(stmt);
        stmt = nullptr;
        return false;
    }
    if (!stmt)
        return true;
    sqlite3_stmt* next = nullptr;
    const int rest = static_cast<int>(sql.constData() + sql.size() - tail);
    const int rc = sqlite3_prepare_v2(db, tail, rest, &next, nullptr);
    const bool alone = rc == SQLITE_OK && !next;
    sqlite3_finalize(next);
    if (!alone) {
        sqlite3_finalize(stmt);
        stmt = nullptr;
        error = kTrailingTextDescription;
    }
    return alone;
}

// Runs exactly one statement to its end; false with the engine's description.
bool runOne(sqlite3* db, const QByteArray& sql, QString& error)
{
    sqlite3_stmt* stmt = nullptr;
    if (!prepareOne(db, sql, stmt, error))
        return false;
    if (!stmt)
        return true;   // blanks and comments only
    int rc = SQLITE_ROW;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
    }
    if (rc != SQLITE_DONE)
        error = engineMessage(db);
    sqlite3_finalize(stmt);
    return rc == SQLITE_DONE;
}

QString quoted(const QString& text)
{
    QString t = text;
    return u'\'' + t.replace(u'\'', QStringLiteral("''")) + u'\'';
}

} // namespace

namespace store {

sqlite3* openKeyed(const QString& path, bool create, QString& error)
{
    sqlite3* db = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | (create ? SQLITE_OPEN_CREATE : 0);
    int rc = sqlite3_open_v2(QFile::encodeName(path).constData(), &db, flags, nullptr);
    if (rc == SQLITE_OK) {
        const QByteArray key = kDataFilePassword.toUtf8();
        rc = sqlite3_key(db, key.constData(), static_cast<int>(key.size()));
    }
    // Newer engines read and write the older file format only when told so; the older one
    // ignores the pragma. One data file thus opens under both.
    if (rc == SQLITE_OK && exec(db, "PRAGMA cipher_compatibility = 3;", &error) &&
        exec(db, "SELECT count(*) FROM sqlite_master;", &error))
        return db;
    if (error.isEmpty())
        error = db ? engineMessage(db) : QString::fromUtf8(sqlite3_errstr(rc));
    sqlite3_close_v2(db);
    return nullptr;
}

namespace {

// Compares the number of rows of every table of the data file with the attached copy, so that a
// copy that stopped part-way is never taken for a whole one.
bool sameRowCounts(sqlite3* db, QString& error)
{
    sqlite3_stmt* tables = nullptr;
    if (sqlite3_prepare_v2(db, "SELECT name FROM main.sqlite_master WHERE type = 'table'", -1, &tables, nullptr) !=
        SQLITE_OK) {
        error = engineMessage(db);
        sqlite3_finalize(tables);
        return false;
    }
    QStringList names;
    while (sqlite3_step(tables) == SQLITE_ROW)
        names << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(tables, 0)));
    sqlite3_finalize(tables);
    for (const QString& name : std::as_const(names)) {
        QString table = name;
        table.replace(u'"', QStringLiteral("\"\""));
        const QByteArray sql = (QStringLiteral("SELECT (SELECT count(*) FROM main.\"%1\") = "
                                               "(SELECT count(*) FROM backup_copy.\"%1\")")
                                    .arg(table))
                                   .toUtf8();
        sqlite3_stmt* stmt = nullptr;
        bool same = false;
        if (sqlite3_prepare_v2(db, sql.constData(), -1, &stmt, nullptr) == SQLITE_OK &&
            sqlite3_step(stmt) == SQLITE_ROW)
            same = sqlite3_column_int(stmt, 0) == 1;
        else
            error = engineMessage(db);
        sqlite3_finalize(stmt);
        if (!same) {
            if (error.isEmpty())
                error = QStringLiteral("the copy of table %1 is incomplete").arg(name);
            return false;
        }
    }
    return true;
}

} // namespace

bool exportCopy(const QString& source, const QString& destination, QString& error)
{
    // The attached copy is opened with the main file's flags, so the main file is opened with
    // the right to create (after checking that it is there).
    if (!QFile::exists(source)) {
        error = QStringLiteral("unable to open database file");
        return false;
    }
    sqlite3* db = openKeyed(source, true, error);
    if (!db)
        return false;
    // The KEY clause is what keeps the copy encrypted; the read above applied the main key first.
    const QByteArray attach = (QStringLiteral("ATTACH DATABASE ") + quoted(destination) +
                               QStringLiteral(" AS backup_copy KEY ") + quoted(kDataFilePassword) + u';')
                                  .toUtf8();
    const QByteArray version = QStringLiteral("PRAGMA backup_copy.user_version = %1;").arg(kSchemaVersion).toUtf8();
    // The copy is flushed to disk as a whole by its caller, and thrown away on any failure:
    // no per-table syncs and no journal file for it.
    const bool ok = exec(db, attach.constData(), &error) &&
                    exec(db, "PRAGMA backup_copy.synchronous = OFF;", &error) &&
                    exec(db, "PRAGMA backup_copy.journal_mode = MEMORY;", &error) &&
                    exec(db, "SELECT sqlcipher_export('backup_copy');", &error) &&
                    exec(db, version.constData(), &error) && sameRowCounts(db, error) &&
                    exec(db, "DETACH DATABASE backup_copy;", &error);
    sqlite3_close_v2(db);
    return ok;
}

bool verifyDataFile(const QString& path, QString& error)
{
    if (!QFileInfo(path).isFile()) {
        error = QStringLiteral("unable to open database file");
        return false;
    }
    sqlite3* db = openKeyed(path, false, error);
    if (!db)
        return false;
    bool ok = false;
    sqlite3_stmt* check = nullptr;
    if (sqlite3_prepare_v2(db, "PRAGMA integrity_check;", -1, &check, nullptr) != SQLITE_OK) {
        error = engineMessage(db);
    } else {
        const int rc = sqlite3_step(check);
        if (rc == SQLITE_ROW &&
            qstrcmp(reinterpret_cast<const char*>(sqlite3_column_text(check, 0)), "ok") == 0)
            ok = true;
        else if (rc == SQLITE_ROW)
            error = QString::fromUtf8(sqlite3_errstr(SQLITE_CORRUPT));   // the check found damage
        else
            error = engineMessage(db);
    }
    sqlite3_finalize(check);
    ok = ok && verifySchema(db, error);
    sqlite3_close_v2(db);
    return ok;
}

bool writeCompactCopy(const QString& source, const QString& destination, QString& error)
{
    if (sameFile(destination, dataFilePath()) || sameFile(destination, source)) {
        error = kBackupOverDataFile;
        return false;
    }
    QString temporary;
    if (!makeTemporaryFile(QFileInfo(destination).absolutePath(),
                           u'.' + QFileInfo(destination).fileName(), temporary, error))
        return false;
    // The old file at the destination is touched only by the final rename, and only when the
    // copy is complete, opens with the key, passes the engine's integrity check and is on disk.
    if (exportCopy(source, temporary, error) && verifyDataFile(temporary, error) && flushFile(temporary, error) &&
        renameOver(temporary, destination, error))
        return true;
    removeTemporary(temporary);
    return false;
}

bool runScript(sqlite3* db, const QString& script, QString& error)
{
    return exec(db, script.toUtf8().constData(), &error);
}

} // namespace store

// ---------------------------------------------------------------- cWorkspace

bool cWorkspace::BeginTrans()
{
    sqlite3* db = currentDatabase();
    return db && exec(db, "BEGIN;");
}

bool cWorkspace::CommitTrans()
{
    sqlite3* db = currentDatabase();
    return db && exec(db, "COMMIT;");
}

bool cWorkspace::Rollback()
{
    sqlite3* db = currentDatabase();
    return db && exec(db, "ROLLBACK;");
}

bool cWorkspace::inTransaction() const
{
    sqlite3* db = currentDatabase();
    return db && sqlite3_get_autocommit(db) == 0;
}

// ---------------------------------------------------------------- cConnection

cConnection::~cConnection()
{
    finalizeStatements();
    if (m_db)
        sqlite3_close_v2(m_db);
}

void cConnection::finalizeStatements()
{
    for (const PreparedShape& prepared : std::as_const(m_statements))
        sqlite3_finalize(prepared.stmt);
    m_statements.clear();
}

namespace {

// The columns of a statement by name: the first of two equal names wins, and "table.column"
// also answers.
void indexColumns(sqlite3_stmt* stmt, QStringList& columns, QHash<QString, int>& index)
{
    const int count = sqlite3_column_count(stmt);
    for (int c = 0; c < count; ++c) {
        columns.append(QString::fromUtf8(sqlite3_column_name(stmt, c)));
        if (const char* table = sqlite3_column_table_name(stmt, c)) {
            const QString qualified =
                (QString::fromUtf8(table) + u'.' + QString::fromUtf8(sqlite3_column_origin_name(stmt, c))).toLower();
            if (!index.contains(qualified))
                index.insert(qualified, c);
        }
    }
    for (int c = count - 1; c >= 0; --c)
        index.insert(columns[c].toLower(), c);
    // The engine names a column of a parenthesised join by its table ("teams.team_nmbr"); it is
    // read by its own name as well, where no other column goes by that name.
    for (int c = 0; c < count; ++c) {
        if (const char* origin = sqlite3_column_origin_name(stmt, c)) {
            const QString name = QString::fromUtf8(origin).toLower();
            if (!index.contains(name))
                index.insert(name, c);
        }
    }
}

} // namespace

const cConnection::PreparedShape* cConnection::bindShape(const StatementShape& shape, QString& error)
{
    if (!m_db)
        return nullptr;
    auto it = m_statements.find(shape.text);
    if (it == m_statements.end()) {
        PreparedShape prepared;
        if (sqlite3_prepare_v2(m_db, shape.text.constData(), static_cast<int>(shape.text.size()), &prepared.stmt,
                               nullptr) != SQLITE_OK ||
            !prepared.stmt) {
            error = engineMessage(m_db);
            sqlite3_finalize(prepared.stmt);
            return nullptr;
        }
        indexColumns(prepared.stmt, prepared.columns, prepared.index);
        if (m_statements.size() >= 512)
            finalizeStatements();
        it = m_statements.insert(shape.text, prepared);
    }
    sqlite3_stmt* stmt = it->stmt;
    int position = 1;
    for (const StatementShape::Value& value : shape.values) {
        if (const auto* whole = std::get_if<int64_t>(&value))
            sqlite3_bind_int64(stmt, position, *whole);
        else if (const auto* real = std::get_if<double>(&value))
            sqlite3_bind_double(stmt, position, *real);
        else {
            const QByteArray& text = std::get<QByteArray>(value);
            sqlite3_bind_text(stmt, position, text.constData(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
        }
        ++position;
    }
    return &*it;
}

void cConnection::releaseShape(const PreparedShape& prepared)
{
    sqlite3_reset(prepared.stmt);
    sqlite3_clear_bindings(prepared.stmt);
}

bool cConnection::runShaped(const StatementShape& shape, QString& error)
{
    const PreparedShape* prepared = bindShape(shape, error);
    if (!prepared)
        return false;
    int rc = SQLITE_ROW;
    while ((rc = sqlite3_step(prepared->stmt)) == SQLITE_ROW) {
    }
    if (rc != SQLITE_DONE)
        error = engineMessage(m_db);
    releaseShape(*prepared);
    return rc == SQLITE_DONE;
}

int16_t cConnection::openAccessConnection()
{
    if (m_db)
        CloseConnection();
    QString error;
    sqlite3* db = store::openKeyed(dataFilePath(), false, error);
    // One running program owns the file: exclusive locking, taken at the first read below.
    // WAL with NORMAL sync keeps the many small statements of posting fast.
    // A file of another schema is refused before anything is written to it.
    if (db && !(exec(db, "PRAGMA locking_mode = EXCLUSIVE;", &error) && verifySchema(db, error) &&
                exec(db, "PRAGMA journal_mode = WAL;", &error) && exec(db, "PRAGMA synchronous = NORMAL;", &error) &&
                exec(db, "PRAGMA cache_size = -65536;", &error) && exec(db, "PRAGMA temp_store = MEMORY;", &error))) {
        sqlite3_close_v2(db);
        db = nullptr;
    }
    if (!db) {
        m_status = 1;
        messageBox(error, QStringLiteral("Lapkeeper"), Icon::Critical);
        return 1;
    }
    m_db = db;
    m_status = 0;
    return 0;
}

void cConnection::CloseConnection()
{
    finalizeStatements();
    if (m_db) {
        // Leave one single file behind: fold the journal back and drop it.
        exec(m_db, "PRAGMA wal_checkpoint(TRUNCATE);");
        exec(m_db, "PRAGMA journal_mode = DELETE;");
        sqlite3_close_v2(m_db);
        m_db = nullptr;
    }
    m_status = 1;
}

bool openDatabase()
{
    gConnection = std::make_unique<cConnection>();
    if (gConnection->openAccessConnection() != 0) {
        messageBox(QStringLiteral("Unable to connect to Database"), QStringLiteral("Lapkeeper"), Icon::Critical);
        return false;
    }
    return true;
}

// ---------------------------------------------------------------- IDatabase

const cVariant& IDatabase::fields(const QString& name) const
{
    const auto it = m_index.constFind(name.toLower());
    if (it == m_index.constEnd())
        throw cRuntimeError::itemNotFound();
    return value(it.value());
}

const cVariant& IDatabase::value(int column) const
{
    if (m_position < 0 || m_position >= static_cast<qsizetype>(m_rows.size()))
        throw cRuntimeError::noCurrentRecord();
    const auto& row = m_rows[static_cast<size_t>(m_position)];
    if (column < 0 || column >= static_cast<int>(row.size()))
        throw cRuntimeError::itemNotFound();
    return row[static_cast<size_t>(column)];
}

namespace {

// Steps a statement to its end, keeping every row; false with the engine's description.
bool readRows(sqlite3* db, sqlite3_stmt* stmt, std::vector<std::vector<cVariant>>& rows, QString& error)
{
    const int count = sqlite3_column_count(stmt);
    int rc = SQLITE_ROW;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
        std::vector<cVariant> row;
        row.reserve(static_cast<size_t>(count));
        for (int c = 0; c < count; ++c)
            row.push_back(columnValue(stmt, c));
        rows.push_back(std::move(row));
    }
    if (rc != SQLITE_DONE)
        error = engineMessage(db);
    return rc == SQLITE_DONE;
}

} // namespace

bool IDatabase::OpenResultSet(const QString& statement)
{
    sqlite3* db = currentDatabase();
    QString error = kClosedDescription;
    const QByteArray sql = jet_dialect(statement).toUtf8();
    std::vector<std::vector<cVariant>> rows;
    bool read = false;
    StatementShape shape;
    // A query of a known shape reuses its prepared statement; anything else, or a shape the
    // engine refuses, is prepared as written, so a failure names the statement itself.
    if (db && shapeStatement(sql, shape) && shape.isQuery) {
        if (const cConnection::PreparedShape* prepared = gConnection->bindShape(shape, error)) {
            read = readRows(db, prepared->stmt, rows, error);
            cConnection::releaseShape(*prepared);
            if (read) {
                m_columns = prepared->columns;
                m_index = prepared->index;
            }
        }
    }
    if (db && !read && rows.empty()) {
        // One statement at a time: text after it is refused, never run or silently dropped.
        // (A shape holds one statement by construction.)
        sqlite3_stmt* stmt = nullptr;
        const bool prepared = prepareOne(db, sql, stmt, error);
        if (prepared && stmt) {
            QStringList columns;
            QHash<QString, int> index;
            indexColumns(stmt, columns, index);
            read = readRows(db, stmt, rows, error);
            if (read) {
                m_columns = std::move(columns);
                m_index = std::move(index);
            }
        } else if (prepared) {
            error = engineMessage(db);   // no statement in the text
        }
        sqlite3_finalize(stmt);
    }
    if (read) {
        m_rows = std::move(rows);
        m_position = 0;
        m_reached = m_rows.empty() ? 0 : 1;
        refreshFlags();
        return true;
    }
    messageBox(QStringLiteral("Error = ") + error + QStringLiteral("SQL = ") + statement, QStringLiteral("Lapkeeper"),
               Icon::Critical);
    return false;
}

bool IDatabase::execute(const QString& statement)
{
    sqlite3* db = currentDatabase();
    QString error = kClosedDescription;
    const QString sql = jet_dialect(statement);
    // A statement with nothing in it cannot run; the engine alone would accept it silently.
    if (db && sql.trimmed().isEmpty()) {
        error = QStringLiteral("Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or 'UPDATE'.");
    } else if (db) {
        const QByteArray utf8 = sql.toUtf8();
        StatementShape shape;
        // A shape holds one statement by construction; anything else is checked before it runs
        // (runOne), so a second statement in the text (a crafted value, say) never reaches the engine.
        if (shapeStatement(utf8, shape) && !shape.isQuery && gConnection->runShaped(shape, error))
            return true;
        // A statement the shape cannot take, or that failed, runs as written, so a failure
        // reports the engine's words about the statement itself.
        error.clear();
        if (runOne(db, utf8, error))
            return true;
    }
    messageBox(QStringLiteral("Error = ") + error + QStringLiteral(" SQL = ") + statement, QStringLiteral("Lapkeeper"),
               Icon::Critical);
    return false;
}

void IDatabase::refreshFlags()
{
    const auto size = static_cast<qsizetype>(m_rows.size());
    m_eof = (size == 0 || m_position >= size) ? -1 : 0;
    m_bof = (size == 0 || m_position < 0) ? -1 : 0;
    if (m_position >= 0 && m_position < size)
        m_reached = std::max(m_reached, m_position + 1);
}

void IDatabase::MoveFirst()
{
    if (m_rows.empty())
        throw cRuntimeError::noCurrentRecord();
    m_position = 0;
    refreshFlags();
}

void IDatabase::MoveNext()
{
    const auto size = static_cast<qsizetype>(m_rows.size());
    if (m_position >= size - 1) {
        // Stepping past the end leaves the cursor on the last row with EOF set.
        m_position = size - 1;
        if (size > 0)
            m_reached = size;
        m_eof = -1;
        return;
    }
    ++m_position;
    refreshFlags();
}

void IDatabase::MoveLast()
{
    if (m_rows.empty())
        throw cRuntimeError::noCurrentRecord();
    m_position = static_cast<qsizetype>(m_rows.size()) - 1;
    m_reached = static_cast<qsizetype>(m_rows.size());
}

void IDatabase::MovePrevious()
{
    if (m_position > 0)
        --m_position;
    m_position = std::max<qsizetype>(0, std::min<qsizetype>(m_position, static_cast<qsizetype>(m_rows.size()) - 1));
    refreshFlags();
}

int32_t IDatabase::recordCount() const
{
    return checkedNarrow<int32_t>(static_cast<int64_t>(m_reached));
}

bool IDatabase::compactDatabaseNow(QString& destination, QString* failure)
{
    if (destination.isEmpty())
        destination = applicationFolder() + u'/' + kBackupsFolder + u'/' + kDataFileName;
    QString error;
    if (store::writeCompactCopy(dataFilePath(), destination, error))
        return true;
    if (failure)
        *failure = error;
    return false;
}
