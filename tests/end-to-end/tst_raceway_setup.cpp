#include "SetupHardware.h"
#include "io/CDriveThroughEvent.h"
#include "io/CRacewayIo.h"
#include "race/CRace.h"
#include "support/DatabaseFile.h"
#include "support/RunningProgram.h"
#include "support/StoredSetup.h"
#include "support/StreamBytes.h"
#include "support/VirtualUnit.h"
#include "wizard/WizardDriver.h"

#include <QPushButton>
#include <QTest>
#include <QTreeView>

namespace {

using Maker = std::unique_ptr<SetupHardware> (*)();
using User = std::function<void(WizardDriver&)>;

const QString Name = QStringLiteral("Keller's \"Ring\"");

/** Notes which of the sensors that are there the race sees closed, event by event. */
class SensorWatch : public QObject
{
public:
    SensorWatch(CRace* race, const QVector<int>& sensors) : m_sensors(sensors)
    {
        race->installEventFilter(this);
    }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == CDriveThroughEvent::EventType)
            events.append(closedSensors(static_cast<CDriveThroughEvent*>(event)->sensors()));
        return QObject::eventFilter(object, event);
    }

    QVector<QVector<int>> events;

private:
    QVector<int> closedSensors(const QBitArray& bits) const
    {
        QVector<int> ids;
        for (const int id : m_sensors) {
            if (bits.testBit(id))
                ids.append(id);
        }
        return ids;
    }

    QVector<int> m_sensors;
};

QString sensorPage(int portId)
{
    static const QVector<QPair<int, QString>> pages{
        {PortId::FirstEndSensor, "CRwWizardEndSensorPage"},
        {PortId::FirstSector3Sensor, "CRwWizardSector3SensorPage"},
        {PortId::FirstSector2Sensor, "CRwWizardSector2SensorPage"},
        {PortId::FirstFuelFinishedSensor, "CRwWizardFuelFinishedSensorPage"},
        {PortId::FirstFuelSensor, "CRwWizardFuelSensorPage"},
        {PortId::ChaosButton, "CChaosButtonPage"},
        {PortId::FirstLapSensor, "CRwWizardSlotPage"}};
    for (const auto& page : pages) {
        if (portId == PortId::ChaosButton && page.first == portId)
            return page.second;
        if (portId >= page.first && page.first != PortId::ChaosButton)
            return QStringLiteral("%1 %2").arg(page.second).arg(portId - page.first + 1);
    }
    return {};
}

void click(const QDialog* dialog, const char* button)
{
    QTest::mouseClick(dialog->findChild<QPushButton*>(button), Qt::LeftButton);
}

void selectRaceway(const QDialog* settings, const QString& name)
{
    constexpr int NameColumn = 1;
    auto* tree = settings->findChild<QTreeView*>("racewayTree");
    for (int row = 0; row < tree->model()->rowCount(); ++row) {
        const QModelIndex index = tree->model()->index(row, NameColumn);
        if (index.data().toString() == name)
            QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                              tree->visualRect(index).center());
    }
}

QStringList columns(const QString& names)
{
    DatabaseFile file;
    return file.rows(QStringLiteral("SELECT %1 FROM raceways WHERE currentRw = 'x'").arg(names));
}

} // namespace

Q_DECLARE_METATYPE(Maker)

/** A raceway set up with the wizard in the running program, raced on, changed, and raced on again. */
class tst_raceway_setup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void aRacewayIsSetUpRacedOnChangedAndRacedOnAgain_data();
    void aRacewayIsSetUpRacedOnChangedAndRacedOnAgain();
    void aCancelledWizardLeavesTheRacewayToRaceOn_data();
    void aCancelledWizardLeavesTheRacewayToRaceOn();
    void aControlUnitIsSetUpRacedOnChangedAndRacedOnAgain();

