#include "league/team.h"
#include "pane_fixture.h"
#include "shell/startup.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRegularExpression>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

void clickHeader(cDisplayPane& pane, int section)
{
    QHeaderView* header = pane.list()->header();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(section) + 4, header->height() / 2));
}

} // namespace

TEST_F(PaneTest, eachPaneOpensMaximisedOnceWithItsColumnsAndWidths)
{
    const struct {
        RecordKind kind;
        QString name, caption, headers;
        QList<int> twips;
    } panes[] = {
        {RecordKind::League, u"frmDisplayLeagues"_s, u"Leagues"_s,
         u"Name,Short Name,Scoring Method,Scoring Option,Salary Cap,Race Type,Scoring By"_s,
         {3500, 1100, 2500, 1500, 1500, 1500, 1500}},
        {RecordKind::Team, u"frmDisplayTeams"_s, u"Teams"_s, u"Name,Owner,Race Type,Scoring By"_s, {3500, 3500, 1500, 1500}},
        {RecordKind::Car, u"frmDisplayCars"_s, u"Cars/Drivers"_s, u"Car#,Driver,Sponsor,Make,Owner,Salary,Race Type"_s,
         {600, 2500, 2000, 1500, 2500, 1500, 1500}},
        {RecordKind::Race, u"frmDisplayRaces"_s, u"Races"_s, u"Sort date,Race Date,Race Name,Track Name,Race Type,Scoring By"_s,
         {0, 1500, 2500, 2000, 2000, 1500}},
        {RecordKind::Scoring, u"frmDisplayScoring"_s, u"Scoring"_s, u"Scoring Method"_s, {4000}},
    };
    for (const auto& expected : panes) {
        SCOPED_TRACE(qPrintable(expected.name));
        showRecordPane(expected.kind);
        cDisplayPane* pane = paneOf(expected.kind);
        ASSERT_NE(pane, nullptr);
        EXPECT_EQ(pane->objectName() + u' ' + pane->windowTitle(), expected.name + u' ' + expected.caption);
        EXPECT_TRUE(pane->subWindow()->isMaximized());
        QTreeWidget* list = pane->list();
        const QStringList headers = expected.headers.split(u',');
        ASSERT_EQ(list->columnCount(), headers.size());
        for (int c = 0; c < list->columnCount(); ++c) {
            EXPECT_EQ(list->headerItem()->text(c), headers[c]);
            EXPECT_EQ(list->isColumnHidden(c), expected.twips[c] == 0);
            if (expected.twips[c] > 0) {
                EXPECT_EQ(list->columnWidth(c), twipsToPixels(expected.twips[c], pane->logicalDpiX()));
            }
        }
    }
    // Showing a pane again brings up the same window.
    cDisplayPane* leagues = paneOf(RecordKind::League);
    showRecordPane(RecordKind::League);
    EXPECT_EQ(paneOf(RecordKind::League), leagues);
    EXPECT_EQ(m_window->mdiArea()->subWindowList().size(), 5);
    EXPECT_EQ(m_window->mdiArea()->activeSubWindow(), leagues->subWindow());
}

TEST_F(PaneTest, panesListEveryRecordWithTheNamesOfTheirCodes)
{
    seed::league(500, u"Thunder"_s, u"1500"_s, 1, 1, 2);
    seed::team(500, u"Red Team"_s, 6, 2);
    seed::car(500, u"12"_s, u"2500"_s);
    seed::car(501, u"TB"_s, u"0"_s, u"NULL"_s, 6, 3, u"Top Bonus"_s);   // bonus rows are listed too
    seed::race(500, u"2002-03-17"_s);
    for (RecordKind kind : {RecordKind::League, RecordKind::Team, RecordKind::Car, RecordKind::Race, RecordKind::Scoring})
        refreshRecordPane(kind);
    EXPECT_EQ(rows(*paneOf(RecordKind::League)).join(u'/'),
              u"Thunder|THU|Standard Points|Drop Lowest Finishers|$1,500.00|Winston Cup|Car"_s);
    EXPECT_EQ(rows(*paneOf(RecordKind::Team)).join(u'/'), u"Red Team|Owner|F1|Driver"_s);
    EXPECT_EQ(rows(*paneOf(RecordKind::Car)).join(u'/'),
              u"12|Driver 12|Sponsor||Owner|$2,500.00|Winston Cup/TB|Top Bonus|Sponsor||Owner|$0.00|F1"_s);
    EXPECT_EQ(rows(*paneOf(RecordKind::Race)).join(u'/'), u"2002-03-17|Race 500|Track|Winston Cup|Car"_s);
    EXPECT_EQ(paneOf(RecordKind::Race)->list()->topLevelItem(0)->text(0), u"03/17/2002"_s);
    EXPECT_EQ(rows(*paneOf(RecordKind::Scoring)).join(u'/'), u"Standard Points/Top Six Points"_s);
}

