// The tab "Head to Head" of the race screen: per league, who plays whom in this race. A pair of
// a team and a bye is stored with 0 for the bye; a row of two byes is not stored.
#include "base/detail_screen.h"
#include "league/league.h"
#include "league/league_teams.h"
#include "league/team.h"
#include "racing/head_head.h"
#include "racing/race_head_head_tab.h"
#include "racing/race_row_grid_form.h"
#include "racing/races.h"

#include <QApplication>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString kBye = u"BYE"_s;

int16_t itemNumber(const QComboBox* combo, int index)
{
    return static_cast<int16_t>(combo->itemData(index).toInt());
}

} // namespace

cRaceHeadHeadTab::cRaceHeadHeadTab(Host host, QWidget* parent)
    : QWidget(parent), m_host(std::move(host))
{
    Frame2 = new QFrame(this);
    Frame2->setObjectName(u"Frame2"_s);

    cmbLeague = new QComboBox(Frame2);
    cmbLeague->setObjectName(u"cmbLeague"_s);
    cmbLeague->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    auto* leagueLabel = new QLabel(u"League:"_s, Frame2);
    leagueLabel->setBuddy(cmbLeague);

    VScroll2 = new QScrollBar(Qt::Vertical, Frame2);
    VScroll2->setObjectName(u"VScroll2"_s);
    m_pairGrid = new cRowGrid({QString(), QString(), QString()}, {1, 0, 1}, VScroll2, Frame2);
    m_pairGrid->setObjectName(u"grdPairs"_s);

    cmbTeam = new QComboBox(m_pairGrid);
    cmbTeam->setObjectName(u"cmbTeam"_s);
    cmbTeam->hide();
    cmbTeam->installEventFilter(this);
    cValidateOnLeave::install(cmbTeam, [this] {
        leaveTeamChooser();
        return true;
    });

    auto* hint = new QLabel(u"Hit Enter to Add Row."_s, Frame2);
    hint->setObjectName(u"lblhitEnter2"_s);

    auto* league = new QHBoxLayout;
    league->addWidget(leagueLabel);
    league->addWidget(cmbLeague);
    league->addStretch();
    auto* grid = new QHBoxLayout;
    grid->setSpacing(2);
    grid->addWidget(m_pairGrid, 1);
    grid->addWidget(VScroll2);

    auto* frame = new QVBoxLayout(Frame2);
    frame->setContentsMargins(0, 0, 0, 0);
    frame->addLayout(league);
    frame->addSpacing(6);
    frame->addLayout(grid, 1);
    frame->addWidget(hint);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Frame2);

    addPairRow();

    connect(m_pairGrid, &cRowGrid::scrolled, this, [this] {
        if (m_teamRow >= 0 && cmbTeam->isVisible()) {
            if (m_pairGrid->isRowVisible(m_teamRow))
                placeTeamChooser();
            else
                leaveTeamChooser();
        }
    });
    connect(cmbLeague, &QComboBox::activated, this, &cRaceHeadHeadTab::leagueActivated);
}

cRaceHeadHeadTab::~cRaceHeadHeadTab() = default;

void cRaceHeadHeadTab::setRace(cRaces& race)
{
    m_race = &race;
}

void cRaceHeadHeadTab::markChanged()
{
    if (!m_filling && m_host.pairingsChanged)
        m_host.pairingsChanged();
}

cRaceHeadHeadTab::cPairRow& cRaceHeadHeadTab::addPairRow()
{
    const bool filling = m_filling;
    m_filling = true;
    cPairRow row;
    auto team = [this](const QString& name) {
        auto* edit = new QLineEdit(kBye, m_pairGrid);
        edit->setObjectName(name);
        edit->setReadOnly(true);
        edit->installEventFilter(this);
        connect(edit, &QLineEdit::textChanged, this, &cRaceHeadHeadTab::markChanged);
        return edit;
    };
    row.txtTeam1 = team(u"txtTeam1"_s);
    row.lblVS = new QLabel(u"VS"_s, m_pairGrid);
    row.lblVS->setObjectName(u"lblVS"_s);
    row.txtTeam2 = team(u"txtTeam2"_s);
    m_pairGrid->appendRow({row.txtTeam1, row.lblVS, row.txtTeam2});
    if (!m_pairs.empty())
        setTabOrder(m_pairs.back().txtTeam2, row.txtTeam1);
    setTabOrder(row.txtTeam1, row.txtTeam2);
    m_pairs.push_back(row);
    m_filling = filling;
    return m_pairs.back();
}

