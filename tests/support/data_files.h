#pragma once
// Looking at data files from the outside, for the tests of backup and restore.
#include <QByteArray>
#include <QString>
#include <QStringList>

// The whole contents of a file (empty when it cannot be read).
QByteArray fileBytes(const QString& path);
// Writes bytes to path, replacing what was there.
void writeBytes(const QString& path, const QByteArray& bytes);
// Every row of every table of a data file, opened with the program's key, as text in a fixed
// order; "<unreadable: ...>" when it does not open.
QString tableRows(const QString& path);
// The permission bits of a file or folder (0600, 0700, ...); -1 when it is not there.
int fileMode(const QString& path);
// The names in a folder, hidden ones included, sorted.
QStringList folderEntries(const QString& folder);
// Writes an SQLite file at path with one table, encrypted with key, or plain when key is null.
void writeForeignDataFile(const QString& path, const char* key);
