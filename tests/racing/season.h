#pragma once
// A small season written straight into a data file, for the posting and standings tests.
#include "league/league.h"
#include "racing/races.h"
#include "store/connection.h"

#include <QString>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class Season {
public:
    // A scoring method: points by place (index 0 = place 1), optional qualifying points.
    int16_t method(const QList<int>& points, int lapsLed = 0, int mostLapsLed = 0, int fastQual = 0,
                   const QList<int>& qualPoints = {})
    {
        const int16_t number = m_nextMethod++;
        run(u"INSERT INTO scoring_type VALUES (%1, 'Method %1', %2, %3, %4)"_s.arg(number).arg(lapsLed).arg(mostLapsLed).arg(fastQual));
        const int places = std::max(points.size(), qualPoints.size());
        for (int i = 0; i < places; ++i)
            run(u"INSERT INTO scoring_points VALUES (%1, %2, %3, %4)"_s.arg(number).arg(i + 1).arg(points.value(i))
                    .arg(qualPoints.value(i)));
        return number;
    }
    void topRow(int16_t method, int top, int cars, int points)
    {
        run(u"INSERT INTO scoring_top_points VALUES (%1, %2, %3, %4)"_s.arg(method).arg(cars).arg(points).arg(top));
    }
    int16_t league(int16_t method, int option = 1, int dropLowest = 0, int raceType = 1, int carType = 1)
    {
        const int16_t number = m_nextLeague++;
        run(u"INSERT INTO leagues VALUES (%1, 'League %1', 'L%1', %2, %3, %4, 0, %5, %6)"_s.arg(number).arg(raceType)
                .arg(option).arg(method).arg(dropLowest).arg(carType));
        return number;
    }
    int16_t team(int16_t league)
    {
        const int16_t number = m_nextTeam++;
        run(u"INSERT INTO teams VALUES (%1, 'Team %1', 'Owner %1', '', '', 1, 1, '', '', '', '', '')"_s.arg(number));
        member(league, number);
        return number;
    }
    void member(int16_t league, int16_t team) { run(u"INSERT INTO league_teams VALUES (%1, %2)"_s.arg(league).arg(team)); }
    int16_t car(const QString& text, int raceType = 1, int carType = 1)
    {
        const int16_t number = m_nextCar++;
        run(u"INSERT INTO cars VALUES (%1, '%2', 'Owner', 'Make', 'Sponsor', 'Driver %2', %3, %4, 1, 1000)"_s.arg(number)
                .arg(text).arg(raceType).arg(carType));
        return number;
    }
    void hold(int16_t team, int16_t car, const QString& from, const QString& until = {}, int active = 1)
    {
        run(u"INSERT INTO team_car VALUES (%1, %2, '%3', %4, 0, 0, %5)"_s.arg(team).arg(car).arg(from)
                .arg(until.isEmpty() ? u"NULL"_s : u"'"_s + until + u"'"_s).arg(active));
    }
    int16_t race(const QString& date, int raceType = 1, int carType = 1)
    {
        const int16_t number = m_nextRace++;
        run(u"INSERT INTO races VALUES (%1, 'Race %1', 'Track', '%2', %3, %4, 2)"_s.arg(number).arg(date).arg(raceType)
                .arg(carType));
        return number;
    }
    void result(int16_t race, int16_t car, int place, int qualified = 0, int lapsLed = 0, int fastQual = 0,
                int adjustment = 0)
    {
        run(u"INSERT INTO results VALUES (%1, %2, %3, %4, %5, %6, %7)"_s.arg(race).arg(car).arg(place).arg(qualified)
                .arg(fastQual).arg(lapsLed).arg(adjustment));
    }

    static cRaces raceRecord(int16_t number)
    {
        cRaces race;
        EXPECT_EQ(race.load(number), 1);
        return race;
    }
    static cLeague leagueRecord(int16_t number)
    {
        cLeague league;
        EXPECT_EQ(league.load(number), 1);
        return league;
    }

    // "points/total/status/place" of the rows of a car for a team in a race, in row order.
    static QString row(int16_t race, int16_t team, int16_t car)
    {
        IDatabase db;
        QStringList rows;
        if (db.OpenResultSet(u"SELECT * FROM team_results WHERE race_nmbr = %1 AND team_nmbr = %2 AND car_nmbr = %3 "
                             u"ORDER BY current_status"_s.arg(race).arg(team).arg(car)))
            for (; !db.eof(); db.MoveNext())
                rows << u"%1/%2/%3/%4"_s.arg(db.fields(u"points"_s).toInt32()).arg(db.fields(u"total_points"_s).toInt32())
                            .arg(db.fields(u"current_status"_s).toInt16()).arg(db.fields(u"place"_s).toInt16());
        return rows.join(u' ');
    }
    // "points@place" of a team's summary row in a race; "-" when there is none.
    static QString summary(int16_t race, int16_t league, int16_t team)
    {
        IDatabase db;
        if (!db.OpenResultSet(u"SELECT points, team_place FROM team_results_summary WHERE race_nmbr = %1 AND league_nmbr = %2 "
                              u"AND team_nmbr = %3"_s.arg(race).arg(league).arg(team)) || db.eof())
            return u"-"_s;
        return u"%1@%2"_s.arg(db.fields(u"points"_s).toInt32()).arg(db.fields(u"team_place"_s).toInt16());
    }

    static void run(const QString& sql)
    {
        IDatabase db;
        ASSERT_TRUE(db.execute(sql)) << qPrintable(sql);
    }

private:
    int16_t m_nextMethod = 500;
    int16_t m_nextLeague = 500;
    int16_t m_nextTeam = 500;
    int16_t m_nextCar = 500;
    int16_t m_nextRace = 500;
};
