#pragma once
#include <QString>
#include <cstdint>

class cLeague;
class cRaces;

// Posting turns the real results of a race into the rows the leagues score: one team_results
// row per league, team and car, and one team_results_summary row per league and team. To post
// is always to delete and rebuild. Each league's steps run in one always-committed transaction
// (a batch for speed, never undone), so a stop part-way keeps what was written, as if each
// statement had committed by itself, and is repaired by the next post of the race. The
// operator's script runs outside the batch, each of its statements committing by itself.

// The Post Results command: posts the race (or only clears it when it has no results), then
// offers each later race of its type in date order. From the first No on, every later race
// loses its posting, so a chain of posted races never keeps a stale link. At the end the status
// bar says "Posted " + race name for a few seconds (the idle text when the race had no results).
void postResults(const cRaces& race);

// Removes the race's summary rows and then its scored rows, in every league.
bool clearRacePosting(const cRaces& race);
// Deletes the scored rows of every race (summary first); results, races and rosters stay.
void clearPostingsForNewSeason();
// Clears the race and posts it to every league of its race type.
void postRace(const cRaces& race);
// Runs the steps for a league whose scoring option is 1 or 2; "Invalid Scoring Method" otherwise.
void postRaceForLeague(const cLeague& league, const cRaces& race);
// The fifteen steps of one league in their fixed order; the first false stops the league.
void runPostingSteps(const cLeague& league, const cRaces& race);

// Runs the operator's optional script (application folder + "/" + fileName), split at every
// ";", with %league_nmbr% and %race_nmbr% replaced. A missing file is not an error; a failing
// statement shows its box and the next one runs.
bool runScriptFile(const QString& fileName, int16_t leagueNmbr, int16_t raceNmbr);

inline const QString kScoringScriptName = QStringLiteral("scoring.lk");
