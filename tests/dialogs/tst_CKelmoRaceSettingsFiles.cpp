#include "dialogs/RaceSettingsFixture.h"
#include "support/DatabaseFile.h"
#include "support/OrdinaryUser.h"

#include <QDir>

namespace {

/** @return the rules after the import of a file into quite different ones. */
CRaceSettings imported(const QString& fileName)
{
    CRaceSettings rules = ordinaryRules();
    rules.setStartType(CRaceSettings::TimedStart);
    rules.setNumberOfLaps(77);
    CKelmoRaceSettings dialog(&rules);
    answer(dialog, fileName);
    open(dialog, [](const DialogUser& user) { user.press("importButton"); });
    return rules;
}

} // namespace

/** Race settings in files, and what they leave alone. */
class tst_CKelmoRaceSettingsFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void exportAsksForTheFile();
    void exportedFileHoldsTheControlsAndTheIdsOfTheRecord();
    void exportTouchesNothingElse();
    void importShowsTheFileAndOkTakesIt();
    void importAsksForTheFile();
    void fileDialogCancelledDoesNothing();
    void importOfAFileThatIsNoneShowsTheDefaults_data();
    void importOfAFileThatIsNoneShowsTheDefaults();
    void importOfAFileOfAnotherProgramTakesNothingOfIt();
    void importOfADamagedFileTakesWhatCanBeRead();
    void importOfAFileThatMayNotBeReadShowsTheDefaults();
    void exportWhereNothingCanBeWrittenKeepsEverything();
    void exportOverAFileThatMayNotBeWrittenKeepsIt();
    void exportOverAFileOfAnotherKindCanBeImportedAgain_data();
    void exportOverAFileOfAnotherKindCanBeImportedAgain();
    void driversCarsAndRacewayStay();
    void cancellingKeepsTheLiveRecordAlsoAfterDefaultsAndImport();
};

void tst_CKelmoRaceSettingsFiles::init()
{
    QSettings("Tornik", "Tornik").clear();
    QFile::remove("rules.rsf");
}

void tst_CKelmoRaceSettingsFiles::exportAsksForTheFile()
{
    CRaceSettings rules = ordinaryRules();
    CKelmoRaceSettings dialog(&rules);
    const CScriptedQuestions* questions = answer(dialog, "rules.rsf");
    open(dialog, [](const DialogUser& user) { user.press("exportButton"); });
    QCOMPARE(questions->questions,
             QList<QStringList>({{"Renneinstellungen exportieren ...", "", "Renneinstellungen (*.rsf)"}}));
}

void tst_CKelmoRaceSettingsFiles::exportedFileHoldsTheControlsAndTheIdsOfTheRecord()
{
    CRaceSettings rules = ordinaryRules();
    CKelmoRaceSettings dialog(&rules);
    answer(dialog, "rules.rsf");
    const auto work = [](const DialogUser& user) {
        user.enter("endTypeLaps", true);
        user.enter("numberOfLaps", 42);
        user.enter("fuelFunction2", true);
        user.enter("tankSize", 55.5);
        user.enter("monitorFastestLap", true);
        user.press("exportButton");
    };
    open(dialog, work, "cancelButton");
    CRaceSettings read;
    read.readFromFile("rules.rsf");
    CRaceSettings expected = withFuel(ordinaryRules(), CFuelSettings::FuelSameForAll);
    expected.setEndType(CRaceSettings::LapLimit);
    expected.setNumberOfLaps(42);
    fuel(&CFuelSettings::setTankSize, 55.5)(expected);
    expected.setMonitorFastestLap(true);
    QCOMPARE(read.toText(), expected.toText());
    QCOMPARE(read.driver(1).id(), 7);
    QCOMPARE(read.car(1).id(), 9);
    QCOMPARE(read.car(0).id(), -1);
    QVERIFY(contentOf("rules.rsf").contains("[DefaultRaceSettings]"));
}

