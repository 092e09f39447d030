#include "racing/scoring_method.h"
#include "shell/display_pane.h"

using namespace Qt::StringLiterals;

namespace {

const cPaneColumn kColumns[] = {
    {u"Scoring Method", 4000},
};

} // namespace

frmDisplayScoring::frmDisplayScoring()
    : cDisplayPane(RecordKind::Scoring, u"frmDisplayScoring"_s, u"Scoring"_s, nullptr)
{
}

frmDisplayScoring::~frmDisplayScoring() = default;

void frmDisplayScoring::display(const QString& selection)
{
    auto methods = std::make_unique<cScoringTypeCollection>();
    methods->load();

    beginFill(kColumns);
    for (cScoringType& method : *methods)
        addRow({method.scoringTypeName()}, &method, method.scoringTypeName() == selection);
    m_methods = std::move(methods);
    endFill(selection.isEmpty());
}
