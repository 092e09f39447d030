#pragma once
// One run of a report and the skeleton every page shares. A report's entry makes a cReportRun
// (hourglass, channel, status text), runs its own query, opens the file, and writes its page
// with the pieces below, in the order the pages have: head, titles, table, heading row, data
// rows, footer, closing tags. finish() closes and launches; runReportEntry traps a run-time
// error on the way into the "Error generating report " box.
#include "reports/report_settings.h"

#include <QString>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

class cReportRun {
public:
    // Sets the hourglass, reads the report's channel and shows its status text.
    explicit cReportRun(const QString& reportId);
    // Closes the file if it is still open (an entry that stopped on a run-time error).
    ~cReportRun();
    cReportRun(const cReportRun&) = delete;
    cReportRun& operator=(const cReportRun&) = delete;

    const QString& id() const { return m_id; }
    int16_t channel() const { return m_channel; }
    const QString& fileName() const { return m_fileName; }

    // Names the file by the numbers, opens it, reads the chosen columns and the look.
    void open(int16_t firstNumber, std::optional<int16_t> secondNumber = {});
    // Opens another file under the run's channel, closing the one open; the package writes its
    // three pages in turn this way. The run's file name stays the one open() gave.
    void openFile(const QString& fileName);
    void closeFile();
    // The column numbers the operator chose, in their order.
    const std::vector<int16_t>& columns() const { return m_columns; }
    int columnCount() const { return static_cast<int>(m_columns.size()); }
    cReportAttributesCollection& attributes() { return m_attributes; }

    // One line of the page.
    void line(const QString& text);

    // "<html>", "<head>", the title tag of the report, "</head>", the style block and the body tag.
    void writeHead();
    // The "Sorry" lines of a page with nothing to show; leagueless for the reports that belong to
    // no league.
    void writeSorry(bool leagueless = false);
    // A title paragraph at the title size less sizeDrop, centred, in the title colour.
    void writeTitle(const QString& text, int16_t sizeDrop = 0);
    // The race's status line ("Unofficial", "Qualifying") after a "<br>", at the title size less
    // 3; nothing for a status that has none.
    void writeRaceStatus(int16_t raceStatusNmbr);
    // The header image paragraph, centred.
    void writeHeaderImage();
    // The table tag of the report's border, padding and spacing.
    void writeTableTag();
    // "<TR>" and "</TR>" on two lines.
    void writeEmptyRow();
    // The heading row: one heading cell for each chosen column the report knows (heading gives
    // the text, or nullopt for a number it does not know).
    void writeHeadingRow(const std::function<std::optional<QString>(int16_t column)>& heading,
                         const QString& nowrap = QStringLiteral("nowrap"));
    // A data row in the look of its count's parity: one cell per known column.
    struct Cell {
        QString text;
        QString align;
    };
    void writeDataRow(int64_t rowCount, const std::function<std::optional<Cell>(int16_t column)>& cell);
    // The row tag in the look of the count's parity, and a data cell in that look.
    void writeRowTag(int64_t rowCount);
    QString rowCell(const QString& text, const QString& align, const QString& colspan = QStringLiteral("1")) const;
    // The "Created" paragraph and the product line, when the report includes a footer.
    void writeFooter();
    // "</body>" and "</html>".
    void writeClosing();

    // Sizes and colours of the look as the tags take them.
    int16_t size(const QString& text) const;
    int16_t titleTextSize() { return size(m_attributes.titleTextSize(m_id)); }
    int16_t headingTextSize() { return size(m_attributes.headingTextSize(m_id)); }

    // Closes the file, launches it when asked, and returns its name.
    QString finish(bool launch);
    // For a report that found nothing to show: closes the file it opened, empty, opens nothing
    // and returns the empty name; a reason, when given, is shown in an information box.
    QString finishEmpty(const QString& reason = QString());

private:
    QString m_id;
    int16_t m_channel = 0;
    QString m_fileName;
    bool m_open = false;
    std::vector<int16_t> m_columns;
    cReportAttributesCollection m_attributes;
    // The look of the current data row.
    QString m_rowTextColor;
    int16_t m_rowTextSize = 0;
};

// Runs a report's entry: a run-time error inside shows "Error generating report " and its
// description (after the pointer goes back), the file is closed and not launched, the status
// text is cleared and the result is empty. Otherwise the entry's result.
QString runReportEntry(const std::function<QString()>& entry);

// A field of the current row as text; Null reads as the empty text.
inline QString fieldText(const IDatabase& rows, const QString& field)
{
    return rows.fields(field).toTextOrEmpty();
}

// The status line of a race: "Unofficial" for status 1, "Qualifying" for 3, else empty.
QString raceStatusLine(int16_t raceStatusNmbr);
