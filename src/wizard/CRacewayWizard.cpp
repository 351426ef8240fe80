#include "wizard/CRacewayWizard.h"

#include "data/CRaceway.h"
#include "io/CIoWarriorIo.h"
#include "io/CParallelPortIo.h"
#include "io/CRacewayIo.h"
#include "shell/DialogStyle.h"
#include "wizard/CAvailableFeaturesPage.h"
#include "wizard/CChaosButtonPage.h"
#include "wizard/CChaosPhaseOutputPage.h"
#include "wizard/CFinishPage.h"
#include "wizard/CIoInterfacePage.h"
#include "wizard/COpenPage.h"
#include "wizard/CPowerOffFeaturePage.h"
#include "wizard/CRwWizardDebounceTimePage.h"
#include "wizard/CRwWizardEndSensorPage.h"
#include "wizard/CRwWizardFuelFinishedSensorPage.h"
#include "wizard/CRwWizardFuelSensorPage.h"
#include "wizard/CRwWizardLightsPage.h"
#include "wizard/CRwWizardSector2SensorPage.h"
#include "wizard/CRwWizardSector3SensorPage.h"
#include "wizard/CRwWizardSlotPage.h"
#include "wizard/CStartPage.h"

#include <QVector>

namespace {

const QSize InitialSize(640, 420);

/** Narrow fields need their room for the text; Return is for the button with the thick edge. */
const QString OwnStyle =
    QStringLiteral("QLineEdit { padding: 0px; } QPushButton:default { border-width: 2px; }");

template <typename Page>
std::array<Page*, PortId::Tracks> makePages(CRacewayWizard* wizard)
{
    std::array<Page*, PortId::Tracks> pages{};
    for (int track = 0; track < PortId::Tracks; ++track) {
        auto* page = new Page(wizard, track); // a child of the wizard
        page->setObjectName(QStringLiteral("%1 %2").arg(page->metaObject()->className()).arg(track + 1));
        pages[std::size_t(track)] = page;
    }
    return pages;
}

/** @return whether outputs are written to what the sensors are read from. */
bool sharesPins(const CRacewayIo& io)
{
    const auto* parallelPort = qobject_cast<const CParallelPortIo*>(&io);
    return CIoWarriorIo::isIoWarrior(io.interfaceType()) ||
           (parallelPort && parallelPort->inputOffset() == parallelPort->outputOffset());
}

/** @return the port ids of the outputs that the answers speak of. */
QVector<int> outputIds(const RacewayWizardPath::Answers& answers)
{
    QVector<int> ids;
    for (int track = 0; answers.powerOff && track < answers.tracks; ++track)
        ids.append(PortId::trackPower(track));
    for (int lamp = PortId::FirstRedLamp; answers.lights && lamp <= PortId::GreenLamp; ++lamp)
        ids.append(lamp);
    if (answers.chaosButton && answers.chaosPhaseOutput)
        ids.append(PortId::ChaosSignal);
    return ids;
}

} // namespace

CRacewayWizard::CRacewayWizard(QWidget* parent)
    : ComplexWizard(parent, dialogStyleSheet() + OwnStyle),
      m_startPage(new CStartPage(this)),
      m_openPage(new COpenPage(this)),
      m_chaosButtonPage(new CChaosButtonPage(this)),
      m_chaosPhaseOutputPage(new CChaosPhaseOutputPage(this)),
      m_powerOffFeaturePage(new CPowerOffFeaturePage(this)),
      m_ioInterfacePage(new CIoInterfacePage(this)),
      m_availableFeaturesPage(new CAvailableFeaturesPage(this)),
      m_lightsPage(new CRwWizardLightsPage(this)),
      m_finishPage(new CFinishPage(this)),
      m_slotPages(makePages<CRwWizardSlotPage>(this)),
      m_fuelSensorPages(makePages<CRwWizardFuelSensorPage>(this)),
      m_fuelFinishedSensorPages(makePages<CRwWizardFuelFinishedSensorPage>(this)),
      m_sector2SensorPages(makePages<CRwWizardSector2SensorPage>(this)),
      m_sector3SensorPages(makePages<CRwWizardSector3SensorPage>(this)),
      m_endSensorPages(makePages<CRwWizardEndSensorPage>(this)),
      m_debounceTimePage(new CRwWizardDebounceTimePage(this))
{
    setObjectName("racewayWizard");
    for (auto* page : findChildren<WizardPage*>(QString()))
        if (page->objectName().isEmpty())
            page->setObjectName(page->metaObject()->className());
    setWindowTitle(tr("Rennstrecken Wizard"));
    resize(InitialSize);
    setFirstPage(m_startPage);
}

CRacewayWizard::~CRacewayWizard() = default;

int CRacewayWizard::createRaceway(CRaceway* raceway)
{
    if (!raceway)
        return Rejected;
    m_editing = false;
    resetPages();
    return run(raceway);
}

