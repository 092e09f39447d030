#pragma once
#include <QString>
#include <cstdint>

// League Race Summary: a grid of the league's teams (most points first) by every race of its
// series and Score By that has results, each team's points in each race. The race heads link to
// the races' Race Detail pages and the team cells to their Team Cars pages, all written as the
// grid is. A league without posted rows leaves its file empty and gives an empty name; with
// launch it says "Results not posted for this Race.".
QString leagueRaceSummaryReport(int16_t leagueNmbr, bool launch);
