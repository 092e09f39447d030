#pragma once
// The pieces of the start and end of a run that need no window: the single-instance guard,
// the application folder, the data file, and the conversion of window positions to twips.
#include <QString>
#include <memory>

class QLockFile;

// Holds a lock file in the application folder for as long as the program runs. A lock left
// behind by a program that died is taken over; one held by a running program is refused.
class cInstanceGuard {
public:
    cInstanceGuard();
    ~cInstanceGuard();
    cInstanceGuard(const cInstanceGuard&) = delete;
    cInstanceGuard& operator=(const cInstanceGuard&) = delete;

    // True when this is the only running copy; the lock is then held until destruction. False
    // only when a running copy holds the lock. An application folder that cannot be made, or
    // where the lock file cannot be written, is the run-time error "Path/File access error"
    // followed by the folder.
    bool acquire();
    bool isHeld() const;

    static QString lockFilePath();

private:
    std::unique_ptr<QLockFile> m_lock;
};

// Makes the application folder the working directory and forms and creates the Reports,
// Backups and Imports folders. A folder that cannot be made is the run-time error
// "Path/File access error", followed by the folder.
void prepareApplicationFolder();

// Opens the data file of the application folder as gConnection. On a first run (no data file
// and no backup) the data file is created with the schema and the delivered rows. A data file
// missing on a later run is never created anew: the operator is asked whether to restore the
// newest backup. On failure (also on No) the engine's description and "Unable to connect to
// Database" have been shown, nothing has been written, and the result is false.
bool openOrCreateDatabase();

// The last four steps of a normal end: help told to quit, settings written, the automatic
// backup (automaticBackup: Backups/lapkeeper30.lk and a dated copy; a failure goes to the log
// only), the connection closed.
void finishRun();

// Window positions are kept in twips, 1440 to the inch.
inline constexpr int kTwipsPerInch = 1440;
int twipsToPixels(int twips, double dotsPerInch);
int pixelsToTwips(int pixels, double dotsPerInch);
