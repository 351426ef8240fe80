#include "FakeBoxes.h"
#include "io/CRaceControl.h"
#include "io/CRaceControlIo.h"
#include "support/DebugLines.h"

#include <QtTest>

#include <optional>

/** The boxes with a library and with ports in memory; no library `jnutl` is there. */
class tst_CRaceControl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theLibraryIsMadeReadyOnce();
    void decoratedNamesAreLookedUpBeforePlainOnes();
    void aMissingEntryLeavesTheLibraryUnloaded_data();
    void aMissingEntryLeavesTheLibraryUnloaded();
    void anotherAnswerThan256LeavesTheLibraryUnloaded();
    void withoutTheLibraryNoBoxIsOpened();
    void withoutTheLibraryTheInterfaceStaysQuiet();
    void everyUserGetsTheSameObjectAndTheLastReleaseFreesIt();

    void aFifthBoxIsRefused();
    void aBoxThatCannotBeOpenedIsNotCounted();
    void allNamesThatAreNotEmptyAreOpened();
    void oneThatFailsMakesOpeningAllFalse();
    void theNameOfAnOpenedBoxIsStoredAtItsPlace();

    void parameter131ForTheWord2IsIgnoredAnd130IsStored();
    void limitsOfTheParameters_data();
    void limitsOfTheParameters();
    void flagsAreStoredAsOneOrZero();
    void eachParameterHandsTheRecordToTheLibrary();
    void aBoxIndexOf4ChangesNothingAndGivesTheDefaults_data();
    void aBoxIndexOf4ChangesNothingAndGivesTheDefaults();

    void withNoBoxOpenPollReturnsFalse();
    void eventsAreToldAndDecoded_data();
    void eventsAreToldAndDecoded();
    void theTimeOfAMessageIsInBoxTicks_data();
    void theTimeOfAMessageIsInBoxTicks();
    void oneByteOfEachBoxIsReadInAPass();
    void anUnfinishedEventIsNoEvent();
    void anErrorOfTheLibraryIsTold();
    void anEventThatCannotBeHadIsTold();
    void junkIsHandedToTheLibraryByteByByte();
    void theLastOfTwoEventsInAPassDecides_data();
    void theLastOfTwoEventsInAPassDecides();

    void aBoxNumberBeyondTheListIsASendAttemptToAnUnknownBox();
    void bytesLeaveWithDtrOff();
    void withNothingToSendDtrIsSwitchedAllTheSame();
    void aRequestSendsToTheBoxOfItsNumber();
    void aByteThatDoesNotLeaveIsTriedAgain();
    void sendingTimesOutAfterASecond();
    void theTimeStampsAreTold();
    void messagesAreDebugLinesForThoseWhoAsk();

private:
    void open(int boxes);
    bool tell(const CJnutl::Event& event, int box = 0);

    QList<FakeBoxLine> m_lines;
    std::optional<CRaceControl> m_control;
    QStringList m_messages;
};

void tst_CRaceControl::init()
{
    FakeJnutl::reset();
    m_lines.clear();
    m_messages.clear();
    m_control.emplace(FakeJnutl::make());
    m_control->setPortMaker([this] { return std::make_unique<FakeBoxPort>(&m_lines); });
    connect(&*m_control, &CRaceControl::debugMessage, this,
            [this](const QString& message) { m_messages.append(message); });
}

void tst_CRaceControl::cleanup()
{
    m_control.reset();
}

void tst_CRaceControl::open(int boxes)
{
    for (int box = 0; box < boxes; ++box)
        QVERIFY(m_control->openBox(QStringLiteral("line%1").arg(box)));
    FakeJnutl::calls.clear();
}

/** Lets a box complete an event. @return the answer of the pass */
bool tst_CRaceControl::tell(const CJnutl::Event& event, int box)
{
    FakeJnutl::events.append(event);
    m_lines[box].arriving.append(char(2));
    return m_control->poll();
}

// --- The library ----------------------------------------------------------------------------

void tst_CRaceControl::theLibraryIsMadeReadyOnce()
{
    QVERIFY(m_control->isLibraryLoaded());
    QCOMPARE(FakeJnutl::calls, QStringList{"init"});
}

