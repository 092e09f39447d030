#include "racing/standings.h"
#include "base/messages.h"
#include "league/league.h"
#include "league/league_teams.h"
#include "racing/races.h"
#include "racing/scoring_points.h"

using namespace Qt::StringLiterals;

namespace {
bool highScoreOf(const cLeague& league)
{
    cScoringPointsCollection points;
    points.load(league.scoringTypeNmbr());
    return points.highScore();
}
} // namespace

// ---------------------------------------------------------------- cTeamResultsSummary

bool cTeamResultsSummary::insertRow()
{
    return m_db.execute(u"INSERT INTO team_results_summary  (race_nmbr, team_nmbr, league_nmbr, points, team_place) VALUES ("_s +
                        sqlNumber(m_raceNmbr) + u","_s + sqlNumber(m_teamNmbr) + u","_s + sqlNumber(m_leagueNmbr) + u","_s + sqlNumber(m_points) +
                        u","_s + sqlNumber(m_teamPlace) + u")"_s);
}

int32_t cTeamResultsSummary::pointsForRace(int16_t leagueNmbr, int16_t teamNmbr, int16_t raceNmbr)
{
    if (!m_db.OpenResultSet(u" SELECT sum(points) as sum_points  FROM team_results A  WHERE A.league_nmbr = "_s +
                            sqlNumber(leagueNmbr) + u" AND A.team_nmbr = "_s + sqlNumber(teamNmbr) + u" AND A.race_nmbr = "_s +
                            sqlNumber(raceNmbr)) ||
        m_db.eof() || m_db.fields(u"sum_points"_s).isNull())
        return 0;
    return m_db.fields(u"sum_points"_s).toInt32();
}

int32_t cTeamResultsSummary::pointsForMostRecentRace(int16_t leagueNmbr, int16_t teamNmbr, int16_t raceNmbr)
{
    if (!m_db.OpenResultSet(
            u" SELECT points  FROM team_results_summary A, races B, leagues C WHERE A.league_nmbr = "_s + sqlNumber(leagueNmbr) +
            u" AND A.team_nmbr = "_s + sqlNumber(teamNmbr) +
            u" AND A.race_nmbr = B.race_nmbr  AND A.league_nmbr = C.league_nmbr  AND B.race_type_nmbr = C.race_type_nmbr  AND B.car_type_nmbr = C.car_type_nmbr  AND B.race_dt =    (SELECT MAX(race_dt)     FROM races, team_results     WHERE race_type_nmbr = B.race_type_nmbr     AND races.race_nmbr = team_results.race_nmbr    AND races.race_dt <=       (SELECT race_dt       FROM races       WHERE race_nmbr = "_s +
            sqlNumber(raceNmbr) + u"))"_s) ||
        m_db.eof())
        return 0;
    return m_db.fields(u"points"_s).toInt32();
}

bool cTeamResultsSummary::postForLeague(const cLeague& league, const cRaces& race)
{
    const QString raceText = sqlNumber(race.raceNmbr());
    const QString leagueText = sqlNumber(league.leagueNmbr());
    const bool posted = m_db.execute(
        u" INSERT INTO team_results_summary  ( race_nmbr  , team_place  , team_nmbr  , points  , league_nmbr )  SELECT "_s +
        raceText + u" , 0  , team_results.team_nmbr  , SUM(team_results.points)  , "_s + leagueText +
        u" From team_results WHERE team_results.race_nmbr = "_s + raceText + u" AND team_results.league_nmbr = "_s +
        leagueText + u" GROUP BY league_nmbr, team_nmbr "_s);

    // A team that joined late, or had an empty roster, gets a 0 line for every earlier race of
    // the type that has a winner (the races loadPreviouRacesWithResults lists), when it has none.
    // One statement finds and writes them all; the summary's key skips a race listed twice.
    m_db.execute(u" INSERT INTO team_results_summary  (race_nmbr, team_nmbr, league_nmbr, points, team_place)  SELECT DISTINCT races.race_nmbr, league_teams.team_nmbr, "_s +
                 leagueText +
                 u", 0, 0  FROM races, results, league_teams, teams  WHERE races.race_dt <    (SELECT race_dt    FROM races    WHERE race_nmbr = "_s +
                 raceText +
                 u")  AND races.race_type_nmbr =    (SELECT race_type_nmbr    FROM races    WHERE race_nmbr = "_s +
                 raceText +
                 u")  AND races.race_nmbr = results.race_nmbr  AND results.place = 1  AND league_teams.league_nmbr = "_s +
                 leagueText +
                 u"  AND teams.team_nmbr = league_teams.team_nmbr  AND NOT EXISTS (SELECT *  FROM team_results_summary s  WHERE s.league_nmbr = "_s +
                 leagueText + u"  AND s.race_nmbr = races.race_nmbr  AND s.team_nmbr = league_teams.team_nmbr)"_s);
    return posted;
}

