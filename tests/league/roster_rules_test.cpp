#include "league/league_fixtures.h"
#include "league/team.h"
#include "league/team_car.h"
#include "league/team_car_form.h"
#include "league/team_car_multiple_form.h"
#include "store/dates.h"

#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString kCapMessage = u"Adding this Car/Driver will exceed at least one Leagues salary Cap."_s;
const QString kGroupMessage = u"Adding this Car/Driver will exceed the number of Cars/Drivers for Group Group A."_s;
const QString kGridCapMessage = u"Adding these cars/drivers will exceed at least one leagues salary cap."_s;
const QString kPostedMessage = u"Results have been posted for races after this date.\n"
                               u"This Car/Driver must be made effective after 2001-10-07."_s;
const QString kScoredMessage = u"Car has been scored for this Team beyond this date.\n"
                               u"Termination date must be set beyond latest scored race."_s;
const QString kInvalidEntry = u"Invalid Entry"_s;

// Types into a field and leaves it for another control, as the operator does with Tab.
void typeAndLeave(QWidget& form, QLineEdit* field, const QString& text)
{
    retype(field, text);
    child<QPushButton>(form, u"cmdOK"_s)->setFocus(Qt::TabFocusReason);
}

// Team 500 "Speedy" of race type 1 scoring cars, a member of leagues 500, 501, ... with these caps.
void teamInLeagues(const QStringList& caps)
{
    seed::team(500, u"Speedy"_s);
    for (int i = 0; i < caps.size(); ++i) {
        seed::league(500 + i, u"League "_s + seed::n(500 + i), caps[i]);
        seed::member(500 + i, 500);
    }
}

void expectNoBox(TempApp& app)
{
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(app.presenter().boxTexts().join(u" | "_s));
}

// The single-entry screen for team 500: a new entry, or the stored entry of a car.
struct SingleEntry {
    explicit SingleEntry(double total, int existingCar = 0)
    {
        if (existingCar > 0) {
            EXPECT_EQ(entry.load(500, static_cast<int16_t>(existingCar)), 1);
        }
        entry.setTeamNmbr(500);
        totalSalary = Currency::fromDouble(total);
        form.setDatePicker([](const QDate&) { return std::optional<QDate>(QDate(2002, 3, 17)); });
        form.fill(entry, totalSalary);
        showActive(form);
    }
    QComboBox* car() { return child<QComboBox>(form, u"cmbCarTxt"_s); }
    QLineEdit* field(const QString& name) { return child<QLineEdit>(form, name); }
    QString available()
    {
        QStringList shown;
        auto* leagues = child<QTreeWidget>(form, u"lvwLeagues"_s);
        for (int i = 0; i < leagues->topLevelItemCount(); ++i)
            shown << leagues->topLevelItem(i)->text(1);
        return shown.join(u' ');
    }
    void press(const QString& button) { child<QPushButton>(form, button)->click(); }
    // Chooses a car, types an effective date and presses Apply.
    void add(const QString& carTxt, const QString& efctvDt = u"2002-03-17"_s)
    {
        choose(car(), carTxt);
        typeAndLeave(form, field(u"txtEfctvDt"_s), efctvDt);
        press(u"cmdApply"_s);
    }

    cTeamCar entry;
    Currency totalSalary;
    frmTeamCar form;
};

// ---- the salary cap of the single-entry screen ----

struct CapCase {
    const char* name;
    QStringList caps;   // one per league the team plays in
    double total;
    const char* salary;
    bool accepted;
};

void PrintTo(const CapCase& c, std::ostream* os) { *os << c.name; }

class SalaryCapOfOneEntry : public ::testing::TestWithParam<CapCase> {};

