#ifndef TORNIK_RACE_RACESETTINGSFORMS_H
#define TORNIK_RACE_RACESETTINGSFORMS_H

#include <QString>
#include <QTime>

class QSettings;
class QTextStream;

/**
 * Visitors that carry the values of CRaceSettings and CFuelSettings into an outer form or back. Each
 * is called once a value, in the order of the form, with the key of the store, the value and what a
 * read of the store uses when the key is missing.
 */
namespace RaceSettingsForms {

/** A missing key gives its default; so does a value that is no number or no time. */
class StoreReader
{
public:
    explicit StoreReader(QSettings& store) : m_store(store) {}

    void operator()(const char* key, bool& value, bool missing);
    void operator()(const char* key, int& value, int missing);
    void operator()(const char* key, quint32& value, quint32 missing);
    void operator()(const char* key, double& value, double missing);
    void operator()(const char* key, QTime& value, const QTime& missing);

private:
    QSettings& m_store;
};

class StoreWriter
{
public:
    explicit StoreWriter(QSettings& store) : m_store(store) {}

    template <typename Value, typename Missing>
    void operator()(const char* key, const Value& value, const Missing& /*missing*/)
    {
        write(key, value);
    }

private:
    void write(const char* key, bool value);
    void write(const char* key, int value);
    void write(const char* key, quint32 value);
    void write(const char* key, double value);
    void write(const char* key, const QTime& value);

    QSettings& m_store;
};

/** Takes words apart at blanks. A word that is missing or can't be read leaves its value alone. */
class TextReader
{
public:
    explicit TextReader(QTextStream& stream) : m_stream(stream) {}

    template <typename Value, typename Missing>
    void operator()(const char* /*key*/, Value& value, const Missing& /*missing*/)
    {
        read(value);
    }

private:
    QString nextWord();
    void read(bool& value);
    void read(int& value);
    void read(quint32& value);
    void read(double& value);
    void read(QTime& value);

    QTextStream& m_stream;
};

/** One blank between the words; times lose their milliseconds. */
class TextWriter
{
public:
    explicit TextWriter(QTextStream& stream) : m_stream(stream) {}

    template <typename Value, typename Missing>
    void operator()(const char* /*key*/, const Value& value, const Missing& /*missing*/)
    {
        separate();
        write(value);
    }

private:
    void separate();
    void write(bool value);
    void write(int value);
    void write(quint32 value);
    void write(double value);
    void write(const QTime& value);

    QTextStream& m_stream;
    bool m_first = true;
};

} // namespace RaceSettingsForms

#endif