bool cTeamResultsSummary::setPlace(const cLeague& league, const cRaces& race)
{
    const bool highScore = highScoreOf(league);
    cTeamResultsSummaryCollection rows;
    rows.load(league.leagueNmbr(), race.raceNmbr(), std::nullopt, highScore);
    int16_t position = 1;
    int32_t previousPoints = 0;
    int16_t place = 0;
    // Starting from 0 points and place 0 is what leaves teams on 0 at the head unranked.
    for (const cTeamResultsSummary& row : rows) {
        if (row.points() != previousPoints)
            place = position;
        if (!m_db.execute(u" UPDATE team_results_summary SET team_place = "_s + sqlNumber(place) + u" WHERE team_nmbr = "_s +
                          sqlNumber(row.teamNmbr()) + u" AND league_nmbr = "_s + sqlNumber(league.leagueNmbr()) +
                          u" AND race_nmbr = "_s + sqlNumber(race.raceNmbr())))
            return false;
        previousPoints = row.points();
        position = checkedNarrow<int16_t>(position + 1);
        advanceProgress();
    }
    return true;
}

int16_t cTeamResultsSummary::topXs(int16_t x, const cLeague& league, int16_t teamNmbr, int16_t raceNmbr)
{
    if (!m_db.OpenResultSet(
            u" SELECT count(*) as count  FROM team_results_summary  WHERE league_nmbr = "_s + sqlNumber(league.leagueNmbr()) +
            u" AND team_nmbr = "_s + sqlNumber(teamNmbr) + u" AND team_place <= "_s + sqlNumber(x) +
            u" AND team_place > 0  AND race_nmbr in (         SELECT race_nmbr          FROM races          WHERE race_type_nmbr = "_s +
            sqlNumber(league.raceTypeNmbr()) + u"         AND car_type_nmbr = "_s + sqlNumber(league.carTypeNmbr()) +
            u"         AND race_dt <=                 (SELECT race_dt                 FROM races                 WHERE race_nmbr = "_s +
            sqlNumber(raceNmbr) + u"))"_s) ||
        m_db.eof())
        return 0;
    return m_db.fields(u"count"_s).toInt16();
}

int16_t cTeamResultsSummary::wins(const cLeague& league, int16_t teamNmbr, int16_t raceNmbr)
{
    return topXs(1, league, teamNmbr, raceNmbr);
}

int16_t cTeamResultsSummary::top5s(const cLeague& league, int16_t teamNmbr, int16_t raceNmbr)
{
    return topXs(5, league, teamNmbr, raceNmbr);
}

int16_t cTeamResultsSummary::top10s(const cLeague& league, int16_t teamNmbr, int16_t raceNmbr)
{
    return topXs(10, league, teamNmbr, raceNmbr);
}

int16_t cTeamResultsSummary::placePreviousRace(int16_t leagueNmbr, int16_t teamNmbr, int16_t raceNmbr)
{
    const QString league = sqlNumber(leagueNmbr);
    if (!m_db.OpenResultSet(
            u" SELECT team_place  FROM team_results_summary WHERE league_nmbr = "_s + league + u" AND team_nmbr = "_s +
            sqlNumber(teamNmbr) +
            u" AND race_nmbr =           (SELECT race_nmbr              FROM races, leagues             WHERE races.race_type_nmbr = leagues.race_type_nmbr               AND leagues.league_nmbr = "_s +
            league +
            u"              AND race_dt =                       (SELECT max(race_dt)                          FROM races, leagues                        WHERE races.race_type_nmbr = leagues.race_type_nmbr                           AND leagues.league_nmbr = "_s +
            league +
            u"                          AND race_dt <                                    (SELECT race_dt                                       FROM races                                      WHERE race_nmbr = "_s +
            sqlNumber(raceNmbr) + u")))"_s) ||
        m_db.eof())
        return 0;
    return m_db.fields(u"team_place"_s).toInt16();
}

// ---------------------------------------------------------------- cTeamResultsSummaryCollection

cTeamResultsSummary& cTeamResultsSummaryCollection::Add(int16_t raceNmbr, int16_t teamNmbr, int16_t leagueNmbr,
                                                        int32_t points, int16_t teamPlace, const QString& sKey)
{
    auto record = std::make_unique<cTeamResultsSummary>();
    record->setRaceNmbr(raceNmbr);
    record->setTeamNmbr(teamNmbr);
    record->setLeagueNmbr(leagueNmbr);
    record->setPoints(points);
    record->setTeamPlace(teamPlace);
    return append(std::move(record), sKey);
}

void cTeamResultsSummaryCollection::fill()
{
    while (!m_db.eof()) {
        Add(m_db.fields(u"race_nmbr"_s).toInt16(), m_db.fields(u"team_nmbr"_s).toInt16(),
            m_db.fields(u"league_nmbr"_s).toInt16(), m_db.fields(u"points"_s).toInt32(),
            m_db.fields(u"team_place"_s).toInt16());
        m_db.MoveNext();
    }
}

