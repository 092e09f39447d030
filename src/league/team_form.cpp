#include "league/team_form.h"
#include "base/detail_screen.h"
#include "base/messages.h"
#include "league/car_type.h"
#include "league/league.h"
#include "league/league_teams.h"
#include "league/league_teams_form.h"
#include "league/race_type.h"
#include "league/team.h"
#include "league/team_car.h"
#include "league/team_car_form.h"
#include "league/team_car_multiple_form.h"
#include "league/team_roster_tab.h"

#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
const QString kTitle = u"Lapkeeper"_s;

// A label that answers a click.
class cLabelClick : public QObject {
public:
    cLabelClick(QWidget* label, std::function<void()> onClick) : QObject(label), m_onClick(std::move(onClick))
    {
        label->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::MouseButtonRelease)
            m_onClick();
        return false;
    }

private:
    std::function<void()> m_onClick;
};
}

frmTeam::frmTeam(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(u"frmTeam"_s);
    setWindowTitle(u"Team - "_s);
    resize(720, 560);   // room for every roster column without scrolling

    m_openLeagueTeams = [this](cTeam& team) {
        frmLeagueTeams screen(this);
        screen.showWith(team);
    };
    m_rosterTab = new cTeamRosterTab;
    m_rosterTab->setTeamCarOpener([this](cTeamCar& entry, Currency& totalSalary) {
        frmTeamCar screen(this);
        screen.showWith(entry, totalSalary);
    });
    m_rosterTab->setTeamCarMultipleOpener([this](cTeam& team, Currency totalSalary) {
        frmTeamCarMultiple screen(this);
        screen.showWith(team, totalSalary);
    });
    connect(m_rosterTab, &cTeamRosterTab::activeFlagChanged, this, [this] { cmdApply->setEnabled(true); });

    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(u"SSTab1"_s);
    auto* teamPage = new QWidget;
    buildTeamTab(teamPage);
    SSTab1->addTab(teamPage, u"Team"_s);
    SSTab1->addTab(m_rosterTab, u"Team Cars/Drivers"_s);

    const cButtonRow buttons = makeButtonRow(this);
    cmdOK = buttons.ok;
    cmdCancel = buttons.cancel;
    cmdApply = buttons.apply;

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(10);
    layout->addWidget(SSTab1, 1);
    layout->addLayout(buttons.layout);

    connect(cmdOK, &QPushButton::clicked, this, &frmTeam::okClicked);
    connect(cmdCancel, &QPushButton::clicked, this, &frmTeam::reject);
    connect(cmdApply, &QPushButton::clicked, this, [this] { saveTeam(); });
    connect(SSTab1, &QTabWidget::currentChanged, this, &frmTeam::tabChanged);
}

frmTeam::~frmTeam() = default;

void frmTeam::setTeamCarOpener(TeamCarOpener opener)
{
    m_rosterTab->setTeamCarOpener(std::move(opener));
}

void frmTeam::setTeamCarMultipleOpener(TeamCarMultipleOpener opener)
{
    m_rosterTab->setTeamCarMultipleOpener(std::move(opener));
}

