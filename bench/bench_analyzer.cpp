// A list of 100,000 fastest laps in the analyzer: shown, filtered, sorted by each column, exported. Each
// step lasts from the user's action until the window is painted; the longest of them all is how long the
// window stands still. The yardstick is the bare statement behind the list, in the same run.

#include "FreezeFigures.h"
#include "results/CKelmoRaceAnalyzer.h"
#include "shell/CKelmoMainDialog.h"
#include "support/ModalAnswers.h"
#include "support/ScriptedQuestions.h"
#include "support/StoredSetup.h"

#include <QComboBox>
#include <QHeaderView>
#include <QTreeView>

namespace {

constexpr int Records = 100000;
constexpr int Drivers = 50;
constexpr int Cars = 200;
constexpr int Rounds = 5;

const char ListStatement[] = "SELECT d.name, c.name, t.noOfTrack, f.time FROM fastestLapTimes f "
                             "LEFT OUTER JOIN cars c ON c.id=f.carId "
                             "LEFT OUTER JOIN driver d ON d.id=f.driverId "
                             "LEFT OUTER JOIN tracks t ON t.id=f.trackId WHERE f.racewayId=1 "
                             "ORDER BY f.time ASC";

/** 100,000 records of the current raceway, and as many of another. */
bool fillDatabase()
{
    StoredSetup setup(8);
    setup.write();
    DatabaseFile file;
    return file.exec("BEGIN") && file.exec("DELETE FROM driver") && file.exec("DELETE FROM cars") &&
           insertRows(file, Drivers, "INSERT INTO driver(id, name) SELECT i, 'Fahrer Nr. ' || i FROM n") &&
           insertRows(file, Cars, "INSERT INTO cars(id, name) SELECT i, 'Wagen ' || i FROM n") &&
           file.exec("INSERT INTO raceways(name, noOfTracks, currentRw) VALUES('Zweitbahn', 2, '')") &&
           insertRows(file, 2 * Records,
                      "INSERT INTO fastestLapTimes(racewayId, trackId, carId, driverId, time) "
                      "SELECT 1 + i % 2, 1 + i % 8, 1 + abs(random()) % 200, 1 + abs(random()) % 50, "
                      "5000 + abs(random()) % 60000 FROM n") &&
           file.exec("COMMIT");
}

void useAnalyzer(CKelmoRaceAnalyzer* analyzer, Figures& figures)
{
    const auto box = [analyzer](const char* name) { return analyzer->findChild<QComboBox*>(name); };
    const auto choose = [&](const std::string& figure, const char* name, int index) {
        figures.measure(figure, [&] {
            box(name)->setCurrentIndex(index);
            painted(analyzer);
        });
    };
    auto* header = analyzer->findChild<QTreeView*>("treeView")->header();
    const char* const columns[] = {"driver", "car", "track", "time"};
    for (int column = 0; column < 4; ++column) {
        for (const auto order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
            figures.measure(std::string("sort_by_") + columns[column], [&] {
                header->setSortIndicator(column, order);
                painted(analyzer);
            });
        }
    }
    header->setSortIndicator(0, Qt::AscendingOrder);
    choose("filter_track", "trackFilter", 3);
    choose("any_track_sorted_by_driver", "trackFilter", 0);
    choose("filter_driver", "driverFilter", 7);
    choose("any_driver", "driverFilter", 0);
    choose("filter_car", "carFilter", 9);
    choose("any_car", "carFilter", 0);
    choose("other_raceway", "racewayFilter", 1 - box("racewayFilter")->currentIndex());
    figures.measure("export", [&] {
        QMetaObject::invokeMethod(analyzer, "vExportFastestLapList", Qt::DirectConnection);
    });
    painted(analyzer);
}

void aLongList(benchmark::State& state)
{
    if (!fillDatabase()) {
        state.SkipWithError("no database");
        return;
    }
    CSettings settings;
    settings.read();
    CRaceSettings rules;
    rules.readDefaults();
    {
        CKelmoMainDialog dialog(&settings, &rules);
        dialog.resize(1920, 1080);
        dialog.show();
        painted(&dialog);
        auto* analyzer = dialog.findChild<CKelmoRaceAnalyzer*>();
        auto questions = std::make_unique<CScriptedQuestions>();
        questions->fileName = QStringLiteral("list.csv");
        analyzer->setUserQuestions(std::move(questions));
        Figures figures;
        for (auto _ : state) {
            int rows = 0;
            figures.measure("bare_statement", [&rows] { rows = readRows(ListStatement, 4); });
            if (rows != Records)
                state.SkipWithError("not the list that was meant");
            ModalAnswers user;
            QElapsedTimer opening;
            user.expect([&](QDialog* shown) {
                painted(shown);
                figures.add("show", opening);
                useAnalyzer(analyzer, figures);
                shown->close();
            });
            opening.start();
            QMetaObject::invokeMethod(&dialog, "showRaceAnalyzer", Qt::DirectConnection);
        }
        figures.tell(state);
    }
    closeDatabase();
}

BENCHMARK(aLongList)->Iterations(Rounds)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char* argv[])
{
    return runWithWindows(argc, argv);
}
