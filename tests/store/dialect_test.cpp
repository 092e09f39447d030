#include "store/connection.h"
#include "store/jet_dialect.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Rewrite {
    const char* input;
    const char* expected;
};

class DialectRewrite : public ::testing::TestWithParam<Rewrite> {};

TEST_P(DialectRewrite, turnsTheProgramsStatementIntoTheEngines)
{
    EXPECT_EQ(jet_dialect(QString::fromUtf8(GetParam().input)).toStdString(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, DialectRewrite,
    ::testing::Values(
        Rewrite{"SELECT * FROM team_car WHERE efctv_dt = #2002-03-17#",
                "SELECT * FROM team_car WHERE efctv_dt = '2002-03-17'"},
        Rewrite{" AND team_car.efctv_dt <= #3/7/2002# and x > #03/17/02#",
                " AND team_car.efctv_dt <= '2002-03-07' and x > '2002-03-17'"},
        Rewrite{"DELETE *  FROM report_attributes  WHERE report_nmbr = 1",
                "DELETE FROM report_attributes  WHERE report_nmbr = 1"},
        Rewrite{"INSERT INTO race_type_dm  (race_type_nmbr, race_type_name) VALUES (500,'A')",
                "INSERT OR IGNORE INTO race_type_dm  (race_type_nmbr, race_type_name) VALUES (500,'A')"},
        Rewrite{"UPDATE group_dm  set group_name = 'x' WHERE group_nmbr = 1",
                "UPDATE OR IGNORE group_dm  set group_name = 'x' WHERE group_nmbr = 1"},
        Rewrite{"update OR IGNORE t set a = 1", "update OR IGNORE t set a = 1"},
        Rewrite{"SELECT * FROM (group_dm RIGHT JOIN cars ON group_dm.group_nmbr = cars.group_nmbr)",
                "SELECT * FROM (cars LEFT JOIN group_dm ON group_dm.group_nmbr = cars.group_nmbr)"},
        Rewrite{"SELECT * FROM a RIGHT JOIN b ON a.k = b.k WHERE b.x = 1",
                "SELECT * FROM b LEFT JOIN a ON a.k = b.k WHERE b.x = 1"},
        // Quoted text is never touched, whatever it holds.
        Rewrite{"INSERT INTO t VALUES ('DELETE * FROM #1/1/2002# a RIGHT JOIN b ON c', 'it''s #x#')",
                "INSERT OR IGNORE INTO t VALUES ('DELETE * FROM #1/1/2002# a RIGHT JOIN b ON c', 'it''s #x#')"},
        // Something between hashes that is no date stays for the engine to refuse.
        Rewrite{"SELECT * FROM t WHERE d = #notadate#", "SELECT * FROM t WHERE d = #notadate#"}));

// The forms the program's statements rely on, each run through the real engine.
class DialectOnEngine : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.execute(u"INSERT INTO teams (team_nmbr, team_name, race_type_nmbr, car_type_nmbr) "
                               u"VALUES (500, 'O''Brien''s Racing', 1, 1)"_s));
        ASSERT_TRUE(db.execute(u"INSERT INTO teams (team_nmbr, team_name, race_type_nmbr, car_type_nmbr) "
                               u"VALUES (501, 'Second', 1, 1)"_s));
        for (int car = 500; car < 504; ++car)
            ASSERT_TRUE(db.execute(u"INSERT INTO cars (car_nmbr, car_txt, race_type_nmbr, car_type_nmbr, group_nmbr, salary) "
                                   u"VALUES (%1, '%2', 1, 1, %3, 1000.5)"_s.arg(car).arg(car - 480)
                                       .arg(car == 503 ? u"NULL"_s : u"1"_s)));
        ASSERT_TRUE(db.execute(u"INSERT INTO team_car VALUES (500, 500, '2002-02-01', NULL, 10, 1000.5, 1)"_s));
        ASSERT_TRUE(db.execute(u"INSERT INTO team_car VALUES (500, 501, '2002-02-01', '2002-03-17', 10, 900, 1)"_s));
        ASSERT_TRUE(db.execute(u"INSERT INTO team_car VALUES (501, 503, '2002-02-01', NULL, 10, 800, 1)"_s));
        const char* races[][2] = {{"501", "2002-02-10"}, {"502", "2002-03-17"}, {"503", "2002-04-01"}};
        for (auto& r : races)
            ASSERT_TRUE(db.execute(u"INSERT INTO races VALUES (%1, 'Race %1', 'Track', '%2', 1, 1, 2)"_s
                                       .arg(QString::fromUtf8(r[0]), QString::fromUtf8(r[1]))));
    }

    QString first(const QString& sql, const QString& column)
    {
        IDatabase q;
        if (!q.OpenResultSet(sql) || q.eof())
            return u"<none>"_s;
        return q.fields(column).isNull() ? u"<null>"_s : q.fields(column).toTextOrEmpty();
    }

    int rows(const QString& sql)
    {
        IDatabase q;
        if (!q.OpenResultSet(sql))
            return -1;
        int n = 0;
        for (; !q.eof(); q.MoveNext())
            ++n;
        return n;
    }

    TempApp app;
    IDatabase db;
};

