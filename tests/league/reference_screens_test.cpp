#include "league/group.h"
#include "league/group_form.h"
#include "league/groups_form.h"
#include "league/race_type.h"
#include "league/race_type_form.h"
#include "league/race_types_form.h"
#include "support/temp_app.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void run(const QString& statement)
{
    IDatabase db;
    ASSERT_TRUE(db.execute(statement)) << qPrintable(statement);
}

QStringList rowTexts(QTreeWidget* list, int column = 0)
{
    QStringList out;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        out << list->topLevelItem(i)->text(column);
    return out;
}

void select(QTreeWidget* list, const QString& name)
{
    const auto found = list->findItems(name, Qt::MatchExactly, 0);
    ASSERT_EQ(found.size(), 1) << qPrintable(name);
    list->setCurrentItem(found.first());
}

void expectBox(const RecordedBox& box, const QString& text, Icon icon, Buttons buttons = Buttons::Ok,
               const QString& title = u"Lapkeeper"_s)
{
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(box.title, title);
    EXPECT_EQ(box.icon, icon);
    EXPECT_EQ(box.buttons, buttons);
}

// ---- groups ----

class GroupList : public ::testing::Test {
protected:
    void SetUp() override
    {
        run(u"INSERT INTO group_dm VALUES (500, 'Rookies', 2), (501, 'Veterans', -1), (502, 'Zero', 0)"_s);
        form.show();
        list = form.findChild<QTreeWidget*>(u"lvwGroups"_s);
        ASSERT_NE(list, nullptr);
    }
    TempApp app;
    frmGroups form;
    QTreeWidget* list = nullptr;
};

TEST_F(GroupList, showsTheGroupsInTableOrderWithTheirLimits)
{
    EXPECT_EQ(rowTexts(list), (QStringList{u"Group A"_s, u"Group B"_s, u"Group C"_s, u"Rookies"_s, u"Veterans"_s,
                                           u"Zero"_s}));
    EXPECT_EQ(rowTexts(list, 1), (QStringList{u"No Limit"_s, u"No Limit"_s, u"No Limit"_s, u"2"_s, u"No Limit"_s,
                                              u"0"_s}));
    form.refreshList(u"Veterans"_s);
    EXPECT_EQ(list->currentItem()->text(0), u"Veterans"_s);
}

TEST_F(GroupList, aSystemGroupIsRefusedBeforeAnyOtherTest)
{
    run(u"INSERT INTO cars VALUES (500, '24', '', '', '', 'A', 1, 1, 2, 0)"_s);
    select(list, u"Group B"_s);
    form.deleteGroup();
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    expectBox(app.presenter().boxes().constFirst(), u"Can't delete system generated Group Group B"_s, Icon::None);
    EXPECT_EQ(app.count(u"group_dm"_s), 6);
}

TEST_F(GroupList, aGroupInUseIsRefusedAndAFreeOneIsDeletedAfterTheQuestion)
{
    run(u"INSERT INTO cars VALUES (500, '24', '', '', '', 'A', 1, 1, 500, 0)"_s);
    select(list, u"Rookies"_s);
    form.deleteGroup();
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    expectBox(app.presenter().boxes().constFirst(),
              u"At least one Car/Driver is using this Group.\n"
              u"You must remove Group Rookies from all Cars/Drivers before Group can be deleted."_s,
              Icon::Critical);

    select(list, u"Veterans"_s);
    app.presenter().queueAnswer(Answer::No);
    form.deleteGroup();
    expectBox(app.presenter().boxes().constLast(), u"Are you sure you want to delete Group Veterans"_s,
              Icon::Question, Buttons::YesNoCancel, u"Veterans"_s);
    EXPECT_EQ(app.count(u"group_dm"_s, u"WHERE group_nmbr = 501"_s), 1);

    app.presenter().queueAnswer(Answer::Yes);
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_EQ(app.count(u"group_dm"_s, u"WHERE group_nmbr = 501"_s), 0);
    EXPECT_FALSE(rowTexts(list).contains(u"Veterans"_s));
    EXPECT_EQ(list->topLevelItemCount(), 5);
}

TEST_F(GroupList, anEmptyListDeletesNothingButCannotOpenAGroup)
{
    run(u"DELETE FROM group_dm"_s);
    frmGroups empty;
    empty.show();
    empty.deleteGroup();
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    EXPECT_THROW(empty.updateGroup(), cRuntimeError);
}

// ---- race types ----

class RaceTypeList : public ::testing::Test {
protected:
    void SetUp() override
    {
        run(u"INSERT INTO race_type_dm VALUES (500, 'Late Models'), (501, 'Modifieds'), (502, 'Dirt')"_s);
        form.show();
        list = form.findChild<QTreeWidget*>(u"lvwRaceTypes"_s);
        ASSERT_NE(list, nullptr);
    }
    TempApp app;
    frmRaceTypes form;
    QTreeWidget* list = nullptr;
};

