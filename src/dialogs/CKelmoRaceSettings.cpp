#include "dialogs/CKelmoRaceSettings.h"

#include "dialogs/CDataCaptureGroup.h"
#include "dialogs/CEmptyFuelReactionGroup.h"
#include "dialogs/CEndConditionGroup.h"
#include "dialogs/CFuelFunctionGroup.h"
#include "dialogs/CFuelTankGroup.h"
#include "dialogs/CSignalControlGroup.h"
#include "dialogs/CStartConditionGroup.h"
#include "dialogs/CWinningConditionGroup.h"
#include "dialogs/FormParts.h"
#include "race/CRaceSettings.h"
#include "shell/CUserQuestions.h"
#include "shell/DialogStyle.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

constexpr int SpaceBesideButtons = 12;

} // namespace

CKelmoRaceSettings::CKelmoRaceSettings(CRaceSettings* raceSettings, QWidget* parent)
    : QDialog(parent),
      m_raceSettings(raceSettings),
      m_questions(std::make_unique<CUserQuestions>()),
      m_start(new CStartConditionGroup(this)),
      m_end(new CEndConditionGroup(this)),
      m_winner(new CWinningConditionGroup(this)),
      m_signals(new CSignalControlGroup(this)),
      m_fuelFunction(new CFuelFunctionGroup(this)),
      m_tank(new CFuelTankGroup(this)),
      m_reaction(new CEmptyFuelReactionGroup(this)),
      m_dataCapture(new CDataCaptureGroup(this))
{
    setObjectName(QStringLiteral("raceSettingsDialog"));
    setWindowTitle(tr("Renneinstellungen"));
    setStyleSheet(dialogStyleSheet());
    auto* tabs = new QTabWidget(this);
    tabs->setObjectName(QStringLiteral("tabs"));
    tabs->addTab(createStartAndEndTab(), tr("Start/Ende"));
    tabs->addTab(createFuelTab(), tr("Tankfunktion"));
    tabs->addTab(createDataTab(), tr("Datenerfassung"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addLayout(createButtons());
    connectGroups();
    connectFuelGroups();
}

CKelmoRaceSettings::~CKelmoRaceSettings() = default;

void CKelmoRaceSettings::setUserQuestions(std::unique_ptr<CUserQuestions> questions)
{
    m_questions = std::move(questions);
}

int CKelmoRaceSettings::run()
{
    showRules(*m_raceSettings);
    m_saveAsDefaults->setChecked(false); // nobody means the next opening's settings, too
    return exec();
}

QWidget* CKelmoRaceSettings::createStartAndEndTab()
{
    auto* tab = new QWidget;
    auto* grid = new QGridLayout(tab);
    grid->addWidget(m_start, 0, 0);
    grid->addWidget(m_end, 0, 1);
    grid->addWidget(m_winner, 1, 0);
    grid->addWidget(m_signals, 1, 1);
    grid->setRowStretch(2, 1);
    return tab;
}

QWidget* CKelmoRaceSettings::createFuelTab()
{
    auto* tab = new QWidget;
    auto* column = new QVBoxLayout(tab);
    column->addWidget(m_fuelFunction);
    column->addWidget(m_tank);
    column->addWidget(m_reaction);
    column->addStretch();
    return tab;
}

QWidget* CKelmoRaceSettings::createDataTab()
{
    auto* tab = new QWidget;
    auto* column = new QVBoxLayout(tab);
    column->addWidget(m_dataCapture);
    column->addStretch();
    return tab;
}

QHBoxLayout* CKelmoRaceSettings::createButtons()
{
    using FormParts::button;
    auto* ok = button<QPushButton>("okButton", tr("&Ok"), this);
    auto* cancel = button<QPushButton>("cancelButton", tr("&Abbrechen"), this);
    auto* defaults = button<QPushButton>("defaultsButton", tr("&Standard laden"), this);
    // Required: the text is written this way.
    auto* exportButton = button<QPushButton>("exportButton", tr("&Exportiern"), this);
    auto* importButton = button<QPushButton>("importButton", tr("&Importieren"), this);
    m_saveAsDefaults = button<QCheckBox>("saveAsDefaults",
                                         tr("Diese Einstellungen als Standardeinstellungen speichern"), this);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &CKelmoRaceSettings::storeSettings);
    connect(cancel, &QPushButton::clicked, this, &CKelmoRaceSettings::close);
    connect(defaults, &QPushButton::clicked, this, &CKelmoRaceSettings::setDefaultSettings);
    connect(exportButton, &QPushButton::clicked, this, &CKelmoRaceSettings::exportSettings);
    connect(importButton, &QPushButton::clicked, this, &CKelmoRaceSettings::importSettings);

    auto* row = new QHBoxLayout;
    for (QPushButton* pushButton : {ok, cancel, defaults, exportButton, importButton})
        row->addWidget(pushButton);
    row->addSpacing(SpaceBesideButtons);
    row->addWidget(m_saveAsDefaults);
    row->addStretch();
    return row;
}

void CKelmoRaceSettings::connectGroups()
{
    connect(m_start, &CStartConditionGroup::timedStartToggled, this,
            &CKelmoRaceSettings::actOnToggleOfStartCondition);
    connect(m_start, &CStartConditionGroup::minDelayChanged, this,
            &CKelmoRaceSettings::actOnStartLightsMinDelayBox);
    connect(m_start, &CStartConditionGroup::maxDelayChanged, this,
            &CKelmoRaceSettings::actOnStartLightsMaxDelayBox);
    connect(m_end, &CEndConditionGroup::timeLimitToggled, this,
            &CKelmoRaceSettings::actOnToggleOfEndConditionTimelimit);
    connect(m_end, &CEndConditionGroup::lapLimitToggled, this,
            &CKelmoRaceSettings::actOnToggleOfEndConditionLaplimit);
    connect(m_winner, &CWinningConditionGroup::targetTimeNeedToggled, this,
            &CKelmoRaceSettings::actOnToggleOfWinningCondition);
    connect(m_winner, &CWinningConditionGroup::consistentTimesToggled, this,
            &CKelmoRaceSettings::actOnToggleOfWinningConditionConsistentTimes);
}

void CKelmoRaceSettings::connectFuelGroups()
{
    connect(m_fuelFunction, &CFuelFunctionGroup::noFuelToggled, this,
            &CKelmoRaceSettings::actOnToggleNoFuelFunction);
    connect(m_fuelFunction, &CFuelFunctionGroup::carSpecificFuelToggled, this,
            &CKelmoRaceSettings::actOnToggleCarSpecificFuelFunction);
    connect(m_fuelFunction, &CFuelFunctionGroup::commonFuelToggled, this,
            &CKelmoRaceSettings::actOnToggleCommonFuelFunction);
    connect(m_reaction, &CEmptyFuelReactionGroup::penaltyToggled, this,
            &CKelmoRaceSettings::actOnToggleEmptyFuelPenaltyFunction);
    connect(m_reaction, &CEmptyFuelReactionGroup::stutterToggled, this,
            &CKelmoRaceSettings::actOnToggleStutterTrackPowerWhenFuelEmpty);
    connect(m_reaction, &CEmptyFuelReactionGroup::stutterFrequencyChanged, this,
            &CKelmoRaceSettings::actOnStutterFrequencySlider);
}

// Between the settings and the controls

void CKelmoRaceSettings::showRules(const CRaceSettings& rules)
{
    m_start->showRules(rules);
    m_end->showRules(rules);
    m_winner->showRules(rules);
    m_signals->showRules(rules);
    m_fuelFunction->showFuel(rules.fuelSettings());
    m_tank->showFuel(rules.fuelSettings());
    m_reaction->showFuel(rules.fuelSettings());
    m_dataCapture->showRules(rules);
    applyEnableRules();
}

void CKelmoRaceSettings::storeRules(CRaceSettings& rules)
{
    m_start->storeRules(rules);
    m_end->storeRules(rules);
    m_winner->storeRules(rules);
    m_signals->storeRules(rules);
    CFuelSettings fuel = rules.fuelSettings();
    m_fuelFunction->storeFuel(fuel);
    m_tank->storeFuel(fuel);
    m_reaction->storeFuel(fuel);
    rules.setFuelSettings(fuel);
    m_dataCapture->storeRules(rules);
}

void CKelmoRaceSettings::storeSettings()
{
    storeRules(*m_raceSettings);
    if (m_saveAsDefaults->isChecked())
        m_raceSettings->writeDefaults();
    accept();
}

void CKelmoRaceSettings::setDefaultSettings()
{
    CRaceSettings rules;
    rules.readDefaults();
    showRules(rules);
}

void CKelmoRaceSettings::exportSettings()
{
    const QString fileName = m_questions->askSaveFileName(this, tr("Renneinstellungen exportieren ..."),
                                                          QString(), tr("Renneinstellungen (*.rsf)"));
    if (fileName.isEmpty())
        return;
    CRaceSettings rules = *m_raceSettings; // for its drivers and cars
    storeRules(rules);
    rules.writeToFile(fileName);
}

void CKelmoRaceSettings::importSettings()
{
    const QString fileName = m_questions->askOpenFileName(this, tr("Renneinstellungen importieren ..."),
                                                          tr("Renneinstellungen (*.rsf)"));
    if (fileName.isEmpty())
        return;
    CRaceSettings rules;
    rules.readFromFile(fileName);
    showRules(rules);
}

// Which controls can be used

void CKelmoRaceSettings::applyEnableRules()
{
    actOnToggleOfStartCondition(m_start->isTimedStart());
    actOnToggleOfEndConditionTimelimit(m_end->isTimeLimit());
    actOnToggleOfEndConditionLaplimit(m_end->isLapLimit());
    actOnToggleOfWinningCondition(m_winner->needsTargetTime());
    actOnToggleOfWinningConditionConsistentTimes(m_winner->isConsistentTimes());
    actOnToggleNoFuelFunction(false);
    if (m_fuelFunction->function() == CFuelSettings::FuelOfEachCar)
        actOnToggleCarSpecificFuelFunction(true);
    else if (m_fuelFunction->function() == CFuelSettings::FuelSameForAll)
        actOnToggleCommonFuelFunction(true);
}

void CKelmoRaceSettings::actOnToggleOfStartCondition(bool timed)
{
    m_start->enableTimedStart(timed);
}

void CKelmoRaceSettings::actOnToggleOfEndConditionTimelimit(bool on)
{
    m_end->enableTimeLimit(on);
}

void CKelmoRaceSettings::actOnToggleOfEndConditionLaplimit(bool on)
{
    m_end->enableLapLimit(on);
}

void CKelmoRaceSettings::actOnToggleOfWinningCondition(bool /*on*/)
{
    m_winner->enableTargetTime(m_winner->needsTargetTime());
}

void CKelmoRaceSettings::actOnToggleOfWinningConditionConsistentTimes(bool on)
{
    m_winner->enableConsistentTimes(on);
}

/** Only leaving it acts; the function that takes over enables what it needs. */
void CKelmoRaceSettings::actOnToggleNoFuelFunction(bool on)
{
    if (on)
        return;
    m_tank->enableRaceRows(false);
    m_tank->enableTankRows(false);
    enableReactions(false);
}

void CKelmoRaceSettings::actOnToggleCarSpecificFuelFunction(bool on)
{
    m_tank->enableRaceRows(on);
    m_tank->enableTankRows(false);
    enableReactions(on);
}

void CKelmoRaceSettings::actOnToggleCommonFuelFunction(bool on)
{
    m_tank->enableRaceRows(on);
    m_tank->enableTankRows(on);
    enableReactions(on);
}

void CKelmoRaceSettings::enableReactions(bool on)
{
    m_reaction->enableReactions(on, m_raceSettings->raceway().pwrOffFeatureAvailable);
}

void CKelmoRaceSettings::actOnToggleEmptyFuelPenaltyFunction(bool on)
{
    m_reaction->enablePenalty(on);
}

void CKelmoRaceSettings::actOnToggleStutterTrackPowerWhenFuelEmpty(bool checked)
{
    m_reaction->enableStutter(checked);
}

void CKelmoRaceSettings::actOnStutterFrequencySlider(int newFrequency)
{
    m_reaction->showStutterFrequency(newFrequency);
}

void CKelmoRaceSettings::actOnStartLightsMinDelayBox(int delay)
{
    m_start->holdMinDelay(delay);
}

void CKelmoRaceSettings::actOnStartLightsMaxDelayBox(int delay)
{
    m_start->holdMaxDelay(delay);
}
