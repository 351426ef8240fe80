#include "qr/CQrCodeReaderDialog.h"
#include "qr/QRCodeReader.h"
#include "shell/CSettings.h"
#include "support/DecodeWatch.h"
#include "support/MainThreadWatch.h"
#include "support/ModalAnswers.h"
#include "support/TestCameras.h"

#include <QCamera>
#include <QCameraImageCaptureControl>
#include <QCameraInfo>
#include <QCameraViewfinder>
#include <QGridLayout>
#include <QMediaService>
#include <QMessageBox>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QThread>

namespace {

constexpr int Limit = 120000; // milliseconds; a decode takes long where the sanitizers look on
const QString CameraText = QStringLiteral("Kamera überm Tisch");

QStringList methodsOf(const QMetaObject& meta)
{
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        const char* kind = method.methodType() == QMetaMethod::Signal ? "signal "
                           : method.access() == QMetaMethod::Public   ? "public "
                                                                      : "private ";
        methods.append(kind + QString::fromLatin1(method.methodSignature()));
    }
    return methods;
}

/** A user with one camera, which sees a wall, and the dialog that knows it. */
class ReaderFixture
{
public:
    ReaderFixture()
    {
        cameras.plug("a", CameraText);
        cameras.showNothing("a");
        settings.setQrCodeHandlingCamera(CameraText);
        dialog = std::make_unique<CQrCodeReaderDialog>(&settings);
    }

    /** Opens the dialog, does something before the camera, and waits until the dialog closes by itself. */
    QString readWhile(const std::function<void()>& before)
    {
        answers.expect([this, before](QDialog* opened) {
            QCOMPARE(opened, dialog.get());
            before();
        });
        QTimer limit;
        limit.setSingleShot(true);
        QObject::connect(&limit, &QTimer::timeout, dialog.get(), [this] {
            QTest::qFail("the dialog doesn't close", __FILE__, __LINE__);
            dialog->close();
        });
        limit.start(Limit);
        return dialog->readCode();
    }
    QString read(const QString& text)
    {
        return readWhile([&] { cameras.showCode("a", text); });
    }
    /** Opens the dialog, lets some pictures be looked at, and closes the window. */
    QString closeWithoutReading()
    {
        return readWhile([this] {
            MainThreadWatch::during(200);
            dialog->close();
        });
    }
    /** Reads where there is no camera. @return the text of the box */
    QString problem()
    {
        QString text;
        answers.expect([&text](QDialog* opened) {
            auto* box = qobject_cast<QMessageBox*>(opened);
            QVERIFY(box);
            QVERIFY(!box->parent());
            QCOMPARE(box->windowTitle(), QString("Kamera Problem"));
            QCOMPARE(box->icon(), QMessageBox::Information);
            QCOMPARE(box->standardButtons(), QMessageBox::Ok);
            text = box->text();
            box->accept();
        });
        const QString result = dialog->readCode();
        return result.isEmpty() ? text : "read: " + result;
    }
    QCameraViewfinder* viewfinder() const { return dialog->findChild<QCameraViewfinder*>(); }
    QCamera* camera() const { return qobject_cast<QCamera*>(viewfinder()->mediaObject()); }
    /** @return what the camera tells of how it is asked for pictures. */
    const QObject* stills() const
    {
        return camera()->service()->requestControl(QCameraImageCaptureControl_iid);
    }

    ModalAnswers answers;
    TestCameras cameras;
    CSettings settings;
    std::unique_ptr<CQrCodeReaderDialog> dialog;
};

/** @return a picture that is hard to look through. */
QImage crowd()
{
    QImage image(2000, 1500, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            line[x] =
                ((x / 9) * 7919 + (y / 9) * 104729 + (x / 9) * (y / 9) * 31) % 3 ? 0xffffffff : 0xff000000;
    }
    return image;
}

const QString NotFound = QStringLiteral("Die konfigurierte Kamera konnte nicht gefunden werden.");
const QString NoAccess = QStringLiteral("Auf die Kamera konnte nicht zugegriffen werden.");

} // namespace

