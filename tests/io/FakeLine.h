#ifndef TORNIK_TESTS_IO_FAKELINE_H
#define TORNIK_TESTS_IO_FAKELINE_H

#include <QByteArray>
#include <QIODevice>
#include <QList>

#include <cstring>
#include <functional>

/** What a FakeLine is told and what it saw; outlives the device that a CCarreraCu makes and drops. */
struct FakeLineScript
{
    QList<QByteArray> reads;      ///< one entry arrives at each wait; an empty one is a wait in vain
    QByteArray readsWhileWriting; ///< arrives while bytes leave, without a wait
    QByteArray written;
    int writes = 0;
    bool opens = true;
    bool takesBytes = true;            ///< false: a wait for bytes to leave ends in vain
    std::function<void()> whenAllRead; ///< called at each wait with nothing left
    int mostBytesAWrite = 1000;        ///< fewer: the line takes only the first ones
};

/** A line in memory that follows a script. */
class FakeLine : public QIODevice
{
public:
    explicit FakeLine(FakeLineScript* script) : m_script(script) {}

    bool open(OpenMode mode) override { return m_script->opens && QIODevice::open(mode); }
    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return m_arrived.size() + QIODevice::bytesAvailable(); }

    bool waitForReadyRead(int /*milliseconds*/) override
    {
        if (m_script->reads.isEmpty()) {
            if (m_script->whenAllRead)
                m_script->whenAllRead();
            return false;
        }
        const QByteArray chunk = m_script->reads.takeFirst();
        m_arrived += chunk;
        return !chunk.isEmpty();
    }

    bool waitForBytesWritten(int /*milliseconds*/) override
    {
        m_arrived += m_script->readsWhileWriting;
        m_script->readsWhileWriting.clear();
        return m_script->takesBytes;
    }

protected:
    qint64 readData(char* data, qint64 maxSize) override
    {
        const int size = int(qMin(maxSize, qint64(m_arrived.size())));
        std::memcpy(data, m_arrived.constData(), std::size_t(size));
        m_arrived.remove(0, size);
        return size;
    }

    qint64 writeData(const char* data, qint64 size) override
    {
        const int taken = int(qMin(size, qint64(m_script->mostBytesAWrite)));
        ++m_script->writes;
        if (m_script->takesBytes)
            m_script->written.append(data, taken);
        return taken;
    }

private:
    FakeLineScript* m_script;
    QByteArray m_arrived;
};

#endif
