// Posting benchmark: builds a synthetic season in a temporary application folder and times the
// posting of races. Not a test: it prints milliseconds.
//
//   bench_posting [leagues=10] [teams=100] [races=36]
#include "bench_season.h"
#include "racing/posting.h"
#include "racing/races.h"
#include "shell/console_presenter.h"
#include "store/connection.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

double postMs(int16_t raceNmbr)
{
    cRaces race;
    race.load(raceNmbr);
    QElapsedTimer timer;
    timer.start();
    postRace(race);
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
    std::printf("season: %d leagues x %d teams x %d cars, %d races of %d results (built in %lld ms)\n", leagues, teams,
                kBenchCarsPerTeam, races, kBenchCars, static_cast<long long>(timer.elapsed()));

    double total = 0;
    double slowest = 0;
    for (int race = 0; race < races; ++race) {
        const double ms = postMs(static_cast<int16_t>(500 + race));
        total += ms;
        slowest = std::max(slowest, ms);
    }
    std::printf("posting race by race: %.1f ms per race on average, %.1f ms the slowest\n", total / races, slowest);

    cRaces first;
    first.load(500);
    timer.restart();
    postResults(first);
    std::printf("cascade re-post from the first race (%d races): %lld ms\n", races,
                static_cast<long long>(timer.elapsed()));

    IDatabase db;
    db.OpenResultSet(u"SELECT count(*) as n FROM team_results"_s);
    std::printf("team_results rows: %d; boxes shown: %d\n", db.fields(u"n"_s).toInt32(), console.failures());
    gConnection->CloseConnection();
    return console.failures() == 0 ? 0 : 1;
}
