#include "data/CRaceway.h"
#include "io/CLtAt2560Io.h"
#include "io/CParallelPortIo.h"
#include "io/CRaceControlIo.h"
#include "io/CRacewayIoEvent.h"
#include "io/CRacewayIoFactory.h"
#include "io/TestPort.h"
#include "support/StreamBytes.h"
#include "wizard/CRacewayWizard.h"
#include "wizard/WizardDriver.h"

#include <QApplication>
#include <QTest>

#include <memory>

namespace {

constexpr int AtRest = 127;

std::unique_ptr<CRacewayIo> ioOf(const CRaceway& raceway)
{
    return raceway.createIo();
}

QByteArray streamed(const CRaceway& raceway)
{
    return streamForm(raceway);
}

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

class tst_CRacewayWizard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void withoutARacewayItReturns0();
    void aNewRacewayBeginsWithTheUsualAnswers();
    void aNameIsNeededToGoOn();
    void theFirstPageTakesOnlyWhatItsValidatorsLetThrough();
    void theMinimumTimeTakesOnlyWhatItsValidatorLetsThrough();
    void theAddressTakesOnlyWhatItsValidatorLetsThroughAndIs888IfItDoesNotConvert();
    void theChaosSignalNeedsTheChaosButton();

    void eachSensorIsLearnedByPressingIt();
    void aTypedStateCountsAsSoonAsItIsAcceptable();
    void aRawEventThatReachesATrackPageIsItsState();
    void sensorPagesSpeakOfTheirTrack();
    void theInputsOfAnAt2560AreChosen();
    void theBlobOfALearnedPortIsRightByteForByte();
    void outputsAreStoredWithTheirPolarity();
    void thePowerPageShowsAnOutputForEachSlot();

    void goingBackToTheHardwareKeepsTheMasksOfTheSameInterface();
    void anotherInterfaceDropsTheMasks();
    void anIoWarrior56SurvivesTheChangeToThe28AndThe100();
    void theIoWarrior28AndThe100AreAlwaysMadeAnew();
    void anExistingPortTakesItsNewAddressAndRegisters();

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
    void theControlUnitLearnsNothing();

    void theKeyboardAloneIsEnough();
    void theKeyboardAloneChoosesInputsAndAPort();
    void theKeyboardAloneChoosesOutputs();

private:
    void press(short bits) { (*m_port)->clearBits(TestPort::Status, bits); }
    void release(short bits) { (*m_port)->setBits(TestPort::Status, bits); }

    std::unique_ptr<TestPort> m_port;
};

void tst_CRacewayWizard::initTestCase()
{
    m_port = std::make_unique<TestPort>();
}

void tst_CRacewayWizard::init()
{
    m_port->reset();
}

void tst_CRacewayWizard::withoutARacewayItReturns0()
{
    CRacewayWizard wizard;
    QCOMPARE(wizard.createRaceway(nullptr), 0);
    QCOMPARE(wizard.editRaceway(nullptr), 0);
    QVERIFY(!wizard.isVisible());
}

void tst_CRacewayWizard::aNewRacewayBeginsWithTheUsualAnswers()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    const int result = WizardDriver::create(wizard, &raceway, [](WizardDriver& user) {
        QCOMPARE(user.dialog()->windowTitle(), QString("Rennstrecken Wizard"));
        QCOMPARE(user.title(), QString("<b>Name und Anzahl der Slots</b>"));
        QCOMPARE(user.field<QComboBox>("tracksBox")->currentText(), QString("2"));
        QCOMPARE(user.field<QLineEdit>("scaleEdit")->text(), QString("24"));
        user.type("nameEdit", "Bahn");
        user.next();
        QCOMPARE(user.field<QComboBox>("hardwareBox")->currentText(), QString("Parallel Port"));
        QCOMPARE(user.field<QComboBox>("hardwareBox")->count(), 8);
        QCOMPARE(user.field<QLineEdit>("addressEdit")->text(), QString("0x378"));
        QCOMPARE(user.field<QComboBox>("inputRegisterBox")->currentText(), QString("Status Register"));
        QCOMPARE(user.field<QComboBox>("outputRegisterBox")->currentText(), QString("Data Register"));
        user.next();
        for (const char* box : {"chaosBox", "chaosOutputBox", "powerOffBox", "lightsBox", "separateEndBox"})
            QVERIFY2(!user.isChecked(box), box);
        QCOMPARE(user.field<QComboBox>("sectorBox")->currentIndex(), 0);
        QCOMPARE(user.field<QComboBox>("fuelBox")->currentIndex(), 0);
        QVERIFY(user.goTo("CRwWizardSlotPage 1"));
        QCOMPARE(user.field<QLineEdit>("lengthEdit")->text(), QString("0"));
        QVERIFY(user.goTo("CRwWizardDebounceTimePage"));
        QCOMPARE(user.field<QLineEdit>("timeEdit")->text(), QString("200"));
        user.next();
        user.finish();
    });
    QCOMPARE(result, 1);
    CRaceway expected;
    expected.name = QStringLiteral("Bahn");
    QCOMPARE(streamed(raceway), streamed(expected));
}

