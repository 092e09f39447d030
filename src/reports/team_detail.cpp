#include "reports/team_detail.h"
#include "base/messages.h"
#include "league/league.h"
#include "racing/races.h"
#include "racing/scoring_points.h"
#include "racing/team_results.h"
#include "reports/race_rows.h"
#include "reports/report_page.h"
#include "reports/report_tags.h"
#include "reports/team_runs.h"
#include "store/dates.h"

using namespace Qt::StringLiterals;

namespace {

// The league's rows of the race with each pair's latest roster entry, team by team, each team's
// best car first.
QString teamDetailStatement(int16_t leagueNmbr, int16_t teamNmbr, int16_t raceNmbr, bool allTeams, bool highScore)
{
    QString statement =
        u"SELECT D.car_nmbr, D.car_txt, D.driver_name, D.sponsor, A.place, A.laps_led_bonus, A.most_laps_led_bonus, "_s
        u"A.fast_qual_bonus,G.league_name, G.league_nmbr, A.points, A.total_points, E.race_dt, E.race_name, "_s
        u"E.track_name, F.team_name, E.race_nmbr, F.team_owner, A.total_points, A.qual_points, F.team_nmbr, "_s
        u"G.scoring_type_nmbr,B.term_dt,B.efctv_dt,A.adjustment, F.email, F.phone"_s +
        raceRowsFrom(leagueNmbr, raceNmbr) + u" AND D.car_type_nmbr in (1,2) "_s;
    if (!allTeams)
        statement += u" AND B.team_nmbr = "_s + sqlNumber(teamNmbr);
    statement += latestRosterEntryCondition();
    statement += highScore ? u" ORDER BY F.team_nmbr, A.total_points DESC"_s : u" ORDER BY F.team_nmbr, A.total_points ASC"_s;
    return statement;
}

int32_t number(const IDatabase& rows, const QString& field)
{
    const cVariant& value = rows.fields(field);
    return value.isNull() ? 0 : value.toInt32();
}

std::optional<QString> heading(int16_t column)
{
    switch (column) {
    case 2: return u"<BR><BR>Car#"_s;
    case 3: return u"<BR><BR>Driver"_s;
    case 4: return u"<BR><BR>Sponsor"_s;
    case 5: return u"Car/Driver<BR>Termination<BR>Date"_s;
    case 6: return u"<BR>Lap Led<BR>Bonus"_s;
    case 7: return u"Most<BR>Laps Led<BR>Bonus"_s;
    case 9: return u"<BR>Season <BR>Points"_s;
    case 21: return u"Points<BR>Last<BR>Race"_s;
    case 22: return u"Points<BR>Out of <BR> Lead"_s;
    case 31: return u"Fast <BR>Qualifier<BR>Bonus"_s;
    case 32: return u"<BR>Qualifing<BR>Bonus"_s;
    case 35: return u"<BR><BR>Adjustment"_s;
    default: return std::nullopt;
    }
}

class cTeamDetailPage {
public:
    cTeamDetailPage(cReportRun& run, IDatabase& rows, const cLeague& league) : m_run(run), m_rows(rows), m_league(league)
    {
    }

