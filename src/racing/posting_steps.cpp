// The posting steps of cTeamResults: each works on the team_results rows of one league and
// race, takes the league and the race, and returns false to stop the league's posting.
#include "base/messages.h"
#include "league/car.h"
#include "league/league.h"
#include "league/league_teams.h"
#include "league/team_car.h"
#include "racing/races.h"
#include "racing/results.h"
#include "racing/scoring_points.h"
#include "racing/team_results.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

// " AND team_results.race_nmbr = <race> AND team_results.league_nmbr = <league>"-style filter
// shared by the three bonus updates.
QString bonusFilter(const cLeague& league, const cRaces& race, int16_t carNmbr)
{
    return u" WHERE team_results.race_nmbr = "_s + sqlNumber(race.raceNmbr()) + u" AND team_results.league_nmbr = "_s +
           sqlNumber(league.leagueNmbr()) + u" AND team_results.car_nmbr = "_s + sqlNumber(carNmbr);
}

bool highScoreOf(const cLeague& league)
{
    cScoringPointsCollection points;
    points.load(league.scoringTypeNmbr());
    return points.highScore();
}

} // namespace

bool cTeamResults::postForLeague(const cLeague& league, const cRaces& race)
{
    const QString raceText = sqlNumber(race.raceNmbr());
    const QString leagueText = sqlNumber(league.leagueNmbr());
    // A roster entry covers the race when efctv_dt <= race day < term_dt: a car is on the team
    // on its effective date and off it on its termination date.
    return m_db.execute(
        u" INSERT INTO team_results  ( race_nmbr  , place  , qualified  , car_nmbr  , team_nmbr  , current_status  , fast_qual_bonus  , laps_led_bonus  , most_laps_led_bonus  , adjustment  , points  , qual_points  , total_points  , league_nmbr )  SELECT "_s +
        raceText +
        u" , results.place  , results.qualified  , results.car_nmbr  , team_car.team_nmbr  , 1  , 0  , 0  , 0  , results.adjustment  , 0  , 0  , 0  , "_s +
        leagueText + u" From races, team_car, results, league_teams WHERE results.race_nmbr = "_s + raceText +
        u" AND results.race_nmbr = races.race_nmbr  AND team_car.car_nmbr = results.car_nmbr  AND (team_car.term_dt Is Null Or team_car.term_dt > races.race_dt)  AND team_car.efctv_dt <= races.race_dt  AND league_teams.league_nmbr = "_s +
        leagueText + u" AND league_teams.team_nmbr = team_car.team_nmbr "_s);
}

std::optional<int16_t> cTeamResults::bonusAmount(const cLeague& league, const QString& column)
{
    if (!m_db.OpenResultSet(u" SELECT "_s + column + u"  FROM leagues,scoring_type  WHERE leagues.league_nmbr = "_s +
                            sqlNumber(league.leagueNmbr()) +
                            u"   AND leagues.scoring_type_nmbr = scoring_type.scoring_type_nmbr "_s))
        return std::nullopt;
    return m_db.fields(column).toInt16();
}

bool cTeamResults::setFastQualBonus(const cLeague& league, const cRaces& race)
{
    const auto amount = bonusAmount(league, u"fast_qual_bonus"_s);
    if (!amount)
        return false;
    if (*amount == 0)
        return true;
    cResultsCollection cars;
    cars.loadFastQualifier(race.raceNmbr());
    for (const cResults& car : cars)
        if (!m_db.execute(u" UPDATE team_results  SET fast_qual_bonus = "_s + sqlNumber(*amount) +
                          bonusFilter(league, race, car.carNmbr())))
            return false;
    return true;
}

bool cTeamResults::setMostLapsLedBonus(const cLeague& league, const cRaces& race)
{
    const auto amount = bonusAmount(league, u"most_laps_led_bonus"_s);
    if (!amount)
        return false;
    if (*amount == 0)
        return true;
    // With nobody leading a lap, every car "led the most"; only this bonus needs a place.
    cResultsCollection cars;
    cars.loadMostLapsLed(race.raceNmbr());
    for (const cResults& car : cars)
        if (!m_db.execute(u" UPDATE team_results  SET most_laps_led_bonus = "_s + sqlNumber(*amount) +
                          bonusFilter(league, race, car.carNmbr()) + u" AND team_results.place > 0"_s))
            return false;
    return true;
}

