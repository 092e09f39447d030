#include "league/league.h"
#include "league/league_fixtures.h"
#include "league/league_teams.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(League, aSavedLeagueKeepsApostrophesAndAWorkingCopyUpdatesTheSameRow)
{
    TempApp app;
    cLeague league;
    league.setLeagueName(u"O'Brien's League"_s);
    league.setLeagueShortName(u"OB's"_s);
    league.setSalaryCap(Currency::fromRaw(12'345'600));
    ASSERT_TRUE(league.CommitChanges());
    cLeague read;
    ASSERT_EQ(read.load(500), 1);
    EXPECT_EQ(read.leagueName() + u'|' + read.leagueShortName() + u'|' + read.salaryCap().toCurrencyText(),
              u"O'Brien's League|OB's|$1,234.56"_s);
    cLeague working = read.copy();
    working.setSalaryCap(Currency::fromRaw(-50000));
    ASSERT_TRUE(working.CommitChanges());
    EXPECT_EQ(app.scalar(u"SELECT count(*) || '/' || salary_cap FROM leagues"_s), u"1/-5.0"_s);
    EXPECT_EQ(read.load(777), 0);   // not found: the record keeps what it held
    EXPECT_EQ(read.leagueShortName(), u"OB's"_s);
}

TEST(League, deletingALeagueTakesItsMembersAndScoringButNotOtherLeaguesOrPairings)
{
    TempApp app;
    seed::team(500, u"Aces"_s);
    seed::team(501, u"Bears"_s);
    for (int league : {500, 501}) {
        seed::league(league, u"L"_s + seed::n(league), u"0"_s);
        seed::member(league, 500);
        seed::member(league, 501);
        seed::scored(500, league, 500, 7);
        seed::run(u"INSERT INTO team_results_summary VALUES (500, %1, 500, 10, 1)"_s.arg(league));
        seed::run(u"INSERT INTO race_head_head VALUES (500, %1, 500, 501)"_s.arg(league));
    }
    cLeague gone;
    ASSERT_EQ(gone.load(500), 1);
    ASSERT_TRUE(gone.deleteRow());

    EXPECT_EQ(app.scalar(u"SELECT group_concat(league_nmbr) FROM leagues"_s), u"501"_s);
    for (const QString& table : {u"league_teams"_s, u"team_results"_s, u"team_results_summary"_s}) {
        EXPECT_EQ(app.count(table, u"WHERE league_nmbr = 500"_s), 0) << qPrintable(table);
        EXPECT_GT(app.count(table, u"WHERE league_nmbr = 501"_s), 0) << qPrintable(table);
    }
    EXPECT_EQ(app.count(u"race_head_head"_s, u"WHERE league_nmbr = 500"_s), 1);
    EXPECT_EQ(app.count(u"teams"_s), 2);
}

// The screens show the members by name and ask them for their types; here: a team deleted
// behind the list's back is not seen.
TEST(Membership, loadJoinsLiveTeamsInTheOrderOfTheirNames)
{
    TempApp app;
    seed::league(500, u"Cup"_s, u"0"_s);
    seed::team(500, u"Zebras"_s);
    seed::team(501, u"Aces"_s, 3, 2);
    for (int team : {500, 501, 999})
        seed::member(500, team);
    cLeagueTeamsCollection members;
    EXPECT_EQ(members.load(int16_t(500)), 2);
    EXPECT_EQ(members.Item(1).teamNmbr(), 501);
    EXPECT_TRUE(members.raceTypeExists(3));
    EXPECT_FALSE(members.teamExists(999));
}

} // namespace
