#include "base/app_globals.h"
#include "league/league_fixtures.h"
#include "reports/league_standings.h"
#include "reports/report_details_form.h"
#include "report_season.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTreeWidget>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// League Standings (report 2) as the data file comes.
const QString kStandingsColumns = u"13,33,34,14,15,16,17,21,9,22"_s;
constexpr int kStandings = 2;

QStringList texts(const QTreeWidget* list)
{
    QStringList result;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        result << list->topLevelItem(i)->text(0);
    return result;
}

QPoint itemPoint(QTreeWidget* list, const QString& text)
{
    const QList<QTreeWidgetItem*> found = list->findItems(text, Qt::MatchExactly);
    EXPECT_EQ(found.size(), 1) << qPrintable(text);
    if (found.isEmpty())
        return {};
    list->scrollToItem(found.first());
    return list->visualItemRect(found.first()).center();
}

void doubleClickItem(QTreeWidget* list, const QString& text)
{
    // The press of the first click is what makes the second a double click on the item.
    const QPoint at = itemPoint(list, text);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
}

// Replaces what a box holds by typing, as the operator does: select all, delete, type.
void typeInto(QWidget* field, const QString& typed)
{
    field->setFocus(Qt::TabFocusReason);
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, typed);
}

class ReportDetailsScreen : public ::testing::Test {
protected:
    void openOn(const QString& report, int tab = 0)
    {
        form.fill();
        showActive(form);
        if (!report.isEmpty())
            pickByKeys(combo(u"cmbReports"_s), report);
        if (tab != 0)
            clickTab(tabs()->tabBar(), tab);
    }
    template <class W = QWidget>
    W* control(const QString& name) { return child<W>(form, name); }
    QComboBox* combo(const QString& name) { return control<QComboBox>(name); }
    QCheckBox* box(const QString& name) { return control<QCheckBox>(name); }
    QTreeWidget* available() { return control<QTreeWidget>(u"lvAvailable"_s); }
    QTreeWidget* current() { return control<QTreeWidget>(u"lvCurrent"_s); }
    QTabWidget* tabs() { return control<QTabWidget>(u"SSTab1"_s); }
    bool applyEnabled() { return control<QPushButton>(u"cmdApply"_s)->isEnabled(); }
    void click(const QString& name) { QTest::mouseClick(control<QPushButton>(name), Qt::LeftButton); }
    void clickLink(const QString& name)
    {
        auto* label = control<QLabel>(name);
        QTest::mouseClick(label, Qt::LeftButton, {}, label->rect().center());
    }
    QString text(const QString& name)
    {
        QWidget* field = control(name);
        if (auto* spin = qobject_cast<QAbstractSpinBox*>(field))
            return spin->text();
        return qobject_cast<QLineEdit*>(field)->text();
    }
    const QList<RecordedBox>& boxes() { return app.presenter().boxes(); }

    // The stored column numbers of League Standings in their order.
    QString storedColumns()
    {
        return app.scalar(u"SELECT group_concat(column_nmbr, ',') FROM (SELECT column_nmbr FROM report_columns "
                          u"WHERE report_nmbr = 2 ORDER BY column_order)"_s);
    }
    // One stored attribute as "amt|string_value", Null as "null".
    QString stored(int report, int attribute)
    {
        return app.scalar(u"SELECT ifnull(amt, 'null') || '|' || ifnull(string_value, 'null') FROM report_attributes "
                          u"WHERE report_nmbr = %1 AND attribute_nmbr = %2"_s.arg(report).arg(attribute));
    }
    // Every attribute row of a report in row order: "number=amt" each.
    QString storedLook(int report)
    {
        return app.scalar(u"SELECT group_concat(attribute_nmbr || '=' || ifnull(amt, 'null'), ' ') FROM "
                          u"(SELECT * FROM report_attributes WHERE report_nmbr = %1 ORDER BY rowid)"_s.arg(report));
    }

    TempApp app;
    frmReportDetails form;
};

} // namespace

