#include "league/league.h"
#include "racing/races.h"
#include "racing/team_results.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void run(const QString& statement)
{
    IDatabase db;
    ASSERT_TRUE(db.execute(statement)) << qPrintable(statement);
}

// One scored row; the bonuses and qualifying points are given only where a test sums them.
void scored(int race, int team, int car, int place, int points, int total, int status = 1, int qualPoints = 0,
            int fastQual = 0, int lapsLed = 0, int mostLapsLed = 0, int league = 500)
{
    cTeamResults row;
    ASSERT_TRUE(row.insertRow(race, place, 0, car, team, status, fastQual, lapsLed, mostLapsLed, 0, points, qualPoints,
                              total, league));
}

template <typename Field>
QList<int> column(const cTeamResultsCollection& rows, Field field)
{
    QList<int> out;
    for (const cTeamResults& row : rows)
        out << (row.*field)();
    return out;
}

// League 500 scores the cars of race type 1. Race 501 of race type 6 runs between 500 and 502;
// race 502 has no result rows of its own.
//   500 t1 03-01 (results)   501 t6 03-05 (results)   502 t1 03-08   503 t1 03-15
class TeamRows : public ::testing::Test {
protected:
    void SetUp() override
    {
        run(u"INSERT INTO races VALUES (500, 'R1', 'T', '2002-03-01', 1, 1, 2), (501, 'F1', 'T', '2002-03-05', 6, 1, 2),"
            u" (502, 'R2', 'T', '2002-03-08', 1, 1, 2), (503, 'R3', 'T', '2002-03-15', 1, 1, 2)"_s);
        run(u"INSERT INTO results VALUES (500, 500, 3, 0, 0, 0, 0), (501, 700, 1, 0, 0, 0, 0)"_s);
        run(u"INSERT INTO cars VALUES (500, '24', '', '', '', 'A', 1, 1, NULL, 0), (501, '3', '', '', '', 'B', 1, 1, NULL, 0),"
            u" (502, 'Top Bonus', '', '', '', 'Top Bonus', 1, 3, NULL, 0)"_s);
        scored(500, 500, 500, 3, 30, 30, 1, 4, 5, 2, 0);
        scored(500, 500, 501, 1, 50, 50);
        scored(500, 500, 502, 0, 10, 10);
        scored(500, 500, 502, 0, 5, 15);       // a second bonus row in the same race
        scored(500, 501, 500, 3, 30, 30);      // another team holding the same car
        scored(500, 500, 500, 3, 99, 99, 1, 0, 0, 0, 0, 600);   // the same team in another league
        scored(502, 500, 500, 7, 20, 50, 1, 6, 5, 2, 10);
        scored(502, 500, 501, 999, 0, 50, 2);   // carried: it did not run
        scored(503, 500, 500, 1, 40, 90);
        league.setLeagueNmbr(500);
        league.setRaceTypeNmbr(1);
        league.setCarTypeNmbr(1);
    }
    static cRaces race(int16_t number)
    {
        cRaces race;
        EXPECT_EQ(race.load(number), 1);
        return race;
    }

    TempApp app;
    cLeague league;
};

TEST_F(TeamRows, loadsNarrowByRaceAndTeamAndOrderByPlaceOrPoints)
{
    cTeamResultsCollection all;
    EXPECT_EQ(all.load(500), 8);
    EXPECT_EQ(all.load(500), 16);   // appends

    cTeamResultsCollection byPlace;
    EXPECT_EQ(byPlace.load(500, 500, 500, u"desc"_s), 4);
    EXPECT_EQ(column(byPlace, &cTeamResults::place), (QList<int>{3, 1, 0, 0}));

    cTeamResultsCollection noBonus;
    EXPECT_EQ(noBonus.loadNoBonusCars(500, 500, 500, u"asc"_s), 2);
    EXPECT_EQ(column(noBonus, &cTeamResults::carNmbr), (QList<int>{500, 501}));
    cTeamResultsCollection worstLast;
    EXPECT_EQ(worstLast.loadNoBonusCars(500, 500, std::nullopt, u"desc"_s), 3);
    EXPECT_EQ(worstLast.Item(1).points(), 50);
    EXPECT_EQ(cTeamResultsCollection().loadNoBonusCars(500), 6);
}

TEST_F(TeamRows, thePreviousRaceIsTheLatestEarlierRaceOfTheLeaguesTypeWithResults)
{
    cTeamResultsCollection previous;
    // 502 has no results and 501 is another race type: the rows come from 500, this league only.
    EXPECT_EQ(previous.loadPreviousRace(league, race(503)), 5);
    EXPECT_EQ(column(previous, &cTeamResults::raceNmbr), (QList<int>(5, 500)));
    EXPECT_EQ(previous.getTotalPoints(502, 500), 10);   // the first of two bonus rows
    EXPECT_EQ(previous.getTotalPoints(500, 501), 30);
    EXPECT_EQ(previous.getTotalPoints(500, 500), 30);
    EXPECT_EQ(previous.getTotalPoints(777, 500), 0);

    EXPECT_EQ(cTeamResultsCollection().loadPreviousRace(league, race(500)), 0);
}