/** The dialog, its thread, QCamera, viewfinder and capture, over cameras whose pictures are files. */
class tst_CQrCodeReaderDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void signalsAndSlotsStandInTheirOrder();
    void theViewfinderFillsTheWindow();
    void aCodeClosesTheDialogAndIsReturned_data();
    void aCodeClosesTheDialogAndIsReturned();
    void withoutACameraNameTheCameraIsNotFound();
    void anUnpluggedCameraIsNotFound();
    void aLockedCameraGivesNoAccess();
    void theSameCodeIsReadTwiceInTwoCalls();
    void aCodeWithAnyOtherTextClosesTheDialogToo();
    void changingTheCameraWhileNothingIsReadSwapsIt();
    void theCameraStaysWhileItsTextStays();
    void ofTwoCamerasWithOneTextTheLastIsTaken();
    void closedWithoutAReadingAndOpenedAgain();
    void closedAndOpenedAgainAtOnceManyTimes();
    void closingTheWindowEndsTheCapture();
    void aCameraThatVanishesShowsNoMoreUntilTheWindowIsClosed();
    void aCameraThatIsPluggedInAgainIsFound();
    void anUnusedCameraThatIsUnpluggedIsNotFoundBesideAnotherOne();
    void aCameraThatWasMissedIsFoundWhenItIsPluggedInAgain();
    void theCameraIsLeftRunning();
    void aCameraChangedDuringAReadingDoesNoHarm();
    void aCameraThatIsAlwaysReadyIsAskedForOnePictureAtATime();
    void aPictureThatGetsLostIsAskedForAgain();
    void theDialogCanGoWhileItReads();
    void decodingRunsOnTheReadersThread();
    void theMainThreadNeverWaitsForADecode();
    void closingAndOpeningAgainDoNotWaitForADecode();
    void changingTheCameraDoesNotWaitForADecode();
    void aTextThatComesTooLateIsNotTakenForTheNextWindow();
    void thePictureInTheWindowIsLive();
};

void tst_CQrCodeReaderDialog::signalsAndSlotsStandInTheirOrder()
{
    QCOMPARE(methodsOf(CQrCodeReaderDialog::staticMetaObject),
             QStringList({"signal startDetection(QCamera*)", "private publishResult(QString)",
                          "private applyCameraFromSettings()"}));
    QCOMPARE(
        methodsOf(QRCodeReader::staticMetaObject),
        QStringList({"signal resultAvailable(QString)", "signal finished()", "public captureQrCode(QCamera*)",
                     "public stop()", "private processImage(int,QImage)"}));
}

void tst_CQrCodeReaderDialog::theViewfinderFillsTheWindow()
{
    ReaderFixture fixture;
    QVERIFY(!fixture.dialog->parent());
    auto* layout = qobject_cast<QGridLayout*>(fixture.dialog->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->itemAtPosition(0, 0)->widget(), fixture.viewfinder());
    QCOMPARE(fixture.dialog->windowTitle(), QString());
    fixture.readWhile([&] {
        QCOMPARE(fixture.viewfinder()->size(), fixture.dialog->size());
        QVERIFY(fixture.viewfinder()->width() >= 320);
        QVERIFY(fixture.dialog->isModal());
        fixture.dialog->close();
    });
}

void tst_CQrCodeReaderDialog::aCodeClosesTheDialogAndIsReturned_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("driver") << "<drv>Anna";
    QTest::newRow("car") << "<car>Müllers Größter";
    QTest::newRow("120 characters") << "<car>" + QString("Adelheid von Ückermünde ").repeated(5);
    QTest::newRow("empty name") << "<drv>";
}

void tst_CQrCodeReaderDialog::aCodeClosesTheDialogAndIsReturned()
{
    QFETCH(QString, text);
    ReaderFixture fixture;
    QCOMPARE(fixture.read(text), text);
    QVERIFY(!fixture.dialog->isVisible());
}

void tst_CQrCodeReaderDialog::withoutACameraNameTheCameraIsNotFound()
{
    ReaderFixture fixture;
    fixture.settings.setQrCodeHandlingCamera(QString());
    fixture.dialog->setSettings(&fixture.settings);
    QCOMPARE(fixture.problem(), NotFound);
    QCOMPARE(fixture.answers.numberOfWindows(), 1);
}

void tst_CQrCodeReaderDialog::anUnpluggedCameraIsNotFound()
{
    ReaderFixture fixture;
    fixture.cameras.unplug("a");
    fixture.dialog = std::make_unique<CQrCodeReaderDialog>(&fixture.settings);
    QCOMPARE(fixture.problem(), NotFound);
}

void tst_CQrCodeReaderDialog::aLockedCameraGivesNoAccess()
{
    ReaderFixture fixture;
    fixture.cameras.lock("a");
    QCOMPARE(fixture.problem(), NoAccess);
    QCOMPARE(fixture.problem(), NoAccess);
    fixture.cameras.unlock("a");
    QCOMPARE(fixture.read("<drv>Anna"), QString("<drv>Anna"));
}

