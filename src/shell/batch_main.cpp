// lapkeeper-batch: the program's core without a window, for operators who automate
// (a cron job that posts and publishes) and for acceptance tests.
#include "base/app_globals.h"
#include "base/runtime_error.h"
#include "exchange/import.h"
#include "league/league.h"
#include "racing/posting.h"
#include "racing/races.h"
#include "racing/results.h"
#include "racing/scoring_points.h"
#include "racing/standings.h"
#include "shell/batch_reports.h"
#include "shell/console_presenter.h"
#include "base/messages.h"
#include "store/connection.h"
#include "store/maintenance.h"
#include "store/schema.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTextStream>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int kOk = 0;
constexpr int kFailed = 1;
constexpr int kUsage = 2;

const char* const kUsageText =
    "usage: lapkeeper-batch [--app-dir DIR] COMMAND\n"
    "commands:\n"
    "  init                          create the data file with its delivered rows if it is missing\n"
    "  sql \"STATEMENT\"               run one statement; a SELECT prints a header and its rows\n"
    "  post RACE_NMBR [--later yes|no]\n"
    "                                post a race; --later answers each \"post results for ... now?\" (default no)\n"
    "  clear-posting RACE_NMBR       delete what posting wrote for one race\n"
    "  clear-season                  delete the postings of every race\n"
    "  standings LEAGUE_NMBR RACE_NMBR\n"
    "                                the league's table after the race: place, team, name, points\n"
    "  backup [FILE]                 a checked, compacted copy of the data file at FILE; without FILE\n"
    "                                the automatic backup (Backups/lapkeeper30.lk and a dated copy)\n"
    "  report ID [--league N] [--race N] [--team N] [--all-teams] [--separate]\n"
    "                                write a report into the report folder (launch off) and print\n"
    "                                the name of every file written; ID is a report id (LS, RD, TC,\n"
    "                                TD, TR, ...)\n"
    "  package --league N --race N   write the report package (frames page, navigation page and\n"
    "                                every report it holds) and print the files it wrote\n"
    "  restore FILE                  put a checked copy of FILE in the data file's place; the current\n"
    "                                data file is kept in Backups/ first\n"
    "  import FILE                   import a .lki file (cars, races, results, roster entries); prints\n"
    "                                \"Import Complete.\" or \"Import Failed.\"\n";

int usage(const QString& problem = {})
{
    if (!problem.isEmpty())
        std::fprintf(stderr, "lapkeeper-batch: %s\n", qPrintable(problem));
    std::fputs(kUsageText, stderr);
    return kUsage;
}

int runInit()
{
    if (QFileInfo::exists(dataFilePath())) {
        std::printf("%s already exists\n", qPrintable(dataFilePath()));
        return kOk;
    }
    // A data file that went missing is restored, never replaced by an empty one.
    if (const QString backup = newestBackup(); !backup.isEmpty()) {
        std::fprintf(stderr, "lapkeeper-batch: %s is missing but there are backups; restore one instead (newest: %s)\n",
                     qPrintable(dataFilePath()), qPrintable(backup));
        return kFailed;
    }
    QString error;
    if (!createDataFile(dataFilePath(), error)) {
        std::fprintf(stderr, "Lapkeeper: %s\n", qPrintable(error));
        return kFailed;
    }
    std::printf("created %s\n", qPrintable(dataFilePath()));
    return kOk;
}

int runSql(const QString& statement)
{
    IDatabase db;
    const QString head = statement.trimmed().section(u' ', 0, 0).toLower();
    const bool returnsRows = head == u"select" || head == u"explain" || head == u"pragma" || head == u"with";
    if (!returnsRows)
        return db.execute(statement) ? kOk : kFailed;
    if (!db.OpenResultSet(statement))
        return kFailed;
    QTextStream out(stdout);
    out << db.columnNames().join(u'\t') << u'\n';
    for (; !db.eof(); db.MoveNext()) {
        QStringList cells;
        for (int c = 0; c < db.columnNames().size(); ++c)
            cells << db.value(c).toTextOrEmpty();
        out << cells.join(u'\t') << u'\n';
    }
    return kOk;
}

int runPost(int16_t raceNmbr, const ConsolePresenter& console)
{
    cRaces race;
    if (race.load(raceNmbr) != 1) {
        std::fprintf(stderr, "lapkeeper-batch: no race %d\n", raceNmbr);
        return kFailed;
    }
    const int before = console.failures();
    postResults(race);
    return console.failures() == before ? kOk : kFailed;
}

int runStandings(int16_t leagueNmbr, int16_t raceNmbr)
{
    cLeague league;
    if (league.load(leagueNmbr) != 1) {
        std::fprintf(stderr, "lapkeeper-batch: no league %d\n", leagueNmbr);
        return kFailed;
    }
    cScoringPointsCollection method;
    method.load(league.scoringTypeNmbr());
    cLeagueStandingsCollection table;
    table.load(leagueNmbr, raceNmbr, method.highScore());
    QTextStream out(stdout);
    int position = 0;
    for (const cLeagueStandings& line : table)
        out << ++position << u'\t' << line.teamNmbr() << u'\t' << line.teamName() << u'\t' << line.points() << u'\n';
    return kOk;
}

