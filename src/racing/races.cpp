#include "racing/races.h"
#include "store/dates.h"

using namespace Qt::StringLiterals;

void cRaces::setRaceDate(const QString& value)
{
    m_raceDate = parseDate(value.trimmed());
}

void cRaces::setRaceDate(const cVariant& value)
{
    m_raceDate = value.isNull() ? QDate() : parseDate(value.toTextOrEmpty().trimmed());
}

void cRaces::readRow()
{
    m_raceNmbr = m_db.fields(u"race_nmbr"_s).toInt16();
    m_raceName = m_db.fields(u"race_name"_s).toText();
    m_trackName = m_db.fields(u"track_name"_s).toText();
    setRaceDate(m_db.fields(u"race_dt"_s));
    m_raceTypeNmbr = m_db.fields(u"race_type_nmbr"_s).toInt16();
    m_carTypeNmbr = m_db.fields(u"car_type_nmbr"_s).toInt16();
    m_raceStatusNmbr = m_db.fields(u"race_status_nmbr"_s).toInt16();
}

int32_t cRaces::load(int16_t raceNmbr)
{
    if (!m_db.OpenResultSet(u"SELECT *"_s
                            u" FROM races"_s
                            u" WHERE race_nmbr = "_s + QString::number(raceNmbr)) || m_db.eof())
        return 0;
    readRow();
    return 1;
}

// Only the innermost level names the race type, and there it tests the race against itself:
// the MAX ranges over every race type and so does the outer query.
int32_t cRaces::loadPrevious(int16_t raceNmbr)
{
    const QString race = QString::number(raceNmbr);
    if (!m_db.OpenResultSet(u"SELECT * FROM races WHERE race_dt = "_s
                            u"       (SELECT max(race_dt) "_s
                            u"       FROM races "_s
                            u"       WHERE race_dt < "_s
                            u"               (SELECT race_dt "_s
                            u"               FROM races "_s
                            u"               WHERE race_nmbr = "_s + race +
                            u"               AND race_type_nmbr = "_s
                            u"                       (SELECT race_type_nmbr "_s
                            u"                       FROM races "_s
                            u"                       WHERE race_nmbr = "_s + race + u")))"_s) ||
        m_db.eof())
        return 0;
    readRow();
    return 1;
}

QString cRaces::nameOf() const
{
    return u"RACE"_s;
}

bool cRaces::CommitChanges()
{
    return m_raceNmbr < 1 ? insertRow() : updateRow();
}

bool cRaces::updateRow()
{
    return m_db.execute(u"UPDATE races "_s
                        u" set race_name = '"_s + sqlText(m_raceName) +
                        u"' ,track_name = '"_s + sqlText(m_trackName) +
                        u"' ,race_dt = "_s + sqlDate(m_raceDate) +
                        u" ,race_type_nmbr = "_s + QString::number(m_raceTypeNmbr) +
                        u" ,car_type_nmbr = "_s + QString::number(m_carTypeNmbr) +
                        u" ,race_status_nmbr = "_s + QString::number(m_raceStatusNmbr) +
                        u" WHERE race_nmbr = "_s + QString::number(m_raceNmbr));
}

bool cRaces::insertRow()
{
    m_raceNmbr = nextKey(m_db, u"races"_s, u"race_nmbr"_s);
    return insert();
}

bool cRaces::insert()
{
    return m_db.execute(u"INSERT INTO races "_s
                        u" (race_nmbr, race_name, track_name, race_dt, car_type_nmbr, race_type_nmbr, "_s
                        u"race_status_nmbr) VALUES ("_s +
                        QString::number(m_raceNmbr) +
                        u",'"_s + sqlText(m_raceName) + u"'"_s +
                        u",'"_s + sqlText(m_trackName) + u"'"_s +
                        u","_s + sqlDate(m_raceDate) +
                        u","_s + QString::number(m_carTypeNmbr) +
                        u","_s + QString::number(m_raceTypeNmbr) +
                        u","_s + QString::number(m_raceStatusNmbr) + u")"_s);
}

bool cRaces::deleteRow()
{
    const QString where = u" WHERE race_nmbr = "_s + QString::number(m_raceNmbr);
    m_db.execute(u"DELETE FROM team_results_summary "_s + where);
    m_db.execute(u"DELETE FROM team_results "_s + where);
    m_db.execute(u"DELETE FROM results "_s + where);
    return m_db.execute(u"DELETE FROM races "_s + where);
}

