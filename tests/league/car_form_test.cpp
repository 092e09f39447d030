#include "league/car.h"
#include "league/car_form.h"
#include "league/league_fixtures.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class CarScreen : public ::testing::Test {
protected:
    // Opens the screen on a new entry, or on the stored entry of that number.
    void open(int number = 0)
    {
        if (number > 0) {
            ASSERT_EQ(car.load(static_cast<int16_t>(number)), 1);
        }
        form.fill(car);
        showActive(form);
    }
    QLineEdit* field(const QString& name) { return child<QLineEdit>(form, name); }
    QPushButton* apply() { return child<QPushButton>(form, u"cmdApply"_s); }
    void type(const QString& name, const QString& text) { retype(field(name), text); }
    void leave(const QString& name) { QTest::keyClick(field(name), Qt::Key_Tab); }
    void raceType(int number) { choose(child<QComboBox>(form, u"cmbRaceType"_s), number); }
    void pick(const QString& option) { child<QRadioButton>(form, option)->click(); }

    TempApp app;
    cCar car;
    frmCar form;
};

TEST_F(CarScreen, aNewCarIsRefusedFieldByFieldInOrderThenSavedAndItsKindAndNumberAreFixed)
{
    open();
    EXPECT_FALSE(apply()->isEnabled());
    type(u"txtSponsor"_s, u"Duprey"_s);
    ASSERT_TRUE(apply()->isEnabled());

    EXPECT_FALSE(form.applyCar());
    expectRefusal(app, u"Race Type is a required field"_s, u"cmbRaceType"_s);
    raceType(1);
    EXPECT_FALSE(form.applyCar());
    expectRefusal(app, u"Car Number is a required field"_s, u"txtCarNumber"_s);
    type(u"txtCarNumber"_s, u"24"_s);
    EXPECT_EQ(form.windowTitle(), u"Car - 24  "_s);
    EXPECT_FALSE(form.applyCar());
    expectRefusal(app, u"Driver is a required field"_s, u"txtDriver"_s);
    type(u"txtDriver"_s, u"Jess Gorman"_s);
    EXPECT_FALSE(form.applyCar());
    expectRefusal(app, u"You must define this as a Car or Driver"_s);
    EXPECT_EQ(app.count(u"cars"_s), 0);

    pick(u"OptCar"_s);
    const int boxes = app.presenter().boxes().size();
    QTest::mouseClick(apply(), Qt::LeftButton);
    EXPECT_EQ(app.presenter().boxes().size(), boxes);   // a car is not asked about its name
    EXPECT_EQ(app.scalar(u"SELECT car_nmbr || '/' || car_txt || '/' || driver_name || '/' || sponsor || '/' || "
                         u"car_type_nmbr FROM cars"_s),
              u"500/24/Jess Gorman/Duprey/1"_s);
    EXPECT_FALSE(apply()->isEnabled());
    EXPECT_EQ(form.windowTitle(), u"Car - 24  Jess Gorman"_s);
    EXPECT_FALSE(field(u"txtCarNumber"_s)->isEnabled());
    EXPECT_TRUE(field(u"txtDriver"_s)->isEnabled());
    EXPECT_FALSE(child<QRadioButton>(form, u"OptCar"_s)->isEnabled());
    EXPECT_FALSE(child<QRadioButton>(form, u"OptDriver"_s)->isEnabled());
    EXPECT_TRUE(child<QRadioButton>(form, u"optBonus"_s)->isEnabled());
}

// A number is a duplicate among the cars of the race type, a name among its drivers; both
// are refused on leaving the field and on saving, a driver's before the question about its name.
TEST_F(CarScreen, duplicatesAreRefusedWithinTheRaceTypeAndKindOnly)
{
    seed::car(500, u"24"_s, u"1000"_s);
    seed::car(501, u"88"_s, u"1000"_s, u"NULL"_s, 1, 2, u"Jess Gorman"_s);
    open();
    raceType(1);
    pick(u"OptDriver"_s);
    type(u"txtCarNumber"_s, u"24"_s);
    type(u"txtDriver"_s, u"Jess Gorman"_s);
    leave(u"txtDriver"_s);
    expectRefusal(app, u"Duplicate Driver"_s, u"txtDriver"_s);
    EXPECT_FALSE(form.applyCar());
    expectRefusal(app, u"Duplicate Driver"_s, u"txtDriver"_s);

    type(u"txtDriver"_s, u"Dane"_s);
    pick(u"OptCar"_s);
    type(u"txtCarNumber"_s, u"24"_s);
    leave(u"txtCarNumber"_s);
    EXPECT_FALSE(form.applyCar());
    EXPECT_EQ(app.presenter().boxTexts(), (QStringList{u"Duplicate Driver"_s, u"Duplicate Driver"_s,
                                                       u"Duplicate Car"_s, u"Duplicate Car"_s}));
    EXPECT_EQ(focusName(), u"txtCarNumber"_s);
    raceType(6);
    EXPECT_TRUE(form.applyCar());
    EXPECT_EQ(app.count(u"cars"_s, u"WHERE car_txt = '24'"_s), 2);
}

