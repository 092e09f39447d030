#include "shell/settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString readFile(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromUtf8(f.readAll());
}

void writeFile(const QString& path, const QString& text)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Text));
    f.write(text.toUtf8());
}

class SettingsFile : public ::testing::Test {
protected:
    void SetUp() override
    {
        QFile::remove(settingsFilePath());
        gSettings = LkSettings{};
    }
    void TearDown() override { QFile::remove(settingsFilePath()); }
};

} // namespace

TEST_F(SettingsFile, liesInTheUserConfigurationFolderNotTheApplicationFolder)
{
    EXPECT_EQ(settingsFilePath(), QString::fromLocal8Bit(qgetenv("XDG_CONFIG_HOME")) + u"/LK.INI"_s);
}

TEST_F(SettingsFile, missingFileGivesTheDefaults)
{
    gSettings.firstTime = u"N"_s;
    gSettings.mdiWidth = u"1"_s;
    loadSettings();
    EXPECT_EQ(gSettings.firstTime, u"Y"_s);
    EXPECT_EQ(gSettings.statusBar, u"Y"_s);
    EXPECT_EQ(gSettings.toolBar, u"Y"_s);
    EXPECT_EQ(gSettings.mdiWidth, u"10455"_s);
    EXPECT_EQ(gSettings.mdiLeft, u"105"_s);
    EXPECT_EQ(gSettings.mdiTop, u"105"_s);
    EXPECT_EQ(gSettings.mdiHeight, u"7920"_s);
    EXPECT_EQ(gSettings.mdiState, u"2"_s);
    EXPECT_EQ(gSettings.splitterLeft, u"2520"_s);
}

TEST_F(SettingsFile, valuesOutOfRangeFallBackToTheirDefaults)
{
    writeFile(settingsFilePath(), u"[Lapkeeper]\n"
                                  u"First Time=maybe\n"
                                  u"Status Bar=\n"
                                  u"Tool Bar=x\n"
                                  u"MDI Width=40000\n"
                                  u"MDI Left=abc\n"
                                  u"MDI Height=32768\n"
                                  u"MDI State=3\n"
                                  u"Splitter Left=12x\n"_s);
    loadSettings();
    EXPECT_EQ(gSettings.firstTime, u"Y"_s);
    EXPECT_EQ(gSettings.statusBar, u"Y"_s);
    EXPECT_EQ(gSettings.toolBar, u"Y"_s);
    EXPECT_EQ(gSettings.mdiWidth, u"10455"_s);
    EXPECT_EQ(gSettings.mdiLeft, u"105"_s);
    EXPECT_EQ(gSettings.mdiHeight, u"7920"_s);
    EXPECT_EQ(gSettings.mdiState, u"2"_s);
    EXPECT_EQ(gSettings.splitterLeft, u"2520"_s);
}

TEST_F(SettingsFile, valuesAreCutToTheirWidthBeforeTheyAreChecked)
{
    writeFile(settingsFilePath(), u"[Lapkeeper]\n"
                                  u"First Time=No\n"      // cut to "N", which is good
                                  u"Status Bar=NY\n"      // "N"
                                  u"MDI Left=1234567\n"   // "12345"
                                  u"MDI Top=-500\n"       // negative positions are accepted
                                  u"MDI Height=327689\n"  // "32768": too big after the cut
                                  u"MDI State=01\n"       // "0"
                                  u"Splitter Left=3000\n"_s);
    loadSettings();
    EXPECT_EQ(gSettings.firstTime, u"N"_s);
    EXPECT_EQ(gSettings.statusBar, u"N"_s);
    EXPECT_EQ(gSettings.toolBar, u"Y"_s);
    EXPECT_EQ(gSettings.mdiLeft, u"12345"_s);
    EXPECT_EQ(gSettings.mdiTop, u"-500"_s);
    EXPECT_EQ(gSettings.mdiHeight, u"7920"_s);
    EXPECT_EQ(gSettings.mdiState, u"0"_s);
    EXPECT_EQ(gSettings.splitterLeft, u"3000"_s);
}

TEST_F(SettingsFile, saveWritesEveryKeyInOrderWithFirstTimeAlwaysNo)
{
    gSettings.firstTime = u"Y"_s;
    gSettings.statusBar = u"N"_s;
    gSettings.toolBar = u"Y"_s;
    gSettings.mdiTop = u"200"_s;
    gSettings.mdiLeft = u"300"_s;
    gSettings.mdiHeight = u"6000"_s;
    gSettings.mdiWidth = u"9000"_s;
    gSettings.mdiState = u"0"_s;
    gSettings.splitterLeft = u"2000"_s;
    saveSettings();
    EXPECT_EQ(readFile(settingsFilePath()), u"[Lapkeeper]\n"
                                            u"First Time=N\n"
                                            u"Status Bar=N\n"
                                            u"Tool Bar=Y\n"
                                            u"MDI Top=200\n"
                                            u"MDI Left=300\n"
                                            u"MDI Height=6000\n"
                                            u"MDI Width=9000\n"
                                            u"MDI State=0\n"
                                            u"Splitter Left=2000\n"_s);

    gSettings = LkSettings{};
    loadSettings();
    EXPECT_EQ(gSettings.firstTime, u"N"_s);
    EXPECT_EQ(gSettings.statusBar, u"N"_s);
    EXPECT_EQ(gSettings.mdiWidth, u"9000"_s);
    EXPECT_EQ(gSettings.splitterLeft, u"2000"_s);
}

TEST_F(SettingsFile, saveKeepsTheOtherSectionsAndKeysOfTheFile)
{
    writeFile(settingsFilePath(), u"; kept by hand\n"
                                  u"[Other]\n"
                                  u"MDI Width=1\n"
                                  u"\n"
                                  u"[Lapkeeper]\n"
                                  u"Extra=kept\n"
                                  u"MDI Width=5000\n"
                                  u"\n"
                                  u"[Last]\n"
                                  u"Key=value\n"_s);
    loadSettings();
    EXPECT_EQ(gSettings.mdiWidth, u"5000"_s);
    gSettings.mdiWidth = u"7000"_s;
    saveSettings();

    const QString text = readFile(settingsFilePath());
    EXPECT_TRUE(text.startsWith(u"; kept by hand\n[Other]\nMDI Width=1\n"_s)) << qPrintable(text);
    EXPECT_TRUE(text.contains(u"Extra=kept\n"_s));
    EXPECT_TRUE(text.contains(u"MDI Width=7000\n"_s));
    EXPECT_TRUE(text.endsWith(u"[Last]\nKey=value\n"_s)) << qPrintable(text);
    EXPECT_EQ(text.count(u"MDI Width="_s), 2);
    EXPECT_EQ(readProfileString(settingsFilePath(), u"Other"_s, u"MDI Width"_s, {}), u"1"_s);
    EXPECT_EQ(readProfileString(settingsFilePath(), u"Lapkeeper"_s, u"Splitter Left"_s, {}), u"2520"_s);
}