void tst_CKelmoRaceSettingsFiles::exportTouchesNothingElse()
{
    CRaceSettings rules = ordinaryRules();
    const QByteArray before = bytesOf(rules);
    CKelmoRaceSettings dialog(&rules);
    answer(dialog, "rules.rsf");
    const auto work = [](const DialogUser& user) {
        user.enter("startTypeTimed", true);
        user.enter("saveAsDefaults", true);
        user.press("exportButton");
        QVERIFY(user.value("startTypeTimed").toBool());
    };
    open(dialog, work, "cancelButton");
    QCOMPARE(bytesOf(rules), before);
    QVERIFY(QSettings("Tornik", "Tornik").allKeys().isEmpty());
}

void tst_CKelmoRaceSettingsFiles::importShowsTheFileAndOkTakesIt()
{
    CRaceSettings stored = withFuel(ordinaryRules(), CFuelSettings::FuelSameForAll, 2);
    stored.setStartType(CRaceSettings::TimedStart);
    stored.setStartDelay(QTime(0, 0, 7, 250));
    stored.setWinningCondition(6);
    stored.setNumOfWorstLapsToIgnore(4);
    stored.setMonitorDistanceDriven(true);
    stored.writeToFile("rules.rsf");
    CRaceSettings rules = ordinaryRules();
    CKelmoRaceSettings dialog(&rules);
    answer(dialog, "rules.rsf");
    open(dialog, [&rules](const DialogUser& user) {
        user.press("importButton");
        QVERIFY(user.value("startTypeTimed").toBool());
        QVERIFY(user.isEnabled("startDelay"));
        QCOMPARE(user.value("numOfWorstLapsToIgnore").toInt(), 4);
        QVERIFY(user.isEnabled("emptyFuelPenaltyTime"));
        QCOMPARE(rules.startType(), int(CRaceSettings::FlyingStart)); // until Ok
    });
    QCOMPARE(bytesOf(rules), bytesOf(stored));
}

void tst_CKelmoRaceSettingsFiles::importAsksForTheFile()
{
    CRaceSettings rules = ordinaryRules();
    CKelmoRaceSettings dialog(&rules);
    const CScriptedQuestions* questions = answer(dialog, "rules.rsf");
    open(dialog, [](const DialogUser& user) { user.press("importButton"); });
    QCOMPARE(questions->questions,
             QList<QStringList>({{"Renneinstellungen importieren ...", "Renneinstellungen (*.rsf)"}}));
}

void tst_CKelmoRaceSettingsFiles::fileDialogCancelledDoesNothing()
{
    CRaceSettings rules = ordinaryRules();
    CKelmoRaceSettings dialog(&rules);
    answer(dialog, QString());
    const QStringList filesBefore = QDir().entryList();
    open(dialog, [](const DialogUser& user) {
        user.enter("startTypeTimed", true);
        user.press("exportButton");
        user.press("importButton");
        QVERIFY(user.value("startTypeTimed").toBool());
    });
    QCOMPARE(rules.startType(), int(CRaceSettings::TimedStart));
    QCOMPARE(QDir().entryList(), filesBefore);
}

void tst_CKelmoRaceSettingsFiles::importOfAFileThatIsNoneShowsTheDefaults_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QByteArray>("content"); // null for no file
    QByteArray binary;
    for (int byte = 0; byte < 4096; ++byte)
        binary.append(char(byte * 37));
    QTest::newRow("no file") << "none.rsf" << QByteArray();
    QTest::newRow("directory") << "." << QByteArray();
    QTest::newRow("empty") << "rules.rsf" << QByteArray("");
    QTest::newRow("binary") << "rules.rsf" << binary;
    QTest::newRow("one long line") << "rules.rsf" << QByteArray(1 << 20, 'x');
    QTest::newRow("database") << "rules.rsf" << QByteArray("SQLite format 3\0\x10\0", 19);
}

void tst_CKelmoRaceSettingsFiles::importOfAFileThatIsNoneShowsTheDefaults()
{
    QFETCH(QString, fileName);
    QFETCH(QByteArray, content);
    if (!content.isNull())
        QVERIFY(writeContent(fileName, content));
    CRaceSettings defaults;
    defaults.readDefaults(); // of an empty store
    defaults.setWinningCondition(1);
    QCOMPARE(imported(fileName).toText(), defaults.toText());
    QCOMPARE(contentOf(fileName), content);
}

