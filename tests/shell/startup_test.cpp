#define SQLITE_HAS_CODEC 1
#include "base/run_trapped.h"
#include "base/runtime_error.h"
#include "pane_fixture.h"
#include "shell/startup.h"
#include "store/connection.h"
#include "store/schema.h"
#include "support/data_files.h"

#include <sqlite3.h>

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolBar>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QString setting(const QString& key)
{
    return readProfileString(settingsFilePath(), u"Lapkeeper"_s, key, u"<none>"_s);
}

// A start in a fresh application folder (not yet made) with no settings file.
class StartupTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QFile::remove(settingsFilePath());
        gSettings = LkSettings{};
        gConnection.reset();
        setApplicationFolder(m_dir.path() + u"/Lapkeeper"_s);
    }
    void TearDown() override
    {
        if (gConnection)
            gConnection->CloseConnection();
        gConnection.reset();
        QFile::remove(settingsFilePath());
        QDir::setCurrent(QDir::tempPath());
    }

    QString app(const QString& name = {}) const
    {
        return applicationFolder() + (name.isEmpty() ? QString() : u'/' + name);
    }

    bool start(frmMain& window)
    {
        window.setStartScreensShown(false);
        return window.load();
    }
    // A start that ends before the window is shown.
    void expectRefusedStart()
    {
        frmMain window;
        EXPECT_FALSE(start(window));
        EXPECT_FALSE(window.isStarted());
        EXPECT_FALSE(window.isVisible());
        window.close();
    }

    QTemporaryDir m_dir;
    RecordingPresenter m_presenter;
};

} // namespace

TEST_F(StartupTest, firstStartMakesTheFoldersAndTheDataFileAndShowsTheWindow)
{
    frmMain window;
    ASSERT_TRUE(start(window));
    EXPECT_TRUE(window.isStarted());
    for (const QString& folder : {u"Reports"_s, u"Backups"_s, u"Imports"_s})
        EXPECT_TRUE(QFileInfo(app(folder)).isDir()) << qPrintable(folder);
    EXPECT_EQ(gBackupsPath, app(u"Backups"_s));
    EXPECT_TRUE(QFileInfo::exists(app(kDataFileName)));
    // The data and the folders that hold it are the owner's alone.
    EXPECT_EQ(fileMode(app(kDataFileName)), 0600);
    for (const QString& folder : {QString(), u"Reports"_s, u"Backups"_s, u"Imports"_s})
        EXPECT_EQ(fileMode(app(folder)), 0700) << qPrintable(folder);
    ASSERT_TRUE(gConnection);
    EXPECT_EQ(gConnection->connectionStatus(), 0);
    EXPECT_EQ(QDir::currentPath(), QDir(app()).canonicalPath());

    EXPECT_TRUE(m_presenter.boxes().isEmpty()) << qPrintable(m_presenter.boxTexts().join(u'\n'));
    EXPECT_EQ(m_presenter.statusTexts(), QStringList({u"Loading"_s, u"Status"_s}));
    EXPECT_EQ(m_presenter.pointers().constLast(), kPointerDefault);
    // With no settings file the window opens maximised with both bars.
    EXPECT_TRUE(window.isVisible() && window.isMaximized());
    EXPECT_TRUE(window.findChild<QToolBar*>(u"Toolbar1"_s)->isVisible());
}

TEST_F(StartupTest, aSecondCopyIsRefusedAndWritesNothing)
{
    auto running = std::make_unique<cInstanceGuard>();
    ASSERT_TRUE(running->acquire());

    expectRefusedStart();
    EXPECT_EQ(shownBoxes(m_presenter),
              QStringList{u"Lapkeeper Message [Critical/Ok] You cannot start more than one copy of Lapkeeper."_s});
    EXPECT_EQ(m_presenter.beeps(), 1);
    EXPECT_FALSE(QFileInfo::exists(app(kDataFileName)));
    EXPECT_FALSE(QFileInfo::exists(app(u"Backups"_s)));
    EXPECT_FALSE(QFileInfo::exists(settingsFilePath()));

    // Once the first copy has ended the program starts.
    running.reset();
    frmMain again;
    EXPECT_TRUE(start(again));
}

