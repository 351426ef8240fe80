#include "dialogs/CListTab.h"

#include "dialogs/FormParts.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>

namespace {

const QSize SmallestList(440, 320);
constexpr int RowsMeasured = 100; ///< of a long list, to find the width of a column

constexpr int CaptionRow = 0;
constexpr int ListRow = 1;
constexpr int NoteRow = 2;
constexpr int ListColumn = 0;
constexpr int ButtonColumn = 1;

} // namespace

CListTab::CListTab(const char* treeName, const QString& caption, int nameColumn, QWidget* parent)
    : QWidget(parent),
      m_tree(new QTreeView(this)),
      m_nameColumn(nameColumn),
      m_grid(new QGridLayout(this)),
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
    m_tree->header()->setStretchLastSection(false);
    connect(m_tree, &QTreeView::doubleClicked, this, &CListTab::rowDoubleClicked);

    m_buttonColumn->addStretch();
    m_grid->addWidget(FormParts::label(caption, this), CaptionRow, ListColumn);
    m_grid->addWidget(m_tree, ListRow, ListColumn);
    m_grid->addLayout(m_buttonColumn, ListRow, ButtonColumn);
    m_grid->setColumnStretch(ListColumn, 1);
}

void CListTab::addNote(const QString& text)
{
    m_grid->addWidget(FormParts::label(text, this), NoteRow, ListColumn);
}

QPushButton* CListTab::addButton(const char* name, const QString& text)
{
    auto* button = FormParts::button<QPushButton>(name, text, this);
    const int width = qMax(m_grid->columnMinimumWidth(ButtonColumn), FormParts::wholeWidth(button));
    m_grid->setColumnMinimumWidth(ButtonColumn, width);
    m_buttonColumn->insertWidget(m_buttonColumn->count() - 1, button);
    return button;
}

void CListTab::showList(QAbstractItemModel* model, int selectedRow)
{
    m_tree->setModel(model);
    fitColumns();
    const QModelIndex index = model->index(selectedRow, 0);
    m_tree->setCurrentIndex(index);
    if (index.isValid())
        m_tree->scrollTo(index);
}

/** Also after a new query: a view forgets the columns of a model that was reset. */
void CListTab::fitColumns()
{
    QHeaderView* header = m_tree->header();
    for (int column = 0; column < header->count(); ++column)
        header->setSectionResizeMode(column, column == m_nameColumn ? QHeaderView::Stretch
                                                                    : QHeaderView::ResizeToContents);
}

int CListTab::selectedRow() const
{
    const auto* selection = m_tree->selectionModel();
    const QModelIndexList rows = selection ? selection->selectedRows() : QModelIndexList();
    return rows.isEmpty() ? NoRow : rows.first().row();
}
