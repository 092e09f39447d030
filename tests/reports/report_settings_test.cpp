#include "reports/report_settings.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void run(const QString& sql)
{
    IDatabase db;
    ASSERT_TRUE(db.execute(sql)) << qPrintable(sql);
}

QString columnsOf(int16_t reportNmbr)
{
    cReportColumnsCollection columns;
    columns.load(reportNmbr);
    QStringList numbers;
    for (const cReportColumns& column : columns)
        numbers << QString::number(column.columnNmbr());
    return numbers.join(u',');
}

TEST(ReportAttributeGetters, giveTheDefaultOfTheirKindWhenNoRowMatches)
{
    TempApp app;
    run(u"DELETE FROM report_attributes WHERE report_nmbr = 2"_s);
    cReportAttributesCollection look;
    EXPECT_EQ(look.linkColor(u"LS"_s), u"0"_s);
    EXPECT_EQ(look.VisitedlinkColor(u"LS"_s), u"0"_s);
    EXPECT_EQ(look.HoverlinkColor(u"LS"_s), u"0"_s);
    EXPECT_EQ(look.borderSize(u"LS"_s), u"0"_s);
    EXPECT_EQ(look.titleTextSize(u"LS"_s), u"0"_s);
    EXPECT_EQ(look.headingBackColor(u"LS"_s), QString());
    EXPECT_EQ(look.backColor(u"LS"_s), QString());
    EXPECT_EQ(look.headerImage(u"LS"_s), QString());
    EXPECT_FALSE(look.includeFooter(u"LS"_s));
    EXPECT_FALSE(look.includeActiveOnly(u"LS"_s));

    // An empty collection loads again at every getter, so rows stored meanwhile are seen.
    run(u"INSERT INTO report_attributes VALUES (2, 9, 4, NULL)"_s);
    EXPECT_EQ(look.borderSize(u"LS"_s), u"4"_s);
    EXPECT_EQ(look.Count(), 1);
}

TEST(ReportAttributeGetters, readColoursByCodeNumbersByValueAndTheFirstRowWins)
{
    TempApp app;
    cReportAttributesCollection look;
    EXPECT_EQ(look.headingBackColor(u"LS"_s), u"#ADD8E6"_s);
    EXPECT_EQ(look.titleTextSize(u"LS"_s), u"6"_s);
    EXPECT_TRUE(look.includeFooter(u"LS"_s));
    const int loaded = look.Count();
    run(u"INSERT INTO report_attributes VALUES (2, 15, 7, NULL)"_s);
    EXPECT_EQ(look.titleTextSize(u"LS"_s), u"6"_s);   // loaded once, kept for the run
    EXPECT_EQ(look.Count(), loaded);

    cReportAttributesCollection fresh;
    EXPECT_EQ(fresh.titleTextSize(u"LS"_s), u"6"_s);   // the older row comes first
    // Two reports never mix, and a colour number missing from the colours reads as no code.
    run(u"UPDATE report_attributes SET amt = 99 WHERE report_nmbr = 1 AND attribute_nmbr = 8"_s);
    cReportAttributesCollection other;
    EXPECT_EQ(other.backColor(u"RD"_s), QString());
    EXPECT_EQ(fresh.backColor(u"LS"_s), u"#FFFFFF"_s);
    // A flag is true only for the value 1.
    run(u"UPDATE report_attributes SET amt = 2 WHERE report_nmbr = 1 AND attribute_nmbr = 22"_s);
    EXPECT_FALSE(cReportAttributesCollection().includeFooter(u"RD"_s));
}

