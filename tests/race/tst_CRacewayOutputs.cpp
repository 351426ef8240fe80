#include "race/CLightAction.h"
#include "race/CRacewayOutputs.h"
#include "support/FakeRacewayIo.h"

#include <QtTest>

using TestSupport::FakeRacewayIo;

class tst_CRacewayOutputs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void allOffSwitchesTheRedLampsAndThenTheGreenOneOff();
    void nextRedSwitchesOneLampAfterTheOther();
    void sixthRedInARowSwitchesPortId0();
    void goSwitchesTheRedLampsOffAndTheGreenOneOn();
    void allRedSwitchesTheRedLampsOnAndTheGreenOneOff();
    void allOffAndGoBeginTheRedLampsAnew_data();
    void allOffAndGoBeginTheRedLampsAnew();
    void unknownActionDoesNothing();
    void trackPowerSwitchesTheOutputOfTheTrack_data();
    void trackPowerSwitchesTheOutputOfTheTrack();
    void trackPowerOfATrackWithoutOutputDoesNothing();
    void chaosSignalSwitchesOutput24();
    void racewayWithoutLightsGetsNoLights();
    void racewayWithoutPowerSwitchesGetsNoPower();
    void racewayWithoutChaosSignalGetsNone();
    void withoutAnInterfaceNothingHappens();

private:
    QString take();

    QStringList m_log;
    std::unique_ptr<FakeRacewayIo> m_io;
    CRacewayOutputs m_outputs;
};

void tst_CRacewayOutputs::init()
{
    m_io = std::make_unique<FakeRacewayIo>(&m_log);
    m_log.clear();
    m_outputs = CRacewayOutputs();
    m_outputs.setIo(m_io.get());
    m_outputs.setExternalLightsAvailable(true);
    m_outputs.setPwrOffFeatureAvailable(true);
    m_outputs.setChaosPhaseOutputAvailable(true);
}

QString tst_CRacewayOutputs::take()
{
    const QString calls = m_log.join(QStringLiteral(", "));
    m_log.clear();
    return calls;
}

void tst_CRacewayOutputs::allOffSwitchesTheRedLampsAndThenTheGreenOneOff()
{
    m_outputs.updateLights(7);
    QCOMPARE(take(), QStringLiteral("18 off, 19 off, 20 off, 21 off, 22 off, 23 off"));
}

void tst_CRacewayOutputs::nextRedSwitchesOneLampAfterTheOther()
{
    for (const QString& lamp : {QStringLiteral("18 on"), QStringLiteral("19 on"), QStringLiteral("20 on"),
                                QStringLiteral("21 on"), QStringLiteral("22 on")}) {
        m_outputs.updateLights(8);
        QCOMPARE(take(), lamp);
    }
}

void tst_CRacewayOutputs::sixthRedInARowSwitchesPortId0()
{
    for (int i = 0; i < 5; ++i)
        m_outputs.updateLights(8);
    take();
    m_outputs.updateLights(8);
    QCOMPARE(take(), QStringLiteral("0 on"));
    m_outputs.updateLights(8);
    QCOMPARE(take(), QStringLiteral("0 on"));
}

void tst_CRacewayOutputs::goSwitchesTheRedLampsOffAndTheGreenOneOn()
{
    m_outputs.updateLights(9);
    QCOMPARE(take(), QStringLiteral("18 off, 19 off, 20 off, 21 off, 22 off, 23 on"));
}

void tst_CRacewayOutputs::allRedSwitchesTheRedLampsOnAndTheGreenOneOff()
{
    m_outputs.updateLights(10);
    QCOMPARE(take(), QStringLiteral("18 on, 19 on, 20 on, 21 on, 22 on, 23 off"));
    m_outputs.updateLights(8);
    QCOMPARE(take(), QStringLiteral("0 on"));
}

void tst_CRacewayOutputs::allOffAndGoBeginTheRedLampsAnew_data()
{
    QTest::addColumn<int>("action");
    QTest::newRow("all off") << CLightAction::AllOff;
    QTest::newRow("go") << CLightAction::Go;
}

void tst_CRacewayOutputs::allOffAndGoBeginTheRedLampsAnew()
{
    QFETCH(int, action);
    m_outputs.updateLights(8);
    m_outputs.updateLights(8);
    m_outputs.updateLights(action);
    take();
    m_outputs.updateLights(8);
    QCOMPARE(take(), QStringLiteral("18 on"));
}

void tst_CRacewayOutputs::unknownActionDoesNothing()
{
    for (const int action : {-1, 0, 6, 11})
        m_outputs.updateLights(action);
    QCOMPARE(take(), QString());
}

void tst_CRacewayOutputs::trackPowerSwitchesTheOutputOfTheTrack_data()
{
    QTest::addColumn<int>("track");
    QTest::addColumn<bool>("on");
    QTest::addColumn<QString>("call");
    QTest::newRow("first") << 0 << true << QStringLiteral("10 on");
    QTest::newRow("first off") << 0 << false << QStringLiteral("10 off");
    QTest::newRow("last") << 7 << true << QStringLiteral("17 on");
}

void tst_CRacewayOutputs::trackPowerSwitchesTheOutputOfTheTrack()
{
    QFETCH(int, track);
    QFETCH(bool, on);
    QFETCH(QString, call);
    m_outputs.setTrackPower(track, on);
    QCOMPARE(take(), call);
}

void tst_CRacewayOutputs::trackPowerOfATrackWithoutOutputDoesNothing()
{
    m_outputs.setTrackPower(8, true);
    m_outputs.setTrackPower(-1, true);
    QCOMPARE(take(), QString());
}

void tst_CRacewayOutputs::chaosSignalSwitchesOutput24()
{
    m_outputs.setChaosSignal(true);
    m_outputs.setChaosSignal(false);
    QCOMPARE(take(), QStringLiteral("24 on, 24 off"));
}

void tst_CRacewayOutputs::racewayWithoutLightsGetsNoLights()
{
    m_outputs.setExternalLightsAvailable(false);
    for (const int action : {7, 8, 9, 10})
        m_outputs.updateLights(action);
    QCOMPARE(take(), QString());
    m_outputs.setExternalLightsAvailable(true);
    m_outputs.updateLights(8);
    QCOMPARE(take(), QStringLiteral("18 on"));
}

void tst_CRacewayOutputs::racewayWithoutPowerSwitchesGetsNoPower()
{
    m_outputs.setPwrOffFeatureAvailable(false);
    m_outputs.setTrackPower(0, true);
    QCOMPARE(take(), QString());
}

void tst_CRacewayOutputs::racewayWithoutChaosSignalGetsNone()
{
    m_outputs.setChaosPhaseOutputAvailable(false);
    m_outputs.setChaosSignal(true);
    QCOMPARE(take(), QString());
}

void tst_CRacewayOutputs::withoutAnInterfaceNothingHappens()
{
    m_outputs.setIo(nullptr);
    for (const int action : {7, 8, 9, 10})
        m_outputs.updateLights(action);
    m_outputs.setTrackPower(0, true);
    m_outputs.setChaosSignal(true);
    QCOMPARE(take(), QString());
}

QTEST_GUILESS_MAIN(tst_CRacewayOutputs)
#include "tst_CRacewayOutputs.moc"
