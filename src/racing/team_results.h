#pragma once
#include "league/record.h"

#include <QDate>
#include <QString>
#include <cstdint>
#include <optional>

class cLeague;
class cRaces;

// What one car did for one team in one league at one race (row of team_results). The four
// numbers name the row, but no key stands on them: a team's top bonus entry can have two rows
// in a race. currentStatus 1 counts in the race; 2 is a carried row (a rostered car that did
// not run, or a car that left the team) with no points, which keeps totalPoints, the car's
// running total on the team, alive from race to race.
class cTeamResults {
public:
    void setCurrentStatus(int16_t value) { m_currentStatus = value; }
    int16_t currentStatus() const { return m_currentStatus; }
    void setAdjustment(int32_t value) { m_adjustment = value; }
    int32_t adjustment() const { return m_adjustment; }
    void setTotalPoints(int32_t value) { m_totalPoints = value; }
    int32_t totalPoints() const { return m_totalPoints; }
    void setPoints(int32_t value) { m_points = value; }
    int32_t points() const { return m_points; }
    void setQualPoints(int32_t value) { m_qualPoints = value; }
    int32_t qualPoints() const { return m_qualPoints; }
    void setMostLapsLedBonus(int32_t value) { m_mostLapsLedBonus = value; }
    int32_t mostLapsLedBonus() const { return m_mostLapsLedBonus; }
    void setLapsLedBonus(int32_t value) { m_lapsLedBonus = value; }
    int32_t lapsLedBonus() const { return m_lapsLedBonus; }
    void setFastQualBonus(int32_t value) { m_fastQualBonus = value; }
    int32_t fastQualBonus() const { return m_fastQualBonus; }
    void setPlace(int16_t value) { m_place = value; }
    int16_t place() const { return m_place; }
    void setQualified(int16_t value) { m_qualified = value; }
    int16_t qualified() const { return m_qualified; }
    void setLeagueNmbr(int16_t value) { m_leagueNmbr = value; }
    int16_t leagueNmbr() const { return m_leagueNmbr; }
    void setRaceNmbr(int16_t value) { m_raceNmbr = value; }
    int16_t raceNmbr() const { return m_raceNmbr; }
    void setCarNmbr(int16_t value) { m_carNmbr = value; }
    int16_t carNmbr() const { return m_carNmbr; }
    void setTeamNmbr(int16_t value) { m_teamNmbr = value; }
    int16_t teamNmbr() const { return m_teamNmbr; }

    // How often the team's cars finished first / in the top 5 / top 10 in the league's season
    // up to and including the race (counting rows of status 1 with a place above 0).
    int16_t wins(const cLeague& league, int16_t teamNmbr, int16_t raceNmbr);
    int16_t top5s(const cLeague& league, int16_t teamNmbr, int16_t raceNmbr);
    int16_t top10s(const cLeague& league, int16_t teamNmbr, int16_t raceNmbr);

    // Writes one row with the values given (not this object's fields).
    bool insertRow(int16_t raceNmbr, int16_t place, int16_t qualified, int16_t carNmbr, int16_t teamNmbr,
                   int16_t currentStatus, int32_t fastQualBonus, int32_t lapsLedBonus, int32_t mostLapsLedBonus,
                   int32_t adjustment, int32_t points, int32_t qualPoints, int32_t totalPoints, int16_t leagueNmbr);
    // Writes every field but the four names over the rows of this league, race, car and team.
    bool update();
    // The newest race of the race type that any league has scored rows for; 0 when none.
    int16_t currentRaceNmbr(int16_t raceTypeNmbr);

    // The posting steps of one league and race (the fixed order is the posting module's).
    bool postForLeague(const cLeague& league, const cRaces& race);
    bool setFastQualBonus(const cLeague& league, const cRaces& race);
    bool setMostLapsLedBonus(const cLeague& league, const cRaces& race);
    bool setLapsLedBonus(const cLeague& league, const cRaces& race);
    bool setQualPointsBonus(const cLeague& league, const cRaces& race);
    bool setPoints(const cLeague& league, const cRaces& race);
    bool setTopBonus(const cLeague& league, const cRaces& race);
    bool insertDNQDrivers(const cLeague& league, const cRaces& race);
    bool dropLowestFinishers(const cLeague& league, const cRaces& race);
    bool dropInactiveDrivers(const cLeague& league, const cRaces& race);
    bool setTotalPoints(const cLeague& league, const cRaces& race);
    bool insertDroppedDrivers(const cLeague& league, const cRaces& race);

private:
    // The league's amount of a bonus column of its scoring method; nullopt when the read failed.
    std::optional<int16_t> bonusAmount(const cLeague& league, const QString& column);
    int16_t topXs(int16_t x, const cLeague& league, int16_t teamNmbr, int16_t raceNmbr);
    // The same count for one race alone, carried rows included.
    int16_t topXsInRace(int16_t x, int16_t leagueNmbr, int16_t teamNmbr, int16_t raceNmbr);
    int16_t readCount();

