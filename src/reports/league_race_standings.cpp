#include "reports/league_race_standings.h"
#include "base/messages.h"
#include "league/record.h"
#include "reports/race_detail.h"
#include "reports/report_page.h"
#include "store/dates.h"

using namespace Qt::StringLiterals;

namespace {

// One row per team of the league's race: its car rows added up, with its place in the race.
QString raceStandingsStatement(int16_t leagueNmbr, int16_t raceNmbr)
{
    const QString race = sqlNumber(raceNmbr);
    const QString league = sqlNumber(leagueNmbr);
    return u"SELECT sum(team_results.points) as total_points, sum(team_results.laps_led_bonus) as laps_led_bonus, "_s
           u"sum(team_results.most_laps_led_bonus) as most_laps_led_bonus, sum(team_results.fast_qual_bonus) as "_s
           u"fast_qual_bonus,leagues.league_name, races.race_dt, races.race_name, races.track_name, teams.team_name, "_s
           u"team_results_summary.team_place, races.race_nmbr, sum(team_results.qual_points) as qual_points, "_s
           u"leagues.scoring_type_nmbr, leagues.league_nmbr, teams.team_nmbr,sum(team_results.adjustment) as "_s
           u"adjustment,races.race_status_nmbr"_s
           u" FROM team_results, team_results_summary, races, teams, leagues"_s
           u" WHERE races.race_nmbr = "_s + race +
           u" And races.race_nmbr = team_results.race_nmbr"_s
           u" AND team_results_summary.race_nmbr = team_results.race_nmbr"_s
           u" AND team_results_summary.team_nmbr = team_results.team_nmbr"_s
           u" AND team_results_summary.league_nmbr = team_results.league_nmbr"_s
           u" AND team_results.league_nmbr = "_s + league +
           u" AND team_results.race_nmbr = "_s + race +
           u" AND teams.team_nmbr = team_results.team_nmbr"_s
           u" AND leagues.league_nmbr = "_s + league +
           u" GROUP BY leagues.league_name, races.race_dt, races.race_name, races.track_name, teams.team_name, "_s
           u"team_results_summary.team_place, races.race_nmbr, leagues.scoring_type_nmbr, leagues.league_nmbr, "_s
           u"teams.team_nmbr, races.race_status_nmbr"_s
           u" ORDER BY team_results_summary.team_place,team_results_summary.team_place,teams.team_name"_s;
}

std::optional<QString> heading(int16_t column)
{
    switch (column) {
    case 6: return u"<BR>Lap Led<BR>Bonus"_s;
    case 7: return u"Most<BR>Laps Led<BR>Bonus"_s;
    case 8: return u"<BR><BR>Points"_s;
    case 13: return u"<BR><BR>Pos."_s;
    case 31: return u"Fast<BR>Qualifier<BR>Bonus"_s;
    case 32: return u"<BR>Qualifing<BR>Bonus"_s;
    case 33: return u"<BR><BR>Team"_s;
    case 35: return u"<BR><BR>Adjustment"_s;
    default: return std::nullopt;
    }
}

// The team's page of the race, written now, as the target of the link.
QString teamLink(const IDatabase& rows)
{
    const QString file = teamRaceDetailReport(rows.fields(u"league_nmbr"_s).toInt16(),
                                              rows.fields(u"team_nmbr"_s).toInt16(),
                                              rows.fields(u"race_nmbr"_s).toInt16(), false);
    return u"<A HREF="_s + u"'"_s + file + u"'>"_s + fieldText(rows, u"team_name"_s) + u" </A>"_s;
}

std::optional<cReportRun::Cell> cell(const IDatabase& rows, int16_t column)
{
    const auto right = [&rows](const QString& field) { return cReportRun::Cell{fieldText(rows, field), u"right"_s}; };
    switch (column) {
    case 6: return right(u"laps_led_bonus"_s);
    case 7: return right(u"most_laps_led_bonus"_s);
    case 8: return right(u"total_points"_s);
    case 13: return cReportRun::Cell{fieldText(rows, u"team_place"_s), u"center"_s};
    case 31: return right(u"fast_qual_bonus"_s);
    case 32: return right(u"qual_points"_s);
    case 33: return cReportRun::Cell{teamLink(rows), u"left"_s};
    case 35: return right(u"adjustment"_s);
    default: return std::nullopt;
    }
}

// The page of League Standings, titled by the first row, with a row per team.
void writePage(cReportRun& run, IDatabase& rows)
{
    run.writeHead();
    run.line(u"<br>"_s);
    run.writeHeaderImage();
    run.writeTitle(fieldText(rows, u"league_name"_s).trimmed());
    run.writeTitle(u"League standings as of"_s + u"<BR>"_s + shortDate(parseDate(fieldText(rows, u"race_dt"_s))) + u"   "_s +
                       fieldText(rows, u"race_name"_s),
                   2);
    const cVariant& status = rows.fields(u"race_status_nmbr"_s);
    run.writeRaceStatus(status.isNull() ? int16_t(0) : status.toInt16());
    run.writeTableTag();
    run.writeEmptyRow();
    run.writeHeadingRow(heading);
    int64_t rowCount = 1;
    for (; !rows.eof(); rows.MoveNext())
        run.writeDataRow(rowCount++, [&rows](int16_t column) { return cell(rows, column); });
    run.line(u"</TABLE>"_s);
    run.writeFooter();
    run.writeClosing();
}

} // namespace

QString leagueRaceStandingsReport(int16_t leagueNmbr, int16_t raceNmbr, bool launch)
{
    return runReportEntry([&] {
        cReportRun run(u"RS"_s);
        IDatabase rows;
        if (!rows.OpenResultSet(raceStandingsStatement(leagueNmbr, raceNmbr)) || rows.eof()) {
            if (launch)
                messageBox(u"Results not posted for this Race."_s, u"Lapkeeper"_s, Icon::Information);
            return run.finish(false);
        }
        run.open(leagueNmbr, raceNmbr);
        writePage(run, rows);
        return run.finish(launch);
    });
}