TEST_F(StartupTest, aLockLeftByAProgramThatDiedIsTakenOver)
{
    QDir().mkpath(app());
    const pid_t child = fork();
    if (child == 0) {
        // The child takes the lock and dies without letting go of it.
        cInstanceGuard guard;
        _exit(guard.acquire() ? 0 : 1);
    }
    ASSERT_GT(child, 0);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status));
    ASSERT_EQ(WEXITSTATUS(status), 0);
    ASSERT_TRUE(QFileInfo::exists(cInstanceGuard::lockFilePath()));

    cInstanceGuard guard;
    EXPECT_TRUE(guard.acquire());
    cInstanceGuard second;
    EXPECT_FALSE(second.acquire());
}

TEST_F(StartupTest, aFolderThatCannotBeMadeOrWrittenEndsTheStartNamingItNotAsASecondCopy)
{
    // A file where the folder should be, a file where one sub-folder should be, and a folder
    // in which no file can be made.
    QFile blocker(app());
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    const QString inside = m_dir.path() + u"/Other"_s;
    const QStringList folders = {app(), inside + u"/Backups"_s, u"/proc"_s};
    QStringList expected;
    for (const QString& folder : folders) {
        if (folder.startsWith(inside)) {
            setApplicationFolder(inside);
            ASSERT_TRUE(QDir().mkpath(inside));
            QFile file(folder);
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        } else {
            setApplicationFolder(folder);
        }
        frmMain window;
        window.setStartScreensShown(false);
        EXPECT_FALSE(runTrapped([&] { return window.load(); })) << qPrintable(folder);
        EXPECT_FALSE(window.isStarted());
        expected << u"Lapkeeper [Critical/Ok] Path/File access error\n\n"_s + folder;
    }
    EXPECT_EQ(shownBoxes(m_presenter), expected);
    EXPECT_FALSE(QFileInfo::exists(settingsFilePath()));
}

TEST_F(StartupTest, theEndWritesTheSettingsAndACompactBackupThatOpens)
{
    {
        frmMain window;
        ASSERT_TRUE(start(window));
        window.findChild<QAction*>(u"mnuViewToolbar"_s)->trigger();
        window.layoutMain(3300);
        window.close();
        EXPECT_FALSE(window.isStarted());
    }
    EXPECT_TRUE(m_presenter.boxes().isEmpty()) << qPrintable(m_presenter.boxTexts().join(u'\n'));
    EXPECT_EQ(setting(u"First Time"_s), u"N"_s);
    EXPECT_EQ(setting(u"Tool Bar"_s), u"N"_s);
    EXPECT_EQ(setting(u"Status Bar"_s), u"Y"_s);
    EXPECT_EQ(setting(u"MDI State"_s), u"2"_s);
    EXPECT_EQ(setting(u"Splitter Left"_s), u"3300"_s);
    // Closed while maximised: the geometry of the last normal run stays (here the defaults).
    EXPECT_EQ(setting(u"MDI Width"_s), u"10455"_s);
    EXPECT_EQ(setting(u"MDI Height"_s), u"7920"_s);

    const QString backup = app(u"Backups/"_s + kDataFileName);
    ASSERT_TRUE(QFileInfo::exists(backup));
    QString error;
    sqlite3* db = store::openKeyed(backup, false, error);
    ASSERT_NE(db, nullptr) << qPrintable(error);
    EXPECT_TRUE(verifySchema(db, error)) << qPrintable(error);
    sqlite3_close_v2(db);
    // The connection is closed at the very end.
    ASSERT_TRUE(gConnection);
    EXPECT_EQ(gConnection->connectionStatus(), 1);

    // The next start has the toolbar hidden and the splitter where it was.
    frmMain next;
    ASSERT_TRUE(start(next));
    EXPECT_FALSE(next.findChild<QToolBar*>(u"Toolbar1"_s)->isVisible());
    EXPECT_FALSE(next.findChild<QAction*>(u"mnuViewToolbar"_s)->isChecked());
    EXPECT_EQ(next.splitterLeft(), 3300);
}

