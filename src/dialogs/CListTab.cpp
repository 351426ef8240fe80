#include "dialogs/CListTab.h"

#include "dialogs/FormParts.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>

namespace {

const QSize SmallestList(440, 320);
constexpr int WidestColumn = 280; ///< so that a long name doesn't push the other columns out of sight
constexpr int RowsMeasured = 100; ///< of a long list, to find the width of a column
constexpr int SpaceInColumn = 12;

} // namespace

CListTab::CListTab(const char* treeName, const QString& caption, QWidget* parent)
    : QWidget(parent),
      m_tree(new QTreeView(this)),
      m_listColumn(new QVBoxLayout),
      m_buttonColumn(new QVBoxLayout)
{
    m_tree->setObjectName(QLatin1String(treeName));
    m_tree->setMinimumSize(SmallestList);
    m_tree->setSelectionMode(QAbstractItemView::SingleSelection);
    m_tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_tree->setRootIsDecorated(false);
    m_tree->setItemsExpandable(false);
    m_tree->setAllColumnsShowFocus(true);
    m_tree->setUniformRowHeights(true); // else a long list measures each of its rows
    m_tree->header()->setResizeContentsPrecision(RowsMeasured);
    connect(m_tree, &QTreeView::doubleClicked, this, &CListTab::rowDoubleClicked);

    m_listColumn->addWidget(FormParts::label(caption, this));
    m_listColumn->addWidget(m_tree);
    m_buttonColumn->addSpacing(fontMetrics().height() + SpaceInColumn);
    m_buttonColumn->addStretch();
    auto* row = new QHBoxLayout(this);
    row->addLayout(m_listColumn, 1);
    row->addLayout(m_buttonColumn);
}

void CListTab::addNote(const QString& text)
{
    m_listColumn->addWidget(FormParts::label(text, this));
}

QPushButton* CListTab::addButton(const char* name, const QString& text)
{
    auto* button = FormParts::button<QPushButton>(name, text, this);
    m_buttonColumn->insertWidget(m_buttonColumn->count() - 1, button);
    return button;
}

void CListTab::showList(QAbstractItemModel* model)
{
    m_tree->setModel(model);
    m_tree->setCurrentIndex({});
    fitColumns();
}

void CListTab::fitColumns()
{
    for (int column = 0; column < m_tree->model()->columnCount(); ++column) {
        m_tree->resizeColumnToContents(column);
        const int width = m_tree->columnWidth(column) + SpaceInColumn;
        m_tree->setColumnWidth(column, qMin(width, WidestColumn));
    }
}

int CListTab::selectedRow() const
{
    const auto* selection = m_tree->selectionModel();
    const QModelIndexList rows = selection ? selection->selectedRows() : QModelIndexList();
    return rows.isEmpty() ? NoRow : rows.first().row();
}

void CListTab::selectRow(int row)
{
    const QModelIndex index = m_tree->model()->index(row, 0);
    m_tree->setCurrentIndex(index);
    if (index.isValid())
        m_tree->scrollTo(index);
}

int CListTab::rowOfText(int column, const QString& text) const
{
    const QAbstractItemModel* model = m_tree->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        if (model->index(row, column).data().toString() == text)
            return row;
    }
    return NoRow;
}
