#include "league/roster_seed.h"
#include "league/team.h"
#include "league/team_car.h"
#include "league/team_car_form.h"
#include "league/team_car_multiple_form.h"
#include "store/dates.h"
#include "support/temp_app.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
namespace seed = roster_seed;

namespace {

const QString kCapMessage = u"Adding this Car/Driver will exceed at least one Leagues salary Cap."_s;

Currency money(const QString& text)
{
    Currency value;
    EXPECT_TRUE(Currency::parse(text, value)) << qPrintable(text);
    return value;
}

template <class W>
W* child(QWidget& form, const QString& name)
{
    W* widget = form.findChild<W*>(name);
    EXPECT_NE(widget, nullptr) << qPrintable(name);
    return widget;
}

void choose(QComboBox* combo, const QString& text)
{
    const int index = combo->findText(text);
    ASSERT_GE(index, 0) << qPrintable(text);
    combo->setCurrentIndex(index);
    emit combo->activated(index);
}

// Types into a field and leaves it for another control, as the operator does with Tab.
void typeAndLeave(QWidget& form, QLineEdit* field, const QString& text)
{
    field->setFocus(Qt::TabFocusReason);
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text);
    form.findChild<QPushButton*>(u"cmdOK"_s)->setFocus(Qt::TabFocusReason);
}

