#include "reports/report_request_form.h"
#include "base/app_globals.h"
#include "base/detail_screen.h"
#include "base/messages.h"
#include "league/league.h"
#include "league/league_teams.h"
#include "league/team.h"
#include "racing/races.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// A race as the race list shows it: "mm/dd/yyyy - name".
QString raceLine(const cRaces& race)
{
    return race.raceDate().toString(u"MM/dd/yyyy"_s) + u" - "_s + race.raceName();
}

QComboBox* makeList(QWidget* parent, const QString& name)
{
    auto* list = new QComboBox(parent);
    list->setObjectName(name);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(28);
    return list;
}

QCheckBox* makeCheck(QWidget* parent, const QString& name, const QString& caption)
{
    auto* box = new QCheckBox(caption, parent);
    box->setObjectName(name);
    return box;
}

QLabel* makeLabel(QWidget* parent, const QString& name, const QString& caption, QWidget* buddy)
{
    auto* label = new QLabel(caption, parent);
    label->setObjectName(name);
    label->setBuddy(buddy);
    return label;
}

} // namespace

frmReportRqst::frmReportRqst(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(u"frmReportRqst"_s);
    setWindowTitle(u"Request Report"_s);

    cmbLeague = makeList(this, u"cmbLeague"_s);
    cmbRace = makeList(this, u"cmbRace"_s);
    cmbTeam = makeList(this, u"cmbTeam"_s);
    chkTeamAll = makeCheck(this, u"chkTeamAll"_s, u"All"_s);
    chkSeparate = makeCheck(this, u"chkSeparate"_s, u"Separate"_s);
    txtReportFolder = new QLineEdit(this);
    txtReportFolder->setObjectName(u"txtReportFolder"_s);
    txtReportFolder->setMinimumWidth(260);
    cmdChangeFolder = makeButton(this, u"cmdChangeFolder"_s, u"&Browse. . ."_s);
    chkClear = makeCheck(this, u"chkClear"_s, u"Clear reports folder"_s);
    const cButtonRow buttons = makeButtonRow(this, {.withApply = false});
    cmdOK = buttons.ok;
    cmdCancel = buttons.cancel;

    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    grid->addWidget(makeLabel(this, u"lblLeague"_s, u"&League:"_s, cmbLeague), 0, 0);
    grid->addWidget(cmbLeague, 0, 1, 1, 2);
    grid->addWidget(makeLabel(this, u"lblRace"_s, u"&Race:"_s, cmbRace), 1, 0);
    grid->addWidget(cmbRace, 1, 1, 1, 2);
    grid->addWidget(makeLabel(this, u"lblTeam"_s, u"&Team:"_s, cmbTeam), 2, 0);
    grid->addWidget(cmbTeam, 2, 1);
    auto* teamChecks = new QHBoxLayout;
    teamChecks->addWidget(chkTeamAll);
    teamChecks->addWidget(chkSeparate);
    grid->addLayout(teamChecks, 2, 2);
    grid->addWidget(makeLabel(this, u"lblReportFolder"_s, u"Report &Folder:"_s, txtReportFolder), 3, 0);
    grid->addWidget(txtReportFolder, 3, 1);
    grid->addWidget(cmdChangeFolder, 3, 2);
    grid->addWidget(chkClear, 4, 1, 1, 2);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addSpacing(8);
    layout->addStretch();
    layout->addLayout(buttons.layout);

    // The numbers follow what each list shows selected, also when a list is refilled.
    connect(cmbLeague, &QComboBox::currentIndexChanged, this,
            [this](int index) { leagueNmbr = comboNumber(cmbLeague, index, -1); });
    connect(cmbRace, &QComboBox::currentIndexChanged, this,
            [this](int index) { raceNmbr = comboNumber(cmbRace, index, -1); });
    connect(cmbTeam, &QComboBox::currentIndexChanged, this,
            [this](int index) { teamNmbr = comboNumber(cmbTeam, index, -1); });
    // What the operator does with the lists and boxes.
    connect(cmbLeague, &QComboBox::activated, this, [this] {
        if (isVisible())
            leagueChosen();
    });
    connect(cmbTeam, &QComboBox::activated, this, [this] {
        if (isVisible())
            teamChosen();
    });
    connect(chkTeamAll, &QCheckBox::clicked, this, [this](bool ticked) {
        if (isVisible())
            teamAllClicked(ticked);
    });
    connect(chkSeparate, &QCheckBox::clicked, this, [this](bool ticked) {
        if (isVisible())
            separate = ticked;
    });
    // The report folder setting takes the text at once: it holds for later reports even when
    // this request is cancelled.
    connect(txtReportFolder, &QLineEdit::textChanged, this, [](const QString& text) { gReportsPath = text; });
    connect(cmdChangeFolder, &QPushButton::clicked, this, &frmReportRqst::changeFolderClicked);
    connect(cmdOK, &QPushButton::clicked, this, &frmReportRqst::okClicked);
    connect(cmdCancel, &QPushButton::clicked, this, [this] {
        okPressed = false;
        reject();
    });
}

