#pragma once
#include "league/record.h"

#include <QString>
#include <cstdint>

// A scoring method's head (row of scoring_type): its name and three flat bonuses.
// Methods below 500 came with the data file.
class cScoringType {
public:
    void setFastQualBonus(int16_t value) { m_fastQualBonus = value; }
    int16_t fastQualBonus() const { return m_fastQualBonus; }
    void setMostLapsLedBonus(int16_t value) { m_mostLapsLedBonus = value; }
    int16_t mostLapsLedBonus() const { return m_mostLapsLedBonus; }
    void setLapsLedBonus(int16_t value) { m_lapsLedBonus = value; }
    int16_t lapsLedBonus() const { return m_lapsLedBonus; }
    void setScoringTypeName(const QString& value) { m_scoringTypeName = value; }
    QString scoringTypeName() const { return m_scoringTypeName; }
    void setScoringTypeNmbr(int16_t value) { m_scoringTypeNmbr = value; }
    int16_t scoringTypeNmbr() const { return m_scoringTypeNmbr; }

    // A working copy with the same five fields, the key included: saved, it updates the same row.
    cScoringType copy() const;
    // Deletes the method's own row only; its scoring_points and scoring_top_points rows stay.
    bool deleteRow();
    bool CommitChanges();   // inserts when the key is below 1, else updates
    bool updateRow();
    bool insertRow();       // allocates the key into the record first (never below 500)
    int32_t load(int16_t scoringTypeNmbr);   // 1 when found, else 0 and the record unchanged
    bool usesMostLapsLedBonus() const { return m_mostLapsLedBonus != 0; }
    bool usesLapsLedBonus() const { return m_lapsLedBonus != 0; }
    bool usesFastQualBonus() const { return m_fastQualBonus != 0; }

private:
    IDatabase m_db;
    int16_t m_scoringTypeNmbr = 0;
    QString m_scoringTypeName;
    int16_t m_lapsLedBonus = 0;
    int16_t m_mostLapsLedBonus = 0;
    int16_t m_fastQualBonus = 0;
};

class cScoringTypeCollection : public tRecordList<cScoringType> {
public:
    cScoringType& Add(int16_t scoringTypeNmbr, const QString& scoringTypeName, int16_t lapsLedBonus,
                      int16_t mostLapsLedBonus, int16_t fastQualBonus, const QString& sKey = {});
    int32_t load();
    // The name of a method, loading the list first when it is empty; "" when none matches.
    QString getScoringTypeName(int16_t scoringTypeNmbr);

private:
    void fill();
    IDatabase m_db;
};

// A league's scoring option (row of scoring_option_dm): 1 counts every entry, 2 drops the
// league's dropLowest worst at each race. The names stand in the table; nothing writes it.
class cScoringOption {
public:
    void setScoringOptionName(const QString& value) { m_scoringOptionName = value; }
    QString scoringOptionName() const { return m_scoringOptionName; }
    void setScoringOptionNmbr(int16_t value) { m_scoringOptionNmbr = value; }
    int16_t scoringOptionNmbr() const { return m_scoringOptionNmbr; }

private:
    IDatabase m_db;
    int16_t m_scoringOptionNmbr = 0;
    QString m_scoringOptionName;
};

class cScoringOptionCollection : public tRecordList<cScoringOption> {
public:
    cScoringOption& Add(int16_t scoringOptionNmbr, const QString& scoringOptionName, const QString& sKey = {});
    int32_t load();
    // The name of an option, loading the list first when it is empty; "" when none matches.
    QString getScoringOptionName(int16_t scoringOptionNmbr);

private:
    void fill();
    IDatabase m_db;
};
