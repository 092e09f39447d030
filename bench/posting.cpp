// Posting benchmark: builds a synthetic season in a temporary application folder and times the
// posting of races. Not a test: it prints milliseconds.
//
//   bench_posting [leagues=10] [teams=100] [races=36]
#include "base/app_globals.h"
#include "league/league.h"
#include "racing/posting.h"
#include "racing/races.h"
#include "shell/console_presenter.h"
#include "store/connection.h"
#include "store/schema.h"
#include "store/transaction.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int kCars = 43;
constexpr int kCarsPerTeam = 8;

void run(IDatabase& db, const QString& sql)
{
    if (!db.execute(sql)) {
        std::fprintf(stderr, "failed: %s\n", qPrintable(sql));
        std::exit(1);
    }
}

void buildSeason(int leagues, int teamsPerLeague, int races)
{
    IDatabase db;
    QRandomGenerator random(20021);
    cTransaction transaction;
    run(db, u"INSERT INTO scoring_type VALUES (500, 'Bench', 5, 10, 3)"_s);
    for (int place = 1; place <= kCars; ++place)
        run(db, u"INSERT INTO scoring_points VALUES (500, %1, %2, %3)"_s.arg(place).arg(std::max(0, 180 - 4 * place))
                    .arg(place <= 3 ? 4 - place : 0));
    run(db, u"INSERT INTO scoring_top_points VALUES (500, 2, 25, 5)"_s);
    run(db, u"INSERT INTO scoring_top_points VALUES (500, 3, 50, 10)"_s);
    for (int car = 0; car < kCars; ++car)
        run(db, u"INSERT INTO cars VALUES (%1, '%2', 'Owner', 'Make', 'Sponsor', 'Driver %2', 1, 1, 1, 1000)"_s
                    .arg(500 + car).arg(car + 1));
    int team = 500;
    for (int league = 0; league < leagues; ++league) {
        run(db, u"INSERT INTO leagues VALUES (%1, 'League %1', 'L', 1, 2, 500, 0, 2, 1)"_s.arg(500 + league));
        for (int t = 0; t < teamsPerLeague; ++t, ++team) {
            run(db, u"INSERT INTO teams VALUES (%1, 'Team %1', 'Owner', '', '', 1, 1, '', '', '', '', '')"_s.arg(team));
            run(db, u"INSERT INTO league_teams VALUES (%1, %2)"_s.arg(500 + league).arg(team));
            QList<int> picked;
            while (picked.size() < kCarsPerTeam) {
                const int car = 500 + static_cast<int>(random.bounded(kCars));
                if (!picked.contains(car))
                    picked << car;
            }
            for (int car : picked)
                run(db, u"INSERT INTO team_car VALUES (%1, %2, '2002-01-01', NULL, 1000, 1000, 1)"_s.arg(team).arg(car));
        }
    }
    const QDate start(2002, 2, 17);
    for (int race = 0; race < races; ++race) {
        run(db, u"INSERT INTO races VALUES (%1, 'Race %2', 'Track', '%3', 1, 1, 2)"_s.arg(500 + race).arg(race + 1)
                    .arg(start.addDays(7 * race).toString(Qt::ISODate)));
        QList<int> order;
        for (int car = 0; car < kCars; ++car)
            order << 500 + car;
        for (int i = kCars - 1; i > 0; --i)
            order.swapItemsAt(i, static_cast<int>(random.bounded(i + 1)));
        for (int place = 1; place <= kCars; ++place)
            run(db, u"INSERT INTO results VALUES (%1, %2, %3, %4, %5, %6, 0)"_s.arg(500 + race).arg(order[place - 1])
                        .arg(place).arg((place * 7) % kCars + 1).arg(place == 5 ? 1 : 0)
                        .arg(place <= 4 ? 50 - place * 10 : 0));
    }
    transaction.commit();
}

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
    installPresenter(&console);
    setApplicationFolder(dir.path());
    makeApplicationFolders();
    QString error;
    if (!createDataFile(dataFilePath(), error) || !openDatabase()) {
        std::fprintf(stderr, "cannot make the data file: %s\n", qPrintable(error));
        return 1;
    }
    QElapsedTimer timer;
    timer.start();
    buildSeason(leagues, teams, races);
    std::printf("season: %d leagues x %d teams x %d cars, %d races of %d results (built in %lld ms)\n", leagues, teams,
                kCarsPerTeam, races, kCars, static_cast<long long>(timer.elapsed()));

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
