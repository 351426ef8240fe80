#ifndef TORNIK_WIZARD_CSTARTPAGE_H
#define TORNIK_WIZARD_CSTARTPAGE_H

#include "wizard/CRacewayWizardPage.h"

class QComboBox;
class QLineEdit;

/** Asks for the name of the raceway, the number of its tracks and its scale. */
class CStartPage : public CRacewayWizardPage
{
    Q_OBJECT

public:
    explicit CStartPage(CRacewayWizard* wizard);

    QString name() const;
    void setName(const QString& name);
    /** @return 1 to 8. */
    int numberOfTracks() const;
    /** A number out of range becomes the nearest one in it. */
    void setNumberOfTracks(int tracks);
    /** @return the divisor of the scale, 0 for none. */
    int scale() const;
    void setScale(int scale);

    bool isComplete() const override;

protected:
    void clear() override;

private:
    void createFields();

    QLineEdit* m_nameEdit;
    QComboBox* m_tracksBox;
    QLineEdit* m_scaleEdit;
};

#endif
