#include "reports/teams_per_car.h"
#include "league/record.h"
#include "reports/report_page.h"
#include "reports/roster_columns.h"
#include "store/dates.h"

using namespace Qt::StringLiterals;

namespace {

// Every holding of a car or driver by a team of the league, with the race's name and date; with
// activeOnly only those in force on that date (one that ends on the race's day still counts).
QString teamsPerCarStatement(int16_t leagueNmbr, int16_t raceNmbr, bool activeOnly)
{
    QString statement =
        u"SELECT C.car_txt, B.team_name, A.efctv_dt, A.term_dt, C.driver_name, B.team_owner, A.locked_salary, "_s
        u"C.salary, B.team_nmbr, B.phone, B.email, E.league_name, C.group_nmbr, C.car_type_nmbr, "_s
        u"E.car_type_nmbr as car_type_nmbr, F.race_name, F.race_dt"_s
        u" FROM team_car A, teams B, cars C, league_teams D, leagues E, Races F"_s
        u" WHERE A.team_nmbr = B.team_nmbr"_s
        u" AND A.team_nmbr = B.team_nmbr"_s
        u" AND A.car_nmbr = C.car_nmbr"_s
        u" AND C.car_type_nmbr in (1,2) "_s
        u" AND D.team_nmbr = B.team_nmbr"_s
        u" AND D.league_nmbr = "_s + sqlNumber(leagueNmbr) +
        u" AND E.league_nmbr = D.league_nmbr"_s
        u" AND F.race_nmbr = "_s + sqlNumber(raceNmbr);
    if (activeOnly)
        statement += u" AND A.efctv_dt <= F.race_dt"_s
                     u" AND (A.term_dt is NULL or A.term_dt >= F.race_dt)"_s;
    statement += u" ORDER BY C.car_txt, team_name, A.term_dt "_s;
    return statement;
}

std::optional<QString> heading(int16_t column)
{
    switch (column) {
    case 33: return u"Team<BR>Name"_s;
    case 34: return u"Team<BR>Owner"_s;
    case 10: case 5: case 11: case 12: case 40: return rosterHeading(column);
    default: return std::nullopt;
    }
}

std::optional<cReportRun::Cell> cell(const IDatabase& rows, int16_t column)
{
    switch (column) {
    case 33: return cReportRun::Cell{fieldText(rows, u"team_name"_s), u"left"_s};
    case 34: return cReportRun::Cell{fieldText(rows, u"team_owner"_s), u"left"_s};
    case 10: case 5: case 11: case 12: case 40: return rosterCell(rows, column);
    default: return std::nullopt;
    }
}

class cTeamsPerCarPage {
public:
    cTeamsPerCarPage(cReportRun& run, IDatabase& rows) : m_run(run), m_rows(rows)
    {
        // The statement has two columns named car_type_nmbr; the league's is read by its table.
        const cVariant& carType = m_rows.fields(u"leagues.car_type_nmbr"_s);
        m_byCar = !carType.isNull() && carType.toInt16() == 1;
    }

    void write()
    {
        m_run.writeHead();
        m_run.line(u"<br>"_s);
        m_run.writeHeaderImage();
        m_run.writeTitle(fieldText(m_rows, u"league_name"_s));
        m_run.writeTitle((m_byCar ? u"Teams per Car as of "_s : u"Teams per Driver as of "_s) +
                             shortDate(parseDate(fieldText(m_rows, u"race_dt"_s))) + u"  "_s + fieldText(m_rows, u"race_name"_s),
                         2);
        bool first = true;
        QString carTxt;
        int64_t rowCount = 1;
        for (; !m_rows.eof(); m_rows.MoveNext()) {
            // Cars are told apart by their numbers.
            if (const QString rowCar = fieldText(m_rows, u"car_txt"_s); first || rowCar != carTxt) {
                if (!first)
                    m_run.line(u"</TABLE>"_s);
                openCar();
                first = false;
                carTxt = rowCar;
                rowCount = 1;
            }
            m_run.writeDataRow(rowCount++, [this](int16_t column) { return cell(m_rows, column); });
        }
        m_run.line(u"</TABLE>"_s);
        m_run.writeFooter();
        m_run.writeClosing();
    }

private:
    // The paragraph that names the car, number first in a league by cars, driver first in one
    // by drivers; its own table and heading row.
    void openCar()
    {
        const QString number = fieldText(m_rows, u"car_txt"_s);
        const QString driver = fieldText(m_rows, u"driver_name"_s);
        m_run.writeTitle(m_byCar ? number + u" - "_s + driver : driver + u" - "_s + number, 4);
        m_run.writeTableTag();
        m_run.writeHeadingRow(heading, QString());
    }

    cReportRun& m_run;
    IDatabase& m_rows;
    bool m_byCar = false;
};

} // namespace

QString teamsPerCarDriverReport(int16_t leagueNmbr, bool launch, int16_t raceNmbr)
{
    return runReportEntry([&] {
        cReportRun run(u"DT"_s);
        run.open(leagueNmbr);
        IDatabase rows;
        const bool opened =
            rows.OpenResultSet(teamsPerCarStatement(leagueNmbr, raceNmbr, run.attributes().includeActiveOnly(run.id())));
        if (!opened || rows.eof())
            return run.finishEmpty(opened && launch ? u"No team of this league holds a car or driver at this race."_s
                                                    : QString());
        cTeamsPerCarPage(run, rows).write();
        return run.finish(launch);
    });
}
