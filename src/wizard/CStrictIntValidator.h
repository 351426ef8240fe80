#ifndef TORNIK_WIZARD_CSTRICTINTVALIDATOR_H
#define TORNIK_WIZARD_CSTRICTINTVALIDATOR_H

#include <QIntValidator>

/** Refuses a number above the range while it is typed; its base lets one of as many digits pass. */
class CStrictIntValidator : public QIntValidator
{
    Q_OBJECT

public:
    using QIntValidator::QIntValidator;

    State validate(QString& input, int& position) const override;
};

#endif
