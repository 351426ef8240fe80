#include "wizard/CIoInterfacePage.h"

#include "io/CCarreraCuIo.h"
#include "io/CComPortList.h"
#include "io/CLtAt2560Io.h"
#include "io/CParallelPortIo.h"
#include "io/CRaceControl.h"
#include "io/CRaceControlIo.h"
#include "io/CRacewayIoFactory.h"
#include "wizard/CParallelPortForm.h"
#include "wizard/CSerialPortForm.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QShowEvent>
#include <QStackedWidget>

namespace {

bool hasRaceControlLibrary()
{
    const bool isLoaded = CRaceControl::instance()->isLibraryLoaded();
    CRaceControl::release();
    return isLoaded;
}

} // namespace

CIoInterfacePage::CIoInterfacePage(CRacewayWizard* wizard)
    : CRacewayWizardPage(wizard, {RacewayWizardPath::Page::IoInterface}),
      m_hardwareBox(new QComboBox(this)),
      m_forms(new QStackedWidget(this))
{
    setTitle(tr("<b>Hardware Interface konfigurieren</b>"));
    setExplanation(
        tr("Bitte wählen Sie die Hardware Schnittstelle über welche Ihre Bahn mit dem Computer verbunden ist "
           "und geben Sie ggf. die notwendigen Konfigurationsdaten an."));
    m_hardwareBox->setObjectName("hardwareBox");
    m_hardwareBox->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_hardwareBox->addItem(tr("Parallel Port"), CRacewayIo::ParallelPort);
    m_hardwareBox->addItem(tr("IO-Warrior24"), CRacewayIo::IoWarrior24);
    m_hardwareBox->addItem(tr("IO-Warrior40"), CRacewayIo::IoWarrior40);
    m_hardwareBox->addItem(tr("Carrera CU"), CRacewayIo::CarreraCu);
    m_hardwareBox->addItem(tr("IO-Warrior56"), CRacewayIo::IoWarrior56);
    m_hardwareBox->addItem(tr("IO-Warrior28"), CRacewayIo::IoWarrior28);
    m_hardwareBox->addItem(tr("IO-Warrior100"), CRacewayIo::IoWarrior100);
    m_hardwareBox->addItem(tr("L&T AT2560"), CRacewayIo::LtAt2560);
    setFocusProxy(m_hardwareBox);
    createForms();

    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(tr("Hardware Schnittstelle:"), this));
    row->addWidget(m_hardwareBox);
    row->addStretch();
    rows()->addLayout(row);
    rows()->addWidget(m_forms);
    connect(m_hardwareBox, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &CIoInterfacePage::vOnIoSelection);
}

CIoInterfacePage::~CIoInterfacePage() = default;

void CIoInterfacePage::createForms()
{
    m_parallelPort = new CParallelPortForm(m_forms);
    m_nothing = new QWidget(m_forms);
    m_controlUnit =
        new CSerialPortForm(tr("Zur Verbindung mit einer Carrera Control Unit wird ein<br>Datenkabel "
                               "benötigt, welches die Verbindung mittels<br>serieller Schnittstelle "
                               "herstellt."),
                            {tr("Serielle Schnittstelle")}, QString(), m_forms);
    m_at2560 = new CSerialPortForm(tr("Die Light & Time AT2560 Hardware wird<br>über eine virtuelle serielle "
                                      "Schnittstelle<br>verbunden."),
                                   {tr("Serielle Schnittstelle")}, QString(), m_forms);
    m_raceControl = new CSerialPortForm(
        tr("Es werden bis zu vier RaceControl Geräte unterstützt. <br>Bitte wählen Sie die seriellen "
           "Schnittstellen für Ihre RaceControl <br>Hardware."),
        {tr("RaceControl 1"), tr("RaceControl 2"), tr("RaceControl 3"), tr("RaceControl 4")},
        tr("nicht vorhanden"), m_forms);
    for (QWidget* form :
         {static_cast<QWidget*>(m_parallelPort), m_nothing, static_cast<QWidget*>(m_controlUnit),
          static_cast<QWidget*>(m_at2560), static_cast<QWidget*>(m_raceControl)})
        m_forms->addWidget(form);
}

void CIoInterfacePage::vOnIoSelection(int /*index*/)
{
    switch (selectedType()) {
    case CRacewayIo::ParallelPort:
        m_forms->setCurrentWidget(m_parallelPort);
        break;
    case CRacewayIo::CarreraCu:
        m_forms->setCurrentWidget(m_controlUnit);
        break;
    case CRacewayIo::LtAt2560:
        m_forms->setCurrentWidget(m_at2560);
        break;
    case CRacewayIo::RaceControl:
        m_forms->setCurrentWidget(m_raceControl);
        break;
    default:
        m_forms->setCurrentWidget(m_nothing);
    }
}

void CIoInterfacePage::offerRaceControl(bool isOffered)
{
    const int index = m_hardwareBox->findData(CRacewayIo::RaceControl);
    if (isOffered && index < 0)
        m_hardwareBox->addItem(tr("RaceControl"), CRacewayIo::RaceControl);
    else if (!isOffered && index >= 0)
        m_hardwareBox->removeItem(index);
}

int CIoInterfacePage::selectedType() const
{
    return m_hardwareBox->currentData().toInt();
}

void CIoInterfacePage::select(int interfaceType)
{
    m_hardwareBox->setCurrentIndex(qMax(0, m_hardwareBox->findData(interfaceType)));
}

void CIoInterfacePage::setInterface(std::unique_ptr<CRacewayIo> io)
{
    m_owned = std::move(io);
    m_ioInterface = m_owned.get();
}

