#include "base/app_globals.h"
#include "base/messages.h"
#include "base/outside_programs.h"
#include "pane_fixture.h"
#include "support/recording_presenter.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// Points the manual lookup at a folder for one test and back to the real lookup after.
class HelpFolder {
public:
    explicit HelpFolder(const QString& folder) { setHelpFolder(folder); }
    ~HelpFolder() { setHelpFolder({}); }
};

} // namespace

TEST(SharedMessageBoxes, CarryTheirTitlesAndIconsAndBeepFirst)
{
    RecordingPresenter rec;
    showErrorMessage(u"bad"_s);
    showInfoMessage(u"note"_s);
    showStopMessage(u"halt"_s);
    EXPECT_EQ(shownBoxes(rec), (QStringList{u"Lapkeeper Error [Critical/Ok] bad"_s,
                                            u"Lapkeeper Message [Information/Ok] note"_s,
                                            u"Lapkeeper Message [Critical/Ok] halt"_s}));
    EXPECT_EQ(rec.beeps(), 3);
    EXPECT_EQ(gLastBoxResult, static_cast<int32_t>(Answer::Ok));
}

TEST(SharedMessageBoxes, DropTheHourglassWhileTheBoxStandsAndBringItBack)
{
    RecordingPresenter rec;
    setMousePointer(kPointerHourglass);
    showErrorMessage(u"during a long job"_s);
    EXPECT_EQ(rec.pointers(), (QList<int16_t>{kPointerHourglass, kPointerDefault, kPointerHourglass}));
    EXPECT_EQ(mousePointer(), kPointerHourglass);

    rec.clear();
    setMousePointer(kPointerDefault);
    showInfoMessage(u"at rest"_s);
    // No hourglass to drop: the pointer is only put back as it was.
    EXPECT_EQ(rec.pointers(), (QList<int16_t>{kPointerDefault, kPointerDefault}));

    // The status line without a text reads "Status".
    setStatusText(u"Posting"_s);
    setStatusText();
    EXPECT_EQ(rec.statusTexts(), (QStringList{u"Posting"_s, u"Status"_s}));
}

struct LaunchFailure {
    const char* name;
    int result;
    const char* kind;
    const char* text;
};

class LaunchFileFailures : public ::testing::TestWithParam<LaunchFailure> {};

TEST_P(LaunchFileFailures, ShowTheTextForTheResultAndKind)
{
    const LaunchFailure& c = GetParam();
    RecordingPresenter rec;
    rec.setLaunchResult(c.result);
    EXPECT_EQ(launchFile(u"  /reports/ls.html "_s, 1, QString::fromLatin1(c.kind)), c.result);
    EXPECT_EQ(rec.launches(), QStringList{u"/reports/ls.html"_s});
    // Results from 33 on are success and say nothing.
    const QString text = QString::fromUtf8(c.text);
    EXPECT_EQ(shownBoxes(rec), text.isEmpty() ? QStringList() : QStringList{u"Lapkeeper Error [Critical/Ok] "_s + text});
}

INSTANTIATE_TEST_SUITE_P(
    ByResult, LaunchFileFailures,
    ::testing::Values(
        LaunchFailure{"NotFound", 2, "SYSINFO", "/reports/ls.html\n\nFile Not Found."},
        LaunchFailure{"NotFoundWithExportNote", 2, "EXPORT",
                      "/reports/ls.html\n\nFile Not Found.\n\nNOTE: You may select a custom application to be "
                      "used for exported files from the Preferences/Tools tab."},
        LaunchFailure{"NoBrowserForReport", 31, "HTML",
                      "No application association was found for this HTML file:\n\n/reports/ls.html\n\nIt appears "
                      "that you do not have a web browser installed on your computer which is necessary in order "
                      "to display the report.\n\nNOTE: This maybe caused by having no browser installed."},
        LaunchFailure{"NoAssociationForOtherKinds", 31, "SYSINFO",
                      "No application association was found for this file:\n\n/reports/ls.html\n\nAn application "
                      "must be associated with this file type before it can be displayed."},
        LaunchFailure{"InvalidPath", 3, "SYSINFO", "Invalid path was encountered as follows:\n\n/reports/ls.html"},
        LaunchFailure{"UnknownWithHtmlNote", 7, "HTML",
                      "Unknown error.\n\nNOTE: This maybe caused by having no browser installed."},
        LaunchFailure{"SuccessSaysNothing", 33, "HTML", ""}),
    [](const ::testing::TestParamInfo<LaunchFailure>& tested) { return std::string(tested.param.name); });

