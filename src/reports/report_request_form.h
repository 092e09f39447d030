#pragma once
#include <QDialog>
#include <cstdint>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;

// "Request Report": asks what a report is to cover (league, race, team) and where it goes. The
// caller sets the required flags, calls showWith and reads the public state after it closes.
class frmReportRqst : public QDialog {
    Q_OBJECT
public:
    explicit frmReportRqst(QWidget* parent = nullptr);

    bool okPressed = false;
    bool allTeams = false;
    bool separate = false;
    int16_t teamNmbr = -1;
    int16_t leagueNmbr = -1;
    int16_t raceNmbr = -1;
    bool leagueRequired = false;
    bool raceRequired = false;
    bool teamRequired = false;

    // Fills the screen for the flags set and captions it with the title; showWith also shows it
    // modally.
    void fill(const QString& title);
    void showWith(const QString& title);

private:
    void fillLeagues();
    void fillRaces();
    void fillTeams();
    void selectDefaultRace();
    void leagueChosen();
    void teamChosen();
    void teamAllClicked(bool ticked);
    void changeFolderClicked();
    void okClicked();
    bool validate();
    void clearReportFolder();

    QComboBox* cmbLeague = nullptr;
    QComboBox* cmbRace = nullptr;
    QComboBox* cmbTeam = nullptr;
    QCheckBox* chkTeamAll = nullptr;
    QCheckBox* chkSeparate = nullptr;
    QLineEdit* txtReportFolder = nullptr;
    QPushButton* cmdChangeFolder = nullptr;
    QCheckBox* chkClear = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
};
