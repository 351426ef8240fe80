#include "shell/CTrackDisplay.h"

#include "race/CRaceEvent.h"
#include "race/CRaceMember.h"
#include "shell/CQrReaderButton.h"
#include "shell/CRichComboBox.h"
#include "shell/CRichLabel.h"
#include "shell/CRichProgressBar.h"
#include "shell/CSettings.h"
#include "shell/CTrackTexts.h"
#include "sound/CSoundOutput.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {

const char* const TrackColor = "#FFC80A";
const char* const CommonColor = "#FF3214";
const char* const LegendColor = "#999999";

constexpr int LongestName = 30; ///< characters that a box makes room for

/** A name of another machine is no entry of the box, so the box must be told how much room it takes. */
void showForeignName(QComboBox* box, const QString& name)
{
    box->setMinimumContentsLength(qMin(name.size(), LongestName));
    box->setCurrentText(name);
}

/** Keeps a widget in the middle that can't fill its place: without an alignment it would stand left. */
class CCentredItem : public QWidgetItem
{
public:
    using QWidgetItem::QWidgetItem;

    void setGeometry(const QRect& place) override
    {
        QRect middle(QPoint(), place.size().boundedTo(maximumSize()));
        middle.moveCenter(place.center());
        QWidgetItem::setGeometry(middle);
    }
};

} // namespace

CTrackDisplay::CTrackDisplay(int type, CSettings* settings, QWidget* parent, int rows, int sections)
    : QWidget(parent),
      m_type(type == TrackPanel ? TrackPanel : LegendPanel),
      m_rows(rows >= 1 && rows <= 3 ? rows : 1),
      m_sections(sections),
      m_soundOutput(std::make_unique<CSoundOutput>()),
      m_settings(settings)
{
    createLabels();
    createControls();
    createLayout();
}

CTrackDisplay::CTrackDisplay(QWidget* parent) : CTrackDisplay(LegendPanel, nullptr, parent, 1, 1) {}

CTrackDisplay::~CTrackDisplay() = default;

void CTrackDisplay::setColor(const QString& name)
{
    if (!isTrackPanel())
        return;
    for (CRichLabel* label :
         {m_lapCount, m_lastLap, m_averageLap, m_section1, m_section2, m_section3, m_speed})
        label->setColor(name);
    m_fuelBar->setColorName(name);
    m_driverBox->setColor(name);
    m_carBox->setColor(name);
    m_driverQrButton->setBackgroundColor(name);
    m_carQrButton->setBackgroundColor(name);
}

void CTrackDisplay::setClientMode(bool clientMode)
{
    m_clientMode = clientMode;
    if (!clientMode)
        return;
    for (CRichComboBox* box : {m_driverBox, m_carBox}) {
        box->setEditable(true);
        box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        box->setEnabled(false);
    }
    m_driverQrButton->setEnabled(false);
    m_carQrButton->setEnabled(false);
}

void CTrackDisplay::setSoundOutput(std::unique_ptr<CSoundOutput> soundOutput)
{
    m_soundOutput = std::move(soundOutput);
}

void CTrackDisplay::setLaps(int laps)
{
    m_lapCount->setText(CTrackTexts::laps(laps));
    scaleLapCount();
}

void CTrackDisplay::setLastLap(const QTime& time)
{
    m_lastLap->setText(CTrackTexts::time(time));
}

void CTrackDisplay::setBestLap(const QTime& time)
{
    m_bestLap->setText(CTrackTexts::time(time));
}

void CTrackDisplay::setStatus(int status)
{
    m_status->setText(CTrackTexts::status(status));
}

void CTrackDisplay::setAverageLap(const QTime& time)
{
    m_averageLap->setText(CTrackTexts::time(time));
}

void CTrackDisplay::setSection1(const QTime& time)
{
    m_section1->setText(CTrackTexts::time(time));
}

void CTrackDisplay::setSection2(const QTime& time)
{
    m_section2->setText(CTrackTexts::time(time));
}

void CTrackDisplay::setSection3(const QTime& time)
{
    m_section3->setText(CTrackTexts::time(time));
}

