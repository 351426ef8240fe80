#include "dialogs/CStorageTab.h"

#include "dialogs/FormParts.h"
#include "shell/CSettings.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using FormParts::button;

CStorageTab::CStorageTab(QWidget* parent)
    : QWidget(parent), m_approach(new QButtonGroup(this)), m_timeFormat(new QButtonGroup(this))
{
    auto* column = new QVBoxLayout(this);
    column->addWidget(createApproach());
    column->addWidget(createTimeFormat());
    column->addStretch();
}

QGroupBox* CStorageTab::createApproach()
{
    auto* box = new QGroupBox(tr("Wählen Sie die standard Aktion beim speichern eines Rennens:"), this);
    auto* ask = button<QRadioButton>("storageApproach0",
                                     tr("beim speichern immer nach Dateiname und Zielordner fragen"), box);
    auto* useFolder =
        button<QRadioButton>("storageApproach1", tr("immer in folgenden Ordner speichern:"), box);
    m_approach->addButton(ask, CSettings::AskForFileName);
    m_approach->addButton(useFolder, CSettings::UseDefaultPath);
    connect(ask, &QRadioButton::toggled, this, &CStorageTab::approachChanged);
    m_folder = new QLineEdit(box);
    m_folder->setObjectName(QStringLiteral("storageDefaultPath"));
    m_browse = button<QPushButton>("storageDefaultPathBrowse", tr("Browse"), box);

    auto* folderRow = FormParts::indented(m_folder);
    folderRow->addWidget(m_browse);
    auto* column = new QVBoxLayout(box);
    column->addWidget(ask);
    column->addWidget(useFolder);
    column->addLayout(folderRow);
    return box;
}

QGroupBox* CStorageTab::createTimeFormat()
{
    auto* box = new QGroupBox(tr("Zeitformat beim speichern"), this);
    auto* colon = button<QRadioButton>("storageCsvTimeFormat0",
                                       tr("Zeiten im Format mm:ss:zzz speichern (z.B. 0:08:531)"), box);
    auto* seconds = button<QRadioButton>("storageCsvTimeFormat1",
                                         tr("Zeiten im Format s,zzz speichern (z.B. 8,531)"), box);
    auto* comma = button<QRadioButton>("storageCsvTimeFormat2",
                                       tr("Zeiten im Format mm:ss,zzz speichern (z.B. 0:08,531)"), box);
    m_timeFormat->addButton(colon, CSettings::MinutesColonMilliseconds);
    m_timeFormat->addButton(seconds, CSettings::SecondsComma);
    m_timeFormat->addButton(comma, CSettings::MinutesComma);
    auto* column = new QVBoxLayout(box);
    for (QRadioButton* format : {colon, seconds, comma})
        column->addWidget(format);
    return box;
}

void CStorageTab::showSettings(const CSettings& settings)
{
    FormParts::check(*m_approach, settings.storageApproach());
    setFolder(settings.storageDefaultPath());
    FormParts::check(*m_timeFormat, settings.storageCsvTimeFormat());
}

void CStorageTab::storeSettings(CSettings& settings) const
{
    settings.setStorageApproach(m_approach->checkedId());
    settings.setStorageDefaultPath(m_folder->text());
    settings.setStorageCsvTimeFormat(m_timeFormat->checkedId());
}

void CStorageTab::setFolder(const QString& path)
{
    m_folder->setText(path);
}

bool CStorageTab::asksForFileName() const
{
    return m_approach->checkedId() == CSettings::AskForFileName;
}

void CStorageTab::enableFolder(bool on)
{
    m_folder->setEnabled(on);
    m_browse->setEnabled(on);
}
