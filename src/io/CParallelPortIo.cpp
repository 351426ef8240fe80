#include "io/CParallelPortIo.h"

#include "io/CInpOutLibrary.h"
#include "io/CPortThread.h"

#include <QDataStream>

namespace {

constexpr int DefaultPortOpen = 127;

} // namespace

CParallelPortIo::CParallelPortIo(QObject* parent)
    : CRacewayIo(ParallelPort, parent),
      m_library(CInpOutLibrary::instance()),
      m_baseAddress(CInpOutLibrary::DefaultBaseAddress),
      m_inputOffset(CInpOutLibrary::DefaultInputOffset),
      m_outputOffset(CInpOutLibrary::DefaultOutputOffset),
      m_thread(std::make_unique<CPortThread>(this))
{
    setAllMasks(DefaultPortOpen, 0, 0);
}

CParallelPortIo::CParallelPortIo(int baseAddress, int inputOffset, int outputOffset, QObject* parent)
    : CRacewayIo(ParallelPort, parent), m_library(CInpOutLibrary::instance())
{
    setAllMasks(DefaultPortOpen, 0, 0);
    setRegisters(baseAddress, inputOffset, outputOffset);
    m_thread = std::make_unique<CPortThread>(this);
}

CParallelPortIo::CParallelPortIo(const QByteArray& blob, QObject* parent)
    : CRacewayIo(ParallelPort, parent), m_library(CInpOutLibrary::instance())
{
    CParallelPortIo::readSettings(blob);
    m_thread = std::make_unique<CPortThread>(this);
}

CParallelPortIo::~CParallelPortIo()
{
    m_thread.reset();
    CInpOutLibrary::release();
}

void CParallelPortIo::setBaseAddress(int address)
{
    m_baseAddress = address;
    m_library->setBaseAddress(address);
}

void CParallelPortIo::setInputOffset(int offset)
{
    m_inputOffset = offset;
    m_library->setInputOffset(offset);
}

void CParallelPortIo::setOutputOffset(int offset)
{
    m_outputOffset = offset;
    m_library->setOutputOffset(offset);
}

void CParallelPortIo::setRegisters(int baseAddress, int inputOffset, int outputOffset)
{
    setBaseAddress(baseAddress);
    setInputOffset(inputOffset);
    setOutputOffset(outputOffset);
}

QBitArray CParallelPortIo::sensorStates()
{
    return decodePortValue(m_library->readPort());
}

void CParallelPortIo::setOutput(int portId, bool on)
{
    m_library->writePort(short(switchOutputShadow(portId, on)));
}

int CParallelPortIo::capturePortState(int portId)
{
    return setPortState(portId, m_library->readPort(), false);
}

void CParallelPortIo::start()
{
    m_thread->setBaseAddress(m_baseAddress);
    m_thread->setInputOffset(m_inputOffset);
    m_thread->setOutputOffset(m_outputOffset);
    m_thread->start();
}

void CParallelPortIo::stop()
{
    m_thread->requestStop();
}

bool CParallelPortIo::isRunning() const
{
    return m_thread->isRunning();
}

void CParallelPortIo::readSettings(const QByteArray& blob)
{
    QDataStream stream(blob);
    stream.setVersion(QDataStream::Qt_5_5);
    qint32 type = 0;
    stream >> type; // a parallel port stays one, whatever a foreign blob calls itself
    readMasks(stream);
    qint32 baseAddress = 0;
    qint32 inputOffset = 0;
    qint32 outputOffset = 0;
    stream >> baseAddress >> inputOffset >> outputOffset;
    readTimingMasks(stream);
    setRegisters(baseAddress, inputOffset, outputOffset);
}

QByteArray CParallelPortIo::writeSettings() const
{
    QByteArray blob;
    QDataStream stream(&blob, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_5);
    stream << qint32(interfaceType());
    writeMasks(stream);
    stream << qint32(m_baseAddress) << qint32(m_inputOffset) << qint32(m_outputOffset);
    writeTimingMasks(stream);
    return blob;
}

void CParallelPortIo::processIoEvent(QEvent* event)
{
    processPortEvent(event);
}
