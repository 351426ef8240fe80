// Cameras whose pictures are files. The variable TORNIK_TEST_CAMERAS names a directory; each
// directory in it is a camera:
//   description   its text; without the file the directory's name
//   picture.png   what stands before it; may be replaced at any time by a rename
//   locked        while it is there, nobody gets at the camera
//   eager         if it is there when the camera starts, the camera is ready while it takes a picture, too
//   loses         the camera takes the next picture for nothing, and this file away
// A camera whose directory goes away was unplugged.

#include <QAbstractVideoSurface>
#include <QCameraCaptureDestinationControl>
#include <QCameraControl>
#include <QCameraImageCaptureControl>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QMediaAvailabilityControl>
#include <QMediaService>
#include <QMediaServiceProviderPlugin>
#include <QTimer>
#include <QVideoDeviceSelectorControl>
#include <QVideoRendererControl>
#include <QVideoSurfaceFormat>

#include <atomic>

namespace {

constexpr int Period = 33; // milliseconds a picture

QDir cameras()
{
    return QDir(qEnvironmentVariable("TORNIK_TEST_CAMERAS", "/nowhere"));
}

QStringList deviceNames()
{
    return cameras().entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
}

QString descriptionOf(const QString& device)
{
    QFile file(cameras().filePath(device + "/description"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : device;
}

} // namespace

class TestCameraDevices : public QVideoDeviceSelectorControl
{
    Q_OBJECT

public:
    explicit TestCameraDevices(QObject* parent) : QVideoDeviceSelectorControl(parent) {}

    int deviceCount() const override { return deviceNames().size(); }
    QString deviceName(int index) const override { return deviceNames().value(index); }
    QString deviceDescription(int index) const override { return descriptionOf(deviceName(index)); }
    int defaultDevice() const override { return 0; }
    int selectedDevice() const override { return deviceNames().indexOf(m_device); }
    QString device() const { return m_device; }

public Q_SLOTS:
    void setSelectedDevice(int index) override { m_device = deviceName(index); }

private:
    QString m_device;
};

class TestCameraAvailability : public QMediaAvailabilityControl
{
    Q_OBJECT

public:
    TestCameraAvailability(TestCameraDevices* devices, QObject* parent)
        : QMediaAvailabilityControl(parent), m_devices(devices)
    {
    }

    QMultimedia::AvailabilityStatus availability() const override
    {
        return QFile::exists(cameras().filePath(m_devices->device() + "/locked")) ? QMultimedia::Busy
                                                                                  : QMultimedia::Available;
    }

private:
    TestCameraDevices* m_devices;
};

class TestCameraDestination : public QCameraCaptureDestinationControl
{
    Q_OBJECT

public:
    explicit TestCameraDestination(QObject* parent) : QCameraCaptureDestinationControl(parent) {}

    bool isCaptureDestinationSupported(QCameraImageCapture::CaptureDestinations) const override
    {
        return true;
    }
    QCameraImageCapture::CaptureDestinations captureDestination() const override { return m_destination; }
    void setCaptureDestination(QCameraImageCapture::CaptureDestinations destination) override
    {
        m_destination = destination;
    }

private:
    QCameraImageCapture::CaptureDestinations m_destination = QCameraImageCapture::CaptureToFile;
};

/** Gives the picture of the next period to who asks for it, from any thread. */
class TestCameraStills : public QCameraImageCaptureControl
{
    Q_OBJECT
    // To be read from any thread.
    Q_PROPERTY(int timesTurnedTo READ timesTurnedTo)
    Q_PROPERTY(int timesBothered READ timesBothered)
    Q_PROPERTY(int timesLeft READ timesLeft)

public:
    TestCameraStills(TestCameraDestination* destination, QObject* parent)
        : QCameraImageCaptureControl(parent), m_destination(destination)
    {
    }

    bool isReadyForCapture() const override
    {
        ++m_timesTurnedTo;
        return m_running && (m_eager || m_asked == 0);
    }
    /** @return how often its user has asked whether it is ready, or left it. */
    int timesTurnedTo() const { return m_timesTurnedTo; }
    /** Its user has left it. */
    void leave()
    {
        ++m_timesTurnedTo;
        ++m_timesLeft;
    }
    int timesLeft() const { return m_timesLeft; }
    /** @return how often it was asked for a picture while it took one. */
    int timesBothered() const { return m_timesBothered; }
    QCameraImageCapture::DriveMode driveMode() const override
    {
        return QCameraImageCapture::SingleImageCapture;
    }
    void setDriveMode(QCameraImageCapture::DriveMode) override {}
    int capture(const QString&) override
    {
        const int id = ++m_lastId;
        if (m_asked.exchange(id) != 0)
            ++m_timesBothered;
        return id;
    }
    void cancelCapture() override { m_asked = 0; }

    void setRunning(bool running, bool eager)
    {
        m_eager = eager;
        m_running = running;
        m_asked = 0;
        Q_EMIT readyForCaptureChanged(running);
    }
    /** @return whether there was a picture to lose. */
    bool lose() { return m_asked.exchange(0) != 0; }
    void take(const QImage& image)
    {
        const int id = m_asked;
        if (id == 0 || image.isNull())
            return;
        m_asked = 0;
        if (m_destination->captureDestination() & QCameraImageCapture::CaptureToBuffer)
            Q_EMIT imageCaptured(id, image);
    }

private:
    TestCameraDestination* m_destination;
    mutable std::atomic<int> m_timesTurnedTo{0};
    std::atomic<int> m_timesLeft{0};
    std::atomic<bool> m_running{false};
    std::atomic<bool> m_eager{false};
    std::atomic<int> m_timesBothered{0};
    std::atomic<int> m_asked{0};
    std::atomic<int> m_lastId{0};
};

class TestCameraRenderer : public QVideoRendererControl
{
    Q_OBJECT

public:
    explicit TestCameraRenderer(QObject* parent) : QVideoRendererControl(parent) {}

    QAbstractVideoSurface* surface() const override { return m_surface; }
    void setSurface(QAbstractVideoSurface* surface) override
    {
        if (m_surface && m_surface->isActive())
            m_surface->stop();
        m_surface = surface;
    }
    void show(const QImage& image)
    {
        if (!m_surface)
            return;
        const QImage picture = image.convertToFormat(QImage::Format_RGB32);
        const QVideoSurfaceFormat format(picture.size(), QVideoFrame::Format_RGB32);
        if (m_surface->isActive() && m_surface->surfaceFormat().frameSize() != picture.size())
            m_surface->stop();
        if (m_surface->isActive() || m_surface->start(format))
            m_surface->present(QVideoFrame(picture));
    }

private:
    QAbstractVideoSurface* m_surface = nullptr;
};

class TestCameraControl : public QCameraControl
{
    Q_OBJECT

public:
    TestCameraControl(TestCameraDevices* devices, TestCameraStills* stills, TestCameraRenderer* renderer,
                      QObject* parent)
        : QCameraControl(parent), m_devices(devices), m_stills(stills), m_renderer(renderer)
    {
        connect(&m_timer, &QTimer::timeout, this, &TestCameraControl::nextPicture);
    }

    QCamera::State state() const override { return m_state; }
    QCamera::Status status() const override { return m_status; }
    QCamera::CaptureModes captureMode() const override { return m_mode; }
    void setCaptureMode(QCamera::CaptureModes mode) override
    {
        m_mode = mode;
        Q_EMIT captureModeChanged(mode);
    }
    bool isCaptureModeSupported(QCamera::CaptureModes) const override { return true; }
    bool canChangeProperty(PropertyChangeType, QCamera::Status) const override { return true; }

    void setState(QCamera::State state) override
    {
        if (state == m_state)
            return;
        m_state = state;
        Q_EMIT stateChanged(state);
        setRunning(state == QCamera::ActiveState);
    }

private:
    void setRunning(bool running)
    {
        if (running)
            m_timer.start(Period);
        else
            m_timer.stop();
        m_stills->setRunning(running && (m_mode & QCamera::CaptureStillImage), hasFile("eager"));
        m_status = running ? QCamera::ActiveStatus : QCamera::UnloadedStatus;
        Q_EMIT statusChanged(m_status);
    }

    QString path(const QString& file) const { return cameras().filePath(m_devices->device() + "/" + file); }
    bool hasFile(const QString& file) const { return QFileInfo::exists(path(file)); }

    void nextPicture()
    {
        if (!hasFile(QString())) {
            setRunning(false);
            Q_EMIT error(QCamera::CameraError, QStringLiteral("no such device"));
            return;
        }
        const QFileInfo file(path("picture.png"));
        if (file.exists() && file.lastModified() != m_lastModified) {
            m_lastModified = file.lastModified();
            m_image = QImage(file.filePath());
            m_renderer->show(m_image);
        }
        if (hasFile("loses") && m_stills->lose())
            QFile::remove(path("loses"));
        m_stills->take(m_image);
    }

    TestCameraDevices* m_devices;
    TestCameraStills* m_stills;
    TestCameraRenderer* m_renderer;
    QTimer m_timer;
    QImage m_image;
    QDateTime m_lastModified;
    QCamera::State m_state = QCamera::UnloadedState;
    QCamera::Status m_status = QCamera::UnloadedStatus;
    QCamera::CaptureModes m_mode = QCamera::CaptureStillImage;
};

class TestCameraService : public QMediaService
{
    Q_OBJECT

public:
    explicit TestCameraService(QObject* parent = nullptr)
        : QMediaService(parent),
          m_devices(new TestCameraDevices(this)),
          m_availability(new TestCameraAvailability(m_devices, this)),
          m_destination(new TestCameraDestination(this)),
          m_stills(new TestCameraStills(m_destination, this)),
          m_renderer(new TestCameraRenderer(this)),
          m_camera(new TestCameraControl(m_devices, m_stills, m_renderer, this))
    {
    }

    QMediaControl* requestControl(const char* name) override
    {
        for (const auto& control : {std::pair<const char*, QMediaControl*>{QCameraControl_iid, m_camera},
                                    {QCameraImageCaptureControl_iid, m_stills},
                                    {QCameraCaptureDestinationControl_iid, m_destination},
                                    {QVideoDeviceSelectorControl_iid, m_devices},
                                    {QVideoRendererControl_iid, m_renderer},
                                    {QMediaAvailabilityControl_iid, m_availability}}) {
            if (qstrcmp(control.first, name) == 0)
                return control.second;
        }
        return nullptr;
    }
    void releaseControl(QMediaControl* control) override
    {
        if (control == m_stills)
            m_stills->leave();
    }

private:
    TestCameraDevices* m_devices;
    TestCameraAvailability* m_availability;
    TestCameraDestination* m_destination;
    TestCameraStills* m_stills;
    TestCameraRenderer* m_renderer;
    TestCameraControl* m_camera;
};

class TestCameraPlugin : public QMediaServiceProviderPlugin,
                         public QMediaServiceSupportedDevicesInterface,
                         public QMediaServiceDefaultDeviceInterface
{
    Q_OBJECT
    Q_INTERFACES(QMediaServiceSupportedDevicesInterface QMediaServiceDefaultDeviceInterface)
    Q_PLUGIN_METADATA(IID "org.qt-project.qt.mediaserviceproviderfactory/5.0" FILE "testcamera.json")

public:
    QMediaService* create(const QString&) override { return new TestCameraService; }
    void release(QMediaService* service) override { delete service; }

    QList<QByteArray> devices(const QByteArray&) const override
    {
        QList<QByteArray> names;
        for (const QString& name : deviceNames())
            names.append(name.toUtf8());
        return names;
    }
    QString deviceDescription(const QByteArray&, const QByteArray& device) override
    {
        return descriptionOf(QString::fromUtf8(device));
    }
    QByteArray defaultDevice(const QByteArray& service) const override { return devices(service).value(0); }
};

#include "TestCamera.moc"