TEST_F(ReportDetailsScreen, addsByDoubleClickAndLabelsRemovesAndReordersThenSavesInListOrder)
{
    openOn({});
    EXPECT_EQ(combo(u"cmbReports"_s)->currentIndex(), -1);
    EXPECT_EQ(available()->topLevelItemCount() + current()->topLevelItemCount(), 0);
    pickByKeys(combo(u"cmbReports"_s), u"League Standings"_s);
    EXPECT_EQ(texts(available()), QStringList({u"Car/Driver Wins"_s, u"Car/Driver Top 5s"_s, u"Car/Driver Top 10s"_s}));
    EXPECT_EQ(current()->topLevelItemCount(), 10);
    EXPECT_FALSE(applyEnabled());

    doubleClickItem(available(), u"Car/Driver Top 5s"_s);
    EXPECT_TRUE(applyEnabled());
    // The neighbour of a moved column is selected next, so Add moves Top 10s, then Wins.
    clickLink(u"lblAdd"_s);
    auto* add = control<QLabel>(u"lblAdd"_s);
    add->setFocus(Qt::TabFocusReason);
    QTest::keyClick(add, Qt::Key_Return);   // moves, and is not OK
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(texts(available()).isEmpty());
    clickLink(u"lblAdd"_s);                // nothing selected: nothing moves

    // Team Owner leaves; Team Place goes to the end by a remove and an add.
    doubleClickItem(current(), u"Team Owner"_s);
    QTest::mouseClick(current()->viewport(), Qt::LeftButton, {}, itemPoint(current(), u"Team Place"_s));
    clickLink(u"lblRemove"_s);
    EXPECT_EQ(texts(available()), QStringList({u"Team Owner"_s, u"Team Place"_s}));
    doubleClickItem(available(), u"Team Place"_s);
    EXPECT_EQ(storedColumns(), kStandingsColumns);

    click(u"cmdApply"_s);
    EXPECT_FALSE(applyEnabled());
    EXPECT_EQ(storedColumns(), u"33,14,15,16,17,21,9,22,19,20,18,13"_s);
    EXPECT_EQ(app.scalar(u"SELECT max(column_order) || '/' || count(*) FROM report_columns WHERE report_nmbr = 2"_s),
              u"12/12"_s);
    EXPECT_EQ(app.count(u"report_columns"_s, u"WHERE report_nmbr = 1"_s), 9);
    EXPECT_TRUE(boxes().isEmpty());
}

TEST_F(ReportDetailsScreen, savingAnEmptyCurrentListKeepsTheStoredColumns)
{
    openOn(u"League Standings"_s);
    while (current()->topLevelItemCount() > 0)
        doubleClickItem(current(), current()->topLevelItem(0)->text(0));
    click(u"cmdApply"_s);
    EXPECT_EQ(boxes().size(), 1);
    expectLastBox(app, u"A report needs at least one column. Its columns were not changed."_s, Icon::Exclamation);
    EXPECT_EQ(storedColumns(), kStandingsColumns);
    EXPECT_TRUE(applyEnabled());
    click(u"cmdOk"_s);
    EXPECT_TRUE(form.isVisible());
}

TEST_F(ReportDetailsScreen, formatTabShowsTheStoredLookAndDefaultColoursAsTickedBoxes)
{
    seed::run(u"UPDATE report_attributes SET amt = NULL WHERE report_nmbr = 2 AND attribute_nmbr = 2"_s);
    seed::run(u"UPDATE report_attributes SET amt = 0 WHERE report_nmbr = 2 AND attribute_nmbr = 17"_s);
    seed::run(u"UPDATE report_attributes SET string_value = 'top.png' WHERE report_nmbr = 2 AND attribute_nmbr = 19"_s);
    openOn(u"League Standings"_s, 1);
    EXPECT_EQ(combo(u"cmbTextColor(0)"_s)->currentText(), u"Navy"_s);
    EXPECT_FALSE(box(u"ChkTextColor(0)"_s)->isChecked());
    EXPECT_EQ(combo(u"cmbBackColor(0)"_s)->currentIndex(), -1);
    EXPECT_TRUE(box(u"chkBackColor(0)"_s)->isChecked());
    EXPECT_EQ(combo(u"cmbBackColor(2)"_s)->currentText(), u"Light Gray"_s);
    EXPECT_TRUE(box(u"chkVisitedLinkColor"_s)->isChecked());
    EXPECT_EQ(combo(u"cmbHoverLinkColor"_s)->currentText(), u"Maroon"_s);
    EXPECT_EQ(text(u"txtTextSize(3)"_s) + text(u"txtCellPadding"_s) + text(u"txtHeaderImage"_s), u"64top.png"_s);
    EXPECT_TRUE(box(u"chkIncludeFooter"_s)->isChecked());
    EXPECT_FALSE(applyEnabled());

    // A report without attribute rows: nothing ticked, nothing chosen, nothing typed.
    seed::run(u"DELETE FROM report_attributes WHERE report_nmbr = 1"_s);
    pickByKeys(combo(u"cmbReports"_s), u"Race Detail"_s);
    EXPECT_EQ(combo(u"cmbTextColor(0)"_s)->currentIndex(), -1);
    EXPECT_FALSE(box(u"chkBackColor(0)"_s)->isChecked());
    EXPECT_FALSE(box(u"chkVisitedLinkColor"_s)->isChecked());
    EXPECT_FALSE(box(u"chkIncludeFooter"_s)->isChecked());
    EXPECT_EQ(text(u"txtTextSize(3)"_s) + text(u"txtHeaderImage"_s), QString());
    EXPECT_TRUE(boxes().isEmpty());
}

