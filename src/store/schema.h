#pragma once
#include <QString>

struct sqlite3;

// The schema version written into every data file of this program.
inline constexpr int kSchemaVersion = 30;

// The table definitions and the delivered rows of a new data file (compiled-in resources).
QString schemaScript();
QString seedScript();

// Creates a new, encrypted data file at path (which must not exist) with the schema and the
// delivered rows, readable and writable by the owner only. Returns false with the engine's (or
// the system's) description when it cannot, and leaves no file behind.
bool createDataFile(const QString& path, QString& error);

// Checks that every table and column of the schema is present in an open data file;
// on failure the engine's own description ("no such table: leagues").
bool verifySchema(sqlite3* db, QString& error);
