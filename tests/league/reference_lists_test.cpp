#include "league/group.h"
#include "league/league_fixtures.h"
#include "league/race_type.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

cRaceType newRaceType(const QString& name, int16_t number = 0)
{
    cRaceType raceType;
    raceType.setRaceTypeName(name);
    raceType.setRaceTypeNmbr(number);
    return raceType;
}

TEST(RaceType, aKeyBelowOneInsertsAnyOtherKeyUpdatesEvenAMissingRowAndKey32767Overflows)
{
    TempApp app;
    for (int16_t key : {0, -1, -500}) {
        cRaceType raceType = newRaceType(u"O'Reilly's 'Cup'"_s, key);
        ASSERT_TRUE(raceType.CommitChanges());
        EXPECT_EQ(raceType.raceTypeNmbr(), 500);
        EXPECT_EQ(cRaceTypeCollection().getRaceTypeName(500), u"O'Reilly's 'Cup'"_s);
        ASSERT_TRUE(raceType.deleteRow());
    }
    cRaceType missing = newRaceType(u"Nowhere"_s, 777);
    EXPECT_TRUE(missing.CommitChanges());
    EXPECT_EQ(app.count(u"race_type_dm"_s), 6);

    seed::run(u"INSERT INTO race_type_dm VALUES (32767, 'Last')"_s);
    cRaceType tooMany = newRaceType(u"One Too Many"_s);
    EXPECT_EQ(raisedError([&] { tooMany.CommitChanges(); }), u"Overflow"_s);
    EXPECT_EQ(app.count(u"race_type_dm"_s), 7);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

struct LookUp {
    const char* label;
    cVariant value;
    const char16_t* name;
};

void PrintTo(const LookUp& lookUp, std::ostream* out) { *out << lookUp.label; }

class RaceTypeLookUp : public ::testing::TestWithParam<LookUp> {};

TEST_P(RaceTypeLookUp, findsTheNameOfTheNumberOrNothing)
{
    TempApp app;
    cRaceTypeCollection list;
    EXPECT_EQ(list.getRaceTypeName(GetParam().value), QString::fromUtf16(GetParam().name));
}

INSTANTIATE_TEST_SUITE_P(Values, RaceTypeLookUp,
                         ::testing::Values(LookUp{"number", cVariant(6), u"F1"},
                                           LookUp{"numericText", cVariant(u"2"_s), u"Touring Cars"},
                                           LookUp{"wholeDouble", cVariant(3.0), u"Trucks"},
                                           LookUp{"emptyText", cVariant(QString()), u""},
                                           LookUp{"nameText", cVariant(u"F1"_s), u""},
                                           LookUp{"null", cVariant(), u""}),
                         [](const auto& tested) { return std::string(tested.param.label); });

TEST(Group, aGroupNotFoundBecomesNoGroupWithNoLimitAndKeepsItsName)
{
    TempApp app;
    cGroup group;
    group.setGroupName(u"Rookies' Group"_s);
    group.setMaxNmbr(2);
    ASSERT_TRUE(group.CommitChanges());
    ASSERT_TRUE(group.copy().deleteRow());
    EXPECT_EQ(group.load(500), 0);
    EXPECT_EQ(group.groupNmbr(), -1);
    EXPECT_EQ(group.maxNmbr(), -1);
    EXPECT_EQ(group.groupName(), u"Rookies' Group"_s);
}

TEST(Group, aNullLimitIsNoLimitInTheListButAnErrorForTheRecord)
{
    TempApp app;
    seed::run(u"UPDATE group_dm SET max_nmbr = NULL WHERE group_nmbr = 2"_s);
    seed::run(u"UPDATE group_dm SET max_nmbr = 0 WHERE group_nmbr = 3"_s);
    cGroupCollection list;
    EXPECT_EQ(list.getGroupName(u"2"_s), app.scalar(u"SELECT group_name FROM group_dm WHERE group_nmbr = 2"_s));
    EXPECT_EQ(list.getGroupName(cVariant()), QString());
    EXPECT_EQ(list.Item(2).maxNmbr(), -1);
    EXPECT_EQ(list.Item(3).maxNmbr(), 0);

    cGroup group;
    EXPECT_EQ(raisedError([&] { group.load(2); }), u"Invalid use of Null"_s);
}

} // namespace
