#include "base/app_globals.h"
#include "racing/posting.h"
#include "racing/results.h"
#include "racing/standings.h"
#include "season.h"
#include "store/transaction.h"
#include "support/temp_app.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void post(int16_t race)
{
    postRace(Season::raceRecord(race));
}

QString dump(const QString& table)
{
    IDatabase db;
    QStringList rows;
    db.OpenResultSet(u"SELECT * FROM "_s + table + u" ORDER BY 1, 2, 3, 4, 5"_s);
    for (; !db.eof(); db.MoveNext()) {
        QStringList cells;
        for (int c = 0; c < db.columnNames().size(); ++c)
            cells << db.value(c).toTextOrEmpty();
        rows << cells.join(u',');
    }
    return rows.join(u'\n');
}

class Posting : public ::testing::Test {
protected:
    TempApp app;
    Season s;
};

// The worked example: every value of its table.
TEST_F(Posting, theWorkedExampleScoresEveryRowAsExpected)
{
    const int16_t method = s.method({10, 8, 6}, 1, 5, 2, {3});
    s.topRow(method, 3, 2, 7);
    const int16_t league = s.league(method, 2, 2);
    const int16_t a = s.team(league);
    const int16_t b = s.team(league);
    const int16_t car11 = s.car(u"11"_s), car12 = s.car(u"12"_s), car13 = s.car(u"13"_s), other = s.car(u"14"_s);
    for (int16_t car : {car11, car12, car13})
        s.hold(a, car, u"2002-01-01"_s);
    s.hold(b, other, u"2002-01-01"_s);
    const int16_t previous = s.race(u"2002-02-01"_s);
    const int16_t race = s.race(u"2002-02-08"_s);
    // The previous race's totals: 30, 25 and 20.
    s.result(previous, car11, 5);
    int total = 30;
    for (int16_t car : {car11, car12, car13}) {
        Season::run(u"INSERT INTO team_results VALUES (%1, %2, %3, %4, 5, 0, 1, 0, 0, 0, 0, 0, 0, %5)"_s.arg(previous)
                        .arg(league).arg(a).arg(car).arg(total));
        total -= 5;
    }
    s.result(race, car11, 1, 2, 40);
    s.result(race, car12, 2, 1, 10, 1, -1);
    s.result(race, other, 3, 3);

    post(race);
    EXPECT_EQ(app.presenter().boxTexts(), QStringList());

    IDatabase db;
    ASSERT_TRUE(db.OpenResultSet(u"SELECT * FROM team_results WHERE race_nmbr = %1 AND car_nmbr = %2"_s.arg(race).arg(car11)));
    EXPECT_EQ(db.fields(u"most_laps_led_bonus"_s).toInt32(), 5);
    EXPECT_EQ(db.fields(u"laps_led_bonus"_s).toInt32(), 1);
    EXPECT_EQ(Season::row(race, a, car11), u"16/46/1/1"_s);
    // Car 12 scored 8+1+2+3-1 = 13 and was then dropped: all its points gone, its place kept.
    ASSERT_TRUE(db.OpenResultSet(u"SELECT * FROM team_results WHERE race_nmbr = %1 AND car_nmbr = %2"_s.arg(race).arg(car12)));
    for (const char* column : {"fast_qual_bonus", "laps_led_bonus", "qual_points", "adjustment", "points"})
        EXPECT_EQ(db.fields(QString::fromUtf8(column)).toInt32(), 0) << column;
    EXPECT_EQ(Season::row(race, a, car12), u"0/25/1/2"_s);
    EXPECT_EQ(Season::row(race, a, car13), u"0/20/2/999"_s);
    // The bonus car was made by posting, with the next free key.
    const int16_t bonus = static_cast<int16_t>(app.scalar(u"SELECT car_nmbr FROM cars WHERE car_type_nmbr = 3"_s).toInt());
    EXPECT_EQ(bonus, 504);
    EXPECT_EQ(Season::row(race, a, bonus), u"7/7/1/0 0/0/2/999"_s);
    EXPECT_EQ(Season::summary(race, league, a), u"23@1"_s);
    // Team B's one car was dropped too (two drops), so it ends on 0 behind A.
    EXPECT_EQ(Season::summary(race, league, b), u"0@2"_s);
}

