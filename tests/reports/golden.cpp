#include "golden.h"
#include "base/app_globals.h"
#include "store/connection.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString caseFolder(const QString& caseName)
{
    return QStringLiteral(LK_GOLDEN_DIR) + u'/' + caseName;
}

QString readText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

bool updating()
{
    return qEnvironmentVariable("LK_UPDATE_GOLDEN") == u"1";
}

QStringList pagesIn(const QString& folder)
{
    return QDir(folder).entryList({u"*.html"_s}, QDir::Files, QDir::Name);
}

} // namespace

QString maskedPage(const QString& text)
{
    static const QRegularExpression created(u"Created \\d{4}-\\d{2}-\\d{2} \\d{2}:\\d{2}:\\d{2}"_s);
    QString masked = text;
    return masked.replace(created, u"Created <date and time>"_s);
}

QString reportPage(const QString& name)
{
    QFile file(gReportsPath + u'/' + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : u"<missing>"_s;
}

QStringList reportPages()
{
    return pagesIn(gReportsPath);
}

QStringList dataCellTexts(const QString& html)
{
    static const QRegularExpression cell(u"<TD colspan=1  align = '\\w+'><FONT[^>]*>([^<]*) </FONT></TD>"_s);
    QStringList texts;
    for (const QRegularExpressionMatch& match : cell.globalMatch(html))
        texts << match.captured(1);
    return texts;
}

void runGoldenSetup(const QString& caseName)
{
    QString script;
    for (const QString& line : readText(caseFolder(caseName) + u"/setup.sql"_s).split(u'\n'))
        if (!line.trimmed().startsWith(u"--"_s))
            script += line + u'\n';
    for (const QString& statement : script.split(u';', Qt::SkipEmptyParts)) {
        if (statement.trimmed().isEmpty())
            continue;
        IDatabase db;
        ASSERT_TRUE(db.execute(statement.trimmed())) << qPrintable(statement);
    }
}

void expectGoldenPages(const QString& caseName)
{
    const QString expected = caseFolder(caseName) + u"/expected"_s;
    const QStringList written = pagesIn(gReportsPath);
    if (updating()) {
        QDir(expected).removeRecursively();
        QDir().mkpath(expected);
        for (const QString& page : written) {
            QFile out(expected + u'/' + page);
            ASSERT_TRUE(out.open(QIODevice::WriteOnly));
            out.write(maskedPage(readText(gReportsPath + u'/' + page)).toUtf8());
        }
        return;
    }
    ASSERT_EQ(written, pagesIn(expected)) << "the pages of case " << qPrintable(caseName);
    for (const QString& page : written)
        EXPECT_EQ(maskedPage(readText(gReportsPath + u'/' + page)), readText(expected + u'/' + page))
            << qPrintable(caseName + u'/' + page);
}
