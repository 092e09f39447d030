#include "league/league.h"
#include "league/league_fixtures.h"
#include "league/league_form.h"
#include "league/league_teams_form.h"
#include "league/team.h"

#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class LeagueScreen : public ::testing::Test {
protected:
    // League 500 "Cup League" (short "CUP"): race type 1, Score By cars, option 2 dropping 3,
    // cap $5,000.00, opened on the screen.
    void openStored(const QString& name = u"Cup League"_s)
    {
        seed::league(500, name, u"5000"_s, 1, 1, 2, 3);
        ASSERT_EQ(league.load(500), 1);
        open();
    }
    void open()
    {
        form.fill(league);
        showActive(form);
    }
    QLineEdit* field(const QString& name) { return child<QLineEdit>(form, name); }
    QComboBox* list(const QString& name) { return child<QComboBox>(form, name); }
    QPushButton* apply() { return child<QPushButton>(form, u"cmdApply"_s); }
    void clickApply() { QTest::mouseClick(apply(), Qt::LeftButton); }

    TempApp app;
    cLeague league;
    frmLeague form;
};

TEST_F(LeagueScreen, anInvalidCapOrDropCountKeepsTheFocusAndTypedMoneyIsSavedByEnter)
{
    openStored();
    EXPECT_EQ(field(u"txtSalaryCap"_s)->text(), u"$5,000.00"_s);
    retype(field(u"txtSalaryCap"_s), u"lots"_s);
    clickApply();
    ASSERT_EQ(app.presenter().boxes().size(), 1);   // the refused click did not try to save
    expectRefusal(app, u"Invalid Salary Cap amount"_s, u"txtSalaryCap"_s);

    retype(field(u"txtSalaryCap"_s), u"$1,234.56"_s);
    retype(field(u"txtDropLowest"_s), u"99999"_s);
    field(u"txtLeagueName"_s)->setFocus(Qt::TabFocusReason);
    expectRefusal(app, u"Invalid Drop Lowest amount"_s, u"txtDropLowest"_s);
    EXPECT_EQ(app.scalar(u"SELECT salary_cap || '/' || drop_lowest FROM leagues"_s), u"5000.0/3"_s);

    retype(field(u"txtDropLowest"_s), u"1"_s);
    QTest::keyClick(field(u"txtDropLowest"_s), Qt::Key_Return);
    EXPECT_EQ(app.presenter().boxes().size(), 2);
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(app.scalar(u"SELECT salary_cap || '/' || drop_lowest FROM leagues"_s), u"1234.56/1"_s);
}

TEST_F(LeagueScreen, raceTypeAndScoreByChangeFreelyUntilTheLeagueHasMembers)
{
    openStored();
    choose(list(u"cmbRaceType"_s), 6);
    choose(list(u"cmbCarType"_s), 2);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    EXPECT_EQ(league.raceTypeNmbr(), 6);
    EXPECT_EQ(league.carTypeNmbr(), 2);

    ASSERT_EQ(league.load(500), 1);
    seed::team(500, u"Aces"_s);
    seed::member(500, 500);
    open();
    choose(list(u"cmbRaceType"_s), 6);
    expectRefusal(app, u"Can not change Race Type while League Teams exist for the League"_s);
    EXPECT_EQ(list(u"cmbRaceType"_s)->currentData().toInt(), 1);
    choose(list(u"cmbCarType"_s), 2);
    expectRefusal(app, u"Can not change Score By while League Teams exist for the League"_s);
    EXPECT_EQ(list(u"cmbCarType"_s)->currentData().toInt(), 1);
    EXPECT_EQ(league.raceTypeNmbr(), 1);
    EXPECT_EQ(league.carTypeNmbr(), 1);
    EXPECT_FALSE(apply()->isEnabled());
}

TEST_F(LeagueScreen, scoringOptionOneHoldsDropLowestAtZeroAndKeepsTheStoredCount)
{
    openStored();
    auto* dropLowest = field(u"txtDropLowest"_s);
    EXPECT_TRUE(dropLowest->isEnabled());
    EXPECT_EQ(dropLowest->text(), u"3"_s);
    choose(list(u"cmbScoringOption"_s), 1);
    EXPECT_EQ(dropLowest->text(), u"0"_s);
    EXPECT_FALSE(dropLowest->isEnabled());
    clickApply();
    EXPECT_EQ(app.scalar(u"SELECT scoring_option_nmbr || '/' || drop_lowest FROM leagues"_s), u"1/3"_s);

    league.load(500);
    form.fill(league);   // an option-1 league opens with the count closed
    EXPECT_FALSE(dropLowest->isEnabled());
}

