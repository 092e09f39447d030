#include "league/group.h"
#include "league/group_form.h"
#include "league/groups_form.h"
#include "league/league_fixtures.h"
#include "league/race_type.h"
#include "league/race_type_form.h"
#include "league/race_types_form.h"

#include <QCheckBox>
#include <QPushButton>
#include <QTreeWidget>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

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

TEST(GroupList, showsLimitsAndRefusesASystemGroupThenOneInUseThenAsks)
{
    TempApp app;
    seed::run(u"INSERT INTO group_dm VALUES (500, 'Rookies', 2), (501, 'Veterans', -1), (502, 'Zero', 0)"_s);
    seed::car(500, u"24"_s, u"0"_s, u"2"_s);
    seed::car(501, u"3"_s, u"0"_s, u"500"_s);
    frmGroups form;
    form.show();
    auto* list = child<QTreeWidget>(form, u"lvwGroups"_s);
    EXPECT_EQ(rowTexts(list), (QStringList{u"Group A"_s, u"Group B"_s, u"Group C"_s, u"Rookies"_s, u"Veterans"_s,
                                           u"Zero"_s}));
    EXPECT_EQ(rowTexts(list, 1),
              (QStringList{u"No Limit"_s, u"No Limit"_s, u"No Limit"_s, u"2"_s, u"No Limit"_s, u"0"_s}));

    select(list, u"Group B"_s);   // in use too, but the system test comes first
    form.deleteGroup();
    expectLastBox(app, u"Can't delete system generated Group Group B"_s, Icon::None);
    select(list, u"Rookies"_s);
    form.deleteGroup();
    expectLastBox(app,
                  u"At least one Car/Driver is using this Group.\n"
                  u"You must remove Group Rookies from all Cars/Drivers before Group can be deleted."_s);
    EXPECT_EQ(app.count(u"group_dm"_s), 6);

    select(list, u"Veterans"_s);
    app.presenter().queueAnswer(Answer::No);
    form.deleteGroup();
    expectLastBox(app, u"Are you sure you want to delete Group Veterans"_s, Icon::Question, Buttons::YesNoCancel,
                  u"Veterans"_s);
    EXPECT_EQ(app.count(u"group_dm"_s), 6);
    app.presenter().queueAnswer(Answer::Yes);
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_EQ(app.count(u"group_dm"_s, u"WHERE group_nmbr = 501"_s), 0);
    EXPECT_FALSE(rowTexts(list).contains(u"Veterans"_s));

    seed::run(u"DELETE FROM group_dm"_s);   // an empty list deletes nothing but cannot open a group
    frmGroups empty;
    empty.show();
    empty.deleteGroup();
    EXPECT_EQ(app.presenter().boxes().size(), 4);
    EXPECT_THROW(empty.updateGroup(), cRuntimeError);
}

// A race type used by a league and a race: the system test comes first, then the league's, then
// the race's, then the question; teams are not asked.
TEST(RaceTypeList, isSortedByNameAndRefusesInOrderSystemLeagueRaceThenAsks)
{
    TempApp app;
    seed::run(u"INSERT INTO race_type_dm VALUES (500, 'Late Models'), (501, 'Modifieds'), (502, 'Dirt')"_s);
    frmRaceTypes form;
    form.show();
    auto* list = child<QTreeWidget>(form, u"lvwRaceTypes"_s);
    EXPECT_EQ(rowTexts(list), (QStringList{u"Dirt"_s, u"F1"_s, u"Late Models"_s, u"Modifieds"_s, u"Open Wheel"_s,
                                           u"Sports Cars"_s, u"Touring Cars"_s, u"Trucks"_s, u"Winston Cup"_s}));
    select(list, u"Trucks"_s);
    form.deleteRaceType();
    expectLastBox(app, u"Can't delete system generated Race Type Trucks"_s, Icon::None);

    seed::league(500, u"L"_s, u"0"_s, 500);
    seed::race(500, u"2002-02-17"_s, 500);
    seed::team(500, u"T"_s, 500);
    select(list, u"Late Models"_s);
    form.deleteRaceType();
    expectLastBox(app, u"At least one League is using this Race Type.\n"
                       u"You must remove Race Type Late Models from all Leagues before Race Type can be deleted."_s);
    seed::run(u"DELETE FROM leagues"_s);
    form.deleteRaceType();
    expectLastBox(app, u"At least one Race is using this Race Type.\n"
                       u"You must remove Race Type Late Models from all Races before Race Type can be deleted."_s);
    seed::run(u"DELETE FROM races"_s);
    app.presenter().queueAnswer(Answer::Cancel);
    form.deleteRaceType();
    expectLastBox(app, u"Are you sure you want to delete Race Type Late Models"_s, Icon::Question,
                  Buttons::YesNoCancel, u"Late Models"_s);
    EXPECT_EQ(app.count(u"race_type_dm"_s, u"WHERE race_type_nmbr = 500"_s), 1);

    app.presenter().queueAnswer(Answer::Yes);
    child<QPushButton>(form, u"cmdDelete"_s)->click();
    EXPECT_EQ(app.count(u"race_type_dm"_s, u"WHERE race_type_nmbr = 500"_s), 0);
    EXPECT_FALSE(rowTexts(list).contains(u"Late Models"_s));
    EXPECT_EQ(app.presenter().boxes().size(), 5);
}

