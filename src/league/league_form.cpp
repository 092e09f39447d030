#include "league/league_form.h"
#include "base/detail_screen.h"
#include "base/messages.h"
#include "base/row_tag.h"
#include "league/car_type.h"
#include "league/league.h"
#include "league/league_teams.h"
#include "league/race_type.h"
#include "league/team.h"
#include "racing/scoring_method.h"
#include "racing/team_results.h"
#include "store/currency.h"
#include "store/variant.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <functional>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString kTitle = u"Lapkeeper"_s;

// Item data of a team row: the cTeam it stands for, its key text, and the check state it had
// last, so that a change of text is not taken for a click on the box.
constexpr int kTeamRole = Qt::UserRole;
constexpr int kKeyRole = Qt::UserRole + 1;
constexpr int kShownCheckRole = Qt::UserRole + 2;

cTeam* teamOf(const QTreeWidgetItem* item)
{
    return rowRecord<cTeam>(item, kTeamRole);
}

// A label that answers a click.
class cClickFilter : public QObject {
public:
    cClickFilter(QWidget* target, std::function<void()> onClick)
        : QObject(target), m_onClick(std::move(onClick))
    {
        target->installEventFilter(this);
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

} // namespace

frmLeague::frmLeague(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(u"frmLeague"_s);
    setWindowTitle(u"League - "_s);

    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(u"SSTab1"_s);
    auto* leaguePage = new QWidget(SSTab1);
    auto* teamsPage = new QWidget(SSTab1);
    buildLeagueTab(leaguePage);
    buildTeamsTab(teamsPage);
    SSTab1->addTab(leaguePage, u"League"_s);
    SSTab1->addTab(teamsPage, u"League Teams"_s);

    const cButtonRow buttons = makeButtonRow(this);
    cmdOK = buttons.ok;
    cmdCancel = buttons.cancel;
    cmdApply = buttons.apply;

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(SSTab1, 1);
    layout->addLayout(buttons.layout);
    setMinimumWidth(460);

    connect(cmdOK, &QPushButton::clicked, this, &frmLeague::okClicked);
    connect(cmdCancel, &QPushButton::clicked, this, &frmLeague::reject);
    connect(cmdApply, &QPushButton::clicked, this, [this] {
        if (!m_refusedClick.swallow(cmdApply))
            saveLeague();
    });
    connect(SSTab1, &QTabWidget::currentChanged, this, &frmLeague::tabChanged);
}

frmLeague::~frmLeague() = default;

void frmLeague::buildLeagueTab(QWidget* page)
{
    auto line = [page](const QString& name) {
        auto* edit = new QLineEdit(page);
        edit->setObjectName(name);
        selectTextOnFocus(edit);
        return edit;
    };
    auto combo = [page](const QString& name) {
        auto* list = new QComboBox(page);
        list->setObjectName(name);
        list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        return list;
    };
    txtLeagueName = line(u"txtLeagueName"_s);
    txtShortName = line(u"txtShortName"_s);
    cmbRaceType = combo(u"cmbRaceType"_s);
    cmbCarType = combo(u"cmbCarType"_s);
    cmbScoringType = combo(u"cmbScoringType"_s);
    cmbScoringOption = combo(u"cmbScoringOption"_s);
    txtSalaryCap = line(u"txtSalaryCap"_s);
    txtSalaryCap->setAlignment(Qt::AlignRight);
    txtSalaryCap->setMaximumWidth(180);
    txtDropLowest = line(u"txtDropLowest"_s);
    txtDropLowest->setAlignment(Qt::AlignRight);
    txtDropLowest->setMaximumWidth(80);

    lblName = new QLabel(u"Name:"_s, page);
    lblName->setObjectName(u"lblName"_s);
    lblName->setBuddy(txtLeagueName);
    new cClickFilter(lblName, [this] { showLeagueNumber(); });

    cmdImportCars = new QPushButton(u"Import Cars"_s, page);
    cmdImportCars->setObjectName(u"cmdImportCars"_s);
    cmdImportCars->setAutoDefault(false);
    cmdImortRaces = new QPushButton(u"Import Races"_s, page);
    cmdImortRaces->setObjectName(u"cmdImortRaces"_s);
    cmdImortRaces->setAutoDefault(false);

    auto* grid = new QGridLayout(page);
    auto row = [grid, page](int at, QLabel* label, QWidget* field, const QString& caption) {
        if (!label)
            label = new QLabel(caption, page);
        label->setBuddy(field);
        grid->addWidget(label, at, 0);
        grid->addWidget(field, at, 1);
    };
    row(0, lblName, txtLeagueName, {});
    row(1, nullptr, txtShortName, u"Short Name:"_s);
    row(2, nullptr, cmbRaceType, u"Race Type:"_s);
    row(3, nullptr, cmbCarType, u"Score By:"_s);
    row(4, nullptr, cmbScoringType, u"Scoring Method:"_s);
    row(5, nullptr, cmbScoringOption, u"Scoring Option:"_s);
    row(6, nullptr, txtSalaryCap, u"Salary Cap:"_s);
    row(7, nullptr, txtDropLowest, u"Drop Lowest:"_s);
    auto* downloads = new QHBoxLayout;
    downloads->addWidget(cmdImportCars);
    downloads->addWidget(cmdImortRaces);
    downloads->addStretch();
    grid->addLayout(downloads, 8, 1);
    grid->setRowStretch(9, 1);
    grid->setColumnStretch(1, 1);

    connect(txtLeagueName, &QLineEdit::textChanged, this, &frmLeague::leagueNameChanged);
    connect(txtShortName, &QLineEdit::textChanged, this, &frmLeague::shortNameChanged);
    connect(txtSalaryCap, &QLineEdit::textChanged, this, [this] {
        m_refusedClick.clear();
        markRecordChanged();
    });
    connect(txtDropLowest, &QLineEdit::textChanged, this, [this] {
        m_refusedClick.clear();
        markRecordChanged();
    });
    connect(cmbScoringType, &QComboBox::activated, this, &frmLeague::scoringTypeActivated);
    connect(cmbScoringOption, &QComboBox::activated, this, &frmLeague::scoringOptionActivated);
    connect(cmbRaceType, &QComboBox::activated, this, &frmLeague::raceTypeActivated);
    connect(cmbCarType, &QComboBox::activated, this, &frmLeague::carTypeActivated);
    connect(cmdImportCars, &QPushButton::clicked, this, &frmLeague::importCarsClicked);
    connect(cmdImortRaces, &QPushButton::clicked, this, &frmLeague::importRacesClicked);
    cValidateOnLeave::install(txtSalaryCap, [this] { return checkSalaryCap(); });
    cValidateOnLeave::install(txtDropLowest, [this] { return checkDropLowest(); });
}

void frmLeague::buildTeamsTab(QWidget* page)
{
    lvwLeagueTeams = new QTreeWidget(page);
    lvwLeagueTeams->setObjectName(u"lvwLeagueTeams"_s);
    lvwLeagueTeams->setHeaderLabels({u"Team"_s});
    lvwLeagueTeams->setRootIsDecorated(false);
    lvwLeagueTeams->setSortingEnabled(false);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(lvwLeagueTeams);
    connect(lvwLeagueTeams, &QTreeWidget::itemChanged, this, &frmLeague::teamItemChanged);
}

void frmLeague::fill(cLeague& league)
{
    m_filling = true;
    m_league = &league;
    txtLeagueName->setText(league.leagueName());
    txtShortName->setText(league.leagueShortName());
    txtSalaryCap->setText(league.salaryCap().toCurrencyText());
    txtDropLowest->setText(QString::number(league.dropLowest()));
    txtDropLowest->setEnabled(league.scoringOptionNmbr() != 1);
    setWindowTitle(u"League - "_s + league.leagueName());
    fillLists();
    lvwLeagueTeams->clear();
    m_teams.reset();
    SSTab1->setCurrentIndex(0);
    m_recordChanged = false;
    m_teamListChanged = false;
    cmdApply->setEnabled(false);
    m_filling = false;
}

void frmLeague::fillLists()
{
    cRaceTypeCollection raceTypes;
    raceTypes.load();
    fillNumberCombo(cmbRaceType, raceTypes, [](const cRaceType& r) { return r.raceTypeNmbr(); },
                    [](const cRaceType& r) { return r.raceTypeName(); });
    selectComboNumber(cmbRaceType, m_league->raceTypeNmbr(),
                      !raceTypes.getRaceTypeName(m_league->raceTypeNmbr()).isEmpty());

    cScoringTypeCollection methods;
    methods.load();
    fillNumberCombo(cmbScoringType, methods, [](const cScoringType& m) { return m.scoringTypeNmbr(); },
                    [](const cScoringType& m) { return m.scoringTypeName(); });
    selectComboNumber(cmbScoringType, m_league->scoringTypeNmbr(),
                      !methods.getScoringTypeName(m_league->scoringTypeNmbr()).isEmpty());

    cScoringOptionCollection options;
    options.load();
    fillNumberCombo(cmbScoringOption, options, [](const cScoringOption& o) { return o.scoringOptionNmbr(); },
                    [](const cScoringOption& o) { return o.scoringOptionName(); });
    selectComboNumber(cmbScoringOption, m_league->scoringOptionNmbr(),
                      !options.getScoringOptionName(m_league->scoringOptionNmbr()).isEmpty());

    cCarTypeCollection carTypes;
    carTypes.loadNoBonus();
    fillNumberCombo(cmbCarType, carTypes, [](const cCarType& c) { return c.carTypeNmbr(); },
                    [](const cCarType& c) { return c.carTypeName(); });
    selectComboNumber(cmbCarType, m_league->carTypeNmbr(),
                      !carTypes.getCarTypeName(m_league->carTypeNmbr()).isEmpty());
}

void frmLeague::showWith(cLeague& league)
{
    fill(league);
    exec();
}

bool frmLeague::active() const
{
    return m_league && isVisible() && !m_filling;
}

void frmLeague::markRecordChanged()
{
    if (!active())
        return;
    m_recordChanged = true;
    cmdApply->setEnabled(true);
}

void frmLeague::markTeamListChanged()
{
    m_teamListChanged = true;
    cmdApply->setEnabled(true);
}

void frmLeague::leagueNameChanged(const QString& text)
{
    if (!active())
        return;
    m_league->setLeagueName(text);
    setWindowTitle(u"League - "_s + text);
    markRecordChanged();
}

void frmLeague::shortNameChanged(const QString& text)
{
    if (!active())
        return;
    m_league->setLeagueShortName(text);
    markRecordChanged();
}

void frmLeague::scoringTypeActivated(int index)
{
    if (!active() || index < 0)
        return;
    m_league->setScoringTypeNmbr(comboNumber(cmbScoringType, index, 0));
    markRecordChanged();
}

void frmLeague::scoringOptionActivated(int index)
{
    if (!active() || index < 0)
        return;
    const int16_t option = comboNumber(cmbScoringOption, index, 0);
    m_league->setScoringOptionNmbr(option);
    // Only leaving txtDropLowest writes the record's count, so the "0" shown here is not
    // stored; posting ignores the count under option 1.
    if (option == 1) {
        txtDropLowest->setText(u"0"_s);
        txtDropLowest->setEnabled(false);
    } else {
        txtDropLowest->setEnabled(true);
    }
    markRecordChanged();
}

// The presence of member teams freezes both the race type and the Score By; either list asks
// about the race type, as a member team always shares both with its league.
bool frmLeague::membersExist()
{
    cLeagueTeamsCollection members;
    return members.raceTypeExists(m_league->raceTypeNmbr(), m_league->leagueNmbr());
}

void frmLeague::raceTypeActivated(int index)
{
    if (!active() || index < 0)
        return;
    const int16_t chosen = comboNumber(cmbRaceType, index, 0);
    if (chosen == m_league->raceTypeNmbr())
        return;
    if (membersExist()) {
        messageBox(u"Can not change Race Type while League Teams exist for the League"_s, kTitle, Icon::Critical);
        cmbRaceType->setCurrentIndex(cmbRaceType->findData(QVariant(static_cast<int>(m_league->raceTypeNmbr()))));
        return;
    }
    m_league->setRaceTypeNmbr(chosen);
    markRecordChanged();
}

void frmLeague::carTypeActivated(int index)
{
    if (!active() || index < 0)
        return;
    const int16_t chosen = comboNumber(cmbCarType, index, 0);
    if (chosen == m_league->carTypeNmbr())
        return;
    if (membersExist()) {
        messageBox(u"Can not change Score By while League Teams exist for the League"_s, kTitle, Icon::Critical);
        cmbCarType->setCurrentIndex(cmbCarType->findData(QVariant(static_cast<int>(m_league->carTypeNmbr()))));
        return;
    }
    m_league->setCarTypeNmbr(chosen);
    markRecordChanged();
    cmdImportCars->setText(u"Import "_s + cmbCarType->itemText(index));
}

// Leaving the salary cap: a number is stored and shown again as currency.
bool frmLeague::checkSalaryCap()
{
    m_refusedClick.clear();
    Currency cap;
    if (!Currency::parse(txtSalaryCap->text(), cap)) {
        m_refusedClick.note();
        messageBox(u"Invalid Salary Cap amount"_s, kTitle, Icon::Critical);
        return false;
    }
    m_league->setSalaryCap(cap);
    txtSalaryCap->setText(cap.toCurrencyText());
    return true;
}

// Leaving the drop count: a number that fits the column is stored.
bool frmLeague::checkDropLowest()
{
    m_refusedClick.clear();
    const cVariant typed(txtDropLowest->text());
    bool fits = typed.isNumeric();
    int16_t count = 0;
    if (fits) {
        try {
            count = typed.toInt16();
        } catch (const cRuntimeError&) {
            fits = false;
        }
    }
    if (!fits) {
        m_refusedClick.note();
        messageBox(u"Invalid Drop Lowest amount"_s, kTitle, Icon::Critical);
        return false;
    }
    m_league->setDropLowest(count);
    return true;
}

// A save by the keyboard (Enter, a shortcut, a tab change) need not take the focus from the
// amount being typed, so what the fields show is stored here as leaving them would store it.
// The drop count is stored only while it is open for input: under option 1 the record keeps
// its old count.
bool frmLeague::storeTypedAmounts()
{
    Currency cap;
    if (Currency::parse(txtSalaryCap->text(), cap))
        m_league->setSalaryCap(cap);
    if (txtDropLowest->isEnabled() && !checkDropLowest()) {
        txtDropLowest->setFocus(Qt::OtherFocusReason);
        txtDropLowest->selectAll();
        return false;
    }
    return true;
}

bool frmLeague::refuse(const QString& message, QWidget* field)
{
    messageBox(message, kTitle, Icon::Critical);
    if (!m_changingTab && SSTab1->currentIndex() != 0) {
        const bool filling = m_filling;
        m_filling = true;
        SSTab1->setCurrentIndex(0);
        m_filling = filling;
    }
    focusField(field, true);
    return false;
}

bool frmLeague::validateLeague()
{
    if (txtLeagueName->text().trimmed().isEmpty())
        return refuse(u"League Name is a required field"_s, txtLeagueName);
    if (txtShortName->text().trimmed().isEmpty())
        return refuse(u"Short Name is a required field"_s, txtShortName);
    if (cmbCarType->currentText().trimmed().isEmpty())
        return refuse(u"Scoring By is a required field"_s, cmbCarType);
    if (cmbScoringType->currentText().trimmed().isEmpty())
        return refuse(u"Scoring Method is a required field"_s, cmbScoringType);
    if (cmbScoringOption->currentText().trimmed().isEmpty())
        return refuse(u"Scoring Option is a required field"_s, cmbScoringOption);
    if (cmbRaceType->currentText().trimmed().isEmpty())
        return refuse(u"Race Type is a required field"_s, cmbRaceType);
    Currency cap;
    if (!Currency::parse(txtSalaryCap->text(), cap))
        return refuse(u"Invalid Salary Cap amount"_s, txtSalaryCap);
    return m_league->CommitChanges();
}

bool frmLeague::saveLeague()
{
    if (!m_league || !storeTypedAmounts())
        return false;
    if (m_recordChanged) {
        if (!validateLeague())
            return false;
        m_recordChanged = false;
        if (m_teamListChanged) {
            if (!saveLeagueTeams())
                return false;
            m_teamListChanged = false;
        }
        cmdApply->setEnabled(false);
    } else if (m_teamListChanged) {
        saveLeagueTeams();
        m_teamListChanged = false;
        cmdApply->setEnabled(false);
    }
    return !cmdApply->isEnabled();
}

bool frmLeague::saveLeagueTeams()
{
    cLeagueTeamsCollection members;
    for (int i = 0; i < lvwLeagueTeams->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = lvwLeagueTeams->topLevelItem(i);
        if (item->checkState(0) == Qt::Checked)
            members.Add(m_league->leagueNmbr(), teamOf(item)->teamNmbr());
    }
    return members.insertNew(m_league->leagueNmbr());
}

void frmLeague::loadLeagueTeams()
{
    auto teams = std::make_unique<cTeamCollection>();
    teams->load(m_league->raceTypeNmbr(), m_league->carTypeNmbr());
    cLeagueTeamsCollection members;
    members.load(m_league->leagueNmbr());
    if (teams->Count() == 0)
        return;
    const bool filling = m_filling;
    m_filling = true;
    lvwLeagueTeams->clear();
    for (cTeam& team : *teams) {
        auto* item = new QTreeWidgetItem(lvwLeagueTeams, {team.teamName()});
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        setRowRecord(item, kTeamRole, &team);
        item->setData(0, kKeyRole, u"TEAM"_s + QString::number(team.teamNmbr()));
        const Qt::CheckState state =
            members.teamExists(team.teamNmbr(), m_league->leagueNmbr()) ? Qt::Checked : Qt::Unchecked;
        item->setCheckState(0, state);
        item->setData(0, kShownCheckRole, static_cast<int>(state));
    }
    lvwLeagueTeams->sortItems(0, Qt::AscendingOrder);
    m_teams = std::move(teams);
    m_filling = filling;
}

void frmLeague::teamItemChanged(QTreeWidgetItem* item, int column)
{
    if (column != 0 || m_filling)
        return;
    const Qt::CheckState state = item->checkState(0);
    if (item->data(0, kShownCheckRole).toInt() == static_cast<int>(state))
        return;   // not a click on the box
    item->setData(0, kShownCheckRole, static_cast<int>(state));
    if (!active())
        return;
    if (state == Qt::Checked) {
        markTeamListChanged();
        return;
    }
    cTeamResultsCollection results;
    if (results.resultsForTeamExists(m_league->leagueNmbr(), teamOf(item)->teamNmbr())) {
        messageBox(u"Team has been scored for this League and can not be removed until all Scoring for this Team is deleted."_s,
                   kTitle, Icon::Critical);
        m_filling = true;
        item->setCheckState(0, Qt::Checked);
        item->setData(0, kShownCheckRole, static_cast<int>(Qt::Checked));
        m_filling = false;
        return;
    }
    markTeamListChanged();
}

void frmLeague::tabChanged(int index)
{
    if (!active())
        return;
    if (cmdApply->isEnabled()) {
        // A failed save has shown its message; the tab changes all the same.
        m_changingTab = true;
        saveLeague();
        m_changingTab = false;
    }
    if (index == 1 && lvwLeagueTeams->topLevelItemCount() == 0)
        loadLeagueTeams();
}

void frmLeague::okClicked()
{
    if (m_refusedClick.swallow(cmdOK))
        return;
    if (cmdApply->isEnabled() && !saveLeague())
        return;
    accept();
}

void frmLeague::reject()
{
    const bool changed = m_league && (m_recordChanged || m_teamListChanged);
    if (cancelClosesScreen(changed, changed ? m_league->leagueName() : QString(), [this] { return saveLeague(); },
                           YesOnCancel::SaveAndStay))
        QDialog::reject();
}

void frmLeague::showLeagueNumber()
{
    if (m_league)
        messageBox(u"League number is "_s + QString::number(m_league->leagueNmbr()));
}

void frmLeague::importCarsClicked()
{
    // Series downloads are not offered yet; the button stays for the series file exchange.
}

void frmLeague::importRacesClicked()
{
    // Series downloads are not offered yet; the button stays for the series file exchange.
}
