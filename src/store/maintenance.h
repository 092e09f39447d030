#pragma once
// Backup and restore of the data file. Neither ever leaves the operator without a whole copy:
// a new file takes the place of an old one only by one rename, once it is complete, opens with
// the key and passes the engine's integrity check. The routines show nothing themselves; they
// return the reason for a failure, ready to be shown.
#include <QString>

// Closes the data file, writes a verified compacted copy of it at path (store::writeCompactCopy)
// and opens it again; a failed reopen shows its two messages and the program goes on without a
// database. The data file itself, however spelled, is refused before anything is closed.
// False with the reason when the old file at path was left as it was.
bool backupDatabase(const QString& path, QString& failure);

// The automatic backup of a normal end (and of the batch tool's "backup" without a file):
// backupDatabase onto Backups/lapkeeper30.lk, then a dated copy of it beside it
// (lapkeeper30-yyyy-MM-dd-HHmmss-zzz.lk); only the newest kDatedBackupsKept dated copies stay.
bool automaticBackup(QString& failure);
inline constexpr int kDatedBackupsKept = 10;

// Replaces the data file with source and opens it again on gConnection (made when there is
// none). Before anything is replaced, a private copy of source beside the data file must open
// with the key, pass the integrity check and hold the schema (else the reason is the engine's
// description); then the current data file, if there is one, is copied to
// Backups/lapkeeper30-before-restore-<date>.lk, and the checked copy is renamed over it. Any
// failure leaves the data file as it was and open as it was. The data file itself is refused.
bool restoreDataFile(const QString& source, QString& failure);

// The newest file of the backups folder that the restore dialog would offer (by the time it
// was written), or empty when there is none.
QString newestBackup();
