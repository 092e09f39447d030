#include "league/league.h"
#include "league/league_fixtures.h"
#include "league/team_car.h"
#include "racing/races.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QDate day(const QString& iso) { return QDate::fromString(iso, Qt::ISODate); }

QList<int> carsOf(cTeamCarCollection& list)
{
    QList<int> cars;
    for (const cTeamCar& entry : list)
        cars << entry.carNmbr();
    std::sort(cars.begin(), cars.end());
    return cars;
}

cTeamCar newEntry(int car, const QString& efctv, double locked = 0)
{
    cTeamCar entry;
    entry.setTeamNmbr(500);
    entry.setCarNmbr(static_cast<int16_t>(car));
    entry.setEfctvDt(efctv);
    entry.setLockedSalary(locked);
    return entry;
}

TEST(TeamCarInForce, onRaceDayAnEntryCountsFromItsEffectiveDateAndNoLongerOnItsTerminationDate)
{
    TempApp app;
    seed::league(500, u"Cup"_s, u"0"_s);
    seed::team(500, u"Member"_s);
    seed::team(501, u"Outsider"_s);
    seed::member(500, 500);
    seed::race(500, u"2002-03-17"_s);
    for (int car = 500; car <= 506; ++car)
        seed::car(car, seed::n(car), u"100"_s);
    seed::car(507, u"F1"_s, u"100"_s, u"NULL"_s, 6);
    seed::entry(500, 500, u"2002-03-17"_s, {}, u"100"_s);               // effective on race day: counts
    seed::entry(500, 501, u"2002-01-01"_s, u"2002-03-17"_s, u"100"_s);  // ends on race day: out
    seed::entry(500, 502, u"2002-01-01"_s, u"2002-03-18"_s, u"100"_s);  // ends the day after: counts
    seed::entry(500, 503, u"2002-03-18"_s, {}, u"100"_s);               // starts the day after: out
    seed::entry(500, 504, u"2002-01-01"_s, {}, u"100"_s);               // ran in the race: not a DNQ
    seed::entry(500, 507, u"2002-01-01"_s, {}, u"100"_s);               // another series
    seed::entry(501, 505, u"2002-01-01"_s, {}, u"100"_s);               // team in no league
    seed::result(500, 504);

    cRaces race;
    ASSERT_EQ(race.load(500), 1);
    cLeague league;
    ASSERT_EQ(league.load(500), 1);
    cTeamCarCollection dnq;
    EXPECT_EQ(dnq.loadDNQcars(race.raceNmbr(), league), 2);
    EXPECT_EQ(carsOf(dnq), (QList<int>{500, 502}));
}

TEST(TeamCarLockedSalary, isWrittenOnceAndALaterEffectiveDateIsANewStintWithTheSalaryOfThatDay)
{
    TempApp app;
    seed::team(500, u"Team"_s);
    seed::car(500, u"24"_s, u"100000"_s);
    cTeamCar entry = newEntry(500, u"2002-02-01"_s, 100000.5);
    ASSERT_TRUE(entry.CommitChanges());
    EXPECT_EQ(app.scalar(u"SELECT active || ' ' || ifnull(term_dt, '-') FROM team_car"_s), u"1 -"_s);

    entry.setLockedSalary(250000);   // as after a salary change
    entry.setTermDt(u"2002-05-01"_s);
    ASSERT_TRUE(entry.CommitChanges());   // the row exists: an update, not a second row
    cTeamCar loaded;
    ASSERT_EQ(loaded.load(500, 500), 1);
    EXPECT_DOUBLE_EQ(loaded.LockedSalary(), 100000.5);
    EXPECT_EQ(loaded.termDt(), day(u"2002-05-01"_s));

    ASSERT_TRUE(newEntry(500, u"2002-06-01"_s, 250000).CommitChanges());
    EXPECT_EQ(app.scalar(u"SELECT group_concat(locked_salary, ' ') FROM (SELECT locked_salary FROM team_car "
                         u"ORDER BY efctv_dt)"_s),
              u"100000.5 250000.0"_s);
}