    IDatabase m_db;
    int16_t m_teamNmbr = 0;
    int16_t m_carNmbr = 0;
    int16_t m_raceNmbr = 0;
    int16_t m_leagueNmbr = 0;
    int16_t m_place = 0;
    int32_t m_fastQualBonus = 0;
    int32_t m_lapsLedBonus = 0;
    int32_t m_mostLapsLedBonus = 0;
    int32_t m_points = 0;
    int32_t m_qualPoints = 0;
    int32_t m_totalPoints = 0;
    int16_t m_currentStatus = 0;
    int16_t m_qualified = 0;
    int32_t m_adjustment = 0;
};

class cTeamResultsCollection : public tRecordList<cTeamResults> {
public:
    cTeamResults& Add(int16_t teamNmbr, int16_t carNmbr, int16_t raceNmbr, int16_t leagueNmbr, int16_t place,
                      int32_t fastQualBonus, int32_t lapsLedBonus, int32_t mostLapsLedBonus, int32_t points,
                      int32_t qualPoints, int32_t totalPoints, int16_t currentStatus, int16_t qualified,
                      int32_t adjustment, const QString& sKey = {});
    // Empties the list (the rows in the table stay).
    void clear();

    // Every load appends and returns the count afterwards. order is the text after
    // " ORDER BY place " / " ORDER BY points " ("asc", "desc"); without it the rows are not ordered.
    int32_t load(int16_t leagueNmbr, std::optional<int16_t> raceNmbr = {}, std::optional<int16_t> teamNmbr = {},
                 const std::optional<QString>& order = {});
    // As load, without the top bonus rows, ordered by points when an order is given.
    int32_t loadNoBonusCars(int16_t leagueNmbr, std::optional<int16_t> raceNmbr = {},
                            std::optional<int16_t> teamNmbr = {}, const std::optional<QString>& order = {});
    // The league's rows of the latest earlier race of its race type that has results.
    int32_t loadPreviousRace(const cLeague& league, const cRaces& race);
    // The league's rows of the race before this one whose car has no row for the same team in
    // this race. The previous race is the latest earlier race of any type; when that one is not
    // of the league's race type and Score By, nothing is found.
    int32_t loadDroppedDrivers(const cLeague& league, const cRaces& race);
    // The league's rows of its race type up to and including the race's date.
    int32_t loadPreviousRaces(const cLeague& league, const cRaces& race);

    // The totalPoints of the first row of that car and team in list order; 0 when none.
    int32_t getTotalPoints(int16_t carNmbr, int16_t teamNmbr);
    // Whether the team has scored rows in the league.
    bool resultsForTeamExists(int16_t leagueNmbr, int16_t teamNmbr);
    // Whether the car has scored rows for the team at a race on or after the date.
    bool resultsForCarExistsAfterDate(int16_t teamNmbr, int16_t carNmbr, const QDate& date);

    // Sums of a field over the list's rows of the team and car (team first here). The result is
    // 16 bits wide: a larger sum is the run-time error "Overflow".
    int16_t sumFastQualBonus(int16_t teamNmbr, int16_t carNmbr);
    int16_t sumLapsLedBonus(int16_t teamNmbr, int16_t carNmbr);
    int16_t sumMostLapsLedBonus(int16_t teamNmbr, int16_t carNmbr);
    int16_t sumQualPoints(int16_t teamNmbr, int16_t carNmbr);

private:
    template <class Field>
    int16_t sumOf(int16_t teamNmbr, int16_t carNmbr, Field field);
    int32_t loadFrom(const QString& statement);
    bool anyRow(const QString& statement);
    void fill();
    IDatabase m_db;
};
