#pragma once
#include "base/detail_screen.h"
#include <QDialog>
#include <cstdint>
#include <memory>

class cLeague;
class cTeamCollection;
class QAbstractButton;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;
class QTreeWidget;
class QTreeWidgetItem;

// The league screen: tab "League" edits the record handed in, tab "League Teams" chooses its
// member teams. It edits the record at once, field by field; only a save writes the table, so
// callers hand in a working copy (cLeague::copy).
class frmLeague : public QDialog {
    Q_OBJECT
public:
    explicit frmLeague(QWidget* parent = nullptr);
    ~frmLeague() override;

    // Record -> controls. Handlers stay quiet while the screen is hidden, so it is left clean.
    void fill(cLeague& league);
    void showWith(cLeague& league);

    // Apply, OK, the Yes of Cancel and a tab change come here; true when nothing is left unsaved.
    bool saveLeague();

    // Cancel, Escape and the window's close button: asks when something is unsaved.
    void reject() override;

private:
    void buildLeagueTab(QWidget* page);
    void buildTeamsTab(QWidget* page);
    void fillLists();
    bool active() const;
    void markRecordChanged();
    void markTeamListChanged();
    bool validateLeague();
    bool refuse(const QString& message, QWidget* field);
    bool saveLeagueTeams();
    void loadLeagueTeams();

    void leagueNameChanged(const QString& text);
    void shortNameChanged(const QString& text);
    void scoringTypeActivated(int index);
    void scoringOptionActivated(int index);
    void raceTypeActivated(int index);
    void carTypeActivated(int index);
    bool membersExist();
    bool checkSalaryCap();
    bool checkDropLowest();
    bool storeTypedAmounts();
    void teamItemChanged(QTreeWidgetItem* item, int column);
    void tabChanged(int index);
    void okClicked();
    void showLeagueNumber();
    // Download buttons of the two series with download files; the exchange step wires them.
    void importCarsClicked();
    void importRacesClicked();

    cLeague* m_league = nullptr;
    std::unique_ptr<cTeamCollection> m_teams;   // the rows' tags point into it
    bool m_recordChanged = false;
    bool m_teamListChanged = false;
    bool m_filling = false;
    bool m_changingTab = false;
    cRefusedClick m_refusedClick;   // a button whose press a refused field undid

    QTabWidget* SSTab1 = nullptr;
    QLabel* lblName = nullptr;
    QLineEdit* txtLeagueName = nullptr;
    QLineEdit* txtShortName = nullptr;
    QComboBox* cmbRaceType = nullptr;
    QComboBox* cmbCarType = nullptr;
    QComboBox* cmbScoringType = nullptr;
    QComboBox* cmbScoringOption = nullptr;
    QLineEdit* txtSalaryCap = nullptr;
    QLineEdit* txtDropLowest = nullptr;
    QPushButton* cmdImportCars = nullptr;
    QPushButton* cmdImortRaces = nullptr;
    QTreeWidget* lvwLeagueTeams = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdApply = nullptr;
};
