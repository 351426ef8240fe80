#include "sound/EffectFile.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

namespace {

constexpr int SmallestFormat = 16;

bool skip(QIODevice& device, qint64 bytes)
{
    return device.skip(bytes) == bytes;
}

} // namespace

bool isEffectFile(const QString& path)
{
    QFile file(path);
    return QFileInfo(path).isFile() // a pipe would never end
           && file.open(QIODevice::ReadOnly) && isEffectFile(file);
}

/** QSound knows of no byte that fills up an odd chunk, and so this doesn't either. */
bool isEffectFile(QIODevice& device)
{
    const QByteArray riff = device.read(12);
    if (riff.size() < 12 || !riff.startsWith("RIFF") || riff.mid(8) != "WAVE")
        return false;
    bool hasFormat = false;
    for (QByteArray head = device.read(8); head.size() == 8; head = device.read(8)) {
        const qint64 size = qFromLittleEndian<quint32>(head.constData() + 4);
        if (hasFormat && head.startsWith("data"))
            return size > 0 && skip(device, size);
        if (head.startsWith("fmt ")) {
            if (size < SmallestFormat)
                return false;
            hasFormat = true;
        }
        if (!skip(device, size))
            return false;
    }
    return false;
}
