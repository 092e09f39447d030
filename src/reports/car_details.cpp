#include "reports/car_details.h"
#include "league/record.h"
#include "reports/car_columns.h"
#include "reports/report_page.h"

using namespace Qt::StringLiterals;

namespace {

// The cars and drivers of the league's series (not the top bonus entries). The numbers are
// text, so "11" comes before "2".
QString carDetailsStatement(int16_t leagueNmbr)
{
    return u"SELECT cars.*, league_name"_s
           u" FROM cars, leagues"_s
           u" WHERE cars.race_type_nmbr = leagues.race_type_nmbr"_s
           u" AND leagues.league_nmbr = "_s +
           sqlNumber(leagueNmbr) +
           u" AND cars.car_type_nmbr in (1,2) "_s
           u" ORDER BY car_txt"_s;
}

void writeCarDetailsPage(cReportRun& run, IDatabase& rows)
{
    run.writeHead();
    run.line(u"<br>"_s);
    run.writeHeaderImage();
    run.writeTitle(rows.fields(u"league_name"_s).toTextOrEmpty());
    run.writeTableTag();
    run.writeEmptyRow();
    run.writeHeadingRow([](int16_t column) { return carHeading(column, CarColumns::WithGroup); });
    int64_t rowCount = 1;
    for (; !rows.eof(); rows.MoveNext())
        run.writeDataRow(rowCount++, [&rows](int16_t column) { return carCell(rows, column, CarColumns::WithGroup); });
    run.line(u"</TABLE>"_s);
    run.writeFooter();
    run.writeClosing();
}

} // namespace

QString carDetailsReport(int16_t leagueNmbr, bool launch)
{
    return runReportEntry([&] {
        cReportRun run(u"CD"_s);
        IDatabase rows;
        const bool opened = rows.OpenResultSet(carDetailsStatement(leagueNmbr));
        run.open(leagueNmbr);
        if (!opened || rows.eof())
            return run.finishEmpty(opened && launch ? noCarsMessage() : QString());
        writeCarDetailsPage(run, rows);
        return run.finish(launch);
    });
}
