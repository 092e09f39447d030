#pragma once
// The reports by their ids: what each asks for on the request screen and how its entry is run
// with what was asked. The main window's report commands and the batch tool both go through it.
#include <QString>
#include <cstdint>
#include <optional>
#include <span>

// What a report covers. -1 is a number that was not chosen.
struct cReportRequest {
    int16_t leagueNmbr = -1;
    int16_t raceNmbr = -1;
    int16_t teamNmbr = -1;
    bool allTeams = false;
    bool separate = false;
};

// A report of the request screen: its caption and what it requires.
struct cReportRequirements {
    const char16_t* reportId;
    const char16_t* title;
    bool raceRequired;
    bool leagueRequired;
    bool teamRequired;
};

// The reports that the request screen asks for, in the order of the Reports menu.
std::span<const cReportRequirements> reportRequests();
// The requirements of a report id (case aside), or nullptr for an id the screen does not ask
// for (Team Race Detail, which only runs inside other reports, is asked like Team Detail by the
// batch tool).
const cReportRequirements* reportRequirements(const QString& reportId);

// Runs the report's entry with the request. The name of the file it wrote (empty when it wrote
// none); nullopt when this version has no such report.
std::optional<QString> runReport(const QString& reportId, const cReportRequest& request, bool launch);
// Whether this version has the report.
bool reportAvailable(const QString& reportId);
