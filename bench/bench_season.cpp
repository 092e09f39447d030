#include "bench_season.h"
#include "base/app_globals.h"
#include "base/messages.h"
#include "shell/console_presenter.h"
#include "store/connection.h"
#include "store/schema.h"
#include "store/transaction.h"

#include <QDate>
#include <QRandomGenerator>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

void run(IDatabase& db, const QString& sql)
{
    if (!db.execute(sql)) {
        std::fprintf(stderr, "failed: %s\n", qPrintable(sql));
        std::exit(1);
    }
}

} // namespace

void buildBenchSeason(int leagues, int teamsPerLeague, int races)
{
    IDatabase db;
    QRandomGenerator random(20021);
    cTransaction transaction;
    run(db, u"INSERT INTO scoring_type VALUES (500, 'Bench', 5, 10, 3)"_s);
    for (int place = 1; place <= kBenchCars; ++place)
        run(db, u"INSERT INTO scoring_points VALUES (500, %1, %2, %3)"_s.arg(place).arg(std::max(0, 180 - 4 * place))
                    .arg(place <= 3 ? 4 - place : 0));
    run(db, u"INSERT INTO scoring_top_points VALUES (500, 2, 25, 5)"_s);
    run(db, u"INSERT INTO scoring_top_points VALUES (500, 3, 50, 10)"_s);
    for (int car = 0; car < kBenchCars; ++car)
        run(db, u"INSERT INTO cars VALUES (%1, '%2', 'Owner', 'Make', 'Sponsor', 'Driver %2', 1, 1, 1, 1000)"_s
                    .arg(500 + car).arg(car + 1));
    int team = 500;
    for (int league = 0; league < leagues; ++league) {
        run(db, u"INSERT INTO leagues VALUES (%1, 'League %1', 'L', 1, 2, 500, 0, 2, 1)"_s.arg(500 + league));
        for (int t = 0; t < teamsPerLeague; ++t, ++team) {
            run(db, u"INSERT INTO teams VALUES (%1, 'Team %1', 'Owner', '', '', 1, 1, '', '', '', '', '')"_s.arg(team));
            run(db, u"INSERT INTO league_teams VALUES (%1, %2)"_s.arg(500 + league).arg(team));
            QList<int> picked;
            while (picked.size() < kBenchCarsPerTeam) {
                const int car = 500 + static_cast<int>(random.bounded(kBenchCars));
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
        for (int car = 0; car < kBenchCars; ++car)
            order << 500 + car;
        for (int i = kBenchCars - 1; i > 0; --i)
            order.swapItemsAt(i, static_cast<int>(random.bounded(i + 1)));
        for (int place = 1; place <= kBenchCars; ++place)
            run(db, u"INSERT INTO results VALUES (%1, %2, %3, %4, %5, %6, 0)"_s.arg(500 + race).arg(order[place - 1])
                        .arg(place).arg((place * 7) % kBenchCars + 1).arg(place == 5 ? 1 : 0)
                        .arg(place <= 4 ? 50 - place * 10 : 0));
    }
    transaction.commit();
}


bool openBenchDataFile(const QString& folder, ConsolePresenter& console)
{
    installPresenter(&console);
    setApplicationFolder(folder);
    makeApplicationFolders();
    QString error;
    if (!createDataFile(dataFilePath(), error) || !openDatabase()) {
        std::fprintf(stderr, "cannot make the data file: %s\n", qPrintable(error));
        return false;
    }
    return true;
}
