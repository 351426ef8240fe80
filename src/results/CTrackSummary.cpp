#include "results/CTrackSummary.h"

#include "race/CRaceMember.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

constexpr int BoxWidth = 240;
constexpr int Margin = 5;

QString lapTimeText(int milliseconds)
{
    return QTime(0, 0).addMSecs(milliseconds).toString("mm:ss:zzz");
}

/** The last tag opens a second time instead of closing; it is required so. */
QString captionAndValue(const QString& caption, const QString& value)
{
    return caption + "<b style=\"color: #FF9933\">" + value.toHtmlEscaped() + "<b>";
}

QLabel* createLabel(const QString& text, const char* name)
{
    auto* label = new QLabel(text);
    label->setObjectName(name);
    label->setMargin(Margin);
    return label;
}

} // namespace

CTrackSummary::CTrackSummary(QWidget* parent)
    : QWidget(parent),
      m_layout(new QVBoxLayout(this)),
      m_box(new QGroupBox(tr(" Spur "))),
      m_lapView(new QTreeView)
{
    m_box->setObjectName("box");
    m_box->setAlignment(Qt::AlignHCenter);
    m_box->setMinimumWidth(BoxWidth);
    auto* boxLayout = new QVBoxLayout(m_box);
    boxLayout->setContentsMargins(Margin, Margin, Margin, Margin);
    boxLayout->setSpacing(0);
    buildLabels(boxLayout);
    m_lapView->setObjectName("lapView");
    m_lapView->setRootIsDecorated(false);
    m_lapView->setUniformRowHeights(true);
    boxLayout->addWidget(m_lapView);
    m_layout->addWidget(m_box);
}

void CTrackSummary::buildLabels(QVBoxLayout* layout)
{
    m_driverLabel = createLabel(tr("Fahrer: "), "driverLabel");
    m_carLabel = createLabel(tr("Fahrzeug: "), "carLabel");
    m_averageLabel = createLabel(tr("Durchschnittszeit: "), "averageLabel");
    for (QLabel* label : {m_driverLabel, m_carLabel, m_averageLabel})
        layout->addWidget(label);
}

void CTrackSummary::setTrackNumber(int number)
{
    m_box->setTitle(tr("Spur ") + QString::number(number));
}

void CTrackSummary::setDriver(const QString& name)
{
    m_driverLabel->setText(captionAndValue(tr("Fahrer: "), name));
}

void CTrackSummary::setCar(const QString& name)
{
    m_carLabel->setText(captionAndValue(tr("Fahrzeug: "), name));
}

void CTrackSummary::setAverage(const QString& time)
{
    m_averageLabel->setText(captionAndValue(tr("Durchschnittszeit: "), time));
    const int needed = m_averageLabel->minimumSizeHint().width() + 2 * Margin;
    m_box->setMinimumWidth(qMax(BoxWidth, needed)); // a wide font must not cut the time
}

void CTrackSummary::showMember(const CRaceMember& member)
{
    setDriver(member.driver().name());
    setCar(member.car().name());
    setAverage(member.averageLapTime().toString("mm:ss:zzz"));
    m_lapView->setModel(nullptr); // many laps are filled in faster with nobody looking
    fillModel(member);
    setHeaders();
    showModel();
}

void CTrackSummary::fillModel(const CRaceMember& member)
{
    m_lapModel.clear();
    m_lapModel.setRowCount(member.numberOfLaps());
    m_lapModel.setColumnCount(2);
    for (int row = 0; row < member.numberOfLaps(); ++row)
        fillRow(row, member.lap(row), row == member.bestLapIndex());
}

void CTrackSummary::fillRow(int row, const CLapTime& lap, bool best)
{
    auto* number = new QStandardItem(QStringLiteral("%0").arg(row + 1));
    number->setData(row + 1, Qt::EditRole); // numbers are to sort as numbers
    QList<QStandardItem*> items{number, new QStandardItem(lapTimeText(lap.lapTime))};
    if (m_numberOfSectors >= 2) {
        items.append(new QStandardItem(lapTimeText(lap.sector1Time)));
        items.append(new QStandardItem(lapTimeText(lap.sector2Time)));
    }
    if (m_numberOfSectors > 2)
        items.append(new QStandardItem(lapTimeText(lap.sector3Time)));

    for (int column = 0; column < items.size(); ++column) {
        QStandardItem* item = items[column];
        item->setEditable(false);
        if (best) {
            QFont font = item->font();
            font.setWeight(QFont::Bold);
            item->setFont(font);
            item->setForeground(QBrush(Qt::red));
        }
        m_lapModel.setItem(row, column, item);
    }
}

void CTrackSummary::setHeaders()
{
    QStringList headers{tr("Runde"), tr("Zeit")};
    if (m_numberOfSectors > 1)
        headers << tr("Zeit Sektor 1") << tr("Zeit Sektor 2");
    if (m_numberOfSectors > 2)
        headers << tr("Zeit Sektor 3");
    m_lapModel.setHorizontalHeaderLabels(headers);
}

void CTrackSummary::showModel()
{
    m_lapModel.setSortRole(Qt::EditRole);
    m_lapView->setModel(&m_lapModel);
    QHeaderView* header = m_lapView->header();
    header->setSortIndicatorShown(true);
    header->setSectionsClickable(true);
    header->setSortIndicator(0, Qt::AscendingOrder);
    m_lapView->setSortingEnabled(true);
}
