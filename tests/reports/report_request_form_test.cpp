#include "base/app_globals.h"
#include "league/league_fixtures.h"
#include "reports/report_request_form.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QStringList items(const QComboBox* combo)
{
    QStringList texts;
    for (int i = 0; i < combo->count(); ++i)
        texts << combo->itemText(i);
    return texts;
}

void writeFile(const QString& path)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    file.write("x");
}

class ReportRequestScreen : public ::testing::Test {
protected:
    // "Cup League" (500, cars) with the teams Bolts and Aces and three races, the first two with
    // results; "Truck League" (501, race type 6) with the team Movers and one race without results.
    void seedSeason()
    {
        seed::league(500, u"Cup League"_s, u"5000"_s);
        seed::league(501, u"Truck League"_s, u"5000"_s, 6);
        seed::team(500, u"Bolts"_s);
        seed::team(501, u"Aces"_s);
        seed::team(502, u"Movers"_s, 6);
        seed::member(500, 500);
        seed::member(500, 501);
        seed::member(501, 502);
        seed::car(500, u"7"_s, u"100"_s);
        seed::race(500, u"2026-03-01"_s);
        seed::race(501, u"2026-03-08"_s);
        seed::race(502, u"2026-03-15"_s);
        seed::race(510, u"2026-04-01"_s, 6);
        seed::result(500, 500);
        seed::result(501, 500);
    }
    void open(const QString& title, bool race, bool league, bool team)
    {
        form.raceRequired = race;
        form.leagueRequired = league;
        form.teamRequired = team;
        form.fill(title);
        showActive(form);
    }
    QComboBox* list(const QString& name) { return child<QComboBox>(form, name); }
    QCheckBox* box(const QString& name) { return child<QCheckBox>(form, name); }
    QLineEdit* folderField() { return child<QLineEdit>(form, u"txtReportFolder"_s); }
    void clickButton(const QString& name) { QTest::mouseClick(child<QPushButton>(form, name), Qt::LeftButton); }
    void clickOk() { clickButton(u"cmdOK"_s); }

    TempApp app;
    frmReportRqst form;
};

} // namespace

TEST_F(ReportRequestScreen, showsItsControlsWithTheirCaptions)
{
    open(u"Team Detail"_s, true, true, true);
    EXPECT_EQ(form.windowTitle(), u"Team Detail"_s);
    const std::pair<QString, QString> captions[] = {
        {u"chkTeamAll"_s, u"All"_s}, {u"chkSeparate"_s, u"Separate"_s}, {u"chkClear"_s, u"Clear reports folder"_s},
        {u"cmdChangeFolder"_s, u"&Browse. . ."_s}, {u"cmdOK"_s, u"&OK"_s}, {u"cmdCancel"_s, u"&Cancel"_s},
    };
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(child<QAbstractButton>(form, name)->text(), caption) << qPrintable(name);
    const std::pair<QString, QString> labels[] = {
        {u"cmbLeague"_s, u"League:"_s}, {u"cmbRace"_s, u"Race:"_s}, {u"cmbTeam"_s, u"Team:"_s},
        {u"txtReportFolder"_s, u"Report Folder:"_s},
    };
    for (const auto& [field, caption] : labels) {
        bool found = false;
        for (const QLabel* label : form.findChildren<QLabel*>())
            if (label->buddy() == form.findChild<QWidget*>(field)) {
                EXPECT_EQ(label->text().remove(u'&'), caption);
                found = true;
            }
        EXPECT_TRUE(found) << qPrintable(field);
    }
    EXPECT_TRUE(child<QPushButton>(form, u"cmdOK"_s)->isDefault());
}

TEST_F(ReportRequestScreen, preselectsTheFirstLeagueAndItsMostRecentRaceWithResults)
{
    seedSeason();
    open(u"League Standings"_s, true, true, false);
    EXPECT_EQ(form.windowTitle(), u"League Standings"_s);
    EXPECT_EQ(items(list(u"cmbLeague"_s)), QStringList({u"Cup League"_s, u"Truck League"_s}));
    EXPECT_EQ(list(u"cmbLeague"_s)->currentText(), u"Cup League"_s);
    EXPECT_EQ(items(list(u"cmbRace"_s)),
              QStringList({u"03/01/2026 - Race 500"_s, u"03/08/2026 - Race 501"_s, u"03/15/2026 - Race 502"_s}));
    EXPECT_EQ(list(u"cmbRace"_s)->currentText(), u"03/08/2026 - Race 501"_s);
    EXPECT_EQ(form.leagueNmbr, 500);
    EXPECT_EQ(form.raceNmbr, 501);
    EXPECT_EQ(form.teamNmbr, -1);
    EXPECT_EQ(folderField()->text(), gReportsPath);
    // No team is asked for.
    EXPECT_FALSE(list(u"cmbTeam"_s)->isEnabled());
    EXPECT_FALSE(box(u"chkTeamAll"_s)->isEnabled());
    EXPECT_FALSE(box(u"chkSeparate"_s)->isEnabled());
    EXPECT_EQ(list(u"cmbTeam"_s)->count(), 0);

    // A league without results leaves the race to be picked by hand.
    pickByKeys(list(u"cmbLeague"_s), u"Truck League"_s);
    EXPECT_EQ(form.leagueNmbr, 501);
    EXPECT_EQ(items(list(u"cmbRace"_s)), QStringList{u"04/01/2026 - Race 510"_s});
    EXPECT_EQ(list(u"cmbRace"_s)->currentIndex(), -1);
    EXPECT_EQ(form.raceNmbr, -1);
    clickOk();
    expectRefusal(app, u"A Race is required for this Report"_s, u"cmbRace"_s);
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(form.okPressed);

    pickByKeys(list(u"cmbRace"_s), u"04/01/2026 - Race 510"_s);
    EXPECT_EQ(form.raceNmbr, 510);
    // Back to the first league: its default race comes back.
    pickByKeys(list(u"cmbLeague"_s), u"Cup League"_s);
    EXPECT_EQ(form.raceNmbr, 501);
    QTest::keyClick(list(u"cmbRace"_s), Qt::Key_Return);   // OK is the default button
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(form.okPressed);
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(app.presenter().boxes().size(), 1);
}

