#include "racing/results.h"
#include "league/car.h"
#include "racing/races.h"
#include "store/transaction.h"

using namespace Qt::StringLiterals;

// ---------------------------------------------------------------- cResults

bool cResults::CommitChanges()
{
    return m_carNmbr < 1 ? insertRow() : updateRow();
}

bool cResults::insertRow()
{
    return m_db.execute(u"INSERT INTO results  (car_nmbr, race_nmbr, place, qualified, fast_qual, laps_led, adjustment) VALUES ("_s +
                        sqlNumber(m_carNmbr) + u","_s + sqlNumber(m_raceNmbr) + u","_s + sqlNumber(m_place) + u","_s + sqlNumber(m_qualified) + u","_s +
                        sqlNumber(m_fastQual) + u","_s + sqlNumber(m_lapsLead) + u","_s + sqlNumber(m_adjustment) + u")"_s);
}

bool cResults::updateRow()
{
    return m_db.execute(u"UPDATE results  set place = "_s + sqlNumber(m_place) + u" ,qualified = "_s + sqlNumber(m_qualified) +
                        u" ,fast_qual = "_s + sqlNumber(m_fastQual) + u" ,laps_led = "_s + sqlNumber(m_lapsLead) +
                        u" WHERE car_nmbr = "_s + sqlNumber(m_carNmbr) + u" AND race_nmbr = "_s + sqlNumber(m_raceNmbr));
}

bool cResults::deleteRow()
{
    return m_db.execute(u"DELETE FROM results  WHERE race_nmbr = "_s + sqlNumber(m_raceNmbr) + u" AND car_nmbr = "_s + sqlNumber(m_carNmbr));
}

cResults cResults::copy() const
{
    cResults working;
    working.m_raceNmbr = m_raceNmbr;
    working.m_carNmbr = m_carNmbr;
    working.m_qualified = m_qualified;
    working.m_place = m_place;
    working.m_fastQual = m_fastQual;
    working.m_lapsLead = m_lapsLead;
    working.m_adjustment = m_adjustment;
    return working;
}

int16_t cResults::currentRaceNmbr(int16_t raceTypeNmbr)
{
    const QString type = sqlNumber(raceTypeNmbr);
    if (!m_db.OpenResultSet(u"SELECT distinct(race_nmbr) FROM results WHERE race_nmbr =        (SELECT r1.race_nmbr        FROM RACES r1        WHERE race_type_nmbr = "_s +
                            type +
                            u"       AND r1.race_dt =            (SELECT MAX(r3.race_dt)            FROM races r3, results r4           WHERE r3.race_nmbr = r4.race_nmbr            AND race_type_nmbr = "_s +
                            type + u"))"_s) ||
        m_db.eof())
        return 0;
    return m_db.fields(u"race_nmbr"_s).toInt16();
}

int32_t cResults::countFor(int16_t leagueNmbr, int16_t carNmbr, const QString& lastClause)
{
    if (!m_db.OpenResultSet(u" SELECT count(*) as count  FROM results  WHERE results.race_nmbr in (        SELECT races.race_nmbr        FROM races,leagues        WHERE leagues.league_nmbr = "_s +
                            sqlNumber(leagueNmbr) +
                            u"         AND leagues.race_type_nmbr = races.race_type_nmbr)  AND results.car_nmbr =  "_s +
                            sqlNumber(carNmbr) + lastClause) ||
        m_db.eof())
        return 0;
    return m_db.fields(u"count"_s).toInt32();
}

int32_t cResults::wins(int16_t leagueNmbr, int16_t carNmbr)
{
    return countFor(leagueNmbr, carNmbr, u" and Place = 1 "_s);
}

int32_t cResults::top5s(int16_t leagueNmbr, int16_t carNmbr)
{
    return countFor(leagueNmbr, carNmbr, u" and Place <= 5 "_s);
}

int32_t cResults::top10s(int16_t leagueNmbr, int16_t carNmbr)
{
    return countFor(leagueNmbr, carNmbr, u" and Place <= 10 "_s);
}

int32_t cResults::poles(int16_t leagueNmbr, int16_t carNmbr)
{
    return countFor(leagueNmbr, carNmbr, u" and qualified = 1 "_s);
}

// ---------------------------------------------------------------- cResultsCollection

cResults& cResultsCollection::Add(int16_t raceNmbr, int16_t carNmbr, int16_t place, int16_t fastQual, int16_t lapsLead,
                                  int16_t qualified, int16_t adjustment, const QString& sKey)
{
    auto record = std::make_unique<cResults>();
    record->setRaceNmbr(raceNmbr);
    record->setCarNmbr(carNmbr);
    record->setPlace(place);
    record->setFastQual(fastQual);
    record->setLapsLead(lapsLead);
    record->setQualified(qualified);
    record->setAdjustment(adjustment);
    return append(std::move(record), sKey);
}

void cResultsCollection::fill()
{
    while (!m_db.eof()) {
        Add(m_db.fields(u"race_nmbr"_s).toInt16(), m_db.fields(u"car_nmbr"_s).toInt16(),
            m_db.fields(u"place"_s).toInt16(), m_db.fields(u"fast_qual"_s).toInt16(),
            m_db.fields(u"laps_led"_s).toInt16(), m_db.fields(u"qualified"_s).toInt16(),
            m_db.fields(u"adjustment"_s).toInt16());
        m_db.MoveNext();
    }
}

