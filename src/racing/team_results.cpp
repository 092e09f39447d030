#include "racing/team_results.h"
#include "league/league.h"
#include "racing/races.h"

using namespace Qt::StringLiterals;

namespace {
QString num(int64_t value)
{
    return QString::number(value);
}
} // namespace

int16_t cTeamResults::wins(const cLeague& league, int16_t teamNmbr, int16_t raceNmbr)
{
    return topXs(1, league, teamNmbr, raceNmbr);
}

int16_t cTeamResults::top5s(const cLeague& league, int16_t teamNmbr, int16_t raceNmbr)
{
    return topXs(5, league, teamNmbr, raceNmbr);
}

int16_t cTeamResults::top10s(const cLeague& league, int16_t teamNmbr, int16_t raceNmbr)
{
    return topXs(10, league, teamNmbr, raceNmbr);
}

int16_t cTeamResults::readCount()
{
    return m_db.eof() ? int16_t(0) : m_db.fields(u"count"_s).toInt16();
}

// The season so far: races of the league's race type and Score By up to the race's date.
// Carried rows (status 2) and unplaced rows (place 0) do not count.
int16_t cTeamResults::topXs(int16_t x, const cLeague& league, int16_t teamNmbr, int16_t raceNmbr)
{
    if (!m_db.OpenResultSet(u" SELECT count(*) as count "_s
                            u" FROM team_results "_s
                            u" WHERE league_nmbr = "_s + num(league.leagueNmbr()) +
                            u" AND team_nmbr = "_s + num(teamNmbr) +
                            u" AND place <= "_s + num(x) +
                            u" AND place > 0 "_s
                            u" AND current_status = 1 "_s
                            u" AND race_nmbr in ( "_s
                            u"        SELECT race_nmbr "_s
                            u"         FROM races "_s
                            u"         WHERE race_type_nmbr = "_s + num(league.raceTypeNmbr()) +
                            u"         AND car_type_nmbr = "_s + num(league.carTypeNmbr()) +
                            u"         AND race_dt <= "_s
                            u"                (SELECT race_dt "_s
                            u"                FROM races "_s
                            u"                WHERE race_nmbr = "_s + num(raceNmbr) + u"))"_s))
        return 0;
    return readCount();
}

int16_t cTeamResults::topXsInRace(int16_t x, int16_t leagueNmbr, int16_t teamNmbr, int16_t raceNmbr)
{
    if (!m_db.OpenResultSet(u" SELECT count(*) as count "_s
                            u" FROM team_results "_s
                            u" WHERE league_nmbr = "_s + num(leagueNmbr) +
                            u" AND team_nmbr = "_s + num(teamNmbr) +
                            u" AND place <= "_s + num(x) +
                            u" AND place > 0 "_s
                            u" AND race_nmbr = "_s + num(raceNmbr)))
        return 0;
    return readCount();
}

bool cTeamResults::insertRow(int16_t raceNmbr, int16_t place, int16_t qualified, int16_t carNmbr, int16_t teamNmbr,
                             int16_t currentStatus, int32_t fastQualBonus, int32_t lapsLedBonus,
                             int32_t mostLapsLedBonus, int32_t adjustment, int32_t points, int32_t qualPoints,
                             int32_t totalPoints, int16_t leagueNmbr)
{
    const QStringList values = {num(raceNmbr),     num(place),        num(qualified),        num(carNmbr),
                                num(teamNmbr),     num(currentStatus), num(fastQualBonus),   num(lapsLedBonus),
                                num(mostLapsLedBonus), num(adjustment), num(points),         num(qualPoints),
                                num(totalPoints),  num(leagueNmbr)};
    return m_db.execute(u" INSERT INTO team_results "_s
                        u" ( race_nmbr "_s
                        u" , place "_s
                        u" , qualified "_s
                        u" , car_nmbr "_s
                        u" , team_nmbr "_s
                        u" , current_status "_s
                        u" , fast_qual_bonus "_s
                        u" , laps_led_bonus "_s
                        u" , most_laps_led_bonus "_s
                        u" , adjustment "_s
                        u" , points "_s
                        u" , qual_points "_s
                        u" , total_points "_s
                        u" , league_nmbr ) "_s
                        u" Values ("_s + values.join(u" , "_s) + u")"_s);
}

