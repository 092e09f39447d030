#define SQLITE_HAS_CODEC 1
#include "shell/startup.h"
#include "shell/app_globals.h"
#include "shell/gui_application.h"
#include "shell/main_window.h"
#include "shell/settings.h"
#include "store/connection.h"
#include "store/runtime_error.h"
#include "store/schema.h"
#include "support/recording_presenter.h"

#include <sqlite3.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolBar>
#include <gtest/gtest.h>
#include <memory>
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
    ASSERT_TRUE(gConnection);
    EXPECT_EQ(gConnection->connectionStatus(), 0);
    EXPECT_EQ(QDir::currentPath(), QDir(app()).canonicalPath());

    EXPECT_TRUE(m_presenter.boxes().isEmpty()) << qPrintable(m_presenter.boxTexts().join(u'\n'));
    EXPECT_EQ(m_presenter.statusTexts(), QStringList({u"Loading"_s, u"Status"_s}));
    EXPECT_EQ(m_presenter.pointers().constLast(), kPointerDefault);
    EXPECT_EQ(window.windowTitle(), u"Lapkeeper"_s);
    // With no settings file the window opens maximised with both bars.
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(window.isMaximized());
    EXPECT_TRUE(window.findChild<QToolBar*>(u"Toolbar1"_s)->isVisible());
    EXPECT_NE(window.nodeByKey(u"Leagues"_s), nullptr);
}

TEST_F(StartupTest, aSecondCopyIsRefusedAndWritesNothing)
{
    auto running = std::make_unique<cInstanceGuard>();
    ASSERT_TRUE(running->acquire());

    {
        frmMain window;
        EXPECT_FALSE(start(window));
        ASSERT_EQ(m_presenter.boxes().size(), 1);
        const RecordedBox& box = m_presenter.boxes().constFirst();
        EXPECT_EQ(box.text, u"You cannot start more than one copy of Lapkeeper."_s);
        EXPECT_EQ(box.title, u"Lapkeeper Message"_s);
        EXPECT_EQ(box.icon, Icon::Critical);
        EXPECT_EQ(m_presenter.beeps(), 1);
        EXPECT_FALSE(window.isVisible());
        window.close();
    }
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

TEST_F(StartupTest, aNormalWindowKeepsItsGeometryInTwips)
{
    gSettings.mdiState = u"0"_s;
    gSettings.mdiWidth = u"9000"_s;
    gSettings.mdiHeight = u"6000"_s;
    gSettings.mdiLeft = u"300"_s;
    gSettings.mdiTop = u"450"_s;
    saveSettings();

    frmMain window;
    ASSERT_TRUE(start(window));
    EXPECT_FALSE(window.isMaximized());
    const double dpi = window.logicalDpiX();
    EXPECT_EQ(window.width(), twipsToPixels(9000, dpi));
    EXPECT_EQ(window.height(), twipsToPixels(6000, window.logicalDpiY()));
    window.resize(window.width() + 10, window.height());
    window.close();

    EXPECT_EQ(setting(u"MDI State"_s), u"0"_s);
    EXPECT_EQ(setting(u"MDI Width"_s), QString::number(pixelsToTwips(twipsToPixels(9000, dpi) + 10, dpi)));
    EXPECT_EQ(setting(u"MDI Height"_s), QString::number(pixelsToTwips(window.height(), window.logicalDpiY())));
}

TEST_F(StartupTest, aWindowClosedMinimisedComesBackNormalAtItsLastGeometry)
{
    gSettings.mdiState = u"0"_s;
    gSettings.mdiWidth = u"9000"_s;
    saveSettings();
    {
        frmMain window;
        ASSERT_TRUE(start(window));
        window.resize(200, 200);
        window.showMinimized();
        ASSERT_TRUE(window.isMinimized());
        window.close();
    }
    EXPECT_EQ(setting(u"MDI State"_s), u"0"_s);
    EXPECT_EQ(setting(u"MDI Width"_s), u"9000"_s);
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

    {
        frmMain window;
        EXPECT_FALSE(start(window));
        EXPECT_FALSE(window.isStarted());
        EXPECT_FALSE(window.isVisible());
        window.close();
    }
    ASSERT_EQ(m_presenter.boxes().size(), 2) << qPrintable(m_presenter.boxTexts().join(u'\n'));
    EXPECT_EQ(m_presenter.boxes()[0].title, u"Lapkeeper"_s);
    EXPECT_EQ(m_presenter.boxes()[0].icon, Icon::Critical);
    EXPECT_TRUE(m_presenter.boxes()[0].text.contains(u"not a database"_s)) << qPrintable(m_presenter.boxes()[0].text);
    EXPECT_EQ(m_presenter.boxes()[1].text, u"Unable to connect to Database"_s);
    EXPECT_EQ(m_presenter.boxes()[1].title, u"Lapkeeper"_s);
    EXPECT_EQ(m_presenter.boxes()[1].icon, Icon::Critical);
    EXPECT_FALSE(QFileInfo::exists(settingsFilePath()));
    EXPECT_TRUE(QDir(app(u"Backups"_s)).isEmpty());
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

    ASSERT_EQ(presenter.boxes().size(), 2);
    EXPECT_EQ(presenter.boxTexts(), QStringList({u"Overflow"_s, u"disk full"_s}));
    for (const RecordedBox& box : presenter.boxes()) {
        EXPECT_EQ(box.title, u"Lapkeeper"_s);
        EXPECT_EQ(box.icon, Icon::Critical);
    }
}
