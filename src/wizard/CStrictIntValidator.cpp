#include "wizard/CStrictIntValidator.h"

#include <algorithm>

QValidator::State CStrictIntValidator::validate(QString& input, int& position) const
{
    const auto isDigit = [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); };
    if (!std::all_of(input.cbegin(), input.cend(), isDigit) || input.toLongLong() > top())
        return Invalid;
    return QIntValidator::validate(input, position);
}
