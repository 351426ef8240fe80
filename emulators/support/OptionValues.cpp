#include "support/OptionValues.h"

#include <QCommandLineParser>

double OptionValues::number(const QString& name, double least, double most)
{
    return read(name, m_parser.value(name), least, most);
}

double OptionValues::read(const QString& name, const QString& text, double least, double most)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (ok && value >= least && value <= most)
        return value;
    complain(name, text);
    return least;
}

void OptionValues::complain(const QString& name, const QString& text)
{
    if (m_error.isEmpty())
        m_error = QStringLiteral("%1: %2").arg(name, text);
}