TEST_F(ReportRequestScreen, aReportWithoutARaceNeverFillsTheRaceList)
{
    seedSeason();
    open(u"Car/Driver Picks"_s, false, true, false);
    EXPECT_FALSE(list(u"cmbRace"_s)->isEnabled());
    pickByKeys(list(u"cmbLeague"_s), u"Truck League"_s);
    EXPECT_EQ(list(u"cmbRace"_s)->count(), 0);
    EXPECT_EQ(form.raceNmbr, -1);
    clickOk();
    EXPECT_TRUE(form.okPressed);
    EXPECT_EQ(form.leagueNmbr, 501);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

TEST_F(ReportRequestScreen, checksRaceThenLeagueThenTeam)
{
    // No leagues at all: the race is asked for first, though league and team are missing too.
    open(u"Team Detail"_s, true, true, true);
    EXPECT_EQ(list(u"cmbLeague"_s)->count(), 0);
    EXPECT_EQ(list(u"cmbRace"_s)->count(), 0);
    clickBox(box(u"chkTeamAll"_s));
    ASSERT_FALSE(box(u"chkTeamAll"_s)->isChecked());
    clickOk();
    expectRefusal(app, u"A Race is required for this Report"_s, u"cmbRace"_s);
    EXPECT_EQ(app.presenter().boxes().size(), 1);
    EXPECT_FALSE(form.okPressed);
    EXPECT_TRUE(form.isVisible());
    form.close();

    // Without a race to ask for, the league comes before the team.
    frmReportRqst noRace;
    noRace.leagueRequired = true;
    noRace.teamRequired = true;
    noRace.fill(u"League Race Summary"_s);
    showActive(noRace);
    clickBox(child<QCheckBox>(noRace, u"chkTeamAll"_s));
    QTest::mouseClick(child<QPushButton>(noRace, u"cmdOK"_s), Qt::LeftButton);
    expectRefusal(app, u"A League is required for this Report"_s, u"cmbLeague"_s);
    EXPECT_EQ(app.presenter().boxes().size(), 2);
    EXPECT_FALSE(noRace.okPressed);
}

TEST_F(ReportRequestScreen, allSeparateAndTheTeamListWorkTogether)
{
    seedSeason();
    open(u"Team Trades"_s, true, true, true);
    // A team report starts with all teams, not separate.
    EXPECT_TRUE(form.allTeams);
    EXPECT_FALSE(form.separate);
    EXPECT_TRUE(box(u"chkTeamAll"_s)->isChecked());
    EXPECT_TRUE(box(u"chkSeparate"_s)->isEnabled());
    EXPECT_FALSE(box(u"chkSeparate"_s)->isChecked());
    EXPECT_EQ(items(list(u"cmbTeam"_s)), QStringList({u"Aces"_s, u"Bolts"_s}));
    EXPECT_EQ(list(u"cmbTeam"_s)->currentIndex(), -1);

    clickBox(box(u"chkSeparate"_s));
    EXPECT_TRUE(form.separate);

    // Picking a team unticks All, and with it Separate.
    pickByKeys(list(u"cmbTeam"_s), u"Bolts"_s);
    EXPECT_EQ(form.teamNmbr, 500);
    EXPECT_FALSE(box(u"chkTeamAll"_s)->isChecked());
    EXPECT_FALSE(form.allTeams);
    EXPECT_FALSE(box(u"chkSeparate"_s)->isChecked());
    EXPECT_FALSE(box(u"chkSeparate"_s)->isEnabled());
    EXPECT_FALSE(form.separate);
    clickBox(box(u"chkSeparate"_s));   // greyed: the click does nothing
    EXPECT_FALSE(form.separate);

    // Another team leaves All alone.
    pickByKeys(list(u"cmbTeam"_s), u"Aces"_s);
    EXPECT_EQ(form.teamNmbr, 501);
    EXPECT_FALSE(box(u"chkTeamAll"_s)->isChecked());

    // Ticking All again offers Separate, unticked, and a fresh team list.
    clickBox(box(u"chkTeamAll"_s));
    EXPECT_TRUE(form.allTeams);
    EXPECT_TRUE(box(u"chkSeparate"_s)->isEnabled());
    EXPECT_FALSE(box(u"chkSeparate"_s)->isChecked());
    EXPECT_EQ(list(u"cmbTeam"_s)->currentIndex(), -1);
    EXPECT_EQ(items(list(u"cmbTeam"_s)), QStringList({u"Aces"_s, u"Bolts"_s}));

    // Another league brings its own teams; a team picked in the old league is not kept.
    pickByKeys(list(u"cmbTeam"_s), u"Aces"_s);
    pickByKeys(list(u"cmbLeague"_s), u"Truck League"_s);
    EXPECT_EQ(items(list(u"cmbTeam"_s)), QStringList{u"Movers"_s});
    EXPECT_EQ(form.teamNmbr, -1);
    EXPECT_FALSE(box(u"chkTeamAll"_s)->isChecked());
    pickByKeys(list(u"cmbRace"_s), u"04/01/2026 - Race 510"_s);
    clickOk();
    expectRefusal(app, u"A Team is required for this Report"_s, u"cmbTeam"_s);

    pickByKeys(list(u"cmbTeam"_s), u"Movers"_s);
    clickOk();
    EXPECT_TRUE(form.okPressed);
    EXPECT_EQ(form.leagueNmbr, 501);
    EXPECT_EQ(form.raceNmbr, 510);
    EXPECT_EQ(form.teamNmbr, 502);
    EXPECT_FALSE(form.allTeams);
    EXPECT_FALSE(form.separate);
}

TEST_F(ReportRequestScreen, theReportFolderChangesAtOnceEvenWhenCancelled)
{
    seedSeason();
    const QString started = gReportsPath;
    open(u"Race Detail"_s, true, true, false);
    const QString typed = app.folder() + u"/Season pages"_s;
    retype(folderField(), typed);
    EXPECT_EQ(gReportsPath, typed);

    // Browse shows what the folder chooser picked; its Cancel changes nothing.
    const QString browsed = app.folder() + u"/Browsed"_s;
    app.presenter().queueFolder(browsed);
    clickButton(u"cmdChangeFolder"_s);
    EXPECT_EQ(folderField()->text(), browsed);
    EXPECT_EQ(gReportsPath, browsed);
    app.presenter().queueFolder(std::nullopt);
    clickButton(u"cmdChangeFolder"_s);
    EXPECT_EQ(folderField()->text(), browsed);
    EXPECT_EQ(app.presenter().folderRequests(), QList<int>({1, 1}));

    retype(folderField(), typed);
    clickButton(u"cmdCancel"_s);
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(form.okPressed);
    EXPECT_EQ(form.result(), QDialog::Rejected);
    EXPECT_EQ(gReportsPath, typed);
    EXPECT_NE(gReportsPath, started);

    // The next request starts with the changed folder; Escape cancels it.
    frmReportRqst next;
    next.raceRequired = true;
    next.fill(u"Race Results"_s);
    showActive(next);
    EXPECT_EQ(child<QLineEdit>(next, u"txtReportFolder"_s)->text(), typed);
    QTest::keyClick(&next, Qt::Key_Escape);
    EXPECT_FALSE(next.isVisible());
    EXPECT_FALSE(next.okPressed);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

TEST_F(ReportRequestScreen, clearingTheFolderDeletesOnlyPagesAndOnlyAfterTheChecksPass)
{
    seedSeason();
    const QDir folder(gReportsPath);
    ASSERT_TRUE(folder.mkpath(u"archive.html"_s));
    for (const QString& name : {u"LS500.html"_s, u"TD501-all.html"_s, u"OLD.HTML"_s, u"logo.gif"_s, u"notes.txt"_s,
                                u"page.htm"_s, u"archive.html/kept.html"_s})
        writeFile(folder.filePath(name));

    open(u"Team Detail"_s, true, true, true);
    clickBox(box(u"chkClear"_s));
    clickBox(box(u"chkTeamAll"_s));
    clickOk();
    expectRefusal(app, u"A Team is required for this Report"_s, u"cmbTeam"_s);
    EXPECT_TRUE(folder.exists(u"LS500.html"_s));
    EXPECT_TRUE(folder.exists(u"OLD.HTML"_s));

    // With All ticked again no team is needed.
    clickBox(box(u"chkTeamAll"_s));
    clickOk();
    EXPECT_TRUE(form.okPressed);
    EXPECT_TRUE(form.allTeams);
    QStringList left = folder.entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
    EXPECT_EQ(left, QStringList({u"archive.html"_s, u"logo.gif"_s, u"notes.txt"_s, u"page.htm"_s}));
    EXPECT_TRUE(folder.exists(u"archive.html/kept.html"_s));
    EXPECT_EQ(app.presenter().boxes().size(), 1);
}
