#include "shell/CCommandLineParameters.h"
#include "shell/CKelmoMain.h"
#include "shell/CKelmoMainDialog.h"
#include "support/LoginManager.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QTimer>

/** A display client that is told to shut its machine down, with a login manager of its own. */
class tst_RemoteShutdown : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void noOtherSystemBusCanBeReached();
    void boxIsHiddenAtFirst();
    void boxTellsTheSecondsAndOffersToCancel();
    void everyTickShowsASecondLess();
    void machineGoesDownOnTheTickBehindZero();
    void timerGoesOnBehindThePowerOff();
    void waitOfZeroShowsZeroAndPowersOffOnTheFirstTick();
    void cancelStopsTheCount();
    void behindACancelANewRecordCountsFromItsOwnValue();
    void pressingNowPowersOffAtOnce();
    void secondRecordWhileCountingReplacesTheSecondsAndCountsOn();
    void enterCancels();
    void escapeCancels();
    void closingTheBoxCancels();
    void mainWindowCanBeClosedWhileTheBoxIsOpen();
    void refusedPowerOffChangesNothing();

private:
    void trigger(int seconds);
    void tick();
    QMessageBox* box() const;
    QPushButton* button(const QString& text) const;
    bool isCounting() const;
    int powerOffs();

    std::unique_ptr<LoginManager> m_loginManager;
    std::unique_ptr<CKelmoMain> m_main;
    int m_callsBefore = 0;
};

void tst_RemoteShutdown::initTestCase()
{
    m_loginManager = std::make_unique<LoginManager>();
    QVERIFY2(m_loginManager->start(), qPrintable(m_loginManager->error()));
}

void tst_RemoteShutdown::init()
{
    QFile::remove("tornik.db");
    QSettings("Tornik", "Tornik").clear();
    m_callsBefore = m_loginManager->calls().size();
    m_main = std::make_unique<CKelmoMain>(nullptr, CCommandLineParameters());
}

void tst_RemoteShutdown::cleanup()
{
    m_main.reset();
}

void tst_RemoteShutdown::trigger(int seconds)
{
    QVERIFY(QMetaObject::invokeMethod(m_main.get(), "shutDownTriggerReceived", Qt::DirectConnection,
                                      Q_ARG(int, seconds)));
}

/** Lets a second of the count pass now. */
void tst_RemoteShutdown::tick()
{
    QVERIFY(isCounting());
    QVERIFY(QMetaObject::invokeMethod(m_main.get(), "shutDownTimerTick", Qt::DirectConnection));
}

QMessageBox* tst_RemoteShutdown::box() const
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == "shutdownBox")
            return qobject_cast<QMessageBox*>(widget);
    }
    return nullptr;
}

QPushButton* tst_RemoteShutdown::button(const QString& text) const
{
    for (auto* button : box()->findChildren<QPushButton*>()) {
        if (button->text() == text)
            return button;
    }
    return nullptr;
}

bool tst_RemoteShutdown::isCounting() const
{
    const auto* timer = m_main->findChild<QTimer*>("shutdownTimer");
    return timer && timer->isActive() && timer->interval() == 1000;
}

int tst_RemoteShutdown::powerOffs()
{
    const QStringList calls = m_loginManager->calls().mid(m_callsBefore);
    return calls.count("PowerOff True") == calls.size() ? calls.size() : -1;
}