TEST_F(ReportDetailsScreen, defaultBoxesAndColourListsClearEachOtherAndSaveAsTheyShow)
{
    openOn(u"League Standings"_s, 1);
    clickBox(box(u"ChkTextColor(0)"_s));
    EXPECT_EQ(combo(u"cmbTextColor(0)"_s)->currentIndex(), -1);
    EXPECT_TRUE(applyEnabled());
    clickBox(box(u"chkBackColor(1)"_s));
    pickByKeys(combo(u"cmbBackColor(1)"_s), u"Gold"_s);
    EXPECT_FALSE(box(u"chkBackColor(1)"_s)->isChecked());
    // A Default box ticked and unticked again leaves the list empty: still the default.
    clickBox(box(u"chkBackColor(3)"_s));
    clickBox(box(u"chkBackColor(3)"_s));
    clickBox(box(u"chkHoverLinkColor"_s));
    clickBox(box(u"chkIncludeFooter"_s));

    click(u"cmdApply"_s);
    EXPECT_FALSE(applyEnabled());
    // Written in the order text colours, back colours, sizes, spacing, links, images, flags.
    EXPECT_EQ(storedLook(kStandings), u"1=null 3=1 5=1 7=5 2=7 4=15 6=20 8=null 12=2 13=2 14=2 15=6 9=null "
                                      u"10=1 11=4 16=6 17=17 18=null 19=null 20=null 21=null 22=null"_s);

    // Read back on another visit of the report.
    pickByKeys(combo(u"cmbReports"_s), u"Race Detail"_s);
    pickByKeys(combo(u"cmbReports"_s), u"League Standings"_s);
    EXPECT_TRUE(box(u"ChkTextColor(0)"_s)->isChecked());
    EXPECT_EQ(combo(u"cmbBackColor(1)"_s)->currentText(), u"Gold"_s);
    EXPECT_TRUE(box(u"chkHoverLinkColor"_s)->isChecked());
    EXPECT_FALSE(box(u"chkIncludeFooter"_s)->isChecked());
    EXPECT_TRUE(boxes().isEmpty());
}

TEST_F(ReportDetailsScreen, sizesThatAreNoNumberSaveAsOneAndSpacingsAsZero)
{
    openOn(u"League Standings"_s, 1);
    typeInto(control(u"txtTextSize(0)"_s), {});
    typeInto(control(u"txtTextSize(1)"_s), u"big"_s);
    typeInto(control(u"txtBorderSize"_s), u"x"_s);
    typeInto(control(u"txtCellSpacing"_s), {});
    // The up-down steps the size typed, up to 7.
    control(u"txtTextSize(3)"_s)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(control(u"txtTextSize(3)"_s), Qt::Key_Up);
    QTest::keyClick(control(u"txtTextSize(3)"_s), Qt::Key_Up);

    click(u"cmdApply"_s);
    EXPECT_EQ(text(u"txtTextSize(0)"_s) + text(u"txtTextSize(1)"_s) + text(u"txtBorderSize"_s) +
                  text(u"txtCellSpacing"_s) + text(u"txtTextSize(3)"_s),
              u"11007"_s);
    EXPECT_EQ(storedLook(kStandings).section(u' ', 8, 14), u"12=1 13=1 14=2 15=7 9=null 10=null 11=4"_s);
    EXPECT_FALSE(applyEnabled());
    EXPECT_TRUE(boxes().isEmpty());
}

