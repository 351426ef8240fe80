#ifndef TORNIK_TESTS_IO_FAKEBOXES_H
#define TORNIK_TESTS_IO_FAKEBOXES_H

#include "io/CBoxPort.h"
#include "io/CJnutl.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

#include <memory>

/**
 * The library of the boxes in memory, one for the process. It takes the byte 2 as the end of an
 * event and answers every other byte with itself.
 */
class FakeJnutl
{
public:
    inline static QStringList calls;
    inline static QStringList lookedUp;
    inline static QList<CJnutl::Event> events; ///< one is told at each end; none is error 9
    inline static QByteArray bytesToSend;
    inline static quint16 initAnswer = CJnutl::InitDone;
    inline static QByteArray missing;     ///< a plain name that isn't there
    inline static bool decorated = false; ///< whether the entries have their decorated names
    inline static quint32 timeStamp = 0;

    static void reset()
    {
        calls.clear();
        lookedUp.clear();
        events.clear();
        bytesToSend.clear();
        initAnswer = CJnutl::InitDone;
        missing.clear();
        decorated = false;
        timeStamp = 0;
    }

    static QFunctionPointer resolve(const char* name)
    {
        lookedUp.append(QString::fromLatin1(name));
        if (lookedUp.last().startsWith('_') != decorated)
            return nullptr;
        const QByteArray plain = decorated ? QByteArray(name + 1).split('@').first() : QByteArray(name);
        return plain == missing ? nullptr : entry(plain);
    }

    static std::unique_ptr<CJnutl> make() { return std::make_unique<CJnutl>(CJnutl::Resolver(&resolve)); }

private:
    static QFunctionPointer entry(const QByteArray& name)
    {
        if (name == "InitBoxes")
            return reinterpret_cast<QFunctionPointer>(&initBoxes);
        if (name == "OpenBox")
            return reinterpret_cast<QFunctionPointer>(&openBox);
        if (name == "RX_data")
            return reinterpret_cast<QFunctionPointer>(&rxData);
        if (name == "Get_Event")
            return reinterpret_cast<QFunctionPointer>(&getEvent);
        if (name == "Get_TStamp")
            return reinterpret_cast<QFunctionPointer>(&getTStamp);
        if (name == "Get_TXDat")
            return reinterpret_cast<QFunctionPointer>(&getTxDat);
        return name == "Timeout_Check" ? reinterpret_cast<QFunctionPointer>(&timeoutCheck) : nullptr;
    }

    static quint16 initBoxes()
    {
        calls.append(QStringLiteral("init"));
        return initAnswer;
    }
    static void openBox(quint16 box, quint16* record)
    {
        QStringList words{QStringLiteral("open %1:").arg(box)};
        for (int word = 0; word < 8; ++word)
            words.append(QString::number(record[word]));
        calls.append(words.join(' '));
    }
    static quint16 rxData(quint16 box, quint8 byte)
    {
        calls.append(QStringLiteral("byte %1 of box %2").arg(byte).arg(box));
        return byte;
    }
    static quint16 getEvent(CJnutl::Event* event)
    {
        if (events.isEmpty())
            return 9;
        *event = events.takeFirst();
        return CJnutl::Success;
    }
    static quint32 getTStamp(quint16 box) { return timeStamp + box; }
    static quint16 getTxDat(quint16 box)
    {
        calls.append(QStringLiteral("next byte of box %1").arg(box));
        if (bytesToSend.isEmpty())
            return CJnutl::NoByte;
        const auto byte = quint8(bytesToSend.at(0));
        bytesToSend.remove(0, 1);
        return byte;
    }
    static void timeoutCheck() { calls.append(QStringLiteral("time-out check")); }
};

/** What one FakeBoxPort is told and what it saw. */
struct FakeBoxLine
{
    QString name;
    QByteArray arriving;
    QStringList log;       ///< "DTR on", "DTR off" and the bytes that left
    int failingWrites = 0; ///< so many writes fail before one succeeds
};

/** A port in memory, which opens each name but "broken". */
class FakeBoxPort : public CBoxPort
{
public:
    explicit FakeBoxPort(QList<FakeBoxLine>* lines) : m_lines(lines) {}

    bool open(const QString& name) override
    {
        if (name == QLatin1String("broken"))
            return false;
        m_index = m_lines->size();
        m_lines->append(FakeBoxLine());
        line().name = name;
        return true;
    }
    bool isOpen() const override { return m_index >= 0; }
    bool read(quint8* byte) override
    {
        if (line().arriving.isEmpty())
            return false;
        *byte = quint8(line().arriving.at(0));
        line().arriving.remove(0, 1);
        return true;
    }
    bool write(quint8 byte) override
    {
        if (line().failingWrites > 0) {
            --line().failingWrites;
            return false;
        }
        line().log.append(QString::number(byte));
        return true;
    }
    bool setDtr(bool on) override
    {
        line().log.append(on ? QStringLiteral("DTR on") : QStringLiteral("DTR off"));
        return true;
    }

private:
    FakeBoxLine& line() { return (*m_lines)[m_index]; }

    QList<FakeBoxLine>* m_lines;
    int m_index = -1;
};

#endif
