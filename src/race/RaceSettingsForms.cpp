#include "race/RaceSettingsForms.h"

#include <QSettings>
#include <QTextStream>

#include <cmath>

namespace RaceSettingsForms {

void StoreReader::operator()(const char* key, bool& value, bool missing)
{
    value = m_store.value(QLatin1String(key), missing).toBool();
}

void StoreReader::operator()(const char* key, int& value, int missing)
{
    bool ok = false;
    const int number = m_store.value(QLatin1String(key), missing).toInt(&ok);
    value = ok ? number : missing;
}

void StoreReader::operator()(const char* key, quint32& value, quint32 missing)
{
    bool ok = false;
    const quint32 number = m_store.value(QLatin1String(key), missing).toUInt(&ok);
    value = ok ? number : missing;
}

void StoreReader::operator()(const char* key, double& value, double missing)
{
    bool ok = false;
    const double number = m_store.value(QLatin1String(key), missing).toDouble(&ok);
    value = ok && std::isfinite(number) ? number : missing;
}

void StoreReader::operator()(const char* key, QTime& value, const QTime& missing)
{
    const QTime time = m_store.value(QLatin1String(key), missing).toTime();
    value = time.isValid() ? time : missing;
}

void StoreWriter::write(const char* key, bool value)
{
    m_store.setValue(QLatin1String(key), value);
}

void StoreWriter::write(const char* key, int value)
{
    m_store.setValue(QLatin1String(key), value);
}

void StoreWriter::write(const char* key, quint32 value)
{
    m_store.setValue(QLatin1String(key), value);
}

void StoreWriter::write(const char* key, double value)
{
    m_store.setValue(QLatin1String(key), value);
}

void StoreWriter::write(const char* key, const QTime& value)
{
    m_store.setValue(QLatin1String(key), value);
}

QString TextReader::nextWord()
{
    QString word;
    m_stream >> word;
    return word;
}

void TextReader::read(bool& value)
{
    int number = value ? 1 : 0;
    read(number);
    value = number != 0;
}

void TextReader::read(int& value)
{
    bool ok = false;
    const int number = nextWord().toInt(&ok);
    value = ok ? number : value;
}

void TextReader::read(quint32& value)
{
    bool ok = false;
    const quint32 number = nextWord().toUInt(&ok);
    value = ok ? number : value;
}

void TextReader::read(double& value)
{
    bool ok = false;
    const double number = nextWord().toDouble(&ok);
    value = ok && std::isfinite(number) ? number : value;
}

void TextReader::read(QTime& value)
{
    const QTime time = QTime::fromString(nextWord());
    value = time.isValid() ? time : value;
}

void TextWriter::separate()
{
    if (!m_first)
        m_stream << ' ';
    m_first = false;
}

void TextWriter::write(bool value)
{
    m_stream << (value ? 1 : 0);
}

void TextWriter::write(int value)
{
    m_stream << value;
}

void TextWriter::write(quint32 value)
{
    m_stream << value;
}

void TextWriter::write(double value)
{
    m_stream << value;
}

void TextWriter::write(const QTime& value)
{
    // An invalid time has no text; without a word in its place the words behind it would shift.
    const QTime time = value.isValid() ? value : QTime(0, 0);
    m_stream << time.toString();
}

} // namespace RaceSettingsForms
