#include "results/CCsvWriter.h"

#include <QFile>
#include <QTextStream>

CCsvWriter::CCsvWriter(QObject* parent) : QObject(parent), m_table{QStringList()} {}

// Required: the table grows one row and one column further than asked, and the blank cells and the
// empty last row reach the file.
void CCsvWriter::setCell(int column, int row, const QString& text)
{
    if (column < 0 || row < 0)
        return;
    if (row >= m_table.size()) {
        while (m_table.size() < row + 2)
            m_table.append(QStringList());
    }
    QStringList& cells = m_table[row];
    if (column >= cells.size()) {
        while (cells.size() < column + 2)
            cells.append(QStringLiteral(" "));
    }
    cells[column] = text;
}

void CCsvWriter::setCell(int column, int row, int value)
{
    setCell(column, row, QString::number(value));
}

void CCsvWriter::setCell(int column, int row, double value)
{
    setCell(column, row, QString::number(value, 'g', 6));
}

void CCsvWriter::setCell(int column, int row, bool value)
{
    setCell(column, row, value ? tr("ja") : tr("nein"));
}

void CCsvWriter::writeToFile(const QString& fileName)
{
    m_fileName = fileName;
    QFile file(m_fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return;
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    for (const QStringList& cells : qAsConst(m_table))
        stream << cells.join(QLatin1Char(';')) << '\n';
    stream.flush();
    file.flush();
}
