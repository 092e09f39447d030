#include "base/app_globals.h"
#include "base/runtime_error.h"
#include "reports/report_files.h"
#include "support/temp_app.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString fileText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : u"<missing>"_s;
}

TEST(ReportTable, holdsTheFourteenReportsWithTheTextsThePagesPrint)
{
    ASSERT_EQ(reportTable().size(), 14u);
    EXPECT_EQ(QString::fromUtf16(reportInfo(u"LS"_s)->statusText), u"Creating League Stangings Report"_s);
    EXPECT_EQ(QString::fromUtf16(reportInfo(u"cp"_s)->title), u" Car Details Report"_s);
    EXPECT_EQ(QString::fromUtf16(reportInfo(u"TC"_s)->title), u"Team Car Report"_s);
    EXPECT_EQ(QString::fromUtf16(reportInfo(u"DS"_s)->statusText), u"Creating Driver Stats Report"_s);
    EXPECT_EQ(reportInfo(u"ZZ"_s), nullptr);
}

TEST(ReportChannel, comesFromTheReportsRowByItsFirstTwoLetters)
{
    TempApp app;
    EXPECT_EQ(reportChannel(u"LS"_s), 2);
    EXPECT_EQ(reportChannel(u"ls"_s), 2);
    EXPECT_EQ(reportChannel(u"TRx"_s), 7);
    EXPECT_EQ(reportChannel(u"ZZ"_s), 0);
    EXPECT_EQ(reportChannel(u"O'"_s), 0);   // a quote in the id is text, not a statement
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

TEST(ReportFiles, aReportInsideAnotherKeepsItsOwnFileOpenBesideTheOuterOne)
{
    TempApp app;
    QDir(gReportsPath).removeRecursively();   // made again at the first report

    const int16_t outer = reportChannel(u"LS"_s);
    const int16_t inner = reportChannel(u"TR"_s);
    openReportFile(outer, u"ls00010003.html"_s);
    writeReportLine(u"<html>"_s, outer);
    openReportFile(inner, u"tr00010005.html"_s);
    writeReportLine(u"<html>"_s, inner);
    EXPECT_NE(reportChannel(), outer);
    EXPECT_NE(reportChannel(), inner);
    writeReportLine(u"<a href='tr00010005.html'>Öhlins</a>"_s, outer);
    closeReportFile(inner);
    writeReportLine(u"</html>"_s, outer);
    closeReportFile(outer);

    EXPECT_EQ(fileText(gReportsPath + u"/ls00010003.html"_s), u"<html>\n<a href='tr00010005.html'>Öhlins</a>\n</html>\n"_s);
    EXPECT_EQ(fileText(gReportsPath + u"/tr00010005.html"_s), u"<html>\n"_s);

    // A later run for the same name starts the file afresh.
    openReportFile(inner, u"tr00010005.html"_s);
    writeReportLine(u"again"_s, inner);
    closeReportFile(inner);
    EXPECT_EQ(fileText(gReportsPath + u"/tr00010005.html"_s), u"again\n"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

TEST(ReportFiles, aFileThatCannotBeMadeIsToldAndTheFirstWriteFails)
{
    TempApp app;
    QDir(gReportsPath).removeRecursively();
    QFile blocker(gReportsPath);   // a file where the folder should be
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();

    openReportFile(9, u"rr05000000.html"_s);
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    EXPECT_TRUE(app.presenter().boxes()[0].text.startsWith(u"Error creating report file - "_s));
    EXPECT_EQ(app.presenter().boxes()[0].icon, Icon::Critical);
    try {
        writeReportLine(u"<html>"_s, 9);
        ADD_FAILURE() << "the write went through";
    } catch (const cRuntimeError& error) {
        EXPECT_EQ(error.description(), u"Bad file name or number"_s);
    }
}

TEST(LaunchReport, opensTheFileOfTheReportFolderAndTellsAFailedLaunch)
{
    TempApp app;
    launchReport(u"ls00010003.html"_s);
    EXPECT_EQ(app.presenter().launches(), QStringList{gReportsPath + u"/ls00010003.html"_s});
    EXPECT_TRUE(app.presenter().boxes().isEmpty());

    app.presenter().setLaunchResult(31);   // no browser for HTML
    launchReport(u"ls00010003.html"_s);
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    EXPECT_TRUE(app.presenter().boxes()[0].text.endsWith(u"NOTE: This maybe caused by having no browser installed."_s));
}

} // namespace