void cRaceHeadHeadTab::removePairRowsFrom(int index)
{
    if (m_teamRow >= index) {
        m_leavingChooser = true;
        cmbTeam->hide();
        m_leavingChooser = false;
        m_teamRow = -1;
    }
    m_pairGrid->truncate(index);
    m_pairs.resize(static_cast<size_t>(m_pairGrid->rowCount()));
}

int cRaceHeadHeadTab::pairRowOf(const QObject* field) const
{
    return m_pairGrid->rowOf(field);
}

void cRaceHeadHeadTab::enter()
{
    cLeagueCollection leagues;
    leagues.load(m_race->raceTypeNmbr(), m_race->carTypeNmbr());
    m_filling = true;
    cmbLeague->clear();
    for (const cLeague& league : leagues)
        cmbLeague->addItem(league.leagueName(), int(league.leagueNmbr()));
    m_filling = false;
    m_pairLeague = 0;
    if (cmbLeague->count() > 0) {
        cmbLeague->setCurrentIndex(0);
        leagueActivated(0);
    } else {
        removePairRowsFrom(1);
        m_pairs.front().txtTeam1->setText(kBye);
        m_pairs.front().txtTeam2->setText(kBye);
    }
}

void cRaceHeadHeadTab::leagueActivated(int index)
{
    if (index < 0)
        return;
    if (m_host.unsaved && m_host.unsaved()) {
        // The pairs on screen belong to the league shown before; a refused save keeps them there.
        if (!save()) {
            cmbLeague->setCurrentIndex(cmbLeague->findData(int(m_pairLeague)));
            return;
        }
        if (m_host.pairingsSaved)
            m_host.pairingsSaved();
    }
    const bool filling = m_filling;
    m_filling = true;
    removePairRowsFrom(1);
    m_pairs.front().team1Tag = 0;
    m_pairs.front().team2Tag = 0;
    m_pairLeague = itemNumber(cmbLeague, index);
    fillTeamList(m_pairLeague);

    // 0 is a bye; a number whose team is gone shows an empty name.
    auto teamName = [](int16_t teamNmbr) {
        if (teamNmbr == 0)
            return kBye;
        cTeam team;
        return team.load(teamNmbr) == 1 ? team.teamName() : QString();
    };
    cRaceHeadHeadCollection pairs;
    pairs.load(m_pairLeague, m_race->raceNmbr());
    bool firstRow = true;
    for (const cRaceHeadHead& pair : pairs) {
        cPairRow& row = firstRow ? m_pairs.front() : addPairRow();
        firstRow = false;
        row.txtTeam1->setText(teamName(pair.teamNmbr1()));
        row.team1Tag = pair.teamNmbr1();
        row.txtTeam2->setText(teamName(pair.teamnmbr2()));
        row.team2Tag = pair.teamnmbr2();
    }
    if (firstRow) {
        m_pairs.front().txtTeam1->setText(kBye);
        m_pairs.front().txtTeam2->setText(kBye);
    }
    VScroll2->setValue(0);
    m_pairGrid->refresh();
    m_filling = filling;
}

void cRaceHeadHeadTab::fillTeamList(int16_t leagueNmbr)
{
    const bool filling = m_filling;
    m_filling = true;
    cmbTeam->clear();
    cmbTeam->addItem(kBye, 0);
    cLeagueTeamsCollection members;
    members.load(leagueNmbr);
    for (const cLeagueTeams& member : members) {
        cTeam team;
        team.load(member.teamNmbr());
        cmbTeam->addItem(team.teamName(), int(member.teamNmbr()));
    }
    m_filling = filling;
}

