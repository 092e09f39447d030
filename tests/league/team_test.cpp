#include "league/roster_seed.h"
#include "league/team.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
namespace seed = roster_seed;

namespace {

cTeam fullTeam()
{
    cTeam team;
    team.setTeamName(u"O'Reilly Racing"_s);
    team.setTeamOwner(u"Pat O'Reilly"_s);
    team.setEmail(u"pat@example.org"_s);
    team.setPhone(u"555-0100"_s);
    team.setRaceTypeNmbr(6);
    team.setCarTypeNmbr(2);
    team.setAddressLine1(u"1 Main St"_s);
    team.setAddressLine2(u"Suite 2"_s);
    team.setCity(u"Springfield"_s);
    team.setState(u"IL"_s);
    team.setZip(u"62701"_s);
    return team;
}

TEST(Team, aTeamIsStoredWithEveryColumnReadBackWholeByTheListAndUpdatedInPlace)
{
    TempApp app;
    cTeam team = fullTeam();
    ASSERT_TRUE(team.CommitChanges());
    EXPECT_EQ(team.teamNmbr(), 500);

    cTeamCollection teams;
    ASSERT_EQ(teams.load(), 1);
    const cTeam& stored = teams.Item(1);
    EXPECT_EQ(stored.teamName(), u"O'Reilly Racing"_s);
    EXPECT_EQ(stored.teamOwner(), u"Pat O'Reilly"_s);
    EXPECT_EQ(stored.email(), u"pat@example.org"_s);
    EXPECT_EQ(stored.phone(), u"555-0100"_s);
    EXPECT_EQ(stored.raceTypeNmbr(), 6);
    EXPECT_EQ(stored.carTypeNmbr(), 2);
    EXPECT_EQ(stored.addressLine1(), u"1 Main St"_s);
    EXPECT_EQ(stored.addressLine2(), u"Suite 2"_s);
    EXPECT_EQ(stored.city(), u"Springfield"_s);
    EXPECT_EQ(stored.state(), u"IL"_s);
    EXPECT_EQ(stored.zip(), u"62701"_s);

    cTeam working = stored.copy();   // a working copy saves into the same row
    working.setCity(u"Shelbyville"_s);
    ASSERT_TRUE(working.CommitChanges());
    EXPECT_EQ(app.count(u"teams"_s), 1);
    EXPECT_EQ(app.scalar(u"SELECT city || ' ' || zip FROM teams WHERE team_nmbr = 500"_s), u"Shelbyville 62701"_s);
}

TEST(Team, loadReadsSevenColumnsAndLeavesTheAddressAsItWas)
{
    TempApp app;
    cTeam stored = fullTeam();
    ASSERT_TRUE(stored.CommitChanges());

    cTeam team;
    team.setCity(u"kept"_s);
    ASSERT_EQ(team.load(500), 1);
    EXPECT_EQ(team.teamName(), u"O'Reilly Racing"_s);
    EXPECT_EQ(team.teamOwner(), u"Pat O'Reilly"_s);
    EXPECT_EQ(team.phone(), u"555-0100"_s);
    EXPECT_EQ(team.raceTypeNmbr(), 6);
    EXPECT_EQ(team.carTypeNmbr(), 2);
    EXPECT_EQ(team.city(), u"kept"_s);
    EXPECT_TRUE(team.addressLine1().isEmpty());

    cTeam missing;
    missing.setTeamName(u"untouched"_s);
    EXPECT_EQ(missing.load(999), 0);
    EXPECT_EQ(missing.teamName(), u"untouched"_s);
}

TEST(Team, deletingATeamTakesItsRosterAndLeavesOtherTeamsAndMembershipsAlone)
{
    TempApp app;
    seed::team(500, u"Gone"_s);
    seed::team(501, u"Stays"_s);
    seed::car(500, u"24"_s, u"1000"_s);
    seed::entry(500, 500, u"2002-01-01"_s, u"2002-02-01"_s, u"1000"_s);
    seed::entry(500, 500, u"2002-03-01"_s, {}, u"1000"_s);
    seed::entry(501, 500, u"2002-01-01"_s, {}, u"1000"_s);
    seed::league(500, u"League"_s, u"0"_s);
    seed::member(500, 500);

    cTeam team;
    ASSERT_EQ(team.load(500), 1);
    ASSERT_TRUE(team.deleteRow());
    EXPECT_EQ(app.count(u"teams"_s), 1);
    EXPECT_EQ(app.count(u"team_car"_s, u"WHERE team_nmbr = 500"_s), 0);
    EXPECT_EQ(app.count(u"team_car"_s, u"WHERE team_nmbr = 501"_s), 1);
    EXPECT_EQ(app.count(u"league_teams"_s), 1);
}

TEST(Team, theListFiltersByRaceTypeAndScoreByAndAppendsOnEveryLoad)
{
    TempApp app;
    seed::team(500, u"Cup cars"_s, 1, 1);
    seed::team(501, u"Cup drivers"_s, 1, 2);
    seed::team(502, u"F1 drivers"_s, 6, 2);

    cTeamCollection both;
    EXPECT_EQ(both.load(1, 2), 1);
    EXPECT_EQ(both.Item(1).teamName(), u"Cup drivers"_s);
    cTeamCollection byRaceType;
    EXPECT_EQ(byRaceType.load(1), 2);
    cTeamCollection byCarType;
    EXPECT_EQ(byCarType.load(std::nullopt, 2), 2);
    cTeamCollection all;
    EXPECT_EQ(all.load(), 3);
    EXPECT_EQ(all.load(), 6);
}

}  // namespace
