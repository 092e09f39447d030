#pragma once
#include "base/detail_screen.h"

#include <QDialog>
#include <QString>
#include <cstdint>
#include <functional>

class cRaceHeadHeadTab;
class cRaceResultsTab;
class cRaces;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QStackedWidget;
class QTabBar;

// The working screen of one race: its calendar fields (tab "Race"), its real result as a grid of
// rows (tab "Results", cRaceResultsTab) and who plays whom per league (tab "Head to Head",
// cRaceHeadHeadTab, switched off when the screen loads). The screen holds the tab "Race", the
// change marks, the save flow and the buttons. It edits the record handed in, so callers hand in a working copy (cRaces::copy).
//
// Three change marks (race, results, pairings) decide what a save writes; cmdApply is enabled
// exactly while one of them is set. A tab change saves what the tab it leaves changed, and stays
// on that tab when the save is refused.
class frmRace : public QDialog {
    Q_OBJECT
public:
    explicit frmRace(QWidget* parent = nullptr);
    ~frmRace() override;

    // Record -> controls of the tab "Race". Handlers stay quiet while the screen is hidden, so
    // the screen is left clean.
    void fill(cRaces& race);
    void showWith(cRaces& race);

    // Apply, OK, Post Results and the Yes of Cancel come here: the race, then the results, then
    // the pairings, each only when changed. False when a part was refused or failed.
    bool saveRaceForm();
    // The race's checks in their order (message, focus, false), then the one statement.
    bool saveRaceChanges();
    // The grid as a list of results (rows without a place or a car are left out), checked and
    // written in one transaction; the race's posting goes with it.
    bool saveResultRows();
    // The pairs of the league shown, replacing that league's pairs of this race.
    bool savePairings();

    // The head-to-head tab is built but switched off when the screen loads. This is the one
    // setting that decides it; the program leaves it off.
    static void setHeadToHeadTabEnabled(bool enabled);
    static bool headToHeadTabEnabled();

    // The program's new-car command, which Add New Car runs: the application sets it, as this
    // screen cannot reach the car pane itself. Without one, Add New Car opens the car screen alone.
    static void setNewCarCommand(std::function<void()> command);

public slots:
    // Cancel, Escape and the close box.
    void reject() override;

private:
    enum Tab { kTabRace = 0, kTabResults = 1, kTabHeadHead = 2 };

    QWidget* buildRaceTab();
    void fillRaceTypes();
    void fillCarTypes();
    void refreshCaption();
    void markRaceChanged();
    void markResultsChanged();
    void markPairingsChanged();
    void clearMarks();
    bool anythingChanged() const;
    bool raceDateLeft();
    void raceDateClicked();
    void raceTypeActivated(int index);
    void carTypeActivated(int index);
    void showRaceNumber();
    void tabChanging(int index);
    bool leaveTab(int tab);
    void enterTab(int tab);
    bool finishPendingField();
    void okClicked();
    void postResultsClicked();
    void closeForm(bool accepted);
    // A critical box titled "Lapkeeper", then the focus on the field; always false.
    static bool refuse(const QString& text, QWidget* focus);
    static int16_t itemNumber(const QComboBox* combo, int index);
    bool eventFilter(QObject* watched, QEvent* event) override;

    cRaces* m_race = nullptr;
    bool m_raceChanged = false;
    bool m_resultsChanged = false;
    bool m_pairingsChanged = false;
    bool m_filling = false;          // the program is filling a control: no change counts
    int m_currentTab = kTabRace;
    bool m_undoingTab = false;
    cRefusedClick m_refusedClick;    // a button whose press a refused field undid

    // Common to the three tabs.
    QTabBar* SSTab1 = nullptr;
    QStackedWidget* m_pages = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdApply = nullptr;
    QProgressBar* pbStatus = nullptr;

    // Tab "Race".
    QLabel* lblRaceName = nullptr;
    QLineEdit* txtRaceName = nullptr;
    QLineEdit* txtTrackName = nullptr;
    QLineEdit* txtRaceDate = nullptr;
    QPushButton* cmdRaceDate = nullptr;
    QComboBox* cmbRaceType = nullptr;
    QComboBox* cmbCarType = nullptr;

    cRaceResultsTab* m_results = nullptr;     // tab "Results"
    cRaceHeadHeadTab* m_headHead = nullptr;   // tab "Head to Head"
};
