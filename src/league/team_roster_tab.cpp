#include "league/team_roster_tab.h"
#include "base/detail_screen.h"
#include "base/messages.h"
#include "base/row_tag.h"
#include "league/car.h"
#include "league/team.h"
#include "league/team_car.h"
#include "racing/team_results.h"
#include "store/dates.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
const QString kTitle = u"Lapkeeper"_s;
constexpr int kEntryRole = Qt::UserRole;
constexpr int kSortRole = Qt::UserRole + 1;
enum RosterColumn { kActive, kNumber, kDriver, kEfctvDt, kTermDt, kLockedSalary };

cTeamCar* entryOf(const QTreeWidgetItem* item)
{
    return rowRecord<cTeamCar>(item, kEntryRole);
}

// Sorts a roster column by what it means: car numbers as numbers where they are numbers,
// salaries as amounts, the active flag by its check; everything else as text.
class cRosterItem : public QTreeWidgetItem {
public:
    using QTreeWidgetItem::QTreeWidgetItem;
    bool operator<(const QTreeWidgetItem& other) const override
    {
        const int column = treeWidget() ? treeWidget()->sortColumn() : 0;
        if (column == kActive)
            return checkState(kActive) < other.checkState(kActive);
        const QVariant mine = data(column, kSortRole);
        const QVariant theirs = other.data(column, kSortRole);
        if (mine.isValid() && theirs.isValid())
            return mine.toDouble() < theirs.toDouble();
        if (mine.isValid() != theirs.isValid())
            return mine.isValid();   // numbers before texts
        return text(column).localeAwareCompare(other.text(column)) < 0;
    }
};
}

cTeamRosterTab::cTeamRosterTab(QWidget* parent)
    : QWidget(parent)
{
    QWidget* page = this;
    lvwTeamCars = new QTreeWidget(page);
    lvwTeamCars->setObjectName(u"lvwTeamCars"_s);
    lvwTeamCars->setRootIsDecorated(false);
    lvwTeamCars->setUniformRowHeights(true);
    lvwTeamCars->setAllColumnsShowFocus(true);
    lvwTeamCars->setHeaderLabels(
        {u"Active"_s, u"Number"_s, u"Driver"_s, u"Effective Dt."_s, u"Term Dt."_s, u"Locked Salary"_s});
    lvwTeamCars->headerItem()->setTextAlignment(kLockedSalary, Qt::AlignRight | Qt::AlignVCenter);
    QHeaderView* header = lvwTeamCars->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(kDriver, QHeaderView::Stretch);
    header->setSortIndicatorShown(true);
    lvwTeamCars->setSortingEnabled(true);
    lvwTeamCars->sortByColumn(kNumber, Qt::AscendingOrder);
    connect(lvwTeamCars, &QTreeWidget::itemChanged, this, &cTeamRosterTab::rosterItemChanged);
    connect(lvwTeamCars, &QTreeWidget::itemDoubleClicked, this, [this] { updateClicked(); });

    txtTotalSalary = new QLineEdit(page);
    txtTotalSalary->setObjectName(u"txtTotalSalary"_s);
    txtTotalSalary->setReadOnly(true);
    txtTotalSalary->setFocusPolicy(Qt::NoFocus);
    txtTotalSalary->setAlignment(Qt::AlignRight);
    txtTotalSalary->setMaximumWidth(fontMetrics().horizontalAdvance(u"$99,999,999.00"_s) + 20);
    auto* totalLabel = new QLabel(u"Total Salary:"_s, page);
    totalLabel->setBuddy(txtTotalSalary);

    auto button = [page](const QString& name, const QString& caption) { return makeButton(page, name, caption); };
    cmdAdd = button(u"cmdAdd"_s, u"&Add"_s);
    CmdAddMultiple = button(u"CmdAddMultiple"_s, u"Add Multiple"_s);
    cmdUpdate = button(u"cmdUpdate"_s, u"&Update"_s);
    cmdTerm = button(u"cmdTerm"_s, u"&Terminate"_s);
    cmdTermAll = button(u"cmdTermAll"_s, u"Terminate All"_s);
    cmdDelete = button(u"cmdDelete"_s, u"&Delete"_s);
    cmdCheckDuplicate = button(u"cmdCheckDuplicate"_s, u"D&uplicate?"_s);
    connect(cmdAdd, &QPushButton::clicked, this, &cTeamRosterTab::addClicked);
    connect(CmdAddMultiple, &QPushButton::clicked, this, &cTeamRosterTab::addMultipleClicked);
    connect(cmdUpdate, &QPushButton::clicked, this, &cTeamRosterTab::updateClicked);
    connect(cmdTerm, &QPushButton::clicked, this, &cTeamRosterTab::termClicked);
    connect(cmdTermAll, &QPushButton::clicked, this, &cTeamRosterTab::termAllClicked);
    connect(cmdDelete, &QPushButton::clicked, this, &cTeamRosterTab::deleteClicked);
    connect(cmdCheckDuplicate, &QPushButton::clicked, this, &cTeamRosterTab::checkDuplicateClicked);

    auto* side = new QVBoxLayout;
    for (QPushButton* b : {cmdAdd, CmdAddMultiple, cmdUpdate, cmdTerm, cmdTermAll, cmdDelete})
        side->addWidget(b);
    side->addSpacing(12);
    side->addWidget(cmdCheckDuplicate);
    side->addStretch();

    auto* total = new QHBoxLayout;
    total->addStretch();
    total->addWidget(totalLabel);
    total->addWidget(txtTotalSalary);

    auto* grid = new QGridLayout(page);
    grid->addWidget(lvwTeamCars, 0, 0);
    grid->addLayout(side, 0, 1);
    grid->addLayout(total, 1, 0);
    grid->setColumnStretch(0, 1);
}

