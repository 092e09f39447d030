#include "racing/posting.h"
#include "racing/races.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void run(const QString& statement)
{
    IDatabase db;
    ASSERT_TRUE(db.execute(statement)) << qPrintable(statement);
}

void storeRace(int number, const QString& date, int raceType, int carType)
{
    run(u"INSERT INTO races VALUES (%1, 'Race %1', 'Track', '%2', %3, %4, 2)"_s.arg(number).arg(date).arg(raceType).arg(
        carType));
}

void storeResult(int race, int car, int place)
{
    run(u"INSERT INTO results VALUES (%1, %2, %3, 0, 0, 0, 0)"_s.arg(race).arg(car).arg(place));
}

void storePosting(int race)
{
    run(u"INSERT INTO team_results (race_nmbr, league_nmbr, team_nmbr, car_nmbr, points) VALUES (%1, 500, 500, 500, 10)"_s
            .arg(race));
    run(u"INSERT INTO team_results_summary VALUES (%1, 500, 500, 10, 1)"_s.arg(race));
}

// The race numbers of a collection, sorted when asked (rows of one date come in no set order).
QList<int> numbers(const cRacesCollection& races, bool sorted = false)
{
    QList<int> out;
    for (const cRaces& race : races)
        out << race.raceNmbr();
    if (sorted)
        std::sort(out.begin(), out.end());
    return out;
}

// Two series run in turns: race type 1 scores cars and drivers, race type 6 cars only.
//   500 t1 cars    02-10  results, winner        501 t1 drivers 02-10  results, two winners
//   502 t6 cars    02-17  results, winner        503 t1 cars    02-24  results, nobody at place 1
//   504 t6 cars    03-03  no results             505 t1 cars    03-10  results, winner
//   506 t1 drivers 03-10  no results             507 t6 cars    03-10  results, winner
//   508 t1 cars    03-24  no results
class Calendar : public ::testing::Test {
protected:
    void SetUp() override
    {
        const struct { int number; const char* date; int raceType, carType; } races[] = {
            {500, "2002-02-10", 1, 1}, {501, "2002-02-10", 1, 2}, {502, "2002-02-17", 6, 1},
            {503, "2002-02-24", 1, 1}, {504, "2002-03-03", 6, 1}, {505, "2002-03-10", 1, 1},
            {506, "2002-03-10", 1, 2}, {507, "2002-03-10", 6, 1}, {508, "2002-03-24", 1, 1}};
        for (const auto& r : races)
            storeRace(r.number, QString::fromLatin1(r.date), r.raceType, r.carType);
        // race, car, place
        for (const auto& [race, car, place] : {std::tuple{500, 1, 1}, {500, 2, 2}, {501, 1, 1}, {501, 2, 1},
                                                {502, 1, 1}, {503, 1, 2}, {505, 1, 1}, {507, 1, 1}})
            storeResult(race, car, place);
    }
    TempApp app;
};

TEST_F(Calendar, thePreviousRaceIsTheLatestEarlierRaceOfAnyType)
{
    cRaces race;
    ASSERT_EQ(race.loadPrevious(503), 1);
    EXPECT_EQ(race.raceNmbr(), 502);   // the other series ran in between
    EXPECT_EQ(race.raceTypeNmbr(), 6);
    EXPECT_EQ(race.raceDate(), QDate(2002, 2, 17));

    ASSERT_EQ(race.loadPrevious(508), 1);
    EXPECT_EQ(race.raceDate(), QDate(2002, 3, 10));

    cRaces first;
    first.setRaceName(u"kept"_s);
    EXPECT_EQ(first.loadPrevious(500), 0);
    EXPECT_EQ(first.raceName(), u"kept"_s);
}

TEST_F(Calendar, laterRacesAndEarlierRacesWithAWinnerAreOfTheSameRaceTypeInDateOrder)
{
    cRacesCollection later;
    EXPECT_EQ(later.loadFutureRaces(503), 3);
    QList<int> found = numbers(later);
    EXPECT_EQ(found.value(2), 508);
    std::sort(found.begin(), found.end());
    EXPECT_EQ(found, (QList<int>{505, 506, 508}));   // both kinds of race type 1
    EXPECT_EQ(cRacesCollection().loadFutureRaces(508), 0);
    EXPECT_EQ(cRacesCollection().loadFutureRaces(505), 1);   // the same date is not later

    cRacesCollection earlier;
    EXPECT_EQ(earlier.loadPreviouRacesWithResults(508), 4);
    // 503 has results but nobody at place 1; 501 has two winners and stands twice.
    EXPECT_EQ(numbers(earlier, true), (QList<int>{500, 501, 501, 505}));
    EXPECT_EQ(cRacesCollection().loadPreviouRacesWithResults(500), 0);
}

