#include "league/car_type.h"
#include "league/group.h"
#include "league/race_type.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void run(const QString& statement)
{
    IDatabase db;
    ASSERT_TRUE(db.execute(statement)) << qPrintable(statement);
}

template <class F>
QString raisedError(F&& call)
{
    try {
        call();
    } catch (const cRuntimeError& error) {
        return error.description();
    }
    return {};
}

cRaceType newRaceType(const QString& name)
{
    cRaceType raceType;
    raceType.setRaceTypeName(name);
    return raceType;
}

// ---- race types: the model record ----

TEST(RaceType, operatorRowsAreNumberedFrom500AndATopKeyDeletedIsUsedAgain)
{
    TempApp app;
    cRaceType first = newRaceType(u"Late Models"_s);
    ASSERT_TRUE(first.CommitChanges());
    EXPECT_EQ(first.raceTypeNmbr(), 500);
    cRaceType second = newRaceType(u"Modifieds"_s);
    ASSERT_TRUE(second.CommitChanges());
    EXPECT_EQ(second.raceTypeNmbr(), 501);

    ASSERT_TRUE(second.deleteRow());
    EXPECT_EQ(app.count(u"race_type_dm"_s, u"WHERE race_type_nmbr = 501"_s), 0);
    cRaceType third = newRaceType(u"Sprint Cars"_s);
    ASSERT_TRUE(third.CommitChanges());
    EXPECT_EQ(third.raceTypeNmbr(), 501);
    EXPECT_EQ(app.scalar(u"SELECT race_type_name FROM race_type_dm WHERE race_type_nmbr = 501"_s), u"Sprint Cars"_s);
}

TEST(RaceType, aTableWhoseTopIs507Gives508)
{
    TempApp app;
    run(u"INSERT INTO race_type_dm VALUES (507, 'Imported')"_s);
    cRaceType raceType = newRaceType(u"Next"_s);
    ASSERT_TRUE(raceType.CommitChanges());
    EXPECT_EQ(raceType.raceTypeNmbr(), 508);
}

TEST(RaceType, anInsertPastKey32767OverflowsAndWritesNothing)
{
    TempApp app;
    run(u"INSERT INTO race_type_dm VALUES (32767, 'Last')"_s);
    const int before = app.count(u"race_type_dm"_s);
    cRaceType raceType = newRaceType(u"One Too Many"_s);
    EXPECT_EQ(raisedError([&] { raceType.CommitChanges(); }), u"Overflow"_s);
    EXPECT_EQ(app.count(u"race_type_dm"_s), before);
}

class RaceTypeWithNewKey : public ::testing::TestWithParam<int> {};

TEST_P(RaceTypeWithNewKey, isInsertedByCommitChanges)
{
    TempApp app;
    cRaceType raceType = newRaceType(u"Dirt"_s);
    raceType.setRaceTypeNmbr(static_cast<int16_t>(GetParam()));
    ASSERT_TRUE(raceType.CommitChanges());
    EXPECT_EQ(raceType.raceTypeNmbr(), 500);
    EXPECT_EQ(app.count(u"race_type_dm"_s, u"WHERE race_type_name = 'Dirt'"_s), 1);
}

INSTANTIATE_TEST_SUITE_P(KeysBelowOne, RaceTypeWithNewKey, ::testing::Values(0, -1, -500));

TEST(RaceType, aKeyOfOneOrMoreIsUpdatedEvenWhenTheRowIsMissing)
{
    TempApp app;
    cRaceType existing = newRaceType(u"Cup Series"_s);
    existing.setRaceTypeNmbr(1);
    ASSERT_TRUE(existing.CommitChanges());
    EXPECT_EQ(app.scalar(u"SELECT race_type_name FROM race_type_dm WHERE race_type_nmbr = 1"_s), u"Cup Series"_s);

    const int before = app.count(u"race_type_dm"_s);
    cRaceType missing = newRaceType(u"Nowhere"_s);
    missing.setRaceTypeNmbr(777);
    EXPECT_TRUE(missing.CommitChanges());
    EXPECT_EQ(missing.raceTypeNmbr(), 777);
    EXPECT_EQ(app.count(u"race_type_dm"_s), before);
    EXPECT_EQ(app.count(u"race_type_dm"_s, u"WHERE race_type_name = 'Nowhere'"_s), 0);
}

