#include "store/connection.h"
#include "store/statement_shape.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(StatementShape, takesTheValuesOutOfAnActionStatement)
{
    StatementShape shape;
    ASSERT_TRUE(shapeStatement(" UPDATE OR IGNORE team_results  SET total_points = points + 12 WHERE team_nmbr1 = 500 "
                               "AND name = 'O''Brien' AND salary > 1000.5 AND x = -3",
                               shape));
    EXPECT_EQ(shape.text, QByteArray(" UPDATE OR IGNORE team_results  SET total_points = points + ? WHERE team_nmbr1 = ? "
                                     "AND name = ? AND salary > ? AND x = -?"));
    ASSERT_EQ(shape.values.size(), 5);
    EXPECT_EQ(std::get<int64_t>(shape.values[0]), 12);
    EXPECT_EQ(std::get<int64_t>(shape.values[1]), 500);
    EXPECT_EQ(std::get<QByteArray>(shape.values[2]), QByteArray("O'Brien"));
    EXPECT_DOUBLE_EQ(std::get<double>(shape.values[3]), 1000.5);
}

TEST(StatementShape, leavesColumnPositionsAndOtherStatementsAlone)
{
    StatementShape shape;
    ASSERT_TRUE(shapeStatement("INSERT OR IGNORE INTO t SELECT a, 7 FROM u GROUP BY 1, 2 ORDER BY 2 DESC LIMIT 5", shape));
    EXPECT_EQ(shape.text, QByteArray("INSERT OR IGNORE INTO t SELECT a, ? FROM u GROUP BY 1, 2 ORDER BY 2 DESC LIMIT ?"));
    ASSERT_TRUE(shapeStatement("SELECT 1 as one, 'x' FROM t WHERE a = 1 AND b = 'it''s'", shape));
    EXPECT_TRUE(shape.isQuery);   // the select list keeps its literals: they name its columns
    EXPECT_EQ(shape.text, QByteArray("SELECT 1 as one, 'x' FROM t WHERE a = ? AND b = ?"));
    EXPECT_FALSE(shapeStatement("DELETE FROM t WHERE a = 1; DELETE FROM u", shape));
    EXPECT_FALSE(shapeStatement("CREATE TRIGGER x BEFORE INSERT ON t BEGIN SELECT 1; END", shape));
    EXPECT_FALSE(shapeStatement("DELETE FROM t WHERE a = 'open", shape));
    EXPECT_FALSE(shapeStatement("DELETE FROM t WHERE a = 1e5", shape));
}

TEST(StatementShape, shapedStatementsWriteWhatTheLiteralOnesWould)
{
    TempApp app;
    IDatabase db;
    for (int i = 0; i < 3; ++i)
        ASSERT_TRUE(db.execute(u"INSERT INTO teams (team_nmbr, team_name, email) VALUES (%1, 'it''s %1', NULL)"_s.arg(500 + i)));
    ASSERT_TRUE(db.execute(u"UPDATE teams SET phone = '555', race_type_nmbr = 2 WHERE team_nmbr >= 501"_s));
    EXPECT_EQ(app.scalar(u"SELECT team_name FROM teams WHERE team_nmbr = 502"_s), u"it's 502"_s);
    EXPECT_EQ(app.count(u"teams"_s, u"WHERE phone = '555' AND race_type_nmbr = 2"_s), 2);
    EXPECT_EQ(app.scalar(u"SELECT typeof(phone) FROM teams WHERE team_nmbr = 501"_s), u"text"_s);
    // A failing shaped statement reports the engine's words about the statement as written.
    EXPECT_FALSE(db.execute(u"UPDATE teams SET nothere = 5 WHERE team_nmbr = 500"_s));
    EXPECT_EQ(app.presenter().boxTexts(),
              QStringList{u"Error = no such column: nothere SQL = UPDATE teams SET nothere = 5 WHERE team_nmbr = 500"_s});
}

} // namespace
