#define SQLITE_HAS_CODEC 1
#include "base/app_globals.h"
#include "base/runtime_error.h"
#include "store/connection.h"
#include "store/schema.h"
#include "support/temp_app.h"

#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString runtimeErrorOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const cRuntimeError& e) {
        return e.description();
    }
    return u"<no error>"_s;
}

// Writes a data file with another key (or none) where the program's file would be.
void writeForeignFile(const QString& path, const char* key)
{
    QFile::remove(path);
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(QFile::encodeName(path).constData(), &db), SQLITE_OK);
    if (key)
        sqlite3_key(db, key, static_cast<int>(strlen(key)));
    sqlite3_exec(db, "CREATE TABLE leagues (league_nmbr INTEGER); INSERT INTO leagues VALUES (1);", nullptr, nullptr, nullptr);
    sqlite3_close(db);
}

TEST(Connection, opensTheDataFileExclusivelyInWalModeAndClosesToOneFile)
{
    TempApp app;
    EXPECT_EQ(gConnection->connectionStatus(), 0);
    IDatabase db;
    ASSERT_TRUE(db.execute(u"INSERT INTO teams (team_nmbr, team_name) VALUES (500, 'A')"_s));
    EXPECT_TRUE(QFile::exists(app.dataFile() + u"-wal"_s));

    cConnection second;
    EXPECT_EQ(second.openAccessConnection(), 1);
    EXPECT_EQ(second.connectionStatus(), 1);
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    EXPECT_EQ(app.presenter().boxes()[0].text, u"database is locked"_s);
    EXPECT_EQ(app.presenter().boxes()[0].title, u"Lapkeeper"_s);
    EXPECT_EQ(app.presenter().boxes()[0].icon, Icon::Critical);

    gConnection->CloseConnection();
    EXPECT_EQ(gConnection->connectionStatus(), 1);
    EXPECT_FALSE(QFile::exists(app.dataFile() + u"-wal"_s));
    EXPECT_FALSE(QFile::exists(app.dataFile() + u"-shm"_s));
    ASSERT_TRUE(openDatabase());
    EXPECT_EQ(app.count(u"teams"_s), 1);
}

TEST(Connection, theDataFileIsEncryptedOnDisk)
{
    TempApp app;
    IDatabase db;
    ASSERT_TRUE(db.execute(u"INSERT INTO teams (team_nmbr, team_name) VALUES (500, 'PlainTextMarker')"_s));
    gConnection->CloseConnection();
    QFile file(app.dataFile());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    EXPECT_FALSE(bytes.contains("PlainTextMarker"));
    EXPECT_FALSE(bytes.contains("CREATE TABLE"));
}

struct BadFile {
    const char* name;
    std::function<void(const QString&)> make;
    const char* engineMessage;
};

class RefusedDataFile : public ::testing::TestWithParam<BadFile> {};

TEST_P(RefusedDataFile, showsTheEngineMessageThenUnableToConnectAndStaysClosed)
{
    TempApp app(false);
    GetParam().make(app.dataFile());
    const QByteArray before = [&] { QFile f(app.dataFile()); f.open(QIODevice::ReadOnly); return f.readAll(); }();
    EXPECT_FALSE(openDatabase());
    EXPECT_EQ(gConnection->connectionStatus(), 1);
    EXPECT_EQ(app.presenter().boxTexts(),
              (QStringList{QString::fromUtf8(GetParam().engineMessage), u"Unable to connect to Database"_s}));
    QFile after(app.dataFile());
    if (after.open(QIODevice::ReadOnly)) {
        EXPECT_EQ(after.readAll(), before);   // nothing overwritten
    }
}

