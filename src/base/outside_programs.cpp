#include "base/outside_programs.h"
#include "base/app_globals.h"
#include "base/messages.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

// No screen or settings key sets these, so the custom browser branch never runs; they stay
// so that the branch keeps its behaviour should a preference ever be added.
const QString kBrowserOption;
const QString kCustomBrowserPath;

QString& helpFolderOverride()
{
    static QString folder;
    return folder;
}

// The text for a shell result below 33, before the note about custom applications.
QString failureText(int result, const QString& path, const QString& kind)
{
    switch (result) {
    case 0: return u"The file could not be run due to insufficient system memory or a corrupt program file."_s;
    case 2: return path + u"\n\nFile Not Found."_s;
    case 3: return u"Invalid path was encountered as follows:\n\n"_s + path;
    case 5: return u"Sharing or protection error."_s;
    case 6: return u"Separate data segments are required for each task."_s;
    case 8: return u"Insufficient memory to run the program."_s;
    case 10: return u"Incorrect Windows version."_s;
    case 11: return u"Invalid Program File."_s;
    case 12: return u"Program file requires a different operating System."_s;
    case 13: return u"Program requires MS-DOS 4.0."_s;
    case 14: return u"Unknown program file type."_s;
    case 15: return u"Windows prgram does not support protected memory mode."_s;
    case 16: return u"Invalid use of data segments when loading a second instance of a program."_s;
    case 19: return u"Attempt to run a compressed program file."_s;
    case 20: return u"Invalid dynamic link library."_s;
    case 21: return u"Program requires Windows 32-bit extensions."_s;
    case 26: return u"A sharing violation occurred."_s;
    case 27: return u"Incomplete or invalid file association found for:\n\n"_s + path;
    case 28: return u"DDE Time out."_s;
    case 29: return u"DDE transaction failed."_s;
    case 30: return u"DDE busy."_s;
    case 31:
        if (kind == u"HTML"_s)
            return u"No application association was found for this HTML file:\n\n"_s + path +
                   u"\n\nIt appears that you do not have a web browser installed on your computer which is "
                   u"necessary in order to display the report."_s;
        return u"No application association was found for this file:\n\n"_s + path +
               u"\n\nAn application must be associated with this file type before it can be displayed."_s;
    case 32: return u"DLL not found."_s;
    default: return u"Unknown error."_s;
    }
}

QString helpUrl(const QString& file, const QString& anchor)
{
    QUrl url = QUrl::fromLocalFile(file);
    if (!anchor.isEmpty())
        url.setFragment(anchor);
    return url.toString();
}

void openHelpAt(const QString& file, const QString& anchor)
{
    launchFile(helpUrl(file, anchor), 1, u"HTML"_s);
}

QString contextAnchor(int32_t context)
{
    return context > 0 ? u"context-"_s + QString::number(context) : QString();
}

} // namespace

int launchFile(const QString& path, int /*showMode: the desktop decides how to show it*/, const QString& kind)
{
    const QString target = path.trimmed();
    // The system information tool is a program to start; everything else is opened with the
    // desktop's handler for its type.
    const int result = kind == u"SYSINFO"_s ? presenter().runProgram(target, {}) : presenter().launch(target);
    if (result >= 33)
        return result;

    QString text = failureText(result, target, kind);
    if (kind == u"HTML"_s)
        text += u"\n\nNOTE: This maybe caused by having no browser installed."_s;
    else if (kind == u"EXPORT"_s)
        text += u"\n\nNOTE: You may select a custom application to be used for exported files from the "
                u"Preferences/Tools tab."_s;
    showErrorMessage(text);
    return result;
}

void openWebPage(const QString& word)
{
    const QString trimmed = word.trimmed();
    QString address;
    if (trimmed == u"HOME"_s)
        address = kProductWebSite;
    else if (trimmed == u"SUPPORT"_s)
        address = kProductWebSite + u"/support.htm"_s;
    else if (trimmed == u"UPDATES"_s)
        address = kProductWebSite + u"/updates.htm"_s;
    else
        address = trimmed;
    openInBrowser(address);
}

void openInBrowser(const QString& address)
{
    if (kBrowserOption == u"C"_s) {
        if (kCustomBrowserPath.isEmpty())
            return;
        if (QFileInfo::exists(kCustomBrowserPath))
            presenter().runProgram(kCustomBrowserPath, {address});
        else
            showErrorMessage(u"The following file, specified in the preferences as your browser, could not be "
                             u"found.\n\n"_s + kCustomBrowserPath);
        return;
    }
    launchFile(address, 1, u"HTML"_s);
}

void playSound(const QString& name)
{
    const int16_t pointer = mousePointer();
    if (pointer == kPointerDefault)
        setMousePointer(kPointerHourglass);
    if (!presenter().playWave(windowsFolder() + name + u".wav"_s))
        presenter().beep();
    setMousePointer(pointer);
}

QString helpFilePath()
{
    const QString index = u"/index.html"_s;
    if (!helpFolderOverride().isEmpty())
        return QDir::cleanPath(helpFolderOverride()) + index;
    const QString exeFolder = QCoreApplication::applicationDirPath();
    const QString buildTree = QDir::cleanPath(exeFolder + u"/share/lapkeeper/manual"_s) + index;
    const QString installed = QDir::cleanPath(exeFolder + u"/../share/lapkeeper/manual"_s) + index;
    if (QFileInfo::exists(buildTree))
        return buildTree;
    return installed;
}

void setHelpFolder(const QString& folder)
{
    helpFolderOverride() = folder;
}

void showHelp(const QString& word)
{
    const QString file = helpFilePath();
    setMousePointer(kPointerHourglass);
    if (QFileInfo::exists(file)) {
        // The manual is a web page: there is no help window to quit, and each entry word opens
        // the page at the part it asks for.
        if (word == u"Quit"_s) {
            // nothing is open that could be closed
        } else if (word == u"Index"_s) {
            openHelpAt(file, u"context-1"_s);
        } else if (word == u"Sensative"_s) {
            openHelpAt(file, contextAnchor(gHelpContext));
        } else if (word == u"Partialkey"_s) {
            openHelpAt(file, u"topics"_s);
        } else if (word == u"Context"_s) {
            openHelpAt(file, contextAnchor(gHelpContext));
        } else if (word == u"HelponHelp"_s) {
            openHelpAt(file, u"using-help"_s);
        }
        setMousePointer(kPointerDefault);
        return;
    }
    if (word != u"Quit"_s)
        showInfoMessage(u"It appears that you have installed the minimum version of Lapkeeper because the the "
                        u"file:\n\n"_s + file +
                        u"\n\nwas not found.  The help functionality requires the full installation of "
                        u"Lapkeeper."_s);
    setMousePointer(kPointerDefault);
}
