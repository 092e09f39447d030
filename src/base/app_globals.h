#pragma once
#include <QString>
#include <cstdint>

// Constants of the program, named once.
inline const QString kProductName = QStringLiteral("Lapkeeper");
inline const QString kVersion = QStringLiteral("3.0");
inline const QString kDataFileName = QStringLiteral("lapkeeper30.lk");
inline const QString kSettingsFileName = QStringLiteral("LK.INI");
inline const QString kHelpFileName = QStringLiteral("Lapkeeper.HLP");
inline const QString kReportsFolder = QStringLiteral("Reports");
inline const QString kBackupsFolder = QStringLiteral("Backups");
inline const QString kImportsFolder = QStringLiteral("Imports");
inline const QString kDataFilePassword = QStringLiteral("Felix");
// The product's web site and the download server, in one place.
inline const QString kProductWebSite = QStringLiteral("https://lapkeeper.example.org");
inline const QString kDownloadServer = QStringLiteral("ftp.lapkeeper.example.org");

// Mouse pointer codes.
inline constexpr int16_t kPointerDefault = 0;
inline constexpr int16_t kPointerHourglass = 11;

// The application folder holds the data file, Reports/, Backups/, Imports/ and an optional
// scoring.lk. It is decided once at start (tests give a temporary folder) and read everywhere.
void setApplicationFolder(const QString& folder);
const QString& applicationFolder();
QString dataFilePath();   // application folder + "/lapkeeper30.lk"

// The per-user data folder, or the executable's folder when a file "portable" lies beside it.
QString defaultApplicationFolder();

// Global state that lives for the whole run.
extern QString gReportsPath;
extern QString gBackupsPath;
extern QString gImportsPath;
// The download server, "host[:port][/folder]": kDownloadServer unless LK.INI names another
// (key DownloadServer), for a league that hosts its own files.
extern QString gDownloadServer;
extern int16_t gViewMode;      // 1 large icons, 2 list, 3 detail, 4 small icons; 0 at start = detail
extern int32_t gHelpContext;   // context number for the next help request
extern int32_t gLastBoxResult; // result of the last box of the shared message routines

// Forms the three sub-folder paths from the application folder and creates missing folders.
// Returns false when a folder cannot be made.
bool makeApplicationFolders();

// Creates a folder with its missing parents. The folder itself, when made here, is readable
// only by the owner (0700); a folder that is already there keeps its mode.
bool makePrivateFolder(const QString& path);

// Appends a dated line to lapkeeper.log in the application folder (readable by the owner only)
// and to stderr: for failures that the program does not show, such as the automatic backup's.
void writeRunLog(const QString& text);
