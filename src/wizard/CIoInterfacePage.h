#ifndef TORNIK_WIZARD_CIOINTERFACEPAGE_H
#define TORNIK_WIZARD_CIOINTERFACEPAGE_H

#include "wizard/CRacewayWizardPage.h"

#include <QByteArray>

#include <memory>

class CParallelPortForm;
class CSerialPortForm;
class QComboBox;
class QStackedWidget;

/** Asks for the hardware of the raceway, and makes and holds the interface that the wizard works on. */
class CIoInterfacePage : public CRacewayWizardPage
{
    Q_OBJECT

public:
    explicit CIoInterfacePage(CRacewayWizard* wizard);
    ~CIoInterfacePage() override;

    /** @return where the interface is kept; it is null before the page is left forwards. */
    CRacewayIo** ioInterface() { return &m_ioInterface; }
    WizardPage* nextPage() override;

    /** @return the blob of the interface; that of a parallel port if there was none. */
    QByteArray ioSettings();
    /** Makes the interface of a blob and shows its settings. */
    void readIoSettings(const QByteArray& blob);
    /** Back to the settings of a new raceway, without an interface. */
    void startAnew();
    /** Gives the hardware free. */
    void dropInterface();

protected:
    void showEvent(QShowEvent* event) override;

private Q_SLOTS:
    void vOnIoSelection(int index);

private:
    void createForms();
    void offerRaceControl(bool isOffered);
    void clearForms();
    void listPorts();
    int selectedType() const;
    void select(int interfaceType);
    void setInterface(std::unique_ptr<CRacewayIo> io);
    void provideInterface();
    bool survives(int interfaceType) const;
    std::unique_ptr<CRacewayIo> makeInterface(int interfaceType) const;
    void applyForms();
    void showInForms();

    QComboBox* m_hardwareBox;
    QStackedWidget* m_forms;
    CParallelPortForm* m_parallelPort = nullptr;
    QWidget* m_nothing = nullptr;
    CSerialPortForm* m_controlUnit = nullptr;
    CSerialPortForm* m_at2560 = nullptr;
    CSerialPortForm* m_raceControl = nullptr;
    std::unique_ptr<CRacewayIo> m_owned;
    CRacewayIo* m_ioInterface = nullptr; ///< the same, for those who get its address
};

#endif
