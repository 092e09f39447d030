#pragma once
#include <QString>
#include <cstdint>
#include <optional>

// Team Cars: each team's roster of a league with its salaries and their totals, a table per
// team. Given a race, the titles say "as of" the race and, when the report shows active
// entries only, entries not in force on its date are left out. allTeams and separate choose
// the teams and files as runForTeams says; a file is named by the team alone. A team or league
// without cars leaves an empty file, opens nothing and gives an empty name.
QString teamCarsReport(int16_t leagueNmbr, int16_t teamNmbr, bool launch, bool allTeams, bool separate,
                       std::optional<int16_t> raceNmbr = {});
