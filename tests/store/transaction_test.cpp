#include "base/runtime_error.h"
#include "store/connection.h"
#include "store/transaction.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void addTeam(int number)
{
    IDatabase db;
    ASSERT_TRUE(db.execute(u"INSERT INTO teams (team_nmbr, team_name) VALUES (%1, 'T%1')"_s.arg(number)));
}

// The team numbers stored, in order, as one text.
QString teams()
{
    IDatabase db;
    QStringList numbers;
    if (db.OpenResultSet(u"SELECT team_nmbr FROM teams WHERE team_nmbr >= 500 ORDER BY 1"_s)) {
        while (!db.eof()) {
            numbers << db.fields(u"team_nmbr"_s).toTextOrEmpty();
            db.MoveNext();
        }
    }
    return numbers.join(u',');
}

// Closes the data file and opens it again, so only what was committed is read back.
void reopen()
{
    gConnection->CloseConnection();
    ASSERT_TRUE(openDatabase());
}

} // namespace

TEST(Transaction, aRunTimeErrorInsideTheGuardRollsBackAndTheNextTransactionBegins)
{
    TempApp app;
    addTeam(500);
    try {
        cTransaction transaction;
        ASSERT_TRUE(transaction.active());
        addTeam(501);
        throw cRuntimeError::overflow();
    } catch (const cRuntimeError&) {
    }
    EXPECT_FALSE(gConnection->getWorkSpace().inTransaction());
    EXPECT_EQ(teams(), u"500"_s);

    // The engine takes the next BEGIN, and what that transaction commits is on disk.
    cTransaction next;
    ASSERT_TRUE(next.active());
    addTeam(502);
    EXPECT_TRUE(next.commit());
    EXPECT_FALSE(next.active());
    reopen();
    EXPECT_EQ(teams(), u"500,502"_s);
}

TEST(Transaction, aGuardLeftWithoutCommitUndoesItsRowsAndARollbackEndsIt)
{
    TempApp app;
    {
        cTransaction transaction;
        addTeam(500);
    }
    EXPECT_EQ(teams(), QString());
    {
        cTransaction transaction;
        addTeam(501);
        transaction.rollback();
        EXPECT_FALSE(transaction.active());
        EXPECT_FALSE(transaction.commit());   // nothing left to commit
        addTeam(502);                        // commits by itself
    }
    reopen();
    EXPECT_EQ(teams(), u"502"_s);
}

TEST(Transaction, anAlwaysCommittedBatchKeepsItsRowsAfterARunTimeError)
{
    TempApp app;
    try {
        cTransaction batch(cTransaction::Ending::AlwaysCommit);
        ASSERT_TRUE(batch.active());
        addTeam(500);
        throw cRuntimeError::invalidUseOfNull();
    } catch (const cRuntimeError&) {
    }
    EXPECT_FALSE(gConnection->getWorkSpace().inTransaction());
    reopen();
    EXPECT_EQ(teams(), u"500"_s);
}

TEST(Transaction, aPausedBatchLetsStatementsCommitOrRollBackOnTheirOwn)
{
    TempApp app;
    IDatabase db;
    {
        cTransaction batch(cTransaction::Ending::AlwaysCommit);
        addTeam(500);
        {
            cTransaction::Pause pause(batch);
            EXPECT_FALSE(gConnection->getWorkSpace().inTransaction());
            // A transaction of the paused statements that rolls back takes only its own rows.
            ASSERT_TRUE(db.execute(u"BEGIN"_s));
            addTeam(501);
            ASSERT_TRUE(db.execute(u"ROLLBACK"_s));
            addTeam(502);
            // One left open is kept when the pause ends.
            ASSERT_TRUE(db.execute(u"BEGIN"_s));
            addTeam(503);
        }
        EXPECT_TRUE(batch.active());
        addTeam(504);
    }
    EXPECT_FALSE(gConnection->getWorkSpace().inTransaction());
    reopen();
    EXPECT_EQ(teams(), u"500,502,503,504"_s);
}

TEST(Transaction, onAClosedDataFileTheGuardHoldsNothing)
{
    TempApp app;
    gConnection->CloseConnection();
    cTransaction transaction;
    EXPECT_FALSE(transaction.active());
    EXPECT_FALSE(transaction.commit());
    transaction.pause();
    transaction.resume();
    EXPECT_FALSE(transaction.active());
}
