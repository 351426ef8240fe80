#include "dialogs/CSoundTab.h"

#include "dialogs/CFlagBox.h"
#include "dialogs/FormParts.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

CSoundTab::CSoundTab(QWidget* parent) : QWidget(parent)
{
    auto* column = new QVBoxLayout(this);
    column->addLayout(createFiles());
    column->addSpacing(FormParts::Indent);
    column->addLayout(createVoice());
    column->addStretch();
}

QGridLayout* CSoundTab::createFiles()
{
    auto* grid = new QGridLayout;
    m_files[NewBestLap] = addFile(grid, 0, tr("Neue Bestzeit:"), QStringLiteral("newBestLapSound"));
    m_files[DriveThrough] = addFile(grid, 1, tr("Drive Through:"), QStringLiteral("driveThroughSound"));
    m_files[RedLight] = addFile(grid, 2, tr("Rotes Ampellicht:"), QStringLiteral("redLightSound"));
    m_files[GreenLight] = addFile(grid, 3, tr("Grünes Ampellicht:"), QStringLiteral("greenLightSound"));
    return grid;
}

CSoundTab::File CSoundTab::addFile(QGridLayout* grid, int row, const QString& caption, const QString& name)
{
    File file;
    file.name = new QLineEdit(this);
    file.name->setObjectName(name);
    file.browse = new QPushButton(tr("Browse"), this);
    file.browse->setObjectName(name + QStringLiteral("Browse"));
    grid->addWidget(FormParts::label(caption, this), row, 0);
    grid->addWidget(file.name, row, 1);
    grid->addWidget(file.browse, row, 2);
    return file;
}

QVBoxLayout* CSoundTab::createVoice()
{
    m_enhanced = new CFlagBox("soundEnhanced", tr("Sprachausgabe nutzen"), &CSettings::soundEnhanced,
                              &CSettings::setSoundEnhanced, this);
    m_laps = new CFlagBox("soundVoiceOutputLaps", tr("Rundenanzahl ansagen"),
                          &CSettings::soundVoiceOutputLaps, &CSettings::setSoundVoiceOutputLaps, this);
    m_lapTime =
        new CFlagBox("soundVoiceOutputLapTime", tr("Rundenzeit ansagen"), &CSettings::soundVoiceOutputLapTime,
                     &CSettings::setSoundVoiceOutputLapTime, this);
    m_bestLapTime = new CFlagBox("soundVoiceOutputBestLapTime", tr("Nur neue Bestzeiten ansagen"),
                                 &CSettings::soundVoiceOutputBestLapTime,
                                 &CSettings::setSoundVoiceOutputBestLapTime, this);
    connect(m_enhanced, &QCheckBox::stateChanged, this, &CSoundTab::enhancedChanged);
    connect(m_lapTime, &QCheckBox::stateChanged, this, &CSoundTab::lapTimeChanged);

    auto* column = new QVBoxLayout;
    column->addWidget(m_enhanced);
    column->addLayout(FormParts::indented(m_laps));
    column->addLayout(FormParts::indented(m_lapTime));
    column->addLayout(FormParts::indented(m_bestLapTime, 2));
    return column;
}

void CSoundTab::showSettings(const CSettings& settings)
{
    setFile(NewBestLap, settings.newBestLapSound());
    setFile(DriveThrough, settings.driveThroughSound());
    setFile(RedLight, settings.redLightSound());
    setFile(GreenLight, settings.greenLightSound());
    for (CFlagBox* flag : {m_enhanced, m_laps, m_lapTime, m_bestLapTime})
        flag->showSettings(settings);
}

void CSoundTab::storeSettings(CSettings& settings) const
{
    settings.setNewBestLapSound(m_files[NewBestLap].name->text());
    settings.setDriveThroughSound(m_files[DriveThrough].name->text());
    settings.setRedLightSound(m_files[RedLight].name->text());
    settings.setGreenLightSound(m_files[GreenLight].name->text());
    for (const CFlagBox* flag : {m_enhanced, m_laps, m_lapTime, m_bestLapTime})
        flag->storeSettings(settings);
}

void CSoundTab::setFile(Sound sound, const QString& name)
{
    m_files[std::size_t(sound)].name->setText(name);
}

int CSoundTab::enhancedState() const
{
    return m_enhanced->checkState();
}

int CSoundTab::lapTimeState() const
{
    return m_lapTime->checkState();
}

bool CSoundTab::isLapTimeEnabled() const
{
    return m_lapTime->isEnabled();
}

void CSoundTab::enableVoice(bool on)
{
    for (CFlagBox* flag : {m_laps, m_lapTime, m_bestLapTime})
        flag->setEnabled(on);
}

void CSoundTab::enableBestLapTime(bool on)
{
    m_bestLapTime->setEnabled(on);
}
