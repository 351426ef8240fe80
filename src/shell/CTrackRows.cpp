#include "shell/CTrackRows.h"

namespace {

QVector<int> numbers(int from, int to)
{
    QVector<int> panels;
    for (int panel = from; panel < to; ++panel)
        panels.append(panel);
    return panels;
}

} // namespace

CTrackRows::CTrackRows(int tracks) : m_panelCount(tracks >= 2 ? 2 * tracks - 1 : 2) {}

QVector<int> CTrackRows::firstRow() const
{
    return numbers(0, qMin(m_panelCount, breakIndex()));
}

QVector<int> CTrackRows::secondRow() const
{
    return numbers(breakIndex() + 1, m_panelCount);
}

int CTrackRows::hiddenPanel() const
{
    return m_panelCount > breakIndex() ? breakIndex() : -1;
}
