#include "league/car.h"
#include "league/league_fixtures.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

cCar newEntry(const QString& text, const QString& driver)
{
    cCar car;
    car.setCarTxt(text);
    car.setDriverName(driver);
    car.setRaceTypeNmbr(1);
    car.setCarTypeNmbr(1);
    return car;
}

QString groupOf(TempApp& app, int car)
{
    return app.scalar(u"SELECT group_nmbr FROM cars WHERE car_nmbr = "_s + QString::number(car));
}

TEST(Car, aSavedEntryReadsBackWholeWithApostrophesAndATrimmedNumber)
{
    TempApp app;
    cCar car = newEntry(u"  24 "_s, u"Jeff O'Brien  "_s);
    car.setCarOwner(u"Rick's Racing"_s);
    car.setCarMake(u"Corvan's"_s);
    car.setSponsor(u"Duprey 'n' Co"_s);
    car.setSalary(Currency::fromRaw(12'345'000));
    car.setGroupNmbr(cVariant(2));
    ASSERT_TRUE(car.CommitChanges());
    cCar read;
    ASSERT_EQ(read.load(500), 1);
    EXPECT_EQ((QStringList{read.carTxt(), read.driverName(), read.carOwner(), read.carMake(), read.sponsor(),
                           read.salary().toCurrencyText(), read.groupNmbr().toTextOrEmpty()}),
              (QStringList{u"24"_s, u"Jeff O'Brien  "_s, u"Rick's Racing"_s, u"Corvan's"_s, u"Duprey 'n' Co"_s,
                           u"$1,234.50"_s, u"2"_s}));

    read.setSalary(Currency::fromRaw(5'000'000));
    ASSERT_TRUE(read.CommitChanges());
    EXPECT_EQ(app.scalar(u"SELECT count(*) || '/' || salary FROM cars"_s), u"1/500.0"_s);
}

// No group is Null, -1 or 0 in the table, and every reader takes all three as none.
TEST(Car, noGroupIsNullMinusOneOrZeroAndEveryReaderTakesThemAsNone)
{
    TempApp app;
    seed::car(500, u"1"_s, u"1000"_s, u"NULL"_s);
    seed::car(501, u"2"_s, u"1000"_s, u"-1"_s);
    seed::car(502, u"3"_s, u"1000"_s, u"0"_s);
    seed::car(503, u"4"_s, u"1000"_s, u"2"_s);
    cCarCollection cars;
    for (int16_t number : {500, 501, 502, 999})
        EXPECT_EQ(cars.getCarGroupDisplay(number), QString()) << number;
    EXPECT_EQ(cars.getCarGroupDisplay(503), u"Group B"_s);
    EXPECT_TRUE(cars.groupNmbrExists(cVariant(2)));
    EXPECT_FALSE(cars.groupNmbrExists(cVariant(1)));
    EXPECT_FALSE(cars.groupNmbrExists(cVariant(QString())));

    // Read alone, a Null group reads -1 and is saved back as -1; read through a list it is
    // empty text and is saved back as Null.
    cCar alone;
    ASSERT_EQ(alone.load(500), 1);
    EXPECT_EQ(alone.groupNmbr().toInt16(), -1);
    ASSERT_TRUE(alone.CommitChanges());
    EXPECT_EQ(groupOf(app, 500), u"-1"_s);
    ASSERT_TRUE(cars.Item(1).updateRow());
    EXPECT_EQ(groupOf(app, 500), u"<null>"_s);

    // A new entry never given a group is written as 0; a negative group is kept as Null.
    cCar fresh = newEntry(u"8"_s, u"Dane Jr"_s);
    ASSERT_TRUE(fresh.CommitChanges());
    EXPECT_EQ(groupOf(app, 504), u"0"_s);
    fresh.setGroupNmbr(cVariant(-5));
    ASSERT_TRUE(fresh.CommitChanges());
    EXPECT_EQ(groupOf(app, 504), u"-1"_s);
}

