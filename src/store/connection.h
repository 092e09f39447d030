#pragma once
#include "store/variant.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <memory>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;
struct StatementShape;

// The transaction trio of the connection. Code outside the store goes through cTransaction
// (store/transaction.h), which never leaves a transaction open; nothing nests.
class cWorkspace {
public:
    bool BeginTrans();
    bool CommitTrans();
    bool Rollback();
    // True while a transaction is open on the data file.
    bool inTransaction() const;
};

// The one connection to the data file: exclusive, encrypted, WAL while open.
class cConnection {
public:
    cConnection() = default;
    ~cConnection();
    cConnection(const cConnection&) = delete;
    cConnection& operator=(const cConnection&) = delete;

    int16_t openConnection(const QString&, const QString&, const QString&) { return 0; }  // never used
    // Opens the data file of the application folder. 0 on success; 1 after showing the
    // engine's description in a critical box titled "Lapkeeper".
    int16_t openAccessConnection();
    int16_t openADOConnection() { return 0; }  // never used
    // Closes the data file (checkpointed, one single file) and sets the status to 1.
    void CloseConnection();
    int16_t connectionStatus() const { return m_status; }
    sqlite3* getConnection() const { return m_db; }
    cWorkspace& getWorkSpace() { return m_workspace; }
    QString getUserID() const { return m_userId; }

    // A prepared statement of one shape, kept for the run, with its columns by name.
    struct PreparedShape {
        sqlite3_stmt* stmt = nullptr;
        QStringList columns;
        QHash<QString, int> index;   // lower-case name (and table.name) to column
    };
    // The prepared statement of the shape with its values bound, or null with the engine's
    // description. The caller steps it and then calls releaseShape.
    const PreparedShape* bindShape(const StatementShape& shape, QString& error);
    static void releaseShape(const PreparedShape& prepared);
    // Runs an action statement of a known shape. False with the engine's description.
    bool runShaped(const StatementShape& shape, QString& error);

private:
    void finalizeStatements();

    sqlite3* m_db = nullptr;
    QHash<QByteArray, PreparedShape> m_statements;   // prepared statements by shape
    cWorkspace m_workspace;
    int16_t m_status = 0;
    QString m_userId;
};

// The connection of the run; openDatabase replaces it with a new object.
extern std::unique_ptr<cConnection> gConnection;

// Creates gConnection anew and opens it; on failure shows "Unable to connect to Database".
bool openDatabase();

// A statement runner with one current result set, read whole into memory so that it can be
// walked again with MoveFirst and frees the engine's cursor at once. Each record and collection
// owns one. It asks gConnection for the database at every statement, so it survives a reopen.
class IDatabase {
public:
    // The column of the current row by name, case-insensitive; "table.column" also works.
    // Reading with no current row is the run-time error "No current record.".
    const cVariant& fields(const QString& name) const;

    // Runs a SELECT; on an engine error shows "Error = <description>SQL = <statement>".
    // Exactly one statement: text after it (other than blanks, comments and ";") is refused
    // with "Characters found after end of SQL statement." and nothing runs.
    bool OpenResultSet(const QString& statement);
    // Runs an action statement; on an engine error shows "Error = <description> SQL = <statement>".
    // Exactly one statement, as for OpenResultSet; only store::runScript runs several.
    bool execute(const QString& statement);

    void MoveFirst();
    void MoveNext();
    void MoveLast();
    void MovePrevious();

    // BOF and EOF are macros of the C library, hence the lower-case names.
    int16_t bof() const { return m_bof; }
    void setBof(int16_t value) { m_bof = value; }
    int16_t eof() const { return m_eof; }
    void setEof(int16_t value) { m_eof = value; }

    // Writes a compacted, encrypted copy of the (closed) data file at destination, through a
    // temporary file beside it that replaces the old file only once it is complete and checked
    // (store::writeCompactCopy). Shows nothing; false with the reason in failure, and the old
    // file at the destination as it was. An empty destination means the backups folder.
    bool compactDatabaseNow(QString& destination, QString* failure = nullptr);
    // Rows reached so far (32-bit; more rows than that is "Overflow").
    int32_t recordCount() const;

    // The columns of the current result set, for tools that print rows.
    QStringList columnNames() const { return m_columns; }
    const cVariant& value(int column) const;

private:
    void refreshFlags();

    QStringList m_columns;
    QHash<QString, int> m_index;   // lower-case name (and table.name) to column
    std::vector<std::vector<cVariant>> m_rows;
    qsizetype m_position = 0;
    qsizetype m_reached = 0;
    int16_t m_bof = -1;
    int16_t m_eof = -1;
};

// Engine-level helpers used by the store itself.
namespace store {
// Opens a data file with the program's key and cipher settings; returns the engine's
// description on failure (and a closed handle).
sqlite3* openKeyed(const QString& path, bool create, QString& error);
// Writes a compacted, encrypted copy of the file at source to destination (an empty or new
// file) and checks that every table has as many rows as the source. The copy is not flushed to
// disk: writeCompactCopy does that once, as a whole.
bool exportCopy(const QString& source, const QString& destination, QString& error);
// True when the file at path opens with the program's key, passes the engine's integrity
// check and holds every table and column of the schema; else the engine's description.
bool verifyDataFile(const QString& path, QString& error);
// exportCopy into a private temporary file beside destination, verifyDataFile, flush, then one
// rename over destination. Refuses the data file itself, however spelled, with
// kBackupOverDataFile. On failure the old destination is untouched and no temporary file stays.
bool writeCompactCopy(const QString& source, const QString& destination, QString& error);
// Runs a script of several statements; returns the engine's description on failure. The one
// way to run more than one statement at a time.
bool runScript(sqlite3* db, const QString& script, QString& error);
}

// The refusal of a backup whose target is the data file itself.
inline const QString kBackupOverDataFile =
    QStringLiteral("A backup cannot be written over the data file itself. Choose another file.");