void frmTeam::buildTeamTab(QWidget* page)
{
    auto line = [page, this](const QString& name, void (cTeam::*setter)(const QString&)) {
        auto* edit = new QLineEdit(page);
        edit->setObjectName(name);
        selectTextOnFocus(edit);
        connect(edit, &QLineEdit::textChanged, this, [this, setter](const QString& text) {
            if (m_filling || !isVisible() || !m_team)
                return;
            (m_team->*setter)(text);
            markRecordChanged();
        });
        return edit;
    };
    TxtTeamName = line(u"TxtTeamName"_s, &cTeam::setTeamName);
    TxtTeamOwner = line(u"TxtTeamOwner"_s, &cTeam::setTeamOwner);
    txtEmail = line(u"txtEmail"_s, &cTeam::setEmail);
    txtPhone = line(u"txtPhone"_s, &cTeam::setPhone);
    txtAddressLine1 = line(u"txtAddressLine1"_s, &cTeam::setAddressLine1);
    txtAddressLine2 = line(u"txtAddressLine2"_s, &cTeam::setAddressLine2);
    txtCity = line(u"txtCity"_s, &cTeam::setCity);
    txtState = line(u"txtState"_s, &cTeam::setState);
    txtZip = line(u"txtZip"_s, &cTeam::setZip);
    connect(TxtTeamName, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!m_filling && isVisible())
            setWindowTitle(u"Team - "_s + text);
    });

    cmbRaceType = new QComboBox(page);
    cmbRaceType->setObjectName(u"cmbRaceType"_s);
    cmbCarType = new QComboBox(page);
    cmbCarType->setObjectName(u"cmbCarType"_s);
    connect(cmbRaceType, &QComboBox::activated, this, &frmTeam::raceTypeActivated);
    connect(cmbCarType, &QComboBox::activated, this, &frmTeam::carTypeActivated);

    LblTeamname = new QLabel(u"Name:"_s, page);
    LblTeamname->setObjectName(u"LblTeamname"_s);
    LblTeamname->setBuddy(TxtTeamName);
    new cLabelClick(LblTeamname, [this] {
        if (m_team)
            messageBox(u"Team number is "_s + QString::number(m_team->teamNmbr()), kTitle);
    });

    auto* left = new QFormLayout;
    left->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    left->addRow(LblTeamname, TxtTeamName);
    left->addRow(u"Owner:"_s, TxtTeamOwner);
    left->addRow(u"Race Type:"_s, cmbRaceType);
    left->addRow(u"Score By:"_s, cmbCarType);
    left->addRow(u"Email:"_s, txtEmail);
    left->addRow(u"Phone:"_s, txtPhone);
    auto* right = new QFormLayout;
    right->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    right->addRow(u"Address Line 1:"_s, txtAddressLine1);
    right->addRow(u"Address Line 2:"_s, txtAddressLine2);
    right->addRow(u"City:"_s, txtCity);
    right->addRow(u"State/Province:"_s, txtState);
    right->addRow(u"Zip/Postal:"_s, txtZip);
    auto* fields = new QHBoxLayout;
    fields->setSpacing(18);
    fields->addLayout(left, 1);
    fields->addLayout(right, 1);

    auto* leaguesLabel = new QLabel(u"Team belongs to the following Leagues:"_s, page);
    lvwLeagues = new QTreeWidget(page);
    lvwLeagues->setObjectName(u"lvwLeagues"_s);
    lvwLeagues->setRootIsDecorated(false);
    lvwLeagues->setHeaderLabels({u"League Name"_s, u"Salary Cap"_s});
    lvwLeagues->headerItem()->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    lvwLeagues->header()->setStretchLastSection(false);
    lvwLeagues->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    lvwLeagues->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    lvwLeagues->setSortingEnabled(true);
    lvwLeagues->sortByColumn(0, Qt::AscendingOrder);
    cmdAddLeague = new QPushButton(u"Add to &League"_s, page);
    cmdAddLeague->setObjectName(u"cmdAddLeague"_s);
    cmdAddLeague->setAutoDefault(false);
    connect(cmdAddLeague, &QPushButton::clicked, this, &frmTeam::addLeagueClicked);

    auto* leagueButtons = new QHBoxLayout;
    leagueButtons->addStretch();
    leagueButtons->addWidget(cmdAddLeague);

    auto* layout = new QVBoxLayout(page);
    layout->addLayout(fields);
    layout->addSpacing(6);
    layout->addWidget(leaguesLabel);
    layout->addWidget(lvwLeagues, 1);
    layout->addLayout(leagueButtons);
}

void frmTeam::fill(cTeam& team)
{
    m_filling = true;
    m_team = &team;
    TxtTeamName->setText(team.teamName());
    TxtTeamOwner->setText(team.teamOwner());
    txtEmail->setText(team.email());
    txtPhone->setText(team.phone());
    txtAddressLine1->setText(team.addressLine1());
    txtAddressLine2->setText(team.addressLine2());
    txtCity->setText(team.city());
    txtState->setText(team.state());
    txtZip->setText(team.zip());

    cRaceTypeCollection raceTypes;
    raceTypes.load();
    fillNumberCombo(cmbRaceType, raceTypes, [](const cRaceType& r) { return r.raceTypeNmbr(); },
                    [](const cRaceType& r) { return r.raceTypeName(); });
    selectComboNumber(cmbRaceType, team.raceTypeNmbr(),
                      !raceTypes.getRaceTypeName(cVariant(static_cast<int>(team.raceTypeNmbr()))).isEmpty());

    cCarTypeCollection carTypes;
    carTypes.loadNoBonus();
    fillNumberCombo(cmbCarType, carTypes, [](const cCarType& c) { return c.carTypeNmbr(); },
                    [](const cCarType& c) { return c.carTypeName(); });
    selectComboNumber(cmbCarType, team.carTypeNmbr(), !carTypes.getCarTypeName(team.carTypeNmbr()).isEmpty());

    lvwLeagues->clear();
    loadTeamLeagues();
    m_rosterTab->reset(team);
    SSTab1->setCurrentIndex(0);
    setWindowTitle(u"Team - "_s + team.teamName());
    m_recordChanged = false;
    cmdApply->setEnabled(false);
    m_filling = false;
}

void frmTeam::showWith(cTeam& team)
{
    fill(team);
    exec();
}

void frmTeam::markRecordChanged()
{
    m_recordChanged = true;
    cmdApply->setEnabled(true);
}

void frmTeam::loadTeamLeagues()
{
    if (m_team->teamNmbr() <= 0)
        return;
    cLeagueCollection leagues;
    if (leagues.loadForTeam(m_team->teamNmbr()) == 0)
        return;
    lvwLeagues->setSortingEnabled(false);
    lvwLeagues->clear();
    for (const cLeague& league : leagues) {
        auto* row = new QTreeWidgetItem(lvwLeagues, {league.leagueName(), league.salaryCap().toCurrencyText()});
        row->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    }
    lvwLeagues->setSortingEnabled(true);
    lvwLeagues->sortByColumn(0, Qt::AscendingOrder);
}