void tst_CRacewayWizard::aNameIsNeededToGoOn()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    WizardDriver::create(wizard, &raceway, [](WizardDriver& user) {
        QVERIFY(!user.button("nextButton")->isEnabled());
        user.type("nameEdit", "B");
        QVERIFY(user.button("nextButton")->isEnabled());
        user.type("nameEdit", "");
        QVERIFY(!user.button("nextButton")->isEnabled());
    });
}

void tst_CRacewayWizard::theFirstPageTakesOnlyWhatItsValidatorsLetThrough()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    WizardDriver::create(wizard, &raceway, [](WizardDriver& user) {
        user.type("nameEdit", QString(40, 'x'));
        QCOMPARE(user.field<QLineEdit>("nameEdit")->text(), QString(32, 'x'));
        auto* scale = user.field<QLineEdit>("scaleEdit");
        user.type("scaleEdit", "1000");
        QCOMPARE(scale->text(), QString("100"));
        user.type("scaleEdit", "101");
        QCOMPARE(scale->text(), QString("10"));
        user.type("scaleEdit", "-a3b2");
        QCOMPARE(scale->text(), QString("32"));
        QCOMPARE(user.field<QComboBox>("tracksBox")->count(), 8);
    });
}

void tst_CRacewayWizard::theMinimumTimeTakesOnlyWhatItsValidatorLetsThrough()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    WizardDriver::create(wizard, &raceway, [](WizardDriver& user) {
        user.describe("Bahn", 1);
        QVERIFY(user.goTo("CRwWizardDebounceTimePage"));
        auto* edit = user.field<QLineEdit>("timeEdit");
        user.type("timeEdit", "60001");
        QCOMPARE(edit->text(), QString("6000"));
        user.type("timeEdit", "-x1.5");
        QCOMPARE(edit->text(), QString("15"));
        QVERIFY(!user.button("nextButton")->isEnabled()); // shorter than 200 ms
        user.type("timeEdit", "60000");
        QVERIFY(user.button("nextButton")->isEnabled());
        user.next();
        user.finish();
    });
    QCOMPARE(raceway.minTime, 60000);
}

void tst_CRacewayWizard::theAddressTakesOnlyWhatItsValidatorLetsThroughAndIs888IfItDoesNotConvert()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    const auto addressAfter = [&](const QString& typed, const QString& shown) {
        WizardDriver::create(wizard, &raceway, [&](WizardDriver& user) {
            user.describe("Bahn", 1);
            user.next();
            user.type("addressEdit", typed);
            QCOMPARE(user.field<QLineEdit>("addressEdit")->text(), shown);
            user.goToTheEnd();
            user.finish();
        });
        return qobject_cast<CParallelPortIo*>(ioOf(raceway).get())->baseAddress();
    };
    QCOMPARE(addressAfter("0x278", "0x278"), 0x278);
    QCOMPARE(addressAfter("0xfFfFf", "0xfFfF"), 0xFFFF);
    QCOMPARE(addressAfter("0xg3bc", "0x3bc"), 0x3BC);
    QCOMPARE(addressAfter("0x", "0x"), 888);
    QCOMPARE(addressAfter("", ""), 888);
}

void tst_CRacewayWizard::theChaosSignalNeedsTheChaosButton()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    WizardDriver::create(wizard, &raceway, [](WizardDriver& user) {
        user.describe("Bahn", 1);
        QVERIFY(user.goTo("CAvailableFeaturesPage"));
        QVERIFY(!user.field<QCheckBox>("chaosOutputBox")->isEnabled());
        user.check("chaosBox");
        QVERIFY(user.field<QCheckBox>("chaosOutputBox")->isEnabled());
        user.check("chaosOutputBox");
        user.check("chaosBox", false);
        QVERIFY(!user.field<QCheckBox>("chaosOutputBox")->isEnabled());
        QVERIFY(!user.isChecked("chaosOutputBox"));
    });
}

