#pragma once
#include "store/currency.h"

#include <QDialog>
#include <cstdint>
#include <functional>
#include <memory>

class cTeam;
class cTeamCar;
class cTeamRosterTab;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;
class QTreeWidget;
class QTreeWidgetItem;

// The team screen: tab "Team" edits the record handed in (by reference, at once, field by
// field), tab "Team Cars/Drivers" (cTeamRosterTab) shows its roster and reaches the roster screens.
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
    void setTeamCarOpener(TeamCarOpener opener);
    void setTeamCarMultipleOpener(TeamCarMultipleOpener opener);

private:
    void buildTeamTab(QWidget* page);
    void markRecordChanged();
    bool validateTeam();
    bool refuse(const QString& message, QWidget* field);
    void loadTeamLeagues();

    void raceTypeActivated(int index);
    void carTypeActivated(int index);
    void tabChanged(int index);
    void okClicked();
    void addLeagueClicked();

    cTeam* m_team = nullptr;
    bool m_recordChanged = false;
    bool m_filling = false;

    LeagueTeamsOpener m_openLeagueTeams;
    cTeamRosterTab* m_rosterTab = nullptr;

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

    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdApply = nullptr;
};
