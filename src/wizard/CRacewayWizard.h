#ifndef TORNIK_WIZARD_CRACEWAYWIZARD_H
#define TORNIK_WIZARD_CRACEWAYWIZARD_H

#include "wizard/ComplexWizard.h"
#include "wizard/RacewayWizardPath.h"

#include <array>

class CAvailableFeaturesPage;
class CChaosButtonPage;
class CChaosPhaseOutputPage;
class CFinishPage;
class CIoInterfacePage;
class COpenPage;
class CPowerOffFeaturePage;
class CRacewayWizardPage;
class CRwWizardDebounceTimePage;
class CRwWizardEndSensorPage;
class CRwWizardFuelFinishedSensorPage;
class CRwWizardFuelSensorPage;
class CRwWizardLightsPage;
class CRwWizardSector2SensorPage;
class CRwWizardSector3SensorPage;
class CRwWizardSlotPage;
class CStartPage;
struct CRaceway;

/**
 * Sets up a raceway, or changes one: its hardware, its features and each of its sensors.
 *
 * Make it where it is needed; it holds hardware only while it is open. It stores nothing: what
 * becomes of the raceway is the matter of the caller.
 */
class CRacewayWizard : public ComplexWizard
{
    Q_OBJECT

public:
    explicit CRacewayWizard(QWidget* parent = nullptr);
    ~CRacewayWizard() override;

    /**
     * Asks modally for a new raceway.
     * @param raceway gets what the user has entered, if he finishes; else it stays as it is
     * @return 1 if he has finished, 0 if he has cancelled or @p raceway is null
     */
    int createRaceway(CRaceway* raceway);
    /** The same for a raceway that begins with its present values. */
    int editRaceway(CRaceway* raceway);

    // For its pages
    /** @return whether a stored raceway is edited, whose values no page resets. */
    bool isEditing() const { return m_editing; }
    int numberOfTracks() const;
    /**
     * @return the pins that the chosen features switch, as bits of a sensor's state; 0 on hardware whose
     * outputs don't show in the states of its sensors
     */
    int outputPins() const;
    /** @return the page behind a step of the way; it has got the interface. */
    CRacewayWizardPage* pageAfter(const RacewayWizardPath::Step& step);

private:
    template <typename Page>
    using PageOfTracks = std::array<Page*, 8>;

    RacewayWizardPath::Answers answers() const;
    CRacewayWizardPage* page(const RacewayWizardPath::Step& step) const;
    void resetPages();
    void loadPages(const CRaceway& raceway);
    void fillRaceway(CRaceway* raceway) const;
    int run(CRaceway* raceway);

    CStartPage* m_startPage;
    COpenPage* m_openPage;
    CChaosButtonPage* m_chaosButtonPage;
    CChaosPhaseOutputPage* m_chaosPhaseOutputPage;
    CPowerOffFeaturePage* m_powerOffFeaturePage;
    CIoInterfacePage* m_ioInterfacePage;
    CAvailableFeaturesPage* m_availableFeaturesPage;
    CRwWizardLightsPage* m_lightsPage;
    CFinishPage* m_finishPage;
    PageOfTracks<CRwWizardSlotPage> m_slotPages;
    PageOfTracks<CRwWizardFuelSensorPage> m_fuelSensorPages;
    PageOfTracks<CRwWizardFuelFinishedSensorPage> m_fuelFinishedSensorPages;
    PageOfTracks<CRwWizardSector2SensorPage> m_sector2SensorPages;
    PageOfTracks<CRwWizardSector3SensorPage> m_sector3SensorPages;
    PageOfTracks<CRwWizardEndSensorPage> m_endSensorPages;
    CRwWizardDebounceTimePage* m_debounceTimePage;
    bool m_editing = false;
};

#endif
