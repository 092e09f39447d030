#include "racing/results.h"

bool cResultsCollection::deleteTeamResultsSummary(int16_t raceNmbr)
{
    return m_db.execute(QStringLiteral("DELETE FROM team_results_summary where race_nmbr = ") + QString::number(raceNmbr));
}

bool cResultsCollection::deleteTeamResults(int16_t raceNmbr)
{
    return m_db.execute(QStringLiteral("DELETE FROM team_results where race_nmbr = ") + QString::number(raceNmbr));
}

bool cResultsCollection::deletePosting(int16_t raceNmbr)
{
    return deleteTeamResultsSummary(raceNmbr) && deleteTeamResults(raceNmbr);
}