void CTrackDisplay::setSpeed(double speed)
{
    if (isTrackPanel())
        m_speed->setText(CTrackTexts::speed(speed, m_settings->speedDisplayType()));
}

void CTrackDisplay::setFuel(int percent)
{
    m_fuelBar->setValue(percent);
}

void CTrackDisplay::reset()
{
    if (!isTrackPanel())
        return;
    setLaps(0);
    for (CRichLabel* label : {m_lastLap, m_bestLap, m_averageLap, m_section1, m_section2, m_section3})
        label->setText(QStringLiteral("00:00:000"));
    m_status->setText(CTrackTexts::status(int(CRaceMemberStatus::None)));
    setSpeed(0.0);
    setFuel(100);
}

void CTrackDisplay::voiceOutput(int lapKind)
{
    if (!isTrackPanel() || !m_settings->soundEnhanced())
        return;
    m_soundOutput->stop();
    if (lapKind == CRaceEvent::NormalLap || lapKind == CRaceEvent::BestLap)
        speakLap(lapKind == CRaceEvent::BestLap);
    m_soundOutput->play();
}

void CTrackDisplay::lockBoxes(bool lock)
{
    const bool enabled = !lock && !m_clientMode;
    m_driverBox->setEnabled(enabled);
    m_carBox->setEnabled(enabled);
}

void CTrackDisplay::setDriverModel(QAbstractItemModel* model)
{
    m_driverBox->setModel(model);
}

void CTrackDisplay::setCarModel(QAbstractItemModel* model)
{
    m_carBox->setModel(model);
}

void CTrackDisplay::setDriverIndex(int index)
{
    m_driverBox->setCurrentIndex(index);
}

void CTrackDisplay::setCarIndex(int index)
{
    m_carBox->setCurrentIndex(index);
}

int CTrackDisplay::driverIndex() const
{
    return m_driverBox->currentIndex();
}

int CTrackDisplay::carIndex() const
{
    return m_carBox->currentIndex();
}

QString CTrackDisplay::driverName() const
{
    return m_driverBox->currentText();
}

void CTrackDisplay::setDriverName(const QString& name)
{
    showForeignName(m_driverBox, name);
}

void CTrackDisplay::setCarName(const QString& name)
{
    showForeignName(m_carBox, name);
}

QSize CTrackDisplay::sizeHint() const
{
    return m_mainLayout->sizeHint();
}

QSize CTrackDisplay::minimumSizeHint() const
{
    return m_mainLayout->minimumSize();
}

QVector<CRichLabel*> CTrackDisplay::labels() const
{
    return {m_lapCount, m_lastLap,  m_bestLap, m_status,      m_averageLap, m_section1,
            m_section2, m_section3, m_speed,   m_driverLabel, m_carLabel,   m_fuelLabel};
}

QString CTrackDisplay::inBrackets(const QString& word)
{
    return QLatin1Char('<') + word + QLatin1Char('>');
}

void CTrackDisplay::qrReaderButtonPressed()
{
    Q_EMIT triggerQrReader(this);
}

void CTrackDisplay::createLabels()
{
    const QString sample = QStringLiteral("00:05:734");
    const QString nothing;
    m_lapCount = createLabel("lapCount", TrackColor, QStringLiteral("110"), nothing);
    m_lastLap = createLabel("lastLap", TrackColor, sample, inBrackets(tr("LAST")));
    m_bestLap = createLabel("bestLap", CommonColor, QStringLiteral("00:05:421"), inBrackets(tr("FAST")));
    m_status = createLabel("status", CommonColor, QStringLiteral("---"), nothing);
    m_averageLap = createLabel("averageLap", TrackColor, sample, inBrackets(tr("AVER")));
    m_section1 = createLabel("section1", TrackColor, sample, nothing);
    m_section2 = createLabel("section2", TrackColor, sample, nothing);
    m_section3 = createLabel("section3", TrackColor, sample, nothing);
    m_speed = createLabel("speed", TrackColor, QStringLiteral("123,4 km/h"), inBrackets(tr("SPEED")));
    m_driverLabel =
        createLabel("driverLabel", LegendColor, inBrackets(tr("DRIVER")), inBrackets(tr("DRIVER")));
    m_carLabel = createLabel("carLabel", LegendColor, inBrackets(tr("CAR")), inBrackets(tr("CAR")));
    m_fuelLabel = createLabel("fuelLabel", LegendColor, inBrackets(tr("FUEL")), inBrackets(tr("FUEL")));
}

