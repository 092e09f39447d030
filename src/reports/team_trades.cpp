#include "reports/team_trades.h"
#include "league/record.h"
#include "racing/races.h"
#include "reports/report_page.h"
#include "reports/roster_columns.h"
#include "reports/team_runs.h"
#include "store/dates.h"

using namespace Qt::StringLiterals;

namespace {

// Every roster entry (cars and drivers) of the league's teams, team by team, with the race.
QString teamTradesStatement(int16_t leagueNmbr, int16_t teamNmbr, int16_t raceNmbr, bool allTeams)
{
    QString statement =
        u"SELECT C.car_txt, B.team_name, A.efctv_dt, A.term_dt, C.driver_name, B.team_owner, A.locked_salary, "_s
        u"C.salary, B.team_nmbr, B.phone, B.email, E.league_name, F.race_name, F.race_dt, C.group_nmbr"_s
        u" FROM team_car A, teams B, cars C, league_teams D, leagues E, races F"_s
        u" WHERE A.team_nmbr = B.team_nmbr"_s
        u" AND A.team_nmbr = B.team_nmbr"_s
        u" AND A.car_nmbr = C.car_nmbr"_s
        u" AND C.car_type_nmbr in (1,2) "_s
        u" AND D.team_nmbr = B.team_nmbr"_s
        u" AND D.league_nmbr = "_s + sqlNumber(leagueNmbr) +
        u" AND E.league_nmbr = D.league_nmbr"_s
        u" AND F.race_nmbr = "_s + sqlNumber(raceNmbr);
    if (!allTeams)
        statement += u" AND A.team_nmbr = "_s + sqlNumber(teamNmbr);
    return statement + u" ORDER BY team_name, A.term_dt, C.car_txt"_s;
}

// Dates are compared as "yyyy,MM,dd" text; a missing date is the empty text, which is earlier
// than every date.
QString comparedDate(const QDate& date)
{
    return date.isValid() ? date.toString(u"yyyy,MM,dd"_s) : QString();
}

QString comparedDate(const cVariant& value)
{
    return comparedDate(parseDate(value.toTextOrEmpty()));
}

// The days a trade counts in: after the previous race, through the race.
struct cTradeWindow {
    QString after;
    QString through;

    bool holds(const QString& date) const { return date > after && date <= through; }
};

class cTeamTradesPage {
public:
    cTeamTradesPage(cReportRun& run, IDatabase& rows, const cTradeWindow& window)
        : m_run(run), m_rows(rows), m_window(window)
    {
    }

    void write()
    {
        m_run.writeHead();
        m_run.writeHeaderImage();
        m_run.writeTitle(m_rows.fields(u"league_name"_s).toTextOrEmpty());
        m_run.writeTitle(u"Trades for "_s + m_rows.fields(u"race_name"_s).toTextOrEmpty(), 2);

        bool teamOpen = false;
        int16_t teamNmbr = 0;
        int64_t rowCount = 1;
        for (; !m_rows.eof(); m_rows.MoveNext()) {
            const int16_t rowTeam = m_rows.fields(u"team_nmbr"_s).toInt16();
            if (!teamOpen || rowTeam != teamNmbr) {
                if (teamOpen)
                    m_run.line(u"</TABLE>"_s);
                openTeam();
                teamOpen = true;
                teamNmbr = rowTeam;
                rowCount = 1;
            }
            if (isTrade())
                m_run.writeDataRow(rowCount++, [this](int16_t column) { return rosterCell(m_rows, column); });
        }
        m_run.line(u"</TABLE>"_s);
        m_run.writeFooter();
        m_run.writeClosing();
    }

private:
    // A pick-up or a drop in the window; an entry that did both shows once.
    bool isTrade() const
    {
        if (m_window.holds(comparedDate(m_rows.fields(u"efctv_dt"_s))))
            return true;
        return m_window.holds(comparedDate(m_rows.fields(u"term_dt"_s)));
    }

    // The team's head as Team Cars has it, its own table and heading row.
    void openTeam()
    {
        m_run.writeTitle(rosterTeamHead(m_rows, m_run.columns()), 4);
        m_run.writeTableTag();
        m_run.writeHeadingRow(rosterHeading, QString());
    }

    cReportRun& m_run;
    IDatabase& m_rows;
    const cTradeWindow& m_window;
};

// One file: the given team, or with allTeams every team of the league.
QString runTeamTrades(int16_t leagueNmbr, int16_t teamNmbr, int16_t raceNmbr, bool launch, bool allTeams,
                      const cTradeWindow& window)
{
    cReportRun run(u"TT"_s);
    IDatabase rows;
    const bool opened = rows.OpenResultSet(teamTradesStatement(leagueNmbr, teamNmbr, raceNmbr, allTeams));
    run.open(teamNmbr);
    if (!opened || rows.eof()) {
        run.finish(false);
        return {};
    }
    cTeamTradesPage(run, rows, window).write();
    return run.finish(launch);
}

} // namespace

QString teamTradesReport(int16_t leagueNmbr, int16_t teamNmbr, int16_t raceNmbr, bool launch, bool allTeams,
                         bool separate)
{
    return runReportEntry([&] {
        cRaces race;
        race.load(raceNmbr);
        // Without a race before it, the previous date stays empty.
        cRaces previous;
        previous.loadPrevious(raceNmbr);
        const cTradeWindow window{comparedDate(previous.raceDate()), comparedDate(race.raceDate())};
        return runForTeams(leagueNmbr, teamNmbr, allTeams, separate, [&](int16_t team, bool all) {
            return runTeamTrades(leagueNmbr, team, raceNmbr, launch, all, window);
        });
    });
}
