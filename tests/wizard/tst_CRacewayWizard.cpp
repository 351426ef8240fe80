#include "data/CRaceway.h"
#include "io/CLtAt2560Io.h"
#include "io/CParallelPortIo.h"
#include "io/CRacewayIoEvent.h"
#include "io/TestPort.h"
#include "support/StreamBytes.h"
#include "wizard/CRacewayWizard.h"
#include "wizard/WizardDriver.h"

#include <QApplication>
#include <QTest>

namespace {

constexpr int AtRest = 127;

/** Types the state of the first track and goes back to the choice of the hardware. */
void typeStateAndGoBack(WizardDriver& user)
{
    QVERIFY(user.goTo("CRwWizardSlotPage 1"));
    user.type("stateEdit", "0x7e");
    QVERIFY(user.goBackTo("CIoInterfacePage"));
}

} // namespace

class tst_CRacewayWizard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_port.reset(); }

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

    void theControlUnitLearnsNothing();

private:
    TestPort m_port;
};

void tst_CRacewayWizard::withoutARacewayItReturns0()
{
    CRacewayWizard wizard;
    QCOMPARE(wizard.createRaceway(nullptr), 0);
    QCOMPARE(wizard.editRaceway(nullptr), 0);
    QVERIFY(!wizard.isVisible());
}

