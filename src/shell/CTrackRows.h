#ifndef TORNIK_SHELL_CTRACKROWS_H
#define TORNIK_SHELL_CTRACKROWS_H

#include <QVector>

/**
 * Says which track panels a raceway gets and in which of the two rows of the dashboard each stands.
 *
 * Panels are numbered from 0: an even number is the panel of track number / 2, an odd one the
 * legend behind it. A value.
 */
class CTrackRows
{
public:
    /** @param tracks number of tracks; below 2 there is one track and one legend */
    explicit CTrackRows(int tracks);

    int panelCount() const { return m_panelCount; }
    /** @return the `rows` of a CTrackDisplay. */
    int rows() const { return m_panelCount >= TwoFullRows ? 2 : 1; }
    /** @return panels from left to right. */
    QVector<int> firstRow() const;
    /** @return panels from left to right; empty where one row is enough. */
    QVector<int> secondRow() const;
    /** @return the legend at the break, which stands in no row and stays hidden; -1 for none. */
    int hiddenPanel() const;

    static bool isTrackPanel(int panel) { return panel % 2 == 0; }

private:
    static constexpr int TwoFullRows = 12; ///< panels from which on the first row takes four tracks

    int breakIndex() const { return m_panelCount >= TwoFullRows ? 7 : 5; }

    int m_panelCount;
};

#endif
