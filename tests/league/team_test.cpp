#include "league/league_fixtures.h"
#include "league/team.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(Team, theListReadsEveryColumnButLoadReadsSevenAndLeavesTheAddressAsItWas)
{
    TempApp app;
    seed::run(u"INSERT INTO teams VALUES (500, 'O''Reilly Racing', 'Pat', 'pat@example.org', '555-0100', 6, 2, "
              u"'1 Main St', 'Suite 2', 'Springfield', 'IL', '62701')"_s);
    cTeamCollection teams;
    ASSERT_EQ(teams.load(), 1);
    const cTeam& listed = teams.Item(1);
    EXPECT_EQ((QStringList{listed.teamName(), listed.addressLine1(), listed.addressLine2(), listed.city(),
                           listed.state(), listed.zip()}),
              (QStringList{u"O'Reilly Racing"_s, u"1 Main St"_s, u"Suite 2"_s, u"Springfield"_s, u"IL"_s, u"62701"_s}));

    cTeam loaded;
    loaded.setCity(u"kept"_s);
    ASSERT_EQ(loaded.load(500), 1);
    EXPECT_EQ((QStringList{loaded.teamName(), loaded.teamOwner(), loaded.email(), loaded.phone(), loaded.city(),
                           loaded.addressLine1()}),
              (QStringList{u"O'Reilly Racing"_s, u"Pat"_s, u"pat@example.org"_s, u"555-0100"_s, u"kept"_s, QString()}));
    EXPECT_EQ(loaded.raceTypeNmbr(), 6);
    EXPECT_EQ(loaded.carTypeNmbr(), 2);
    EXPECT_EQ(loaded.load(999), 0);   // not found: the record keeps what it held
    EXPECT_EQ(loaded.teamOwner(), u"Pat"_s);
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
    EXPECT_EQ(app.scalar(u"SELECT group_concat(team_nmbr) FROM teams"_s), u"501"_s);
    EXPECT_EQ(app.scalar(u"SELECT group_concat(team_nmbr) FROM team_car"_s), u"501"_s);
    EXPECT_EQ(app.count(u"league_teams"_s), 1);
}

}  // namespace