TEST_F(RaceTypeList, isSortedByName)
{
    EXPECT_EQ(rowTexts(list), (QStringList{u"Dirt"_s, u"F1"_s, u"Late Models"_s, u"Modifieds"_s, u"Open Wheel"_s,
                                           u"Sports Cars"_s, u"Touring Cars"_s, u"Trucks"_s, u"Winston Cup"_s}));
}

// A race type used by a league and a race: the system test comes first, then the league's, then
// the race's, then the question.
TEST_F(RaceTypeList, refusalsComeInOrderSystemLeagueRaceThenTheQuestion)
{
    select(list, u"Trucks"_s);
    form.deleteRaceType();
    expectBox(app.presenter().boxes().constLast(), u"Can't delete system generated Race Type Trucks"_s, Icon::None);

    run(u"INSERT INTO leagues VALUES (500, 'L', 'L', 500, 1, 1, 0, 0, 1)"_s);
    run(u"INSERT INTO races VALUES (500, 'R', 'T', '2002-02-17', 500, 1, 2)"_s);
    select(list, u"Late Models"_s);
    form.deleteRaceType();
    expectBox(app.presenter().boxes().constLast(),
              u"At least one League is using this Race Type.\n"
              u"You must remove Race Type Late Models from all Leagues before Race Type can be deleted."_s,
              Icon::Critical);

    run(u"DELETE FROM leagues"_s);
    form.deleteRaceType();
    expectBox(app.presenter().boxes().constLast(),
              u"At least one Race is using this Race Type.\n"
              u"You must remove Race Type Late Models from all Races before Race Type can be deleted."_s,
              Icon::Critical);

    run(u"DELETE FROM races"_s);
    run(u"INSERT INTO teams VALUES (500, 'T', '', '', '', 500, 1, '', '', '', '', '')"_s);   // teams are not asked
    app.presenter().queueAnswer(Answer::Cancel);
    form.deleteRaceType();
    expectBox(app.presenter().boxes().constLast(), u"Are you sure you want to delete Race Type Late Models"_s,
              Icon::Question, Buttons::YesNoCancel, u"Late Models"_s);
    EXPECT_EQ(app.count(u"race_type_dm"_s, u"WHERE race_type_nmbr = 500"_s), 1);

    app.presenter().queueAnswer(Answer::Yes);
    form.findChild<QPushButton*>(u"cmdDelete"_s)->click();
    EXPECT_EQ(app.count(u"race_type_dm"_s, u"WHERE race_type_nmbr = 500"_s), 0);
    EXPECT_FALSE(rowTexts(list).contains(u"Late Models"_s));
    EXPECT_EQ(app.presenter().boxes().size(), 5);
}

// ---- the detail screens ----

class GroupScreen : public ::testing::Test {
protected:
    void open(cGroup& group)
    {
        form.fill(group);
        form.show();
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        name = form.findChild<QLineEdit*>(u"txtName"_s);
        limit = form.findChild<QLineEdit*>(u"txtMaxNmbr"_s);
        noLimit = form.findChild<QCheckBox*>(u"chkNoLimit"_s);
        applyButton = form.findChild<QPushButton*>(u"cmdApply"_s);
    }
    TempApp app;
    frmGroup form;
    QLineEdit* name = nullptr;
    QLineEdit* limit = nullptr;
    QCheckBox* noLimit = nullptr;
    QPushButton* applyButton = nullptr;
};

TEST_F(GroupScreen, aNewGroupOpensWithALimitOfZeroAndApplyAlreadyEnabled)
{
    cGroup group;
    open(group);
    EXPECT_EQ(limit->text(), u"0"_s);
    EXPECT_FALSE(noLimit->isChecked());
    EXPECT_TRUE(applyButton->isEnabled());

    EXPECT_FALSE(form.saveGroup());
    expectBox(app.presenter().boxes().constLast(), u"Name is a required field"_s, Icon::Critical);
    EXPECT_EQ(QApplication::focusWidget(), name);

    QTest::keyClicks(name, u"Rookies"_s);
    applyButton->click();
    EXPECT_EQ(group.groupNmbr(), 500);
    EXPECT_EQ(app.scalar(u"SELECT group_name || '/' || max_nmbr FROM group_dm WHERE group_nmbr = 500"_s),
              u"Rookies/0"_s);
    EXPECT_FALSE(applyButton->isEnabled());
}