void showActive(QWidget& form)
{
    form.show();
    QApplication::setActiveWindow(&form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
}

// A team of race type 1 scoring cars, in the leagues given (number, cap as plain text).
void teamInLeagues(std::initializer_list<std::pair<int, QString>> leagues)
{
    seed::team(500, u"Speedy"_s);
    for (const auto& [number, cap] : leagues) {
        seed::league(number, u"League "_s + QString::number(number), cap);
        seed::member(number, 500);
    }
}

// The single-entry screen, open on a new entry for team 500.
struct SingleEntry {
    explicit SingleEntry(const QString& total)
    {
        entry.setTeamNmbr(500);
        totalSalary = money(total);
        form.setDatePicker([](const QDate&) { return std::optional<QDate>(QDate(2002, 3, 17)); });
        form.fill(entry, totalSalary);
        showActive(form);
    }
    QComboBox* car() { return child<QComboBox>(form, u"cmbCarTxt"_s); }
    QLineEdit* efctv() { return child<QLineEdit>(form, u"txtEfctvDt"_s); }
    QLineEdit* term() { return child<QLineEdit>(form, u"txtTermDt"_s); }
    QTreeWidget* leagues() { return child<QTreeWidget>(form, u"lvwLeagues"_s); }
    void apply() { child<QPushButton>(form, u"cmdApply"_s)->click(); }
    // Chooses a car, types an effective date and presses Apply.
    void add(const QString& carTxt, const QString& efctvDt = u"2002-03-17"_s)
    {
        choose(car(), carTxt);
        typeAndLeave(form, efctv(), efctvDt);
        apply();
    }

    cTeamCar entry;
    Currency totalSalary;
    frmTeamCar form;
};

void expectOneCriticalBox(TempApp& app, const QString& text)
{
    ASSERT_EQ(app.presenter().boxes().size(), 1) << qPrintable(app.presenter().boxTexts().join(u" | "_s));
    const RecordedBox& box = app.presenter().boxes().first();
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(box.title, u"Lapkeeper"_s);
    EXPECT_EQ(box.icon, Icon::Critical);
}

// ---- the salary cap of the single-entry screen ----

struct CapCase {
    const char* name;
    const char* cap;
    const char* total;
    const char* salary;
    bool accepted;
};

void PrintTo(const CapCase& c, std::ostream* os)
{
    *os << c.name;
}

class SalaryCapOfOneEntry : public ::testing::TestWithParam<CapCase> {};

TEST_P(SalaryCapOfOneEntry, isHeldAgainstTheAvailableSalaryOfTheLeague)
{
    const CapCase& c = GetParam();
    TempApp app;
    teamInLeagues({{500, QString::fromLatin1(c.cap)}});
    seed::car(500, u"24"_s, QString::fromLatin1(c.salary));
    SingleEntry screen(QString::fromLatin1(c.total));
    screen.add(u"24"_s);

    if (c.accepted) {
        EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u" | "_s));
        EXPECT_EQ(app.count(u"team_car"_s), 1);
    } else {
        expectOneCriticalBox(app, kCapMessage);
        EXPECT_EQ(app.count(u"team_car"_s), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, SalaryCapOfOneEntry,
                         ::testing::Values(CapCase{"exactlyAtTheCap", "1000000", "900000", "100000", true},
                                           CapCase{"oneCentOver", "1000000", "900000", "100000.01", false},
                                           CapCase{"underTheCap", "1000000", "0", "5000", true},
                                           CapCase{"capZeroDoesNotLimit", "0", "900000", "100000", true},
                                           CapCase{"negativeCapDoesNotLimit", "-1", "0", "100000", true},
                                           CapCase{"alreadyOverTheCap", "1000000", "1000001", "0.01", false}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(SalaryCapOfOneEntryAfterApply, theAvailableSalaryIsReducedSoTheNextCarIsRefused)
{
    TempApp app;
    teamInLeagues({{500, u"1000000"_s}});
    seed::car(500, u"24"_s, u"100000"_s);
    seed::car(501, u"3"_s, u"1"_s);
    SingleEntry screen(u"900000"_s);
    EXPECT_EQ(screen.leagues()->topLevelItem(0)->text(1), u"$100,000.00"_s);

    screen.add(u"24"_s);
    ASSERT_TRUE(app.presenter().boxes().isEmpty());
    EXPECT_EQ(screen.leagues()->topLevelItem(0)->text(1), u"0"_s);
    // The screen is cleared for the next entry and Apply stays enabled.
    EXPECT_EQ(screen.car()->currentIndex(), -1);
    EXPECT_TRUE(screen.efctv()->text().isEmpty());
    EXPECT_TRUE(child<QLineEdit>(screen.form, u"txtSalary"_s)->text().isEmpty());
    EXPECT_TRUE(child<QPushButton>(screen.form, u"cmdApply"_s)->isEnabled());

    screen.add(u"3"_s, u"2002-03-18"_s);
    expectOneCriticalBox(app, kCapMessage);
    EXPECT_EQ(app.count(u"team_car"_s), 1);
}

TEST(SalaryCapOfOneEntryTwoLeagues, theLeagueOverItsCapRefusesAnySalary)
{
    TempApp app;
    teamInLeagues({{500, u"1000000"_s}, {501, u"2000000"_s}});
    seed::car(500, u"24"_s, u"1"_s);
    SingleEntry screen(u"1500000"_s);
    QStringList shown;
    for (int i = 0; i < screen.leagues()->topLevelItemCount(); ++i)
        shown << screen.leagues()->topLevelItem(i)->text(0) + u" "_s + screen.leagues()->topLevelItem(i)->text(1);
    shown.sort();
    EXPECT_EQ(shown, (QStringList{u"League 500 ($500,000.00)"_s, u"League 501 $500,000.00"_s}));

    screen.add(u"24"_s);
    expectOneCriticalBox(app, kCapMessage);
    EXPECT_EQ(app.count(u"team_car"_s), 0);
}

// ---- the group limit ----

class GroupLimit : public ::testing::Test {
protected:
    // Group 1 ("Group A") with the limit; team 500 already holds cars 500 and 501 of it.
    void seedGroup(int limit, bool inLeague = true)
    {
        seed::run(u"UPDATE group_dm SET max_nmbr = "_s + QString::number(limit) + u" WHERE group_nmbr = 1"_s);
        if (inLeague)
            teamInLeagues({{500, u"0"_s}});
        else
            teamInLeagues({});
        seed::car(500, u"1"_s, u"10"_s, u"1"_s);
        seed::car(501, u"2"_s, u"10"_s, u"1"_s);
        seed::car(502, u"3"_s, u"10"_s, u"1"_s);
        seed::car(503, u"4"_s, u"10"_s, u"2"_s);
    }
    TempApp app;
};

TEST_F(GroupLimit, aThirdCarOfAGroupOfTwoIsRefusedWithTheGroupsName)
{
    seedGroup(2);
    seed::entry(500, 500, u"2002-01-01"_s, {}, u"10"_s);
    seed::entry(500, 501, u"2002-01-01"_s, {}, u"10"_s);
    SingleEntry screen(u"0"_s);
    EXPECT_EQ(child<QLineEdit>(screen.form, u"txtGroup"_s)->text(), u""_s);
    choose(screen.car(), u"3"_s);
    EXPECT_EQ(child<QLineEdit>(screen.form, u"txtGroup"_s)->text(), u"Group A"_s);
    typeAndLeave(screen.form, screen.efctv(), u"2002-03-17"_s);
    screen.apply();
    expectOneCriticalBox(app, u"Adding this Car/Driver will exceed the number of Cars/Drivers for Group Group A."_s);
    EXPECT_EQ(app.count(u"team_car"_s), 2);

    // A car of another group is not held to it.
    app.presenter().clear();
    screen.add(u"4"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

TEST_F(GroupLimit, aFutureTerminationDateFreesThePlace)
{
    seedGroup(2);
    seed::entry(500, 500, u"2002-01-01"_s, {}, u"10"_s);
    seed::entry(500, 501, u"2002-01-01"_s, u"2099-12-31"_s, u"10"_s);
    SingleEntry screen(u"0"_s);
    screen.add(u"3"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    EXPECT_EQ(app.count(u"team_car"_s), 3);
}

TEST_F(GroupLimit, limitZeroRefusesEveryCarOfTheGroupForATeamInALeague)
{
    seedGroup(0);
    SingleEntry screen(u"0"_s);
    screen.add(u"1"_s);
    expectOneCriticalBox(app, u"Adding this Car/Driver will exceed the number of Cars/Drivers for Group Group A."_s);
    EXPECT_EQ(app.count(u"team_car"_s), 0);
}

TEST_F(GroupLimit, limitZeroDoesNotApplyToATeamInNoLeague)
{
    seedGroup(0, false);
    SingleEntry screen(u"0"_s);
    screen.add(u"1"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    EXPECT_EQ(app.count(u"team_car"_s), 1);
}

// ---- the dates around the last posted and the last scored race ----

struct DateCase {
    const char* name;
    const char* typed;
    const char* shown;     // the field's text afterwards
    const char* message;   // "" when accepted
};

void PrintTo(const DateCase& c, std::ostream* os)
{
    *os << c.name;
}

class EffectiveDateRule : public ::testing::TestWithParam<DateCase> {};

TEST_P(EffectiveDateRule, anEntryBeginsOnlyAfterTheLastPostedRaceOfTheSeries)
{
    const DateCase& c = GetParam();
    TempApp app;
    teamInLeagues({{500, u"0"_s}});
    seed::car(500, u"24"_s, u"10"_s);
    seed::race(500, u"2001-09-30"_s);
    seed::race(501, u"2001-10-07"_s);
    seed::race(502, u"2001-10-14"_s);   // on the calendar, not yet posted
    seed::race(503, u"2002-05-01"_s, 6);
    seed::scored(500, 500, 500, 500);
    seed::scored(501, 500, 500, 500);
    seed::scored(503, 500, 500, 500);   // another series is scored later: no matter

    SingleEntry screen(u"0"_s);
    choose(screen.car(), u"24"_s);
    typeAndLeave(screen.form, screen.efctv(), QString::fromLatin1(c.typed));
    EXPECT_EQ(screen.efctv()->text(), QString::fromLatin1(c.shown));
    if (*c.message) {
        expectOneCriticalBox(app, QString::fromUtf8(c.message));
        EXPECT_EQ(QApplication::focusWidget(), screen.efctv());
        EXPECT_FALSE(screen.entry.efctvDt().isValid());
    } else {
        EXPECT_TRUE(app.presenter().boxes().isEmpty());
        EXPECT_EQ(shortDate(screen.entry.efctvDt()), QString::fromLatin1(c.shown));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, EffectiveDateRule,
    ::testing::Values(
        DateCase{"onTheLastPostedRace", "2001-10-07", "2001-10-07",
                 "Results have been posted for races after this date.\n"
                 "This Car/Driver must be made effective after 2001-10-07."},
        DateCase{"beforeIt", "9/1/2001", "2001-09-01",
                 "Results have been posted for races after this date.\n"
                 "This Car/Driver must be made effective after 2001-10-07."},
        DateCase{"theDayAfter", "10/08/01", "2001-10-08", ""},
        DateCase{"notADate", "Oct 8th", "Oct 8th", "Invalid Entry"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(EffectiveDateRuleWithoutPosting, aSeriesWithNoScoredRaceHasNoLimitAndAnEmptyFieldPasses)
{
    TempApp app;
    teamInLeagues({});
    seed::car(500, u"24"_s, u"10"_s);
    seed::race(500, u"2001-10-07"_s);   // results typed, nothing posted
    seed::result(500, 500, 1);
    SingleEntry screen(u"0"_s);
    choose(screen.car(), u"24"_s);
    typeAndLeave(screen.form, screen.efctv(), u"1990-01-01"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    typeAndLeave(screen.form, screen.efctv(), u"   "_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    EXPECT_EQ(shortDate(screen.entry.efctvDt()), u"1990-01-01"_s);
}

class TerminationDateRule : public ::testing::TestWithParam<DateCase> {};

TEST_P(TerminationDateRule, anEntryEndsOnlyAfterTheCarsLastScoredRaceForTheTeam)
{
    const DateCase& c = GetParam();
    TempApp app;
    teamInLeagues({{500, u"0"_s}});
    seed::team(501, u"Rival"_s);
    seed::car(500, u"24"_s, u"10"_s);
    seed::entry(500, 500, u"2001-02-01"_s, {}, u"10"_s);
    seed::race(500, u"2001-10-07"_s);
    seed::race(501, u"2001-10-14"_s);
    seed::scored(500, 500, 500, 500);
    seed::scored(501, 500, 501, 500);   // another team's results do not matter

    cTeamCar entry;
    ASSERT_EQ(entry.load(500, 500), 1);
    Currency total;
    frmTeamCar form;
    form.fill(entry, total);
    showActive(form);
    auto* term = child<QLineEdit>(form, u"txtTermDt"_s);
    typeAndLeave(form, term, QString::fromLatin1(c.typed));
    EXPECT_EQ(term->text(), QString::fromLatin1(c.shown));
    if (*c.message) {
        expectOneCriticalBox(app, QString::fromUtf8(c.message));
        EXPECT_FALSE(entry.termDt().isValid());
    } else {
        EXPECT_TRUE(app.presenter().boxes().isEmpty());
        EXPECT_EQ(shortDate(entry.termDt()), QString::fromLatin1(c.shown));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TerminationDateRule,
    ::testing::Values(DateCase{"onTheScoredRace", "2001-10-07", "2001-10-07",
                               "Car has been scored for this Team beyond this date.\n"
                               "Termination date must be set beyond latest scored race."},
                      DateCase{"theDayAfter", "10/8/2001", "2001-10-08", ""},
                      DateCase{"onTheEffectiveDate", "2001-02-01", "2001-02-01",
                               "Car has been scored for this Team beyond this date.\n"
                               "Termination date must be set beyond latest scored race."},
                      DateCase{"notADate", "soon", "soon", "Invalid Entry"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(TerminationDateRuleUnscored, equalDatesPassAnEarlierOneIsRefusedAndEmptyReopens)
{
    TempApp app;
    teamInLeagues({});
    seed::car(500, u"24"_s, u"10"_s);
    seed::entry(500, 500, u"2002-03-01"_s, u"2002-04-01"_s, u"10"_s);
    cTeamCar entry;
    ASSERT_EQ(entry.load(500, 500), 1);
    Currency total;
    frmTeamCar form;
    form.fill(entry, total);
    showActive(form);
    auto* term = child<QLineEdit>(form, u"txtTermDt"_s);
    EXPECT_EQ(term->text(), u"2002-04-01"_s);

    typeAndLeave(form, term, u"2002-02-28"_s);
    expectOneCriticalBox(app, u"Termination Date must be greater then Effective Date"_s);
    EXPECT_EQ(shortDate(entry.termDt()), u"2002-04-01"_s);

    app.presenter().clear();
    typeAndLeave(form, term, u"2002-03-01"_s);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    EXPECT_EQ(shortDate(entry.termDt()), u"2002-03-01"_s);

    typeAndLeave(form, term, u""_s);
    EXPECT_FALSE(entry.termDt().isValid());
}

// ---- saving one entry ----

TEST(SaveOneEntry, requiredFieldsComeFirstInTheirOrder)
{
    TempApp app;
    teamInLeagues({});
    seed::car(500, u"24"_s, u"10"_s);
    SingleEntry screen(u"0"_s);
    EXPECT_EQ(screen.form.windowTitle(), u"Add Car/Driver for Speedy"_s);
    EXPECT_FALSE(screen.form.saveEntry());
    expectOneCriticalBox(app, u"Car Number is a required field"_s);

    app.presenter().clear();
    choose(screen.car(), u"24"_s);
    EXPECT_FALSE(screen.form.saveEntry());
    expectOneCriticalBox(app, u"Effective Date is a required field"_s);
    EXPECT_EQ(QApplication::focusWidget(), screen.efctv());
    EXPECT_EQ(app.count(u"team_car"_s), 0);
}

TEST(SaveOneEntry, aDatePickedFromTheCalendarIsCheckedAndStoredOnSaving)
{
    TempApp app;
    teamInLeagues({});
    seed::car(500, u"24"_s, u"10"_s);
    SingleEntry screen(u"0"_s);
    choose(screen.car(), u"24"_s);
    child<QToolButton>(screen.form, u"cmdEfctvDate"_s)->click();
    EXPECT_EQ(screen.efctv()->text(), u"2002-03-17"_s);
    child<QPushButton>(screen.form, u"cmdOK"_s)->click();
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    EXPECT_EQ(app.scalar(u"SELECT efctv_dt FROM team_car"_s), u"2002-03-17"_s);
    EXPECT_FALSE(screen.form.isVisible());
}

TEST(SaveOneEntry, anExistingEntryShowsThePresentSalaryButKeepsItsLockedOne)
{
    TempApp app;
    teamInLeagues({{500, u"1000"_s}});
    seed::car(500, u"24"_s, u"700"_s);
    seed::entry(500, 500, u"2002-01-01"_s, {}, u"300"_s);
    cTeamCar entry;
    ASSERT_EQ(entry.load(500, 500), 1);
    Currency total = money(u"300"_s);
    frmTeamCar form;
    form.fill(entry, total);
    showActive(form);
    EXPECT_EQ(form.windowTitle(), u"Update Car 24 for Speedy"_s);
    EXPECT_FALSE(child<QComboBox>(form, u"cmbCarTxt"_s)->isEnabled());
    EXPECT_EQ(child<QLineEdit>(form, u"txtSalary"_s)->text(), u"$700.00"_s);
    EXPECT_EQ(child<QLineEdit>(form, u"txtEfctvDt"_s)->text(), u"2002-01-01"_s);

    // Opened ready to save: OK alone writes; the open entry is still held to the cap (700 fits).
    child<QPushButton>(form, u"cmdOK"_s)->click();
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    EXPECT_EQ(app.scalar(u"SELECT locked_salary FROM team_car"_s), u"300"_s);
    EXPECT_FALSE(form.isVisible());
}

TEST(SaveOneEntry, aTerminatedEntryIsSavedWithoutTheCapOrGroupTests)
{
    TempApp app;
    seed::run(u"UPDATE group_dm SET max_nmbr = 0 WHERE group_nmbr = 1"_s);
    teamInLeagues({{500, u"100"_s}});
    seed::car(500, u"24"_s, u"5000"_s, u"1"_s);
    seed::entry(500, 500, u"2002-01-01"_s, {}, u"5000"_s);
    cTeamCar entry;
    ASSERT_EQ(entry.load(500, 500), 1);
    entry.setTermDt(u"2002-06-01"_s);   // as the roster's Terminate proposes it
    Currency total = money(u"5000"_s);
    frmTeamCar form;
    form.fill(entry, total);
    showActive(form);
    EXPECT_EQ(child<QLineEdit>(form, u"txtTermDt"_s)->text(), u"2002-06-01"_s);
    child<QPushButton>(form, u"cmdOK"_s)->click();
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u" | "_s));
    EXPECT_EQ(app.scalar(u"SELECT term_dt FROM team_car"_s), u"2002-06-01"_s);
}

// ---- the grid of new entries ----

struct Grid {
    explicit Grid(const QString& total)
    {
        team.load(500);
        form.fill(team, money(total));
        showActive(form);
    }
    template <class W>
    W* cell(const QString& name, int row)
    {
        for (W* widget : form.findChildren<W*>(name))
            if (widget->property("index").toInt() == row)
                return widget;
        ADD_FAILURE() << "no " << qPrintable(name) << " in row " << row;
        return nullptr;
    }
    void fillRow(int row, const QString& carTxt, const QString& efctv)
    {
        if (!carTxt.isEmpty())
            choose(cell<QComboBox>(u"cmbCar"_s, row), carTxt);
        typeAndLeave(form, cell<QLineEdit>(u"txtEfctvDt"_s, row), efctv);
    }
    void ok() { child<QPushButton>(form, u"cmdOK"_s)->click(); }

    cTeam team;
    frmTeamCarMultiple form;
};

class SeveralEntries : public ::testing::Test {
protected:
    void SetUp() override
    {
        seed::run(u"UPDATE group_dm SET max_nmbr = 0 WHERE group_nmbr = 1"_s);
        seed::car(500, u"1"_s, u"400"_s, u"1"_s);
        seed::car(501, u"2"_s, u"600"_s);
        seed::car(502, u"3"_s, u"1"_s);
    }
    TempApp app;
};

TEST_F(SeveralEntries, theSumOfTheRowsMayFillTheCapExactlyAndTheGroupIsNotTested)
{
    teamInLeagues({{500, u"2000"_s}});
    Grid grid(u"1000"_s);
    EXPECT_EQ(grid.form.windowTitle(), u"Add Car/Driver for Speedy"_s);
    EXPECT_EQ(grid.form.rowCount(), 7);
    grid.fillRow(0, u"1"_s, u"2002-03-17"_s);
    EXPECT_EQ(grid.cell<QLineEdit>(u"txtSalary"_s, 0)->text(), u"$400.00"_s);
    EXPECT_EQ(grid.cell<QLineEdit>(u"txtGroup"_s, 0)->text(), u"Group A"_s);
    grid.fillRow(1, u"2"_s, u"3/18/2002"_s);
    grid.fillRow(2, {}, u"2002-03-19"_s);   // a date without a car is ignored
    grid.ok();
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u" | "_s));
    EXPECT_EQ(app.count(u"team_car"_s), 2);
    EXPECT_EQ(app.scalar(u"SELECT efctv_dt || ' ' || locked_salary || ' ' || active || ' ' || price FROM team_car "
                         u"WHERE car_nmbr = 501"_s),
              u"2002-03-18 600.0 1 0.0"_s);
    EXPECT_FALSE(grid.form.isVisible());
}

TEST_F(SeveralEntries, aSumOneCentOverAnyLeagueIsRefusedBeforeAnythingIsWritten)
{
    seed::run(u"UPDATE cars SET salary = 600.01 WHERE car_nmbr = 501"_s);
    teamInLeagues({{500, u"2000"_s}, {501, u"100000"_s}});
    Grid grid(u"1000"_s);
    grid.fillRow(0, u"1"_s, u"2002-03-17"_s);
    grid.fillRow(1, u"2"_s, u"2002-03-17"_s);
    grid.ok();
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    EXPECT_EQ(app.presenter().boxes().first().text,
              u"Adding these cars/drivers will exceed at least one leagues salary cap."_s);
    EXPECT_EQ(app.presenter().boxes().first().icon, Icon::None);
    EXPECT_EQ(app.count(u"team_car"_s), 0);
    EXPECT_TRUE(grid.form.isVisible());
}

TEST_F(SeveralEntries, aLeagueWithoutACapRefusesAnySumAboveZero)
{
    teamInLeagues({{500, u"0"_s}});
    Grid grid(u"0"_s);
    grid.fillRow(0, u"3"_s, u"2002-03-17"_s);
    grid.ok();
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    EXPECT_EQ(app.presenter().boxes().first().text,
              u"Adding these cars/drivers will exceed at least one leagues salary cap."_s);
    EXPECT_EQ(app.count(u"team_car"_s), 0);
}

TEST_F(SeveralEntries, aCarWithoutADateStopsTheSaveBeforeTheSalaryTest)
{
    teamInLeagues({{500, u"0"_s}});
    Grid grid(u"0"_s);
    grid.fillRow(0, u"3"_s, u"2002-03-17"_s);
    choose(grid.cell<QComboBox>(u"cmbCar"_s, 1), u"2"_s);
    grid.ok();
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    EXPECT_EQ(app.presenter().boxes().first().text, u"Effective date is required"_s);
    EXPECT_EQ(app.presenter().boxes().first().title, u"Lapkeeper"_s);
    EXPECT_EQ(app.presenter().boxes().first().icon, Icon::None);
    EXPECT_EQ(QApplication::focusWidget(), grid.cell<QLineEdit>(u"txtEfctvDt"_s, 1));
    EXPECT_EQ(app.count(u"team_car"_s), 0);
}

TEST_F(SeveralEntries, applyKeepsTheRowsAndTheAvailableSalary)
{
    teamInLeagues({{500, u"5000"_s}});
    Grid grid(u"1000"_s);
    grid.fillRow(0, u"2"_s, u"2002-03-17"_s);
    child<QPushButton>(grid.form, u"cmdApply"_s)->click();
    EXPECT_EQ(app.count(u"team_car"_s), 1);
    EXPECT_EQ(grid.cell<QComboBox>(u"cmbCar"_s, 0)->currentText(), u"2"_s);
    EXPECT_EQ(child<QTreeWidget>(grid.form, u"lvwLeagues"_s)->topLevelItem(0)->text(1), u"$4,000.00"_s);
    EXPECT_TRUE(child<QPushButton>(grid.form, u"cmdApply"_s)->isEnabled());
}

TEST_F(SeveralEntries, theRowDatesFollowTheSameRulesAsTheSingleScreen)
{
    teamInLeagues({{500, u"0"_s}});
    seed::race(500, u"2001-10-07"_s);
    seed::scored(500, 500, 500, 500);
    Grid grid(u"0"_s);
    grid.fillRow(0, u"1"_s, u"2001-10-07"_s);
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    EXPECT_EQ(app.presenter().boxes().first().text,
              u"Results have been posted for races after this date.\n"
              u"This Car/Driver must be made effective after 2001-10-07."_s);
    EXPECT_EQ(app.presenter().boxes().first().icon, Icon::Critical);
}

TEST_F(SeveralEntries, enterOnTheLastRowAddsARow)
{
    teamInLeagues({});
    Grid grid(u"0"_s);
    QLineEdit* last = grid.cell<QLineEdit>(u"txtEfctvDt"_s, 6);
    last->setFocus(Qt::TabFocusReason);
    QTest::keyClick(last, Qt::Key_Return);
    EXPECT_EQ(grid.form.rowCount(), 8);
    EXPECT_EQ(QApplication::focusWidget(), grid.cell<QComboBox>(u"cmbCar"_s, 7));
    EXPECT_TRUE(grid.form.isVisible());
}

}  // namespace
