#include "league/car.h"
#include "support/temp_app.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void run(const QString& statement)
{
    IDatabase db;
    ASSERT_TRUE(db.execute(statement)) << qPrintable(statement);
}

// A row written straight into the table; group is the SQL text of the column ("NULL", "-1").
void storeCar(int number, const QString& text, const QString& driver, int raceType, int carType,
              const QString& group = u"NULL"_s, const QString& salary = u"1000"_s)
{
    run(u"INSERT INTO cars VALUES (%1, '%2', 'Owner', NULL, 'Sponsor', '%3', %4, %5, %6, %7)"_s.arg(number)
            .arg(text, driver)
            .arg(raceType)
            .arg(carType)
            .arg(group, salary));
}

cCar newEntry(const QString& text, const QString& driver, int16_t raceType, int16_t carType)
{
    cCar car;
    car.setCarTxt(text);
    car.setDriverName(driver);
    car.setRaceTypeNmbr(raceType);
    car.setCarTypeNmbr(carType);
    return car;
}

TEST(Car, aSavedEntryReadsBackWholeWithApostrophesAndATrimmedNumber)
{
    TempApp app;
    cCar car = newEntry(u"  24 "_s, u"Jeff O'Brien  "_s, 1, 1);
    car.setCarOwner(u"Rick's Racing"_s);
    car.setCarMake(u"Chevy's"_s);
    car.setSponsor(u"Dupont 'n' Co"_s);
    car.setSalary(Currency::fromRaw(12'345'000));
    car.setGroupNmbr(cVariant(2));
    ASSERT_TRUE(car.CommitChanges());
    EXPECT_EQ(car.carNmbr(), 500);

    cCar read;
    ASSERT_EQ(read.load(500), 1);
    EXPECT_EQ(read.carTxt(), u"24"_s);
    EXPECT_EQ(read.driverName(), u"Jeff O'Brien  "_s);   // a driver is stored as typed
    EXPECT_EQ(read.carOwner(), u"Rick's Racing"_s);
    EXPECT_EQ(read.carMake(), u"Chevy's"_s);
    EXPECT_EQ(read.sponsor(), u"Dupont 'n' Co"_s);
    EXPECT_EQ(read.salary(), Currency::fromRaw(12'345'000));
    EXPECT_EQ(read.groupNmbr().toInt16(), 2);
    EXPECT_TRUE(read.isCar());

    read.setSponsor(u"Pepsi"_s);
    read.setSalary(Currency::fromRaw(5'000'000));
    ASSERT_TRUE(read.CommitChanges());
    EXPECT_EQ(app.scalar(u"SELECT sponsor || '/' || salary FROM cars WHERE car_nmbr = 500"_s), u"Pepsi/500.0"_s);
    EXPECT_EQ(app.count(u"cars"_s), 1);

    cCar second = newEntry(u"3"_s, u"Dale"_s, 1, 1);
    ASSERT_TRUE(second.CommitChanges());
    EXPECT_EQ(second.carNmbr(), 501);
    ASSERT_TRUE(second.deleteRow());
    EXPECT_EQ(app.count(u"cars"_s, u"WHERE car_nmbr = 501"_s), 0);
}

TEST(Car, noGroupIsNullMinusOneOrZeroAndEveryReaderTakesThemAsNone)
{
    TempApp app;
    storeCar(500, u"1"_s, u"A"_s, 1, 1, u"NULL"_s);
    storeCar(501, u"2"_s, u"B"_s, 1, 1, u"-1"_s);
    storeCar(502, u"3"_s, u"C"_s, 1, 1, u"0"_s);
    storeCar(503, u"4"_s, u"D"_s, 1, 1, u"2"_s);

    cCarCollection cars;
    for (int16_t number : {500, 501, 502})
        EXPECT_EQ(cars.getCarGroupDisplay(number), QString()) << number;
    EXPECT_EQ(cars.getCarGroupDisplay(503), u"Group B"_s);
    EXPECT_EQ(cars.getCarGroupDisplay(999), QString());
    EXPECT_TRUE(cars.groupNmbrExists(cVariant(2)));
    EXPECT_FALSE(cars.groupNmbrExists(cVariant(1)));
    EXPECT_FALSE(cars.groupNmbrExists(cVariant(QString())));

    // Read alone, a Null group reads -1 and is saved back as -1.
    cCar nullGroup;
    ASSERT_EQ(nullGroup.load(500), 1);
    EXPECT_EQ(nullGroup.groupNmbr().toInt16(), -1);
    ASSERT_TRUE(nullGroup.CommitChanges());
    EXPECT_EQ(app.scalar(u"SELECT group_nmbr FROM cars WHERE car_nmbr = 500"_s), u"-1"_s);

    // Read through a list, a missing group is empty text and is saved back as Null.
    cCar& listed = cars.Item(1);
    EXPECT_EQ(listed.groupNmbr().toTextOrEmpty(), QString());
    ASSERT_TRUE(listed.updateRow());
    EXPECT_EQ(app.scalar(u"SELECT group_nmbr FROM cars WHERE car_nmbr = 500"_s), u"<null>"_s);
}