cRaces cRaces::copy() const
{
    cRaces working;
    working.m_raceNmbr = m_raceNmbr;
    working.m_raceName = m_raceName;
    working.m_trackName = m_trackName;
    working.m_raceDate = m_raceDate;
    working.m_raceTypeNmbr = m_raceTypeNmbr;
    working.m_carTypeNmbr = m_carTypeNmbr;
    working.m_raceStatusNmbr = m_raceStatusNmbr;
    return working;
}

cRaces& cRacesCollection::Add(int16_t raceNmbr, const QString& raceName, const QString& trackName,
                              const QDate& raceDate, int16_t raceTypeNmbr, int16_t carTypeNmbr,
                              int16_t raceStatusNmbr, const QString& sKey)
{
    auto record = std::make_unique<cRaces>();
    record->setRaceNmbr(raceNmbr);
    record->setRaceName(raceName);
    record->setTrackName(trackName);
    record->setRaceDate(raceDate);
    record->setRaceTypeNmbr(raceTypeNmbr);
    record->setCarTypeNmbr(carTypeNmbr);
    record->setRaceStatusNmbr(raceStatusNmbr);
    return append(std::move(record), sKey);
}

int32_t cRacesCollection::loadFrom(const QString& statement)
{
    if (m_db.OpenResultSet(statement) && !m_db.eof())
        fill();
    return loadedCount();
}

void cRacesCollection::fill()
{
    while (!m_db.eof()) {
        const cVariant& date = m_db.fields(u"race_dt"_s);
        Add(m_db.fields(u"race_nmbr"_s).toInt16(), m_db.fields(u"race_name"_s).toText(),
            m_db.fields(u"track_name"_s).toText(),
            date.isNull() ? QDate() : parseDate(date.toTextOrEmpty().trimmed()),
            m_db.fields(u"race_type_nmbr"_s).toInt16(), m_db.fields(u"car_type_nmbr"_s).toInt16(),
            m_db.fields(u"race_status_nmbr"_s).toInt16());
        m_db.MoveNext();
    }
}

int32_t cRacesCollection::load(std::optional<int16_t> raceTypeNmbr, std::optional<int16_t> carTypeNmbr)
{
    QString statement = u"SELECT *"_s
                        u" FROM races"_s;
    if (raceTypeNmbr) {
        statement += u" WHERE race_type_nmbr = "_s + QString::number(*raceTypeNmbr);
        if (carTypeNmbr)
            statement += u" AND car_type_nmbr = "_s + QString::number(*carTypeNmbr);
    } else if (carTypeNmbr) {
        statement += u" WHERE car_type_nmbr = "_s + QString::number(*carTypeNmbr);
    }
    return loadFrom(statement);
}

int32_t cRacesCollection::loadRacesWithResults(std::optional<int16_t> raceTypeNmbr,
                                               std::optional<int16_t> carTypeNmbr)
{
    QString statement = u"SELECT *  FROM races WHERE races.race_nmbr in "_s
                        u"   (SELECT distinct(race_nmbr) "_s
                        u"   FROM results) "_s;
    if (raceTypeNmbr)
        statement += u" AND race_type_nmbr = "_s + QString::number(*raceTypeNmbr);
    if (carTypeNmbr)
        statement += u" AND car_type_nmbr = "_s + QString::number(*carTypeNmbr);
    return loadFrom(statement + u" ORDER BY race_dt"_s);
}

// The outer query has no Score By test: a race of the other kind on that date comes too.
int32_t cRacesCollection::loadMostCurrentRaceWithResults(int16_t raceTypeNmbr, int16_t carTypeNmbr)
{
    const QString type = QString::number(raceTypeNmbr);
    return loadFrom(u"SELECT *  FROM races  WHERE race_type_nmbr = "_s + type +
                    u" AND race_dt = "_s
                    u"   (SELECT MAX (race_dt) "_s
                    u"   FROM races, results "_s
                    u"   WHERE races.race_nmbr = results.race_nmbr "_s
                    u"   AND race_type_nmbr = "_s + type +
                    u"   AND car_type_nmbr = "_s + QString::number(carTypeNmbr) + u")"_s);
}

