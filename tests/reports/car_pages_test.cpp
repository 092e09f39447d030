#include "base/app_globals.h"
#include "golden.h"
#include "report_season.h"
#include "reports/car_details.h"
#include "reports/car_picks.h"
#include "reports/driver_stats.h"
#include "reports/report_entries.h"
#include "reports/teams_per_car.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

namespace {

void execute(const QString& statement)
{
    ASSERT_TRUE(IDatabase().execute(statement)) << qPrintable(statement);
}

// A league of a series that has no cars, drivers or races.
int16_t emptyLeague()
{
    execute(u"INSERT INTO leagues VALUES (600, 'Empty Series', 'ES', 2, 1, 500, 0, 0, 1)"_s);
    return 600;
}

void expectNoBoxes(TempApp& app)
{
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));
}

TEST(CarDetailsPages, everyCarAndDriverOfTheSeriesInTheOrderOfTheirNumbers)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    runGoldenSetup(u"car_details"_s);
    EXPECT_EQ(carDetailsReport(season.league, false), u"cd05000000.html"_s);
    expectNoBoxes(app);
    EXPECT_TRUE(app.presenter().launches().isEmpty());
    expectGoldenPages(u"car_details"_s);
}

TEST(CarDetailsPages, aLeagueWithNothingToListLeavesEmptyFilesAndSaysSoOnlyWhenLaunched)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    const int16_t league = emptyLeague();

    EXPECT_EQ(carDetailsReport(league, false), QString());
    EXPECT_EQ(carPicksReport(league, false), QString());
    expectNoBoxes(app);
    EXPECT_EQ(reportPages(), (QStringList{u"cd06000000.html"_s, u"cp06000000.html"_s}));
    EXPECT_EQ(reportPage(u"cd06000000.html"_s), QString());
    EXPECT_EQ(reportPage(u"cp06000000.html"_s), QString());

    EXPECT_EQ(carDetailsReport(league, true), QString());
    // Picks are the cars of the league's Score By: a league scored by drivers in a series of cars
    // has none.
    execute(u"UPDATE leagues SET car_type_nmbr = 2 WHERE league_nmbr = %1"_s.arg(season.league));
    EXPECT_EQ(carPicksReport(season.league, true), QString());
    EXPECT_EQ(reportPage(u"cp05000000.html"_s), QString());
    EXPECT_EQ(app.presenter().boxTexts(), QStringList(2, u"This league has no cars or drivers to report."_s));
    EXPECT_EQ(app.presenter().boxes()[0].icon, Icon::Information);
    EXPECT_TRUE(app.presenter().launches().isEmpty());
    EXPECT_EQ(app.presenter().statusTexts().last(), QString());
    EXPECT_EQ(app.presenter().pointers().last(), 0);
}

TEST(CarPicksPages, groupsComeWithTheirLimitsDearestFirstUnderTheSalaryCap)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    runGoldenSetup(u"car_picks"_s);
    EXPECT_EQ(carPicksReport(season.league, false), u"cp05000000.html"_s);
    expectNoBoxes(app);
    expectGoldenPages(u"car_picks"_s);
}

TEST(CarPicksPages, noSalaryCapParagraphWithoutACap)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    for (const QString& cap : {u"0"_s, u"NULL"_s}) {
        execute(u"UPDATE leagues SET salary_cap = %1 WHERE league_nmbr = %2"_s.arg(cap).arg(season.league));
        carPicksReport(season.league, false);
        const QString written = reportPage(u"cp05000000.html"_s);
        EXPECT_TRUE(written.contains(u"Sunday Cup  "_s)) << qPrintable(cap);
        EXPECT_FALSE(written.contains(u"Salary Cap"_s)) << qPrintable(cap);
    }
}

TEST(DriverStatsPages, seasonFiguresOfEachCarOverTheRacesOfItsSeries)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    EXPECT_EQ(driverStatsReport(season.league, false), u"ds05000000.html"_s);
    expectNoBoxes(app);
    expectGoldenPages(u"driver_stats"_s);
}

