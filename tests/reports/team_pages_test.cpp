#include "base/app_globals.h"
#include "golden.h"
#include "report_season.h"
#include "reports/report_entries.h"
#include "reports/team_cars.h"
#include "reports/team_detail.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

namespace {

QStringList inFolder(const QStringList& names)
{
    QStringList paths;
    for (const QString& name : names)
        paths << gReportsPath + u'/' + name;
    return paths;
}

cReportRequest teamRequest(const ReportSeason& season, int16_t race, bool separate)
{
    cReportRequest request;
    request.leagueNmbr = season.league;
    request.raceNmbr = race;
    request.teamNmbr = -1;
    request.allTeams = true;
    request.separate = separate;
    return request;
}

TEST(TeamCarsPages, oneTeamAsOfARaceLeavesOutTheCarDroppedBeforeIt)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    runGoldenSetup(u"team_cars_one_team"_s);
    EXPECT_EQ(teamCarsReport(season.league, season.teams[2], false, false, false, season.races[2]), u"tc05020000.html"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));
    EXPECT_TRUE(app.presenter().launches().isEmpty());
    expectGoldenPages(u"team_cars_one_team"_s);
}

TEST(TeamCarsPages, allTeamsGoIntoOneFileWithTheirContactLines)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    runGoldenSetup(u"team_cars_all_teams"_s);
    // Without a race nothing is left out, whatever the active-only setting.
    EXPECT_EQ(teamCarsReport(season.league, -1, false, true, false), u"tc9990000.html"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));
    expectGoldenPages(u"team_cars_all_teams"_s);
}

TEST(TeamCarsPages, separateModeWritesAndOpensOneFilePerTeam)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    // Teams run in the order of their names; the last one's file is the result.
    EXPECT_EQ(runReport(u"TC"_s, teamRequest(season, season.races[1], true), true), u"tc05000000.html"_s);
    EXPECT_EQ(app.presenter().launches(),
              inFolder({u"tc05010000.html"_s, u"tc05020000.html"_s, u"tc05000000.html"_s}));
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));
    EXPECT_EQ(app.presenter().statusTexts().last(), QString());
    EXPECT_EQ(app.presenter().pointers().last(), 0);
    expectGoldenPages(u"team_cars_separate"_s);
}

TEST(TeamCarsPages, aTeamWithoutCarsLeavesAnEmptyFileAndOpensNothing)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    ASSERT_TRUE(IDatabase().execute(u"INSERT INTO teams (team_nmbr, team_name) VALUES (600, 'Empty Garage')"_s));
    ASSERT_TRUE(IDatabase().execute(u"INSERT INTO league_teams VALUES (%1, 600)"_s.arg(season.league)));

    EXPECT_EQ(teamCarsReport(season.league, 600, true, false, false, season.races[0]), QString());
    EXPECT_EQ(reportPage(u"tc06000000.html"_s), QString());
    EXPECT_TRUE(app.presenter().launches().isEmpty());
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));

    // In one file of all teams a team without cars has no block at all.
    EXPECT_EQ(teamCarsReport(season.league, -1, false, true, false), u"tc9990000.html"_s);
    EXPECT_FALSE(reportPage(u"tc9990000.html"_s).contains(u"Empty Garage"_s));
    EXPECT_TRUE(reportPage(u"tc9990000.html"_s).contains(u"Green Flags"_s));
}

TEST(TeamDetailPages, oneTeamShowsItsBestCarFirstWithTheSeasonsBonusSums)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    EXPECT_EQ(teamDetailReport(season.league, season.teams[0], season.races[1], false, false, false),
              u"td05000500.html"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));
    expectGoldenPages(u"team_detail_one_team"_s);
}

TEST(TeamDetailPages, allTeamsGoIntoOneFileWithEveryColumnAndTheContactRows)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    runGoldenSetup(u"team_detail_all_teams"_s);
    EXPECT_EQ(teamDetailReport(season.league, -1, season.races[2], false, true, false), u"td0500999.html"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));
    expectGoldenPages(u"team_detail_all_teams"_s);
}

