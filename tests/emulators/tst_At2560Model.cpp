#include "At2560Model.h"

#include <QtTest>

namespace {

constexpr qint64 Millisecond = 1000;

} // namespace

class tst_At2560Model : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void anInputInUseIsReportedWithTheBoxesTime();
    void anInputThatIsNotInUseIsNotReported();
    void theInputSetupReplacesTheOneBefore();
    void plannedInputsAreReportedInTheOrderOfTheirStamps();
    void aStampThatHasBeenIsReportedAtOnce();
    void theClockRunsAsFastAsToldAndCanBeSet();
    void outputsFollowTheFrames_data();
    void outputsFollowTheFrames();
    void activeHighOutputsFollowTheDigit();
    void framesOfTheHostMayComeInPieces();
    void unknownFramesAreTold();
    void aSplitFrameGoesOutInPiecesAndIsNotedWithTheLast();
    void joinedFramesGoOutInOneWrite();
    void junkGoesAheadOfTheFrame();
    void nonsenseGoesAheadOfTheFrame();
    void textIsSentAsItIs();
    void everyFrameSurvivesAllFaults();
    void carsPassTheirSensorsInOrder();
    void aPulledCableLosesWhatHappens();
    void aResetForgetsInputsAndOutputs();
    void randomBytesOfTheHostDoNoHarm();

private:
    At2560Model& make(const At2560Settings& settings = At2560Settings());
    QList<QByteArray> writes();
    QByteArray sent() { return writes().join(); }

    qint64 m_now = 0;
    std::unique_ptr<At2560Model> m_model;
    QVector<Activation> m_journal;
    QStringList m_told;
};

void tst_At2560Model::init()
{
    m_now = 0;
    m_journal.clear();
    m_told.clear();
}

At2560Model& tst_At2560Model::make(const At2560Settings& settings)
{
    m_model = std::make_unique<At2560Model>(settings, [this] { return m_now; });
    m_model->setJournal([this](const Activation& activation) { m_journal.append(activation); });
    m_model->setMonitor([this](const QString& text) { m_told.append(text); });
    return *m_model;
}

QList<QByteArray> tst_At2560Model::writes()
{
    QList<QByteArray> writes;
    QByteArray bytes;
    while (!(bytes = m_model->transmit()).isEmpty())
        writes.append(bytes);
    return writes;
}

void tst_At2560Model::anInputInUseIsReportedWithTheBoxesTime()
{
    At2560Model& model = make();
    model.receive(":IS,7.1.2;");
    QCOMPARE(model.inputs(), QVector<int>({7, 1, 2}));
    QCOMPARE(m_told, QStringList({"IS 7.1.2"}));
    QVERIFY(sent().isEmpty());
    QCOMPARE(model.nextChange(), qint64(-1));
    m_now += 34 * Millisecond;
    model.press(2);
    QCOMPARE(sent(), QByteArray(":S2,1034;"));
    QCOMPARE(m_journal, QVector<Activation>({{2, 1034}}));
    QCOMPARE(model.reported(), 1);
}

void tst_At2560Model::anInputThatIsNotInUseIsNotReported()
{
    At2560Model& model = make();
    model.press(1);
    QVERIFY(sent().isEmpty());
    model.receive(":IS,7;");
    model.press(1);
    QVERIFY(sent().isEmpty());
    QVERIFY(m_journal.isEmpty());
    QCOMPARE(m_told.last(), QStringLiteral("not reported: input 1"));
}

void tst_At2560Model::theInputSetupReplacesTheOneBefore()
{
    At2560Model& model = make();
    model.receive(":IS,7.1.2;:IS,3;");
    QCOMPARE(model.inputs(), QVector<int>({3}));
}

void tst_At2560Model::plannedInputsAreReportedInTheOrderOfTheirStamps()
{
    At2560Model& model = make();
    model.receive(":IS,1.2.3;");
    model.pressAt(1, 3000);
    model.pressAt(2, 2000);
    model.pressAt(3, 2000);
    QVERIFY(sent().isEmpty());
    QCOMPARE(model.nextChange(), 1000 * Millisecond);
    m_now = model.nextChange();
    QCOMPARE(sent(), QByteArray(":S2,2000;:S3,2000;"));
    QCOMPARE(model.pending(), 1);
    m_now = 5000 * Millisecond;
    QCOMPARE(sent(), QByteArray(":S1,3000;"));
    QVERIFY(model.isIdle());
}

void tst_At2560Model::aStampThatHasBeenIsReportedAtOnce()
{
    At2560Model& model = make();
    model.receive(":IS,1;");
    model.pressAt(1, 17);
    QCOMPARE(sent(), QByteArray(":S1,17;"));
}

