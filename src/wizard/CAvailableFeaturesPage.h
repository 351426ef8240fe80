#ifndef TORNIK_WIZARD_CAVAILABLEFEATURESPAGE_H
#define TORNIK_WIZARD_CAVAILABLEFEATURESPAGE_H

#include "wizard/CRacewayWizardPage.h"

class QCheckBox;
class QComboBox;
struct CRaceway;

/** Asks what the raceway has beside its lap sensors. */
class CAvailableFeaturesPage : public CRacewayWizardPage
{
    Q_OBJECT

public:
    explicit CAvailableFeaturesPage(CRacewayWizard* wizard);

    bool chaosButton() const;
    bool chaosPhaseOutput() const;
    bool powerOff() const;
    bool lights() const;
    bool separateEndSensors() const;
    /** @return 0 to 4, the fuelSensorSetup of a raceway. */
    int fuelIndex() const;
    /** @return 0 to 2, one less than the numberOfSectors of a raceway. */
    int sectorIndex() const;

    void readFrom(const CRaceway& raceway);
    void writeTo(CRaceway* raceway) const;
    /** Nothing is there but a lap sensor a track. */
    void startAnew();

protected:
    void clear() override;

private Q_SLOTS:
    void vEnableChaosOutputBox(bool isEnabled);

private:
    void nameBoxes();
    void fillSectorBox();
    void fillFuelBox();

    QCheckBox* m_chaosBox;
    QCheckBox* m_chaosOutputBox;
    QCheckBox* m_powerOffBox;
    QCheckBox* m_lightsBox;
    QCheckBox* m_separateEndBox;
    QComboBox* m_sectorBox;
    QComboBox* m_fuelBox;
};

#endif
