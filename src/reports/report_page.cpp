#include "reports/report_page.h"
#include "base/app_globals.h"
#include "base/messages.h"
#include "base/runtime_error.h"
#include "reports/report_files.h"
#include "reports/report_tags.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace {

constexpr int16_t kHourglass = 11;

} // namespace

cReportRun::cReportRun(const QString& reportId) : m_id(reportId)
{
    setMousePointer(kHourglass);
    m_channel = reportChannel(m_id);
    if (const cReportInfo* info = reportInfo(m_id))
        setStatusText(QString::fromUtf16(info->statusText));
}

cReportRun::~cReportRun()
{
    closeFile();
}

void cReportRun::open(int16_t firstNumber, std::optional<int16_t> secondNumber)
{
    m_fileName = reportFileName(m_id, firstNumber, secondNumber);
    openFile(m_fileName);

    IDatabase db;
    if (db.OpenResultSet(u"SELECT A.*"_s
                         u" FROM report_columns A, report B "_s
                         u" WHERE B.report_id = '"_s + m_id + u"'"_s +
                         u" AND A.report_nmbr = B.report_nmbr"_s
                         u" ORDER BY column_order"_s)) {
        for (; !db.eof(); db.MoveNext())
            m_columns.push_back(db.fields(u"column_nmbr"_s).toInt16());
    }
    m_attributes.loadReportCd(m_id);
}

void cReportRun::openFile(const QString& fileName)
{
    closeFile();
    openReportFile(m_channel, fileName);
    m_open = true;
}

void cReportRun::closeFile()
{
    if (m_open) {
        closeReportFile(m_channel);
        m_open = false;
    }
}

void cReportRun::line(const QString& text)
{
    writeReportLine(text, m_channel);
}

void cReportRun::writeHead()
{
    line(u"<html>"_s);
    line(u"<head>"_s);
    const cReportInfo* info = reportInfo(m_id);
    line(u"<title>"_s + (info ? QString::fromUtf16(info->title) : QString()) + u"</title>"_s);
    line(u"</head>"_s);
    line(styleBlock(m_attributes.linkColor(m_id), m_attributes.VisitedlinkColor(m_id),
                    m_attributes.HoverlinkColor(m_id)));
    line(bodyTag(m_attributes.backColor(m_id), m_attributes.backgroundImage(m_id)));
}

void cReportRun::writeSorry(bool leagueless)
{
    line(leagueless ? u"<H1 align=center> Sorry race results are not entered yet.</H1>"_s
                    : u"<H1 align=center> Sorry race results are not entered yet or your league is not participating in this race.</H1>"_s);
    line(u"<H1 align=center> Try back later </H1>"_s);
}

void cReportRun::writeTitle(const QString& text, int16_t sizeDrop)
{
    int16_t size = checkedNarrow<int16_t>(titleTextSize() - sizeDrop);
    line(textParagraph(size, m_attributes.titleTextColor(m_id), text, u"center"_s));
}

void cReportRun::writeRaceStatus(int16_t raceStatusNmbr)
{
    if (const QString status = raceStatusLine(raceStatusNmbr); !status.isEmpty()) {
        line(u"<br>"_s);
        writeTitle(status, 3);
    }
}

void cReportRun::writeHeaderImage()
{
    line(imageParagraph(m_attributes.headerImage(m_id), u"center"_s));
}

void cReportRun::writeTableTag()
{
    line(tableTag(size(m_attributes.borderSize(m_id)), size(m_attributes.cellPadding(m_id)),
                  size(m_attributes.cellSpacing(m_id))));
}

void cReportRun::writeEmptyRow()
{
    line(u"<TR>"_s);
    line(u"</TR>"_s);
}

void cReportRun::writeHeadingRow(const std::function<std::optional<QString>(int16_t column)>& heading,
                                 const QString& nowrap)
{
    line(tableRowTag(m_attributes.headingBackColor(m_id)));
    const int16_t textSize = headingTextSize();
    const QString textColor = m_attributes.headingTextColor(m_id);
    for (const int16_t column : m_columns) {
        if (const std::optional<QString> text = heading(column))
            line(headerCell(textSize, textColor, *text, u"center"_s, 1, nowrap));
    }
    line(u"</TR>"_s);
}

void cReportRun::writeRowTag(int64_t rowCount)
{
    QString backColor;
    if (isOdd(rowCount)) {
        m_rowTextColor = m_attributes.oddRowTextColor(m_id);
        m_rowTextSize = size(m_attributes.oddRowTextSize(m_id));
        backColor = m_attributes.oddRowBackColor(m_id);
    } else {
        m_rowTextColor = m_attributes.evenRowTextColor(m_id);
        m_rowTextSize = size(m_attributes.evenRowTextSize(m_id));
        backColor = m_attributes.evenRowBackColor(m_id);
    }
    line(tableRowTag(backColor));
}

QString cReportRun::rowCell(const QString& text, const QString& align, const QString& colspan) const
{
    return dataCell(m_rowTextSize, m_rowTextColor, text, align, colspan);
}

void cReportRun::writeDataRow(int64_t rowCount, const std::function<std::optional<Cell>(int16_t column)>& cell)
{
    writeRowTag(rowCount);
    for (const int16_t column : m_columns) {
        if (const std::optional<Cell> value = cell(column))
            line(rowCell(value->text, value->align));
    }
    line(u"</TR>"_s);
}

void cReportRun::writeFooter()
{
    if (!m_attributes.includeFooter(m_id))
        return;
    int16_t footerSize = size(m_attributes.evenRowTextSize(m_id));
    line(textParagraph(footerSize, m_attributes.headingTextColor(m_id),
                       u"Created "_s + QDateTime::currentDateTime().toString(u"yyyy-MM-dd HH:mm:ss"_s), u"Center"_s));
    line(u"<BR>Powered By <A href="_s + kProductWebSite + u">Lapkeeper</a>"_s);
}

void cReportRun::writeClosing()
{
    line(u"</body>"_s);
    line(u"</html>"_s);
}

int16_t cReportRun::size(const QString& text) const
{
    bool ok = false;
    const int value = text.toInt(&ok);
    return ok ? checkedNarrow<int16_t>(value) : int16_t(0);
}

QString cReportRun::finish(bool launch)
{
    closeFile();
    if (launch)
        launchReport(m_fileName);
    setStatusText(QString());
    setMousePointer(0);
    return m_fileName;
}

QString cReportRun::finishEmpty(const QString& reason)
{
    finish(false);
    if (!reason.isEmpty())
        messageBox(reason, u"Lapkeeper"_s, Icon::Information);
    return {};
}

QString runReportEntry(const std::function<QString()>& entry)
{
    try {
        return entry();
    } catch (const cRuntimeError& error) {
        setMousePointer(0);
        messageBox(u"Error generating report "_s + error.description(), u"Lapkeeper"_s, Icon::Critical);
        setStatusText(QString());
        return {};
    }
}

QString raceStatusLine(int16_t raceStatusNmbr)
{
    switch (raceStatusNmbr) {
    case 1: return u"Unofficial"_s;
    case 3: return u"Qualifying"_s;
    default: return {};
    }
}