TEST(TeamDetailPages, separateModeWritesAndOpensOneFilePerTeam)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    EXPECT_EQ(runReport(u"TD"_s, teamRequest(season, season.races[3], true), true), u"td05000500.html"_s);
    EXPECT_EQ(app.presenter().launches(),
              inFolder({u"td05000501.html"_s, u"td05000502.html"_s, u"td05000500.html"_s}));
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));
    expectGoldenPages(u"team_detail_separate"_s);
}

TEST(TeamDetailPages, aLowScoreLeagueListsTheLowestTotalFirstAndMeasuresFromIt)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    // Second place now pays more than first: the method counts low scores as best.
    ASSERT_TRUE(IDatabase().execute(u"UPDATE scoring_points SET points = 50 WHERE place = 2"_s));
    ASSERT_TRUE(IDatabase().execute(u"DELETE FROM report_columns WHERE report_nmbr = 5"_s));
    ASSERT_TRUE(IDatabase().execute(u"INSERT INTO report_columns VALUES (5, 2, 1), (5, 9, 2), (5, 22, 3)"_s));

    EXPECT_EQ(teamDetailReport(season.league, season.teams[0], season.races[1], false, false, false),
              u"td05000500.html"_s);
    // Car 3 (31 points) leads car 2 (98 points), which stands 67 points the wrong side of it.
    EXPECT_EQ(dataCellTexts(reportPage(u"td05000500.html"_s)), (QStringList{u"3"_s, u"31"_s, u"0"_s, u"2"_s, u"98"_s, u"-67"_s}));
}

TEST(TeamDetailPages, aRaceWithoutPostedRowsIsToldWhenLaunchedAndWritesNoFile)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    EXPECT_EQ(teamDetailReport(season.league, season.teams[0], season.otherRace, false, false, false), QString());
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));

    EXPECT_EQ(teamDetailReport(season.league, season.teams[0], season.otherRace, true, false, false), QString());
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    EXPECT_EQ(app.presenter().boxes()[0].text, u"Results not posted for this Race."_s);
    EXPECT_EQ(app.presenter().boxes()[0].icon, Icon::Information);
    EXPECT_TRUE(reportPages().isEmpty());
    EXPECT_TRUE(app.presenter().launches().isEmpty());
}

TEST(TeamDetailPages, aSumTooLargeMidPageLeavesThePartialFileUnopenedAndSaysWhy)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    // Car 3 earns 20,000 laps-led points in each of two races: more than the sum can hold.
    ASSERT_TRUE(IDatabase().execute(u"UPDATE team_results SET laps_led_bonus = 20000 WHERE car_nmbr IN "
                                    u"(SELECT car_nmbr FROM cars WHERE car_txt = '3')"_s));

    EXPECT_EQ(teamDetailReport(season.league, season.teams[0], season.races[1], true, false, false), QString());
    EXPECT_EQ(app.presenter().boxTexts(), QStringList{u"Error generating report Overflow"_s});
    EXPECT_EQ(app.presenter().boxes()[0].icon, Icon::Critical);
    EXPECT_TRUE(app.presenter().launches().isEmpty());
    EXPECT_EQ(app.presenter().statusTexts().last(), QString());
    EXPECT_EQ(app.presenter().pointers().last(), 0);

    // Car 2's row stands; car 3's stops before its laps-led cell.
    const QString written = reportPage(u"td05000500.html"_s);
    EXPECT_TRUE(written.contains(u"<STRONG>Red Arrows</STRONG>"_s));
    EXPECT_EQ(dataCellTexts(written).mid(0, 4), (QStringList{u"2"_s, u"Driver 2"_s, u"&nbsp;"_s, u"10"_s}));
    EXPECT_FALSE(written.contains(u"</html>"_s));
    EXPECT_TRUE(written.endsWith(u"Driver 3 </FONT></TD>\n<TD colspan=1  align = 'center'><FONT size = '2' color = '#000000'>&nbsp; </FONT></TD>\n"_s))
        << qPrintable(written.right(200));
}

} // namespace