TEST_F(Calendar, theMostCurrentRaceWithResultsBringsTheOtherKindOnTheSameDateButNotTheOtherType)
{
    cRacesCollection cars;
    EXPECT_EQ(cars.loadMostCurrentRaceWithResults(1, 1), 2);
    EXPECT_EQ(numbers(cars, true), (QList<int>{505, 506}));
    cRacesCollection drivers;   // the drivers' latest race with results is on 02-10
    EXPECT_EQ(drivers.loadMostCurrentRaceWithResults(1, 2), 2);
    EXPECT_EQ(numbers(drivers, true), (QList<int>{500, 501}));
    cRacesCollection otherSeries;
    EXPECT_EQ(otherSeries.loadMostCurrentRaceWithResults(6, 1), 1);
    EXPECT_EQ(numbers(otherSeries), QList<int>{507});
    EXPECT_EQ(cRacesCollection().loadMostCurrentRaceWithResults(3, 1), 0);
}

TEST_F(Calendar, theMostCurrentPostedRaceGoesByScoredRowsOfTheRaceType)
{
    EXPECT_EQ(cRacesCollection().loadMostCurrentRaceWithPostedResults(1), 0);
    for (int race : {500, 503, 507})
        storePosting(race);
    cRacesCollection posted;
    EXPECT_EQ(posted.loadMostCurrentRaceWithPostedResults(1), 1);
    EXPECT_EQ(numbers(posted), QList<int>{503});
    cRacesCollection other;
    EXPECT_EQ(other.loadMostCurrentRaceWithPostedResults(6), 1);
    EXPECT_EQ(numbers(other), QList<int>{507});
}

TEST_F(Calendar, loadsFilterByRaceTypeAndScoreByAndThoseWithResultsComeInDateOrder)
{
    EXPECT_EQ(cRacesCollection().load(), 9);
    EXPECT_EQ(cRacesCollection().load(1, 1), 4);
    cRacesCollection drivers;
    EXPECT_EQ(drivers.load(std::nullopt, 2), 2);
    EXPECT_EQ(drivers.load(std::nullopt, 2), 4);   // appends

    EXPECT_EQ(cRacesCollection().loadRacesWithResults(), 6);
    cRacesCollection cars;
    EXPECT_EQ(cars.loadRacesWithResults(1, 1), 3);
    EXPECT_EQ(numbers(cars), (QList<int>{500, 503, 505}));
    cRacesCollection series;
    EXPECT_EQ(series.loadRacesWithResults(6), 2);
    EXPECT_EQ(numbers(series), (QList<int>{502, 507}));
}

TEST_F(Calendar, aDateIsTakenOnlyForTheSameRaceTypeAndScoreBy)
{
    cRacesCollection races;
    EXPECT_TRUE(races.raceDateExistsForRaceType(QDate(2002, 2, 10), 1, 2));
    EXPECT_FALSE(races.raceDateExistsForRaceType(QDate(2002, 2, 17), 1, 1));
    EXPECT_TRUE(races.raceDateExistsForRaceType(QDate(2002, 2, 17), 6, 1));
    EXPECT_FALSE(races.raceDateExistsForRaceType(QDate(2002, 2, 17), 6, 2));
    EXPECT_FALSE(races.raceDateExistsForRaceType(QDate(2002, 2, 11), 1, 1));
    EXPECT_EQ(races.Count(), 9);   // the list is loaded once

    EXPECT_TRUE(races.raceTypeNmbrExists(cVariant(6)));
    EXPECT_FALSE(races.raceTypeNmbrExists(cVariant(3)));
    EXPECT_FALSE(races.raceTypeNmbrExists(cVariant(QString())));
    EXPECT_TRUE(races.carTypeNmbrExists(cVariant(2)));
    EXPECT_FALSE(races.carTypeNmbrExists(cVariant(3)));
}

