#include "dialogs/RaceSettingsTable.h"

Q_DECLARE_METATYPE(CRaceSettings)

namespace {

CRaceSettings rulesOfANewUser()
{
    CRaceSettings rules = ordinaryRules();
    rules.readDefaults();
    return rules;
}

void openAndCancel(CRaceSettings rules, const std::function<void(QDialog*)>& look)
{
    CKelmoRaceSettings dialog(&rules);
    ModalAnswers answers;
    answers.expect([&look](QDialog* window) {
        look(window);
        window->reject();
    });
    dialog.run();
}

} // namespace

/** The real dialog of the race settings, control by control, beside the table of what it is to be. */
class tst_CKelmoRaceSettingsTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void everyControlHasItsKindPlaceTextsAndRange();
    void everyControlThatCanBeChangedHasItsField();
    void controlsShowTheDefaults();
    void controlsOfARecordThatNothingWasReadIntoDiffer();
    void controlGoesToItsFieldAlone_data();
    void controlGoesToItsFieldAlone();
    void controlsAreEnabledByTheirRule_data();
    void controlsAreEnabledByTheirRule();

private:
    const RaceSettingsTable::Table m_table = RaceSettingsTable::all();
};

void tst_CKelmoRaceSettingsTable::init()
{
    QSettings("Tornik", "Tornik").clear();
}

void tst_CKelmoRaceSettingsTable::everyControlHasItsKindPlaceTextsAndRange()
{
    openAndCancel(rulesOfANewUser(),
                  [this](QDialog* dialog) { compareWithTable(ControlWalk::Walk(dialog), m_table); });
}

void tst_CKelmoRaceSettingsTable::everyControlThatCanBeChangedHasItsField()
{
    for (const auto& row : m_table.rows) {
        const bool isButton = row.seen.first() == "QPushButton" || row.name == "saveAsDefaults";
        QVERIFY2(bool(row.stored) != isButton, row.name);
    }
}

void tst_CKelmoRaceSettingsTable::controlsShowTheDefaults()
{
    openAndCancel(rulesOfANewUser(), [this](QDialog* dialog) {
        for (const auto& row : m_table.rows) {
            if (row.shown.isValid())
                QVERIFY2(DialogUser(dialog).value(row.name) == row.shown, row.name);
            else
                QCOMPARE(row.seen.first(), QString("QPushButton"));
        }
    });
}

void tst_CKelmoRaceSettingsTable::controlsOfARecordThatNothingWasReadIntoDiffer()
{
    openAndCancel(CRaceSettings(), [this](QDialog* dialog) {
        const DialogUser user(dialog);
        QCOMPARE(user.value("numberOfLaps").toInt(), 25);
        QCOMPARE(user.value("tankSize").toDouble(), 100.0);
        for (const auto& row : m_table.rows) {
            if (row.shown.isValid() && row.name != "numberOfLaps" && row.name != "tankSize")
                QVERIFY2(user.value(row.name) == row.shown, row.name);
        }
    });
}

void tst_CKelmoRaceSettingsTable::controlGoesToItsFieldAlone_data()
{
    QTest::addColumn<bool>("unused");
    for (const QByteArray& name : m_table.namesOfValues())
        QTest::newRow(name) << true;
}

void tst_CKelmoRaceSettingsTable::controlGoesToItsFieldAlone()
{
    const auto& row = m_table.row(QTest::currentDataTag());
    CRaceSettings rules = ordinaryRules();
    row.before(rules);
    CRaceSettings expected = rules;
    row.stored(expected);
    CKelmoRaceSettings dialog(&rules);
    const auto work = [&row](const DialogUser& user) {
        QVERIFY(user.value(row.name) != row.entered);
        user.enter(row.name, row.entered);
    };
    QCOMPARE(open(dialog, work), int(QDialog::Accepted));
    QCOMPARE(bytesOf(rules), bytesOf(expected));
    open(dialog, [&row](const DialogUser& user) { QCOMPARE(user.value(row.name), row.entered); });
}

void tst_CKelmoRaceSettingsTable::controlsAreEnabledByTheirRule_data()
{
    QTest::addColumn<CRaceSettings>("rules");
    CRaceSettings rules = ordinaryRules();
    for (const int start : {CRaceSettings::FlyingStart, CRaceSettings::TimedStart}) {
        rules.setStartType(start);
        QTest::newRow(qPrintable(QStringLiteral("start %1").arg(start))) << rules;
    }
    for (const int end : {CRaceSettings::NoEnd, CRaceSettings::TimeLimit, CRaceSettings::LapLimit}) {
        rules.setEndType(end);
        QTest::newRow(qPrintable(QStringLiteral("end %1").arg(end))) << rules;
    }
    for (int winner = 1; winner <= 6; ++winner) {
        for (const bool target : {false, true}) {
            rules.setWinningCondition(winner);
            rules.setUseTargetTime(target);
            QTest::newRow(qPrintable(QStringLiteral("winner %1, target %2").arg(winner).arg(target)))
                << rules;
        }
    }
    CRaceway raceway = rules.raceway();
    for (int function = 0; function <= 2; ++function) {
        for (int reaction = 0; reaction <= 3; ++reaction) {
            for (const bool power : {false, true}) {
                raceway.pwrOffFeatureAvailable = power;
                rules.setRaceway(raceway);
                const QString name = QStringLiteral("fuel %1, reaction %2, power switching %3");
                QTest::newRow(qPrintable(name.arg(function).arg(reaction).arg(power)))
                    << withFuel(rules, function, reaction);
            }
        }
    }
}

void tst_CKelmoRaceSettingsTable::controlsAreEnabledByTheirRule()
{
    QFETCH(CRaceSettings, rules);
    openAndCancel(
        rules, [&](QDialog* dialog) { compareEnabled(dialog, ControlWalk::Walk(dialog), m_table, rules); });
}

QTEST_MAIN(tst_CKelmoRaceSettingsTable)
#include "tst_CKelmoRaceSettingsTable.moc"
