#include "shell/CKelmoMainDialog.h"
#include "shell/CRichLabel.h"
#include "shell/CTrackDisplay.h"
#include "support/Ink.h"
#include "support/RunningProgram.h"
#include "support/SettingsDialogs.h"
#include "support/StoredSetup.h"

#include <QColorDialog>

namespace {

const char* const Fields[] = {"lapCount", "section1",   "section2", "section3", "lastLap",  "bestLap",
                              "status",   "averageLap", "speed",    "fuelBar",  "fuelLabel"};
const QStringList SlotColors{"#ff0000", "#00ff00", "#0000ff", "#ffff00",
                             "#ff00ff", "#00ffff", "#ffffff", "#804020"};
const char CommonColor[] = "#40c080";

/** A raceway with three sectors, on which every field has something to show. */
StoredSetup setupWithSectors(int tracks = 2)
{
    StoredSetup setup(tracks);
    setup.raceway.numberOfSectors = 3;
    for (CRacewayTrack& track : setup.raceway.tracks)
        track.length = 500;
    return setup;
}

const CTrackDisplay* legend(const RunningProgram& program)
{
    for (const auto* panel : program.dialog().findChildren<CTrackDisplay*>()) {
        if (panel->type() == CTrackDisplay::LegendPanel && panel->isVisible())
            return panel;
    }
    qFatal("the dashboard has no legend");
}

QStringList shownFields(const CTrackDisplay* panel)
{
    QStringList shown;
    for (const char* field : Fields) {
        if (panel->findChild<QWidget*>(field)->isVisible())
            shown.append(field);
    }
    return shown;
}

const CRichLabel* label(const CTrackDisplay* panel, const char* name)
{
    return panel->findChild<CRichLabel*>(name);
}

/** @return whether a part of a panel has this colour somewhere. */
bool paints(const RunningProgram& program, int track, const char* part, const QColor& color)
{
    const QImage picture = pictureOf(*program.track(track)->findChild<QWidget*>(part));
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == color.rgb())
                return true;
        }
    }
    return false;
}

/** Presses a button for a colour and chooses it in the box that opens. */
void chooseColor(const DialogUser& user, ModalAnswers& answers, const QString& button, const QColor& color)
{
    answers.expect([color](QDialog* window) {
        qobject_cast<QColorDialog*>(window)->setCurrentColor(color);
        window->accept();
    });
    user.bringUpAndPress(qPrintable(button));
}

} // namespace

/** What each control of the tab for the display does to the panels of the running program. */
class tst_effects_panels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void boxShowsItsFieldAndNoOther_data();
    void boxShowsItsFieldAndNoOther();
    void intermediateTimesTakeThePlaceOfSectorTimes();
    void speedHasItsUnit_data();
    void speedHasItsUnit();
    void panelsHaveTheirSize_data();
    void panelsHaveTheirSize();
    void everySlotHasItsColor();
    void commonColorIsThatOfBestLapStatusAndReserve();
};

void tst_effects_panels::boxShowsItsFieldAndNoOther_data()
{
    QTest::addColumn<QStringList>("onTrack");
    QTest::addColumn<QStringList>("onLegend");
    const auto row = [](const char* control, const QStringList& fields) {
        QTest::newRow(control) << fields << fields;
    };
    row("displayShowLaps", {"lapCount"});
    row("displayShowLapTime", {"lastLap"});
    row("displayShowBestLapTime", {"bestLap"});
    row("displayShowStatus", {"status"});
    row("displayShowAverageLapTime", {"averageLap"});
    row("displayShowSectorTimes", {"section1", "section2", "section3"});
    row("displaySpeed", {"speed"});
    QTest::newRow("displayFuel") << QStringList("fuelBar") << QStringList("fuelLabel");
}