private:
    void start();
    void startAgain();
    void setUpNewRaceway(const User& user);
    void setUpHardware();
    void changeRaceway(const User& user);
    void lookAtRaceway();
    void openSettings(ModalAnswers& answers, const std::function<void(QDialog*)>& user);

    void describeRaceway(WizardDriver& user);
    void learnSensors(WizardDriver& user);
    void compareRaceway(WizardDriver& user);
    void compareStored();
    void compareStoredBlob(const QByteArray& blob);
    void race();
    void press(int portId);
    void driveLap(int number, int lap);

    std::unique_ptr<SetupHardware> m_hardware;
    std::unique_ptr<RunningProgram> m_program;
};

void tst_raceway_setup::cleanup()
{
    m_program.reset();
    m_hardware.reset();
}

/** The program of a new user, who races without counting his laps beforehand. */
void tst_raceway_setup::start()
{
    StoredSetup setup;
    setup.rules.setRedLightsOnRaceStopped(true);
    setup.write();
    startAgain();
}

/** The program as the last one has left it. */
void tst_raceway_setup::startAgain()
{
    m_program.reset();
    m_program = std::make_unique<RunningProgram>();
}

/** Opens the settings dialog and lets @p user work with it, who leaves it by a button. */
void tst_raceway_setup::openSettings(ModalAnswers& answers, const std::function<void(QDialog*)>& user)
{
    answers.expect(user);
    m_program->pressKey(Qt::Key_G, Qt::ControlModifier);
}

/** Makes a raceway and chooses it. */
void tst_raceway_setup::setUpNewRaceway(const User& user)
{
    ModalAnswers answers;
    openSettings(answers, [&](QDialog* settings) {
        WizardDriver::expect(answers, user);
        click(settings, "newRaceway");
        selectRaceway(settings, Name);
        click(settings, "useRaceway");
        click(settings, "okButton");
    });
    QCOMPARE(m_program->infoText("racewayName"), Name);
}

/** Switches the hardware of the row on and makes a raceway on it, with every sensor learned. */
void tst_raceway_setup::setUpHardware()
{
    QFETCH(Maker, maker);
    m_hardware = maker();
    QVERIFY(m_hardware->switchOn());
    start();
    setUpNewRaceway([this](WizardDriver& user) {
        describeRaceway(user);
        learnSensors(user);
        user.finish();
    });
}

/** Edits the raceway that is chosen. */
void tst_raceway_setup::changeRaceway(const User& user)
{
    ModalAnswers answers;
    openSettings(answers, [&](QDialog* settings) {
        WizardDriver::expect(answers, user);
        selectRaceway(settings, Name);
        click(settings, "editRaceway");
        click(settings, "okButton");
    });
}

/** Goes through all pages and cancels the wizard, and the settings too. */
void tst_raceway_setup::lookAtRaceway()
{
    ModalAnswers answers;
    openSettings(answers, [&](QDialog* settings) {
        WizardDriver::expect(answers, [this](WizardDriver& wizard) { compareRaceway(wizard); });
        selectRaceway(settings, Name);
        click(settings, "editRaceway");
        click(settings, "cancelButton");
    });
}

/** The first three pages. */
void tst_raceway_setup::describeRaceway(WizardDriver& user)
{
    user.describe(Name, SetupHardware::Tracks);
    user.type("scaleEdit", "32");
    user.next();
    m_hardware->chooseInterface(user);
    user.next();
    QCOMPARE(user.pageName(), QString("CAvailableFeaturesPage"));
    user.check("chaosBox");
    for (const char* box : {"chaosOutputBox", "powerOffBox", "lightsBox"})
        user.check(box, m_hardware->hasOutputs());
    user.check("separateEndBox", m_hardware->hasEndSensors());
    user.choose("sectorBox", m_hardware->sectorIndex());
    user.choose("fuelBox", m_hardware->fuelIndex());
    user.next();
}

