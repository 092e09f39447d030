#pragma once
#include "league/record.h"

#include <cstdint>
#include <optional>

// Who plays whom in a race, per league (row of race_head_head). 0 in a team field is a bye.
// The pairs are data only: nothing that scores or reports reads them.
class cRaceHeadHead {
public:
    void setRaceNmbr(int16_t value) { m_raceNmbr = value; }
    int16_t raceNmbr() const { return m_raceNmbr; }
    void setLeagueNmbr(int16_t value) { m_leagueNmbr = value; }
    int16_t leagueNmbr() const { return m_leagueNmbr; }
    void setTeamNmbr1(int16_t value) { m_teamNmbr1 = value; }
    int16_t teamNmbr1() const { return m_teamNmbr1; }
    void setteamnmbr2(int16_t value) { m_teamnmbr2 = value; }
    int16_t teamnmbr2() const { return m_teamnmbr2; }

    // Reads the pair of the race by its two teams (any league); 1 when found, else 0.
    int32_t load(int16_t raceNmbr, int16_t teamNmbr1, int16_t teamnmbr2);
    // A pair is never updated: always an insert.
    bool CommitChanges() { return insertRow(); }
    bool insertRow();
    bool deleteRow();

private:
    IDatabase m_db;
    int16_t m_raceNmbr = 0;
    int16_t m_leagueNmbr = 0;
    int16_t m_teamNmbr1 = 0;
    int16_t m_teamnmbr2 = 0;
};

class cRaceHeadHeadCollection : public tRecordList<cRaceHeadHead> {
public:
    cRaceHeadHead& Add(int16_t raceNmbr, int16_t leagueNmbr, int16_t teamNmbr1, int16_t teamnmbr2,
                       const QString& sKey = {});

    // Appends the pairs of a league and/or a race; with neither, every pair.
    int32_t load(std::optional<int16_t> leagueNmbr = {}, std::optional<int16_t> raceNmbr = {});

    // Replaces the pairs of one race and league by the list, in one transaction: the league and
    // race come from the first item. An empty list names no league and leaves everything alone.
    bool update();
    // The same for the race and league given. An empty list removes that race's pairs of that
    // league and nothing else, which is how a screen whose rows are all byes saves what it shows.
    bool update(int16_t leagueNmbr, int16_t raceNmbr);

private:
    void fill();
    IDatabase m_db;
};