int32_t cRacesCollection::loadMostCurrentRaceWithPostedResults(int16_t raceTypeNmbr)
{
    const QString type = QString::number(raceTypeNmbr);
    return loadFrom(u"SELECT *  FROM races  WHERE race_type_nmbr = "_s + type +
                    u" AND race_dt = "_s
                    u"   (SELECT MAX (race_dt) "_s
                    u"   FROM races, team_results "_s
                    u"   WHERE races.race_nmbr = team_results.race_nmbr "_s
                    u"   AND race_type_nmbr = "_s + type + u")"_s);
}

int32_t cRacesCollection::loadFutureRaces(int16_t raceNmbr)
{
    const QString race = QString::number(raceNmbr);
    return loadFrom(u"SELECT *  FROM races  WHERE race_dt > "_s
                    u"   (SELECT race_dt "_s
                    u"   FROM races "_s
                    u"   WHERE race_nmbr = "_s + race + u") AND race_type_nmbr = "_s
                    u"   (SELECT race_type_nmbr "_s
                    u"   FROM races "_s
                    u"   WHERE race_nmbr = "_s + race + u") ORDER BY race_dt "_s);
}

// The join on the winner gives one line per result at place 1: a race without one is left
// out, a race with two stands twice.
int32_t cRacesCollection::loadPreviouRacesWithResults(int16_t raceNmbr)
{
    const QString race = QString::number(raceNmbr);
    return loadFrom(u"SELECT races.*  FROM races, results WHERE race_dt < "_s
                    u"   (SELECT race_dt "_s
                    u"   FROM races "_s
                    u"   WHERE race_nmbr = "_s + race + u")  AND race_type_nmbr = "_s
                    u"   (SELECT race_type_nmbr "_s
                    u"   FROM races "_s
                    u"   WHERE race_nmbr = "_s + race + u")  AND races.race_nmbr = results.race_nmbr "_s
                    u" AND place = 1  ORDER BY race_dt "_s);
}

bool cRacesCollection::raceTypeNmbrExists(const cVariant& raceTypeNmbr)
{
    if (Count() == 0)
        load();
    for (const cRaces& race : *this)
        if (sameNumber(raceTypeNmbr, race.raceTypeNmbr()))
            return true;
    return false;
}

bool cRacesCollection::carTypeNmbrExists(const cVariant& carTypeNmbr)
{
    if (Count() == 0)
        load();
    for (const cRaces& race : *this)
        if (sameNumber(carTypeNmbr, race.carTypeNmbr()))
            return true;
    return false;
}

// The dates are compared as short-date texts; a race without a date matches an empty date.
bool cRacesCollection::raceDateExistsForRaceType(const QDate& raceDate, int16_t raceTypeNmbr, int16_t carTypeNmbr)
{
    if (Count() == 0)
        load();
    const QString wanted = shortDate(raceDate);
    for (const cRaces& race : *this)
        if (race.raceTypeNmbr() == raceTypeNmbr && race.carTypeNmbr() == carTypeNmbr &&
            shortDate(race.raceDate()) == wanted)
            return true;
    return false;
}

cRaceStatus& cRaceStatusCollection::Add(int16_t raceStatusNmbr, const QString& raceStatusName, const QString& sKey)
{
    auto record = std::make_unique<cRaceStatus>();
    record->setRaceStatusNmbr(raceStatusNmbr);
    record->setRaceStatusName(raceStatusName);
    return append(std::move(record), sKey);
}

int32_t cRaceStatusCollection::load()
{
    if (m_db.OpenResultSet(u"SELECT *"_s
                           u" FROM race_status_dm"_s) && !m_db.eof())
        fill();
    return loadedCount();
}

void cRaceStatusCollection::fill()
{
    while (!m_db.eof()) {
        Add(m_db.fields(u"race_status_nmbr"_s).toInt16(), m_db.fields(u"race_status_name"_s).toText());
        m_db.MoveNext();
    }
}

QString cRaceStatusCollection::getraceStatusName(int16_t raceStatusNmbr)
{
    if (Count() == 0)
        load();
    for (const cRaceStatus& status : *this)
        if (status.raceStatusNmbr() == raceStatusNmbr)
            return status.raceStatusName();
    return {};
}
