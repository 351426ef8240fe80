#include "data/CRaceway.h"
#include "io/CLtAt2560Io.h"
#include "io/CParallelPortIo.h"
#include "io/CRaceControlIo.h"
#include "io/CRacewayIoFactory.h"
#include "io/TestPort.h"
#include "support/StreamBytes.h"
#include "wizard/CRacewayWizard.h"
#include "wizard/WizardDriver.h"

#include <QTest>

namespace {

/** A raceway of two tracks with a value of its own in each field and each mask. */
CRaceway fullRaceway(CRacewayIo& io)
{
    for (int id = 0; id < PortId::Count; ++id) {
        if (PortId::isOutput(id))
            io.setPortState(id, 1 << (id % 8), id % 2 == 0);
        else
            io.setPortState(id, 0x10000 + id, false);
    }
    CRaceway raceway(2);
    raceway.name = QStringLiteral("Nürburg's \"Ring\"");
    raceway.scale = 32;
    raceway.portOpenState = 99;
    raceway.chaosButtonState = 98;
    raceway.chaosButtonAvailable = raceway.chaosPhaseOutputAvailable = true;
    raceway.pwrOffFeatureAvailable = raceway.externalLightsAvailable = true;
    raceway.startAndEndSensorSeparate = true;
    raceway.numberOfSectors = 3;
    raceway.fuelSensorSetup = 4;
    raceway.minTime = 5000;
    raceway.tracks[0].length = 1234;
    raceway.tracks[1].length = 1260;
    raceway.ioSettings = io.writeSettings();
    return raceway;
}

} // namespace

/** The wizard on a raceway that is there already. */
class tst_WizardEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_port.reset(); }

    void cancelReturns0AndLeavesTheRacewayAsItWas();
    void editingWithoutAChangeGivesTheSameRacewayAgain_data();
    void editingWithoutAChangeGivesTheSameRacewayAgain();
    void editingChangesOneSensorAlone();
    void editingTakesAnotherNumberOfTracks();
    void aNewRacewayShowsNothingOfTheOneBefore();
    void aStoredPortThatIsNotThereIsShown();
    void aRacewayOnRaceControlKeepsItsHardwareWithoutTheLibrary();
    void settingsThatAreCutShortDoNoHarm_data();
    void settingsThatAreCutShortDoNoHarm();

private:
    TestPort m_port;
};

void tst_WizardEditing::cancelReturns0AndLeavesTheRacewayAsItWas()
{
    CParallelPortIo io;
    CRaceway raceway = fullRaceway(io);
    const QByteArray before = streamForm(raceway);
    CRacewayWizard wizard;
    const auto changeAndLeave = [](WizardDriver& user) {
        user.describe("Anders", 5);
        user.goToTheEnd();
        user.cancel();
    };
    const auto escape = [](WizardDriver& user) { QTest::keyClick(user.dialog(), Qt::Key_Escape); };
    QCOMPARE(WizardDriver::create(wizard, &raceway, changeAndLeave), 0);
    QCOMPARE(streamForm(raceway), before);
    QCOMPARE(WizardDriver::edit(wizard, &raceway, changeAndLeave), 0);
    QCOMPARE(WizardDriver::edit(wizard, &raceway, escape), 0);
    QCOMPARE(streamForm(raceway), before);
}

void tst_WizardEditing::editingWithoutAChangeGivesTheSameRacewayAgain_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("parallel port") << 1;
    QTest::newRow("IO-Warrior24") << 2;
    QTest::newRow("IO-Warrior40") << 3;
    QTest::newRow("IO-Warrior56") << 7;
    QTest::newRow("AT2560") << 9;
}

void tst_WizardEditing::editingWithoutAChangeGivesTheSameRacewayAgain()
{
    QFETCH(int, type);
    StreamBytes blob;
    blob.int32(type);
    const auto io = CRacewayIoFactory::createFromSettings(blob.bytes());
    if (auto* at2560 = qobject_cast<CLtAt2560Io*>(io.get()))
        at2560->setPortName("/dev/nowhere");
    CRaceway raceway = fullRaceway(*io);
    if (type == CRacewayIo::LtAt2560) { // whose states are numbers of inputs and outputs
        for (int id = 1; id < PortId::Count; ++id)
            io->setPortState(id, PortId::isOutput(id) ? id % 16 : id % 54, id % 2 == 0);
        raceway.ioSettings = io->writeSettings();
    }
    const QByteArray before = streamForm(raceway);
    const int result = WizardDriver::edit(&raceway, [](WizardDriver& user) {
        QCOMPARE(user.field<QLineEdit>("nameEdit")->text(), QString("Nürburg's \"Ring\""));
        user.goToTheEnd();
        user.finish();
    });
    QCOMPARE(result, 1);
    QCOMPARE(streamForm(raceway), before);
}

void tst_WizardEditing::editingChangesOneSensorAlone()
{
    CParallelPortIo io;
    CRaceway raceway = fullRaceway(io);
    WizardDriver::edit(&raceway, [this](WizardDriver& user) {
        QVERIFY(user.goTo("CRwWizardSector2SensorPage 2"));
        QCOMPARE(user.state(), "0x" + QString::number(0x10000 + 42, 16));
        m_port.press(4);
        user.learn();
        user.goToTheEnd();
        user.finish();
    });
    io.setPortState(42, 0x7b, false); // 0x7f is the port at rest
    QCOMPARE(raceway.ioSettings, io.writeSettings());
}

