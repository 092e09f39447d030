#pragma once
#include <QString>
#include <cstdint>

// Car/Driver Picks: the cars or drivers a team of the league picks from (those of its Score By),
// group by group with each group's limit, dearest first, under the league's salary cap. Without
// any, the file stays empty and the name is empty.
QString carPicksReport(int16_t leagueNmbr, bool launch);