TEST_F(TeamRows, droppedDriversComeFromTheLatestEarlierRaceOfAnyTypeWithoutAskingForResults)
{
    cTeamResultsCollection dropped;
    // Before 503 came 502: its car 501 has no row for team 500 in 503.
    EXPECT_EQ(dropped.loadDroppedDrivers(league, race(503)), 1);
    const cTeamResults& row = dropped.Item(1);
    EXPECT_EQ(QList<int>({row.carNmbr(), row.raceNmbr(), row.totalPoints()}), (QList<int>{501, 502, 50}));
    // Before 502 ran race type 6: no previous race is found, nothing is carried.
    EXPECT_EQ(cTeamResultsCollection().loadDroppedDrivers(league, race(502)), 0);
}

TEST_F(TeamRows, theSeasonSoFarHoldsTheLeaguesRowsUpToTheRaceDay)
{
    cTeamResultsCollection season;
    EXPECT_EQ(season.loadPreviousRaces(league, race(502)), 7);
    EXPECT_FALSE(column(season, &cTeamResults::raceNmbr).contains(503));

    EXPECT_EQ(QList<int>({season.sumQualPoints(500, 500), season.sumFastQualBonus(500, 500),
                          season.sumLapsLedBonus(500, 500), season.sumMostLapsLedBonus(500, 500)}),
              (QList<int>{10, 10, 4, 10}));
    EXPECT_EQ(season.sumQualPoints(501, 500), 0);   // team first, then car
    EXPECT_EQ(season.sumQualPoints(500, 777), 0);
}

TEST_F(TeamRows, aSumBeyondSixteenBitsIsAnOverflow)
{
    scored(503, 501, 501, 1, 0, 0, 1, 20000);
    scored(503, 501, 501, 1, 0, 0, 1, 20000);
    cTeamResultsCollection rows;
    rows.load(500, 503, 501);
    EXPECT_THROW(rows.sumQualPoints(501, 501), cRuntimeError);
}

TEST_F(TeamRows, resultsExistForATeamInALeagueAndForACarOnOrAfterADate)
{
    cTeamResultsCollection rows;
    EXPECT_TRUE(rows.resultsForTeamExists(500, 501));
    EXPECT_TRUE(rows.resultsForTeamExists(600, 500));
    EXPECT_FALSE(rows.resultsForTeamExists(600, 501));
    EXPECT_FALSE(rows.resultsForTeamExists(500, 777));

    // team, car, the last date that finds a row (the race day counts; so does a carried row)
    for (const auto& [team, car, last] : {std::tuple{500, 500, QDate(2002, 3, 15)}, {500, 501, QDate(2002, 3, 8)},
                                          {501, 500, QDate(2002, 3, 1)}}) {
        EXPECT_TRUE(rows.resultsForCarExistsAfterDate(team, car, last)) << team << " " << car;
        EXPECT_FALSE(rows.resultsForCarExistsAfterDate(team, car, last.addDays(1))) << team << " " << car;
    }
}

TEST_F(TeamRows, anUpdateRewritesTheRowsOfLeagueRaceCarAndTeam)
{
    cTeamResultsCollection rows;
    ASSERT_EQ(rows.load(500, 502, 500), 2);
    cTeamResults& row = rows.Item(1);
    ASSERT_EQ(row.carNmbr(), 500);
    row.setPoints(25);
    row.setTotalPoints(55);
    row.setAdjustment(-3);
    ASSERT_TRUE(row.update());
    EXPECT_EQ(app.scalar(u"SELECT points || '/' || total_points || '/' || adjustment FROM team_results "
                         u"WHERE race_nmbr = 502 AND car_nmbr = 500"_s),
              u"25/55/-3"_s);
}

TEST_F(TeamRows, topFinishesCountTheSeasonSoFarAndOnlyRowsThatRan)
{
    cTeamResults counter;
    EXPECT_EQ(counter.wins(league, 500, 502), 1);
    EXPECT_EQ(counter.top5s(league, 500, 502), 2);
    EXPECT_EQ(counter.top10s(league, 500, 502), 3);   // not the carried 999 nor the bonus rows at 0
    EXPECT_EQ(counter.wins(league, 500, 503), 2);
    EXPECT_EQ(counter.wins(league, 501, 503), 0);

    EXPECT_EQ(counter.currentRaceNmbr(1), 503);
    EXPECT_EQ(counter.currentRaceNmbr(6), 0);
}

} // namespace
