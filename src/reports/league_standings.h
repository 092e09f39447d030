#pragma once
#include <QString>
#include <cstdint>

// League Standings: the league's table as of a race, one row per team with the chosen columns.
// Each team name or owner links to the team's Team Race Detail page, which it writes on the way.
// Returns the name of the file written.
QString leagueStandingsReport(int16_t leagueNmbr, int16_t raceNmbr, bool launch);
