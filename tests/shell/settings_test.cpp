#include "shell/settings.h"
#include "base/app_globals.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString readFile(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly | QIODevice::Text) ? QString::fromUtf8(f.readAll()) : QString();
}

void writeFile(const QString& path, const QString& text)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Text));
    f.write(text.toUtf8());
}

// Every setting in save order, joined by "|".
QString current()
{
    const LkSettings& s = gSettings;
    return QStringList{s.firstTime, s.statusBar, s.toolBar,  s.mdiTop,      s.mdiLeft,
                       s.mdiHeight, s.mdiWidth,  s.mdiState, s.splitterLeft}
        .join(u'|');
}

void setAll(const QString& joined)
{
    const QStringList v = joined.split(u'|');
    gSettings = {v[0], v[1], v[2], v[6], v[4], v[3], v[5], v[7], v[8]};   // declared in another order
}

const QString kDefaults = u"Y|Y|Y|105|105|7920|10455|2|2520"_s;

struct LoadCase {
    const char* name;
    const char16_t* file;   // nullptr: no file at all
    QString expected;
};

class SettingsLoad : public ::testing::TestWithParam<LoadCase> {
protected:
    void SetUp() override
    {
        QFile::remove(settingsFilePath());
        gSettings = LkSettings{};
    }
    void TearDown() override { QFile::remove(settingsFilePath()); }
};

using SettingsFile = SettingsLoad;

} // namespace

TEST_P(SettingsLoad, readsTheFileIntoTheSettings)
{
    const LoadCase& c = GetParam();
    gSettings.firstTime = u"N"_s;
    gSettings.mdiWidth = u"1"_s;
    if (c.file)
        writeFile(settingsFilePath(), u"[Lapkeeper]\n"_s + QString::fromUtf16(c.file));
    loadSettings();
    EXPECT_EQ(current(), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Files, SettingsLoad,
    ::testing::Values(
        LoadCase{"MissingGivesDefaults", nullptr, kDefaults},
        LoadCase{"OutOfRangeFallsBack",
                 u"First Time=maybe\nStatus Bar=\nTool Bar=x\nMDI Width=40000\nMDI Left=abc\nMDI Height=32768\n"
                 u"MDI State=3\nSplitter Left=12x\n",
                 kDefaults},
        // Cut to width before the check: "No" is "N", "327689" is "32768" (too big), "01" is "0".
        LoadCase{"CutToWidthThenChecked",
                 u"First Time=No\nStatus Bar=NY\nMDI Left=1234567\nMDI Top=-500\nMDI Height=327689\nMDI State=01\n"
                 u"Splitter Left=3000\n",
                 u"N|N|Y|-500|12345|7920|10455|0|3000"_s}),
    [](const ::testing::TestParamInfo<LoadCase>& tested) { return std::string(tested.param.name); });

TEST_F(SettingsFile, saveWritesEveryKeyInOrderWithFirstTimeAlwaysNo)
{
    EXPECT_EQ(settingsFilePath(), QString::fromLocal8Bit(qgetenv("XDG_CONFIG_HOME")) + u"/LK.INI"_s);
    setAll(u"Y|N|Y|200|300|6000|9000|0|2000"_s);
    saveSettings();
    EXPECT_EQ(readFile(settingsFilePath()), u"[Lapkeeper]\nFirst Time=N\nStatus Bar=N\nTool Bar=Y\nMDI Top=200\n"
                                            u"MDI Left=300\nMDI Height=6000\nMDI Width=9000\nMDI State=0\n"
                                            u"Splitter Left=2000\n"_s);
    gSettings = LkSettings{};
    loadSettings();
    EXPECT_EQ(current(), u"N|N|Y|200|300|6000|9000|0|2000"_s);
}

TEST_F(SettingsFile, saveKeepsTheOtherSectionsAndKeysOfTheFile)
{
    writeFile(settingsFilePath(), u"; kept by hand\n[Other]\nMDI Width=1\n\n[Lapkeeper]\nExtra=kept\nMDI Width=5000\n"
                                  u"\n[Last]\nKey=value\n"_s);
    loadSettings();
    EXPECT_EQ(gSettings.mdiWidth, u"5000"_s);
    gSettings.mdiWidth = u"7000"_s;
    saveSettings();

    const QString text = readFile(settingsFilePath());
    EXPECT_TRUE(text.startsWith(u"; kept by hand\n[Other]\nMDI Width=1\n"_s)) << qPrintable(text);
    EXPECT_TRUE(text.contains(u"Extra=kept\n"_s));
    EXPECT_TRUE(text.contains(u"MDI Width=7000\n"_s));
    EXPECT_TRUE(text.endsWith(u"[Last]\nKey=value\n"_s)) << qPrintable(text);
    EXPECT_EQ(readProfileString(settingsFilePath(), u"Other"_s, u"MDI Width"_s, {}), u"1"_s);
    EXPECT_EQ(readProfileString(settingsFilePath(), u"Lapkeeper"_s, u"Splitter Left"_s, {}), u"2520"_s);
}

TEST_F(SettingsFile, downloadServerComesFromItsKeyOrTheProductsServer)
{
    writeFile(settingsFilePath(), u"[Lapkeeper]\nDownloadServer=127.0.0.1:2121/league\n"_s);
    loadSettings();
    EXPECT_EQ(gDownloadServer, u"127.0.0.1:2121/league"_s);

    writeFile(settingsFilePath(), u"[Lapkeeper]\nDownloadServer=\n"_s);
    loadSettings();
    EXPECT_EQ(gDownloadServer, kDownloadServer);

    // Saving leaves a hand-written key where it was.
    writeFile(settingsFilePath(), u"[Lapkeeper]\nDownloadServer=files.example.net\n"_s);
    saveSettings();
    loadSettings();
    EXPECT_EQ(gDownloadServer, u"files.example.net"_s);
}
