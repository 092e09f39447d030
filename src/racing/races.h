#pragma once
#include "league/record.h"

#include <QDate>
#include <QString>
#include <cstdint>
#include <optional>

// One real race of the calendar (row of races): a race type (the series), a Score By
// (carTypeNmbr: 1 cars, 2 drivers) and a date. At most one race stands on a date per race type
// and Score By; the race screen enforces that.
//
// raceDate is "a date or empty": an invalid QDate is the empty value. Its setters keep a date,
// or a text that reads as one, and make anything else empty. A new race has an empty date.
class cRaces {
public:
    void setRaceStatusNmbr(int16_t value) { m_raceStatusNmbr = value; }
    int16_t raceStatusNmbr() const { return m_raceStatusNmbr; }
    void setCarTypeNmbr(int16_t value) { m_carTypeNmbr = value; }
    int16_t carTypeNmbr() const { return m_carTypeNmbr; }
    void setRaceTypeNmbr(int16_t value) { m_raceTypeNmbr = value; }
    int16_t raceTypeNmbr() const { return m_raceTypeNmbr; }
    void setRaceDate(const QDate& value) { m_raceDate = value.isValid() ? value : QDate(); }
    void setRaceDate(const QString& value);
    void setRaceDate(const cVariant& value);
    QDate raceDate() const { return m_raceDate; }
    void setTrackName(const QString& value) { m_trackName = value; }
    QString trackName() const { return m_trackName; }
    void setRaceName(const QString& value) { m_raceName = value; }
    QString raceName() const { return m_raceName; }
    void setRaceNmbr(int16_t value) { m_raceNmbr = value; }
    int16_t raceNmbr() const { return m_raceNmbr; }

    // 1 when the row was found and read into this object, else 0 (the object keeps its values).
    int32_t load(int16_t raceNmbr);
    // Reads the race before the given one: the latest earlier date of any race type (only the
    // innermost level of the statement names the type), the first race standing on that date.
    // 1 when found, else 0.
    int32_t loadPrevious(int16_t raceNmbr);
    QString nameOf() const;   // "RACE"
    bool CommitChanges();     // inserts when the key is below 1, else updates
    bool updateRow();
    bool insertRow();         // allocates the key into the record, then insert
    bool insert();            // the INSERT alone, with the number already in the record
    // Removes the race's team sums, scored rows and results, then the race (in that order);
    // returns what the last statement returned. Head-to-head pairings stay.
    bool deleteRow();
    cRaces copy() const;      // working copy with the same key, for an edit screen

private:
    void readRow();

    IDatabase m_db;
    int16_t m_raceNmbr = 0;
    QString m_raceName;
    QString m_trackName;
    QDate m_raceDate;
    int16_t m_raceTypeNmbr = 0;
    int16_t m_carTypeNmbr = 0;
    int16_t m_raceStatusNmbr = 0;
};

class cRacesCollection : public tRecordList<cRaces> {
public:
    cRaces& Add(int16_t raceNmbr, const QString& raceName, const QString& trackName, const QDate& raceDate,
                int16_t raceTypeNmbr, int16_t carTypeNmbr, int16_t raceStatusNmbr, const QString& sKey = {});

    // Every load appends and returns the count afterwards.
    // The races of a race type and/or Score By; with neither, every race. No order.
    int32_t load(std::optional<int16_t> raceTypeNmbr = {}, std::optional<int16_t> carTypeNmbr = {});
    // Races that have result rows, by date.
    int32_t loadRacesWithResults(std::optional<int16_t> raceTypeNmbr = {}, std::optional<int16_t> carTypeNmbr = {});
    // The races of the race type on the latest date that a race of the type and Score By has
    // results; the outer query does not test the Score By, so a race of the other kind on that
    // date comes too.
    int32_t loadMostCurrentRaceWithResults(int16_t raceTypeNmbr, int16_t carTypeNmbr);
    // The races of the race type on the latest date that any league has scored rows for.
    int32_t loadMostCurrentRaceWithPostedResults(int16_t raceTypeNmbr);
    // The later races of the same race type, by date.
    int32_t loadFutureRaces(int16_t raceNmbr);
    // The earlier races of the same race type that have a winner (a result at place 1), by
    // date; one line per winner row.
    int32_t loadPreviouRacesWithResults(int16_t raceNmbr);

    // Look-ups over the list; each loads every race first when the list is empty.
    bool raceTypeNmbrExists(const cVariant& raceTypeNmbr);
    bool carTypeNmbrExists(const cVariant& carTypeNmbr);
    // Whether a race of the race type and Score By stands on that date (compared as short-date
    // texts).
    bool raceDateExistsForRaceType(const QDate& raceDate, int16_t raceTypeNmbr, int16_t carTypeNmbr);

private:
    int32_t loadFrom(const QString& statement);
    void fill();
    IDatabase m_db;
};

// A state a race's result can be in (row of race_status_dm). Status 1 is unofficial.
class cRaceStatus {
public:
    void setRaceStatusNmbr(int16_t value) { m_raceStatusNmbr = value; }
    int16_t raceStatusNmbr() const { return m_raceStatusNmbr; }
    void setRaceStatusName(const QString& value) { m_raceStatusName = value; }
    QString raceStatusName() const { return m_raceStatusName; }

private:
    IDatabase m_db;
    int16_t m_raceStatusNmbr = 0;
    QString m_raceStatusName;
};

class cRaceStatusCollection : public tRecordList<cRaceStatus> {
public:
    cRaceStatus& Add(int16_t raceStatusNmbr, const QString& raceStatusName, const QString& sKey = {});
    int32_t load();
    // The name of a status, loading the list first when it is empty; "" when none matches.
    QString getraceStatusName(int16_t raceStatusNmbr);

private:
    void fill();
    IDatabase m_db;
};