int32_t cTeamResultsSummaryCollection::loadWith(const QString& statement)
{
    if (m_db.OpenResultSet(statement) && !m_db.eof())
        fill();
    return loadedCount();
}

int32_t cTeamResultsSummaryCollection::load(int16_t leagueNmbr, std::optional<int16_t> raceNmbr,
                                            std::optional<int16_t> teamNmbr, bool highScore)
{
    QString sql = u" SELECT *  FROM team_results_summary  WHERE league_nmbr = "_s + sqlNumber(leagueNmbr);
    if (raceNmbr)
        sql += u" AND race_nmbr = "_s + sqlNumber(*raceNmbr);
    if (teamNmbr)
        sql += u" AND team_nmbr = "_s + sqlNumber(*teamNmbr);
    sql += highScore ? u" ORDER BY points desc"_s : u" ORDER BY points asc"_s;
    return loadWith(sql);
}

int32_t cTeamResultsSummaryCollection::loadTeam(int16_t teamNmbr)
{
    return loadWith(u" SELECT *  FROM team_results_summary  WHERE team_nmbr = "_s + sqlNumber(teamNmbr));
}

bool cTeamResultsSummaryCollection::leagueExists(int16_t leagueNmbr)
{
    if (Count() == 0)
        load(leagueNmbr);
    for (const cTeamResultsSummary& row : *this)
        if (row.leagueNmbr() == leagueNmbr)
            return true;
    return false;
}

bool cTeamResultsSummaryCollection::teamExists(int16_t teamNmbr)
{
    if (Count() == 0)
        loadTeam(teamNmbr);
    for (const cTeamResultsSummary& row : *this)
        if (row.teamNmbr() == teamNmbr)
            return true;
    return false;
}

// ---------------------------------------------------------------- cLeagueStandingsCollection

cLeagueStandings& cLeagueStandingsCollection::Add(int16_t teamNmbr, const QString& teamName, const QString& teamOwner,
                                                  int16_t raceTypeNmbr, int32_t points, const QString& sKey)
{
    auto record = std::make_unique<cLeagueStandings>();
    record->setTeamNmbr(teamNmbr);
    record->setTeamName(teamName);
    record->setTeamOwner(teamOwner);
    record->setRaceTypeNmbr(raceTypeNmbr);
    record->setPoints(points);
    return append(std::move(record), sKey);
}

void cLeagueStandingsCollection::fill()
{
    while (!m_db.eof()) {
        Add(m_db.fields(u"team_nmbr"_s).toInt16(), m_db.fields(u"team_name"_s).toTextOrEmpty(),
            m_db.fields(u"team_owner"_s).toTextOrEmpty(), m_db.fields(u"race_type_nmbr"_s).toInt16(),
            m_db.fields(u"sum_points"_s).toInt32());
        m_db.MoveNext();
    }
}

int32_t cLeagueStandingsCollection::loadTable(int16_t leagueNmbr, int16_t raceNmbr, std::optional<bool> highScore,
                                              const QString& dateTest)
{
    const QString sql =
        u" SELECT sum(points) as sum_points, teams.team_nmbr, team_name, team_owner, leagues.race_type_nmbr  From team_results_summary, teams, races, leagues  WHERE team_results_summary.league_nmbr = "_s +
        sqlNumber(leagueNmbr) +
        u" AND teams.team_nmbr = team_results_summary.team_nmbr  AND races.race_nmbr = team_results_summary.race_nmbr  AND leagues.league_nmbr = team_results_summary.league_nmbr  AND races.race_type_nmbr = leagues.race_type_nmbr "_s +
        dateTest + u"                (SELECT race_dt                   FROM races                 WHERE races.race_nmbr = "_s +
        sqlNumber(raceNmbr) + u") GROUP BY teams.team_nmbr, team_name, team_owner, leagues.race_type_nmbr "_s +
        (highScore && !*highScore ? u" ORDER BY 1 ASC"_s : u" ORDER BY 1 DESC"_s);
    if (m_db.OpenResultSet(sql) && !m_db.eof())
        fill();
    return loadedCount();
}

int32_t cLeagueStandingsCollection::load(int16_t leagueNmbr, int16_t raceNmbr, std::optional<bool> highScore)
{
    return loadTable(leagueNmbr, raceNmbr, highScore, u" AND races.race_dt <= "_s);
}

int32_t cLeagueStandingsCollection::loadPrevious(int16_t leagueNmbr, int16_t raceNmbr, std::optional<bool> highScore)
{
    return loadTable(leagueNmbr, raceNmbr, highScore, u" AND races.race_dt < "_s);
}

int16_t cLeagueStandingsCollection::placeForTeam(int16_t teamNmbr) const
{
    int16_t position = 0;
    for (const cLeagueStandings& line : *this) {
        ++position;
        if (line.teamNmbr() == teamNmbr)
            return position;
    }
    return 0;
}