TEST_F(Calendar, deletingARaceTakesItsResultsAndPostingsButNotItsPairingsAndANewSeasonTakesEveryPosting)
{
    for (int race : {500, 503, 505, 507})
        storePosting(race);
    run(u"INSERT INTO race_head_head VALUES (503, 500, 500, 501)"_s);
    cRaces race;
    ASSERT_EQ(race.load(503), 1);
    ASSERT_TRUE(race.deleteRow());
    for (const QString& table : {u"races"_s, u"results"_s, u"team_results"_s, u"team_results_summary"_s})
        EXPECT_EQ(app.count(table, u"WHERE race_nmbr = 503"_s), 0) << qPrintable(table);
    EXPECT_EQ(app.count(u"race_head_head"_s, u"WHERE race_nmbr = 503"_s), 1);
    EXPECT_EQ(app.count(u"team_results"_s), 3);
    EXPECT_EQ(app.count(u"races"_s), 8);

    clearPostingsForNewSeason();
    EXPECT_EQ(app.count(u"team_results"_s) + app.count(u"team_results_summary"_s), 0);
    EXPECT_EQ(app.count(u"results"_s), 7);
    EXPECT_EQ(app.count(u"races"_s), 8);
}

TEST(Race, racesAreNumberedFrom500AndReadBackWithTheirTextsAndDate)
{
    TempApp app;
    run(u"INSERT INTO races VALUES (12, 'Old', 'Old', '2001-01-01', 1, 1, 2)"_s);
    cRaces race;
    EXPECT_FALSE(race.raceDate().isValid());   // a new race has no date
    race.setRaceName(u"Dayport's 500"_s);
    race.setTrackName(u"Int'l Speedway"_s);
    race.setRaceDate(u"2/17/2002"_s);
    race.setRaceTypeNmbr(1);
    race.setCarTypeNmbr(2);
    race.setRaceStatusNmbr(1);
    ASSERT_TRUE(race.CommitChanges());
    EXPECT_EQ(race.raceNmbr(), 500);
    EXPECT_EQ(app.scalar(u"SELECT race_dt FROM races WHERE race_nmbr = 500"_s), u"2002-02-17"_s);

    cRaces read;
    ASSERT_EQ(read.load(500), 1);
    EXPECT_EQ(read.raceName() + u'|' + read.trackName(), u"Dayport's 500|Int'l Speedway"_s);
    EXPECT_EQ(read.raceDate(), QDate(2002, 2, 17));
    EXPECT_EQ(read.carTypeNmbr(), 2);
    EXPECT_EQ(read.raceStatusNmbr(), 1);

    cRaces working = read.copy();
    working.setRaceDate(QDate(2002, 2, 24));
    working.setRaceStatusNmbr(2);
    ASSERT_TRUE(working.CommitChanges());
    EXPECT_EQ(app.scalar(u"SELECT race_dt || '/' || race_status_nmbr FROM races WHERE race_nmbr = 500"_s),
              u"2002-02-24/2"_s);
    EXPECT_EQ(read.raceDate(), QDate(2002, 2, 17));   // the copy is a copy
    EXPECT_EQ(read.load(999), 0);
    EXPECT_EQ(read.raceNmbr(), 500);
}

TEST(Race, aDateThatIsNoDateBecomesEmpty)
{
    cRaces race;
    for (const auto& [typed, date] : {std::pair{u"2002-03-17"_s, QDate(2002, 3, 17)}, {u"next Sunday"_s, QDate()},
                                      {u"03/17/02"_s, QDate(2002, 3, 17)}, {u"2/30/2002"_s, QDate()}}) {
        race.setRaceDate(typed);
        EXPECT_EQ(race.raceDate(), date) << qPrintable(typed);
    }
    race.setRaceDate(cVariant());
    EXPECT_FALSE(race.raceDate().isValid());
}

TEST(RaceStatus, namesAreLookedUpAndAnUnknownNumberHasNone)
{
    TempApp app;
    cRaceStatusCollection statuses;
    EXPECT_EQ(statuses.getraceStatusName(1), u"Unofficial"_s);
    EXPECT_EQ(statuses.getraceStatusName(9), QString());
    EXPECT_EQ(statuses.Count(), 3);
}

} // namespace
