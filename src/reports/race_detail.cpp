#include "reports/race_detail.h"
#include "base/messages.h"
#include "reports/race_rows.h"
#include "reports/report_page.h"
#include "reports/report_tags.h"
#include "store/dates.h"

using namespace Qt::StringLiterals;

namespace {

// The rows of one league's race, each with the roster entry the car was on the team by (the
// pair's latest entry). teamNmbr limits them to one team.
QString raceRowsStatement(int16_t leagueNmbr, int16_t raceNmbr, std::optional<int16_t> teamNmbr)
{
    QString statement =
        u"SELECT D.car_txt, D.driver_name, D.sponsor, A.place, A.laps_led_bonus, A.most_laps_led_bonus, "_s
        u"A.fast_qual_bonus, G.league_name, A.points, A.total_points, E.race_dt, E.race_name, E.track_name, "_s
        u"F.team_name, C.team_place, E.race_nmbr, A.current_status, F.team_owner, A.qual_points, "_s
        u"G.scoring_type_nmbr, B.term_dt, B.efctv_dt, A.adjustment, "_s +
        (teamNmbr ? u"F.email, F.phone, D.car_type_nmbr,E.race_status_nmbr"_s : u"D.car_type_nmbr,E.race_status_nmbr"_s) +
        raceRowsFrom(leagueNmbr, raceNmbr);
    if (teamNmbr) {
        const QString team = sqlNumber(*teamNmbr);
        statement += u" AND C.team_nmbr = "_s + team + u" AND A.team_nmbr = "_s + team + u" AND B.team_nmbr = "_s + team;
    }
    statement += latestRosterEntryCondition();
    statement += teamNmbr
                     ? u" ORDER BY C.team_place,F.team_name, D.car_type_nmbr desc, A.current_status, B.term_dt, A.place"_s
                     : u" ORDER BY C.team_place, F.team_name, D.car_type_nmbr desc, A.current_status, A.place"_s;
    return statement;
}

// Finish position: "DNQ" for a car or driver that did not qualify, nothing for no place.
QString finishCell(const IDatabase& rows)
{
    const cVariant& place = rows.fields(u"place"_s);
    const int16_t value = place.isNull() ? int16_t(0) : place.toInt16();
    const cVariant& carType = rows.fields(u"car_type_nmbr"_s);
    const int16_t type = carType.isNull() ? int16_t(0) : carType.toInt16();
    if (value == 999 && (type == 1 || type == 2))
        return u"DNQ"_s;
    if (value == 0 || value == 999)
        return {};
    return sqlNumber(value);
}

// The page of Race Detail, and of Team Race Detail for one team.
class cRaceDetailPage {
public:
    cRaceDetailPage(cReportRun& run, IDatabase& rows, bool oneTeam) : m_run(run), m_rows(rows), m_oneTeam(oneTeam) {}

    void write()
    {
        if (m_rows.eof()) {
            m_run.writeSorry();
            m_run.writeClosing();
            return;
        }
        cReportAttributesCollection& look = m_run.attributes();
        const QString& id = m_run.id();
        m_activeOnly = look.includeActiveOnly(id);
        const QString leagueName = fieldText(m_rows, u"league_name"_s);
        const QString raceName = fieldText(m_rows, u"race_name"_s);

        m_run.writeHead();
        m_run.writeHeaderImage();
        m_run.writeEmptyRow();
        m_run.line(u"<br>"_s);
        m_run.writeTitle(leagueName);
        m_run.line(u"<br>"_s);
        m_run.writeTitle(raceName, 2);
        const cVariant& status = m_rows.fields(u"race_status_nmbr"_s);
        m_run.writeRaceStatus(status.isNull() ? int16_t(0) : status.toInt16());
        m_run.writeTableTag();
        m_run.writeHeadingRow([this](int16_t column) { return heading(column); }, QString());

        QString teamName = fieldText(m_rows, u"team_name"_s);
        writeTeamRow(teamName);
        int64_t rowCount = 1;
        for (; !m_rows.eof(); m_rows.MoveNext()) {
            // Teams are told apart by name.
            if (const QString name = fieldText(m_rows, u"team_name"_s); name != teamName) {
                writeTotalRow();
                m_run.writeEmptyRow();
                m_racePoints = 0;
                m_seasonPoints = 0;
                teamName = name;
                writeTeamRow(teamName);
            }
            if (passesActiveTest(m_rows, m_activeOnly)) {
                m_run.writeDataRow(rowCount, [this](int16_t column) { return cell(column); });
                ++rowCount;
            }
            m_racePoints += m_rows.fields(u"points"_s).isNull() ? 0 : m_rows.fields(u"points"_s).toInt32();
            m_seasonPoints += m_rows.fields(u"total_points"_s).isNull() ? 0 : m_rows.fields(u"total_points"_s).toInt32();
        }
        writeTotalRow();
        m_run.line(u"</FONT>"_s);
        m_run.line(u"</TABLE>"_s);
        m_run.writeFooter();
        m_run.writeClosing();
    }

private:
    std::optional<QString> heading(int16_t column) const
    {
        switch (column) {
        case 1: return u"<BR>Finish<BR>Pos."_s;
        case 2: return u"<BR><BR>Car#"_s;
        case 3: return u"<BR><BR>Driver"_s;
        case 4: return u"<BR><BR>Sponsor"_s;
        case 5: return u"Car/Driver<BR>Termination<BR>Date"_s;
        case 6: return u"<BR>Lap Led<BR>Bonus"_s;
        case 7: return u"Most<BR>Laps Led<BR>Bonus"_s;
        case 8: return u"<BR>Race<BR>Points"_s;
        case 9: return u"<BR>Season <BR>Points"_s;
        case 10: return m_oneTeam ? u"Car/Driver<BR>Effective<BR>Date"_s : u"Car/Driver<BR>Effective <BR>Date"_s;
        case 31: return u"Fast <BR>Qualifier<BR>Bonus"_s;
        case 32: return u"<BR>Qualifing<BR>Bonus"_s;
        case 35: return u"<BR><BR>Adjustment"_s;
        default: return std::nullopt;
        }
    }

