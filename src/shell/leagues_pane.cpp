#include "league/car_type.h"
#include "league/league.h"
#include "league/race_type.h"
#include "racing/scoring_method.h"
#include "shell/display_pane.h"

using namespace Qt::StringLiterals;

namespace {

const cPaneColumn kColumns[] = {
    {u"Name", 3500},       {u"Short Name", 1100}, {u"Scoring Method", 2500}, {u"Scoring Option", 1500},
    {u"Salary Cap", 1500}, {u"Race Type", 1500},  {u"Scoring By", 1500},
};

} // namespace

frmDisplayLeagues::frmDisplayLeagues() : cDisplayPane(RecordKind::League, u"frmDisplayLeagues"_s, u"Leagues"_s, nullptr)
{
}

frmDisplayLeagues::~frmDisplayLeagues() = default;

void frmDisplayLeagues::display(int16_t selection)
{
    auto leagues = std::make_unique<cLeagueCollection>();
    leagues->load();
    cRaceTypeCollection raceTypes;
    raceTypes.load();
    cCarTypeCollection carTypes;
    carTypes.load();
    cScoringTypeCollection methods;
    methods.load();
    cScoringOptionCollection options;
    options.load();

    beginFill(kColumns);
    for (cLeague& league : *leagues) {
        addRow({league.leagueName(), league.leagueShortName(), methods.getScoringTypeName(league.scoringTypeNmbr()),
                options.getScoringOptionName(league.scoringOptionNmbr()), league.salaryCap().toCurrencyText(),
                raceTypes.getRaceTypeName(cVariant(int(league.raceTypeNmbr()))),
                carTypes.getCarTypeName(league.carTypeNmbr())},
               &league, league.leagueNmbr() == selection);
    }
    m_leagues = std::move(leagues);
    endFill(selection == -1);
}