void tst_CRacewayWizard::aNewRacewayBeginsWithTheUsualAnswers()
{
    CRaceway raceway;
    const int result = WizardDriver::create(&raceway, [](WizardDriver& user) {
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
    QCOMPARE(streamForm(raceway), streamForm(expected));
}

void tst_CRacewayWizard::aNameIsNeededToGoOn()
{
    CRaceway raceway;
    WizardDriver::create(&raceway, [](WizardDriver& user) {
        QVERIFY(!user.button("nextButton")->isEnabled());
        user.type("nameEdit", "B");
        QVERIFY(user.button("nextButton")->isEnabled());
        user.type("nameEdit", "");
        QVERIFY(!user.button("nextButton")->isEnabled());
    });
}

void tst_CRacewayWizard::theFirstPageTakesOnlyWhatItsValidatorsLetThrough()
{
    CRaceway raceway;
    WizardDriver::create(&raceway, [](WizardDriver& user) {
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
    CRaceway raceway;
    WizardDriver::create(&raceway, [](WizardDriver& user) {
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
        return qobject_cast<CParallelPortIo*>(raceway.createIo().get())->baseAddress();
    };
    QCOMPARE(addressAfter("0x278", "0x278"), 0x278);
    QCOMPARE(addressAfter("0xfFfFf", "0xfFfF"), 0xFFFF);
    QCOMPARE(addressAfter("0xg3bc", "0x3bc"), 0x3BC);
    QCOMPARE(addressAfter("0x", "0x"), 888);
    QCOMPARE(addressAfter("", ""), 888);
}

void tst_CRacewayWizard::theChaosSignalNeedsTheChaosButton()
{
    CRaceway raceway;
    WizardDriver::create(&raceway, [](WizardDriver& user) {
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
    CRaceway raceway;
    const int result = WizardDriver::create(&raceway, [this](WizardDriver& user) {
        user.describe("Bahn", 1);
        QVERIFY(user.goTo("CAvailableFeaturesPage"));
        user.check("chaosBox");
        user.check("separateEndBox");
        user.choose("sectorBox", 2);
        user.choose("fuelBox", 4);
        user.next();
        const auto learn = [&](const QString& page, short bits) {
            QCOMPARE(user.pageName(), page);
            m_port.press(bits);
            user.learn();
            QCOMPARE(user.state(), "0x" + QString::number(AtRest & ~bits, 16));
            m_port.release(bits);
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
    const auto io = raceway.createIo();
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
    CRaceway raceway;
    WizardDriver::create(&raceway, [](WizardDriver& user) {
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
    QCOMPARE(raceway.createIo()->portState(1), 0x7e);
    QCOMPARE(raceway.createIo()->portState(2), 0x7d);
}

void tst_CRacewayWizard::aRawEventThatReachesATrackPageIsItsState()
{
    CRaceway raceway;
    WizardDriver::create(&raceway, [](WizardDriver& user) {
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
    QCOMPARE(raceway.createIo()->portState(0), AtRest);
    QCOMPARE(raceway.createIo()->portState(1), 0x301);
}

void tst_CRacewayWizard::sensorPagesSpeakOfTheirTrack()
{
    CRaceway raceway;
    WizardDriver::create(&raceway, [](WizardDriver& user) {
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
    CRaceway raceway;
    WizardDriver::create(&raceway, [](WizardDriver& user) {
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
    CRaceway raceway;
    WizardDriver::create(&raceway, [this](WizardDriver& user) {
        user.describe("Bahn", 2);
        QVERIFY(user.goTo("CAvailableFeaturesPage"));
        user.check("powerOffBox");
        QVERIFY(user.goTo("CPowerOffFeaturePage"));
        user.chooseOutput(10, "Pin2 (D0)", true);
        user.chooseOutput(11, "Pin9 (D7)", false);
        for (const short bits : {0x08, 0x10}) {
            user.next();
            m_port.press(bits);
            user.learn();
            m_port.release(bits);
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
    CRaceway raceway;
    WizardDriver::create(&raceway, [](WizardDriver& user) {
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
    const auto io = raceway.createIo();
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
    CRaceway raceway;
    WizardDriver::create(&raceway, [this](WizardDriver& user) {
        user.describe("Bahn", 1);
        QVERIFY(user.goTo("CRwWizardSlotPage 1"));
        m_port.press(8);
        user.learn();
        m_port.release(8);
        user.next();
        QVERIFY(user.goBackTo("CIoInterfacePage"));
        QVERIFY(user.goTo("CRwWizardSlotPage 1"));
        QCOMPARE(user.state(), QString("0x77"));
        user.goToTheEnd();
        user.finish();
    });
    QCOMPARE(raceway.createIo()->portState(1), AtRest & ~8);
}

void tst_CRacewayWizard::anotherInterfaceDropsTheMasks()
{
    CRaceway raceway;
    WizardDriver::create(&raceway, [this](WizardDriver& user) {
        user.describe("Bahn", 1);
        QVERIFY(user.goTo("CRwWizardSlotPage 1"));
        m_port.press(8);
        user.learn();
        for (const char* hardware : {"IO-Warrior24", "Parallel Port"}) {
            QVERIFY(user.goBackTo("CIoInterfacePage"));
            user.choose("hardwareBox", hardware);
            QVERIFY(user.goTo("CAvailableFeaturesPage"));
        }
        user.goToTheEnd();
        user.finish();
    });
    QCOMPARE(raceway.createIo()->portState(1), 0);
}

void tst_CRacewayWizard::anIoWarrior56SurvivesTheChangeToThe28AndThe100()
{
    for (const char* other : {"IO-Warrior28", "IO-Warrior100"}) {
        CRaceway raceway;
        WizardDriver::create(&raceway, [&](WizardDriver& user) {
            user.describe("Bahn", 1);
            user.next();
            user.choose("hardwareBox", "IO-Warrior56");
            typeStateAndGoBack(user);
            user.choose("hardwareBox", other);
            user.goToTheEnd();
            user.finish();
        });
        QCOMPARE(raceway.createIo()->interfaceType(), int(CRacewayIo::IoWarrior56));
        QCOMPARE(raceway.createIo()->portState(1), 0x7e);
    }
}

void tst_CRacewayWizard::theIoWarrior28AndThe100AreAlwaysMadeAnew()
{
    for (const char* hardware : {"IO-Warrior28", "IO-Warrior100"}) {
        CRaceway raceway;
        WizardDriver::create(&raceway, [&](WizardDriver& user) {
            user.describe("Bahn", 1);
            user.next();
            user.choose("hardwareBox", hardware);
            typeStateAndGoBack(user);
            user.goToTheEnd();
            user.finish();
        });
        QCOMPARE(raceway.createIo()->interfaceType(), QString(hardware) == "IO-Warrior28" ? 6 : 8);
        QCOMPARE(raceway.createIo()->portState(1), -1);
    }
}

void tst_CRacewayWizard::anExistingPortTakesItsNewAddressAndRegisters()
{
    CRaceway raceway;
    WizardDriver::create(&raceway, [](WizardDriver& user) {
        user.describe("Bahn", 1);
        typeStateAndGoBack(user);
        user.type("addressEdit", "0x278");
        user.choose("inputRegisterBox", 0);
        user.choose("outputRegisterBox", 2);
        user.goToTheEnd();
        user.finish();
    });
    const auto io = raceway.createIo();
    const auto* port = qobject_cast<CParallelPortIo*>(io.get());
    QCOMPARE(port->baseAddress(), 0x278);
    QCOMPARE(port->inputOffset(), 0);
    QCOMPARE(port->outputOffset(), 2);
    QCOMPARE(port->portState(1), 0x7e);
}

void tst_CRacewayWizard::theControlUnitLearnsNothing()
{
    CRaceway raceway;
    WizardDriver::create(&raceway, [](WizardDriver& user) {
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

QTEST_MAIN(tst_CRacewayWizard)
#include "tst_CRacewayWizard.moc"
