#include "data/CCsvReader.h"

#include <QFileInfo>

CCsvReader::CCsvReader(const QString& fileName) : m_file(fileName) {}

bool CCsvReader::open()
{
    if (!QFileInfo(m_file).isFile() || !m_file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    m_stream.setDevice(&m_file);
    m_stream.setCodec("UTF-8");
    return true;
}

std::optional<QStringList> CCsvReader::readRow()
{
    QString line;
    if (!m_stream.readLineInto(&line))
        return std::nullopt;
    return line.split(QLatin1Char(';'), Qt::KeepEmptyParts, Qt::CaseSensitive);
}