/** All pages behind those: each sensor is pressed at the raceway, each output chosen. */
void tst_raceway_setup::learnSensors(WizardDriver& user)
{
    for (; !user.page()->isLastPage(); user.next()) {
        if (user.pageName() == "COpenPage")
            m_hardware->learnOpen(user);
        for (const int id : m_hardware->sensors()) {
            if (user.pageName() == sensorPage(id))
                m_hardware->learn(user, id);
        }
        for (int id = PortId::FirstTrackPower; id <= PortId::ChaosSignal; ++id) {
            if (user.field<QWidget>(QStringLiteral("output%1").arg(id)))
                m_hardware->chooseOutput(user, id);
        }
        if (user.pageName().startsWith("CRwWizardSlotPage"))
            user.type("lengthEdit", user.pageName().endsWith('1') ? "1234" : "1260");
        if (user.pageName() == "CRwWizardDebounceTimePage")
            user.type("timeEdit", "200");
        if (QTest::currentTestFailed())
            return;
    }
}

/** Every page shows what was entered, learned and chosen. */
void tst_raceway_setup::compareRaceway(WizardDriver& user)
{
    QCOMPARE(user.field<QLineEdit>("nameEdit")->text(), Name);
    QCOMPARE(user.field<QComboBox>("tracksBox")->currentText(), QString("2"));
    QCOMPARE(user.field<QLineEdit>("scaleEdit")->text(), QString("32"));
    user.next();
    QVERIFY(m_hardware->showsInterface(user));
    user.next();
    QVERIFY(user.isChecked("chaosBox"));
    for (const char* box : {"chaosOutputBox", "powerOffBox", "lightsBox"})
        QCOMPARE(user.isChecked(box), m_hardware->hasOutputs());
    QCOMPARE(user.isChecked("separateEndBox"), m_hardware->hasEndSensors());
    QCOMPARE(user.field<QComboBox>("sectorBox")->currentIndex(), m_hardware->sectorIndex());
    QCOMPARE(user.field<QComboBox>("fuelBox")->currentIndex(), m_hardware->fuelIndex());
    user.next();
    int seen = 0;
    for (; !user.page()->isLastPage(); user.next()) {
        if (user.pageName() == "COpenPage")
            QCOMPARE(m_hardware->state(user), m_hardware->shownState(PortId::Open));
        for (const int id : m_hardware->sensors()) {
            if (user.pageName() != sensorPage(id))
                continue;
            QCOMPARE(m_hardware->state(user), m_hardware->shownState(id));
            ++seen;
        }
        for (int id = PortId::FirstTrackPower; id <= PortId::ChaosSignal; ++id) {
            if (user.field<QWidget>(QStringLiteral("output%1").arg(id)) && !user.output(id).isEmpty()) {
                QCOMPARE(user.output(id), m_hardware->shownOutput(id));
                ++seen;
            }
        }
        if (user.pageName().startsWith("CRwWizardSlotPage"))
            QCOMPARE(user.field<QLineEdit>("lengthEdit")->text(),
                     QString(user.pageName().endsWith('1') ? "1234" : "1260"));
        if (user.pageName() == "CRwWizardDebounceTimePage")
            QCOMPARE(user.field<QLineEdit>("timeEdit")->text(), QString("200"));
    }
    const int outputs = m_hardware->hasOutputs() ? SetupHardware::Tracks + 6 + 1 : 0;
    QCOMPARE(seen, m_hardware->sensors().size() + outputs);
}

/** What the file of the database holds of the raceway. */
void tst_raceway_setup::compareStored()
{
    const QString outputs = QString::number(int(m_hardware->hasOutputs()));
    QCOMPARE(columns("name, scale, noOfTracks, chaosButtonAvailable, chaosPhaseOutputAvailable, "
                     "pwrOffFeatureAvailable, externalLightsAvailable, startAndEndSensorSeparate, "
                     "numberOfSectors, fuelSensorSetup, minTime"),
             QStringList(QStringList({Name, "32", "2", "1", outputs, outputs, outputs,
                                      QString::number(int(m_hardware->hasEndSensors())),
                                      QString::number(m_hardware->sectorIndex() + 1),
                                      QString::number(m_hardware->fuelIndex()), "200"})
                             .join('|')));
    compareStoredBlob(m_hardware->blob());
    DatabaseFile file;
    QCOMPARE(file.rows("SELECT noOfTrack, length FROM tracks WHERE racewayId = "
                       "(SELECT id FROM raceways WHERE currentRw = 'x') ORDER BY noOfTrack"),
             QStringList({"1|1234", "2|1260"}));
}

