#include "batch_process.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString writeLki(const QTemporaryDir& dir, const QString& name, const QByteArray& text)
{
    const QString path = dir.path() + u'/' + name;
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    return path;
}

TEST(BatchImport, importsAFileAndSaysImportComplete)
{
    QTemporaryDir dir;
    ASSERT_EQ(batch(dir, {u"init"_s}).status, 0);
    const QString path = writeLki(dir, u"season.lki"_s,
                                  "12;610;\"Daytona 500\";\"Daytona\";02/17/2002;1;1\r\n"
                                  "10;1;2\r\n"
                                  "11;700;1;1;\"#7\";\"O\";\"M\";\"S\";\"Driver\"\r\n");

    const BatchRun run = batch(dir, {u"import"_s, path});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, u"Import Complete.\n"_s);
    // The unknown record type is told and passed over.
    EXPECT_TRUE(run.err.startsWith(u"Lapkeeper: Invalid file format.\r\nDo you have the most current version"_s))
        << qPrintable(run.err);
    EXPECT_EQ(batch(dir, {u"sql"_s, u"SELECT race_name, race_dt FROM races WHERE race_nmbr = 610"_s}).out,
              u"race_name\trace_dt\nDaytona 500\t2002-02-17\n"_s);
    EXPECT_EQ(batch(dir, {u"sql"_s, u"SELECT driver_name FROM cars WHERE car_nmbr = 700"_s}).out,
              u"driver_name\nDriver\n"_s);
}

TEST(BatchImport, aBadLineOrAMissingFileSaysImportFailedAndExits1)
{
    QTemporaryDir dir;
    ASSERT_EQ(batch(dir, {u"init"_s}).status, 0);
    const QString path = writeLki(dir, u"bad.lki"_s,
                                  "12;610;\"R\";\"T\";2002-02-24;1;1\r\n"
                                  "12;611;\"R\"\r\n"
                                  "12;612;\"R\";\"T\";2002-03-10;1;1\r\n");

    const BatchRun bad = batch(dir, {u"import"_s, path});
    EXPECT_EQ(bad.status, 1);
    EXPECT_EQ(bad.out, u"Import Failed.\n"_s);
    EXPECT_TRUE(bad.err.contains(u"Line 2 of bad.lki could not be imported: a record 12 needs 7 fields, this one has 3."_s))
        << qPrintable(bad.err);
    EXPECT_EQ(batch(dir, {u"sql"_s, u"SELECT race_nmbr FROM races WHERE race_nmbr >= 610"_s}).out, u"race_nmbr\n610\n"_s);

    const BatchRun missing = batch(dir, {u"import"_s, dir.path() + u"/nowhere.lki"_s});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.out, u"Import Failed.\n"_s);
    EXPECT_TRUE(missing.err.contains(u"Error trying to open "_s));

    EXPECT_EQ(batch(dir, {u"import"_s}).status, 2);
}

} // namespace
