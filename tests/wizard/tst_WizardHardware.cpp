#include "data/CRaceway.h"
#include "io/CIoWarriorIo.h"
#include "io/CParallelPortIo.h"
#include "io/CRaceControlIo.h"
#include "io/TestPort.h"
#include "support/TestChip.h"
#include "wizard/CRacewayWizard.h"
#include "wizard/WizardDriver.h"

#include <QTest>

#include <memory>

namespace {

QString hexadecimal(quint32 state)
{
    return "0x" + QString::number(state, 16);
}

} // namespace

/** The wizard on hardware whose libraries are there: what it learns of it, and what of none. */
class tst_WizardHardware : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void eachChipOfTheFamilyIsLearned_data();
    void eachChipOfTheFamilyIsLearned();
    void aLampThatIsLitIsNoPartOfALearnedState();
    void aPinWhoseFeatureIsOffIsASensorAgain();
    void aParallelPortKnowsItsOutputsByTheirRegister_data();
    void aParallelPortKnowsItsOutputsByTheirRegister();

    void withoutAChipTheWizardGoesOn();
    void withASilentChipTheWizardGoesOn();
    void aChipPulledInTheMiddleLeavesWhatWasLearned();

    void raceControlIsTheNinthEntryWhereItsLibraryIsThere();
    void theCodesOfARaceControlBoxAreTyped();

private:
    std::unique_ptr<TestChip> m_chip;
    std::unique_ptr<TestPort> m_port;
};

void tst_WizardHardware::initTestCase()
{
    m_chip = std::make_unique<TestChip>();
    m_port = std::make_unique<TestPort>();
}

void tst_WizardHardware::init()
{
    (*m_chip)->setSilent(false);
    QVERIFY(m_chip->plug(TestChip::Warrior40));
    m_port->reset();
}

void tst_WizardHardware::eachChipOfTheFamilyIsLearned_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<unsigned>("product");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("pin");
    QTest::newRow("24") << "IO-Warrior24" << TestChip::Warrior24 << 2 << 15;
    QTest::newRow("40") << "IO-Warrior40" << TestChip::Warrior40 << 3 << 31;
    QTest::newRow("56") << "IO-Warrior56" << TestChip::Warrior56 << 7 << 31;
    QTest::newRow("28") << "IO-Warrior28" << TestChip::Warrior28 << 6 << 17;
    QTest::newRow("100") << "IO-Warrior100" << TestChip::Warrior100 << 8 << 31;
    QTest::newRow("another chip than the chosen one") << "IO-Warrior28" << TestChip::Warrior40 << 6 << 20;
}

void tst_WizardHardware::eachChipOfTheFamilyIsLearned()
{
    QFETCH(QString, entry);
    QFETCH(unsigned, product);
    QFETCH(int, pin);
    QVERIFY(m_chip->plug(product));
    CRaceway raceway;
    quint32 open = 0;
    WizardDriver::create(&raceway, [&](WizardDriver& user) {
        user.describe("Bahn", 1);
        user.next();
        user.choose("hardwareBox", entry);
        QVERIFY(user.goTo("COpenPage"));
        open = (*m_chip)->pins();
        user.learn();
        QCOMPARE(user.state(), hexadecimal(open));
        user.next();
        (*m_chip)->pullLow(1U << pin);
        user.learn();
        (*m_chip)->letGo(1U << pin);
        QCOMPARE(user.state(), hexadecimal(open & ~(1U << pin)));
        user.goToTheEnd();
        user.finish();
    });
    const auto io = raceway.createIo();
    QTEST(io->interfaceType(), "type");
    QCOMPARE(quint32(io->portState(PortId::Open)), open);
    QCOMPARE(quint32(io->portState(1)), open & ~(1U << pin));
    (*m_chip)->pullLow(1U << pin);
    QVERIFY(io->sensorStates().testBit(1));
}

