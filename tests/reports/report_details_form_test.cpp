#include "base/app_globals.h"
#include "league/league_fixtures.h"
#include "reports/league_standings.h"
#include "reports/report_details_form.h"
#include "report_season.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTreeWidget>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// League Standings as the data file comes: its columns in order, and those it can add.
const QStringList kStandingsColumns = {u"Team Place"_s,   u"Team Name"_s,    u"Team Owner"_s,    u"Previous Place"_s,
                                       u"Team Wins"_s,    u"Team Top 5s"_s,  u"Team Top 10s"_s,  u"Points Last Race"_s,
                                       u"Season Points"_s, u"Points Out of Lead"_s};
const QString kStandingsColumnNumbers = u"13,33,34,14,15,16,17,21,9,22"_s;
constexpr int kStandings = 2;
constexpr int kRaceDetail = 1;

QStringList texts(const QTreeWidget* list)
{
    QStringList result;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        result << list->topLevelItem(i)->text(0);
    return result;
}

// Moves a closed list to the entry with the arrow keys, as the operator does.
void pickByKeys(QComboBox* combo, const QString& text)
{
    const int target = combo->findText(text);
    ASSERT_GE(target, 0) << qPrintable(text);
    combo->setFocus(Qt::TabFocusReason);
    for (int i = 0; i <= combo->count() && combo->currentIndex() != target; ++i)
        QTest::keyClick(combo, combo->currentIndex() < target ? Qt::Key_Down : Qt::Key_Up);
    ASSERT_EQ(combo->currentText(), text);
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

void clickItem(QTreeWidget* list, const QString& text)
{
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, itemPoint(list, text));
}

void doubleClickItem(QTreeWidget* list, const QString& text)
{
    // The press of the first click is what makes the second a double click on the item.
    const QPoint at = itemPoint(list, text);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
}

// A click on the box itself, not somewhere in the empty width of its cell.
void clickBox(QCheckBox* box)
{
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(6, box->height() / 2));
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
    void open()
    {
        form.fill();
        showActive(form);
    }
    void openOn(const QString& report, int tab = 0)
    {
        open();
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
    QPushButton* button(const QString& name) { return control<QPushButton>(name); }
    bool applyEnabled() { return button(u"cmdApply"_s)->isEnabled(); }
    void click(const QString& name) { QTest::mouseClick(button(name), Qt::LeftButton); }
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

    // The stored column numbers of a report in their order.
    QString storedColumns(int report)
    {
        return app.scalar(u"SELECT group_concat(column_nmbr, ',') FROM (SELECT column_nmbr FROM report_columns "
                          u"WHERE report_nmbr = %1 ORDER BY column_order)"_s.arg(report));
    }
    // One stored attribute: "amt|string_value", Null as "null"; "<none>" without a row.
    QString stored(int report, int attribute)
    {
        return app.scalar(u"SELECT ifnull(amt, 'null') || '|' || ifnull(string_value, 'null') FROM report_attributes "
                          u"WHERE report_nmbr = %1 AND attribute_nmbr = %2"_s.arg(report).arg(attribute));
    }
    // Every attribute row of a report, in row order.
    QString storedLook(int report)
    {
        return app.scalar(u"SELECT group_concat(attribute_nmbr || '=' || ifnull(amt, 'null') || '/' || "
                          u"ifnull(string_value, 'null'), ' ') FROM (SELECT * FROM report_attributes "
                          u"WHERE report_nmbr = %1 ORDER BY rowid)"_s.arg(report));
    }
    QStringList boxTexts() { return app.presenter().boxTexts(); }

    TempApp app;
    frmReportDetails form;
};

} // namespace

