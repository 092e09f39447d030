#include "league/league_teams.h"
#include "league/team.h"

using namespace Qt::StringLiterals;

cLeagueTeams& cLeagueTeamsCollection::Add(int16_t leagueNmbr, int16_t teamNmbr, const QString& sKey)
{
    auto record = std::make_unique<cLeagueTeams>();
    record->setLeagueNmbr(leagueNmbr);
    record->setTeamNmbr(teamNmbr);
    return append(std::move(record), sKey);
}

int32_t cLeagueTeamsCollection::load(std::optional<int16_t> leagueNmbr, std::optional<int16_t> teamNmbr)
{
    // The join hides memberships of teams that have been deleted.
    QString statement = u"SELECT league_teams.* "_s
                        u" FROM league_teams, teams"_s
                        u" WHERE league_teams.team_nmbr = teams.team_nmbr "_s;
    if (leagueNmbr && teamNmbr)
        statement += u" AND league_nmbr = "_s + QString::number(*leagueNmbr) +
                     u" AND league_teams.team_nmbr = "_s + QString::number(*teamNmbr);
    else if (leagueNmbr)
        statement += u" AND league_teams.league_nmbr = "_s + QString::number(*leagueNmbr);
    else if (teamNmbr)
        statement += u" AND league_teams.team_nmbr = "_s + QString::number(*teamNmbr);
    statement += u" order by teams.team_name "_s;
    if (m_db.OpenResultSet(statement) && !m_db.eof())
        fill();
    return loadedCount();
}

void cLeagueTeamsCollection::fill()
{
    while (!m_db.eof()) {
        Add(m_db.fields(u"league_nmbr"_s).toInt16(), m_db.fields(u"team_nmbr"_s).toInt16());
        m_db.MoveNext();
    }
}

bool cLeagueTeamsCollection::teamExists(int16_t teamNmbr, std::optional<int16_t> leagueNmbr)
{
    if (Count() == 0)
        load(leagueNmbr);
    for (const cLeagueTeams& member : *this)
        if (member.teamNmbr() == teamNmbr)
            return true;
    return false;
}

bool cLeagueTeamsCollection::leagueExists(int16_t /*teamNmbr*/, int16_t leagueNmbr)
{
    for (const cLeagueTeams& member : *this)
        if (member.leagueNmbr() == leagueNmbr)
            return true;
    return false;
}

bool cLeagueTeamsCollection::raceTypeExists(int16_t raceTypeNmbr, std::optional<int16_t> leagueNmbr,
                                            std::optional<int16_t> teamNmbr)
{
    if (Count() == 0)
        load(leagueNmbr, teamNmbr);
    for (const cLeagueTeams& member : *this) {
        cTeam team;
        team.load(member.teamNmbr());
        if (team.raceTypeNmbr() == raceTypeNmbr)
            return true;
    }
    return false;
}

bool cLeagueTeamsCollection::carTypeExists(int16_t carTypeNmbr, std::optional<int16_t> leagueNmbr,
                                           std::optional<int16_t> teamNmbr)
{
    if (Count() == 0)
        load(leagueNmbr, teamNmbr);
    for (const cLeagueTeams& member : *this) {
        cTeam team;
        team.load(member.teamNmbr());
        if (team.carTypeNmbr() == carTypeNmbr)
            return true;
    }
    return false;
}

bool cLeagueTeamsCollection::insertNew(std::optional<int16_t> leagueNmbr)
{
    // Not a transaction: a failed statement has shown its box already and the rest still run.
    if (leagueNmbr)
        m_db.execute(u"DELETE FROM league_teams "_s
                     u" WHERE league_nmbr = "_s + QString::number(*leagueNmbr));
    for (const cLeagueTeams& member : *this) {
        m_db.execute(u"INSERT INTO league_teams "_s
                     u" (league_nmbr, team_nmbr) "_s
                     u" VALUES "_s
                     u" ("_s + QString::number(member.leagueNmbr()) + u","_s + QString::number(member.teamNmbr()) + u")"_s);
    }
    return true;
}
