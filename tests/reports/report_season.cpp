#include "report_season.h"
#include "racing/posting.h"

ReportSeason buildReportSeason()
{
    Season s;
    ReportSeason made;
    const int16_t method = s.method({40, 35, 30, 25, 20, 15, 10}, 5, 10, 3, {3, 2, 1});
    made.league = s.league(method);
    Season::run(u"UPDATE leagues SET league_name = 'Sunday Cup  ' WHERE league_nmbr = %1"_s.arg(made.league));
    for (const char16_t* name : {u"Red Arrows", u"Blue Comets", u"Green Flags"}) {
        const int16_t team = s.team(made.league);
        Season::run(u"UPDATE teams SET team_name = '%1', team_owner = 'Owner of %1', email = '%2@example.org', "
                    u"phone = '555-01%3' WHERE team_nmbr = %4"_s.arg(QString::fromUtf16(name))
                        .arg(QString::fromUtf16(name).section(u' ', 0, 0).toLower()).arg(team % 100, 2, 10, QChar(u'0'))
                        .arg(team));
        made.teams << team;
    }
    const int16_t c2 = s.car(u"2"_s), c3 = s.car(u"3"_s), c6 = s.car(u"6"_s), c9 = s.car(u"9"_s), c11 = s.car(u"11"_s),
                  c24 = s.car(u"24"_s), c48 = s.car(u"48"_s);
    Season::run(u"UPDATE cars SET sponsor = '  Fuel Co ' WHERE car_nmbr = %1"_s.arg(c2));
    s.hold(made.teams[0], c2, u"2026-01-01"_s);
    s.hold(made.teams[0], c3, u"2026-01-01"_s);
    s.hold(made.teams[1], c6, u"2026-01-01"_s);
    s.hold(made.teams[1], c9, u"2026-01-01"_s);
    s.hold(made.teams[2], c11, u"2026-01-01"_s);
    s.hold(made.teams[2], c24, u"2026-01-01"_s, u"2026-03-10"_s);
    s.hold(made.teams[2], c48, u"2026-03-15"_s);

    made.races << s.race(u"2026-03-01"_s) << s.race(u"2026-03-08"_s) << s.race(u"2026-03-22"_s)
               << s.race(u"2026-03-29"_s);
    Season::run(u"UPDATE races SET race_status_nmbr = 1 WHERE race_nmbr = %1"_s.arg(made.races[2]));
    Season::run(u"UPDATE races SET race_status_nmbr = 3 WHERE race_nmbr = %1"_s.arg(made.races[3]));
    // race, car, place, qualified, laps led, fast qualifier, adjustment
    s.result(made.races[0], c2, 1, 2, 120, 0);
    s.result(made.races[0], c3, 4, 1, 0, 1);
    s.result(made.races[0], c6, 2, 3, 30);
    s.result(made.races[0], c11, 3, 5);
    s.result(made.races[0], c24, 5, 4, 2);
    postResults(Season::raceRecord(made.races[0]));
    s.result(made.races[1], c2, 3, 1, 10, 1);
    s.result(made.races[1], c3, 999);   // did not qualify
    s.result(made.races[1], c6, 1, 2, 150);
    s.result(made.races[1], c9, 2, 3, 5, 0, -5);
    s.result(made.races[1], c11, 4);
    postResults(Season::raceRecord(made.races[1]));
    s.result(made.races[2], c3, 1, 2, 90);
    s.result(made.races[2], c9, 2, 1, 10, 1);
    s.result(made.races[2], c11, 3);
    s.result(made.races[2], c48, 4, 3, 1);
    postResults(Season::raceRecord(made.races[2]));
    s.result(made.races[3], c2, 2, 1, 0, 1);
    s.result(made.races[3], c6, 1, 2, 60);
    s.result(made.races[3], c48, 3);
    postResults(Season::raceRecord(made.races[3]));

    // Another series, so that no page shows its rows.
    const int16_t otherMethod = s.method({10, 5});
    made.otherLeague = s.league(otherMethod, 1, 0, 6, 1);
    const int16_t outsider = s.team(made.otherLeague);
    const int16_t c99 = s.car(u"99"_s, 6);
    s.hold(outsider, c99, u"2026-01-01"_s);
    made.otherRace = s.race(u"2026-03-02"_s, 6);
    s.result(made.otherRace, c99, 1);

    postResults(Season::raceRecord(made.otherRace));
    return made;
}
