#include "reports/report_tags.h"
#include "support/recording_presenter.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(ReportTags, aColourOfZeroLeavesTheAttributeOutOfEveryTag)
{
    EXPECT_EQ(styleBlock(u"#0000FF"_s, u"#800080"_s, u"#FF0000"_s),
              u"<STYLE>A {color: '#0000FF'}A:visited {color: '#800080'}A:hover {color: '#FF0000'}</STYLE>"_s);
    EXPECT_EQ(styleBlock(u"0"_s, u"#800080"_s, u"0"_s), u"<STYLE>A:visited {color: '#800080'}</STYLE>"_s);
    EXPECT_EQ(styleBlock(u"0"_s, u"0"_s, u"0"_s), u"<STYLE></STYLE>"_s);

    EXPECT_EQ(bodyTag(u"#FFFFFF"_s, u"back.gif"_s), u"<BODY bgcolor = '#FFFFFF' background='back.gif'>"_s);
    EXPECT_EQ(bodyTag(u"0"_s, u"back.gif"_s), u"<BODY background='back.gif'>"_s);
    EXPECT_EQ(bodyTag(u"0"_s, QString()), u"<BODY>"_s);

    EXPECT_EQ(tableRowTag(u"#C0C0C0"_s), u"<TR bgcolor = '#C0C0C0'>"_s);
    EXPECT_EQ(tableRowTag(u"0"_s), u"<TR>"_s);
    // Only "0" counts as no colour: an empty text still writes the attribute.
    EXPECT_EQ(tableRowTag(QString()), u"<TR bgcolor = ''>"_s);
}

TEST(ReportTags, imagesAndTablesAreWrittenInTheirFixedOrder)
{
    EXPECT_EQ(imageParagraph(u"header.jpg"_s, u"center"_s),
              u"<P align = 'center'><img border='0' src='header.jpg'></P>"_s);
    EXPECT_EQ(imageParagraph(QString(), u"center"_s), QString());
    // Border, spacing, padding, whatever the order of the arguments.
    EXPECT_EQ(tableTag(1, 2, 3), u"<TABLE align=center  border = 1 cellspacing = 3 cellpadding = 2>"_s);
}

TEST(ReportTags, aParagraphBelowSizeOneIsClampedAndTheCallerSeesIt)
{
    int16_t size = 4;
    EXPECT_EQ(textParagraph(size, u"#000080"_s, u"Standings"_s, u"center"_s),
              u"<P align = 'center'><FONT size = '4' color = '#000080'>Standings </FONT></P>"_s);
    EXPECT_EQ(size, 4);

    // A title size of 2 prints its second title (2 - 2) and its status line (2 - 3) at 1.
    for (int16_t smaller : {int16_t(0), int16_t(-1)}) {
        size = smaller;
        EXPECT_EQ(textParagraph(size, u"0"_s, u"Race 3"_s, u"center"_s),
                  u"<P align = 'center'><FONT size = '1'>Race 3 </FONT></P>"_s);
        EXPECT_EQ(size, 1);
    }
}

TEST(ReportTags, cellsShowANonBreakingSpaceForAnEmptyText)
{
    EXPECT_EQ(headerCell(3, u"#FFFFFF"_s, u"Team"_s, u"center"_s, 1, u"nowrap"_s),
              u"<TH nowrap colspan=1 align = 'center'><FONT size = '3' color = '#FFFFFF'>Team </FONT></TH>"_s);
    EXPECT_EQ(headerCell(3, u"0"_s, QString(), u"center"_s, 2, QString()),
              u"<TH  colspan=2 align = 'center'><FONT size = '3'>&nbsp; </FONT></TH>"_s);
    EXPECT_EQ(dataCell(2, u"#000000"_s, u"1,234"_s, u"right"_s, u"1"_s),
              u"<TD colspan=1  align = 'right'><FONT size = '2' color = '#000000'>1,234 </FONT></TD>"_s);
    EXPECT_EQ(dataCell(2, u"0"_s, QString(), u"left"_s, u"3"_s),
              u"<TD colspan=3  align = 'left'><FONT size = '2'>&nbsp; </FONT></TD>"_s);
}

TEST(ReportFileName, numbersAreFourDigitsAndNoneChosenIsThreeNines)
{
    RecordingPresenter rec;
    EXPECT_EQ(reportFileName(u"LS"_s, 1, 3), u"ls00010003.html"_s);
    EXPECT_EQ(reportFileName(u"TD"_s, 1, -1), u"td0001999.html"_s);
    EXPECT_EQ(reportFileName(u"RR"_s, 512), u"rr05120000.html"_s);
    EXPECT_EQ(reportFileName(u"CD"_s, 22767, 0), u"cd27670000.html"_s);
    EXPECT_TRUE(rec.boxes().isEmpty());
}

TEST(ReportFileName, aNumberThatOverflowsTheSumGivesNoNameAndSaysWhy)
{
    RecordingPresenter rec;
    EXPECT_EQ(reportFileName(u"LS"_s, 22768, 1), QString());
    EXPECT_EQ(reportFileName(u"LS"_s, 1, 32767), QString());
    ASSERT_EQ(rec.boxes().size(), 2);
    EXPECT_EQ(rec.boxes()[0].text, u"Error generating report name - Overflow"_s);
    EXPECT_EQ(rec.boxes()[0].title, u"Lapkeeper"_s);
    EXPECT_EQ(rec.boxes()[0].icon, Icon::Critical);
}

} // namespace
