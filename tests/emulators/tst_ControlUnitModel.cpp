#include "ControlUnitModel.h"

#include <QtTest>

namespace {

constexpr qint64 Millisecond = 1000;
const QByteArray Poll = "\"?";

ControlUnitSettings quickSettings(int cars)
{
    ControlUnitSettings settings;
    settings.cars = QVector<ControlUnitSettings::Car>(cars);
    settings.lightStep = 0;
    settings.baud = 0;
    return settings;
}

} // namespace

class tst_ControlUnitModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void framesLookAsTheyShould();
    void aPollIsAnsweredByTheStatus();
    void aPollWithATrailingDollarIsAnsweredOnce();
    void nothingIsSaidUnasked();
    void aPollInPiecesIsHeard();
    void otherCommandsAreKept();
    void thePaceIsThatOfTheLine();
    void aStatusOfNewerFirmwareIsTwoLonger();
    void tanksShowInTheStatus();
    void theLightsRunThroughTheirSequence();
    void lapsComeInOrderAndOncePerCar();
    void sectorsComeBetweenTheLaps();
    void theSameSeedDrivesTheSameLaps();
    void speedUpSqueezesTheRaceOnly();
    void aCrossingStaysUntilItWasReadable_data();
    void aCrossingStaysUntilItWasReadable();
    void anAnswerThatJoinsAnUnfinishedOneIsRepeated();
    void twoCarsAreRepeatedAlternatelyWithUnchangedStamps();
    void aSilentUnitHearsNoPoll();
    void aLateUnitAnswersAllPolls();
    void aPulledCableLosesNoCrossing();
    void stopTakesTheCarsOffTheTrack();
    void randomBytesDoNoHarm();

private:
    ControlUnitModel& make(const ControlUnitSettings& settings);
    QByteArray ask();
    QVector<Crossing> drive(const ControlUnitSettings& settings);

    qint64 m_now = 0;
    std::unique_ptr<ControlUnitModel> m_model;
    QVector<Crossing> m_journal;
};

void tst_ControlUnitModel::init()
{
    m_now = 0;
    m_journal.clear();
}

ControlUnitModel& tst_ControlUnitModel::make(const ControlUnitSettings& settings)
{
    m_model = std::make_unique<ControlUnitModel>(settings, [this] { return m_now; });
    m_model->setJournal([this](const Crossing& crossing) { m_journal.append(crossing); });
    return *m_model;
}

QByteArray tst_ControlUnitModel::ask()
{
    m_model->receive(Poll);
    return m_model->transmit();
}

QVector<Crossing> tst_ControlUnitModel::drive(const ControlUnitSettings& settings)
{
    make(settings).pressStart();
    for (int step = 0; step < 100000 && !m_model->isFinished(); ++step) {
        m_now += 10 * Millisecond;
        ask();
    }
    return m_journal;
}

void tst_ControlUnitModel::framesLookAsTheyShould()
{
    QCOMPARE(ControlUnitFrames::lap({1, 0, 1}), QByteArray("?10000000012$"));
    QCOMPARE(ControlUnitFrames::lap({8, 0x12345678, 3}).left(11), QByteArray("?8214365873"));
    QCOMPARE(ControlUnitFrames::status({15, 0, 1}, 7, 17).left(11), QByteArray("?:?01000007"));
    QCOMPARE(ControlUnitFrames::status({15, 0, 1}, 7, 17).size(), 17);
    QVERIFY(ControlUnitFrames::looksValid("?10000000012$"));
    QVERIFY(!ControlUnitFrames::looksValid("?10000000013$"));
}

void tst_ControlUnitModel::aPollIsAnsweredByTheStatus()
{
    make(quickSettings(2));
    const QByteArray answer = ask();
    QCOMPARE(answer.left(2), QByteArray("?:"));
    QCOMPARE(answer.size(), 17);
    QVERIFY(ControlUnitFrames::looksValid(answer));
    QCOMPARE(m_model->polls(), 1);
}

void tst_ControlUnitModel::aPollWithATrailingDollarIsAnsweredOnce()
{
    ControlUnitModel& model = make(quickSettings(2));
    model.receive(Poll + '$');
    const QByteArray answers = model.transmit();
    QCOMPARE(answers.count('$'), 1);
    QCOMPARE(model.polls(), 1);
    QVERIFY(model.commands().isEmpty());
}

void tst_ControlUnitModel::nothingIsSaidUnasked()
{
    ControlUnitModel& model = make(quickSettings(2));
    model.pressStart();
    m_now += 60000 * Millisecond;
    QVERIFY(model.transmit().isEmpty());
    QCOMPARE(model.nextChange(), qint64(-1));
}

void tst_ControlUnitModel::aPollInPiecesIsHeard()
{
    ControlUnitModel& model = make(quickSettings(2));
    model.receive("\"");
    QVERIFY(model.transmit().isEmpty());
    model.receive("?");
    QCOMPARE(model.transmit().size(), 17);
}