void tst_effects_panels::boxShowsItsFieldAndNoOther()
{
    QFETCH(QStringList, onTrack);
    QFETCH(QStringList, onLegend);
    setupWithSectors().write();
    RunningProgram program;
    const auto set = [&program](bool on) {
        inSettings(program,
                   [on](const DialogUser& user, ModalAnswers&) { user.enter(QTest::currentDataTag(), on); });
    };
    const auto added = [](QStringList fields, const QStringList& before) {
        for (const QString& field : before)
            fields.removeOne(field);
        return fields;
    };
    set(false);
    const QStringList track = shownFields(program.track(2));
    const QStringList words = shownFields(legend(program));
    set(true);
    QCOMPARE(added(shownFields(program.track(2)), track), onTrack);
    QCOMPARE(added(shownFields(legend(program)), words), onLegend);
    set(false);
    QCOMPARE(shownFields(program.track(2)), track);
    QCOMPARE(shownFields(legend(program)), words);
}

void tst_effects_panels::intermediateTimesTakeThePlaceOfSectorTimes()
{
    setupWithSectors().write();
    RunningProgram program;
    for (const bool intermediate : {false, true}) {
        inSettings(program, [intermediate](const DialogUser& user, ModalAnswers&) {
            user.enter("displayShowSectorTimes", true);
            user.enter("displayShowIntermediateTimes", intermediate);
        });
        const QString word = intermediate ? "<INT%1>" : "<SEC%1>";
        for (int section = 1; section <= 3; ++section) {
            const QString name = QStringLiteral("section%1").arg(section);
            QCOMPARE(label(legend(program), qPrintable(name))->text(), word.arg(section));
        }
        QVERIFY(program.startRace());
        for (const char* sensor : {"slot1", "slot1Sector2Begin", "slot1Sector3Begin", "slot1"})
            program.tap(sensor);
        const int last = RunningProgram::milliseconds(program.trackText(1, "section3"));
        QVERIFY(last > 0);
        QCOMPARE(program.shownLaps(1).value(0) == last, intermediate);
        program.stopRace();
    }
}

void tst_effects_panels::speedHasItsUnit_data()
{
    QTest::addColumn<QString>("standing");
    QTest::addColumn<QString>("driving"); // half a metre a second
    QTest::newRow("speedDisplayType0") << "0,0 km/h"
                                       << "43,2 km/h";
    QTest::newRow("speedDisplayType1") << "0,00 m/s"
                                       << "0,50 m/s";
    QTest::newRow("speedDisplayType2") << "0,0 mph"
                                       << "26,8 mph";
}

void tst_effects_panels::speedHasItsUnit()
{
    QFETCH(QString, standing);
    QFETCH(QString, driving);
    StoredSetup setup = setupWithSectors();
    setup.settings.setSpeedDisplayType(QByteArray(QTest::currentDataTag()) == "speedDisplayType0" ? 1 : 0);
    setup.write();
    RunningProgram program;
    inSettings(program, [](const DialogUser& user, ModalAnswers&) {
        user.enter("displaySpeed", true);
        user.enter(QTest::currentDataTag(), true);
    });
    QCOMPARE(program.trackText(1, "speed"), standing);
    QVERIFY(program.startRace());
    program.driveLaps({{10000}});
    QCOMPARE(program.trackText(1, "speed"), driving);
    QCOMPARE(program.trackText(2, "speed"), standing);
}

void tst_effects_panels::panelsHaveTheirSize_data()
{
    QTest::addColumn<QSize>("lapCount");
    QTest::addColumn<int>("lapCountFont");
    QTest::addColumn<QSize>("time");
    QTest::addColumn<int>("statusHeight");
    QTest::addColumn<int>("boxHeight");
    QTest::addColumn<int>("barHeight");
    QTest::addColumn<int>("legendFont");
    QTest::newRow("sehr groß") << QSize(320, 180) << 150 << QSize(320, 60) << 150 << 40 << 50 << 40;
    QTest::newRow("groß") << QSize(182, 85) << 80 << QSize(182, 35) << 55 << 25 << 30 << 25;
    QTest::newRow("medium") << QSize(135, 63) << 60 << QSize(135, 26) << 41 << 19 << 22 << 18;
    QTest::newRow("klein") << QSize(91, 42) << 40 << QSize(91, 17) << 27 << 13 << 15 << 12;
}

