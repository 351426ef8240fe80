#include "dialogs/CDisplayTab.h"

#include "dialogs/FormParts.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace {

constexpr int SpaceBetweenColumns = 40;

void showColor(QLabel* sample, const QString& name)
{
    sample->setStyleSheet(QStringLiteral("font-weight: bold; background: #000000; color: ") + name);
}

} // namespace

CDisplayTab::CDisplayTab(QWidget* parent) : QWidget(parent), m_units(new QButtonGroup(this))
{
    auto* flags = createFlags();
    auto* right = new QVBoxLayout;
    right->addLayout(createSize());
    right->addSpacing(FormParts::Indent);
    right->addLayout(createColors());
    right->addStretch();
    auto* columns = new QHBoxLayout(this);
    columns->addLayout(flags);
    columns->addSpacing(SpaceBetweenColumns);
    columns->addLayout(right);
    columns->addStretch();
}

CFlagBox* CDisplayTab::addFlag(const char* name, const QString& text, CFlagBox::Getter getter,
                               CFlagBox::Setter setter)
{
    m_flags.append(new CFlagBox(name, text, getter, setter, this));
    return m_flags.last();
}

QVBoxLayout* CDisplayTab::createFlags()
{
    addFlag("displayShowLaps", tr("Rundenanzahl anzeigen"), &CSettings::displayShowLaps,
            &CSettings::setDisplayShowLaps);
    addFlag("displayShowLapTime", tr("Rundenzeit anzeigen"), &CSettings::displayShowLapTime,
            &CSettings::setDisplayShowLapTime);
    addFlag("displayShowBestLapTime", tr("Beste Rundenzeit anzeigen"), &CSettings::displayShowBestLapTime,
            &CSettings::setDisplayShowBestLapTime);
    addFlag("displayShowStatus", tr("Rennstatus"), &CSettings::displayShowStatus,
            &CSettings::setDisplayShowStatus);
    addFlag("displayShowAverageLapTime", tr("Durchschnittliche Rundenzeit anzeigen"),
            &CSettings::displayShowAverageLapTime, &CSettings::setDisplayShowAverageLapTime);
    auto* column = new QVBoxLayout;
    for (CFlagBox* flag : qAsConst(m_flags))
        column->addWidget(flag);
    addSectionFlags(column);
    addSpeedFlags(column);
    column->addWidget(addFlag("displayFuel", tr("Tankanzeige anzeigen"), &CSettings::displayFuel,
                              &CSettings::setDisplayFuel));
    column->addStretch();
    return column;
}

void CDisplayTab::addSectionFlags(QVBoxLayout* column)
{
    m_sectorTimes = addFlag("displayShowSectorTimes", tr("Sektorenzeiten anzeigen"),
                            &CSettings::displayShowSectorTimes, &CSettings::setDisplayShowSectorTimes);
    m_intermediateTimes =
        addFlag("displayShowIntermediateTimes", tr("Zwischenzeiten anstelle von Sektorenzeiten anzeigen"),
                &CSettings::displayShowIntermediateTimes, &CSettings::setDisplayShowIntermediateTimes);
    column->addWidget(m_sectorTimes);
    column->addLayout(FormParts::indented(m_intermediateTimes));
    connect(m_sectorTimes, &QCheckBox::stateChanged, this, &CDisplayTab::sectorTimesChanged);
}

void CDisplayTab::addSpeedFlags(QVBoxLayout* column)
{
    m_speed = addFlag("displaySpeed", tr("Geschwindigkeit anzeigen"), &CSettings::displaySpeed,
                      &CSettings::setDisplaySpeed);
    column->addWidget(m_speed);
    const std::pair<CSettings::SpeedDisplayType, QString> units[] = {
        {CSettings::KilometresPerHour, tr("in km/h")},
        {CSettings::MetresPerSecond, tr("in m/s")},
        {CSettings::MilesPerHour, tr("in mph")}};
    for (const auto& [type, text] : units) {
        auto* unit = FormParts::button<QRadioButton>("", text, this);
        unit->setObjectName(QStringLiteral("speedDisplayType%1").arg(type));
        m_units->addButton(unit, type);
        column->addLayout(FormParts::indented(unit));
    }
    connect(m_speed, &QCheckBox::stateChanged, this, &CDisplayTab::speedChanged);
}

QHBoxLayout* CDisplayTab::createSize()
{
    m_size = new QComboBox(this);
    m_size->setObjectName(QStringLiteral("displaySize"));
    m_size->addItems({tr("sehr groß"), tr("groß"), tr("medium"), tr("klein")});
    auto* row = new QHBoxLayout;
    row->addWidget(FormParts::label(tr("Anzeigegröße:"), this));
    row->addWidget(m_size);
    row->addStretch();
    return row;
}

QGridLayout* CDisplayTab::createColors()
{
    auto* grid = new QGridLayout;
    int row = 0;
    for (ColorChoice& choice : m_trackColors) {
        ++row;
        choice = addColor(grid, row, QStringLiteral("colorSlot%1").arg(row), tr("Farbe Slot %1").arg(row));
    }
    m_commonColor = addColor(grid, row + 1, QStringLiteral("colorBestLapAndStatus"),
                             tr("Farbe Bestzeit, Status, Tankreserve"));
    return grid;
}

CDisplayTab::ColorChoice CDisplayTab::addColor(QGridLayout* grid, int row, const QString& name,
                                               const QString& text)
{
    ColorChoice choice;
    choice.button = new QPushButton(text, this);
    choice.button->setObjectName(name);
    choice.sample = FormParts::label(QStringLiteral("00:08:531"), this);
    choice.sample->setObjectName(name + QStringLiteral("Sample"));
    grid->setColumnMinimumWidth(0, qMax(grid->columnMinimumWidth(0), FormParts::wholeWidth(choice.button)));
    grid->addWidget(choice.button, row, 0);
    grid->addWidget(choice.sample, row, 1);
    return choice;
}

void CDisplayTab::showSettings(const CSettings& settings)
{
    for (CFlagBox* flag : qAsConst(m_flags))
        flag->showSettings(settings);
    FormParts::check(*m_units, settings.speedDisplayType());
    const int size = settings.displaySize();
    m_size->setCurrentIndex(size >= 1 && size <= m_size->count() ? size - 1 : 0);
    for (int track = 0; track < CSettings::Tracks; ++track)
        showTrackColor(track, settings.trackColor(track));
    showCommonColor(settings.colorBestLapAndStatus());
}

void CDisplayTab::storeSettings(CSettings& settings) const
{
    for (const CFlagBox* flag : m_flags)
        flag->storeSettings(settings);
    settings.setSpeedDisplayType(m_units->checkedId());
    settings.setDisplaySize(m_size->currentIndex() + 1);
}

int CDisplayTab::sectorTimesState() const
{
    return m_sectorTimes->checkState();
}

int CDisplayTab::speedState() const
{
    return m_speed->checkState();
}

void CDisplayTab::enableIntermediateTimes(bool on)
{
    m_intermediateTimes->setEnabled(on);
}

void CDisplayTab::enableUnits(bool on)
{
    for (QAbstractButton* unit : m_units->buttons())
        unit->setEnabled(on);
    FormParts::fixTabFocus(*m_units);
}

void CDisplayTab::showTrackColor(int track, const QString& name)
{
    showColor(m_trackColors[std::size_t(track)].sample, name);
}

void CDisplayTab::showCommonColor(const QString& name)
{
    showColor(m_commonColor.sample, name);
}
