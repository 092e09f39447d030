#include "league/groups_form.h"
#include "base/messages.h"
#include "base/runtime_error.h"
#include "league/car.h"
#include "league/group.h"
#include "league/group_form.h"

#include <QTreeWidget>

using namespace Qt::StringLiterals;

frmGroups::frmGroups(QWidget* parent)
    : frmReferenceList(parent, u"frmGroups"_s, u"Groups"_s, u"lvwGroups"_s, {u"Group"_s, u"Number Cars/Drivers"_s})
{
}

frmGroups::~frmGroups() = default;

// A list that comes back empty leaves the rows as they were.
void frmGroups::refreshRows(const QString& selectName)
{
    auto groups = std::make_unique<cGroupCollection>();
    if (groups->load() == 0)
        return;
    m_groups = std::move(groups);
    list()->clear();
    QTreeWidgetItem* selected = nullptr;
    int index = 0;
    for (const cGroup& group : *m_groups) {
        QTreeWidgetItem* row = addRow(
            {group.groupName(), group.maxNmbr() < 0 ? u"No Limit"_s : QString::number(group.maxNmbr())}, ++index);
        if (!selected && !selectName.isEmpty() && group.groupName() == selectName)
            selected = row;
    }
    list()->setCurrentItem(selected ? selected : list()->topLevelItem(0));
}

cGroup* frmGroups::selectedGroup() const
{
    const int index = selectedIndex();
    return index > 0 && m_groups ? &m_groups->Item(index) : nullptr;
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
    if (list()->topLevelItemCount() == 0 || !group)
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
