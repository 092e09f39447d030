#include "base/app_globals.h"
#include "golden.h"
#include "report_season.h"
#include "reports/report_entries.h"
#include "reports/team_trades.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

namespace {

void execute(const QString& statement)
{
    ASSERT_TRUE(IDatabase().execute(statement)) << qPrintable(statement);
}

TEST(TeamTradesPages, oneTeamShowsTheDropAndThePickUpSinceThePreviousRace)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    EXPECT_EQ(teamTradesReport(season.league, season.teams[2], season.races[2], false, false, false),
              u"tt05020000.html"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));
    expectGoldenPages(u"team_trades_one_team"_s);

    // Trades are about entries that are no longer, or not yet, in force: showing active entries
    // only changes nothing here.
    const QString shown = reportPage(u"tt05020000.html"_s);
    execute(u"UPDATE report_attributes SET amt = 1 WHERE attribute_nmbr = 21 AND report_nmbr = 11"_s);
    teamTradesReport(season.league, season.teams[2], season.races[2], false, false, false);
    EXPECT_EQ(maskedPage(reportPage(u"tt05020000.html"_s)), maskedPage(shown));
}

TEST(TeamTradesPages, allTeamsGoIntoOneFileAndATeamWithoutTradesKeepsAnEmptyTable)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    runGoldenSetup(u"team_trades_all_teams"_s);
    EXPECT_EQ(teamTradesReport(season.league, -1, season.races[2], false, true, false), u"tt9990000.html"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));
    expectGoldenPages(u"team_trades_all_teams"_s);
}

TEST(TeamTradesPages, separateModeAtTheFirstRaceCountsEveryEntryUpToItsDate)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    cReportRequest request;
    request.leagueNmbr = season.league;
    request.raceNmbr = season.races[0];
    request.allTeams = true;
    request.separate = true;
    // Teams run in the order of their names; the last one's file is the result.
    EXPECT_EQ(runReport(u"TT"_s, request, true), u"tt05000000.html"_s);
    EXPECT_EQ(app.presenter().launches(), (QStringList{gReportsPath + u"/tt05010000.html"_s,
                                                      gReportsPath + u"/tt05020000.html"_s,
                                                      gReportsPath + u"/tt05000000.html"_s}));
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));
    expectGoldenPages(u"team_trades_separate"_s);
}

TEST(TeamTradesPages, countTradesFromTheDayAfterThePreviousRaceThroughRaceDay)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    // Blue Comets' roster around the race of 2026-03-22; the race before was on 2026-03-08.
    const QString entry = u"INSERT INTO team_car SELECT 501, car_nmbr, %1, %2, 0, 0, 1 FROM cars WHERE car_txt = '%3'"_s;
    execute(entry.arg(u"'2026-03-08'"_s, u"NULL"_s, u"2"_s));            // picked up on the previous race day
    execute(entry.arg(u"'2026-03-22'"_s, u"NULL"_s, u"3"_s));            // picked up on race day
    execute(entry.arg(u"'2026-01-01'"_s, u"'2026-03-08'"_s, u"11"_s));   // dropped on the previous race day
    execute(entry.arg(u"'2026-01-01'"_s, u"'2026-03-22'"_s, u"24"_s));   // dropped on race day
    execute(entry.arg(u"'2026-03-23'"_s, u"NULL"_s, u"48"_s));           // picked up after the race
    execute(u"DELETE FROM report_columns WHERE report_nmbr = 11"_s);
    execute(u"INSERT INTO report_columns VALUES (11, 2, 1)"_s);

    EXPECT_EQ(teamTradesReport(season.league, season.teams[1], season.races[2], false, false, false),
              u"tt05010000.html"_s);
    EXPECT_EQ(dataCellTexts(reportPage(u"tt05010000.html"_s)), (QStringList{u"3"_s, u"24"_s}));
}

TEST(TeamTradesPages, aTeamWithoutRosterEntriesLeavesAnEmptyFileAndOpensNothing)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    execute(u"INSERT INTO teams (team_nmbr, team_name) VALUES (600, 'Empty Garage')"_s);
    execute(u"INSERT INTO league_teams VALUES (%1, 600)"_s.arg(season.league));

    EXPECT_EQ(teamTradesReport(season.league, 600, season.races[1], true, false, false), QString());
    EXPECT_EQ(reportPage(u"tt06000000.html"_s), QString());
    EXPECT_TRUE(app.presenter().launches().isEmpty());
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));
}

} // namespace