CRichLabel* CTrackDisplay::createLabel(const char* name, const char* trackColor, const QString& trackText,
                                       const QString& legendText)
{
    auto* label = new CRichLabel(isTrackPanel() ? trackText : legendText,
                                 QColor(QLatin1String(isTrackPanel() ? trackColor : LegendColor)), this);
    label->setObjectName(QLatin1String(name));
    label->hide();
    return label;
}

void CTrackDisplay::createControls()
{
    m_driverBox = new CRichComboBox(this);
    m_driverBox->setObjectName(QStringLiteral("driverBox"));
    m_carBox = new CRichComboBox(this);
    m_carBox->setObjectName(QStringLiteral("carBox"));
    m_driverQrButton = createQrButton("driverQrButton");
    m_carQrButton = createQrButton("carQrButton");
    m_fuelBar = new CRichProgressBar(this);
    m_fuelBar->setObjectName(QStringLiteral("fuelBar"));
    m_fuelBar->setRange(0, 100);
    if (isTrackPanel()) {
        m_driverBox->setColor(QLatin1String(TrackColor));
        m_carBox->setColor(QLatin1String(TrackColor));
        return;
    }
    for (QWidget* control :
         std::initializer_list<QWidget*>{m_driverBox, m_carBox, m_driverQrButton, m_carQrButton, m_fuelBar})
        control->hide();
}

CQrReaderButton* CTrackDisplay::createQrButton(const char* name)
{
    auto* button = new CQrReaderButton(this);
    button->setObjectName(QLatin1String(name));
    button->setBackgroundColor(QLatin1String(TrackColor));
    connect(button, &CQrReaderButton::clicked, this, &CTrackDisplay::qrReaderButtonPressed);
    return button;
}

void CTrackDisplay::createLayout()
{
    m_mainLayout = new QVBoxLayout(this);
    m_mainLayout->setSizeConstraint(QLayout::SetMinimumSize);
    for (CRichLabel* label : {m_lapCount, m_section1, m_section2, m_section3, m_lastLap, m_bestLap, m_status,
                              m_averageLap, m_speed})
        m_mainLayout->addWidget(label, 0, Qt::AlignHCenter);
    m_mainLayout->addItem(new CCentredItem(m_fuelBar));
    for (CRichLabel* label : {m_fuelLabel, m_driverLabel, m_carLabel})
        m_mainLayout->addWidget(label, 0, Qt::AlignHCenter);
    m_driverBoxLayout = addBoxRow(m_driverBox, m_driverQrButton);
    m_carBoxLayout = addBoxRow(m_carBox, m_carQrButton);
    m_mainLayout->addStretch();
}

QHBoxLayout* CTrackDisplay::addBoxRow(CRichComboBox* box, CQrReaderButton* button)
{
    auto* row = new QHBoxLayout;
    row->addWidget(box);
    row->addWidget(button);
    m_mainLayout->addLayout(row);
    m_mainLayout->setAlignment(row, Qt::AlignHCenter);
    return row;
}

void CTrackDisplay::speakLap(bool isBestLap)
{
    const bool speakLaps = m_settings->soundVoiceOutputLaps();
    const bool speakTime =
        m_settings->soundVoiceOutputLapTime() && (isBestLap || !m_settings->soundVoiceOutputBestLapTime());
    if (speakLaps)
        m_soundOutput->enqueueText(m_lapCount->text());
    if (speakTime)
        m_soundOutput->enqueueText((isBestLap ? QStringLiteral("B") : QString()) + m_lastLap->text());
    if (!speakLaps && !speakTime && isBestLap)
        m_soundOutput->playSample2();
    if (!speakLaps && !speakTime && !isBestLap)
        m_soundOutput->playSample1();
}
