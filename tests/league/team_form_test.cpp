#include "league/league_fixtures.h"
#include "league/team.h"
#include "league/team_car.h"
#include "league/team_form.h"
#include "store/dates.h"

#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString inDays(int days) { return shortDate(QDate::currentDate().addDays(days)); }

// The team screen on a team (a new one, or the stored team of that number), with the screens it
// opens replaced by recorders.
struct TeamScreen {
    explicit TeamScreen(int number = 0)
    {
        if (number > 0) {
            EXPECT_EQ(team.load(static_cast<int16_t>(number)), 1);
        }
        form.setLeagueTeamsOpener([this](cTeam& t) {
            ++leagueTeamsOpened;
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
        showActive(form);
    }
    template <class W>
    W* get(const QString& name) { return child<W>(form, name); }
    // Appends to what the field holds, as typing after a click at its end does.
    void type(const QString& field, const QString& text)
    {
        auto* edit = get<QLineEdit>(field);
        edit->setFocus(Qt::TabFocusReason);
        QTest::keyClick(edit, Qt::Key_End);
        QTest::keyClicks(edit, text);
    }
    void press(const QString& button) { get<QPushButton>(button)->click(); }
    bool canApply() { return get<QPushButton>(u"cmdApply"_s)->isEnabled(); }
    QString total() { return get<QLineEdit>(u"txtTotalSalary"_s)->text(); }
    QTreeWidget* roster() { return get<QTreeWidget>(u"lvwTeamCars"_s); }
    void openRoster() { get<QTabWidget>(u"SSTab1"_s)->setCurrentIndex(1); }
    QTreeWidgetItem* row(const QString& number) { return roster()->findItems(number, Qt::MatchExactly, 1).value(0); }
    void select(const QString& number) { roster()->setCurrentItem(row(number)); }

    cTeam team;
    frmTeam form;
    int leagueTeamsOpened = 0;
    int teamCarOpened = 0;
    Currency seenTotal;
    std::function<void(cTeam&)> onLeagueTeams;
    std::function<void(cTeamCar&)> onTeamCar;
};

TEST(TeamScreenRecord, requiredFieldsAreCheckedInOrderAndTheFirstSaveOpensTheMembershipScreen)
{
    TempApp app;
    TeamScreen screen;
    screen.type(u"TxtTeamOwner"_s, u"Pat"_s);
    screen.press(u"cmdApply"_s);
    expectLastBox(app, u"Team Name is a required field"_s);
    EXPECT_EQ(focusName(), u"TxtTeamName"_s);
    screen.type(u"TxtTeamName"_s, u"Speedy"_s);
    EXPECT_EQ(screen.form.windowTitle(), u"Team - Speedy"_s);
    screen.press(u"cmdApply"_s);
    expectLastBox(app, u"Race Type is a required field"_s);
    choose(screen.get<QComboBox>(u"cmbRaceType"_s), u"F1"_s);
    screen.press(u"cmdApply"_s);
    expectLastBox(app, u"Score By is a required field"_s);
    EXPECT_EQ(app.count(u"teams"_s), 0);
    EXPECT_EQ(screen.leagueTeamsOpened, 0);

    EXPECT_EQ(screen.get<QComboBox>(u"cmbCarType"_s)->count(), 2);   // Score By offers no bonus type
    choose(screen.get<QComboBox>(u"cmbCarType"_s), u"Driver"_s);
    screen.press(u"cmdApply"_s);
    EXPECT_EQ(app.presenter().boxes().size(), 3);
    EXPECT_EQ(app.scalar(u"SELECT team_nmbr || '/' || team_name || '/' || team_owner || '/' || race_type_nmbr || "
                         u"'/' || car_type_nmbr FROM teams"_s),
              u"500/Speedy/Pat/6/2"_s);
    EXPECT_EQ(screen.leagueTeamsOpened, 1);
    EXPECT_FALSE(screen.canApply());
}

TEST(TeamScreenRecord, aTeamInNoLeagueIsAskedToJoinAtEverySaveAndCancelAsksUnderItsName)
{
    TempApp app;
    seed::team(500, u"Speedy"_s);
    seed::league(500, u"Cup"_s, u"1000000"_s);
    TeamScreen screen(500);
    screen.type(u"txtCity"_s, u"Springfield"_s);
    screen.press(u"cmdApply"_s);
    EXPECT_EQ(screen.leagueTeamsOpened, 1);

    screen.onLeagueTeams = [](cTeam& t) { seed::member(500, t.teamNmbr()); };
    screen.type(u"txtZip"_s, u"62701"_s);
    screen.press(u"cmdApply"_s);
    EXPECT_EQ(screen.leagueTeamsOpened, 2);
    EXPECT_EQ(screen.get<QTreeWidget>(u"lvwLeagues"_s)->topLevelItem(0)->text(1), u"$1,000,000.00"_s);

    screen.type(u"TxtTeamName"_s, u" Two"_s);
    app.presenter().queueAnswer(Answer::Cancel);
    screen.press(u"cmdCancel"_s);
    expectLastBox(app, u"Do you want to save changes"_s, Icon::Question, Buttons::YesNoCancel, u"Speedy Two"_s);
    EXPECT_TRUE(screen.form.isVisible());
    app.presenter().queueAnswer(Answer::Yes);
    screen.press(u"cmdCancel"_s);
    EXPECT_EQ(screen.leagueTeamsOpened, 2);   // a member now: not asked again
    EXPECT_EQ(app.scalar(u"SELECT team_name || city || zip FROM teams"_s), u"Speedy TwoSpringfield62701"_s);
    EXPECT_EQ(app.presenter().boxes().size(), 2);
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

    TeamScreen first(500);
    choose(first.get<QComboBox>(u"cmbRaceType"_s), u"F1"_s);
    choose(first.get<QComboBox>(u"cmbCarType"_s), u"Driver"_s);
    EXPECT_EQ(app.presenter().boxTexts(),
              (QStringList{u"Can not change Race Type while Team Cars exist for the Race Type."_s,
                           u"Can not change Score By while Team Cars exist for the Score By type."_s}));
    EXPECT_EQ(first.get<QComboBox>(u"cmbRaceType"_s)->currentText(), u"Winston Cup"_s);
    EXPECT_EQ(first.team.raceTypeNmbr(), 1);
    EXPECT_FALSE(first.canApply());

    app.presenter().clear();
    TeamScreen second(501);
    choose(second.get<QComboBox>(u"cmbRaceType"_s), u"F1"_s);
    choose(second.get<QComboBox>(u"cmbCarType"_s), u"Driver"_s);
    EXPECT_EQ(app.presenter().boxTexts(),
              (QStringList{u"This Team is a member of at least one League for the current Race Type.\n"
                           u"Can not change Race Type."_s,
                           u"This Team is a member of at least one League for the Score By Type.\n"
                           u"Can not change Score By."_s}));
    EXPECT_EQ(app.presenter().boxes().first().icon, Icon::Critical);
    EXPECT_EQ(second.team.carTypeNmbr(), 1);
}

// Team 500's roster: car 24 in two open stints ($100 and $50), 3 ending in 30 days ($200),
// 88 ended today ($400), 11 ended and inactive ($800) and the bonus entry ($1,600, not shown).
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
        seed::entry(500, 500, u"2002-06-01"_s, {}, u"50"_s);
        seed::entry(500, 501, u"2002-01-01"_s, inDays(30), u"200"_s);
        seed::entry(500, 502, u"2002-01-01"_s, inDays(0), u"400"_s);
        seed::entry(500, 503, u"2002-01-01"_s, u"2002-02-01"_s, u"800"_s, 0);
        seed::entry(500, 504, u"2002-01-01"_s, {}, u"1600"_s);
    }
    TempApp app;
};

