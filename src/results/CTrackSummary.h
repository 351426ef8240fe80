#ifndef TORNIK_RESULTS_CTRACKSUMMARY_H
#define TORNIK_RESULTS_CTRACKSUMMARY_H

#include <QStandardItemModel>
#include <QWidget>

class CRaceMember;
class QGroupBox;
class QLabel;
class QStandardItem;
class QTreeView;
class QVBoxLayout;
struct CLapTime;

/** Driver, car, average and a sortable table of all laps of one track. Shows a copy, holds no race. */
class CTrackSummary : public QWidget
{
    Q_OBJECT

public:
    explicit CTrackSummary(QWidget* parent = nullptr);

    /** Takes effect at the next showMember(). @param sectors 1 to 3; 2 and 3 show sector times */
    void setNumberOfSectors(int sectors) { m_numberOfSectors = sectors; }
    /** @param number the track as the user counts, from 1 */
    void setTrackNumber(int number);
    void setDriver(const QString& name);
    void setCar(const QString& name);
    /** @param time the average as it is to be shown */
    void setAverage(const QString& time);
    void showMember(const CRaceMember& member);

private:
    void buildLabels(QVBoxLayout* layout);
    void fillModel(const CRaceMember& member);
    void fillRow(int row, const CLapTime& lap, bool best);
    void setHeaders();
    void showModel();

    QVBoxLayout* m_layout;
    QGroupBox* m_box;
    QLabel* m_driverLabel = nullptr;
    QLabel* m_carLabel = nullptr;
    QLabel* m_averageLabel = nullptr;
    QTreeView* m_lapView;
    QStandardItemModel m_lapModel{1, 2};
    int m_numberOfSectors = 0;
};

#endif