TEST_F(ReportDetailsScreen, aSaveThatFailsKeepsTheOldLookWhole)
{
    const QString before = storedLook(kStandings);
    openOn(u"League Standings"_s, 1);
    pickByKeys(combo(u"cmbTextColor(0)"_s), u"Red"_s);
    typeInto(control(u"txtHeaderImage"_s), u"images/bob's.png"_s);
    click(u"cmdApply"_s);
    ASSERT_EQ(boxes().size(), 1);
    EXPECT_TRUE(boxes()[0].text.contains(u"SQL = INSERT INTO report_attributes"_s));
    EXPECT_EQ(storedLook(kStandings), before);
    EXPECT_TRUE(applyEnabled());
    EXPECT_EQ(combo(u"cmbTextColor(0)"_s)->currentText(), u"Red"_s);

    // A size too large for its column: the run-time error's box, and OK stays.
    typeInto(control(u"txtHeaderImage"_s), u"images/top.png"_s);
    typeInto(control(u"txtTextSize(0)"_s), u"40000"_s);
    click(u"cmdOk"_s);
    EXPECT_EQ(boxes().constLast().text, u"Overflow"_s);
    EXPECT_EQ(storedLook(kStandings), before);
    EXPECT_TRUE(form.isVisible());

    typeInto(control(u"txtTextSize(0)"_s), u"3"_s);
    click(u"cmdOk"_s);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(stored(kStandings, 1) + stored(kStandings, 12) + stored(kStandings, 19),
              u"3|null3|nullnull|images/top.png"_s);
}

TEST_F(ReportDetailsScreen, saveOfTheFormatTabWithoutAReportSaysNoReportSelected)
{
    openOn({}, 1);
    clickBox(box(u"chkIncludeFooter"_s));
    const int rows = app.count(u"report_attributes"_s);
    click(u"cmdApply"_s);
    EXPECT_EQ(boxes().size(), 1);
    expectLastBox(app, u"No report selected"_s);
    EXPECT_EQ(app.count(u"report_attributes"_s), rows);
}

// Leaving a tab with Apply enabled asks; Yes saves what the tab held. Whatever the answer, the
// other tab is shown, freshly read, with Apply off.
TEST_F(ReportDetailsScreen, leavingATabWithChangesAsksAndMovesOnWhateverTheAnswer)
{
    for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
        SCOPED_TRACE(int(answer));
        RecordingPresenter& presenter = app.presenter();
        presenter.clear();
        seed::run(u"UPDATE report_attributes SET amt = 5 WHERE report_nmbr = 2 AND attribute_nmbr = 1"_s);
        seed::run(u"DELETE FROM report_columns WHERE report_nmbr = 2"_s);
        seed::run(u"INSERT INTO report_columns VALUES (2, 13, 1), (2, 33, 2), (2, 34, 3), (2, 14, 4), (2, 15, 5), "
                  u"(2, 16, 6), (2, 17, 7), (2, 21, 8), (2, 9, 9), (2, 22, 10)"_s);
        openOn(u"League Standings"_s);
        doubleClickItem(current(), u"Team Owner"_s);
        presenter.queueAnswer(answer);
        clickTab(tabs()->tabBar(), 1);
        EXPECT_EQ(tabs()->currentIndex(), 1);
        EXPECT_EQ(storedColumns(), answer == Answer::Yes ? u"13,33,14,15,16,17,21,9,22"_s : kStandingsColumns);
        EXPECT_FALSE(applyEnabled());

        pickByKeys(combo(u"cmbTextColor(0)"_s), u"Red"_s);
        presenter.queueAnswer(answer);
        clickTab(tabs()->tabBar(), 0);
        EXPECT_EQ(tabs()->currentIndex(), 0);
        EXPECT_EQ(stored(kStandings, 1), answer == Answer::Yes ? u"3|null"_s : u"5|null"_s);
        EXPECT_EQ(texts(current()).contains(u"Team Owner"_s), answer != Answer::Yes);
        EXPECT_FALSE(applyEnabled());
        ASSERT_EQ(presenter.boxes().size(), 2);
        for (const RecordedBox& question : presenter.boxes()) {
            EXPECT_EQ(question.text, u"Do you want to save changes"_s);
            EXPECT_EQ(question.title, u"League Standings"_s);
            EXPECT_EQ(question.buttons, Buttons::YesNoCancel);
        }
        form.hide();
    }
}

