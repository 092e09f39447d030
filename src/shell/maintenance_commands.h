#pragma once

// The commands of the System menu that copy the data file. The file dialogs go through the
// message seam.
// Backup: asks for a target in the backups folder and backs up there; Cancel does nothing.
void backupDataFileCommand();
// Restore: asks for a file and copies it over the data file with the connection closed, then
// opens it again; a file that is no data file of this program leaves the connection closed.
void restoreDataFileCommand();
