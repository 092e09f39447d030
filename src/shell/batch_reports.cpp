#include "shell/batch_reports.h"
#include "shell/console_presenter.h"
#include "reports/report_entries.h"
#include "reports/report_files.h"

#include <QTextStream>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int kOk = 0;
constexpr int kFailed = 1;
constexpr int kUsage = 2;

// Reads the options after the id into the request; false with the problem in usage.
bool readRequest(const QStringList& options, cReportRequest& request, QString& usage)
{
    for (qsizetype i = 0; i < options.size(); ++i) {
        const QString& option = options[i];
        if (option == u"--all-teams") {
            request.allTeams = true;
        } else if (option == u"--separate") {
            request.separate = true;
        } else if (option == u"--league" || option == u"--race" || option == u"--team") {
            int16_t& target = option == u"--league" ? request.leagueNmbr
                              : option == u"--race" ? request.raceNmbr
                                                    : request.teamNmbr;
            if (i + 1 >= options.size() || !readNumberArgument(options[i + 1], target)) {
                usage = option + u" needs a number"_s;
                return false;
            }
            ++i;
        } else {
            usage = u"unknown option: "_s + option;
            return false;
        }
    }
    return true;
}

// The numbers the report needs and the request lacks, as the request screen checks them.
QString missingNumber(const cReportRequirements& needs, const cReportRequest& request)
{
    if (needs.raceRequired && request.raceNmbr < 1)
        return u"--race"_s;
    if (needs.leagueRequired && request.leagueNmbr < 1)
        return u"--league"_s;
    if (needs.teamRequired && !request.allTeams && request.teamNmbr < 1)
        return u"--team (or --all-teams)"_s;
    return {};
}

} // namespace

bool readNumberArgument(const QString& text, int16_t& out)
{
    bool ok = false;
    const int value = text.toInt(&ok);
    if (!ok || value < -32768 || value > 32767)
        return false;
    out = static_cast<int16_t>(value);
    return true;
}

int runReportCommand(const QStringList& args, const ConsolePresenter& console, QString& usage)
{
    const QString id = args.value(1).toUpper();
    const cReportRequirements* needs = reportRequirements(id);
    if (!needs) {
        usage = args.size() < 2 ? u"report needs a report id"_s : u"unknown report id: "_s + args[1];
        return kUsage;
    }
    if (!reportAvailable(id)) {
        std::fprintf(stderr, "lapkeeper-batch: the %s report is not available yet\n",
                     qPrintable(QString::fromUtf16(needs->title)));
        return kUsage;
    }
    cReportRequest request;
    if (!readRequest(args.mid(2), request, usage))
        return kUsage;
    if (const QString missing = missingNumber(*needs, request); !missing.isEmpty()) {
        usage = u"the "_s + QString::fromUtf16(needs->title) + u" report needs "_s + missing;
        return kUsage;
    }

    const qsizetype boxesBefore = console.shown().size();
    clearOpenedReportFiles();
    runReport(id, request, false);
    const bool boxShown = console.shown().size() != boxesBefore;

    const QStringList written = openedReportFiles();
    QTextStream out(stdout);
    for (const QString& file : written)
        out << file << u'\n';
    out.flush();
    if (written.isEmpty() && !boxShown)
        std::fprintf(stderr, "lapkeeper-batch: nothing to report: no posted rows for that choice\n");
    return !boxShown && !written.isEmpty() ? kOk : kFailed;
}