int CRacewayWizard::editRaceway(CRaceway* raceway)
{
    if (!raceway)
        return Rejected;
    loadPages(*raceway);
    m_editing = true;
    m_ioInterfacePage->readIoSettings(raceway->ioSettings);
    return run(raceway);
}

int CRacewayWizard::run(CRaceway* raceway)
{
    setFirstPage(m_startPage);
    const int result = exec();
    if (result == Accepted)
        fillRaceway(raceway);
    m_ioInterfacePage->dropInterface();
    return result;
}

void CRacewayWizard::resetPages()
{
    for (auto* page : findChildren<WizardPage*>())
        page->resetPage();
    m_ioInterfacePage->startAnew();
    m_availableFeaturesPage->startAnew();
}

void CRacewayWizard::loadPages(const CRaceway& raceway)
{
    m_startPage->setName(raceway.name);
    m_startPage->setScale(raceway.scale);
    m_startPage->setNumberOfTracks(raceway.tracks.size());
    m_availableFeaturesPage->readFrom(raceway);
    for (int track = 0; track < PortId::Tracks; ++track) {
        const bool exists = track < raceway.tracks.size();
        m_slotPages[std::size_t(track)]->setLength(exists ? raceway.tracks.at(track).length : 0);
    }
    m_debounceTimePage->setMinTime(raceway.minTime);
}

void CRacewayWizard::fillRaceway(CRaceway* raceway) const
{
    raceway->name = m_startPage->name();
    raceway->scale = m_startPage->scale();
    raceway->ioSettings = m_ioInterfacePage->ioSettings();
    m_availableFeaturesPage->writeTo(raceway);
    raceway->tracks.clear();
    for (int i = 0; i < numberOfTracks(); ++i) {
        CRacewayTrack track;
        track.length = m_slotPages[std::size_t(i)]->length();
        raceway->tracks.append(track);
    }
    raceway->minTime = m_debounceTimePage->minTime();
}

int CRacewayWizard::numberOfTracks() const
{
    return m_startPage->numberOfTracks();
}

int CRacewayWizard::outputPins() const
{
    const CRacewayIo* io = *m_ioInterfacePage->ioInterface();
    if (!io || !sharesPins(*io))
        return 0;
    int pins = 0;
    for (const int id : outputIds(answers()))
        pins |= io->outputMask(id);
    return pins;
}

RacewayWizardPath::Answers CRacewayWizard::answers() const
{
    const CRacewayIo* io = *m_ioInterfacePage->ioInterface();
    RacewayWizardPath::Answers answers;
    answers.hasPortStates = !io || io->interfaceType() != CRacewayIo::LtAt2560;
    answers.chaosButton = m_availableFeaturesPage->chaosButton();
    answers.chaosPhaseOutput = m_availableFeaturesPage->chaosPhaseOutput();
    answers.powerOff = m_availableFeaturesPage->powerOff();
    answers.lights = m_availableFeaturesPage->lights();
    answers.separateEndSensors = m_availableFeaturesPage->separateEndSensors();
    answers.fuelIndex = m_availableFeaturesPage->fuelIndex();
    answers.sectorIndex = m_availableFeaturesPage->sectorIndex();
    answers.tracks = numberOfTracks();
    return answers;
}

CRacewayWizardPage* CRacewayWizard::pageAfter(const RacewayWizardPath::Step& step)
{
    CRacewayWizardPage* next = page(RacewayWizardPath::stepAfter(step, answers()));
    next->setIoInterface(m_ioInterfacePage->ioInterface());
    return next;
}

CRacewayWizardPage* CRacewayWizard::page(const RacewayWizardPath::Step& step) const
{
    using RacewayWizardPath::Page;
    const auto track = std::size_t(step.track);
    switch (step.page) {
    case Page::Start:
        return m_startPage;
    case Page::IoInterface:
        return m_ioInterfacePage;
    case Page::AvailableFeatures:
        return m_availableFeaturesPage;
    case Page::Open:
        return m_openPage;
    case Page::ChaosButton:
        return m_chaosButtonPage;
    case Page::ChaosPhaseOutput:
        return m_chaosPhaseOutputPage;
    case Page::PowerOffFeature:
        return m_powerOffFeaturePage;
    case Page::Lights:
        return m_lightsPage;
    case Page::Slot:
        return m_slotPages.at(track);
    case Page::FuelSensor:
        return m_fuelSensorPages.at(track);
    case Page::FuelFinishedSensor:
        return m_fuelFinishedSensorPages.at(track);
    case Page::Sector2Sensor:
        return m_sector2SensorPages.at(track);
    case Page::Sector3Sensor:
        return m_sector3SensorPages.at(track);
    case Page::EndSensor:
        return m_endSensorPages.at(track);
    case Page::DebounceTime:
        return m_debounceTimePage;
    case Page::Finish:
        break;
    }
    return m_finishPage;
}