void CIoInterfacePage::dropInterface()
{
    setInterface(nullptr);
}

void CIoInterfacePage::startAnew()
{
    dropInterface();
    clearForms();
    offerRaceControl(hasRaceControlLibrary());
    select(CRacewayIo::ParallelPort);
}

void CIoInterfacePage::clearForms()
{
    listPorts();
    m_parallelPort->clear();
    for (CSerialPortForm* form : {m_controlUnit, m_at2560, m_raceControl})
        form->clear();
}

void CIoInterfacePage::listPorts()
{
    CComPortList ports;
    ports.probeComPorts();
    for (CSerialPortForm* form : {m_controlUnit, m_at2560, m_raceControl})
        form->setPorts(ports.names());
}

void CIoInterfacePage::showEvent(QShowEvent* event)
{
    CRacewayWizardPage::showEvent(event);
    if (!event->spontaneous())
        listPorts();
}

WizardPage* CIoInterfacePage::nextPage()
{
    provideInterface();
    return CRacewayWizardPage::nextPage();
}

void CIoInterfacePage::provideInterface()
{
    const int type = selectedType();
    if (!survives(type))
        dropInterface(); // before the new one asks for the same hardware
    if (!m_ioInterface)
        setInterface(makeInterface(type));
    applyForms();
}

bool CIoInterfacePage::survives(int interfaceType) const
{
    if (!m_ioInterface)
        return false;
    const int held = m_ioInterface->interfaceType();
    switch (interfaceType) {
    case CRacewayIo::CarreraCu:
        return false; // always made anew
    case CRacewayIo::IoWarrior28:
    case CRacewayIo::IoWarrior100:
        // Required: these two are compared with the IO-Warrior56. One of those survives the change
        // to them, while they themselves are always made anew.
        return held == CRacewayIo::IoWarrior56;
    default:
        return held == interfaceType;
    }
}

std::unique_ptr<CRacewayIo> CIoInterfacePage::makeInterface(int interfaceType) const
{
    switch (interfaceType) {
    case CRacewayIo::IoWarrior24:
        return CRacewayIoFactory::createIoWarrior24();
    case CRacewayIo::IoWarrior40:
        return CRacewayIoFactory::createIoWarrior40();
    case CRacewayIo::IoWarrior56:
        return CRacewayIoFactory::createIoWarrior56();
    case CRacewayIo::IoWarrior28:
        return CRacewayIoFactory::createIoWarrior28();
    case CRacewayIo::IoWarrior100:
        return CRacewayIoFactory::createIoWarrior100();
    case CRacewayIo::CarreraCu:
        return CRacewayIoFactory::createCarreraCu();
    case CRacewayIo::LtAt2560:
        return CRacewayIoFactory::createLtAt2560();
    case CRacewayIo::RaceControl:
        return CRacewayIoFactory::createRaceControl();
    default:
        return CRacewayIoFactory::createParallelPort(
            m_parallelPort->baseAddress(), m_parallelPort->inputOffset(), m_parallelPort->outputOffset());
    }
}

void CIoInterfacePage::applyForms()
{
    if (auto* parallelPort = qobject_cast<CParallelPortIo*>(m_ioInterface)) {
        parallelPort->setBaseAddress(m_parallelPort->baseAddress());
        parallelPort->setInputOffset(m_parallelPort->inputOffset());
        parallelPort->setOutputOffset(m_parallelPort->outputOffset());
    } else if (auto* controlUnit = qobject_cast<CCarreraCuIo*>(m_ioInterface)) {
        controlUnit->setPortName(m_controlUnit->portName());
    } else if (auto* at2560 = qobject_cast<CLtAt2560Io*>(m_ioInterface)) {
        at2560->setPortName(m_at2560->portName());
    } else if (auto* raceControl = qobject_cast<CRaceControlIo*>(m_ioInterface)) {
        for (int box = 0; box < CRaceControl::MostBoxes; ++box)
            raceControl->setPortName(box, m_raceControl->portName(box));
    }
}

QByteArray CIoInterfacePage::ioSettings()
{
    if (!m_ioInterface)
        setInterface(CRacewayIoFactory::createParallelPort());
    return m_ioInterface->writeSettings();
}

void CIoInterfacePage::readIoSettings(const QByteArray& blob)
{
    dropInterface();
    setInterface(CRacewayIoFactory::createFromSettings(blob));
    const int type = m_ioInterface->interfaceType();
    clearForms();
    // A stored raceway keeps its hardware, even where that can't be used.
    offerRaceControl(type == CRacewayIo::RaceControl || hasRaceControlLibrary());
    select(type);
    showInForms();
}

void CIoInterfacePage::showInForms()
{
    if (auto* parallelPort = qobject_cast<CParallelPortIo*>(m_ioInterface)) {
        m_parallelPort->setBaseAddress(parallelPort->baseAddress());
        m_parallelPort->setInputOffset(parallelPort->inputOffset());
        m_parallelPort->setOutputOffset(parallelPort->outputOffset());
    } else if (auto* controlUnit = qobject_cast<CCarreraCuIo*>(m_ioInterface)) {
        m_controlUnit->setPortName(controlUnit->portName());
    } else if (auto* at2560 = qobject_cast<CLtAt2560Io*>(m_ioInterface)) {
        m_at2560->setPortName(at2560->portName());
    } else if (auto* raceControl = qobject_cast<CRaceControlIo*>(m_ioInterface)) {
        for (int box = 0; box < CRaceControl::MostBoxes; ++box)
            m_raceControl->setPortName(raceControl->portName(box), box);
    }
}
