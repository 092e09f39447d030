#include "store/connection.h"
#include "support/temp_app.h"

#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// The first column of every row of a statement, as numbers.
QList<int> numbers(const QString& sql)
{
    QList<int> result;
    IDatabase db;
    EXPECT_TRUE(db.OpenResultSet(sql)) << qPrintable(sql);
    while (!db.eof()) {
        result << db.value(0).toInt32();
        db.MoveNext();
    }
    return result;
}

QSet<int> asSet(const QList<int>& list)
{
    return QSet<int>(list.begin(), list.end());
}

// Relative luminance of an HTML colour "#RRGGBB", for the contrast ratio of text on a background.
double luminance(const QString& code)
{
    auto channel = [&](int at) {
        const double c = code.mid(at, 2).toInt(nullptr, 16) / 255.0;
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * channel(1) + 0.7152 * channel(3) + 0.0722 * channel(5);
}

double contrast(const QString& a, const QString& b)
{
    const double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

// The columns each report knows, by its id; League Race Summary's columns are its races.
const QMap<QString, QSet<int>>& knownColumns()
{
    static const QMap<QString, QSet<int>> known{
        {u"RD"_s, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 31, 32, 35}},
        {u"LS"_s, {9, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 33, 34}},
        {u"TC"_s, {2, 3, 5, 10, 11, 12, 38, 39, 40}},
        {u"LR"_s, {}},
        {u"TD"_s, {2, 3, 4, 5, 6, 7, 9, 21, 22, 31, 32, 35, 38, 39}},
        {u"RS"_s, {6, 7, 8, 13, 31, 32, 33, 35}},
        {u"TR"_s, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 31, 32, 35}},
        {u"CD"_s, {2, 3, 4, 12, 23, 24, 40}},
        {u"RR"_s, {1, 2, 3, 4, 25, 26, 27}},
        {u"DS"_s, {2, 3, 18, 19, 20, 28, 29, 30, 36, 37}},
        {u"TT"_s, {2, 3, 5, 10, 11, 12, 38, 39, 40}},
        {u"CP"_s, {2, 3, 4, 12, 23, 24}},
        {u"DT"_s, {5, 10, 11, 12, 33, 34, 40}},
        {u"RP"_s, {100, 101, 102, 103, 104, 105, 106, 107, 108, 109, 110, 111}},
    };
    return known;
}

} // namespace

TEST(Seed, everyReportIdIsSeededOnceWithItsNameAndOwnChannel)
{
    TempApp app;
    const QMap<QString, QString> names{
        {u"RD"_s, u"Race Detail"_s},         {u"LS"_s, u"League Standings"_s},
        {u"TC"_s, u"Team Cars"_s},           {u"LR"_s, u"League Race Summary"_s},
        {u"TD"_s, u"Team Detail"_s},         {u"RS"_s, u"League Race Standings"_s},
        {u"TR"_s, u"Team Race Detail"_s},    {u"CD"_s, u"Car Details"_s},
        {u"RR"_s, u"Race Results"_s},        {u"DS"_s, u"Car/Driver Stats"_s},
        {u"TT"_s, u"Team Trades"_s},         {u"CP"_s, u"Car/Driver Picks"_s},
        {u"DT"_s, u"Teams per Car/Driver"_s}, {u"RP"_s, u"Report Package"_s},
    };
    EXPECT_EQ(app.count(u"report"_s), names.size());
    for (auto it = names.cbegin(); it != names.cend(); ++it) {
        const QString where = u"WHERE report_id = '"_s + it.key() + u"'"_s;
        EXPECT_EQ(app.count(u"report"_s, where), 1) << qPrintable(it.key());
        EXPECT_EQ(app.scalar(u"SELECT report_name FROM report "_s + where), it.value());
        const int nmbr = app.scalar(u"SELECT report_nmbr FROM report "_s + where).toInt();
        EXPECT_TRUE(nmbr >= 1 && nmbr < 500) << qPrintable(it.key());
    }
    // Nested reports write at the same time, so no two may share a channel, and 0 means "no report".
    const QList<int> handles = numbers(u"SELECT file_handle FROM report"_s);
    EXPECT_EQ(asSet(handles).size(), handles.size());
    for (int handle : handles)
        EXPECT_GT(handle, 0);
}