TEST_F(PaneTest, displaySelectsTheAskedRowTheFirstRowOrNothing)
{
    refreshTeams({});
    EXPECT_EQ(paneOf(RecordKind::Team)->selectedRow(), nullptr);   // an empty list selects nothing
    seed::league(500, u"Alpha"_s, u"0"_s);
    seed::league(501, u"Beta"_s, u"0"_s);
    seed::race(500, u"2002-03-17"_s);
    seed::race(501, u"2002-03-24"_s);
    const struct {
        std::function<void()> refresh;
        RecordKind kind;
        QString selected;
    } cases[] = {
        {[] { refreshLeagues(-1); }, RecordKind::League, u"Alpha"_s},
        {[] { refreshLeagues(501); }, RecordKind::League, u"Beta"_s},
        {[] { refreshLeagues(0); }, RecordKind::League, QString()},
        {[] { refreshRaces(u"501"_s); }, RecordKind::Race, u"2002-03-24"_s},
        {[] { refreshRaces(u"Race 501"_s); }, RecordKind::Race, QString()},   // a name never matches a number
        {[] { refreshScoring(u"Top Six Points"_s); }, RecordKind::Scoring, u"Top Six Points"_s},
    };
    for (const auto& c : cases) {
        c.refresh();
        EXPECT_EQ(selected(*paneOf(c.kind)), c.selected) << qPrintable(c.selected);
    }
}

TEST_F(PaneTest, headerClickSortsAscendingAsTextAndRaceDateSortsMonthFirst)
{
    seed::race(500, u"2002-11-02"_s);
    seed::race(501, u"2003-01-05"_s);
    seed::race(502, u"2002-03-17"_s);
    refreshRaces({});
    cDisplayPane& pane = *paneOf(RecordKind::Race);
    auto dates = [&] { return rows(pane).replaceInStrings(QRegularExpression(u"\\|.*"_s), QString()).join(u' '); };
    const QString monthFirst = u"2003-01-05 2002-03-17 2002-11-02"_s;
    clickHeader(pane, 1);
    EXPECT_EQ(dates(), monthFirst);
    clickHeader(pane, 1);   // a second click does not reverse
    EXPECT_EQ(dates(), monthFirst);
    refreshRaces({});       // the sort key stays for the next display
    EXPECT_EQ(dates(), monthFirst);
    clickHeader(pane, 2);
    EXPECT_EQ(dates(), u"2002-11-02 2003-01-05 2002-03-17"_s);   // Race 500, 501, 502
}

TEST_F(PaneTest, keysAndMouseRunThePaneCommandsAndDoNothingOnAnEmptyPane)
{
    int designs = 0, news = 0;
    recordScreens().team = [&](cTeam& team) { ++(team.teamNmbr() > 0 ? designs : news); };
    refreshTeams({});
    QTreeWidget* list = paneOf(RecordKind::Team)->list();
    QTest::keyClick(list, Qt::Key_Return);
    QTest::keyClick(list, Qt::Key_Delete);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_EQ(designs, 0);
    EXPECT_TRUE(boxes().boxes().isEmpty());
    QTest::keyClick(list, Qt::Key_Insert);
    EXPECT_EQ(news, 1);

    seed::team(500, u"Red Team"_s);
    refreshTeams({});
    const QPoint row = list->visualItemRect(list->topLevelItem(0)).center();
    QTest::keyClick(list, Qt::Key_Enter);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, row);
    EXPECT_EQ(designs, 2);
    boxes().queueAnswer(Answer::No);
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_EQ(boxes().boxes().constLast().text, u"Are you sure you want to delete Team?"_s);
}