TEST(GroupScreen, aGroupNeedsANameTextInTheLimitIsRefusedAnEmptyLimitIsNoneAndCancelAlwaysAsks)
{
    TempApp app;
    cGroup group;
    ASSERT_EQ(group.load(1), 1);   // a system group, with no limit
    frmGroup form;
    form.fill(group);
    showActive(form);
    auto* name = child<QLineEdit>(form, u"txtName"_s);
    auto* limit = child<QLineEdit>(form, u"txtMaxNmbr"_s);
    auto* noLimit = child<QCheckBox>(form, u"chkNoLimit"_s);
    EXPECT_TRUE(noLimit->isChecked());
    EXPECT_EQ(limit->text(), QString());
    noLimit->click();   // unchecked it offers a limit of one
    EXPECT_EQ(limit->text(), u"1"_s);
    name->clear();
    EXPECT_FALSE(form.saveGroup());
    expectRefusal(app, u"Name is a required field"_s, u"txtName"_s);

    retype(limit, u"many"_s);
    QTest::keyClick(limit, Qt::Key_Tab);
    expectRefusal(app, u"Invalid Entry"_s, u"txtMaxNmbr"_s);
    EXPECT_EQ(limit->text(), QString());
    QTest::keyClick(limit, Qt::Key_Tab);   // now empty: no limit
    EXPECT_TRUE(noLimit->isChecked());
    EXPECT_EQ(group.maxNmbr(), -1);

    QTest::keyClicks(name, u"Rookies"_s);
    app.presenter().queueAnswer(Answer::Cancel);
    form.reject();
    expectLastBox(app, u"Do you want to save changes"_s, Icon::Question, Buttons::YesNoCancel, u"Rookies"_s);
    EXPECT_TRUE(form.isVisible());
    app.presenter().queueAnswer(Answer::Yes);
    form.reject();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(app.scalar(u"SELECT group_name || '/' || max_nmbr FROM group_dm WHERE group_nmbr = 1"_s),
              u"Rookies/-1"_s);
    EXPECT_EQ(app.presenter().boxes().size(), 4);
}

TEST(RaceTypeScreen, aNameIsRequiredASystemRaceTypeMayBeRenamedAndCancelAsksOnlyWhenChanged)
{
    TempApp app;
    cRaceType raceType;
    raceType.setRaceTypeNmbr(3);
    raceType.setRaceTypeName(u"Trucks"_s);
    frmRaceType form;
    form.fill(raceType);
    form.show();
    form.reject();
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(app.presenter().boxes().isEmpty());

    form.fill(raceType);
    form.show();
    auto* name = child<QLineEdit>(form, u"txtName"_s);
    name->setText(u"   "_s);
    child<QPushButton>(form, u"cmdApply"_s)->click();
    expectLastBox(app, u"Name is a required field"_s);
    name->setText(u"Pickups"_s);
    app.presenter().queueAnswer(Answer::No);
    form.reject();
    expectLastBox(app, u"Do you want to save changes"_s, Icon::Question, Buttons::YesNoCancel, u"Pickups"_s);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(app.scalar(u"SELECT race_type_name FROM race_type_dm WHERE race_type_nmbr = 3"_s), u"Trucks"_s);

    form.fill(raceType);
    form.show();
    name->setText(u"Crafter Trucks"_s);
    child<QPushButton>(form, u"cmdOK"_s)->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(app.scalar(u"SELECT race_type_name FROM race_type_dm WHERE race_type_nmbr = 3"_s),
              u"Crafter Trucks"_s);
}

} // namespace