TEST_F(ReportDetailsScreen, opensWithNoReportAndShowsTheColumnsOfTheReportChosen)
{
    open();
    EXPECT_EQ(form.windowTitle(), u"Report Details"_s);
    EXPECT_EQ(combo(u"cmbReports"_s)->count(), 14);
    EXPECT_EQ(combo(u"cmbReports"_s)->currentIndex(), -1);
    EXPECT_EQ(tabs()->currentIndex(), 0);
    EXPECT_EQ(available()->topLevelItemCount() + current()->topLevelItemCount(), 0);
    EXPECT_EQ(available()->headerItem()->text(0), u"Available Columns"_s);
    EXPECT_EQ(current()->headerItem()->text(0), u"Current Columns"_s);
    EXPECT_EQ(control<QLabel>(u"lblInstructions"_s)->text(),
              u"Add the columns to the report in the order you want them to appear on the report."_s);
    EXPECT_TRUE(button(u"cmdOk"_s)->isDefault());

    pickByKeys(combo(u"cmbReports"_s), u"League Standings"_s);
    EXPECT_EQ(texts(current()), kStandingsColumns);
    EXPECT_EQ(texts(available()),
              QStringList({u"Car/Driver Wins"_s, u"Car/Driver Top 5s"_s, u"Car/Driver Top 10s"_s}));
    EXPECT_EQ(current()->topLevelItem(0)->data(0, Qt::UserRole).toString(), u"Column13"_s);
    EXPECT_FALSE(applyEnabled());
    EXPECT_TRUE(boxTexts().isEmpty());
}

TEST_F(ReportDetailsScreen, addsByDoubleClickAndLabelRemovesAndReordersThenSavesInListOrder)
{
    openOn(u"League Standings"_s);
    doubleClickItem(available(), u"Car/Driver Top 5s"_s);
    EXPECT_EQ(texts(current()).constLast(), u"Car/Driver Top 5s"_s);
    EXPECT_TRUE(applyEnabled());
    clickItem(available(), u"Car/Driver Wins"_s);
    clickLink(u"lblAdd"_s);
    EXPECT_EQ(texts(available()), QStringList({u"Car/Driver Top 10s"_s}));

    // Team Owner leaves; Team Place goes to the end by a remove and an add.
    doubleClickItem(current(), u"Team Owner"_s);
    clickItem(current(), u"Team Place"_s);
    clickLink(u"lblRemove"_s);
    EXPECT_EQ(texts(available()), QStringList({u"Car/Driver Top 10s"_s, u"Team Owner"_s, u"Team Place"_s}));
    doubleClickItem(available(), u"Team Place"_s);
    EXPECT_EQ(texts(current()),
              QStringList({u"Team Name"_s, u"Previous Place"_s, u"Team Wins"_s, u"Team Top 5s"_s, u"Team Top 10s"_s,
                           u"Points Last Race"_s, u"Season Points"_s, u"Points Out of Lead"_s, u"Car/Driver Top 5s"_s,
                           u"Car/Driver Wins"_s, u"Team Place"_s}));
    EXPECT_EQ(storedColumns(kStandings), kStandingsColumnNumbers);

    click(u"cmdApply"_s);
    EXPECT_FALSE(applyEnabled());
    EXPECT_EQ(storedColumns(kStandings), u"33,14,15,16,17,21,9,22,19,18,13"_s);
    EXPECT_EQ(app.scalar(u"SELECT group_concat(column_order, ',') FROM (SELECT column_order FROM report_columns "
                         u"WHERE report_nmbr = 2 ORDER BY column_order)"_s),
              u"1,2,3,4,5,6,7,8,9,10,11"_s);
    EXPECT_EQ(storedColumns(kRaceDetail), u"2,3,1,6,7,31,32,8,9"_s);
    EXPECT_TRUE(boxTexts().isEmpty());
}

TEST_F(ReportDetailsScreen, linkLabelsActOnEnterAndMoveNothingWithoutASelection)
{
    openOn(u"League Standings"_s);
    clickItem(available(), u"Car/Driver Top 10s"_s);
    auto* add = control<QLabel>(u"lblAdd"_s);
    add->setFocus(Qt::TabFocusReason);
    QTest::keyClick(add, Qt::Key_Return);
    EXPECT_EQ(texts(current()).constLast(), u"Car/Driver Top 10s"_s);
    EXPECT_TRUE(form.isVisible());   // Enter on the label is not OK
    app.presenter().queueAnswer(Answer::No);
    click(u"cmdCancel"_s);
    EXPECT_FALSE(form.isVisible());

    openOn(u"League Standings"_s);
    current()->clearSelection();
    clickLink(u"lblRemove"_s);
    available()->clearSelection();
    clickLink(u"lblAdd"_s);
    EXPECT_EQ(texts(current()), kStandingsColumns);
    EXPECT_FALSE(applyEnabled());
}

