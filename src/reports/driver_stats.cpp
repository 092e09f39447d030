#include "reports/driver_stats.h"
#include "league/record.h"
#include "racing/results.h"
#include "reports/report_page.h"

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

// One row per car or driver that has results in the league's series.
QString driverStatsStatement(int16_t leagueNmbr)
{
    const QString league = sqlNumber(leagueNmbr);
    return u"SELECT  Count(results.race_nmbr) as RaceCount, Sum(results.place) as PlaceSum, "_s
           u"Sum(results.laps_led) as LapsLedSum, Sum(results.qualified) as QualifiedSum, cars.car_nmbr, "_s
           u"cars.car_txt, cars.driver_name, leagues.league_name, leagues.league_nmbr"_s
           u" From cars, results, leagues "_s
           u" WHERE results.car_nmbr = cars.car_nmbr "_s
           u" AND leagues.league_nmbr = "_s + league +
           u" AND cars.race_type_nmbr = leagues.race_type_nmbr "_s
           u" AND cars.car_type_nmbr in (1,2) "_s
           u" AND results.race_nmbr In "_s
           u"         (SELECT distinct(races.race_nmbr) "_s
           u"         From races, leagues, results "_s
           u"         Where leagues.league_nmbr = "_s + league +
           u"         AND results.race_nmbr = races.race_nmbr "_s
           u"         AND races.race_type_nmbr = leagues.race_type_nmbr) "_s
           u" GROUP BY cars.car_nmbr, cars.car_txt, cars.driver_name, leagues.league_name, leagues.league_nmbr"_s;
}

// A sum over the races divided by their count, to two decimals, halves away from zero; empty
// when nothing was summed.
QString average(const IDatabase& rows, const QString& sumField)
{
    const cVariant& sum = rows.fields(sumField);
    const int32_t count = rows.fields(u"RaceCount"_s).toInt32();
    if (sum.isNull() || count == 0)
        return {};
    const int64_t scaled = int64_t(sum.toInt32()) * 100;
    const int64_t hundredths = (std::abs(scaled) * 2 + count) / (int64_t(count) * 2);
    return (scaled < 0 ? u"-"_s : QString()) + QString::number(hundredths / 100) + u'.' +
           QString::number(hundredths % 100).rightJustified(2, u'0');
}

class cDriverStatsPage {
public:
    cDriverStatsPage(cReportRun& run, IDatabase& rows, int16_t leagueNmbr)
        : m_run(run), m_rows(rows), m_leagueNmbr(leagueNmbr)
    {
    }

    void write()
    {
        // The entry runs the page only with rows; this stands for a result that is empty.
        if (m_rows.eof()) {
            m_run.writeSorry(true);
            m_run.writeClosing();
            return;
        }
        m_run.writeHead();
        m_run.line(u"<br>"_s);
        m_run.writeHeaderImage();
        m_run.writeTitle(fieldText(m_rows, u"league_name"_s));
        m_run.writeTableTag();
        m_run.writeEmptyRow();
        m_run.writeHeadingRow(heading, QString());
        int64_t rowCount = 1;
        for (; !m_rows.eof(); m_rows.MoveNext())
            m_run.writeDataRow(rowCount++, [this](int16_t column) { return cell(column); });
        m_run.line(u"</TABLE>"_s);
        m_run.writeFooter();
        m_run.writeClosing();
    }

private:
    static std::optional<QString> heading(int16_t column)
    {
        switch (column) {
        case 2: return u"<BR>Car#"_s;
        case 3: return u"<BR>Driver"_s;
        case 28: return u"<BR>Starts"_s;
        case 29: return u"<BR>Poles"_s;
        case 18: return u"<BR>Wins"_s;
        case 19: return u"<BR>Top 5's"_s;
        case 20: return u"<BR>Top 10's"_s;
        case 30: return u"Average<BR>Finish"_s;
        case 36: return u"Average<BR>Start"_s;
        case 37: return u"Total<BR>Laps Led"_s;
        default: return std::nullopt;
        }
    }

    std::optional<cReportRun::Cell> cell(int16_t column)
    {
        switch (column) {
        case 2: return cReportRun::Cell{fieldText(m_rows, u"car_txt"_s), u"center"_s};
        case 3: return cReportRun::Cell{fieldText(m_rows, u"driver_name"_s), u"left"_s};
        case 28: return cReportRun::Cell{fieldText(m_rows, u"RaceCount"_s), u"center"_s};
        case 29: return counted(m_results.poles(m_leagueNmbr, car()));
        case 18: return counted(m_results.wins(m_leagueNmbr, car()));
        case 19: return counted(m_results.top5s(m_leagueNmbr, car()));
        case 20: return counted(m_results.top10s(m_leagueNmbr, car()));
        case 30: return cReportRun::Cell{average(m_rows, u"PlaceSum"_s), u"right"_s};
        case 36: return cReportRun::Cell{average(m_rows, u"QualifiedSum"_s), u"right"_s};
        case 37: return cReportRun::Cell{fieldText(m_rows, u"LapsLedSum"_s), u"right"_s};
        default: return std::nullopt;
        }
    }

    int16_t car() const { return m_rows.fields(u"car_nmbr"_s).toInt16(); }
    static cReportRun::Cell counted(int32_t count) { return {sqlNumber(count), u"center"_s}; }

    cReportRun& m_run;
    IDatabase& m_rows;
    int16_t m_leagueNmbr;
    cResults m_results;
};

} // namespace

QString driverStatsReport(int16_t leagueNmbr, bool launch)
{
    return runReportEntry([&] {
        cReportRun run(u"DS"_s);
        IDatabase rows;
        // No results: no file, no message, and the name stays empty.
        if (!rows.OpenResultSet(driverStatsStatement(leagueNmbr)) || rows.eof())
            return run.finish(false);
        run.open(leagueNmbr);
        cDriverStatsPage(run, rows, leagueNmbr).write();
        return run.finish(launch);
    });
}