void tst_raceway_setup::compareStoredBlob(const QByteArray& blob)
{
    const QString stored = DatabaseFile().value("SELECT replace(ioSettings, '|', '!') FROM raceways "
                                                "WHERE currentRw = 'x'");
    QCOMPARE(stored.section('!', 1), QString("end_stream!"));
    QCOMPARE(QByteArray::fromBase64(stored.section('!', 0, 0).toLatin1()).toHex(), blob.toHex());
}

/** Closes a sensor and opens it; the race sees that one alone. */
void tst_raceway_setup::press(int portId)
{
    SensorWatch watch(&m_program->race(), m_hardware->sensors());
    m_hardware->close(portId);
    QTRY_VERIFY2(!watch.events.isEmpty(), qPrintable(QString::number(portId)));
    QCOMPARE(watch.events.first(), QVector<int>{portId});
    m_hardware->open(portId);
    if (!m_hardware->tellsOfOpening())
        return;
    QTRY_COMPARE(watch.events.size(), 2);
    QCOMPARE(watch.events.last(), QVector<int>());
}

void tst_raceway_setup::driveLap(int number, int lap)
{
    const int track = number - 1;
    press(PortId::lapSensor(track));
    if (m_hardware->hasEndSensors()) {
        press(PortId::endSensor(track));
    } else if (lap == 1) {
        QCOMPARE(m_program->laps(number), QString("000"));
        press(PortId::lapSensor(track));
    }
    QCOMPARE(m_program->laps(number), QStringLiteral("%1").arg(lap, 3, 10, QLatin1Char('0')));
}

