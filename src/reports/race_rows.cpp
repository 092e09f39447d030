#include "reports/race_rows.h"
#include "league/record.h"
#include "store/dates.h"

using namespace Qt::StringLiterals;

QString raceRowsFrom(int16_t leagueNmbr, int16_t raceNmbr)
{
    const QString race = sqlNumber(raceNmbr);
    const QString league = sqlNumber(leagueNmbr);
    return u" FROM team_results A, team_car B, team_results_summary C, cars D, races E, teams F, leagues G"_s
           u" WHERE E.race_nmbr = "_s + race +
           u" And E.race_nmbr = A.race_nmbr"_s
           u" AND D.car_nmbr = A.car_nmbr"_s
           u" AND C.race_nmbr = A.race_nmbr"_s
           u" AND C.team_nmbr = A.team_nmbr"_s
           u" AND C.league_nmbr = A.league_nmbr"_s
           u" AND A.league_nmbr = "_s + league +
           u" AND A.race_nmbr = "_s + race +
           u" AND B.team_nmbr = A.team_nmbr"_s
           u" AND B.car_nmbr = A.car_nmbr"_s
           u" AND F.team_nmbr = A.team_nmbr"_s
           u" AND G.league_nmbr = "_s + league;
}

QString latestRosterEntryCondition()
{
    return u" AND B.efctv_dt = "_s
           u"          (SELECT max(efctv_dt) "_s
           u"              FROM team_car "_s
           u"             WHERE car_nmbr = B.car_nmbr "_s
           u"               AND team_nmbr = B.team_nmbr) "_s;
}

bool passesActiveTest(const IDatabase& rows, bool includeActiveOnly)
{
    if (!includeActiveOnly)
        return true;
    const QDate raceDate = parseDate(rows.fields(u"race_dt"_s).toTextOrEmpty());
    const QDate termDate = parseDate(rows.fields(u"term_dt"_s).toTextOrEmpty());
    const QDate efctvDate = parseDate(rows.fields(u"efctv_dt"_s).toTextOrEmpty());
    if (termDate.isValid() && termDate < raceDate)
        return false;
    return !(efctvDate.isValid() && efctvDate > raceDate);
}
