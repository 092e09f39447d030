#include "league/car_type.h"
#include "league/race_type.h"
#include "league/team.h"
#include "shell/display_pane.h"

using namespace Qt::StringLiterals;

namespace {

const cPaneColumn kColumns[] = {
    {u"Name", 3500},
    {u"Owner", 3500},
    {u"Race Type", 1500},
    {u"Scoring By", 1500},
};

} // namespace

frmDisplayTeams::frmDisplayTeams() : cDisplayPane(RecordKind::Team, u"frmDisplayTeams"_s, u"Teams"_s, nullptr) {}

frmDisplayTeams::~frmDisplayTeams() = default;

void frmDisplayTeams::display(const QString& selection)
{
    auto teams = std::make_unique<cTeamCollection>();
    teams->load();
    cRaceTypeCollection raceTypes;
    raceTypes.load();
    cCarTypeCollection carTypes;
    carTypes.load();

    beginFill(kColumns);
    for (cTeam& team : *teams) {
        addRow({team.teamName(), team.teamOwner(), raceTypes.getRaceTypeName(cVariant(int(team.raceTypeNmbr()))),
                carTypes.getCarTypeName(team.carTypeNmbr())},
               &team, team.teamName() == selection);
    }
    m_teams = std::move(teams);
    endFill(selection.isEmpty());
}
