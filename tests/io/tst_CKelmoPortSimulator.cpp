#include "EventSink.h"
#include "io/CKelmoPortSimulator.h"

#include <QPushButton>
#include <QVBoxLayout>
#include <QtTest>

namespace {

QList<int> eightFrom(int first)
{
    QList<int> ids;
    for (int id = first; id < first + 8; ++id)
        ids.append(id);
    return ids;
}

CRaceway fullRaceway(int tracks)
{
    CRaceway raceway(tracks);
    raceway.chaosButtonAvailable = true;
    raceway.startAndEndSensorSeparate = true;
    raceway.numberOfSectors = 3;
    raceway.fuelSensorSetup = 4;
    return raceway;
}

} // namespace

class tst_CKelmoPortSimulator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void buttonHasItsTextAndClosesItsSensors_data();
    void buttonHasItsTextAndClosesItsSensors();
    void slotOfAButtonClosesItsSensors_data();
    void slotOfAButtonClosesItsSensors();
    void everyButtonPostsItsReleaseToo();
    void buttonsStandInTheirOrderFromTopToBottom();
    void heldKeyIsAClosedSensor();
    void digitIsTheAcceleratorOfItsButton();
    void releaseWithNothingPressedBeforePostsAnEvent();
    void onePressReplacesThePatternBefore();
    void closingTheDialogReleasesAHeldButton();
    void deletingTheDialogReleasesAHeldButton();
    void eachOpeningBeginsANewTimeBaseNearZero();
    void stampsGrowWithTheClock();
    void eventsMixWithThoseOfAnInterfaceOnAnotherTimeBase();
    void pressBeforeTheFirstShowCannotHappenAsNothingIsVisible();
    void withoutAReceiverPressingIsHarmless();
    void deletedReceiverIsForgotten();
    void dialogIsNotModal();

    void featuresOfTheRacewayDecideTheRows_data();
    void featuresOfTheRacewayDecideTheRows();
    void fuelSensorSetupDecidesTheFuelRows_data();
    void fuelSensorSetupDecidesTheFuelRows();
    void onARacewayOfOneTrackTheButtonsOfAllTracksAndTheChaosButtonStayHidden();
    void moreThanEightTracksShowEight();
    void racewayWithoutTracksShowsAllSlotsAlone();
    void anotherRacewayReplacesTheOneBefore();

private:
    QPushButton* button(const QString& name) const;
    bool isVisible(const QString& name) const;
    int visibleOf(const QString& suffix) const;

    std::unique_ptr<EventSink> m_sink;
    std::unique_ptr<CKelmoPortSimulator> m_simulator;
};

void tst_CKelmoPortSimulator::init()
{
    m_sink = std::make_unique<EventSink>();
    m_simulator = std::make_unique<CKelmoPortSimulator>();
    m_simulator->setReceiver(m_sink.get());
    m_simulator->setRaceway(fullRaceway(8));
}

void tst_CKelmoPortSimulator::cleanup()
{
    m_simulator.reset();
    m_sink.reset();
}

QPushButton* tst_CKelmoPortSimulator::button(const QString& name) const
{
    return m_simulator->findChild<QPushButton*>(name);
}

bool tst_CKelmoPortSimulator::isVisible(const QString& name) const
{
    return button(name)->isVisibleTo(m_simulator.get());
}

/** @return how many of a row's numbered buttons are visible; -1 if they aren't the first ones. */
int tst_CKelmoPortSimulator::visibleOf(const QString& suffix) const
{
    int visible = 0;
    for (int number = 1; number <= 8; ++number) {
        if (!isVisible(QStringLiteral("slot%1%2").arg(number).arg(suffix)))
            continue;
        if (++visible != number)
            return -1;
    }
    return visible;
}

