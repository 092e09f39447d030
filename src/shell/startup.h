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

// Opens the data file of the application folder as gConnection. A missing data file is first
// created with the schema and the delivered rows. On failure the engine's description and
// "Unable to connect to Database" have been shown, and the result is false.
bool openOrCreateDatabase();

// The last four steps of a normal end: help told to quit, settings written, the automatic
// compact backup into the backups folder, the connection closed.
void finishRun();

// Window positions are kept in twips, 1440 to the inch.
inline constexpr int kTwipsPerInch = 1440;
int twipsToPixels(int twips, double dotsPerInch);
int pixelsToTwips(int pixels, double dotsPerInch);
