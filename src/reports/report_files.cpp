#include "reports/report_files.h"
#include "base/app_globals.h"
#include "base/messages.h"
#include "base/runtime_error.h"
#include "league/record.h"
#include "store/connection.h"

#include <QDir>
#include <QFile>
#include <map>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// The misspelled status text of League Standings and the title of Car/Driver Picks, which is
// that of Car Details with its leading blank, are what the program prints.
const cReportInfo kReports[] = {
    {u"RD", u"Race Detail", u"Creating Race Detail Report", u"Race Detail Report"},
    {u"LS", u"League Standings", u"Creating League Stangings Report", u"League Standings Report"},
    {u"TC", u"Team Cars", u"Creating Team Cars Report", u"Team Car Report"},
    {u"LR", u"League Race Summary", u"Creating League Race Summary Report", u"League Race Summary Report"},
    {u"TD", u"Team Detail", u"Creating Team Detail Report", u"Team Detail Report"},
    {u"RS", u"League Race Standings", u"Creating League Race Standings Report", u"League Race Standings Report"},
    {u"TR", u"Team Race Detail", u"Creating Team Race Detail Report", u"Team Race Detail Report"},
    {u"CD", u"Car Details", u"Creating Cars Detail Report", u" Car Details Report"},
    {u"RR", u"Race Results", u"Creating Race Results Report", u"Race Results Report"},
    {u"DS", u"Car/Driver Stats", u"Creating Driver Stats Report", u"Car/Driver Stats Report"},
    {u"TT", u"Team Trades", u"Creating Team Trades Report", u"Team Trades Report"},
    {u"CP", u"Car/Driver Picks", u"Creating Car/Driver Picks Report", u" Car Details Report"},
    {u"DT", u"Teams per Car/Driver", u"Creating Teams per Car/Driver Report", u"Teams per Car/Driver Report"},
    {u"RP", u"Report Package", u"Creating Report Package", u"Report Package"},
};

// The open report files by channel. A report run inside another keeps its own file open beside
// the outer one's, under its own channel.
std::map<int16_t, std::unique_ptr<QFile>>& openFiles()
{
    static std::map<int16_t, std::unique_ptr<QFile>> files;
    return files;
}

QStringList& openedNames()
{
    static QStringList names;
    return names;
}

cRuntimeError badFileNumber()
{
    return {52, u"Bad file name or number"_s};
}

} // namespace

std::span<const cReportInfo> reportTable()
{
    return kReports;
}

const cReportInfo* reportInfo(const QString& reportId)
{
    const QString id = reportId.left(2).toUpper();
    for (const cReportInfo& report : kReports) {
        if (id == QStringView(report.id))
            return &report;
    }
    return nullptr;
}

int16_t reportChannel(const QString& reportId)
{
    IDatabase db;
    const QString id = sqlText(reportId.left(2).toUpper());
    if (!db.OpenResultSet(u" SELECT file_handle"_s
                          u" FROM report"_s
                          u" WHERE report_id = '"_s + id + u"'"_s) ||
        db.eof())
        return 0;
    return db.fields(u"file_handle"_s).toInt16();
}

int16_t reportChannel()
{
    int16_t channel = 1;
    while (openFiles().count(channel) != 0)
        channel = checkedNarrow<int16_t>(channel + 1);
    return channel;
}

void openReportFile(int16_t channel, const QString& fileName)
{
    QString reason;
    if (!QDir(gReportsPath).exists() && !QDir().mkpath(gReportsPath)) {
        reason = u"Path not found"_s;
    } else {
        // Unbuffered, so that a full disk fails the very line that does not fit, inside the
        // report's run, rather than unnoticed when the file is closed.
        auto file = std::make_unique<QFile>(gReportsPath + u'/' + fileName);
        if (file->open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
            openFiles()[channel] = std::move(file);
            if (!openedNames().contains(fileName))
                openedNames().append(fileName);
        } else {
            reason = file->errorString();
        }
    }
    if (!reason.isEmpty())
        messageBox(u"Error creating report file - "_s + reason, u"Lapkeeper"_s, Icon::Critical);
}

QStringList openedReportFiles()
{
    return openedNames();
}

void clearOpenedReportFiles()
{
    openedNames().clear();
}

void writeReportLine(const QString& text, int16_t channel)
{
    const auto found = openFiles().find(channel);
    if (found == openFiles().end())
        throw badFileNumber();
    const QByteArray line = text.toUtf8() + '\n';
    if (found->second->write(line) != line.size())
        throw cRuntimeError(57, u"Device I/O error"_s);
}

void closeReportFile(int16_t channel)
{
    openFiles().erase(channel);
}

void launchReport(const QString& fileName)
{
    try {
        launchFile(gReportsPath + u'/' + fileName, 1, u"HTML"_s);
    } catch (const cRuntimeError& error) {
        messageBox(u"Error opening report "_s + error.description(), u"Lapkeeper"_s, Icon::Critical);
    }
}