void tst_CKelmoPortSimulator::buttonHasItsTextAndClosesItsSensors_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<int>>("ids");
    const auto add = [](const QString& name, const QString& text, const QList<int>& ids) {
        QTest::newRow(qPrintable(name)) << name << text << ids;
    };
    for (int n = 1; n <= 8; ++n) {
        const QString slot = QStringLiteral("slot%1").arg(n);
        add(slot, QStringLiteral("Slot &%1").arg(n), {n});
        add(slot + "Fuel", QStringLiteral("Tanken &%1").arg(n), {24 + n});
        add(slot + "FuelEnd", QStringLiteral("Tanken Ende &%1").arg(n), {32 + n});
        add(slot + "Sector2Begin", QStringLiteral("Sektor2 Slot &%1").arg(n), {40 + n});
        add(slot + "Sector3Begin", QStringLiteral("Sektor3 Slot &%1").arg(n), {48 + n});
        add(slot + "EndSensor", QStringLiteral("Ende Slot &%1").arg(n), {56 + n});
    }
    add("all", "Alle Slots", eightFrom(1));
    add("allRefuel", "Alle auftanken", eightFrom(25));
    add("allRefuelEnd", "Alle auftanken beenden", eightFrom(33));
    add("allSector2Begin", "Alle Sektor 2", eightFrom(41));
    add("allSector3Begin", "Alle Sektor 3", eightFrom(49));
    add("allEndSensors", "Alle Slots Ende", eightFrom(57));
    add("chaosButton", "Chaostaste", {9});
}

void tst_CKelmoPortSimulator::buttonHasItsTextAndClosesItsSensors()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(QList<int>, ids);
    m_simulator->show();
    QPushButton* pressed = button(name);
    QVERIFY(pressed);
    QVERIFY(pressed->isVisible());
    QCOMPARE(pressed->text(), text);
    QTest::mousePress(pressed, Qt::LeftButton);
    QTRY_COMPARE(m_sink->events.size(), 1);
    QCOMPARE(m_sink->events.at(0).sensors.size(), 65);
    QCOMPARE(m_sink->closed(0), ids);
    QTest::mouseRelease(pressed, Qt::LeftButton);
    QTRY_COMPARE(m_sink->events.size(), 2);
    QCOMPARE(m_sink->events.at(1).sensors, QBitArray(65));
}

void tst_CKelmoPortSimulator::slotOfAButtonClosesItsSensors_data()
{
    buttonHasItsTextAndClosesItsSensors_data();
}

void tst_CKelmoPortSimulator::slotOfAButtonClosesItsSensors()
{
    QFETCH(QString, name);
    QFETCH(QList<int>, ids);
    QVERIFY(QMetaObject::invokeMethod(m_simulator.get(), qPrintable(name + "Pressed")));
    QTRY_COMPARE(m_sink->events.size(), 1);
    QCOMPARE(m_sink->closed(0), ids);
}

void tst_CKelmoPortSimulator::everyButtonPostsItsReleaseToo()
{
    m_simulator->show();
    const auto buttons = m_simulator->findChildren<QPushButton*>();
    QCOMPARE(buttons.size(), 55);
    for (QPushButton* each : buttons)
        QTest::mouseClick(each, Qt::LeftButton);
    QTRY_COMPARE(m_sink->events.size(), 2 * 55);
    for (int i = 1; i < m_sink->events.size(); i += 2)
        QCOMPARE(m_sink->events.at(i).sensors.count(true), 0);
}

void tst_CKelmoPortSimulator::buttonsStandInTheirOrderFromTopToBottom()
{
    m_simulator->show();
    const QStringList order{"slot1",
                            "all",
                            "slot1Sector2Begin",
                            "allSector2Begin",
                            "slot1Sector3Begin",
                            "allSector3Begin",
                            "slot1EndSensor",
                            "allEndSensors",
                            "slot1Fuel",
                            "allRefuel",
                            "slot1FuelEnd",
                            "allRefuelEnd",
                            "chaosButton"};
    QVERIFY(qobject_cast<QVBoxLayout*>(m_simulator->layout()));
    for (int i = 1; i < order.size(); ++i)
        QVERIFY2(button(order.at(i - 1))->geometry().bottom() < button(order.at(i))->y(),
                 qPrintable(order.at(i)));
    for (int number = 2; number <= 8; ++number) {
        const QPushButton* left = button(QStringLiteral("slot%1").arg(number - 1));
        QVERIFY(left->geometry().right() < button(QStringLiteral("slot%1").arg(number))->x());
    }
}