void tst_CRacewayWizard::eachSensorIsLearnedByPressingIt()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    const int result = WizardDriver::create(wizard, &raceway, [this](WizardDriver& user) {
        user.describe("Bahn", 1);
        QVERIFY(user.goTo("CAvailableFeaturesPage"));
        user.check("chaosBox");
        user.check("separateEndBox");
        user.choose("sectorBox", 2);
        user.choose("fuelBox", 4);
        user.next();
        const auto learn = [&](const QString& page, short bits) {
            QCOMPARE(user.pageName(), page);
            press(bits);
            user.learn();
            QCOMPARE(user.state(), "0x" + QString::number(AtRest & ~bits, 16));
            release(bits);
            user.next();
        };
        learn("COpenPage", 0);
        learn("CChaosButtonPage", 1);
        user.type("lengthEdit", "1520");
        learn("CRwWizardSlotPage 1", 2);
        learn("CRwWizardFuelSensorPage 1", 4);
        learn("CRwWizardFuelFinishedSensorPage 1", 8);
        learn("CRwWizardSector2SensorPage 1", 16);
        learn("CRwWizardSector3SensorPage 1", 32);
        learn("CRwWizardEndSensorPage 1", 64);
        user.goToTheEnd();
        user.finish();
    });
    QCOMPARE(result, 1);
    const auto io = ioOf(raceway);
    QCOMPARE(io->portState(PortId::Open), AtRest);
    const QVector<int> ids{9, 1, 25, 33, 41, 49, 57};
    for (int i = 0; i < ids.size(); ++i)
        QCOMPARE(io->portState(ids.at(i)), AtRest & ~(1 << i));
    QCOMPARE(io->portState(2), 0);
    QCOMPARE(raceway.tracks.size(), 1);
    QCOMPARE(raceway.tracks.at(0).length, 1520);
    QCOMPARE(raceway.numberOfSectors, 3);
    QCOMPARE(raceway.fuelSensorSetup, 4);
    QVERIFY(raceway.startAndEndSensorSeparate);
}

void tst_CRacewayWizard::aTypedStateCountsAsSoonAsItIsAcceptable()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    WizardDriver::create(wizard, &raceway, [](WizardDriver& user) {
        user.describe("Bahn", 2);
        QVERIFY(user.goTo("CRwWizardSlotPage 1"));
        user.type("stateEdit", "0x7e");
        user.next();
        user.type("stateEdit", "0x7d");
        user.type("stateEdit", "0x"); // not yet another one
        user.back();
        QCOMPARE(user.state(), QString("0x7e"));
        user.next();
        QCOMPARE(user.state(), QString("0x7d"));
        user.goToTheEnd();
        user.finish();
    });
    QCOMPARE(ioOf(raceway)->portState(1), 0x7e);
    QCOMPARE(ioOf(raceway)->portState(2), 0x7d);
}

void tst_CRacewayWizard::aRawEventThatReachesATrackPageIsItsState()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    WizardDriver::create(wizard, &raceway, [](WizardDriver& user) {
        user.describe("Bahn", 1);
        QVERIFY(user.goTo("COpenPage"));
        user.learn();
        CRacewayIoEvent event(0x301, 0);
        QApplication::sendEvent(user.page(), &event);
        QCOMPARE(user.state(), QString("0x7f"));
        user.next();
        QApplication::sendEvent(user.page(), &event);
        QCOMPARE(user.state(), QString("0x301"));
        user.goToTheEnd();
        user.finish();
    });
    QCOMPARE(ioOf(raceway)->portState(0), AtRest);
    QCOMPARE(ioOf(raceway)->portState(1), 0x301);
}

void tst_CRacewayWizard::sensorPagesSpeakOfTheirTrack()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    WizardDriver::create(wizard, &raceway, [](WizardDriver& user) {
        user.describe("Bahn", 2);
        QVERIFY(user.goTo("CAvailableFeaturesPage"));
        user.choose("fuelBox", 1);
        QVERIFY(user.goTo("CRwWizardFuelSensorPage 2"));
        QCOMPARE(user.title(), QString("<b>Tanksensor Spur 2</b>"));
        QCOMPARE(user.explanation(),
                 QString("Bitte aktivieren Sie jetzt den Tanksensor für die Spur 2 und drücken Sie die "
                         "Schaltfläche \"Ermitteln\" oder geben Sie den hexadezimalen Wert der den Zustand "
                         "\"Tanksensor Spur 2  aktiviert\" repräsentiert in das Eingabefeld ein."));
        QCOMPARE(user.text("stateLabel"), QString("Zustand \"Tanksensor Spur 2 aktiviert\":"));
        QVERIFY(user.goBackTo("CIoInterfacePage"));
        user.choose("hardwareBox", "L&T AT2560");
        user.next();
        QVERIFY(user.goTo("CRwWizardSlotPage 2"));
        QCOMPARE(user.title(), QString("<b>Einstellungen Spur 2</b>"));
        QCOMPARE(user.explanation(),
                 QString("Bitte wählen Sie den Eingang an Ihrem Light & Time AT2560 an dem der Sensor für "
                         "Spur 2 angeschlossen ist. Geben Sie bitte auch die Spurlänge in cm an (0 = keine "
                         "Längenangabe)."));
        QCOMPARE(user.text("stateLabel"), QString("Pin für Spur 2:"));
    });
}

