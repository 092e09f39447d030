#include "league/team_car.h"
#include "league/car.h"
#include "league/league.h"
#include "store/dates.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace {
// A double in the general number form of a statement: no exponent, no trailing zeros.
QString sqlDouble(double value)
{
    QString text = QString::number(value, 'f', 4);
    while (text.endsWith(u'0'))
        text.chop(1);
    if (text.endsWith(u'.'))
        text.chop(1);
    return text == u"-0"_s ? u"0"_s : text;
}

// A stored date always stands between quotes in these statements (an empty one as '').
QString quotedDate(const QDate& date)
{
    return u"'"_s + shortDate(date) + u"'"_s;
}
}

// ---- cTeamCar ----

void cTeamCar::setTermDt(const QString& value)
{
    m_termDt = parseDate(value.trimmed());
}

void cTeamCar::setEfctvDt(const QString& value)
{
    m_efctvDt = parseDate(value.trimmed());
}

bool cTeamCar::CommitChanges()
{
    return teamCarExists(m_teamNmbr, m_carNmbr, m_efctvDt) ? updateRow() : insertRow();
}

bool cTeamCar::updateRow()
{
    // Named by team and car only: every stint of the car on the team gets these values.
    return m_db.execute(u"UPDATE team_car "_s
                        u" set efctv_dt = "_s + quotedDate(m_efctvDt) +
                        (m_termDt.isValid() ? u" ,term_dt = "_s + quotedDate(m_termDt) : u" ,term_dt = NULL"_s) +
                        u" ,active = "_s + (m_active != 0 ? u"1"_s : u"0"_s) +
                        u" WHERE team_nmbr = "_s + sqlNumber(m_teamNmbr) +
                        u" AND car_nmbr = "_s + sqlNumber(m_carNmbr));
}

bool cTeamCar::insertRow()
{
    return m_db.execute(u"INSERT INTO team_car "_s
                        u" (team_nmbr,"_s
                        u" car_nmbr,"_s
                        u" efctv_dt,"_s
                        u" term_dt,"_s
                        u" price,"_s
                        u" locked_salary,"_s
                        u" active)"_s
                        u" VALUES "_s
                        u"("_s + sqlNumber(m_teamNmbr) + u","_s + sqlNumber(m_carNmbr) + u","_s + quotedDate(m_efctvDt) +
                        u","_s + (m_termDt.isValid() ? quotedDate(m_termDt) + u","_s : u"NULL,"_s) +
                        sqlDouble(m_price) + u","_s + sqlDouble(m_lockedSalary) + u","_s +
                        QString::number(m_active) + u")"_s);
}

bool cTeamCar::deleteRow()
{
    return m_db.execute(u"DELETE FROM team_car "_s
                        u" WHERE team_nmbr = "_s + sqlNumber(m_teamNmbr) +
                        u" AND car_nmbr = "_s + sqlNumber(m_carNmbr) +
                        u" AND efctv_dt = "_s + sqlDateLiteral(m_efctvDt));
}

bool cTeamCar::teamCarExists(int16_t teamNmbr, int16_t carNmbr, const QDate& efctvDt)
{
    return m_db.OpenResultSet(u"SELECT *"_s
                              u" FROM team_car"_s
                              u" WHERE team_nmbr = "_s + sqlNumber(teamNmbr) +
                              u" AND car_nmbr = "_s + sqlNumber(carNmbr) +
                              u" AND efctv_dt = "_s + sqlDateLiteral(efctvDt)) &&
           !m_db.eof();
}

int32_t cTeamCar::load(int16_t teamNmbr, int16_t carNmbr)
{
    if (!m_db.OpenResultSet(u"SELECT *"_s
                            u" FROM team_car"_s
                            u" WHERE team_nmbr = "_s + sqlNumber(teamNmbr) +
                            u" AND car_nmbr = "_s + sqlNumber(carNmbr)) ||
        m_db.eof())
        return 0;
    m_teamNmbr = m_db.fields(u"team_nmbr"_s).toInt16();
    m_carNmbr = m_db.fields(u"car_nmbr"_s).toInt16();
    m_efctvDt = m_db.fields(u"efctv_dt"_s).toDate();
    const cVariant& termDt = m_db.fields(u"term_dt"_s);
    m_termDt = termDt.isNull() ? QDate() : parseDate(termDt.toText());
    m_price = m_db.fields(u"price"_s).toDouble();
    const cVariant& locked = m_db.fields(u"locked_salary"_s);
    m_lockedSalary = locked.isNull() ? 0.0 : locked.toDouble();
    m_active = m_db.fields(u"active"_s).toByte();
    return 1;
}