TEST_F(LeagueScreen, cancelAsksOnlyWhenChangedUnderTheLeaguesNameAndYesSavesButStaysOpen)
{
    openStored(u"O'Hara Cup"_s);
    QTest::mouseClick(child<QLabel>(form, u"lblName"_s), Qt::LeftButton);
    expectLastBox(app, u"League number is 500"_s, Icon::None);
    auto* cancel = child<QPushButton>(form, u"cmdCancel"_s);
    QTest::keyClicks(field(u"txtLeagueName"_s), u" B"_s);
    app.presenter().queueAnswer(Answer::Yes);
    cancel->click();
    expectLastBox(app, u"Do you want to save changes"_s, Icon::Question, Buttons::YesNoCancel, u"O'Hara Cup B"_s);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(app.scalar(u"SELECT league_name FROM leagues"_s), u"O'Hara Cup B"_s);

    cancel->click();   // nothing unsaved: no question
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(app.presenter().boxes().size(), 2);
}

// Teams of race type 1 scoring cars (Zebras, Aces), one scoring drivers, one of race type 3.
class LeagueTeamsTab : public LeagueScreen {
protected:
    void SetUp() override
    {
        seed::team(500, u"Zebras"_s);
        seed::team(501, u"Aces"_s);
        seed::team(502, u"Drivers Only"_s, 1, 2);
        seed::team(503, u"Trucks"_s, 3, 1);
    }
    QTreeWidget* teams() { return child<QTreeWidget>(form, u"lvwLeagueTeams"_s); }
    QStringList rows()
    {
        QStringList shown;
        for (int i = 0; i < teams()->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* row = teams()->topLevelItem(i);
            shown << row->text(0) + (row->checkState(0) == Qt::Checked ? u" [x]"_s : u""_s);
        }
        return shown;
    }
    QTreeWidgetItem* row(const QString& name) { return teams()->findItems(name, Qt::MatchExactly).value(0); }
};

TEST_F(LeagueTeamsTab, offersTeamsOfTheLeaguesTypesSavesTheCheckedOnesAndKeepsAScoredOne)
{
    seed::league(500, u"Cup League"_s, u"0"_s);
    seed::member(500, 500);
    seed::member(500, 501);
    seed::scored(500, 500, 501, 1);
    ASSERT_EQ(league.load(500), 1);
    open();
    child<QTabWidget>(form, u"SSTab1"_s)->setCurrentIndex(1);
    EXPECT_EQ(rows(), (QStringList{u"Aces [x]"_s, u"Zebras [x]"_s}));
    EXPECT_FALSE(apply()->isEnabled());

    row(u"Aces"_s)->setCheckState(0, Qt::Unchecked);
    expectRefusal(app, u"Team has been scored for this League and can not be removed until all Scoring for this Team "
                  u"is deleted."_s);
    EXPECT_EQ(row(u"Aces"_s)->checkState(0), Qt::Checked);
    EXPECT_FALSE(apply()->isEnabled());

    row(u"Zebras"_s)->setCheckState(0, Qt::Unchecked);
    EXPECT_TRUE(apply()->isEnabled());
    clickApply();
    EXPECT_FALSE(apply()->isEnabled());
    EXPECT_EQ(app.scalar(u"SELECT group_concat(team_nmbr) FROM league_teams WHERE league_nmbr = 500"_s), u"501"_s);
    EXPECT_EQ(app.presenter().boxes().size(), 1);
}

