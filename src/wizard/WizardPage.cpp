#include "wizard/WizardPage.h"

WizardPage::WizardPage(QWidget* parent) : QWidget(parent)
{
    hide(); // a child that nobody hides is shown together with its window
}