TEST_P(SalaryCapOfOneEntry, isHeldAgainstTheAvailableSalaryOfEachLeague)
{
    const CapCase& c = GetParam();
    TempApp app;
    teamInLeagues(c.caps);
    seed::car(500, u"24"_s, QString::fromLatin1(c.salary));
    SingleEntry screen(c.total);
    screen.add(u"24"_s);
    if (c.accepted) {
        expectNoBox(app);
    } else {
        ASSERT_EQ(app.presenter().boxes().size(), 1);
        expectLastBox(app, kCapMessage);
    }
    EXPECT_EQ(app.count(u"team_car"_s), c.accepted ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SalaryCapOfOneEntry,
    ::testing::Values(CapCase{"exactlyAtTheCap", {u"1000000"_s}, 900000, "100000", true},
                      CapCase{"oneCentOver", {u"1000000"_s}, 900000, "100000.01", false},
                      CapCase{"capZeroDoesNotLimit", {u"0"_s}, 900000, "100000", true},
                      CapCase{"negativeCapDoesNotLimit", {u"-1"_s}, 0, "100000", true},
                      CapCase{"alreadyOverTheCap", {u"1000000"_s}, 1000001, "0.01", false},
                      CapCase{"bothLeaguesHaveRoom", {u"2000000"_s, u"1000000"_s}, 900000, "100000", true},
                      CapCase{"theLowerCapOfTwoLeaguesRefuses", {u"2000000"_s, u"1000000"_s}, 1500000, "1", false},
                      CapCase{"aSecondLeagueWithoutACap", {u"1000000"_s, u"0"_s}, 900000, "100000", true}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(SalaryCapOfOneEntryAfterApply, theAvailableSalaryIsReducedSoTheNextCarIsRefused)
{
    TempApp app;
    teamInLeagues({u"1000000"_s, u"0"_s});
    seed::car(500, u"24"_s, u"100000"_s);
    seed::car(501, u"3"_s, u"1"_s);
    SingleEntry screen(900000);
    EXPECT_EQ(screen.available(), u"$100,000.00 $0.00"_s);   // a league without a cap shows nothing left

    screen.add(u"24"_s);
    expectNoBox(app);
    EXPECT_EQ(screen.available(), u"0 $0.00"_s);
    EXPECT_EQ(screen.car()->currentIndex(), -1);   // cleared for the next entry

    screen.add(u"3"_s, u"2002-03-18"_s);
    expectLastBox(app, kCapMessage);
    EXPECT_EQ(app.count(u"team_car"_s), 1);
}

// ---- the group limit ----

struct GroupCase {
    const char* name;
    int limit;                // team 500 holds cars 1 and 2 of Group A unless the limit is 0
    bool inLeague;
    const char* secondTerm;   // of car 2, "" for open
    const char* added;        // cars 1-3 are of Group A, car 4 of Group B
    bool accepted;
};

void PrintTo(const GroupCase& c, std::ostream* os) { *os << c.name; }

class GroupLimit : public ::testing::TestWithParam<GroupCase> {};

TEST_P(GroupLimit, countsTheTeamsEntriesOfTheGroupWithoutATerminationDate)
{
    const GroupCase& c = GetParam();
    TempApp app;
    seed::run(u"UPDATE group_dm SET max_nmbr = %1 WHERE group_nmbr = 1"_s.arg(c.limit));
    teamInLeagues(c.inLeague ? QStringList{u"0"_s} : QStringList{});
    for (int car = 1; car <= 4; ++car)
        seed::car(499 + car, seed::n(car), u"10"_s, car < 4 ? u"1"_s : u"2"_s);
    seed::team(501, u"Rival"_s);   // another team's entries take no place
    seed::entry(501, 502, u"2002-01-01"_s, {}, u"10"_s);
    if (c.limit > 0) {
        seed::entry(500, 500, u"2002-01-01"_s, {}, u"10"_s);
        seed::entry(500, 501, u"2002-01-01"_s, QString::fromLatin1(c.secondTerm), u"10"_s);
    }
    const int before = app.count(u"team_car"_s);
    SingleEntry screen(0);
    screen.add(QString::fromLatin1(c.added));
    if (c.accepted)
        expectNoBox(app);
    else
        expectLastBox(app, kGroupMessage);
    EXPECT_EQ(app.count(u"team_car"_s), before + (c.accepted ? 1 : 0));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, GroupLimit,
    ::testing::Values(GroupCase{"aThirdOfTwoIsRefused", 2, true, "", "3", false},
                      GroupCase{"aFutureTerminationFreesThePlace", 2, true, "2099-12-31", "3", true},
                      GroupCase{"anotherGroupIsNotHeldToIt", 2, true, "", "4", true},
                      GroupCase{"limitZeroRefusesAny", 0, true, "", "1", false},
                      GroupCase{"limitZeroSparesATeamInNoLeague", 0, false, "", "1", true}),
    [](const auto& tested) { return std::string(tested.param.name); });

// ---- the dates around the last posted and the last scored race ----

struct DateCase {
    const char* name;
    bool ending;             // the termination date of car 24's entry, else the effective date of car 3
    const char* typed;
    const char* shown;       // the field's text afterwards
    const QString* message;  // nullptr when accepted
};

void PrintTo(const DateCase& c, std::ostream* os) { *os << c.name; }

class DateRule : public ::testing::TestWithParam<DateCase> {};

// Races of series 1 were posted up to 2001-10-07 (car 24 scored for team 500 there); one on
// 2001-10-14 is not yet posted. A race of series 6, posted later, scored car 24 for another team.
TEST_P(DateRule, anEntryBeginsAfterTheLastPostedRaceOfItsSeriesAndEndsAfterItsLastScoredRaceForTheTeam)
{
    const DateCase& c = GetParam();
    TempApp app;
    teamInLeagues({u"0"_s});
    seed::team(501, u"Rival"_s);
    seed::car(500, u"24"_s, u"10"_s);
    seed::car(501, u"3"_s, u"10"_s);
    seed::entry(500, 500, u"2001-02-01"_s, {}, u"10"_s);
    seed::race(500, u"2001-09-30"_s);
    seed::race(501, u"2001-10-07"_s);
    seed::race(502, u"2001-10-14"_s);
    seed::race(503, u"2002-05-01"_s, 6);
    seed::scored(500, 500, 500, 500);
    seed::scored(501, 500, 500, 500);
    seed::scored(503, 500, 501, 500);
    SingleEntry screen(0, c.ending ? 500 : 0);
    if (!c.ending)
        choose(screen.car(), u"3"_s);
    const QString field = c.ending ? u"txtTermDt"_s : u"txtEfctvDt"_s;
    typeAndLeave(screen.form, screen.field(field), QString::fromLatin1(c.typed));
    EXPECT_EQ(screen.field(field)->text(), QString::fromLatin1(c.shown));
    const QDate stored = c.ending ? screen.entry.termDt() : screen.entry.efctvDt();
    if (c.message) {
        ASSERT_EQ(app.presenter().boxes().size(), 1);
        expectLastBox(app, *c.message);
        EXPECT_FALSE(stored.isValid());
        EXPECT_EQ(focusName(), field);
    } else {
        expectNoBox(app);
        EXPECT_EQ(shortDate(stored), QString::fromLatin1(c.shown));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, DateRule,
    ::testing::Values(DateCase{"beginOnTheLastPostedRace", false, "2001-10-07", "2001-10-07", &kPostedMessage},
                      DateCase{"beginBeforeIt", false, "9/1/2001", "2001-09-01", &kPostedMessage},
                      DateCase{"beginTheDayAfter", false, "10/08/01", "2001-10-08", nullptr},
                      DateCase{"beginNotADate", false, "Oct 8th", "Oct 8th", &kInvalidEntry},
                      DateCase{"endOnTheScoredRace", true, "2001-10-07", "2001-10-07", &kScoredMessage},
                      DateCase{"endOnTheEffectiveDate", true, "2001-02-01", "2001-02-01", &kScoredMessage},
                      DateCase{"endTheDayAfter", true, "10/8/2001", "2001-10-08", nullptr},
                      DateCase{"endNotADate", true, "soon", "soon", &kInvalidEntry}),
    [](const auto& tested) { return std::string(tested.param.name); });

// Without posted results any effective date passes; without scored races a termination may
// equal but not precede the effective date.
TEST(SaveOneEntry, requiredFieldsComeFirstThenTheDatesOfAnUnscoredSeries)
{
    TempApp app;
    teamInLeagues({});
    seed::car(500, u"24"_s, u"10"_s);
    seed::car(501, u"3"_s, u"10"_s);
    seed::race(500, u"2001-10-07"_s);   // results typed, nothing posted
    seed::result(500, 500);
    seed::entry(500, 500, u"2002-03-01"_s, u"2002-04-01"_s, u"10"_s);
    SingleEntry fresh(0);
    EXPECT_EQ(fresh.form.windowTitle(), u"Add Car/Driver for Speedy"_s);
    EXPECT_FALSE(fresh.form.saveEntry());
    expectLastBox(app, u"Car Number is a required field"_s);
    choose(fresh.car(), u"3"_s);
    EXPECT_FALSE(fresh.form.saveEntry());
    expectLastBox(app, u"Effective Date is a required field"_s);
    EXPECT_EQ(focusName(), u"txtEfctvDt"_s);
    typeAndLeave(fresh.form, fresh.field(u"txtEfctvDt"_s), u"1990-01-01"_s);
    typeAndLeave(fresh.form, fresh.field(u"txtEfctvDt"_s), u"   "_s);   // an empty field passes
    EXPECT_EQ(shortDate(fresh.entry.efctvDt()), u"1990-01-01"_s);
    child<QToolButton>(fresh.form, u"cmdEfctvDate"_s)->click();   // the calendar's date, stored on saving
    fresh.press(u"cmdOK"_s);
    EXPECT_EQ(app.scalar(u"SELECT efctv_dt FROM team_car WHERE car_nmbr = 501"_s), u"2002-03-17"_s);
    EXPECT_EQ(app.presenter().boxes().size(), 2);

    SingleEntry screen(0, 500);
    QLineEdit* term = screen.field(u"txtTermDt"_s);
    typeAndLeave(screen.form, term, u"2002-02-28"_s);
    expectLastBox(app, u"Termination Date must be greater then Effective Date"_s);
    EXPECT_EQ(shortDate(screen.entry.termDt()), u"2002-04-01"_s);
    typeAndLeave(screen.form, term, u"2002-03-01"_s);
    EXPECT_EQ(app.presenter().boxes().size(), 3);
    EXPECT_EQ(shortDate(screen.entry.termDt()), u"2002-03-01"_s);
    typeAndLeave(screen.form, term, u""_s);
    EXPECT_FALSE(screen.entry.termDt().isValid());
}

TEST(SaveOneEntry, anOpenEntryKeepsItsLockedSalaryAndATerminatedOneSkipsTheCapAndGroupTests)
{
    TempApp app;
    seed::run(u"UPDATE group_dm SET max_nmbr = 0 WHERE group_nmbr = 1"_s);
    teamInLeagues({u"1000"_s});
    seed::car(500, u"24"_s, u"700"_s);
    seed::car(501, u"88"_s, u"5000"_s, u"1"_s);
    seed::entry(500, 500, u"2002-01-01"_s, {}, u"300"_s);
    seed::entry(500, 501, u"2002-01-01"_s, u"2002-06-01"_s, u"5000"_s);

    SingleEntry open(300, 500);
    EXPECT_EQ(open.form.windowTitle(), u"Update Car 24 for Speedy"_s);
    EXPECT_EQ(open.field(u"txtSalary"_s)->text(), u"$700.00"_s);   // the present salary
    open.press(u"cmdOK"_s);   // ready to save; still held to the cap, which 700 fits
    expectNoBox(app);
    EXPECT_EQ(app.scalar(u"SELECT locked_salary FROM team_car WHERE car_nmbr = 500"_s), u"300"_s);
    EXPECT_FALSE(open.form.isVisible());

    SingleEntry ended(5300, 501);
    EXPECT_EQ(ended.field(u"txtTermDt"_s)->text(), u"2002-06-01"_s);
    ended.press(u"cmdOK"_s);
    expectNoBox(app);
    EXPECT_FALSE(ended.form.isVisible());
}

// ---- the grid of new entries ----

// Cars 1 ($400, Group A with a limit of 0), 2 ($600) and 3 ($1).
class SeveralEntries : public ::testing::Test {
protected:
    void SetUp() override
    {
        seed::run(u"UPDATE group_dm SET max_nmbr = 0 WHERE group_nmbr = 1"_s);
        seed::car(500, u"1"_s, u"400"_s, u"1"_s);
        seed::car(501, u"2"_s, u"600"_s);
        seed::car(502, u"3"_s, u"1"_s);
    }
    void open(const QStringList& caps, double total)
    {
        teamInLeagues(caps);
        team.load(500);
        form.fill(team, Currency::fromDouble(total));
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
    void press(const QString& button) { child<QPushButton>(form, button)->click(); }

    TempApp app;
    cTeam team;
    frmTeamCarMultiple form;
};

TEST_F(SeveralEntries, theSumOfTheRowsMayFillTheCapExactlyAndTheGroupIsNotTested)
{
    open({u"2000"_s}, 1000);
    fillRow(0, u"1"_s, u"2002-03-17"_s);
    EXPECT_EQ(cell<QLineEdit>(u"txtSalary"_s, 0)->text() + u' ' + cell<QLineEdit>(u"txtGroup"_s, 0)->text(),
              u"$400.00 Group A"_s);
    fillRow(1, u"2"_s, u"3/18/2002"_s);
    fillRow(2, {}, u"2002-03-19"_s);   // a date without a car is ignored
    press(u"cmdOK"_s);
    expectNoBox(app);
    EXPECT_EQ(app.scalar(u"SELECT count(*) FROM team_car"_s), u"2"_s);
    EXPECT_EQ(app.scalar(u"SELECT efctv_dt || ' ' || locked_salary || ' ' || active || ' ' || price FROM team_car "
                         u"WHERE car_nmbr = 501"_s),
              u"2002-03-18 600.0 1 0.0"_s);
    EXPECT_FALSE(form.isVisible());
}

// Unlike the single screen, the grid holds a league without a cap to nothing left.
struct GridCapCase {
    const char* name;
    QStringList caps;
    const char* secondSalary;   // of car 2 ("" to leave the row empty)
};

void PrintTo(const GridCapCase& c, std::ostream* os) { *os << c.name; }

class SeveralEntriesOverTheCap : public SeveralEntries, public ::testing::WithParamInterface<GridCapCase> {};

TEST_P(SeveralEntriesOverTheCap, isRefusedBeforeAnythingIsWritten)
{
    const GridCapCase& c = GetParam();
    seed::run(u"UPDATE cars SET salary = %1 WHERE car_nmbr = 501"_s.arg(QString::fromLatin1(c.secondSalary)));
    open(c.caps, c.caps.first() == u"0"_s ? 0 : 1000);
    fillRow(0, u"1"_s, u"2002-03-17"_s);
    fillRow(1, u"2"_s, u"2002-03-17"_s);
    press(u"cmdOK"_s);
    expectLastBox(app, kGridCapMessage, Icon::None);
    EXPECT_EQ(app.count(u"team_car"_s), 0);
    EXPECT_TRUE(form.isVisible());
}

INSTANTIATE_TEST_SUITE_P(Cases, SeveralEntriesOverTheCap,
                         ::testing::Values(GridCapCase{"oneCentOverTheLowerCap", {u"2000"_s, u"100000"_s}, "600.01"},
                                           GridCapCase{"aLeagueWithoutACap", {u"0"_s}, "0"}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(SeveralEntries, aCarWithoutADateStopsTheSaveBeforeTheSalaryTest)
{
    open({u"0"_s}, 0);
    fillRow(0, u"3"_s, u"2002-03-17"_s);
    choose(cell<QComboBox>(u"cmbCar"_s, 1), u"2"_s);
    press(u"cmdOK"_s);
    expectLastBox(app, u"Effective date is required"_s, Icon::None);
    EXPECT_EQ(app.presenter().boxes().size(), 1);
    EXPECT_EQ(QApplication::focusWidget(), cell<QLineEdit>(u"txtEfctvDt"_s, 1));
    EXPECT_EQ(app.count(u"team_car"_s), 0);
}

}  // namespace
