#include "league/roster_seed.h"
#include "league/league.h"
#include "league/team_car.h"
#include "racing/races.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;
namespace seed = roster_seed;

namespace {

QDate day(const QString& iso)
{
    return QDate::fromString(iso, Qt::ISODate);
}

std::vector<int> carsOf(cTeamCarCollection& list)
{
    std::vector<int> cars;
    for (const cTeamCar& entry : list)
        cars.push_back(entry.carNmbr());
    std::sort(cars.begin(), cars.end());
    return cars;
}

cTeamCar newEntry(int team, int car, const QString& efctv, double locked)
{
    cTeamCar entry;
    entry.setTeamNmbr(static_cast<int16_t>(team));
    entry.setCarNmbr(static_cast<int16_t>(car));
    entry.setEfctvDt(efctv);
    entry.setLockedSalary(locked);
    return entry;
}

// ---- the date model ----

TEST(TeamCarInForce, onRaceDayAnEntryCountsFromItsEffectiveDateAndNoLongerOnItsTerminationDate)
{
    TempApp app;
    seed::league(500, u"Cup"_s, u"0"_s);
    seed::team(500, u"Member"_s);
    seed::team(501, u"Outsider"_s);
    seed::member(500, 500);
    seed::race(500, u"2002-03-17"_s);
    for (int car = 500; car <= 506; ++car)
        seed::car(car, QString::number(car), u"100"_s);
    seed::car(507, u"F1"_s, u"100"_s, u"NULL"_s, 6);
    seed::entry(500, 500, u"2002-03-17"_s, {}, u"100"_s);            // effective on race day: counts
    seed::entry(500, 501, u"2002-01-01"_s, u"2002-03-17"_s, u"100"_s);  // ends on race day: out
    seed::entry(500, 502, u"2002-01-01"_s, u"2002-03-18"_s, u"100"_s);  // ends the day after: counts
    seed::entry(500, 503, u"2002-03-18"_s, {}, u"100"_s);            // starts the day after: out
    seed::entry(500, 504, u"2002-01-01"_s, {}, u"100"_s);            // ran in the race: not a DNQ
    seed::entry(500, 507, u"2002-01-01"_s, {}, u"100"_s);            // another series
    seed::entry(501, 505, u"2002-01-01"_s, {}, u"100"_s);            // team in no league
    seed::result(500, 504, 1);

    cRaces race;
    ASSERT_EQ(race.load(500), 1);
    cLeague league;
    ASSERT_EQ(league.load(500), 1);
    cTeamCarCollection dnq;
    EXPECT_EQ(dnq.loadDNQcars(race, league), 2);
    EXPECT_EQ(carsOf(dnq), (std::vector<int>{500, 502}));
}

// ---- locked salary and the row named by team, car and date ----

TEST(TeamCarLockedSalary, isWrittenOnceAndSurvivesASalaryChangeAndAnUpdate)
{
    TempApp app;
    seed::team(500, u"Team"_s);
    seed::car(500, u"24"_s, u"100000"_s);

    cTeamCar entry = newEntry(500, 500, u"2002-02-01"_s, 100000.5);
    ASSERT_TRUE(entry.CommitChanges());
    EXPECT_EQ(app.scalar(u"SELECT locked_salary FROM team_car"_s), u"100000.5"_s);
    EXPECT_EQ(app.scalar(u"SELECT active FROM team_car"_s), u"1"_s);
    EXPECT_EQ(app.scalar(u"SELECT term_dt FROM team_car"_s), u"<null>"_s);

    seed::run(u"UPDATE cars SET salary = 250000 WHERE car_nmbr = 500"_s);
    entry.setLockedSalary(250000);
    entry.setTermDt(u"2002-05-01"_s);
    ASSERT_TRUE(entry.CommitChanges());   // the row exists: an update, not a second row

    EXPECT_EQ(app.count(u"team_car"_s), 1);
    EXPECT_EQ(app.scalar(u"SELECT locked_salary FROM team_car"_s), u"100000.5"_s);
    EXPECT_EQ(app.scalar(u"SELECT term_dt FROM team_car"_s), u"2002-05-01"_s);

    cTeamCar loaded;
    ASSERT_EQ(loaded.load(500, 500), 1);
    EXPECT_DOUBLE_EQ(loaded.LockedSalary(), 100000.5);
    EXPECT_EQ(loaded.termDt(), day(u"2002-05-01"_s));
}

TEST(TeamCarLockedSalary, aLaterEffectiveDateIsANewStintWithTheSalaryOfThatDay)
{
    TempApp app;
    seed::team(500, u"Team"_s);
    seed::car(500, u"24"_s, u"100"_s);
    seed::entry(500, 500, u"2002-01-01"_s, u"2002-03-01"_s, u"100"_s);

    cTeamCar again = newEntry(500, 500, u"2002-04-01"_s, 300);
    ASSERT_TRUE(again.CommitChanges());
    EXPECT_EQ(app.count(u"team_car"_s), 2);
    EXPECT_EQ(app.scalar(u"SELECT locked_salary FROM team_car WHERE efctv_dt = '2002-04-01'"_s), u"300"_s);
    EXPECT_EQ(app.scalar(u"SELECT locked_salary FROM team_car WHERE efctv_dt = '2002-01-01'"_s), u"100"_s);
}

TEST(TeamCarRow, updateRowNamesOnlyTeamAndCarSoItReachesTheStintWhateverItsDate)
{
    TempApp app;
    seed::team(500, u"Team"_s);
    seed::car(500, u"24"_s, u"100"_s);
    seed::car(501, u"3"_s, u"100"_s);
    seed::entry(500, 500, u"2002-01-01"_s, {}, u"100"_s);
    seed::entry(500, 501, u"2002-01-01"_s, {}, u"100"_s);

    // An object whose effective date differs from the row's still writes that row.
    cTeamCar entry = newEntry(500, 500, u"2002-01-15"_s, 0);
    entry.setTermDt(u"2002-06-01"_s);
    entry.setActive(0);
    ASSERT_TRUE(entry.updateRow());
    EXPECT_EQ(app.scalar(u"SELECT efctv_dt || ' ' || term_dt || ' ' || active FROM team_car WHERE car_nmbr = 500"_s),
              u"2002-01-15 2002-06-01 0"_s);
    EXPECT_EQ(app.scalar(u"SELECT term_dt FROM team_car WHERE car_nmbr = 501"_s), u"<null>"_s);

    entry.setTermDt(QDate());
    entry.setActive(1);
    ASSERT_TRUE(entry.updateRow());
    EXPECT_EQ(app.scalar(u"SELECT term_dt FROM team_car WHERE car_nmbr = 500"_s), u"<null>"_s);
    EXPECT_EQ(app.scalar(u"SELECT active FROM team_car WHERE car_nmbr = 500"_s), u"1"_s);
}

TEST(TeamCarRow, updateRowOverTwoStintsLeavesTheTableWithoutTwoRowsOfOneDate)
{
    TempApp app;
    seed::team(500, u"Team"_s);
    seed::car(500, u"24"_s, u"100"_s);
    seed::entry(500, 500, u"2002-01-01"_s, u"2002-03-01"_s, u"100"_s);
    seed::entry(500, 500, u"2002-04-01"_s, {}, u"300"_s);

    // The statement is aimed at both stints; the row key keeps the earlier stint from becoming
    // a copy of the later one, so the history of the first stint survives.
    cTeamCar later;
    later.setTeamNmbr(500);
    later.setCarNmbr(500);
    later.setEfctvDt(u"2002-04-01"_s);
    later.setActive(0);
    ASSERT_TRUE(later.updateRow());
    EXPECT_EQ(app.count(u"team_car"_s), 2);
    EXPECT_EQ(app.scalar(u"SELECT active FROM team_car WHERE efctv_dt = '2002-04-01'"_s), u"0"_s);
    EXPECT_EQ(app.scalar(u"SELECT term_dt FROM team_car WHERE efctv_dt = '2002-01-01'"_s), u"2002-03-01"_s);
}

TEST(TeamCarRow, deleteRowRemovesOneStintOnly)
{
    TempApp app;
    seed::team(500, u"Team"_s);
    seed::car(500, u"24"_s, u"100"_s);
    seed::entry(500, 500, u"2002-01-01"_s, u"2002-03-01"_s, u"100"_s);
    seed::entry(500, 500, u"2002-04-01"_s, {}, u"300"_s);

    cTeamCar probe;
    EXPECT_TRUE(probe.teamCarExists(500, 500, day(u"2002-04-01"_s)));
    EXPECT_FALSE(probe.teamCarExists(500, 500, day(u"2002-04-02"_s)));
    EXPECT_FALSE(probe.teamCarExists(500, 500, QDate()));

    cTeamCar first = newEntry(500, 500, u"2002-01-01"_s, 0);
    ASSERT_TRUE(first.deleteRow());
    EXPECT_EQ(app.count(u"team_car"_s), 1);
    EXPECT_EQ(app.scalar(u"SELECT efctv_dt FROM team_car"_s), u"2002-04-01"_s);
}

// ---- collections ----

TEST(TeamCarCollection, loadGroupCountsOnlyTheTeamsEntriesOfTheGroupWithNoTerminationDate)
{
    TempApp app;
    seed::team(500, u"Team"_s);
    seed::team(501, u"Other"_s);
    seed::car(500, u"1"_s, u"100"_s, u"2"_s);
    seed::car(501, u"2"_s, u"100"_s, u"2"_s);
    seed::car(502, u"3"_s, u"100"_s, u"2"_s);
    seed::car(503, u"4"_s, u"100"_s, u"3"_s);
    seed::entry(500, 500, u"2002-01-01"_s, {}, u"100"_s);
    seed::entry(500, 501, u"2002-01-01"_s, u"2099-01-01"_s, u"100"_s);   // ends in the future: gone
    seed::entry(500, 503, u"2002-01-01"_s, {}, u"100"_s);                // another group
    seed::entry(501, 502, u"2002-01-01"_s, {}, u"100"_s);                // another team

    cTeamCarCollection group;
    EXPECT_EQ(group.loadGroup(500, 2), 1);
    EXPECT_EQ(carsOf(group), std::vector<int>{500});
}

TEST(TeamCarCollection, termAllEndsEveryOpenEntryOfTheTeamAndNothingElse)
{
    TempApp app;
    seed::team(500, u"Team"_s);
    seed::team(501, u"Other"_s);
    seed::car(500, u"1"_s, u"100"_s);
    seed::car(501, u"2"_s, u"100"_s);
    seed::car(502, u"Top Bonus"_s, u"0"_s, u"NULL"_s, 1, 3);
    seed::entry(500, 500, u"2002-01-01"_s, {}, u"100"_s);
    seed::entry(500, 501, u"2002-01-01"_s, u"2002-02-01"_s, u"100"_s);
    seed::entry(500, 502, u"2002-01-01"_s, {}, u"0"_s);
    seed::entry(501, 500, u"2002-01-01"_s, {}, u"100"_s);

    ASSERT_TRUE(cTeamCarCollection().TermAll(500, day(u"2002-06-30"_s)));
    EXPECT_EQ(app.scalar(u"SELECT term_dt FROM team_car WHERE team_nmbr = 500 AND car_nmbr = 500"_s), u"2002-06-30"_s);
    EXPECT_EQ(app.scalar(u"SELECT term_dt FROM team_car WHERE team_nmbr = 500 AND car_nmbr = 502"_s), u"2002-06-30"_s);
    EXPECT_EQ(app.scalar(u"SELECT term_dt FROM team_car WHERE team_nmbr = 500 AND car_nmbr = 501"_s), u"2002-02-01"_s);
    EXPECT_EQ(app.scalar(u"SELECT term_dt FROM team_car WHERE team_nmbr = 501"_s), u"<null>"_s);
}

TEST(TeamCarCollection, insertNewReplacesTheRosterWithoutALockedSalary)
{
    TempApp app;
    seed::team(500, u"Team"_s);
    seed::car(500, u"1"_s, u"100"_s);
    seed::car(501, u"2"_s, u"100"_s);
    seed::entry(500, 500, u"2002-01-01"_s, {}, u"100"_s);

    cTeamCarCollection roster;
    roster.Add(500, 501, day(u"2002-02-01"_s), day(u"2002-03-01"_s), 7.5, 900, 0);
    ASSERT_TRUE(roster.insertNew(500));
    EXPECT_EQ(app.count(u"team_car"_s), 1);
    EXPECT_EQ(app.scalar(u"SELECT car_nmbr || ' ' || term_dt || ' ' || price || ' ' || active FROM team_car"_s),
              u"501 2002-03-01 7.5 0"_s);
    EXPECT_EQ(app.scalar(u"SELECT locked_salary FROM team_car"_s), u"<null>"_s);

    cTeamCarCollection reread;   // such a roster still reads, costing nothing
    ASSERT_EQ(reread.load(500), 1);
    EXPECT_DOUBLE_EQ(reread.Item(1).LockedSalary(), 0.0);
}

// ---- the duplicate test ----

class TeamCarDuplicate : public ::testing::Test {
protected:
    void SetUp() override
    {
        for (int car = 500; car <= 503; ++car)
            seed::car(car, QString::number(car), u"100"_s);
        for (int team = 500; team <= 504; ++team)
            seed::team(team, u"Team "_s + QString::number(team));
        seed::entry(500, 500, u"2002-01-01"_s, {}, u"100"_s);
        seed::entry(500, 501, u"2002-01-01"_s, {}, u"100"_s);
        seed::entry(500, 503, u"2001-01-01"_s, u"2001-06-01"_s, u"100"_s);   // ended: not compared
        seed::entry(501, 500, u"2002-01-01"_s, {}, u"100"_s);                // only one of the two
        seed::entry(502, 500, u"2002-01-01"_s, {}, u"100"_s);                // one open, one ended
        seed::entry(502, 501, u"2002-01-01"_s, u"2002-02-01"_s, u"100"_s);
        seed::entry(503, 500, u"2002-05-01"_s, {}, u"999"_s);                // both, and more
        seed::entry(503, 501, u"2002-05-01"_s, {}, u"999"_s);
        seed::entry(503, 502, u"2002-05-01"_s, {}, u"999"_s);
    }
    TempApp app;
};

TEST_F(TeamCarDuplicate, aTeamHoldingAllOpenEntriesIsFoundWhateverItsDatesSalariesAndExtraCars)
{
    cTeamCar probe;
    EXPECT_EQ(probe.duplicateTeam(500), 503);
}

TEST_F(TeamCarDuplicate, getTeamsForCarListsOtherTeamsWithAnOpenEntryAndNarrowsByAList)
{
    cTeamCar probe;
    EXPECT_EQ(probe.getTeamsForCar(500, 500, {}), u"(501,502,503)"_s);
    EXPECT_EQ(probe.getTeamsForCar(500, 501, u"(501,502,503)"_s), u"(503)"_s);
    EXPECT_EQ(probe.getTeamsForCar(500, 502, u"(501)"_s), u"()"_s);
}

TEST_F(TeamCarDuplicate, noDuplicateWhenNobodyHoldsThemAllOrTheTeamHoldsNothingOpen)
{
    seed::entry(500, 502, u"2002-01-01"_s, {}, u"100"_s);
    seed::run(u"DELETE FROM team_car WHERE team_nmbr = 503 AND car_nmbr = 502"_s);
    cTeamCar probe;
    EXPECT_EQ(probe.duplicateTeam(500), -1);
    EXPECT_EQ(probe.duplicateTeam(504), -1);   // no entries at all
}

}  // namespace
