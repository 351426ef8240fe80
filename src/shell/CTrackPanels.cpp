#include "shell/CTrackPanels.h"

#include "shell/CSettings.h"
#include "shell/CTrackDisplay.h"
#include "shell/CTrackRows.h"

#include <QAbstractItemModel>
#include <QHBoxLayout>

namespace {

/** A model on a query reads its rows in portions; a box that is to show a late row needs them all. */
void readAllRows(QAbstractItemModel* model)
{
    while (model->canFetchMore({}))
        model->fetchMore({});
}

} // namespace

CTrackPanels::CTrackPanels(QWidget* window, CSettings* settings)
    : m_window(window),
      m_settings(settings),
      m_outerRow(new QHBoxLayout),
      m_column(new QVBoxLayout),
      m_firstRow(new QHBoxLayout),
      m_secondRow(new QHBoxLayout)
{
    for (QHBoxLayout* row : {m_firstRow, m_secondRow}) {
        // A shorter row stands in the middle, and no panel takes more than its own width.
        row->addStretch(1);
        row->addStretch(1);
        m_column->addLayout(row);
    }
    m_column->addStretch(1); // takes what a longer message needs, so that no figure moves
    m_outerRow->addStretch();
    m_outerRow->addLayout(m_column);
    m_outerRow->addStretch();
}

CTrackPanels::~CTrackPanels() = default;

void CTrackPanels::rebuild(int tracks, int sections, bool clientMode, QAbstractItemModel* drivers,
                           QAbstractItemModel* cars)
{
    removePanels();
    const CTrackRows rows(tracks);
    for (int number = 0; number < rows.panelCount(); ++number)
        createPanel(number, rows.rows(), sections, clientMode);
    applySettings(drivers, cars);
    fillRow(m_firstRow, rows.firstRow());
    fillRow(m_secondRow, rows.secondRow());
}

/** Out of the rows by hand: a layout that is disabled by its window doesn't notice a deleted widget. */
void CTrackPanels::removePanels()
{
    for (const auto& panel : m_panels) {
        m_firstRow->removeWidget(panel.get());
        m_secondRow->removeWidget(panel.get());
    }
    m_panels.clear();
}

void CTrackPanels::createPanel(int number, int rows, int sections, bool clientMode)
{
    const bool isTrack = CTrackRows::isTrackPanel(number);
    auto panel =
        std::make_unique<CTrackDisplay>(isTrack ? CTrackDisplay::TrackPanel : CTrackDisplay::LegendPanel,
                                        m_settings, m_window, rows, sections);
    panel->setObjectName(
        (isTrack ? QStringLiteral("track%1") : QStringLiteral("legend%1")).arg(number / 2 + 1));
    panel->setClientMode(clientMode);
    panel->hide(); // the legend at the break stays so
    connect(panel.get(), &CTrackDisplay::triggerQrReader, this, &CTrackPanels::triggerQrReader);
    m_panels.push_back(std::move(panel));
}

void CTrackPanels::fillRow(QHBoxLayout* row, const QVector<int>& numbers)
{
    for (const int number : numbers) {
        row->insertWidget(row->count() - 1, panel(number));
        panel(number)->reset();
        panel(number)->show();
    }
}

void CTrackPanels::applySettings(QAbstractItemModel* drivers, QAbstractItemModel* cars)
{
    readAllRows(drivers);
    readAllRows(cars);
    for (const auto& panel : m_panels)
        panel->setSettings(m_settings);
    for (int track = 0; trackPanel(track); ++track) {
        trackPanel(track)->setColor(m_settings->trackColor(track));
        trackPanel(track)->setDriverModel(drivers);
        trackPanel(track)->setCarModel(cars);
    }
}

CTrackDisplay* CTrackPanels::panel(int number) const
{
    return number >= 0 && number < panelCount() ? m_panels[std::size_t(number)].get() : nullptr;
}

std::vector<CTrackDisplay*> CTrackPanels::trackPanels() const
{
    std::vector<CTrackDisplay*> panels;
    for (int track = 0; trackPanel(track); ++track)
        panels.push_back(trackPanel(track));
    return panels;
}
