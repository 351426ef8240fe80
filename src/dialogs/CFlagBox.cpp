#include "dialogs/CFlagBox.h"

CFlagBox::CFlagBox(const char* name, const QString& text, Getter getter, Setter setter, QWidget* parent)
    : QCheckBox(text, parent), m_getter(getter), m_setter(setter)
{
    setObjectName(QLatin1String(name));
}

void CFlagBox::showSettings(const CSettings& settings)
{
    setChecked((settings.*m_getter)());
}

void CFlagBox::storeSettings(CSettings& settings) const
{
    (settings.*m_setter)(checkState() != Qt::Unchecked);
}
