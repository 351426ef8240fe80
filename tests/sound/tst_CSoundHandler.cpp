#include "sound/CSoundHandler.h"
#include "sound/WaveFile.h"

#include <QFile>
#include <QTest>

/** The effects without a device; tst_SoundPlayback hears them. */
class tst_CSoundHandler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theEffectsAreSlotsInTheirOrder();
    void anEffectWithoutAFileIsSilent();
    void anEffectWithAMissingFileIsSilent();
    void aFileMayBeSetWhileTheEffectPlays();
};

namespace {

void playAll(CSoundHandler& handler)
{
    handler.playNewBestLap();
    handler.playDriveThrough();
    handler.playRedLightSound();
    handler.playGreenLightSound();
    handler.playFuelOnReserve();
    QCoreApplication::processEvents();
}

void setAll(CSoundHandler& handler, const QString& file)
{
    handler.setNewBestLapSound(file);
    handler.setDriveThroughSound(file);
    handler.setRedLightSound(file);
    handler.setGreenLightSound(file);
    handler.setFuelOnReserveSound(file);
    QCoreApplication::processEvents();
}

} // namespace

void tst_CSoundHandler::theEffectsAreSlotsInTheirOrder()
{
    const QMetaObject& meta = CSoundHandler::staticMetaObject;
    QList<QByteArray> slotNames;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        slotNames << meta.method(i).methodSignature();
    const QList<QByteArray> expected{"playNewBestLap()", "playDriveThrough()", "playRedLightSound()",
                                     "playGreenLightSound()", "playFuelOnReserve()"};
    QCOMPARE(slotNames, expected);
}

void tst_CSoundHandler::anEffectWithoutAFileIsSilent()
{
    CSoundHandler handler;
    playAll(handler);
    setAll(handler, QString());
    playAll(handler);
}

void tst_CSoundHandler::anEffectWithAMissingFileIsSilent()
{
    CSoundHandler handler;
    setAll(handler, QStringLiteral("missing.wav"));
    playAll(handler);
    setAll(handler, QStringLiteral("/no/such/directory/missing.wav"));
    playAll(handler);
}

void tst_CSoundHandler::aFileMayBeSetWhileTheEffectPlays()
{
    QFile file(QStringLiteral("tone.wav"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(WaveFile::plain(QVector<qint16>(44100, 1000)));
    file.close();
    CSoundHandler handler;
    for (int i = 0; i < 5; ++i) {
        setAll(handler, QStringLiteral("tone.wav"));
        playAll(handler);
    }
    setAll(handler, QStringLiteral("junk"));
    playAll(handler);
}

QTEST_GUILESS_MAIN(tst_CSoundHandler)
#include "tst_CSoundHandler.moc"
