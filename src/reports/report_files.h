#pragma once
// The table of reports and the output layer every report writes through: a channel per report
// (its file_handle), the report folder, one line per write, and the launch in the browser.
#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <span>

struct cReportInfo {
    const char16_t* id;           // key of table report
    const char16_t* name;
    const char16_t* statusText;   // on the status bar while the report runs
    const char16_t* title;        // text of the page's title tag
};

// The fourteen reports, in the order of the table of reports.
std::span<const cReportInfo> reportTable();
// The entry of a report id (case aside), or nullptr.
const cReportInfo* reportInfo(const QString& reportId);

// The channel of a report: the file_handle of its row, found by the first two characters of the
// argument in upper case; 0 when no row has the id.
int16_t reportChannel(const QString& reportId);
// The next channel that no open report file uses.
int16_t reportChannel();

// Makes the report folder when it is missing and opens folder + "/" + fileName for writing under
// the channel, truncating what was there. A failure shows "Error creating report file - " and
// the reason; the report goes on and fails at its first write.
void openReportFile(int16_t channel, const QString& fileName);
// The names of the report files opened since the last clear, in the order they were first
// opened, each once: what a run wrote.
QStringList openedReportFiles();
void clearOpenedReportFiles();
// Writes the text and a line end. A channel that is not open, or a failed write, is the run-time
// error "Bad file name or number" or "Device I/O error", which the report's entry traps.
void writeReportLine(const QString& text, int16_t channel);
// Closes the channel; a channel that is not open is left alone.
void closeReportFile(int16_t channel);
// Opens report folder + "/" + fileName in the browser. The launcher shows its own failures; a
// run-time error on the way shows "Error opening report " and its description.
void launchReport(const QString& fileName);
