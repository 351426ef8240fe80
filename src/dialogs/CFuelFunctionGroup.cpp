#include "dialogs/CFuelFunctionGroup.h"

#include "dialogs/FormParts.h"
#include "race/CFuelSettings.h"

#include <QButtonGroup>
#include <QRadioButton>
#include <QVBoxLayout>

CFuelFunctionGroup::CFuelFunctionGroup(QWidget* parent)
    : QGroupBox(tr("Tankfunktion"), parent), m_functions(new QButtonGroup(this))
{
    auto* none = FormParts::button<QRadioButton>(
        "fuelFunction0", tr("Keine Tankfunktion oder Tankfunktion durch Control Unit gesteuert"), this);
    auto* ofEachCar = FormParts::button<QRadioButton>(
        "fuelFunction1", tr("Fahrzeugspezifische Tankeinstellungen verwenden"), this);
    auto* common =
        FormParts::button<QRadioButton>("fuelFunction2", tr("Tankeinstellungen für alle gleich"), this);
    m_functions->addButton(none, CFuelSettings::NoFuel);
    m_functions->addButton(ofEachCar, CFuelSettings::FuelOfEachCar);
    m_functions->addButton(common, CFuelSettings::FuelSameForAll);
    connect(none, &QRadioButton::toggled, this, &CFuelFunctionGroup::noFuelToggled);
    connect(ofEachCar, &QRadioButton::toggled, this, &CFuelFunctionGroup::carSpecificFuelToggled);
    connect(common, &QRadioButton::toggled, this, &CFuelFunctionGroup::commonFuelToggled);

    auto* column = new QVBoxLayout(this);
    column->addWidget(none);
    column->addWidget(ofEachCar);
    column->addWidget(common);
}

void CFuelFunctionGroup::showFuel(const CFuelSettings& fuel)
{
    FormParts::check(*m_functions, fuel.fuelFunction());
}

void CFuelFunctionGroup::storeFuel(CFuelSettings& fuel) const
{
    fuel.setFuelFunction(function());
}

int CFuelFunctionGroup::function() const
{
    return m_functions->checkedId();
}