bool cTeamResults::update()
{
    return m_db.execute(u" UPDATE team_results "_s
                        u" set place = "_s + num(m_place) +
                        u" , qualified = "_s + num(m_qualified) +
                        u" , current_status = "_s + num(m_currentStatus) +
                        u" , fast_qual_bonus = "_s + num(m_fastQualBonus) +
                        u" , laps_led_bonus = "_s + num(m_lapsLedBonus) +
                        u" , most_laps_led_bonus = "_s + num(m_mostLapsLedBonus) +
                        u" , adjustment = "_s + num(m_adjustment) +
                        u" , points = "_s + num(m_points) +
                        u" , qual_points = "_s + num(m_qualPoints) +
                        u" , total_points = "_s + num(m_totalPoints) +
                        u" WHERE league_nmbr = "_s + num(m_leagueNmbr) +
                        u" AND race_nmbr = "_s + num(m_raceNmbr) +
                        u" AND car_nmbr = "_s + num(m_carNmbr) +
                        u" AND team_nmbr = "_s + num(m_teamNmbr));
}

int16_t cTeamResults::currentRaceNmbr(int16_t raceTypeNmbr)
{
    const QString type = num(raceTypeNmbr);
    if (!m_db.OpenResultSet(u"SELECT distinct(race_nmbr) FROM team_results WHERE race_nmbr = "_s
                            u"       (SELECT r1.race_nmbr "_s
                            u"       FROM RACES r1 "_s
                            u"       WHERE race_type_nmbr = "_s + type +
                            u"       AND r1.race_dt = "_s
                            u"           (SELECT MAX(r3.race_dt) "_s
                            u"           FROM races r3, team_results r4 "_s
                            u"          WHERE r3.race_nmbr = r4.race_nmbr "_s
                            u"           AND race_type_nmbr = "_s + type + u"))"_s) ||
        m_db.eof())
        return 0;
    return m_db.fields(u"race_nmbr"_s).toInt16();
}

cTeamResults& cTeamResultsCollection::Add(int16_t teamNmbr, int16_t carNmbr, int16_t raceNmbr, int16_t leagueNmbr,
                                          int16_t place, int32_t fastQualBonus, int32_t lapsLedBonus,
                                          int32_t mostLapsLedBonus, int32_t points, int32_t qualPoints,
                                          int32_t totalPoints, int16_t currentStatus, int16_t qualified,
                                          int32_t adjustment, const QString& sKey)
{
    auto record = std::make_unique<cTeamResults>();
    record->setTeamNmbr(teamNmbr);
    record->setCarNmbr(carNmbr);
    record->setRaceNmbr(raceNmbr);
    record->setLeagueNmbr(leagueNmbr);
    record->setPlace(place);
    record->setFastQualBonus(fastQualBonus);
    record->setLapsLedBonus(lapsLedBonus);
    record->setMostLapsLedBonus(mostLapsLedBonus);
    record->setPoints(points);
    record->setQualPoints(qualPoints);
    record->setTotalPoints(totalPoints);
    record->setCurrentStatus(currentStatus);
    record->setQualified(qualified);
    record->setAdjustment(adjustment);
    return append(std::move(record), sKey);
}

void cTeamResultsCollection::clear()
{
    while (Count() > 0)
        Remove(Count());
}

int32_t cTeamResultsCollection::loadFrom(const QString& statement)
{
    if (m_db.OpenResultSet(statement) && !m_db.eof())
        fill();
    return loadedCount();
}

