#include "reports/league_standings.h"
#include "league/league.h"
#include "racing/races.h"
#include "racing/scoring_points.h"
#include "racing/standings.h"
#include "racing/team_results.h"
#include "reports/race_detail.h"
#include "reports/report_page.h"
#include "store/dates.h"

using namespace Qt::StringLiterals;

namespace {

std::optional<QString> heading(int16_t column)
{
    switch (column) {
    case 13: return u"<BR><BR>Place"_s;
    case 33: return u"<BR><BR>Team"_s;
    case 34: return u"<BR>Team<BR>Owner"_s;
    case 14: return u"<BR>Prev.<BR>Place"_s;
    case 9: return u"<BR>Season<BR>Points"_s;
    case 15: return u"<BR>Team<BR>Wins"_s;
    case 16: return u"<BR>Team<BR>Top 5's"_s;
    case 17: return u"<BR>Team<BR>Top 10's"_s;
    case 18: return u"Car<BR>Driver<BR>Wins"_s;
    case 19: return u"Car<BR>Driver<BR>Top 5's"_s;
    case 20: return u"Car<BR>Driver<BR>Top 10's"_s;
    case 21: return u"Points<BR>Last<BR>Race"_s;
    case 22: return u"Points<BR>out of<BR>Lead"_s;
    default: return std::nullopt;
    }
}

// The rows of the table: one per team in the scoring method's order, places counted from 1.
class cStandingsRows {
public:
    cStandingsRows(cReportRun& run, const cLeague& league, int16_t raceNmbr)
        : m_run(run), m_league(league), m_raceNmbr(raceNmbr)
    {
    }

    void write()
    {
        cScoringPointsCollection method;
        method.load(m_league.scoringTypeNmbr());
        const bool highScore = method.highScore();
        cLeagueStandingsCollection standings;
        standings.load(m_league.leagueNmbr(), m_raceNmbr, highScore);
        m_previous.loadPrevious(m_league.leagueNmbr(), m_raceNmbr, highScore);

        int16_t place = 0;
        int32_t leaderPoints = 0;
        bool first = true;
        for (const cLeagueStandings& line : standings) {
            if (first) {
                leaderPoints = line.points();
                first = false;
            }
            m_line = &line;
            m_pointsOutOfLead = leaderPoints - line.points();
            place = checkedNarrow<int16_t>(place + 1);
            m_place = place;
            m_run.writeDataRow(place, [this](int16_t column) { return cell(column); });
        }
    }

private:
    // The team's page of the race, written now, as the target of the link.
    QString teamLink(const QString& text) const
    {
        const QString file = teamRaceDetailReport(m_league.leagueNmbr(), m_line->teamNmbr(), m_raceNmbr, false);
        return u"<A HREF='"_s + file + u"'>"_s + text + u" </A>"_s;
    }

    std::optional<cReportRun::Cell> cell(int16_t column)
    {
        const int16_t team = m_line->teamNmbr();
        const auto centered = [](int64_t value) { return cReportRun::Cell{sqlNumber(value), u"center"_s}; };
        switch (column) {
        case 13: return centered(m_place);
        case 33: return cReportRun::Cell{teamLink(m_line->teamName()), u"left"_s};
        case 34: return cReportRun::Cell{teamLink(m_line->teamOwner()), u"left"_s};
        case 14: return centered(m_previous.placeForTeam(team));
        case 9: return centered(m_line->points());
        case 15: return centered(cTeamResultsSummary().wins(m_league, team, m_raceNmbr));
        case 16: return centered(cTeamResultsSummary().top5s(m_league, team, m_raceNmbr));
        case 17: return centered(cTeamResultsSummary().top10s(m_league, team, m_raceNmbr));
        case 18: return centered(cTeamResults().wins(m_league, team, m_raceNmbr));
        case 19: return centered(cTeamResults().top5s(m_league, team, m_raceNmbr));
        case 20: return centered(cTeamResults().top10s(m_league, team, m_raceNmbr));
        case 21:
            return centered(cTeamResultsSummary().pointsForMostRecentRace(m_league.leagueNmbr(), team, m_raceNmbr));
        case 22: return centered(m_pointsOutOfLead);
        default: return std::nullopt;
        }
    }

    cReportRun& m_run;
    const cLeague& m_league;
    int16_t m_raceNmbr;
    cLeagueStandingsCollection m_previous;
    const cLeagueStandings* m_line = nullptr;
    int16_t m_place = 0;
    int32_t m_pointsOutOfLead = 0;
};

} // namespace

QString leagueStandingsReport(int16_t leagueNmbr, int16_t raceNmbr, bool launch)
{
    return runReportEntry([&] {
        cReportRun run(u"LS"_s);
        run.open(leagueNmbr, raceNmbr);
        cLeague league;
        league.load(leagueNmbr);
        cRaces race;
        race.load(raceNmbr);

        run.writeHead();
        run.line(u"<br>"_s);
        run.writeHeaderImage();
        run.writeTitle(league.leagueName().trimmed());
        run.writeTitle(u"League standings as of"_s + u"<BR>"_s + shortDate(race.raceDate()) + u"   "_s + race.raceName(), 2);
        if (race.raceStatusNmbr() == 1) {
            run.line(u"<br>"_s);
            run.writeTitle(u"Unofficial"_s, 3);
        }
        run.writeTableTag();
        run.writeEmptyRow();
        run.writeHeadingRow(heading);
        cStandingsRows(run, league, raceNmbr).write();
        run.line(u"</TABLE>"_s);
        run.writeFooter();
        run.writeClosing();
        return run.finish(launch);
    });
}
