#include "wizard/CSerialPortBox.h"

namespace {

constexpr int CharactersOfAPath = 18;

} // namespace

CSerialPortBox::CSerialPortBox(const QString& noneText, QWidget* parent)
    : QComboBox(parent), m_noneText(noneText)
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr); // "ttyS1" must not become "ttyS10"
    setMinimumContentsLength(CharactersOfAPath);
    if (!m_noneText.isEmpty())
        addItem(m_noneText);
}

QString CSerialPortBox::portName() const
{
    const QString text = currentText().trimmed();
    return text == m_noneText ? QString() : text;
}

void CSerialPortBox::setPortName(const QString& name)
{
    const int index = name.isEmpty() ? 0 : findText(name, Qt::MatchExactly | Qt::MatchCaseSensitive);
    setCurrentIndex(index < count() ? index : -1);
    if (index < 0)
        setEditText(name);
}

void CSerialPortBox::setPorts(const QStringList& names)
{
    const bool wasFilled = count() > 0 || !currentText().isEmpty();
    const QString chosen = portName();
    clear();
    if (!m_noneText.isEmpty())
        addItem(m_noneText);
    addItems(names);
    if (wasFilled)
        setPortName(chosen);
}