TEST_F(StartupTest, aNormalWindowKeepsItsGeometryInTwipsButNotWhenMinimised)
{
    gSettings.mdiState = u"0"_s;
    gSettings.mdiWidth = u"9000"_s;
    gSettings.mdiHeight = u"6000"_s;
    saveSettings();

    auto window = std::make_unique<frmMain>();
    ASSERT_TRUE(start(*window));
    EXPECT_FALSE(window->isMaximized());
    const double dpi = window->logicalDpiX(), dpiY = window->logicalDpiY();
    EXPECT_EQ(window->width(), twipsToPixels(9000, dpi));
    EXPECT_EQ(window->height(), twipsToPixels(6000, dpiY));
    window->resize(window->width() + 10, window->height());
    window->close();
    EXPECT_EQ(setting(u"MDI State"_s), u"0"_s);
    EXPECT_EQ(setting(u"MDI Width"_s), QString::number(pixelsToTwips(twipsToPixels(9000, dpi) + 10, dpi)));
    EXPECT_EQ(setting(u"MDI Height"_s), QString::number(pixelsToTwips(window->height(), dpiY)));
    window.reset();

    // Closed minimised, the next start comes back normal at this geometry.
    const QString width = setting(u"MDI Width"_s);
    {
        frmMain next;
        ASSERT_TRUE(start(next));
        next.resize(200, 200);
        next.showMinimized();
        ASSERT_TRUE(next.isMinimized());
        next.close();
    }
    EXPECT_EQ(setting(u"MDI State"_s), u"0"_s);
    EXPECT_EQ(setting(u"MDI Width"_s), width);
}

