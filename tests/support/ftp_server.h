#pragma once
#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

// A real FTP server on a free loopback port, run by /usr/bin/python3 (pyftpdlib) for the length
// of a test. Anonymous users log in read-only to <root>/pub; user() with password() logs in with
// read and write rights to <root>, whose folder "incoming" is ready for uploads. start() returns
// once the port accepts connections; the destructor stops the server.
class FtpTestServer {
public:
    FtpTestServer();
    ~FtpTestServer();
    FtpTestServer(const FtpTestServer&) = delete;
    FtpTestServer& operator=(const FtpTestServer&) = delete;

    // False with the reason in error() when the server did not come up within a few seconds.
    bool start();
    void stop();
    bool isRunning() const { return m_process.state() != QProcess::NotRunning; }

    QString error() const { return m_error; }
    int port() const { return m_port; }
    QString host() const { return QStringLiteral("127.0.0.1"); }
    QString address() const { return host() + u':' + QString::number(m_port); }   // "host:port"
    QString user() const { return QStringLiteral("tester"); }
    QString password() const { return QStringLiteral("secret"); }

    QString root() const;              // the named user's home
    QString anonymousRoot() const;     // root() + "/pub", the anonymous home
    QString uploadFolder() const;      // root() + "/incoming"
    // Writes a file below the anonymous home, making its folders; the path uses "/".
    bool addAnonymousFile(const QString& relativePath, const QByteArray& contents);
    bool addAnonymousFolder(const QString& relativePath);
    // The text of a file below root(), or a null array when it is not there.
    QByteArray fileBelowRoot(const QString& relativePath) const;

private:
    QTemporaryDir m_dir;
    QProcess m_process;
    int m_port = 0;
    QString m_error;
};
