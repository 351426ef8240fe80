#include "sound/CSoundOutput.h"

#include "sound/SoundOutLib.h"

#include <QFile>

CSoundOutput::CSoundOutput(QObject* parent) : CSoundOutput(std::make_unique<SoundOutLib>(), parent) {}

CSoundOutput::CSoundOutput(std::unique_ptr<SoundOutLib> lib, QObject* parent)
    : QObject(parent), m_lib(std::move(lib))
{
}

CSoundOutput::~CSoundOutput()
{
    m_lib->stop();
}

void CSoundOutput::setSample1File(const QString& file)
{
    m_sample1File = file;
    reload();
}

void CSoundOutput::setSample2File(const QString& file)
{
    m_sample2File = file;
    reload();
}

void CSoundOutput::setSample3File(const QString& file)
{
    m_sample3File = file;
    reload();
}

void CSoundOutput::reload()
{
    m_lib->unloadAll();
    m_sample1 = m_lib->load(QFile::encodeName(m_sample1File).constData());
    m_sample2 = m_lib->load(QFile::encodeName(m_sample2File).constData());
    m_sample3 = m_lib->load(QFile::encodeName(m_sample3File).constData());
}

void CSoundOutput::playSample1()
{
    m_lib->enqueue(m_sample1);
}

void CSoundOutput::playSample2()
{
    m_lib->enqueue(m_sample2);
}

void CSoundOutput::playSample3()
{
    m_lib->enqueue(m_sample3);
}

void CSoundOutput::enqueueText(const QString& text)
{
    m_lib->enqueue(text.toLatin1().constData());
}

void CSoundOutput::stop()
{
    m_lib->stop();
}

void CSoundOutput::play()
{
    m_lib->play();
}
