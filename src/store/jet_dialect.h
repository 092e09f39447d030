#pragma once
#include <QString>

// Turns a statement written in the program's own dialect into one the engine runs:
//  - #date# literals become quoted ISO dates ('2002-03-17');
//  - DELETE * FROM becomes DELETE FROM;
//  - INSERT INTO becomes INSERT OR IGNORE INTO and UPDATE becomes UPDATE OR IGNORE, so rows
//    a key refuses are skipped and the statement still succeeds;
//  - (a RIGHT JOIN b ON c) becomes (b LEFT JOIN a ON c);
// and never touches anything inside quoted text.
QString jet_dialect(const QString& statement);