void tst_At2560Model::theClockRunsAsFastAsToldAndCanBeSet()
{
    At2560Settings settings;
    settings.speedUp = 50;
    At2560Model& model = make(settings);
    QCOMPARE(model.stamp(), 1000U);
    m_now = 20 * Millisecond;
    QCOMPARE(model.stamp(), 2000U);
    QCOMPARE(model.timeOf(2500), 30 * Millisecond);
    QCOMPARE(model.timeOf(1), 0 * Millisecond);
    model.setStamp(500000);
    QCOMPARE(model.stamp(), 500000U);
    QCOMPARE(model.timeOf(500050), 21 * Millisecond);
}

void tst_At2560Model::outputsFollowTheFrames_data()
{
    QTest::addColumn<QByteArray>("frames");
    QTest::addColumn<QString>("outputs");
    QTest::newRow("at first") << QByteArray() << "lamps ------ power ------ chaos off e off";
    QTest::newRow("lamps") << QByteArray(":A10;:A30;:A60;:A11;")
                           << "lamps --3--6 power ------ chaos off e off";
    QTest::newRow("power") << QByteArray(":P10;:P20;:P60;:P61;")
                           << "lamps ------ power 12---- chaos off e off";
    QTest::newRow("chaos") << QByteArray(":C0;") << "lamps ------ power ------ chaos on e off";
    QTest::newRow("e") << QByteArray(":E1;:C1;") << "lamps ------ power ------ chaos off e on";
}

void tst_At2560Model::outputsFollowTheFrames()
{
    QFETCH(QByteArray, frames);
    QFETCH(QString, outputs);
    At2560Model& model = make();
    model.receive(frames);
    QCOMPARE(model.outputs(), outputs);
    QCOMPARE(m_told.size(), frames.count(';'));
}

void tst_At2560Model::activeHighOutputsFollowTheDigit()
{
    At2560Settings settings;
    settings.activeHigh = true;
    At2560Model& model = make(settings);
    model.receive(":A11;:P60;:C1;:E0;");
    QCOMPARE(model.outputs(), QStringLiteral("lamps 1----- power ------ chaos on e off"));
    QCOMPARE(m_told, QStringList({"A1 on", "P6 off", "C on", "E off"}));
}

void tst_At2560Model::framesOfTheHostMayComeInPieces()
{
    At2560Model& model = make();
    model.receive(":A");
    model.receive("10;:P2");
    QVERIFY(model.isOn("A1"));
    QVERIFY(!model.isOn("P2"));
    model.receive("0;");
    QVERIFY(model.isOn("P2"));
}

void tst_At2560Model::unknownFramesAreTold()
{
    At2560Model& model = make();
    model.receive(":A70;:A12;:X;:;:P00;:C;:AAA10;");
    QCOMPARE(m_told.filter(QRegularExpression("^unknown :")).size(), 7);
    QCOMPARE(model.outputs(), QStringLiteral("lamps ------ power ------ chaos off e off"));
}

void tst_At2560Model::aSplitFrameGoesOutInPiecesAndIsNotedWithTheLast()
{
    At2560Model& model = make();
    model.receive(":IS,12;");
    model.line().splitNext();
    model.pressAt(12, 1);
    QByteArray whole = sent();
    QVERIFY(!whole.isEmpty() && whole.size() < 7);
    QVERIFY(m_journal.isEmpty());
    model.pressAt(12, 2); // waits until the first frame is through
    for (int step = 0; step < 100 && !model.isIdle(); ++step) {
        m_now = model.nextChange();
        whole += sent();
    }
    QCOMPARE(whole, QByteArray(":S12,1;:S12,2;"));
    QCOMPARE(m_journal, QVector<Activation>({{12, 1}, {12, 2}}));
}

void tst_At2560Model::joinedFramesGoOutInOneWrite()
{
    At2560Model& model = make();
    model.receive(":IS,1;");
    model.line().joinNext(3);
    model.pressAt(1, 10);
    model.pressAt(1, 11);
    QVERIFY(writes().isEmpty());
    QVERIFY(!model.isIdle());
    model.pressAt(1, 12);
    QCOMPARE(writes(), QList<QByteArray>({":S1,10;:S1,11;:S1,12;"}));
    QCOMPARE(m_journal.size(), 3);
}

void tst_At2560Model::junkGoesAheadOfTheFrame()
{
    At2560Model& model = make();
    model.receive(":IS,1;");
    for (int round = 0; round < 200; ++round) {
        model.line().junkNext();
        model.pressAt(1, 10);
        const QByteArray bytes = sent();
        QVERIFY(bytes.endsWith(":S1,10;"));
        QVERIFY(bytes.size() > 7);
        QCOMPARE(bytes.count(':'), 1);
    }
}