void tst_CRacewayWizard::theInputsOfAnAt2560AreChosen()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    WizardDriver::create(wizard, &raceway, [](WizardDriver& user) {
        user.describe("Bahn", 2);
        user.next();
        user.choose("hardwareBox", "L&T AT2560");
        user.typePort("/dev/box");
        user.next();
        user.check("chaosBox");
        user.choose("fuelBox", 1);
        user.next();
        user.chooseInput(53);
        user.next();
        user.chooseInput(0);
        QCOMPARE(user.pageName(), QString("CRwWizardSlotPage 1"));
        user.next();
        user.chooseInput(12);
        user.next();
        QCOMPARE(user.input(), QString("---")); // left as it is
        user.next();
        user.chooseInput(12);
        user.goToTheEnd();
        user.finish();
    });
    CLtAt2560Io expected;
    expected.setPortName("/dev/box");
    expected.setPortState(9, 53, false);
    expected.setPortState(1, 0, false);
    expected.setPortState(25, 12, false);
    expected.setPortState(26, 12, false);
    QCOMPARE(raceway.ioSettings, expected.writeSettings());
}

void tst_CRacewayWizard::theBlobOfALearnedPortIsRightByteForByte()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    WizardDriver::create(wizard, &raceway, [this](WizardDriver& user) {
        user.describe("Bahn", 2);
        QVERIFY(user.goTo("CAvailableFeaturesPage"));
        user.check("powerOffBox");
        QVERIFY(user.goTo("CPowerOffFeaturePage"));
        user.chooseOutput(10, "Pin2 (D0)", true);
        user.chooseOutput(11, "Pin9 (D7)", false);
        for (const short bits : {0x08, 0x10}) {
            user.next();
            press(bits);
            user.learn();
            release(bits);
        }
        user.goToTheEnd();
        user.finish();
    });
    StreamBytes blob;
    blob.int32(1).int32(127).int32(0).int32(0x77).int32(0x6f);
    for (int id = 3; id <= 8; ++id)
        blob.int32(0);
    blob.int32(1).int32(128);
    for (int id = 12; id <= 24; ++id)
        blob.int32(0);
    blob.boolean(true);
    for (int id = 11; id <= 24; ++id)
        blob.boolean(false);
    blob.int32(888).int32(1).int32(0);
    for (int id = 25; id <= 64; ++id)
        blob.int32(0);
    QCOMPARE(raceway.ioSettings, blob.bytes());
    QCOMPARE(raceway.ioSettings.size(), 291);
}

void tst_CRacewayWizard::outputsAreStoredWithTheirPolarity()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    WizardDriver::create(wizard, &raceway, [](WizardDriver& user) {
        user.describe("Bahn", 1);
        user.next();
        user.choose("hardwareBox", "IO-Warrior40");
        user.next();
        user.check("chaosBox");
        user.check("chaosOutputBox");
        user.check("lightsBox");
        QVERIFY(user.goTo("CChaosPhaseOutputPage"));
        user.chooseOutput(24, "P3.7", true);
        user.next();
        for (int lamp = 0; lamp < 4; ++lamp)
            user.chooseOutput(19 + lamp, QStringLiteral("P1.%1").arg(lamp), lamp % 2 == 0);
        user.goToTheEnd();
        user.finish();
    });
    const auto io = ioOf(raceway);
    QCOMPARE(io->interfaceType(), int(CRacewayIo::IoWarrior40));
    QCOMPARE(quint32(io->portState(24)), 0x80000000U);
    QVERIFY(io->isInverted(24));
    QCOMPARE(io->portState(18), 0);
    QCOMPARE(io->portState(23), 0);
    for (int lamp = 0; lamp < 4; ++lamp) {
        QCOMPARE(io->portState(19 + lamp), 0x100 << lamp);
        QCOMPARE(io->isInverted(19 + lamp), lamp % 2 == 0);
    }
}