void tst_CKelmoRaceSettingsFiles::importOfAFileOfAnotherProgramTakesNothingOfIt()
{
    QVERIFY(writeContent("rules.rsf",
                         "[General]\nnumberOfLaps=5\nstartType=1\n[Other]\nendType=2\ntankSize=7\n"));
    CRaceSettings defaults;
    defaults.readDefaults();
    defaults.setWinningCondition(1);
    QCOMPARE(imported("rules.rsf").toText(), defaults.toText());
}

void tst_CKelmoRaceSettingsFiles::importOfADamagedFileTakesWhatCanBeRead()
{
    CRaceSettings stored = ordinaryRules();
    stored.setEndType(CRaceSettings::LapLimit);
    stored.setNumberOfLaps(42);
    stored.writeToFile("rules.rsf");
    const QByteArray whole = contentOf("rules.rsf");
    for (int length = 0; length < whole.size(); length += 97) {
        QVERIFY(writeContent("cut.rsf", whole.left(length)));
        const int laps = imported("cut.rsf").numberOfLaps();
        QVERIFY2(laps == 42 || laps == 10 || laps == 4, qPrintable(QString::number(laps)));
    }
    QByteArray damaged = whole;
    damaged.replace("numberOfLaps=42", "numberOfLaps=viele");
    damaged.replace("emptyFuelReaction=0", "emptyFuelReaction=7");
    damaged.replace("startLightsMinDelay=500", "startLightsMinDelay=-1");
    QVERIFY(writeContent("damaged.rsf", damaged));
    const CRaceSettings rules = imported("damaged.rsf");
    QCOMPARE(rules.numberOfLaps(), 10);
    QCOMPARE(rules.endType(), int(CRaceSettings::LapLimit));
    QCOMPARE(rules.fuelSettings().emptyFuelReaction(), 0);
    QCOMPARE(rules.startLightsMinDelay(), 500U);
}

void tst_CKelmoRaceSettingsFiles::importOfAFileThatMayNotBeReadShowsTheDefaults()
{
    CRaceSettings stored = ordinaryRules();
    stored.setNumberOfLaps(42);
    stored.writeToFile("rules.rsf");
    QVERIFY(
        writeContent("secret.rsf", contentOf("rules.rsf"))); // a copy: what was written here is known here
    QVERIFY(QFile::setPermissions("secret.rsf", QFile::WriteOwner));
    CRaceSettings rules = ordinaryRules();
    CKelmoRaceSettings dialog(&rules);
    answer(dialog, "secret.rsf");
    open(dialog, [](const DialogUser& user) {
        const OrdinaryUser ordinary;
        QVERIFY(!QFile("secret.rsf").open(QIODevice::ReadOnly));
        user.press("importButton");
        QCOMPARE(user.value("numberOfLaps").toInt(), 10);
    });
}

void tst_CKelmoRaceSettingsFiles::exportWhereNothingCanBeWrittenKeepsEverything()
{
    QVERIFY(writeContent("file", "content"));
    CRaceSettings rules = ordinaryRules();
    CKelmoRaceSettings dialog(&rules);
    for (const char* path : {"file/rules.rsf", "/proc/rules.rsf", "."}) {
        answer(dialog, path);
        QCOMPARE(open(dialog, [](const DialogUser& user) { user.press("exportButton"); }),
                 int(QDialog::Accepted));
    }
    QCOMPARE(contentOf("file"), QByteArray("content"));
    QCOMPARE(bytesOf(rules), bytesOf(ordinaryRules()));
}

