#ifndef TORNIK_EMULATORS_OPTIONVALUES_H
#define TORNIK_EMULATORS_OPTIONVALUES_H

#include <QString>

class QCommandLineParser;

/** Reads the numbers of a command line and keeps the first complaint. */
class OptionValues
{
public:
    explicit OptionValues(const QCommandLineParser& parser) : m_parser(parser) {}

    /** @return the value of an option; @p least if it is no number or out of range. */
    double number(const QString& name, double least, double most);
    int integer(const QString& name, int least, int most) { return int(number(name, least, most)); }

    /** The same for a text that is only a part of the value. */
    double read(const QString& name, const QString& text, double least, double most);
    void complain(const QString& name, const QString& text);
    /** @return empty if there was no complaint. */
    QString error() const { return m_error; }

private:
    const QCommandLineParser& m_parser;
    QString m_error;
};

#endif