TEST_F(Posting, tiesShareAPlaceAndTeamsOnZeroStayUnranked)
{
    const int16_t league = s.league(s.method({10, 8, 6, 5, 4}));
    const int16_t race = s.race(u"2002-03-01"_s);
    int place = 1;
    QList<int16_t> teams;
    for (int points : {10, 8, 8, 5}) {
        (void)points;
        const int16_t team = s.team(league);
        const int16_t car = s.car(QString::number(place));
        s.hold(team, car, u"2002-01-01"_s);
        teams << team;
        ++place;
    }
    s.result(race, 500, 1);
    s.result(race, 501, 2);
    s.result(race, 502, 2);   // a tie for second
    s.result(race, 503, 4);
    post(race);
    EXPECT_EQ(Season::summary(race, league, teams[0]), u"10@1"_s);
    EXPECT_EQ(Season::summary(race, league, teams[1]), u"8@2"_s);
    EXPECT_EQ(Season::summary(race, league, teams[2]), u"8@2"_s);
    EXPECT_EQ(Season::summary(race, league, teams[3]), u"5@4"_s);

    const int16_t empty = s.race(u"2002-03-08"_s);
    for (int car = 500; car < 504; ++car)
        s.result(empty, car, 9);   // no points for anybody
    post(empty);
    for (int16_t team : teams)
        EXPECT_EQ(Season::summary(empty, league, team), u"0@0"_s);
}

TEST_F(Posting, aLowScoreMethodTurnsTheOrderDnqPlaceAndDropsOver)
{
    const int16_t method = s.method({1, 2, 3, 4});
    const int16_t league = s.league(method, 2, 1);
    const int16_t a = s.team(league), b = s.team(league);
    const int16_t c1 = s.car(u"1"_s), c2 = s.car(u"2"_s), c3 = s.car(u"3"_s), c4 = s.car(u"4"_s), dnq = s.car(u"5"_s);
    s.hold(a, c1, u"2002-01-01"_s);
    s.hold(a, c4, u"2002-01-01"_s);
    s.hold(b, c2, u"2002-01-01"_s);
    s.hold(b, c3, u"2002-01-01"_s);
    s.hold(b, dnq, u"2002-01-01"_s);
    const int16_t race = s.race(u"2002-04-01"_s);
    s.result(race, c1, 1);
    s.result(race, c2, 2);
    s.result(race, c3, 3);
    s.result(race, c4, 4);
    post(race);
    // The worst score (the highest) is dropped; the DNQ row stands at place 0.
    EXPECT_EQ(Season::row(race, a, c4), u"0/0/1/4"_s);
    EXPECT_EQ(Season::row(race, b, c3), u"0/0/1/3"_s);
    EXPECT_EQ(Season::row(race, b, dnq), u"0/0/2/0"_s);
    // A scores 1, B scores 2: A is best in a low-score method.
    EXPECT_EQ(Season::summary(race, league, a), u"1@1"_s);
    EXPECT_EQ(Season::summary(race, league, b), u"2@2"_s);
    cLeagueStandingsCollection table;
    table.load(league, race, false);
    ASSERT_EQ(table.Count(), 2);
    EXPECT_EQ(table.Item(1).teamNmbr(), a);
    EXPECT_EQ(table.placeForTeam(b), 2);
}

struct TopCase {
    int top, cars, expectedBonus;
};

class TopBonus : public Posting, public ::testing::WithParamInterface<TopCase> {};

TEST_P(TopBonus, paysATeamWithExactlyThatManyCarsInTheTop)
{
    const int16_t method = s.method({10, 9, 8, 7, 6});
    s.topRow(method, GetParam().top, GetParam().cars, 4);
    const int16_t league = s.league(method);
    const int16_t team = s.team(league);
    for (int i = 0; i < 3; ++i)
        s.hold(team, s.car(QString::number(i)), u"2002-01-01"_s);
    const int16_t race = s.race(u"2002-05-01"_s);
    s.result(race, 500, 1);
    s.result(race, 501, 2);
    s.result(race, 502, 5);   // two cars in the top 3, three in the top 5
    post(race);
    EXPECT_EQ(app.count(u"team_results"_s, u"WHERE car_nmbr = 503 AND current_status = 1 AND points = 4"_s),
              GetParam().expectedBonus);
}

INSTANTIATE_TEST_SUITE_P(Counts, TopBonus,
                         ::testing::Values(TopCase{3, 2, 1},    // exactly N
                                           TopCase{3, 1, 0},    // N + 1 in the top: nothing
                                           TopCase{5, 3, 1},
                                           TopCase{3, 0, 0},    // has cars in the top
                                           TopCase{0, 0, 1}),   // top 0 counts 0 cars: everybody is paid
                         [](const auto& tested) {
                             return "top" + std::to_string(tested.param.top) + "_cars" + std::to_string(tested.param.cars);
                         });

