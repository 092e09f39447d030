#pragma once
#include "league/car.h"

#include <QDialog>
#include <QString>
#include <cstdint>
#include <memory>
#include <vector>

class cRaces;
class cRowGrid;
class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QScrollBar;
class QStackedWidget;
class QTabBar;

// The working screen of one race: its calendar fields (tab "Race"), its real result as a grid of
// rows (tab "Results") and who plays whom per league (tab "Head to Head", switched off when the
// screen loads). It edits the record handed in, so callers hand in a working copy (cRaces::copy).
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

public slots:
    // Cancel, Escape and the close box.
    void reject() override;

private:
    enum Tab { kTabRace = 0, kTabResults = 1, kTabHeadHead = 2 };

    // One row of the results grid. The car's number is the tag of txtCarNmbr.
    struct cResultRow {
        QLineEdit* txtPlace = nullptr;
        QLineEdit* txtCarNmbr = nullptr;
        QLineEdit* txtLapsLed = nullptr;
        QCheckBox* chkFastQual = nullptr;
        QLineEdit* txtQualified = nullptr;
        QLineEdit* txtAdjustment = nullptr;
        int16_t carTag = 0;
    };
    // One row of the pairings grid; the team numbers are the tags of the two fields (0 a bye).
    struct cPairRow {
        QLineEdit* txtTeam1 = nullptr;
        QLabel* lblVS = nullptr;
        QLineEdit* txtTeam2 = nullptr;
        int16_t team1Tag = 0;
        int16_t team2Tag = 0;
    };

    // race_form.cpp: the frame, the tab "Race", saving and the tab changes.
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
    void okClicked();
    void closeForm(bool accepted);
    bool runLeaveCheck(QWidget* field);
    // A critical box titled "Lapkeeper", then the focus on the field; always false.
    static bool refuse(const QString& text, QWidget* focus);
    static int16_t itemNumber(const QComboBox* combo, int index);
    bool eventFilter(QObject* watched, QEvent* event) override;

    // race_results_form.cpp: the tab "Results".
    QWidget* buildResultsTab();
    void enterResultsTab();
    void loadResultRows();
    void fillCarList();
    cResultRow& addRow(int16_t place);
    void removeRowsFrom(int index);
    int resultRowOf(const QObject* field) const;
    void installRowRules(cResultRow& row);
    bool placeLeft(QLineEdit* field);
    bool numberLeft(QLineEdit* field);
    void enterCarChooser(int row);
    // Copies the chooser into its row and closes it; with checkDuplicates a car already in
    // another row is refused (message, chooser open again, false).
    bool leaveCarChooser(bool checkDuplicates = true);
    void placeCarChooser();
    void addResultRow(int row);
    void raceStatusActivated(int index);
    void postResultsClicked();
    void clearPostingClicked();
    void clearResultsClicked();
    void getResultsClicked();
    void addNewCarClicked();

    // race_head_head_form.cpp: the tab "Head to Head".
    QWidget* buildHeadHeadTab();
    void enterHeadHeadTab();
    void leagueActivated(int index);
    void fillTeamList(int16_t leagueNmbr);
    cPairRow& addPairRow();
    void removePairRowsFrom(int index);
    int pairRowOf(const QObject* field) const;
    void enterTeamChooser(int row, int column);
    void leaveTeamChooser();
    void placeTeamChooser();
    void addPairRow(int row);

    cRaces* m_race = nullptr;
    std::unique_ptr<cCarCollection> m_cars;
    bool m_raceChanged = false;
    bool m_resultsChanged = false;
    bool m_pairingsChanged = false;
    bool m_resultsLoaded = false;
    bool m_filling = false;          // the program is filling a control: no change counts
    bool m_leavingChooser = false;   // a chooser is being closed: focus moves open nothing
    int m_carRow = -1;               // the results row that cmbCarNmbr covers
    int m_teamRow = -1;              // the pairs row that cmbTeam covers
    int m_teamColumn = 0;            // 1 or 2
    int16_t m_pairLeague = 0;        // the league whose pairs the grid shows
    int m_currentTab = kTabRace;
    bool m_undoingTab = false;
    std::vector<cResultRow> m_rows;
    std::vector<cPairRow> m_pairs;

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

    // Tab "Results".
    QFrame* fraResults = nullptr;
    QComboBox* cmbRaceStatus = nullptr;
    QPushButton* cmdGetResults = nullptr;
    QPushButton* cmdPostResults = nullptr;
    QPushButton* cmdClearPosting = nullptr;
    QPushButton* cmdClearResults = nullptr;
    QPushButton* cmdAddNewCar = nullptr;
    QLabel* lblhitEnter = nullptr;
    cRowGrid* m_resultGrid = nullptr;
    QScrollBar* VScroll1 = nullptr;
    QComboBox* cmbCarNmbr = nullptr;

    // Tab "Head to Head".
    QFrame* Frame2 = nullptr;
    QComboBox* cmbLeague = nullptr;
    cRowGrid* m_pairGrid = nullptr;
    QScrollBar* VScroll2 = nullptr;
    QComboBox* cmbTeam = nullptr;
};
