#ifndef TORNIK_DIALOGS_CLISTTAB_H
#define TORNIK_DIALOGS_CLISTTAB_H

#include <QWidget>

class QAbstractItemModel;
class QLabel;
class QPushButton;
class QTreeView;
class QVBoxLayout;

/**
 * A list beside the buttons that work on it. A tab of the settings dialog, which says what they do.
 */
class CListTab : public QWidget
{
    Q_OBJECT

public:
    static constexpr int NoRow = -1;

    /**
     * @param treeName object name of the list
     * @param caption stands over the list
     */
    CListTab(const char* treeName, const QString& caption, QWidget* parent = nullptr);

    /** Adds a text under the list. */
    void addNote(const QString& text);
    /** Adds a button under the last one. */
    QPushButton* addButton(const char* name, const QString& text);

    /** Shows a model with a fresh query; no row is selected. @param model not owned */
    void showList(QAbstractItemModel* model);
    /** @return NoRow if none is selected. */
    int selectedRow() const;
    /** Selects a row and brings it into sight; a row that there isn't selects none. */
    void selectRow(int row);
    /** @return the first row with exactly that text in a column; NoRow if there is none. */
    int rowOfText(int column, const QString& text) const;

Q_SIGNALS:
    void rowDoubleClicked();

private:
    void fitColumns();

    QTreeView* m_tree;
    QVBoxLayout* m_listColumn;
    QVBoxLayout* m_buttonColumn;
};

#endif
