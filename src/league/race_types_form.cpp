#include "league/race_types_form.h"
#include "league/league.h"
#include "league/race_type.h"
#include "league/race_type_form.h"
#include "racing/races.h"
#include "shell/messages.h"
#include "store/runtime_error.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr int kIndexRole = Qt::UserRole;   // position of the row's record in the list, from 1
}

frmRaceTypes::frmRaceTypes(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(u"frmRaceTypes"_s);
    setWindowTitle(u"Race Types"_s);

    auto* tabs = new QTabWidget(this);
    tabs->setObjectName(u"SSTab1"_s);
    auto* page = new QWidget(tabs);
    tabs->addTab(page, u"Race Types"_s);

    lvwRaceTypes = new QTreeWidget(page);
    lvwRaceTypes->setObjectName(u"lvwRaceTypes"_s);
    lvwRaceTypes->setHeaderLabels({u"Race Type"_s});
    lvwRaceTypes->setRootIsDecorated(false);
    lvwRaceTypes->setAllColumnsShowFocus(true);
    lvwRaceTypes->header()->setSectionsClickable(true);
    lvwRaceTypes->installEventFilter(this);

    auto button = [page](const QString& caption, const QString& name) {
        auto* push = new QPushButton(caption, page);
        push->setObjectName(name);
        push->setAutoDefault(false);
        return push;
    };
    cmdAdd = button(u"&Add"_s, u"cmdAdd"_s);
    cmdUpdate = button(u"&Update"_s, u"cmdUpdate"_s);
    cmdDelete = button(u"&Delete"_s, u"cmdDelete"_s);
    auto* side = new QVBoxLayout;
    side->addWidget(cmdAdd);
    side->addWidget(cmdUpdate);
    side->addWidget(cmdDelete);
    side->addStretch();
    auto* pageLayout = new QHBoxLayout(page);
    pageLayout->addWidget(lvwRaceTypes, 1);
    pageLayout->addLayout(side);

    cmdOK = new QPushButton(u"&OK"_s, this);
    cmdOK->setObjectName(u"cmdOK"_s);
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(u"&Cancel"_s, this);
    cmdCancel->setObjectName(u"cmdCancel"_s);
    cmdCancel->setAutoDefault(false);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs, 1);
    layout->addLayout(buttons);
    resize(400, 320);

    connect(cmdAdd, &QPushButton::clicked, this, &frmRaceTypes::addRaceType);
    connect(cmdUpdate, &QPushButton::clicked, this, &frmRaceTypes::updateRaceType);
    connect(cmdDelete, &QPushButton::clicked, this, &frmRaceTypes::deleteRaceType);
    connect(lvwRaceTypes, &QTreeWidget::itemDoubleClicked, this, &frmRaceTypes::updateRaceType);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(lvwRaceTypes->header(), &QHeaderView::sectionClicked, this, [this](int column) {
        const bool again = lvwRaceTypes->header()->sortIndicatorSection() == column;
        const Qt::SortOrder order = again && lvwRaceTypes->header()->sortIndicatorOrder() == Qt::AscendingOrder
                                        ? Qt::DescendingOrder
                                        : Qt::AscendingOrder;
        lvwRaceTypes->sortItems(column, order);
    });
}

frmRaceTypes::~frmRaceTypes() = default;

bool frmRaceTypes::event(QEvent* event)
{
    if (event->type() == QEvent::Show)
        refreshList();
    return QDialog::event(event);
}

bool frmRaceTypes::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == lvwRaceTypes && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        deleteRaceType();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

// A list that comes back empty leaves the rows as they were. The rows are sorted by name.
void frmRaceTypes::refreshList(const QString& selectName)
{
    auto raceTypes = std::make_unique<cRaceTypeCollection>();
    if (raceTypes->load() == 0)
        return;
    m_raceTypes = std::move(raceTypes);
    lvwRaceTypes->clear();
    QTreeWidgetItem* selected = nullptr;
    int index = 0;
    for (const cRaceType& raceType : *m_raceTypes) {
        auto* row = new QTreeWidgetItem(lvwRaceTypes);
        row->setText(0, raceType.raceTypeName());
        row->setData(0, kIndexRole, ++index);
        if (!selected && !selectName.isEmpty() && raceType.raceTypeName() == selectName)
            selected = row;
    }
    lvwRaceTypes->sortItems(0, Qt::AscendingOrder);
    lvwRaceTypes->setCurrentItem(selected ? selected : lvwRaceTypes->topLevelItem(0));
}

cRaceType* frmRaceTypes::selectedRaceType() const
{
    const QTreeWidgetItem* row = lvwRaceTypes->currentItem();
    if (!row || !m_raceTypes)
        return nullptr;
    return &m_raceTypes->Item(row->data(0, kIndexRole).toInt());
}

void frmRaceTypes::addRaceType()
{
    cRaceType raceType;
    frmRaceType screen(this);
    screen.showWith(raceType);
    refreshList();
}

void frmRaceTypes::updateRaceType()
{
    cRaceType* raceType = selectedRaceType();
    if (lvwRaceTypes->topLevelItemCount() == 0 || !raceType)
        return;
    frmRaceType screen(this);
    screen.showWith(*raceType);
    refreshList(raceType->raceTypeName());
}

// Unlike the groups' delete, there is no test for an empty list: with no row there is no
// race type to read.
void frmRaceTypes::deleteRaceType()
{
    cRaceType* raceType = selectedRaceType();
    if (!raceType)
        throw cRuntimeError(91, u"Object variable or With block variable not set"_s);
    const QString name = raceType->raceTypeName();
    if (raceType->raceTypeNmbr() < kFirstOperatorKey) {
        messageBox(u"Can't delete system generated Race Type "_s + name, u"Lapkeeper"_s);
        return;
    }
    const cVariant number(int(raceType->raceTypeNmbr()));
    cLeagueCollection leagues;
    leagues.load();
    if (leagues.raceTypeNmbrExists(number)) {
        messageBox(u"At least one League is using this Race Type.\n"_s
                   u"You must remove Race Type "_s + name + u" from all Leagues before Race Type can be deleted."_s,
                   u"Lapkeeper"_s, Icon::Critical);
        return;
    }
    cRacesCollection races;
    races.load();
    if (races.raceTypeNmbrExists(number)) {
        messageBox(u"At least one Race is using this Race Type.\n"_s
                   u"You must remove Race Type "_s + name + u" from all Races before Race Type can be deleted."_s,
                   u"Lapkeeper"_s, Icon::Critical);
        return;
    }
    if (messageBox(u"Are you sure you want to delete Race Type "_s + name, name, Icon::Question,
                   Buttons::YesNoCancel) != Answer::Yes)
        return;
    raceType->deleteRow();
    refreshList();
}