// Zebras also play in league 400 of the same kind; that is no membership of the new league.
TEST_F(LeagueTeamsTab, aNewLeagueIsRefusedFieldByFieldInOrderThenSavedAs500OnChangingTab)
{
    seed::league(400, u"Old"_s, u"0"_s);
    seed::member(400, 500);
    open();
    EXPECT_FALSE(apply()->isEnabled());
    QTest::keyClicks(field(u"txtShortName"_s), u"SUN"_s);
    ASSERT_TRUE(apply()->isEnabled());
    clickApply();
    expectRefusal(app, u"League Name is a required field"_s, u"txtLeagueName"_s);
    QTest::keyClicks(field(u"txtLeagueName"_s), u"Sunday's League"_s);
    EXPECT_EQ(form.windowTitle(), u"League - Sunday's League"_s);
    clickApply();
    expectRefusal(app, u"Scoring By is a required field"_s, u"cmbCarType"_s);
    choose(list(u"cmbCarType"_s), 1);
    clickApply();
    expectRefusal(app, u"Scoring Method is a required field"_s, u"cmbScoringType"_s);
    choose(list(u"cmbScoringType"_s), 2);
    clickApply();
    expectRefusal(app, u"Scoring Option is a required field"_s, u"cmbScoringOption"_s);
    choose(list(u"cmbScoringOption"_s), 2);
    clickApply();
    expectRefusal(app, u"Race Type is a required field"_s, u"cmbRaceType"_s);
    choose(list(u"cmbRaceType"_s), 1);
    field(u"txtSalaryCap"_s)->setText(u"plenty"_s);
    clickApply();
    expectRefusal(app, u"Invalid Salary Cap amount"_s, u"txtSalaryCap"_s);
    EXPECT_EQ(field(u"txtSalaryCap"_s)->selectedText(), u"plenty"_s);
    EXPECT_EQ(app.count(u"leagues"_s), 1);

    retype(field(u"txtSalaryCap"_s), u"2,500.5"_s);
    retype(field(u"txtDropLowest"_s), u"2"_s);
    child<QTabWidget>(form, u"SSTab1"_s)->setCurrentIndex(1);
    EXPECT_EQ(app.presenter().boxes().size(), 6);
    EXPECT_EQ(league.leagueNmbr(), 500);
    EXPECT_FALSE(apply()->isEnabled());
    EXPECT_EQ(app.scalar(u"SELECT league_name || '|' || league_short_name || '|' || race_type_nmbr || '|' || "
                         u"car_type_nmbr || '|' || scoring_type_nmbr || '|' || scoring_option_nmbr || '|' || "
                         u"salary_cap || '|' || drop_lowest FROM leagues WHERE league_nmbr = 500"_s),
              u"Sunday's League|SUN|1|1|2|2|2500.5|2"_s);
    EXPECT_EQ(field(u"txtSalaryCap"_s)->text(), u"$2,500.50"_s);

    EXPECT_EQ(rows(), (QStringList{u"Aces"_s, u"Zebras"_s}));
    row(u"Zebras"_s)->setCheckState(0, Qt::Checked);
    QTest::mouseClick(child<QPushButton>(form, u"cmdOK"_s), Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(app.scalar(u"SELECT group_concat(team_nmbr) FROM league_teams WHERE league_nmbr = 500"_s), u"500"_s);
}

TEST(LeagueTeamsScreen, offersOnlyLeaguesOfTheTeamsTypesAndCanOnlyAdd)
{
    TempApp app;
    seed::league(500, u"Cup League"_s, u"0"_s);
    seed::league(501, u"Another Cup"_s, u"0"_s);
    seed::league(502, u"F1 League"_s, u"0"_s, 6);
    seed::team(500, u"Aces"_s);
    seed::member(500, 500);
    cTeam team;
    ASSERT_EQ(team.load(500), 1);
    frmLeagueTeams form;
    form.fill(team);
    showActive(form);
    EXPECT_EQ(form.windowTitle(), u"League Teams - Aces"_s);
    auto* leagues = child<QTreeWidget>(form, u"lvwLeagues"_s);
    ASSERT_EQ(leagues->topLevelItemCount(), 2);
    QTreeWidgetItem* another = leagues->topLevelItem(0);
    QTreeWidgetItem* cup = leagues->topLevelItem(1);
    EXPECT_EQ(another->text(0) + u'/' + cup->text(0), u"Another Cup/Cup League"_s);
    cup->setCheckState(0, Qt::Unchecked);   // a membership is not taken back here
    another->setCheckState(0, Qt::Checked);
    another->setCheckState(0, Qt::Unchecked);
    EXPECT_EQ(cup->checkState(0), Qt::Checked);
    EXPECT_EQ(another->checkState(0), Qt::Checked);
    QTest::mouseClick(child<QPushButton>(form, u"cmdOK"_s), Qt::LeftButton);
    EXPECT_EQ(app.scalar(u"SELECT group_concat(league_nmbr) FROM (SELECT league_nmbr FROM league_teams "
                         u"ORDER BY league_nmbr)"_s),
              u"500,501"_s);
}

} // namespace
