#include "results/CKelmoRaceAnalyzer.h"

#include "data/CCarList.h"
#include "data/CDatabase.h"
#include "data/CDriverList.h"
#include "data/CFastestLapList.h"
#include "data/CRacewayList.h"
#include "qr/CQrCodeReaderDialog.h"
#include "qr/QrTags.h"
#include "results/CFastestLapSorter.h"
#include "results/CLapTimeDelegate.h"
#include "results/CsvTimeFormat.h"
#include "shell/CQrReaderButton.h"
#include "shell/CSettings.h"
#include "shell/CUserQuestions.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeView>

namespace {

constexpr int RacewayNameColumn = 1; // of the list of raceways
constexpr int DriverColumn = 0;
constexpr int CarColumn = 1;
constexpr int TimeColumn = 3;
constexpr int FilterColumns = 6;
const QSize FirstSize(800, 600);

/** Puts "<any>" before the entries; each has the id of what it stands for. */
void startWithAny(QComboBox* box, const QString& any)
{
    box->clear();
    box->addItem(any, CFastestLapList::Any);
}

int currentId(const QComboBox* box)
{
    return box->currentData(Qt::UserRole).toInt();
}

QComboBox* filterBox(const char* name, QWidget* parent)
{
    auto* box = new QComboBox(parent);
    box->setObjectName(name);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(12); // a long name must not widen the window
    return box;
}

} // namespace

CKelmoRaceAnalyzer::CKelmoRaceAnalyzer(QWidget* parent)
    : QDialog(parent),
      m_treeView(new QTreeView(this)),
      m_racewayBox(filterBox("racewayFilter", this)),
      m_trackBox(filterBox("trackFilter", this)),
      m_driverBox(filterBox("driverFilter", this)),
      m_carBox(filterBox("carFilter", this)),
      m_qrButton(new CQrReaderButton(this)),
      m_closeButton(new QPushButton(tr("&Schliessen"), this)),
      m_exportButton(new QPushButton(tr("E&xportieren"), this)),
      m_database(CDatabase::instance()),
      m_fastestLapList(new CFastestLapList(this)),
      m_racewayList(new CRacewayList(this)),
      m_driverList(new CDriverList(this)),
      m_carList(new CCarList(this)),
      m_proxyModel(new CFastestLapSorter(this)),
      m_questions(std::make_unique<CUserQuestions>())
{
    setObjectName(QStringLiteral("raceAnalyzer"));
    setWindowTitle(tr("Schnellsten Runden"));
    // The frames that the window's style gives them are all but black on black.
    setStyleSheet(QStringLiteral("QComboBox { border: 1px solid darkgray; padding: 2px 4px; } "
                                 "QTreeView { border: 1px solid darkgray; }"));
    m_qrButton->setObjectName(QStringLiteral("qrButton"));
    m_closeButton->setObjectName(QStringLiteral("closeButton"));
    m_exportButton->setObjectName(QStringLiteral("exportButton"));
    m_exportButton->setAutoDefault(false);
    createTree();

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(filterGrid());
    layout->addLayout(buttonRow());
    resize(FirstSize);
    connectParts();
}

CKelmoRaceAnalyzer::~CKelmoRaceAnalyzer()
{
    m_database->release();
}

void CKelmoRaceAnalyzer::setUserQuestions(std::unique_ptr<CUserQuestions> questions)
{
    m_questions = std::move(questions);
}

void CKelmoRaceAnalyzer::createTree()
{
    m_treeView->setObjectName(QStringLiteral("treeView"));
    m_treeView->setSelectionMode(QAbstractItemView::SingleSelection);
    m_treeView->setIndentation(0);
    m_treeView->setRootIsDecorated(false);
    m_treeView->setItemsExpandable(false);
    m_treeView->setUniformRowHeights(true); // else a long list measures each of its rows
    m_treeView->setItemDelegateForColumn(TimeColumn, new CLapTimeDelegate(m_treeView));
    m_treeView->header()->setStretchLastSection(false);
}

QGridLayout* CKelmoRaceAnalyzer::filterGrid()
{
    auto* grid = new QGridLayout;
    int column = 0;
    for (const QString& caption :
         {tr("<b>Filter: </b>"), tr("<b>Rennstrecke&nbsp;</b>"), tr("<b>Fahrspur&nbsp;</b>"),
          tr("<b>Fahrer&nbsp;</b>"), tr("<b>Fahrzeug&nbsp;</b>")})
        grid->addWidget(new QLabel(caption, this), 0, column++);
    column = 1;
    for (QComboBox* box : {m_racewayBox, m_trackBox, m_driverBox, m_carBox}) {
        grid->setColumnStretch(column, 1);
        grid->addWidget(box, 1, column++);
    }
    grid->addWidget(m_qrButton, 1, column);
    grid->addWidget(m_treeView, 2, 0, 1, FilterColumns);
    return grid;
}

QHBoxLayout* CKelmoRaceAnalyzer::buttonRow()
{
    auto* row = new QHBoxLayout;
    row->addWidget(m_exportButton);
    row->addStretch();
    row->addWidget(m_closeButton);
    return row;
}

