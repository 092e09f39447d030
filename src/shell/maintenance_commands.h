#pragma once

// The commands of the System menu that copy the data file. The file dialogs go through the
// message seam.
// Backup: asks for a target in the backups folder and backs up there; Cancel does nothing. A
// backup that fails, or whose target is the data file, says why in a critical box.
void backupDataFileCommand();
// Restore: asks for a file and puts it in the data file's place (restoreDataFile); a file that
// is refused says why in a critical box and leaves the data file as it was, and open.
void restoreDataFileCommand();