TEST(RaceType, aNameWithApostrophesIsStoredWholeAndReadBack)
{
    TempApp app;
    cRaceType raceType = newRaceType(u"O'Reilly's 'Cup'"_s);
    ASSERT_TRUE(raceType.CommitChanges());
    raceType.setRaceTypeName(u"Bob's"_s);
    ASSERT_TRUE(raceType.CommitChanges());

    cRaceTypeCollection list;
    list.load();
    EXPECT_EQ(list.getRaceTypeName(500), u"Bob's"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());

    cRaceType other = newRaceType(u"'"_s);
    ASSERT_TRUE(other.CommitChanges());
    EXPECT_EQ(app.scalar(u"SELECT race_type_name FROM race_type_dm WHERE race_type_nmbr = 501"_s), u"'"_s);
}

TEST(RaceType, aSavedWorkingCopyUpdatesTheSameRowAndLeavesTheOriginal)
{
    TempApp app;
    cRaceTypeCollection list;
    list.load();
    cRaceType& original = list.Item(6);
    cRaceType working = original.copy();
    EXPECT_EQ(working.raceTypeNmbr(), original.raceTypeNmbr());
    working.setRaceTypeName(u"Formula"_s);
    ASSERT_TRUE(working.CommitChanges());
    EXPECT_EQ(original.raceTypeName(), u"F1"_s);
    EXPECT_EQ(app.scalar(u"SELECT race_type_name FROM race_type_dm WHERE race_type_nmbr = 6"_s), u"Formula"_s);
    EXPECT_EQ(app.count(u"race_type_dm"_s), 6);
}

// ---- race type list ----

TEST(RaceTypeCollection, loadsInTableOrderAndASecondLoadAppendsTheRowsAgain)
{
    TempApp app;
    cRaceTypeCollection list;
    EXPECT_EQ(list.load(), 6);
    EXPECT_EQ(list.Item(1).raceTypeNmbr(), 1);
    EXPECT_EQ(list.Item(6).raceTypeName(), u"F1"_s);
    EXPECT_EQ(list.load(), 12);
    EXPECT_EQ(list.Item(7).raceTypeNmbr(), 1);
    EXPECT_EQ(raisedError([&] { list.Item(13); }), u"Subscript out of range"_s);
    list.Remove(1);
    EXPECT_EQ(list.Count(), 11);
    EXPECT_EQ(app.count(u"race_type_dm"_s), 6);
}

struct LookUp {
    const char* label;
    cVariant value;
    const char16_t* name;
};

void PrintTo(const LookUp& lookUp, std::ostream* out)
{
    *out << lookUp.label;
}

class RaceTypeLookUp : public ::testing::TestWithParam<LookUp> {};

TEST_P(RaceTypeLookUp, findsTheNameOfTheNumberOrNothing)
{
    TempApp app;
    cRaceTypeCollection list;
    EXPECT_EQ(list.getRaceTypeName(GetParam().value), QString::fromUtf16(GetParam().name));
    EXPECT_EQ(list.Count(), 6);
}

INSTANTIATE_TEST_SUITE_P(Values, RaceTypeLookUp,
                         ::testing::Values(LookUp{"number", cVariant(6), u"F1"},
                                           LookUp{"firstNumber", cVariant(1), u"Winston Cup"},
                                           LookUp{"numericText", cVariant(u"2"_s), u"Touring Cars"},
                                           LookUp{"wholeDouble", cVariant(3.0), u"Trucks"},
                                           LookUp{"unknownNumber", cVariant(99), u""},
                                           LookUp{"emptyText", cVariant(QString()), u""},
                                           LookUp{"nameText", cVariant(u"F1"_s), u""},
                                           LookUp{"null", cVariant(), u""}),
                         [](const auto& info) { return std::string(info.param.label); });

TEST(RaceTypeCollection, aLookUpLoadsTheListOnlyOnce)
{
    TempApp app;
    cRaceTypeCollection list;
    EXPECT_EQ(list.getRaceTypeName(500), QString());
    cRaceType added = newRaceType(u"Late Models"_s);
    ASSERT_TRUE(added.CommitChanges());
    EXPECT_EQ(list.getRaceTypeName(500), QString());
    EXPECT_EQ(list.Count(), 6);
    EXPECT_EQ(cRaceTypeCollection().getRaceTypeName(500), u"Late Models"_s);
}

TEST(RaceTypeCollection, aLookUpOnAnEmptyTableLoadsAgainEveryTime)
{
    TempApp app;
    run(u"DELETE FROM race_type_dm"_s);
    cRaceTypeCollection list;
    EXPECT_EQ(list.getRaceTypeName(500), QString());
    cRaceType added = newRaceType(u"Only"_s);
    ASSERT_TRUE(added.CommitChanges());
    EXPECT_EQ(list.getRaceTypeName(500), u"Only"_s);
}

// ---- car types ----