TEST_F(DialectOnEngine, textsMoneyAndStoredDatesRoundTrip)
{
    EXPECT_EQ(first(u"SELECT team_name FROM teams WHERE team_nmbr = 500"_s, u"team_name"_s), u"O'Brien's Racing"_s);
    EXPECT_EQ(first(u"SELECT salary FROM cars WHERE car_nmbr = 500"_s, u"salary"_s), u"1000.5"_s);
    EXPECT_EQ(first(u"SELECT race_dt FROM races WHERE race_nmbr = 502"_s, u"race_dt"_s), u"2002-03-17"_s);
}

TEST_F(DialectOnEngine, hashDatesCompareWithStoredDates)
{
    EXPECT_EQ(rows(u"SELECT * FROM team_car WHERE efctv_dt = #2002-02-01#"_s), 3);
    EXPECT_EQ(rows(u"SELECT * FROM team_car WHERE team_car.efctv_dt <= #3/17/2002#"
                   u" AND (team_car.term_dt > #3/17/2002# OR team_car.term_dt is null)"_s), 2);
    EXPECT_EQ(rows(u"SELECT * FROM team_car WHERE term_dt Is Null"_s), 2);
}

TEST_F(DialectOnEngine, nestedSubSelectsFindThePreviousRace)
{
    EXPECT_EQ(first(u"SELECT race_nmbr FROM RACES r1 WHERE race_dt = (SELECT max(race_dt) FROM races r2 "
                    u"WHERE r2.race_type_nmbr = 1 AND race_dt < (SELECT race_dt FROM races r3 WHERE r3.race_nmbr = 503))"_s,
                    u"race_nmbr"_s),
              u"502"_s);
    EXPECT_EQ(first(u"SELECT race_nmbr FROM races WHERE race_dt = (SELECT MAX (race_dt)  FROM races WHERE race_dt < #4/1/2002#)"_s,
                    u"Race_Nmbr"_s),
              u"502"_s);
}

TEST_F(DialectOnEngine, aliasesCountsListsAndOrders)
{
    EXPECT_EQ(first(u"SELECT count(*) as count  FROM team_car A, cars B WHERE A.car_nmbr = B.Car_nmbr AND B.car_type_nmbr in (1,2)"_s,
                    u"Count"_s),
              u"3"_s);
    EXPECT_EQ(first(u"SELECT distinct(team_nmbr) FROM team_car ORDER BY 1 DESC"_s, u"team_nmbr"_s), u"501"_s);
    EXPECT_EQ(first(u"SELECT sum(locked_salary) as total FROM team_car GROUP BY team_nmbr ORDER BY total desc"_s, u"total"_s),
              u"1900.5"_s);
    EXPECT_EQ(rows(u"SELECT * FROM cars WHERE car_nmbr NOT IN (SELECT car_nmbr FROM team_car)"_s), 1);
}