void tst_CKelmoPortSimulator::heldKeyIsAClosedSensor()
{
    m_simulator->show();
    QPushButton* slot = button("slot2");
    slot->setFocus();
    QTest::keyPress(slot, Qt::Key_Space);
    QTRY_COMPARE(m_sink->events.size(), 1);
    QCOMPARE(m_sink->closed(0), QList<int>{2});
    QTest::keyRelease(slot, Qt::Key_Space);
    QTRY_COMPARE(m_sink->events.size(), 2);
    QCOMPARE(m_sink->closed(1), QList<int>());
}

void tst_CKelmoPortSimulator::digitIsTheAcceleratorOfItsButton()
{
    m_simulator->setRaceway(CRaceway(4));
    m_simulator->show();
    QVERIFY(QTest::qWaitForWindowActive(m_simulator.get()));
    QTest::keyClick(m_simulator.get(), Qt::Key_3, Qt::AltModifier);
    QTRY_COMPARE(m_sink->events.size(), 2);
    QCOMPARE(m_sink->closed(0), QList<int>{3});
    QCOMPARE(m_sink->closed(1), QList<int>());
}

void tst_CKelmoPortSimulator::releaseWithNothingPressedBeforePostsAnEvent()
{
    m_simulator->slotReleased();
    QTRY_COMPARE(m_sink->events.size(), 1);
    QCOMPARE(m_sink->events.at(0).sensors, QBitArray(65));
}

void tst_CKelmoPortSimulator::onePressReplacesThePatternBefore()
{
    m_simulator->show();
    QTest::mousePress(button("slot1"), Qt::LeftButton);
    QTest::mousePress(button("slot2"), Qt::LeftButton);
    QTRY_COMPARE(m_sink->events.size(), 2);
    QCOMPARE(m_sink->closed(1), QList<int>{2});
}

void tst_CKelmoPortSimulator::closingTheDialogReleasesAHeldButton()
{
    m_simulator->show();
    QVERIFY(QTest::qWaitForWindowActive(m_simulator.get()));
    QTest::mousePress(button("slot1"), Qt::LeftButton);
    m_simulator->close();
    QTRY_COMPARE(m_sink->events.size(), 2);
    QCOMPARE(m_sink->closed(0), QList<int>{1});
    QCOMPARE(m_sink->closed(1), QList<int>());
}

void tst_CKelmoPortSimulator::deletingTheDialogReleasesAHeldButton()
{
    m_simulator->show();
    QVERIFY(QTest::qWaitForWindowActive(m_simulator.get()));
    QTest::mousePress(button("slot1"), Qt::LeftButton);
    m_simulator.reset();
    QTRY_COMPARE(m_sink->events.size(), 2);
    QCOMPARE(m_sink->closed(1), QList<int>());
}

void tst_CKelmoPortSimulator::eachOpeningBeginsANewTimeBaseNearZero()
{
    m_simulator->show();
    do { // let the stamps of the first opening grow
        QTest::mouseClick(button("slot1"), Qt::LeftButton);
        QCoreApplication::processEvents();
    } while (m_sink->events.last().time < 100);
    m_simulator->close();
    m_sink->events.clear();

    QElapsedTimer sinceOpening;
    sinceOpening.start();
    m_simulator->show();
    QTest::mouseClick(button("slot1"), Qt::LeftButton);
    QTRY_COMPARE(m_sink->events.size(), 2);
    QVERIFY(m_sink->events.at(0).time <= sinceOpening.elapsed());
    m_simulator->show(); // begins one even while the dialog is open
    sinceOpening.start();
    m_simulator->slotReleased();
    QTRY_COMPARE(m_sink->events.size(), 3);
    QVERIFY(m_sink->events.at(2).time >= 0);
}

