#pragma once
#include <QDate>
#include <QString>

// The program's short-date form is ISO (yyyy-MM-dd) everywhere: statements, screens, reports.
QString shortDate(const QDate& date);

// Reads a date as a person types it: ISO "2002-03-17", "3/17/2002", "03/17/02", "2002/03/17".
// Two-digit years below 30 are 20xx, the others 19xx. An invalid date gives an invalid QDate.
QDate parseDate(const QString& text);

// Whether the text is a date parseDate accepts (the program's IsDate).
inline bool isDate(const QString& text) { return parseDate(text).isValid(); }
