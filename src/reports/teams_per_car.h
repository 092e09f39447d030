#pragma once
#include <QString>
#include <cstdint>

// Teams per Car/Driver: for each car or driver, the league's teams that hold it, as of a race: a
// table per car with each holding's dates and salaries. When the report shows active entries
// only, just the holdings in force on the race's date. Without any holding, the file stays
// empty and the name is empty.
QString teamsPerCarDriverReport(int16_t leagueNmbr, bool launch, int16_t raceNmbr);