QString cTeamCar::getTeamsForCar(int16_t teamNmbr, int16_t carNmbr, const QString& teamList)
{
    QString statement = u"SELECT team_nmbr"_s
                        u" FROM team_car"_s
                        u" WHERE car_nmbr = "_s + sqlNumber(carNmbr) +
                        u" AND team_nmbr <> "_s + sqlNumber(teamNmbr);
    if (!teamList.isEmpty())
        statement += u" AND team_nmbr in "_s + teamList;
    statement += u" AND term_dt is NULL"_s;

    QStringList teams;
    if (m_db.OpenResultSet(statement)) {
        while (!m_db.eof()) {
            teams << sqlNumber(m_db.fields(u"team_nmbr"_s).toInt16());
            m_db.MoveNext();
        }
    }
    return u"("_s + teams.join(u',') + u")"_s;
}

int16_t cTeamCar::duplicateTeam(int16_t teamNmbr)
{
    std::vector<int16_t> openCars;   // bonus entries count like any other
    if (m_db.OpenResultSet(u"SELECT car_nmbr "_s
                           u" FROM team_car "_s
                           u" WHERE team_nmbr = "_s + sqlNumber(teamNmbr) +
                           u" AND term_dt is NULL"_s)) {
        while (!m_db.eof()) {
            openCars.push_back(m_db.fields(u"car_nmbr"_s).toInt16());
            m_db.MoveNext();
        }
    }
    // A team with nothing open has nothing to compare: no duplicate.
    if (openCars.empty())
        return -1;

    // Each car narrows the list of teams that hold all cars seen so far.
    QString teams;
    for (int16_t carNmbr : openCars) {
        teams = getTeamsForCar(teamNmbr, carNmbr, teams);
        if (teams == u"()"_s)
            return -1;
    }
    const QString inner = teams.mid(1, teams.size() - 2);
    return checkedNarrow<int16_t>(inner.section(u',', 0, 0).toInt());
}

cTeamCar cTeamCar::copy() const
{
    cTeamCar working;
    working.m_active = m_active;
    working.m_lockedSalary = m_lockedSalary;
    working.m_price = m_price;
    working.m_termDt = m_termDt;
    working.m_efctvDt = m_efctvDt;
    working.m_carNmbr = m_carNmbr;
    working.m_teamNmbr = m_teamNmbr;
    return working;
}

// ---- cTeamCarCollection ----

cTeamCar& cTeamCarCollection::Add(int16_t teamNmbr, int16_t carNmbr, const QDate& efctvDt, const QDate& termDt,
                                  double price, double LockedSalary, uint8_t active, const QString& sKey)
{
    auto record = std::make_unique<cTeamCar>();
    record->setTeamNmbr(teamNmbr);
    record->setCarNmbr(carNmbr);
    record->setEfctvDt(efctvDt);
    record->setTermDt(termDt);
    record->setPrice(price);
    record->setLockedSalary(LockedSalary);
    record->setActive(active);
    return append(std::move(record), sKey);
}

int32_t cTeamCarCollection::loadFrom(const QString& statement)
{
    if (m_db.OpenResultSet(statement) && !m_db.eof())
        fill();
    return loadedCount();
}

void cTeamCarCollection::fill()
{
    while (!m_db.eof()) {
        const cVariant& termDt = m_db.fields(u"term_dt"_s);
        // A roster copied by insertNew has no locked salary: it costs nothing rather than
        // making the roster unreadable.
        const cVariant& locked = m_db.fields(u"locked_salary"_s);
        Add(m_db.fields(u"team_nmbr"_s).toInt16(), m_db.fields(u"car_nmbr"_s).toInt16(),
            m_db.fields(u"efctv_dt"_s).toDate(), termDt.isNull() ? QDate() : parseDate(termDt.toText()),
            m_db.fields(u"price"_s).toDouble(), locked.isNull() ? 0.0 : locked.toDouble(),
            m_db.fields(u"active"_s).toByte());
        m_db.MoveNext();
    }
}

int32_t cTeamCarCollection::load(std::optional<int16_t> teamNmbr)
{
    QString statement = u"SELECT *"_s
                        u" FROM team_car"_s;
    if (teamNmbr)
        statement += u" WHERE team_nmbr = "_s + sqlNumber(*teamNmbr);
    return loadFrom(statement);
}

int32_t cTeamCarCollection::loadNoBonus(std::optional<int16_t> teamNmbr)
{
    QString statement = u"SELECT team_car.*"_s
                        u" FROM team_car, cars"_s
                        u" WHERE team_car.car_nmbr = cars.car_nmbr"_s
                        u" AND car_type_nmbr in (1,2)"_s;
    if (teamNmbr)
        statement += u" AND team_nmbr = "_s + sqlNumber(*teamNmbr);
    return loadFrom(statement);
}

int32_t cTeamCarCollection::loadCar(int16_t carNmbr)
{
    return loadFrom(u"SELECT *"_s
                    u" FROM team_car"_s
                    u" WHERE car_nmbr = "_s + sqlNumber(carNmbr));
}