/** The race has put its lamps out or on before one sensor of the raceway is learned again. */
void tst_WizardHardware::aLampThatIsLitIsNoPartOfALearnedState()
{
    constexpr int RedLamp = 1 << 16;
    constexpr int TrackPower = 1 << 20;
    CIoWarriorIo race;
    for (int id = 1; id <= 2; ++id)
        race.setPortState(id, ~(1 << id), false);
    race.setPortState(PortId::redLamp(0), RedLamp, false);
    race.setPortState(PortId::trackPower(1), TrackPower, false);
    race.setOutput(PortId::redLamp(0), false);
    race.setOutput(PortId::trackPower(1), false);
    QCOMPARE(int((*m_chip)->pins()), ~(RedLamp | TrackPower));
    CRaceway raceway(2);
    raceway.externalLightsAvailable = raceway.pwrOffFeatureAvailable = true;
    raceway.ioSettings = race.writeSettings();

    WizardDriver::edit(&raceway, [this](WizardDriver& user) {
        QVERIFY(user.goTo("COpenPage"));
        user.learn();
        QCOMPARE(user.state(), QString("0xffffffff"));
        QVERIFY(user.goTo("CRwWizardSlotPage 2"));
        (*m_chip)->pullLow(1U << 5);
        user.learn();
        (*m_chip)->letGo(1U << 5);
        QCOMPARE(user.state(), hexadecimal(~(1U << 5)));
        user.goToTheEnd();
        user.finish();
    });
    const auto io = raceway.createIo();
    for (const bool isLit : {true, false}) {
        race.setOutput(PortId::redLamp(0), isLit);
        QCOMPARE(io->sensorStates().count(true), 0);
        (*m_chip)->pullLow(1U << 5);
        QVERIFY(io->sensorStates().testBit(2));
        QVERIFY(!io->sensorStates().testBit(1));
        (*m_chip)->letGo(1U << 5);
    }
}

void tst_WizardHardware::aPinWhoseFeatureIsOffIsASensorAgain()
{
    constexpr int Pin = 1 << 16;
    CIoWarriorIo io;
    io.setPortState(PortId::redLamp(0), Pin, false);
    CRaceway raceway(1);
    raceway.externalLightsAvailable = true;
    raceway.ioSettings = io.writeSettings();
    WizardDriver::edit(&raceway, [this](WizardDriver& user) {
        QVERIFY(user.goTo("CAvailableFeaturesPage"));
        user.check("lightsBox", false);
        QVERIFY(user.goTo("CRwWizardSlotPage 1"));
        (*m_chip)->pullLow(Pin);
        user.learn();
        (*m_chip)->letGo(Pin);
        user.goToTheEnd();
        user.finish();
    });
    QCOMPARE(raceway.createIo()->portState(1), ~Pin);
}

void tst_WizardHardware::aParallelPortKnowsItsOutputsByTheirRegister_data()
{
    QTest::addColumn<int>("inputRegister");
    QTest::addColumn<int>("learned");
    QTest::newRow("sensors in a register of their own") << 1 << 0x7b; // bit 2 is the sensor's
    QTest::newRow("sensors and outputs in one register") << 0 << 0x7f;
}

void tst_WizardHardware::aParallelPortKnowsItsOutputsByTheirRegister()
{
    QFETCH(int, inputRegister);
    CParallelPortIo io;
    io.setInputOffset(inputRegister);
    io.setPortState(PortId::redLamp(0), 4, false);
    CRaceway raceway(1);
    raceway.externalLightsAvailable = true;
    raceway.ioSettings = io.writeSettings();
    (*m_port)->write(TestPort::Data, 0x7b);
    (*m_port)->write(TestPort::Status, 0x7b);
    WizardDriver::edit(&raceway, [](WizardDriver& user) {
        QVERIFY(user.goTo("CRwWizardSlotPage 1"));
        user.learn();
        user.goToTheEnd();
        user.finish();
    });
    QTEST(raceway.createIo()->portState(1), "learned");
}

void tst_WizardHardware::withoutAChipTheWizardGoesOn()
{
    (*m_chip)->unplug();
    CRaceway raceway;
    const int result = WizardDriver::create(&raceway, [](WizardDriver& user) {
        user.describe("Bahn", 1);
        user.next();
        user.choose("hardwareBox", "IO-Warrior40");
        for (const char* page : {"COpenPage", "CRwWizardSlotPage 1"}) {
            QVERIFY(user.goTo(page));
            user.learn();
            QCOMPARE(user.state(), QString("0xffffffff"));
        }
        user.goToTheEnd();
        user.finish();
    });
    QCOMPARE(result, 1);
    QCOMPARE(raceway.createIo()->portState(1), -1);
}