void cTeamResultsCollection::fill()
{
    while (!m_db.eof()) {
        Add(m_db.fields(u"team_nmbr"_s).toInt16(), m_db.fields(u"car_nmbr"_s).toInt16(),
            m_db.fields(u"race_nmbr"_s).toInt16(), m_db.fields(u"league_nmbr"_s).toInt16(),
            m_db.fields(u"place"_s).toInt16(), m_db.fields(u"fast_qual_bonus"_s).toInt32(),
            m_db.fields(u"laps_led_bonus"_s).toInt32(), m_db.fields(u"most_laps_led_bonus"_s).toInt32(),
            m_db.fields(u"points"_s).toInt32(), m_db.fields(u"qual_points"_s).toInt32(),
            m_db.fields(u"total_points"_s).toInt32(), m_db.fields(u"current_status"_s).toInt16(),
            m_db.fields(u"qualified"_s).toInt16(), m_db.fields(u"adjustment"_s).toInt32());
        m_db.MoveNext();
    }
}

int32_t cTeamResultsCollection::load(int16_t leagueNmbr, std::optional<int16_t> raceNmbr,
                                     std::optional<int16_t> teamNmbr, const std::optional<QString>& order)
{
    QString statement = u"SELECT * FROM team_results WHERE league_nmbr = "_s + num(leagueNmbr);
    if (raceNmbr)
        statement += u" AND race_nmbr = "_s + num(*raceNmbr);
    if (teamNmbr)
        statement += u" AND team_nmbr = "_s + num(*teamNmbr);
    if (order)
        statement += u" ORDER BY place "_s + *order;
    return loadFrom(statement);
}

int32_t cTeamResultsCollection::loadNoBonusCars(int16_t leagueNmbr, std::optional<int16_t> raceNmbr,
                                                std::optional<int16_t> teamNmbr, const std::optional<QString>& order)
{
    QString statement = u"SELECT A.* FROM team_results A, cars B WHERE A.league_nmbr = "_s + num(leagueNmbr) +
                        u" AND A.car_nmbr = B.Car_nmbr AND B.car_type_nmbr < 3 "_s;
    if (raceNmbr)
        statement += u" AND A.race_nmbr = "_s + num(*raceNmbr);
    if (teamNmbr)
        statement += u" AND A.team_nmbr = "_s + num(*teamNmbr);
    if (order)
        statement += u" ORDER BY points "_s + *order;
    return loadFrom(statement);
}

// The latest earlier race of the league's race type that has results: r3 is the race itself.
int32_t cTeamResultsCollection::loadPreviousRace(const cLeague& league, const cRaces& race)
{
    const QString raceNmbr = num(race.raceNmbr());
    return loadFrom(u" SELECT team_results.* "_s
                    u" FROM team_results, races r1 "_s
                    u" WHERE team_results.race_nmbr = r1.race_nmbr "_s
                    u" AND team_results.league_nmbr = "_s + num(league.leagueNmbr()) +
                    u" AND r1.race_type_nmbr = "_s + num(league.raceTypeNmbr()) +
                    u" AND r1.race_dt = "_s
                    u"       (SELECT MAX(r2.race_dt) "_s
                    u"       FROM races r2, races r3, results"_s
                    u"       WHERE r2.race_type_nmbr = r3.race_type_nmbr "_s
                    u"        AND r3.race_nmbr = "_s + raceNmbr +
                    u"        AND r2.race_nmbr = results.race_nmbr "_s
                    u"        AND r2.race_dt < "_s
                    u"           (SELECT r3.race_dt "_s
                    u"           FROM races r3"_s
                    u"           WHERE r3.race_nmbr = "_s + raceNmbr + u"))"_s);
}

// The MAX pairs each race with itself, so it ranges over every race type: when a race of
// another type or Score By ran in between, no previous race is found and nothing is carried.
int32_t cTeamResultsCollection::loadDroppedDrivers(const cLeague& league, const cRaces& race)
{
    const QString raceNmbr = num(race.raceNmbr());
    const QString leagueNmbr = num(league.leagueNmbr());
    return loadFrom(u" SELECT * "_s
                    u" FROM team_results tr1"_s
                    u" WHERE race_nmbr = "_s
                    u"       (SELECT r1.race_nmbr "_s
                    u"       FROM RACES r1 "_s
                    u"       WHERE race_type_nmbr = "_s + num(league.raceTypeNmbr()) +
                    u"       AND car_type_nmbr = "_s + num(league.carTypeNmbr()) +
                    u"       AND r1.race_dt = "_s
                    u"           (SELECT MAX(r3.race_dt) "_s
                    u"           FROM races r3, races r4"_s
                    u"           WHERE r3.race_type_nmbr = r4.race_type_nmbr "_s
                    u"           AND r3.race_nmbr = r4.race_nmbr "_s
                    u"           AND r3.race_dt < "_s
                    u"               (SELECT r4.race_dt "_s
                    u"               FROM races r4"_s
                    u"               WHERE r4.race_nmbr = "_s + raceNmbr + u")))"_s
                    u" AND league_nmbr = "_s + leagueNmbr +
                    u" AND car_nmbr NOT IN ("_s
                    u" SELECT car_nmbr"_s
                    u" FROM team_results"_s
                    u" WHERE race_nmbr = "_s + raceNmbr +
                    u" AND team_nmbr = tr1.team_nmbr"_s
                    u" AND league_nmbr = "_s + leagueNmbr + u")"_s);
}