TEST_F(GroupScreen, noLimitEmptiesTheFieldAndStoresMinusOneAndUncheckingGivesOne)
{
    cGroup group;
    group.setGroupNmbr(1);
    group.setGroupName(u"Group A"_s);
    group.setMaxNmbr(-1);
    open(group);
    EXPECT_EQ(form.windowTitle(), u"Group - Group A"_s);
    EXPECT_TRUE(noLimit->isChecked());
    EXPECT_EQ(limit->text(), QString());

    noLimit->click();
    EXPECT_EQ(limit->text(), u"1"_s);
    EXPECT_EQ(group.maxNmbr(), 1);
    limit->selectAll();
    QTest::keyClicks(limit, u"4"_s);
    EXPECT_EQ(group.maxNmbr(), 4);
    noLimit->click();
    EXPECT_EQ(limit->text(), QString());
    EXPECT_EQ(group.maxNmbr(), -1);

    QTest::keyClicks(limit, u"-3"_s);   // a negative number is stored and means no limit
    EXPECT_FALSE(noLimit->isChecked());
    EXPECT_EQ(group.maxNmbr(), -3);
    ASSERT_TRUE(form.saveGroup());
    EXPECT_EQ(app.scalar(u"SELECT max_nmbr FROM group_dm WHERE group_nmbr = 1"_s), u"-3"_s);
}

TEST_F(GroupScreen, leavingTheLimitRefusesTextAndTakesEmptyAsNoLimit)
{
    cGroup group;
    group.setGroupNmbr(1);
    group.setGroupName(u"Group A"_s);
    group.setMaxNmbr(3);
    open(group);
    limit->setFocus();
    limit->selectAll();
    QTest::keyClicks(limit, u"many"_s);
    EXPECT_EQ(group.maxNmbr(), 3);
    QTest::keyClick(limit, Qt::Key_Tab);
    expectBox(app.presenter().boxes().constLast(), u"Invalid Entry"_s, Icon::Critical);
    EXPECT_EQ(limit->text(), QString());
    EXPECT_EQ(QApplication::focusWidget(), limit);

    QTest::keyClick(limit, Qt::Key_Tab);   // now empty: no limit
    EXPECT_TRUE(noLimit->isChecked());
    EXPECT_EQ(group.maxNmbr(), -1);
    EXPECT_EQ(app.presenter().boxes().size(), 1);
}

TEST_F(GroupScreen, cancelAlwaysAsksAndYesSavesAndCloses)
{
    run(u"UPDATE group_dm SET max_nmbr = 5 WHERE group_nmbr = 2"_s);
    cGroup group;
    ASSERT_EQ(group.load(2), 1);
    open(group);
    app.presenter().queueAnswer(Answer::Cancel);
    form.reject();
    expectBox(app.presenter().boxes().constLast(), u"Do you want to save changes"_s, Icon::Question,
              Buttons::YesNoCancel, u"Group B"_s);
    EXPECT_TRUE(form.isVisible());

    QTest::keyClicks(name, u"+"_s);
    app.presenter().queueAnswer(Answer::Yes);
    form.reject();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(app.scalar(u"SELECT group_name || '/' || max_nmbr FROM group_dm WHERE group_nmbr = 2"_s),
              u"Group B+/5"_s);
}

class RaceTypeScreen : public ::testing::Test {
protected:
    TempApp app;
    frmRaceType form;
};

TEST_F(RaceTypeScreen, aBlankNameIsRequiredAndASystemRaceTypeMayBeRenamed)
{
    cRaceType raceType;
    raceType.setRaceTypeNmbr(3);
    raceType.setRaceTypeName(u"Trucks"_s);
    form.fill(raceType);
    form.show();
    EXPECT_EQ(form.windowTitle(), u"Race Type - Trucks"_s);
    auto* name = form.findChild<QLineEdit*>(u"txtName"_s);
    auto* applyButton = form.findChild<QPushButton*>(u"cmdApply"_s);
    EXPECT_FALSE(applyButton->isEnabled());

    name->setText(u"   "_s);
    EXPECT_TRUE(applyButton->isEnabled());
    applyButton->click();
    expectBox(app.presenter().boxes().constLast(), u"Name is a required field"_s, Icon::Critical);
    EXPECT_TRUE(applyButton->isEnabled());

    name->setText(u"Craftsman Trucks"_s);
    form.findChild<QPushButton*>(u"cmdOK"_s)->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(app.scalar(u"SELECT race_type_name FROM race_type_dm WHERE race_type_nmbr = 3"_s),
              u"Craftsman Trucks"_s);
}

TEST_F(RaceTypeScreen, cancelAsksOnlyWhenChangedAndNoClosesWithoutSaving)
{
    cRaceType raceType;
    raceType.setRaceTypeNmbr(3);
    raceType.setRaceTypeName(u"Trucks"_s);
    form.fill(raceType);
    form.show();
    form.reject();
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(app.presenter().boxes().isEmpty());

    form.fill(raceType);
    form.show();
    form.findChild<QLineEdit*>(u"txtName"_s)->setText(u"Pickups"_s);
    app.presenter().queueAnswer(Answer::No);
    form.reject();
    expectBox(app.presenter().boxes().constLast(), u"Do you want to save changes"_s, Icon::Question,
              Buttons::YesNoCancel, u"Pickups"_s);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(app.scalar(u"SELECT race_type_name FROM race_type_dm WHERE race_type_nmbr = 3"_s), u"Trucks"_s);
}

} // namespace
