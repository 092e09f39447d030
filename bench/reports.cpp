// Report benchmark: posts the posting benchmark's season and times League Standings with every
// column and the team pages it writes, for one league of 100 teams after the last race. The
// floor, measured in the same run, reads every row the pages are made of with one statement
// each and writes as many bytes into the report folder.
//
//   bench_reports [leagues=10] [teams=100] [races=36]
#include "bench_season.h"
#include "base/app_globals.h"
#include "racing/posting.h"
#include "racing/races.h"
#include "reports/league_standings.h"
#include "reports/report_files.h"
#include "shell/console_presenter.h"
#include "store/connection.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

qint64 bytesIn(const QStringList& files)
{
    qint64 bytes = 0;
    for (const QString& file : files)
        bytes += QFileInfo(gReportsPath + u'/' + file).size();
    return bytes;
}

// One SELECT of the season's rows of the league and one write of the bytes the pages hold.
double floorMs(int16_t leagueNmbr, qint64 bytes)
{
    QElapsedTimer timer;
    timer.start();
    IDatabase db;
    db.OpenResultSet(u"SELECT * FROM team_results WHERE league_nmbr = %1"_s.arg(leagueNmbr));
    db.OpenResultSet(u"SELECT * FROM team_results_summary WHERE league_nmbr = %1"_s.arg(leagueNmbr));
    QFile out(gReportsPath + u"/floor.html"_s);
    out.open(QIODevice::WriteOnly | QIODevice::Truncate);
    out.write(QByteArray(bytes, 'x'));
    out.close();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const int leagues = argc > 1 ? std::atoi(argv[1]) : 10;
    const int teams = argc > 2 ? std::atoi(argv[2]) : 100;
    const int races = argc > 3 ? std::atoi(argv[3]) : 36;

    QTemporaryDir dir;
    ConsolePresenter console(Answer::Yes);
    if (!openBenchDataFile(dir.path(), console))
        return 1;
    QElapsedTimer timer;
    timer.start();
    buildBenchSeason(leagues, teams, races);
    for (int race = 0; race < races; ++race) {
        cRaces record;
        record.load(static_cast<int16_t>(500 + race));
        postRace(record);
    }
    std::printf("season: %d leagues x %d teams x %d cars, %d races posted (in %lld ms)\n", leagues, teams,
                kBenchCarsPerTeam, races, static_cast<long long>(timer.elapsed()));

    // Every column League Standings knows.
    IDatabase db;
    db.execute(u"DELETE FROM report_columns WHERE report_nmbr = 2"_s);
    const int columns[] = {13, 33, 34, 14, 9, 15, 16, 17, 18, 19, 20, 21, 22};
    for (int i = 0; i < 13; ++i)
        db.execute(u"INSERT INTO report_columns VALUES (2, %1, %2)"_s.arg(columns[i]).arg(i + 1));

    const auto lastRace = static_cast<int16_t>(500 + races - 1);
    clearOpenedReportFiles();
    timer.restart();
    leagueStandingsReport(500, lastRace, false);
    const double pageMs = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    const QStringList written = openedReportFiles();
    const qint64 bytes = bytesIn(written);
    const double floor = floorMs(500, bytes);
    std::printf("League Standings with every column and its team pages: %.1f ms (%lld files, %lld bytes)\n", pageMs,
                static_cast<long long>(written.size()), static_cast<long long>(bytes));
    std::printf("floor (one SELECT of the rows, one write of the bytes): %.1f ms\n", floor);
    std::printf("standings/floor = %.2f\n", pageMs / floor);
    std::printf("boxes shown: %d\n", console.failures());
    gConnection->CloseConnection();
    return console.failures() == 0 ? 0 : 1;
}