void tst_WizardHardware::withASilentChipTheWizardGoesOn()
{
    CRaceway raceway;
    const int result = WizardDriver::create(&raceway, [this](WizardDriver& user) {
        user.describe("Bahn", 1);
        user.next();
        user.choose("hardwareBox", "IO-Warrior40");
        QVERIFY(user.goTo("COpenPage"));
        user.learn();
        user.next();
        (*m_chip)->setSilent(true);
        (*m_chip)->pullLow(1);
        user.learn();
        QCOMPARE(user.state(), QString("0xffffffff")); // that of the last answer
        user.goToTheEnd();
        user.finish();
    });
    QCOMPARE(result, 1);
}

void tst_WizardHardware::aChipPulledInTheMiddleLeavesWhatWasLearned()
{
    CRaceway raceway;
    const int result = WizardDriver::create(&raceway, [this](WizardDriver& user) {
        user.describe("Bahn", 2);
        user.next();
        user.choose("hardwareBox", "IO-Warrior40");
        QVERIFY(user.goTo("CRwWizardSlotPage 1"));
        (*m_chip)->pullLow(1);
        user.learn();
        (*m_chip)->unplug();
        user.next();
        user.learn();
        user.goToTheEnd();
        user.finish();
    });
    QCOMPARE(result, 1);
    QCOMPARE(raceway.createIo()->portState(1), ~1);
}

void tst_WizardHardware::raceControlIsTheNinthEntryWhereItsLibraryIsThere()
{
    CRaceway raceway;
    WizardDriver::create(&raceway, [](WizardDriver& user) {
        user.describe("Bahn", 1);
        user.next();
        const auto* box = user.field<QComboBox>("hardwareBox");
        QCOMPARE(box->count(), 9);
        QCOMPARE(box->itemText(8), QString("RaceControl"));
        user.choose("hardwareBox", 8);
        user.next();
        user.check("chaosBox");
        user.check("separateEndBox");
        user.choose("fuelBox", 4);
        user.choose("sectorBox", 2);
        QCOMPARE(
            user.goToTheEnd(),
            QStringList({"CAvailableFeaturesPage", "COpenPage", "CChaosButtonPage", "CRwWizardSlotPage 1",
                         "CRwWizardFuelSensorPage 1", "CRwWizardFuelFinishedSensorPage 1",
                         "CRwWizardSector2SensorPage 1", "CRwWizardSector3SensorPage 1",
                         "CRwWizardEndSensorPage 1", "CRwWizardDebounceTimePage", "CFinishPage"}));
        user.finish();
    });
    QCOMPARE(raceway.createIo()->interfaceType(), int(CRacewayIo::RaceControl));
}

void tst_WizardHardware::theCodesOfARaceControlBoxAreTyped()
{
    CRaceway raceway;
    WizardDriver::create(&raceway, [](WizardDriver& user) {
        user.describe("Bahn", 1);
        user.next();
        user.choose("hardwareBox", "RaceControl");
        user.typePort("/dev/box-1");
        QCOMPARE(user.port("serialPort4"), QString("nicht vorhanden"));
        user.typePort("/dev/box-4", "serialPort4");
        QVERIFY(user.goTo("COpenPage"));
        user.type("stateEdit", "0x300");
        user.learn(); // nothing is read, and nothing is stored
        QCOMPARE(user.state(), QString("0x0"));
        user.next();
        user.type("stateEdit", "0x301");
        user.goToTheEnd();
        user.finish();
    });
    CRaceControlIo expected;
    expected.setPortName(0, "/dev/box-1");
    expected.setPortName(3, "/dev/box-4");
    expected.setPortState(PortId::Open, 0x300, false);
    expected.setPortState(1, 0x301, false);
    QCOMPARE(raceway.ioSettings, expected.writeSettings());
}

QTEST_MAIN(tst_WizardHardware)
#include "tst_WizardHardware.moc"
