#include "support/ftp_server.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int kStartMs = 10000;

// True when a TCP connection to 127.0.0.1:port is accepted.
bool portAccepts(int port)
{
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    if (fd < 0)
        return false;
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const bool ok = ::connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(fd);
    return ok;
}

bool writeFile(const QString& path, const QByteArray& contents)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(contents) == contents.size();
}

}   // namespace

FtpTestServer::FtpTestServer()
{
    QDir().mkpath(anonymousRoot());
    QDir().mkpath(uploadFolder());
}

FtpTestServer::~FtpTestServer()
{
    stop();
}

QString FtpTestServer::root() const
{
    return m_dir.path() + QStringLiteral("/root");
}

QString FtpTestServer::anonymousRoot() const
{
    return root() + QStringLiteral("/pub");
}

QString FtpTestServer::uploadFolder() const
{
    return root() + QStringLiteral("/incoming");
}

bool FtpTestServer::addAnonymousFile(const QString& relativePath, const QByteArray& contents)
{
    return writeFile(anonymousRoot() + u'/' + relativePath, contents);
}

bool FtpTestServer::addAnonymousFolder(const QString& relativePath)
{
    return QDir().mkpath(anonymousRoot() + u'/' + relativePath);
}

QByteArray FtpTestServer::fileBelowRoot(const QString& relativePath) const
{
    QFile f(root() + u'/' + relativePath);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    const QByteArray data = f.readAll();
    return data.isNull() ? QByteArray("") : data;
}

bool FtpTestServer::start()
{
    if (isRunning())
        return true;
    m_error.clear();
    m_port = 0;
    // The server's output goes to files, never to the pipes of the test runner.
    m_process.setStandardErrorFile(m_dir.path() + QStringLiteral("/ftpd.err"));
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setReadChannel(QProcess::StandardOutput);
    m_process.start(QStringLiteral("/usr/bin/python3"),
                    {QStringLiteral(LK_FTPD_SCRIPT), QStringLiteral("--root"), root(), QStringLiteral("--user"),
                     user(), QStringLiteral("--password"), password(), QStringLiteral("--log"),
                     m_dir.path() + QStringLiteral("/ftpd.log")});
    if (!m_process.waitForStarted(kStartMs)) {
        m_error = QStringLiteral("/usr/bin/python3 did not start: ") + m_process.errorString();
        return false;
    }
    // The script prints its port once the socket listens.
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(kStartMs)) {
            QFile err(m_dir.path() + QStringLiteral("/ftpd.err"));
            err.open(QIODevice::ReadOnly);
            m_error = QStringLiteral("the FTP server gave no port: ") + QString::fromUtf8(err.readAll());
            stop();
            return false;
        }
    }
    m_port = QString::fromLatin1(m_process.readLine()).trimmed().toInt();
    if (m_port <= 0 || !portAccepts(m_port)) {
        m_error = QStringLiteral("the FTP server does not accept on port ") + QString::number(m_port);
        stop();
        return false;
    }
    return true;
}

void FtpTestServer::stop()
{
    if (!isRunning())
        return;
    m_process.terminate();
    if (!m_process.waitForFinished(5000)) {
        m_process.kill();
        m_process.waitForFinished(5000);
    }
}