void tst_CRacewayWizard::thePowerPageShowsAnOutputForEachSlot()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    const auto compareOutputs = [](WizardDriver& user, int slots_) {
        user.choose("tracksBox", slots_ - 1);
        QVERIFY(user.goTo("CAvailableFeaturesPage"));
        user.check("powerOffBox");
        QVERIFY(user.goTo("CPowerOffFeaturePage"));
        for (int track = 0; track < 8; ++track)
            QCOMPARE(user.output(10 + track).isEmpty(), track >= slots_);
    };
    WizardDriver::create(wizard, &raceway, [&](WizardDriver& user) {
        user.type("nameEdit", "Bahn");
        compareOutputs(user, 3);
        user.goToTheEnd();
        user.finish();
    });
    WizardDriver::edit(wizard, &raceway, [&](WizardDriver& user) { compareOutputs(user, 7); });
}

void tst_CRacewayWizard::goingBackToTheHardwareKeepsTheMasksOfTheSameInterface()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    WizardDriver::create(wizard, &raceway, [this](WizardDriver& user) {
        user.describe("Bahn", 1);
        QVERIFY(user.goTo("CRwWizardSlotPage 1"));
        press(8);
        user.learn();
        release(8);
        user.next();
        QVERIFY(user.goBackTo("CIoInterfacePage"));
        QVERIFY(user.goTo("CRwWizardSlotPage 1"));
        QCOMPARE(user.state(), QString("0x77"));
        user.goToTheEnd();
        user.finish();
    });
    QCOMPARE(ioOf(raceway)->portState(1), AtRest & ~8);
}

void tst_CRacewayWizard::anotherInterfaceDropsTheMasks()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    WizardDriver::create(wizard, &raceway, [this](WizardDriver& user) {
        user.describe("Bahn", 1);
        QVERIFY(user.goTo("CRwWizardSlotPage 1"));
        press(8);
        user.learn();
        for (const char* hardware : {"IO-Warrior24", "Parallel Port"}) {
            QVERIFY(user.goBackTo("CIoInterfacePage"));
            user.choose("hardwareBox", hardware);
            QVERIFY(user.goTo("CAvailableFeaturesPage"));
        }
        user.goToTheEnd();
        user.finish();
    });
    QCOMPARE(ioOf(raceway)->portState(1), 0);
}

void tst_CRacewayWizard::anIoWarrior56SurvivesTheChangeToThe28AndThe100()
{
    for (const char* other : {"IO-Warrior28", "IO-Warrior100"}) {
        CRacewayWizard wizard;
        CRaceway raceway;
        WizardDriver::create(wizard, &raceway, [&](WizardDriver& user) {
            user.describe("Bahn", 1);
            user.next();
            user.choose("hardwareBox", "IO-Warrior56");
            QVERIFY(user.goTo("CRwWizardSlotPage 1"));
            user.type("stateEdit", "0x7e");
            QVERIFY(user.goBackTo("CIoInterfacePage"));
            user.choose("hardwareBox", other);
            user.goToTheEnd();
            user.finish();
        });
        QCOMPARE(ioOf(raceway)->interfaceType(), int(CRacewayIo::IoWarrior56));
        QCOMPARE(ioOf(raceway)->portState(1), 0x7e);
    }
}

void tst_CRacewayWizard::theIoWarrior28AndThe100AreAlwaysMadeAnew()
{
    for (const char* hardware : {"IO-Warrior28", "IO-Warrior100"}) {
        CRacewayWizard wizard;
        CRaceway raceway;
        WizardDriver::create(wizard, &raceway, [&](WizardDriver& user) {
            user.describe("Bahn", 1);
            user.next();
            user.choose("hardwareBox", hardware);
            QVERIFY(user.goTo("CRwWizardSlotPage 1"));
            user.type("stateEdit", "0x7e");
            QVERIFY(user.goBackTo("CIoInterfacePage"));
            user.goToTheEnd();
            user.finish();
        });
        QCOMPARE(ioOf(raceway)->interfaceType(), QString(hardware) == "IO-Warrior28" ? 6 : 8);
        QCOMPARE(ioOf(raceway)->portState(1), -1);
    }
}

void tst_CRacewayWizard::anExistingPortTakesItsNewAddressAndRegisters()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    WizardDriver::create(wizard, &raceway, [](WizardDriver& user) {
        user.describe("Bahn", 1);
        QVERIFY(user.goTo("CRwWizardSlotPage 1"));
        user.type("stateEdit", "0x7e");
        QVERIFY(user.goBackTo("CIoInterfacePage"));
        user.type("addressEdit", "0x278");
        user.choose("inputRegisterBox", 0);
        user.choose("outputRegisterBox", 2);
        user.goToTheEnd();
        user.finish();
    });
    const auto io = ioOf(raceway);
    const auto* port = qobject_cast<CParallelPortIo*>(io.get());
    QCOMPARE(port->baseAddress(), 0x278);
    QCOMPARE(port->inputOffset(), 0);
    QCOMPARE(port->outputOffset(), 2);
    QCOMPARE(port->portState(1), 0x7e);
}

