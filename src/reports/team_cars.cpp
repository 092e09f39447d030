#include "reports/team_cars.h"
#include "racing/races.h"
#include "reports/report_page.h"
#include "reports/roster_columns.h"
#include "reports/team_runs.h"
#include "store/dates.h"

using namespace Qt::StringLiterals;

namespace {

// Every roster entry of the league's teams (cars and drivers, not the top bonus entry), the car
// with its group when it has one.
QString teamCarsStatement(int16_t leagueNmbr, int16_t teamNmbr, bool allTeams)
{
    QString statement =
        u"SELECT car_txt, teams.team_name, efctv_dt, term_dt, driver_name, team_owner, locked_salary, salary, "_s
        u"teams.team_nmbr, phone, email, league_name, group_name, cars.group_nmbr, leagues.car_type_nmbr"_s
        u" FROM (teams INNER JOIN (leagues INNER JOIN league_teams"_s
        u" ON leagues.league_nmbr = league_teams.league_nmbr)"_s
        u" ON teams.team_nmbr = league_teams.team_nmbr)"_s
        u" INNER JOIN ((group_dm RIGHT JOIN cars"_s
        u" ON group_dm.group_nmbr = cars.group_nmbr)"_s
        u" INNER JOIN team_car"_s
        u" ON cars.car_nmbr = team_car.car_nmbr)"_s
        u" ON teams.team_nmbr = team_car.team_nmbr"_s
        u" WHERE leagues.league_nmbr = "_s + sqlNumber(leagueNmbr) +
        u" AND cars.car_type_nmbr in (1,2) "_s;
    if (!allTeams)
        statement += u" AND teams.team_nmbr = "_s + sqlNumber(teamNmbr);
    statement += u" ORDER BY teams.team_name, group_name, team_car.term_dt, salary desc, cars.car_txt"_s;
    return statement;
}

// The race the page is "as of".
struct cAsOfRace {
    QDate date;
    QString name;
};

// Dates are compared as "yyyy/MM/dd" text; a missing date is the empty text.
QString comparedDate(const QDate& date)
{
    return date.isValid() ? date.toString(u"yyyy/MM/dd"_s) : QString();
}

class cTeamCarsPage {
public:
    cTeamCarsPage(cReportRun& run, IDatabase& rows, const std::optional<cAsOfRace>& race)
        : m_run(run), m_rows(rows), m_race(race)
    {
    }

    void write()
    {
        const QString& id = m_run.id();
        m_activeOnly = m_race && m_run.attributes().includeActiveOnly(id);
        m_run.writeHead();
        m_run.writeHeaderImage();
        m_run.writeTitle(m_rows.fields(u"league_name"_s).toTextOrEmpty());
        m_run.writeTitle(title(), 2);

        bool teamOpen = false;
        int16_t teamNmbr = 0;
        for (; !m_rows.eof(); m_rows.MoveNext()) {
            if (!passesActiveTest())
                continue;
            const int16_t rowTeam = m_rows.fields(u"team_nmbr"_s).toInt16();
            if (!teamOpen || rowTeam != teamNmbr) {
                if (teamOpen)
                    closeTeam();
                openTeam();
                teamOpen = true;
                teamNmbr = rowTeam;
            }
            m_run.writeDataRow(m_rowCount, [this](int16_t column) { return rosterCell(m_rows, column); });
            m_lastRowCount = m_rowCount++;
            addSalaries();
        }
        // Entries all left out by the active test leave no team table to close.
        if (teamOpen)
            closeTeam();
        m_run.writeFooter();
        m_run.writeClosing();
    }

private:
    QString title() const
    {
        const cVariant& carType = m_rows.fields(u"car_type_nmbr"_s);
        const QString noun = !carType.isNull() && carType.toInt16() == 1 ? u"Team Cars"_s : u"Team Drivers"_s;
        if (!m_race)
            return noun;
        return noun + u" as of <BR>"_s + shortDate(m_race->date) + u"  "_s + m_race->name;
    }

    // With active entries only, an entry that ended before the race or began after it is left out.
    bool passesActiveTest() const
    {
        if (!m_activeOnly)
            return true;
        const QString race = comparedDate(m_race->date);
        const cVariant& term = m_rows.fields(u"term_dt"_s);
        if (!term.isNull() && comparedDate(parseDate(term.toTextOrEmpty())) < race)
            return false;
        return !(comparedDate(parseDate(m_rows.fields(u"efctv_dt"_s).toTextOrEmpty())) > race);
    }

    // The team's head, its own table and heading row; its rows count from 1 again.
    void openTeam()
    {
        m_run.writeTitle(rosterTeamHead(m_rows, m_run.columns()), 4);
        m_run.writeTableTag();
        m_run.writeHeadingRow(rosterHeading, QString());
        m_lockedSalary = Currency();
        m_salary = Currency();
        m_rowCount = 1;
    }

    void addSalaries()
    {
        const cVariant& locked = m_rows.fields(u"locked_salary"_s);
        const cVariant& salary = m_rows.fields(u"salary"_s);
        if (!locked.isNull())
            m_lockedSalary += locked.toCurrency();
        if (!salary.isNull())
            m_salary += salary.toCurrency();
    }

    // The totals row in the look of the team's last row: the salary sums under their columns, an
    // empty cell under every other column that has cells (not e-mail, phone or an unknown number).
    void closeTeam()
    {
        m_run.writeRowTag(m_lastRowCount);
        for (const int16_t column : m_run.columns()) {
            if (column == 11)
                m_run.line(m_run.rowCell(u"<B>"_s + m_lockedSalary.toCurrencyText() + u"</B>"_s, u"right"_s));
            else if (column == 12)
                m_run.line(m_run.rowCell(u"<B>"_s + m_salary.toCurrencyText() + u"</B>"_s, u"right"_s));
            else if (rosterHeading(column))
                m_run.line(m_run.rowCell(QString(), u"left"_s));
        }
        m_run.line(u"</TR>"_s);
        m_run.line(u"</TABLE>"_s);
    }

    cReportRun& m_run;
    IDatabase& m_rows;
    const std::optional<cAsOfRace>& m_race;
    bool m_activeOnly = false;
    int64_t m_rowCount = 1;
    int64_t m_lastRowCount = 1;
    Currency m_lockedSalary;
    Currency m_salary;
};

// One file: the given team, or with allTeams every team of the league.
QString runTeamCars(int16_t leagueNmbr, int16_t teamNmbr, bool launch, bool allTeams,
                    const std::optional<cAsOfRace>& race)
{
    cReportRun run(u"TC"_s);
    IDatabase rows;
    const bool opened = rows.OpenResultSet(teamCarsStatement(leagueNmbr, teamNmbr, allTeams));
    run.open(teamNmbr);
    if (!opened || rows.eof()) {
        run.finish(false);
        return {};
    }
    cTeamCarsPage(run, rows, race).write();
    return run.finish(launch);
}

} // namespace

QString teamCarsReport(int16_t leagueNmbr, int16_t teamNmbr, bool launch, bool allTeams, bool separate,
                       std::optional<int16_t> raceNmbr)
{
    return runReportEntry([&] {
        std::optional<cAsOfRace> race;
        if (raceNmbr) {
            cRaces record;
            record.load(*raceNmbr);
            race = cAsOfRace{record.raceDate(), record.raceName()};
        }
        return runForTeams(leagueNmbr, teamNmbr, allTeams, separate, [&](int16_t team, bool all) {
            return runTeamCars(leagueNmbr, team, launch, all, race);
        });
    });
}
