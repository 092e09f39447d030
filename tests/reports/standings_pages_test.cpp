#include "base/app_globals.h"
#include "golden.h"
#include "reports/league_standings.h"
#include "reports/race_detail.h"
#include "report_season.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

namespace {

TEST(LeagueStandingsPages, showEveryColumnAndWriteTheTeamPagesTheyLinkTo)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    runGoldenSetup(u"standings_all_columns"_s);
    EXPECT_EQ(leagueStandingsReport(season.league, season.races[2], false), u"ls05000502.html"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    expectGoldenPages(u"standings_all_columns"_s);
}

TEST(RaceDetailPages, showEachTeamsRowsWithCarriedAndDidNotQualifyRows)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    EXPECT_EQ(raceDetailReport(season.league, season.races[1], false), u"rd05000501.html"_s);
    EXPECT_EQ(raceDetailReport(season.league, season.races[2], false), u"rd05000502.html"_s);
    EXPECT_EQ(raceDetailReport(season.league, season.races[3], false), u"rd05000503.html"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    expectGoldenPages(u"race_detail"_s);
}

TEST(ReportPages, withoutAttributeRowsHaveNoColoursSizesOfOneAndNoFooter)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    runGoldenSetup(u"no_attributes"_s);
    raceDetailReport(season.league, season.races[0], false);
    expectGoldenPages(u"no_attributes"_s);
}

TEST(ReportPages, skipColumnNumbersTheReportDoesNotKnowInEveryRow)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    runGoldenSetup(u"unknown_columns"_s);
    leagueStandingsReport(season.league, season.races[0], false);
    raceDetailReport(season.league, season.races[1], false);
    expectGoldenPages(u"unknown_columns"_s);
}

} // namespace
