#include "base/app_globals.h"
#include "base/date_form.h"
#include "base/messages.h"
#include "league/league_fixtures.h"
#include "shell/about_form.h"
#include "base/browser_form.h"
#include "shell/splash_form.h"
#include "shell/welcome_form.h"
#include "support/recording_presenter.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// Replaces PATH for one test.
class ScopedPath {
public:
    explicit ScopedPath(const QString& path) : m_old(qgetenv("PATH")) { qputenv("PATH", path.toLocal8Bit()); }
    ~ScopedPath() { qputenv("PATH", m_old); }

private:
    QByteArray m_old;
};

} // namespace

TEST(AboutBox, ShowsNameVersionLinksTheSiteAndRunsSystemInfo)
{
    RecordingPresenter rec;
    frmAbout about;
    EXPECT_EQ(about.objectName(), u"frmAbout"_s);
    EXPECT_EQ(about.windowTitle(), u"About Lapkeeper"_s);
    EXPECT_EQ(child<QLabel>(about, u"AboutTitle"_s)->text(), u"Lapkeeper"_s);
    const QString version = child<QLabel>(about, u"Version"_s)->text();
    EXPECT_TRUE(version.startsWith(u"Version "_s + kVersion + u'.')) << qPrintable(version);
    EXPECT_EQ(version.count(u'.'), 2);
    EXPECT_EQ(child<QPushButton>(about, u"BUT_Ok"_s)->text(), u"&Ok"_s);

    about.show();
    QTest::mouseClick(child<QToolButton>(about, u"Image1"_s), Qt::LeftButton);
    EXPECT_EQ(rec.launches(), QStringList{kProductWebSite});

    // System Info runs a tool from the path, or says it is unavailable.
    QTemporaryDir bin;
    auto* sysInfo = child<QPushButton>(about, u"BUT_SysInfo"_s);
    {
        ScopedPath path(bin.path());
        QTest::mouseClick(sysInfo, Qt::LeftButton);
    }
    ASSERT_EQ(rec.boxes().size(), 1);
    EXPECT_EQ(rec.boxes()[0].text, u"System Information Is Unavailable At This Time"_s);
    EXPECT_EQ(rec.boxes()[0].title, u"Lapkeeper Message"_s);

    QFile tool(bin.filePath(u"hardinfo"_s));
    ASSERT_TRUE(tool.open(QIODevice::WriteOnly));
    tool.write("#!/bin/sh\n");
    tool.close();
    tool.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    rec.clear();
    ScopedPath path(bin.path());
    QTest::mouseClick(sysInfo, Qt::LeftButton);
    EXPECT_TRUE(rec.boxes().isEmpty());
    EXPECT_EQ(rec.launches(), QStringList{tool.fileName()});
    QTest::mouseClick(child<QPushButton>(about, u"BUT_Ok"_s), Qt::LeftButton);
    EXPECT_FALSE(about.isVisible());
}

TEST(WelcomeScreen, GreetsPlaysTheSoundAndHidesTheWizard)
{
    RecordingPresenter rec;
    frmWelcome welcome;
    EXPECT_EQ(child<QLabel>(welcome, u"Greeting1"_s)->text(), u"Welcome to Lapkeeper 3.0!"_s);
    EXPECT_EQ(child<QLabel>(welcome, u"Greeting2"_s)->text(),
              u"You now have the tools to quickly and easily manage fantasy race leagues."_s);
    EXPECT_EQ(child<QPushButton>(welcome, u"BUT_Continue"_s)->text(), u"&Continue..."_s);
    EXPECT_EQ(child<QTimer>(welcome, u"TaDa"_s)->interval(), 1);

    welcome.show();
    EXPECT_FALSE(child<QPushButton>(welcome, u"BUT_SetupWizard"_s)->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !rec.launches().isEmpty(); }));
    EXPECT_EQ(rec.launches(), QStringList{windowsFolder() + u"TADA.wav"_s});
    EXPECT_EQ(mousePointer(), kPointerDefault);
    // The sound plays once: its timer is spent, and nothing pending plays it again.
    EXPECT_FALSE(child<QTimer>(welcome, u"TaDa"_s)->isActive());
    QCoreApplication::processEvents();
    EXPECT_EQ(rec.launches().size(), 1);
    QTest::mouseClick(child<QPushButton>(welcome, u"BUT_Continue"_s), Qt::LeftButton);
    EXPECT_FALSE(welcome.isVisible());
    EXPECT_EQ(mousePointer(), kPointerHourglass);   // Continue leaves the hourglass, and so does closing
}

