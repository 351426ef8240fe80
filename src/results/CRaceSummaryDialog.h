#ifndef TORNIK_RESULTS_CRACESUMMARYDIALOG_H
#define TORNIK_RESULTS_CRACESUMMARYDIALOG_H

#include <QDialog>
#include <QList>

class CRace;
class CTrackSummary;
class QGridLayout;
class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

/**
 * Overview of all tracks after a race. Made once by the start object and kept; each call of
 * updateAndShow() shows copies of the race's members as they are at that moment.
 */
class CRaceSummaryDialog : public QDialog
{
    Q_OBJECT

public:
    explicit CRaceSummaryDialog(QWidget* parent = nullptr);

    /** @param race not owned */
    void setRace(const CRace* race) { m_race = race; }
    /** @return whether the race has at least one member. */
    bool hasRaceData() const;
    /**
     * Refreshes the summaries and runs the dialog modally.
     * @return its result; 0 at once if there is nothing to show
     */
    int updateAndShow();

Q_SIGNALS:
    void storeToCSVTriggered();

private Q_SLOTS:
    void triggerCSVStorage();

private:
    void createSummaries();
    void createButtons();
    void refresh();

    QVBoxLayout* m_layout;
    QGridLayout* m_summaryLayout;
    QHBoxLayout* m_buttonLayout;
    QPushButton* m_closeButton = nullptr;
    QPushButton* m_csvButton = nullptr;
    const CRace* m_race = nullptr;
    QList<CTrackSummary*> m_summaries;
};

#endif