void tst_CRaceControl::decoratedNamesAreLookedUpBeforePlainOnes()
{
    const QStringList both{"_InitBoxes@0", "InitBoxes",    "_OpenBox@8",       "OpenBox",       "_RX_data@8",
                           "RX_data",      "_Get_Event@4", "Get_Event",        "_Get_TStamp@4", "Get_TStamp",
                           "_Get_TXDat@4", "Get_TXDat",    "_Timeout_Check@0", "Timeout_Check"};
    QCOMPARE(FakeJnutl::lookedUp, both);

    FakeJnutl::reset();
    FakeJnutl::decorated = true;
    QVERIFY(FakeJnutl::make()->isLoaded());
    const QStringList decorated{"_InitBoxes@0",  "_OpenBox@8",   "_RX_data@8",      "_Get_Event@4",
                                "_Get_TStamp@4", "_Get_TXDat@4", "_Timeout_Check@0"};
    QCOMPARE(FakeJnutl::lookedUp, decorated);
}

void tst_CRaceControl::aMissingEntryLeavesTheLibraryUnloaded_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char* name :
         {"InitBoxes", "OpenBox", "RX_data", "Get_Event", "Get_TStamp", "Get_TXDat", "Timeout_Check"})
        QTest::newRow(name) << QByteArray(name);
}

void tst_CRaceControl::aMissingEntryLeavesTheLibraryUnloaded()
{
    QFETCH(QByteArray, name);
    FakeJnutl::reset();
    FakeJnutl::missing = name;
    const auto library = FakeJnutl::make();
    QVERIFY(!library->isLoaded());
    QVERIFY(FakeJnutl::calls.isEmpty());
}

void tst_CRaceControl::anotherAnswerThan256LeavesTheLibraryUnloaded()
{
    for (const quint16 answer : {0, 1, 0xFF, 0x101, 0xFFFF}) {
        FakeJnutl::initAnswer = answer;
        QVERIFY(!FakeJnutl::make()->isLoaded());
    }
}

void tst_CRaceControl::withoutTheLibraryNoBoxIsOpened()
{
    FakeJnutl::initAnswer = 0;
    CRaceControl control(FakeJnutl::make());
    control.setPortMaker([this] { return std::make_unique<FakeBoxPort>(&m_lines); });
    control.setPortName(0, "line");
    QVERIFY(!control.isLibraryLoaded());
    QVERIFY(!control.openBox("line"));
    QVERIFY(!control.openAllBoxes());
    QCOMPARE(m_lines.size(), 0);
    QVERIFY(!control.anyBoxOpen());
    QVERIFY(!control.poll());
    control.setWord2(7, 0);
    QCOMPARE(control.word2(0), 7);
    QVERIFY(!FakeJnutl::calls.filter("open").size());
}

void tst_CRaceControl::withoutTheLibraryTheInterfaceStaysQuiet()
{
    QVERIFY(!CRaceControl::instance()->isLibraryLoaded());
    {
        CRaceControlIo io;
        io.setPortName(0, "/dev/null");
        io.readSettings(io.writeSettings());
        io.setReceiver(this);
        io.start();
        QVERIFY(!io.isRunning());
        io.setOutput(PortId::FirstTrackPower, true);
        io.stop();
        QVERIFY(!io.isRunning());
    }
    CRaceControl::release();
}

void tst_CRaceControl::everyUserGetsTheSameObjectAndTheLastReleaseFreesIt()
{
    CRaceControl* control = CRaceControl::instance();
    QCOMPARE(CRaceControl::instance(), control);
    control->setWord2(99, 0);
    CRaceControl::release();
    QCOMPARE(control->word2(0), 99);
    CRaceControl::release();
    QCOMPARE(CRaceControl::instance()->word2(0), 0);
    CRaceControl::release();
}

// --- Opening --------------------------------------------------------------------------------

void tst_CRaceControl::aFifthBoxIsRefused()
{
    open(4);
    QCOMPARE(m_control->boxCount(), 4);
    QVERIFY(!m_control->openBox("line4"));
    QCOMPARE(m_control->boxCount(), 4);
    QCOMPARE(m_lines.size(), 4);
}

