#include "sound/SoundOutLib.h"

#include "sound/CSoundWorker.h"
#include "sound/SoundEngine.h"
#include "sound/SoundFiles.h"

#include <QFile>

SoundOutLib::SoundOutLib() : SoundOutLib(sharedSoundWorker()) {}

SoundOutLib::SoundOutLib(std::shared_ptr<CSoundWorker> worker)
    : m_worker(std::move(worker)), m_ticket(std::make_shared<CSoundTicket>())
{
}

SoundOutLib::~SoundOutLib()
{
    m_ticket->stopped = true;
}

int SoundOutLib::load(const char* file)
{
    const auto sample = std::make_shared<CSoundSample>();
    sample->name = QFile::decodeName(file);
    sample->directories = soundDirectories();
    m_samples.insert(++m_lastId, sample);
    if (!sample->name.isEmpty())
        m_worker->load(sample);
    return m_lastId;
}

void SoundOutLib::unloadAll()
{
    m_samples.clear();
}

void SoundOutLib::enqueue(int id)
{
    if (const auto sample = m_samples.value(id))
        m_queue.push_back({sample, QString(), SpeechLanguage::German});
}

void SoundOutLib::enqueue(const char* text)
{
    const SpeechLanguage language = CSpokenText::programLanguage();
    const QString words = CSpokenText::words(QString::fromLatin1(text), language);
    if (!words.isEmpty())
        m_queue.push_back({nullptr, words, language});
}

void SoundOutLib::play()
{
    if (!m_queue.empty())
        m_worker->play(m_ticket, std::move(m_queue));
    m_queue.clear();
}

void SoundOutLib::stop()
{
    m_queue.clear();
    m_ticket->stopped = true;
    m_ticket = std::make_shared<CSoundTicket>();
}
