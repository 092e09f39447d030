#pragma once
#include "league/record.h"

#include <cstdint>
#include <optional>

// One membership: a team playing in a league (row of league_teams). A plain pair of values.
class cLeagueTeams {
public:
    void setTeamNmbr(int16_t value) { m_teamNmbr = value; }
    int16_t teamNmbr() const { return m_teamNmbr; }
    void setLeagueNmbr(int16_t value) { m_leagueNmbr = value; }
    int16_t leagueNmbr() const { return m_leagueNmbr; }

private:
    int16_t m_teamNmbr = 0;
    int16_t m_leagueNmbr = 0;
};

class cLeagueTeamsCollection : public tRecordList<cLeagueTeams> {
public:
    cLeagueTeams& Add(int16_t leagueNmbr, int16_t teamNmbr, const QString& sKey = {});
    // Appends the memberships of a league and/or a team, in the order of the team names.
    // Memberships of teams that no longer exist are not seen.
    int32_t load(std::optional<int16_t> leagueNmbr = {}, std::optional<int16_t> teamNmbr = {});

    // Whether any row has the team. An empty list loads first: for the league when one is
    // given, else for all leagues.
    bool teamExists(int16_t teamNmbr, std::optional<int16_t> leagueNmbr = {});
    // Whether any row of the list as it stands has the league; the team is not looked at.
    bool leagueExists(int16_t teamNmbr, int16_t leagueNmbr);
    // Whether any member team (an empty list loads with the given filters first) is of the
    // race type, or of the Score By.
    bool raceTypeExists(int16_t raceTypeNmbr, std::optional<int16_t> leagueNmbr = {},
                        std::optional<int16_t> teamNmbr = {});
    bool carTypeExists(int16_t carTypeNmbr, std::optional<int16_t> leagueNmbr = {},
                       std::optional<int16_t> teamNmbr = {});
    // With a league: replaces that league's memberships by the list. Without: only inserts the
    // list's pairs (a pair already stored is skipped). Always true.
    bool insertNew(std::optional<int16_t> leagueNmbr = {});

private:
    void fill();
    IDatabase m_db;
};