void tst_CRaceControl::aBoxThatCannotBeOpenedIsNotCounted()
{
    QVERIFY(!m_control->openBox("broken"));
    QCOMPARE(m_control->boxCount(), 0);
    QVERIFY(!m_control->anyBoxOpen());
    QVERIFY(!m_control->hasLine());
    QVERIFY(m_control->portName(0).isEmpty());
}

void tst_CRaceControl::allNamesThatAreNotEmptyAreOpened()
{
    m_control->setPortName(0, "a");
    m_control->setPortName(2, "c");
    QVERIFY(m_control->openAllBoxes());
    QCOMPARE(m_control->boxCount(), 2);
    QVERIFY(m_control->hasLine());
    QCOMPARE(m_lines.at(0).name, QString("a"));
    QCOMPARE(m_lines.at(1).name, QString("c"));
}

void tst_CRaceControl::oneThatFailsMakesOpeningAllFalse()
{
    m_control->setPortName(0, "broken");
    m_control->setPortName(1, "b");
    QVERIFY(!m_control->openAllBoxes());
    QCOMPARE(m_control->boxCount(), 1);
    QCOMPARE(m_lines.at(0).name, QString("b"));
}

void tst_CRaceControl::theNameOfAnOpenedBoxIsStoredAtItsPlace()
{
    m_control->setPortName(2, "c");
    QVERIFY(m_control->openAllBoxes());
    QCOMPARE(m_control->portName(0), QString("c"));
    QCOMPARE(m_control->portName(2), QString("c"));
    QVERIFY(m_control->openBox("d"));
    QCOMPARE(m_control->portName(1), QString("d"));
    m_control->setPortName(4, "e");
    QVERIFY(m_control->portName(4).isEmpty());
    QVERIFY(m_control->portName(-1).isEmpty());
}

// --- Parameters -----------------------------------------------------------------------------

void tst_CRaceControl::parameter131ForTheWord2IsIgnoredAnd130IsStored()
{
    m_control->setWord2(130, 1);
    QCOMPARE(m_control->word2(1), 130);
    FakeJnutl::calls.clear();
    m_control->setWord2(131, 1);
    QCOMPARE(m_control->word2(1), 130);
    QVERIFY(FakeJnutl::calls.isEmpty());
}

void tst_CRaceControl::limitsOfTheParameters_data()
{
    QTest::addColumn<int>("word");
    QTest::addColumn<int>("most");
    QTest::newRow("word 2") << 2 << 130;
    QTest::newRow("word 3") << 3 << 50;
    QTest::newRow("word 4") << 4 << 15;
}

void tst_CRaceControl::limitsOfTheParameters()
{
    using Setter = void (CRaceControl::*)(int, int);
    using Getter = int (CRaceControl::*)(int) const;
    QFETCH(int, word);
    QFETCH(int, most);
    const QMap<int, QPair<Setter, Getter>> words{{2, {&CRaceControl::setWord2, &CRaceControl::word2}},
                                                 {3, {&CRaceControl::setWord3, &CRaceControl::word3}},
                                                 {4, {&CRaceControl::setWord4, &CRaceControl::word4}}};
    const auto set = [&](int value) { ((*m_control).*words[word].first)(value, 3); };
    const auto get = [&] { return ((*m_control).*words[word].second)(3); };
    QCOMPARE(get(), 0);
    set(most);
    QCOMPARE(get(), most);
    for (const int refused : {most + 1, -1, 65535, INT_MAX, INT_MIN}) {
        set(refused);
        QCOMPARE(get(), most);
    }
    set(0);
    QCOMPARE(get(), 0);
}

void tst_CRaceControl::flagsAreStoredAsOneOrZero()
{
    FakeJnutl::calls.clear();
    m_control->setFlag5(true, 2);
    m_control->setFlag6(true, 2);
    m_control->setFlag5(false, 2);
    QVERIFY(!m_control->flag5(2));
    QVERIFY(m_control->flag6(2));
    const QStringList expected{"open 2: 0 0 0 0 0 1 0 0", "open 2: 0 0 0 0 0 1 1 0",
                               "open 2: 0 0 0 0 0 0 1 0"};
    QCOMPARE(FakeJnutl::calls, expected);
}

