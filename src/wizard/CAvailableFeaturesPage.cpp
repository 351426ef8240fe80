#include "wizard/CAvailableFeaturesPage.h"

#include "data/CRaceway.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>

namespace {

void addItem(QComboBox* box, const QString& text, const QString& toolTip)
{
    box->addItem(text);
    box->setItemData(box->count() - 1, toolTip, Qt::ToolTipRole);
}

void choose(QComboBox* box, int index)
{
    box->setCurrentIndex(qBound(0, index, box->count() - 1));
}

} // namespace

CAvailableFeaturesPage::CAvailableFeaturesPage(CRacewayWizard* wizard)
    : CRacewayWizardPage(wizard, {RacewayWizardPath::Page::AvailableFeatures}),
      m_chaosBox(new QCheckBox(tr("Chaostaste vorhanden"), this)),
      m_chaosOutputBox(new QCheckBox(tr("Externes Signal für Chaosphase vorhanden"), this)),
      m_powerOffBox(new QCheckBox(tr("Bahnstromabschaltung vorhanden"), this)),
      m_lightsBox(new QCheckBox(tr("Externe Startampel vorhanden"), this)),
      m_separateEndBox(
          new QCheckBox(tr("Separate Start- und Zielsensoren (z.B. Dragstrip oder Bergrennstrecke)"), this)),
      m_sectorBox(new QComboBox(this)),
      m_fuelBox(new QComboBox(this))
{
    setTitle(tr("<b>Zusatzfunktionen</b>"));
    setExplanation(tr("<p>Bitte auswählen welche Zusatzfunktionen an der Bahn vorhanden sind und angesteuert "
                      "werden sollen.</p>"));
    nameBoxes();
    fillSectorBox();
    fillFuelBox();
    m_chaosOutputBox->setEnabled(false);
    setFocusProxy(m_chaosBox);
    connect(m_chaosBox, &QCheckBox::toggled, this, &CAvailableFeaturesPage::vEnableChaosOutputBox);

    for (QCheckBox* box : {m_chaosBox, m_chaosOutputBox, m_powerOffBox, m_lightsBox, m_separateEndBox})
        rows()->addWidget(box);
    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(tr("Sektorensensoren je Spur:"), this), 0, 0);
    grid->addWidget(m_sectorBox, 0, 1);
    grid->addWidget(new QLabel(tr("Tanksensoren je Spur:"), this), 1, 0);
    grid->addWidget(m_fuelBox, 1, 1);
    grid->setColumnStretch(2, 1);
    rows()->addLayout(grid);
}

void CAvailableFeaturesPage::nameBoxes()
{
    m_chaosBox->setObjectName("chaosBox");
    m_chaosOutputBox->setObjectName("chaosOutputBox");
    m_powerOffBox->setObjectName("powerOffBox");
    m_lightsBox->setObjectName("lightsBox");
    m_separateEndBox->setObjectName("separateEndBox");
    m_sectorBox->setObjectName("sectorBox");
    m_fuelBox->setObjectName("fuelBox");
}

void CAvailableFeaturesPage::fillSectorBox()
{
    addItem(m_sectorBox, tr("Keine"),
            tr("Die ganze Bahn wird als ein Sektor betrachtet der zwischen Start und Ziel liegt."));
    addItem(m_sectorBox, tr("Ein Sektorsensor (zwei Sektoren)"),
            tr("Die Bahn ist in zwei Sektoren unterteilt.<br>Sektor 1: Start -> Sektorsensor<br>"
               "Sektor 2: Sektorsensor -> Ziel"));
    addItem(m_sectorBox, tr("Zwei Sektorsensoren (drei Sektoren)"),
            tr("Die Bahn ist in drei Sektoren unterteilt.<br>Sektor 1: Start -> Sektorsensor 1<br>"
               "Sektor 2: Sektorsensor 1 -> Sektorsensor 2<br>Sektor 3: Sektorsensor 2 -> Ziel"));
}

