#include "league/car.h"
#include "league/car_form.h"
#include "support/temp_app.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void run(const QString& statement)
{
    IDatabase db;
    ASSERT_TRUE(db.execute(statement)) << qPrintable(statement);
}

void storeCar(int number, const QString& text, const QString& driver, int raceType, int carType)
{
    run(u"INSERT INTO cars VALUES (%1, '%2', '', '', '', '%3', %4, %5, NULL, 1000)"_s.arg(number)
            .arg(text, driver)
            .arg(raceType)
            .arg(carType));
}

class CarScreen : public ::testing::Test {
protected:
    void open(cCar& record)
    {
        form.fill(record);
        form.show();
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    template <class T>
    T* get(const QString& name)
    {
        T* widget = form.findChild<T*>(name);
        EXPECT_NE(widget, nullptr) << qPrintable(name);
        return widget;
    }
    QLineEdit* field(const QString& name) { return get<QLineEdit>(name); }
    QPushButton* apply() { return get<QPushButton>(u"cmdApply"_s); }
    void type(const QString& name, const QString& text)
    {
        QLineEdit* edit = field(name);
        edit->setFocus();
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Backspace);
        QTest::keyClicks(edit, text);
    }
    void chooseRaceType(int number)
    {
        auto* list = get<QComboBox>(u"cmbRaceType"_s);
        const int index = list->findData(number);
        ASSERT_GE(index, 0);
        list->setCurrentIndex(index);
        emit list->activated(index);
    }
    void chooseGroup(int number)
    {
        auto* list = get<QComboBox>(u"cmbGroup"_s);
        const int index = list->findData(number);
        ASSERT_GE(index, 0);
        list->setCurrentIndex(index);
        emit list->activated(index);
    }
    void pick(const QString& option) { get<QRadioButton>(option)->click(); }
    // The last box: a critical one titled "Lapkeeper" with this text, and the focus on a field.
    void expectRefusal(const QString& text, const QString& focused = {})
    {
        ASSERT_FALSE(app.presenter().boxes().isEmpty());
        const RecordedBox& box = app.presenter().boxes().constLast();
        EXPECT_EQ(box.text, text);
        EXPECT_EQ(box.title, u"Lapkeeper"_s);
        EXPECT_EQ(box.icon, Icon::Critical);
        if (!focused.isEmpty()) {
            ASSERT_NE(QApplication::focusWidget(), nullptr);
            EXPECT_EQ(QApplication::focusWidget()->objectName(), focused);
        }
    }

    TempApp app;
    frmCar form;
};

TEST_F(CarScreen, aNewCarIsRefusedFieldByFieldInOrderThenSavedAndItsKindAndNumberAreFixed)
{
    cCar car;
    open(car);
    EXPECT_FALSE(apply()->isEnabled());
    type(u"txtSponsor"_s, u"DuPont"_s);
    ASSERT_TRUE(apply()->isEnabled());

    EXPECT_FALSE(form.applyCar());
    expectRefusal(u"Race Type is a required field"_s, u"cmbRaceType"_s);
    chooseRaceType(1);
    EXPECT_FALSE(form.applyCar());
    expectRefusal(u"Car Number is a required field"_s, u"txtCarNumber"_s);
    type(u"txtCarNumber"_s, u"24"_s);
    EXPECT_EQ(form.windowTitle(), u"Car - 24  "_s);
    EXPECT_FALSE(form.applyCar());
    expectRefusal(u"Driver is a required field"_s, u"txtDriver"_s);
    type(u"txtDriver"_s, u"Jeff Gordon"_s);
    EXPECT_FALSE(form.applyCar());
    expectRefusal(u"You must define this as a Car or Driver"_s);
    EXPECT_EQ(app.count(u"cars"_s), 0);

    pick(u"OptCar"_s);
    const int boxes = app.presenter().boxes().size();
    QTest::mouseClick(apply(), Qt::LeftButton);
    EXPECT_EQ(app.presenter().boxes().size(), boxes);   // a car is not asked about its name
    EXPECT_EQ(car.carNmbr(), 500);
    EXPECT_EQ(app.scalar(u"SELECT car_txt || '/' || driver_name || '/' || sponsor || '/' || car_type_nmbr "
                         u"FROM cars WHERE car_nmbr = 500"_s),
              u"24/Jeff Gordon/DuPont/1"_s);
    EXPECT_FALSE(apply()->isEnabled());
    EXPECT_EQ(form.windowTitle(), u"Car - 24  Jeff Gordon"_s);
    EXPECT_FALSE(field(u"txtCarNumber"_s)->isEnabled());
    EXPECT_TRUE(field(u"txtDriver"_s)->isEnabled());
    EXPECT_FALSE(get<QRadioButton>(u"OptCar"_s)->isEnabled());
    EXPECT_FALSE(get<QRadioButton>(u"OptDriver"_s)->isEnabled());
    EXPECT_TRUE(get<QRadioButton>(u"optBonus"_s)->isEnabled());
}

