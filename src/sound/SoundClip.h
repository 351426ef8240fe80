#ifndef TORNIK_SOUND_SOUNDCLIP_H
#define TORNIK_SOUND_SOUNDCLIP_H

#include <QVector>

#include <atomic>
#include <memory>

/** The one format that sounds are mixed in: 16 bits, left and right by turns. */
constexpr int MixRate = 44100; ///< frames a second
constexpr int MixChannels = 2;

/** A finished sound in the format of the mix, shared by everybody who plays it. Null is silence. */
using SoundClip = std::shared_ptr<const QVector<qint16>>;

/**
 * Brings samples into the format of the mix.
 *
 * @param samples 16 bits, the channels by turns; an unfinished frame at the end is dropped
 * @param channels 1 or more; of more than two the first two are taken
 * @param rate frames a second, 1 or more
 * @return null when there is no whole frame
 */
SoundClip makeSoundClip(const QVector<qint16>& samples, int channels, int rate);

/**
 * One run of a player's queue, from a stop to the next. Everything that belongs to the run carries
 * its ticket: setting `stopped` ends it wherever it is just now, waiting, being spoken or heard.
 */
struct CSoundTicket
{
    std::atomic<bool> stopped{false};
};
using SoundTicket = std::shared_ptr<CSoundTicket>;

#endif