void tst_CRacewayWizard::cancelReturns0AndLeavesTheRacewayAsItWas()
{
    CParallelPortIo io;
    CRaceway raceway = fullRaceway(io);
    const QByteArray before = streamed(raceway);
    CRacewayWizard wizard;
    const auto changeAndLeave = [](WizardDriver& user) {
        user.describe("Anders", 5);
        user.goToTheEnd();
        user.cancel();
    };
    const auto escape = [](WizardDriver& user) { QTest::keyClick(user.dialog(), Qt::Key_Escape); };
    QCOMPARE(WizardDriver::create(wizard, &raceway, changeAndLeave), 0);
    QCOMPARE(streamed(raceway), before);
    QCOMPARE(WizardDriver::edit(wizard, &raceway, changeAndLeave), 0);
    QCOMPARE(WizardDriver::edit(wizard, &raceway, escape), 0);
    QCOMPARE(streamed(raceway), before);
}

void tst_CRacewayWizard::editingWithoutAChangeGivesTheSameRacewayAgain_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("parallel port") << 1;
    QTest::newRow("IO-Warrior24") << 2;
    QTest::newRow("IO-Warrior40") << 3;
    QTest::newRow("IO-Warrior56") << 7;
    QTest::newRow("AT2560") << 9;
}

void tst_CRacewayWizard::editingWithoutAChangeGivesTheSameRacewayAgain()
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
    const QByteArray before = streamed(raceway);
    CRacewayWizard wizard;
    const int result = WizardDriver::edit(wizard, &raceway, [](WizardDriver& user) {
        QCOMPARE(user.field<QLineEdit>("nameEdit")->text(), QString("Nürburg's \"Ring\""));
        user.goToTheEnd();
        user.finish();
    });
    QCOMPARE(result, 1);
    QCOMPARE(streamed(raceway), before);
}

void tst_CRacewayWizard::editingChangesOneSensorAlone()
{
    CParallelPortIo io;
    CRaceway raceway = fullRaceway(io);
    CRacewayWizard wizard;
    WizardDriver::edit(wizard, &raceway, [this](WizardDriver& user) {
        QVERIFY(user.goTo("CRwWizardSector2SensorPage 2"));
        QCOMPARE(user.state(), "0x" + QString::number(0x10000 + 42, 16));
        press(4);
        user.learn();
        user.goToTheEnd();
        user.finish();
    });
    io.setPortState(42, AtRest & ~4, false);
    QCOMPARE(raceway.ioSettings, io.writeSettings());
}

void tst_CRacewayWizard::editingTakesAnotherNumberOfTracks()
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

void tst_CRacewayWizard::aNewRacewayShowsNothingOfTheOneBefore()
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
    QCOMPARE(streamed(raceway), streamed(CRaceway()));
}

void tst_CRacewayWizard::aStoredPortThatIsNotThereIsShown()
{
    CLtAt2560Io io;
    io.setPortName("/dev/gone");
    CRaceway raceway = fullRaceway(io);
    CRacewayWizard wizard;
    WizardDriver::edit(wizard, &raceway, [](WizardDriver& user) {
        user.next();
        QCOMPARE(user.field<QComboBox>("hardwareBox")->currentText(), QString("L&T AT2560"));
        QCOMPARE(user.port(), QString("/dev/gone"));
        user.back();
        user.next();
        QCOMPARE(user.port(), QString("/dev/gone"));
    });
}

void tst_CRacewayWizard::aRacewayOnRaceControlKeepsItsHardwareWithoutTheLibrary()
{
    CRaceControlIo io;
    io.setPortName(0, "/dev/box-1");
    io.setPortName(3, "/dev/box-4");
    CRaceway raceway = fullRaceway(io);
    raceway.pwrOffFeatureAvailable = raceway.externalLightsAvailable = false; // it has no outputs
    raceway.chaosPhaseOutputAvailable = false;
    const QByteArray before = streamed(raceway);
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
    QCOMPARE(streamed(raceway), before);
    WizardDriver::create(wizard, &raceway, [](WizardDriver& user) {
        user.describe("Bahn", 1);
        user.next();
        QCOMPARE(user.field<QComboBox>("hardwareBox")->findText("RaceControl"), -1);
    });
}

