#include "wizard/CStartPage.h"

#include "io/PortIds.h"
#include "wizard/CStrictIntValidator.h"
#include "wizard/FittingFont.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace {

constexpr int NameLength = 32;
constexpr int NameWidth = 400;
constexpr int TracksWidth = 50;
constexpr int ScaleDigits = 3;
constexpr int ScaleWidth = 30;
constexpr int LargestScale = 100;
constexpr int DefaultTracks = 2;
constexpr int DefaultScale = 24;

} // namespace

CStartPage::CStartPage(CRacewayWizard* wizard)
    : CRacewayWizardPage(wizard, {RacewayWizardPath::Page::Start}),
      m_nameEdit(new QLineEdit(this)),
      m_tracksBox(new QComboBox(this)),
      m_scaleEdit(new QLineEdit(this))
{
    setTitle(tr("<b>Name und Anzahl der Slots</b>"));
    setExplanation(
        tr("<p>Bitte den Namen der Rennstrecke (maximal 32 Zeichen), die Anzahl der Slots (1-8) und den "
           "Maßstab (optional, 0 = kein Maßstab) eingeben.</p>"));
    createFields();
    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(tr("Name der Rennstrecke:"), this), 0, 0);
    grid->addWidget(m_nameEdit, 0, 1);
    grid->addWidget(new QLabel(tr("Anzahl der Slots:"), this), 1, 0);
    grid->addWidget(m_tracksBox, 1, 1);
    grid->addWidget(new QLabel(tr("Maßstab (optional): <b>1/</b>"), this), 2, 0);
    grid->addWidget(m_scaleEdit, 2, 1);
    rows()->addLayout(grid);
    connect(m_nameEdit, &QLineEdit::textChanged, this, &CStartPage::completeStateChanged);
}

void CStartPage::createFields()
{
    m_nameEdit->setObjectName("nameEdit");
    m_nameEdit->setMaxLength(NameLength);
    m_nameEdit->setMaximumWidth(NameWidth);
    m_tracksBox->setObjectName("tracksBox");
    m_tracksBox->setMaximumWidth(TracksWidth);
    for (int tracks = 1; tracks <= PortId::Tracks; ++tracks)
        m_tracksBox->addItem(QString::number(tracks));
    m_scaleEdit->setObjectName("scaleEdit");
    m_scaleEdit->setMaxLength(ScaleDigits);
    m_scaleEdit->setMaximumWidth(ScaleWidth);
    keepTextFitting(m_scaleEdit);
    m_scaleEdit->setValidator(new CStrictIntValidator(0, LargestScale, this));
    setFocusProxy(m_nameEdit);
}

QString CStartPage::name() const
{
    return m_nameEdit->text();
}

void CStartPage::setName(const QString& name)
{
    m_nameEdit->setText(name);
}

int CStartPage::numberOfTracks() const
{
    return m_tracksBox->currentIndex() + 1;
}

void CStartPage::setNumberOfTracks(int tracks)
{
    m_tracksBox->setCurrentIndex(qBound(1, tracks, PortId::Tracks) - 1);
}

int CStartPage::scale() const
{
    return m_scaleEdit->text().toInt();
}

void CStartPage::setScale(int scale)
{
    m_scaleEdit->setText(QString::number(scale));
}

bool CStartPage::isComplete() const
{
    return !name().isEmpty();
}

void CStartPage::clear()
{
    setName(QString());
    setNumberOfTracks(DefaultTracks);
    setScale(DefaultScale);
}
