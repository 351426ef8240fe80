#ifndef TORNIK_RESULTS_CFASTESTLAPSORTER_H
#define TORNIK_RESULTS_CFASTESTLAPSORTER_H

#include <QSortFilterProxyModel>
#include <QVector>

/**
 * Sorts a long list quickly: names as the user's language has them, whatever the case of their
 * letters, all else as numbers. Rows that are equal keep the order of the source.
 *
 * A comparison looks at the place of a row alone; the places of a column are made at the first
 * comparison, from the few different values that the column has. Main thread only.
 */
class CFastestLapSorter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setSourceModel(QAbstractItemModel* model) override;

protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    void rank(int column) const;
    void forgetRanks();

    mutable int m_rankedColumn = -1;
    mutable QVector<qint64> m_ranks; ///< one a source row, of m_rankedColumn
};

#endif
