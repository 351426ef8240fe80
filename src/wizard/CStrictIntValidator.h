#ifndef TORNIK_WIZARD_CSTRICTINTVALIDATOR_H
#define TORNIK_WIZARD_CSTRICTINTVALIDATOR_H

#include <QIntValidator>

/**
 * Takes digits alone, and refuses a number above the range while it is typed; its base lets signs pass,
 * and a number of as many digits. For ranges from 0 on.
 */
class CStrictIntValidator : public QIntValidator
{
    Q_OBJECT

public:
    using QIntValidator::QIntValidator;

    State validate(QString& input, int& position) const override;
};

#endif
