#include "reports/team_runs.h"
#include "league/league_teams.h"

QString runForTeams(int16_t leagueNmbr, int16_t teamNmbr, bool allTeams, bool separate, const TeamReportRun& run)
{
    if (!separate)
        return run(teamNmbr, allTeams);
    cLeagueTeamsCollection members;
    members.load(leagueNmbr);
    QString fileName;
    for (const cLeagueTeams& member : members)
        fileName = run(member.teamNmbr(), false);
    return fileName;
}
