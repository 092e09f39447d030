#include "base/app_globals.h"
#include "shell/maintenance_commands.h"
#include "store/connection.h"
#include "store/maintenance.h"
#include "support/temp_app.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void addTeam(int number, const QString& name)
{
    IDatabase db;
    ASSERT_TRUE(db.execute(u"INSERT INTO teams (team_nmbr, team_name) VALUES (%1, '%2')"_s.arg(number).arg(name)));
}

TEST(Backup, writes_a_compacted_copy_and_reopens_the_data_file)
{
    TempApp app;
    addTeam(500, u"Before"_s);
    const QString target = gBackupsPath + u"/manual.lk"_s;
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
    EXPECT_TRUE(QFile::exists(target));
    addTeam(501, u"After"_s);   // the reopened file is live
    EXPECT_EQ(app.count(u"teams"_s), 2);
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

TEST(Backup, cancel_leaves_everything_as_it_was)
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

TEST(Restore, brings_back_the_rows_of_a_backup)
{
    TempApp app;
    addTeam(500, u"Kept"_s);
    const QString target = gBackupsPath + u"/lapkeeper30.lk"_s;
    backupDatabase(target);
    addTeam(501, u"Lost"_s);

    app.presenter().queueFile(target);
    restoreDataFileCommand();
    EXPECT_EQ(gConnection->connectionStatus(), 0);
    EXPECT_EQ(app.scalar(u"SELECT team_name FROM teams"_s), u"Kept"_s);
    EXPECT_EQ(app.count(u"teams"_s), 1);
    EXPECT_EQ(app.presenter().pointers().last(), 0);
}

TEST(Restore, a_file_with_another_password_leaves_the_connection_closed)
{
    TempApp app;
    const QString foreign = app.folder() + u"/foreign.lk"_s;
    QFile f(foreign);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(QByteArray(4096, 'x'));
    f.close();

    app.presenter().queueFile(foreign);
    restoreDataFileCommand();
    EXPECT_EQ(gConnection->connectionStatus(), 1);
    EXPECT_EQ(app.presenter().boxTexts(), QStringList{u"file is encrypted or is not a database"_s});
}

TEST(Restore, choosing_the_data_file_itself_fails_and_keeps_the_file)
{
    TempApp app;
    addTeam(500, u"Still here"_s);
    app.presenter().queueFile(app.dataFile());
    restoreDataFileCommand();
    // The connection stays closed and the hourglass stays until the pointer next moves.
    EXPECT_EQ(gConnection->connectionStatus(), 1);
    EXPECT_EQ(app.presenter().pointers(), QList<int16_t>{11});
    ASSERT_TRUE(openDatabase());
    EXPECT_EQ(app.scalar(u"SELECT team_name FROM teams"_s), u"Still here"_s);
}

} // namespace
