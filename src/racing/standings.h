#pragma once
#include "league/record.h"

#include <cstdint>
#include <optional>

class cLeague;
class cRaces;

// A team's points and place in a league at one race (row of team_results_summary).
// Place 0 means unranked.
class cTeamResultsSummary {
public:
    void setTeamPlace(int16_t value) { m_teamPlace = value; }
    int16_t teamPlace() const { return m_teamPlace; }
    void setPoints(int32_t value) { m_points = value; }
    int32_t points() const { return m_points; }
    void setLeagueNmbr(int16_t value) { m_leagueNmbr = value; }
    int16_t leagueNmbr() const { return m_leagueNmbr; }
    void setTeamNmbr(int16_t value) { m_teamNmbr = value; }
    int16_t teamNmbr() const { return m_teamNmbr; }
    void setRaceNmbr(int16_t value) { m_raceNmbr = value; }
    int16_t raceNmbr() const { return m_raceNmbr; }

    // The team's summary points of the latest posted race of the league's type up to the race.
    int32_t pointsForMostRecentRace(int16_t leagueNmbr, int16_t teamNmbr, int16_t raceNmbr);
    // The team's points in one race, added up afresh from the car rows; 0 when none.
    int32_t pointsForRace(int16_t leagueNmbr, int16_t teamNmbr, int16_t raceNmbr);
    // Posting: one row per team with scored rows in the race, then 0-point rows for members
    // missing from earlier races with results. Returns the result of the first statement.
    bool postForLeague(const cLeague& league, const cRaces& race);
    // Posting: ranks the race's rows best first; equal points share a place (1, 2, 2, 4) and
    // teams on 0 at the head stay unranked.
    bool setPlace(const cLeague& league, const cRaces& race);
    bool insertRow();
    int16_t wins(const cLeague& league, int16_t teamNmbr, int16_t raceNmbr);
    int16_t top5s(const cLeague& league, int16_t teamNmbr, int16_t raceNmbr);
    int16_t top10s(const cLeague& league, int16_t teamNmbr, int16_t raceNmbr);
    // How many races of the season so far the team finished in the top x (place above 0).
    int16_t topXs(int16_t x, const cLeague& league, int16_t teamNmbr, int16_t raceNmbr);
    // The team's place in the race before the given one; 0 when none.
    int16_t placePreviousRace(int16_t leagueNmbr, int16_t teamNmbr, int16_t raceNmbr);

private:
    IDatabase m_db;
    int16_t m_raceNmbr = 0;
    int16_t m_teamNmbr = 0;
    int16_t m_leagueNmbr = 0;
    int32_t m_points = 0;
    int16_t m_teamPlace = 0;
};

class cTeamResultsSummaryCollection : public tRecordList<cTeamResultsSummary> {
public:
    cTeamResultsSummary& Add(int16_t raceNmbr, int16_t teamNmbr, int16_t leagueNmbr, int32_t points, int16_t teamPlace,
                             const QString& sKey = {});
    // The best team first: points descending, or ascending when the method is low-score.
    int32_t load(int16_t leagueNmbr, std::optional<int16_t> raceNmbr = {}, std::optional<int16_t> teamNmbr = {},
                 bool highScore = true);
    int32_t loadTeam(int16_t teamNmbr);
    bool leagueExists(int16_t leagueNmbr);
    bool teamExists(int16_t teamNmbr);

private:
    int32_t loadWith(const QString& statement);
    void fill();
    IDatabase m_db;
};

// One line of a league's season table; computed on demand, never stored.
class cLeagueStandings {
public:
    void setTeamNmbr(int16_t value) { m_teamNmbr = value; }
    int16_t teamNmbr() const { return m_teamNmbr; }
    void setTeamName(const QString& value) { m_teamName = value; }
    QString teamName() const { return m_teamName; }
    void setTeamOwner(const QString& value) { m_teamOwner = value; }
    QString teamOwner() const { return m_teamOwner; }
    void setRaceTypeNmbr(int16_t value) { m_raceTypeNmbr = value; }
    int16_t raceTypeNmbr() const { return m_raceTypeNmbr; }
    void setPoints(int32_t value) { m_points = value; }
    int32_t points() const { return m_points; }

private:
    int16_t m_teamNmbr = 0;
    QString m_teamName;
    QString m_teamOwner;
    int16_t m_raceTypeNmbr = 0;
    int32_t m_points = 0;
};

class cLeagueStandingsCollection : public tRecordList<cLeagueStandings> {
public:
    cLeagueStandings& Add(int16_t teamNmbr, const QString& teamName, const QString& teamOwner, int16_t raceTypeNmbr,
                          int32_t points, const QString& sKey = {});
    // The table as it stood after the race (on or before its date), best first.
    int32_t load(int16_t leagueNmbr, int16_t raceNmbr, std::optional<bool> highScore = {});
    // The table just before the race.
    int32_t loadPrevious(int16_t leagueNmbr, int16_t raceNmbr, std::optional<bool> highScore = {});
    // The 1-based position of the team in the loaded list; 0 when it is not there.
    int16_t placeForTeam(int16_t teamNmbr) const;

private:
    int32_t loadTable(int16_t leagueNmbr, int16_t raceNmbr, std::optional<bool> highScore, const QString& dateTest);
    void fill();
    IDatabase m_db;
};
