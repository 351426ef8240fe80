#ifndef TORNIK_TESTS_SOUND_RECORDINGSOUNDOUTLIB_H
#define TORNIK_TESTS_SOUND_RECORDINGSOUNDOUTLIB_H

#include "sound/SoundOutLib.h"

#include <QFile>
#include <QStringList>

/**
 * A player that is silent and writes down what it is asked for, one line a call: "unloadAll",
 * "load <file> -> <id>", "id <id>", "text <text>", "play", "stop".
 *
 * Hand it to a CSoundOutput; the list must live longer.
 */
class CRecordingSoundOutLib : public SoundOutLib
{
public:
    explicit CRecordingSoundOutLib(QStringList* calls) : m_calls(calls) {}

    int load(const char* file) override
    {
        m_calls->append(QStringLiteral("load %1 -> %2").arg(QFile::decodeName(file)).arg(++m_lastId));
        return m_lastId;
    }
    void unloadAll() override { m_calls->append(QStringLiteral("unloadAll")); }
    void enqueue(int id) override { m_calls->append(QStringLiteral("id %1").arg(id)); }
    void enqueue(const char* text) override
    {
        m_calls->append(QStringLiteral("text ") + QString::fromLatin1(text));
    }
    void play() override { m_calls->append(QStringLiteral("play")); }
    void stop() override { m_calls->append(QStringLiteral("stop")); }

private:
    QStringList* m_calls;
    int m_lastId = 0;
};

#endif
