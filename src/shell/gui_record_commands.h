#pragma once
// The new, design and delete commands of the five kinds of record, and the refresh of their
// panes. Each command works on the selected row of its pane and on the detail screen of its
// kind; with no row selected, design and delete do nothing.
#include "shell/record_kinds.h"

#include <QString>
#include <cstdint>
#include <functional>

class cCar;
class cLeague;
class cRaces;
class cScoringType;
class cTeam;

// The detail screens the commands open: modal, each returns when the screen is closed and does
// the saving itself. By default they are the real screens; a test replaces them to stand in for
// the operator.
struct cRecordScreens {
    std::function<void(cLeague&)> league;
    std::function<void(cTeam&)> team;
    std::function<void(cCar&)> car;
    std::function<void(cRaces&)> race;
    std::function<void(cScoringType&)> scoring;
};
cRecordScreens& recordScreens();
// Puts the real screens back.
void resetRecordScreens();

// Reload the pane (making and showing it when needed) and select the given record:
// a number for leagues and cars (-1 none), a name for teams and scoring methods, and for races a
// text compared with the race number (empty for none).
void refreshLeagues(int16_t selection);
void refreshTeams(const QString& selection);
void refreshCars(int16_t selection);
void refreshRaces(const QString& selection);
void refreshScoring(const QString& selection);

void newLeague();
void designLeague();
void deleteLeague();
void newTeam();
void designTeam();
void deleteTeam();
void newCar();
void designCar();
void deleteCar();
void newRace();
void designRace();
void deleteRace();
void newScoring();
void designScoring();
void deleteScoring();

// The same by kind, for the tree, the toolbar, the menus and the panes' keys.
void refreshRecordPane(RecordKind kind);   // display with nothing to select
void showRecordPane(RecordKind kind);      // the same, and the pane maximised
void newRecordCommand(RecordKind kind);
void designRecordCommand(RecordKind kind);
void deleteRecordCommand(RecordKind kind);