/** A race in which each sensor is closed, and each track gets two laps. */
void tst_raceway_setup::race()
{
    m_program->pressKey(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(m_program->race().isRaceActive());
    QVERIFY(m_program->race().io()->isRunning());
    m_hardware->raceBegins();
    press(PortId::ChaosButton);
    QCOMPARE(m_program->statuses(), QStringList({"pause", "pause"}));
    for (const int id : m_hardware->sensors()) {
        if (id != PortId::ChaosButton)
            press(id); // doesn't count in a chaos phase
        if (QTest::currentTestFailed())
            return;
    }
    QCOMPARE(m_program->laps(1) + m_program->laps(2), QString("000000"));
    press(PortId::ChaosButton);
    for (int lap = 1; lap <= 2; ++lap) {
        for (int number = 1; number <= SetupHardware::Tracks; ++number) {
            driveLap(number, lap);
            if (QTest::currentTestFailed())
                return;
        }
    }
    m_program->stopRace();
    QVERIFY(!m_program->race().isRaceActive());
    QCOMPARE(m_program->laps(1), QString("002"));
    QCOMPARE(m_program->laps(2), QString("002"));
}

void tst_raceway_setup::aRacewayIsSetUpRacedOnChangedAndRacedOnAgain_data()
{
    QTest::addColumn<Maker>("maker");
    QTest::newRow("parallel port") << &SetupHardware::parallelPort;
    QTest::newRow("IO-Warrior") << &SetupHardware::ioWarrior;
    QTest::newRow("AT2560") << &SetupHardware::at2560;
    QTest::newRow("RaceControl box") << &SetupHardware::raceControl;
}

void tst_raceway_setup::aRacewayIsSetUpRacedOnChangedAndRacedOnAgain()
{
    setUpHardware();
    compareStored();
    QVERIFY(!QTest::currentTestFailed());
    race();
    QVERIFY(!QTest::currentTestFailed());

    lookAtRaceway();
    compareStored();
    QVERIFY(!QTest::currentTestFailed());

    m_hardware->rewire(PortId::lapSensor(1));
    changeRaceway([this](WizardDriver& user) {
        QVERIFY(user.goTo("CRwWizardSlotPage 2"));
        m_hardware->learn(user, PortId::lapSensor(1));
        QCOMPARE(m_hardware->state(user), m_hardware->shownState(PortId::lapSensor(1)));
        user.goToTheEnd();
        user.finish();
    });
    compareStored();
    QVERIFY(!QTest::currentTestFailed());
    race();
    QVERIFY(!QTest::currentTestFailed());

    startAgain();
    race();
}

void tst_raceway_setup::aCancelledWizardLeavesTheRacewayToRaceOn_data()
{
    aRacewayIsSetUpRacedOnChangedAndRacedOnAgain_data();
}

/** Another raceway is begun, learned to its end on other ports, and given up. */
void tst_raceway_setup::aCancelledWizardLeavesTheRacewayToRaceOn()
{
    setUpHardware();
    QVERIFY(!QTest::currentTestFailed());
    QVERIFY(!QTest::currentTestFailed());
    ModalAnswers answers;
    openSettings(answers, [&](QDialog* settings) {
        WizardDriver::expect(answers, [this](WizardDriver& user) {
            user.describe("Andere", 3);
            user.next();
            m_hardware->chooseAnother(user);
            for (; !user.page()->isLastPage(); user.next()) {
                if (user.field<QPushButton>("learnButton"))
                    user.learn();
            }
            user.cancel();
        });
        click(settings, "newRaceway");
        click(settings, "cancelButton");
    });
    QCOMPARE(answers.numberOfWindows(), 2);
    compareStored();
    QCOMPARE(DatabaseFile().value("SELECT count(*) FROM raceways"), QString("2"));
    QVERIFY(!QTest::currentTestFailed());
    race();
}

/** It tells of its sensors by itself; all there is to change is its line. */
void tst_raceway_setup::aControlUnitIsSetUpRacedOnChangedAndRacedOnAgain()
{
    const auto blobFor = [](const QString& path) {
        StreamBytes blob;
        blob.int32(5).text(path);
        for (int mask = 0; mask < 25; ++mask)
            blob.int32(-1);
        blob.raw(QByteArray(15, '\0'));
        for (int mask = 0; mask < 40; ++mask)
            blob.int32(-1);
        return blob.bytes();
    };
    const auto drive = [this](VirtualUnit& unit) {
        m_program->pressKey(Qt::Key_S, Qt::ControlModifier);
        unit.command("start");
        QTRY_VERIFY_WITH_TIMEOUT(m_program->laps(1) > "001" && m_program->laps(2) > "001", 30000);
        m_program->stopRace();
        QVERIFY(!m_program->race().isRaceActive());
    };
    const QStringList cars{"--cars", "2", "--speed-up", "10", "--light-step", "0"};
    VirtualUnit unit;
    QVERIFY(unit.start(cars));
    start();
    setUpNewRaceway([&unit](WizardDriver& user) {
        user.describe(Name, 2);
        user.next();
        user.choose("hardwareBox", "Carrera CU");
        user.typePort(unit.path());
        QVERIFY(user.goTo("CRwWizardSlotPage 1"));
        user.learn(); // there is nothing to learn
        user.goToTheEnd();
        user.finish();
    });
    compareStoredBlob(blobFor(unit.path()));
    QVERIFY(!QTest::currentTestFailed());
    drive(unit);
    QVERIFY(!QTest::currentTestFailed());

    VirtualUnit other;
    QVERIFY(other.start(cars));
    changeRaceway([&](WizardDriver& user) {
        QCOMPARE(user.field<QLineEdit>("nameEdit")->text(), Name);
        user.next();
        QCOMPARE(user.field<QComboBox>("hardwareBox")->currentText(), QString("Carrera CU"));
        QCOMPARE(user.port(), unit.path());
        user.typePort(other.path());
        user.goToTheEnd();
        user.finish();
    });
    compareStoredBlob(blobFor(other.path()));
    QVERIFY(!QTest::currentTestFailed());
    drive(other);
}

QTEST_APPLESS_MAIN(tst_raceway_setup)
#include "tst_raceway_setup.moc"
