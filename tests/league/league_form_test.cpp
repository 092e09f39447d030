#include "league/league.h"
#include "league/league_form.h"
#include "league/league_teams_form.h"
#include "league/team.h"
#include "league_rows.h"
#include "support/temp_app.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using namespace league_rows;

// A stored league: race type 1, Score By cars, method 1, option 2 dropping 3, cap $5,000.00.
cLeague storedLeague(const QString& name = u"Cup League"_s)
{
    return saved(name, 1, 1, 1, 2, 3, Currency::fromRaw(50000000));
}

template <class T>
T* child(QWidget& form, const QString& name)
{
    T* widget = form.findChild<T*>(name);
    EXPECT_NE(widget, nullptr) << qPrintable(name);
    return widget;
}

// What the operator does with a list: pick the entry of a number.
void choose(QComboBox* list, int number)
{
    const int index = list->findData(number);
    ASSERT_GE(index, 0) << number;
    list->setCurrentIndex(index);
    emit list->activated(index);
}

void showActive(QWidget& form)
{
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
}

void retype(QLineEdit* field, const QString& text)
{
    field->setFocus();
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Backspace);
    QTest::keyClicks(field, text);
}

class LeagueScreen : public ::testing::Test {
protected:
    void open(cLeague& record)
    {
        form.fill(record);
        showActive(form);
    }
    template <class T>
    T* get(const QString& name) { return child<T>(form, name); }
    QPushButton* apply() { return get<QPushButton>(u"cmdApply"_s); }
    void clickApply() { QTest::mouseClick(apply(), Qt::LeftButton); }
    // The last box must be a critical one titled "Lapkeeper" with this text.
    void expectRefusal(const QString& text, const QString& focused = {})
    {
        ASSERT_FALSE(app.presenter().boxes().isEmpty());
        const RecordedBox& box = app.presenter().boxes().constLast();
        EXPECT_EQ(box.text, text);
        EXPECT_EQ(box.title, u"Lapkeeper"_s);
        EXPECT_EQ(box.icon, Icon::Critical);
        if (focused.isEmpty())
            return;
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), focused);
    }

    TempApp app;
    frmLeague form;
};

TEST_F(LeagueScreen, aNewLeagueIsRefusedFieldByFieldInOrderThenSavedAs500)
{
    cLeague league;
    open(league);
    EXPECT_FALSE(apply()->isEnabled());
    for (const char* name : {"cmbRaceType", "cmbCarType", "cmbScoringType", "cmbScoringOption"})
        EXPECT_EQ(get<QComboBox>(QString::fromLatin1(name))->currentIndex(), -1) << name;

    QTest::keyClicks(get<QLineEdit>(u"txtShortName"_s), u"SUN"_s);
    ASSERT_TRUE(apply()->isEnabled());
    clickApply();
    expectRefusal(u"League Name is a required field"_s, u"txtLeagueName"_s);

    QTest::keyClicks(get<QLineEdit>(u"txtLeagueName"_s), u"Sunday's League"_s);
    EXPECT_EQ(form.windowTitle(), u"League - Sunday's League"_s);
    clickApply();
    expectRefusal(u"Scoring By is a required field"_s, u"cmbCarType"_s);
    choose(get<QComboBox>(u"cmbCarType"_s), 2);
    clickApply();
    expectRefusal(u"Scoring Method is a required field"_s, u"cmbScoringType"_s);
    choose(get<QComboBox>(u"cmbScoringType"_s), 2);
    clickApply();
    expectRefusal(u"Scoring Option is a required field"_s, u"cmbScoringOption"_s);
    choose(get<QComboBox>(u"cmbScoringOption"_s), 2);
    clickApply();
    expectRefusal(u"Race Type is a required field"_s, u"cmbRaceType"_s);
    choose(get<QComboBox>(u"cmbRaceType"_s), 6);
    get<QLineEdit>(u"txtSalaryCap"_s)->setText(u"plenty"_s);
    clickApply();
    expectRefusal(u"Invalid Salary Cap amount"_s, u"txtSalaryCap"_s);
    EXPECT_EQ(get<QLineEdit>(u"txtSalaryCap"_s)->selectedText(), u"plenty"_s);
    EXPECT_EQ(app.count(u"leagues"_s), 0);

    retype(get<QLineEdit>(u"txtSalaryCap"_s), u"2,500.5"_s);
    retype(get<QLineEdit>(u"txtDropLowest"_s), u"2"_s);
    const int boxes = app.presenter().boxes().size();
    clickApply();
    EXPECT_EQ(app.presenter().boxes().size(), boxes);
    EXPECT_FALSE(apply()->isEnabled());
    EXPECT_EQ(league.leagueNmbr(), 500);
    EXPECT_EQ(app.scalar(u"SELECT league_name || '|' || league_short_name || '|' || race_type_nmbr || '|' || "
                         u"car_type_nmbr || '|' || scoring_type_nmbr || '|' || scoring_option_nmbr || '|' || "
                         u"salary_cap || '|' || drop_lowest FROM leagues"_s),
              u"Sunday's League|SUN|6|2|2|2|2500.5|2"_s);
    EXPECT_EQ(get<QLineEdit>(u"txtSalaryCap"_s)->text(), u"$2,500.50"_s);
    EXPECT_EQ(app.count(u"league_teams"_s), 0);
}

