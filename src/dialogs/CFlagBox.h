#ifndef TORNIK_DIALOGS_CFLAGBOX_H
#define TORNIK_DIALOGS_CFLAGBOX_H

#include "shell/CSettings.h"

#include <QCheckBox>

/** A check box for one flag of the settings. */
class CFlagBox : public QCheckBox
{
    Q_OBJECT

public:
    using Getter = bool (CSettings::*)() const;
    using Setter = void (CSettings::*)(bool);

    CFlagBox(const char* name, const QString& text, Getter getter, Setter setter, QWidget* parent = nullptr);

    void showSettings(const CSettings& settings);
    void storeSettings(CSettings& settings) const;

private:
    Getter m_getter;
    Setter m_setter;
};

#endif
