#pragma once
#include "league/record.h"

#include <QString>
#include <cstdint>
#include <optional>

// One car, driver or top bonus entry (row of cars). carTypeNmbr tells the kind: 1 car, 2 driver,
// 3 the top bonus pseudo-entry, of which each race type has one. A car is known by its number
// text (carTxt), a driver by driverName; both are filled for either kind.
//
// groupNmbr is a variant: a group number, Null, or (in a collection, for a group that was not a
// number) an empty text. Setting a negative number stores Null; reading Null gives -1. A record
// that never had a group set holds 0. The statements write the value when it reads as a number
// and NULL otherwise, so a car read with a Null group is written back as -1: the column can hold
// Null, -1 or 0 for "no group" and every reader takes all three as none.
class cCar {
public:
    void setGroupNmbr(const cVariant& value);
    cVariant groupNmbr() const;
    void setRaceTypeNmbr(int16_t value) { m_raceTypeNmbr = value; }
    int16_t raceTypeNmbr() const { return m_raceTypeNmbr; }
    void setSalary(Currency value) { m_salary = value; }
    Currency salary() const { return m_salary; }
    void setCarTypeNmbr(int16_t value) { m_carTypeNmbr = value; }
    int16_t carTypeNmbr() const { return m_carTypeNmbr; }
    void setDriverName(const QString& value) { m_driverName = value; }
    QString driverName() const { return m_driverName; }
    void setSponsor(const QString& value) { m_sponsor = value; }
    QString sponsor() const { return m_sponsor; }
    void setCarMake(const QString& value) { m_carMake = value; }
    QString carMake() const { return m_carMake; }
    void setCarOwner(const QString& value) { m_carOwner = value; }
    QString carOwner() const { return m_carOwner; }
    void setCarTxt(const QString& value) { m_carTxt = value.trimmed(); }   // stored trimmed
    QString carTxt() const { return m_carTxt; }
    void setCarNmbr(int16_t value) { m_carNmbr = value; }
    int16_t carNmbr() const { return m_carNmbr; }

    bool isCar() const { return m_carTypeNmbr == 1; }
    bool isDriver() const { return m_carTypeNmbr == 2; }
    bool isBonus() const { return m_carTypeNmbr == 3; }

    // 1 when the row was found and read into this object, else 0 (the object keeps its values).
    int32_t load(int16_t carNmbr);
    QString nameOf() const;   // "CAR"
    bool CommitChanges();     // inserts when the key is below 1, else updates
    bool updateRow();
    // As updateRow, but salary and group_nmbr stay as the operator set them.
    bool updateImportRow();
    bool insertRow();         // allocates the key into the record, then insert
    bool insert();            // the INSERT alone, with the number already in the record
    bool deleteRow();         // the car alone; the screens refuse a car on a roster or with results
    cCar copy() const;        // working copy with the same key, for an edit screen

    // Duplicate tests: whether another entry of the race type and kind has this number text
    // (driver name). The text goes into the statement as typed: an apostrophe makes a statement
    // the engine refuses, which shows the engine's box and counts as "not found".
    // carNmbr above 0 leaves that entry itself out.
    bool carTxtExists(const QString& carTxt, int16_t carNmbr, int16_t raceTypeNmbr, int16_t carTypeNmbr);
    bool driverExists(const QString& driverName, int16_t carNmbr, int16_t raceTypeNmbr, int16_t carTypeNmbr);
    // Loads the top bonus entry of the race type into this object; makes it first when missing.
    void getTopBonusCar(int16_t raceTypeNmbr);

private:
    QString groupSql() const;   // the group as it goes into a statement: the number or NULL
    void readRow();             // the current row of m_db into this object

    IDatabase m_db;
    cVariant m_groupNmbr = cVariant(0);
    int16_t m_raceTypeNmbr = 0;
    Currency m_salary;
    int16_t m_carTypeNmbr = 0;
    QString m_driverName;
    QString m_sponsor;
    QString m_carMake;
    QString m_carOwner;
    QString m_carTxt;
    int16_t m_carNmbr = 0;
};

class cCarCollection : public tRecordList<cCar> {
public:
    cCar& Add(int16_t carNmbr, int16_t raceTypeNmbr, const QString& carTxt, const QString& carOwner,
              const QString& carMake, const QString& sponsor, const QString& driverName, int16_t carTypeNmbr,
              Currency salary, const cVariant& groupNmbr, const QString& sKey = {});

    // Appends the entries of a race type and/or kind; with neither, every entry. With a kind the
    // list is ordered by car_txt (kind 1) or driver_name (any other kind); else no order.
    int32_t load(std::optional<int16_t> raceTypeNmbr = {}, std::optional<int16_t> carTypeNmbr = {});

    // Look-ups over the list; each loads every entry first when the list is empty.
    // What a list shows for the entry: driverName for a driver, else carTxt; "" when not found.
    QString getCarDisplay(int16_t carNmbr);
    // The entry's salary; 0 when not found.
    Currency getCarSalary(int16_t carNmbr);
    // The name of the entry's group; "" when not found or without a numeric group.
    QString getCarGroupDisplay(int16_t carNmbr);
    // Whether any entry has that group.
    bool groupNmbrExists(const cVariant& groupNmbr);

private:
    const cCar* find(int16_t carNmbr);
    void fill();
    IDatabase m_db;
};