void tst_ControlUnitModel::otherCommandsAreKept()
{
    ControlUnitModel& model = make(quickSettings(2));
    model.receive("\"=101$\"?\"0\"?\":3F9$");
    const QList<QByteArray> expected{"\"=101$", "\"0", "\":3F9$"};
    QCOMPARE(model.commands(), expected);
    QCOMPARE(model.polls(), 2);
}

void tst_ControlUnitModel::thePaceIsThatOfTheLine()
{
    ControlUnitSettings settings = quickSettings(2);
    settings.baud = 19200;
    ControlUnitModel& model = make(settings);
    model.receive(Poll);
    QCOMPARE(model.nextChange(), qint64(1040)); // two bytes of ten bits
    m_now = 1040;
    QVERIFY(model.transmit().isEmpty());
    m_now = 1040 + 520;
    QCOMPARE(model.transmit(), QByteArray("?"));
    m_now = 1040 + 10 * 520;
    QCOMPARE(model.transmit().size(), 9);
    m_now = 1040 + 17 * 520;
    QCOMPARE(model.transmit().size(), 7);
    QCOMPARE(model.nextChange(), qint64(-1));
}

void tst_ControlUnitModel::aStatusOfNewerFirmwareIsTwoLonger()
{
    ControlUnitSettings settings = quickSettings(2);
    settings.longStatus = true;
    make(settings);
    const QByteArray answer = ask();
    QCOMPARE(answer.size(), 19);
    QVERIFY(ControlUnitFrames::looksValid(answer));
    m_model->setLongStatus(false);
    QCOMPARE(ask().size(), 17);
}

void tst_ControlUnitModel::tanksShowInTheStatus()
{
    ControlUnitModel& model = make(quickSettings(3));
    model.setFuel(2, 4);
    model.setFuel(3, 99);
    model.setFuel(4, 1); // there is no such car
    QCOMPARE(ask().mid(2, 6), QByteArray("?4?000"));
}

void tst_ControlUnitModel::theLightsRunThroughTheirSequence()
{
    ControlUnitSettings settings = quickSettings(2);
    settings.lightStep = 1000;
    ControlUnitModel& model = make(settings);
    QCOMPARE(ask().at(10), '0');
    model.pressStart();
    QByteArray seen;
    for (int step = 0; step < 10; ++step) {
        const QByteArray answer = ask();
        if (answer.startsWith("?:"))
            seen += answer.at(10);
        m_now += 1000 * Millisecond;
    }
    QVERIFY2(seen.startsWith("1234567"), seen);
    QCOMPARE(model.startLight(), 0);
}

void tst_ControlUnitModel::lapsComeInOrderAndOncePerCar()
{
    ControlUnitSettings settings = quickSettings(8);
    settings.laps = 20;
    const QVector<Crossing> journal = drive(settings);
    QVERIFY(m_model->isFinished());
    QCOMPARE(journal.size(), 8 * 21); // one crossing more than laps
    QMap<int, quint32> last;
    quint32 before = 0;
    for (const Crossing& crossing : journal) {
        QVERIFY(crossing.stamp >= before);
        before = crossing.stamp;
        QCOMPARE(crossing.group, 1);
        if (last.contains(crossing.car)) {
            const int lap = int(crossing.stamp - last.value(crossing.car));
            QVERIFY2(lap >= 5600 && lap <= 6400, qPrintable(QString::number(lap)));
        }
        last[crossing.car] = crossing.stamp;
    }
    QCOMPARE(last.size(), 8);
}

void tst_ControlUnitModel::sectorsComeBetweenTheLaps()
{
    ControlUnitSettings settings = quickSettings(1);
    settings.sectors = 3;
    settings.laps = 3;
    const QVector<Crossing> journal = drive(settings);
    QVector<int> groups;
    for (const Crossing& crossing : journal)
        groups.append(crossing.group);
    QCOMPARE(groups, (QVector<int>{1, 2, 3, 1, 2, 3, 1, 2, 3, 1}));
}

void tst_ControlUnitModel::theSameSeedDrivesTheSameLaps()
{
    ControlUnitSettings settings = quickSettings(4);
    settings.laps = 5;
    settings.sectors = 2;
    const QVector<Crossing> first = drive(settings);
    init();
    QVERIFY(drive(settings) == first);
    init();
    settings.seed = 2;
    QVERIFY(drive(settings) != first);
}

void tst_ControlUnitModel::speedUpSqueezesTheRaceOnly()
{
    ControlUnitSettings settings = quickSettings(1);
    settings.laps = 3;
    const QVector<Crossing> slow = drive(settings);
    const qint64 slowTime = m_now;
    init();
    settings.speedUp = 10;
    const QVector<Crossing> fast = drive(settings);
    QVERIFY(fast == slow);
    QVERIFY(m_now <= slowTime / 10 + 10 * Millisecond);
}