void tst_CKelmoPortSimulator::stampsGrowWithTheClock()
{
    m_simulator->show();
    QElapsedTimer clock;
    clock.start();
    m_simulator->slotReleased();
    QTRY_VERIFY(clock.elapsed() >= 60);
    const int elapsed = int(clock.elapsed());
    m_simulator->slotReleased();
    QTRY_COMPARE(m_sink->events.size(), 2);
    QVERIFY(m_sink->events.at(1).time >= elapsed);
    QVERIFY(m_sink->events.at(1).time > m_sink->events.at(0).time);
}

void tst_CKelmoPortSimulator::eventsMixWithThoseOfAnInterfaceOnAnotherTimeBase()
{
    m_simulator->show();
    QBitArray sensors(65);
    sensors.setBit(4);
    QCoreApplication::postEvent(m_sink.get(), new CDriveThroughEvent(sensors, 1000000));
    QTest::mousePress(button("slot1"), Qt::LeftButton);
    QCoreApplication::postEvent(m_sink.get(), new CDriveThroughEvent(QBitArray(65), 1000001));
    QTRY_COMPARE(m_sink->events.size(), 3);
    QCOMPARE(m_sink->closed(0), QList<int>{4});
    QCOMPARE(m_sink->closed(1), QList<int>{1}); // a pattern of its own, without the sensor of the other
    QVERIFY(m_sink->events.at(1).time < 1000000);
    QCOMPARE(m_sink->events.at(2).time, 1000001);
}

void tst_CKelmoPortSimulator::pressBeforeTheFirstShowCannotHappenAsNothingIsVisible()
{
    QVERIFY(!m_simulator->isVisible());
    for (const QPushButton* each : m_simulator->findChildren<QPushButton*>())
        QVERIFY(!each->isVisible());
    m_simulator->show();
    QVERIFY(button("slot1")->isVisible());
    m_simulator->close();
    QVERIFY(!button("slot1")->isVisible());
}

void tst_CKelmoPortSimulator::withoutAReceiverPressingIsHarmless()
{
    m_simulator->setReceiver(nullptr);
    m_simulator->show();
    QTest::mouseClick(button("slot1"), Qt::LeftButton);
    QCoreApplication::processEvents();
    QVERIFY(m_sink->events.isEmpty());
}

void tst_CKelmoPortSimulator::deletedReceiverIsForgotten()
{
    m_sink.reset();
    m_simulator->show();
    QTest::mouseClick(button("slot1"), Qt::LeftButton);
    QCoreApplication::processEvents();
    QVERIFY(m_simulator->isVisible());
}

void tst_CKelmoPortSimulator::dialogIsNotModal()
{
    m_simulator->show();
    QVERIFY(!m_simulator->isModal());
    QCOMPARE(QApplication::activeModalWidget(), static_cast<QWidget*>(nullptr));
}

void tst_CKelmoPortSimulator::featuresOfTheRacewayDecideTheRows_data()
{
    QTest::addColumn<int>("sectors");
    QTest::addColumn<bool>("separateEnd");
    QTest::addColumn<bool>("chaos");
    for (int sectors = 0; sectors <= 4; ++sectors) {
        QTest::addRow("%d sectors", sectors) << sectors << false << false;
        QTest::addRow("%d sectors, end sensors", sectors) << sectors << true << false;
        QTest::addRow("%d sectors, chaos button", sectors) << sectors << false << true;
    }
}

void tst_CKelmoPortSimulator::featuresOfTheRacewayDecideTheRows()
{
    QFETCH(int, sectors);
    QFETCH(bool, separateEnd);
    QFETCH(bool, chaos);
    CRaceway raceway(3);
    raceway.numberOfSectors = sectors;
    raceway.startAndEndSensorSeparate = separateEnd;
    raceway.chaosButtonAvailable = chaos;
    m_simulator->setRaceway(raceway);
    QCOMPARE(m_simulator->raceway().numberOfSectors, sectors);
    QCOMPARE(visibleOf(""), 3);
    QVERIFY(isVisible("all"));
    QCOMPARE(visibleOf("Sector2Begin"), sectors > 1 ? 3 : 0);
    QCOMPARE(isVisible("allSector2Begin"), sectors > 1);
    QCOMPARE(visibleOf("Sector3Begin"), sectors > 2 ? 3 : 0);
    QCOMPARE(isVisible("allSector3Begin"), sectors > 2);
    QCOMPARE(visibleOf("EndSensor"), separateEnd ? 3 : 0);
    QCOMPARE(isVisible("allEndSensors"), separateEnd);
    QCOMPARE(isVisible("chaosButton"), chaos);
}