void cRaceHeadHeadTab::enterTeamChooser(int row, int column)
{
    if (m_leavingChooser || row < 0 || row >= static_cast<int>(m_pairs.size()))
        return;
    if (cmbTeam->isVisible()) {
        if (m_teamRow == row && m_teamColumn == column)
            return;
        leaveTeamChooser();
    }
    m_pairGrid->ensureVisible(row);
    m_teamRow = row;
    m_teamColumn = column;
    const cPairRow& cells = m_pairs[static_cast<size_t>(row)];
    const QString text = (column == 1 ? cells.txtTeam1 : cells.txtTeam2)->text().trimmed();
    const bool filling = m_filling;
    m_filling = true;
    cmbTeam->setCurrentIndex(cmbTeam->findText(text.isEmpty() ? kBye : text));
    m_filling = filling;
    placeTeamChooser();
    cmbTeam->show();
    cmbTeam->raise();
    cmbTeam->setFocus(Qt::OtherFocusReason);
    cmbTeam->showPopup();
}

void cRaceHeadHeadTab::placeTeamChooser()
{
    if (m_teamRow < 0)
        return;
    const cPairRow& cells = m_pairs[static_cast<size_t>(m_teamRow)];
    m_pairGrid->layout()->activate();
    cmbTeam->setGeometry((m_teamColumn == 1 ? cells.txtTeam1 : cells.txtTeam2)->geometry());
}

void cRaceHeadHeadTab::leaveTeamChooser()
{
    if (m_leavingChooser || m_teamRow < 0 || !cmbTeam->isVisible())
        return;
    m_leavingChooser = true;
    cPairRow& cells = m_pairs[static_cast<size_t>(m_teamRow)];
    QLineEdit* field = m_teamColumn == 1 ? cells.txtTeam1 : cells.txtTeam2;
    int16_t& tag = m_teamColumn == 1 ? cells.team1Tag : cells.team2Tag;
    const int index = cmbTeam->currentIndex();
    // A team that has left the league is not in the list; its pair stays until another is chosen.
    if (index >= 0) {
        const int16_t before = tag;
        tag = itemNumber(cmbTeam, index);
        field->setText(cmbTeam->itemText(index));
        if (tag != before)
            markChanged();
    }
    cmbTeam->hidePopup();
    if (cmbTeam->hasFocus())
        field->setFocus(Qt::OtherFocusReason);
    cmbTeam->hide();
    m_teamRow = -1;
    m_leavingChooser = false;
}

void cRaceHeadHeadTab::addPairRow(int row)
{
    if (row < 0 || row >= static_cast<int>(m_pairs.size()))
        return;
    leaveTeamChooser();
    if (row + 1 < static_cast<int>(m_pairs.size())) {
        m_pairGrid->ensureVisible(row + 1);
        m_pairs[static_cast<size_t>(row) + 1].txtTeam1->setFocus(Qt::OtherFocusReason);
        return;
    }
    QLineEdit* first = addPairRow().txtTeam1;
    m_pairGrid->ensureVisible(static_cast<int>(m_pairs.size()) - 1);
    first->setFocus(Qt::OtherFocusReason);
}

bool cRaceHeadHeadTab::save()
{
    leaveTeamChooser();
    if (m_pairLeague == 0)
        return true;
    cRaceHeadHeadCollection list;
    for (const cPairRow& row : m_pairs) {
        if (row.txtTeam1->text().trimmed() == kBye && row.txtTeam2->text().trimmed() == kBye)
            continue;
        list.Add(m_race->raceNmbr(), m_pairLeague, row.team1Tag, row.team2Tag);
    }
    // With every row a bye the league's pairs of this race are removed: the grid is what is saved.
    return list.update(m_pairLeague, m_race->raceNmbr());
}

bool cRaceHeadHeadTab::eventFilter(QObject* watched, QEvent* event)
{
    if (!window()->isVisible())
        return false;
    const QEvent::Type type = event->type();
    if (type == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
            return false;
        if (watched == cmbTeam) {
            addPairRow(m_teamRow);
            return true;
        }
        if (const int row = pairRowOf(watched); row >= 0) {
            addPairRow(row);
            return true;
        }
        return false;
    }
    // As with the car chooser: a press opens the chooser only on a field that had the focus.
    if (type == QEvent::FocusIn ||
        (type == QEvent::MouseButtonPress && static_cast<QWidget*>(watched)->hasFocus())) {
        if (const int pair = pairRowOf(watched); pair >= 0) {
            const cPairRow& cells = m_pairs[static_cast<size_t>(pair)];
            if (watched == cells.txtTeam1)
                enterTeamChooser(pair, 1);
            else if (watched == cells.txtTeam2)
                enterTeamChooser(pair, 2);
        }
    }
    return false;
}