TEST_F(ReportDetailsScreen, changingTheReportWithChangesAsksAndSavesTheReportLeft)
{
    openOn(u"League Standings"_s, 1);
    pickByKeys(combo(u"cmbBackColor(0)"_s), u"Silver"_s);
    app.presenter().queueAnswer(Answer::Yes);
    pickByKeys(combo(u"cmbReports"_s), u"Team Cars"_s);
    EXPECT_EQ(boxes().constLast().title, u"League Standings"_s);
    EXPECT_EQ(stored(kStandings, 2) + stored(3, 2), u"18|null7|null"_s);
    EXPECT_EQ(combo(u"cmbBackColor(0)"_s)->currentText(), u"Light Blue"_s);
    EXPECT_TRUE(box(u"chkActiveDriversOnly"_s)->isChecked());

    // Cancel does not hold the change of report; nothing is saved.
    pickByKeys(combo(u"cmbBackColor(0)"_s), u"Gold"_s);
    app.presenter().queueAnswer(Answer::Cancel);
    pickByKeys(combo(u"cmbReports"_s), u"League Standings"_s);
    EXPECT_EQ(boxes().constLast().title, u"Team Cars"_s);
    EXPECT_EQ(stored(3, 2), u"7|null"_s);
    EXPECT_EQ(combo(u"cmbBackColor(0)"_s)->currentText(), u"Silver"_s);
    EXPECT_FALSE(applyEnabled());
}

TEST_F(ReportDetailsScreen, cancelAsksOnlyWithChangesAndYesSavesAndStays)
{
    openOn(u"League Standings"_s);
    click(u"cmdCancel"_s);
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(boxes().isEmpty());

    openOn(u"League Standings"_s);
    doubleClickItem(available(), u"Car/Driver Wins"_s);
    app.presenter().queueAnswer(Answer::Cancel);
    click(u"cmdCancel"_s);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(storedColumns(), kStandingsColumns);

    app.presenter().queueAnswer(Answer::Yes);
    click(u"cmdCancel"_s);
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(applyEnabled());
    EXPECT_EQ(storedColumns(), kStandingsColumns + u",18"_s);

    // Escape is Cancel; No closes without saving.
    doubleClickItem(current(), u"Car/Driver Wins"_s);
    app.presenter().queueAnswer(Answer::No);
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(storedColumns(), kStandingsColumns + u",18"_s);
    EXPECT_EQ(boxes().size(), 3);
}

TEST(ReportDetailsToPage, columnsAndColourChosenOnTheScreenShowOnTheLeagueStandingsPage)
{
    TempApp app;
    const ReportSeason season = buildReportSeason();
    frmReportDetails form;
    form.fill();
    showActive(form);
    pickByKeys(child<QComboBox>(form, u"cmbReports"_s), u"League Standings"_s);
    auto* current = child<QTreeWidget>(form, u"lvCurrent"_s);
    for (const QString& leaving : {u"Team Owner"_s, u"Previous Place"_s, u"Team Top 5s"_s, u"Team Top 10s"_s,
                                   u"Points Last Race"_s, u"Points Out of Lead"_s})
        doubleClickItem(current, leaving);
    doubleClickItem(child<QTreeWidget>(form, u"lvAvailable"_s), u"Car/Driver Wins"_s);
    app.presenter().queueAnswer(Answer::Yes);
    clickTab(child<QTabWidget>(form, u"SSTab1"_s)->tabBar(), 1);
    pickByKeys(child<QComboBox>(form, u"cmbBackColor(0)"_s), u"Gold"_s);
    QTest::mouseClick(child<QPushButton>(form, u"cmdOk"_s), Qt::LeftButton);
    ASSERT_FALSE(form.isVisible());

    QFile page(gReportsPath + u'/' + leagueStandingsReport(season.league, season.races[2], false));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly)) << qPrintable(page.fileName());
    const QString html = QString::fromUtf8(page.readAll());
    QStringList headings;
    static const QRegularExpression heading(u"<TH [^>]*><FONT [^>]*>(.*?) </FONT></TH>"_s);
    for (const QRegularExpressionMatch& match : heading.globalMatch(html))
        headings << match.captured(1);
    EXPECT_EQ(headings, QStringList({u"<BR><BR>Place"_s, u"<BR><BR>Team"_s, u"<BR>Team<BR>Wins"_s,
                                     u"<BR>Season<BR>Points"_s, u"Car<BR>Driver<BR>Wins"_s}));
    EXPECT_TRUE(html.contains(u"</TR>\n<TR bgcolor = '#FFD700'>\n<TH "_s)) << qPrintable(html.left(1500));
    EXPECT_EQ(html.count(u"<TD "_s), 3 * 5);
    EXPECT_EQ(app.presenter().boxes().size(), 1);
}