TEST_F(CarScreen, aDuplicateCarIsRefusedOnLeavingTheFieldAndOnSave)
{
    storeCar(500, u"24"_s, u"Jeff Gordon"_s, 1, 1);
    cCar car;
    open(car);
    chooseRaceType(1);
    pick(u"OptCar"_s);
    type(u"txtCarNumber"_s, u"24"_s);
    QTest::keyClick(field(u"txtCarNumber"_s), Qt::Key_Tab);
    expectRefusal(u"Duplicate Car"_s, u"txtCarNumber"_s);

    type(u"txtDriver"_s, u"Somebody Else"_s);
    EXPECT_FALSE(form.applyCar());
    expectRefusal(u"Duplicate Car"_s, u"txtCarNumber"_s);
    EXPECT_EQ(app.count(u"cars"_s), 1);

    // The same number in another race type is no duplicate.
    chooseRaceType(6);
    EXPECT_TRUE(form.applyCar());
    EXPECT_EQ(app.count(u"cars"_s, u"WHERE car_txt = '24' AND race_type_nmbr = 6"_s), 1);
}

TEST_F(CarScreen, aDriverMayCarryTheNumberOfACarButIsAskedAboutTheNameBeforeTheFirstSave)
{
    storeCar(500, u"24"_s, u"Jeff Gordon"_s, 1, 1);
    cCar driver;
    open(driver);
    chooseRaceType(1);
    pick(u"OptDriver"_s);
    type(u"txtCarNumber"_s, u"24"_s);
    type(u"txtDriver"_s, u"Jeff Gordon"_s);
    EXPECT_EQ(form.windowTitle(), u"Driver - Jeff Gordon 24"_s);

    app.presenter().queueAnswer(Answer::No);
    EXPECT_FALSE(form.applyCar());
    const RecordedBox& question = app.presenter().boxes().constLast();
    EXPECT_EQ(question.text, u"Driver name can not be changed once the Driver is saved.\n"
                             u"Are you sure the name is spelled correctly?"_s);
    EXPECT_EQ(question.buttons, Buttons::YesNoCancel);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"txtDriver"_s);
    EXPECT_EQ(app.count(u"cars"_s), 1);

    app.presenter().queueAnswer(Answer::Yes);
    EXPECT_TRUE(form.applyCar());
    EXPECT_EQ(driver.carNmbr(), 501);
    EXPECT_FALSE(field(u"txtDriver"_s)->isEnabled());
    EXPECT_TRUE(field(u"txtCarNumber"_s)->isEnabled());
    EXPECT_EQ(form.windowTitle(), u"Driver - Jeff Gordon 24"_s);

    // Saved once, the driver is not asked again.
    type(u"txtSponsor"_s, u"Pepsi"_s);
    EXPECT_TRUE(form.applyCar());
}

TEST_F(CarScreen, aSecondDriverOfTheSameNameIsADuplicate)
{
    storeCar(500, u"24"_s, u"Jeff Gordon"_s, 1, 2);
    cCar driver;
    open(driver);
    chooseRaceType(1);
    pick(u"OptDriver"_s);
    type(u"txtCarNumber"_s, u"88"_s);
    type(u"txtDriver"_s, u"Jeff Gordon"_s);
    QTest::keyClick(field(u"txtDriver"_s), Qt::Key_Tab);
    expectRefusal(u"Duplicate Driver"_s, u"txtDriver"_s);
    const int boxes = app.presenter().boxes().size();
    EXPECT_FALSE(form.applyCar());
    EXPECT_EQ(app.presenter().boxes().size(), boxes + 1);   // refused before the question
    expectRefusal(u"Duplicate Driver"_s, u"txtDriver"_s);
}

TEST_F(CarScreen, aRaceTypeHasOneTopBonusAndTheSavedOneStillSaves)
{
    cCar existing;
    existing.getTopBonusCar(1);
    cCar second;
    open(second);
    chooseRaceType(1);
    pick(u"optBonus"_s);
    EXPECT_FALSE(form.applyCar());
    expectRefusal(u"You can only have one Bonus type per Race Type."_s);

    chooseRaceType(6);   // a bonus needs neither number nor driver
    EXPECT_TRUE(form.applyCar());
    EXPECT_EQ(app.count(u"cars"_s, u"WHERE car_type_nmbr = 3"_s), 2);

    frmCar again;
    cCar saved;
    ASSERT_EQ(saved.load(existing.carNmbr()), 1);
    again.fill(saved);
    again.show();
    EXPECT_FALSE(again.findChild<QRadioButton*>(u"optBonus"_s)->isEnabled());
    EXPECT_EQ(again.windowTitle(), u"Bonus - Top Bonus  Top Bonus"_s);
    again.findChild<QLineEdit*>(u"txtSponsor"_s)->setText(u"Acme"_s);
    const int boxes = app.presenter().boxes().size();
    EXPECT_TRUE(again.applyCar());
    EXPECT_EQ(app.presenter().boxes().size(), boxes);
}