int32_t cTeamResultsCollection::loadPreviousRaces(const cLeague& league, const cRaces& race)
{
    return loadFrom(u" SELECT team_results.* "_s
                    u" FROM team_results, races r1 "_s
                    u" WHERE team_results.race_nmbr = r1.race_nmbr "_s
                    u" AND team_results.league_nmbr = "_s + num(league.leagueNmbr()) +
                    u" AND r1.race_type_nmbr = "_s + num(league.raceTypeNmbr()) +
                    u" AND r1.race_dt <= "_s + sqlDateLiteral(race.raceDate()));
}

int32_t cTeamResultsCollection::getTotalPoints(int16_t carNmbr, int16_t teamNmbr)
{
    for (const cTeamResults& row : *this)
        if (row.carNmbr() == carNmbr && row.teamNmbr() == teamNmbr)
            return row.totalPoints();
    return 0;
}

bool cTeamResultsCollection::anyRow(const QString& statement)
{
    return m_db.OpenResultSet(statement) && !m_db.eof();
}

bool cTeamResultsCollection::resultsForTeamExists(int16_t leagueNmbr, int16_t teamNmbr)
{
    return anyRow(u"SELECT * FROM team_results WHERE team_nmbr = "_s + num(teamNmbr) +
                  u" AND league_nmbr = "_s + num(leagueNmbr));
}

bool cTeamResultsCollection::resultsForCarExistsAfterDate(int16_t teamNmbr, int16_t carNmbr, const QDate& date)
{
    return anyRow(u"SELECT *"_s
                  u" FROM team_results, races"_s
                  u" WHERE team_results.team_nmbr = "_s + num(teamNmbr) +
                  u" AND team_results.car_nmbr = "_s + num(carNmbr) +
                  u" AND team_results.race_nmbr = races.race_nmbr "_s
                  u" AND races.race_dt >= "_s + sqlDateLiteral(date));
}

template <class Field>
int16_t cTeamResultsCollection::sumOf(int16_t teamNmbr, int16_t carNmbr, Field field)
{
    int16_t sum = 0;
    for (const cTeamResults& row : *this)
        if (row.teamNmbr() == teamNmbr && row.carNmbr() == carNmbr)
            sum = checkedNarrow<int16_t>(int64_t(sum) + int64_t((row.*field)()));
    return sum;
}

int16_t cTeamResultsCollection::sumFastQualBonus(int16_t teamNmbr, int16_t carNmbr)
{
    return sumOf(teamNmbr, carNmbr, &cTeamResults::fastQualBonus);
}

int16_t cTeamResultsCollection::sumLapsLedBonus(int16_t teamNmbr, int16_t carNmbr)
{
    return sumOf(teamNmbr, carNmbr, &cTeamResults::lapsLedBonus);
}

int16_t cTeamResultsCollection::sumMostLapsLedBonus(int16_t teamNmbr, int16_t carNmbr)
{
    return sumOf(teamNmbr, carNmbr, &cTeamResults::mostLapsLedBonus);
}

int16_t cTeamResultsCollection::sumQualPoints(int16_t teamNmbr, int16_t carNmbr)
{
    return sumOf(teamNmbr, carNmbr, &cTeamResults::qualPoints);
}
