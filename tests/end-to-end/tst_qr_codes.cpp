#include "data/CCarList.h"
#include "io/PortIds.h"
#include "qr/CQrCodeReaderDialog.h"
#include "results/CKelmoRaceAnalyzer.h"
#include "shell/CKelmoMainDialog.h"
#include "shell/CTrackDisplay.h"
#include "support/DialogUser.h"
#include "support/MainThreadWatch.h"
#include "support/ModalAnswers.h"
#include "support/RunningProgram.h"
#include "support/StoredSetup.h"
#include "support/TestCameras.h"

#include <QAction>
#include <QCamera>
#include <QCameraViewfinder>
#include <QComboBox>
#include <QMessageBox>
#include <QPointer>
#include <QToolButton>

namespace {

constexpr int Limit = 30000; // milliseconds
const QString CameraText = QStringLiteral("Kamera überm Tisch");

/** The program of a user with four tracks and one camera, which sees a wall. */
class Evening
{
public:
    explicit Evening(bool enabled = true)
    {
        cameras.plug("a", CameraText);
        cameras.showNothing("a");
        StoredSetup setup(4);
        setup.settings.setQrCodeHandlingEnabled(enabled);
        setup.settings.setQrCodeHandlingCamera(CameraText);
        setup.write();
        CCarList cars;
        for (const char* name : {"Blitz", "Pfeil"}) {
            CCar car;
            car.setName(name);
            cars.addCar(car);
        }
        program = std::make_unique<RunningProgram>();
        answers = std::make_unique<ModalAnswers>();
    }
    ~Evening() { answers.reset(); }

    /** Presses a key and does something while the camera looks; waits until its window has closed. */
    void read(Qt::Key key, const std::function<void(CQrCodeReaderDialog*)>& work)
    {
        expectReader(work);
        program->pressKey(key, Qt::AltModifier);
    }
    void showCard(Qt::Key key, const QString& text)
    {
        read(key, [&](CQrCodeReaderDialog*) { cameras.showCode("a", text); });
    }
    void expectReader(const std::function<void(CQrCodeReaderDialog*)>& work)
    {
        answers->expect([work](QDialog* opened) {
            auto* reader = qobject_cast<CQrCodeReaderDialog*>(opened);
            QVERIFY(reader);
            QTimer::singleShot(Limit, reader, [reader] {
                if (!reader->isVisible())
                    return;
                QTest::qFail("the window doesn't close", __FILE__, __LINE__);
                reader->close();
            });
            work(reader);
        });
    }
    /** Presses a key where there is no camera. @return the text of the box */
    QString problem(Qt::Key key)
    {
        QString text;
        answers->expect([&text](QDialog* opened) {
            auto* box = qobject_cast<QMessageBox*>(opened);
            QVERIFY(box);
            QCOMPARE(box->windowTitle(), QString("Kamera Problem"));
            text = box->text();
            box->accept();
        });
        program->pressKey(key, Qt::AltModifier);
        return text;
    }
    QToolButton* button(int track, const char* name) const
    {
        return program->track(track)->findChild<QToolButton*>(name);
    }
    /** @return what all boxes show, track by track. */
    QStringList choice() const
    {
        QStringList texts;
        for (int track = 1; track <= 4; ++track)
            texts.append(box(track, "driverBox") + "/" + box(track, "carBox"));
        return texts;
    }

    TestCameras cameras;
    std::unique_ptr<RunningProgram> program;
    std::unique_ptr<ModalAnswers> answers;

private:
    QString box(int track, const char* name) const
    {
        return program->track(track)->findChild<QComboBox*>(name)->currentText();
    }
};

QStringList changed(QStringList choice, int track, const QString& text)
{
    choice[track - 1] = text;
    return choice;
}

} // namespace

/** Drivers and cars chosen by cards in the running program: keys, buttons, window, camera, thread. */
class tst_qr_codes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aKeyShowsTheCameraAndACardChoosesTheDriver();
    void aCardChoosesTheCar();
    void aButtonOfAPanelDoesTheSame();
    void theCameraIsTheOneThatTheUserHasChosen();
    void unknownNamesAndForeignTextsCloseTheWindowAndChangeNothing();
    void theWindowClosedWithoutAReadingAndOpenedAgain();
    void aCameraThatVanishes();
    void noCamera();
    void aCameraThatAnotherProgramHolds();
    void theKeysDoNothingWhereTheyAreSwitchedOff();
    void theAnalyzerTakesACardForItsFilter();
    void aRaceGoesOnBehindTheWindow();
    void theProgramEndsWithTheWindowOpen();
};

