#include "results/CRaceSummaryDialog.h"

#include "race/CRace.h"
#include "results/CTrackSummary.h"

#include <QGridLayout>
#include <QPushButton>

namespace {

constexpr int Summaries = 8;
constexpr int Columns = Summaries / 2;

} // namespace

CRaceSummaryDialog::CRaceSummaryDialog(QWidget* parent)
    : QDialog(parent),
      m_layout(new QVBoxLayout(this)),
      m_summaryLayout(new QGridLayout),
      m_buttonLayout(new QHBoxLayout)
{
    setObjectName("summaryDialog");
    setWindowTitle(tr("Ergebnisübersicht"));
    createSummaries();
    createButtons();
    m_layout->addLayout(m_summaryLayout);
    m_layout->addLayout(m_buttonLayout);
}

void CRaceSummaryDialog::createSummaries()
{
    for (int i = 0; i < Summaries; ++i) {
        auto* summary = new CTrackSummary(this);
        summary->setObjectName(QStringLiteral("summary%1").arg(i + 1));
        summary->hide();
        m_summaryLayout->addWidget(summary, i / Columns, i % Columns);
        m_summaries.append(summary);
    }
    m_summaryLayout->setColumnStretch((Summaries - 1) % Columns, 1);
    m_summaryLayout->setRowStretch((Summaries - 1) / Columns, 1);
}

void CRaceSummaryDialog::createButtons()
{
    m_csvButton = new QPushButton(tr("Als &CSV-Datei speichern"), this);
    m_csvButton->setObjectName("csvButton");
    m_csvButton->setAutoDefault(false);
    m_closeButton = new QPushButton(tr("&Schliessen"), this);
    m_closeButton->setObjectName("closeButton");
    m_buttonLayout->addWidget(m_csvButton);
    m_buttonLayout->addStretch(2);
    m_buttonLayout->addWidget(m_closeButton);
    connect(m_csvButton, &QPushButton::clicked, this, &CRaceSummaryDialog::triggerCSVStorage);
    connect(m_closeButton, &QPushButton::clicked, this, &CRaceSummaryDialog::close);
}

bool CRaceSummaryDialog::hasRaceData() const
{
    return m_race && m_race->numberOfMembers() > 0;
}

int CRaceSummaryDialog::updateAndShow()
{
    if (!hasRaceData())
        return 0;
    refresh();
    m_layout->activate();
    adjustSize(); // the number of tracks may have changed
    return exec();
}

void CRaceSummaryDialog::refresh()
{
    const int sectors = m_race->raceSettingsCopy().raceway().numberOfSectors;
    for (int i = 0; i < m_summaries.size(); ++i) {
        CTrackSummary* summary = m_summaries[i];
        const bool used = i < m_race->numberOfMembers();
        if (used) {
            summary->setNumberOfSectors(sectors);
            summary->setTrackNumber(i + 1);
            summary->showMember(m_race->raceMember(i));
        }
        summary->setVisible(used);
    }
}

void CRaceSummaryDialog::triggerCSVStorage()
{
    Q_EMIT storeToCSVTriggered();
}