void tst_effects_panels::panelsHaveTheirSize()
{
    StoredSetup setup;
    setup.settings.setDisplaySize(QByteArray(QTest::currentDataTag()) == "medium" ? 4 : 3);
    setup.write();
    RunningProgram program;
    inSettings(program, [](const DialogUser& user, ModalAnswers&) {
        user.enter("displaySize", user.control<QComboBox>("displaySize")->findText(QTest::currentDataTag()));
    });
    const CTrackDisplay* panel = program.track(1);
    QTEST(label(panel, "lapCount")->sizeHint(), "lapCount");
    QTEST(label(panel, "lapCount")->pointSize(), "lapCountFont");
    QTEST(label(panel, "lastLap")->sizeHint(), "time");
    QTEST(label(panel, "status")->sizeHint().height(), "statusHeight");
    QTEST(panel->findChild<QWidget*>("driverBox")->minimumHeight(), "boxHeight");
    QTEST(panel->findChild<QWidget*>("fuelBar")->maximumHeight(), "barHeight");
    QTEST(label(legend(program), "lastLap")->pointSize(), "legendFont");
    QCOMPARE(label(panel, "lapCount")->size(), label(panel, "lapCount")->sizeHint());
}

void tst_effects_panels::everySlotHasItsColor()
{
    StoredSetup setup = setupWithSectors(8);
    setup.settings.setDisplayShowAverageLapTime(true);
    setup.settings.setDisplayShowSectorTimes(true);
    setup.settings.setDisplaySpeed(true);
    setup.settings.setDisplayFuel(true);
    setup.settings.setQrCodeHandlingEnabled(true);
    setup.write();
    RunningProgram program;
    inSettings(program, [](const DialogUser& user, ModalAnswers& answers) {
        for (int slot = 1; slot <= 8; ++slot)
            chooseColor(user, answers, QStringLiteral("colorSlot%1").arg(slot), SlotColors[slot - 1]);
    });
    for (int track = 1; track <= 8; ++track) {
        for (const char* part :
             {"lapCount", "section1", "section2", "section3", "lastLap", "averageLap", "speed", "fuelBar",
              "driverBox", "carBox", "driverQrButton", "carQrButton"}) {
            const QString where = QStringLiteral("%1 of track %2").arg(part).arg(track);
            QVERIFY2(paints(program, track, part, SlotColors[track - 1]), qPrintable(where));
            QVERIFY2(!paints(program, track, part, "#ffc80a"), qPrintable(where));
        }
        for (const char* part : {"bestLap", "status"})
            QVERIFY(paints(program, track, part, "#ff3214"));
    }
}

void tst_effects_panels::commonColorIsThatOfBestLapStatusAndReserve()
{
    StoredSetup setup = setupWithSectors();
    setup.settings.setDisplayFuel(true);
    CFuelSettings fuel;
    fuel.setFuelFunction(CFuelSettings::FuelSameForAll);
    fuel.setMaxFuelUsageAmount(79);
    fuel.setMinFuelUsageAmount(1);
    setup.rules.setFuelSettings(fuel);
    setup.write();
    RunningProgram program;
    inSettings(program, [](const DialogUser& user, ModalAnswers& answers) {
        chooseColor(user, answers, "colorBestLapAndStatus", QColor(CommonColor));
    });
    QVERIFY(program.startRace());
    program.driveLaps({{4000}});
    for (const int track : {1, 2}) {
        for (const char* part : {"bestLap", "status"})
            QVERIFY2(paints(program, track, part, QColor(CommonColor)), part);
        for (const char* part : {"lapCount", "lastLap", "fuelBar"})
            QVERIFY2(!paints(program, track, part, QColor(CommonColor)), part);
    }
    QCOMPARE(program.fuel(1), 21);
    program.driveLaps({{9000}});
    QCOMPARE(program.fuel(1), 20);
    QVERIFY(paints(program, 1, "fuelBar", QColor(CommonColor)));
    QVERIFY(!paints(program, 1, "fuelBar", "#ffc80a"));
    QVERIFY(!paints(program, 2, "fuelBar", QColor(CommonColor)));
}

QTEST_APPLESS_MAIN(tst_effects_panels)
#include "tst_effects_panels.moc"