TEST(CarTypeCollection, theNoBonusListHoldsCarAndDriverOnly)
{
    TempApp app;
    cCarTypeCollection all;
    EXPECT_EQ(all.load(), 3);
    cCarTypeCollection choices;
    EXPECT_EQ(choices.loadNoBonus(), 2);
    QList<int> numbers;
    for (const cCarType& carType : choices)
        numbers << carType.carTypeNmbr();
    EXPECT_EQ(numbers, (QList<int>{1, 2}));
    EXPECT_EQ(choices.load(), 5);
}

TEST(CarTypeCollection, aLookUpLoadsAllTypesOnlyWhenTheListIsEmpty)
{
    TempApp app;
    const QString bonusName = app.scalar(u"SELECT car_type_name FROM car_type_dm WHERE car_type_nmbr = 3"_s);
    const QString driverName = app.scalar(u"SELECT car_type_name FROM car_type_dm WHERE car_type_nmbr = 2"_s);
    ASSERT_FALSE(bonusName.isEmpty());

    cCarTypeCollection all;
    EXPECT_EQ(all.getCarTypeName(3), bonusName);
    EXPECT_EQ(all.getCarTypeName(4), QString());
    EXPECT_EQ(all.Count(), 3);

    cCarTypeCollection choices;
    choices.loadNoBonus();
    EXPECT_EQ(choices.getCarTypeName(2), driverName);
    EXPECT_EQ(choices.getCarTypeName(3), QString());
    EXPECT_EQ(choices.Count(), 2);
}

// ---- groups ----

TEST(Group, insertUpdateAndDeleteKeepNameAndLimit)
{
    TempApp app;
    cGroup group;
    group.setGroupName(u"Rookies' Group"_s);
    group.setMaxNmbr(2);
    ASSERT_TRUE(group.CommitChanges());
    EXPECT_EQ(group.groupNmbr(), 500);

    cGroup read;
    EXPECT_EQ(read.load(500), 1);
    EXPECT_EQ(read.groupNmbr(), 500);
    EXPECT_EQ(read.groupName(), u"Rookies' Group"_s);
    EXPECT_EQ(read.maxNmbr(), 2);

    read.setMaxNmbr(-1);
    read.setGroupName(u"Open"_s);
    ASSERT_TRUE(read.CommitChanges());
    EXPECT_EQ(app.scalar(u"SELECT group_name || ':' || max_nmbr FROM group_dm WHERE group_nmbr = 500"_s), u"Open:-1"_s);

    cGroup working = read.copy();
    ASSERT_TRUE(working.deleteRow());
    EXPECT_EQ(app.count(u"group_dm"_s), 3);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

TEST(Group, aGroupNotFoundBecomesNoGroupWithNoLimitAndKeepsItsName)
{
    TempApp app;
    cGroup group;
    group.setGroupName(u"Kept"_s);
    group.setGroupNmbr(2);
    group.setMaxNmbr(4);
    EXPECT_EQ(group.load(-1), 0);
    EXPECT_EQ(group.groupNmbr(), -1);
    EXPECT_EQ(group.maxNmbr(), -1);
    EXPECT_EQ(group.groupName(), u"Kept"_s);
}

TEST(Group, aNullLimitIsNoLimitInTheListButAnErrorForTheRecord)
{
    TempApp app;
    run(u"UPDATE group_dm SET max_nmbr = NULL WHERE group_nmbr = 2"_s);
    run(u"UPDATE group_dm SET max_nmbr = 0 WHERE group_nmbr = 3"_s);
    cGroupCollection list;
    EXPECT_EQ(list.load(), 3);
    EXPECT_EQ(list.Item(2).maxNmbr(), -1);
    EXPECT_EQ(list.Item(3).maxNmbr(), 0);

    cGroup group;
    EXPECT_EQ(raisedError([&] { group.load(2); }), u"Invalid use of Null"_s);
}

TEST(GroupCollection, loadsAppendAndLookUpsLoadOnlyOnce)
{
    TempApp app;
    const QString secondName = app.scalar(u"SELECT group_name FROM group_dm WHERE group_nmbr = 2"_s);
    cGroupCollection list;
    EXPECT_EQ(list.getGroupName(u"2"_s), secondName);
    EXPECT_EQ(list.getGroupName(2), secondName);
    EXPECT_EQ(list.getGroupName(QString()), QString());
    EXPECT_EQ(list.getGroupName(cVariant()), QString());

    cGroup added;
    added.setGroupName(u"Late"_s);
    ASSERT_TRUE(added.CommitChanges());
    EXPECT_EQ(list.getGroupName(500), QString());
    EXPECT_EQ(list.load(), 7);
    EXPECT_EQ(list.getGroupName(500), u"Late"_s);
}

} // namespace
