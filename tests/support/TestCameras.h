#ifndef TORNIK_TESTS_SUPPORT_TESTCAMERAS_H
#define TORNIK_TESTS_SUPPORT_TESTCAMERAS_H

#include "qr/QZXing.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

/**
 * The cameras that hang on the machine as long as this object lives, for a process that has the
 * plugin with them in its QT_PLUGIN_PATH.
 */
class TestCameras
{
public:
    TestCameras() { qputenv("TORNIK_TEST_CAMERAS", m_directory.path().toUtf8()); }
    ~TestCameras() { qunsetenv("TORNIK_TEST_CAMERAS"); }

    /** @param device the name of a directory; cameras are found in the order of these */
    void plug(const QString& device, const QString& description)
    {
        QDir(m_directory.path()).mkdir(device);
        QFile file(path(device, "description"));
        if (file.open(QIODevice::WriteOnly))
            file.write(description.toUtf8());
    }
    void unplug(const QString& device) { QDir(path(device, QString())).removeRecursively(); }
    /** Lets another program hold the camera. */
    void lock(const QString& device) { mark(device, "locked"); }
    void unlock(const QString& device) { QFile::remove(path(device, "locked")); }
    /** Lets the camera be ready while it takes a picture, too, from its next start on. */
    void makeEager(const QString& device) { mark(device, "eager"); }
    /** Lets the camera take one picture that nobody gets. */
    void losePicture(const QString& device) { mark(device, "loses"); }
    bool isToLosePicture(const QString& device) const { return QFile::exists(path(device, "loses")); }

    /** Lets the camera see a picture from now on. */
    void show(const QString& device, const QImage& picture)
    {
        const QByteArray made = QFile::encodeName(path(device, "next.png"));
        picture.save(QString::fromUtf8(made));
        std::rename(made.constData(), QFile::encodeName(path(device, "picture.png")).constData());
    }
    void showCode(const QString& device, const QString& text) { show(device, card(text)); }
    void showNothing(const QString& device) { show(device, wall()); }

    static QImage wall()
    {
        QImage image(640, 480, QImage::Format_RGB32);
        image.fill(QColor(90, 110, 100));
        return image;
    }
    /** @return a card with a code, held askew in front of the wall. */
    static QImage card(const QString& text)
    {
        QImage image = wall();
        QPainter painter(&image);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.translate(330, 230);
        painter.rotate(12);
        painter.drawImage(-120, -120,
                          QZXing::encodeData(text, QZXing::EncodeQrCode, QSize(240, 240),
                                             QZXing::CorrectionLow, true, false));
        return image;
    }

private:
    void mark(const QString& device, const QString& file)
    {
        QFile(path(device, file)).open(QIODevice::WriteOnly);
    }
    QString path(const QString& device, const QString& file) const
    {
        return m_directory.filePath(device + "/" + file);
    }

    QTemporaryDir m_directory;
};

#endif
