#include "pane_fixture.h"
#include "racing/posting.h"
#include "racing/season.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

// Acts on the next modal window from inside the event loop that shows it. Whatever the action
// leaves open is cancelled, so that a failing check never leaves the test waiting on a screen.
void whenModalShown(std::function<void(QDialog*)> act, int tries = 200)
{
    QTimer::singleShot(10, [act, tries] {
        if (auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            act(modal);
            if (modal->isVisible()) {
                ADD_FAILURE() << "the screen stayed open";
                modal->reject();
            }
        } else if (tries > 0) {
            whenModalShown(act, tries - 1);
        }
    });
}

QString fileText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// The main window on a data file with one league of two teams, whose first race is posted and
// whose second is still to come.
class ReportRunTest : public PaneTest {
protected:
    void SetUp() override
    {
        PaneTest::SetUp();
        Season s;
        const int16_t league = s.league(s.method({10, 5}));
        const int16_t team = s.team(league);
        const int16_t car = s.car(u"7"_s);
        const int16_t rival = s.team(league);
        const int16_t rivalCar = s.car(u"8"_s);
        s.hold(team, car, u"2026-01-01"_s);
        s.hold(rival, rivalCar, u"2026-01-01"_s);
        const int16_t posted = s.race(u"2026-03-01"_s);
        s.race(u"2026-03-08"_s);
        s.result(posted, car, 1);
        s.result(posted, rivalCar, 2);
        postResults(Season::raceRecord(posted));
        boxes().clear();
        m_tree = m_window->findChild<QTreeWidget*>(u"sstreemain"_s);
        m_window->nodeByKey(u"Reporting"_s)->setExpanded(true);
    }

    void clickNode(const QString& key)
    {
        QTreeWidgetItem* node = m_window->nodeByKey(key);
        m_tree->scrollToItem(node);
        QTest::mouseClick(m_tree->viewport(), Qt::LeftButton, Qt::NoModifier, m_tree->visualItemRect(node).center());
    }

    QTreeWidget* m_tree = nullptr;
};

} // namespace

TEST_F(ReportRunTest, leagueStandingsAsksLeagueAndRaceThenWritesAndOpensThePage)
{
    QStringList seen;
    whenModalShown([&seen](QDialog* dialog) {
        seen << dialog->objectName() << dialog->windowTitle()
             << dialog->findChild<QComboBox*>(u"cmbLeague"_s)->currentText()
             << dialog->findChild<QComboBox*>(u"cmbRace"_s)->currentText();
        QTest::mouseClick(dialog->findChild<QPushButton*>(u"cmdOK"_s), Qt::LeftButton);
    });
    clickNode(u"League Standings"_s);

    EXPECT_EQ(seen, QStringList({u"frmReportRqst"_s, u"League Standings"_s, u"League 500"_s,
                                 u"03/01/2026 - Race 500"_s}));
    EXPECT_TRUE(shownBoxes(boxes()).isEmpty()) << qPrintable(shownBoxes(boxes()).join(u'\n'));
    ASSERT_EQ(boxes().launches().size(), 1);
    const QFileInfo page(boxes().launches().constFirst());
    EXPECT_EQ(page.absolutePath(), QFileInfo(m_app->folder() + u"/Reports"_s).absoluteFilePath());
    ASSERT_TRUE(page.isFile());
    EXPECT_TRUE(fileText(page.filePath()).contains(u"Team 500"_s));
    EXPECT_EQ(m_window->findChild<QDialog*>(u"frmReportRqst"_s), nullptr);   // gone once the report ran
}

TEST_F(ReportRunTest, aCancelledRequestRunsNothingButItsFolderTakesTheNextReport)
{
    const QString elsewhere = m_app->folder() + u"/Web pages"_s;
    whenModalShown([&elsewhere](QDialog* dialog) {
        retype(dialog->findChild<QLineEdit*>(u"txtReportFolder"_s), elsewhere);
        QTest::mouseClick(dialog->findChild<QPushButton*>(u"cmdCancel"_s), Qt::LeftButton);
    });
    clickNode(u"Race Detail"_s);
    EXPECT_TRUE(boxes().launches().isEmpty());
    EXPECT_FALSE(QFileInfo::exists(elsewhere));

    QString shownFolder;
    whenModalShown([&shownFolder](QDialog* dialog) {
        shownFolder = dialog->findChild<QLineEdit*>(u"txtReportFolder"_s)->text();
        QTest::keyClick(dialog->findChild<QComboBox*>(u"cmbRace"_s), Qt::Key_Return);
    });
    clickNode(u"Race Detail"_s);
    EXPECT_EQ(shownFolder, elsewhere);
    ASSERT_EQ(boxes().launches().size(), 1);
    const QFileInfo page(boxes().launches().constFirst());
    EXPECT_EQ(page.absolutePath(), elsewhere);
    EXPECT_TRUE(page.isFile());
    EXPECT_TRUE(shownBoxes(boxes()).isEmpty()) << qPrintable(shownBoxes(boxes()).join(u'\n'));
}

TEST_F(ReportRunTest, teamDetailWithSeparateTickedWritesAndOpensAPagePerTeam)
{
    whenModalShown([](QDialog* dialog) {
        auto* separate = dialog->findChild<QCheckBox*>(u"chkSeparate"_s);
        QTest::mouseClick(separate, Qt::LeftButton, {}, QPoint(6, separate->height() / 2));
        QTest::mouseClick(dialog->findChild<QPushButton*>(u"cmdOK"_s), Qt::LeftButton);
    });
    clickNode(u"Team Detail"_s);
    EXPECT_TRUE(shownBoxes(boxes()).isEmpty()) << qPrintable(shownBoxes(boxes()).join(u'\n'));
    ASSERT_EQ(boxes().launches().size(), 2);
    EXPECT_NE(boxes().launches()[0], boxes().launches()[1]);
    EXPECT_TRUE(fileText(boxes().launches()[0]).contains(u"Team 500"_s));
    EXPECT_FALSE(fileText(boxes().launches()[0]).contains(u"Team 501"_s));
    EXPECT_TRUE(fileText(boxes().launches()[1]).contains(u"Team 501"_s));
}

TEST_F(ReportRunTest, reportDetailsMenuOpensTheScreenOnTheListOfReports)
{
    QStringList seen;
    whenModalShown([&seen](QDialog* dialog) {
        auto* reports = dialog->findChild<QComboBox*>(u"cmbReports"_s);
        seen << dialog->objectName() << dialog->windowTitle() << QString::number(reports ? reports->count() : -1);
        QTest::mouseClick(dialog->findChild<QPushButton*>(u"cmdCancel"_s), Qt::LeftButton);
    });
    m_window->findChild<QAction*>(u"mnuReportReportDetails"_s)->trigger();
    EXPECT_EQ(seen, QStringList({u"frmReportDetails"_s, u"Report Details"_s, u"14"_s}));
    EXPECT_TRUE(shownBoxes(boxes()).isEmpty()) << qPrintable(shownBoxes(boxes()).join(u'\n'));
}
