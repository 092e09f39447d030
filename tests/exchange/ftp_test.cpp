#include "base/app_globals.h"
#include "exchange/ftp.h"
#include "support/ftp_server.h"
#include "support/recording_presenter.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString kNotConnected = u"Internet connection not found.\nConnect to the Internet and try again."_s;
const QString kUnableToProcess = u"Unable to process. Check your username, password and location."_s;

QByteArray readFile(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void writeFile(const QString& path, const QByteArray& contents)
{
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(contents);
}

class FtpClientTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_server.start()) << m_server.error().toStdString();
        m_savedImports = gImportsPath;
        m_savedServer = gDownloadServer;
        gImportsPath = m_imports.path();
        gDownloadServer = m_server.address();
    }
    void TearDown() override
    {
        closeInternet();
        gImportsPath = m_savedImports;
        gDownloadServer = m_savedServer;
    }

    // Puts a file into the download folder of the anonymous home.
    void offer(const QString& name, const QByteArray& contents, const QString& below = {})
    {
        ASSERT_TRUE(m_server.addAnonymousFile(below + u"lapkeeper/download/2002/"_s + name, contents));
    }
    QString imported(const QString& name) const { return m_imports.path() + u'/' + name; }
    void connectAsUser(const QString& password)
    {
        openInternet();
        connectServer(m_server.address(), m_server.user(), password);
    }

    FtpTestServer m_server;
    QTemporaryDir m_imports;
    RecordingPresenter m_presenter;
    QString m_savedImports;
    QString m_savedServer;
};

TEST_F(FtpClientTest, anonymousDownloadFetchesTheNamedFileIntoImports)
{
    offer(u"wccars.lki"_s, "11;1;Car One\r\n");
    offer(u"f1cars.lki"_s, "other");

    EXPECT_TRUE(downloadFile(u"wccars.lki"_s));
    EXPECT_EQ(readFile(imported(u"wccars.lki"_s)), QByteArray("11;1;Car One\r\n"));
    EXPECT_FALSE(QFile::exists(imported(u"f1cars.lki"_s)));
    EXPECT_TRUE(m_presenter.boxTexts().isEmpty()) << m_presenter.boxTexts().join(u'|').toStdString();
    EXPECT_FALSE(ftpState().connected);   // the download closes its connection
    EXPECT_EQ(ftpState().transferType, 0);
}

TEST_F(FtpClientTest, downloadServerWithFolderLooksBelowThatFolder)
{
    offer(u"wcraces.lki"_s, "12;1", u"mirror/"_s);
    gDownloadServer = m_server.address() + u"/mirror/"_s;

    EXPECT_TRUE(downloadFile(u"wcraces.lki"_s));
    EXPECT_EQ(readFile(imported(u"wcraces.lki"_s)), QByteArray("12;1"));
}

TEST_F(FtpClientTest, missingFileSaysSoAndKeepsTheLocalCopy)
{
    offer(u"other.lki"_s, "x");
    writeFile(imported(u"wccars.lki"_s), "the copy from last week");

    EXPECT_FALSE(downloadFile(u"wccars.lki"_s));
    EXPECT_EQ(m_presenter.boxTexts(), QStringList{u"File not found. Try back later."_s});
    ASSERT_EQ(m_presenter.boxes().size(), 1);
    EXPECT_EQ(m_presenter.boxes()[0].title, u"Lapkeeper"_s);
    EXPECT_EQ(m_presenter.boxes()[0].icon, Icon::None);
    EXPECT_EQ(readFile(imported(u"wccars.lki"_s)), QByteArray("the copy from last week"));
    EXPECT_EQ(QDir(m_imports.path()).entryList(QDir::Files), QStringList{u"wccars.lki"_s});   // no temporary left
}

