#pragma once
#include <QStringList>
#include <cstdint>

class ConsolePresenter;

// A whole number argument of the batch tool in the 16-bit range.
bool readNumberArgument(const QString& text, int16_t& out);

// The batch tool's "report ID [--league N] [--race N] [--team N] [--all-teams] [--separate]":
// runs the report with launch off into the report folder and prints the name of every file it
// wrote, one a line. 0 when done, 1 when a box was shown or nothing was written, 2 for bad usage
// (with the problem in usage) or a report this version does not have.
int runReportCommand(const QStringList& args, const ConsolePresenter& console, QString& usage);