void tst_RemoteShutdown::noOtherSystemBusCanBeReached()
{
    QVERIFY(qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS").startsWith("unix:path=" + QDir::tempPath()));
    QVERIFY(QDBusConnection::systemBus().interface()->servicePid("org.freedesktop.login1") ==
            uint(m_loginManager->processId()));
}

void tst_RemoteShutdown::boxIsHiddenAtFirst()
{
    QVERIFY(box());
    QVERIFY(!box()->isVisible());
    QVERIFY(!isCounting());
}

void tst_RemoteShutdown::boxTellsTheSecondsAndOffersToCancel()
{
    trigger(15);
    QVERIFY(box()->isVisible());
    QVERIFY(!box()->parent());
    QVERIFY(box()->isModal());
    QCOMPARE(box()->windowTitle(), QString("System herunterfahren"));
    QCOMPARE(box()->text(), QString("Das System wird in 15 Sekunden heruntergefahren"));
    QCOMPARE(box()->informativeText(), QString("Vorgang fortsetzen?"));
    QCOMPARE(box()->buttons().size(), 2);
    QCOMPARE(box()->buttonRole(button("Abbrechen")), QMessageBox::RejectRole);
    QCOMPARE(box()->buttonRole(button("Sofort herunterfahren")), QMessageBox::AcceptRole);
}

void tst_RemoteShutdown::everyTickShowsASecondLess()
{
    trigger(3);
    for (const char* seconds : {"2", "1", "0"}) {
        tick();
        QCOMPARE(box()->text(), QString("Das System wird in %1 Sekunden heruntergefahren").arg(seconds));
        QVERIFY(box()->isVisible());
    }
}

void tst_RemoteShutdown::machineGoesDownOnTheTickBehindZero()
{
    trigger(3);
    for (int second = 0; second < 3; ++second)
        tick();
    QTest::qWait(50);
    QCOMPARE(powerOffs(), 0);
    tick();
    QTRY_COMPARE(powerOffs(), 1);
    QCOMPARE(box()->text(), QString("Das System wird in 0 Sekunden heruntergefahren"));
}

void tst_RemoteShutdown::timerGoesOnBehindThePowerOff()
{
    trigger(0);
    tick();
    tick();
    QTRY_COMPARE(powerOffs(), 2);
}

void tst_RemoteShutdown::waitOfZeroShowsZeroAndPowersOffOnTheFirstTick()
{
    QElapsedTimer sinceTrigger;
    sinceTrigger.start();
    trigger(0);
    QCOMPARE(box()->text(), QString("Das System wird in 0 Sekunden heruntergefahren"));
    QTRY_VERIFY_WITH_TIMEOUT(powerOffs() >= 1, 10000); // by the real timer, which goes on
    QVERIFY(sinceTrigger.elapsed() >= 950);            // a coarse timer may come a little early
}

void tst_RemoteShutdown::cancelStopsTheCount()
{
    trigger(1);
    button("Abbrechen")->click();
    QVERIFY(!box()->isVisible());
    QVERIFY(!isCounting());
    QCOMPARE(powerOffs(), 0);
}

void tst_RemoteShutdown::behindACancelANewRecordCountsFromItsOwnValue()
{
    trigger(10);
    for (int second = 0; second < 4; ++second)
        tick();
    button("Abbrechen")->click();
    trigger(20);
    QVERIFY(box()->isVisible());
    QCOMPARE(box()->text(), QString("Das System wird in 20 Sekunden heruntergefahren"));
    tick();
    QCOMPARE(box()->text(), QString("Das System wird in 19 Sekunden heruntergefahren"));
}

void tst_RemoteShutdown::pressingNowPowersOffAtOnce()
{
    trigger(60);
    button("Sofort herunterfahren")->click();
    QTRY_COMPARE(powerOffs(), 1);
}

void tst_RemoteShutdown::secondRecordWhileCountingReplacesTheSecondsAndCountsOn()
{
    trigger(10);
    for (int second = 0; second < 3; ++second)
        tick();
    QCOMPARE(box()->text(), QString("Das System wird in 7 Sekunden heruntergefahren"));
    trigger(20);
    QVERIFY(box()->isVisible());
    QCOMPARE(box()->text(), QString("Das System wird in 20 Sekunden heruntergefahren"));
    tick();
    QCOMPARE(box()->text(), QString("Das System wird in 16 Sekunden heruntergefahren"));
}

void tst_RemoteShutdown::enterCancels()
{
    trigger(60);
    QVERIFY(QTest::qWaitForWindowActive(box()));
    QTest::keyClick(box(), Qt::Key_Return);
    QTRY_VERIFY(!isCounting());
    QVERIFY(!box()->isVisible());
    QCOMPARE(powerOffs(), 0);
}

void tst_RemoteShutdown::escapeCancels()
{
    trigger(60);
    QTest::keyClick(box(), Qt::Key_Escape);
    QTRY_VERIFY(!isCounting());
    QVERIFY(!box()->isVisible());
}

void tst_RemoteShutdown::closingTheBoxCancels()
{
    trigger(60);
    tick();
    box()->close();
    QVERIFY(!box()->isVisible());
    QVERIFY(!isCounting());
    trigger(5);
    tick();
    QCOMPARE(box()->text(), QString("Das System wird in 4 Sekunden heruntergefahren"));
}

void tst_RemoteShutdown::mainWindowCanBeClosedWhileTheBoxIsOpen()
{
    trigger(60);
    QApplication::setQuitOnLastWindowClosed(true);
    QTimer::singleShot(0, m_main->mainDialog(), &QWidget::close);
    QCOMPARE(QApplication::exec(), 0);
    m_main.reset();
    QVERIFY(!box());
    QCOMPARE(powerOffs(), 0);
}

void tst_RemoteShutdown::refusedPowerOffChangesNothing()
{
    QVERIFY(m_loginManager->leave());
    trigger(0);
    tick();
    tick();
    QVERIFY(box()->isVisible());
    QVERIFY(isCounting());
    button("Abbrechen")->click();
    QVERIFY(!isCounting());
    QVERIFY2(m_loginManager->start(), qPrintable(m_loginManager->error()));
    QCOMPARE(powerOffs(), 0);
}

int main(int argc, char* argv[])
{
    QByteArray words[] = {"tornik", "--windowed", "--connect", "127.0.0.1:9"};
    char* arguments[] = {words[0].data(), words[1].data(), words[2].data(), words[3].data(), nullptr};
    int count = 4;
    const QApplication application(count, arguments);
    tst_RemoteShutdown test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_RemoteShutdown.moc"
