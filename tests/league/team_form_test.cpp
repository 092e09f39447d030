#include "league/roster_seed.h"
#include "league/team.h"
#include "league/team_car.h"
#include "league/team_form.h"
#include "store/dates.h"
#include "support/temp_app.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
namespace seed = roster_seed;

namespace {

QString inDays(int days)
{
    return shortDate(QDate::currentDate().addDays(days));
}

void choose(QComboBox* combo, const QString& text)
{
    const int index = combo->findText(text);
    ASSERT_GE(index, 0) << qPrintable(text);
    combo->setCurrentIndex(index);
    emit combo->activated(index);
}

// The team screen on a team, shown, with the screens it opens replaced by recorders.
struct TeamScreen {
    explicit TeamScreen(cTeam& record) : team(record)
    {
        form.setLeagueTeamsOpener([this](cTeam& t) {
            ++leagueTeamsOpened;
            leagueTeamsNumber = t.teamNmbr();
            if (onLeagueTeams)
                onLeagueTeams(t);
        });
        form.setTeamCarOpener([this](cTeamCar& entry, Currency& total) {
            ++teamCarOpened;
            seenTotal = total;
            if (onTeamCar)
                onTeamCar(entry);
        });
        form.fill(team);
        form.show();
        QApplication::setActiveWindow(&form);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    template <class W>
    W* child(const QString& name)
    {
        W* widget = form.findChild<W*>(name);
        EXPECT_NE(widget, nullptr) << qPrintable(name);
        return widget;
    }
    void type(const QString& field, const QString& text)
    {
        // Appends to what the field holds, as typing after a click at its end does.
        auto* edit = child<QLineEdit>(field);
        edit->setFocus(Qt::TabFocusReason);
        QCoreApplication::processEvents();
        QTest::keyClick(edit, Qt::Key_End);
        QTest::keyClicks(edit, text);
    }
    void press(const QString& button) { child<QPushButton>(button)->click(); }
    QTreeWidget* roster() { return child<QTreeWidget>(u"lvwTeamCars"_s); }
    void openRoster() { child<QTabWidget>(u"SSTab1"_s)->setCurrentIndex(1); }
    QTreeWidgetItem* row(const QString& number, const QString& efctv = {})
    {
        for (int i = 0; i < roster()->topLevelItemCount(); ++i) {
            QTreeWidgetItem* item = roster()->topLevelItem(i);
            if (item->text(1) == number && (efctv.isEmpty() || item->text(3) == efctv))
                return item;
        }
        ADD_FAILURE() << "no roster row " << qPrintable(number);
        return nullptr;
    }
    void select(const QString& number) { roster()->setCurrentItem(row(number)); }

    cTeam& team;
    frmTeam form;
    int leagueTeamsOpened = 0;
    int16_t leagueTeamsNumber = 0;
    int teamCarOpened = 0;
    Currency seenTotal;
    std::function<void(cTeam&)> onLeagueTeams;
    std::function<void(cTeamCar&)> onTeamCar;
};

// ---- the record ----

TEST(TeamScreenRecord, requiredFieldsAreCheckedInOrderAndTheFirstSaveOpensTheMembershipScreen)
{
    TempApp app;
    cTeam team;
    TeamScreen screen(team);
    EXPECT_FALSE(screen.child<QPushButton>(u"cmdApply"_s)->isEnabled());
    screen.type(u"TxtTeamOwner"_s, u"Pat"_s);
    EXPECT_TRUE(screen.child<QPushButton>(u"cmdApply"_s)->isEnabled());

    screen.press(u"cmdApply"_s);
    EXPECT_EQ(app.presenter().boxTexts(), QStringList{u"Team Name is a required field"_s});
    EXPECT_EQ(app.presenter().boxes().last().icon, Icon::Critical);
    EXPECT_EQ(app.presenter().boxes().last().title, u"Lapkeeper"_s);
    EXPECT_EQ(QApplication::focusWidget(), screen.child<QLineEdit>(u"TxtTeamName"_s));

    screen.type(u"TxtTeamName"_s, u"Speedy"_s);
    EXPECT_EQ(screen.form.windowTitle(), u"Team - Speedy"_s);
    screen.press(u"cmdApply"_s);
    EXPECT_EQ(app.presenter().boxTexts().last(), u"Race Type is a required field"_s);
    choose(screen.child<QComboBox>(u"cmbRaceType"_s), u"F1"_s);
    screen.press(u"cmdApply"_s);
    EXPECT_EQ(app.presenter().boxTexts().last(), u"Score By is a required field"_s);
    EXPECT_EQ(app.count(u"teams"_s), 0);
    EXPECT_EQ(screen.leagueTeamsOpened, 0);

    choose(screen.child<QComboBox>(u"cmbCarType"_s), u"Driver"_s);
    screen.press(u"cmdApply"_s);
    EXPECT_EQ(app.presenter().boxes().size(), 3);
    EXPECT_EQ(app.scalar(u"SELECT team_name || '/' || team_owner || '/' || race_type_nmbr || '/' || car_type_nmbr "
                         u"FROM teams WHERE team_nmbr = 500"_s),
              u"Speedy/Pat/6/2"_s);
    EXPECT_EQ(screen.leagueTeamsOpened, 1);
    EXPECT_EQ(screen.leagueTeamsNumber, 500);
    EXPECT_FALSE(screen.child<QPushButton>(u"cmdApply"_s)->isEnabled());
}

TEST(TeamScreenRecord, aTeamStillInNoLeagueIsAskedAgainAtEverySaveUntilItJoins)
{
    TempApp app;
    seed::team(500, u"Speedy"_s);
    seed::league(500, u"Cup"_s, u"1000000"_s);
    cTeamCollection teams;
    teams.load();
    cTeam team = teams.Item(1).copy();
    TeamScreen screen(team);
    screen.type(u"txtCity"_s, u"Springfield"_s);
    screen.press(u"cmdApply"_s);
    EXPECT_EQ(screen.leagueTeamsOpened, 1);

    screen.onLeagueTeams = [](cTeam& t) { seed::member(500, t.teamNmbr()); };
    screen.type(u"txtZip"_s, u"62701"_s);
    screen.press(u"cmdApply"_s);
    EXPECT_EQ(screen.leagueTeamsOpened, 2);
    // The list of leagues shows the new membership with the cap.
    auto* leagues = screen.child<QTreeWidget>(u"lvwLeagues"_s);
    ASSERT_EQ(leagues->topLevelItemCount(), 1);
    EXPECT_EQ(leagues->topLevelItem(0)->text(1), u"$1,000,000.00"_s);

    screen.type(u"txtState"_s, u"IL"_s);
    screen.press(u"cmdApply"_s);
    EXPECT_EQ(screen.leagueTeamsOpened, 2);
    EXPECT_EQ(app.scalar(u"SELECT city || zip || state FROM teams"_s), u"Springfield62701IL"_s);
}

TEST(TeamScreenRecord, cancelAsksOnlyAboutTheRecordTitledWithTheTeamsName)
{
    TempApp app;
    seed::team(500, u"Speedy"_s);
    cTeamCollection teams;
    teams.load();
    cTeam team = teams.Item(1).copy();
    TeamScreen screen(team);
    screen.type(u"TxtTeamName"_s, u" Two"_s);

    app.presenter().queueAnswer(Answer::Cancel);
    screen.press(u"cmdCancel"_s);
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    EXPECT_EQ(app.presenter().boxes().first().text, u"Do you want to save changes"_s);
    EXPECT_EQ(app.presenter().boxes().first().title, u"Speedy Two"_s);
    EXPECT_EQ(app.presenter().boxes().first().buttons, Buttons::YesNoCancel);
    EXPECT_TRUE(screen.form.isVisible());

    app.presenter().queueAnswer(Answer::No);
    screen.press(u"cmdCancel"_s);
    EXPECT_FALSE(screen.form.isVisible());
    EXPECT_EQ(app.scalar(u"SELECT team_name FROM teams"_s), u"Speedy"_s);
}

TEST(TeamScreenRecord, raceTypeAndScoreByAreFrozenByRosterEntriesOrAMembership)
{
    TempApp app;
    seed::team(500, u"With cars"_s);
    seed::team(501, u"In a league"_s);
    seed::car(500, u"24"_s, u"10"_s);
    seed::entry(500, 500, u"2001-01-01"_s, u"2001-02-01"_s, u"10"_s);   // terminated still counts
    seed::league(500, u"Cup"_s, u"0"_s);
    seed::member(500, 501);
    cTeamCollection teams;
    teams.load();

    cTeam withCars = teams.Item(1).copy();
    TeamScreen first(withCars);
    auto* raceType = first.child<QComboBox>(u"cmbRaceType"_s);
    choose(raceType, u"F1"_s);
    choose(first.child<QComboBox>(u"cmbCarType"_s), u"Driver"_s);
    EXPECT_EQ(app.presenter().boxTexts(),
              (QStringList{u"Can not change Race Type while Team Cars exist for the Race Type."_s,
                           u"Can not change Score By while Team Cars exist for the Score By type."_s}));
    EXPECT_EQ(raceType->currentText(), u"Winston Cup"_s);
    EXPECT_EQ(withCars.raceTypeNmbr(), 1);
    EXPECT_FALSE(first.child<QPushButton>(u"cmdApply"_s)->isEnabled());

    app.presenter().clear();
    cTeam inLeague = teams.Item(2).copy();
    TeamScreen second(inLeague);
    choose(second.child<QComboBox>(u"cmbRaceType"_s), u"F1"_s);
    choose(second.child<QComboBox>(u"cmbCarType"_s), u"Driver"_s);
    EXPECT_EQ(app.presenter().boxTexts(),
              (QStringList{u"This Team is a member of at least one League for the current Race Type.\n"
                           u"Can not change Race Type."_s,
                           u"This Team is a member of at least one League for the Score By Type.\n"
                           u"Can not change Score By."_s}));
    EXPECT_EQ(app.presenter().boxes().first().icon, Icon::Critical);
    EXPECT_EQ(second.child<QComboBox>(u"cmbCarType"_s)->currentText(), u"Car"_s);
}

// ---- the roster tab ----

class TeamScreenRoster : public ::testing::Test {
protected:
    void SetUp() override
    {
        seed::team(500, u"Speedy"_s);
        seed::team(501, u"Copycat"_s);
        seed::car(500, u"24"_s, u"999"_s);
        seed::car(501, u"3"_s, u"999"_s);
        seed::car(502, u"88"_s, u"999"_s);
        seed::car(503, u"11"_s, u"999"_s);
        seed::car(504, u"Top Bonus"_s, u"0"_s, u"NULL"_s, 1, 3);
        seed::entry(500, 500, u"2002-01-01"_s, {}, u"100"_s);
        seed::entry(500, 500, u"2002-06-01"_s, {}, u"50"_s);          // a second open stint counts too
        seed::entry(500, 501, u"2002-01-01"_s, inDays(30), u"200"_s);  // ends in the future: counts
        seed::entry(500, 502, u"2002-01-01"_s, inDays(0), u"400"_s);   // ended today: not counted
        seed::entry(500, 503, u"2002-01-01"_s, u"2002-02-01"_s, u"800"_s, 0);
        seed::entry(500, 504, u"2002-01-01"_s, {}, u"1600"_s);         // the bonus entry is not shown
        teams.load();
        team = teams.Item(1).copy();
    }
    TempApp app;
    cTeamCollection teams;
    cTeam team;
};

TEST_F(TeamScreenRoster, showsCarsAndDriversWithThePresentPayrollInTheTotal)
{
    TeamScreen screen(team);
    EXPECT_EQ(screen.roster()->topLevelItemCount(), 0);   // read on arriving at the tab
    screen.openRoster();
    ASSERT_EQ(screen.roster()->topLevelItemCount(), 5);
    EXPECT_EQ(screen.child<QLineEdit>(u"txtTotalSalary"_s)->text(), u"$350.00"_s);

    // Sorted by number, as numbers.
    QStringList numbers;
    for (int i = 0; i < 5; ++i)
        numbers << screen.roster()->topLevelItem(i)->text(1);
    EXPECT_EQ(numbers, (QStringList{u"3"_s, u"11"_s, u"24"_s, u"24"_s, u"88"_s}));

    QTreeWidgetItem* open = screen.row(u"24"_s, u"2002-01-01"_s);
    EXPECT_EQ(open->text(2), u"Driver 24"_s);
    EXPECT_EQ(open->text(4), u" "_s);
    EXPECT_EQ(open->text(5), u"$100.00"_s);
    EXPECT_EQ(open->checkState(0), Qt::Checked);
    EXPECT_EQ(screen.row(u"11"_s)->checkState(0), Qt::Unchecked);
    EXPECT_EQ(screen.row(u"11"_s)->text(4), u"2002-02-01"_s);
}

TEST_F(TeamScreenRoster, anActiveFlagWaitsForASaveAndARecordChangeIsSavedFirst)
{
    TeamScreen screen(team);
    screen.openRoster();
    screen.type(u"TxtTeamOwner"_s, u" Jr"_s);   // the record changes...
    screen.row(u"3"_s)->setCheckState(0, Qt::Unchecked);   // ...and a flag
    screen.press(u"cmdApply"_s);
    EXPECT_EQ(app.scalar(u"SELECT team_owner FROM teams WHERE team_nmbr = 500"_s), u"Owner Jr"_s);
    EXPECT_EQ(app.scalar(u"SELECT active FROM team_car WHERE car_nmbr = 501"_s), u"1"_s);
    EXPECT_FALSE(screen.child<QPushButton>(u"cmdApply"_s)->isEnabled());

    screen.row(u"88"_s)->setCheckState(0, Qt::Unchecked);
    EXPECT_TRUE(screen.child<QPushButton>(u"cmdApply"_s)->isEnabled());
    screen.press(u"cmdApply"_s);
    EXPECT_EQ(app.scalar(u"SELECT active FROM team_car WHERE car_nmbr = 501"_s), u"0"_s);
    EXPECT_EQ(app.scalar(u"SELECT active FROM team_car WHERE car_nmbr = 502"_s), u"0"_s);
    EXPECT_EQ(app.scalar(u"SELECT active FROM team_car WHERE car_nmbr = 504"_s), u"1"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

TEST_F(TeamScreenRoster, terminateProposesTodayAndACancelledScreenDropsIt)
{
    TeamScreen screen(team);
    screen.openRoster();
    QDate proposed;
    screen.onTeamCar = [&](cTeamCar& entry) { proposed = entry.termDt(); };
    screen.select(u"3"_s);
    screen.press(u"cmdTerm"_s);
    EXPECT_EQ(screen.teamCarOpened, 1);
    EXPECT_EQ(proposed, QDate::currentDate());
    EXPECT_EQ(screen.seenTotal, Currency::fromDouble(350));
    EXPECT_EQ(screen.row(u"3"_s)->text(4), inDays(30));

    screen.onTeamCar = [](cTeamCar& entry) { entry.CommitChanges(); };
    screen.select(u"3"_s);
    screen.press(u"cmdTerm"_s);
    EXPECT_EQ(screen.row(u"3"_s)->text(4), inDays(0));
    EXPECT_EQ(screen.child<QLineEdit>(u"txtTotalSalary"_s)->text(), u"$150.00"_s);
}

TEST_F(TeamScreenRoster, terminateAllEndsOpenEntriesTodayWithoutAQuestion)
{
    TeamScreen screen(team);
    screen.openRoster();
    screen.press(u"cmdTermAll"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    EXPECT_EQ(app.count(u"team_car"_s, u"WHERE team_nmbr = 500 AND term_dt = '"_s + inDays(0) + u"'"_s), 4);
    EXPECT_EQ(screen.row(u"11"_s)->text(4), u"2002-02-01"_s);
    EXPECT_EQ(screen.row(u"3"_s)->text(4), inDays(30));
    EXPECT_EQ(screen.child<QLineEdit>(u"txtTotalSalary"_s)->text(), u"$200.00"_s);
}

TEST_F(TeamScreenRoster, deleteRefusesAScoredEntryAndRemovesAnotherWithoutAQuestion)
{
    seed::race(500, u"2002-03-17"_s);
    seed::scored(500, 500, 500, 501);
    TeamScreen screen(team);
    screen.openRoster();
    screen.select(u"3"_s);
    screen.press(u"cmdDelete"_s);
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    EXPECT_EQ(app.presenter().boxes().first().text,
              u"Car/Driver has been scored for this Team and can not be deleted until all Scoring for this Team "
              u"Car/Driver is deleted."_s);
    EXPECT_EQ(app.presenter().boxes().first().icon, Icon::Critical);
    EXPECT_EQ(app.count(u"team_car"_s, u"WHERE car_nmbr = 501"_s), 1);

    app.presenter().clear();
    screen.select(u"88"_s);
    screen.press(u"cmdDelete"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    EXPECT_EQ(app.count(u"team_car"_s, u"WHERE car_nmbr = 502"_s), 0);
    EXPECT_EQ(screen.roster()->topLevelItemCount(), 4);
}

TEST_F(TeamScreenRoster, duplicateNamesTheTeamThatHoldsAllOpenEntries)
{
    TeamScreen screen(team);
    screen.openRoster();
    screen.press(u"cmdCheckDuplicate"_s);
    seed::entry(501, 500, u"2003-01-01"_s, {}, u"1"_s);
    seed::entry(501, 501, u"2003-01-01"_s, {}, u"1"_s);
    seed::entry(501, 504, u"2003-01-01"_s, {}, u"1"_s);
    screen.press(u"cmdCheckDuplicate"_s);
    EXPECT_EQ(app.presenter().boxTexts(),
              (QStringList{u"Team not Duplicated."_s, u"Duplicate team with Copycat"_s}));
    EXPECT_EQ(app.presenter().boxes().last().icon, Icon::Information);
}

TEST(TeamScreenEmptyRoster, aBlankRowStandsInAndTheButtonsNeedingAnEntryDoNothing)
{
    TempApp app;
    seed::team(500, u"Empty"_s);
    cTeamCollection teams;
    teams.load();
    cTeam team = teams.Item(1).copy();
    TeamScreen screen(team);
    screen.openRoster();
    ASSERT_EQ(screen.roster()->topLevelItemCount(), 1);
    screen.roster()->setCurrentItem(screen.roster()->topLevelItem(0));
    screen.press(u"cmdUpdate"_s);
    screen.press(u"cmdTerm"_s);
    screen.press(u"cmdDelete"_s);
    EXPECT_EQ(screen.teamCarOpened, 0);
    screen.press(u"cmdCheckDuplicate"_s);
    EXPECT_EQ(app.presenter().boxTexts(), QStringList{u"Team not Duplicated."_s});
    EXPECT_EQ(screen.child<QLineEdit>(u"txtTotalSalary"_s)->text(), u"$0.00"_s);
}

}  // namespace
