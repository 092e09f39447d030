#include "reports/report_package.h"
#include "reports/report_entries.h"
#include "reports/report_page.h"
#include "reports/report_tags.h"

using namespace Qt::StringLiterals;

namespace {

// A report the package can hold: its link text and the report with its numbers. Team reports
// run for all teams in one file; Team Cars runs without a race.
struct cPackageItem {
    int16_t columnNmbr;
    const char16_t* linkText;
    const char16_t* reportId;
    bool withRace;
    bool allTeams;
};

const cPackageItem kItems[] = {
    {100, u"Race Detail", u"RD", true, false},
    {101, u"League Race Summary", u"LR", false, false},
    {102, u"League Race Standings", u"RS", true, false},
    {103, u"League Standings", u"LS", true, false},
    {104, u"Team Detail", u"TD", true, true},
    {105, u"Team Cars", u"TC", false, true},
    {106, u"Car Details", u"CD", false, false},
    {107, u"Race Results", u"RR", true, false},
    {108, u"Car/Driver Stats", u"DS", false, false},
    {109, u"Team Trades", u"TT", true, true},
    {110, u"Car/Driver Picks", u"CP", false, false},
    {111, u"Teams per Car/Driver", u"DT", true, false},
};

const cPackageItem* itemOf(int16_t columnNmbr)
{
    for (const cPackageItem& item : kItems) {
        if (item.columnNmbr == columnNmbr)
            return &item;
    }
    return nullptr;
}

void writeHead(cReportRun& run, const QString& title)
{
    run.line(u"<html>"_s);
    run.line(u"<head>"_s);
    run.line(u"<title>"_s + title + u"</title>"_s);
    run.line(u"</head>"_s);
}

// The frames page: the navigation frame on the left, the main frame on the right, with frame
// borders when the package's border size is above 0.
void writeFramesPage(cReportRun& run, const QString& navigationName)
{
    writeHead(run, u"Report Package"_s);
    const QString border = run.size(run.attributes().borderSize(run.id())) > 0 ? u"yes"_s : u"no"_s;
    run.line(u"<frameset cols=200,* frameborder="_s + border + u">"_s);
    run.line(u"<frame frameborder="_s + border + u" name=navigation src="_s + navigationName + u">"_s);
    run.line(u"<frame frameborder="_s + border + u" name=main src=blank.html>"_s);
    run.line(u"<noframes>"_s);
    run.line(u"<body>"_s);
    run.line(u"<p>This page uses frames, but your browser doesn't support them.</p>"_s);
    run.line(u"</body>"_s);
    run.line(u"</noframes>"_s);
    run.line(u"</frameset>"_s);
    run.line(u"</html>"_s);
}

void writeStyleAndBody(cReportRun& run)
{
    cReportAttributesCollection& look = run.attributes();
    const QString& id = run.id();
    run.line(styleBlock(look.linkColor(id), look.VisitedlinkColor(id), look.HoverlinkColor(id)));
    run.line(bodyTag(look.backColor(id), look.backgroundImage(id)));
}

void writeBlankPage(cReportRun& run)
{
    writeHead(run, QString());
    writeStyleAndBody(run);
    run.line(imageParagraph(run.attributes().headerImage(run.id()), u"center"_s));
    run.line(u"</body>"_s);
    run.line(u"</html>"_s);
}

// The navigation page: one link per chosen report, each report written as its line is reached.
// A report that finds nothing gives an empty link.
void writeNavigationPage(cReportRun& run, int16_t leagueNmbr, int16_t raceNmbr)
{
    writeHead(run, QString());
    writeStyleAndBody(run);
    for (const int16_t column : run.columns()) {
        const cPackageItem* item = itemOf(column);
        if (!item)
            continue;
        cReportRequest request;
        request.leagueNmbr = leagueNmbr;
        request.raceNmbr = item->withRace ? raceNmbr : int16_t(-1);
        request.allTeams = item->allTeams;
        const QString file = runReport(QString::fromUtf16(item->reportId), request, false).value_or(QString());
        run.line(u"<br><a href="_s + file + u" target=main>"_s + QString::fromUtf16(item->linkText) + u"</a>"_s);
    }
    run.line(u"</body>"_s);
    run.line(u"</html>"_s);
}

} // namespace

QString reportPackage(int16_t leagueNmbr, int16_t raceNmbr, bool launch)
{
    return runReportEntry([&] {
        cReportRun run(u"RP"_s);
        run.open(leagueNmbr);
        const QString navigationName = QString::number(leagueNmbr) + u"nav.html"_s;
        writeFramesPage(run, navigationName);
        run.openFile(u"blank.html"_s);
        writeBlankPage(run);
        run.openFile(navigationName);
        writeNavigationPage(run, leagueNmbr, raceNmbr);
        return run.finish(launch);
    });
}
