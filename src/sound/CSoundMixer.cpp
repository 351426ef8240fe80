#include "sound/CSoundMixer.h"

#include <algorithm>
#include <limits>

namespace {

/** So many clips may wait behind each other: far more than a lap is ever told with. */
constexpr size_t MostClips = 64;
/** 5 ms: a sound that ends at once would click. */
constexpr int FadeFrames = MixRate / 200;

void fadeOut(const QVector<qint16>& clip, int position, std::vector<int>& sums)
{
    const int fade = std::min(FadeFrames, int(sums.size()) / MixChannels);
    const int count = std::min(fade * MixChannels, clip.size() - position);
    for (int i = 0; i < count; ++i)
        sums[size_t(i)] += clip.at(position + i) * (fade - i / MixChannels) / fade;
}

} // namespace

void CSoundMixer::add(const SoundTicket& ticket, const SoundClip& clip)
{
    if (!clip)
        return;
    const std::lock_guard<std::mutex> lock(m_mutex);
    dropSilentVoices();
    if (ticket->stopped)
        return;
    auto voice = std::find_if(m_voices.begin(), m_voices.end(),
                              [&ticket](const CVoice& candidate) { return candidate.ticket == ticket; });
    if (voice == m_voices.end()) {
        m_voices.push_back({ticket, {}, 0, false});
        voice = m_voices.end() - 1;
    }
    if (voice->clips.size() < MostClips)
        voice->clips.push_back(clip);
}

void CSoundMixer::clear()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_voices.clear();
}

bool CSoundMixer::isIdle() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_voices.empty();
}

void CSoundMixer::mix(qint16* samples, int frames)
{
    std::vector<int> sums(size_t(frames * MixChannels), 0);
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        for (CVoice& voice : m_voices)
            addVoice(voice, sums);
        dropSilentVoices();
    }
    std::transform(sums.begin(), sums.end(), samples, [](int sum) {
        using Limits = std::numeric_limits<qint16>;
        return qint16(std::clamp<int>(sum, Limits::min(), Limits::max()));
    });
}

void CSoundMixer::addVoice(CVoice& voice, std::vector<int>& sums)
{
    if (voice.ticket->stopped) {
        if (voice.begun)
            fadeOut(*voice.clips.front(), voice.position, sums);
        voice.clips.clear();
        return;
    }
    for (size_t i = 0; i < sums.size() && !voice.clips.empty();) {
        const QVector<qint16>& clip = *voice.clips.front();
        const size_t count = std::min(sums.size() - i, size_t(clip.size() - voice.position));
        for (size_t k = 0; k < count; ++k)
            sums[i + k] += clip.at(voice.position + int(k));
        i += count;
        voice.position += int(count);
        voice.begun = true;
        if (voice.position == clip.size()) {
            voice.clips.pop_front();
            voice.position = 0;
            voice.begun = false;
        }
    }
}

void CSoundMixer::dropSilentVoices()
{
    const auto silent = [](const CVoice& voice) {
        return voice.clips.empty() || (voice.ticket->stopped && !voice.begun);
    };
    m_voices.erase(std::remove_if(m_voices.begin(), m_voices.end(), silent), m_voices.end());
}