TEST(Car, anImportedUpdateKeepsTheSalaryAndGroupSetByHandAndAnImportInsertsItsOwnNumber)
{
    TempApp app;
    seed::car(500, u"24"_s, u"7500"_s, u"2"_s, 1, 1, u"Jess Gorman"_s);
    cCar imported = newEntry(u"24"_s, u"J. Gorman"_s);
    imported.setCarNmbr(500);
    imported.setSalary(Currency::fromRaw(10'000));
    imported.setGroupNmbr(cVariant(-1));
    ASSERT_TRUE(imported.updateImportRow());
    cCar fromFile = newEntry(u"99"_s, u"Carl"_s);
    fromFile.setCarNmbr(42);
    ASSERT_TRUE(fromFile.insert());
    EXPECT_EQ(app.scalar(u"SELECT group_concat(car_nmbr || '/' || driver_name || '/' || salary || '/' || "
                         u"group_nmbr) FROM cars"_s),
              u"42/Carl/0.0/0,500/J. Gorman/7500.0/2"_s);
}

// The screens show the refusals by race type and kind; the tests also leave the entry itself out.
TEST(Car, duplicatesAreSoughtWithinTheRaceTypeAndKindLeavingTheEntryItselfOut)
{
    TempApp app;
    seed::car(500, u"24"_s, u"0"_s, u"NULL"_s, 1, 1, u"Jess Gorman"_s);
    seed::car(501, u"24"_s, u"0"_s, u"NULL"_s, 1, 2, u"Jess Gorman"_s);
    cCar probe;
    EXPECT_TRUE(probe.carTxtExists(u"24"_s, 777, 1, 1));
    EXPECT_FALSE(probe.carTxtExists(u"24"_s, 500, 1, 1));
    EXPECT_FALSE(probe.carTxtExists(u"24"_s, 0, 6, 1));
    EXPECT_TRUE(probe.driverExists(u"Jess Gorman"_s, 0, 1, 2));
    EXPECT_FALSE(probe.driverExists(u"Jess Gorman"_s, 501, 1, 2));
    EXPECT_FALSE(probe.driverExists(u"Jess Gorman"_s, 0, 1, 3));
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

// The typed text goes into the statement undoubled: the engine refuses it, its box shows the
// statement, and the test finds nothing, even though such a row exists.
TEST(Car, anApostropheInADuplicateTestShowsTheEngineBoxAndCountsAsNotFound)
{
    TempApp app;
    seed::car(500, u"O'Neil"_s, u"0"_s, u"NULL"_s, 1, 2, u"Pat O'Neil"_s);
    cCar probe;
    ASSERT_EQ(probe.load(500), 1);   // a probe whose cursor stands on a row
    EXPECT_FALSE(probe.driverExists(u"Pat O'Neil"_s, 0, 1, 2));
    ASSERT_EQ(app.presenter().boxes().size(), 1);
    const RecordedBox& box = app.presenter().boxes().constFirst();
    EXPECT_TRUE(box.text.startsWith(u"Error = "_s)) << qPrintable(box.text);
    EXPECT_TRUE(box.text.contains(u"SQL = SELECT *  FROM cars  WHERE driver_name = 'Pat O'Neil'"_s));
    EXPECT_EQ(box.icon, Icon::Critical);
    EXPECT_FALSE(probe.carTxtExists(u"O'Neil"_s, 0, 1, 2));
    EXPECT_EQ(app.presenter().boxes().size(), 2);
}

TEST(Car, theTopBonusEntryIsMadeOncePerRaceTypeAndListsOrderByTheKeyTextOfTheKind)
{
    TempApp app;
    seed::car(500, u"9"_s, u"1000"_s, u"NULL"_s, 1, 1, u"Zed"_s);
    seed::car(501, u"10"_s, u"1000"_s, u"NULL"_s, 1, 1, u"Amy"_s);
    seed::car(502, u"5"_s, u"1000"_s, u"NULL"_s, 1, 2, u"Moe"_s);
    seed::car(503, u"1"_s, u"1000"_s, u"NULL"_s, 6, 2, u"Bob"_s);
    cCar bonus;
    for (int16_t raceType : {1, 1, 6})
        bonus.getTopBonusCar(raceType);
    EXPECT_EQ(bonus.carTxt() + u'/' + bonus.driverName() + u'/' + QString::number(bonus.carNmbr()),
              u"Top Bonus/Top Bonus/505"_s);
    EXPECT_EQ(app.count(u"cars"_s, u"WHERE car_type_nmbr = 3"_s), 2);

    cCarCollection cars, lookups;
    EXPECT_EQ(cars.load(1, 1), 2);
    EXPECT_EQ(cars.Item(1).carNmbr(), 501);   // car_txt is text: "10" before "9"
    EXPECT_EQ(lookups.getCarDisplay(502), u"Moe"_s);   // a driver shows the name, others the number
    EXPECT_EQ(lookups.getCarDisplay(500), u"9"_s);
    EXPECT_EQ(lookups.getCarDisplay(999), QString());
}

} // namespace
