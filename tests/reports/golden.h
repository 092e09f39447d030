#pragma once
// Golden pages: each case is a folder under tests/reports/golden/ that holds the exact pages a
// report run must write (its expected/ folder) and, where the case needs one, a setup.sql run on
// the season before the reports. The "Created" date and time of the footer is masked on both
// sides. To write the expected pages anew after a deliberate change, run the reports test with
// LK_UPDATE_GOLDEN=1 and review the difference in git before committing it.
#include <QString>
#include <QStringList>

// Runs the case's setup.sql, if it has one, statement by statement.
void runGoldenSetup(const QString& caseName);
// Compares every page in the report folder with the case's expected pages, by name and byte for
// byte after masking; with LK_UPDATE_GOLDEN=1 writes them as the expected pages instead.
void expectGoldenPages(const QString& caseName);
// The page as the comparison sees it: the footer's date and time masked.
QString maskedPage(const QString& text);

// The text of a page in the report folder, or "<missing>".
QString reportPage(const QString& name);
// The pages in the report folder, by name.
QStringList reportPages();
// The texts of the data cells of a page, in order.
QStringList dataCellTexts(const QString& html);
