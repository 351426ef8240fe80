#ifndef TORNIK_RESULTS_CCSVWRITER_H
#define TORNIK_RESULTS_CCSVWRITER_H

#include <QList>
#include <QObject>
#include <QStringList>

/**
 * A table of text cells that is written to a file for a spreadsheet: one line a row, the cells
 * joined with ";", in UTF-8 without a byte order mark.
 *
 * Text is written as it is: nothing is quoted, and a ";" inside a cell isn't escaped. Lives on the
 * stack of whoever exports, in the main thread.
 */
class CCsvWriter : public QObject
{
    Q_OBJECT

public:
    explicit CCsvWriter(QObject* parent = nullptr);

    /**
     * Sets a cell and lets the table grow as needed.
     * @param column from 0; a negative one is ignored
     * @param row from 0; a negative one is ignored
     */
    void setCell(int column, int row, const QString& text);
    /** A text literal would be taken for a bool. */
    void setCell(int column, int row, const char* text) = delete;
    void setCell(int column, int row, int value);
    void setCell(int column, int row, double value);
    void setCell(int column, int row, bool value);

    /** A file that can't be opened is passed over without a message. */
    void writeToFile(const QString& fileName);

private:
    QList<QStringList> m_table;
    QString m_fileName;
};

#endif
