#include "batch_process.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(BatchTool, initCreatesTheDataFileOnceAndSqlReadsAndWritesIt)
{
    QTemporaryDir dir;
    EXPECT_EQ(batch(dir, {u"sql"_s, u"SELECT 1"_s}).status, 1);   // no data file yet
    EXPECT_EQ(batch(dir, {u"init"_s}).status, 0);
    EXPECT_TRUE(QFile::exists(dir.path() + u"/lapkeeper30.lk"_s));
    EXPECT_EQ(batch(dir, {u"init"_s}).status, 0);

    EXPECT_EQ(batch(dir, {u"sql"_s, u"INSERT INTO teams (team_nmbr, team_name) VALUES (500, 'O''Hare')"_s}).status, 0);
    const BatchRun listing = batch(dir, {u"sql"_s, u"SELECT team_nmbr, team_name, email FROM teams"_s});
    EXPECT_EQ(listing.status, 0);
    EXPECT_EQ(listing.out, u"team_nmbr\tteam_name\temail\n500\tO'Hare\t\n"_s);
}

TEST(BatchTool, aFailingStatementShowsItsBoxOnStderrAndExits1)
{
    QTemporaryDir dir;
    ASSERT_EQ(batch(dir, {u"init"_s}).status, 0);
    const BatchRun failed = batch(dir, {u"sql"_s, u"DELETE FROM nothere"_s});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.err, u"Lapkeeper: Error = no such table: nothere SQL = DELETE FROM nothere\n"_s);
}

TEST(BatchTool, clearCommandsRemovePostingsAndBadUsageExits2)
{
    QTemporaryDir dir;
    ASSERT_EQ(batch(dir, {u"init"_s}).status, 0);
    for (const char* sql : {"INSERT INTO races VALUES (500, 'A', 'T', '2002-01-01', 1, 1, 2)",
                            "INSERT INTO races VALUES (501, 'B', 'T', '2002-01-08', 1, 1, 2)",
                            "INSERT INTO team_results (race_nmbr, league_nmbr, team_nmbr, car_nmbr) VALUES (500, 1, 1, 1)",
                            "INSERT INTO team_results (race_nmbr, league_nmbr, team_nmbr, car_nmbr) VALUES (501, 1, 1, 1)",
                            "INSERT INTO team_results_summary VALUES (501, 1, 1, 0, 1)"})
        ASSERT_EQ(batch(dir, {u"sql"_s, QString::fromUtf8(sql)}).status, 0);
    EXPECT_EQ(batch(dir, {u"clear-posting"_s, u"500"_s}).status, 0);
    EXPECT_EQ(batch(dir, {u"sql"_s, u"SELECT count(*) as n FROM team_results"_s}).out, u"n\n1\n"_s);
    EXPECT_EQ(batch(dir, {u"clear-season"_s}).status, 0);
    EXPECT_EQ(batch(dir, {u"sql"_s, u"SELECT count(*) as n FROM team_results_summary"_s}).out, u"n\n0\n"_s);

    EXPECT_EQ(batch(dir, {u"clear-posting"_s, u"many"_s}).status, 2);
    EXPECT_EQ(batch(dir, {u"frobnicate"_s}).status, 2);
    EXPECT_EQ(batch(dir, {}).status, 2);
}

// Two teams of one league with a car each, two races with results (none posted).
void seedTwoRaceSeason(const QTemporaryDir& dir)
{
    ASSERT_EQ(batch(dir, {u"init"_s}).status, 0);
    const char* season[] = {
        "INSERT INTO scoring_type VALUES (500, 'M', 0, 0, 0)",
        "INSERT INTO scoring_points VALUES (500, 1, 10, 0)",
        "INSERT INTO scoring_points VALUES (500, 2, 6, 0)",
        "INSERT INTO leagues VALUES (500, 'League', 'L', 1, 1, 500, 0, 0, 1)",
        "INSERT INTO teams VALUES (500, 'Ants', 'A', '', '', 1, 1, '', '', '', '', '')",
        "INSERT INTO teams VALUES (501, 'Bees', 'B', '', '', 1, 1, '', '', '', '', '')",
        "INSERT INTO league_teams VALUES (500, 500)",
        "INSERT INTO league_teams VALUES (500, 501)",
        "INSERT INTO cars VALUES (500, '1', 'o', 'm', 's', 'd', 1, 1, 1, 10)",
        "INSERT INTO cars VALUES (501, '2', 'o', 'm', 's', 'd', 1, 1, 1, 10)",
        "INSERT INTO team_car VALUES (500, 500, '2002-01-01', NULL, 0, 0, 1)",
        "INSERT INTO team_car VALUES (501, 501, '2002-01-01', NULL, 0, 0, 1)",
        "INSERT INTO races VALUES (500, 'First', 'T', '2002-02-01', 1, 1, 2)",
        "INSERT INTO races VALUES (501, 'Second', 'T', '2002-02-08', 1, 1, 2)",
        "INSERT INTO results VALUES (500, 500, 1, 1, 0, 0, 0)",
        "INSERT INTO results VALUES (500, 501, 2, 2, 0, 0, 0)",
        "INSERT INTO results VALUES (501, 500, 2, 1, 0, 0, 0)",
        "INSERT INTO results VALUES (501, 501, 1, 2, 0, 0, 0)",
    };
    for (const char* sql : season)
        ASSERT_EQ(batch(dir, {u"sql"_s, QString::fromUtf8(sql)}).status, 0) << sql;
}

