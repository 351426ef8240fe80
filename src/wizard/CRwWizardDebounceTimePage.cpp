#include "wizard/CRwWizardDebounceTimePage.h"

#include "wizard/CStrictIntValidator.h"
#include "wizard/FittingFont.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace {

constexpr int ShortestTime = 200;
constexpr int LongestTime = 60000;
constexpr int TimeDigits = 5;
constexpr int TimeWidth = 50;

} // namespace

CRwWizardDebounceTimePage::CRwWizardDebounceTimePage(CRacewayWizard* wizard)
    : CRacewayWizardPage(wizard, {RacewayWizardPath::Page::DebounceTime}), m_timeEdit(new QLineEdit(this))
{
    setTitle(tr("<b>Minimale Rundenzeit angeben</b>"));
    setExplanation(
        tr("<p>Bitte geben Sie die minimal mögliche Rundenzeit in ms an. Rundenzeiten die kleiner sind "
           "werden als Fehlmessung interpretiert und verworfen.</p><p>Der Wert sollte deutlich unter der "
           "bisherigen schnellsten Runde mit dem schnellsten Fahrzeug gewählt werden. Sind z.B. bisher "
           "bestenfalls Zeiten knapp über 6s gefahren worden, wären 5000ms ein guter Wert.</p>"));
    m_timeEdit->setObjectName("timeEdit");
    m_timeEdit->setMaxLength(TimeDigits);
    m_timeEdit->setMaximumWidth(TimeWidth);
    keepTextFitting(m_timeEdit);
    m_timeEdit->setValidator(new CStrictIntValidator(ShortestTime, LongestTime, this));
    m_timeEdit->setToolTip(tr("%1 bis %2 ms").arg(ShortestTime).arg(LongestTime));
    setFocusProxy(m_timeEdit);
    connect(m_timeEdit, &QLineEdit::textChanged, this, &CRwWizardDebounceTimePage::completeStateChanged);

    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(tr("Minimale gültige Rundenzeit:"), this));
    row->addWidget(m_timeEdit);
    row->addWidget(new QLabel(tr("ms"), this));
    row->addStretch();
    rows()->addLayout(row);
}

int CRwWizardDebounceTimePage::minTime() const
{
    return m_timeEdit->text().toInt();
}

void CRwWizardDebounceTimePage::setMinTime(int milliseconds)
{
    m_timeEdit->setText(QString::number(milliseconds));
}

bool CRwWizardDebounceTimePage::isComplete() const
{
    return m_timeEdit->hasAcceptableInput();
}

void CRwWizardDebounceTimePage::clear()
{
    setMinTime(ShortestTime);
}
