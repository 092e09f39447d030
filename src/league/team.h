#pragma once
#include "league/record.h"

#include <QString>
#include <cstdint>
#include <optional>

// A player's team (row of teams): owner and contact data, one race type and one Score By
// (carTypeNmbr: 1 cars, 2 drivers). Its roster lives in team_car (cTeamCar).
class cTeam {
public:
    void setAddressLine1(const QString& value) { m_addressLine1 = value; }
    QString addressLine1() const { return m_addressLine1; }
    void setAddressLine2(const QString& value) { m_addressLine2 = value; }
    QString addressLine2() const { return m_addressLine2; }
    void setCity(const QString& value) { m_city = value; }
    QString city() const { return m_city; }
    void setState(const QString& value) { m_state = value; }
    QString state() const { return m_state; }
    void setZip(const QString& value) { m_zip = value; }
    QString zip() const { return m_zip; }
    void setEmail(const QString& value) { m_email = value; }
    QString email() const { return m_email; }
    void setPhone(const QString& value) { m_phone = value; }
    QString phone() const { return m_phone; }
    void setCarTypeNmbr(int16_t value) { m_carTypeNmbr = value; }
    int16_t carTypeNmbr() const { return m_carTypeNmbr; }
    void setRaceTypeNmbr(int16_t value) { m_raceTypeNmbr = value; }
    int16_t raceTypeNmbr() const { return m_raceTypeNmbr; }
    void setTeamOwner(const QString& value) { m_teamOwner = value; }
    QString teamOwner() const { return m_teamOwner; }
    void setTeamName(const QString& value) { m_teamName = value; }
    QString teamName() const { return m_teamName; }
    void setTeamNmbr(int16_t value) { m_teamNmbr = value; }
    int16_t teamNmbr() const { return m_teamNmbr; }

    QString nameOf() const { return QStringLiteral("TEAM"); }
    cTeam copy() const;     // all twelve fields, the key too: a working copy for the edit screen
    bool CommitChanges();   // inserts when the key is below 1, else updates
    bool updateRow();
    bool insertRow();       // allocates the key into the record first
    bool deleteRow();       // the team's roster first, then the team
    // Reads seven columns only (number, name, owner, race type, email, phone, car type); the
    // address fields keep what they held. 1 when found.
    int32_t load(int16_t teamNmbr);

private:
    IDatabase m_db;
    QString m_addressLine1;
    QString m_addressLine2;
    QString m_city;
    QString m_state;
    QString m_zip;
    QString m_email;
    QString m_phone;
    int16_t m_carTypeNmbr = 0;
    int16_t m_raceTypeNmbr = 0;
    QString m_teamOwner;
    QString m_teamName;
    int16_t m_teamNmbr = 0;
};

class cTeamCollection : public tRecordList<cTeam> {
public:
    cTeam& Add(int16_t teamNmbr, const QString& teamName, const QString& teamOwner, int16_t raceTypeNmbr,
               const QString& email, const QString& phone, int16_t carTypeNmbr, const QString& addressLine1,
               const QString& addressLine2, const QString& city, const QString& state, const QString& zip,
               const QString& sKey = {});
    // All teams, or those of a race type and/or car type; appends, returns the count.
    int32_t load(std::optional<int16_t> raceTypeNmbr = {}, std::optional<int16_t> carTypeNmbr = {});

private:
    void fill();
    IDatabase m_db;
};
