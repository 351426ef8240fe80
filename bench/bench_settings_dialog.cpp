// The settings with 1,000 cars, 1,000 drivers and 50 raceways: opened for the first time and again, each
// tab shown, a car deleted, and closed, on a dashboard of eight tracks. Each step lasts from the user's
// action until the window is painted. The yardstick is the bare statement behind the list of the cars.

#include "FreezeFigures.h"
#include "dialogs/CKelmoSettings.h"
#include "race/CRaceSettings.h"
#include "shell/CKelmoMainDialog.h"
#include "support/ModalAnswers.h"
#include "support/ScriptedQuestions.h"
#include "support/StoredSetup.h"

#include <QPushButton>
#include <QTabWidget>
#include <QTreeView>

namespace {

constexpr int Entries = 1000;
constexpr int Rounds = 5;

const char ListStatement[] = "SELECT name, scale, distanceDriven FROM cars ORDER BY name ASC";

bool fillDatabase()
{
    StoredSetup setup(8);
    setup.write();
    DatabaseFile file;
    return file.exec("BEGIN") &&
           insertRows(file, Entries, "INSERT INTO cars(name, scale) SELECT 'Wagen ' || i, 32 FROM n") &&
           insertRows(file, Entries, "INSERT INTO driver(name) SELECT 'Fahrer Nr. ' || i FROM n") &&
           insertRows(
               file, 50,
               "INSERT INTO raceways(name, noOfTracks, currentRw) SELECT 'Bahn ' || i, 2, '' FROM n") &&
           file.exec("COMMIT");
}

void useDialog(QDialog* dialog, Figures& figures)
{
    auto* tabs = dialog->findChild<QTabWidget*>("tabs");
    for (int tab = 0; tab < tabs->count(); ++tab) {
        figures.measure("tab_" + std::to_string(tab), [&] {
            tabs->setCurrentIndex(tab);
            painted(dialog);
        });
    }
    auto* cars = dialog->findChild<QTreeView*>("carTree");
    cars->setCurrentIndex(cars->model()->index(Entries / 2, 0));
    figures.measure("delete_car", [&] {
        dialog->findChild<QPushButton*>("deleteCar")->click();
        painted(dialog);
    });
}

void openAndUse(CKelmoMainDialog& main, Figures& figures, const std::string& name)
{
    ModalAnswers user;
    QElapsedTimer opening;
    QElapsedTimer closing;
    user.expect([&](QDialog* dialog) {
        painted(dialog);
        figures.add(name, opening);
        useDialog(dialog, figures);
        closing.start();
        dialog->findChild<QPushButton*>("okButton")->click();
    });
    opening.start();
    QMetaObject::invokeMethod(&main, "showSettings", Qt::DirectConnection);
    painted(&main);
    figures.add("ok", closing);
}

void aThousandCars(benchmark::State& state)
{
    if (!fillDatabase()) {
        state.SkipWithError("no database");
        return;
    }
    CSettings settings;
    settings.read();
    CRaceSettings rules;
    rules.readDefaults();
    Figures figures;
    for (auto _ : state) {
        CKelmoMainDialog main(&settings, &rules);
        auto script = std::make_unique<CScriptedQuestions>();
        script->answerIsYes = true;
        main.findChild<CKelmoSettings*>()->setUserQuestions(std::move(script));
        main.resize(1920, 1080);
        main.show();
        painted(&main);
        figures.measure("bare_statement", [&state] {
            if (readRows(ListStatement, 3) < Entries / 2)
                state.SkipWithError("not the list that was meant");
        });
        openAndUse(main, figures, "open_first");
        openAndUse(main, figures, "open_again");
    }
    figures.tell(state);
    closeDatabase();
}

BENCHMARK(aThousandCars)->Iterations(Rounds)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char* argv[])
{
    return runWithWindows(argc, argv);
}
