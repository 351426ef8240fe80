#ifndef TORNIK_WIZARD_CSENSORPAGE_H
#define TORNIK_WIZARD_CSENSORPAGE_H

#include "wizard/CRacewayWizardPage.h"

#include <QString>

class CPortStatusWidgetBase;

/** What a sensor page says: of a sensor that is a state of a port, and of one that is an input. */
struct SensorTexts
{
    QString title;
    QString portText;
    QString portLabel;
    QString inputText;
    QString inputLabel;

    /** @return the texts of one track. @param number counts from 1 and takes the place of each "%1" */
    SensorTexts ofTrack(int number) const;
};

/**
 * Learns one sensor. Its state is stored in the wizard's interface at once, learned or typed; the
 * number of an input is stored on the way forward.
 */
class CSensorPage : public CRacewayWizardPage
{
    Q_OBJECT

public:
    CSensorPage(CRacewayWizard* wizard, const RacewayWizardPath::Step& step, int portId,
                const SensorTexts& texts);

    void setIoInterface(CRacewayIo** io) override;
    WizardPage* nextPage() override;

protected:
    void showEvent(QShowEvent* event) override;

    /** Called before the port is read. */
    virtual void prepareScan() {}
    /** Called when there is another widget for the state. */
    virtual void stateWidgetMade() {}

    int portId() const { return m_portId; }
    /** @return what shows the state; null before setIoInterface(). */
    CPortStatusWidgetBase* stateWidget() const { return m_stateWidget; }

private Q_SLOTS:
    void vScanPort();

private:
    void makeStateWidget();
    void showTexts();
    void showState();
    void storeState();
    int withOutputsAtRest(int state, int open) const;

    int m_portId;
    SensorTexts m_texts;
    CPortStatusWidgetBase* m_stateWidget = nullptr;
    bool m_showsInputs = false;
};

#endif