// ---------------------------------------------------------------- the car pane's editor

class CarPaneTest : public PaneTest {
protected:
    void SetUp() override
    {
        PaneTest::SetUp();
        seed::car(500, u"12"_s, u"2500"_s, u"1"_s);
        seed::car(501, u"24"_s, u"3000"_s, u"2"_s, 1, 2, u"Jeff"_s);
        seed::car(502, u"TB"_s, u"0"_s, u"NULL"_s, 1, 3, u"Top Bonus"_s);
        refreshCars(-1);
        m_pane = frmDisplayCars::existing();
    }
    QLineEdit* text(const QString& name) { return child<QLineEdit>(*m_pane, name); }
    QPushButton* button(const QString& name) { return child<QPushButton>(*m_pane, name); }
    QComboBox* box(const QString& name) { return child<QComboBox>(*m_pane, name); }
    // "enabled" flags of the named controls, as "1" and "0".
    QString enabled(const QStringList& names)
    {
        QString flags;
        for (const QString& name : names)
            flags += m_pane->findChild<QWidget*>(name)->isEnabled() ? u'1' : u'0';
        return flags;
    }
    const QStringList m_locks{u"txtCarNumber"_s, u"txtDriver"_s, u"cmbCarType"_s, u"cmbRaceType"_s,
                              u"cmdAdd"_s,       u"cmdUpdate"_s, u"cmdDelete"_s};
    frmDisplayCars* m_pane = nullptr;
};

TEST_F(CarPaneTest, aChosenRowFillsTheEditorAndLocksItsIdentifyingText)
{
    clickRow(*m_pane, 0);
    EXPECT_EQ(text(u"txtSalary"_s)->text() + box(u"cmbRaceType"_s)->currentText() + box(u"cmbCarType"_s)->currentText() +
                  box(u"cmbGroup"_s)->currentText(),
              u"$2,500.00Winston CupCarGroup A"_s);
    EXPECT_EQ(enabled(m_locks), u"0100001"_s);
    QTest::keyClick(m_pane->list(), Qt::Key_Down);   // the arrow keys choose a row too
    EXPECT_EQ(text(u"txtDriver"_s)->text(), u"Jeff"_s);
    EXPECT_EQ(enabled(m_locks), u"1000001"_s);
    clickRow(*m_pane, 2);                            // a bonus row locks neither text
    EXPECT_EQ(enabled(m_locks), u"1100001"_s);
    EXPECT_EQ(box(u"cmbCarType"_s)->currentIndex(), -1);

    button(u"cmdCancel"_s)->click();
    EXPECT_EQ(text(u"txtSalary"_s)->text(), u"0"_s);
    EXPECT_EQ(enabled(m_locks), u"1111000"_s);
    QTest::keyClicks(text(u"txtSponsor"_s), u"Acme"_s);   // typing in the empty editor enables Add only
    EXPECT_EQ(enabled(m_locks), u"1111100"_s);
}

TEST_F(CarPaneTest, leavingAnEditAsksAndCancelKeepsTheEditOnItsRow)
{
    clickRow(*m_pane, 0);
    retype(text(u"txtSponsor"_s), u"New Sponsor"_s);
    boxes().queueAnswer(Answer::Cancel);
    clickRow(*m_pane, 1);
    expectLastBox(*m_app, u"Do you want to save changes"_s, Icon::Question, Buttons::YesNoCancel, u"12   Driver 12"_s);
    EXPECT_EQ(selected(*m_pane) + u' ' + text(u"txtSponsor"_s)->text(), u"12 New Sponsor"_s);
    EXPECT_TRUE(button(u"cmdUpdate"_s)->isEnabled());
    EXPECT_EQ(m_app->scalar(u"SELECT sponsor FROM cars WHERE car_nmbr = 500"_s), u"Sponsor"_s);

    boxes().queueAnswer(Answer::Yes);
    clickRow(*m_pane, 1);
    EXPECT_EQ(m_app->scalar(u"SELECT sponsor FROM cars WHERE car_nmbr = 500"_s), u"New Sponsor"_s);
    EXPECT_EQ(text(u"txtDriver"_s)->text(), u"Jeff"_s);
    EXPECT_FALSE(button(u"cmdUpdate"_s)->isEnabled());
}
