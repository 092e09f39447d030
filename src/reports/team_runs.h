#pragma once
// The teams a team report covers (Team Cars, Team Detail, Team Trades). With separate, the report
// runs once per team of the league, each run for its own team alone and into its own file, and
// launch goes on to every run; the result is the last file's name (empty for a league without
// teams). Otherwise it runs once, for the given team, or with allTeams for every team of the
// league in one file that still carries the given team's number.
#include <QString>
#include <cstdint>
#include <functional>

using TeamReportRun = std::function<QString(int16_t teamNmbr, bool allTeams)>;

QString runForTeams(int16_t leagueNmbr, int16_t teamNmbr, bool allTeams, bool separate, const TeamReportRun& run);
