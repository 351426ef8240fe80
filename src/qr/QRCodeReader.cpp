#include "qr/QRCodeReader.h"

#include <QCamera>
#include <QCameraImageCapture>
#include <QCoreApplication>
#include <QThread>

#include <utility>

namespace {

constexpr int Patience = 500; // milliseconds until a picture that was asked for counts as lost

} // namespace

QRCodeReader::QRCodeReader(QObject* parent) : QObject(parent)
{
    m_decoder.setDecoder(QZXing::DecodeQrCode);
    m_decoder.setSourceFilterType(QZXing::NormalImage | QZXing::InvertedImage);
    m_decoder.setTryHarderBehaviour(QZXing::ThoroughScanning | QZXing::Rotation);
}

QRCodeReader::~QRCodeReader() = default;

void QRCodeReader::captureQrCode(QCamera* camera)
{
    if (m_imageCapture) { // called from within the loop below
        dropNextCamera();
        m_nextCamera = camera;
        m_stopRequested = true;
        return;
    }
    beginCapture(camera);
    // Required: no pause. The pace is the camera's, and the thread is busy as long as the window is open.
    while (isToGoOn()) {
        if (m_imageCapture->isReadyForCapture() && !isPictureOnItsWay())
            askForPicture();
        QCoreApplication::processEvents(); // brings the pictures, and stop()
    }
    endCapture();
    if (m_nextCamera)
        captureQrCode(std::exchange(m_nextCamera, nullptr));
}

void QRCodeReader::beginCapture(QCamera* camera)
{
    m_stopRequested = false;
    m_lastResult = QString();
    m_sinceAsked.invalidate();
    m_imageCapture = std::make_unique<QCameraImageCapture>(camera);
    m_imageCapture->setCaptureDestination(QCameraImageCapture::CaptureToBuffer);
    connect(m_imageCapture.get(), &QCameraImageCapture::imageCaptured, this, &QRCodeReader::processImage);
}

void QRCodeReader::endCapture()
{
    m_imageCapture->disconnect(this);
    m_imageCapture.reset();
    Q_EMIT finished();
}

/**
 * GStreamer's cameras say that they are ready while they take a picture. Asked for another one they
 * complain, each time by an event for the main thread, which thousands of them would keep busy.
 */
bool QRCodeReader::isPictureOnItsWay() const
{
    return m_sinceAsked.isValid() && !m_sinceAsked.hasExpired(Patience);
}

void QRCodeReader::askForPicture()
{
    m_sinceAsked.start();
    m_imageCapture->capture(QString());
}

bool QRCodeReader::isToGoOn() const
{
    return !m_stopRequested && !QThread::currentThread()->isInterruptionRequested();
}

void QRCodeReader::stop()
{
    m_stopRequested = true;
    if (QThread::currentThread() == thread())
        dropNextCamera();
}

void QRCodeReader::dropNextCamera()
{
    if (std::exchange(m_nextCamera, nullptr))
        Q_EMIT finished();
}

void QRCodeReader::processImage(int /*id*/, const QImage& imageToDecode)
{
    m_sinceAsked.invalidate();
    const QString text = m_decoder.decodeImage(imageToDecode, -1, -1, false);
    if (text.isEmpty() || text == m_lastResult)
        return;
    m_lastResult = text;
    Q_EMIT resultAvailable(m_lastResult);
    m_stopRequested = true;
}
