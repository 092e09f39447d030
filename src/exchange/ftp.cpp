#include "exchange/ftp.h"

#include "base/app_globals.h"
#include "base/messages.h"

#include <QFile>
#include <QSaveFile>
#include <QUrl>
#include <curl/curl.h>
#include <mutex>

namespace {

// A remote folder: from the top of the server, or from the folder the login starts in.
struct RemoteFolder {
    bool fromTop = false;
    QStringList segments;
};

struct FtpModule {
    cFtpState state;
    CURL* internet = nullptr;        // the internet handle
    bool connection = false;         // the connection handle is open
    QString server;                  // as given to connectServer: "host" or "host:port"
    QString user;
    QString password;
    RemoteFolder folder;             // the current remote folder
    long replyCode = 0;              // the server's last reply to the last operation
    QString replyText;
    char curlError[CURL_ERROR_SIZE] = {};
};

FtpModule& ftp()
{
    static FtpModule module;
    return module;
}

// The texts of the boxes.
const QString kResolveFailed =
    QStringLiteral("Error Connecting to FTP Server. Make sure you specified the correct server name.");
const QString kFileMissing = QStringLiteral("File not found. Try back later.");
const QString kUnableToProcess = QStringLiteral("Unable to process. Check your username, password and location.");

void box(const QString& text)
{
    messageBox(text);   // no sign, the application's title
}

RemoteFolder resolve(const RemoteFolder& current, const QString& path)
{
    RemoteFolder result = path.startsWith(u'/') ? RemoteFolder{true, {}} : current;
    for (const QString& part : path.split(u'/', Qt::SkipEmptyParts)) {
        if (part == u".")
            continue;
        if (part == u"..") {
            if (!result.segments.isEmpty())
                result.segments.removeLast();
            continue;
        }
        result.segments << part;
    }
    return result;
}

QString escaped(const QString& segment)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(segment));
}

// "ftp://host[:port]/" + the folder, ending in "/". A folder from the top starts with an
// encoded "/", which makes libcurl change to the top first.
QString folderUrl(const RemoteFolder& folder)
{
    QString url = QStringLiteral("ftp://") + ftp().server + u'/';
    if (folder.fromTop)
        url += QStringLiteral("%2F");
    for (const QString& segment : folder.segments)
        url += escaped(segment) + u'/';
    if (folder.fromTop && folder.segments.isEmpty())
        url += u'/';
    return url;
}

size_t keepReply(char* data, size_t size, size_t count, void*)
{
    const size_t length = size * count;
    const QString line = QString::fromUtf8(data, static_cast<qsizetype>(length)).trimmed();
    bool isNumber = false;
    const long code = line.left(3).toLong(&isNumber);
    if (line.size() >= 3 && isNumber) {
        FtpModule& m = ftp();
        m.replyCode = code;
        m.replyText = line.mid(4).trimmed();
    }
    return length;
}

size_t writeToFile(char* data, size_t size, size_t count, void* file)
{
    const auto length = static_cast<qint64>(size * count);
    return static_cast<QSaveFile*>(file)->write(data, length) == length ? size * count : 0;
}

size_t readFromFile(char* data, size_t size, size_t count, void* file)
{
    const qint64 got = static_cast<QFile*>(file)->read(data, static_cast<qint64>(size * count));
    return got < 0 ? CURL_READFUNC_ABORT : static_cast<size_t>(got);
}

