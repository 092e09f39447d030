#pragma once
#include <QString>
#include <cstdint>

// Race Detail: one race of one league, team by team in team place, a row per car or driver with
// the result and the points posting gave it, and each team's totals. Empty when the race has no
// posted rows for the league (with "Results not posted for this Race." when launched).
QString raceDetailReport(int16_t leagueNmbr, int16_t raceNmbr, bool launch);
// Team Race Detail: the same page for one team. Its file carries league and team, not the race.
QString teamRaceDetailReport(int16_t leagueNmbr, int16_t teamNmbr, int16_t raceNmbr, bool launch);
