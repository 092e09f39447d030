#pragma once
// Where the HTML manual is looked up. The routines themselves (launchFile, openWebPage,
// openInBrowser, playSound, showHelp) are declared in base/messages.h.
#include <QString>

// The manual's index.html: beside the build's executable (share/lapkeeper/manual) or in the
// installed share folder. When neither exists, the installed location, so that the message
// names the file a full installation would have.
QString helpFilePath();

// Replaces the folder that holds index.html; an empty text goes back to the lookup above.
void setHelpFolder(const QString& folder);
