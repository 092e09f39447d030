#include "base/app_globals.h"
#include "golden.h"
#include "reports/report_package.h"
#include "report_season.h"
#include "support/temp_app.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

QString pageText(const QString& name)
{
    QFile file(gReportsPath + u'/' + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// The targets of the navigation page's links, in order.
QStringList linkTargets(const QString& navigation)
{
    static const QRegularExpression link(u"<br><a href=(\\S*) target=main>"_s);
    QStringList targets;
    for (auto match = link.globalMatch(navigation); match.hasNext();)
        targets << match.next().captured(1);
    return targets;
}

TEST(PackagePages, holdTheFramesTheBlankPageTheNavigationAndEveryReportChosen)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    app.presenter().clear();
    EXPECT_EQ(reportPackage(season.league, season.races[2], true), u"rp05000000.html"_s);
    EXPECT_EQ(app.presenter().launches(), QStringList{gReportsPath + u"/rp05000000.html"_s});
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u'\n'));
    EXPECT_EQ(app.presenter().pointers().last(), 0);
    expectGoldenPages(u"package"_s);
}

TEST(PackagePages, linkOnlyToFilesThatExistAndLeaveALinkEmptyWhereAReportFoundNothing)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    reportPackage(season.league, season.races[2], false);
    const QStringList targets = linkTargets(pageText(QString::number(season.league) + u"nav.html"_s));
    EXPECT_EQ(targets.size(), 9);
    for (const QString& target : targets) {
        if (!target.isEmpty()) {
            EXPECT_TRUE(QFile::exists(gReportsPath + u'/' + target)) << qPrintable(target);
        }
    }

    // A race of another series has no rows for the league: the race pages give empty links, with no box.
    QDir(gReportsPath).removeRecursively();
    app.presenter().clear();
    reportPackage(season.league, season.otherRace, false);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    const QStringList other = linkTargets(pageText(QString::number(season.league) + u"nav.html"_s));
    ASSERT_EQ(other.size(), 9);
    EXPECT_EQ(other[2], QString());   // Race Detail
    EXPECT_EQ(other[0], u"ls05000504.html"_s);   // League Standings always writes its page
}

TEST(PackagePages, followTheChosenOrderAndTheBorderSizeAndStayEmptyWithNothingChosen)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    IDatabase db;
    ASSERT_TRUE(db.execute(u"DELETE FROM report_columns WHERE report_nmbr = 14"_s));
    ASSERT_TRUE(db.execute(u"INSERT INTO report_columns VALUES (14, 100, 1), (14, 999, 2), (14, 103, 3)"_s));
    ASSERT_TRUE(db.execute(u"UPDATE report_attributes SET amt = 3 WHERE report_nmbr = 14 AND attribute_nmbr = 9"_s));
    reportPackage(season.league, season.races[0], false);
    const QString navigation = pageText(u"500nav.html"_s);
    EXPECT_EQ(linkTargets(navigation), (QStringList{u"rd05000500.html"_s, u"ls05000500.html"_s}));
    EXPECT_TRUE(navigation.contains(u"<br><a href=rd05000500.html target=main>Race Detail</a>\n"_s));
    EXPECT_TRUE(pageText(u"rp05000000.html"_s).contains(u"<frameset cols=200,* frameborder=yes>\n"_s));

    ASSERT_TRUE(db.execute(u"DELETE FROM report_columns WHERE report_nmbr = 14"_s));
    ASSERT_TRUE(db.execute(u"UPDATE report_attributes SET amt = 0 WHERE report_nmbr = 14 AND attribute_nmbr = 9"_s));
    reportPackage(season.league, season.races[0], false);
    EXPECT_TRUE(linkTargets(pageText(u"500nav.html"_s)).isEmpty());
    EXPECT_TRUE(pageText(u"rp05000000.html"_s).contains(u"<frame frameborder=no name=main src=blank.html>\n"_s));
}

} // namespace
