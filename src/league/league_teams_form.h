#pragma once
#include <QDialog>

class cTeam;
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// Adds a team to leagues of its race type and Score By. Leaving a league is done on the
// league's own screen, where scored teams are guarded, so a check here cannot be taken back.
class frmLeagueTeams : public QDialog {
    Q_OBJECT
public:
    explicit frmLeagueTeams(QWidget* parent = nullptr);

    void fill(cTeam& team);
    void showWith(cTeam& team);

private:
    void itemChanged(QTreeWidgetItem* item, int column);
    void okClicked();

    cTeam* m_team = nullptr;
    QLabel* lblNote = nullptr;
    QTreeWidget* lvwLeagues = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
};
