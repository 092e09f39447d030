#pragma once
// Rows written straight into the data file, for the league tests.
#include "league/league.h"

#include <QString>
#include <gtest/gtest.h>

namespace league_rows {

inline void run(const QString& statement)
{
    IDatabase db;
    ASSERT_TRUE(db.execute(statement)) << qPrintable(statement);
}

inline void addTeam(int number, const QString& name, int raceType, int carType)
{
    run(QStringLiteral("INSERT INTO teams VALUES (%1, '%2', '', '', '', %3, %4, '', '', '', '', '')")
            .arg(number).arg(name).arg(raceType).arg(carType));
}

inline void addMember(int league, int team)
{
    run(QStringLiteral("INSERT INTO league_teams (league_nmbr, team_nmbr) VALUES (%1, %2)").arg(league).arg(team));
}

// A stored league of method 1 and option 1 (unless told), drop count and cap as given.
inline cLeague saved(const QString& name, int16_t raceType, int16_t carType, int16_t scoringType = 1,
                     int16_t scoringOption = 1, int16_t dropLowest = 0, Currency cap = {})
{
    cLeague league;
    league.setLeagueName(name);
    league.setLeagueShortName(name.left(3).toUpper());
    league.setRaceTypeNmbr(raceType);
    league.setCarTypeNmbr(carType);
    league.setScoringTypeNmbr(scoringType);
    league.setScoringOptionNmbr(scoringOption);
    league.setDropLowest(dropLowest);
    league.setSalaryCap(cap);
    EXPECT_TRUE(league.CommitChanges());
    return league;
}

} // namespace league_rows
