#pragma once
#include "league/record.h"

#include <QString>
#include <cstdint>

// One racing series (row of race_type_dm). Types 1 and 6 have download files.
class cRaceType {
public:
    void setRaceTypeName(const QString& value) { m_raceTypeName = value; }
    QString raceTypeName() const { return m_raceTypeName; }
    void setRaceTypeNmbr(int16_t value) { m_raceTypeNmbr = value; }
    int16_t raceTypeNmbr() const { return m_raceTypeNmbr; }

    bool deleteRow();
    bool CommitChanges();   // inserts when the key is below 1, else updates
    bool updateRow();
    bool insertRow();       // allocates the key into the record first
    cRaceType copy() const; // working copy with the same key, for an edit screen

private:
    IDatabase m_db;
    QString m_raceTypeName;
    int16_t m_raceTypeNmbr = 0;
};

class cRaceTypeCollection : public tRecordList<cRaceType> {
public:
    cRaceType& Add(int16_t raceTypeNmbr, const QString& raceTypeName, const QString& sKey = {});
    int32_t load();
    // The name of a race type, loading the list first when it is empty; "" when none matches.
    QString getRaceTypeName(const cVariant& raceTypeNmbr);

private:
    void fill();
    IDatabase m_db;
};
