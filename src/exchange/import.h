#pragma once
#include <QString>

// Import of .lki files: plain text, one record a line (lines end in CR LF, fields are split at
// ";"), field 0 the record type. 11 a car or driver, 12 a race, 13 a race result (it sets the
// race's status too), 14 a roster entry. Each record is inserted if new and then updated, so a
// file brings new rows and overwrites the named fields of existing ones.

// Runs the whole file. False when the file could not be opened or read (the file helpers showed
// why) or when a line could not be read: the import stops at that line with a message naming it,
// and what the lines before it brought stays.
bool importFile(const QString& path);

// One line. A line with fewer than two fields does nothing; an unknown record type shows
// "Invalid file format." and does nothing. A record too short for its type, a text field of one
// character or a number that does not read raises cRuntimeError before anything is written.
void importLine(const QString& line);