TEST(DriverStatsPages, withoutResultsNoFileIsWrittenAndNothingIsSaid)
{
    TempApp app;
    buildReportSeason();
    EXPECT_EQ(driverStatsReport(emptyLeague(), true), QString());
    expectNoBoxes(app);
    EXPECT_TRUE(reportPages().isEmpty());
    EXPECT_TRUE(app.presenter().launches().isEmpty());
    EXPECT_EQ(app.presenter().statusTexts().mid(app.presenter().statusTexts().size() - 2),
              (QStringList{u"Creating Driver Stats Report"_s, QString()}));
    EXPECT_EQ(app.presenter().pointers().last(), 0);
}

TEST(TeamsPerCarPages, activeOnlyShowsTheHoldingsInForceOnTheRaceDay)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    runGoldenSetup(u"teams_per_car_active_only"_s);
    EXPECT_EQ(teamsPerCarDriverReport(season.league, false, season.races[1]), u"dt05000000.html"_s);
    expectNoBoxes(app);
    expectGoldenPages(u"teams_per_car_active_only"_s);
}

TEST(TeamsPerCarPages, withoutActiveOnlyEveryHoldingOfTheLeaguesTeamsShows)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    runGoldenSetup(u"teams_per_car_active_only"_s);
    execute(u"UPDATE report_attributes SET amt = 0 WHERE attribute_nmbr = 21 AND report_nmbr = 13"_s);
    EXPECT_EQ(teamsPerCarDriverReport(season.league, false, season.races[1]), u"dt05000000.html"_s);
    expectNoBoxes(app);
    expectGoldenPages(u"teams_per_car_all_entries"_s);
}

TEST(TeamsPerCarPages, aLeagueScoredByDriversNamesTheDriverFirst)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    execute(u"UPDATE leagues SET car_type_nmbr = 2 WHERE league_nmbr = %1"_s.arg(season.league));
    teamsPerCarDriverReport(season.league, false, season.races[0]);
    const QString written = reportPage(u"dt05000000.html"_s);
    EXPECT_TRUE(written.contains(u">Teams per Driver as of 2026-03-01  Race 500 </FONT>"_s)) << qPrintable(written);
    EXPECT_TRUE(written.contains(u">Driver 11 - 11 </FONT>"_s));
    EXPECT_FALSE(written.contains(u">11 - Driver 11 </FONT>"_s));
}

TEST(TeamsPerCarPages, aRaceBeforeEveryHoldingLeavesAnEmptyFileAndSaysSoWhenLaunched)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    execute(u"INSERT INTO races VALUES (600, 'Winter Race', 'Track', '2025-12-01', 1, 1, 2)"_s);

    EXPECT_EQ(teamsPerCarDriverReport(season.league, false, 600), QString());
    expectNoBoxes(app);
    EXPECT_EQ(teamsPerCarDriverReport(season.league, true, 600), QString());
    EXPECT_EQ(app.presenter().boxTexts(), QStringList{u"No team of this league holds a car or driver at this race."_s});
    EXPECT_EQ(reportPages(), QStringList{u"dt05000000.html"_s});
    EXPECT_EQ(reportPage(u"dt05000000.html"_s), QString());
    EXPECT_TRUE(app.presenter().launches().isEmpty());
}

TEST(CarReportEntries, theRequestScreenRunsEachWithTheLeagueAndTheRaceItAsked)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    cReportRequest request;
    request.leagueNmbr = season.league;
    request.raceNmbr = season.races[0];
    // The race before car 48 joined: its holding is not in force, car 24's still is.
    for (const QString& id : {u"CD"_s, u"CP"_s, u"DS"_s, u"DT"_s})
        EXPECT_EQ(runReport(id, request, true), id.toLower() + u"05000000.html"_s);
    EXPECT_EQ(app.presenter().launches().size(), 4);
    expectNoBoxes(app);
    const QString teams = reportPage(u"dt05000000.html"_s);
    EXPECT_TRUE(teams.contains(u"Teams per Car as of 2026-03-01  Race 500"_s));
    EXPECT_TRUE(teams.contains(u">24 - Driver 24 </FONT>"_s));
    EXPECT_FALSE(teams.contains(u">48 - Driver 48 </FONT>"_s));
    EXPECT_TRUE(reportPage(u"cp05000000.html"_s).startsWith(u"<html>\n<head>\n<title> Car Details Report</title>\n"_s));
}

} // namespace