cTeamRosterTab::~cTeamRosterTab() = default;

void cTeamRosterTab::reset(cTeam& team)
{
    m_team = &team;
    lvwTeamCars->clear();
    m_roster.reset();
    txtTotalSalary->clear();
    m_activeChanged = false;
}

bool cTeamRosterTab::saveActiveFlags()
{
    for (int i = 0; i < lvwTeamCars->topLevelItemCount(); ++i) {
        if (cTeamCar* entry = entryOf(lvwTeamCars->topLevelItem(i)); entry && !entry->updateRow())
            return false;
    }
    m_activeChanged = false;
    return true;
}

// The first arrival reads the roster; an empty roster leaves a blank row behind, so returning to
// the tab does not read it again.
void cTeamRosterTab::openIfUnread()
{
    if (lvwTeamCars->topLevelItemCount() != 0)
        return;
    loadRoster();
    lvwTeamCars->sortByColumn(kNumber, Qt::AscendingOrder);
}

void cTeamRosterTab::loadRoster()
{
    const bool wasFilling = m_filling;
    m_filling = true;
    m_totalSalary = Currency();
    lvwTeamCars->clear();
    m_roster = std::make_unique<cTeamCarCollection>();
    m_roster->loadNoBonus(m_team->teamNmbr());
    if (m_roster->Count() == 0) {
        // A row with no entry, so that returning to the tab does not read the roster again.
        new cRosterItem(lvwTeamCars);
    } else {
        for (cTeamCar& entry : *m_roster)
            addRosterRow(entry);
    }
    lvwTeamCars->sortItems(lvwTeamCars->sortColumn(), lvwTeamCars->header()->sortIndicatorOrder());
    txtTotalSalary->setText(m_totalSalary.toCurrencyText());
    m_filling = wasFilling;
}

void cTeamRosterTab::addRosterRow(cTeamCar& entry)
{
    cCar car;
    car.load(entry.carNmbr());
    auto* row = new cRosterItem;
    row->setFlags(row->flags() | Qt::ItemIsUserCheckable);
    row->setCheckState(kActive, entry.active() != 0 ? Qt::Checked : Qt::Unchecked);
    row->setText(kNumber, car.carTxt());
    bool isNumber = false;
    const double number = car.carTxt().toDouble(&isNumber);
    if (isNumber)
        row->setData(kNumber, kSortRole, number);
    row->setText(kDriver, car.driverName());
    row->setText(kEfctvDt, shortDate(entry.efctvDt()));
    row->setText(kTermDt, entry.termDt().isValid() ? shortDate(entry.termDt()) : u" "_s);
    const Currency locked = Currency::fromDouble(entry.LockedSalary());
    row->setText(kLockedSalary, locked.toCurrencyText());
    row->setData(kLockedSalary, kSortRole, entry.LockedSalary());
    row->setTextAlignment(kLockedSalary, Qt::AlignRight | Qt::AlignVCenter);
    setRowRecord(row, kEntryRole, &entry);
    lvwTeamCars->addTopLevelItem(row);

    // The present payroll: open entries, and those whose termination day is still to come.
    const QString today = QDate::currentDate().toString(u"yyyy/MM/dd"_s);
    if (!entry.termDt().isValid() || entry.termDt().toString(u"yyyy/MM/dd"_s) > today)
        m_totalSalary += locked;
}

