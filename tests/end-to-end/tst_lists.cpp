#include "end-to-end/ListsFixture.h"
#include "io/PortIds.h"

using namespace Lists;

namespace {

void storeRaceway(const QString& name, int tracks)
{
    CRaceway raceway(tracks);
    raceway.name = name;
    CRacewayList().addRaceway(raceway);
}

} // namespace

/** The lists of raceways, cars and drivers in the running program: each button acts at once. */
class tst_lists : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void newOneIsThereEverywhere_data() { addListsAndButtons(); }
    void newOneIsThereEverywhere();
    void editedOneIsThereEverywhere_data() { addListsAndButtons(); }
    void editedOneIsThereEverywhere();
    void editedCarShowsItsValuesAgain();
    void deletingAsks_data();
    void deletingAsks();
    void newRacewayIsThereAtOnce();
    void editedRacewayIsRacedOnAtOnce();
    void deletingARacewayAsks_data();
    void deletingARacewayAsks();
    void deletedCurrentRacewayGivesItsPlaceToTheFirst();
    void usedRacewayIsThatOfTheNextRun();

private:
    static void addListsAndButtons();

    std::unique_ptr<RunningProgram> m_program;
};

void tst_lists::cleanup()
{
    m_program.reset();
}

/** What was done stays done, however the settings are closed. */
void tst_lists::addListsAndButtons()
{
    QTest::addColumn<List>("list");
    QTest::addColumn<QByteArray>("button");
    QTest::newRow("cars, ok") << Cars << QByteArray("okButton");
    QTest::newRow("cars, cancelled") << Cars << QByteArray("cancelButton");
    QTest::newRow("drivers, ok") << Drivers << QByteArray("okButton");
    QTest::newRow("drivers, cancelled") << Drivers << QByteArray("cancelButton");
}

void tst_lists::newOneIsThereEverywhere()
{
    QFETCH(List, list);
    QFETCH(QByteArray, button);
    storeLists();
    const QStringList expected = storedNames(list) + QStringList(Trickster);
    m_program = std::make_unique<RunningProgram>();
    inSettings(
        *m_program,
        [&](const DialogUser& user, ModalAnswers& answers) {
            expectEditor(answers, list.nameField, Trickster);
            user.bringUpAndPress(list.newButton);
            QCOMPARE(names(user, list), expected);
            QCOMPARE(user.selectedRow(list.tree), expected.size() - 1);
            QCOMPARE(storedNames(list), expected);
        },
        button);
    verifyEverywhere(m_program, list, expected);
}

void tst_lists::editedOneIsThereEverywhere()
{
    QFETCH(List, list);
    QFETCH(QByteArray, button);
    storeLists();
    QStringList expected = storedNames(list);
    expected[expected.indexOf("Default")] = Trickster;
    const QString idOf = QStringLiteral("SELECT id FROM %1 WHERE name = '%2'").arg(list.table);
    const QString id = DatabaseFile().value(idOf.arg("Default"));
    m_program = std::make_unique<RunningProgram>();
    inSettings(
        *m_program,
        [&](const DialogUser& user, ModalAnswers& answers) {
            select(user, list, "Default");
            expectEditor(answers, list.nameField, Trickster);
            user.press(list.editButton);
            QCOMPARE(names(user, list), expected);
            QCOMPARE(names(user, list).value(user.selectedRow(list.tree)), Trickster);
            QCOMPARE(storedNames(list), expected);
        },
        button);
    QCOMPARE(DatabaseFile().value(idOf.arg(QString(Trickster).replace('\'', "''"))), id);
    verifyEverywhere(m_program, list, expected);
}