TEST_F(DialectOnEngine, aRightJoinKeepsEveryRowOfItsRightSide)
{
    // Car 503 has no group: the right join must still bring it, with an empty group name.
    const QString sql =
        u"SELECT car_txt, group_name, teams.team_name FROM (teams INNER JOIN (leagues RIGHT JOIN league_teams"
        u" ON leagues.league_nmbr = league_teams.league_nmbr) ON teams.team_nmbr = league_teams.team_nmbr)"
        u" INNER JOIN ((group_dm RIGHT JOIN cars ON group_dm.group_nmbr = cars.group_nmbr)"
        u" INNER JOIN team_car ON cars.car_nmbr = team_car.car_nmbr) ON teams.team_nmbr = team_car.team_nmbr"
        u" ORDER BY cars.car_txt"_s;
    ASSERT_TRUE(db.execute(u"INSERT INTO league_teams VALUES (500, 500)"_s));
    ASSERT_TRUE(db.execute(u"INSERT INTO league_teams VALUES (500, 501)"_s));
    IDatabase q;
    ASSERT_TRUE(q.OpenResultSet(sql));
    QStringList seen;
    for (; !q.eof(); q.MoveNext())
        seen << q.fields(u"car_txt"_s).toText() + u':' + q.fields(u"group_name"_s).toTextOrEmpty();
    EXPECT_EQ(seen, (QStringList{u"20:Group A"_s, u"21:Group A"_s, u"23:"_s}));
    // The engine names the column by its table here; its own name reads it too.
    q.MoveFirst();
    EXPECT_EQ(q.fields(u"team_name"_s).toText(), q.fields(u"teams.team_name"_s).toText());
    EXPECT_FALSE(q.fields(u"team_name"_s).toText().isEmpty());
}

TEST_F(DialectOnEngine, insertSelectUpdateFormsAndDeleteWithStar)
{
    ASSERT_TRUE(db.execute(u"INSERT INTO team_results (race_nmbr, league_nmbr, team_nmbr, car_nmbr, current_status, points) "
                           u"SELECT 501, 7, team_nmbr, car_nmbr, 1, 0 FROM team_car WHERE term_dt is NULL"_s));
    ASSERT_TRUE(db.execute(u"UPDATE team_results SET points = ( 5) WHERE race_nmbr = 501"_s));
    ASSERT_TRUE(db.execute(u"UPDATE team_results SET total_points = points + 3"_s));
    ASSERT_TRUE(db.execute(u"INSERT INTO team_results_summary (race_nmbr, league_nmbr, team_nmbr, points, team_place) "
                           u"SELECT race_nmbr, league_nmbr, team_nmbr, sum(points), 0 FROM team_results "
                           u"WHERE race_nmbr = 501 GROUP BY race_nmbr, league_nmbr, team_nmbr"_s));
    EXPECT_EQ(first(u"SELECT sum(total_points) as s FROM team_results"_s, u"s"_s), u"16"_s);
    EXPECT_EQ(first(u"SELECT points FROM team_results_summary WHERE team_nmbr = 500"_s, u"points"_s), u"5"_s);
    ASSERT_TRUE(db.execute(u"DELETE * FROM team_results WHERE race_nmbr = 501"_s));
    EXPECT_EQ(app.count(u"team_results"_s), 0);
}

TEST_F(DialectOnEngine, aRowRefusedByItsKeyIsSkippedWithoutFailingTheStatement)
{
    EXPECT_TRUE(db.execute(u"INSERT INTO teams (team_nmbr, team_name) VALUES (500, 'Duplicate')"_s));
    EXPECT_EQ(first(u"SELECT team_name FROM teams WHERE team_nmbr = 500"_s, u"team_name"_s), u"O'Brien's Racing"_s);
    EXPECT_TRUE(db.execute(u"UPDATE teams SET team_nmbr = 501 WHERE team_nmbr = 500"_s));
    EXPECT_EQ(app.count(u"teams"_s), 2);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

} // namespace
