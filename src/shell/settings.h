#pragma once
#include <QString>

// The settings of the machine, kept in "LK.INI" (section [Lapkeeper]) in the per-user
// configuration folder. Held as texts of fixed widths, the numbers too.
struct LkSettings {
    QString firstTime = QStringLiteral("Y");      // 1: "Y" shows the welcome screen
    QString statusBar = QStringLiteral("Y");      // 1
    QString toolBar = QStringLiteral("Y");        // 1
    QString mdiWidth = QStringLiteral("10455");   // 5, twips
    QString mdiLeft = QStringLiteral("105");      // 5
    QString mdiTop = QStringLiteral("105");       // 5
    QString mdiHeight = QStringLiteral("7920");   // 5
    QString mdiState = QStringLiteral("2");       // 1: 0 normal, 1 minimised, 2 maximised
    QString splitterLeft = QStringLiteral("2520"); // 5
};

extern LkSettings gSettings;

// windowsFolder() + "LK.INI".
QString settingsFilePath();

// Reads every key in order, cut to its width and checked; a missing file, key or a bad value
// gives the default. Does not apply anything to the window (the main window does that).
void loadSettings();
// Writes every key in the fixed order, "First Time" always "N". Failures are ignored.
void saveSettings();

// Key-by-key access to a sectioned profile file that keeps the rest of the file as it was.
QString readProfileString(const QString& file, const QString& section, const QString& key, const QString& fallback);
bool writeProfileString(const QString& file, const QString& section, const QString& key, const QString& value);
