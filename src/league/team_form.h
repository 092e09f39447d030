#pragma once
#include "store/currency.h"

#include <QDialog>
#include <cstdint>
#include <functional>
#include <memory>

class cTeam;
class cTeamCar;
class cTeamCarCollection;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;
class QTreeWidget;
class QTreeWidgetItem;

// The team screen: tab "Team" edits the record handed in (by reference, at once, field by
// field), tab "Team Cars/Drivers" shows its roster with the present payroll and reaches the
// roster screens. Roster entries are written by those screens at once; only the active flags
// wait for a save of this screen.
class frmTeam : public QDialog {
    Q_OBJECT
public:
    explicit frmTeam(QWidget* parent = nullptr);
    ~frmTeam() override;

    void fill(cTeam& team);
    void showWith(cTeam& team);

    // Apply, OK, the Yes of Cancel and a tab change come here; true when nothing is unsaved.
    bool saveTeam();
    // Cancel, Escape and the window's close button.
    void reject() override;

    // The modal screens this one opens. By default they are the real screens; a test replaces
    // them to stand in for the operator.
    using LeagueTeamsOpener = std::function<void(cTeam& team)>;
    using TeamCarOpener = std::function<void(cTeamCar& entry, Currency& totalSalary)>;
    using TeamCarMultipleOpener = std::function<void(cTeam& team, Currency totalSalary)>;
    void setLeagueTeamsOpener(LeagueTeamsOpener opener) { m_openLeagueTeams = std::move(opener); }
    void setTeamCarOpener(TeamCarOpener opener) { m_openTeamCar = std::move(opener); }
    void setTeamCarMultipleOpener(TeamCarMultipleOpener opener) { m_openTeamCarMultiple = std::move(opener); }

private:
    void buildTeamTab(QWidget* page);
    void buildRosterTab(QWidget* page);
    void markRecordChanged();
    bool validateTeam();
    bool refuse(const QString& message, QWidget* field);
    bool saveActiveFlags();
    void loadTeamLeagues();
    void openRoster();
    void loadRoster();
    void addRosterRow(cTeamCar& entry);
    void refreshRoster();
    cTeamCar* selectedEntry() const;

    void raceTypeActivated(int index);
    void carTypeActivated(int index);
    void tabChanged(int index);
    void rosterItemChanged(QTreeWidgetItem* item, int column);
    void okClicked();
    void addLeagueClicked();
    void addClicked();
    void addMultipleClicked();
    void updateClicked();
    void termClicked();
    void termAllClicked();
    void deleteClicked();
    void checkDuplicateClicked();

    cTeam* m_team = nullptr;
    std::unique_ptr<cTeamCarCollection> m_roster;   // the rows' tags point into it
    Currency m_totalSalary;
    bool m_recordChanged = false;
    bool m_rosterChanged = false;   // no handler sets it: the whole-roster rewrite is never taken
    bool m_activeChanged = false;
    bool m_filling = false;

    LeagueTeamsOpener m_openLeagueTeams;
    TeamCarOpener m_openTeamCar;
    TeamCarMultipleOpener m_openTeamCarMultiple;

    QTabWidget* SSTab1 = nullptr;
    QLabel* LblTeamname = nullptr;
    QLineEdit* TxtTeamName = nullptr;
    QLineEdit* TxtTeamOwner = nullptr;
    QComboBox* cmbRaceType = nullptr;
    QComboBox* cmbCarType = nullptr;
    QLineEdit* txtEmail = nullptr;
    QLineEdit* txtPhone = nullptr;
    QLineEdit* txtAddressLine1 = nullptr;
    QLineEdit* txtAddressLine2 = nullptr;
    QLineEdit* txtCity = nullptr;
    QLineEdit* txtState = nullptr;
    QLineEdit* txtZip = nullptr;
    QTreeWidget* lvwLeagues = nullptr;
    QPushButton* cmdAddLeague = nullptr;

    QTreeWidget* lvwTeamCars = nullptr;
    QLineEdit* txtTotalSalary = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* CmdAddMultiple = nullptr;
    QPushButton* cmdUpdate = nullptr;
    QPushButton* cmdTerm = nullptr;
    QPushButton* cmdTermAll = nullptr;
    QPushButton* cmdDelete = nullptr;
    QPushButton* cmdCheckDuplicate = nullptr;

    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdApply = nullptr;
};
