#include "base/app_globals.h"
#include "golden.h"
#include "report_season.h"
#include "reports/league_race_standings.h"
#include "reports/league_race_summary.h"
#include "reports/race_results.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

namespace {

void expectOneInformationBox(const RecordingPresenter& presenter, const QString& text)
{
    ASSERT_EQ(presenter.boxes().size(), 1) << qPrintable(presenter.boxTexts().join(u'\n'));
    EXPECT_EQ(presenter.boxes()[0].text, text);
    EXPECT_EQ(presenter.boxes()[0].title, u"Lapkeeper"_s);
    EXPECT_EQ(presenter.boxes()[0].icon, Icon::Information);
}

TEST(LeagueRaceStandingsPages, showEachTeamsSumsOfTheRaceAndWriteTheTeamPagesTheyLinkTo)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    runGoldenSetup(u"league_race_standings"_s);
    EXPECT_EQ(leagueRaceStandingsReport(season.league, season.races[1], false), u"rs05000501.html"_s);
    // A qualifying race says so under its title; the team pages are now those of this race.
    EXPECT_EQ(leagueRaceStandingsReport(season.league, season.races[3], false), u"rs05000503.html"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));
    EXPECT_TRUE(app.presenter().launches().isEmpty());
    EXPECT_EQ(app.presenter().statusTexts().last(), QString());
    EXPECT_EQ(app.presenter().pointers().last(), 0);
    expectGoldenPages(u"league_race_standings"_s);
}

TEST(LeagueRaceStandingsPages, aRaceTheLeagueHasNoRowsForWritesNothingAndSaysSoOnlyWhenLaunched)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    EXPECT_EQ(leagueRaceStandingsReport(season.league, season.otherRace, false), QString());
    EXPECT_TRUE(app.presenter().boxes().isEmpty());

    EXPECT_EQ(leagueRaceStandingsReport(season.league, season.otherRace, true), QString());
    expectOneInformationBox(app.presenter(), u"Results not posted for this Race."_s);
    EXPECT_TRUE(reportPages().isEmpty());
    EXPECT_TRUE(app.presenter().launches().isEmpty());
}

TEST(LeagueRaceSummaryPages, gridEveryTeamByEveryRaceAndRewriteTheRaceAndTeamPages)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    runGoldenSetup(u"league_race_summary"_s);
    EXPECT_EQ(leagueRaceSummaryReport(season.league, true), u"lr05000000.html"_s);
    // Only the grid opens; the pages it links to are written without opening.
    EXPECT_EQ(app.presenter().launches(), QStringList{gReportsPath + u"/lr05000000.html"_s});
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));
    // The late team's Team Cars page has no rows and stays empty; its links point at nothing.
    EXPECT_EQ(reportPage(u"tc06000000.html"_s), QString());
    EXPECT_TRUE(reportPage(u"lr05000000.html"_s).contains(u"<A HREF=''>Late Starters </A> "_s));
    expectGoldenPages(u"league_race_summary"_s);
}

TEST(LeagueRaceSummaryPages, aLeagueWithoutPostedRowsLeavesItsFileEmpty)
{
    TempApp app;
    buildReportSeason();
    ASSERT_TRUE(IDatabase().execute(u"INSERT INTO leagues VALUES (600, 'Quiet League', 'Q', 1, 1, 500, 0, 0, 1)"_s));

    EXPECT_EQ(leagueRaceSummaryReport(600, false), QString());
    EXPECT_TRUE(app.presenter().boxes().isEmpty());

    EXPECT_EQ(leagueRaceSummaryReport(600, true), QString());
    expectOneInformationBox(app.presenter(), u"Results not posted for this Race."_s);
    EXPECT_EQ(reportPages(), QStringList{u"lr06000000.html"_s});
    EXPECT_EQ(reportPage(u"lr06000000.html"_s), QString());
    EXPECT_TRUE(app.presenter().launches().isEmpty());
    EXPECT_EQ(app.presenter().pointers().last(), 0);
}

TEST(RaceResultsPages, showTheFinishingOrderWithDidNotQualifyAndTheStatusLine)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    EXPECT_EQ(raceResultsReport(season.races[1], false), u"rr05010000.html"_s);
    EXPECT_EQ(raceResultsReport(season.races[3], false), u"rr05030000.html"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));
    expectGoldenPages(u"race_results"_s);
}

TEST(RaceResultsPages, aRaceWithoutResultsWritesNothingAndSaysNothing)
{
    TempApp app;
    buildReportSeason();
    ASSERT_TRUE(IDatabase().execute(u"INSERT INTO races VALUES (600, 'Rained Out', 'Track', '2026-04-05', 1, 1, 2)"_s));

    EXPECT_EQ(raceResultsReport(600, true), QString());
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));
    EXPECT_TRUE(app.presenter().launches().isEmpty());
    EXPECT_TRUE(reportPages().isEmpty());
    EXPECT_EQ(app.presenter().statusTexts().last(), QString());
}

} // namespace
