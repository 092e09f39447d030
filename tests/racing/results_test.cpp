#include "racing/races.h"
#include "racing/results.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class RaceResults : public ::testing::Test {
protected:
    void SetUp() override
    {
        IDatabase db;
        for (int car = 500; car < 506; ++car)
            ASSERT_TRUE(db.execute(u"INSERT INTO cars VALUES (%1, '#%2', 'Owner', 'Make', 'Sponsor', 'Driver', 1, 1, 1, 1000)"_s
                                       .arg(car).arg(car - 490)));
        // Two series interleaved; race 503 is of another type.
        const char* races[][3] = {{"500", "2002-02-10", "1"}, {"501", "2002-02-17", "1"}, {"502", "2002-02-24", "1"},
                                  {"503", "2002-02-20", "2"}};
        for (auto& r : races)
            ASSERT_TRUE(db.execute(u"INSERT INTO races VALUES (%1, 'Race %1', 'T', '%2', %3, 1, 2)"_s.arg(
                QString::fromUtf8(r[0]), QString::fromUtf8(r[1]), QString::fromUtf8(r[2]))));
        ASSERT_TRUE(db.execute(u"INSERT INTO leagues (league_nmbr, league_name, race_type_nmbr) VALUES (500, 'L', 1)"_s));
    }

    void addResult(int race, int car, int place, int qualified = 0, int fastQual = 0, int laps = 0, int adjustment = 0)
    {
        cResultsCollection rows;
        rows.Add(race, car, place, fastQual, laps, qualified, adjustment).insertRow();
    }

    TempApp app;
};

TEST_F(RaceResults, insertResultsReplacesTheRaceAndItsPostingInOneTransaction)
{
    addResult(500, 500, 1);
    IDatabase db;
    ASSERT_TRUE(db.execute(u"INSERT INTO team_results (race_nmbr, league_nmbr, team_nmbr, car_nmbr) VALUES (500, 500, 1, 500)"_s));
    ASSERT_TRUE(db.execute(u"INSERT INTO team_results_summary VALUES (500, 500, 1, 10, 1)"_s));

    cResultsCollection save;
    save.Add(500, 501, 1, 1, 12, 3, -5);
    save.Add(500, 502, 0, 0, 0, 0, 0);
    save.Add(500, 503, 0, 0, 0, 0, 0);
    EXPECT_EQ(save.validateData(), QString());   // place 0 may repeat
    ASSERT_TRUE(save.insertResults());
    EXPECT_EQ(app.count(u"results"_s, u"WHERE race_nmbr = 500"_s), 3);
    EXPECT_EQ(app.scalar(u"SELECT adjustment FROM results WHERE car_nmbr = 501"_s), u"-5"_s);
    EXPECT_EQ(app.count(u"team_results"_s), 0);
    EXPECT_EQ(app.count(u"team_results_summary"_s), 0);

    // A row the engine cannot take rolls the whole save back: the old rows stay.
    ASSERT_TRUE(db.execute(u"CREATE TRIGGER refuse BEFORE INSERT ON results WHEN NEW.car_nmbr = 505 "
                           u"BEGIN SELECT RAISE(ABORT, 'refused'); END"_s));
    cResultsCollection failing;
    failing.Add(500, 504, 1, 0, 0, 0, 0);
    failing.Add(500, 505, 2, 0, 0, 0, 0);
    EXPECT_FALSE(failing.insertResults());
    EXPECT_EQ(app.count(u"results"_s, u"WHERE race_nmbr = 500"_s), 3);
    EXPECT_EQ(app.presenter().boxes().size(), 1);
}

TEST_F(RaceResults, validateDataNamesEveryRepeatedCarAndPlace)
{
    cResultsCollection rows;
    rows.Add(500, 500, 3, 0, 0, 0, 0);
    rows.Add(500, 501, 3, 0, 0, 0, 0);
    rows.Add(500, 500, 3, 0, 0, 0, 0);
    EXPECT_EQ(rows.validateData(), u" Place 3 exists more than once.\n"
                                   u"Car Number #10 exists more than once.\n"
                                   u" Place 3 exists more than once.\n"
                                   u" Place 3 exists more than once.\n"_s);
}

TEST_F(RaceResults, lapLeadersFastQualifiersAndPlaces)
{
    addResult(501, 500, 1, 2, 0, 30);
    addResult(501, 501, 2, 1, 1, 50);
    addResult(501, 502, 3, 3, 0, 50);
    addResult(501, 503, 0, 4, 1, 0);
    cResultsCollection most;
    EXPECT_EQ(most.loadMostLapsLed(501), 2);   // a tie: both leaders
    cResultsCollection fast;
    EXPECT_EQ(fast.loadFastQualifier(501), 2);
    cResultsCollection led;
    EXPECT_EQ(led.loadLapsLed(501), 3);

    cResultsCollection race;
    race.load(501);
    EXPECT_EQ(race.Item(1).place(), 0);          // ordered by place
    EXPECT_EQ(race.getPlace(502), 3);
    EXPECT_EQ(race.getPlace(505), 0);            // did not run
}

TEST_F(RaceResults, nobodyLeadingALapMakesEveryCarAMostLapsLeader)
{
    addResult(502, 500, 1);
    addResult(502, 501, 2);
    cResultsCollection most;
    EXPECT_EQ(most.loadMostLapsLed(502), 2);
    cResultsCollection empty;
    EXPECT_EQ(empty.loadMostLapsLed(500), 0);    // no rows at all: Null maximum, nothing found
}

TEST_F(RaceResults, previousAndCurrentRacesOfAType)
{
    addResult(500, 500, 4);
    addResult(501, 500, 2);
    addResult(503, 500, 1);   // the other series, between the two dates
    cRaces race;
    ASSERT_EQ(race.load(502), 1);
    cResultsCollection previous;
    EXPECT_EQ(previous.loadPrevious(race), 1);
    EXPECT_EQ(previous.Item(1).raceNmbr(), 501);

    cResults any;
    EXPECT_EQ(any.currentRaceNmbr(1), 501);
    EXPECT_EQ(any.currentRaceNmbr(2), 503);
    EXPECT_EQ(any.currentRaceNmbr(4), 0);
}

TEST_F(RaceResults, seasonCountsTakePlaceZeroAsATopFinish)
{
    addResult(500, 500, 1, 1);
    addResult(501, 500, 7, 1);
    addResult(502, 500, 0, 2);
    addResult(503, 500, 1, 1);   // another race type: not counted for the league
    cResults car;
    EXPECT_EQ(car.wins(500, 500), 1);
    EXPECT_EQ(car.top5s(500, 500), 2);
    EXPECT_EQ(car.top10s(500, 500), 3);
    EXPECT_EQ(car.poles(500, 500), 2);
}

TEST_F(RaceResults, existenceChecksLoadEverythingOnceAndDeletesKeepTheOrder)
{
    addResult(500, 501, 1);
    cResultsCollection all;
    EXPECT_TRUE(all.raceExists(500));
    EXPECT_FALSE(all.raceExists(501));
    EXPECT_TRUE(all.carExists(501));
    EXPECT_FALSE(all.carExists(500));
    EXPECT_TRUE(all.deleteResults(502));         // nothing there: still true
    EXPECT_TRUE(all.deleteResults(500));
    EXPECT_EQ(app.count(u"results"_s), 0);
}

} // namespace
