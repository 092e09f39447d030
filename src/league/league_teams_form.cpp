#include "league/league_teams_form.h"
#include "base/detail_screen.h"
#include "league/league.h"
#include "league/league_teams.h"
#include "league/team.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
// The row's tag: the number of a league the team may join; empty for a league it is in already.
constexpr int kTagRole = Qt::UserRole;
}

frmLeagueTeams::frmLeagueTeams(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(u"frmLeagueTeams"_s);
    setWindowTitle(u"League Teams - "_s);

    lblNote = new QLabel(u"Check the League(s) this team belongs to."_s, this);
    lblNote->setObjectName(u"lblNote"_s);
    lblNote->setWordWrap(true);

    lvwLeagues = new QTreeWidget(this);
    lvwLeagues->setObjectName(u"lvwLeagues"_s);
    lvwLeagues->setHeaderLabels({u"League Name"_s});
    lvwLeagues->setRootIsDecorated(false);

    const cButtonRow buttons = makeButtonRow(this, {.withApply = false});
    cmdOK = buttons.ok;
    cmdCancel = buttons.cancel;

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblNote);
    layout->addWidget(lvwLeagues, 1);
    layout->addLayout(buttons.layout);
    setMinimumSize(360, 300);

    connect(lvwLeagues, &QTreeWidget::itemChanged, this, &frmLeagueTeams::itemChanged);
    connect(cmdOK, &QPushButton::clicked, this, &frmLeagueTeams::okClicked);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmLeagueTeams::fill(cTeam& team)
{
    m_team = &team;
    setWindowTitle(u"League Teams - "_s + team.teamName());

    // Only leagues of the team's race type and Score By are offered.
    cLeagueCollection leagues;
    leagues.load(team.raceTypeNmbr(), team.carTypeNmbr());
    cLeagueTeamsCollection memberships;
    memberships.load(std::nullopt, team.teamNmbr());
    if (leagues.Count() == 0)
        return;

    const QSignalBlocker quiet(lvwLeagues);
    lvwLeagues->clear();
    for (const cLeague& league : leagues) {
        auto* item = new QTreeWidgetItem(lvwLeagues, {league.leagueName()});
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        if (memberships.leagueExists(team.teamNmbr(), league.leagueNmbr())) {
            item->setCheckState(0, Qt::Checked);
        } else {
            item->setCheckState(0, Qt::Unchecked);
            item->setData(0, kTagRole, QString::number(league.leagueNmbr()));
        }
    }
    lvwLeagues->sortItems(0, Qt::AscendingOrder);
}

void frmLeagueTeams::showWith(cTeam& team)
{
    fill(team);
    exec();
}

// Leaving a league is done on the league's screen, where scored teams are guarded; here a
// row that goes unchecked is checked again, a row just checked included.
void frmLeagueTeams::itemChanged(QTreeWidgetItem* item, int column)
{
    if (column != 0 || !isVisible() || item->checkState(0) != Qt::Unchecked)
        return;
    const QSignalBlocker quiet(lvwLeagues);
    item->setCheckState(0, Qt::Checked);
}

void frmLeagueTeams::okClicked()
{
    cLeagueTeamsCollection joins;
    for (int i = 0; i < lvwLeagues->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = lvwLeagues->topLevelItem(i);
        const QString tag = item->data(0, kTagRole).toString();
        if (item->checkState(0) == Qt::Checked && !tag.isEmpty())
            joins.Add(static_cast<int16_t>(tag.toInt()), m_team->teamNmbr());
    }
    joins.insertNew();
    accept();
}
