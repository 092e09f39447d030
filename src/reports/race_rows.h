#pragma once
// What Race Detail, Team Race Detail and Team Detail share about the posted rows of one race: the
// tables and conditions of their queries and the test that hides rows not in force on race day.
#include "store/connection.h"

#include <QString>
#include <cstdint>

// " FROM ..." through the condition on the league: the league's team_results rows of the race,
// each with its car, race, team, league, the team's summary row and a roster entry of the pair.
QString raceRowsFrom(int16_t leagueNmbr, int16_t raceNmbr);
// The condition that keeps, of a pair's roster entries, only its latest (roster table B).
QString latestRosterEntryCondition();

// Whether a row's roster entry (term_dt, efctv_dt) was in force on race_dt: it fails when it
// ended before the race or began after it. With the flag off every row passes; a row without a
// termination date never fails on it.
bool passesActiveTest(const IDatabase& rows, bool includeActiveOnly);
