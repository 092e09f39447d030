#include "exchange/import.h"
#include "store/connection.h"
#include "support/temp_app.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString kFormatBox = u"Invalid file format.\r\nDo you have the most current version of Lapkeeper?"_s;

class ImportFiles : public ::testing::Test {
protected:
    // Writes the text as it stands (line ends included) into a .lki file of the application folder.
    QString lki(const QString& text, const QString& name = u"test.lki"_s)
    {
        const QString path = app.folder() + u'/' + name;
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
        return path;
    }

    void run(const QString& sql)
    {
        IDatabase db;
        ASSERT_TRUE(db.execute(sql)) << sql.toStdString();
    }

    QString row(const QString& columns, const QString& table, const QString& where)
    {
        IDatabase db;
        EXPECT_TRUE(db.OpenResultSet(u"SELECT "_s + columns + u" FROM "_s + table + u" WHERE "_s + where));
        if (db.eof())
            return u"<none>"_s;
        QStringList cells;
        for (int c = 0; c < db.columnNames().size(); ++c)
            cells << (db.value(c).isNull() ? u"<null>"_s : db.value(c).toText());
        return cells.join(u'|');
    }

    TempApp app;
};

TEST_F(ImportFiles, carRecordsAddNewCarsAndOverwriteNamesButKeepGroupAndSalary)
{
    run(u"INSERT INTO cars VALUES (700, '#7', 'Old Owner', 'Old Make', 'Old Sponsor', 'Old Driver', 1, 1, 3, 2500)"_s);
    const QString path = lki(u"11;700;1;1;\"#7\";\"New Owner\";'Make';\"Sponsor; Inc\";\"Driver A\"\r\n"
                             u"11;701;2;6;;\"Owner B\";\"\";\"S\";\"Driver B\"\r\n"_s);

    EXPECT_TRUE(importFile(path));
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << app.presenter().boxTexts().join(u'\n').toStdString();
    // A ";" inside a text field splits it: the sponsor is cut blindly and the rest shifts.
    EXPECT_EQ(row(u"car_txt, car_owner, car_make, sponsor, driver_name, race_type_nmbr, car_type_nmbr, group_nmbr, salary"_s,
                  u"cars"_s, u"car_nmbr = 700"_s),
              u"#7|New Owner|Make|Sponso|Inc|1|1|3|2500"_s);
    EXPECT_EQ(row(u"car_txt, car_owner, car_make, driver_name, race_type_nmbr, car_type_nmbr"_s, u"cars"_s,
                  u"car_nmbr = 701"_s),
              u"|Owner B||Driver B|6|2"_s);
}

TEST_F(ImportFiles, raceRecordsInsertThenUpdateAndKeepTheStatusOfAStoredRace)
{
    run(u"INSERT INTO races VALUES (600, 'Old', 'Old Track', '2002-01-01', 1, 1, 2)"_s);
    const QString path = lki(u"12;600;\"Daytona 500\";\"Daytona\";02/17/2002;1;1\r\n"
                             u"12;601;\"Rockingham\";\"NC Speedway\";not a date;6;2\r\n"_s);

    EXPECT_TRUE(importFile(path));
    EXPECT_EQ(row(u"race_name, track_name, race_dt, race_type_nmbr, car_type_nmbr, race_status_nmbr"_s, u"races"_s,
                  u"race_nmbr = 600"_s),
              u"Daytona 500|Daytona|2002-02-17|1|1|2"_s);
    EXPECT_EQ(row(u"race_name, race_dt, race_type_nmbr, car_type_nmbr"_s, u"races"_s, u"race_nmbr = 601"_s),
              u"Rockingham|<null>|6|2"_s);
}

