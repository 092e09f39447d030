#pragma once
#include "league/record.h"

#include <QDate>
#include <QString>
#include <cstdint>
#include <optional>

class cLeague;

// One roster entry (row of team_car): a team held a car, driver or bonus entry from efctvDt
// until termDt. The entry is in force for a race on day d when efctvDt <= d and termDt is
// empty or later than d: a car terminated on race day does not score that day.
//
// The two dates are "a date or empty": an invalid QDate is the empty value (NULL in term_dt).
// A row is named by team, car and effective date; there is no key number, so CommitChanges
// asks the table (teamCarExists) whether to update or insert.
class cTeamCar {
public:
    void setActive(uint8_t value) { m_active = value; }
    uint8_t active() const { return m_active; }
    void setLockedSalary(double value) { m_lockedSalary = value; }
    double LockedSalary() const { return m_lockedSalary; }
    void setPrice(double value) { m_price = value; }
    double price() const { return m_price; }
    // A date is kept; a text is kept when it reads as a date; anything else becomes empty.
    void setTermDt(const QDate& value) { m_termDt = value.isValid() ? value : QDate(); }
    void setTermDt(const QString& value);
    QDate termDt() const { return m_termDt; }
    void setEfctvDt(const QDate& value) { m_efctvDt = value.isValid() ? value : QDate(); }
    void setEfctvDt(const QString& value);
    QDate efctvDt() const { return m_efctvDt; }
    void setCarNmbr(int16_t value) { m_carNmbr = value; }
    int16_t carNmbr() const { return m_carNmbr; }
    void setTeamNmbr(int16_t value) { m_teamNmbr = value; }
    int16_t teamNmbr() const { return m_teamNmbr; }

    // updateRow when the row of team, car and effective date exists, else insertRow.
    bool CommitChanges();
    // Writes efctv_dt, term_dt and active over every stint of this car on this team (the
    // statement names team and car only); price and locked_salary are never rewritten.
    bool updateRow();
    // The only statement that writes locked_salary: the price of a stint is fixed once.
    bool insertRow();
    bool deleteRow();   // the one row of team, car and effective date
    bool teamCarExists(int16_t teamNmbr, int16_t carNmbr, const QDate& efctvDt);
    // The first row of that team and car, in the engine's order. 1 when found.
    int32_t load(int16_t teamNmbr, int16_t carNmbr);
    // A team that holds (at least) every open entry of this team, or a number below 1.
    // A team with no open entries is no duplicate: -1.
    int16_t duplicateTeam(int16_t teamNmbr);
    // "(n1,n2,...)": the teams other than teamNmbr with an open entry of the car, narrowed to
    // those in teamList when that text is not empty. "()" when none.
    QString getTeamsForCar(int16_t teamNmbr, int16_t carNmbr, const QString& teamList);

    cTeamCar copy() const;

private:
    IDatabase m_db;
    uint8_t m_active = 1;
    double m_lockedSalary = 0;
    double m_price = 0;
    QDate m_termDt;
    QDate m_efctvDt;
    int16_t m_carNmbr = 0;
    int16_t m_teamNmbr = 0;
};

class cTeamCarCollection : public tRecordList<cTeamCar> {
public:
    cTeamCar& Add(int16_t teamNmbr, int16_t carNmbr, const QDate& efctvDt, const QDate& termDt, double price,
                  double LockedSalary, uint8_t active, const QString& sKey = {});

    // Every load appends and returns the count afterwards. None orders its rows.
    int32_t load(std::optional<int16_t> teamNmbr = {});
    // Cars and drivers only: bonus entries (type 3) left out.
    int32_t loadNoBonus(std::optional<int16_t> teamNmbr = {});
    int32_t loadCar(int16_t carNmbr);
    // The team's entries of a group that have no termination date at all.
    int32_t loadGroup(int16_t teamNmbr, int16_t groupNmbr);
    // Entries of the league's teams, of the race's series, in force on the race day and with no
    // result row in the race.
    // The race comes by number: the calendar's records live a layer above this one.
    int32_t loadDNQcars(int16_t raceNmbr, const cLeague& league);

    // Replaces the team's whole roster by the list (locked_salary is not written).
    bool insertNew(int16_t teamNmbr);
    // Loads every row first when the list is empty.
    bool carExists(int16_t carNmbr);
    // Whether any entry (terminated ones too) is of a car of that race type / car type. An empty
    // list loads first: the team's rows, else the car's rows, else all.
    bool raceTypeExists(int16_t raceTypeNmbr, std::optional<int16_t> teamNmbr = {},
                        std::optional<int16_t> carNmbr = {});
    bool carTypeExists(int16_t carTypeNmbr, std::optional<int16_t> teamNmbr = {},
                       std::optional<int16_t> carNmbr = {});
    // Ends every open entry of the team on that date; terminated entries keep their dates.
    bool TermAll(int16_t teamNmbr, const QDate& termDt);

private:
    int32_t loadFrom(const QString& statement);
    void loadForExistsTest(std::optional<int16_t> teamNmbr, std::optional<int16_t> carNmbr);
    void fill();
    IDatabase m_db;
};
