#include "dialogs/SettingsFixture.h"
#include "support/TestCameras.h"

namespace {

const char Box[] = "qrCodeHandlingCamera";

QStringList entries(const DialogUser& user)
{
    const auto* box = user.control<QComboBox>(Box);
    QStringList names;
    for (int entry = 0; entry < box->count(); ++entry)
        names.append(box->itemText(entry));
    return names;
}

QString storedCamera()
{
    CSettings settings;
    settings.read();
    return settings.qrCodeHandlingCamera();
}

} // namespace

/** The cameras of the machine in the settings. */
class tst_CKelmoSettingsCameras : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void camerasOfTheMachineAreOffered();
    void withoutACameraTheBoxIsEmptyAndTheNameIsStoredEmpty();
    void firstCameraTakesThePlaceOfOneThatIsGone();
};

void tst_CKelmoSettingsCameras::init()
{
    SettingsFixture::startAnew();
    CSettings settings;
    settings.read();
    settings.setQrCodeHandlingEnabled(true);
    settings.write();
}

void tst_CKelmoSettingsCameras::camerasOfTheMachineAreOffered()
{
    TestCameras cameras;
    cameras.plug("video0", "Kamera am Deckel");
    cameras.plug("video1", "Kamera am Kabel");
    SettingsFixture fixture(SettingsFixture::OfTheSystem);
    fixture.open([](const DialogUser& user) {
        QCOMPARE(entries(user), QStringList({"Kamera am Deckel", "Kamera am Kabel"}));
        user.enter(Box, 1);
    });
    QCOMPARE(storedCamera(), QString("Kamera am Kabel"));
    fixture.open([](const DialogUser& user) { QCOMPARE(user.value(Box).toInt(), 1); });
    QCOMPARE(storedCamera(), QString("Kamera am Kabel"));
}

void tst_CKelmoSettingsCameras::withoutACameraTheBoxIsEmptyAndTheNameIsStoredEmpty()
{
    const TestCameras none;
    CSettings settings;
    settings.read();
    settings.setQrCodeHandlingCamera("Kamera am Kabel");
    settings.write();
    SettingsFixture fixture(SettingsFixture::OfTheSystem);
    fixture.open([](const DialogUser& user) { QCOMPARE(entries(user), QStringList()); });
    QCOMPARE(storedCamera(), QString());
}

void tst_CKelmoSettingsCameras::firstCameraTakesThePlaceOfOneThatIsGone()
{
    TestCameras cameras;
    cameras.plug("video0", "Kamera am Deckel");
    CSettings settings;
    settings.read();
    settings.setQrCodeHandlingCamera("Kamera am Kabel");
    settings.write();
    SettingsFixture fixture(SettingsFixture::OfTheSystem);
    fixture.openAndCancel([](const DialogUser& user) { QCOMPARE(user.value(Box).toInt(), 0); });
    QCOMPARE(storedCamera(), QString("Kamera am Kabel"));
    fixture.open([](const DialogUser&) {});
    QCOMPARE(storedCamera(), QString("Kamera am Deckel"));
}

QTEST_MAIN(tst_CKelmoSettingsCameras)
#include "tst_CKelmoSettingsCameras.moc"
