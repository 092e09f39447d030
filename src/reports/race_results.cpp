#include "reports/race_results.h"
#include "league/record.h"
#include "reports/report_page.h"
#include "store/dates.h"

using namespace Qt::StringLiterals;

namespace {

// The race's result rows with their cars, in finishing order.
QString raceResultsStatement(int16_t raceNmbr)
{
    return u"SELECT D.car_txt, D.driver_name, D.sponsor, E.race_dt, E.race_name, E.track_name, E.race_nmbr, F.place, "_s
           u"F.qualified, F.laps_led, F.fast_qual,E.race_status_nmbr"_s
           u" FROM cars D, races E, results F"_s
           u" WHERE F.race_nmbr = "_s + sqlNumber(raceNmbr) +
           u" AND F.car_nmbr = D.car_nmbr"_s
           u" AND F.race_nmbr = E.race_nmbr"_s
           u" ORDER BY F.place"_s;
}

std::optional<QString> heading(int16_t column)
{
    switch (column) {
    case 1: return u"<BR>Place"_s;
    case 25: return u"<BR>Qualified"_s;
    case 2: return u"<BR>Car#"_s;
    case 3: return u"<BR>Driver"_s;
    case 4: return u"<BR>Sponsor"_s;
    case 26: return u"Laps<BR> Led"_s;
    case 27: return u"Fast<BR> Qualifier"_s;
    default: return std::nullopt;
    }
}

// A car that did not qualify (place 999) shows "DNQ", a car or a driver alike.
QString placeText(const IDatabase& rows)
{
    const cVariant& place = rows.fields(u"place"_s);
    if (!place.isNull() && place.toInt16() == 999)
        return u"DNQ"_s;
    return place.toTextOrEmpty();
}

QString fastQualifierText(const IDatabase& rows)
{
    const cVariant& fastQual = rows.fields(u"fast_qual"_s);
    return !fastQual.isNull() && fastQual.toInt16() != 0 ? u"X"_s : QString();
}

std::optional<cReportRun::Cell> cell(const IDatabase& rows, int16_t column)
{
    switch (column) {
    case 1: return cReportRun::Cell{placeText(rows), u"center"_s};
    case 25: return cReportRun::Cell{fieldText(rows, u"qualified"_s), u"center"_s};
    case 2: return cReportRun::Cell{fieldText(rows, u"car_txt"_s), u"center"_s};
    case 3: return cReportRun::Cell{fieldText(rows, u"driver_name"_s), u"left"_s};
    case 4: return cReportRun::Cell{fieldText(rows, u"sponsor"_s), u"left"_s};
    case 26: return cReportRun::Cell{fieldText(rows, u"laps_led"_s), u"center"_s};
    case 27: return cReportRun::Cell{fastQualifierText(rows), u"center"_s};
    default: return std::nullopt;
    }
}

// Titled by the race (its name, then its date and track), then the race's status line.
void writePage(cReportRun& run, IDatabase& rows)
{
    if (rows.eof()) {
        run.writeSorry(true);
        run.writeClosing();
        return;
    }
    run.writeHead();
    run.writeHeaderImage();
    run.writeTitle(fieldText(rows, u"race_name"_s));
    run.writeTitle(shortDate(parseDate(fieldText(rows, u"race_dt"_s))) + u"   "_s + fieldText(rows, u"track_name"_s), 2);
    const cVariant& status = rows.fields(u"race_status_nmbr"_s);
    run.writeRaceStatus(status.isNull() ? int16_t(0) : status.toInt16());
    run.line(u"<br>"_s);
    run.writeTableTag();
    run.writeHeadingRow(heading, QString());
    int64_t rowCount = 1;
    for (; !rows.eof(); rows.MoveNext())
        run.writeDataRow(rowCount++, [&rows](int16_t column) { return cell(rows, column); });
    run.line(u"</TABLE>"_s);
    run.writeFooter();
    run.writeClosing();
}

} // namespace

QString raceResultsReport(int16_t raceNmbr, bool launch)
{
    return runReportEntry([&] {
        cReportRun run(u"RR"_s);
        IDatabase rows;
        if (!rows.OpenResultSet(raceResultsStatement(raceNmbr)) || rows.eof())
            return run.finish(false);
        run.open(raceNmbr);
        writePage(run, rows);
        return run.finish(launch);
    });
}
