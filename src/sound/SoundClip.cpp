#include "sound/SoundClip.h"

#include <QtGlobal>

namespace {

/** One channel of a frame; a mono sound gives both sides the same. */
int sampleAt(const QVector<qint16>& samples, int channels, int frame, int side)
{
    return samples.at(frame * channels + qMin(side, channels - 1));
}

} // namespace

SoundClip makeSoundClip(const QVector<qint16>& samples, int channels, int rate)
{
    const int frames = samples.size() / channels;
    const qint64 mixFrames = qint64(frames) * MixRate / rate;
    if (mixFrames == 0)
        return nullptr;
    QVector<qint16> mixed(int(mixFrames) * MixChannels);
    for (int i = 0; i < int(mixFrames); ++i) {
        const qint64 position = qint64(i) * rate;
        const int frame = int(position / MixRate);
        const int next = qMin(frame + 1, frames - 1);
        const qint64 rest = position % MixRate;
        for (int side = 0; side < MixChannels; ++side) {
            const int from = sampleAt(samples, channels, frame, side);
            const int to = sampleAt(samples, channels, next, side);
            mixed[i * MixChannels + side] = qint16(from + (to - from) * rest / MixRate);
        }
    }
    return std::make_shared<const QVector<qint16>>(std::move(mixed));
}