TEST_F(LeagueScreen, textInTheSalaryCapKeepsTheFocusAndTheClickThatLeftIt)
{
    cLeague league = storedLeague();
    open(league);
    EXPECT_EQ(get<QLineEdit>(u"txtSalaryCap"_s)->text(), u"$5,000.00"_s);
    retype(get<QLineEdit>(u"txtSalaryCap"_s), u"lots"_s);
    clickApply();
    ASSERT_EQ(app.presenter().boxes().size(), 1);   // the refused click did not try to save
    expectRefusal(u"Invalid Salary Cap amount"_s, u"txtSalaryCap"_s);
    EXPECT_TRUE(apply()->isEnabled());
    EXPECT_EQ(app.scalar(u"SELECT salary_cap FROM leagues"_s), u"5000"_s);

    // Typed money is taken as the operator writes it; Enter saves and closes.
    retype(get<QLineEdit>(u"txtSalaryCap"_s), u"$1,234.56"_s);
    QTest::keyClick(get<QLineEdit>(u"txtSalaryCap"_s), Qt::Key_Return);
    EXPECT_EQ(app.presenter().boxes().size(), 1);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(app.scalar(u"SELECT salary_cap FROM leagues"_s), u"1234.56"_s);
}

TEST_F(LeagueScreen, aDropCountThatIsNoNumberIsRefusedOnLeaving)
{
    cLeague league = storedLeague();
    open(league);
    retype(get<QLineEdit>(u"txtDropLowest"_s), u"two"_s);
    get<QLineEdit>(u"txtLeagueName"_s)->setFocus(Qt::TabFocusReason);
    expectRefusal(u"Invalid Drop Lowest amount"_s, u"txtDropLowest"_s);
    retype(get<QLineEdit>(u"txtDropLowest"_s), u"99999"_s);
    QTest::keyClick(get<QLineEdit>(u"txtDropLowest"_s), Qt::Key_Return);
    expectRefusal(u"Invalid Drop Lowest amount"_s, u"txtDropLowest"_s);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(app.scalar(u"SELECT drop_lowest FROM leagues"_s), u"3"_s);
}

