#pragma once
// File operations for the data file and its copies. New files are readable and writable by the
// owner only (0600), a copy counts only once it is flushed to disk, and a file takes another's
// place only by one rename. Each operation returns false with the system's description of what
// went wrong and leaves no half-written file behind.
#include <QString>

namespace store {

// True when a and b name the same existing file, however spelled: canonical paths ("..",
// symbolic links) and the file's identity on disk (hard links) are compared.
bool sameFile(const QString& a, const QString& b);

// Creates a new, empty, private file in folder whose name starts with prefix (a dot keeps it
// out of listings) and never ends in ".lk"; its path goes to path.
bool makeTemporaryFile(const QString& folder, const QString& prefix, QString& path, QString& error);

// Writes a flushed copy of source into the existing file path (replacing its contents).
bool copyInto(const QString& source, const QString& path, QString& error);

// Creates path, which must not exist yet, as a private, flushed copy of source. A failed copy
// leaves no file at path. An existing path is "File exists".
bool copyToNewFile(const QString& source, const QString& path, QString& error);

// Creates path, which must not exist yet, as an empty private file.
bool createPrivateFile(const QString& path, QString& error);

// Flushes the contents of a file to disk.
bool flushFile(const QString& path, QString& error);

// Puts from in the place of to in one step (to need not exist) and flushes the folder, so the
// new name survives a power cut. False only when the rename itself failed.
bool renameOver(const QString& from, const QString& to, QString& error);

// Removes a temporary file with the journal the engine may have left beside it.
void removeTemporary(const QString& path);

} // namespace store