TEST_F(TeamScreenRoster, showsCarsAndDriversByNumberWithThePresentPayrollAndSavesTheActiveFlags)
{
    TeamScreen screen(500);
    EXPECT_EQ(screen.roster()->topLevelItemCount(), 0);   // read on arriving at the tab
    screen.openRoster();
    EXPECT_EQ(screen.total(), u"$350.00"_s);
    QStringList rows;
    for (int i = 0; i < screen.roster()->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* row = screen.roster()->topLevelItem(i);
        rows << QStringList{row->checkState(0) == Qt::Checked ? u"x"_s : u"-"_s, row->text(1), row->text(2),
                            row->text(4), row->text(5)}.join(u'|');
    }
    EXPECT_EQ(rows, (QStringList{u"x|3|Driver 3|"_s + inDays(30) + u"|$200.00"_s,
                                 u"-|11|Driver 11|2002-02-01|$800.00"_s, u"x|24|Driver 24| |$100.00"_s,
                                 u"x|24|Driver 24| |$50.00"_s, u"x|88|Driver 88|"_s + inDays(0) + u"|$400.00"_s}));

    // An active flag waits for a save, and a change of the record is saved first.
    screen.type(u"TxtTeamOwner"_s, u" Jr"_s);
    screen.row(u"3"_s)->setCheckState(0, Qt::Unchecked);
    screen.press(u"cmdApply"_s);
    EXPECT_EQ(app.scalar(u"SELECT team_owner FROM teams WHERE team_nmbr = 500"_s), u"Owner Jr"_s);
    EXPECT_EQ(app.scalar(u"SELECT active FROM team_car WHERE car_nmbr = 501"_s), u"1"_s);
    EXPECT_FALSE(screen.canApply());

    screen.row(u"88"_s)->setCheckState(0, Qt::Unchecked);
    EXPECT_TRUE(screen.canApply());
    screen.press(u"cmdApply"_s);
    EXPECT_EQ(app.scalar(u"SELECT group_concat(car_nmbr) FROM team_car WHERE active = 0"_s), u"501,502,503"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

TEST_F(TeamScreenRoster, terminateProposesTodayAndTerminateAllEndsEveryOpenEntryToday)
{
    TeamScreen screen(500);
    screen.openRoster();
    QDate proposed;
    screen.onTeamCar = [&](cTeamCar& entry) { proposed = entry.termDt(); };   // cancelled: nothing changes
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
    EXPECT_EQ(screen.total(), u"$150.00"_s);

    screen.press(u"cmdTermAll"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    EXPECT_EQ(app.count(u"team_car"_s, u"WHERE term_dt = '"_s + inDays(0) + u"'"_s), 5);
    EXPECT_EQ(screen.row(u"11"_s)->text(4), u"2002-02-01"_s);
    EXPECT_EQ(screen.total(), u"$0.00"_s);
}

TEST_F(TeamScreenRoster, deleteRefusesAScoredEntryAndDuplicateNamesATeamHoldingAllOpenEntries)
{
    seed::race(500, u"2002-03-17"_s);
    seed::scored(500, 500, 500, 501);
    TeamScreen screen(500);
    screen.openRoster();
    screen.select(u"3"_s);
    screen.press(u"cmdDelete"_s);
    expectLastBox(app, u"Car/Driver has been scored for this Team and can not be deleted until all Scoring for "
                       u"this Team Car/Driver is deleted."_s);
    EXPECT_EQ(app.count(u"team_car"_s, u"WHERE car_nmbr = 501"_s), 1);

    screen.select(u"88"_s);
    screen.press(u"cmdDelete"_s);
    EXPECT_EQ(app.presenter().boxes().size(), 1);
    EXPECT_EQ(app.count(u"team_car"_s, u"WHERE car_nmbr = 502"_s), 0);
    EXPECT_EQ(screen.roster()->topLevelItemCount(), 4);

    app.presenter().clear();   // a team holding all open entries is a duplicate
    screen.press(u"cmdCheckDuplicate"_s);
    seed::entry(501, 500, u"2003-01-01"_s, {}, u"1"_s);
    seed::entry(501, 501, u"2003-01-01"_s, {}, u"1"_s);
    seed::entry(501, 504, u"2003-01-01"_s, {}, u"1"_s);
    screen.press(u"cmdCheckDuplicate"_s);
    EXPECT_EQ(app.presenter().boxTexts(), (QStringList{u"Team not Duplicated."_s, u"Duplicate team with Copycat"_s}));
    EXPECT_EQ(app.presenter().boxes().last().icon, Icon::Information);
}

}  // namespace