TEST_F(LeagueScreen, raceTypeAndScoreByFreezeOnceTheLeagueHasMembers)
{
    cLeague league = storedLeague();
    addTeam(500, u"Aces"_s, 1, 1);
    addMember(500, 500);
    open(league);
    auto* raceType = get<QComboBox>(u"cmbRaceType"_s);
    auto* scoreBy = get<QComboBox>(u"cmbCarType"_s);

    choose(raceType, 6);
    expectRefusal(u"Can not change Race Type while League Teams exist for the League"_s);
    EXPECT_EQ(raceType->currentData().toInt(), 1);
    choose(scoreBy, 2);
    expectRefusal(u"Can not change Score By while League Teams exist for the League"_s);
    EXPECT_EQ(scoreBy->currentData().toInt(), 1);
    EXPECT_EQ(league.raceTypeNmbr(), 1);
    EXPECT_EQ(league.carTypeNmbr(), 1);
    EXPECT_FALSE(apply()->isEnabled());
}

TEST_F(LeagueScreen, withoutMembersRaceTypeAndScoreByChangeFreely)
{
    cLeague league = storedLeague();
    open(league);
    choose(get<QComboBox>(u"cmbCarType"_s), 1);   // its own value: nothing happens
    EXPECT_FALSE(apply()->isEnabled());
    choose(get<QComboBox>(u"cmbRaceType"_s), 6);
    choose(get<QComboBox>(u"cmbCarType"_s), 2);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    EXPECT_EQ(get<QPushButton>(u"cmdImportCars"_s)->text(), u"Import Driver"_s);
    EXPECT_EQ(league.raceTypeNmbr(), 6);
    EXPECT_EQ(league.carTypeNmbr(), 2);
    EXPECT_TRUE(apply()->isEnabled());
}

TEST_F(LeagueScreen, scoringOptionOneHoldsDropLowestAtZeroAndKeepsTheStoredCount)
{
    cLeague league = storedLeague();
    open(league);
    auto* dropLowest = get<QLineEdit>(u"txtDropLowest"_s);
    EXPECT_TRUE(dropLowest->isEnabled());
    EXPECT_EQ(dropLowest->text(), u"3"_s);

    choose(get<QComboBox>(u"cmbScoringOption"_s), 1);
    EXPECT_EQ(dropLowest->text(), u"0"_s);
    EXPECT_FALSE(dropLowest->isEnabled());
    clickApply();
    EXPECT_EQ(app.scalar(u"SELECT scoring_option_nmbr || '/' || drop_lowest FROM leagues"_s), u"1/3"_s);

    league.load(500);
    form.fill(league);   // an option-1 league opens with the count closed
    EXPECT_FALSE(dropLowest->isEnabled());
}

TEST_F(LeagueScreen, fillingLeavesTheScreenCleanAndOnlyAChangeEnablesApply)
{
    cLeague league = storedLeague(u"O'Hara Cup"_s);
    open(league);
    EXPECT_EQ(form.windowTitle(), u"League - O'Hara Cup"_s);
    EXPECT_EQ(get<QComboBox>(u"cmbScoringOption"_s)->currentText(), u"Drop Lowest Finishers"_s);
    EXPECT_FALSE(apply()->isEnabled());

    QTest::mouseClick(get<QLabel>(u"lblName"_s), Qt::LeftButton);
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    EXPECT_EQ(app.presenter().boxes()[0].text, u"League number is 500"_s);
    EXPECT_EQ(app.presenter().boxes()[0].icon, Icon::None);
    EXPECT_FALSE(apply()->isEnabled());

    // Cancel on a clean screen asks nothing.
    get<QPushButton>(u"cmdCancel"_s)->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(app.presenter().boxes().size(), 1);
}