int runBackup(const QStringList& args)
{
    QString failure;
    const bool written = args.size() == 2 ? backupDatabase(QFileInfo(args[1]).absoluteFilePath(), failure)
                                          : automaticBackup(failure);
    if (written)
        return kOk;
    messageBox(failure, u"Lapkeeper"_s, Icon::Critical);
    return kFailed;
}

int runRestore(const QString& file)
{
    QString failure;
    if (!restoreDataFile(QFileInfo(file).absoluteFilePath(), failure)) {
        messageBox(failure, u"Lapkeeper"_s, Icon::Critical);
        return kFailed;
    }
    // The reopen shows its own message when it fails.
    return gConnection->connectionStatus() == 0 ? kOk : kFailed;
}

int runImport(const QString& file)
{
    const bool imported = importFile(QFileInfo(file).absoluteFilePath());
    std::puts(imported ? "Import Complete." : "Import Failed.");
    return imported ? kOk : kFailed;
}

int runCommand(const QStringList& args, const ConsolePresenter& console)
{
    const QString command = args.value(0);
    if (command == u"import") {
        if (args.size() != 2)
            return usage(u"import takes one file"_s);
        return runImport(args[1]);
    }
    if (command == u"backup") {
        if (args.size() > 2)
            return usage(u"backup takes at most one file"_s);
        return runBackup(args);
    }
    if (command == u"sql") {
        if (args.size() != 2)
            return usage(u"sql takes one statement"_s);
        return runSql(args[1]);
    }
    if (command == u"clear-posting") {
        int16_t race = 0;
        if (args.size() != 2 || !readNumberArgument(args[1], race))
            return usage(u"clear-posting takes a race number"_s);
        return cResultsCollection().deletePosting(race) ? kOk : kFailed;
    }
    if (command == u"post") {
        int16_t race = 0;
        if ((args.size() != 2 && args.size() != 4) || !readNumberArgument(args[1], race))
            return usage(u"post takes a race number"_s);
        return runPost(race, console);
    }
    if (command == u"standings") {
        int16_t league = 0;
        int16_t race = 0;
        if (args.size() != 3 || !readNumberArgument(args[1], league) || !readNumberArgument(args[2], race))
            return usage(u"standings takes a league number and a race number"_s);
        return runStandings(league, race);
    }
    if (command == u"report" || command == u"package") {
        // "package" is the report package under a name of its own.
        const QStringList reportArgs = command == u"package" ? QStringList{u"report"_s, u"RP"_s} + args.mid(1) : args;
        QString problem;
        const int status = runReportCommand(reportArgs, console, problem);
        return problem.isEmpty() ? status : usage(problem);
    }
    if (command == u"clear-season") {
        if (args.size() != 1)
            return usage();
        const int before = console.failures();
        clearPostingsForNewSeason();
        return console.failures() == before ? kOk : kFailed;
    }
    return usage(u"unknown command: "_s + command);
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(u"Lapkeeper"_s);
    QStringList args = app.arguments().mid(1);

    QString appDir = defaultApplicationFolder();
    if (args.value(0) == u"--app-dir") {
        if (args.size() < 2)
            return usage(u"--app-dir needs a folder"_s);
        appDir = args[1];
        args = args.mid(2);
    }
    if (args.isEmpty() || args[0] == u"--help" || args[0] == u"-h")
        return usage();

    // "post ... --later yes|no" answers every question about later races.
    Answer later = Answer::No;
    if (args.value(0) == u"post" && args.size() == 4) {
        if (args[2] != u"--later" || (args[3] != u"yes" && args[3] != u"no"))
            return usage(u"--later takes yes or no"_s);
        later = args[3] == u"yes" ? Answer::Yes : Answer::No;
    }
    ConsolePresenter console(later);
    installPresenter(&console);
    setApplicationFolder(appDir);
    if (!makeApplicationFolders()) {
        std::fprintf(stderr, "lapkeeper-batch: cannot create the folders of %s\n", qPrintable(appDir));
        return kFailed;
    }
    if (args[0] == u"init")
        return args.size() == 1 ? runInit() : usage();
    // A restore is also what brings back a data file that has gone missing.
    if (args[0] == u"restore") {
        if (args.size() != 2)
            return usage(u"restore takes one file"_s);
        const int status = runRestore(args[1]);
        if (gConnection)
            gConnection->CloseConnection();
        return status;
    }
    if (!QFileInfo::exists(dataFilePath())) {
        std::fprintf(stderr, "lapkeeper-batch: no data file at %s (run init, or restore a backup)\n", qPrintable(dataFilePath()));
        return kFailed;
    }
    if (!openDatabase())
        return kFailed;
    int status = kFailed;
    try {
        status = runCommand(args, console);
    } catch (const cRuntimeError& e) {
        std::fprintf(stderr, "Lapkeeper: %s\n", qPrintable(e.description()));
        status = kFailed;
    }
    gConnection->CloseConnection();
    return status;
}
