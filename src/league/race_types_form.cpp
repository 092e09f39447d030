#include "league/race_types_form.h"
#include "base/messages.h"
#include "base/runtime_error.h"
#include "league/league.h"
#include "league/race_type.h"
#include "league/race_type_form.h"
#include "racing/races.h"

#include <QTreeWidget>

using namespace Qt::StringLiterals;

frmRaceTypes::frmRaceTypes(QWidget* parent)
    : frmReferenceList(parent, u"frmRaceTypes"_s, u"Race Types"_s, u"lvwRaceTypes"_s, {u"Race Type"_s})
{
}

frmRaceTypes::~frmRaceTypes() = default;

// A list that comes back empty leaves the rows as they were. The rows are sorted by name.
void frmRaceTypes::refreshRows(const QString& selectName)
{
    auto raceTypes = std::make_unique<cRaceTypeCollection>();
    if (raceTypes->load() == 0)
        return;
    m_raceTypes = std::move(raceTypes);
    list()->clear();
    QTreeWidgetItem* selected = nullptr;
    int index = 0;
    for (const cRaceType& raceType : *m_raceTypes) {
        QTreeWidgetItem* row = addRow({raceType.raceTypeName()}, ++index);
        if (!selected && !selectName.isEmpty() && raceType.raceTypeName() == selectName)
            selected = row;
    }
    list()->sortItems(0, Qt::AscendingOrder);
    list()->setCurrentItem(selected ? selected : list()->topLevelItem(0));
}

cRaceType* frmRaceTypes::selectedRaceType() const
{
    const int index = selectedIndex();
    return index > 0 && m_raceTypes ? &m_raceTypes->Item(index) : nullptr;
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
    if (list()->topLevelItemCount() == 0 || !raceType)
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
