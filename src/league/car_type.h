#pragma once
#include "league/record.h"

#include <QString>
#include <cstdint>

// What a league, team, race or car scores by: 1 car, 2 driver, 3 the top bonus entry.
// The numbers are fixed by the code; the names stand in car_type_dm. Nothing writes the table.
class cCarType {
public:
    void setCarTypeName(const QString& value) { m_carTypeName = value; }
    QString carTypeName() const { return m_carTypeName; }
    void setCarTypeNmbr(int16_t value) { m_carTypeNmbr = value; }
    int16_t carTypeNmbr() const { return m_carTypeNmbr; }

private:
    IDatabase m_db;
    QString m_carTypeName;
    int16_t m_carTypeNmbr = 0;
};

class cCarTypeCollection : public tRecordList<cCarType> {
public:
    cCarType& Add(int16_t carTypeNmbr, const QString& carTypeName, const QString& sKey = {});
    int32_t load();
    // Car and driver only: every "Score By" choice fills from this, so type 3 is never offered.
    int32_t loadNoBonus();
    // Loads (all types) only when the list is empty, so a list filled by loadNoBonus answers ""
    // for the bonus type.
    QString getCarTypeName(int16_t carTypeNmbr);

private:
    int32_t loadFrom(const QString& statement);
    void fill();
    IDatabase m_db;
};