void tst_CRaceControl::eachParameterHandsTheRecordToTheLibrary()
{
    FakeJnutl::calls.clear();
    m_control->setWord2(120, 0);
    m_control->setWord3(40, 0);
    m_control->setWord4(10, 0);
    m_control->setWord4(11, 3);
    const QStringList expected{"open 0: 0 0 120 0 0 0 0 0", "open 0: 0 0 120 40 0 0 0 0",
                               "open 0: 0 0 120 40 10 0 0 0", "open 3: 0 0 0 0 11 0 0 0"};
    QCOMPARE(FakeJnutl::calls, expected);
}

void tst_CRaceControl::aBoxIndexOf4ChangesNothingAndGivesTheDefaults_data()
{
    QTest::addColumn<int>("box");
    QTest::newRow("4") << 4;
    QTest::newRow("largest") << INT_MAX;
    QTest::newRow("negative") << -1;
}

void tst_CRaceControl::aBoxIndexOf4ChangesNothingAndGivesTheDefaults()
{
    QFETCH(int, box);
    FakeJnutl::calls.clear();
    m_control->setWord2(1, box);
    m_control->setWord3(1, box);
    m_control->setWord4(1, box);
    m_control->setFlag5(true, box);
    m_control->setFlag6(true, box);
    QVERIFY(FakeJnutl::calls.isEmpty());
    QCOMPARE(m_control->word2(box), -1);
    QCOMPARE(m_control->word3(box), -1);
    QCOMPARE(m_control->word4(box), -1);
    QVERIFY(!m_control->flag5(box));
    QVERIFY(!m_control->flag6(box));
    for (int other = 0; other < CRaceControl::MostBoxes; ++other) {
        QCOMPARE(m_control->word2(other), 0);
        QVERIFY(!m_control->flag5(other));
    }
}

// --- Events ---------------------------------------------------------------------------------

void tst_CRaceControl::withNoBoxOpenPollReturnsFalse()
{
    QVERIFY(!m_control->poll());
    QVERIFY(m_messages.isEmpty());
}

void tst_CRaceControl::eventsAreToldAndDecoded_data()
{
    QTest::addColumn<quint32>("code");
    QTest::addColumn<QString>("message");
    QTest::addColumn<bool>("isSensorEvent");

    QTest::newRow("left intermediate")
        << 0x0200U << "left Sensor intermediate of Box 0 activated at 00:00:01:000" << true;
    QTest::newRow("right intermediate")
        << 0x0201U << "right Sensor intermediate of Box 0 activated at 00:00:01:000" << true;
    QTest::newRow("left start") << 0x0202U << "left Sensor start/end of Box 0 activated at 00:00:01:000"
                                << true;
    QTest::newRow("right start") << 0x0203U << "right Sensor start/end of Box 0 activated at 00:00:01:000"
                                 << true;
    QTest::newRow("number 1") << 0x0204U << "left Sensor intermediate of Box 1 activated at 00:00:01:000"
                              << true;
    QTest::newRow("number 63") << 0x02FFU << "right Sensor start/end of Box 63 activated at 00:00:01:000"
                               << true;
    QTest::newRow("deactivated") << 0x030AU << "left Sensor start/end of Box 2 deactivated at 00:00:01:000"
                                 << true;
    QTest::newRow("bits above the code")
        << 0xABCD0203U << "right Sensor start/end of Box 0 activated at 00:00:01:000" << true;
    QTest::newRow("found") << 0x0404U << "Box 1 found" << false;
    QTest::newRow("lost") << 0x0508U << "Box 2 lost" << false;
    QTest::newRow("zero") << 0U << "Invalid event!" << false;
    QTest::newRow("too low") << 0x0104U << "Invalid event!" << false;
    QTest::newRow("too high") << 0x0704U << "Invalid event!" << false;
    QTest::newRow("highest") << 0xFFFFFFFFU << "Invalid event!" << false;
}