TEST(Car, aNegativeGroupIsStoredAsNullAndANewEntryWithoutAGroupIsWrittenAsZero)
{
    TempApp app;
    cCar car = newEntry(u"8"_s, u"Dale Jr"_s, 1, 1);
    ASSERT_TRUE(car.CommitChanges());
    EXPECT_EQ(app.scalar(u"SELECT group_nmbr FROM cars WHERE car_nmbr = 500"_s), u"0"_s);

    car.setGroupNmbr(cVariant(3));
    ASSERT_TRUE(car.CommitChanges());
    EXPECT_EQ(app.scalar(u"SELECT group_nmbr FROM cars WHERE car_nmbr = 500"_s), u"3"_s);

    car.setGroupNmbr(cVariant(-5));
    EXPECT_EQ(car.groupNmbr().toInt16(), -1);
    ASSERT_TRUE(car.CommitChanges());
    EXPECT_EQ(app.scalar(u"SELECT group_nmbr FROM cars WHERE car_nmbr = 500"_s), u"-1"_s);
}

TEST(Car, anImportedUpdateKeepsTheSalaryAndGroupSetByHand)
{
    TempApp app;
    storeCar(500, u"24"_s, u"Jeff Gordon"_s, 1, 1, u"2"_s, u"7500"_s);
    cCar imported = newEntry(u"24"_s, u"J. Gordon"_s, 1, 1);
    imported.setCarNmbr(500);
    imported.setSponsor(u"DuPont"_s);
    imported.setSalary(Currency::fromRaw(10'000));
    imported.setGroupNmbr(cVariant(-1));
    ASSERT_TRUE(imported.updateImportRow());
    EXPECT_EQ(app.scalar(u"SELECT driver_name || '/' || sponsor || '/' || salary || '/' || group_nmbr "
                         u"FROM cars WHERE car_nmbr = 500"_s),
              u"J. Gordon/DuPont/7500.0/2"_s);

    // An import inserts with its own number.
    cCar fromFile = newEntry(u"99"_s, u"Carl"_s, 1, 1);
    fromFile.setCarNmbr(42);
    ASSERT_TRUE(fromFile.insert());
    EXPECT_EQ(app.count(u"cars"_s, u"WHERE car_nmbr = 42 AND car_txt = '99'"_s), 1);
}

// The duplicate tests compare the key text within one race type and one kind, leaving the
// entry itself out.
TEST(Car, duplicatesAreSoughtWithinTheRaceTypeAndKindOnly)
{
    TempApp app;
    storeCar(500, u"24"_s, u"Jeff Gordon"_s, 1, 1);
    storeCar(501, u"24"_s, u"Jeff Gordon"_s, 1, 2);
    storeCar(502, u"3"_s, u"Dale"_s, 6, 1);
    cCar probe;

    EXPECT_TRUE(probe.carTxtExists(u"24"_s, 0, 1, 1));
    EXPECT_FALSE(probe.carTxtExists(u"24"_s, 500, 1, 1));   // itself
    EXPECT_TRUE(probe.carTxtExists(u"24"_s, 777, 1, 1));
    EXPECT_FALSE(probe.carTxtExists(u"24"_s, 0, 6, 1));     // another race type
    EXPECT_FALSE(probe.carTxtExists(u"88"_s, 0, 1, 1));
    EXPECT_TRUE(probe.carTxtExists(u"3"_s, 0, 6, 1));
    EXPECT_FALSE(probe.carTxtExists(u"3"_s, 0, 6, 2));      // another kind

    EXPECT_TRUE(probe.driverExists(u"Jeff Gordon"_s, 0, 1, 2));
    EXPECT_FALSE(probe.driverExists(u"Jeff Gordon"_s, 501, 1, 2));
    EXPECT_FALSE(probe.driverExists(u"Jeff Gordon"_s, 0, 6, 2));
    EXPECT_FALSE(probe.driverExists(u"Dale"_s, 0, 6, 2));
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

// The typed text goes into the statement undoubled: the engine refuses it, its box shows the
// statement, and the test finds nothing, even though such a row exists.
TEST(Car, anApostropheInADuplicateTestShowsTheEngineBoxAndCountsAsNotFound)
{
    TempApp app;
    cCar stored = newEntry(u"O'Neil"_s, u"Pat O'Neil"_s, 1, 2);
    ASSERT_TRUE(stored.CommitChanges());
    cCar probe;
    ASSERT_EQ(probe.load(500), 1);   // a probe whose cursor stands on a row

    EXPECT_FALSE(probe.driverExists(u"Pat O'Neil"_s, 0, 1, 2));
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    const RecordedBox& box = app.presenter().boxes().constFirst();
    EXPECT_TRUE(box.text.startsWith(u"Error = "_s)) << qPrintable(box.text);
    EXPECT_TRUE(box.text.contains(u"SQL = SELECT *  FROM cars  WHERE driver_name = 'Pat O'Neil'"_s))
        << qPrintable(box.text);
    EXPECT_EQ(box.icon, Icon::Critical);

    EXPECT_FALSE(probe.carTxtExists(u"O'Neil"_s, 0, 1, 2));
    EXPECT_EQ(app.presenter().boxes().size(), 2);
}

TEST(Car, theTopBonusEntryIsMadeOncePerRaceType)
{
    TempApp app;
    cCar first;
    first.getTopBonusCar(1);
    EXPECT_EQ(first.carNmbr(), 500);
    EXPECT_EQ(first.carTxt(), u"Top Bonus"_s);
    EXPECT_EQ(first.driverName(), u"Top Bonus"_s);
    EXPECT_TRUE(first.isBonus());
    EXPECT_EQ(first.salary(), Currency());

    cCar again;
    again.getTopBonusCar(1);
    EXPECT_EQ(again.carNmbr(), 500);
    EXPECT_EQ(again.raceTypeNmbr(), 1);

    cCar other;
    other.getTopBonusCar(6);
    EXPECT_EQ(other.carNmbr(), 501);
    EXPECT_EQ(app.count(u"cars"_s, u"WHERE car_type_nmbr = 3"_s), 2);
    EXPECT_EQ(app.count(u"cars"_s, u"WHERE car_type_nmbr = 3 AND race_type_nmbr = 1 AND car_txt = 'Top Bonus'"_s), 1);
}

TEST(Car, listsFilterByRaceTypeAndKindAndOrderByTheKeyTextOfTheKind)
{
    TempApp app;
    storeCar(500, u"9"_s, u"Zed"_s, 1, 1);
    storeCar(501, u"10"_s, u"Amy"_s, 1, 1);
    storeCar(502, u"5"_s, u"Moe"_s, 1, 2);
    storeCar(503, u"1"_s, u"Bob"_s, 1, 2);
    storeCar(504, u"7"_s, u"Cal"_s, 6, 2);
    storeCar(505, u"Top Bonus"_s, u"Top Bonus"_s, 1, 3);

    auto numbers = [](cCarCollection& list) {
        QList<int> out;
        for (const cCar& car : list)
            out << car.carNmbr();
        return out;
    };
    cCarCollection cars;
    EXPECT_EQ(cars.load(1, 1), 2);
    EXPECT_EQ(numbers(cars), (QList<int>{501, 500}));   // car_txt is text: "10" before "9"
    EXPECT_EQ(cars.Item(1).carMake(), QString());      // a Null make reads as empty

    cCarCollection drivers;
    EXPECT_EQ(drivers.load(1, 2), 2);
    EXPECT_EQ(numbers(drivers), (QList<int>{503, 502}));
    cCarCollection allDrivers;
    EXPECT_EQ(allDrivers.load(std::nullopt, 2), 3);
    EXPECT_EQ(numbers(allDrivers), (QList<int>{503, 504, 502}));   // Bob, Cal, Moe
    cCarCollection series;
    EXPECT_EQ(series.load(1), 5);
    EXPECT_EQ(series.load(1), 10);   // a second load appends

    cCarCollection lookups;
    EXPECT_EQ(lookups.getCarDisplay(502), u"Moe"_s);
    EXPECT_EQ(lookups.Count(), 6);
    EXPECT_EQ(lookups.getCarDisplay(500), u"9"_s);
    EXPECT_EQ(lookups.getCarDisplay(505), u"Top Bonus"_s);
    EXPECT_EQ(lookups.getCarDisplay(999), QString());
    EXPECT_EQ(lookups.getCarSalary(501), Currency::fromRaw(10'000'000));
    EXPECT_EQ(lookups.getCarSalary(999), Currency());
    EXPECT_EQ(lookups.Count(), 6);   // loaded once
}

} // namespace