void cTeamRosterTab::refreshRoster()
{
    QHeaderView* header = lvwTeamCars->header();
    const int column = header->sortIndicatorSection();
    const Qt::SortOrder order = header->sortIndicatorOrder();
    lvwTeamCars->sortByColumn(0, Qt::AscendingOrder);
    loadRoster();
    lvwTeamCars->sortByColumn(column, order);
}

void cTeamRosterTab::rosterItemChanged(QTreeWidgetItem* item, int column)
{
    if (m_filling || !window()->isVisible() || column != kActive)
        return;
    cTeamCar* entry = entryOf(item);
    if (!entry)
        return;
    entry->setActive(item->checkState(kActive) == Qt::Checked ? 1 : 0);
    m_activeChanged = true;
    emit activeFlagChanged();
}

cTeamCar* cTeamRosterTab::selectedEntry() const
{
    return entryOf(lvwTeamCars->currentItem());
}

// Roster buttons work on a team that is stored; the blank row of an empty roster holds no
// entry, and the buttons that need one do nothing on it.
void cTeamRosterTab::addClicked()
{
    if (!m_team || m_team->teamNmbr() < 1)
        return;
    cTeamCar entry;
    entry.setTeamNmbr(m_team->teamNmbr());
    m_openTeamCar(entry, m_totalSalary);
    refreshRoster();
}

void cTeamRosterTab::addMultipleClicked()
{
    if (!m_team || m_team->teamNmbr() < 1)
        return;
    m_openTeamCarMultiple(*m_team, m_totalSalary);
    refreshRoster();
}

void cTeamRosterTab::updateClicked()
{
    cTeamCar* entry = selectedEntry();
    if (!entry)
        return;
    m_openTeamCar(*entry, m_totalSalary);
    refreshRoster();
}

void cTeamRosterTab::termClicked()
{
    cTeamCar* entry = selectedEntry();
    if (!entry)
        return;
    // Today's date as a proposal: the operator sees it and may correct it; a Cancel drops it,
    // since the refresh reads the rows again.
    entry->setTermDt(QDate::currentDate());
    m_openTeamCar(*entry, m_totalSalary);
    refreshRoster();
}

void cTeamRosterTab::termAllClicked()
{
    if (!m_team || m_team->teamNmbr() < 1)
        return;
    cTeamCarCollection roster;
    roster.TermAll(m_team->teamNmbr(), QDate::currentDate());
    refreshRoster();
}

void cTeamRosterTab::deleteClicked()
{
    cTeamCar* entry = selectedEntry();
    if (!entry)
        return;
    cTeamResultsCollection results;
    if (results.resultsForCarExistsAfterDate(m_team->teamNmbr(), entry->carNmbr(), entry->efctvDt())) {
        messageBox(u"Car/Driver has been scored for this Team and can not be deleted until all Scoring for this "
                   u"Team Car/Driver is deleted."_s,
                   kTitle, Icon::Critical);
        return;
    }
    entry->deleteRow();
    refreshRoster();
}

void cTeamRosterTab::checkDuplicateClicked()
{
    if (!m_team)
        return;
    cTeamCar probe;
    const int16_t other = probe.duplicateTeam(m_team->teamNmbr());
    if (other < 1) {
        messageBox(u"Team not Duplicated."_s, kTitle, Icon::Information);
        return;
    }
    cTeam duplicate;
    duplicate.load(other);
    messageBox(u"Duplicate team with "_s + duplicate.teamName(), kTitle, Icon::Information);
}
