#include "dialogs/SettingsFixture.h"
#include "dialogs/SettingsTable.h"

using namespace StoredSettings;

Q_DECLARE_METATYPE(Change)

/** The real dialog of the settings, control by control, beside the table of what it is to be. */
class tst_CKelmoSettingsTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void everyControlHasItsKindPlaceTextsAndRange();
    void everyControlThatCanBeChangedHasItsField();
    void controlsShowTheSettingsOfANewUser();
    void controlGoesToItsFieldAlone_data();
    void controlGoesToItsFieldAlone();
    void controlsAreEnabledByTheirRule_data();
    void controlsAreEnabledByTheirRule();

private:
    const SettingsTable::Table m_table = SettingsTable::all();
};

void tst_CKelmoSettingsTable::init()
{
    SettingsFixture::startAnew();
}

void tst_CKelmoSettingsTable::everyControlHasItsKindPlaceTextsAndRange()
{
    SettingsFixture fixture;
    fixture.cameras = SettingsTable::cameras();
    fixture.openAndCancel(
        [&](const DialogUser&) { compareWithTable(ControlWalk::Walk(fixture.dialog()), m_table); });
}

void tst_CKelmoSettingsTable::everyControlThatCanBeChangedHasItsField()
{
    const QStringList kindsThatStoreNothing{"QPushButton", "QTreeView"};
    for (const auto& row : m_table.rows)
        QVERIFY2(bool(row.stored) != kindsThatStoreNothing.contains(row.seen.first()), row.name);
}

void tst_CKelmoSettingsTable::controlsShowTheSettingsOfANewUser()
{
    SettingsFixture fixture;
    fixture.cameras = SettingsTable::cameras();
    fixture.openAndCancel([this](const DialogUser& user) {
        for (const auto& row : m_table.rows) {
            QCOMPARE(row.shown.isValid(), bool(row.stored));
            QVERIFY2(!row.shown.isValid() || user.value(row.name) == row.shown, row.name);
        }
    });
}

void tst_CKelmoSettingsTable::controlGoesToItsFieldAlone_data()
{
    QTest::addColumn<bool>("camerasThere"); // a list of them names one in the settings
    for (const QByteArray& name : m_table.namesOfValues())
        QTest::newRow(name) << (name == "qrCodeHandlingCamera");
}

void tst_CKelmoSettingsTable::controlGoesToItsFieldAlone()
{
    QFETCH(bool, camerasThere);
    const auto& row = m_table.row(QTest::currentDataTag());
    store(row.before);
    SettingsFixture fixture;
    if (camerasThere)
        fixture.cameras = SettingsTable::cameras();
    CSettings expected = storedSettings();
    row.stored(expected);
    fixture.open([&](const DialogUser& user) {
        QVERIFY(user.value(row.name) != row.entered);
        user.enter(row.name, row.entered);
        QVERIFY(bytesOf(storedSettings()) != bytesOf(expected)); // not before Ok
    });
    QCOMPARE(bytesOf(fixture.main.settings), bytesOf(expected));
    QCOMPARE(bytesOf(storedSettings()), bytesOf(expected));
    fixture.openAndCancel([&row](const DialogUser& user) { QCOMPARE(user.value(row.name), row.entered); });
}

void tst_CKelmoSettingsTable::controlsAreEnabledByTheirRule_data()
{
    using S = CSettings;
    const QList<std::pair<const char*, Change>> switches{
        {"sector times", to(&S::setDisplayShowSectorTimes, true)},
        {"speed", to(&S::setDisplaySpeed, true)},
        {"voice", to(&S::setSoundEnhanced, true)},
        {"lap time by voice", to(&S::setSoundVoiceOutputLapTime, true)},
        {"folder", to(&S::setStorageApproach, int(S::UseDefaultPath))},
        {"shutdown", to(&S::setSendShutdownToClients, true)},
        {"codes", to(&S::setQrCodeHandlingEnabled, true)}};
    QTest::addColumn<Change>("settings");
    QTest::newRow("none") << Change([](S&) {});
    QTest::newRow("all") << Change([switches](S& settings) {
        for (const auto& one : switches)
            one.second(settings);
    });
    for (int which = 0; which < switches.size(); ++which) {
        const char* name = switches[which].first;
        QTest::newRow(qPrintable(QStringLiteral("%1 alone").arg(name))) << switches[which].second;
        QTest::newRow(qPrintable(QStringLiteral("all but %1").arg(name)))
            << Change([switches, which](S& settings) {
                   for (int other = 0; other < switches.size(); ++other) {
                       if (other != which)
                           switches[other].second(settings);
                   }
               });
    }
}

void tst_CKelmoSettingsTable::controlsAreEnabledByTheirRule()
{
    QFETCH(Change, settings);
    store(settings);
    SettingsFixture fixture;
    fixture.openAndCancel([&](const DialogUser&) {
        compareEnabled(fixture.dialog(), ControlWalk::Walk(fixture.dialog()), m_table, storedSettings());
    });
}

QTEST_MAIN(tst_CKelmoSettingsTable)
#include "tst_CKelmoSettingsTable.moc"
