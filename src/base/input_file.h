#pragma once
#include <QString>

// Whole-file text input shared by the import and the posting script. Failures are shown in the
// error box ("Error trying to open <folder>/<file>.\n\nError: <number>/<description>") and set
// the shared file error mark to "Y"; each routine clears the mark first.

// Opens the file for reading and returns its channel (0 when it failed).
int openInputFile(const QString& path);
// The whole content of the channel's file; empty on failure.
QString readWholeFile(int channel);
void closeInputFile(int channel);

// The shared file error mark: "Y" after a failure of the routines above, else "N".
QString fileErrorMark();
inline bool fileErrorSet() { return fileErrorMark() == QStringLiteral("Y"); }
