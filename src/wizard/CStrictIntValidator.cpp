#include "wizard/CStrictIntValidator.h"

QValidator::State CStrictIntValidator::validate(QString& input, int& position) const
{
    if (input.toLongLong() > top())
        return Invalid;
    return QIntValidator::validate(input, position);
}