void tst_CKelmoRaceSettingsFiles::exportOverAFileThatMayNotBeWrittenKeepsIt()
{
    QVERIFY(QDir().mkpath("locked"));
    ordinaryRules().writeToFile("locked/rules.rsf");
    const QByteArray before = contentOf("locked/rules.rsf");
    QVERIFY(!before.isEmpty());
    QVERIFY(QFile::setPermissions("locked/rules.rsf", QFile::ReadOwner | QFile::ReadOther));
    QVERIFY(QFile::setPermissions("locked",
                                  QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther));
    CRaceSettings rules = ordinaryRules();
    CKelmoRaceSettings dialog(&rules);
    answer(dialog, "locked/rules.rsf");
    open(dialog, [](const DialogUser& user) {
        user.enter("startTypeTimed", true);
        const OrdinaryUser ordinary;
        QVERIFY(!QFile("locked/rules.rsf").open(QIODevice::WriteOnly | QIODevice::Append));
        user.press("exportButton");
        QVERIFY(user.value("startTypeTimed").toBool());
    });
    QCOMPARE(contentOf("locked/rules.rsf"), before);
    QCOMPARE(rules.startType(), int(CRaceSettings::TimedStart)); // Ok works as ever
    QVERIFY(QFile::setPermissions("locked", QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void tst_CKelmoRaceSettingsFiles::exportOverAFileOfAnotherKindCanBeImportedAgain_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("binary") << QByteArray("\x7f\x45LF\0\1\2[\xff]=%\n;\0", 16);
    QTest::newRow("text") << QByteArray("Liebes Tagebuch,\nheute war Rennen.\n");
    QTest::newRow("cut") << QByteArray("[DefaultRaceSettings]\nnumberOfLaps=\nstartDel");
}

void tst_CKelmoRaceSettingsFiles::exportOverAFileOfAnotherKindCanBeImportedAgain()
{
    QFETCH(QByteArray, content);
    QVERIFY(writeContent("rules.rsf", content));
    CRaceSettings rules = ordinaryRules();
    CKelmoRaceSettings dialog(&rules);
    answer(dialog, "rules.rsf");
    const auto work = [](const DialogUser& user) {
        user.enter("endTypeLaps", true);
        user.enter("numberOfLaps", 42);
        user.press("exportButton");
    };
    open(dialog, work, "cancelButton");
    CRaceSettings expected = ordinaryRules();
    expected.setEndType(CRaceSettings::LapLimit);
    expected.setNumberOfLaps(42);
    QVERIFY(writeContent("copy.rsf", contentOf("rules.rsf")));
    QCOMPARE(imported("copy.rsf").toText(), expected.toText());
}

void tst_CKelmoRaceSettingsFiles::driversCarsAndRacewayStay()
{
    CRaceSettings rules = ordinaryRules();
    CKelmoRaceSettings dialog(&rules);
    QVERIFY(writeContent("rules.rsf", "[DefaultRaceSettings]\nDefaultDriverList\\Driver2ID=55\n"));
    answer(dialog, "rules.rsf");
    open(dialog, [](const DialogUser& user) {
        user.press("defaultsButton");
        user.press("importButton");
    });
    QCOMPARE(rules.driver(1).id(), 7);
    QCOMPARE(rules.driver(1).name(), QString("Anna"));
    QCOMPARE(rules.car(1).id(), 9);
    QCOMPARE(rules.raceway().name, QString("Testbahn"));
}

void tst_CKelmoRaceSettingsFiles::cancellingKeepsTheLiveRecordAlsoAfterDefaultsAndImport()
{
    const auto withLaps = [](int laps) {
        CRaceSettings rules = ordinaryRules();
        rules.setStartType(CRaceSettings::TimedStart);
        rules.setNumberOfLaps(laps);
        return rules;
    };
    withLaps(33).writeDefaults();
    withLaps(44).writeToFile("rules.rsf");
    CRaceSettings rules = ordinaryRules();
    const QByteArray before = bytesOf(rules);
    for (const auto& [button, laps] : {std::pair("defaultsButton", 33), std::pair("importButton", 44)}) {
        CKelmoRaceSettings dialog(&rules);
        answer(dialog, "rules.rsf");
        const auto work = [button = button, laps = laps](const DialogUser& user) {
            QVERIFY(user.value("startTypeNone").toBool());
            user.press(button);
            QVERIFY(user.value("startTypeTimed").toBool());
            QCOMPARE(user.value("numberOfLaps").toInt(), laps);
        };
        QCOMPARE(open(dialog, work, "cancelButton"), int(QDialog::Rejected));
        QCOMPARE(bytesOf(rules), before);
    }
    CRaceSettings stored;
    stored.readDefaults();
    QCOMPARE(stored.toText(), withLaps(33).toText());
}

QTEST_MAIN(tst_CKelmoRaceSettingsFiles)
#include "tst_CKelmoRaceSettingsFiles.moc"