TEST_F(FtpClientTest, localFolderThatCannotBeWrittenSaysSoAndKeepsTheConnection)
{
    offer(u"wccars.lki"_s, "a");
    openInternet();
    connectServer(m_server.address(), QString(), QString());

    EXPECT_FALSE(getFile(u"/lapkeeper/download/2002/wccars.lki"_s, m_imports.path() + u"/missing"_s));
    ASSERT_EQ(m_presenter.boxTexts().size(), 1);
    EXPECT_TRUE(m_presenter.boxTexts()[0].startsWith(u"Unable to write "_s)) << m_presenter.boxTexts()[0].toStdString();
    EXPECT_TRUE(ftpState().connected);
    EXPECT_TRUE(getFile(u"/lapkeeper/download/2002/wccars.lki"_s, m_imports.path()));
    EXPECT_EQ(readFile(imported(u"wccars.lki"_s)), QByteArray("a"));
}

TEST_F(FtpClientTest, hostThatDoesNotResolveSaysSoThenFindsNoConnection)
{
    gDownloadServer = u"no-such-host.invalid"_s;
    writeFile(imported(u"wccars.lki"_s), "kept");

    EXPECT_FALSE(downloadFile(u"wccars.lki"_s));
    EXPECT_EQ(m_presenter.boxTexts(),
              (QStringList{u"Error Connecting to FTP Server. Make sure you specified the correct server name."_s,
                           kNotConnected}));
    EXPECT_EQ(readFile(imported(u"wccars.lki"_s)), QByteArray("kept"));
}

TEST_F(FtpClientTest, missingDownloadFolderIsUnableToProcess)
{
    ASSERT_TRUE(m_server.addAnonymousFolder(u"lapkeeper"_s));

    EXPECT_FALSE(downloadFile(u"wccars.lki"_s));
    // The failed change of folder ends the connection, so the fetch finds none.
    EXPECT_EQ(m_presenter.boxTexts(), (QStringList{kUnableToProcess, kNotConnected}));
}

TEST_F(FtpClientTest, refusedLoginIsUnableToProcessAndLaterPutsSayNothing)
{
    const QString page = m_imports.path() + u"/index.html"_s;
    writeFile(page, "<html></html>");

    connectAsUser(u"wrong"_s);
    EXPECT_FALSE(ftpState().connected);
    EXPECT_EQ(m_presenter.boxTexts(), QStringList{kUnableToProcess});

    EXPECT_FALSE(putFile(page, u"incoming"_s));
    EXPECT_EQ(m_presenter.boxTexts().size(), 1);
    EXPECT_TRUE(m_server.fileBelowRoot(u"incoming/index.html"_s).isNull());
}

TEST_F(FtpClientTest, uploadWithUserAndPasswordLandsInTheFolderUnderItsOwnName)
{
    const QString first = m_imports.path() + u"/index.html"_s;
    const QString second = m_imports.path() + u"/team 1.html"_s;
    writeFile(first, "<html>standings</html>");
    writeFile(second, "<html>team</html>");

    connectAsUser(m_server.password());
    ASSERT_TRUE(ftpState().connected);
    EXPECT_TRUE(putFile(first, u"incoming"_s));
    EXPECT_TRUE(putFile(second, QString()));   // stays in the folder of the first
    EXPECT_TRUE(m_presenter.boxTexts().isEmpty()) << m_presenter.boxTexts().join(u'|').toStdString();
    EXPECT_EQ(m_server.fileBelowRoot(u"incoming/index.html"_s), QByteArray("<html>standings</html>"));
    EXPECT_EQ(m_server.fileBelowRoot(u"incoming/team 1.html"_s), QByteArray("<html>team</html>"));
    EXPECT_EQ(QDir(m_server.uploadFolder()).entryList(QDir::Files),
              (QStringList{u"index.html"_s, u"team 1.html"_s}));   // no temporary name left
}

