#ifndef TORNIK_TESTS_SUPPORT_MODELTEXTS_H
#define TORNIK_TESTS_SUPPORT_MODELTEXTS_H

#include <QAbstractItemModel>
#include <QStringList>
#include <QVariant>

/** @return the headers of the columns, from the left. */
inline QStringList headersOf(const QAbstractItemModel* model)
{
    QStringList headers;
    for (int column = 0; column < model->columnCount(); ++column)
        headers << model->headerData(column, Qt::Horizontal).toString();
    return headers;
}

/**
 * @param textOf how a cell is read: takes its QModelIndex
 * @return one text a row, the columns joined with "|"
 */
template <typename TextOf>
QStringList rowsOf(const QAbstractItemModel* model, TextOf textOf)
{
    QStringList rows;
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column)
            cells << textOf(model->index(row, column));
        rows << cells.join('|');
    }
    return rows;
}

inline QStringList rowsOf(const QAbstractItemModel* model)
{
    return rowsOf(model, [](const QModelIndex& index) { return index.data().toString(); });
}

#endif