TEST_F(ReportDetailsScreen, savingAnEmptyCurrentListKeepsTheStoredColumns)
{
    openOn(u"League Standings"_s);
    while (current()->topLevelItemCount() > 0)
        doubleClickItem(current(), current()->topLevelItem(0)->text(0));
    EXPECT_EQ(available()->topLevelItemCount(), 13);
    click(u"cmdApply"_s);
    EXPECT_EQ(app.presenter().boxes().size(), 1);
    expectLastBox(app, u"A report needs at least one column. Its columns were not changed."_s, Icon::Exclamation);
    EXPECT_EQ(storedColumns(kStandings), kStandingsColumnNumbers);
    EXPECT_TRUE(applyEnabled());

    // OK does not close on it either; Cancel, answered No, leaves everything as it was.
    click(u"cmdOk"_s);
    EXPECT_TRUE(form.isVisible());
    app.presenter().queueAnswer(Answer::No);
    click(u"cmdCancel"_s);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(storedColumns(kStandings), kStandingsColumnNumbers);
}

TEST_F(ReportDetailsScreen, formatTabShowsTheStoredLookWithDefaultBoxesForDefaultColours)
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
    EXPECT_EQ(combo(u"cmbTextColor(3)"_s)->currentText(), u"Navy"_s);
    EXPECT_EQ(combo(u"cmbLinkColor"_s)->currentText(), u"Blue"_s);
    EXPECT_TRUE(box(u"chkVisitedLinkColor"_s)->isChecked());
    EXPECT_EQ(combo(u"cmbHoverLinkColor"_s)->currentText(), u"Maroon"_s);
    EXPECT_EQ(text(u"txtTextSize(3)"_s), u"6"_s);
    EXPECT_EQ(text(u"txtBorderSize"_s), u"0"_s);
    EXPECT_EQ(text(u"txtCellPadding"_s), u"4"_s);
    EXPECT_EQ(text(u"txtHeaderImage"_s), u"top.png"_s);
    EXPECT_EQ(text(u"txtBackgroundImage"_s), QString());
    EXPECT_TRUE(box(u"chkIncludeFooter"_s)->isChecked());
    EXPECT_FALSE(box(u"chkActiveDriversOnly"_s)->isChecked());
    EXPECT_EQ(combo(u"cmbTextColor(0)"_s)->property("tag").toInt(), 1);
    EXPECT_EQ(control(u"txtTextSize(2)"_s)->property("tag").toInt(), 14);
    EXPECT_FALSE(applyEnabled());

    // A report without attribute rows: nothing ticked, nothing chosen, nothing typed.
    seed::run(u"DELETE FROM report_attributes WHERE report_nmbr = 1"_s);
    pickByKeys(combo(u"cmbReports"_s), u"Race Detail"_s);
    for (const QString& name : {u"cmbTextColor(0)"_s, u"cmbBackColor(0)"_s, u"cmbLinkColor"_s, u"cmbVisitedLinkColor"_s})
        EXPECT_EQ(combo(name)->currentIndex(), -1) << qPrintable(name);
    for (const QString& name : {u"ChkTextColor(0)"_s, u"chkBackColor(0)"_s, u"chkVisitedLinkColor"_s,
                                u"chkIncludeFooter"_s})
        EXPECT_FALSE(box(name)->isChecked()) << qPrintable(name);
    EXPECT_EQ(text(u"txtTextSize(3)"_s), QString());
    EXPECT_EQ(text(u"txtHeaderImage"_s), QString());
    EXPECT_TRUE(boxTexts().isEmpty());
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
    clickBox(box(u"chkHoverLinkColor"_s));
    pickByKeys(combo(u"cmbLinkColor"_s), u"Teal"_s);
    // A Default box unticked again leaves the list empty: the colour is still the default.
    clickBox(box(u"chkBackColor(3)"_s));
    clickBox(box(u"chkBackColor(3)"_s));
    clickBox(box(u"chkIncludeFooter"_s));

    click(u"cmdApply"_s);
    EXPECT_FALSE(applyEnabled());
    EXPECT_EQ(stored(kStandings, 1), u"null|null"_s);
    EXPECT_EQ(stored(kStandings, 4), u"15|null"_s);
    EXPECT_EQ(stored(kStandings, 8), u"null|null"_s);
    EXPECT_EQ(stored(kStandings, 16), u"9|null"_s);
    EXPECT_EQ(stored(kStandings, 18), u"null|null"_s);
    EXPECT_EQ(stored(kStandings, 22), u"null|null"_s);
    EXPECT_EQ(stored(kStandings, 3), u"1|null"_s);
    EXPECT_EQ(app.count(u"report_attributes"_s, u"WHERE report_nmbr = 2"_s), 22);
    // Written in the order text colours, back colours, sizes, spacing, links, images, flags.
    EXPECT_EQ(app.scalar(u"SELECT group_concat(attribute_nmbr, ',') FROM (SELECT attribute_nmbr FROM "
                         u"report_attributes WHERE report_nmbr = 2 ORDER BY rowid)"_s),
              u"1,3,5,7,2,4,6,8,12,13,14,15,9,10,11,16,17,18,19,20,21,22"_s);

    // Read back on another visit of the report.
    pickByKeys(combo(u"cmbReports"_s), u"Race Detail"_s);
    pickByKeys(combo(u"cmbReports"_s), u"League Standings"_s);
    EXPECT_TRUE(box(u"ChkTextColor(0)"_s)->isChecked());
    EXPECT_EQ(combo(u"cmbBackColor(1)"_s)->currentText(), u"Gold"_s);
    EXPECT_TRUE(box(u"chkBackColor(3)"_s)->isChecked());
    EXPECT_EQ(combo(u"cmbLinkColor"_s)->currentText(), u"Teal"_s);
    EXPECT_TRUE(box(u"chkHoverLinkColor"_s)->isChecked());
    EXPECT_FALSE(box(u"chkIncludeFooter"_s)->isChecked());
    EXPECT_TRUE(boxTexts().isEmpty());
}

