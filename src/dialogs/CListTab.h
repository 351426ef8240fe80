#ifndef TORNIK_DIALOGS_CLISTTAB_H
#define TORNIK_DIALOGS_CLISTTAB_H

#include <QWidget>

class QAbstractItemModel;
class QGridLayout;
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
     * @param nameColumn takes the room that the other columns leave
     */
    CListTab(const char* treeName, const QString& caption, int nameColumn, QWidget* parent = nullptr);

    /** Adds a text under the list. */
    void addNote(const QString& text);
    /** Adds a button under the last one. */
    QPushButton* addButton(const char* name, const QString& text);

    /**
     * Shows a model with a fresh query.
     * @param model not owned
     * @param selectedRow brought into sight; one that there isn't selects none
     */
    void showList(QAbstractItemModel* model, int selectedRow = NoRow);
    /** @return NoRow if none is selected. */
    int selectedRow() const;

Q_SIGNALS:
    void rowDoubleClicked();

private:
    void fitColumns();

    QTreeView* m_tree;
    int m_nameColumn;
    QGridLayout* m_grid;
    QVBoxLayout* m_buttonColumn;
};

#endif
