#pragma once
#include <QString>
#include <cstdint>

// Team Detail: each team's cars and drivers as of a race, best first by the league's scoring
// method, with the season's bonus sums up to the race and the points out of the team's lead.
// allTeams and separate choose the teams and files as runForTeams says; a file is named by
// league and team. A team without posted rows at the race writes no file and gives an empty name,
// with "Results not posted for this Race." when launched.
QString teamDetailReport(int16_t leagueNmbr, int16_t teamNmbr, int16_t raceNmbr, bool launch, bool allTeams,
                         bool separate);