INSTANTIATE_TEST_SUITE_P(
    Files, RefusedDataFile,
    ::testing::Values(
        BadFile{"WrongPassword", [](const QString& p) { writeForeignFile(p, "NotTheKey"); },
                "file is encrypted or is not a database"},
        BadFile{"PlainFile", [](const QString& p) { writeForeignFile(p, nullptr); },
                "file is encrypted or is not a database"},
        BadFile{"Truncated",
                [](const QString& p) {
                    QFile f(p);
                    ASSERT_TRUE(f.open(QIODevice::ReadWrite));
                    f.resize(700);
                },
                "file is encrypted or is not a database"},
        BadFile{"Missing", [](const QString& p) { QFile::remove(p); }, "unable to open database file"},
        BadFile{"ForeignSchema",
                [](const QString& p) {
                    QFile::remove(p);
                    QString error;
                    sqlite3* db = store::openKeyed(p, true, error);
                    ASSERT_NE(db, nullptr);
                    sqlite3_exec(db, "CREATE TABLE something_else (x INTEGER);", nullptr, nullptr, nullptr);
                    sqlite3_close(db);
                },
                "no such table: attribute_dm"}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(Connection, aFailingStatementShowsItsTextAndReturnsFalse)
{
    TempApp app;
    IDatabase db;
    EXPECT_FALSE(db.execute(u"DELETE FROM nothere WHERE x = 1"_s));
    EXPECT_FALSE(db.OpenResultSet(u"SELECT * FROM nothere"_s));
    // The two boxes differ by one blank before "SQL", and that difference is kept.
    EXPECT_EQ(app.presenter().boxTexts(),
              (QStringList{u"Error = no such table: nothere SQL = DELETE FROM nothere WHERE x = 1"_s,
                           u"Error = no such table: nothereSQL = SELECT * FROM nothere"_s}));
    EXPECT_EQ(app.presenter().boxes()[0].title, u"Lapkeeper"_s);
}

TEST(Connection, executeAndOpenResultSetRunOneStatementAndRefuseTextAfterIt)
{
    TempApp app;
    IDatabase db;
    // A path put into a statement without its apostrophes doubled, as a crafted image path would be.
    const QString crafted = u"INSERT INTO teams (team_nmbr, team_name) VALUES (500, 'x'); DELETE FROM group_dm; --')"_s;
    const int groups = app.count(u"group_dm"_s);
    ASSERT_GT(groups, 0);
    EXPECT_FALSE(db.execute(crafted));
    EXPECT_FALSE(db.execute(u"UPDATE teams SET team_name = 'a'; and some words"_s));
    EXPECT_FALSE(db.OpenResultSet(u"SELECT count(*) FROM teams; DELETE FROM group_dm"_s));
    EXPECT_EQ(app.presenter().boxTexts(),
              (QStringList{u"Error = Characters found after end of SQL statement. SQL = "_s + crafted,
                           u"Error = Characters found after end of SQL statement. SQL = "
                           u"UPDATE teams SET team_name = 'a'; and some words"_s,
                           u"Error = Characters found after end of SQL statement.SQL = "
                           u"SELECT count(*) FROM teams; DELETE FROM group_dm"_s}));
    // Nothing of the refused texts ran, not even their first statement.
    EXPECT_EQ(app.count(u"teams"_s), 0);
    EXPECT_EQ(app.count(u"group_dm"_s), groups);

    // A closing ";", blanks and comments after the one statement are no second statement, and a
    // ";" inside quotes is text.
    app.presenter().clear();
    EXPECT_TRUE(db.execute(u"INSERT INTO teams (team_nmbr, team_name) VALUES (500, 'a;b');  -- note\n"_s));
    EXPECT_TRUE(db.execute(u"UPDATE teams SET email = 'c;d' WHERE team_nmbr = 500; /* done */ ;"_s));
    ASSERT_TRUE(db.OpenResultSet(u"SELECT team_name, email FROM teams;\n"_s));
    EXPECT_EQ(db.fields(u"team_name"_s).toTextOrEmpty(), u"a;b"_s);
    EXPECT_EQ(db.fields(u"email"_s).toTextOrEmpty(), u"c;d"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));
}

TEST(Connection, statementsOnAClosedConnectionFailWithABox)
{
    TempApp app;
    gConnection->CloseConnection();
    IDatabase db;
    EXPECT_FALSE(db.execute(u"DELETE FROM teams"_s));
    EXPECT_EQ(app.presenter().boxTexts().value(0), u"Error = Object invalid or no longer set. SQL = DELETE FROM teams"_s);
}

TEST(Connection, aRolledBackTransactionLeavesTheOldRows)
{
    TempApp app;
    IDatabase db;
    ASSERT_TRUE(db.execute(u"INSERT INTO results (race_nmbr, car_nmbr, place) VALUES (500, 500, 1)"_s));
    cWorkspace& ws = gConnection->getWorkSpace();
    ASSERT_TRUE(ws.BeginTrans());
    ASSERT_TRUE(db.execute(u"DELETE FROM results WHERE race_nmbr = 500"_s));
    ASSERT_TRUE(db.execute(u"INSERT INTO results (race_nmbr, car_nmbr, place) VALUES (500, 501, 2)"_s));
    ASSERT_TRUE(ws.Rollback());
    EXPECT_EQ(app.scalar(u"SELECT car_nmbr FROM results"_s), u"500"_s);

    ASSERT_TRUE(ws.BeginTrans());
    ASSERT_TRUE(db.execute(u"UPDATE results SET place = 9"_s));
    ASSERT_TRUE(ws.CommitTrans());
    EXPECT_EQ(app.scalar(u"SELECT place FROM results"_s), u"9"_s);
}

TEST(ResultSet, movesReadTheRowsAsTheProgramExpects)
{
    TempApp app;
    IDatabase db;
    for (int i = 1; i <= 3; ++i)
        ASSERT_TRUE(db.execute(u"INSERT INTO race_status_dm VALUES (%1, 'S%2')"_s.arg(i + 10).arg(i)));
    ASSERT_TRUE(db.OpenResultSet(u"SELECT * FROM race_status_dm WHERE race_status_nmbr > 10 ORDER BY 1"_s));
    EXPECT_EQ(db.eof(), 0);
    EXPECT_EQ(db.fields(u"RACE_STATUS_NAME"_s).toText(), u"S1"_s);
    EXPECT_EQ(db.recordCount(), 1);
    db.MoveNext();
    db.MoveNext();
    EXPECT_EQ(db.eof(), 0);
    db.MoveNext();                 // past the end: on the last row with EOF set
    EXPECT_EQ(db.eof(), -1);
    EXPECT_EQ(db.fields(u"race_status_nmbr"_s).toInt16(), 13);
    db.MoveNext();
    EXPECT_EQ(db.fields(u"race_status_nmbr"_s).toInt16(), 13);
    EXPECT_EQ(db.recordCount(), 3);
    db.MoveFirst();                // a second walk after the end
    EXPECT_EQ(db.eof(), 0);
    EXPECT_EQ(db.fields(u"race_status_nmbr"_s).toInt16(), 11);
    db.MovePrevious();             // at the beginning it stays on the first row
    EXPECT_EQ(db.bof(), 0);
    EXPECT_EQ(db.fields(u"race_status_nmbr"_s).toInt16(), 11);
    db.MoveLast();
    EXPECT_EQ(db.fields(u"race_status_nmbr"_s).toInt16(), 13);
    EXPECT_EQ(runtimeErrorOf([&] { db.fields(u"no_such_column"_s); }), u"Item not found in this collection."_s);

    ASSERT_TRUE(db.OpenResultSet(u"SELECT * FROM race_status_dm WHERE 1 = 0"_s));
    EXPECT_EQ(db.eof(), -1);
    EXPECT_EQ(db.bof(), -1);
    EXPECT_EQ(runtimeErrorOf([&] { db.MoveFirst(); }), u"No current record."_s);
    EXPECT_EQ(runtimeErrorOf([&] { db.fields(u"race_status_nmbr"_s); }), u"No current record."_s);
}

TEST(ResultSet, countsRowsBeyondSixteenBits)
{
    TempApp app;
    IDatabase db;
    ASSERT_TRUE(db.OpenResultSet(
        u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 40000) SELECT i FROM n"_s));
    db.MoveLast();
    EXPECT_EQ(db.recordCount(), 40000);
    EXPECT_EQ(db.fields(u"i"_s).toInt32(), 40000);
}

TEST(ResultSet, nullAndOutOfRangeValuesRaiseTheRunTimeError)
{
    TempApp app;
    IDatabase db;
    ASSERT_TRUE(db.OpenResultSet(u"SELECT NULL as n, 40000 as big, 3000000000 as huge, 'abc' as word, "
                                 u"'12' as digits, 2.5 as half, 1000.25 as money"_s));
    EXPECT_EQ(runtimeErrorOf([&] { db.fields(u"n"_s).toInt16(); }), u"Invalid use of Null"_s);
    EXPECT_EQ(runtimeErrorOf([&] { db.fields(u"n"_s).toText(); }), u"Invalid use of Null"_s);
    EXPECT_EQ(db.fields(u"n"_s).toTextOrEmpty(), QString());
    EXPECT_EQ(runtimeErrorOf([&] { db.fields(u"big"_s).toInt16(); }), u"Overflow"_s);
    EXPECT_EQ(db.fields(u"big"_s).toInt32(), 40000);
    EXPECT_EQ(runtimeErrorOf([&] { db.fields(u"huge"_s).toInt32(); }), u"Overflow"_s);
    EXPECT_EQ(runtimeErrorOf([&] { db.fields(u"word"_s).toInt16(); }), u"Type mismatch"_s);
    EXPECT_EQ(db.fields(u"digits"_s).toInt16(), 12);
    EXPECT_EQ(db.fields(u"half"_s).toInt16(), 2);   // half to even
    EXPECT_EQ(db.fields(u"money"_s).toCurrency().toSqlText(), u"1000.25"_s);
}

TEST(Compaction, writesAnEncryptedCompactCopyWithTheSameRows)
{
    TempApp app;
    IDatabase db;
    ASSERT_TRUE(gConnection->getWorkSpace().BeginTrans());
    for (int i = 0; i < 3000; ++i)
        ASSERT_TRUE(db.execute(u"INSERT INTO results VALUES (%1, %2, 1, 1, 0, 0, 0)"_s.arg(500 + i / 40).arg(500 + i % 40)));
    ASSERT_TRUE(gConnection->getWorkSpace().CommitTrans());
    ASSERT_TRUE(db.execute(u"DELETE FROM results WHERE race_nmbr > 501"_s));
    gConnection->CloseConnection();
    const qint64 before = QFileInfo(app.dataFile()).size();

    QString target = app.folder() + u"/Backups/copy.lk"_s;
    QFile(target).open(QIODevice::WriteOnly);   // an old file there is replaced
    db.compactDatabaseNow(target);
    ASSERT_TRUE(QFile::exists(target));
    EXPECT_LT(QFileInfo(target).size(), before);

    QString error;
    sqlite3* copy = store::openKeyed(target, false, error);
    ASSERT_NE(copy, nullptr) << qPrintable(error);
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(copy, "SELECT count(*) FROM results", -1, &stmt, nullptr);
    ASSERT_EQ(sqlite3_step(stmt), SQLITE_ROW);
    EXPECT_EQ(sqlite3_column_int(stmt, 0), 80);
    sqlite3_finalize(stmt);
    EXPECT_TRUE(verifySchema(copy, error)) << qPrintable(error);
    sqlite3_close(copy);
}

TEST(Compaction, anEmptyDestinationMeansTheBackupsFolderAndErrorsStaySilent)
{
    TempApp app;
    gConnection->CloseConnection();
    IDatabase db;
    QString target;
    db.compactDatabaseNow(target);
    EXPECT_EQ(target, app.folder() + u"/Backups/lapkeeper30.lk"_s);
    EXPECT_TRUE(QFile::exists(target));

    QString unwritable = app.folder() + u"/no/such/folder/x.lk"_s;
    QString failure;
    EXPECT_FALSE(db.compactDatabaseNow(unwritable, &failure));
    EXPECT_EQ(failure, u"No such file or directory"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

TEST(Compaction, aCopyThatFailsLeavesTheOldFileAtTheDestinationAsItWas)
{
    TempApp app;
    gConnection->CloseConnection();
    IDatabase db;
    QString target = app.folder() + u"/Backups/copy.lk"_s;
    QFile old(target);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("the old backup");
    old.close();

    // A data file that does not open: the old file stays and no temporary file is left.
    ASSERT_TRUE(QFile::rename(app.dataFile(), app.folder() + u"/elsewhere.lk"_s));
    QString failure;
    EXPECT_FALSE(db.compactDatabaseNow(target, &failure));
    EXPECT_EQ(failure, u"unable to open database file"_s);
    QFile check(target);
    ASSERT_TRUE(check.open(QIODevice::ReadOnly));
    EXPECT_EQ(check.readAll(), QByteArray("the old backup"));
    EXPECT_EQ(QDir(app.folder() + u"/Backups"_s).entryList(QDir::Files | QDir::Hidden), QStringList{u"copy.lk"_s});

    // The data file itself is refused as a destination.
    ASSERT_TRUE(QFile::rename(app.folder() + u"/elsewhere.lk"_s, app.dataFile()));
    QString self = app.folder() + u"/Reports/../lapkeeper30.lk"_s;
    EXPECT_FALSE(db.compactDatabaseNow(self, &failure));
    EXPECT_EQ(failure, kBackupOverDataFile);
    EXPECT_TRUE(QFile::exists(app.dataFile()));
}

} // namespace