bool cTeamResults::setLapsLedBonus(const cLeague& league, const cRaces& race)
{
    const auto amount = bonusAmount(league, u"laps_led_bonus"_s);
    if (!amount)
        return false;
    if (*amount == 0)
        return true;
    cResultsCollection cars;
    cars.loadLapsLed(race.raceNmbr());
    for (const cResults& car : cars)
        if (!m_db.execute(u" UPDATE team_results  SET laps_led_bonus = "_s + sqlNumber(*amount) +
                          bonusFilter(league, race, car.carNmbr())))
            return false;
    return true;
}

bool cTeamResults::setQualPointsBonus(const cLeague& league, const cRaces& race)
{
    cScoringPointsCollection qual;
    if (qual.loadQual(league.scoringTypeNmbr()) == 0)
        return true;
    cTeamResultsCollection rows;
    rows.load(league.leagueNmbr(), race.raceNmbr());
    QSet<int16_t> done;
    for (const cTeamResults& row : rows) {
        const int16_t points = qual.qualPointsForPlace(row.qualified());
        // Keyed by the qualifying position, not the car: one statement sets every row of that
        // position, so a position already set is not set again.
        if (points == 0 || done.contains(row.qualified()))
            continue;
        done.insert(row.qualified());
        if (!m_db.execute(u" UPDATE team_results  SET qual_points = ( "_s + sqlNumber(points) +
                          u")  WHERE team_results.qualified = "_s + sqlNumber(row.qualified()) +
                          u" AND team_results.race_nmbr = "_s + sqlNumber(race.raceNmbr()) +
                          u" AND team_results.league_nmbr = "_s + sqlNumber(league.leagueNmbr())))
            return false;
    }
    return true;
}

bool cTeamResults::setPoints(const cLeague& league, const cRaces& race)
{
    cTeamResultsCollection rows;
    rows.load(league.leagueNmbr(), race.raceNmbr());
    cScoringPointsCollection method;
    method.load(league.scoringTypeNmbr());
    for (const cTeamResults& row : rows) {
        // 32-bit arithmetic on the row as it stands, so the script's changes count.
        const int32_t sum = checkedNarrow<int32_t>(int64_t{method.pointsForPlace(row.place())} + row.lapsLedBonus() +
                                                   row.mostLapsLedBonus() + row.fastQualBonus() + row.qualPoints() +
                                                   row.adjustment());
        if (!m_db.execute(u" UPDATE team_results  SET points = ( "_s + sqlNumber(sum) + u")  WHERE team_results.car_nmbr = "_s +
                          sqlNumber(row.carNmbr()) + u" AND team_results.team_nmbr = "_s + sqlNumber(row.teamNmbr()) +
                          u" AND team_results.race_nmbr = "_s + sqlNumber(race.raceNmbr()) +
                          u" AND team_results.league_nmbr = "_s + sqlNumber(league.leagueNmbr())))
            return false;
        advanceProgress();
    }
    return true;
}

bool cTeamResults::setTopBonus(const cLeague& league, const cRaces& race)
{
    cScoringTopPointsCollection topRows;
    if (topRows.load(league.scoringTypeNmbr()) == 0)
        return true;
    cCar bonusCar;
    bonusCar.getTopBonusCar(race.raceTypeNmbr());
    cLeagueTeamsCollection members;
    members.load(league.leagueNmbr());
    for (const cScoringTopPoints& top : topRows) {
        if (top.points() == 0)
            continue;
        for (const cLeagueTeams& member : members) {
            // Exactly nmbr cars in the top places earn it; one more earns nothing.
            if (topXsInRace(top.top(), league.leagueNmbr(), member.teamNmbr(), race.raceNmbr()) != top.nmbr())
                continue;
            cTeamCar entry;
            if (entry.load(member.teamNmbr(), bonusCar.carNmbr()) == 0) {
                cTeamCar added;
                added.setCarNmbr(bonusCar.carNmbr());
                added.setTeamNmbr(member.teamNmbr());
                added.setEfctvDt(race.raceDate());
                added.insertRow();
            }
            if (!insertRow(race.raceNmbr(), 0, 0, bonusCar.carNmbr(), member.teamNmbr(), 1, 0, 0, 0, 0, top.points(), 0,
                           0, league.leagueNmbr()))
                return false;
        }
    }
    return true;
}