TEST_F(Posting, rosterDatesInactiveEntriesAndSharedCars)
{
    const int16_t league = s.league(s.method({10, 8, 6, 4}, 0, 0, 3));
    const int16_t a = s.team(league), b = s.team(league);
    const int16_t joins = s.car(u"1"_s), leaves = s.car(u"2"_s), benched = s.car(u"3"_s), shared = s.car(u"4"_s);
    const int16_t before = s.race(u"2002-06-01"_s);
    const int16_t race = s.race(u"2002-06-08"_s);
    s.hold(a, joins, u"2002-06-08"_s);                 // on the team from race day
    s.hold(a, leaves, u"2002-01-01"_s, u"2002-06-08"_s); // off the team on race day
    s.hold(a, benched, u"2002-06-09"_s, {}, 0);          // inactive later stint wipes this one too
    s.hold(a, benched, u"2002-01-01"_s);
    s.hold(a, shared, u"2002-01-01"_s);
    s.hold(b, shared, u"2002-01-01"_s);
    for (int16_t car : {joins, leaves, benched, shared})
        s.result(before, car, 4);
    s.result(race, joins, 1);
    s.result(race, leaves, 2);
    s.result(race, benched, 3);
    s.result(race, shared, 4, 1, 0, 1);
    post(before);
    post(race);
    EXPECT_EQ(Season::row(race, a, joins), u"10/10/1/1"_s);
    // The car that left on race day is carried as a dropped driver with its place.
    EXPECT_EQ(Season::row(race, a, leaves), u"0/4/2/2"_s);
    EXPECT_EQ(Season::row(race, a, benched), u"0/0/1/3"_s);
    // One car on two teams scores for both, fastest-qualifier bonus included.
    EXPECT_EQ(Season::row(race, a, shared), u"7/11/1/4"_s);
    EXPECT_EQ(Season::row(race, b, shared), u"7/11/1/4"_s);
}

TEST_F(Posting, nobodyLeadingALapGivesEveryPlacedCarTheMostLapsBonus)
{
    const int16_t league = s.league(s.method({10, 8}, 0, 5));
    const int16_t team = s.team(league);
    const int16_t c1 = s.car(u"1"_s), c2 = s.car(u"2"_s), c3 = s.car(u"3"_s);
    for (int16_t car : {c1, c2, c3})
        s.hold(team, car, u"2002-01-01"_s);
    const int16_t race = s.race(u"2002-07-01"_s);
    s.result(race, c1, 1);
    s.result(race, c2, 2);
    s.result(race, c3, 0);   // no place: no most-laps bonus
    post(race);
    EXPECT_EQ(Season::row(race, team, c1), u"15/15/1/1"_s);
    EXPECT_EQ(Season::row(race, team, c2), u"13/13/1/2"_s);
    EXPECT_EQ(Season::row(race, team, c3), u"0/0/1/0"_s);
}

TEST_F(Posting, repostingGivesTheSameRowsAndTheCascadeStopsAtTheFirstNo)
{
    const int16_t league = s.league(s.method({10, 8, 6}));
    const int16_t team = s.team(league);
    const int16_t car = s.car(u"1"_s);
    s.hold(team, car, u"2002-01-01"_s);
    const int16_t r1 = s.race(u"2002-08-01"_s), r2 = s.race(u"2002-08-08"_s), r3 = s.race(u"2002-08-15"_s),
                  r4 = s.race(u"2002-08-22"_s);
    for (int16_t race : {r1, r2, r3, r4}) {
        s.result(race, car, 1);
        post(race);
    }
    const QString rows = dump(u"team_results"_s);
    const QString sums = dump(u"team_results_summary"_s);
    EXPECT_EQ(Season::row(r4, team, car), u"10/40/1/1"_s);

    app.presenter().queueAnswer(Answer::Yes);
    app.presenter().queueAnswer(Answer::Yes);
    app.presenter().queueAnswer(Answer::Yes);
    postResults(Season::raceRecord(r1));
    EXPECT_EQ(dump(u"team_results"_s), rows);
    EXPECT_EQ(dump(u"team_results_summary"_s), sums);
    EXPECT_EQ(app.presenter().boxTexts(), (QStringList{u"Do you want to post results for Race 501 now?"_s,
                                                       u"Do you want to post results for Race 502 now?"_s,
                                                       u"Do you want to post results for Race 503 now?"_s}));

    app.presenter().clear();
    app.presenter().queueAnswer(Answer::No);
    postResults(Season::raceRecord(r1));
    EXPECT_EQ(app.presenter().boxes().size(), 1);   // no question after the first No
    EXPECT_EQ(Season::row(r1, team, car), u"10/10/1/1"_s);
    for (int16_t race : {r2, r3, r4}) {
        EXPECT_EQ(app.count(u"team_results"_s, u"WHERE race_nmbr = %1"_s.arg(race)), 0);
        EXPECT_EQ(Season::summary(race, league, team), u"-"_s);
    }
}

