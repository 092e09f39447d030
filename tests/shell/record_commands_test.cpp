#include "league/car.h"
#include "league/league.h"
#include "league/team.h"
#include "pane_fixture.h"
#include "racing/race_form.h"
#include "racing/races.h"
#include "racing/scoring_method.h"

#include <QComboBox>
#include <QPushButton>
#include <QTabBar>

using namespace Qt::StringLiterals;

namespace {

QString question(const QString& text, const QString& title)
{
    return title + u" [None/YesNoCancel] "_s + text;
}
QString refusal(const QString& text)
{
    return u"Lapkeeper [Critical/Ok] "_s + text;
}

} // namespace

class RecordCommandTest : public PaneTest {
protected:
    // Runs a command with the answers given and compares every box it showed, in order.
    void expectBoxes(void (*command)(), const QList<Answer>& answers, const QStringList& expected)
    {
        boxes().clear();
        for (Answer answer : answers)
            boxes().queueAnswer(answer);
        command();
        EXPECT_EQ(shownBoxes(boxes()), expected);
    }
    static void summary(int race, int league, int team)
    {
        seed::run(u"INSERT INTO team_results_summary VALUES (%1, %2, %3, 10, 1)"_s.arg(race).arg(league).arg(team));
    }
};

TEST_F(RecordCommandTest, deleteTeamReportsPostingsBeforeMembershipAndOnlyAfterYes)
{
    seed::league(500, u"Alpha"_s, u"0"_s);
    seed::team(500, u"Red Team"_s);
    seed::member(500, 500);
    summary(500, 500, 500);
    seed::car(500, u"12"_s, u"0"_s);
    seed::entry(500, 500, u"2002-01-01"_s, {}, u"0"_s);
    refreshTeams({});
    const QString ask = question(u"Are you sure you want to delete Team?"_s, u"Red Team"_s);

    expectBoxes(deleteTeam, {Answer::Cancel}, {ask});
    expectBoxes(deleteTeam, {Answer::Yes},
                {ask, refusal(u"Results have been posted for this Team.\n"
                              u"You must clear postings for all Races that this Team has been posted too."_s)});
    seed::run(u"DELETE FROM team_results_summary"_s);
    expectBoxes(deleteTeam, {Answer::Yes},
                {ask, refusal(u"Team is a member of at least one League.\n"
                              u"You must remove Team Red Team from all Leagues before team can be deleted."_s)});
    EXPECT_EQ(m_app->count(u"teams"_s), 1);

    seed::run(u"DELETE FROM league_teams"_s);
    expectBoxes(deleteTeam, {Answer::Yes}, {ask});
    EXPECT_EQ(m_app->count(u"teams"_s), 0);
    EXPECT_EQ(m_app->count(u"team_car"_s), 0);
    EXPECT_TRUE(rows(*paneOf(RecordKind::Team)).isEmpty());
}

TEST_F(RecordCommandTest, deleteCarRefusesARosteredCarThenOneWithResults)
{
    seed::team(500, u"Red Team"_s);
    seed::car(500, u"12"_s, u"0"_s);
    seed::entry(500, 500, u"2002-01-01"_s, {}, u"0"_s);
    seed::race(500, u"2002-03-17"_s);
    seed::result(500, 500);
    refreshCars(-1);
    const QString ask = question(u"Are you sure you want to delete Car?"_s, u"12 - Driver 12"_s);

    expectBoxes(deleteCar, {Answer::Yes},
                {ask, refusal(u"Car is a member of at least one Team.\n"
                              u"You must remove Car 12 from all Teams before car can be deleted"_s)});
    seed::run(u"DELETE FROM team_car"_s);
    expectBoxes(deleteCar, {Answer::Yes},
                {ask, refusal(u"Results have been posted for at least one Race for this Car.\n"
                              u"You must clear results for all Races with this Car (12) before Car can be deleted"_s)});
    seed::run(u"DELETE FROM results"_s);
    expectBoxes(deleteCar, {Answer::No}, {ask});
    EXPECT_EQ(m_app->count(u"cars"_s), 1);
    expectBoxes(deleteCar, {Answer::Yes}, {ask});
    EXPECT_EQ(m_app->count(u"cars"_s), 0);
}

TEST_F(RecordCommandTest, deleteRaceAsksASecondTimeOnlyWhenItHasResults)
{
    seed::car(500, u"12"_s, u"0"_s);
    seed::race(500, u"2002-03-17"_s);
    seed::race(501, u"2002-03-24"_s);
    seed::result(500, 500);
    summary(500, 500, 500);
    refreshRaces(u"500"_s);
    const QString ask = question(u"Are you sure you want to delete Race?"_s, u"Race 500"_s);
    const QString again = u"Race 500 [None/YesNo] Results have been posted for this Race.\nDo you want to continue?"_s;

    expectBoxes(deleteRace, {Answer::Yes, Answer::No}, {ask, again});
    EXPECT_EQ(m_app->count(u"races"_s), 2);
    expectBoxes(deleteRace, {Answer::Yes, Answer::Yes}, {ask, again});
    EXPECT_EQ(m_app->count(u"races"_s, u"WHERE race_nmbr = 500"_s), 0);
    EXPECT_EQ(m_app->count(u"results"_s), 0);
    EXPECT_EQ(m_app->count(u"team_results_summary"_s), 0);

    refreshRaces(u"501"_s);
    expectBoxes(deleteRace, {Answer::Yes}, {question(u"Are you sure you want to delete Race?"_s, u"Race 501"_s)});
    EXPECT_EQ(m_app->count(u"races"_s), 0);
}