    std::optional<cReportRun::Cell> cell(int16_t column) const
    {
        switch (column) {
        case 1: return cReportRun::Cell{finishCell(m_rows), u"center"_s};
        case 2: return cReportRun::Cell{fieldText(m_rows, u"car_txt"_s), u"center"_s};
        case 3: return cReportRun::Cell{fieldText(m_rows, u"driver_name"_s), u"left"_s};
        case 4: return cReportRun::Cell{fieldText(m_rows, u"sponsor"_s).trimmed(), u"left"_s};
        case 5: return cReportRun::Cell{shortDate(parseDate(fieldText(m_rows, u"term_dt"_s))), u"center"_s};
        case 6: return cReportRun::Cell{fieldText(m_rows, u"laps_led_bonus"_s), u"right"_s};
        case 7: return cReportRun::Cell{fieldText(m_rows, u"most_laps_led_bonus"_s), u"right"_s};
        case 8: return cReportRun::Cell{fieldText(m_rows, u"points"_s), u"right"_s};
        case 9: return cReportRun::Cell{fieldText(m_rows, u"total_points"_s), u"right"_s};
        case 10: return cReportRun::Cell{fieldText(m_rows, u"efctv_dt"_s), u"center"_s};
        case 31: return cReportRun::Cell{fieldText(m_rows, u"fast_qual_bonus"_s), u"right"_s};
        case 32: return cReportRun::Cell{fieldText(m_rows, u"qual_points"_s), u"right"_s};
        case 35: return cReportRun::Cell{fieldText(m_rows, u"adjustment"_s), u"right"_s};
        default: return std::nullopt;
        }
    }

    void writeTeamRow(const QString& teamName)
    {
        cReportAttributesCollection& look = m_run.attributes();
        const QString& id = m_run.id();
        m_run.line(tableRowTag(look.headingBackColor(id)));
        m_run.line(headerCell(m_run.headingTextSize(), look.headingTextColor(id), teamName, u"left"_s,
                              checkedNarrow<int16_t>(m_run.columnCount()), u"NOWRAP"_s));
        m_run.line(u"</TR>"_s);
    }

    // The team's sums under the points columns. The row has no cell for Adjustment, so with
    // that column chosen it is one cell short.
    void writeTotalRow()
    {
        cReportAttributesCollection& look = m_run.attributes();
        const QString& id = m_run.id();
        const int16_t size = m_run.headingTextSize();
        const QString color = look.headingTextColor(id);
        const QString open = m_oneTeam ? u"<STRONG>"_s : u"<B>"_s;
        const QString close = m_oneTeam ? u"</STRONG>"_s : u"</B>"_s;
        m_run.line(tableRowTag(look.headingBackColor(id)));
        for (const int16_t column : m_run.columns()) {
            switch (column) {
            case 1: case 2: case 3: case 4: case 5: case 6: case 7: case 10: case 31: case 32:
                m_run.line(u"<TD></TD>"_s);
                break;
            case 8:
                m_run.line(dataCell(size, color, open + sqlNumber(m_racePoints) + close, u"right"_s, u"1"_s));
                break;
            case 9:
                m_run.line(dataCell(size, color, open + sqlNumber(m_seasonPoints) + close, u"right"_s, u"1"_s));
                break;
            default:
                break;
            }
        }
        m_run.line(u"</TR>"_s);
    }

    cReportRun& m_run;
    IDatabase& m_rows;
    bool m_oneTeam;
    bool m_activeOnly = false;
    int64_t m_racePoints = 0;
    int64_t m_seasonPoints = 0;
};

QString runRaceDetail(const QString& reportId, int16_t leagueNmbr, int16_t raceNmbr, std::optional<int16_t> teamNmbr,
                      bool launch)
{
    return runReportEntry([&] {
        cReportRun run(reportId);
        IDatabase rows;
        if (!rows.OpenResultSet(raceRowsStatement(leagueNmbr, raceNmbr, teamNmbr)) || rows.eof()) {
            if (launch)
                messageBox(u"Results not posted for this Race."_s, u"Lapkeeper"_s, Icon::Information);
            return run.finish(false);
        }
        run.open(leagueNmbr, teamNmbr ? *teamNmbr : raceNmbr);
        cRaceDetailPage(run, rows, teamNmbr.has_value()).write();
        return run.finish(launch);
    });
}

} // namespace

QString raceDetailReport(int16_t leagueNmbr, int16_t raceNmbr, bool launch)
{
    return runRaceDetail(u"RD"_s, leagueNmbr, raceNmbr, std::nullopt, launch);
}

QString teamRaceDetailReport(int16_t leagueNmbr, int16_t teamNmbr, int16_t raceNmbr, bool launch)
{
    return runRaceDetail(u"TR"_s, leagueNmbr, raceNmbr, teamNmbr, launch);
}