void tst_CQrCodeReaderDialog::theSameCodeIsReadTwiceInTwoCalls()
{
    ReaderFixture fixture;
    QCOMPARE(fixture.read("<drv>Anna"), QString("<drv>Anna"));
    QCOMPARE(fixture.readWhile([] {}), QString("<drv>Anna"));
    QCOMPARE(fixture.readWhile([] {}), QString("<drv>Anna"));
}

void tst_CQrCodeReaderDialog::aCodeWithAnyOtherTextClosesTheDialogToo()
{
    ReaderFixture fixture;
    QCOMPARE(fixture.read("Speisekarte: heute Suppe"), QString("Speisekarte: heute Suppe"));
}

void tst_CQrCodeReaderDialog::changingTheCameraWhileNothingIsReadSwapsIt()
{
    ReaderFixture fixture;
    fixture.cameras.plug("b", "Zweite");
    fixture.cameras.showCode("b", "<car>zweite");
    QCOMPARE(fixture.read("<car>erste"), QString("<car>erste"));
    const QPointer<QCamera> first = fixture.camera();
    fixture.settings.setQrCodeHandlingCamera("Zweite");
    fixture.dialog->setSettings(&fixture.settings);
    QVERIFY(fixture.camera());
    QVERIFY(fixture.camera() != first);
    QTRY_VERIFY(!first);
    QCOMPARE(fixture.readWhile([] {}), QString("<car>zweite"));
    fixture.settings.setQrCodeHandlingCamera(CameraText);
    fixture.dialog->setSettings(&fixture.settings);
    QCOMPARE(fixture.readWhile([] {}), QString("<car>erste"));
}

void tst_CQrCodeReaderDialog::theCameraStaysWhileItsTextStays()
{
    ReaderFixture fixture;
    const QMediaObject* before = fixture.viewfinder()->mediaObject();
    QVERIFY(before);
    fixture.dialog->setSettings(&fixture.settings);
    QCOMPARE(fixture.viewfinder()->mediaObject(), before);
}

void tst_CQrCodeReaderDialog::ofTwoCamerasWithOneTextTheLastIsTaken()
{
    ReaderFixture fixture;
    for (const char* device : {"b", "c"}) {
        fixture.cameras.plug(device, "Zwillinge");
        fixture.cameras.showCode(device, QString("<car>") + device);
    }
    QCOMPARE(QCameraInfo::availableCameras().size(), 3);
    fixture.settings.setQrCodeHandlingCamera("Zwillinge");
    fixture.dialog->setSettings(&fixture.settings);
    QCOMPARE(fixture.readWhile([] {}), QString("<car>c"));
}

void tst_CQrCodeReaderDialog::closedWithoutAReadingAndOpenedAgain()
{
    ReaderFixture fixture;
    QCOMPARE(fixture.closeWithoutReading(), QString());
    QCOMPARE(fixture.read("<drv>Anna"), QString("<drv>Anna"));
    fixture.cameras.showNothing("a");
    QCOMPARE(fixture.closeWithoutReading(), QString());
    QCOMPARE(fixture.closeWithoutReading(), QString());
    QCOMPARE(fixture.read("<drv>Ben"), QString("<drv>Ben"));
}

void tst_CQrCodeReaderDialog::closedAndOpenedAgainAtOnceManyTimes()
{
    ReaderFixture fixture;
    for (int round = 0; round < 20; ++round)
        QCOMPARE(fixture.readWhile([&] { fixture.dialog->close(); }), QString());
    QCOMPARE(fixture.read("<drv>Anna"), QString("<drv>Anna"));
}

void tst_CQrCodeReaderDialog::closingTheWindowEndsTheCapture()
{
    ReaderFixture fixture;
    const QObject* stills = fixture.stills();
    const auto timesLeft = [stills] { return stills->property("timesLeft").toInt(); };
    fixture.closeWithoutReading();
    QTRY_COMPARE(timesLeft(), 1);
    fixture.readWhile([&] { fixture.dialog->close(); }); // before the reader has begun
    QTRY_COMPARE(timesLeft(), 2);
    fixture.read("<drv>Anna");
    QTRY_COMPARE(timesLeft(), 3);
}

void tst_CQrCodeReaderDialog::aCameraThatVanishesShowsNoMoreUntilTheWindowIsClosed()
{
    ReaderFixture fixture;
    const QString text = fixture.readWhile([&] {
        QCamera* camera = fixture.camera();
        QVERIFY(camera);
        fixture.cameras.unplug("a");
        QTRY_COMPARE(camera->error(), QCamera::CameraError);
        QVERIFY(fixture.dialog->isVisible());
        fixture.dialog->close();
    });
    QCOMPARE(text, QString());
    QCOMPARE(fixture.problem(), NotFound);
}