void tst_qr_codes::aKeyShowsTheCameraAndACardChoosesTheDriver()
{
    Evening evening;
    const QStringList before = evening.choice();
    QVERIFY(before[2].startsWith("Carla/"));
    evening.read(Qt::Key_3, [&](CQrCodeReaderDialog* reader) {
        const auto middle = [reader] { return reader->grab().toImage().pixelColor(reader->rect().center()); };
        QTRY_COMPARE(middle(), QColor(90, 110, 100));
        QImage hand = TestCameras::wall();
        hand.fill(QColor(200, 160, 140));
        evening.cameras.show("a", hand);
        QTRY_COMPARE(middle(), QColor(200, 160, 140));
        evening.cameras.showCode("a", "<drv>Ben");
    });
    QCOMPARE(evening.choice(), changed(before, 3, QString(before[2]).replace("Carla", "Ben")));
}

void tst_qr_codes::aCardChoosesTheCar()
{
    Evening evening;
    const QStringList before = evening.choice();
    evening.showCard(Qt::Key_1, "<car>Pfeil");
    const QStringList first = changed(before, 1, "Anna/Pfeil");
    QCOMPARE(evening.choice(), first);
    evening.showCard(Qt::Key_4, "<car>Blitz");
    QCOMPARE(evening.choice(), changed(first, 4, "David/Blitz"));
}

void tst_qr_codes::aButtonOfAPanelDoesTheSame()
{
    Evening evening;
    const QStringList before = evening.choice();
    for (const char* name : {"driverQrButton", "carQrButton"})
        QVERIFY(evening.button(2, name)->isVisible());
    evening.expectReader([&](CQrCodeReaderDialog*) { evening.cameras.showCode("a", "<car>Pfeil"); });
    QTest::mouseClick(evening.button(2, "driverQrButton"), Qt::LeftButton); // either button takes either card
    QCOMPARE(evening.choice(), changed(before, 2, "Ben/Pfeil"));
}

void tst_qr_codes::theCameraIsTheOneThatTheUserHasChosen()
{
    Evening evening;
    evening.cameras.plug("b", "Kamera am Fenster");
    evening.cameras.showNothing("b");
    const QStringList before = evening.choice();
    evening.answers->expect([](QDialog* dialog) {
        const DialogUser user(dialog);
        const auto* cameras = user.control<QComboBox>("qrCodeHandlingCamera");
        user.enter("qrCodeHandlingCamera", cameras->findText("Kamera am Fenster"));
        user.press("okButton");
    });
    evening.program->pressKey(Qt::Key_G, Qt::ControlModifier);
    evening.read(Qt::Key_1, [&](CQrCodeReaderDialog*) {
        evening.cameras.showCode("a", "<drv>Carla");
        evening.cameras.showCode("b", "<drv>Ben");
    });
    QCOMPARE(evening.choice(), changed(before, 1, QString(before[0]).replace("Anna", "Ben")));
}

void tst_qr_codes::unknownNamesAndForeignTextsCloseTheWindowAndChangeNothing()
{
    Evening evening;
    const QStringList before = evening.choice();
    for (const char* text :
         {"<drv>Unbekannt", "<car>Anna", "<drv>", "Speisekarte", "<DRV>Anna", "http://localhost/"}) {
        evening.showCard(Qt::Key_2, text);
        QCOMPARE(evening.choice(), before);
    }
}

void tst_qr_codes::theWindowClosedWithoutAReadingAndOpenedAgain()
{
    Evening evening;
    const QStringList before = evening.choice();
    for (int round = 0; round < 3; ++round) {
        evening.read(Qt::Key_1, [](CQrCodeReaderDialog* reader) {
            MainThreadWatch::during(150);
            QTest::keyClick(reader, Qt::Key_Escape);
        });
        QCOMPARE(evening.choice(), before);
    }
    evening.showCard(Qt::Key_1, "<drv>Ben");
    QVERIFY(evening.choice().first().startsWith("Ben/"));
}

