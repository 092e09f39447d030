#pragma once
#include "league/record.h"

#include <QString>
#include <cstdint>
#include <optional>

// One league (row of leagues): a race type, a Score By (1 cars, 2 drivers), a scoring method,
// a scoring option (1 counts every entry, 2 drops the dropLowest worst at each race) and a
// salary cap. A cap of 0 or less means no cap.
class cLeague {
public:
    void setDropLowest(int16_t value) { m_dropLowest = value; }
    int16_t carTypeNmbr() const { return m_carTypeNmbr; }
    void setCarTypeNmbr(int16_t value) { m_carTypeNmbr = value; }
    int16_t dropLowest() const { return m_dropLowest; }
    void setScoringOptionNmbr(int16_t value) { m_scoringOptionNmbr = value; }
    int16_t scoringOptionNmbr() const { return m_scoringOptionNmbr; }
    void setSalaryCap(Currency value) { m_salaryCap = value; }
    Currency salaryCap() const { return m_salaryCap; }
    void setRaceTypeNmbr(int16_t value) { m_raceTypeNmbr = value; }
    int16_t raceTypeNmbr() const { return m_raceTypeNmbr; }
    void setScoringTypeNmbr(int16_t value) { m_scoringTypeNmbr = value; }
    int16_t scoringTypeNmbr() const { return m_scoringTypeNmbr; }
    void setLeagueShortName(const QString& value) { m_leagueShortName = value; }
    QString leagueShortName() const { return m_leagueShortName; }
    void setLeagueName(const QString& value) { m_leagueName = value; }
    QString leagueName() const { return m_leagueName; }
    void setLeagueNmbr(int16_t value) { m_leagueNmbr = value; }
    int16_t leagueNmbr() const { return m_leagueNmbr; }

    // 1 when the row was found and read into this object, else 0 (the object keeps its values).
    int32_t load(int16_t leagueNmbr);
    QString nameOf() const;   // "LEAGUE"
    cLeague copy() const;     // working copy with the same key, for an edit screen
    bool CommitChanges();     // inserts when the key is below 1, else updates
    bool updateRow();
    bool insertRow();         // allocates the key into the record first
    // Removes the league's memberships, its scored rows and summaries, then the league.
    // Head-to-head pairings, teams, rosters, races and race results stay.
    bool deleteRow();

private:
    IDatabase m_db;
    int16_t m_leagueNmbr = 0;
    QString m_leagueName;
    QString m_leagueShortName;
    int16_t m_raceTypeNmbr = 0;
    int16_t m_scoringOptionNmbr = 0;
    int16_t m_scoringTypeNmbr = 0;
    Currency m_salaryCap;
    int16_t m_dropLowest = 0;
    int16_t m_carTypeNmbr = 0;
};

class cLeagueCollection : public tRecordList<cLeague> {
public:
    cLeague& Add(int16_t leagueNmbr, const QString& leagueName, const QString& leagueShortName,
                 int16_t scoringTypeNmbr, int16_t raceTypeNmbr, int16_t scoringOptionNmbr, Currency salaryCap,
                 int16_t dropLowest, int16_t carTypeNmbr, const QString& sKey = {});
    // Appends the leagues of a race type and/or Score By; with neither, every league. No order.
    int32_t load(std::optional<int16_t> raceTypeNmbr = {}, std::optional<int16_t> carTypeNmbr = {});
    // Appends the leagues the team is a member of.
    int32_t loadForTeam(int16_t teamNmbr);
    // Whether any league uses the number; an empty list loads every league first.
    bool raceTypeNmbrExists(const cVariant& raceTypeNmbr);
    bool scoringTypeNmbrExists(const cVariant& scoringTypeNmbr);

private:
    int32_t loadFrom(const QString& statement);
    void fill();
    IDatabase m_db;
};
