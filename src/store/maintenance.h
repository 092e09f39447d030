#pragma once
#include <QString>

// Closes the data file, writes a compacted copy of it at path (over what was there) and opens it
// again; a failed reopen shows its two messages and the program goes on without a database.
void backupDatabase(const QString& path);

// The commands of the System menu. The file dialogs go through the message seam.
// Backup: asks for a target in the backups folder and backs up there; Cancel does nothing.
void backupDataFileCommand();
// Restore: asks for a file and copies it over the data file with the connection closed, then
// opens it again; a file that is no data file of this program leaves the connection closed.
void restoreDataFileCommand();
// Deletes the scored rows of every race (summary first); results, races and rosters stay.
void clearPostingsForNewSeason();