    void write()
    {
        if (m_rows.eof()) {
            m_run.writeSorry();
            m_run.writeClosing();
            return;
        }
        // The season's rows up to the race feed the bonus sums.
        cRaces race;
        race.load(m_rows.fields(u"race_nmbr"_s).toInt16());
        m_season.loadPreviousRaces(m_league, race);
        const bool activeOnly = m_run.attributes().includeActiveOnly(m_run.id());

        m_run.writeHead();
        m_run.writeHeaderImage();
        m_run.writeEmptyRow();
        m_run.line(u"<br>"_s);
        m_run.writeTitle(fieldText(m_rows, u"league_name"_s));
        m_run.writeTitle(u"Points after "_s + fieldText(m_rows, u"race_name"_s), 2);
        m_run.line(u"<p></p>"_s);
        m_run.writeTableTag();

        bool first = true;
        int16_t teamNmbr = 0;
        int64_t rowCount = 1;
        for (; !m_rows.eof(); m_rows.MoveNext()) {
            if (!passesActiveTest(m_rows, activeOnly))
                continue;
            const int16_t rowTeam = m_rows.fields(u"team_nmbr"_s).toInt16();
            if (first || rowTeam != teamNmbr) {
                writeTeamHead();
                m_run.writeHeadingRow(heading, QString());
                m_lead = number(m_rows, u"total_points"_s);
                teamNmbr = rowTeam;
                first = false;
            }
            m_run.writeDataRow(rowCount++, [this](int16_t column) { return cell(column); });
        }
        m_run.line(u"</TABLE>"_s);
        m_run.writeFooter();
        m_run.writeClosing();
    }

private:
    std::optional<cReportRun::Cell> cell(int16_t column)
    {
        const auto right = [](int64_t value) { return cReportRun::Cell{sqlNumber(value), u"right"_s}; };
        const int16_t team = m_rows.fields(u"team_nmbr"_s).toInt16();
        const int16_t car = m_rows.fields(u"car_nmbr"_s).toInt16();
        switch (column) {
        case 2: return cReportRun::Cell{fieldText(m_rows, u"car_txt"_s), u"center"_s};
        case 3: return cReportRun::Cell{fieldText(m_rows, u"driver_name"_s), u"left"_s};
        case 4: return cReportRun::Cell{fieldText(m_rows, u"sponsor"_s), u"left"_s};
        case 5: return cReportRun::Cell{shortDate(parseDate(fieldText(m_rows, u"term_dt"_s))), u"center"_s};
        case 6: return right(m_season.sumLapsLedBonus(team, car));
        case 7: return right(m_season.sumMostLapsLedBonus(team, car));
        case 9: return cReportRun::Cell{fieldText(m_rows, u"total_points"_s), u"right"_s};
        case 21: return cReportRun::Cell{fieldText(m_rows, u"points"_s), u"right"_s};
        case 22: return right(int64_t(m_lead) - number(m_rows, u"total_points"_s));
        case 31: return right(m_season.sumFastQualBonus(team, car));
        case 32: return right(m_season.sumQualPoints(team, car));
        case 35: return cReportRun::Cell{fieldText(m_rows, u"adjustment"_s), u"right"_s};
        default: return std::nullopt;
        }
    }

    // The team's name across the table in the heading look, with a row for its e-mail (column
    // 38) and one for its phone (column 39) when chosen.
    void writeTeamHead()
    {
        writeTeamHeadRow(u"<STRONG>"_s + fieldText(m_rows, u"team_name"_s) + u"</STRONG>"_s);
        const std::vector<int16_t>& columns = m_run.columns();
        if (std::find(columns.begin(), columns.end(), int16_t(38)) != columns.end()) {
            const QString email = fieldText(m_rows, u"email"_s);
            writeTeamHeadRow(u"<a href='mailto:"_s + email + u"'>"_s + email + u"</a>"_s);
        }
        if (std::find(columns.begin(), columns.end(), int16_t(39)) != columns.end())
            writeTeamHeadRow(fieldText(m_rows, u"phone"_s));
    }

    void writeTeamHeadRow(const QString& cellText)
    {
        cReportAttributesCollection& look = m_run.attributes();
        const QString& id = m_run.id();
        m_run.line(tableRowTag(look.headingBackColor(id)));
        m_run.line(headerCell(checkedNarrow<int16_t>(m_run.titleTextSize() - 4), look.headingTextColor(id), cellText,
                              u"left"_s, checkedNarrow<int16_t>(m_run.columnCount()), u"nowrap"_s));
        m_run.line(u"</TR>"_s);
    }

    cReportRun& m_run;
    IDatabase& m_rows;
    const cLeague& m_league;
    cTeamResultsCollection m_season;
    int32_t m_lead = 0;
};

// One file: the given team, or with allTeams every team of the league.
QString runTeamDetail(const cLeague& league, int16_t teamNmbr, int16_t raceNmbr, bool launch, bool allTeams)
{
    cReportRun run(u"TD"_s);
    cScoringPointsCollection method;
    method.load(league.scoringTypeNmbr());
    IDatabase rows;
    if (!rows.OpenResultSet(teamDetailStatement(league.leagueNmbr(), teamNmbr, raceNmbr, allTeams, method.highScore())) ||
        rows.eof()) {
        if (launch)
            messageBox(u"Results not posted for this Race."_s, u"Lapkeeper"_s, Icon::Information);
        run.finish(false);
        return {};
    }
    run.open(league.leagueNmbr(), teamNmbr);
    cTeamDetailPage(run, rows, league).write();
    return run.finish(launch);
}

} // namespace

QString teamDetailReport(int16_t leagueNmbr, int16_t teamNmbr, int16_t raceNmbr, bool launch, bool allTeams,
                         bool separate)
{
    return runReportEntry([&] {
        cLeague league;
        league.load(leagueNmbr);
        league.setLeagueNmbr(leagueNmbr);
        return runForTeams(leagueNmbr, teamNmbr, allTeams, separate, [&](int16_t team, bool all) {
            return runTeamDetail(league, team, raceNmbr, launch, all);
        });
    });
}