TEST_F(ReportDetailsScreen, sizesThatAreNoNumberSaveAsOneAndSpacingsAsZero)
{
    openOn(u"League Standings"_s, 1);
    typeInto(control(u"txtTextSize(0)"_s), {});
    typeInto(control(u"txtTextSize(1)"_s), u"big"_s);
    typeInto(control(u"txtTextSize(2)"_s), u"5"_s);
    typeInto(control(u"txtBorderSize"_s), u"x"_s);
    typeInto(control(u"txtCellSpacing"_s), {});
    typeInto(control(u"txtCellPadding"_s), u"7"_s);
    // The up-down steps the size typed.
    control(u"txtTextSize(3)"_s)->setFocus();
    QTest::keyClick(control(u"txtTextSize(3)"_s), Qt::Key_Up);
    EXPECT_EQ(text(u"txtTextSize(3)"_s), u"7"_s);
    QTest::keyClick(control(u"txtTextSize(3)"_s), Qt::Key_Up);
    EXPECT_EQ(text(u"txtTextSize(3)"_s), u"7"_s);

    click(u"cmdApply"_s);
    EXPECT_EQ(text(u"txtTextSize(0)"_s), u"1"_s);
    EXPECT_EQ(text(u"txtTextSize(1)"_s), u"1"_s);
    EXPECT_EQ(text(u"txtBorderSize"_s), u"0"_s);
    EXPECT_EQ(text(u"txtCellSpacing"_s), u"0"_s);
    EXPECT_EQ(stored(kStandings, 12), u"1|null"_s);
    EXPECT_EQ(stored(kStandings, 13), u"1|null"_s);
    EXPECT_EQ(stored(kStandings, 14), u"5|null"_s);
    EXPECT_EQ(stored(kStandings, 15), u"7|null"_s);
    EXPECT_EQ(stored(kStandings, 9), u"null|null"_s);
    EXPECT_EQ(stored(kStandings, 10), u"null|null"_s);
    EXPECT_EQ(stored(kStandings, 11), u"7|null"_s);
    EXPECT_FALSE(applyEnabled());
    EXPECT_TRUE(boxTexts().isEmpty());
}

