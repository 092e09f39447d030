#include "reports/report_entries.h"
#include "reports/car_details.h"
#include "reports/car_picks.h"
#include "reports/driver_stats.h"
#include "reports/league_race_standings.h"
#include "reports/league_race_summary.h"
#include "reports/league_standings.h"
#include "reports/race_detail.h"
#include "reports/race_results.h"
#include "reports/report_package.h"
#include "reports/team_cars.h"
#include "reports/team_detail.h"
#include "reports/team_trades.h"
#include "reports/teams_per_car.h"

using namespace Qt::StringLiterals;

namespace {

// Caption and required numbers (race, league, team) of each report the request screen asks for.
const cReportRequirements kRequests[] = {
    {u"RP", u"Report Package", true, true, false},
    {u"RD", u"Race Detail", true, true, false},
    {u"RS", u"League Race Standings", true, true, false},
    {u"DT", u"Teams per Car/Driver", true, true, false},
    {u"TD", u"Team Detail", true, true, true},
    {u"LS", u"League Standings", true, true, false},
    {u"TC", u"Team Cars", true, true, true},
    {u"CP", u"Car/Driver Picks", false, true, false},
    {u"DS", u"Car/Driver Stats", false, true, false},
    {u"RR", u"Race Results", true, false, false},
    {u"CD", u"Car Details", false, true, false},
    {u"TT", u"Team Trades", true, true, true},
    {u"LR", u"League Race Summary", false, true, false},
};

// Team Race Detail has no menu entry; it needs one team of a league at one race.
const cReportRequirements kTeamRaceDetail = {u"TR", u"Team Race Detail", true, true, true};

// The entry of each report of this version, with the request's numbers in its own order.
struct cReportEntry {
    const char16_t* reportId;
    QString (*run)(const cReportRequest& request, bool launch);
};

const cReportEntry kEntries[] = {
    {u"LS", [](const cReportRequest& r, bool launch) { return leagueStandingsReport(r.leagueNmbr, r.raceNmbr, launch); }},
    {u"RD", [](const cReportRequest& r, bool launch) { return raceDetailReport(r.leagueNmbr, r.raceNmbr, launch); }},
    {u"TR", [](const cReportRequest& r, bool launch) {
         return teamRaceDetailReport(r.leagueNmbr, r.teamNmbr, r.raceNmbr, launch);
     }},
    {u"TC", [](const cReportRequest& r, bool launch) {
         // A race not chosen (-1) is no race: every roster entry, titled without "as of".
         const std::optional<int16_t> race = r.raceNmbr > 0 ? std::optional(r.raceNmbr) : std::nullopt;
         return teamCarsReport(r.leagueNmbr, r.teamNmbr, launch, r.allTeams, r.separate, race);
     }},
    {u"RP", [](const cReportRequest& r, bool launch) { return reportPackage(r.leagueNmbr, r.raceNmbr, launch); }},
    {u"TD", [](const cReportRequest& r, bool launch) {
         return teamDetailReport(r.leagueNmbr, r.teamNmbr, r.raceNmbr, launch, r.allTeams, r.separate);
     }},
    {u"RS", [](const cReportRequest& r, bool launch) { return leagueRaceStandingsReport(r.leagueNmbr, r.raceNmbr, launch); }},
    {u"LR", [](const cReportRequest& r, bool launch) { return leagueRaceSummaryReport(r.leagueNmbr, launch); }},
    {u"RR", [](const cReportRequest& r, bool launch) { return raceResultsReport(r.raceNmbr, launch); }},
    {u"TT", [](const cReportRequest& r, bool launch) {
         return teamTradesReport(r.leagueNmbr, r.teamNmbr, r.raceNmbr, launch, r.allTeams, r.separate);
     }},
    {u"CD", [](const cReportRequest& r, bool launch) { return carDetailsReport(r.leagueNmbr, launch); }},
    {u"DS", [](const cReportRequest& r, bool launch) { return driverStatsReport(r.leagueNmbr, launch); }},
    {u"CP", [](const cReportRequest& r, bool launch) { return carPicksReport(r.leagueNmbr, launch); }},
    {u"DT", [](const cReportRequest& r, bool launch) { return teamsPerCarDriverReport(r.leagueNmbr, launch, r.raceNmbr); }},
};

const cReportEntry* entryOf(const QString& reportId)
{
    const QString id = reportId.toUpper();
    for (const cReportEntry& entry : kEntries) {
        if (id == QStringView(entry.reportId))
            return &entry;
    }
    return nullptr;
}

} // namespace

std::span<const cReportRequirements> reportRequests()
{
    return kRequests;
}

const cReportRequirements* reportRequirements(const QString& reportId)
{
    const QString id = reportId.toUpper();
    if (id == QStringView(kTeamRaceDetail.reportId))
        return &kTeamRaceDetail;
    for (const cReportRequirements& request : kRequests) {
        if (id == QStringView(request.reportId))
            return &request;
    }
    return nullptr;
}

std::optional<QString> runReport(const QString& reportId, const cReportRequest& request, bool launch)
{
    if (const cReportEntry* entry = entryOf(reportId))
        return entry->run(request, launch);
    return std::nullopt;
}

bool reportAvailable(const QString& reportId)
{
    return entryOf(reportId) != nullptr;
}
