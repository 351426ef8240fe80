#ifndef TORNIK_SHELL_CTRACKPANELS_H
#define TORNIK_SHELL_CTRACKPANELS_H

#include <QObject>

#include <memory>
#include <vector>

class CSettings;
class CTrackDisplay;
class QAbstractItemModel;
class QBoxLayout;
class QHBoxLayout;
class QVBoxLayout;
class QWidget;

/**
 * The panels of the dashboard in their one or two rows: panel 2k is that of track k, the odd ones
 * are legends. Owned by the main dialog, which owns the layout() as well.
 */
class CTrackPanels : public QObject
{
    Q_OBJECT

public:
    /** @param window parent of the panels; @p settings not owned */
    CTrackPanels(QWidget* window, CSettings* settings);
    ~CTrackPanels() override;

    /** @return the rows, centred; for the window to take into its own layout. */
    QHBoxLayout* layout() const { return m_outerRow; }

    /**
     * Replaces all panels by new ones.
     * @param drivers, cars entries of the boxes; not owned
     */
    void rebuild(int tracks, int sections, bool clientMode, QAbstractItemModel* drivers,
                 QAbstractItemModel* cars);
    /** Gives every panel what the settings say, its colour and the entries of its boxes. */
    void applySettings(QAbstractItemModel* drivers, QAbstractItemModel* cars);

    int panelCount() const { return int(m_panels.size()); }
    /** @return the panel, legends counted; null for a number outside the list. */
    CTrackDisplay* panel(int number) const;
    /** @param track track number from 0. @return its panel, or null */
    CTrackDisplay* trackPanel(int track) const
    {
        return track >= 0 && track < panelCount() ? panel(2 * track) : nullptr;
    }
    /** @return the panels of the tracks, in order. */
    std::vector<CTrackDisplay*> trackPanels() const;

Q_SIGNALS:
    /** A code button of the panel was pressed. */
    void triggerQrReader(CTrackDisplay* panel);

private:
    void removePanels();
    void createPanel(int number, int rows, int sections, bool clientMode);
    void fillRow(QHBoxLayout* row, const QVector<int>& numbers);

    QWidget* m_window;
    CSettings* m_settings;
    QHBoxLayout* m_outerRow;
    QVBoxLayout* m_column;
    QHBoxLayout* m_firstRow;
    QHBoxLayout* m_secondRow;
    std::vector<std::unique_ptr<CTrackDisplay>> m_panels;
};

#endif