TEST(OpenWebPage, MapsTheWordsToTheProductSiteAndPassesAddressesOn)
{
    RecordingPresenter rec;
    openWebPage(u"HOME"_s);
    openWebPage(u" SUPPORT "_s);
    openWebPage(u"UPDATES"_s);
    openWebPage(u"https://example.net/page"_s);
    EXPECT_EQ(rec.launches(), (QStringList{kProductWebSite, kProductWebSite + u"/support.htm"_s,
                                           kProductWebSite + u"/updates.htm"_s, u"https://example.net/page"_s}));
}

TEST(PlaySound, PlaysTheNamedWaveUnderTheHourglassOrBeepsWhenItCannot)
{
    RecordingPresenter rec;
    playSound(u"TADA"_s);
    EXPECT_EQ(rec.launches(), QStringList{windowsFolder() + u"TADA.wav"_s});
    EXPECT_EQ(rec.beeps(), 0);
    EXPECT_EQ(rec.pointers(), (QList<int16_t>{kPointerHourglass, kPointerDefault}));

    rec.setPlayResult(false);
    setMousePointer(kPointerHourglass);
    rec.clear();
    playSound(u"tada"_s);
    EXPECT_EQ(rec.launches(), QStringList{windowsFolder() + u"tada.wav"_s});
    EXPECT_EQ(rec.beeps(), 1);
    EXPECT_EQ(rec.pointers(), QList<int16_t>{kPointerHourglass});   // an hourglass stays
    setMousePointer(kPointerDefault);
}

TEST(ShowHelp, WithoutTheManualNamesTheMissingFileExceptOnQuit)
{
    QTemporaryDir empty;
    HelpFolder folder(empty.path());
    RecordingPresenter rec;
    showHelp(u"Quit"_s);
    EXPECT_TRUE(rec.boxes().isEmpty());
    showHelp(u"Index"_s);
    EXPECT_EQ(shownBoxes(rec),
              QStringList{u"Lapkeeper Message [Information/Ok] It appears that you have installed the minimum "
                          u"version of Lapkeeper because the the file:\n\n"_s +
                          empty.path() +
                          u"/index.html\n\nwas not found.  The help functionality requires the full installation "
                          u"of Lapkeeper."_s});
    EXPECT_TRUE(rec.launches().isEmpty());
    EXPECT_EQ(rec.pointers().first(), kPointerHourglass);
    EXPECT_EQ(mousePointer(), kPointerDefault);
}

TEST(ShowHelp, OpensTheManualAtTheAskedPart)
{
    QTemporaryDir dir;
    QFile index(dir.filePath(u"index.html"_s));
    ASSERT_TRUE(index.open(QIODevice::WriteOnly));
    index.close();
    HelpFolder folder(dir.path());
    RecordingPresenter rec;
    const QString page = QUrl::fromLocalFile(dir.filePath(u"index.html"_s)).toString();

    gHelpContext = 500;
    showHelp(u"Sensative"_s);
    showHelp(u"Index"_s);
    showHelp(u"Quit"_s);
    showHelp(u"NoSuchWord"_s);
    gHelpContext = 0;

    EXPECT_EQ(rec.launches(), (QStringList{page + u"#context-500"_s, page + u"#context-1"_s}));
    EXPECT_TRUE(rec.boxes().isEmpty());
    EXPECT_EQ(mousePointer(), kPointerDefault);
}

TEST(ShowHelp, FindsTheManualBuiltBesideTheProgram)
{
    // The build copies the manual into share/lapkeeper/manual of the build folder.
    EXPECT_TRUE(QFile::exists(helpFilePath())) << qPrintable(helpFilePath());
}
