#include "base/runtime_error.h"
#include "racing/scoring_method.h"
#include "racing/scoring_points.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void run(const QString& statement)
{
    IDatabase db;
    ASSERT_TRUE(db.execute(statement)) << qPrintable(statement);
}

QString rowsOf(TempApp& app, int method)
{
    return app.scalar(u"SELECT group_concat(place || ':' || points || ':' || qual_points, ' ') FROM "
                      u"(SELECT * FROM scoring_points WHERE scoring_type_nmbr = %1 ORDER BY place)"_s.arg(method));
}

TEST(ScoringTypeRecord, newMethodsAreNumberedFrom500KeepApostrophesAndLeaveTheirRowsWhenDeleted)
{
    TempApp app;
    cScoringType first;
    first.setScoringTypeName(u"Bob's Points"_s);
    first.setLapsLedBonus(5);
    first.setMostLapsLedBonus(-10);
    first.setFastQualBonus(3);
    ASSERT_TRUE(first.CommitChanges());
    EXPECT_EQ(first.scoringTypeNmbr(), 500);

    cScoringType second = first.copy();
    second.setScoringTypeNmbr(0);
    ASSERT_TRUE(second.CommitChanges());
    EXPECT_EQ(second.scoringTypeNmbr(), 501);
    cScoringType edited = first.copy();   // same key: a save updates the row
    edited.setScoringTypeName(u"O'Neil's 'Low' Points"_s);
    edited.setFastQualBonus(0);
    ASSERT_TRUE(edited.CommitChanges());
    EXPECT_EQ(app.count(u"scoring_type"_s), 4);

    cScoringType read;
    ASSERT_EQ(read.load(500), 1);
    EXPECT_EQ(read.scoringTypeName(), u"O'Neil's 'Low' Points"_s);
    EXPECT_EQ(read.mostLapsLedBonus(), -10);
    EXPECT_FALSE(read.usesFastQualBonus());
    EXPECT_EQ(read.load(499), 0);
    EXPECT_EQ(read.scoringTypeNmbr(), 500);   // a miss leaves the record as it was
    EXPECT_EQ(cScoringTypeCollection().getScoringTypeName(501), u"Bob's Points"_s);

    // Deleting a method leaves its point rows behind.
    run(u"INSERT INTO scoring_points VALUES (500, 1, 10, 0)"_s);
    run(u"INSERT INTO scoring_top_points (scoring_type_nmbr, nmbr_cars, points, top_nmbr) VALUES (500, 2, 5, 10)"_s);
    ASSERT_TRUE(read.deleteRow());
    EXPECT_EQ(app.count(u"scoring_type"_s), 3);
    EXPECT_EQ(app.count(u"scoring_points"_s, u"WHERE scoring_type_nmbr = 500"_s), 1);
    EXPECT_EQ(app.count(u"scoring_top_points"_s, u"WHERE scoring_type_nmbr = 500"_s), 1);
}

TEST(ScoringRowReplacement, replacesTheMethodsRowsAndKeepsTheOldOnesWhenAnInsertFails)
{
    TempApp app;
    run(u"INSERT INTO scoring_points VALUES (500, 1, 10, 0), (500, 2, 8, 0), (501, 1, 99, 0)"_s);
    run(u"INSERT INTO scoring_top_points (scoring_type_nmbr, nmbr_cars, points, top_nmbr) VALUES (500, 1, 5, 3)"_s);

    cScoringPointsCollection points;
    points.Add(500, 1, 20, -2);
    points.Add(500, 3, 5, 0);
    ASSERT_TRUE(points.insertScoringPoints());
    EXPECT_EQ(rowsOf(app, 500), u"1:20:-2 3:5:0"_s);
    EXPECT_EQ(rowsOf(app, 501), u"1:99:0"_s);

    run(u"CREATE TRIGGER refuse BEFORE INSERT ON scoring_points WHEN NEW.place = 9 "
        u"BEGIN SELECT RAISE(ABORT, 'refused'); END"_s);
    run(u"CREATE TRIGGER refuseTop BEFORE INSERT ON scoring_top_points WHEN NEW.points = 9 "
        u"BEGIN SELECT RAISE(ABORT, 'refused'); END"_s);
    cScoringPointsCollection failing;
    failing.Add(500, 1, 1, 0);
    failing.Add(500, 9, 1, 0);
    EXPECT_FALSE(failing.insertScoringPoints());
    EXPECT_EQ(rowsOf(app, 500), u"1:20:-2 3:5:0"_s);

    cScoringTopPointsCollection top;
    top.Add(500, 2, 9, 10);
    EXPECT_FALSE(top.insertScoringTopPoints());
    EXPECT_EQ(app.scalar(u"SELECT nmbr_cars || ':' || points || ':' || top_nmbr FROM scoring_top_points"_s), u"1:5:3"_s);
    EXPECT_EQ(app.presenter().boxes().size(), 2);   // each failure shows the engine's message

    EXPECT_TRUE(cScoringPointsCollection().insertScoringPoints());   // an empty list deletes nothing
    EXPECT_EQ(app.count(u"scoring_points"_s, u"WHERE scoring_type_nmbr = 500"_s), 2);
}

struct PlaceCase {
    const char* what;
    std::vector<std::pair<int, int>> rows;   // place, points in list order
    int first;
    int second;
    bool highScore;
};

TEST(ScoringPointLookups, firstRowOfAPlaceDecidesAndPlaceOnePayingLessMeansLowScore)
{
    const PlaceCase cases[] = {
        {"empty method", {}, 0, 0, true},
        {"one row paying 0", {{1, 0}}, 0, 0, true},
        {"one row paying -1", {{1, -1}}, -1, 0, false},
        {"1 pays 1, 2 pays 2", {{1, 1}, {2, 2}}, 1, 2, false},
        {"equal pay", {{1, 5}, {2, 5}}, 5, 5, true},
        {"two rows of place 1", {{1, 3}, {1, 50}, {2, 4}}, 3, 4, false},
    };
    for (const PlaceCase& c : cases) {
        cScoringPointsCollection rows;
        for (const auto& [place, points] : c.rows)
            rows.Add(500, static_cast<int16_t>(place), points, 0);
        EXPECT_EQ(rows.pointsForPlace(1), c.first) << c.what;
        EXPECT_EQ(rows.pointsForPlace(2), c.second) << c.what;
        EXPECT_EQ(rows.highScore(), c.highScore) << c.what;
    }

    cScoringPointsCollection wide;   // the column holds 32 bits, the lookup 16
    wide.Add(500, 1, 40000, 0);
    EXPECT_THROW(wide.pointsForPlace(1), cRuntimeError);
    EXPECT_EQ(wide.pointsForPlace(3), 0);
}

TEST(ScoringPointLookups, qualifyingLoadTakesEveryNonZeroRowNegativeIncluded)
{
    TempApp app;
    run(u"INSERT INTO scoring_points VALUES (500, 3, 1, 2), (500, 1, 9, -5), (500, 2, 5, 0), (501, 1, 0, 7)"_s);
    cScoringPointsCollection qual;
    ASSERT_EQ(qual.loadQual(int16_t(500)), 2);
    EXPECT_EQ(qual.Item(1).place(), 1);
    for (const auto& [place, points] : {std::pair{1, -5}, {2, 0}, {3, 2}})
        EXPECT_EQ(qual.qualPointsForPlace(place), points) << place;
    EXPECT_TRUE(qual.usesQualPointsBonus());
    EXPECT_EQ(cScoringPointsCollection().loadQual(), 3);   // every method when none is given
}

} // namespace