TEST_F(Posting, aLateJoinerGetsZeroLinesForEarlierRaces)
{
    const int16_t league = s.league(s.method({10}));
    const int16_t early = s.team(league);
    const int16_t car = s.car(u"1"_s);
    s.hold(early, car, u"2002-01-01"_s);
    const int16_t r1 = s.race(u"2002-09-01"_s), r2 = s.race(u"2002-09-08"_s);
    s.result(r1, car, 1);
    post(r1);
    const int16_t late = s.team(league);   // joins with an empty roster
    s.result(r2, car, 1);
    post(r2);
    EXPECT_EQ(Season::summary(r1, league, late), u"0@0"_s);
    EXPECT_EQ(Season::summary(r2, league, late), u"-"_s);   // nothing in the race itself
    cTeamResultsSummary summary;
    EXPECT_EQ(summary.placePreviousRace(league, early, r2), 1);
    EXPECT_EQ(summary.wins(Season::leagueRecord(league), early, r2), 2);
}

TEST_F(Posting, aLeagueOfTheOtherScoreByCarriesAllItsCars)
{
    const int16_t drivers = s.league(s.method({10}), 1, 0, 1, 2);
    const int16_t team = s.team(drivers);
    const int16_t driver = s.car(u"Driver"_s, 1, 2);
    s.hold(team, driver, u"2002-01-01"_s);
    const int16_t race = s.race(u"2002-10-01"_s);   // a race scored by cars
    const int16_t car = s.car(u"7"_s);
    s.result(race, car, 1);
    post(race);
    EXPECT_EQ(Season::row(race, team, driver), u"0/0/2/999"_s);
}

// One team holding car "1", which wins the race; the operator's script lies beside the data file.
class PostingWithScript : public Posting {
protected:
    void SetUp() override
    {
        league = s.league(s.method({10}));
        team = s.team(league);
        car = s.car(u"1"_s);
        s.hold(team, car, u"2002-01-01"_s);
        race = s.race(u"2002-11-01"_s);
        s.result(race, car, 1);
    }
    void postWithScript(const char* text)
    {
        QFile script(applicationFolder() + u"/scoring.lk"_s);
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write(text);
        script.close();
        post(race);
    }
    int16_t league = 0, team = 0, car = 0, race = 0;
};

TEST_F(PostingWithScript, theScriptEditsBonusesBeforePointsAreAdded)
{
    postWithScript("UPDATE team_results SET fast_qual_bonus = 100 WHERE league_nmbr = %league_nmbr% "
                   "AND race_nmbr = %race_nmbr%;\nUPDATE nothere SET x = 1;\n");
    EXPECT_EQ(Season::row(race, team, car), u"110/110/1/1"_s);
    // The failing piece and the empty piece after the last ";" each show their box; posting goes on.
    ASSERT_EQ(app.presenter().boxes().size(), 2);
    EXPECT_TRUE(app.presenter().boxes()[0].text.startsWith(u"Error = no such table: nothere"_s));
    EXPECT_EQ(Season::summary(race, league, team), u"110@1"_s);
}

TEST_F(PostingWithScript, aScriptThatCommitsOrRollsBackTouchesOnlyItsOwnStatements)
{
    postWithScript("UPDATE team_results SET fast_qual_bonus = 100 WHERE league_nmbr = %league_nmbr%;\nROLLBACK;\n"
                   "BEGIN;\nUPDATE team_results SET adjustment = 5 WHERE league_nmbr = %league_nmbr%;\nCOMMIT;\n"
                   "BEGIN;\nDELETE FROM team_results WHERE league_nmbr = %league_nmbr%;\nROLLBACK");
    // The first ROLLBACK has nothing to undo and says so: the rows of the first steps and the
    // update before it stay. The committed change stays; the rolled-back delete takes nothing else.
    EXPECT_EQ(Season::row(race, team, car), u"115/115/1/1"_s);
    EXPECT_EQ(Season::summary(race, league, team), u"115@1"_s);
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    EXPECT_TRUE(app.presenter().boxes()[0].text.contains(u"no transaction is active"_s))
        << qPrintable(app.presenter().boxes()[0].text);
    EXPECT_FALSE(gConnection->getWorkSpace().inTransaction());
}