TEST_F(ImportFiles, resultsFileReplacesTheRaceItsFirstRecordNamesAndSetsTheStatus)
{
    run(u"INSERT INTO races VALUES (2, 'Other race', 'T', '2002-01-20', 1, 1, 1)"_s);
    run(u"INSERT INTO races VALUES (600, 'Race', 'T', '2002-02-17', 1, 1, 1)"_s);
    // Stored rows of both races, and a posting of both.
    for (const char* race : {"2", "600"}) {
        const QString r = QString::fromUtf8(race);
        run(u"INSERT INTO results VALUES (%1, 900, 1, 1, 0, 0, 0)"_s.arg(r));
        run(u"INSERT INTO results VALUES (%1, 901, 2, 2, 0, 0, 0)"_s.arg(r));
        run(u"INSERT INTO team_results (race_nmbr, league_nmbr, team_nmbr, car_nmbr) VALUES (%1, 500, 500, 900)"_s.arg(r));
        run(u"INSERT INTO team_results_summary VALUES (%1, 500, 500, 40, 1)"_s.arg(r));
    }
    const QString path = lki(u"13;2;600;901;1;3;-1;120;5\r\n"
                             u"13;2;600;902;2;1;0;80;0\r\n"_s);

    EXPECT_TRUE(importFile(path));
    EXPECT_EQ(app.count(u"results"_s, u"WHERE race_nmbr = 600"_s), 2);
    EXPECT_EQ(row(u"place, qualified, fast_qual, laps_led, adjustment"_s, u"results"_s, u"race_nmbr = 600 AND car_nmbr = 901"_s),
              u"1|3|-1|120|5"_s);
    EXPECT_EQ(row(u"place, laps_led"_s, u"results"_s, u"race_nmbr = 600 AND car_nmbr = 902"_s), u"2|80"_s);
    EXPECT_EQ(app.count(u"team_results"_s, u"WHERE race_nmbr = 600"_s), 0);
    EXPECT_EQ(app.count(u"team_results_summary"_s, u"WHERE race_nmbr = 600"_s), 0);
    EXPECT_EQ(app.scalar(u"SELECT race_status_nmbr FROM races WHERE race_nmbr = 600"_s), u"2"_s);
    // The race whose number equals the status keeps its results and posting.
    EXPECT_EQ(app.count(u"results"_s, u"WHERE race_nmbr = 2"_s), 2);
    EXPECT_EQ(app.count(u"team_results"_s, u"WHERE race_nmbr = 2"_s), 1);
    EXPECT_EQ(app.count(u"team_results_summary"_s, u"WHERE race_nmbr = 2"_s), 1);
}

TEST_F(ImportFiles, rosterRecordsTakeDatesAndPricesAndLeaveABadTermDateOpen)
{
    const QString path = lki(u"14;500;700;02/10/2002;03/01/2002;1500.5;1400.25\r\n"
                             u"14;500;701;2002-02-10;never;900;900\r\n"_s);

    EXPECT_TRUE(importFile(path));
    EXPECT_EQ(row(u"efctv_dt, term_dt, price, locked_salary, active"_s, u"team_car"_s, u"car_nmbr = 700"_s),
              u"2002-02-10|2002-03-01|1500.5|1400.25|1"_s);
    EXPECT_EQ(row(u"efctv_dt, term_dt"_s, u"team_car"_s, u"car_nmbr = 701"_s), u"2002-02-10|<null>"_s);

    // The same entry again closes it; the price of the stint stays as it was first set.
    EXPECT_TRUE(importFile(lki(u"14;500;701;2002-02-10;2002-04-01;999;999\r\n"_s, u"again.lki"_s)));
    EXPECT_EQ(row(u"term_dt, price, locked_salary"_s, u"team_car"_s, u"car_nmbr = 701"_s), u"2002-04-01|900|900"_s);
    EXPECT_EQ(app.count(u"team_car"_s), 2);
}

TEST_F(ImportFiles, mixedFileImportsEveryRecordAndOnlyItsFirstLineDecidesTheDelete)
{
    run(u"INSERT INTO races VALUES (600, 'Race', 'T', '2002-02-17', 1, 1, 1)"_s);
    run(u"INSERT INTO results VALUES (600, 900, 1, 1, 0, 0, 0)"_s);
    const QString path = lki(u"11;910;1;1;\"#10\";\"O\";\"M\";\"S\";\"D\"\r\n"
                             u"13;1;600;910;1;1;0;0;0\r\n"
                             u"12;610;\"Next\";\"Track\";2002-02-24;1;1\r\n"
                             u"14;500;910;2002-02-10;;1000;1000\r\n"_s);

    EXPECT_TRUE(importFile(path));
    EXPECT_EQ(app.count(u"cars"_s, u"WHERE car_nmbr = 910"_s), 1);
    EXPECT_EQ(app.count(u"races"_s, u"WHERE race_nmbr = 610"_s), 1);
    EXPECT_EQ(app.count(u"team_car"_s, u"WHERE car_nmbr = 910"_s), 1);
    // Not a results file: the stored result stays beside the new one.
    EXPECT_EQ(app.count(u"results"_s, u"WHERE race_nmbr = 600"_s), 2);
}

TEST_F(ImportFiles, unknownRecordTypesShowTheFormatBoxOnceEachAndTheImportGoesOn)
{
    const QString path = lki(u"10;1;2\r\n"
                             u"11;910;1;1;\"#10\";\"O\";\"M\";\"S\";\"D\"\r\n"
                             u"15;1;2\r\n"_s);

    EXPECT_TRUE(importFile(path));
    ASSERT_EQ(app.presenter().boxes().size(), 2);
    for (const RecordedBox& box : app.presenter().boxes()) {
        EXPECT_EQ(box.text, kFormatBox);
        EXPECT_EQ(box.title, u"Lapkeeper"_s);
        EXPECT_EQ(box.icon, Icon::None);
    }
    EXPECT_EQ(app.count(u"cars"_s, u"WHERE car_nmbr = 910"_s), 1);
}

