#pragma once
#include "store/connection.h"

#include <cstdint>

// The real results of races and the removal of what posting wrote for a race.
class cResultsCollection {
public:
    // Removes the race's team sums, then (only if that worked) its scored rows, in every league.
    bool deletePosting(int16_t raceNmbr);
    bool deleteTeamResults(int16_t raceNmbr);
    bool deleteTeamResultsSummary(int16_t raceNmbr);

private:
    IDatabase m_db;
};
