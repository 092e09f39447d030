#include "league/car.h"
#include "league/league.h"
#include "league/league_teams.h"
#include "league/team.h"
#include "league/team_car.h"
#include "pane_fixture.h"
#include "racing/race_form.h"
#include "racing/races.h"
#include "racing/standings.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>

using namespace Qt::StringLiterals;

namespace {

struct PlayedRace {
    QString name;
    QString date;
    QStringList finish;   // car numbers, winner first
};

// The operator at the race screen: the race's fields, the finishing order row by row, then
// Post Results and OK.
void enterAndPostRace(frmRace& form, cRaces& race, const PlayedRace& played)
{
    form.fill(race);
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    retype(child<QLineEdit>(form, u"txtRaceName"_s), played.name);
    retype(child<QLineEdit>(form, u"txtTrackName"_s), u"Speedway"_s);
    retype(child<QLineEdit>(form, u"txtRaceDate"_s), played.date);
    child<QLineEdit>(form, u"txtTrackName"_s)->setFocus(Qt::TabFocusReason);
    choose(child<QComboBox>(form, u"cmbRaceType"_s), 1);
    choose(child<QComboBox>(form, u"cmbCarType"_s), 1);
    child<QTabBar>(form, u"SSTab1"_s)->setCurrentIndex(1);   // leaving the tab saves the race
    QApplication::processEvents();
    for (int row = 0; row < played.finish.size(); ++row) {
        if (row > 0) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);   // the next row
            QApplication::processEvents();
        }
        form.findChildren<QLineEdit*>(u"txtCarNmbr"_s).at(row)->setFocus(Qt::TabFocusReason);
        auto* chooser = child<QComboBox>(form, u"cmbCarNmbr"_s);
        chooser->setCurrentIndex(chooser->findText(played.finish[row]));
    }
    child<QPushButton>(form, u"cmdPostResults"_s)->click();
    child<QPushButton>(form, u"cmdOK"_s)->click();
}

QString standings(int16_t league, int16_t race)
{
    cLeagueStandingsCollection table;
    table.load(league, race);
    QStringList lines;
    for (const cLeagueStandings& line : table)
        lines << line.teamName() + u' ' + QString::number(line.points());
    return lines.join(u", "_s);
}

} // namespace

TEST_F(PaneTest, aSeasonIsSetUpRacedAndPostedFromTheMainWindow)
{
    auto trigger = [this](const QString& name) { m_window->findChild<QAction*>(name)->trigger(); };
    // The stand-in operator fills the new records; the league scores by the short system method
    // that pays 10, 6, 4, 3, 2, 1.
    recordScreens().league = [](cLeague& league) {
        league.setLeagueName(u"Sunday League"_s);
        league.setLeagueShortName(u"SUN"_s);
        league.setRaceTypeNmbr(1);
        league.setCarTypeNmbr(1);
        league.setScoringTypeNmbr(2);
        league.setScoringOptionNmbr(1);
        league.CommitChanges();
    };
    trigger(u"tbLeagues"_s);
    EXPECT_EQ(rows(*paneOf(RecordKind::League)).join(u'/'), u"Sunday League|SUN|Top Six Points|Count All Cars|$0.00|Winston Cup|Car"_s);
    const int16_t league = paneOf(RecordKind::League)->selectedRecord<cLeague>()->leagueNmbr();
    cLeagueTeamsCollection members;
    for (const QString& name : {u"Red"_s, u"Blue"_s}) {
        recordScreens().team = [name](cTeam& team) {
            team.setTeamName(name);
            team.setRaceTypeNmbr(1);
            team.setCarTypeNmbr(1);
            team.CommitChanges();
        };
        trigger(u"mnuFileNewTeam"_s);
        EXPECT_EQ(selected(*paneOf(RecordKind::Team)), name);
        members.Add(league, paneOf(RecordKind::Team)->selectedRecord<cTeam>()->teamNmbr());
    }
    members.insertNew(league);

    // Four cars typed into the car pane's editor; Red holds 1 and 2, Blue 3 and 4.
    trigger(u"mnuViewCars"_s);
    frmDisplayCars& cars = *frmDisplayCars::existing();
    for (int car = 1; car <= 4; ++car) {
        child<QPushButton>(cars, u"cmdCancel"_s)->click();
        choose(child<QComboBox>(cars, u"cmbRaceType"_s), u"Winston Cup"_s);
        choose(child<QComboBox>(cars, u"cmbCarType"_s), u"Car"_s);
        retype(child<QLineEdit>(cars, u"txtCarNumber"_s), QString::number(car));
        child<QPushButton>(cars, u"cmdAdd"_s)->click();
        cTeamCar entry;
        entry.setTeamNmbr(car <= 2 ? 500 : 501);
        entry.setCarNmbr(cars.selectedRecord<cCar>()->carNmbr());
        entry.setEfctvDt(QDate(2002, 1, 1));
        entry.setActive(1);
        entry.CommitChanges();
    }
    EXPECT_EQ(m_app->count(u"cars"_s) + m_app->count(u"team_car"_s), 8);

    // Three races entered and posted on the race screen, opened by the toolbar.
    const PlayedRace season[] = {
        {u"Dayport"_s, u"2002-02-17"_s, {u"3"_s, u"1"_s, u"4"_s, u"2"_s}},
        {u"Rockfield"_s, u"2002-02-24"_s, {u"1"_s, u"2"_s, u"3"_s, u"4"_s}},
        {u"Lakeside"_s, u"2002-03-03"_s, {u"2"_s, u"4"_s, u"1"_s, u"3"_s}},
    };
    for (const PlayedRace& played : season) {
        recordScreens().race = [this, &played](cRaces& race) {
            frmRace form(m_window.get());
            enterAndPostRace(form, race, played);
        };
        trigger(u"tbRaces"_s);
    }
    EXPECT_TRUE(boxes().boxes().isEmpty()) << qPrintable(boxes().boxTexts().join(u" / "_s));
    EXPECT_EQ(rows(*paneOf(RecordKind::Race)).join(u'/'), u"2002-02-17|Dayport|Speedway|Winston Cup|Car/"
                                                           u"2002-02-24|Rockfield|Speedway|Winston Cup|Car/"
                                                           u"2002-03-03|Lakeside|Speedway|Winston Cup|Car"_s);

    // Blue leads after Dayport (14 to 9), Red after Rockfield and at the end.
    EXPECT_EQ(standings(league, 500), u"Blue 14, Red 9"_s);
    EXPECT_EQ(standings(league, 501), u"Red 25, Blue 21"_s);
    EXPECT_EQ(standings(league, 502), u"Red 39, Blue 30"_s);
}
