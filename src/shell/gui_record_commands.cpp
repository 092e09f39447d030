#include "shell/gui_record_commands.h"
#include "base/messages.h"
#include "league/car.h"
#include "league/car_form.h"
#include "league/league.h"
#include "league/league_form.h"
#include "league/league_teams.h"
#include "league/team.h"
#include "league/team_car.h"
#include "league/team_form.h"
#include "racing/race_form.h"
#include "racing/races.h"
#include "racing/results.h"
#include "racing/scoring_form.h"
#include "racing/scoring_method.h"
#include "racing/standings.h"
#include "shell/cars_pane.h"
#include "shell/display_pane.h"
#include "shell/main_window.h"

using namespace Qt::StringLiterals;

namespace {

const QString kTitle = u"Lapkeeper"_s;

cRecordScreens realScreens()
{
    return {
        [](cLeague& league) { frmLeague(mainWindow()).showWith(league); },
        [](cTeam& team) { frmTeam(mainWindow()).showWith(team); },
        [](cCar& car) { frmCar(mainWindow()).showWith(car); },
        [](cRaces& race) { frmRace(mainWindow()).showWith(race); },
        [](cScoringType& method) { frmScoring(mainWindow()).showWith(method); },
    };
}

// Every delete starts with this question; only Yes goes on (Cancel is the same as No).
bool confirmDelete(const QString& text, const QString& title)
{
    return messageBox(text, title, Icon::None, Buttons::YesNoCancel) == Answer::Yes;
}

void refuse(const QString& text)
{
    messageBox(text, kTitle, Icon::Critical);
}

// The record in the selected row of a pane; nullptr when the pane is closed or no row is selected.
template <class Pane, class Record>
Record* selectedIn()
{
    Pane* pane = Pane::existing();
    return pane ? pane->template selectedRecord<Record>() : nullptr;
}

} // namespace

cRecordScreens& recordScreens()
{
    static cRecordScreens screens = [] {
        // The race screen's Add New Car is this program's new-car command, so the car pane follows.
        frmRace::setNewCarCommand(newCar);
        return realScreens();
    }();
    return screens;
}

void resetRecordScreens()
{
    recordScreens() = realScreens();
}

// ---------------------------------------------------------------- refresh

void refreshLeagues(int16_t selection)
{
    frmDisplayLeagues::instance().display(selection);
}

void refreshTeams(const QString& selection)
{
    frmDisplayTeams::instance().display(selection);
}

void refreshCars(int16_t selection)
{
    frmDisplayCars::instance().display(selection);
}

void refreshRaces(const QString& selection)
{
    frmDisplayRaces::instance().display(selection);
}

void refreshScoring(const QString& selection)
{
    frmDisplayScoring::instance().display(selection);
}

// ---------------------------------------------------------------- leagues

void newLeague()
{
    cLeague league;
    recordScreens().league(league);
    refreshLeagues(league.leagueNmbr());
}

void designLeague()
{
    const cLeague* row = selectedIn<frmDisplayLeagues, cLeague>();
    if (!row)
        return;
    cLeague league = row->copy();
    // The list's own object is not touched by the screen, so its key can be read now.
    const int16_t selection = row->leagueNmbr();
    recordScreens().league(league);
    refreshLeagues(selection);
}

// No refusal: a league with postings goes with its members and scored rows.
void deleteLeague()
{
    cLeague* league = selectedIn<frmDisplayLeagues, cLeague>();
    if (!league || !confirmDelete(u"Are you sure you want to delete League?"_s, league->leagueName()))
        return;
    league->deleteRow();
    refreshLeagues(-1);
}

// ---------------------------------------------------------------- teams

void newTeam()
{
    cTeam team;
    recordScreens().team(team);
    refreshTeams(team.teamName());
}

void designTeam()
{
    const cTeam* row = selectedIn<frmDisplayTeams, cTeam>();
    if (!row)
        return;
    cTeam team = row->copy();
    const QString selection = row->teamName();
    recordScreens().team(team);
    refreshTeams(selection);
}

void deleteTeam()
{
    cTeam* team = selectedIn<frmDisplayTeams, cTeam>();
    if (!team)
        return;
    const int16_t teamNmbr = team->teamNmbr();
    cLeagueTeamsCollection members;
    members.load();
    cTeamResultsSummaryCollection summaries;
    summaries.loadTeam(teamNmbr);
    if (!confirmDelete(u"Are you sure you want to delete Team?"_s, team->teamName()))
        return;
    if (summaries.teamExists(teamNmbr)) {
        refuse(u"Results have been posted for this Team.\n"_s
               u"You must clear postings for all Races that this Team has been posted too."_s);
        return;
    }
    if (members.teamExists(teamNmbr)) {
        refuse(u"Team is a member of at least one League.\n"_s
               u"You must remove Team "_s + team->teamName() + u" from all Leagues before team can be deleted."_s);
        return;
    }
    team->deleteRow();
    refreshTeams(QString());
}

// ---------------------------------------------------------------- cars and drivers

void newCar()
{
    cCar car;
    recordScreens().car(car);
    refreshCars(car.carNmbr());
}

void designCar()
{
    const cCar* row = selectedIn<frmDisplayCars, cCar>();
    if (!row)
        return;
    cCar car = row->copy();
    const int16_t selection = row->carNmbr();
    recordScreens().car(car);
    refreshCars(selection);
}

