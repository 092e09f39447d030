#pragma once
#include <QString>
#include <cstdint>

// Car/Driver Stats: each car's and driver's figures over the races of the league's series that
// have results: starts, poles, wins, top places, average finish and start, laps led. With no
// results it writes no file, says nothing and returns an empty name.
QString driverStatsReport(int16_t leagueNmbr, bool launch);
