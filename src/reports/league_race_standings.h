#pragma once
#include <QString>
#include <cstdint>

// League Race Standings: each team's sums of one race of a league (points, bonuses, adjustment)
// in team place, each name linking to the team's page of the race, which the report writes as
// it goes. A race without posted rows for the league writes no file and gives an empty name;
// with launch it says "Results not posted for this Race.".
QString leagueRaceStandingsReport(int16_t leagueNmbr, int16_t raceNmbr, bool launch);