void tst_CQrCodeReaderDialog::aCameraThatIsPluggedInAgainIsFound()
{
    ReaderFixture fixture;
    fixture.readWhile([&] {
        fixture.cameras.unplug("a");
        QTRY_COMPARE(fixture.camera()->error(), QCamera::CameraError);
        fixture.dialog->close();
    });
    fixture.cameras.plug("a", CameraText);
    QCOMPARE(fixture.read("<drv>Anna"), QString("<drv>Anna"));
}

void tst_CQrCodeReaderDialog::anUnusedCameraThatIsUnpluggedIsNotFoundBesideAnotherOne()
{
    ReaderFixture fixture;
    fixture.cameras.plug("b", "Zweite");
    fixture.cameras.unplug("a");
    QCOMPARE(fixture.problem(), NotFound);
}

void tst_CQrCodeReaderDialog::aCameraThatWasMissedIsFoundWhenItIsPluggedInAgain()
{
    ReaderFixture fixture;
    fixture.cameras.unplug("a");
    QCOMPARE(fixture.problem(), NotFound);
    fixture.cameras.plug("a", CameraText);
    QCOMPARE(fixture.read("<drv>Anna"), QString("<drv>Anna"));
}

void tst_CQrCodeReaderDialog::theCameraIsLeftRunning()
{
    ReaderFixture fixture;
    QCamera* camera = fixture.camera();
    QVERIFY(camera);
    QCOMPARE(camera->captureMode(), QCamera::CaptureStillImage);
    QCOMPARE(camera->state(), QCamera::UnloadedState);
    fixture.read("<drv>Anna");
    QCOMPARE(camera->state(), QCamera::ActiveState);
    fixture.cameras.showNothing("a");
    fixture.closeWithoutReading();
    QCOMPARE(camera->state(), QCamera::ActiveState);
}

void tst_CQrCodeReaderDialog::aCameraChangedDuringAReadingDoesNoHarm()
{
    ReaderFixture fixture;
    fixture.cameras.plug("b", "Zweite");
    fixture.cameras.showCode("b", "<car>zweite");
    fixture.readWhile([&] {
        MainThreadWatch::during(100);
        const QPointer<QCamera> first = fixture.camera();
        fixture.settings.setQrCodeHandlingCamera("Zweite");
        fixture.dialog->setSettings(&fixture.settings);
        QVERIFY(fixture.camera() != first);
        QTRY_VERIFY(!first); // as soon as the reader has let go
        fixture.dialog->close();
    });
    QCOMPARE(fixture.readWhile([] {}), QString("<car>zweite"));
}

void tst_CQrCodeReaderDialog::aCameraThatIsAlwaysReadyIsAskedForOnePictureAtATime()
{
    constexpr int Patience = 500; // milliseconds that a picture may take
    ReaderFixture fixture;
    fixture.cameras.makeEager("a");
    const QObject* stills = fixture.stills();
    QElapsedTimer clock;
    clock.start();
    const QString text = fixture.readWhile([&] {
        MainThreadWatch::during(200);
        fixture.cameras.showCode("a", "<drv>Anna");
    });
    QCOMPARE(text, QString("<drv>Anna"));
    const int bothered = stills->property("timesBothered").toInt();
    QVERIFY2(bothered <= clock.elapsed() / Patience, qPrintable(QString::number(bothered)));
}

void tst_CQrCodeReaderDialog::aPictureThatGetsLostIsAskedForAgain()
{
    ReaderFixture fixture;
    const QString text = fixture.readWhile([&] {
        fixture.cameras.losePicture("a");
        QTRY_VERIFY(!fixture.cameras.isToLosePicture("a"));
        fixture.cameras.showCode("a", "<drv>Anna");
    });
    QCOMPARE(text, QString("<drv>Anna"));
}

void tst_CQrCodeReaderDialog::theDialogCanGoWhileItReads()
{
    for (const int after : {0, 50}) {
        auto fixture = std::make_unique<ReaderFixture>();
        fixture->answers.expect([&](QDialog*) {
            if (after > 0)
                MainThreadWatch::during(after);
            fixture->dialog->hide(); // without telling the reader
        });
        fixture->dialog->readCode();
        fixture->dialog.reset();
    }
}