int32_t cResultsCollection::loadWith(const QString& statement)
{
    if (m_db.OpenResultSet(statement) && !m_db.eof())
        fill();
    return loadedCount();
}

int32_t cResultsCollection::load(std::optional<int16_t> raceNmbr)
{
    QString sql = u"SELECT *"_s u" FROM results"_s;
    if (raceNmbr)
        sql += u" WHERE race_nmbr = "_s + sqlNumber(*raceNmbr);
    return loadWith(sql + u" order by place"_s);
}

int32_t cResultsCollection::loadPrevious(const cRaces& previousOf)
{
    const QString race = sqlNumber(previousOf.raceNmbr());
    const int16_t raceTypeNmbr = previousOf.raceTypeNmbr();
    return loadWith(u"SELECT * FROM results WHERE race_nmbr =        (SELECT r1.race_nmbr        FROM RACES r1        WHERE race_type_nmbr = "_s +
                    sqlNumber(raceTypeNmbr) +
                    u"       AND r1.race_dt =            (SELECT MAX(r3.race_dt)            FROM races r3, races r4           WHERE r3.race_type_nmbr = r4.race_type_nmbr            AND r4.race_nmbr = "_s +
                    race +
                    u"           AND r3.race_dt <                (SELECT r4.race_dt                FROM races r4               WHERE r4.race_nmbr = "_s +
                    race + u"))) order by place"_s);
}

int32_t cResultsCollection::loadMostLapsLed(int16_t raceNmbr)
{
    int16_t most = 0;
    if (m_db.OpenResultSet(u" SELECT max(laps_led) as max_laps_led  FROM results  WHERE race_nmbr = "_s + sqlNumber(raceNmbr)) &&
        !m_db.eof() && !m_db.fields(u"max_laps_led"_s).isNull())
        most = m_db.fields(u"max_laps_led"_s).toInt16();
    // With nobody leading a lap the maximum is 0, and every car "led the most".
    return loadWith(u" select * FROM results  WHERE race_nmbr = "_s + sqlNumber(raceNmbr) + u" AND laps_led = "_s + sqlNumber(most));
}

int32_t cResultsCollection::loadFastQualifier(int16_t raceNmbr)
{
    return loadWith(u" select * FROM results  WHERE race_nmbr = "_s + sqlNumber(raceNmbr) + u" AND fast_Qual = 1"_s);
}

int32_t cResultsCollection::loadLapsLed(int16_t raceNmbr)
{
    return loadWith(u" select * FROM results  WHERE race_nmbr = "_s + sqlNumber(raceNmbr) + u" AND laps_led > 0 "_s);
}

bool cResultsCollection::raceExists(int16_t raceNmbr)
{
    if (Count() == 0)
        load();
    for (const cResults& r : *this)
        if (r.raceNmbr() == raceNmbr)
            return true;
    return false;
}

bool cResultsCollection::carExists(int16_t carNmbr)
{
    if (Count() == 0)
        load();
    for (const cResults& r : *this)
        if (r.carNmbr() == carNmbr)
            return true;
    return false;
}

int16_t cResultsCollection::getPlace(int16_t carNmbr) const
{
    for (const cResults& r : *this)
        if (r.carNmbr() == carNmbr)
            return r.place();
    return 0;
}

bool cResultsCollection::deleteTeamResultsSummary(int16_t raceNmbr)
{
    return m_db.execute(u"DELETE FROM team_results_summary where race_nmbr = "_s + sqlNumber(raceNmbr));
}

bool cResultsCollection::deleteTeamResults(int16_t raceNmbr)
{
    return m_db.execute(u"DELETE FROM team_results where race_nmbr = "_s + sqlNumber(raceNmbr));
}

bool cResultsCollection::deletePosting(int16_t raceNmbr)
{
    return deleteTeamResultsSummary(raceNmbr) && deleteTeamResults(raceNmbr);
}

bool cResultsCollection::deleteResults(int16_t raceNmbr)
{
    // Results never stay behind without their posting being gone first.
    return deleteTeamResultsSummary(raceNmbr) && deleteTeamResults(raceNmbr) &&
           m_db.execute(u"DELETE FROM results where race_nmbr = "_s + sqlNumber(raceNmbr));
}

bool cResultsCollection::insertResults()
{
    cTransaction transaction;
    if (Count() > 0 && !deleteResults(Item(1).raceNmbr()))
        return false;
    for (cResults& row : *this) {
        if (!row.insertRow())
            return false;
    }
    transaction.commit();
    return true;
}

QString cResultsCollection::validateData()
{
    QString errors;
    for (int i = 1; i <= Count(); ++i) {
        for (int j = i + 1; j <= Count(); ++j) {
            const cResults& a = Item(i);
            const cResults& b = Item(j);
            if (a.carNmbr() == b.carNmbr()) {
                cCar car;
                car.load(a.carNmbr());
                errors += u"Car Number "_s + car.carTxt() + u" exists more than once."_s + u'\n';
            }
            if (a.place() == b.place() && a.place() != 0)
                errors += u" Place "_s + sqlNumber(a.place()) + u" exists more than once."_s + u'\n';
        }
    }
    return errors;
}