// Sets the options every request shares on the one handle; the control connection stays open
// between requests, as the connection handle did.
void prepare(const QString& url)
{
    FtpModule& m = ftp();
    CURL* h = m.internet;
    curl_easy_reset(h);
    m.replyCode = 0;
    m.replyText.clear();
    m.curlError[0] = '\0';
    curl_easy_setopt(h, CURLOPT_URL, url.toUtf8().constData());
    curl_easy_setopt(h, CURLOPT_PROTOCOLS_STR, "ftp");
    curl_easy_setopt(h, CURLOPT_USERAGENT, "vb wininet");
    if (!m.user.isEmpty()) {   // otherwise libcurl logs in anonymously
        curl_easy_setopt(h, CURLOPT_USERNAME, m.user.toUtf8().constData());
        curl_easy_setopt(h, CURLOPT_PASSWORD, m.password.toUtf8().constData());
    }
    curl_easy_setopt(h, CURLOPT_ERRORBUFFER, m.curlError);
    curl_easy_setopt(h, CURLOPT_HEADERFUNCTION, keepReply);
    curl_easy_setopt(h, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(h, CURLOPT_CONNECTTIMEOUT, kFtpTimeoutSeconds);
    curl_easy_setopt(h, CURLOPT_SERVER_RESPONSE_TIMEOUT, kFtpTimeoutSeconds);
    // A transfer that stalls for the same time ends too, so a dead server never hangs the program.
    curl_easy_setopt(h, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(h, CURLOPT_LOW_SPEED_TIME, kFtpTimeoutSeconds);
    // Passive mode (EPSV, then PASV) is libcurl's default; transfers are binary.
    curl_easy_setopt(h, CURLOPT_FTP_USE_EPSV, 1L);
    curl_easy_setopt(h, CURLOPT_TRANSFERTEXT, 0L);
}

// Logs in if needed and changes into the folder, transferring nothing.
CURLcode reachFolder(const RemoteFolder& folder)
{
    prepare(folderUrl(folder));
    curl_easy_setopt(ftp().internet, CURLOPT_NOBODY, 1L);
    return curl_easy_perform(ftp().internet);
}

QString afterLastSeparator(const QString& path)
{
    const qsizetype at = std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
    return path.mid(at + 1);
}

}   // namespace

const cFtpState& ftpState()
{
    return ftp().state;
}

bool downloadFile(const QString& fileName)
{
    // The download server is "host[:port][/folder]"; a folder goes before the download folder.
    const qsizetype slash = gDownloadServer.indexOf(u'/');
    const QString server = slash < 0 ? gDownloadServer : gDownloadServer.left(slash);
    QString folder = slash < 0 ? QString() : gDownloadServer.mid(slash);
    while (folder.endsWith(u'/'))
        folder.chop(1);
    const QString downloadFolder = server + folder + kDownloadFolder;

    openInternet();
    connectServer(server, QString(), QString());
    listDirectory(downloadFolder);
    const bool result = getFile(downloadFolder + fileName, gImportsPath);
    closeInternet();
    return result;
}

void openInternet()
{
    static std::once_flag once;
    std::call_once(once, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
    FtpModule& m = ftp();
    if (m.internet)
        return;
    m.internet = curl_easy_init();
    if (!m.internet)
        reportFtpError(CURLE_FAILED_INIT, QStringLiteral("InternetOpen"));
}

void connectServer(const QString& server, const QString& user, const QString& password)
{
    FtpModule& m = ftp();
    if (m.state.connected || !m.internet)
        return;
    m.server = server;
    m.user = user;
    m.password = password;
    m.folder = {};
    // Connect and log in now, so that a wrong name or login shows here, as it did.
    const CURLcode rc = reachFolder(m.folder);
    if (rc != CURLE_OK) {
        m.state.connected = false;
        reportFtpError(rc, QStringLiteral("InternetConnect"));
        return;
    }
    m.connection = true;
    m.state.connected = true;
}

void closeInternet()
{
    FtpModule& m = ftp();
    m.connection = false;
    if (m.internet) {
        curl_easy_cleanup(m.internet);   // also closes the control connection
        m.internet = nullptr;
    }
    m.password.clear();
    m.state.connected = false;
}

bool changeDirectory(const QString& path)
{
    FtpModule& m = ftp();
    QString target = path;
    if (!m.server.isEmpty()) {
        const qsizetype at = target.indexOf(m.server);
        if (at >= 0)
            target = target.mid(at + m.server.size());
    }
    if (target.isEmpty())
        target = QStringLiteral("/");
    if (!m.state.connected)
        return false;   // no connection: nothing to change, nothing to say
    const RemoteFolder folder = resolve(m.folder, target);
    const CURLcode rc = reachFolder(folder);
    if (rc != CURLE_OK) {
        reportFtpError(rc, QStringLiteral("rcd"));
        return false;
    }
    m.folder = folder;
    return true;
}

QStringList listDirectory(const QString& path)
{
    FtpModule& m = ftp();
    if (!m.state.connected)
        return {};
    if (!path.isEmpty() && !changeDirectory(path))
        return {};
    QByteArray listing;
    prepare(folderUrl(m.folder));
    curl_easy_setopt(m.internet, CURLOPT_DIRLISTONLY, 1L);
    curl_easy_setopt(m.internet, CURLOPT_WRITEFUNCTION,
                     +[](char* data, size_t size, size_t count, void* out) {
                         static_cast<QByteArray*>(out)->append(data, static_cast<qsizetype>(size * count));
                         return size * count;
                     });
    curl_easy_setopt(m.internet, CURLOPT_WRITEDATA, &listing);
    const CURLcode rc = curl_easy_perform(m.internet);
    if (rc != CURLE_OK) {
        reportFtpError(rc, QStringLiteral("FtpFindFirstFile"));
        return {};
    }
    QStringList names;
    for (const QString& line : QString::fromUtf8(listing).split(u'\n')) {
        const QString name = line.trimmed();
        if (!name.isEmpty() && name != u"." && name != u"..")
            names << afterLastSeparator(name);
    }
    if (names.isEmpty())
        box(QStringLiteral("This directory is empty!"));
    return names;
}

bool getFile(const QString& remotePath, const QString& localFolder)
{
    FtpModule& m = ftp();
    if (!m.state.connected) {
        box(QStringLiteral("Internet connection not found.\nConnect to the Internet and try again."));
        return false;
    }
    const qsizetype slash = remotePath.lastIndexOf(u'/');
    const QString directory = remotePath.left(slash + 1);
    const QString file = remotePath.mid(slash + 1);
    if (!changeDirectory(directory))
        return false;

    // The file arrives under a temporary name and replaces the local copy only when complete.
    QSaveFile local(localFolder + u'/' + file);
    if (!local.open(QIODevice::WriteOnly)) {
        box(QStringLiteral("Unable to write ") + local.fileName() + QStringLiteral(": ") + local.errorString());
        return false;
    }
    prepare(folderUrl(m.folder) + escaped(file));
    curl_easy_setopt(m.internet, CURLOPT_WRITEFUNCTION, writeToFile);
    curl_easy_setopt(m.internet, CURLOPT_WRITEDATA, &local);
    const CURLcode rc = curl_easy_perform(m.internet);
    if (rc != CURLE_OK) {
        local.cancelWriting();
        reportFtpError(rc, QStringLiteral("FtpGetFile"));
        return false;
    }
    if (!local.commit()) {
        box(QStringLiteral("Unable to write ") + local.fileName() + QStringLiteral(": ") + local.errorString());
        return false;
    }
    return true;
}

bool putFile(const QString& localPath, const QString& remoteFolder)
{
    FtpModule& m = ftp();
    if (!m.state.connected)
        return false;
    if (localPath.isEmpty()) {
        box(QStringLiteral("Please select a local file to put"));
        return false;
    }
    if (!remoteFolder.isEmpty()) {
        const RemoteFolder folder = resolve(m.folder, remoteFolder);
        if (reachFolder(folder) != CURLE_OK) {
            box(QStringLiteral("Location (FTP Site) not found. Check spelling of Location."));
            closeInternet();
            return false;
        }
        m.folder = folder;
    }
    const QString name = afterLastSeparator(localPath);
    QFile local(localPath);
    if (!local.open(QIODevice::ReadOnly)) {
        box(QStringLiteral("Unable to read ") + localPath + QStringLiteral(": ") + local.errorString());
        return false;
    }
    // The file goes up under a temporary name and is renamed when complete, so a visitor never
    // sees half a page.
    const QString partName = name + QStringLiteral(".part");
    prepare(folderUrl(m.folder) + escaped(partName));
    curl_slist* rename = nullptr;
    rename = curl_slist_append(rename, (QStringLiteral("RNFR ") + partName).toUtf8().constData());
    rename = curl_slist_append(rename, (QStringLiteral("RNTO ") + name).toUtf8().constData());
    curl_easy_setopt(m.internet, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(m.internet, CURLOPT_READFUNCTION, readFromFile);
    curl_easy_setopt(m.internet, CURLOPT_READDATA, &local);
    curl_easy_setopt(m.internet, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(local.size()));
    curl_easy_setopt(m.internet, CURLOPT_POSTQUOTE, rename);
    const CURLcode rc = curl_easy_perform(m.internet);
    curl_easy_setopt(m.internet, CURLOPT_POSTQUOTE, nullptr);
    curl_slist_free_all(rename);
    if (rc != CURLE_OK) {
        reportFtpError(rc, QStringLiteral("FtpPutFile"));
        return false;
    }
    return true;
}

void reportFtpError(int errorNumber, const QString& operationName)
{
    FtpModule& m = ftp();
    switch (errorNumber) {
    case CURLE_COULDNT_RESOLVE_HOST:
        box(kResolveFailed);
        break;
    case CURLE_REMOTE_FILE_NOT_FOUND:
        box(kFileMissing);
        break;
    case CURLE_LOGIN_DENIED:
    case CURLE_REMOTE_ACCESS_DENIED:   // a folder the server would not change into
        box(kUnableToProcess);
        break;
    case CURLE_OK:
        break;
    default:
        if (m.replyCode >= 400) {   // the server refused: its own words
            box(operationName + QStringLiteral(" Extd Err: ") + QString::number(m.replyCode) + u' ' + m.replyText);
        } else {   // no answer from the server (refused, timed out, dropped): libcurl's words
            const QString reason = m.curlError[0] ? QString::fromUtf8(m.curlError)
                                                  : QString::fromUtf8(curl_easy_strerror(static_cast<CURLcode>(errorNumber)));
            box(operationName + QStringLiteral(" Extd Err: ") + QString::number(errorNumber) + u' ' + reason);
        }
        break;
    }
    closeInternet();
}