TEST_F(ReportDetailsScreen, aSaveThatFailsKeepsTheOldLookWhole)
{
    const QString before = storedLook(kStandings);
    openOn(u"League Standings"_s, 1);
    pickByKeys(combo(u"cmbTextColor(0)"_s), u"Red"_s);
    typeInto(control(u"txtHeaderImage"_s), u"images/bob's.png"_s);
    click(u"cmdApply"_s);
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    EXPECT_TRUE(app.presenter().boxes()[0].text.contains(u"SQL = INSERT INTO report_attributes"_s));
    EXPECT_EQ(storedLook(kStandings), before);
    EXPECT_TRUE(applyEnabled());
    EXPECT_EQ(combo(u"cmbTextColor(0)"_s)->currentText(), u"Red"_s);

    // A size too large for its column: the run-time error's box, and again nothing changed.
    typeInto(control(u"txtHeaderImage"_s), u"images/top.png"_s);
    typeInto(control(u"txtTextSize(0)"_s), u"40000"_s);
    click(u"cmdApply"_s);
    EXPECT_EQ(app.presenter().boxes().constLast().text, u"Overflow"_s);
    EXPECT_EQ(storedLook(kStandings), before);

    // OK stays on a failed save; once the size is fixed it saves and closes.
    click(u"cmdOk"_s);
    EXPECT_TRUE(form.isVisible());
    typeInto(control(u"txtTextSize(0)"_s), u"3"_s);
    click(u"cmdOk"_s);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(stored(kStandings, 1), u"3|null"_s);
    EXPECT_EQ(stored(kStandings, 19), u"null|images/top.png"_s);
}

TEST_F(ReportDetailsScreen, saveOfTheFormatTabWithoutAReportSaysNoReportSelected)
{
    open();
    clickTab(tabs()->tabBar(), 1);
    clickBox(box(u"chkIncludeFooter"_s));
    EXPECT_TRUE(applyEnabled());
    const int rows = app.count(u"report_attributes"_s);
    click(u"cmdApply"_s);
    EXPECT_EQ(app.presenter().boxes().size(), 1);
    expectLastBox(app, u"No report selected"_s);
    EXPECT_EQ(app.count(u"report_attributes"_s), rows);
}

// Leaving a tab with Apply enabled asks; Yes saves what the tab held. Whatever the answer, the
// other tab is shown, its own contents freshly read, and Apply is off.
TEST_F(ReportDetailsScreen, leavingATabWithChangesAsksAndMovesOnWhateverTheAnswer)
{
    for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
        SCOPED_TRACE(int(answer));
        seed::run(u"UPDATE report_attributes SET amt = 5 WHERE report_nmbr = 2 AND attribute_nmbr = 1"_s);
        openOn(u"League Standings"_s);
        doubleClickItem(current(), u"Team Owner"_s);
        app.presenter().queueAnswer(answer);
        clickTab(tabs()->tabBar(), 1);
        const RecordedBox question = app.presenter().boxes().constLast();
        EXPECT_EQ(question.text, u"Do you want to save changes"_s);
        EXPECT_EQ(question.title, u"League Standings"_s);
        EXPECT_EQ(question.buttons, Buttons::YesNoCancel);
        EXPECT_EQ(tabs()->currentIndex(), 1);
        EXPECT_EQ(storedColumns(kStandings),
                  answer == Answer::Yes ? u"13,33,14,15,16,17,21,9,22"_s : kStandingsColumnNumbers);
        EXPECT_FALSE(applyEnabled());

        // And back from the format tab to the columns.
        pickByKeys(combo(u"cmbTextColor(0)"_s), u"Red"_s);
        app.presenter().queueAnswer(answer);
        clickTab(tabs()->tabBar(), 0);
        EXPECT_EQ(tabs()->currentIndex(), 0);
        EXPECT_EQ(stored(kStandings, 1), answer == Answer::Yes ? u"3|null"_s : u"5|null"_s);
        EXPECT_EQ(texts(current()).contains(u"Team Owner"_s), answer != Answer::Yes);
        EXPECT_FALSE(applyEnabled());
        EXPECT_EQ(app.presenter().boxes().size(), 2);

        form.hide();
        app.presenter().clear();
        seed::run(u"DELETE FROM report_columns WHERE report_nmbr = 2"_s);
        seed::run(u"INSERT INTO report_columns VALUES (2, 13, 1), (2, 33, 2), (2, 34, 3), (2, 14, 4), (2, 15, 5), "
                  u"(2, 16, 6), (2, 17, 7), (2, 21, 8), (2, 9, 9), (2, 22, 10)"_s);
    }
}