TEST(BatchTool, postsRacesAndPrintsTheStandings)
{
    QTemporaryDir dir;
    seedTwoRaceSeason(dir);

    EXPECT_EQ(batch(dir, {u"post"_s, u"501"_s}).status, 0);
    EXPECT_EQ(batch(dir, {u"post"_s, u"500"_s, u"--later"_s, u"yes"_s}).status, 0);
    EXPECT_EQ(batch(dir, {u"standings"_s, u"500"_s, u"500"_s}).out, u"1\t500\tAnts\t10\n2\t501\tBees\t6\n"_s);
    EXPECT_EQ(batch(dir, {u"standings"_s, u"500"_s, u"501"_s}).out, u"1\t500\tAnts\t16\n2\t501\tBees\t16\n"_s);

    // Answering no to the later race takes its posting away.
    const BatchRun reposted = batch(dir, {u"post"_s, u"500"_s});
    EXPECT_EQ(reposted.status, 0);
    EXPECT_EQ(reposted.err, u"Lapkeeper: Do you want to post results for Second now?\n"_s);
    EXPECT_EQ(batch(dir, {u"sql"_s, u"SELECT count(*) as n FROM team_results WHERE race_nmbr = 501"_s}).out, u"n\n0\n"_s);

    EXPECT_EQ(batch(dir, {u"post"_s, u"999"_s}).status, 1);
    EXPECT_EQ(batch(dir, {u"post"_s, u"500"_s, u"--later"_s, u"maybe"_s}).status, 2);
}

TEST(BatchTool, reportWritesThePagesIntoTheReportFolderAndPrintsTheirNames)
{
    QTemporaryDir dir;
    seedTwoRaceSeason(dir);
    ASSERT_EQ(batch(dir, {u"post"_s, u"500"_s}).status, 0);

    const BatchRun standings = batch(dir, {u"report"_s, u"ls"_s, u"--league"_s, u"500"_s, u"--race"_s, u"500"_s});
    EXPECT_EQ(standings.status, 0) << qPrintable(standings.err);
    EXPECT_EQ(standings.out, u"ls05000500.html\ntr05000500.html\ntr05000501.html\n"_s);
    QFile page(dir.path() + u"/Reports/ls05000500.html"_s);
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    EXPECT_TRUE(page.readAll().contains("<A HREF='tr05000500.html'>Ants </A>"));

    const BatchRun team = batch(dir, {u"report"_s, u"TR"_s, u"--league"_s, u"500"_s, u"--race"_s, u"500"_s,
                                      u"--team"_s, u"501"_s});
    EXPECT_EQ(team.status, 0);
    EXPECT_EQ(team.out, u"tr05000501.html\n"_s);

    // The second race is not posted: nothing to show, nothing written.
    const BatchRun unposted = batch(dir, {u"report"_s, u"RD"_s, u"--league"_s, u"500"_s, u"--race"_s, u"501"_s});
    EXPECT_EQ(unposted.status, 1);
    EXPECT_EQ(unposted.out, QString());

    EXPECT_EQ(batch(dir, {u"report"_s, u"XX"_s}).status, 2);
    EXPECT_EQ(batch(dir, {u"report"_s, u"LS"_s, u"--league"_s, u"500"_s}).status, 2);        // no race
    EXPECT_EQ(batch(dir, {u"report"_s, u"LS"_s, u"--league"_s, u"x"_s, u"--race"_s, u"1"_s}).status, 2);

    // The package: its frames page, blank page and navigation page, then the reports it holds.
    const BatchRun package = batch(dir, {u"package"_s, u"--league"_s, u"500"_s, u"--race"_s, u"500"_s});
    EXPECT_EQ(package.status, 0) << qPrintable(package.err);
    EXPECT_TRUE(package.out.startsWith(u"rp05000000.html\nblank.html\n500nav.html\nls05000500.html\n"_s))
        << qPrintable(package.out);
    EXPECT_EQ(batch(dir, {u"package"_s, u"--league"_s, u"500"_s}).status, 2);
}

TEST(BatchTool, reportAsksEachReportOnlyForTheNumbersItTakes)
{
    QTemporaryDir dir;
    seedTwoRaceSeason(dir);
    ASSERT_EQ(batch(dir, {u"post"_s, u"500"_s}).status, 0);

    // Race Results belongs to no league, and shows results whether posted or not.
    const BatchRun results = batch(dir, {u"report"_s, u"RR"_s, u"--race"_s, u"501"_s});
    EXPECT_EQ(results.status, 0) << qPrintable(results.err);
    EXPECT_EQ(results.out, u"rr05010000.html\n"_s);
    EXPECT_EQ(batch(dir, {u"report"_s, u"RR"_s}).status, 2);

    // The grid writes the pages of the posted race and of each team it links to.
    const BatchRun summary = batch(dir, {u"report"_s, u"LR"_s, u"--league"_s, u"500"_s});
    EXPECT_EQ(summary.status, 0) << qPrintable(summary.err);
    EXPECT_EQ(summary.out, u"lr05000000.html\nrd05000500.html\ntc05000000.html\ntc05010000.html\n"_s);

    const BatchRun standings = batch(dir, {u"report"_s, u"RS"_s, u"--league"_s, u"500"_s, u"--race"_s, u"500"_s});
    EXPECT_EQ(standings.status, 0) << qPrintable(standings.err);
    EXPECT_EQ(standings.out, u"rs05000500.html\ntr05000500.html\ntr05000501.html\n"_s);

    const BatchRun trades = batch(dir, {u"report"_s, u"TT"_s, u"--league"_s, u"500"_s, u"--race"_s, u"500"_s,
                                        u"--all-teams"_s});
    EXPECT_EQ(trades.status, 0) << qPrintable(trades.err);
    EXPECT_EQ(trades.out, u"tt9990000.html\n"_s);
    EXPECT_EQ(batch(dir, {u"report"_s, u"TT"_s, u"--league"_s, u"500"_s, u"--race"_s, u"500"_s}).status, 2);   // no team
}

} // namespace