void tst_WizardEditing::editingTakesAnotherNumberOfTracks()
{
    CParallelPortIo io;
    CRaceway raceway = fullRaceway(io);
    CRacewayWizard wizard;
    const auto setTracks = [](int tracks) {
        return [tracks](WizardDriver& user) {
            user.choose("tracksBox", tracks - 1);
            user.goToTheEnd();
            user.finish();
        };
    };
    WizardDriver::edit(wizard, &raceway, setTracks(4));
    QCOMPARE(raceway.tracks.size(), 4);
    QCOMPARE(raceway.tracks.at(1).length, 1260);
    QCOMPARE(raceway.tracks.at(2).length, 0);
    WizardDriver::edit(wizard, &raceway, setTracks(1));
    QCOMPARE(raceway.tracks.size(), 1);
    QCOMPARE(raceway.tracks.at(0).length, 1234);
}

void tst_WizardEditing::aNewRacewayShowsNothingOfTheOneBefore()
{
    CLtAt2560Io io;
    io.setPortName("/dev/box");
    CRaceway edited = fullRaceway(io);
    CRacewayWizard wizard;
    WizardDriver::edit(wizard, &edited, [](WizardDriver& user) { user.goToTheEnd(); });
    CRaceway raceway;
    WizardDriver::create(wizard, &raceway, [](WizardDriver& user) {
        QCOMPARE(user.pageName(), QString("CStartPage"));
        user.type("nameEdit", "Default");
        user.goToTheEnd();
        user.finish();
    });
    QCOMPARE(streamForm(raceway), streamForm(CRaceway()));
}

void tst_WizardEditing::aStoredPortThatIsNotThereIsShown()
{
    CLtAt2560Io io;
    io.setPortName("/dev/gone");
    CRaceway raceway = fullRaceway(io);
    WizardDriver::edit(&raceway, [](WizardDriver& user) {
        user.next();
        QCOMPARE(user.field<QComboBox>("hardwareBox")->currentText(), QString("L&T AT2560"));
        QCOMPARE(user.port(), QString("/dev/gone"));
        user.back();
        user.next();
        QCOMPARE(user.port(), QString("/dev/gone"));
    });
}

void tst_WizardEditing::aRacewayOnRaceControlKeepsItsHardwareWithoutTheLibrary()
{
    CRaceControlIo io;
    io.setPortName(0, "/dev/box-1");
    io.setPortName(3, "/dev/box-4");
    CRaceway raceway = fullRaceway(io);
    raceway.pwrOffFeatureAvailable = raceway.externalLightsAvailable = false; // it has no outputs
    raceway.chaosPhaseOutputAvailable = false;
    const QByteArray before = streamForm(raceway);
    CRacewayWizard wizard;
    WizardDriver::edit(wizard, &raceway, [](WizardDriver& user) {
        user.next();
        QCOMPARE(user.field<QComboBox>("hardwareBox")->currentText(), QString("RaceControl"));
        QCOMPARE(user.port("serialPort1"), QString("/dev/box-1"));
        QCOMPARE(user.port("serialPort2"), QString("nicht vorhanden"));
        QCOMPARE(user.port("serialPort4"), QString("/dev/box-4"));
        user.goToTheEnd();
        user.finish();
    });
    QCOMPARE(streamForm(raceway), before);
    WizardDriver::create(wizard, &raceway, [](WizardDriver& user) {
        user.describe("Bahn", 1);
        user.next();
        QCOMPARE(user.field<QComboBox>("hardwareBox")->findText("RaceControl"), -1);
    });
}

void tst_WizardEditing::settingsThatAreCutShortDoNoHarm_data()
{
    QTest::addColumn<QByteArray>("blob");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("two bytes") << QByteArray(2, '\0');
    for (int type = 0; type <= 10; ++type)
        QTest::newRow(qPrintable(QStringLiteral("type %1 alone").arg(type)))
            << StreamBytes().int32(type).bytes();
    QTest::newRow("all bits set") << QByteArray(291, '\xff');
}

void tst_WizardEditing::settingsThatAreCutShortDoNoHarm()
{
    QFETCH(QByteArray, blob);
    CRaceway raceway;
    raceway.ioSettings = blob;
    raceway.tracks.clear();
    raceway.numberOfSectors = -5;
    raceway.fuelSensorSetup = 99;
    raceway.minTime = 200;
    raceway.pwrOffFeatureAvailable = raceway.externalLightsAvailable = true;
    const int result = WizardDriver::edit(&raceway, [](WizardDriver& user) {
        user.goToTheEnd();
        user.finish();
    });
    QCOMPARE(result, 1);
    QCOMPARE(raceway.tracks.size(), 1);
    QCOMPARE(raceway.numberOfSectors, 1);
    QCOMPARE(raceway.fuelSensorSetup, 4);
    QVERIFY(raceway.ioSettings.size() >= 279);
}

QTEST_MAIN(tst_WizardEditing)
#include "tst_WizardEditing.moc"