TEST(Seed, eachReportOffersItsOwnColumnsAndDefaultsToAnOrderedChoiceOfThem)
{
    TempApp app;
    for (auto it = knownColumns().cbegin(); it != knownColumns().cend(); ++it) {
        const QString id = it.key();
        const QString nmbr = app.scalar(u"SELECT report_nmbr FROM report WHERE report_id = '"_s + id + u"'"_s);
        const QSet<int> available =
            asSet(numbers(u"SELECT column_nmbr FROM available_report_columns WHERE report_nmbr = "_s + nmbr));
        EXPECT_EQ(available, it.value()) << qPrintable(id);

        // The defaults as the report engine reads them: by id, in column order.
        const QList<int> chosen = numbers(u"SELECT A.column_nmbr FROM report_columns A, report B "_s
                                          u"WHERE B.report_id = '"_s + id +
                                          u"' AND A.report_nmbr = B.report_nmbr ORDER BY column_order"_s);
        EXPECT_EQ(chosen.isEmpty(), available.isEmpty()) << qPrintable(id);
        EXPECT_EQ(asSet(chosen).size(), chosen.size()) << qPrintable(id) << ": a column chosen twice";
        for (int column : chosen)
            EXPECT_TRUE(available.contains(column)) << qPrintable(id) << ": default column " << column;
        QList<int> orders = numbers(u"SELECT column_order FROM report_columns WHERE report_nmbr = "_s + nmbr +
                                    u" ORDER BY column_order"_s);
        for (int i = 0; i < orders.size(); ++i)
            EXPECT_EQ(orders[i], i + 1) << qPrintable(id) << ": column orders run 1, 2, 3...";
    }
    // The details screen lists columns through column_dm: every one needs a name, and no two alike.
    EXPECT_EQ(app.count(u"available_report_columns"_s,
                        u"WHERE column_nmbr NOT IN (SELECT column_nmbr FROM column_dm WHERE column_name <> '')"_s),
              0);
    EXPECT_EQ(app.scalar(u"SELECT count(DISTINCT column_name) FROM column_dm"_s).toInt(), app.count(u"column_dm"_s));
    EXPECT_EQ(app.scalar(u"SELECT column_name FROM column_dm WHERE column_nmbr = 33"_s), u"Team Name"_s);
}

TEST(Seed, everyReportHasAWholeReadableLook)
{
    TempApp app;
    // Each report has each of the 22 attributes exactly once; the first row read would win otherwise.
    EXPECT_EQ(app.count(u"report_attributes"_s), 22 * app.count(u"report"_s));
    EXPECT_EQ(app.scalar(u"SELECT count(*) FROM (SELECT DISTINCT report_nmbr, attribute_nmbr FROM report_attributes "_s
                         u"WHERE attribute_nmbr BETWEEN 1 AND 22)"_s)
                  .toInt(),
              22 * app.count(u"report"_s));

    // Colours refer to real colours of color_dm (not the default), as the attribute loader joins them.
    const QString colours = u"attribute_nmbr IN (1, 2, 3, 4, 5, 6, 7, 8, 16, 17, 18)"_s;
    EXPECT_EQ(app.count(u"report_attributes A LEFT JOIN color_dm C ON A.amt = C.color_nmbr"_s,
                        u"WHERE "_s + colours + u" AND (C.color_cd IS NULL OR C.color_cd = '0')"_s),
              0);

    auto amtRange = [&](int attribute, int low, int high) {
        return app.count(u"report_attributes"_s, u"WHERE attribute_nmbr = %1 AND (amt IS NULL OR amt < %2 OR amt > %3)"_s
                                                     .arg(attribute).arg(low).arg(high));
    };
    EXPECT_EQ(amtRange(9, 0, 1), 0) << "border";
    EXPECT_EQ(amtRange(10, 0, 2), 0) << "cell spacing";
    EXPECT_EQ(amtRange(11, 2, 4), 0) << "cell padding";
    for (int size : {12, 13, 14})
        EXPECT_EQ(amtRange(size, 2, 2), 0) << "text size " << size;
    EXPECT_EQ(amtRange(15, 6, 6), 0) << "title size";
    EXPECT_EQ(amtRange(21, 0, 1), 0) << "include active only";
    EXPECT_EQ(amtRange(22, 1, 1), 0) << "include footer";
    EXPECT_EQ(app.count(u"report_attributes"_s, u"WHERE attribute_nmbr IN (19, 20) AND string_value IS NOT NULL"_s), 0);

    // Text stays readable on its background: rows, headings, title, footer and links.
    auto code = [&](const QString& report, int attribute) {
        return app.scalar(u"SELECT C.color_cd FROM report_attributes A, color_dm C, report R "_s
                          u"WHERE A.amt = C.color_nmbr AND A.report_nmbr = R.report_nmbr AND R.report_id = '"_s +
                          report + u"' AND A.attribute_nmbr = "_s + QString::number(attribute));
    };
    const QList<std::pair<int, int>> pairs{{1, 2}, {3, 4}, {5, 6}, {7, 8}, {1, 8}, {16, 8}, {16, 2}, {17, 8}, {17, 2}};
    for (const QString& report : knownColumns().keys())
        for (const auto& [text, back] : pairs)
            EXPECT_GE(contrast(code(report, text), code(report, back)), 4.5)
                << qPrintable(report) << ": attribute " << text << " on " << back;
}