int32_t cTeamCarCollection::loadGroup(int16_t teamNmbr, int16_t groupNmbr)
{
    return loadFrom(u"SELECT A.* "_s
                    u" FROM team_car A, cars B "_s
                    u" WHERE A.car_nmbr = B.car_nmbr "_s
                    u" AND B.group_nmbr = "_s + sqlNumber(groupNmbr) +
                    u" AND A.team_nmbr = "_s + sqlNumber(teamNmbr) +
                    u" AND A.term_dt is NULL "_s);
}

int32_t cTeamCarCollection::loadDNQcars(int16_t raceNmbr, const cLeague& league)
{
    const int16_t leagueNmbr = league.leagueNmbr();
    if (!m_db.OpenResultSet(u"SELECT race_dt, race_type_nmbr "_s
                            u" FROM races "_s
                            u" WHERE race_nmbr = "_s + sqlNumber(raceNmbr)) ||
        m_db.eof())
        return loadedCount();
    const QString raceDt = sqlDateLiteral(m_db.fields(u"race_dt"_s).toDate());
    const int16_t raceTypeNmbr = m_db.fields(u"race_type_nmbr"_s).toInt16();

    // In force on race day: effective that day or before, terminated after it or not at all.
    return loadFrom(u" SELECT team_car.* "_s
                    u" FROM team_car, cars, league_teams "_s
                    u" WHERE team_car.car_nmbr NOT IN ("_s
                    u"   SELECT car_nmbr"_s
                    u"   FROM results"_s
                    u"   WHERE race_nmbr = "_s + sqlNumber(raceNmbr) + u")"_s +
                    u" AND team_car.team_nmbr = league_teams.team_nmbr "_s
                    u" AND league_teams.league_nmbr = "_s + sqlNumber(leagueNmbr) +
                    u" AND team_car.car_nmbr = cars.car_nmbr "_s
                    u" AND cars.race_type_nmbr = "_s + sqlNumber(raceTypeNmbr) +
                    u" AND team_car.efctv_dt <= "_s + raceDt +
                    u" AND (team_car.term_dt > "_s + raceDt +
                    u"  OR team_car.term_dt is null)"_s);
}

bool cTeamCarCollection::insertNew(int16_t teamNmbr)
{
    if (!m_db.execute(u"DELETE FROM team_car "_s
                      u" WHERE team_nmbr = "_s + sqlNumber(teamNmbr)))
        return false;
    for (const cTeamCar& entry : *this) {
        const QDate termDt = entry.termDt();
        if (!m_db.execute(u"INSERT INTO team_car "_s
                          u" (team_nmbr,"_s
                          u" car_nmbr,"_s
                          u" efctv_dt,"_s
                          u" term_dt,"_s
                          u" price,"_s
                          u" active)"_s
                          u" VALUES "_s
                          u"("_s + sqlNumber(teamNmbr) + u","_s + sqlNumber(entry.carNmbr()) + u","_s +
                          quotedDate(entry.efctvDt()) + u","_s +
                          (termDt.isValid() ? quotedDate(termDt) + u","_s : u"NULL,"_s) + sqlDouble(entry.price()) +
                          u","_s + QString::number(entry.active()) + u")"_s))
            return false;
    }
    return true;
}

bool cTeamCarCollection::carExists(int16_t carNmbr)
{
    if (Count() == 0)
        load();
    for (const cTeamCar& entry : *this)
        if (entry.carNmbr() == carNmbr)
            return true;
    return false;
}

void cTeamCarCollection::loadForExistsTest(std::optional<int16_t> teamNmbr, std::optional<int16_t> carNmbr)
{
    if (Count() != 0)
        return;
    if (teamNmbr)
        load(teamNmbr);
    else if (carNmbr)
        loadCar(*carNmbr);
    else
        load();
}

bool cTeamCarCollection::raceTypeExists(int16_t raceTypeNmbr, std::optional<int16_t> teamNmbr,
                                        std::optional<int16_t> carNmbr)
{
    loadForExistsTest(teamNmbr, carNmbr);
    for (const cTeamCar& entry : *this) {
        cCar car;
        car.load(entry.carNmbr());
        if (car.raceTypeNmbr() == raceTypeNmbr)
            return true;
    }
    return false;
}

bool cTeamCarCollection::carTypeExists(int16_t carTypeNmbr, std::optional<int16_t> teamNmbr,
                                       std::optional<int16_t> carNmbr)
{
    loadForExistsTest(teamNmbr, carNmbr);
    for (const cTeamCar& entry : *this) {
        cCar car;
        car.load(entry.carNmbr());
        if (car.carTypeNmbr() == carTypeNmbr)
            return true;
    }
    return false;
}

bool cTeamCarCollection::TermAll(int16_t teamNmbr, const QDate& termDt)
{
    return m_db.execute(u" UPDATE team_car "_s
                        u" SET term_dt = '"_s + shortDate(termDt) + u"'"_s +
                        u" WHERE team_nmbr = "_s + sqlNumber(teamNmbr) +
                        u" AND term_dt is NULL "_s);
}