void tst_lists::editedCarShowsItsValuesAgain()
{
    const QMap<QByteArray, QVariant> values{{"originalManufacturer", "Porsche"},
                                            {"originalType", "917k"},
                                            {"startNumber", "23"},
                                            {"scale", "43"},
                                            {"speedClass", 4},
                                            {"modelManufacturer", "Fly"},
                                            {"chassis", "Slot.it"},
                                            {"comment", "Leihwagen"},
                                            {"tankSize", 80.5},
                                            {"reserveLevel", 12.25},
                                            {"minUsage", 0.1},
                                            {"maxUsage", 999.99},
                                            {"distanceDriven", "99"},
                                            {"freeField0", "blau"}};
    storeLists();
    CCarList().addCar(zonda());
    m_program = std::make_unique<RunningProgram>();
    for (const bool entered : {false, true}) {
        inSettings(*m_program, [&](const DialogUser& user, ModalAnswers& answers) {
            select(user, Cars, "Zonda");
            answers.expect([&](QDialog* window) {
                const DialogUser editor(window);
                if (!entered)
                    editor.enter("changeDistance", true);
                for (auto value = values.begin(); value != values.end(); ++value) {
                    if (!entered)
                        editor.enter(value.key(), value.value());
                    QCOMPARE(editor.value(value.key()), value.value());
                }
                editor.press("okButton");
            });
            user.press("editCar");
        });
        QCOMPARE(
            DatabaseFile().rows("SELECT name, originalManufacturer, originalType, startNumber, scale, class, "
                                "modelManufacturer, chassis, comment, tankSize, tankReserveLevel, "
                                "minConsumption, maxConsumption, distanceDriven, freeField0, freeField9 "
                                "FROM cars WHERE name = 'Zonda'"),
            QStringList("Zonda|Porsche|917k|23|43|5|Fly|Slot.it|Leihwagen|80.5|12.25|0.1|999.99|99|"
                        "blau|Wert 9"));
    }
}

void tst_lists::deletingAsks_data()
{
    QTest::addColumn<List>("list");
    QTest::addColumn<bool>("yes");
    QTest::addColumn<QStringList>("question");
    for (const bool yes : {true, false}) {
        QTest::newRow(yes ? "car: yes" : "car: no")
            << Cars << yes
            << QStringList{"Fahrzeug löschen",
                           "Sind Sie sicher, dass Sie das Fahrzeug " + Trickster + " löschen möchten?", "&Ja",
                           "&Nein"};
        QTest::newRow(yes ? "driver: yes" : "driver: no")
            << Drivers << yes
            << QStringList{"Fahrer löschen",
                           "Sind Sie sicher, dass Sie den Fahrer " + Trickster + " löschen möchten?", "&Ja",
                           "&Nein"};
    }
}

void tst_lists::deletingAsks()
{
    QFETCH(List, list);
    QFETCH(bool, yes);
    QFETCH(QStringList, question);
    storeLists({Trickster});
    QStringList expected = storedNames(list);
    if (yes)
        expected.removeAll(Trickster);
    m_program = std::make_unique<RunningProgram>();
    CScriptedQuestions* boxes = answerBoxes(*m_program);
    boxes->answerIsYes = yes;
    const QStringList before = DatabaseFile().dump();
    inSettings(
        *m_program,
        [&](const DialogUser& user, ModalAnswers&) {
            select(user, list, Trickster);
            user.press(list.deleteButton);
            QCOMPARE(names(user, list), expected);
            QCOMPARE(storedNames(list), expected);
        },
        "cancelButton");
    QCOMPARE(boxes->questions, QList<QStringList>{question});
    QCOMPARE(DatabaseFile().dump() == before, !yes);
    verifyEverywhere(m_program, list, expected);
}

void tst_lists::newRacewayIsThereAtOnce()
{
    const char overview[] = "SELECT currentRw, name, noOfTracks FROM raceways ORDER BY name";
    const QStringList expected{"|Keller|3", "x|Testbahn|2"};
    storeLists();
    m_program = std::make_unique<RunningProgram>();
    inSettings(
        *m_program,
        [&](const DialogUser& user, ModalAnswers& answers) {
            expectWizard(answers, "Keller", 3);
            user.press("newRaceway");
            QCOMPARE(user.rows("racewayTree"), expected);
            QCOMPARE(user.selectedRow("racewayTree"), 0);
            QCOMPARE(DatabaseFile().rows(overview), expected);
        },
        "cancelButton");
    QCOMPARE(m_program->infoText("racewayName"), QString("Testbahn"));
    m_program.reset();
    m_program = std::make_unique<RunningProgram>();
    inSettings(*m_program,
               [&](const DialogUser& user, ModalAnswers&) { QCOMPARE(user.rows("racewayTree"), expected); });
    QCOMPARE(DatabaseFile().rows(overview), expected);
}

