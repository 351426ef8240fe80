#include "io/CRaceControlIo.h"

#include "io/CRaceControl.h"
#include "io/CRaceControlThread.h"

#include <QDataStream>

CRaceControlIo::CRaceControlIo(QObject* parent)
    : CRacewayIo(RaceControl, parent),
      m_device(CRaceControl::instance()),
      m_thread(std::make_unique<CRaceControlThread>(this))
{
    setAllMasks(-1, -1, -1);
}

CRaceControlIo::~CRaceControlIo()
{
    m_thread.reset();
    CRaceControl::release();
}

QString CRaceControlIo::portName(int box) const
{
    return box >= 0 && box < int(m_boxes.size()) ? m_boxes[std::size_t(box)].portName : QString();
}

void CRaceControlIo::setPortName(int box, const QString& name)
{
    if (box >= 0 && box < int(m_boxes.size()))
        m_boxes[std::size_t(box)].portName = name;
}

QBitArray CRaceControlIo::sensorStates()
{
    return QBitArray(PortId::Count);
}

void CRaceControlIo::setOutput(int /*portId*/, bool /*on*/) {}

int CRaceControlIo::capturePortState(int /*portId*/)
{
    return 0;
}

void CRaceControlIo::start()
{
    if (!isRunning())
        configureDevice(); // another interface may have had the boxes meanwhile
    if (!m_device->anyBoxOpen())
        m_device->openAllBoxes();
    if (m_device->anyBoxOpen())
        m_thread->start();
}

void CRaceControlIo::stop()
{
    m_thread->requestStop();
}

bool CRaceControlIo::isRunning() const
{
    return m_thread->isRunning();
}

void CRaceControlIo::readSettings(const QByteArray& blob)
{
    QDataStream stream(blob);
    stream.setVersion(QDataStream::Qt_5_5);
    qint32 type = 0;
    stream >> type; // the type stays, whatever the blob says
    for (Box& box : m_boxes)
        stream >> box.word2 >> box.word3 >> box.word4 >> box.portName;
    readMasks(stream);
    readTimingMasks(stream);
    configureDevice();
}

void CRaceControlIo::configureDevice()
{
    for (int i = 0; i < int(m_boxes.size()); ++i) {
        const Box& box = m_boxes[std::size_t(i)];
        m_device->setWord2(box.word2, i);
        m_device->setWord3(box.word3, i);
        m_device->setWord4(box.word4, i);
        m_device->setPortName(i, box.portName);
    }
}

QByteArray CRaceControlIo::writeSettings() const
{
    QByteArray blob;
    QDataStream stream(&blob, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_5);
    stream << qint32(interfaceType());
    for (const Box& box : m_boxes)
        stream << box.word2 << box.word3 << box.word4 << box.portName;
    writeMasks(stream);
    writeTimingMasks(stream);
    return blob;
}

void CRaceControlIo::processIoEvent(QEvent* event)
{
    processPortEvent(event);
}