TEST(WelcomeScreen, ClosingEarlyLeavesTheHourglassAndNoSound)
{
    RecordingPresenter rec;
    {
        frmWelcome welcome;
        welcome.show();
        welcome.close();
        EXPECT_EQ(mousePointer(), kPointerHourglass);
        // A sound still due when the window closed is called off.
        EXPECT_FALSE(child<QTimer>(welcome, u"TaDa"_s)->isActive());
    }
    QCoreApplication::processEvents();
    EXPECT_TRUE(rec.launches().isEmpty());
}

TEST(SplashScreen, StandsUntilItsTimerClosesIt)
{
    RecordingPresenter rec;
    frmSplash splash;
    EXPECT_EQ(child<QTimer>(splash, u"STart_Timer"_s)->interval(), 4000);
    EXPECT_TRUE(child<QLabel>(splash, u"lblVersion"_s)->text().contains(u"3.0"_s));

    splash.setStartInterval(150);
    splash.show();
    splash.reject();
    QTest::keyClick(&splash, Qt::Key_Escape);
    splash.close();
    EXPECT_TRUE(splash.isVisible());   // neither a key nor a close shortens it
    ASSERT_TRUE(QTest::qWaitFor([&] { return !splash.isVisible(); }));

    frmSplash modal;
    modal.setStartInterval(30);
    EXPECT_EQ(modal.exec(), QDialog::Accepted);   // the timer ends the modal loop
}

TEST(FolderChooser, OkMakesTheTypedFolderAndKeepsItWithoutTrailingSlash)
{
    QTemporaryDir dir;
    RecordingPresenter rec;
    gReportsPath = dir.path();
    gBackupsPath = u"/backups/untouched"_s;

    frmBrowser browser(1);
    browser.show();
    EXPECT_EQ(browser.windowTitle(), u"Select Report Folder"_s);
    auto* pathName = child<QLineEdit>(browser, u"PathName"_s);
    EXPECT_EQ(pathName->text(), dir.path());
    auto* paths = child<QTreeWidget>(browser, u"Paths"_s);
    ASSERT_NE(paths->currentItem(), nullptr);
    EXPECT_EQ(paths->currentItem()->text(0), QDir(dir.path()).dirName());
    EXPECT_GT(child<QComboBox>(browser, u"Drives"_s)->count(), 0);

    const QString wanted = dir.filePath(u"season/2024"_s);
    pathName->setText(u"  "_s + wanted + u"/ "_s);
    QTest::mouseClick(child<QPushButton>(browser, u"BUT_Ok"_s), Qt::LeftButton);
    EXPECT_FALSE(browser.isVisible());
    EXPECT_TRUE(QDir(wanted).exists());
    EXPECT_EQ(gReportsPath, wanted);
    EXPECT_EQ(gBackupsPath, u"/backups/untouched"_s);
}

TEST(FolderChooser, CancelPutsBackThePathItOpenedWith)
{
    QTemporaryDir dir;
    QDir(dir.path()).mkpath(u"Backups/old"_s);
    RecordingPresenter rec;
    gBackupsPath = dir.filePath(u"Backups"_s) + u'/';

    frmBrowser browser(2);
    browser.show();
    auto* paths = child<QTreeWidget>(browser, u"Paths"_s);
    QTreeWidgetItem* current = paths->currentItem();
    ASSERT_NE(current, nullptr);
    ASSERT_EQ(current->childCount(), 1);
    paths->setCurrentItem(current->child(0));   // choosing a folder shows it in the text
    EXPECT_EQ(child<QLineEdit>(browser, u"PathName"_s)->text(), dir.filePath(u"Backups/old"_s));
    child<QLineEdit>(browser, u"PathName"_s)->setText(dir.filePath(u"Backups/new"_s));

    QTest::mouseClick(child<QPushButton>(browser, u"BUT_Cancel"_s), Qt::LeftButton);
    EXPECT_FALSE(browser.isVisible());
    EXPECT_EQ(gBackupsPath, dir.filePath(u"Backups"_s));
    EXPECT_FALSE(QDir(dir.filePath(u"Backups/new"_s)).exists());
}

TEST(DatePicker, ChoosingADateHidesTheWindowAndKeepsTheDate)
{
    frmDate picker;
    picker.setSelectedDate(QDate(2024, 5, 1));
    picker.show();
    auto* calendar = child<QCalendarWidget>(picker, u"MonthView1"_s);
    QWidget* view = calendar->findChild<QWidget*>(u"qt_calendar_calendarview"_s);
    ASSERT_NE(view, nullptr);
    view->setFocus();

    QTest::keyClick(view, Qt::Key_Right);   // moving only selects
    EXPECT_TRUE(picker.isVisible());
    QTest::keyClick(view, Qt::Key_Return);
    EXPECT_FALSE(picker.isVisible());
    EXPECT_TRUE(picker.dateChosen());
    EXPECT_EQ(picker.selectedDate(), QDate(2024, 5, 2));
}