void CKelmoRaceAnalyzer::connectParts()
{
    const auto indexChanged = qOverload<int>(&QComboBox::currentIndexChanged);
    connect(m_racewayBox, indexChanged, this, &CKelmoRaceAnalyzer::racewayChanged);
    connect(m_trackBox, indexChanged, this, &CKelmoRaceAnalyzer::trackChanged);
    connect(m_driverBox, indexChanged, this, &CKelmoRaceAnalyzer::driverChanged);
    connect(m_carBox, indexChanged, this, &CKelmoRaceAnalyzer::carChanged);
    connect(m_qrButton, &CQrReaderButton::clicked, this, &CKelmoRaceAnalyzer::showQrCodeDetectorDialog);
    connect(m_exportButton, &QPushButton::clicked, this, &CKelmoRaceAnalyzer::vExportFastestLapList);
    connect(m_closeButton, &QPushButton::clicked, this, &CKelmoRaceAnalyzer::close);
}

void CKelmoRaceAnalyzer::showAnalyzer(const CSettings* settings, CQrCodeReaderDialog* qrDialog)
{
    m_settings = settings;
    m_qrDialog = qrDialog;
    fillRacewayBox();
    fillTrackBox();
    fillDriverBox();
    fillCarBox();
    m_treeView->header()->setSortIndicator(TimeColumn, Qt::AscendingOrder); // the fastest lap first
    updateList();
    m_qrButton->setVisible(m_settings->qrCodeHandlingEnabled());
    ensurePolished(); // the style sheet of the window decides the palette
    m_qrButton->setBackgroundColor(palette().color(QPalette::WindowText).name());
    exec();
}

// Filters. While a box is filled it tells nobody, so that the list isn't made anew for each entry.

void CKelmoRaceAnalyzer::fillRacewayBox()
{
    const QSignalBlocker blocker(m_racewayBox);
    m_racewayBox->setModel(m_racewayList->overviewModel());
    m_racewayBox->setModelColumn(RacewayNameColumn);
    m_racewayBox->setCurrentIndex(m_racewayList->currentRow());
}

void CKelmoRaceAnalyzer::fillTrackBox()
{
    const QSignalBlocker blocker(m_trackBox);
    startWithAny(m_trackBox, tr("<beliebig>"));
    const QList<CRacewayTrack> tracks = m_racewayList->racewayAt(m_racewayBox->currentIndex()).tracks;
    for (int i = 0; i < tracks.size(); ++i)
        m_trackBox->addItem(tr("Spur %1").arg(i + 1), tracks.at(i).id);
}

void CKelmoRaceAnalyzer::fillDriverBox()
{
    const QSignalBlocker blocker(m_driverBox);
    startWithAny(m_driverBox, tr("<beliebig>"));
    for (const CDriver& driver : m_driverList->allDrivers())
        m_driverBox->addItem(driver.name(), driver.id());
}

void CKelmoRaceAnalyzer::fillCarBox()
{
    const QSignalBlocker blocker(m_carBox);
    startWithAny(m_carBox, tr("<beliebig>"));
    for (const CCar& car : m_carList->allCars())
        m_carBox->addItem(car.name(), car.id());
}

void CKelmoRaceAnalyzer::updateList()
{
    m_treeView->setSortingEnabled(false);
    m_filterRacewayId = m_racewayList->racewayAt(m_racewayBox->currentIndex()).id;
    m_filterTrackId = currentId(m_trackBox);
    m_filterDriverId = currentId(m_driverBox);
    m_filterCarId = currentId(m_carBox);
    m_proxyModel->setSourceModel(
        m_fastestLapList->filterModel(m_filterRacewayId, m_filterTrackId, m_filterCarId, m_filterDriverId));
    m_treeView->setSortingEnabled(true);
    m_treeView->setModel(m_proxyModel);
    m_treeView->header()->setSectionResizeMode(DriverColumn, QHeaderView::Stretch);
    m_treeView->header()->setSectionResizeMode(CarColumn, QHeaderView::Stretch);
}

void CKelmoRaceAnalyzer::racewayChanged(int)
{
    fillTrackBox();
    updateList();
}

void CKelmoRaceAnalyzer::trackChanged(int index)
{
    m_filterTrackId = m_trackBox->itemData(index, Qt::UserRole).toInt();
    updateList();
}

void CKelmoRaceAnalyzer::driverChanged(int index)
{
    m_filterDriverId = m_driverBox->itemData(index, Qt::UserRole).toInt();
    updateList();
}

void CKelmoRaceAnalyzer::carChanged(int index)
{
    m_filterCarId = m_carBox->itemData(index, Qt::UserRole).toInt();
    updateList();
}

void CKelmoRaceAnalyzer::vExportFastestLapList()
{
    const QString fileName =
        m_questions->askSaveFileName(this, tr("Liste der schnellsten Runden exportieren nach ..."),
                                     tr("fastestLapList.csv"), tr("CSV-Datei (*.csv)"));
    if (fileName.isEmpty())
        return;
    const int format =
        m_settings ? m_settings->storageCsvTimeFormat() : int(CSettings::MinutesColonMilliseconds);
    CFastestLapList list; // the model of the other one is on the screen, with a selected row
    list.exportCsv(fileName, m_racewayBox->currentText(), csvTimeFormat(format), m_filterRacewayId,
                   m_filterTrackId, m_filterCarId, m_filterDriverId);
}

void CKelmoRaceAnalyzer::showQrCodeDetectorDialog()
{
    if (!m_qrDialog)
        return;
    const QString text = m_qrDialog->readCode();
    if (text.startsWith(qrTagCar)) {
        const int row = m_carList->rowOfName(text.mid(qrTagCar.size()));
        if (row != -1 && row < m_carList->count())
            m_carBox->setCurrentIndex(row + 1);
    } else if (text.startsWith(qrTagDriver)) {
        const int row = m_driverList->rowOfName(text.mid(qrTagDriver.size()));
        if (row != -1 && row < m_driverList->count())
            m_driverBox->setCurrentIndex(row + 1);
    }
}