void tst_CRaceControl::eventsAreToldAndDecoded()
{
    QFETCH(quint32, code);
    QFETCH(QString, message);
    QFETCH(bool, isSensorEvent);
    open(2);
    QCOMPARE(tell({code, 4800}, 1), isSensorEvent);
    QCOMPARE(m_messages, (QStringList{"Event from Box 2:", message}));
    QCOMPARE(m_control->lastEvent(), code);
    QCOMPARE(m_control->lastTimeStamp(), 4800U);
}

void tst_CRaceControl::theTimeOfAMessageIsInBoxTicks_data()
{
    QTest::addColumn<quint32>("ticks");
    QTest::addColumn<QString>("time");
    QTest::newRow("0") << 0U << "00:00:00:000";
    QTest::newRow("less than a millisecond") << 4U << "00:00:00:000";
    QTest::newRow("one millisecond") << 5U << "00:00:00:001";
    QTest::newRow("20 ms") << 96U << "00:00:00:020";
    QTest::newRow("an hour") << 17280000U << "01:00:00:000";
    QTest::newRow("past midnight") << 414720000U << "00:00:00:000";
    QTest::newRow("largest") << 0xFFFFFFFFU << "08:33:04:853";
}

void tst_CRaceControl::theTimeOfAMessageIsInBoxTicks()
{
    QFETCH(quint32, ticks);
    QFETCH(QString, time);
    open(1);
    QVERIFY(tell({0x0200, ticks}));
    QVERIFY2(m_messages.last().endsWith(" at " + time), qPrintable(m_messages.last()));
    QCOMPARE(m_control->lastTimeStamp(), ticks);
}

void tst_CRaceControl::oneByteOfEachBoxIsReadInAPass()
{
    open(3);
    m_lines[0].arriving = QByteArray(2, '\0');
    m_lines[2].arriving = QByteArray(1, '\0');
    QVERIFY(!m_control->poll());
    QCOMPARE(FakeJnutl::calls, (QStringList{"byte 0 of box 0", "byte 0 of box 2"}));
    QVERIFY(!m_control->poll());
    QCOMPARE(FakeJnutl::calls.mid(2), QStringList{"byte 0 of box 0"});
}

void tst_CRaceControl::anUnfinishedEventIsNoEvent()
{
    open(1);
    m_lines[0].arriving = QByteArray(1, '\0');
    QVERIFY(!m_control->poll());
    QVERIFY(m_messages.isEmpty());
    QCOMPARE(m_control->lastEvent(), 0U);
}

void tst_CRaceControl::anErrorOfTheLibraryIsTold()
{
    open(2);
    m_lines[1].arriving = QByteArray(1, char(17));
    QVERIFY(!m_control->poll());
    QCOMPARE(m_messages, QStringList{"Library threw error 17 for Box 2"});
}

void tst_CRaceControl::anEventThatCannotBeHadIsTold()
{
    open(1);
    m_lines[0].arriving = QByteArray(1, char(2));
    QVERIFY(!m_control->poll());
    QCOMPARE(m_messages, QStringList{"Library threw error 9 for Box 1"});
    QCOMPARE(m_control->lastEvent(), 0U);
}

void tst_CRaceControl::junkIsHandedToTheLibraryByteByByte()
{
    open(1);
    for (int byte = 0; byte < 256; ++byte)
        m_lines[0].arriving.append(char(byte));
    for (int pass = 0; pass < 300; ++pass)
        QVERIFY(!m_control->poll());
    QCOMPARE(FakeJnutl::calls.size(), 256);
    QCOMPARE(m_messages.size(), 255); // each but the 0
    QCOMPARE(m_messages.last(), QString("Library threw error 255 for Box 1"));
}

void tst_CRaceControl::theLastOfTwoEventsInAPassDecides_data()
{
    QTest::addColumn<quint32>("first");
    QTest::addColumn<quint32>("second");
    QTest::addColumn<bool>("isSensorEvent");
    QTest::newRow("two sensors") << 0x0200U << 0x0304U << true;
    QTest::newRow("a sensor, then none") << 0x0200U << 0x0400U << false;
    QTest::newRow("none, then a sensor") << 0x0400U << 0x0200U << true;
}

