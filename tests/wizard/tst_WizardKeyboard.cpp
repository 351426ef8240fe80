#include "data/CRaceway.h"
#include "io/CLtAt2560Io.h"
#include "io/CParallelPortIo.h"
#include "io/TestPort.h"
#include "wizard/WizardDriver.h"

#include <QApplication>
#include <QTest>

namespace {

constexpr int AtRest = 127;

} // namespace

/** A whole raceway without a mouse. */
class tst_WizardKeyboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_port.reset(); }

    void theKeyboardAloneIsEnough();
    void theKeyboardAloneChoosesInputsAndAPort();
    void theKeyboardAloneChoosesOutputs();

private:
    TestPort m_port;
};

void tst_WizardKeyboard::theKeyboardAloneIsEnough()
{
    CRaceway raceway;
    const int result = WizardDriver::create(&raceway, [this](WizardDriver& user) {
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
        m_port.press(1);
        key(Qt::Key_Space);
        m_port.release(1);
        key(Qt::Key_Return);
        QCOMPARE(user.pageName(), QString("CRwWizardSlotPage 1"));
        m_port.press(8);
        key(Qt::Key_Space);
        m_port.release(8);
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
    QCOMPARE(raceway.createIo()->portState(9), AtRest & ~1);
    QCOMPARE(raceway.createIo()->portState(1), AtRest & ~8);
}

void tst_WizardKeyboard::theKeyboardAloneChoosesInputsAndAPort()
{
    CRaceway raceway;
    const int result = WizardDriver::create(&raceway, [](WizardDriver& user) {
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

void tst_WizardKeyboard::theKeyboardAloneChoosesOutputs()
{
    CRaceway raceway;
    const int result = WizardDriver::create(&raceway, [](WizardDriver& user) {
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

QTEST_MAIN(tst_WizardKeyboard)
#include "tst_WizardKeyboard.moc"
