#include "racing/posting.h"
#include "base/app_globals.h"
#include "base/input_file.h"
#include "base/messages.h"
#include "base/runtime_error.h"
#include "league/league.h"
#include "racing/races.h"
#include "racing/results.h"
#include "racing/standings.h"
#include "racing/team_results.h"
#include "store/connection.h"
#include "store/transaction.h"

#include <QFileInfo>
#include <functional>

using namespace Qt::StringLiterals;

void postResults(const cRaces& race)
{
    setMousePointer(kPointerHourglass);
    cResultsCollection allResults;
    allResults.load();
    const bool posted = allResults.raceExists(race.raceNmbr());
    if (posted)
        postRace(race);
    else
        clearRacePosting(race);

    cRacesCollection later;
    later.loadFutureRaces(race.raceNmbr());
    Answer answer = Answer::Yes;
    for (const cRaces& next : later) {
        if (allResults.raceExists(next.raceNmbr()) && answer == Answer::Yes) {
            answer = messageBox(u"Do you want to post results for "_s + next.raceName() + u" now?"_s, u"Lapkeeper"_s,
                                Icon::Question, Buttons::YesNo);
            if (answer == Answer::Yes) {
                postRace(next);
                continue;
            }
            answer = Answer::No;
        }
        clearRacePosting(next);
    }
    // The operator sees for a while that the post is done, then the idle text.
    if (posted)
        setStatusTextFor(u"Posted "_s + race.raceName());
    else
        setStatusText();
    setMousePointer(kPointerDefault);
}

bool clearRacePosting(const cRaces& race)
{
    cResultsCollection results;
    return results.deleteTeamResultsSummary(race.raceNmbr()) && results.deleteTeamResults(race.raceNmbr());
}

void clearPostingsForNewSeason()
{
    cRacesCollection races;
    races.load();
    cResultsCollection results;
    for (const cRaces& race : races)
        results.deletePosting(race.raceNmbr());
}

void postRace(const cRaces& race)
{
    setStatusText(u"Posting Results "_s + race.raceName());
    if (!clearRacePosting(race))
        return;
    // Leagues are chosen by race type alone: a league of the other Score By finds none of its
    // cars in the results, and its rostered cars become carried rows.
    cLeagueCollection leagues;
    leagues.load(race.raceTypeNmbr());
    for (const cLeague& league : leagues)
        postRaceForLeague(league, race);
}

void postRaceForLeague(const cLeague& league, const cRaces& race)
{
    if (league.scoringOptionNmbr() == 1 || league.scoringOptionNmbr() == 2)
        runPostingSteps(league, race);
    else
        messageBox(u"Invalid Scoring Method"_s, u"Lapkeeper"_s, Icon::Critical);
}

void runPostingSteps(const cLeague& league, const cRaces& race)
{
    const int16_t leagueNmbr = league.leagueNmbr();
    const int16_t raceNmbr = race.raceNmbr();
    // One write of the data file for the league's statements instead of one per statement,
    // which is what makes posting a big league fast. It always commits, also after a failed step
    // or a run-time error, so what was written stays as if each statement had committed by itself.
    cTransaction batch(cTransaction::Ending::AlwaysCommit);
    try {
        cTeamResults rows;
        cTeamResultsSummary summary;
        // The order carries rules: the script sees the bonuses before points are added; the top
        // bonus comes before the DNQ rows; drops come after them, so a DNQ car can use a drop;
        // totals are taken after the drops; dropped-driver rows come last with their own total.
        const std::function<bool()> steps[] = {
            [&] { return rows.postForLeague(league, race); },
            [&] { return rows.setFastQualBonus(league, race); },
            [&] { return rows.setMostLapsLedBonus(league, race); },
            [&] { return rows.setLapsLedBonus(league, race); },
            [&] {
                // The operator's statements run outside the batch, each committing by itself: a
                // BEGIN, COMMIT or ROLLBACK of theirs then touches only their own statements.
                cTransaction::Pause outside(batch);
                return runScriptFile(kScoringScriptName, leagueNmbr, raceNmbr);
            },
            [&] { return rows.setQualPointsBonus(league, race); },
            [&] { return rows.setPoints(league, race); },
            [&] { return rows.setTopBonus(league, race); },
            [&] { return rows.insertDNQDrivers(league, race); },
            [&] { return league.scoringOptionNmbr() != 2 || rows.dropLowestFinishers(league, race); },
            [&] { return rows.dropInactiveDrivers(league, race); },
            [&] { return rows.setTotalPoints(league, race); },
            [&] { return rows.insertDroppedDrivers(league, race); },
            [&] { return summary.postForLeague(league, race); },
            [&] { return summary.setPlace(league, race); },
        };
        for (const auto& step : steps) {
            if (!step())
                return;
            advanceProgress();
        }
    } catch (const cRuntimeError& error) {
        setMousePointer(kPointerDefault);
        messageBox(error.description(), u"Lapkeeper"_s);
    }
}

bool runScriptFile(const QString& fileName, int16_t leagueNmbr, int16_t raceNmbr)
{
    const QString path = applicationFolder() + u'/' + fileName;
    if (!QFileInfo::exists(path))
        return true;   // the script is optional
    const int channel = openInputFile(path);
    if (fileErrorSet())
        return false;
    const QString text = readWholeFile(channel);
    if (fileErrorSet()) {
        closeInputFile(channel);
        return false;
    }
    closeInputFile(channel);
    // Every ";" splits, also inside quotes, and the piece after the last one runs too.
    IDatabase db;
    for (QString piece : text.split(u';')) {
        piece.replace(u"%league_nmbr%"_s, QString::number(leagueNmbr));
        piece.replace(u"%race_nmbr%"_s, QString::number(raceNmbr));
        db.execute(piece);
    }
    return true;
}