void tst_CRaceControl::theLastOfTwoEventsInAPassDecides()
{
    QFETCH(quint32, first);
    QFETCH(quint32, second);
    QFETCH(bool, isSensorEvent);
    open(2);
    FakeJnutl::events = {{first, 1000}, {second, 2000}};
    m_lines[0].arriving = QByteArray(1, char(2));
    m_lines[1].arriving = QByteArray(1, char(2));
    QCOMPARE(m_control->poll(), isSensorEvent);
    QCOMPARE(m_control->lastEvent(), second);
    QCOMPARE(m_control->lastTimeStamp(), 2000U);
    QCOMPARE(m_messages.size(), 4);
}

// --- Sending --------------------------------------------------------------------------------

void tst_CRaceControl::aBoxNumberBeyondTheListIsASendAttemptToAnUnknownBox()
{
    open(2);
    QVERIFY(!tell({0x0608, 0}));
    QCOMPARE(m_messages, (QStringList{"Event from Box 1:", "data to be transferred to Box 2",
                                      "send attempt to unknown box number 2"}));
    m_control->sendToBox(65535);
    QCOMPARE(m_messages.last(), QString("send attempt to unknown box number 65535"));
    QVERIFY(m_lines.at(0).log.isEmpty());
    QVERIFY(m_lines.at(1).log.isEmpty());
}

void tst_CRaceControl::bytesLeaveWithDtrOff()
{
    open(2);
    FakeJnutl::bytesToSend = QByteArray("\x00\x7f\xff", 3);
    m_control->sendToBox(1);
    QCOMPARE(m_lines.at(1).log, (QStringList{"DTR off", "0", "127", "255", "DTR on"}));
    QVERIFY(m_lines.at(0).log.isEmpty());
    QCOMPARE(FakeJnutl::calls.count("next byte of box 1"), 4);
    QVERIFY(m_messages.isEmpty());
}

void tst_CRaceControl::withNothingToSendDtrIsSwitchedAllTheSame()
{
    open(1);
    m_control->sendToBox(0);
    QCOMPARE(m_lines.at(0).log, (QStringList{"DTR off", "DTR on"}));
}

void tst_CRaceControl::aRequestSendsToTheBoxOfItsNumber()
{
    open(2);
    FakeJnutl::bytesToSend = "A";
    QVERIFY(!tell({0x0604, 0}));
    QCOMPARE(m_messages.last(), QString("data to be transferred to Box 1"));
    QCOMPARE(m_lines.at(1).log, (QStringList{"DTR off", "65", "DTR on"}));
}

void tst_CRaceControl::aByteThatDoesNotLeaveIsTriedAgain()
{
    open(1);
    FakeJnutl::bytesToSend = "AB";
    m_lines[0].failingWrites = 3;
    m_control->sendToBox(0);
    QCOMPARE(m_lines.at(0).log, (QStringList{"DTR off", "65", "66", "DTR on"}));
    QVERIFY(m_messages.isEmpty());
}

void tst_CRaceControl::sendingTimesOutAfterASecond()
{
    open(1);
    FakeJnutl::bytesToSend = "AB";
    m_lines[0].failingWrites = INT_MAX;
    m_control->sendToBox(0);
    QCOMPARE(m_messages, QStringList{"sending timed out after 1000ms"});
    QCOMPARE(m_lines.at(0).log, (QStringList{"DTR off", "DTR on"}));
    QCOMPARE(FakeJnutl::bytesToSend, QByteArray("B"));
}

void tst_CRaceControl::theTimeStampsAreTold()
{
    open(2);
    FakeJnutl::timeStamp = 4800 * 61;
    m_control->logTimeStamps();
    QCOMPARE(m_messages, (QStringList{"Timestamp box 0: 00:01:01:000", "Timestamp box 1: 00:01:01:000"}));
}

void tst_CRaceControl::messagesAreDebugLinesForThoseWhoAsk()
{
    {
        const DebugLines lines("tornik.io.boxes");
        m_control->sendToBox(0);
        QVERIFY(lines.lines().isEmpty());
    }
    const DebugLines lines("tornik.io.boxes", "tornik.io.boxes.debug=true");
    m_control->sendToBox(0);
    QCOMPARE(lines.lines(), QStringList{"send attempt to unknown box number 0"});
}

QTEST_GUILESS_MAIN(tst_CRaceControl)
#include "tst_CRaceControl.moc"
