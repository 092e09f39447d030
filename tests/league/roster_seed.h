#pragma once
// Rows for roster tests, written straight into the temporary data file so that each test
// states its season in a few lines.
#include "store/connection.h"

#include <QString>
#include <gtest/gtest.h>
#include <cstdint>

namespace roster_seed {

inline void run(const QString& statement)
{
    IDatabase db;
    ASSERT_TRUE(db.execute(statement)) << qPrintable(statement);
}

inline QString n(int value)
{
    return QString::number(value);
}

// A league of race type 1 scoring cars unless told; cap as a plain number ("1000000", "0").
inline void league(int number, const QString& name, const QString& cap, int raceType = 1, int carType = 1)
{
    run(QStringLiteral("INSERT INTO leagues VALUES (") + n(number) + QStringLiteral(", '") + name +
        QStringLiteral("', 'L', ") + n(raceType) + QStringLiteral(", 1, 1, ") + cap + QStringLiteral(", 0, ") +
        n(carType) + QStringLiteral(")"));
}

inline void team(int number, const QString& name, int raceType = 1, int carType = 1)
{
    run(QStringLiteral("INSERT INTO teams (team_nmbr, team_name, team_owner, email, phone, race_type_nmbr, "
                       "car_type_nmbr) VALUES (") +
        n(number) + QStringLiteral(", '") + name + QStringLiteral("', 'Owner', '', '', ") + n(raceType) +
        QStringLiteral(", ") + n(carType) + QStringLiteral(")"));
}

inline void member(int leagueNmbr, int teamNmbr)
{
    run(QStringLiteral("INSERT INTO league_teams VALUES (") + n(leagueNmbr) + QStringLiteral(", ") + n(teamNmbr) +
        QStringLiteral(")"));
}

// A car (or driver, carType 2) with a salary as a plain number; group "NULL" for none.
inline void car(int number, const QString& carTxt, const QString& salary, const QString& group = QStringLiteral("NULL"),
                int raceType = 1, int carType = 1, const QString& driver = QStringLiteral("Driver"))
{
    run(QStringLiteral("INSERT INTO cars VALUES (") + n(number) + QStringLiteral(", '") + carTxt +
        QStringLiteral("', 'Owner', 'Make', 'Sponsor', '") + driver + QStringLiteral(" ") + carTxt +
        QStringLiteral("', ") + n(raceType) + QStringLiteral(", ") + n(carType) + QStringLiteral(", ") + group +
        QStringLiteral(", ") + salary + QStringLiteral(")"));
}

// A roster entry; term "" for an open one.
inline void entry(int teamNmbr, int carNmbr, const QString& efctv, const QString& term, const QString& locked,
                  int active = 1)
{
    run(QStringLiteral("INSERT INTO team_car VALUES (") + n(teamNmbr) + QStringLiteral(", ") + n(carNmbr) +
        QStringLiteral(", '") + efctv + QStringLiteral("', ") +
        (term.isEmpty() ? QStringLiteral("NULL") : QStringLiteral("'") + term + QStringLiteral("'")) +
        QStringLiteral(", 0, ") + locked + QStringLiteral(", ") + n(active) + QStringLiteral(")"));
}

inline void race(int number, const QString& date, int raceType = 1, int carType = 1)
{
    run(QStringLiteral("INSERT INTO races VALUES (") + n(number) + QStringLiteral(", 'Race ") + n(number) +
        QStringLiteral("', 'Track', '") + date + QStringLiteral("', ") + n(raceType) + QStringLiteral(", ") +
        n(carType) + QStringLiteral(", 2)"));
}

inline void result(int raceNmbr, int carNmbr, int place)
{
    run(QStringLiteral("INSERT INTO results (race_nmbr, car_nmbr, place, qualified, fast_qual, laps_led, adjustment) "
                       "VALUES (") +
        n(raceNmbr) + QStringLiteral(", ") + n(carNmbr) + QStringLiteral(", ") + n(place) +
        QStringLiteral(", 1, 0, 0, 0)"));
}

// A scored row: what posting writes for a car of a team in a league at a race.
inline void scored(int raceNmbr, int leagueNmbr, int teamNmbr, int carNmbr)
{
    run(QStringLiteral("INSERT INTO team_results (race_nmbr, league_nmbr, team_nmbr, car_nmbr, place, qualified, "
                       "current_status, fast_qual_bonus, laps_led_bonus, most_laps_led_bonus, adjustment, points, "
                       "qual_points, total_points) VALUES (") +
        n(raceNmbr) + QStringLiteral(", ") + n(leagueNmbr) + QStringLiteral(", ") + n(teamNmbr) +
        QStringLiteral(", ") + n(carNmbr) + QStringLiteral(", 1, 1, 1, 0, 0, 0, 0, 10, 0, 10)"));
}

}  // namespace roster_seed