// The messages say "Car" for a driver too.
void deleteCar()
{
    cCar* car = selectedIn<frmDisplayCars, cCar>();
    if (!car)
        return;
    const int16_t carNmbr = car->carNmbr();
    cTeamCarCollection rosters;
    rosters.load();
    if (!confirmDelete(u"Are you sure you want to delete Car?"_s, car->carTxt() + u" - "_s + car->driverName()))
        return;
    if (rosters.carExists(carNmbr)) {
        refuse(u"Car is a member of at least one Team.\n"_s
               u"You must remove Car "_s + car->carTxt() + u" from all Teams before car can be deleted"_s);
        return;
    }
    cResultsCollection results;
    results.load();
    if (results.carExists(carNmbr)) {
        refuse(u"Results have been posted for at least one Race for this Car.\n"_s
               u"You must clear results for all Races with this Car ("_s + car->carTxt() +
               u") before Car can be deleted"_s);
        return;
    }
    car->deleteRow();
    refreshCars(-1);
}

// ---------------------------------------------------------------- races

// The refresh compares the race's name with the race numbers, so no particular row is selected.
void newRace()
{
    cRaces race;
    recordScreens().race(race);
    refreshRaces(race.raceName());
}

void designRace()
{
    const cRaces* row = selectedIn<frmDisplayRaces, cRaces>();
    if (!row)
        return;
    cRaces race = row->copy();
    race.load(race.raceNmbr());
    const QString selection = row->raceName();
    recordScreens().race(race);
    refreshRaces(selection);
}

// A race with results is not refused, only asked about twice.
void deleteRace()
{
    cRaces* race = selectedIn<frmDisplayRaces, cRaces>();
    if (!race)
        return;
    const int16_t raceNmbr = race->raceNmbr();
    cResultsCollection results;
    results.load(raceNmbr);
    if (!confirmDelete(u"Are you sure you want to delete Race?"_s, race->raceName()))
        return;
    if (results.raceExists(raceNmbr) &&
        messageBox(u"Results have been posted for this Race.\nDo you want to continue?"_s, race->raceName(), Icon::None,
                   Buttons::YesNo) != Answer::Yes)
        return;
    race->deleteRow();
    refreshRaces(QString());
}

// ---------------------------------------------------------------- scoring methods

void newScoring()
{
    cScoringType method;
    recordScreens().scoring(method);
    refreshScoring(method.scoringTypeName());
}

void designScoring()
{
    const cScoringType* row = selectedIn<frmDisplayScoring, cScoringType>();
    if (!row)
        return;
    cScoringType method = row->copy();
    const QString selection = row->scoringTypeName();
    recordScreens().scoring(method);
    refreshScoring(selection);
}

// A system method is refused before any question.
void deleteScoring()
{
    cScoringType* method = selectedIn<frmDisplayScoring, cScoringType>();
    if (!method)
        return;
    cLeagueCollection leagues;
    leagues.load();
    const QString name = method->scoringTypeName();
    if (method->scoringTypeNmbr() < kFirstOperatorKey) {
        refuse(u"Can't delete system Scoring Method "_s + name + u"."_s);
        return;
    }
    if (!confirmDelete(u"Are you sure you want to delete Scoring?"_s, name))
        return;
    if (leagues.scoringTypeNmbrExists(cVariant(int(method->scoringTypeNmbr())))) {
        refuse(u"At least one League is using this Scoring Method.\n"_s
               u"You must change all Leagues to not refrence"_s + name + u" before Scoring Method can be deleted"_s);
        return;
    }
    method->deleteRow();
    refreshScoring(QString());
}

// ---------------------------------------------------------------- by kind

void refreshRecordPane(RecordKind kind)
{
    switch (kind) {
    case RecordKind::League: refreshLeagues(-1); break;
    case RecordKind::Team: refreshTeams(QString()); break;
    case RecordKind::Car: refreshCars(-1); break;
    case RecordKind::Race: refreshRaces(QString()); break;
    case RecordKind::Scoring: refreshScoring(QString()); break;
    }
}

void showRecordPane(RecordKind kind)
{
    refreshRecordPane(kind);
    cDisplayPane* pane = nullptr;
    switch (kind) {
    case RecordKind::League: pane = frmDisplayLeagues::existing(); break;
    case RecordKind::Team: pane = frmDisplayTeams::existing(); break;
    case RecordKind::Car: pane = frmDisplayCars::existing(); break;
    case RecordKind::Race: pane = frmDisplayRaces::existing(); break;
    case RecordKind::Scoring: pane = frmDisplayScoring::existing(); break;
    }
    if (pane)
        pane->maximise();
}

void newRecordCommand(RecordKind kind)
{
    switch (kind) {
    case RecordKind::League: newLeague(); break;
    case RecordKind::Team: newTeam(); break;
    case RecordKind::Car: newCar(); break;
    case RecordKind::Race: newRace(); break;
    case RecordKind::Scoring: newScoring(); break;
    }
}

void designRecordCommand(RecordKind kind)
{
    switch (kind) {
    case RecordKind::League: designLeague(); break;
    case RecordKind::Team: designTeam(); break;
    case RecordKind::Car: designCar(); break;
    case RecordKind::Race: designRace(); break;
    case RecordKind::Scoring: designScoring(); break;
    }
}

void deleteRecordCommand(RecordKind kind)
{
    switch (kind) {
    case RecordKind::League: deleteLeague(); break;
    case RecordKind::Team: deleteTeam(); break;
    case RecordKind::Car: deleteCar(); break;
    case RecordKind::Race: deleteRace(); break;
    case RecordKind::Scoring: deleteScoring(); break;
    }
}