void tst_CKelmoPortSimulator::fuelSensorSetupDecidesTheFuelRows_data()
{
    QTest::addColumn<int>("setup");
    QTest::addColumn<bool>("fuel");
    QTest::addColumn<bool>("fuelEnd");
    QTest::newRow("0") << 0 << false << false;
    QTest::newRow("1") << 1 << true << false;
    QTest::newRow("2") << 2 << false << true;
    QTest::newRow("3") << 3 << true << false;
    QTest::newRow("4") << 4 << true << true;
    QTest::newRow("out of range") << 5 << false << false;
    QTest::newRow("negative") << -1 << false << false;
}

void tst_CKelmoPortSimulator::fuelSensorSetupDecidesTheFuelRows()
{
    QFETCH(int, setup);
    QFETCH(bool, fuel);
    QFETCH(bool, fuelEnd);
    CRaceway raceway(2);
    raceway.fuelSensorSetup = setup;
    m_simulator->setRaceway(raceway);
    QCOMPARE(visibleOf("Fuel"), fuel ? 2 : 0);
    QCOMPARE(isVisible("allRefuel"), fuel);
    QCOMPARE(visibleOf("FuelEnd"), fuelEnd ? 2 : 0);
    QCOMPARE(isVisible("allRefuelEnd"), fuelEnd);
}

void tst_CKelmoPortSimulator::onARacewayOfOneTrackTheButtonsOfAllTracksAndTheChaosButtonStayHidden()
{
    m_simulator->setRaceway(fullRaceway(1));
    for (const char* suffix : {"", "Fuel", "FuelEnd", "Sector2Begin", "Sector3Begin", "EndSensor"})
        QCOMPARE(visibleOf(suffix), 1);
    QVERIFY(isVisible("all"));
    for (const char* name :
         {"chaosButton", "allRefuel", "allRefuelEnd", "allSector2Begin", "allSector3Begin", "allEndSensors"})
        QVERIFY2(!isVisible(name), name);
}

void tst_CKelmoPortSimulator::moreThanEightTracksShowEight()
{
    m_simulator->setRaceway(fullRaceway(11));
    for (const char* suffix : {"", "Fuel", "FuelEnd", "Sector2Begin", "Sector3Begin", "EndSensor"})
        QCOMPARE(visibleOf(suffix), 8);
}

void tst_CKelmoPortSimulator::racewayWithoutTracksShowsAllSlotsAlone()
{
    m_simulator->setRaceway(fullRaceway(0));
    for (const QPushButton* each : m_simulator->findChildren<QPushButton*>())
        QCOMPARE(each->isVisibleTo(m_simulator.get()), each->objectName() == QLatin1String("all"));
}

void tst_CKelmoPortSimulator::anotherRacewayReplacesTheOneBefore()
{
    m_simulator->show();
    const int heightOfAll = m_simulator->height();
    m_simulator->setRaceway(CRaceway(2));
    QVERIFY(m_simulator->height() < heightOfAll); // and leaves no gap
    QCOMPARE(visibleOf(""), 2);
    QCOMPARE(visibleOf("Fuel"), 0);
    QVERIFY(!isVisible("chaosButton"));
    m_simulator->setRaceway(fullRaceway(5));
    QCOMPARE(visibleOf(""), 5);
    QCOMPARE(visibleOf("FuelEnd"), 5);
    QVERIFY(isVisible("chaosButton"));
}

QTEST_MAIN(tst_CKelmoPortSimulator)
#include "tst_CKelmoPortSimulator.moc"