void tst_ControlUnitModel::aCrossingStaysUntilItWasReadable_data()
{
    QTest::addColumn<int>("fault");
    QTest::newRow("noise") << int(ControlUnitModel::Fault::Noise);
    QTest::newRow("bad checksum") << int(ControlUnitModel::Fault::BadChecksum);
}

void tst_ControlUnitModel::aCrossingStaysUntilItWasReadable()
{
    QFETCH(int, fault);
    ControlUnitModel& model = make(quickSettings(1));
    model.pressStart();
    m_now += 1000 * Millisecond;
    for (int round = 0; round < 200; ++round) {
        model.spoilNext(ControlUnitModel::Fault(fault));
        const QByteArray spoilt = ask();
        QVERIFY(spoilt.endsWith('$'));
        QVERIFY2(!ControlUnitFrames::looksValid(spoilt), spoilt);
        QVERIFY(m_journal.isEmpty());
    }
    const QByteArray good = ask();
    QCOMPARE(m_journal.size(), 1);
    QCOMPARE(good, ControlUnitFrames::lap(m_journal.first()));
    QCOMPARE(ask().left(2), QByteArray("?:"));
}

void tst_ControlUnitModel::anAnswerThatJoinsAnUnfinishedOneIsRepeated()
{
    ControlUnitModel& model = make(quickSettings(1));
    model.pressStart();
    m_now += 1000 * Millisecond;
    model.spoilNext(ControlUnitModel::Fault::LostEnd);
    const QByteArray unfinished = ask();
    const QByteArray joining = ask();
    QVERIFY(m_journal.isEmpty());
    const QByteArray good = ask();
    QCOMPARE(m_journal.size(), 1);
    QCOMPARE(unfinished + '$', good);
    QCOMPARE(joining, good);
    QCOMPARE(ask().left(2), QByteArray("?:"));
}

void tst_ControlUnitModel::twoCarsAreRepeatedAlternatelyWithUnchangedStamps()
{
    ControlUnitModel& model = make(quickSettings(2));
    model.pressStart();
    m_now += 1000 * Millisecond;
    model.repeatNext();
    const QByteArray first = ask();
    const QByteArray second = ask();
    QVERIFY(first != second);
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(ask(), first);
        QCOMPARE(ask(), second);
    }
    QCOMPARE(ask().left(2), QByteArray("?:"));
    QCOMPARE(m_journal.size(), 2);
}

void tst_ControlUnitModel::aSilentUnitHearsNoPoll()
{
    ControlUnitModel& model = make(quickSettings(2));
    model.fallSilent(500);
    QVERIFY(ask().isEmpty());
    m_now += 499 * Millisecond;
    QVERIFY(ask().isEmpty());
    m_now += 1 * Millisecond;
    QCOMPARE(ask().size(), 17);
}

void tst_ControlUnitModel::aLateUnitAnswersAllPolls()
{
    ControlUnitModel& model = make(quickSettings(2));
    model.answerLate(500);
    QVERIFY(ask().isEmpty());
    m_now += 499 * Millisecond;
    QVERIFY(ask().isEmpty());
    QCOMPARE(model.nextChange(), 500 * Millisecond);
    m_now += 1 * Millisecond;
    QCOMPARE(model.transmit().size(), 2 * 17);
}

void tst_ControlUnitModel::aPulledCableLosesNoCrossing()
{
    ControlUnitSettings settings = quickSettings(1);
    settings.baud = 19200;
    ControlUnitModel& model = make(settings);
    model.pressStart();
    m_now += 1000 * Millisecond;
    ask();
    m_now += 5 * Millisecond;
    QVERIFY(!model.transmit().isEmpty()); // the first half of it
    model.unplug();
    m_now += 100 * Millisecond;
    QVERIFY(model.transmit().isEmpty());
    QVERIFY(m_journal.isEmpty());
    ask();
    m_now += 100 * Millisecond;
    QCOMPARE(model.transmit().left(2), QByteArray("?1"));
    QCOMPARE(m_journal.size(), 1);
}

void tst_ControlUnitModel::stopTakesTheCarsOffTheTrack()
{
    ControlUnitModel& model = make(quickSettings(2));
    model.pressStart();
    QVERIFY(!model.isFinished());
    model.stopCars();
    m_now += 60000 * Millisecond;
    QCOMPARE(ask().left(2), QByteArray("?:"));
    QVERIFY(model.isFinished());
}

void tst_ControlUnitModel::randomBytesDoNoHarm()
{
    ControlUnitModel& model = make(quickSettings(2));
    QRandomGenerator random(19200);
    for (int round = 0; round < 2000; ++round) {
        QByteArray bytes(random.bounded(20), Qt::Uninitialized);
        for (char& byte : bytes)
            byte = char(random.bounded(256));
        model.receive(bytes);
        m_now += Millisecond;
        model.transmit();
    }
    model.receive("$");
    QCOMPARE(ask().size(), 17);
}

QTEST_GUILESS_MAIN(tst_ControlUnitModel)
#include "tst_ControlUnitModel.moc"
