#include "qr/CQrCodeReaderDialog.h"

#include "qr/QRCodeReader.h"
#include "shell/CSettings.h"

#include <QCamera>
#include <QCameraInfo>
#include <QCameraViewfinder>
#include <QGridLayout>
#include <QMessageBox>
#include <QThread>

#include <algorithm>

namespace {

constexpr QSize FirstSize(640, 480); // the viewfinder has no size of its own before its first picture

} // namespace

CQrCodeReaderDialog::CQrCodeReaderDialog(const CSettings* settings)
    : QDialog(nullptr),
      m_settings(settings),
      m_viewfinder(new QCameraViewfinder(this)),
      m_layout(new QGridLayout(this)),
      m_reader(new QRCodeReader),
      m_readerThread(new QThread)
{
    setObjectName(QStringLiteral("qrCodeReaderDialog"));
    createReader();
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->addWidget(m_viewfinder, 0, 0);
    m_viewfinder->show();
    resize(FirstSize);
    applyCameraFromSettings();
}

CQrCodeReaderDialog::~CQrCodeReaderDialog()
{
    m_readerThread
        ->requestInterruption(); // a capture may be waiting for its turn: a stop would come too early
    m_readerThread->quit();
    m_readerThread->wait();
    delete m_readerThread;
    delete m_reader;
    delete m_viewfinder;
}

void CQrCodeReaderDialog::createReader()
{
    m_readerThread->setObjectName(QStringLiteral("code reader"));
    m_reader->moveToThread(m_readerThread);
    connect(this, &CQrCodeReaderDialog::startDetection, m_reader, &QRCodeReader::captureQrCode);
    connect(this, &CQrCodeReaderDialog::finished, m_reader, &QRCodeReader::stop);
    connect(m_reader, &QRCodeReader::resultAvailable, this, &CQrCodeReaderDialog::publishResult);
    connect(m_reader, &QRCodeReader::finished, this, &CQrCodeReaderDialog::captureEnded);
    connect(m_readerThread, &QThread::finished, this, &CQrCodeReaderDialog::threadEnded);
}

void CQrCodeReaderDialog::setSettings(const CSettings* settings)
{
    m_settings = settings;
    applyCameraFromSettings();
}

void CQrCodeReaderDialog::applyCameraFromSettings()
{
    if (m_camera) {
        if (QCameraInfo(*m_camera).description() == m_settings->qrCodeHandlingCamera())
            return;
        dropCamera();
    }
    const QCameraInfo camera = configuredCamera();
    if (!camera.isNull())
        useCamera(camera);
}

QCameraInfo CQrCodeReaderDialog::configuredCamera() const
{
    const QString wanted = m_settings->qrCodeHandlingCamera();
    if (wanted.isEmpty())
        return QCameraInfo(); // without a look at the cameras, which takes its time: most users have none
    const QList<QCameraInfo> cameras = QCameraInfo::availableCameras();
    // Required: of two cameras with the same description the last one is taken.
    const auto found = std::find_if(cameras.rbegin(), cameras.rend(), [&](const QCameraInfo& camera) {
        return camera.description() == wanted;
    });
    return found == cameras.rend() ? QCameraInfo() : *found;
}

void CQrCodeReaderDialog::useCamera(const QCameraInfo& camera)
{
    m_camera = std::make_unique<QCamera>(camera);
    m_camera->setCaptureMode(QCamera::CaptureStillImage);
    m_camera->setViewfinder(m_viewfinder);
}

/** While the reader may be asking the camera for a picture, it stays alive. */
void CQrCodeReaderDialog::dropCamera()
{
    m_reader->stop();
    m_camera->stop();
    m_camerasInUse.push_back(std::move(m_camera));
    if (m_captures == 0)
        m_camerasInUse.clear();
}

void CQrCodeReaderDialog::captureEnded()
{
    if (--m_captures == 0)
        m_camerasInUse.clear();
}

/** The next reading may have begun while the thread was still about to end. */
void CQrCodeReaderDialog::threadEnded()
{
    if (m_captures > 0)
        m_readerThread->start();
}

/** A camera that was unplugged is none, and one that was plugged in again is there. */
void CQrCodeReaderDialog::lookForCamera()
{
    const QCameraInfo camera = configuredCamera();
    if (m_camera && (camera.isNull() || !m_camera->isAvailable()))
        dropCamera();
    if (!m_camera && !camera.isNull())
        useCamera(camera);
}

QString CQrCodeReaderDialog::readCode()
{
    m_result = QString();
    lookForCamera();
    if (!m_camera) {
        tellProblem(tr("Die konfigurierte Kamera konnte nicht gefunden werden."));
        return m_result;
    }
    if (!m_camera->isAvailable()) {
        tellProblem(tr("Auf die Kamera konnte nicht zugegriffen werden."));
        return m_result;
    }
    m_camera->start();
    m_readerThread->start();
    ++m_captures;
    Q_EMIT startDetection(m_camera.get());
    exec();
    return m_result;
}

void CQrCodeReaderDialog::tellProblem(const QString& text)
{
    QMessageBox::information(nullptr, tr("Kamera Problem"), text, QMessageBox::Ok);
}

void CQrCodeReaderDialog::publishResult(const QString& resultString)
{
    if (m_captures > 1)
        return; // read for a window that the user has closed; this one may stand for another track
    m_reader->stop();
    m_readerThread->quit();
    done(0);
    m_result = resultString;
}
