#pragma once
#include <QString>

// Closes the data file, writes a compacted copy of it at path (over what was there) and opens it
// again; a failed reopen shows its two messages and the program goes on without a database.
void backupDatabase(const QString& path);

// Closes the data file and copies source over it, then opens it again. A source that is the data
// file itself or cannot be copied leaves the old file whole and the connection closed (false); a
// file that is no data file of this program leaves the connection closed after its message.
bool restoreDataFile(const QString& source);
