#pragma once
#include "store/currency.h"

#include <QWidget>
#include <functional>
#include <memory>

class cTeam;
class cTeamCar;
class cTeamCarCollection;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// The second tab of the team screen: the team's roster with the present payroll, the roster
// buttons that open the roster screens, and the active flags. Roster entries are written by
// those screens at once; only the active flags wait for a save of the team screen.
class cTeamRosterTab : public QWidget {
    Q_OBJECT
public:
    explicit cTeamRosterTab(QWidget* parent = nullptr);
    ~cTeamRosterTab() override;

    using TeamCarOpener = std::function<void(cTeamCar& entry, Currency& totalSalary)>;
    using TeamCarMultipleOpener = std::function<void(cTeam& team, Currency totalSalary)>;
    void setTeamCarOpener(TeamCarOpener opener) { m_openTeamCar = std::move(opener); }
    void setTeamCarMultipleOpener(TeamCarMultipleOpener opener) { m_openTeamCarMultiple = std::move(opener); }

    // A new team: nothing shown until the tab is first opened, no active flag changed.
    void reset(cTeam& team);
    // Arriving at the tab: reads the roster the first time, shown by number.
    void openIfUnread();
    bool activeFlagsChanged() const { return m_activeChanged; }
    // Writes every entry's active flag; the mark is cleared when all were written.
    bool saveActiveFlags();

signals:
    // An active flag was checked or cleared by the operator.
    void activeFlagChanged();

private:
    void loadRoster();
    void addRosterRow(cTeamCar& entry);
    void refreshRoster();
    cTeamCar* selectedEntry() const;
    void rosterItemChanged(QTreeWidgetItem* item, int column);
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
    bool m_activeChanged = false;
    bool m_filling = false;
    TeamCarOpener m_openTeamCar;
    TeamCarMultipleOpener m_openTeamCarMultiple;

    QTreeWidget* lvwTeamCars = nullptr;
    QLineEdit* txtTotalSalary = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* CmdAddMultiple = nullptr;
    QPushButton* cmdUpdate = nullptr;
    QPushButton* cmdTerm = nullptr;
    QPushButton* cmdTermAll = nullptr;
    QPushButton* cmdDelete = nullptr;
    QPushButton* cmdCheckDuplicate = nullptr;
};