TEST_F(StartupTest, aWrongPasswordEndsTheStartWithTwoBoxesAndWritesNothing)
{
    QDir().mkpath(app());
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(app(kDataFileName).toUtf8().constData(), &db), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(db, "PRAGMA key = 'NotTheKey'; CREATE TABLE leagues(league_nmbr INTEGER);", nullptr,
                           nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(db);

    expectRefusedStart();
    const QStringList shown = shownBoxes(m_presenter);
    ASSERT_EQ(shown.size(), 2) << qPrintable(shown.join(u'\n'));
    EXPECT_TRUE(shown[0].startsWith(u"Lapkeeper [Critical/Ok] "_s) && shown[0].contains(u"not a database"_s));
    EXPECT_EQ(shown[1], u"Lapkeeper [Critical/Ok] Unable to connect to Database"_s);
    EXPECT_FALSE(QFileInfo::exists(settingsFilePath()));
    EXPECT_TRUE(QDir(app(u"Backups"_s)).isEmpty());
}

TEST_F(StartupTest, aDataFileMissingOnALaterRunIsNeverMadeAnewAndNoWritesNothing)
{
    {
        frmMain window;
        ASSERT_TRUE(start(window));
        IDatabase db;
        ASSERT_TRUE(db.execute(u"INSERT INTO teams (team_nmbr, team_name) VALUES (500, 'Saved')"_s));
        window.close();
    }
    ASSERT_TRUE(QFile::remove(app(kDataFileName)));
    const QString backups = app(u"Backups"_s);
    const QStringList entries = folderEntries(backups);
    const QByteArray backup = fileBytes(backups + u'/' + kDataFileName);
    const QByteArray settings = fileBytes(settingsFilePath());
    ASSERT_FALSE(backup.isEmpty());
    m_presenter.clear();

    m_presenter.queueAnswer(Answer::No);
    expectRefusedStart();
    const QStringList shown = shownBoxes(m_presenter);
    ASSERT_EQ(shown.size(), 3) << qPrintable(shown.join(u'\n'));
    const QRegularExpression question(u"^Lapkeeper \\[Question/YesNo\\] The data file "_s +
                                      QRegularExpression::escape(app(kDataFileName)) +
                                      u" is missing.\n\nDo you want to restore the newest backup, "
                                      u"lapkeeper30[-0-9]*\\.lk of \\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d\\?$"_s);
    EXPECT_TRUE(question.match(shown[0]).hasMatch()) << qPrintable(shown[0]);
    EXPECT_EQ(shown[1], u"Lapkeeper [Critical/Ok] unable to open database file"_s);
    EXPECT_EQ(shown[2], u"Lapkeeper [Critical/Ok] Unable to connect to Database"_s);
    // Nothing written: no new data file, the backups and the settings as they were.
    EXPECT_FALSE(QFileInfo::exists(app(kDataFileName)));
    EXPECT_EQ(folderEntries(backups), entries);
    EXPECT_EQ(fileBytes(backups + u'/' + kDataFileName), backup);
    EXPECT_EQ(fileBytes(settingsFilePath()), settings);

    // Yes brings the newest backup back, and the run goes on with its rows.
    m_presenter.clear();
    m_presenter.queueAnswer(Answer::Yes);
    frmMain window;
    ASSERT_TRUE(start(window));
    ASSERT_EQ(m_presenter.boxes().size(), 1);
    EXPECT_EQ(m_presenter.boxes()[0].icon, Icon::Question);
    IDatabase db;
    ASSERT_TRUE(db.OpenResultSet(u"SELECT team_name FROM teams"_s));
    EXPECT_EQ(db.fields(u"team_name"_s).toTextOrEmpty(), u"Saved"_s);
    EXPECT_EQ(fileMode(app(kDataFileName)), 0600);
}

TEST_F(StartupTest, aFailedAutomaticBackupShowsNothingAndGoesToTheLog)
{
    {
        frmMain window;
        ASSERT_TRUE(start(window));
        // A folder where the backup belongs: the last rename of the backup cannot be made.
        ASSERT_TRUE(QDir().mkpath(app(u"Backups/lapkeeper30.lk/in the way"_s)));
        window.close();
    }
    EXPECT_TRUE(m_presenter.boxes().isEmpty()) << qPrintable(m_presenter.boxTexts().join(u'\n'));
    EXPECT_EQ(folderEntries(app(u"Backups"_s)), QStringList{u"lapkeeper30.lk"_s});
    EXPECT_EQ(folderEntries(app(u"Backups/lapkeeper30.lk"_s)), QStringList{u"in the way"_s});
    const QString log = QString::fromUtf8(fileBytes(app(u"lapkeeper.log"_s)));
    EXPECT_TRUE(log.contains(u"automatic backup: The backup to "_s + app(u"Backups/lapkeeper30.lk"_s) +
                             u" failed: Is a directory."_s))
        << qPrintable(log);
    EXPECT_EQ(fileMode(app(u"lapkeeper.log"_s)), 0600);
    EXPECT_EQ(fileMode(app()), 0700);
}

TEST_F(StartupTest, theWelcomeScreenFollowsTheSplashOnlyOnTheFirstStart)
{
    QStringList shown;
    QTimer watcher;
    // Closes the welcome screen as an operator would; the splash screen closes itself.
    QObject::connect(&watcher, &QTimer::timeout, [&shown] {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal)
            return;
        if (shown.isEmpty() || shown.constLast() != modal->objectName())
            shown << modal->objectName();
        if (modal->objectName() == u"frmWelcome"_s)
            modal->findChild<QPushButton*>(u"BUT_Continue"_s)->click();
    });
    watcher.start(5);

    {
        frmMain window;
        window.setSplashInterval(50);
        ASSERT_TRUE(window.load());
        window.close();
    }
    EXPECT_EQ(shown, QStringList({u"frmSplash"_s, u"frmWelcome"_s}));
    EXPECT_EQ(m_presenter.pointers().constLast(), kPointerDefault);

    shown.clear();
    frmMain next;
    next.setSplashInterval(50);
    ASSERT_TRUE(next.load());
    EXPECT_EQ(shown, QStringList({u"frmSplash"_s}));
}

TEST(UntrappedErrors, areShownInACriticalBoxAndTheProgramGoesOn)
{
    RecordingPresenter presenter;
    setMousePointer(kPointerHourglass);
    EXPECT_FALSE(runTrapped([]() -> bool { throw cRuntimeError::overflow(); }));
    EXPECT_EQ(mousePointer(), kPointerDefault);
    EXPECT_FALSE(runTrapped([]() -> bool { throw std::runtime_error("disk full"); }));
    EXPECT_TRUE(runTrapped([] { return true; }));

    EXPECT_EQ(shownBoxes(presenter),
              QStringList({u"Lapkeeper [Critical/Ok] Overflow"_s, u"Lapkeeper [Critical/Ok] disk full"_s}));
}
