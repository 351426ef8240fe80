#include "results/CFastestLapSorter.h"

#include <QCollator>
#include <QHash>

#include <algorithm>

namespace {

bool isText(const QVariant& value)
{
    return value.type() == QVariant::String && !value.isNull();
}

/** @return each different text with its place among them. */
QHash<QString, qint64> placesOf(const QVector<QVariant>& values)
{
    QHash<QString, qint64> places;
    for (const QVariant& value : values)
        places.insert(value.toString(), 0);
    QStringList texts = places.keys();
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(texts.begin(), texts.end(), collator);
    qint64 place = 0;
    for (int i = 0; i < texts.size(); ++i) {
        if (i > 0 && collator.compare(texts.at(i - 1), texts.at(i)) != 0)
            ++place;
        places[texts.at(i)] = place;
    }
    return places;
}

} // namespace

void CFastestLapSorter::setSourceModel(QAbstractItemModel* model)
{
    if (sourceModel())
        disconnect(sourceModel(), &QAbstractItemModel::modelAboutToBeReset, this, nullptr);
    forgetRanks();
    if (model)
        connect(model, &QAbstractItemModel::modelAboutToBeReset, this, &CFastestLapSorter::forgetRanks);
    QSortFilterProxyModel::setSourceModel(model);
}

void CFastestLapSorter::forgetRanks()
{
    m_ranks.clear();
    m_rankedColumn = -1;
}

bool CFastestLapSorter::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    if (m_rankedColumn != left.column() || m_ranks.size() != sourceModel()->rowCount())
        rank(left.column());
    return m_ranks.at(left.row()) < m_ranks.at(right.row());
}

void CFastestLapSorter::rank(int column) const
{
    const QAbstractItemModel* source = sourceModel();
    QVector<QVariant> values(source->rowCount());
    for (int row = 0; row < values.size(); ++row)
        values[row] = source->index(row, column).data(sortRole());

    m_ranks.resize(values.size());
    if (std::any_of(values.cbegin(), values.cend(), isText)) {
        const QHash<QString, qint64> places = placesOf(values);
        std::transform(values.cbegin(), values.cend(), m_ranks.begin(),
                       [&places](const QVariant& value) { return places.value(value.toString()); });
    } else {
        std::transform(values.cbegin(), values.cend(), m_ranks.begin(),
                       [](const QVariant& value) { return value.toLongLong(); });
    }
    m_rankedColumn = column;
}