TEST_F(RecordCommandTest, deleteScoringRefusesASystemMethodBeforeAnyQuestion)
{
    seed::run(u"INSERT INTO scoring_type VALUES (500, 'Club Points', 0, 0, 0), (501, 'Spare', 0, 0, 0)"_s);
    seed::run(u"INSERT INTO scoring_points VALUES (501, 1, 10, 0)"_s);
    seed::league(500, u"Alpha"_s, u"0"_s);
    seed::run(u"UPDATE leagues SET scoring_type_nmbr = 500"_s);

    refreshScoring(u"Standard Points"_s);
    expectBoxes(deleteScoring, {}, {refusal(u"Can't delete system Scoring Method Standard Points."_s)});
    refreshScoring(u"Club Points"_s);
    expectBoxes(deleteScoring, {Answer::Yes},
                {question(u"Are you sure you want to delete Scoring?"_s, u"Club Points"_s),
                 refusal(u"At least one League is using this Scoring Method.\n"
                         u"You must change all Leagues to not refrenceClub Points before Scoring Method can be deleted"_s)});
    refreshScoring(u"Spare"_s);
    expectBoxes(deleteScoring, {Answer::Yes}, {question(u"Are you sure you want to delete Scoring?"_s, u"Spare"_s)});
    EXPECT_EQ(m_app->count(u"scoring_type"_s), 3);
    EXPECT_EQ(m_app->count(u"scoring_points"_s, u"WHERE scoring_type_nmbr = 501"_s), 1);   // the points stay
    EXPECT_EQ(rows(*paneOf(RecordKind::Scoring)).size(), 3);
}

TEST_F(RecordCommandTest, deleteLeagueTakesItsMembersAndPostingsWithIt)
{
    seed::league(500, u"Alpha"_s, u"0"_s);
    seed::team(500, u"Red Team"_s);
    seed::member(500, 500);
    summary(500, 500, 500);
    refreshLeagues(500);
    const QString ask = question(u"Are you sure you want to delete League?"_s, u"Alpha"_s);
    expectBoxes(deleteLeague, {Answer::Cancel}, {ask});
    EXPECT_EQ(m_app->count(u"leagues"_s), 1);
    expectBoxes(deleteLeague, {Answer::Yes}, {ask});
    EXPECT_EQ(m_app->count(u"leagues"_s) + m_app->count(u"league_teams"_s) + m_app->count(u"team_results_summary"_s), 0);
    EXPECT_EQ(m_app->count(u"teams"_s), 1);
}

TEST_F(RecordCommandTest, commandsDoNothingWithoutASelectedRow)
{
    int screens = 0;
    recordScreens() = {[&](cLeague&) { ++screens; }, [&](cTeam&) { ++screens; }, [&](cCar&) { ++screens; },
                       [&](cRaces&) { ++screens; }, [&](cScoringType&) { ++screens; }};
    const RecordKind kinds[] = {RecordKind::League, RecordKind::Team, RecordKind::Car, RecordKind::Race,
                                RecordKind::Scoring};
    // Panes not yet open, then open with nothing selected.
    for (RecordKind kind : kinds) {
        designRecordCommand(kind);
        deleteRecordCommand(kind);
    }
    for (RecordKind kind : kinds) {
        refreshRecordPane(kind);
        paneOf(kind)->list()->clearSelection();
        designRecordCommand(kind);
        deleteRecordCommand(kind);
    }
    EXPECT_EQ(screens, 0);
    EXPECT_TRUE(boxes().boxes().isEmpty());
}

TEST_F(PaneTest, addNewCarOnTheRaceScreenRunsTheNewCarCommandSoTheCarPaneAndTheChooserShowTheCar)
{
    int screens = 0;
    recordScreens().car = [&screens](cCar& car) {
        ++screens;
        car.setCarTxt(u"77"_s);
        car.setRaceTypeNmbr(1);
        car.setCarTypeNmbr(1);
        car.CommitChanges();
    };
    cRaces race;
    race.setRaceName(u"Dayport"_s);
    race.setRaceDate(QDate(2002, 2, 17));
    race.setRaceTypeNmbr(1);
    race.setCarTypeNmbr(1);
    ASSERT_TRUE(race.CommitChanges());

    frmRace form(m_window.get());
    form.fill(race);
    showActive(form);
    auto* bar = child<QTabBar>(form, u"SSTab1"_s);
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
    QTest::mouseClick(child<QPushButton>(form, u"cmdAddNewCar"_s), Qt::LeftButton);
    EXPECT_EQ(screens, 1);
    ASSERT_NE(frmDisplayCars::existing(), nullptr);
    EXPECT_EQ(selected(*frmDisplayCars::existing()), u"77"_s);
    EXPECT_GE(child<QComboBox>(form, u"cmbCarNmbr"_s)->findText(u"77"_s), 0);
    EXPECT_TRUE(boxes().boxes().isEmpty()) << qPrintable(boxes().boxTexts().join(u" / "_s));
    form.hide();
}
