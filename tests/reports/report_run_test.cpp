#include "base/app_globals.h"
#include "reports/league_standings.h"
#include "reports/race_detail.h"
#include "report_season.h"
#include "support/temp_app.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

TEST(ReportRun, opensTheWrittenPageInTheBrowserWhenAskedAndNamesItsWorkOnTheStatusBar)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    app.presenter().clear();
    QDir(gReportsPath).removeRecursively();   // made again by the first report

    EXPECT_EQ(leagueStandingsReport(season.league, season.races[0], true), u"ls05000500.html"_s);
    EXPECT_EQ(app.presenter().launches(), QStringList{gReportsPath + u"/ls05000500.html"_s});
    // The team pages are written on the way, each under its own status text, and not opened.
    EXPECT_EQ(app.presenter().statusTexts().first(), u"Creating League Stangings Report"_s);
    EXPECT_TRUE(app.presenter().statusTexts().contains(u"Creating Team Race Detail Report"_s));
    EXPECT_EQ(app.presenter().statusTexts().last(), QString());
    EXPECT_EQ(app.presenter().pointers().first(), 11);
    EXPECT_EQ(app.presenter().pointers().last(), 0);
    EXPECT_TRUE(QFile::exists(gReportsPath + u"/tr05000500.html"_s));
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

TEST(ReportRun, aRaceWithoutPostedRowsForTheLeagueIsToldOnlyWhenLaunched)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    app.presenter().clear();

    EXPECT_EQ(raceDetailReport(season.league, season.otherRace, false), QString());
    EXPECT_EQ(teamRaceDetailReport(season.league, season.teams[0], season.otherRace, false), QString());
    EXPECT_TRUE(app.presenter().boxes().isEmpty());

    EXPECT_EQ(raceDetailReport(season.league, season.otherRace, true), QString());
    ASSERT_EQ(app.presenter().boxTexts(), QStringList{u"Results not posted for this Race."_s});
    EXPECT_EQ(app.presenter().boxes()[0].icon, Icon::Information);
    EXPECT_TRUE(app.presenter().launches().isEmpty());
    EXPECT_TRUE(QDir(gReportsPath).entryList({u"*.html"_s}).isEmpty());
}

TEST(ReportRun, aReportFolderThatCannotBeMadeIsToldTwiceAndNothingIsLaunched)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    app.presenter().clear();
    QFile blocker(app.folder() + u"/not-a-folder"_s);
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    gReportsPath = blocker.fileName() + u"/Reports"_s;

    EXPECT_EQ(raceDetailReport(season.league, season.races[0], true), QString());
    const QStringList boxes = app.presenter().boxTexts();
    ASSERT_EQ(boxes.size(), 2);
    EXPECT_TRUE(boxes[0].startsWith(u"Error creating report file - "_s)) << qPrintable(boxes[0]);
    EXPECT_EQ(boxes[1], u"Error generating report Bad file name or number"_s);
    EXPECT_EQ(app.presenter().boxes()[1].icon, Icon::Critical);
    EXPECT_TRUE(app.presenter().launches().isEmpty());
    EXPECT_EQ(app.presenter().pointers().last(), 0);
    EXPECT_EQ(app.presenter().statusTexts().last(), QString());

    // The program goes on: the next report into a folder that works is written.
    gReportsPath = app.folder() + u"/Reports"_s;
    EXPECT_EQ(raceDetailReport(season.league, season.races[0], false), u"rd05000500.html"_s);
}

TEST(ReportRun, aDiskThatIsFullFailsTheFirstLineThatDoesNotFitAndLaunchesNothing)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    app.presenter().clear();
    QDir().mkpath(gReportsPath);
    ASSERT_TRUE(QFile::link(u"/dev/full"_s, gReportsPath + u"/rd05000500.html"_s));

    EXPECT_EQ(raceDetailReport(season.league, season.races[0], true), QString());
    EXPECT_EQ(app.presenter().boxTexts(), QStringList{u"Error generating report Device I/O error"_s});
    EXPECT_TRUE(app.presenter().launches().isEmpty());
}

TEST(ReportRun, aLeagueNumberPastTheFileNamesRangeIsToldAndWritesNothing)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    app.presenter().clear();
    leagueStandingsReport(30000, season.races[0], true);
    const QStringList boxes = app.presenter().boxTexts();
    ASSERT_FALSE(boxes.isEmpty());
    EXPECT_EQ(boxes[0], u"Error generating report name - Overflow"_s);
    EXPECT_TRUE(app.presenter().launches().isEmpty());
    EXPECT_TRUE(QDir(gReportsPath).entryList({u"*.html"_s}).isEmpty());
}

} // namespace