TEST_F(ImportFiles, blankAndOneFieldLinesAndAnEmptyFileAreQuietlyPassedOver)
{
    EXPECT_TRUE(importFile(lki(u"\r\n11\r\njunk\r\n12;610;\"R\";\"T\";2002-02-24;1;1\r\n\r\n"_s)));
    EXPECT_TRUE(importFile(lki(QString(), u"empty.lki"_s)));
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    EXPECT_EQ(app.count(u"races"_s, u"WHERE race_nmbr = 610"_s), 1);
}

TEST_F(ImportFiles, aLastLineWithoutLineEndIsNotImported)
{
    EXPECT_TRUE(importFile(lki(u"12;610;\"R\";\"T\";2002-02-24;1;1\r\n12;611;\"R\";\"T\";2002-03-03;1;1"_s)));
    EXPECT_EQ(app.count(u"races"_s, u"WHERE race_nmbr = 610"_s), 1);
    EXPECT_EQ(app.count(u"races"_s, u"WHERE race_nmbr = 611"_s), 0);

    // A results file of one line without its line end clears nothing.
    run(u"INSERT INTO results VALUES (610, 900, 1, 1, 0, 0, 0)"_s);
    EXPECT_TRUE(importFile(lki(u"13;1;610;901;1;1;0;0;0"_s, u"results.lki"_s)));
    EXPECT_EQ(app.count(u"results"_s, u"WHERE race_nmbr = 610"_s), 1);
}

TEST_F(ImportFiles, aBadLineStopsTheImportThereKeepsWhatCameBeforeAndNamesTheLine)
{
    struct Case {
        const char* badLine;
        const char* reason;
    };
    const Case cases[] = {
        {"11;911;1;1;\"#11\";\"O\"", "a record 11 needs 9 fields, this one has 6"},
        {"12;611;\"R\";X;2002-02-24;1;1", "field 3 (\"X\") is one character, not a text between two delimiters"},
        {"14;500;abc;2002-02-10;;1000;1000", "field 2 (\"abc\") is not a whole number from -32768 to 32767"},
        {"14;500;911;2002-02-10;;lots;1000", "field 5 (\"lots\") is not a number"},
        {"11;40000;1;1;\"#11\";\"O\";\"M\";\"S\";\"D\"", "field 1 (\"40000\") is not a whole number from -32768 to 32767"},
        {"x1;1;1", "field 0 (\"x1\") is not a whole number from -32768 to 32767"},
    };
    int file = 0;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.badLine);
        run(u"DELETE FROM races"_s);
        app.presenter().clear();
        const QString name = u"bad%1.lki"_s.arg(++file);
        const QString path = lki(u"12;610;\"R\";\"T\";2002-02-24;1;1\r\n"_s + QString::fromUtf8(c.badLine) +
                                     u"\r\n12;612;\"R\";\"T\";2002-03-10;1;1\r\n"_s,
                                 name);

        EXPECT_FALSE(importFile(path));
        EXPECT_EQ(app.count(u"races"_s, u"WHERE race_nmbr = 610"_s), 1);
        EXPECT_EQ(app.count(u"races"_s, u"WHERE race_nmbr = 612"_s), 0);
        EXPECT_EQ(app.count(u"races"_s, u"WHERE race_nmbr = 611"_s), 0);
        EXPECT_EQ(app.count(u"cars"_s, u"WHERE car_nmbr >= 911"_s), 0);
        EXPECT_EQ(app.count(u"team_car"_s), 0);
        ASSERT_EQ(app.presenter().boxes().size(), 1);
        EXPECT_EQ(app.presenter().boxes().first().text,
                  u"Line 2 of "_s + name + u" could not be imported: "_s + QString::fromUtf8(c.reason) +
                      u".\n\nThe import stopped at that line; the lines before it were imported."_s);
        EXPECT_EQ(app.presenter().boxes().first().icon, Icon::Critical);
    }
}

TEST_F(ImportFiles, aBadFirstResultRecordClearsNothing)
{
    run(u"INSERT INTO results VALUES (600, 900, 1, 1, 0, 0, 0)"_s);
    EXPECT_FALSE(importFile(lki(u"13;1;600;901;first\r\n"_s)));
    EXPECT_EQ(app.count(u"results"_s, u"WHERE race_nmbr = 600"_s), 1);
}

} // namespace