TEST_F(Posting, aDataFileWithFortyThousandEarlierResultsStillPosts)
{
    const int16_t league = s.league(s.method({10, 8}));
    const int16_t team = s.team(league);
    const int16_t car = s.car(u"1"_s), other = s.car(u"2"_s);
    s.hold(team, car, u"2002-01-01"_s);
    const int16_t race = s.race(u"2002-11-15"_s);
    s.result(race, car, 2);
    s.result(race, other, 1);
    // 400 races of earlier seasons of the other series, 100 results each.
    {
        cTransaction transaction;
        Season::run(u"INSERT INTO races (race_nmbr, race_name, track_name, race_dt, race_type_nmbr, car_type_nmbr, race_status_nmbr) "
                    u"SELECT 1000 + i, 'Old', 'Track', '1999-01-01', 6, 1, 2 FROM "
                    u"(WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 399) SELECT i FROM n)"_s);
        Season::run(u"INSERT INTO results (race_nmbr, car_nmbr, place, qualified, fast_qual, laps_led, adjustment) "
                    u"SELECT 1000 + i / 100, 600 + i % 100, 1 + i % 100, 0, 0, 0, 0 FROM "
                    u"(WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 39999) SELECT i FROM n)"_s);
        ASSERT_TRUE(transaction.commit());
    }
    ASSERT_EQ(app.count(u"results"_s), 40002);
    cResultsCollection all;
    EXPECT_EQ(all.load(), 40002);

    postResults(Season::raceRecord(race));
    EXPECT_EQ(app.presenter().boxTexts(), QStringList());
    // The status bar tells what runs and, at the end, that it is done.
    EXPECT_EQ(app.presenter().statusTexts(),
              (QStringList{u"Posting Results Race %1"_s.arg(race), u"Posted Race %1"_s.arg(race)}));
    EXPECT_EQ(Season::row(race, team, car), u"8/8/1/2"_s);
    EXPECT_EQ(Season::summary(race, league, team), u"8@1"_s);
}

TEST_F(Posting, anInvalidScoringOptionSkipsThatLeagueOnly)
{
    const int16_t method = s.method({10});
    const int16_t bad = s.league(method, 3);
    const int16_t good = s.league(method, 1);
    const int16_t car = s.car(u"1"_s);
    const int16_t badTeam = s.team(bad), goodTeam = s.team(good);
    s.hold(badTeam, car, u"2002-01-01"_s);
    s.hold(goodTeam, car, u"2002-01-01"_s);
    const int16_t race = s.race(u"2002-12-01"_s);
    s.result(race, car, 1);
    post(race);
    EXPECT_EQ(app.presenter().boxTexts(), QStringList{u"Invalid Scoring Method"_s});
    EXPECT_EQ(app.presenter().boxes()[0].icon, Icon::Critical);
    EXPECT_EQ(app.count(u"team_results"_s, u"WHERE league_nmbr = %1"_s.arg(bad)), 0);
    EXPECT_EQ(Season::summary(race, good, goodTeam), u"10@1"_s);
}

TEST_F(Posting, anOverflowInASumStopsTheLeagueWithItsDescription)
{
    const int16_t league = s.league(s.method({10}));
    const int16_t team = s.team(league);
    const int16_t car = s.car(u"1"_s);
    s.hold(team, car, u"2002-01-01"_s);
    const int16_t race = s.race(u"2003-01-01"_s);
    s.result(race, car, 1, 0, 0, 0, 0);
    Season::run(u"UPDATE scoring_points SET points = 40000 WHERE scoring_type_nmbr = 500"_s);
    post(race);
    EXPECT_EQ(app.presenter().boxTexts(), QStringList{u"Overflow"_s});
    EXPECT_EQ(app.presenter().boxes()[0].icon, Icon::None);
    EXPECT_EQ(Season::summary(race, league, team), u"-"_s);
}

} // namespace