void tst_CRacewayWizard::settingsThatAreCutShortDoNoHarm_data()
{
    QTest::addColumn<QByteArray>("blob");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("two bytes") << QByteArray(2, '\0');
    for (int type = 0; type <= 10; ++type)
        QTest::newRow(qPrintable(QStringLiteral("type %1 alone").arg(type)))
            << StreamBytes().int32(type).bytes();
    QTest::newRow("all bits set") << QByteArray(291, '\xff');
}

void tst_CRacewayWizard::settingsThatAreCutShortDoNoHarm()
{
    QFETCH(QByteArray, blob);
    CRaceway raceway;
    raceway.ioSettings = blob;
    raceway.tracks.clear();
    raceway.numberOfSectors = -5;
    raceway.fuelSensorSetup = 99;
    raceway.minTime = 200;
    raceway.pwrOffFeatureAvailable = raceway.externalLightsAvailable = true;
    CRacewayWizard wizard;
    const int result = WizardDriver::edit(wizard, &raceway, [](WizardDriver& user) {
        user.goToTheEnd();
        user.finish();
    });
    QCOMPARE(result, 1);
    QCOMPARE(raceway.tracks.size(), 1);
    QCOMPARE(raceway.numberOfSectors, 1);
    QCOMPARE(raceway.fuelSensorSetup, 4);
    QVERIFY(raceway.ioSettings.size() >= 279);
}

void tst_CRacewayWizard::theControlUnitLearnsNothing()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    WizardDriver::create(wizard, &raceway, [](WizardDriver& user) {
        user.describe("Bahn", 1);
        user.next();
        user.choose("hardwareBox", "Carrera CU");
        user.typePort("/dev/unit");
        QVERIFY(user.goTo("CRwWizardSlotPage 1"));
        user.learn();
        QCOMPARE(user.state(), QString("0x0"));
        user.goToTheEnd();
        user.finish();
    });
    StreamBytes blob;
    blob.int32(5).text("/dev/unit");
    for (int value = 0; value < 25; ++value)
        blob.int32(-1);
    blob.raw(QByteArray(15, '\0'));
    for (int value = 0; value < 40; ++value)
        blob.int32(-1);
    QCOMPARE(raceway.ioSettings, blob.bytes());
}

void tst_CRacewayWizard::theKeyboardAloneIsEnough()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    const int result = WizardDriver::create(wizard, &raceway, [this](WizardDriver& user) {
        QVERIFY(QTest::qWaitForWindowActive(user.dialog()));
        const auto key = [](int key_, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key(key_), modifiers);
        };
        QTest::keyClicks(QApplication::focusWidget(), "Tastenbahn");
        key(Qt::Key_Tab);
        key(Qt::Key_Up); // one slot
        key(Qt::Key_Tab);
        QTest::keyClicks(QApplication::focusWidget(), "32");
        key(Qt::Key_Return);
        QCOMPARE(user.pageName(), QString("CIoInterfacePage"));
        key(Qt::Key_Return);
        QCOMPARE(user.pageName(), QString("CAvailableFeaturesPage"));
        key(Qt::Key_Space); // the chaos button
        key(Qt::Key_Return);
        key(Qt::Key_Space); // learn the open state
        key(Qt::Key_Return);
        QCOMPARE(user.pageName(), QString("CChaosButtonPage"));
        press(1);
        key(Qt::Key_Space);
        release(1);
        key(Qt::Key_Return);
        QCOMPARE(user.pageName(), QString("CRwWizardSlotPage 1"));
        press(8);
        key(Qt::Key_Space);
        release(8);
        key(Qt::Key_Tab);
        key(Qt::Key_Tab);
        QTest::keyClicks(QApplication::focusWidget(), "777");
        key(Qt::Key_Return);
        QTest::keyClicks(QApplication::focusWidget(), "5000");
        key(Qt::Key_Return);
        QCOMPARE(user.pageName(), QString("CFinishPage"));
        QTest::keyClick(user.dialog(), Qt::Key_Z, Qt::AltModifier);
        QTRY_COMPARE(user.pageName(), QString("CRwWizardDebounceTimePage"));
        QTest::keyClicks(QApplication::focusWidget(), "4000");
        key(Qt::Key_Return);
        key(Qt::Key_Return);
    });
    QCOMPARE(result, 1);
    QCOMPARE(raceway.name, QString("Tastenbahn"));
    QCOMPARE(raceway.scale, 32);
    QCOMPARE(raceway.tracks.size(), 1);
    QCOMPARE(raceway.tracks.at(0).length, 777);
    QCOMPARE(raceway.minTime, 4000);
    QVERIFY(raceway.chaosButtonAvailable);
    QCOMPARE(ioOf(raceway)->portState(9), AtRest & ~1);
    QCOMPARE(ioOf(raceway)->portState(1), AtRest & ~8);
}

