#include "reports/league_race_summary.h"
#include "base/messages.h"
#include "league/record.h"
#include "racing/races.h"
#include "racing/standings.h"
#include "reports/race_detail.h"
#include "reports/report_page.h"
#include "reports/report_tags.h"
#include "reports/team_cars.h"
#include "store/dates.h"

using namespace Qt::StringLiterals;

namespace {

// The league's teams with their season points, most first, whatever the scoring method.
QString summaryStatement(int16_t leagueNmbr)
{
    return u"SELECT sum(team_results_summary.points) as points, teams.team_nmbr, teams.team_name, teams.team_owner, "_s
           u"leagues.league_nmbr, leagues.league_name, leagues.race_type_nmbr, leagues.car_type_nmbr"_s
           u" FROM team_results_summary, teams, leagues"_s
           u" WHERE teams.team_nmbr = team_results_summary.team_nmbr"_s
           u" AND team_results_summary.league_nmbr = "_s + sqlNumber(leagueNmbr) +
           u" AND team_results_summary.league_nmbr = leagues.league_nmbr "_s
           u" GROUP BY teams.team_nmbr, teams.team_name, teams.team_owner, leagues.league_nmbr, leagues.league_name, "_s
           u"leagues.race_type_nmbr, leagues.car_type_nmbr "_s
           u" ORDER BY Sum(team_results_summary.points)  desc "_s;
}

int16_t smallNumber(const IDatabase& rows, const QString& field)
{
    const cVariant& value = rows.fields(field);
    return value.isNull() ? int16_t(0) : value.toInt16();
}

QString link(const QString& file, const QString& text)
{
    return u"<A HREF="_s + u"'"_s + file + u"'>"_s + text + u" </A>"_s;
}

class cRaceSummaryPage {
public:
    cRaceSummaryPage(cReportRun& run, IDatabase& rows) : m_run(run), m_rows(rows) {}

    void write()
    {
        m_leagueNmbr = smallNumber(m_rows, u"league_nmbr"_s);
        m_races.loadRacesWithResults(smallNumber(m_rows, u"race_type_nmbr"_s), smallNumber(m_rows, u"car_type_nmbr"_s));

        m_run.writeHead();
        m_run.writeHeaderImage();
        m_run.line(u"<br>"_s);
        m_run.line(u"<br>"_s);
        m_run.writeTitle(fieldText(m_rows, u"league_name"_s).trimmed());
        m_run.writeTableTag();
        m_run.writeEmptyRow();
        writeRaceHeads();
        int64_t rowCount = 1;
        for (; !m_rows.eof(); m_rows.MoveNext())
            writeTeamRow(rowCount++);
        m_run.line(u"</TR>"_s);
        m_run.line(u"</TABLE>"_s);
        m_run.writeFooter();
        m_run.writeClosing();
    }

private:
    // A cell in the heading look, as the race heads and the two team cells of a row have; kept on
    // one line, so that neither a date nor a name breaks.
    QString headingLookCell(const QString& cellText, const QString& align)
    {
        const QString& id = m_run.id();
        return headerCell(m_run.headingTextSize(), m_run.attributes().headingTextColor(id), cellText, align, 1,
                          u"nowrap"_s);
    }

    // Each race's date, linking to its Race Detail page, which is written now.
    void writeRaceHeads()
    {
        m_run.line(tableRowTag(m_run.attributes().headingBackColor(m_run.id())));
        m_run.line(u"<TH></TH>"_s);
        m_run.line(u"<TH>Total<BR>Points</TH>"_s);
        for (const cRaces& race : m_races) {
            const QString file = raceDetailReport(m_leagueNmbr, race.raceNmbr(), false);
            m_run.line(headingLookCell(link(file, shortDate(race.raceDate())), u"center"_s));
        }
        m_run.line(u"<TH></TH>"_s);
        m_run.line(u"</TR>"_s);
    }

    // The team's Team Cars page, written again at every call.
    QString teamCarsLink(const QString& cellText)
    {
        const QString file = teamCarsReport(m_leagueNmbr, m_rows.fields(u"team_nmbr"_s).toInt16(), false, false, false);
        return link(file, cellText);
    }

    void writeTeamRow(int64_t rowCount)
    {
        const int16_t team = m_rows.fields(u"team_nmbr"_s).toInt16();
        m_run.writeRowTag(rowCount);
        m_run.line(headingLookCell(teamCarsLink(fieldText(m_rows, u"team_name"_s)) + u" "_s, u"left"_s));
        m_run.line(m_run.rowCell(fieldText(m_rows, u"points"_s), u"center"_s));
        for (const cRaces& race : m_races) {
            const int32_t points = cTeamResultsSummary().pointsForRace(m_leagueNmbr, team, race.raceNmbr());
            m_run.line(m_run.rowCell(sqlNumber(points), u"center"_s));
        }
        m_run.line(headingLookCell(teamCarsLink(fieldText(m_rows, u"team_owner"_s)), u"left"_s));
        m_run.line(u"</TR>"_s);
    }

    cReportRun& m_run;
    IDatabase& m_rows;
    int16_t m_leagueNmbr = 0;
    cRacesCollection m_races;
};

} // namespace

QString leagueRaceSummaryReport(int16_t leagueNmbr, bool launch)
{
    return runReportEntry([&] {
        cReportRun run(u"LR"_s);
        IDatabase rows;
        const bool opened = rows.OpenResultSet(summaryStatement(leagueNmbr));
        // The file is opened before the test for rows, and stays empty without them.
        run.open(leagueNmbr);
        if (!opened || rows.eof()) {
            if (launch)
                messageBox(u"Results not posted for this Race."_s, u"Lapkeeper"_s, Icon::Information);
            run.finish(false);
            return QString();
        }
        cRaceSummaryPage(run, rows).write();
        return run.finish(launch);
    });
}