TEST_F(CarScreen, aDriverMayCarryTheNumberOfACarButIsAskedAboutTheNameBeforeTheFirstSave)
{
    seed::car(500, u"24"_s, u"1000"_s, u"NULL"_s, 1, 1, u"Jess Gorman"_s);
    open();
    raceType(1);
    pick(u"OptDriver"_s);
    type(u"txtCarNumber"_s, u"24"_s);
    type(u"txtDriver"_s, u"Jess Gorman"_s);
    EXPECT_EQ(form.windowTitle(), u"Driver - Jess Gorman 24"_s);

    app.presenter().queueAnswer(Answer::No);
    EXPECT_FALSE(form.applyCar());
    expectLastBox(app,
                  u"Driver name can not be changed once the Driver is saved.\n"
                  u"Are you sure the name is spelled correctly?"_s,
                  Icon::Question, Buttons::YesNoCancel);
    EXPECT_EQ(focusName(), u"txtDriver"_s);
    EXPECT_EQ(app.count(u"cars"_s), 1);

    app.presenter().queueAnswer(Answer::Yes);
    EXPECT_TRUE(form.applyCar());
    EXPECT_EQ(car.carNmbr(), 501);
    EXPECT_FALSE(field(u"txtDriver"_s)->isEnabled());
    EXPECT_TRUE(field(u"txtCarNumber"_s)->isEnabled());
    type(u"txtSponsor"_s, u"Pepsi"_s);
    EXPECT_TRUE(form.applyCar());   // saved once, the driver is not asked again
}

TEST_F(CarScreen, aRaceTypeHasOneTopBonusWhichNeedsNeitherNumberNorDriver)
{
    cCar existing;
    existing.getTopBonusCar(1);
    open();
    raceType(1);
    pick(u"optBonus"_s);
    EXPECT_FALSE(form.applyCar());
    expectRefusal(app, u"You can only have one Bonus type per Race Type."_s);
    raceType(6);
    EXPECT_TRUE(form.applyCar());
    EXPECT_EQ(app.count(u"cars"_s, u"WHERE car_type_nmbr = 3"_s), 2);
    EXPECT_FALSE(child<QRadioButton>(form, u"optBonus"_s)->isEnabled());
    EXPECT_TRUE(form.applyCar());   // the saved bonus is not a second one of its race type
    EXPECT_EQ(app.presenter().boxes().size(), 1);
}

TEST_F(CarScreen, aSalaryMustBeAnAmountAndTheBlankGroupTakesTheCarOutOfItsGroup)
{
    seed::car(500, u"24"_s, u"1000"_s);
    open(500);
    EXPECT_EQ(field(u"txtSalary"_s)->text(), u"$1,000.00"_s);
    EXPECT_EQ(child<QComboBox>(form, u"cmbGroup"_s)->currentIndex(), -1);   // no group, nothing chosen

    type(u"txtSalary"_s, u"lots"_s);
    leave(u"txtSalary"_s);
    expectRefusal(app, u"Invalid Salary amount"_s, u"txtSalary"_s);
    EXPECT_FALSE(form.applyCar());
    expectRefusal(app, u"Invalid Salary amount"_s, u"txtSalary"_s);

    type(u"txtSalary"_s, u"1500"_s);
    choose(child<QComboBox>(form, u"cmbGroup"_s), 2);
    EXPECT_TRUE(form.applyCar());
    EXPECT_EQ(app.scalar(u"SELECT salary || '/' || group_nmbr FROM cars WHERE car_nmbr = 500"_s), u"1500.0/2"_s);

    choose(child<QComboBox>(form, u"cmbGroup"_s), -1);
    EXPECT_TRUE(form.applyCar());
    EXPECT_EQ(app.scalar(u"SELECT group_nmbr FROM cars WHERE car_nmbr = 500"_s), u"-1"_s);
}

TEST_F(CarScreen, aCarOnARosterOfItsRaceTypeKeepsTheRaceType)
{
    seed::car(500, u"24"_s, u"1000"_s);
    seed::entry(500, 500, u"2002-01-01"_s, u"2002-02-01"_s, u"0"_s);   // terminated still counts
    open(500);
    raceType(6);
    expectRefusal(app, u"This Car is a member of at least one Team for the current Race Type.\n"
                       u"Can not change Race Type."_s);
    EXPECT_EQ(child<QComboBox>(form, u"cmbRaceType"_s)->currentData().toInt(), 1);
    EXPECT_EQ(car.raceTypeNmbr(), 1);
    EXPECT_FALSE(apply()->isEnabled());
}

TEST_F(CarScreen, cancelAsksToSaveYesSavesAndStaysOpenNoClosesWithoutSaving)
{
    seed::car(500, u"24"_s, u"1000"_s, u"NULL"_s, 1, 1, u"Jess Gorman"_s);
    open(500);
    QTest::mouseClick(child<QLabel>(form, u"lblCarNmbr"_s), Qt::LeftButton);
    expectLastBox(app, u"Car number is 500"_s, Icon::None);
    auto* cancel = child<QPushButton>(form, u"cmdCancel"_s);
    type(u"txtOwner"_s, u"Rick"_s);

    app.presenter().queueAnswer(Answer::Cancel);
    cancel->click();
    EXPECT_TRUE(form.isVisible());
    expectLastBox(app, u"Do you want to save changes"_s, Icon::Question, Buttons::YesNoCancel,
                  u"24   Jess Gorman"_s);
    app.presenter().queueAnswer(Answer::Yes);
    cancel->click();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(app.scalar(u"SELECT car_owner FROM cars"_s), u"Rick"_s);

    type(u"txtMake"_s, u"Fenwick"_s);
    app.presenter().queueAnswer(Answer::No);
    cancel->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(app.scalar(u"SELECT car_make FROM cars"_s), u""_s);
    EXPECT_EQ(app.presenter().boxes().size(), 4);
}

} // namespace