void tst_CRacewayWizard::theKeyboardAloneChoosesInputsAndAPort()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    const int result = WizardDriver::create(wizard, &raceway, [](WizardDriver& user) {
        QVERIFY(QTest::qWaitForWindowActive(user.dialog()));
        const auto key = [](Qt::Key key_) { QTest::keyClick(QApplication::focusWidget(), key_); };
        const auto type = [](const char* text) { QTest::keyClicks(QApplication::focusWidget(), text); };
        type("Tastenbahn");
        key(Qt::Key_Tab);
        key(Qt::Key_Up); // one slot
        key(Qt::Key_Return);
        key(Qt::Key_End); // the last kind of hardware
        key(Qt::Key_Tab);
        type("/dev/keyboard");
        key(Qt::Key_Return);
        QCOMPARE(user.pageName(), QString("CAvailableFeaturesPage"));
        for (int box = 0; box < 5; ++box) {
            key(Qt::Key_Space);
            key(Qt::Key_Tab);
        }
        key(Qt::Key_Down); // one sector sensor
        key(Qt::Key_Tab);
        key(Qt::Key_Down); // one fuel sensor
        key(Qt::Key_Return);
        QCOMPARE(user.pageName(), QString("CChaosButtonPage"));
        type("D7");
        key(Qt::Key_Return);
        QCOMPARE(user.pageName(), QString("CChaosPhaseOutputPage"));
        key(Qt::Key_Space); // not inverted: all that can be changed
        key(Qt::Key_Return);
        key(Qt::Key_Return);
        QCOMPARE(user.pageName(), QString("CRwWizardLightsPage"));
        key(Qt::Key_Tab);
        key(Qt::Key_Space); // the second lamp
        key(Qt::Key_Return);
        QCOMPARE(user.pageName(), QString("CRwWizardSlotPage 1"));
        key(Qt::Key_End);
        key(Qt::Key_Tab);
        type("950");
        key(Qt::Key_Return);
        for (const char* input : {"D3", "D4", "D5"}) {
            type(input);
            key(Qt::Key_Return);
        }
        QCOMPARE(user.pageName(), QString("CRwWizardDebounceTimePage"));
        key(Qt::Key_Return);
        key(Qt::Key_Return);
    });
    QCOMPARE(result, 1);
    CLtAt2560Io expected;
    expected.setPortName("/dev/keyboard");
    expected.setPortState(9, 7, false);
    expected.setPortState(24, 6, false);
    expected.setPortState(19, 4, false);
    expected.setPortState(1, 53, false);
    expected.setPortState(25, 3, false);
    expected.setPortState(41, 4, false);
    expected.setPortState(57, 5, false);
    QCOMPARE(raceway.ioSettings, expected.writeSettings());
    QCOMPARE(raceway.tracks.at(0).length, 950);
}

void tst_CRacewayWizard::theKeyboardAloneChoosesOutputs()
{
    CRacewayWizard wizard;
    CRaceway raceway;
    const int result = WizardDriver::create(wizard, &raceway, [](WizardDriver& user) {
        QVERIFY(QTest::qWaitForWindowActive(user.dialog()));
        const auto key = [](Qt::Key key_) { QTest::keyClick(QApplication::focusWidget(), key_); };
        QTest::keyClicks(QApplication::focusWidget(), "Tastenbahn");
        key(Qt::Key_Return);
        key(Qt::Key_Return);
        key(Qt::Key_Tab); // past the chaos button; its signal can't be chosen
        key(Qt::Key_Space);
        key(Qt::Key_Return);
        key(Qt::Key_Return);
        QCOMPARE(user.pageName(), QString("CPowerOffFeaturePage"));
        key(Qt::Key_Down); // the first pin
        key(Qt::Key_Tab);
        key(Qt::Key_Space); // inverted
        key(Qt::Key_Tab);
        key(Qt::Key_End); // the last pin
        for (int page = 0; page < 4; ++page)
            key(Qt::Key_Return);
        QCOMPARE(user.pageName(), QString("CFinishPage"));
        key(Qt::Key_Return);
    });
    QCOMPARE(result, 1);
    CParallelPortIo expected;
    expected.setPortState(10, 1, true);
    expected.setPortState(11, 128, false);
    QCOMPARE(raceway.ioSettings, expected.writeSettings());
}

QTEST_MAIN(tst_CRacewayWizard)
#include "tst_CRacewayWizard.moc"
