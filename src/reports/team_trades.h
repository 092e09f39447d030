#pragma once
#include <QString>
#include <cstdint>

// Team Trades: the roster entries of a league's teams that began or ended after the race before
// the given one and up to the given race's date, a table per team (empty for a team without
// trades). Before the first race of the calendar every entry up to the race date counts.
// allTeams and separate choose the teams and files as runForTeams says; a file is named by the
// team alone. A team or league without roster entries leaves an empty file, opens nothing and
// gives an empty name.
QString teamTradesReport(int16_t leagueNmbr, int16_t teamNmbr, int16_t raceNmbr, bool launch, bool allTeams,
                         bool separate);
