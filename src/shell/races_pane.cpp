#include "league/car_type.h"
#include "league/race_type.h"
#include "racing/races.h"
#include "shell/display_pane.h"
#include "store/dates.h"

using namespace Qt::StringLiterals;

namespace {

// "Sort date" is hidden; it begins with the month, so a sort by date orders by month and day
// before the year.
const cPaneColumn kColumns[] = {
    {u"Sort date", 0},     {u"Race Date", 1500}, {u"Race Name", 2500},
    {u"Track Name", 2000}, {u"Race Type", 2000}, {u"Scoring By", 1500},
};
constexpr int kSortDateColumn = 0;
constexpr int kRaceDateColumn = 1;

} // namespace

frmDisplayRaces::frmDisplayRaces() : cDisplayPane(RecordKind::Race, u"frmDisplayRaces"_s, u"Races"_s, nullptr) {}

frmDisplayRaces::~frmDisplayRaces() = default;

int frmDisplayRaces::sortKeyFor(int column) const
{
    return column == kRaceDateColumn ? kSortDateColumn : column;
}

void frmDisplayRaces::display(const QString& selection)
{
    auto races = std::make_unique<cRacesCollection>();
    races->load();
    cRaceTypeCollection raceTypes;
    raceTypes.load();
    cCarTypeCollection carTypes;
    carTypes.load();

    beginFill(kColumns);
    for (cRaces& race : *races) {
        addRow({race.raceDate().toString(u"MM/dd/yyyy"_s), shortDate(race.raceDate()), race.raceName(),
                race.trackName(), raceTypes.getRaceTypeName(cVariant(int(race.raceTypeNmbr()))),
                carTypes.getCarTypeName(race.carTypeNmbr())},
               &race, QString::number(race.raceNmbr()) == selection);
    }
    m_races = std::move(races);
    endFill(selection.isEmpty());
}