void tst_At2560Model::nonsenseGoesAheadOfTheFrame()
{
    At2560Model& model = make();
    model.receive(":IS,1;");
    QSet<QByteArray> seen;
    for (int round = 0; round < 200; ++round) {
        model.line().nonsenseNext();
        model.pressAt(1, 10);
        const QByteArray bytes = sent();
        QVERIFY(bytes.startsWith(':') && bytes.endsWith(";:S1,10;"));
        QCOMPARE(bytes.count(':'), 2);
        seen.insert(bytes);
    }
    QVERIFY(seen.size() >= 5);
}

void tst_At2560Model::textIsSentAsItIs()
{
    At2560Model& model = make();
    model.sendRaw("what:ever");
    QCOMPARE(sent(), QByteArray("what:ever"));
    QVERIFY(m_journal.isEmpty());
}

void tst_At2560Model::everyFrameSurvivesAllFaults()
{
    At2560Settings settings;
    settings.faults = {30, 30, 30, 30};
    At2560Model& model = make(settings);
    model.receive(":IS,1.2.3.4.5;");
    QByteArray expected;
    for (int i = 0; i < 1000; ++i)
        model.pressAt(1 + i % 5, quint32(2000 + 7 * i));
    QByteArray bytes;
    int pieces = 0;
    for (int step = 0; step < 100000 && !model.isIdle(); ++step) {
        m_now = qMax(m_now, model.nextChange());
        const QByteArray write = model.transmit();
        pieces += write.isEmpty() ? 0 : 1;
        bytes += write;
    }
    QVERIFY(pieces > 700);
    QCOMPARE(m_journal.size(), 1000);
    int position = 0;
    for (int i = 0; i < 1000; ++i) {
        const Activation expectedOne{1 + i % 5, quint32(2000 + 7 * i)};
        QCOMPARE(m_journal.at(i), expectedOne);
        const QByteArray frame =
            ":S" + QByteArray::number(expectedOne.input) + ',' + QByteArray::number(expectedOne.stamp) + ';';
        position = bytes.indexOf(frame, position);
        QVERIFY(position >= 0);
        position += frame.size();
    }
}

void tst_At2560Model::carsPassTheirSensorsInOrder()
{
    At2560Settings settings;
    settings.cars = QVector<CarsOnTrack::Car>(2);
    settings.laps = 2;
    settings.sectors = 3;
    At2560Model& model = make(settings);
    model.receive(":IS,1.2.9.10.17.18;");
    model.startCars();
    for (int step = 0; step < 10000 && !model.isIdle(); ++step) {
        m_now = qMax(m_now, model.nextChange());
        model.transmit();
    }
    QVector<int> ofFirstCar;
    quint32 last = 0;
    for (const Activation& activation : m_journal) {
        QVERIFY(activation.stamp >= last);
        last = activation.stamp;
        if (activation.input % 8 == 1)
            ofFirstCar.append(activation.input);
    }
    QCOMPARE(ofFirstCar, QVector<int>({1, 9, 17, 1, 9, 17, 1}));
    QCOMPARE(m_journal.size(), 14);
}

void tst_At2560Model::aPulledCableLosesWhatHappens()
{
    At2560Model& model = make();
    model.receive(":IS,1;:A");
    model.line().splitNext();
    model.pressAt(1, 1);
    model.transmit();
    model.unplug();
    model.press(1);
    QVERIFY(sent().isEmpty());
    model.plug();
    model.receive("10;");
    QVERIFY(!model.isOn("A1"));
    model.pressAt(1, 2);
    QCOMPARE(sent(), QByteArray(":S1,2;"));
    QCOMPARE(m_journal, QVector<Activation>({{1, 2}}));
}

void tst_At2560Model::aResetForgetsInputsAndOutputs()
{
    At2560Model& model = make();
    model.receive(":IS,1;:A10;");
    model.reset();
    QVERIFY(model.inputs().isEmpty());
    QVERIFY(!model.isOn("A1"));
}

void tst_At2560Model::randomBytesOfTheHostDoNoHarm()
{
    At2560Model& model = make();
    QRandomGenerator random(9);
    const QByteArray alphabet(":;AIPSCE,.0123456\xff");
    for (int round = 0; round < 20000; ++round)
        model.receive(QByteArray(1, alphabet.at(random.bounded(alphabet.size()))));
    model.receive(";:IS,4;");
    QCOMPARE(model.inputs(), QVector<int>({4}));
}

QTEST_GUILESS_MAIN(tst_At2560Model)
#include "tst_At2560Model.moc"