TEST(TeamCarRow, updateRowWritesEveryStintOfTheCarWhateverItsDateAndDeleteRowRemovesOne)
{
    TempApp app;
    seed::team(500, u"Team"_s);
    seed::car(500, u"24"_s, u"100"_s);
    seed::car(501, u"3"_s, u"100"_s);
    seed::entry(500, 501, u"2002-01-01"_s, {}, u"100"_s);
    seed::entry(500, 500, u"2002-01-01"_s, {}, u"100"_s);

    // An object whose effective date differs from the row's still writes that row.
    cTeamCar entry = newEntry(500, u"2002-01-15"_s);
    entry.setTermDt(u"2002-03-01"_s);
    entry.setActive(0);
    ASSERT_TRUE(entry.updateRow());
    EXPECT_EQ(app.scalar(u"SELECT efctv_dt || ' ' || term_dt || ' ' || active FROM team_car WHERE car_nmbr = 500"_s),
              u"2002-01-15 2002-03-01 0"_s);
    EXPECT_EQ(app.scalar(u"SELECT term_dt FROM team_car WHERE car_nmbr = 501"_s), u"<null>"_s);

    // Over two stints the row key keeps the earlier one from becoming a copy of the later one.
    seed::entry(500, 500, u"2002-04-01"_s, {}, u"300"_s);
    cTeamCar later = newEntry(500, u"2002-04-01"_s);
    later.setActive(0);
    ASSERT_TRUE(later.updateRow());
    EXPECT_EQ(app.count(u"team_car"_s, u"WHERE car_nmbr = 500"_s), 2);
    EXPECT_EQ(app.scalar(u"SELECT ifnull(term_dt, '-') || active FROM team_car WHERE efctv_dt = '2002-04-01'"_s),
              u"-0"_s);
    EXPECT_EQ(app.scalar(u"SELECT term_dt FROM team_car WHERE efctv_dt = '2002-01-15'"_s), u"2002-03-01"_s);

    ASSERT_TRUE(newEntry(500, u"2002-01-15"_s).deleteRow());
    EXPECT_EQ(app.scalar(u"SELECT group_concat(efctv_dt) FROM team_car WHERE car_nmbr = 500"_s), u"2002-04-01"_s);
}

// Team 500 holds cars 500 and 501 open (503 ended); 501 holds only 500; 502 holds 500 open and
// 501 ended; 503 holds both and more, from other dates and salaries; 504 holds nothing.
class TeamCarDuplicate : public ::testing::Test {
protected:
    void SetUp() override
    {
        for (int number = 500; number <= 504; ++number) {
            seed::car(number, seed::n(number), u"100"_s);
            seed::team(number, u"Team "_s + seed::n(number));
        }
        seed::entry(500, 500, u"2002-01-01"_s, {}, u"100"_s);
        seed::entry(500, 501, u"2002-01-01"_s, {}, u"100"_s);
        seed::entry(500, 503, u"2001-01-01"_s, u"2001-06-01"_s, u"100"_s);
        seed::entry(501, 500, u"2002-01-01"_s, {}, u"100"_s);
        seed::entry(502, 500, u"2002-01-01"_s, {}, u"100"_s);
        seed::entry(502, 501, u"2002-01-01"_s, u"2002-02-01"_s, u"100"_s);
        seed::entry(503, 500, u"2002-05-01"_s, {}, u"999"_s);
        seed::entry(503, 501, u"2002-05-01"_s, {}, u"999"_s);
        seed::entry(503, 502, u"2002-05-01"_s, {}, u"999"_s);
    }
    TempApp app;
    cTeamCar probe;
};

TEST_F(TeamCarDuplicate, aTeamHoldingAllOpenEntriesIsFoundAndOtherTeamsOfACarAreListed)
{
    EXPECT_EQ(probe.duplicateTeam(500), 503);
    EXPECT_EQ(probe.getTeamsForCar(500, 500, {}), u"(501,502,503)"_s);
    EXPECT_EQ(probe.getTeamsForCar(500, 501, u"(501,502,503)"_s), u"(503)"_s);
    EXPECT_EQ(probe.getTeamsForCar(500, 502, u"(501)"_s), u"()"_s);
}

TEST_F(TeamCarDuplicate, noDuplicateWhenNobodyHoldsThemAllOrTheTeamHoldsNothingOpen)
{
    seed::entry(500, 502, u"2002-01-01"_s, {}, u"100"_s);
    seed::run(u"DELETE FROM team_car WHERE team_nmbr = 503 AND car_nmbr = 502"_s);
    EXPECT_EQ(probe.duplicateTeam(500), -1);
    EXPECT_EQ(probe.duplicateTeam(504), -1);
}

}  // namespace