void tst_qr_codes::aCameraThatVanishes()
{
    Evening evening;
    const QStringList before = evening.choice();
    evening.read(Qt::Key_1, [&](CQrCodeReaderDialog* reader) {
        auto* camera = qobject_cast<QCamera*>(reader->findChild<QCameraViewfinder*>()->mediaObject());
        QVERIFY(camera);
        evening.cameras.unplug("a");
        QTRY_COMPARE(camera->error(), QCamera::CameraError);
        reader->close();
    });
    QCOMPARE(evening.problem(Qt::Key_1), QString("Die konfigurierte Kamera konnte nicht gefunden werden."));
    QCOMPARE(evening.choice(), before);
}

void tst_qr_codes::noCamera()
{
    Evening evening;
    evening.cameras.unplug("a");
    evening.answers.reset();
    evening.program.reset();
    evening.program = std::make_unique<RunningProgram>();
    evening.answers = std::make_unique<ModalAnswers>();
    QCOMPARE(evening.problem(Qt::Key_1), QString("Die konfigurierte Kamera konnte nicht gefunden werden."));
}

void tst_qr_codes::aCameraThatAnotherProgramHolds()
{
    Evening evening;
    evening.cameras.lock("a");
    QCOMPARE(evening.problem(Qt::Key_1), QString("Auf die Kamera konnte nicht zugegriffen werden."));
    evening.cameras.unlock("a");
    evening.showCard(Qt::Key_1, "<drv>Ben");
    QVERIFY(evening.choice().first().startsWith("Ben/"));
}

void tst_qr_codes::theKeysDoNothingWhereTheyAreSwitchedOff()
{
    Evening evening(false);
    evening.program->pressKey(Qt::Key_1, Qt::AltModifier);
    QCOMPARE(evening.answers->numberOfWindows(), 0);
    QVERIFY(!evening.button(1, "driverQrButton")->isVisible());
}

void tst_qr_codes::theAnalyzerTakesACardForItsFilter()
{
    Evening evening;
    evening.answers->expect([&](QDialog* opened) {
        auto* analyzer = qobject_cast<CKelmoRaceAnalyzer*>(opened);
        QVERIFY(analyzer);
        evening.expectReader([&](CQrCodeReaderDialog*) { evening.cameras.showCode("a", "<drv>Carla"); });
        QTest::mouseClick(analyzer->findChild<QToolButton*>("qrButton"), Qt::LeftButton);
        QCOMPARE(analyzer->findChild<QComboBox*>("driverFilter")->currentText(), QString("Carla"));
        analyzer->close();
    });
    evening.program->menu()->action(CMainMenu::RaceAnalyzer)->trigger();
}

/** The keys are dead in a race, the buttons are not. */
void tst_qr_codes::aRaceGoesOnBehindTheWindow()
{
    Evening evening;
    RunningProgram& program = *evening.program;
    QVERIFY(program.startRace());
    program.pressKey(Qt::Key_1, Qt::AltModifier);
    QCOMPARE(evening.answers->numberOfWindows(), 0);
    program.cross(1);
    const int before = program.laps(1).toInt();
    evening.expectReader([&](CQrCodeReaderDialog* reader) {
        for (int lap = 1; lap <= 3; ++lap) {
            program.sensorAt(100000 + lap * 5000, PortId::lapSensor(0));
            QTRY_COMPARE(program.laps(1).toInt(), before + lap);
        }
        QVERIFY(reader->isVisible());
        reader->close();
    });
    evening.button(1, "driverQrButton")->click();
    program.stopRace();
}

void tst_qr_codes::theProgramEndsWithTheWindowOpen()
{
    Evening evening;
    QPointer<CQrCodeReaderDialog> window;
    QPointer<QObject> camera;
    evening.read(Qt::Key_1, [&](CQrCodeReaderDialog* reader) {
        window = reader;
        camera = reader->findChild<QCameraViewfinder*>()->mediaObject();
        QVERIFY(camera);
        MainThreadWatch::during(100);
        qApp->quit();
    });
    evening.answers.reset();
    evening.program.reset();
    QVERIFY(!window);
    QVERIFY(!camera);
}

QTEST_APPLESS_MAIN(tst_qr_codes)
#include "tst_qr_codes.moc"