TEST_F(ReportDetailsScreen, changingTheReportWithChangesAsksAndSavesTheReportLeft)
{
    openOn(u"League Standings"_s, 1);
    pickByKeys(combo(u"cmbBackColor(0)"_s), u"Silver"_s);
    app.presenter().queueAnswer(Answer::Yes);
    pickByKeys(combo(u"cmbReports"_s), u"Team Cars"_s);
    EXPECT_EQ(app.presenter().boxes().constLast().title, u"League Standings"_s);
    EXPECT_EQ(stored(kStandings, 2), u"18|null"_s);
    EXPECT_EQ(stored(3, 2), u"7|null"_s);
    EXPECT_EQ(combo(u"cmbBackColor(0)"_s)->currentText(), u"Light Blue"_s);
    EXPECT_TRUE(box(u"chkActiveDriversOnly"_s)->isChecked());

    // Cancel does not hold the change of report; nothing is saved.
    pickByKeys(combo(u"cmbBackColor(0)"_s), u"Gold"_s);
    app.presenter().queueAnswer(Answer::Cancel);
    pickByKeys(combo(u"cmbReports"_s), u"Race Detail"_s);
    EXPECT_EQ(app.presenter().boxes().constLast().title, u"Team Cars"_s);
    EXPECT_EQ(stored(3, 2), u"7|null"_s);
    EXPECT_EQ(tabs()->currentIndex(), 1);
    EXPECT_FALSE(applyEnabled());
}

TEST_F(ReportDetailsScreen, cancelAsksOnlyWithChangesAndYesSavesAndStays)
{
    openOn(u"League Standings"_s);
    click(u"cmdCancel"_s);
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(boxTexts().isEmpty());

    openOn(u"League Standings"_s);
    doubleClickItem(available(), u"Car/Driver Wins"_s);
    app.presenter().queueAnswer(Answer::Cancel);
    click(u"cmdCancel"_s);
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(applyEnabled());
    EXPECT_EQ(storedColumns(kStandings), kStandingsColumnNumbers);

    app.presenter().queueAnswer(Answer::Yes);
    click(u"cmdCancel"_s);
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(applyEnabled());
    EXPECT_EQ(storedColumns(kStandings), kStandingsColumnNumbers + u",18"_s);
    EXPECT_EQ(app.presenter().boxes().constLast().title, u"League Standings"_s);

    // Escape is Cancel.
    doubleClickItem(current(), u"Car/Driver Wins"_s);
    app.presenter().queueAnswer(Answer::No);
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(storedColumns(kStandings), kStandingsColumnNumbers + u",18"_s);
    EXPECT_EQ(app.presenter().boxes().size(), 3);
}

TEST_F(ReportDetailsScreen, okSavesTheOpenTabAndClosesWithoutAQuestion)
{
    openOn(u"Race Results"_s, 1);
    clickBox(box(u"chkActiveDriversOnly"_s));
    click(u"cmdOk"_s);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(stored(9, 21), u"1|null"_s);

    openOn(u"Race Results"_s);
    click(u"cmdOk"_s);
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(boxTexts().isEmpty());
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

    const QString file = leagueStandingsReport(season.league, season.races[2], false);
    QFile page(gReportsPath + u'/' + file);
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
    expectLastBox(app, u"Do you want to save changes"_s, Icon::Question, Buttons::YesNoCancel, u"League Standings"_s);
}
