#include "shell/CInfoFrame.h"

#include "race/CRaceSettings.h"
#include "shell/CClickableLabel.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>

namespace {

const char* const RedLabel = "QLabel {color: red}";
constexpr int MessageLines = 4;   ///< of the longest result of a race...
constexpr int MessageDigits = 40; ///< ...at this width

void makeBold(QLabel* label)
{
    QFont font = label->font();
    font.setWeight(QFont::Bold);
    label->setFont(font);
}

} // namespace

CInfoFrame::CInfoFrame(QWidget* parent)
    : QWidget(parent),
      m_layout(new QHBoxLayout(this)),
      m_groupBox(new QGroupBox(tr(" Renninformationen "))),
      m_gridLayout(new QGridLayout(m_groupBox))
{
    m_groupBox->setAlignment(Qt::AlignHCenter);
    m_groupBox->setMinimumWidth(300);
    m_layout->addWidget(m_groupBox);
    m_gridLayout->setContentsMargins(5, 5, 5, 5);
    m_gridLayout->setSpacing(0);

    m_racewayName = addRow(0, new QLabel(tr("Rennstrecke: ")), new QLabel);
    m_startCondition = addRow(1, new QLabel(tr("Startbedingung: ")), new QLabel);
    m_endCondition = addRow(2, new QLabel(tr("Endebedingung: ")), new QLabel);
    m_winningCondition = addRow(3, new QLabel(tr("Siegbedingung: ")), new QLabel);
    m_raceTimeCaption = new QLabel(tr("Renndauer: "));
    m_raceTime = addRow(4, m_raceTimeCaption, new QLabel);
    addAdditionalInfoRow();

    m_racewayName->setObjectName(QStringLiteral("racewayName"));
    m_startCondition->setObjectName(QStringLiteral("startCondition"));
    m_endCondition->setObjectName(QStringLiteral("endCondition"));
    m_winningCondition->setObjectName(QStringLiteral("winningCondition"));
    m_raceTime->setObjectName(QStringLiteral("raceTime"));
}

void CInfoFrame::setRaceSettings(CRaceSettings* raceSettings)
{
    m_raceSettings = raceSettings;
    m_startCondition->setText(startText());
    m_endCondition->setText(endText());
    m_winningCondition->setText(winningText());
}

void CInfoFrame::setRacewayName(const QString& name)
{
    m_racewayName->setText(name);
}

void CInfoFrame::setRaceTime(const QString& time)
{
    m_raceTime->setText(time);
}

void CInfoFrame::setAdditionalInfo(const QString& text)
{
    m_additionalInfo->setText(text);
    m_additionalInfo->setMinimumWidth(m_additionalInfo->minimumSizeHint().width()); // the longest word
    m_additionalInfoCaption->setVisible(!text.isEmpty());
}

void CInfoFrame::additionalInfoClicked()
{
    Q_EMIT infoClicked();
}

QLabel* CInfoFrame::addRow(int row, QLabel* caption, QLabel* value)
{
    makeBold(caption);
    // Names come from users and from the network: read as markup, an image in one opens any file.
    value->setTextFormat(Qt::PlainText);
    m_gridLayout->addWidget(caption, row, 0);
    m_gridLayout->addWidget(value, row, 1);
    return value;
}

void CInfoFrame::addAdditionalInfoRow()
{
    m_additionalInfoCaption = new QLabel;
    m_additionalInfoCaption->setObjectName(QStringLiteral("additionalInfoCaption"));
    m_additionalInfoCaption->setStyleSheet(QLatin1String(RedLabel));
    m_additionalInfo = new CClickableLabel;
    m_additionalInfo->setObjectName(QStringLiteral("additionalInfo"));
    m_additionalInfo->setStyleSheet(QLatin1String(RedLabel));
    m_additionalInfo->setWordWrap(true);
    m_additionalInfo->setMinimumHeight(27);
    addRow(5, m_additionalInfoCaption, m_additionalInfo);
    keepRoomForAMessage();
    connect(m_additionalInfo, &CClickableLabel::clicked, this, &CInfoFrame::additionalInfoClicked);
}

/** A message neither widens the box nor makes it higher, so that the clock above it stays where it is. */
void CInfoFrame::keepRoomForAMessage()
{
    const QFontMetrics metrics = m_additionalInfo->fontMetrics();
    m_additionalInfo->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_additionalInfo->setAlignment(Qt::AlignTop);
    m_gridLayout->addItem(new QSpacerItem(MessageDigits * metrics.horizontalAdvance('0'),
                                          MessageLines * metrics.lineSpacing(), QSizePolicy::Preferred,
                                          QSizePolicy::Preferred),
                          5, 1);
}

QString CInfoFrame::startText() const
{
    switch (m_raceSettings->startType()) {
    case CRaceSettings::FlyingStart:
        return tr("fliegender Start");
    case CRaceSettings::TimedStart:
        return tr("Start in %1 Minuten").arg(m_raceSettings->startDelay().toString(QStringLiteral("mm:ss")));
    default:
        return tr("Unbekannt");
    }
}

QString CInfoFrame::endText() const
{
    switch (m_raceSettings->endType()) {
    case CRaceSettings::NoEnd:
        return tr("keine Endebedingung");
    case CRaceSettings::TimeLimit:
        return tr("Zeitlimit %1").arg(m_raceSettings->endTime().toString(QStringLiteral("hh:mm:ss")));
    case CRaceSettings::LapLimit:
        return lapLimitText(m_raceSettings->numberOfLaps());
    default:
        return tr("Unbekannt");
    }
}

QString CInfoFrame::lapLimitText(int laps)
{
    // tr() puts in no number below 0, and a damaged race file or server can give one.
    return tr("Ende nach %n Runden", "", laps).replace(QLatin1String("%n"), QString::number(laps));
}

QString CInfoFrame::winningText() const
{
    switch (m_raceSettings->winningCondition()) {
    case 0:
    case 1:
        return tr("die meisten Runden");
    case 2:
        return tr("die schnellste Runde");
    case 3:
        return tr("die beste Durchschnittszeit");
    case 4:
        return tr("die Zielzeit möglichst genau erreicht");
    case 5:
        return tr("die Durchschnittszeit möglichst nahe an Zielzeit");
    case 6:
        return tr("die konsistentesten Rundenzeiten");
    default:
        return tr("Unbekannt");
    }
}