// ---- race type and Score By ----

void frmTeam::raceTypeActivated(int index)
{
    if (index < 0 || !isVisible() || !m_team)
        return;
    const auto chosen = static_cast<int16_t>(cmbRaceType->itemData(index).toInt());
    if (m_team->teamNmbr() >= 1) {
        if (chosen == m_team->raceTypeNmbr())
            return;
        cTeamCarCollection roster;
        cLeagueTeamsCollection memberships;
        QString refusal;
        if (roster.raceTypeExists(m_team->raceTypeNmbr(), m_team->teamNmbr()))
            refusal = u"Can not change Race Type while Team Cars exist for the Race Type."_s;
        else if (memberships.raceTypeExists(m_team->raceTypeNmbr(), std::nullopt, m_team->teamNmbr()))
            refusal = u"This Team is a member of at least one League for the current Race Type.\n"_s
                      u"Can not change Race Type."_s;
        if (!refusal.isEmpty()) {
            messageBox(refusal, kTitle, Icon::Critical);
            selectComboNumber(cmbRaceType, m_team->raceTypeNmbr());
            return;
        }
    }
    m_team->setRaceTypeNmbr(chosen);
    markRecordChanged();
}

void frmTeam::carTypeActivated(int index)
{
    if (index < 0 || !isVisible() || !m_team)
        return;
    const auto chosen = static_cast<int16_t>(cmbCarType->itemData(index).toInt());
    if (m_team->teamNmbr() >= 1) {
        if (chosen == m_team->carTypeNmbr())
            return;
        cTeamCarCollection roster;
        cLeagueTeamsCollection memberships;
        QString refusal;
        if (roster.carTypeExists(m_team->carTypeNmbr(), m_team->teamNmbr()))
            refusal = u"Can not change Score By while Team Cars exist for the Score By type."_s;
        else if (memberships.carTypeExists(m_team->carTypeNmbr(), std::nullopt, m_team->teamNmbr()))
            refusal = u"This Team is a member of at least one League for the Score By Type.\n"_s
                      u"Can not change Score By."_s;
        if (!refusal.isEmpty()) {
            messageBox(refusal, kTitle, Icon::Critical);
            selectComboNumber(cmbCarType, m_team->carTypeNmbr());
            return;
        }
    }
    m_team->setCarTypeNmbr(chosen);
    markRecordChanged();
}

// ---- saving ----

bool frmTeam::refuse(const QString& message, QWidget* field)
{
    messageBox(message, kTitle, Icon::Critical);
    SSTab1->setCurrentIndex(0);
    focusField(field, true);
    return false;
}

bool frmTeam::validateTeam()
{
    if (TxtTeamName->text().trimmed().isEmpty())
        return refuse(u"Team Name is a required field"_s, TxtTeamName);
    if (cmbRaceType->currentText().trimmed().isEmpty())
        return refuse(u"Race Type is a required field"_s, cmbRaceType);
    if (cmbCarType->currentText().trimmed().isEmpty())
        return refuse(u"Score By is a required field"_s, cmbCarType);
    return m_team->CommitChanges();
}

bool frmTeam::saveTeam()
{
    if (m_recordChanged) {
        if (!validateTeam())
            return false;
        // A team in no league is asked for its leagues at every save of its record.
        cLeagueTeamsCollection memberships;
        if (memberships.load(std::nullopt, m_team->teamNmbr()) == 0)
            m_openLeagueTeams(*m_team);
        loadTeamLeagues();
        m_recordChanged = false;
        // Active flags changed meanwhile wait for the next save.
        cmdApply->setEnabled(false);
    } else if (m_rosterTab->activeFlagsChanged()) {
        if (!m_rosterTab->saveActiveFlags())
            return false;
        cmdApply->setEnabled(false);
    }
    return !cmdApply->isEnabled();
}

void frmTeam::okClicked()
{
    if (cmdApply->isEnabled() && !saveTeam())
        return;
    accept();
}

void frmTeam::reject()
{
    const bool changed = m_recordChanged && m_team;
    if (cancelClosesScreen(changed, changed ? m_team->teamName() : QString(), [this] { return saveTeam(); },
                           YesOnCancel::SaveAndClose))
        QDialog::reject();
}

void frmTeam::addLeagueClicked()
{
    if (!m_team)
        return;
    if (m_recordChanged && !validateTeam())
        return;
    m_openLeagueTeams(*m_team);
    loadTeamLeagues();
}

void frmTeam::tabChanged(int index)
{
    if (m_filling || !isVisible())
        return;
    if (cmdApply->isEnabled())
        saveTeam();
    if (index == 1)
        m_rosterTab->openIfUnread();
}
