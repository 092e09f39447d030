#pragma once
// The FTP client: one connection at a time, passive mode, blocking calls, over libcurl.
// It serves the one-file download from the download server and the upload of report files.
// Every failure is told to the operator here, in a plain box with the application's title,
// and reaches the caller only as a false result.
#include <QString>
#include <QStringList>
#include <cstdint>

// The folder of the download files below the download server.
inline const QString kDownloadFolder = QStringLiteral("/lapkeeper/download/2002/");
// The longest wait for a connection to be made and for each answer of the server, in seconds.
inline constexpr long kFtpTimeoutSeconds = 30;

// Module state: the internet handle (a libcurl handle, which keeps the control connection open
// between transfers), the connection (server, login and the current remote folder), and the
// guard of getFile and putFile.
struct cFtpState {
    bool connected = false;
    int16_t transferType = 0;   // nothing sets it: every transfer is binary
};
const cFtpState& ftpState();

// Fetches kDownloadFolder + fileName from the download server (gDownloadServer) anonymously into
// the imports folder. The local copy is replaced only by a complete download.
bool downloadFile(const QString& fileName);

void openInternet();
// server is "host" or "host:port". Logs in (anonymously when user is empty) and sets connected;
// nothing happens when already connected or openInternet failed.
void connectServer(const QString& server, const QString& user, const QString& password);
void closeInternet();

// Changes into path (when not empty) and lists it; an empty folder gives "This directory is
// empty!". The names are returned for the record; callers use the listing as a test only.
QStringList listDirectory(const QString& path);
// A path that holds the server's name is taken from after it; an empty one is "/". A path
// starting with "/" is from the top of the server, any other from the current folder.
bool changeDirectory(const QString& path);
// remotePath is folder + "/" + file; the file lands in localFolder under its own name.
bool getFile(const QString& remotePath, const QString& localFolder);
// Sends localPath into remoteFolder (the current folder when empty) under its own name.
bool putFile(const QString& localPath, const QString& remoteFolder);

// Tells the operator what went wrong (errorNumber is libcurl's result code; the server's last
// reply is taken from the connection), then closes the connection and clears connected.
void reportFtpError(int errorNumber, const QString& operationName);
