#pragma once
#include "league/record.h"

#include <cstdint>
#include <optional>

// What really happened in a race: one row per car or driver. Nothing here depends on a league.
class cResults {
public:
    void setAdjustment(int16_t v) { m_adjustment = v; }
    int16_t adjustment() const { return m_adjustment; }
    void setLapsLead(int16_t v) { m_lapsLead = v; }
    int16_t lapsLead() const { return m_lapsLead; }
    void setFastQual(int16_t v) { m_fastQual = v; }
    int16_t fastQual() const { return m_fastQual; }
    void setPlace(int16_t v) { m_place = v; }
    int16_t place() const { return m_place; }
    void setQualified(int16_t v) { m_qualified = v; }
    int16_t qualified() const { return m_qualified; }
    void setCarNmbr(int16_t v) { m_carNmbr = v; }
    int16_t carNmbr() const { return m_carNmbr; }
    void setRaceNmbr(int16_t v) { m_raceNmbr = v; }
    int16_t raceNmbr() const { return m_raceNmbr; }

    QString nameOf() const { return QStringLiteral("RESULTS"); }
    bool CommitChanges();   // inserts when carNmbr is below 1, else updates
    bool updateRow();       // adjustment is written on insert only
    bool insertRow();
    bool deleteRow();
    cResults copy() const;

    // The latest race of the type that has results; 0 when none.
    int16_t currentRaceNmbr(int16_t raceTypeNmbr);
    // A car's counts over every race of the league's race type, whatever the rosters say.
    int32_t wins(int16_t leagueNmbr, int16_t carNmbr);
    int32_t top5s(int16_t leagueNmbr, int16_t carNmbr);
    int32_t top10s(int16_t leagueNmbr, int16_t carNmbr);
    int32_t poles(int16_t leagueNmbr, int16_t carNmbr);

private:
    int32_t countFor(int16_t leagueNmbr, int16_t carNmbr, const QString& lastClause);

    IDatabase m_db;
    int16_t m_raceNmbr = 0;
    int16_t m_carNmbr = 0;
    int16_t m_qualified = 0;
    int16_t m_place = 0;
    int16_t m_fastQual = 0;
    int16_t m_lapsLead = 0;
    int16_t m_adjustment = 0;
};

class cRaces;

class cResultsCollection : public tRecordList<cResults> {
public:
    cResults& Add(int16_t raceNmbr, int16_t carNmbr, int16_t place, int16_t fastQual, int16_t lapsLead,
                  int16_t qualified, int16_t adjustment, const QString& sKey = {});

    int32_t load(std::optional<int16_t> raceNmbr = {});
    // The results of the race before this one of the same type.
    int32_t loadPrevious(const cRaces& race);
    int32_t loadMostLapsLed(int16_t raceNmbr);
    int32_t loadFastQualifier(int16_t raceNmbr);
    int32_t loadLapsLed(int16_t raceNmbr);

    // Scan the list, loading every result first when it is empty.
    bool raceExists(int16_t raceNmbr);
    bool carExists(int16_t carNmbr);
    // The car's place in the loaded list; 0 when it is not there.
    int16_t getPlace(int16_t carNmbr) const;

    // Replaces the race's rows by the list's in one transaction; the race's posting goes too.
    bool insertResults();
    bool deleteResults(int16_t raceNmbr);
    // Removes the race's team sums, then (only if that worked) its scored rows, in every league.
    bool deletePosting(int16_t raceNmbr);
    bool deleteTeamResults(int16_t raceNmbr);
    bool deleteTeamResultsSummary(int16_t raceNmbr);

    // One line per offending pair: a car twice, a place (other than 0) twice. Empty when good.
    QString validateData();

private:
    int32_t loadWith(const QString& statement);
    void fill();
    IDatabase m_db;
};