TEST_F(LeagueScreen, okSavesAChangedLeagueAndCloses)
{
    cLeague league = storedLeague();
    open(league);
    QTest::keyClicks(get<QLineEdit>(u"txtShortName"_s), u"X"_s);
    EXPECT_TRUE(apply()->isEnabled());
    QTest::mouseClick(get<QPushButton>(u"cmdOK"_s), Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(app.scalar(u"SELECT league_short_name FROM leagues"_s), u"CUPX"_s);
}

TEST_F(LeagueScreen, cancelAsksUnderTheLeaguesNameAndYesSavesButStaysOpen)
{
    cLeague league = storedLeague();
    open(league);
    QTest::keyClicks(get<QLineEdit>(u"txtLeagueName"_s), u" B"_s);
    auto* cancel = get<QPushButton>(u"cmdCancel"_s);

    app.presenter().queueAnswer(Answer::Cancel);
    cancel->click();
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    const RecordedBox question = app.presenter().boxes()[0];
    EXPECT_EQ(question.text, u"Do you want to save changes"_s);
    EXPECT_EQ(question.title, u"Cup League B"_s);
    EXPECT_EQ(question.buttons, Buttons::YesNoCancel);
    EXPECT_TRUE(form.isVisible());

    app.presenter().queueAnswer(Answer::Yes);
    cancel->click();
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(apply()->isEnabled());
    EXPECT_EQ(app.scalar(u"SELECT league_name FROM leagues"_s), u"Cup League B"_s);

    QTest::keyClicks(get<QLineEdit>(u"txtLeagueName"_s), u"C"_s);
    app.presenter().queueAnswer(Answer::No);
    cancel->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(app.scalar(u"SELECT league_name FROM leagues"_s), u"Cup League B"_s);
}

class LeagueTeamsTab : public LeagueScreen {
protected:
    void SetUp() override
    {
        addTeam(500, u"Zebras"_s, 1, 1);
        addTeam(501, u"Aces"_s, 1, 1);
        addTeam(502, u"Drivers Only"_s, 1, 2);
        addTeam(503, u"Trucks"_s, 3, 1);
    }
    QTreeWidget* list() { return get<QTreeWidget>(u"lvwLeagueTeams"_s); }
    QStringList rows()
    {
        QStringList shown;
        for (int i = 0; i < list()->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* row = list()->topLevelItem(i);
            shown << row->text(0) + (row->checkState(0) == Qt::Checked ? u" [x]"_s : u""_s);
        }
        return shown;
    }
    QTreeWidgetItem* row(const QString& name) { return list()->findItems(name, Qt::MatchExactly).value(0); }
};

TEST_F(LeagueTeamsTab, offersTeamsOfTheLeaguesTypesAndSavesTheCheckedOnes)
{
    cLeague league = storedLeague();
    addMember(500, 500);
    open(league);
    get<QTabWidget>(u"SSTab1"_s)->setCurrentIndex(1);
    EXPECT_EQ(rows(), (QStringList{u"Aces"_s, u"Zebras [x]"_s}));
    EXPECT_FALSE(apply()->isEnabled());

    row(u"Aces"_s)->setCheckState(0, Qt::Checked);
    row(u"Zebras"_s)->setCheckState(0, Qt::Unchecked);
    EXPECT_TRUE(apply()->isEnabled());
    clickApply();
    EXPECT_FALSE(apply()->isEnabled());
    EXPECT_EQ(app.scalar(u"SELECT group_concat(team_nmbr) FROM league_teams WHERE league_nmbr = 500"_s), u"501"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

TEST_F(LeagueTeamsTab, aScoredTeamCannotBeUnchecked)
{
    cLeague league = storedLeague();
    addMember(500, 500);
    run(u"INSERT INTO team_results (race_nmbr, league_nmbr, team_nmbr, car_nmbr) VALUES (500, 500, 500, 1)"_s);
    open(league);
    get<QTabWidget>(u"SSTab1"_s)->setCurrentIndex(1);
    row(u"Zebras"_s)->setCheckState(0, Qt::Unchecked);
    expectRefusal(u"Team has been scored for this League and can not be removed until all Scoring for this Team is deleted."_s);
    EXPECT_EQ(row(u"Zebras"_s)->checkState(0), Qt::Checked);
    EXPECT_FALSE(apply()->isEnabled());
}

TEST_F(LeagueTeamsTab, changingTabSavesANewLeagueFirstSoItsTeamsCanBeChosen)
{
    cLeague league;
    league.setRaceTypeNmbr(1);
    league.setCarTypeNmbr(1);
    league.setScoringTypeNmbr(1);
    league.setScoringOptionNmbr(1);
    // Zebras play in another league of the same kind; that is no membership of this one.
    run(u"INSERT INTO leagues VALUES (400, 'Old', 'OLD', 1, 1, 1, 0, 0, 1)"_s);
    addMember(400, 500);
    open(league);
    QTest::keyClicks(get<QLineEdit>(u"txtShortName"_s), u"NEW"_s);
    auto* tabs = get<QTabWidget>(u"SSTab1"_s);

    // A failed save shows its message and the tab changes all the same.
    tabs->setCurrentIndex(1);
    EXPECT_EQ(tabs->currentIndex(), 1);
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    EXPECT_EQ(app.presenter().boxes()[0].text, u"League Name is a required field"_s);
    EXPECT_EQ(app.count(u"leagues"_s), 1);

    tabs->setCurrentIndex(0);
    QTest::keyClicks(get<QLineEdit>(u"txtLeagueName"_s), u"New League"_s);
    tabs->setCurrentIndex(1);
    EXPECT_EQ(league.leagueNmbr(), 500);
    EXPECT_FALSE(apply()->isEnabled());
    EXPECT_EQ(rows(), (QStringList{u"Aces"_s, u"Zebras"_s}));
    row(u"Zebras"_s)->setCheckState(0, Qt::Checked);
    QTest::mouseClick(get<QPushButton>(u"cmdOK"_s), Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(app.scalar(u"SELECT league_nmbr || '/' || team_nmbr FROM league_teams WHERE league_nmbr = 500"_s),
              u"500/500"_s);
}

// ---- joining leagues from a team ----

TEST(LeagueTeamsScreen, offersOnlyLeaguesOfTheTeamsTypesAndCanOnlyAdd)
{
    TempApp app;
    storedLeague(u"Cup League"_s);   // 500
    storedLeague(u"Another Cup"_s);  // 501
    saved(u"F1 League"_s, 6, 1);
    addTeam(500, u"Aces"_s, 1, 1);
    addMember(500, 500);
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
    EXPECT_EQ(another->text(0), u"Another Cup"_s);
    EXPECT_EQ(another->checkState(0), Qt::Unchecked);
    EXPECT_EQ(cup->checkState(0), Qt::Checked);

    cup->setCheckState(0, Qt::Unchecked);
    EXPECT_EQ(cup->checkState(0), Qt::Checked);
    another->setCheckState(0, Qt::Checked);
    another->setCheckState(0, Qt::Unchecked);
    EXPECT_EQ(another->checkState(0), Qt::Checked);

    QTest::mouseClick(child<QPushButton>(form, u"cmdOK"_s), Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(app.scalar(u"SELECT group_concat(league_nmbr) FROM (SELECT league_nmbr FROM league_teams "
                         u"WHERE team_nmbr = 500 ORDER BY league_nmbr)"_s),
              u"500,501"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

TEST(LeagueTeamsScreen, cancelAndATeamWithoutLeaguesWriteNothing)
{
    TempApp app;
    storedLeague();
    addTeam(500, u"Truckers"_s, 3, 1);
    addTeam(501, u"Aces"_s, 1, 1);
    cTeam truckers;
    truckers.load(500);
    frmLeagueTeams lonely;
    lonely.fill(truckers);
    showActive(lonely);
    EXPECT_EQ(child<QTreeWidget>(lonely, u"lvwLeagues"_s)->topLevelItemCount(), 0);
    QTest::mouseClick(child<QPushButton>(lonely, u"cmdOK"_s), Qt::LeftButton);

    cTeam aces;
    aces.load(501);
    frmLeagueTeams form;
    form.fill(aces);
    showActive(form);
    child<QTreeWidget>(form, u"lvwLeagues"_s)->topLevelItem(0)->setCheckState(0, Qt::Checked);
    QTest::mouseClick(child<QPushButton>(form, u"cmdCancel"_s), Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(app.count(u"league_teams"_s), 0);
}

} // namespace