void CAvailableFeaturesPage::fillFuelBox()
{
    addItem(m_fuelBox, tr("Keine"),
            tr("Die Bahn hat keine separaten Sensoren für die Tankfunktion.<BR> In diesem Fall kann die "
               "Tankfunktion nur mit dem Start/Ziel Sensor genutzt werden."));
    addItem(m_fuelBox, tr("ein Tanksensor"),
            tr("Die Bahn besitzt einen separaten Tanksensor je Spur.<BR> Solange der Sensor aktiv ist wird "
               "getankt. Wird der Sensor inaktiv endet der Tankvorgang."));
    addItem(m_fuelBox, tr("Zone mit Start/Ziel als Beginsensor und Endesensor"),
            tr("Jede Spur hat eine Tankzone nach dem Start/Ziel Sensor.<BR> Der Tankvorgang startet wenn der "
               "Start/Ziel Sensor detektiert wurde und endet, wenn der Endesensor detektiert wurde."));
    addItem(m_fuelBox, tr("Zone mit Beginsensor und Start/Ziel als Endesensor"),
            tr("Jede Spur hat eine Tankzone vor dem Start/Ziel Sensor.<BR> Der Tankvorgang startet wenn der "
               "Beginsensor detektiert wurde und endet, wenn der Start/Ziel Sensor detektiert wurde."));
    addItem(m_fuelBox, tr("Zone mit Begin- und Endesensor"),
            tr("Jede Spur hat eine Tankzone mit separaten Sensoren für den Begin und das Ende der Zone.<BR> "
               "Der Tankvorgang startet wenn der Beginsensor detektiert wurde und endet, wenn der Endesensor "
               "detektiert wurde."));
}

void CAvailableFeaturesPage::vEnableChaosOutputBox(bool isEnabled)
{
    m_chaosOutputBox->setEnabled(isEnabled);
    if (!isEnabled)
        m_chaosOutputBox->setChecked(false); // a signal that nobody could uncheck any more
}

bool CAvailableFeaturesPage::chaosButton() const
{
    return m_chaosBox->isChecked();
}

bool CAvailableFeaturesPage::chaosPhaseOutput() const
{
    return m_chaosOutputBox->isChecked();
}

bool CAvailableFeaturesPage::powerOff() const
{
    return m_powerOffBox->isChecked();
}

bool CAvailableFeaturesPage::lights() const
{
    return m_lightsBox->isChecked();
}

bool CAvailableFeaturesPage::separateEndSensors() const
{
    return m_separateEndBox->isChecked();
}

int CAvailableFeaturesPage::fuelIndex() const
{
    return m_fuelBox->currentIndex();
}

int CAvailableFeaturesPage::sectorIndex() const
{
    return m_sectorBox->currentIndex();
}

void CAvailableFeaturesPage::readFrom(const CRaceway& raceway)
{
    m_chaosBox->setChecked(raceway.chaosButtonAvailable);
    m_chaosOutputBox->setChecked(raceway.chaosPhaseOutputAvailable);
    m_powerOffBox->setChecked(raceway.pwrOffFeatureAvailable);
    m_lightsBox->setChecked(raceway.externalLightsAvailable);
    m_separateEndBox->setChecked(raceway.startAndEndSensorSeparate);
    choose(m_sectorBox, raceway.numberOfSectors - 1);
    choose(m_fuelBox, raceway.fuelSensorSetup);
}

void CAvailableFeaturesPage::writeTo(CRaceway* raceway) const
{
    raceway->chaosButtonAvailable = chaosButton();
    raceway->chaosPhaseOutputAvailable = chaosPhaseOutput();
    raceway->pwrOffFeatureAvailable = powerOff();
    raceway->externalLightsAvailable = lights();
    raceway->startAndEndSensorSeparate = separateEndSensors();
    raceway->numberOfSectors = sectorIndex() + 1;
    raceway->fuelSensorSetup = fuelIndex();
}

void CAvailableFeaturesPage::startAnew()
{
    clear();
    choose(m_sectorBox, 0);
    choose(m_fuelBox, 0);
}

void CAvailableFeaturesPage::clear()
{
    for (QCheckBox* box : {m_chaosBox, m_chaosOutputBox, m_powerOffBox, m_lightsBox, m_separateEndBox})
        box->setChecked(false);
}
