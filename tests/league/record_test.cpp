#include "league/league_fixtures.h"
#include "league/record.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(StatementValues, textDoublesApostrophesAndDatesAreQuotedHashedOrNull)
{
    TempApp app;
    EXPECT_EQ(sqlText(u"O'Brien's \"Cup\" #1 % _ ;"_s), u"O''Brien''s \"Cup\" #1 % _ ;"_s);
    EXPECT_EQ(sqlDate(QDate(2002, 3, 7)), u"'2002-03-07'"_s);
    EXPECT_EQ(sqlDateLiteral(QDate(2002, 3, 7)), u"#2002-03-07#"_s);
    EXPECT_EQ(sqlDate(QDate()), u"NULL"_s);
    EXPECT_EQ(sqlDateLiteral(QDate()), u"NULL"_s);

    // A stored date is found by the compared form; an absent one is stored as Null.
    seed::run(u"INSERT INTO races (race_nmbr, race_dt) VALUES (500, "_s + sqlDate(QDate(2002, 3, 17)) + u")"_s);
    seed::run(u"INSERT INTO races (race_nmbr, race_dt) VALUES (501, "_s + sqlDate(QDate()) + u")"_s);
    EXPECT_EQ(app.count(u"races"_s, u"WHERE race_dt = "_s + sqlDateLiteral(QDate(2002, 3, 17))), 1);
    EXPECT_EQ(app.count(u"races"_s, u"WHERE race_dt <= "_s + sqlDateLiteral(QDate(2002, 3, 16))), 0);
    EXPECT_EQ(app.scalar(u"SELECT race_dt FROM races WHERE race_nmbr = 501"_s), u"<null>"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

// Every table whose key is allocated from its highest row: {table, key column}.
class NextKey : public ::testing::TestWithParam<std::pair<const char16_t*, const char16_t*>> {};

TEST_P(NextKey, startsAt500FollowsTheHighestKeyReusesADeletedTopAndOverflowsAt32767)
{
    TempApp app;
    const QString table = QString::fromUtf16(GetParam().first);
    const QString key = QString::fromUtf16(GetParam().second);
    const auto insertKey = [&](int value) {
        seed::run(u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(table, key).arg(value));
    };
    const auto next = [&] {
        IDatabase db;
        return nextKey(db, table, key);
    };
    seed::run(u"DELETE FROM "_s + table);
    EXPECT_EQ(next(), 500);
    insertKey(1);
    insertKey(499);
    EXPECT_EQ(next(), 500);   // system rows do not count
    insertKey(500);
    EXPECT_EQ(next(), 501);
    insertKey(507);
    EXPECT_EQ(next(), 508);
    seed::run(u"DELETE FROM %1 WHERE %2 = 507"_s.arg(table, key));
    EXPECT_EQ(next(), 501);
    insertKey(32766);
    EXPECT_EQ(next(), 32767);
    insertKey(32767);
    EXPECT_EQ(raisedError([&] { next(); }), u"Overflow"_s);
}

INSTANTIATE_TEST_SUITE_P(AllocatedTables, NextKey,
                         ::testing::Values(std::pair{u"leagues", u"league_nmbr"}, std::pair{u"teams", u"team_nmbr"},
                                           std::pair{u"cars", u"car_nmbr"}, std::pair{u"races", u"race_nmbr"},
                                           std::pair{u"race_type_dm", u"race_type_nmbr"},
                                           std::pair{u"scoring_type", u"scoring_type_nmbr"},
                                           std::pair{u"group_dm", u"group_nmbr"}),
                         [](const auto& tested) { return QString::fromUtf16(tested.param.first).toStdString(); });

// A minimal record and collection built the way every collection is.
struct cToken {
    int16_t tokenNmbr = 0;
};

class cTokenCollection : public tRecordList<cToken> {
public:
    cToken& Add(int16_t tokenNmbr, const QString& sKey = {})
    {
        auto token = std::make_unique<cToken>();
        token->tokenNmbr = tokenNmbr;
        return append(std::move(token), sKey);
    }
};

TEST(RecordList, positionsCountFromOneAndKeysFindTheirRecordWithoutCaseAndMustBeUnique)
{
    cTokenCollection list;
    EXPECT_EQ(raisedError([&] { list.Item(1); }), u"Subscript out of range"_s);
    cToken& first = list.Add(10);
    for (int16_t n = 2; n <= 100; ++n)
        list.Add(static_cast<int16_t>(n * 10), n == 2 ? u"Second"_s : QString());
    EXPECT_EQ(&first, &list.Item(1));   // addresses stay put while the list grows
    EXPECT_EQ(raisedError([&] { list.Item(0); }), u"Subscript out of range"_s);
    EXPECT_EQ(raisedError([&] { list.Remove(101); }), u"Subscript out of range"_s);

    EXPECT_EQ(list.Item(u"SECOND"_s).tokenNmbr, 20);
    EXPECT_FALSE(raisedError([&] { list.Add(4, u"second"_s); }).isEmpty());
    EXPECT_FALSE(raisedError([&] { list.Item(QString()); }).isEmpty());
    list.Remove(u"second"_s);
    EXPECT_FALSE(raisedError([&] { list.Item(u"Second"_s); }).isEmpty());
    EXPECT_EQ(list.Item(2).tokenNmbr, 30);
    for (cToken& token : list)   // iteration reaches the records themselves
        token.tokenNmbr = 1;
    EXPECT_EQ(first.tokenNmbr, 1);
}

} // namespace
