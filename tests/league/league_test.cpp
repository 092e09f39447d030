#include "league/league.h"
#include "league/league_teams.h"
#include "league_rows.h"
#include "racing/scoring_method.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using namespace league_rows;

QList<int> numbersOf(cLeagueCollection& leagues)
{
    QList<int> numbers;
    for (const cLeague& league : leagues)
        numbers << league.leagueNmbr();
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

QList<int> teamsOf(cLeagueTeamsCollection& members)
{
    QList<int> teams;
    for (const cLeagueTeams& member : members)
        teams << member.teamNmbr();
    return teams;
}

// ---- cLeague ----

TEST(League, savedLeagueReadsBackWholeAndAnUpdateChangesTheSameRow)
{
    TempApp app;
    cLeague league;
    league.setLeagueName(u"O'Brien's Sunday League"_s);
    league.setLeagueShortName(u"OB's"_s);
    league.setRaceTypeNmbr(6);
    league.setCarTypeNmbr(2);
    league.setScoringTypeNmbr(2);
    league.setScoringOptionNmbr(2);
    Currency cap;
    ASSERT_TRUE(Currency::parse(u"1234.56"_s, cap));
    league.setSalaryCap(cap);
    league.setDropLowest(3);
    ASSERT_TRUE(league.CommitChanges());
    EXPECT_EQ(league.leagueNmbr(), 500);

    cLeague read;
    ASSERT_EQ(read.load(500), 1);
    EXPECT_EQ(read.leagueName(), u"O'Brien's Sunday League"_s);
    EXPECT_EQ(read.leagueShortName(), u"OB's"_s);
    EXPECT_EQ(read.raceTypeNmbr(), 6);
    EXPECT_EQ(read.carTypeNmbr(), 2);
    EXPECT_EQ(read.scoringTypeNmbr(), 2);
    EXPECT_EQ(read.scoringOptionNmbr(), 2);
    EXPECT_EQ(read.salaryCap(), cap);
    EXPECT_EQ(read.salaryCap().toCurrencyText(), u"$1,234.56"_s);
    EXPECT_EQ(read.dropLowest(), 3);

    // A working copy keeps the key, so saving it updates the row instead of adding one.
    cLeague working = read.copy();
    working.setLeagueName(u"Renamed 'Mid' League"_s);
    working.setSalaryCap(Currency::fromRaw(-50000));
    working.setDropLowest(0);
    ASSERT_TRUE(working.CommitChanges());
    EXPECT_EQ(working.leagueNmbr(), 500);
    EXPECT_EQ(app.count(u"leagues"_s), 1);
    cLeague again;
    ASSERT_EQ(again.load(500), 1);
    EXPECT_EQ(again.leagueName(), u"Renamed 'Mid' League"_s);
    EXPECT_EQ(again.salaryCap(), Currency::fromRaw(-50000));
    EXPECT_EQ(again.dropLowest(), 0);
    EXPECT_EQ(read.leagueName(), u"O'Brien's Sunday League"_s);

    EXPECT_EQ(saved(u"Second"_s, 1, 1).leagueNmbr(), 501);
    EXPECT_EQ(again.load(777), 0);   // not found: the record keeps what it held
    EXPECT_EQ(again.leagueName(), u"Renamed 'Mid' League"_s);
}

TEST(League, deletingALeagueTakesItsMembersAndScoringButNotOtherLeaguesOrPairings)
{
    TempApp app;
    cLeague gone = saved(u"Gone"_s, 1, 1);
    cLeague kept = saved(u"Kept"_s, 1, 1);
    addTeam(500, u"Aces"_s, 1, 1);
    addTeam(501, u"Bears"_s, 1, 1);
    for (int league : {500, 501}) {
        addMember(league, 500);
        addMember(league, 501);
        run(u"INSERT INTO team_results (race_nmbr, league_nmbr, team_nmbr, car_nmbr, points) VALUES (500, %1, 500, 7, 10)"_s.arg(league));
        run(u"INSERT INTO team_results_summary VALUES (500, %1, 500, 10, 1)"_s.arg(league));
        run(u"INSERT INTO race_head_head VALUES (500, %1, 500, 501)"_s.arg(league));
    }

    ASSERT_TRUE(gone.deleteRow());

    EXPECT_EQ(app.count(u"leagues"_s), 1);
    EXPECT_EQ(app.count(u"leagues"_s, u"WHERE league_nmbr = 501"_s), 1);
    for (const QString& table : {u"league_teams"_s, u"team_results"_s, u"team_results_summary"_s}) {
        EXPECT_EQ(app.count(table, u"WHERE league_nmbr = 500"_s), 0) << qPrintable(table);
        EXPECT_GT(app.count(table, u"WHERE league_nmbr = 501"_s), 0) << qPrintable(table);
    }
    EXPECT_EQ(app.count(u"race_head_head"_s, u"WHERE league_nmbr = 500"_s), 1);
    EXPECT_EQ(app.count(u"teams"_s), 2);
}

// ---- cLeagueCollection ----

TEST(LeagueCollection, loadFiltersByRaceTypeAndScoreByAndAppendsOnEachCall)
{
    TempApp app;
    saved(u"Cup Cars"_s, 1, 1);      // 500
    saved(u"Cup Drivers"_s, 1, 2);   // 501
    saved(u"F1 Cars"_s, 6, 1);       // 502

    cLeagueCollection all;
    EXPECT_EQ(all.load(), 3);
    cLeagueCollection cup;
    EXPECT_EQ(cup.load(int16_t(1)), 2);
    EXPECT_EQ(numbersOf(cup), (QList<int>{500, 501}));
    cLeagueCollection cupDrivers;
    EXPECT_EQ(cupDrivers.load(int16_t(1), int16_t(2)), 1);
    EXPECT_EQ(cupDrivers.Item(1).leagueName(), u"Cup Drivers"_s);
    cLeagueCollection cars;
    EXPECT_EQ(cars.load(std::nullopt, int16_t(1)), 2);
    EXPECT_EQ(numbersOf(cars), (QList<int>{500, 502}));
    cLeagueCollection none;
    EXPECT_EQ(none.load(int16_t(0)), 0);

    EXPECT_EQ(all.load(), 6);   // a second load appends
}

TEST(LeagueCollection, loadForTeamGivesTheLeaguesTheTeamBelongsTo)
{
    TempApp app;
    saved(u"A"_s, 1, 1);
    saved(u"B"_s, 1, 1);
    saved(u"C"_s, 1, 1);
    addTeam(500, u"Aces"_s, 1, 1);
    addTeam(501, u"Bears"_s, 1, 1);
    addMember(500, 500);
    addMember(502, 500);
    addMember(501, 501);

    cLeagueCollection forAces;
    EXPECT_EQ(forAces.loadForTeam(500), 2);
    EXPECT_EQ(numbersOf(forAces), (QList<int>{500, 502}));
    cLeagueCollection forNobody;
    EXPECT_EQ(forNobody.loadForTeam(999), 0);
}

TEST(LeagueCollection, numberLookUpsLoadEveryLeagueWhenEmptyAndAnswerForTheListWhenFilled)
{
    TempApp app;
    saved(u"Cup"_s, 1, 1, 2);
    saved(u"Trucks"_s, 3, 1, 1);

    cLeagueCollection all;
    EXPECT_TRUE(all.raceTypeNmbrExists(3));
    EXPECT_FALSE(all.raceTypeNmbrExists(6));
    EXPECT_TRUE(all.scoringTypeNmbrExists(2));
    EXPECT_FALSE(all.scoringTypeNmbrExists(500));
    EXPECT_FALSE(all.raceTypeNmbrExists(cVariant()));
    EXPECT_FALSE(all.raceTypeNmbrExists(cVariant(u""_s)));
    EXPECT_TRUE(all.raceTypeNmbrExists(cVariant(u"3"_s)));
    EXPECT_EQ(all.Count(), 2);   // loaded once

    cLeagueCollection cupOnly;
    cupOnly.load(int16_t(1));
    EXPECT_FALSE(cupOnly.raceTypeNmbrExists(3));
    EXPECT_FALSE(cupOnly.scoringTypeNmbrExists(1));
}

// ---- cLeagueTeamsCollection ----

class Membership : public ::testing::Test {
protected:
    void SetUp() override
    {
        saved(u"Cup"_s, 1, 1);       // 500
        saved(u"Cup Two"_s, 1, 1);   // 501
        addTeam(500, u"Zebras"_s, 1, 1);
        addTeam(501, u"Aces"_s, 1, 1);
        addTeam(502, u"Movers"_s, 3, 2);
        addMember(500, 500);
        addMember(500, 501);
        addMember(501, 502);
        addMember(501, 999);   // a team deleted behind the list's back
    }
    TempApp app;
};

TEST_F(Membership, loadJoinsLiveTeamsOnlyInTheOrderOfTheirNames)
{
    cLeagueTeamsCollection all;
    EXPECT_EQ(all.load(), 3);
    EXPECT_EQ(teamsOf(all), (QList<int>{501, 502, 500}));
    cLeagueTeamsCollection cup;
    EXPECT_EQ(cup.load(int16_t(500)), 2);
    EXPECT_EQ(teamsOf(cup), (QList<int>{501, 500}));
    cLeagueTeamsCollection zebras;
    EXPECT_EQ(zebras.load(std::nullopt, int16_t(500)), 1);
    EXPECT_EQ(zebras.Item(1).leagueNmbr(), 500);
    cLeagueTeamsCollection pair;
    EXPECT_EQ(pair.load(int16_t(501), int16_t(502)), 1);
    cLeagueTeamsCollection noPair;
    EXPECT_EQ(noPair.load(int16_t(500), int16_t(502)), 0);
}

TEST_F(Membership, teamExistsLoadsWhenEmptyButLeagueExistsLooksOnlyAtTheListAsItStands)
{
    cLeagueTeamsCollection cup;
    cup.load(int16_t(500));
    EXPECT_TRUE(cup.teamExists(500));
    EXPECT_FALSE(cup.teamExists(502));   // a member of another league only

    cLeagueTeamsCollection empty;
    EXPECT_TRUE(empty.teamExists(502));
    cLeagueTeamsCollection forLeague;
    EXPECT_FALSE(forLeague.teamExists(502, int16_t(500)));
    EXPECT_TRUE(forLeague.teamExists(500, int16_t(500)));

    cLeagueTeamsCollection unloaded;
    EXPECT_FALSE(unloaded.leagueExists(500, 500));
    EXPECT_EQ(unloaded.Count(), 0);
    cLeagueTeamsCollection movers;
    movers.load(std::nullopt, int16_t(502));
    EXPECT_TRUE(movers.leagueExists(0, 501));
    EXPECT_FALSE(movers.leagueExists(502, 500));
}

TEST_F(Membership, typeLookUpsCompareTheMemberTeamsOwnTypes)
{
    cLeagueTeamsCollection cup;
    EXPECT_TRUE(cup.raceTypeExists(1, int16_t(500)));
    EXPECT_FALSE(cup.raceTypeExists(3));   // the list now holds league 500 only
    cLeagueTeamsCollection two;
    EXPECT_TRUE(two.raceTypeExists(3, int16_t(501)));
    cLeagueTeamsCollection drivers;
    EXPECT_TRUE(drivers.carTypeExists(2, int16_t(501)));
    cLeagueTeamsCollection cars;
    EXPECT_FALSE(cars.carTypeExists(2, int16_t(500)));
    cLeagueTeamsCollection leagueWithoutMembers;
    EXPECT_FALSE(leagueWithoutMembers.raceTypeExists(1, int16_t(0)));
    cLeagueTeamsCollection byTeam;
    EXPECT_TRUE(byTeam.raceTypeExists(1, std::nullopt, int16_t(501)));
}

TEST_F(Membership, insertNewWithALeagueReplacesItsMembersAndWithoutOneOnlyAdds)
{
    cLeagueTeamsCollection replacement;
    replacement.Add(500, 502);
    EXPECT_TRUE(replacement.insertNew(int16_t(500)));
    EXPECT_EQ(app.count(u"league_teams"_s, u"WHERE league_nmbr = 500"_s), 1);
    EXPECT_EQ(app.scalar(u"SELECT team_nmbr FROM league_teams WHERE league_nmbr = 500"_s), u"502"_s);
    EXPECT_EQ(app.count(u"league_teams"_s, u"WHERE league_nmbr = 501"_s), 2);

    cLeagueTeamsCollection nobody;
    EXPECT_TRUE(nobody.insertNew(int16_t(500)));
    EXPECT_EQ(app.count(u"league_teams"_s, u"WHERE league_nmbr = 500"_s), 0);

    // Without a league it only adds; a pair already stored is skipped.
    cLeagueTeamsCollection joins;
    joins.Add(500, 500);
    joins.Add(501, 500);
    joins.Add(501, 502);
    EXPECT_TRUE(joins.insertNew());
    EXPECT_EQ(app.count(u"league_teams"_s), 4);
    EXPECT_EQ(app.count(u"league_teams"_s, u"WHERE team_nmbr = 500"_s), 2);
}

// ---- scoring lists ----

TEST(ScoringLists, nameLookUpsLoadOnFirstUseAndGiveEmptyTextForUnknownNumbers)
{
    TempApp app;
    run(u"INSERT INTO scoring_type VALUES (500, 'Club''s Own', 1, 2, 3)"_s);
    cScoringTypeCollection methods;
    EXPECT_EQ(methods.getScoringTypeName(500), u"Club's Own"_s);
    EXPECT_EQ(methods.getScoringTypeName(1), u"Standard Points"_s);
    EXPECT_EQ(methods.getScoringTypeName(0), u""_s);
    EXPECT_EQ(methods.Count(), 3);
    const cScoringType& own = methods.Item(3);
    EXPECT_EQ(own.lapsLedBonus(), 1);
    EXPECT_EQ(own.mostLapsLedBonus(), 2);
    EXPECT_EQ(own.fastQualBonus(), 3);

    cScoringOptionCollection options;
    EXPECT_EQ(options.getScoringOptionName(2), u"Drop Lowest Finishers"_s);
    EXPECT_EQ(options.getScoringOptionName(3), u""_s);
    EXPECT_EQ(options.Count(), 2);
    EXPECT_EQ(options.load(), 4);   // loads append
}

} // namespace