void frmReportRqst::fill(const QString& title)
{
    okPressed = false;
    fillLeagues();
    setWindowTitle(title);
    if (teamRequired) {
        allTeams = true;
        chkTeamAll->setChecked(true);
        separate = false;
        chkSeparate->setChecked(false);
    }

    txtReportFolder->setText(gReportsPath);
    if (!raceRequired) {
        cmbRace->setEnabled(false);
    } else if (cmbLeague->currentIndex() >= 0) {
        fillRaces();
        selectDefaultRace();
    }
    if (!teamRequired) {
        cmbTeam->setEnabled(false);
        chkTeamAll->setEnabled(false);
        chkSeparate->setEnabled(false);
    } else if (cmbLeague->currentIndex() >= 0) {
        fillTeams();
    }
}

void frmReportRqst::showWith(const QString& title)
{
    fill(title);
    exec();
}

void frmReportRqst::fillLeagues()
{
    cLeagueCollection leagues;
    leagues.load();
    fillNumberCombo(cmbLeague, leagues, [](const cLeague& l) { return l.leagueNmbr(); },
                    [](const cLeague& l) { return l.leagueName(); });
    if (cmbLeague->count() > 0)
        cmbLeague->setCurrentIndex(0);
}

void frmReportRqst::fillRaces()
{
    cLeague league;
    league.load(leagueNmbr);
    cRacesCollection races;
    races.load(league.raceTypeNmbr(), league.carTypeNmbr());
    fillNumberCombo(cmbRace, races, [](const cRaces& r) { return r.raceNmbr(); }, raceLine);
}

void frmReportRqst::fillTeams()
{
    cLeagueTeamsCollection members;
    members.load(leagueNmbr);
    cmbTeam->clear();
    for (const cLeagueTeams& member : members) {
        cTeam team;
        team.load(member.teamNmbr());
        cmbTeam->addItem(team.teamName(), static_cast<int>(team.teamNmbr()));
    }
    cmbTeam->setCurrentIndex(-1);
}

// The default race is the most recent race of the league's series that has results. Other
// races may stand on that date (the other Score By); the one in the list is taken.
void frmReportRqst::selectDefaultRace()
{
    cLeague league;
    league.load(leagueNmbr);
    cRacesCollection latest;
    if (latest.loadMostCurrentRaceWithResults(league.raceTypeNmbr(), league.carTypeNmbr()) < 1 || cmbRace->count() == 0)
        return;
    for (const cRaces& race : latest) {
        const int index = cmbRace->findText(raceLine(race));
        if (index >= 0) {
            cmbRace->setCurrentIndex(index);
            return;
        }
    }
}

void frmReportRqst::leagueChosen()
{
    leagueNmbr = comboNumber(cmbLeague, cmbLeague->currentIndex(), -1);
    if (leagueNmbr < 0)
        return;
    if (raceRequired) {
        fillRaces();
        selectDefaultRace();
    }
    if (teamRequired)
        fillTeams();
}

// Picking a team unticks "All", which takes "Separate" with it.
void frmReportRqst::teamChosen()
{
    teamNmbr = comboNumber(cmbTeam, cmbTeam->currentIndex(), -1);
    if (chkTeamAll->isChecked()) {
        chkTeamAll->setChecked(false);
        teamAllClicked(false);
    }
}

void frmReportRqst::teamAllClicked(bool ticked)
{
    if (ticked) {
        fillTeams();
        chkSeparate->setEnabled(true);
    } else {
        chkSeparate->setEnabled(false);
        chkSeparate->setChecked(false);
        separate = false;
    }
    allTeams = ticked;
}

void frmReportRqst::changeFolderClicked()
{
    presenter().chooseFolder(1);
    txtReportFolder->setText(gReportsPath);
}

void frmReportRqst::okClicked()
{
    if (!validate())
        return;
    if (chkClear->isChecked())
        clearReportFolder();
    okPressed = true;
    accept();
}

bool frmReportRqst::validate()
{
    if (raceRequired && raceNmbr < 1)
        return refuseField(u"A Race is required for this Report"_s, cmbRace);
    if (leagueRequired && leagueNmbr < 1)
        return refuseField(u"A League is required for this Report"_s, cmbLeague);
    if (teamRequired && !chkTeamAll->isChecked() && teamNmbr < 1)
        return refuseField(u"A Team is required for this Report"_s, cmbTeam);
    return true;
}

// Deletes the report pages of every league from the folder; pictures and other files stay. A
// page that cannot be deleted is named, and the rest go on.
void frmReportRqst::clearReportFolder()
{
    const QDir folder(gReportsPath);
    const QFileInfoList pages = folder.entryInfoList({u"*.html"_s}, QDir::Files | QDir::Hidden);
    for (const QFileInfo& page : pages) {
        QFile file(page.filePath());
        if (!file.remove())
            messageBox(u"Unable to delete "_s + page.filePath() + u": "_s + file.errorString(), u"Lapkeeper"_s,
                       Icon::Critical);
    }
}