TEST(Seed, deliversTheBaseRowsTheProgramRelies)
{
    TempApp app;
    EXPECT_EQ(asSet(numbers(u"SELECT car_type_nmbr FROM car_type_dm"_s)), (QSet<int>{1, 2, 3}));
    EXPECT_EQ(asSet(numbers(u"SELECT scoring_option_nmbr FROM scoring_option_dm"_s)), (QSet<int>{1, 2}));
    EXPECT_EQ(app.count(u"race_type_dm"_s, u"WHERE race_type_nmbr IN (1, 6) AND race_type_name <> ''"_s), 2);
    EXPECT_GE(app.count(u"race_status_dm"_s), 3);
    EXPECT_EQ(app.count(u"race_status_dm"_s, u"WHERE race_status_nmbr IN (1, 3)"_s), 2);
    EXPECT_EQ(app.scalar(u"SELECT color_cd FROM color_dm WHERE color_nmbr = 0"_s), u"0"_s);
    EXPECT_EQ(numbers(u"SELECT attribute_nmbr FROM attribute_dm ORDER BY attribute_nmbr"_s).size(), 22);
    EXPECT_EQ(app.count(u"attribute_dm"_s, u"WHERE attribute_nmbr BETWEEN 1 AND 22 AND attribute_name <> ''"_s), 22);

    EXPECT_EQ(app.count(u"publish"_s), 1);
    EXPECT_EQ(app.count(u"publish"_s, u"WHERE location IS NULL AND username IS NULL AND password IS NULL"_s), 1);

    // A league needs a scoring method from the start: a system one that pays points by place.
    EXPECT_GE(app.count(u"scoring_type S"_s, u"WHERE S.scoring_type_nmbr < 500 AND EXISTS (SELECT 1 FROM scoring_points P "_s
                                            u"WHERE P.scoring_type_nmbr = S.scoring_type_nmbr AND P.points > 0)"_s),
              1);
    // Delivered rows of the allocated tables lie below 500, the operator's keys above.
    for (const auto& [table, key] : {std::pair{u"race_type_dm"_s, u"race_type_nmbr"_s},
                                     std::pair{u"group_dm"_s, u"group_nmbr"_s},
                                     std::pair{u"scoring_type"_s, u"scoring_type_nmbr"_s},
                                     std::pair{u"report"_s, u"report_nmbr"_s}})
        EXPECT_EQ(app.count(table, u"WHERE "_s + key + u" >= 500"_s), 0) << qPrintable(table);
}

TEST(Seed, aNewDataFileHoldsNoOperatorRows)
{
    TempApp app;
    for (const QString& table : {u"leagues"_s, u"league_teams"_s, u"teams"_s, u"cars"_s, u"team_car"_s, u"races"_s,
                                 u"results"_s, u"team_results"_s, u"team_results_summary"_s, u"race_head_head"_s})
        EXPECT_EQ(app.count(table), 0) << qPrintable(table);
}