void tst_lists::editedRacewayIsRacedOnAtOnce()
{
    storeLists();
    m_program = std::make_unique<RunningProgram>();
    inSettings(
        *m_program,
        [&](const DialogUser& user, ModalAnswers& answers) {
            user.selectRow("racewayTree", 0);
            expectWizard(answers, "Dachboden", 4);
            user.press("editRaceway");
            QCOMPARE(user.rows("racewayTree"), QStringList("x|Dachboden|4"));
            QVERIFY(m_program->track(4)); // behind the open settings
        },
        "cancelButton");
    QCOMPARE(m_program->infoText("racewayName"), QString("Dachboden"));
    QVERIFY(m_program->startRace());
    m_program->sensorAt(1000, PortId::lapSensor(3));
    m_program->sensorAt(60000, PortId::lapSensor(3));
    QCOMPARE(m_program->laps(4), QString("001"));
    m_program->stopRace();
    m_program.reset();
    m_program = std::make_unique<RunningProgram>();
    QVERIFY(m_program->track(4) && !m_program->track(5));
    QCOMPARE(m_program->infoText("racewayName"), QString("Dachboden"));
}

void tst_lists::deletingARacewayAsks_data()
{
    QTest::addColumn<bool>("yes");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void tst_lists::deletingARacewayAsks()
{
    QFETCH(bool, yes);
    storeLists();
    storeRaceway(Trickster, 3);
    const QStringList expected =
        yes ? QStringList("x|Testbahn|2") : QStringList{"x|Testbahn|2", '|' + Trickster + "|3"};
    m_program = std::make_unique<RunningProgram>();
    CScriptedQuestions* boxes = answerBoxes(*m_program);
    boxes->answerIsYes = yes;
    const QStringList before = DatabaseFile().dump();
    inSettings(
        *m_program,
        [&](const DialogUser& user, ModalAnswers&) {
            user.selectRow("racewayTree", 1);
            user.press("deleteRaceway");
            QCOMPARE(user.rows("racewayTree"), expected);
        },
        "cancelButton");
    QCOMPARE(boxes->questions, (QList<QStringList>{{"Rennstrecke löschen",
                                                    "Sind Sie sicher, dass Sie die Rennstrecke " + Trickster +
                                                        " löschen möchten?",
                                                    "&Ja", "&Nein"}}));
    QCOMPARE(DatabaseFile().dump() == before, !yes);
    QCOMPARE(DatabaseFile().rows("SELECT id FROM tracks WHERE racewayId = 2").size(), yes ? 0 : 3);
    inSettings(*m_program,
               [&](const DialogUser& user, ModalAnswers&) { QCOMPARE(user.rows("racewayTree"), expected); });
    QCOMPARE(m_program->infoText("racewayName"), QString("Testbahn"));
}

void tst_lists::deletedCurrentRacewayGivesItsPlaceToTheFirst()
{
    storeLists();
    storeRaceway("Aachen", 3);
    m_program = std::make_unique<RunningProgram>();
    answerBoxes(*m_program)->answerIsYes = true;
    inSettings(
        *m_program,
        [](const DialogUser& user, ModalAnswers&) {
            user.selectRow("racewayTree", 1); // "Testbahn"
            user.press("deleteRaceway");
            QCOMPARE(user.rows("racewayTree"), QStringList("x|Aachen|3"));
        },
        "cancelButton");
    QCOMPARE(m_program->infoText("racewayName"), QString("Aachen"));
    QVERIFY(m_program->startRace());
    m_program->sensorAt(1000, PortId::lapSensor(2));
    m_program->sensorAt(2000, PortId::lapSensor(2));
    QCOMPARE(m_program->laps(3), QString("001"));
}

void tst_lists::usedRacewayIsThatOfTheNextRun()
{
    storeLists();
    storeRaceway("Aachen", 3);
    m_program = std::make_unique<RunningProgram>();
    QCOMPARE(m_program->infoText("racewayName"), QString("Testbahn"));
    inSettings(
        *m_program,
        [](const DialogUser& user, ModalAnswers&) {
            user.selectRow("racewayTree", 0);
            user.press("useRaceway");
            QCOMPARE(user.rows("racewayTree"), QStringList({"x|Aachen|3", "|Testbahn|2"}));
        },
        "cancelButton");
    QCOMPARE(m_program->infoText("racewayName"), QString("Aachen"));
    m_program.reset();
    m_program = std::make_unique<RunningProgram>();
    QCOMPARE(m_program->infoText("racewayName"), QString("Aachen"));
    QVERIFY(m_program->track(3) && !m_program->track(4));
}

QTEST_APPLESS_MAIN(tst_lists)
#include "tst_lists.moc"