void tst_CQrCodeReaderDialog::decodingRunsOnTheReadersThread()
{
    TestCameras cameras;
    cameras.plug("a", "A");
    cameras.showCode("a", "<drv>Anna");
    QCamera camera(QCameraInfo::availableCameras().first());
    camera.setCaptureMode(QCamera::CaptureStillImage);
    QRCodeReader reader;
    QThread thread;
    reader.moveToThread(&thread);
    std::atomic<QThread*> found{nullptr};
    connect(
        &reader, &QRCodeReader::resultAvailable, this, [&found] { found = QThread::currentThread(); },
        Qt::DirectConnection);
    QSignalSpy ends(&reader, &QRCodeReader::finished);
    camera.start();
    thread.start();
    QMetaObject::invokeMethod(&reader, [&] { reader.captureQrCode(&camera); });
    QTRY_COMPARE(ends.count(), 1);
    QCOMPARE(found.load(), &thread);
    thread.quit();
    QVERIFY(thread.wait(5000));
}

void tst_CQrCodeReaderDialog::theMainThreadNeverWaitsForADecode()
{
    ReaderFixture fixture;
    fixture.cameras.show("a", crowd());
    DecodeWatch decode(fixture.camera());
    int events = 0;
    fixture.readWhile([&] {
        QVERIFY(decode.waitForOne());
        events = decode.eventsUntilItEnds();
        fixture.dialog->close();
    });
    QVERIFY2(events >= 10, qPrintable(QString::number(events)));
}

void tst_CQrCodeReaderDialog::closingAndOpeningAgainDoNotWaitForADecode()
{
    ReaderFixture fixture;
    fixture.cameras.show("a", crowd());
    DecodeWatch decode(fixture.camera());
    fixture.readWhile([&] {
        QVERIFY(decode.waitForOne());
        fixture.dialog->close();
    });
    QVERIFY(decode.isOn());
    fixture.readWhile([&] {
        QVERIFY(fixture.dialog->isVisible());
        QVERIFY(decode.isOn());
        fixture.dialog->close();
    });
    QVERIFY(decode.isOn());
    QCOMPARE(fixture.read("<drv>Anna"), QString("<drv>Anna"));
}

void tst_CQrCodeReaderDialog::changingTheCameraDoesNotWaitForADecode()
{
    ReaderFixture fixture;
    fixture.cameras.show("a", crowd());
    fixture.cameras.plug("b", "Zweite");
    fixture.cameras.showCode("b", "<car>zweite");
    const QPointer<QCamera> first = fixture.camera();
    DecodeWatch decode(first);
    fixture.readWhile([&] {
        QVERIFY(decode.waitForOne());
        fixture.settings.setQrCodeHandlingCamera("Zweite");
        fixture.dialog->setSettings(&fixture.settings);
        QVERIFY(decode.isOn());
        QVERIFY(first);
        QVERIFY(first->state() != QCamera::ActiveState);
        fixture.dialog->close();
    });
    QVERIFY(decode.isOn());
    QCOMPARE(fixture.readWhile([] {}), QString("<car>zweite"));
    QTRY_VERIFY(!first);
}

void tst_CQrCodeReaderDialog::aTextThatComesTooLateIsNotTakenForTheNextWindow()
{
    ReaderFixture fixture;
    fixture.cameras.show("a", crowd());
    DecodeWatch decode(fixture.camera());
    fixture.readWhile([&] {
        QVERIFY(decode.waitForOne());
        fixture.dialog->close();
    });
    const QString text = fixture.readWhile([&] {
        QVERIFY(decode.isOn());
        QVERIFY(QMetaObject::invokeMethod(fixture.dialog.get(), "publishResult", Qt::DirectConnection,
                                          Q_ARG(QString, "<drv>Anna")));
        QVERIFY(fixture.dialog->isVisible());
        fixture.cameras.showCode("a", "<drv>Ben");
    });
    QCOMPARE(text, QString("<drv>Ben"));
}

/** Leaves pictures of the window where a person can look at them, if he says where. */
void tst_CQrCodeReaderDialog::thePictureInTheWindowIsLive()
{
    const QString directory = qEnvironmentVariable("TORNIK_PICTURES");
    ReaderFixture fixture;
    fixture.readWhile([&] {
        for (const QColor& color : {QColor(Qt::darkGreen), QColor(Qt::darkRed), QColor(Qt::darkBlue)}) {
            QImage wall = TestCameras::wall();
            wall.fill(color);
            fixture.cameras.show("a", wall);
            QImage seen;
            const auto middle = [&] {
                seen = fixture.dialog->grab().toImage();
                return seen.pixelColor(seen.rect().center());
            };
            QTRY_COMPARE(middle(), color);
            if (!directory.isEmpty())
                seen.save(directory + "/reader-" + color.name().mid(1) + ".png");
        }
        fixture.dialog->close();
    });
}

QTEST_MAIN(tst_CQrCodeReaderDialog)
#include "tst_CQrCodeReaderDialog.moc"