TEST_F(FtpClientTest, putIntoMissingFolderSaysLocationNotFoundAndDisconnects)
{
    const QString page = m_imports.path() + u"/index.html"_s;
    writeFile(page, "x");
    connectAsUser(m_server.password());

    EXPECT_FALSE(putFile(page, u"no/such/site"_s));
    EXPECT_EQ(m_presenter.boxTexts(), QStringList{u"Location (FTP Site) not found. Check spelling of Location."_s});
    EXPECT_FALSE(ftpState().connected);
    EXPECT_FALSE(putFile(page, QString()));
    EXPECT_EQ(m_presenter.boxTexts().size(), 1);
}

TEST_F(FtpClientTest, putWithoutLocalFileAsksForOne)
{
    connectAsUser(m_server.password());
    EXPECT_FALSE(putFile(QString(), u"incoming"_s));
    EXPECT_EQ(m_presenter.boxTexts(), QStringList{u"Please select a local file to put"_s});
    EXPECT_TRUE(ftpState().connected);
}

TEST_F(FtpClientTest, serverRefusalGivesOperationCodeAndReply)
{
    const QString page = m_imports.path() + u"/index.html"_s;
    writeFile(page, "x");
    openInternet();
    connectServer(m_server.address(), QString(), QString());   // anonymous: read only
    ASSERT_TRUE(ftpState().connected);

    EXPECT_FALSE(putFile(page, QString()));
    ASSERT_EQ(m_presenter.boxTexts().size(), 1);
    EXPECT_TRUE(m_presenter.boxTexts()[0].startsWith(u"FtpPutFile Extd Err: 550 "_s))
        << m_presenter.boxTexts()[0].toStdString();
    EXPECT_FALSE(ftpState().connected);
    EXPECT_FALSE(QFile::exists(m_server.anonymousRoot() + u"/index.html"_s));
}

TEST_F(FtpClientTest, listingSaysWhenAFolderIsEmpty)
{
    ASSERT_TRUE(m_server.addAnonymousFolder(u"empty"_s));
    offer(u"wccars.lki"_s, "a");
    offer(u"f1cars.lki"_s, "b");
    openInternet();
    connectServer(m_server.address(), QString(), QString());

    QStringList names = listDirectory(m_server.address() + u"/lapkeeper/download/2002/"_s);
    names.sort();
    EXPECT_EQ(names, (QStringList{u"f1cars.lki"_s, u"wccars.lki"_s}));
    EXPECT_TRUE(m_presenter.boxTexts().isEmpty());

    EXPECT_TRUE(listDirectory(u"/empty"_s).isEmpty());
    EXPECT_EQ(m_presenter.boxTexts(), QStringList{u"This directory is empty!"_s});
    // An empty folder is no failure: the connection stays and a fetch still runs.
    EXPECT_TRUE(ftpState().connected);
    EXPECT_TRUE(getFile(u"../lapkeeper/download/2002/f1cars.lki"_s, m_imports.path()));
    EXPECT_EQ(readFile(imported(u"f1cars.lki"_s)), QByteArray("b"));
}

TEST_F(FtpClientTest, serverStoppedInTheMiddleGivesOneMessageAndNoHang)
{
    const QString first = m_imports.path() + u"/index.html"_s;
    const QString second = m_imports.path() + u"/teams.html"_s;
    writeFile(first, "1");
    writeFile(second, "2");
    connectAsUser(m_server.password());
    ASSERT_TRUE(putFile(first, u"incoming"_s));

    m_server.stop();
    EXPECT_FALSE(putFile(second, QString()));
    EXPECT_FALSE(putFile(first, QString()));   // the rest of the run does nothing
    ASSERT_EQ(m_presenter.boxTexts().size(), 1);
    EXPECT_TRUE(m_presenter.boxTexts()[0].startsWith(u"FtpPutFile Extd Err: "_s))
        << m_presenter.boxTexts()[0].toStdString();
    EXPECT_FALSE(ftpState().connected);
}

}   // namespace