TEST_F(CarScreen, aSalaryMustBeAnAmountAndIsShownAsCurrency)
{
    storeCar(500, u"24"_s, u"Jeff Gordon"_s, 1, 1);
    cCar car;
    ASSERT_EQ(car.load(500), 1);
    open(car);
    EXPECT_EQ(field(u"txtSalary"_s)->text(), u"$1,000.00"_s);
    EXPECT_EQ(get<QComboBox>(u"cmbGroup"_s)->currentIndex(), -1);   // no group, nothing chosen

    type(u"txtSalary"_s, u"lots"_s);
    EXPECT_TRUE(apply()->isEnabled());
    QTest::keyClick(field(u"txtSalary"_s), Qt::Key_Tab);
    expectRefusal(u"Invalid Salary amount"_s, u"txtSalary"_s);
    EXPECT_FALSE(form.applyCar());
    expectRefusal(u"Invalid Salary amount"_s, u"txtSalary"_s);

    type(u"txtSalary"_s, u"1500"_s);
    QTest::keyClick(field(u"txtSalary"_s), Qt::Key_Tab);
    EXPECT_EQ(field(u"txtSalary"_s)->text(), u"$1,500.00"_s);
    chooseGroup(2);
    EXPECT_TRUE(form.applyCar());
    EXPECT_EQ(app.scalar(u"SELECT salary || '/' || group_nmbr FROM cars WHERE car_nmbr = 500"_s), u"1500.0/2"_s);

    // The blank entry takes the car out of its group: the record holds Null, which reads -1 and
    // is written as -1, one of the values that mean no group.
    chooseGroup(-1);
    EXPECT_TRUE(form.applyCar());
    EXPECT_EQ(app.scalar(u"SELECT group_nmbr FROM cars WHERE car_nmbr = 500"_s), u"-1"_s);
    cCarCollection cars;
    EXPECT_EQ(cars.getCarGroupDisplay(500), QString());
    EXPECT_FALSE(cars.groupNmbrExists(cVariant(2)));
}

TEST_F(CarScreen, aCarOnARosterOfItsRaceTypeKeepsTheRaceType)
{
    storeCar(500, u"24"_s, u"Jeff Gordon"_s, 1, 1);
    storeCar(501, u"3"_s, u"Dale"_s, 1, 1);
    run(u"INSERT INTO team_car VALUES (500, 500, '2002-01-01', '2002-02-01', 0, 0, 1)"_s);
    cCar car;
    ASSERT_EQ(car.load(500), 1);
    open(car);
    chooseRaceType(6);
    expectRefusal(u"This Car is a member of at least one Team for the current Race Type.\nCan not change Race Type."_s);
    EXPECT_EQ(get<QComboBox>(u"cmbRaceType"_s)->currentData().toInt(), 1);
    EXPECT_EQ(car.raceTypeNmbr(), 1);
    EXPECT_FALSE(apply()->isEnabled());

    frmCar other;
    cCar free;
    ASSERT_EQ(free.load(501), 1);
    other.fill(free);
    other.show();
    auto* list = other.findChild<QComboBox*>(u"cmbRaceType"_s);
    list->setCurrentIndex(list->findData(6));
    emit list->activated(list->currentIndex());
    EXPECT_EQ(free.raceTypeNmbr(), 6);
    EXPECT_TRUE(other.findChild<QPushButton*>(u"cmdApply"_s)->isEnabled());
}

TEST_F(CarScreen, cancelAsksToSaveAndYesSavesAndStaysOpen)
{
    storeCar(500, u"24"_s, u"Jeff Gordon"_s, 1, 1);
    cCar car;
    ASSERT_EQ(car.load(500), 1);
    open(car);
    auto* cancel = get<QPushButton>(u"cmdCancel"_s);
    type(u"txtOwner"_s, u"Rick"_s);

    app.presenter().queueAnswer(Answer::Cancel);
    cancel->click();
    EXPECT_TRUE(form.isVisible());
    const RecordedBox& question = app.presenter().boxes().constLast();
    EXPECT_EQ(question.text, u"Do you want to save changes"_s);
    EXPECT_EQ(question.title, u"24   Jeff Gordon"_s);
    EXPECT_EQ(question.buttons, Buttons::YesNoCancel);

    app.presenter().queueAnswer(Answer::Yes);
    cancel->click();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(app.scalar(u"SELECT car_owner FROM cars WHERE car_nmbr = 500"_s), u"Rick"_s);

    const int boxes = app.presenter().boxes().size();
    cancel->click();   // nothing unsaved: closes without a question
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(app.presenter().boxes().size(), boxes);
}

TEST_F(CarScreen, noClosesWithoutSavingAndTheLabelTellsTheNumber)
{
    storeCar(500, u"24"_s, u"Jeff Gordon"_s, 1, 1);
    cCar car;
    ASSERT_EQ(car.load(500), 1);
    open(car);
    QTest::mouseClick(get<QLabel>(u"lblCarNmbr"_s), Qt::LeftButton);
    EXPECT_EQ(app.presenter().boxes().constLast().text, u"Car number is 500"_s);

    type(u"txtMake"_s, u"Ford"_s);
    app.presenter().queueAnswer(Answer::No);
    get<QPushButton>(u"cmdCancel"_s)->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(app.scalar(u"SELECT car_make FROM cars WHERE car_nmbr = 500"_s), u""_s);
}

} // namespace
