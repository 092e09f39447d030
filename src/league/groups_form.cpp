#include "league/groups_form.h"
#include "league/car.h"
#include "league/group.h"
#include "league/group_form.h"
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

frmGroups::frmGroups(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(u"frmGroups"_s);
    setWindowTitle(u"Groups"_s);

    auto* tabs = new QTabWidget(this);
    tabs->setObjectName(u"SSTab1"_s);
    auto* page = new QWidget(tabs);
    tabs->addTab(page, u"Groups"_s);

    lvwGroups = new QTreeWidget(page);
    lvwGroups->setObjectName(u"lvwGroups"_s);
    lvwGroups->setHeaderLabels({u"Group"_s, u"Number Cars/Drivers"_s});
    lvwGroups->setRootIsDecorated(false);
    lvwGroups->setAllColumnsShowFocus(true);
    lvwGroups->header()->setSectionsClickable(true);
    lvwGroups->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    lvwGroups->installEventFilter(this);

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
    pageLayout->addWidget(lvwGroups, 1);
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
    resize(460, 320);

    connect(cmdAdd, &QPushButton::clicked, this, &frmGroups::addGroup);
    connect(cmdUpdate, &QPushButton::clicked, this, &frmGroups::updateGroup);
    connect(cmdDelete, &QPushButton::clicked, this, &frmGroups::deleteGroup);
    connect(lvwGroups, &QTreeWidget::itemDoubleClicked, this, &frmGroups::updateGroup);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(lvwGroups->header(), &QHeaderView::sectionClicked, this, [this](int column) {
        const bool again = lvwGroups->header()->sortIndicatorSection() == column &&
                           lvwGroups->header()->isSortIndicatorShown();
        const Qt::SortOrder order = again && lvwGroups->header()->sortIndicatorOrder() == Qt::AscendingOrder
                                        ? Qt::DescendingOrder
                                        : Qt::AscendingOrder;
        lvwGroups->header()->setSortIndicatorShown(true);
        lvwGroups->sortItems(column, order);
    });
}

frmGroups::~frmGroups() = default;

bool frmGroups::event(QEvent* event)
{
    if (event->type() == QEvent::Show)
        refreshList();
    return QDialog::event(event);
}

bool frmGroups::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == lvwGroups && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        deleteGroup();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

// A list that comes back empty leaves the rows as they were.
void frmGroups::refreshList(const QString& selectName)
{
    auto groups = std::make_unique<cGroupCollection>();
    if (groups->load() == 0)
        return;
    m_groups = std::move(groups);
    lvwGroups->clear();
    QTreeWidgetItem* selected = nullptr;
    int index = 0;
    for (const cGroup& group : *m_groups) {
        auto* row = new QTreeWidgetItem(lvwGroups);
        row->setText(0, group.groupName());
        row->setText(1, group.maxNmbr() < 0 ? u"No Limit"_s : QString::number(group.maxNmbr()));
        row->setData(0, kIndexRole, ++index);
        if (!selected && !selectName.isEmpty() && group.groupName() == selectName)
            selected = row;
    }
    lvwGroups->setCurrentItem(selected ? selected : lvwGroups->topLevelItem(0));
}

cGroup* frmGroups::selectedGroup() const
{
    const QTreeWidgetItem* row = lvwGroups->currentItem();
    if (!row || !m_groups)
        return nullptr;
    return &m_groups->Item(row->data(0, kIndexRole).toInt());
}

void frmGroups::addGroup()
{
    cGroup group;
    frmGroup screen(this);
    screen.showWith(group);
    refreshList();
}

// The list is not tested for rows: with none, there is no group to open.
void frmGroups::updateGroup()
{
    cGroup* group = selectedGroup();
    if (!group)
        throw cRuntimeError(91, u"Object variable or With block variable not set"_s);
    frmGroup screen(this);
    screen.showWith(*group);
    refreshList(group->groupName());
}

void frmGroups::deleteGroup()
{
    cGroup* group = selectedGroup();
    if (lvwGroups->topLevelItemCount() == 0 || !group)
        return;
    const QString name = group->groupName();
    if (group->groupNmbr() < kFirstOperatorKey) {
        messageBox(u"Can't delete system generated Group "_s + name, u"Lapkeeper"_s);
        return;
    }
    cCarCollection cars;
    cars.load();
    if (cars.groupNmbrExists(cVariant(int(group->groupNmbr())))) {
        messageBox(u"At least one Car/Driver is using this Group.\n"_s
                   u"You must remove Group "_s + name + u" from all Cars/Drivers before Group can be deleted."_s,
                   u"Lapkeeper"_s, Icon::Critical);
        return;
    }
    if (messageBox(u"Are you sure you want to delete Group "_s + name, name, Icon::Question, Buttons::YesNoCancel) !=
        Answer::Yes)
        return;
    group->deleteRow();
    refreshList();
}
