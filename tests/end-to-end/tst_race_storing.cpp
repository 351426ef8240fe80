#include "data/CCarList.h"
#include "race/CRace.h"
#include "shell/CKelmoMainDialog.h"
#include "support/DatabaseFile.h"
#include "support/ModalAnswers.h"
#include "support/RunningProgram.h"
#include "support/StoredSetup.h"

#include <QAction>
#include <QTest>
#include <QTreeView>

namespace {

constexpr int TrackLength = 250; // of the first track, centimetres; the second is twice as long

/** Two tracks with a driver and a car of their own; everything is stored that can be. */
void setUp()
{
    StoredSetup setup(2);
    setup.rules.setMonitorDistanceDriven(true);
    setup.rules.setMonitorFastestLap(true);
    CCarList cars;
    for (int track = 0; track < 2; ++track) {
        CCar car;
        car.setName(track == 0 ? "GT" : "LMP");
        cars.addCar(car);
        setup.rules.setCar(track, cars.carAt(cars.rowOfName(car.name())));
        setup.raceway.tracks[track].length = TrackLength * (track + 1);
    }
    setup.write();
}

bool startRecordedRace(RunningProgram& program, const QString& name)
{
    QAction* simulator = program.menu()->action(CMainMenu::Simulator);
    if (!simulator->isChecked())
        simulator->trigger();
    const bool started = QMetaObject::invokeMethod(&program.race(), "vStartRecordedRace",
                                                   Qt::DirectConnection, Q_ARG(QString, name));
    QElapsedTimer sinceStart;
    sinceStart.start();
    return started && QTest::qWaitFor([&] { return sinceStart.elapsed() > 5; });
}

QStringList storedLaps()
{
    return DatabaseFile().rows("SELECT r.name, d.name, t.noOfTrack, c.name, l.lapNumber, l.time FROM laps l "
                               "JOIN raceParticipants p ON p.id = l.participantId "
                               "JOIN races r ON r.id = p.raceId JOIN driver d ON d.id = p.driverId "
                               "JOIN cars c ON c.id = p.carId JOIN tracks t ON t.id = p.trackId "
                               "ORDER BY l.id");
}

QStringList rows(const QString& start, const QVector<int>& lapTimes)
{
    QStringList texts;
    for (int i = 0; i < lapTimes.size(); ++i)
        texts << QStringLiteral("%1|%2|%3").arg(start).arg(i + 1).arg(lapTimes.at(i));
    return texts;
}

int fastest(const QVector<int>& lapTimes)
{
    return *std::min_element(lapTimes.begin(), lapTimes.end());
}

} // namespace

/** What the races of the whole program leave in its file. */
class tst_race_storing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aRecordedRaceStandsInTheFileWithExactlyTheLapsThatWereShown();
    void distancesAndFastestLapsGrowOverTwoRacesAndTheAnalyzerShowsThem();
};

void tst_race_storing::aRecordedRaceStandsInTheFileWithExactlyTheLapsThatWereShown()
{
    setUp();
    RunningProgram program;
    QVERIFY(startRecordedRace(program, "Großes Finale"));
    for (const int track : {1, 2, 1, 1, 2, 1, 2})
        program.cross(track);
    QCOMPARE(program.shownLaps(1).size(), 3);
    QCOMPARE(program.shownLaps(2).size(), 2);
    QCOMPARE(DatabaseFile().value("SELECT COUNT(*) FROM races"), QString("0"));

    program.menu()->action(CMainMenu::RecordedRace)->trigger();

    QCOMPARE(DatabaseFile().value("SELECT date FROM races"),
             program.race().raceDateTime().toString(Qt::ISODate));
    QCOMPARE(storedLaps(), rows("Großes Finale|Anna|1|GT", program.shownLaps(1)) +
                               rows("Großes Finale|Ben|2|LMP", program.shownLaps(2)));

    QVERIFY(program.startRace()); // a quick race leaves no race behind
    program.cross(1);
    program.cross(1);
    program.stopRace();
    QCOMPARE(storedLaps().size(), 5);
    QCOMPARE(DatabaseFile().value("SELECT COUNT(*) FROM races"), QString("1"));
}

void tst_race_storing::distancesAndFastestLapsGrowOverTwoRacesAndTheAnalyzerShowsThem()
{
    setUp();
    RunningProgram program;
    QVector<int> laps[2];
    for (int race = 0; race < 2; ++race) {
        QVERIFY(program.startRace());
        for (const int track : {1, 2, 1, 2, 1})
            program.cross(track, 20 + 20 * race);
        program.stopRace();
        for (const int track : {0, 1})
            laps[track] += program.shownLaps(track + 1);
    }
    QCOMPARE(laps[0].size(), 4);
    QCOMPARE(laps[1].size(), 2);

    QCOMPARE(
        DatabaseFile().rows("SELECT name, distanceDriven FROM cars WHERE name IN ('GT', 'LMP') "
                            "ORDER BY name"),
        (QStringList{QString("GT|%1").arg(4 * TrackLength), QString("LMP|%1").arg(2 * 2 * TrackLength)}));
    QCOMPARE(DatabaseFile().rows(
                 "SELECT t.noOfTrack, f.time FROM fastestLapTimes f JOIN tracks t ON t.id = f.trackId "
                 "ORDER BY t.noOfTrack"),
             (QStringList{QString("1|%1").arg(fastest(laps[0])), QString("2|%1").arg(fastest(laps[1]))}));

    ModalAnswers user;
    QStringList shown;
    user.expect([&](QDialog* dialog) {
        const QAbstractItemModel* model = dialog->findChild<QTreeView*>("treeView")->model();
        for (int row = 0; row < model->rowCount(); ++row)
            shown << model->index(row, 0).data().toString() + ' ' + model->index(row, 3).data().toString();
        dialog->close();
    });
    program.pressKey(Qt::Key_A, Qt::ControlModifier);
    shown.sort();
    QCOMPARE(shown, (QStringList{QString("Anna %1").arg(fastest(laps[0])),
                                 QString("Ben %1").arg(fastest(laps[1]))}));
}

QTEST_APPLESS_MAIN(tst_race_storing)
#include "tst_race_storing.moc"