bool cTeamResults::insertDNQDrivers(const cLeague& league, const cRaces& race)
{
    const int16_t place = highScoreOf(league) ? 999 : 0;
    cTeamResultsCollection previous;
    previous.loadPreviousRace(league, race);
    cTeamCarCollection cars;
    cars.loadDNQcars(race.raceNmbr(), league);
    for (const cTeamCar& car : cars) {
        if (!insertRow(race.raceNmbr(), place, 0, car.carNmbr(), car.teamNmbr(), 2, 0, 0, 0, 0, 0, 0,
                       previous.getTotalPoints(car.carNmbr(), car.teamNmbr()), league.leagueNmbr()))
            return false;
        advanceProgress();
    }
    return true;
}

bool cTeamResults::dropLowestFinishers(const cLeague& league, const cRaces& race)
{
    if (league.dropLowest() < 1)
        return true;
    // The worst scores come first: the lowest in a high-score method, the highest otherwise.
    const QString direction = highScoreOf(league) ? u"asc"_s : u"desc"_s;
    cLeagueTeamsCollection members;
    members.load(league.leagueNmbr());
    cTeamResultsCollection rows;
    for (const cLeagueTeams& member : members) {
        rows.clear();
        rows.loadNoBonusCars(league.leagueNmbr(), race.raceNmbr(), member.teamNmbr(), direction);
        int counted = 0;
        for (cTeamResults& row : rows) {
            if (++counted > league.dropLowest())
                break;
            row.setAdjustment(0);
            row.setFastQualBonus(0);
            row.setLapsLedBonus(0);
            row.setMostLapsLedBonus(0);
            row.setPoints(0);
            row.setQualPoints(0);
            if (!row.update())
                return false;
        }
        advanceProgress();
    }
    return true;
}

bool cTeamResults::dropInactiveDrivers(const cLeague& league, const cRaces& race)
{
    // No date test: a car with any inactive entry on the team is wiped, whichever stint covers the race.
    return m_db.execute(
        u"UPDATE team_results  SET adjustment = 0  ,fast_Qual_Bonus = 0  ,laps_Led_Bonus = 0  ,most_Laps_Led_Bonus = 0  ,points = 0  ,qual_Points = 0  WHERE league_nmbr = "_s +
        sqlNumber(league.leagueNmbr()) + u" AND race_nmbr = "_s + sqlNumber(race.raceNmbr()) +
        u" AND team_nmbr IN        (SELECT team_nmbr        FROM team_car        WHERE active = 0)  AND car_nmbr IN        (SELECT car_nmbr        FROM team_car        WHERE active = 0        AND team_nmbr = team_results.team_nmbr)"_s);
}

bool cTeamResults::setTotalPoints(const cLeague& league, const cRaces& race)
{
    cTeamResultsCollection rows;
    rows.load(league.leagueNmbr(), race.raceNmbr());
    cTeamResultsCollection previous;
    previous.loadPreviousRace(league, race);
    for (const cTeamResults& row : rows) {
        const int32_t carried = previous.getTotalPoints(row.carNmbr(), row.teamNmbr());
        if (!m_db.execute(u" UPDATE team_results  SET total_points = points + "_s + sqlNumber(carried) + u" WHERE team_nmbr = "_s +
                          sqlNumber(row.teamNmbr()) + u" AND car_nmbr = "_s + sqlNumber(row.carNmbr()) + u" AND league_nmbr = "_s +
                          sqlNumber(league.leagueNmbr()) + u" AND race_nmbr = "_s + sqlNumber(race.raceNmbr())))
            return false;
        advanceProgress();
    }
    return true;
}

bool cTeamResults::insertDroppedDrivers(const cLeague& league, const cRaces& race)
{
    cResultsCollection results;
    results.load(race.raceNmbr());
    cTeamResultsCollection dropped;
    dropped.loadDroppedDrivers(league, race);
    for (const cTeamResults& row : dropped) {
        if (!insertRow(race.raceNmbr(), results.getPlace(row.carNmbr()), 0, row.carNmbr(), row.teamNmbr(), 2, 0, 0, 0, 0,
                       0, 0, row.totalPoints(), league.leagueNmbr()))
            return false;
        advanceProgress();
    }
    return true;
}
