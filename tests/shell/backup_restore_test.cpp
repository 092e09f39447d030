#include "base/app_globals.h"
#include "shell/maintenance_commands.h"
#include "store/connection.h"
#include "store/maintenance.h"
#include "support/data_files.h"
#include "support/temp_app.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QString kOverDataFile = u"A backup cannot be written over the data file itself. Choose another file."_s;
const QString kFromDataFile = u"The data file cannot be restored from itself. Choose a backup file."_s;

void addTeam(int number, const QString& name)
{
    IDatabase db;
    ASSERT_TRUE(db.execute(u"INSERT INTO teams (team_nmbr, team_name) VALUES (%1, '%2')"_s.arg(number).arg(name)));
}

// The names in the backups folder that are dated copies of the given kind.
QStringList datedCopies(const QString& kind = u"lapkeeper30-2"_s)
{
    QStringList names = folderEntries(gBackupsPath);
    names.removeIf([&kind](const QString& name) { return !name.startsWith(kind); });
    return names;
}

TEST(Backup, writesACompactedCopyAndReopensTheDataFile)
{
    TempApp app;
    addTeam(500, u"Before"_s);
    const QString target = gBackupsPath + u"/manual.lk"_s;
    writeBytes(target, "an older file");
    app.presenter().queueFile(target);
    backupDataFileCommand();

    ASSERT_EQ(app.presenter().fileRequests().size(), 1);
    const FileDialogRequest& dialog = app.presenter().fileRequests()[0];
    EXPECT_EQ(dialog.title, u"Lapkeeper Save"_s);
    EXPECT_EQ(dialog.folder, gBackupsPath);
    EXPECT_EQ(dialog.filter, u"Lapkeeper Data File (*.lk)|*.lk|"_s);
    EXPECT_EQ(dialog.fileName, u"lapkeeper30.lk"_s);
    EXPECT_EQ(app.presenter().pointers(), (QList<int16_t>{11, 0}));
    EXPECT_EQ(gConnection->connectionStatus(), 0);
    EXPECT_TRUE(tableRows(target).contains(u"500|Before"_s));
    EXPECT_EQ(fileMode(target), 0600);
    // The temporary file beside the target is gone, and a manual backup makes no dated copy.
    EXPECT_EQ(folderEntries(gBackupsPath), QStringList{u"manual.lk"_s});
    addTeam(501, u"After"_s);   // the reopened file is live
    EXPECT_EQ(app.count(u"teams"_s), 2);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

TEST(Backup, cancelLeavesEverythingAsItWas)
{
    TempApp app;
    app.presenter().queueFile(std::nullopt);
    backupDataFileCommand();
    app.presenter().queueFile(std::nullopt);
    restoreDataFileCommand();
    EXPECT_TRUE(app.presenter().pointers().isEmpty());
    EXPECT_EQ(gConnection->connectionStatus(), 0);
    EXPECT_TRUE(QDir(gBackupsPath).entryList(QDir::Files).isEmpty());
}

TEST(Backup, theDataFileIsRefusedAsTargetAndAsSourceHoweverItIsSpelled)
{
    TempApp app;
    addTeam(500, u"Kept"_s);
    ASSERT_TRUE(QFile::link(app.folder(), app.folder() + u"/Backups/link"_s));
    ASSERT_EQ(::link(QFile::encodeName(app.dataFile()).constData(),
                     QFile::encodeName(app.folder() + u"/Imports/hard.lk"_s).constData()),
              0);
    const QStringList spellings = {app.folder() + u"/Backups/../lapkeeper30.lk"_s,
                                   app.folder() + u"/Backups/link/lapkeeper30.lk"_s,
                                   app.folder() + u"/Imports/hard.lk"_s};
    const QByteArray before = fileBytes(app.dataFile());
    for (const QString& spelling : spellings) {
        app.presenter().clear();
        app.presenter().queueFile(spelling);
        backupDataFileCommand();
        app.presenter().queueFile(spelling);
        restoreDataFileCommand();
        ASSERT_EQ(app.presenter().boxes().size(), 2) << qPrintable(spelling);
        EXPECT_EQ(app.presenter().boxTexts(), (QStringList{kOverDataFile, kFromDataFile}));
        EXPECT_EQ(app.presenter().boxes()[0].icon, Icon::Critical);
        EXPECT_EQ(app.presenter().pointers(), (QList<int16_t>{11, 0, 11, 0}));
        // Refused before the connection was touched: the file on disk and the open connection stay.
        EXPECT_EQ(gConnection->connectionStatus(), 0);
        EXPECT_EQ(fileBytes(app.dataFile()), before);
    }
    EXPECT_EQ(app.scalar(u"SELECT team_name FROM teams"_s), u"Kept"_s);
    EXPECT_TRUE(datedCopies(u"lapkeeper30"_s).isEmpty());
}

TEST(Backup, aDataFileThatIsNoDataFileOfThisProgramNeverReplacesTheBackup)
{
    // As after a start that found no data file: an empty file stands in the data file's place.
    TempApp app(false);
    const QString newest = gBackupsPath + u"/lapkeeper30.lk"_s;
    QString failure;
    ASSERT_TRUE(automaticBackup(failure)) << qPrintable(failure);
    const QByteArray backup = fileBytes(newest);
    const QStringList entries = folderEntries(gBackupsPath);
    gConnection->CloseConnection();

    writeBytes(app.dataFile(), {});
    EXPECT_FALSE(automaticBackup(failure));
    EXPECT_TRUE(failure.startsWith(u"The backup to "_s + newest + u" failed: no such table: "_s))
        << qPrintable(failure);
    EXPECT_TRUE(failure.endsWith(u".\nAny earlier file there is unchanged."_s)) << qPrintable(failure);
    EXPECT_EQ(fileBytes(newest), backup);
    EXPECT_EQ(folderEntries(gBackupsPath), entries);
    EXPECT_TRUE(app.presenter().boxTexts().contains(u"Unable to connect to Database"_s));
}

TEST(Backup, elevenAutomaticBackupsKeepTheNewestTenDatedCopiesBesideTheNewest)
{
    TempApp app;
    QStringList made;
    for (int end = 0; end < 11; ++end) {
        addTeam(500 + end, u"Team %1"_s.arg(end));
        QString failure;
        ASSERT_TRUE(automaticBackup(failure)) << qPrintable(failure);
        const QStringList now = datedCopies();
        ASSERT_FALSE(now.isEmpty());
        made << now.last();
    }
    const QStringList kept = datedCopies();
    EXPECT_EQ(kept, made.mid(1));   // the first one went, the order of names is the order made
    for (const QString& name : kept)
        EXPECT_TRUE(QRegularExpression(u"^lapkeeper30-\\d{4}-\\d\\d-\\d\\d-\\d{6}-\\d{3}\\.lk$"_s).match(name).hasMatch())
            << qPrintable(name);
    const QString newest = gBackupsPath + u"/lapkeeper30.lk"_s;
    EXPECT_EQ(fileBytes(gBackupsPath + u'/' + kept.last()), fileBytes(newest));
    EXPECT_TRUE(tableRows(newest).contains(u"510|Team 10"_s));
    EXPECT_TRUE(tableRows(gBackupsPath + u'/' + kept.first()).contains(u"501|Team 1"_s));
    EXPECT_FALSE(tableRows(gBackupsPath + u'/' + kept.first()).contains(u"Team 2"_s));

    // Every file is the owner's alone, and so is the backups folder the program made.
    EXPECT_EQ(fileMode(app.dataFile()), 0600);
    EXPECT_EQ(fileMode(gBackupsPath), 0700);
    for (const QString& name : folderEntries(gBackupsPath))
        EXPECT_EQ(fileMode(gBackupsPath + u'/' + name), 0600) << qPrintable(name);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

TEST(Restore, bringsBackTheRowsOfABackupAndKeepsTheReplacedFile)
{
    TempApp app;
    addTeam(500, u"Kept"_s);
    const QString target = gBackupsPath + u"/lapkeeper30.lk"_s;
    QString failure;
    ASSERT_TRUE(backupDatabase(target, failure)) << qPrintable(failure);
    addTeam(501, u"Lost"_s);

    app.presenter().queueFile(target);
    restoreDataFileCommand();
    EXPECT_EQ(gConnection->connectionStatus(), 0);
    EXPECT_EQ(app.scalar(u"SELECT team_name FROM teams"_s), u"Kept"_s);
    EXPECT_EQ(app.count(u"teams"_s), 1);
    EXPECT_EQ(app.presenter().pointers(), (QList<int16_t>{11, 0}));
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    EXPECT_EQ(fileMode(app.dataFile()), 0600);

    // The replaced file went to the backups folder first, with the row the restore took away.
    const QStringList copies = datedCopies(u"lapkeeper30-before-restore-"_s);
    ASSERT_EQ(copies.size(), 1);
    EXPECT_TRUE(tableRows(gBackupsPath + u'/' + copies[0]).contains(u"501|Lost"_s));
    EXPECT_EQ(fileMode(gBackupsPath + u'/' + copies[0]), 0600);
    // No temporary copy is left beside the data file.
    for (const QString& name : folderEntries(app.folder()))
        EXPECT_FALSE(name.startsWith(u'.')) << qPrintable(name);

    // Restoring that copy undoes the restore.
    app.presenter().queueFile(gBackupsPath + u'/' + copies[0]);
    restoreDataFileCommand();
    EXPECT_EQ(app.count(u"teams"_s), 2);
}

TEST(Restore, aFileThatIsNoWholeDataFileOfThisProgramIsRefusedAndChangesNothing)
{
    TempApp app;
    addTeam(500, u"Current"_s);
    const QString good = gBackupsPath + u"/good.lk"_s;
    QString failure;
    ASSERT_TRUE(backupDatabase(good, failure)) << qPrintable(failure);
    addTeam(501, u"Since the backup"_s);

    QByteArray damaged = fileBytes(good);
    ASSERT_GT(damaged.size(), 20000);
    for (qsizetype i = 10000; i < 10100; ++i)
        damaged[i] = static_cast<char>(damaged[i] ^ 0x5a);
    writeBytes(app.folder() + u"/Imports/damaged.lk"_s, damaged);
    writeForeignDataFile(app.folder() + u"/Imports/plain.lk"_s, nullptr);
    writeForeignDataFile(app.folder() + u"/Imports/wrong-key.lk"_s, "NotTheKey");
    writeForeignDataFile(app.folder() + u"/Imports/other-schema.lk"_s, "Felix");
    writeBytes(app.folder() + u"/Imports/empty.lk"_s, {});
    const QString notADatabase = u"file is encrypted or is not a database"_s;
    const struct {
        const char* name;
        QString box;   // the engine's description; a prefix where the table named may vary
    } cases[] = {
        {"damaged.lk", u"database disk image is malformed"_s},
        {"plain.lk", notADatabase},
        {"wrong-key.lk", notADatabase},
        {"other-schema.lk", u"no such table: "_s},
        {"empty.lk", u"no such table: "_s},
        {"missing.lk", u"The data file could not be restored from "_s},
    };

    const QByteArray before = fileBytes(app.dataFile());
    const QStringList folder = folderEntries(app.folder());
    for (const auto& c : cases) {
        app.presenter().clear();
        app.presenter().queueFile(app.folder() + u"/Imports/"_s + QLatin1StringView(c.name));
        restoreDataFileCommand();
        ASSERT_EQ(app.presenter().boxes().size(), 1) << c.name;
        EXPECT_TRUE(app.presenter().boxes()[0].text.startsWith(c.box)) << c.name << ": "
                                                                      << qPrintable(app.presenter().boxes()[0].text);
        EXPECT_EQ(app.presenter().boxes()[0].icon, Icon::Critical);
        EXPECT_EQ(app.presenter().pointers(), (QList<int16_t>{11, 0})) << c.name;
        // Checked before the connection was closed: the same file, still open, nothing left behind.
        EXPECT_EQ(gConnection->connectionStatus(), 0) << c.name;
        EXPECT_EQ(fileBytes(app.dataFile()), before) << c.name;
        EXPECT_EQ(folderEntries(app.folder()), folder) << c.name;
        EXPECT_TRUE(datedCopies(u"lapkeeper30"_s).isEmpty()) << c.name;
    }
    EXPECT_TRUE(app.presenter().boxes()[0].text.endsWith(u": No such file or directory.\nThe data file is unchanged."_s));
    EXPECT_EQ(app.count(u"teams"_s), 2);
}

} // namespace