TEST(ReportAttributeRows, storeNoValueAndNoTextAsNullAndBreakOnAQuoteInTheText)
{
    TempApp app;
    cReportAttributes image;
    image.setReportNmbr(3);
    image.setAttributeNmbr(19);
    image.setText(u"images/logo.png"_s);
    EXPECT_TRUE(image.insertRow());
    EXPECT_EQ(app.scalar(u"SELECT amt FROM report_attributes WHERE report_nmbr = 3 AND attribute_nmbr = 19 "
                         u"AND string_value IS NOT NULL"_s),
              u"<null>"_s);

    cReportAttributes color;
    color.setReportNmbr(3);
    color.setAttributeNmbr(1);
    color.setDefault();
    EXPECT_TRUE(color.isDefault());
    EXPECT_TRUE(color.isColor());
    EXPECT_TRUE(color.insertRow());
    EXPECT_EQ(app.count(u"report_attributes"_s, u"WHERE report_nmbr = 3 AND attribute_nmbr = 1 AND amt IS NULL "
                                                u"AND string_value IS NULL"_s),
              1);

    cReportAttributes quoted;
    quoted.setReportNmbr(3);
    quoted.setAttributeNmbr(20);
    quoted.setText(u"O'Brien.png"_s);
    EXPECT_FALSE(quoted.insertRow());
    ASSERT_EQ(app.presenter().boxes().size(), 1) << qPrintable(app.presenter().boxTexts().join(u'|'));
    EXPECT_TRUE(app.presenter().boxes()[0].text.startsWith(u"Error = "_s));
    EXPECT_EQ(app.count(u"report_attributes"_s, u"WHERE report_nmbr = 3 AND attribute_nmbr = 19"_s), 2);
}

TEST(ReportColumnLists, replaceAReportsColumnsWholeOrNotAtAll)
{
    TempApp app;
    EXPECT_EQ(columnsOf(2), u"13,33,34,14,15,16,17,21,9,22"_s);

    cReportColumnsCollection none;
    EXPECT_FALSE(none.insertReportColumns());
    EXPECT_EQ(columnsOf(2), u"13,33,34,14,15,16,17,21,9,22"_s);

    cReportColumnsCollection chosen;
    chosen.Add(2, 33, 1, {});
    chosen.Add(2, 9, 2, {});
    chosen.Add(2, 13, 3, {});
    EXPECT_TRUE(chosen.insertReportColumns());
    EXPECT_EQ(columnsOf(2), u"33,9,13"_s);

    cAvailableReportColumnsCollection unused;
    unused.loadNotUsed(2);
    EXPECT_EQ(unused.Count(), 10);
    cAvailableReportColumnsCollection all;
    EXPECT_EQ(all.load(2), 13);

    // A refused insert undoes the delete as well.
    run(u"CREATE TRIGGER refuse_77 BEFORE INSERT ON report_columns WHEN NEW.column_nmbr = 77 "
        u"BEGIN SELECT RAISE(ABORT, 'refused'); END"_s);
    cReportColumnsCollection refused;
    refused.Add(2, 14, 1, {});
    refused.Add(2, 77, 2, {});
    EXPECT_FALSE(refused.insertReportColumns());
    EXPECT_EQ(columnsOf(2), u"33,9,13"_s);
    EXPECT_EQ(app.presenter().boxes().size(), 1);
}

TEST(ReportLists, readTheReportsAndTheColoursWithAndWithoutTheDefault)
{
    TempApp app;
    cReportsCollection reports;
    EXPECT_EQ(reports.load(), 14);
    cReportsCollection one;
    ASSERT_EQ(one.load(u"'TR'"_s), 1);
    EXPECT_EQ(one.Item(1).reportName(), u"Team Race Detail"_s);
    EXPECT_EQ(one.Item(1).fileHandle(), 7);

    run(u"INSERT INTO color_dm VALUES (500, 'Unnamed', NULL)"_s);
    cColorCollection colors;
    cColorCollection chosen;
    EXPECT_EQ(colors.load(), chosen.loadNoDefault() + 1);
    EXPECT_EQ(colors.Item(1).ColorCd(), u"0"_s);
    EXPECT_EQ(chosen.Item(chosen.Count()).ColorCd(), QString());
}

} // namespace
