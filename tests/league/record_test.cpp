#include "league/record.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void run(const QString& statement)
{
    IDatabase db;
    ASSERT_TRUE(db.execute(statement)) << qPrintable(statement);
}

// The run-time error description a call raises, or "" when it raises none.
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

TEST(StatementValues, apostrophesAreDoubledAndNothingElseIsTouched)
{
    EXPECT_EQ(sqlText(u"O'Brien's \"Cup\""_s), u"O''Brien''s \"Cup\""_s);
    EXPECT_EQ(sqlText(u"''"_s), u"''''"_s);
    EXPECT_EQ(sqlText(u"#1 % _ ;"_s), u"#1 % _ ;"_s);
}

TEST(StatementValues, datesAreQuotedOrHashedShortDatesAndAnAbsentDateIsNull)
{
    EXPECT_EQ(sqlDate(QDate(2002, 3, 7)), u"'2002-03-07'"_s);
    EXPECT_EQ(sqlDateLiteral(QDate(2002, 3, 7)), u"#2002-03-07#"_s);
    EXPECT_EQ(sqlDate(QDate()), u"NULL"_s);
    EXPECT_EQ(sqlDateLiteral(QDate()), u"NULL"_s);
}

TEST(StatementValues, aStoredDateIsFoundByTheComparedDateForm)
{
    TempApp app;
    run(u"INSERT INTO races (race_nmbr, race_dt) VALUES (500, "_s + sqlDate(QDate(2002, 3, 17)) + u")"_s);
    run(u"INSERT INTO races (race_nmbr, race_dt) VALUES (501, "_s + sqlDate(QDate()) + u")"_s);
    EXPECT_EQ(app.count(u"races"_s, u"WHERE race_dt = "_s + sqlDateLiteral(QDate(2002, 3, 17))), 1);
    EXPECT_EQ(app.count(u"races"_s, u"WHERE race_dt <= "_s + sqlDateLiteral(QDate(2002, 3, 16))), 0);
    EXPECT_EQ(app.scalar(u"SELECT race_dt FROM races WHERE race_nmbr = 501"_s), u"<null>"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

// Every table whose key is allocated from its highest row.
struct KeyedTable {
    const char16_t* table;
    const char16_t* key;
};

void PrintTo(const KeyedTable& keyed, std::ostream* out)
{
    *out << QString::fromUtf16(keyed.table).toStdString();
}

class NextKey : public ::testing::TestWithParam<KeyedTable> {
protected:
    QString table() const { return QString::fromUtf16(GetParam().table); }
    QString key() const { return QString::fromUtf16(GetParam().key); }
    void clearTable() { run(u"DELETE FROM "_s + table()); }
    void insertKey(int value)
    {
        run(u"INSERT INTO "_s + table() + u" ("_s + key() + u") VALUES ("_s + QString::number(value) + u")"_s);
    }
    int16_t next()
    {
        IDatabase db;
        return nextKey(db, table(), key());
    }
    TempApp m_app;
};

TEST_P(NextKey, anEmptyTableOrOneWithOnlySystemRowsStartsAt500)
{
    clearTable();
    EXPECT_EQ(next(), 500);
    insertKey(1);
    insertKey(499);
    EXPECT_EQ(next(), 500);
}

TEST_P(NextKey, operatorRowsFollowTheHighestKeyAndATopKeyDeletedIsUsedAgain)
{
    clearTable();
    insertKey(500);
    EXPECT_EQ(next(), 501);
    insertKey(507);
    EXPECT_EQ(next(), 508);
    run(u"DELETE FROM "_s + table() + u" WHERE "_s + key() + u" = 507"_s);
    EXPECT_EQ(next(), 501);
}

TEST_P(NextKey, aTableThatReachedTheTopOfTheKeyRangeOverflows)
{
    insertKey(32766);
    EXPECT_EQ(next(), 32767);
    insertKey(32767);
    EXPECT_EQ(raisedError([&] { next(); }), u"Overflow"_s);
}

INSTANTIATE_TEST_SUITE_P(AllocatedTables, NextKey,
                         ::testing::Values(KeyedTable{u"leagues", u"league_nmbr"}, KeyedTable{u"teams", u"team_nmbr"},
                                           KeyedTable{u"cars", u"car_nmbr"}, KeyedTable{u"races", u"race_nmbr"},
                                           KeyedTable{u"race_type_dm", u"race_type_nmbr"},
                                           KeyedTable{u"scoring_type", u"scoring_type_nmbr"},
                                           KeyedTable{u"group_dm", u"group_nmbr"}),
                         [](const auto& info) { return QString::fromUtf16(info.param.table).toStdString(); });

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

QList<int> numbers(const cTokenCollection& list)
{
    QList<int> out;
    for (const cToken& token : list)
        out << token.tokenNmbr;
    return out;
}

TEST(RecordList, positionsCountFromOneAndOneOutsideTheListIsSubscriptOutOfRange)
{
    cTokenCollection list;
    EXPECT_EQ(raisedError([&] { list.Item(1); }), u"Subscript out of range"_s);
    for (int16_t n : {10, 20, 30})
        list.Add(n);
    EXPECT_EQ(list.Item(1).tokenNmbr, 10);
    EXPECT_EQ(raisedError([&] { list.Item(0); }), u"Subscript out of range"_s);
    EXPECT_EQ(raisedError([&] { list.Item(4); }), u"Subscript out of range"_s);
    EXPECT_EQ(raisedError([&] { list.Remove(4); }), u"Subscript out of range"_s);
    list.Remove(2);
    EXPECT_EQ(numbers(list), (QList<int>{10, 30}));
    EXPECT_EQ(list.Item(2).tokenNmbr, 30);
}

TEST(RecordList, keysFindTheirRecordWithoutCaseAndMustBeUnique)
{
    cTokenCollection list;
    list.Add(1);
    list.Add(2, u"Second"_s);
    list.Add(3, u"third"_s);
    EXPECT_EQ(list.Item(u"SECOND"_s).tokenNmbr, 2);
    EXPECT_FALSE(raisedError([&] { list.Add(4, u"second"_s); }).isEmpty());
    EXPECT_FALSE(raisedError([&] { list.Item(u"fourth"_s); }).isEmpty());
    EXPECT_FALSE(raisedError([&] { list.Item(QString()); }).isEmpty());
    list.Remove(u"second"_s);
    EXPECT_EQ(numbers(list), (QList<int>{1, 3}));
    EXPECT_EQ(list.Item(u"Third"_s).tokenNmbr, 3);
}

TEST(RecordList, iterationReachesTheRecordsThemselvesWhoseAddressesStayPut)
{
    cTokenCollection list;
    cToken& first = list.Add(1);
    for (int16_t n = 2; n <= 100; ++n)
        list.Add(n);
    for (cToken& token : list)
        token.tokenNmbr = static_cast<int16_t>(token.tokenNmbr * 2);
    EXPECT_EQ(&first, &list.Item(1));
    EXPECT_EQ(first.tokenNmbr, 2);
    EXPECT_EQ(list.Item(100).tokenNmbr, 200);
}

} // namespace
