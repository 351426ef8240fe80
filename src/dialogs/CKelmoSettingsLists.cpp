// The part of CKelmoSettings that manages the lists. Each button acts at once.

#include "data/CCarList.h"
#include "data/CDriverList.h"
#include "data/CRacewayList.h"
#include "dialogs/CCarEditorDlg.h"
#include "dialogs/CDriverEditorDlg.h"
#include "dialogs/CKelmoSettings.h"
#include "dialogs/CListTab.h"
#include "qr/CQrCodeGenerator.h"
#include "shell/CUserQuestions.h"
#include "wizard/CRacewayWizard.h"

#include <QApplication>
#include <QPushButton>

#include <algorithm>

namespace {

constexpr int RacewayNameColumn = 1; // behind the mark; cars and drivers begin with their name

/** Says that a long list takes its time, as long as this object lives. */
class WaitCursor
{
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }

private:
    Q_DISABLE_COPY(WaitCursor)
};

/** @return the row that was added last: names may be equal, ids grow. */
template <typename Records>
int newestRow(const Records& records)
{
    const auto older = [](const auto& one, const auto& other) { return one.id() < other.id(); };
    return int(std::max_element(records.cbegin(), records.cend(), older) - records.cbegin());
}

int newestRow(CRacewayList& raceways)
{
    QList<int> ids; // each one is a look into the file
    for (int row = 0, count = raceways.racewayCount(); row < count; ++row)
        ids << raceways.idOfRow(row);
    return int(std::max_element(ids.cbegin(), ids.cend()) - ids.cbegin());
}

QString pdfNameOf(QString name)
{
    // A name such as "A/B" would lead into a folder that isn't there.
    return name.replace('/', '-').replace('\\', '-') + QStringLiteral(".pdf");
}

} // namespace

// The tabs

void CKelmoSettings::addButtons(CListTab* tab, const QList<ListButton>& buttons)
{
    for (const ListButton& button : buttons)
        connect(tab->addButton(button.name, button.text), &QPushButton::clicked, this, button.slot);
}

void CKelmoSettings::createRacewayTab()
{
    using S = CKelmoSettings;
    m_raceways = new CListTab("racewayTree", tr("Vorhandene Strecken:"), RacewayNameColumn, this);
    m_raceways->addNote(tr("Die aktuell ausgewählte Strecke ist mit \"x\" markiert."));
    addButtons(m_raceways, {{"newRaceway", tr("&Neu"), &S::vNewRaceway},
                            {"editRaceway", tr("&Bearbeiten"), &S::vEditRaceway},
                            {"deleteRaceway", tr("&Löschen"), &S::vDelRaceway},
                            {"useRaceway", tr("Ben&utzen"), &S::vSetCurrent}});
    connect(m_raceways, &CListTab::rowDoubleClicked, this, &S::vEditRaceway);
}

void CKelmoSettings::createCarTab()
{
    using S = CKelmoSettings;
    m_cars = new CListTab("carTree", tr("Vorhandene Fahrzeuge:"), 0, this);
    addButtons(m_cars, {{"newCar", tr("&Neu"), &S::vNewCar},
                        {"editCar", tr("&Bearbeiten"), &S::vEditCar},
                        {"deleteCar", tr("&Löschen"), &S::vDelCar},
                        {"importCars", tr("&Importieren"), &S::vImportCars},
                        {"exportCars", tr("&Exportieren"), &S::vExportCars},
                        {"qrCodeCar", tr("QR &Code"), &S::vGenerateQrCodesCar},
                        {"qrCodesCars", tr("&QR Code Liste"), &S::vGenerateQrCodesCars}});
    connect(m_cars, &CListTab::rowDoubleClicked, this, &S::vEditCar);
}

void CKelmoSettings::createDriverTab()
{
    using S = CKelmoSettings;
    m_drivers = new CListTab("driverTree", tr("Vorhandene Fahrer:"), 0, this);
    addButtons(m_drivers, {{"newDriver", tr("&Neu"), &S::vNewDriver},
                           {"editDriver", tr("&Bearbeiten"), &S::vEditDriver},
                           {"deleteDriver", tr("&Löschen"), &S::vDelDriver},
                           {"importDrivers", tr("&Importieren"), &S::vImportDrivers},
                           {"exportDrivers", tr("&Exportieren"), &S::vExportDrivers},
                           {"qrCodeDriver", tr("QR &Code"), &S::vGenerateQrCodesDriver},
                           {"qrCodesDrivers", tr("&QR Code Liste"), &S::vGenerateQrCodesDrivers}});
    connect(m_drivers, &CListTab::rowDoubleClicked, this, &S::vEditDriver);
}

void CKelmoSettings::showLists()
{
    showRaceways();
    showCars();
    showDrivers();
}

void CKelmoSettings::showRaceways(int selectedRow)
{
    m_raceways->showList(m_racewayList->overviewModel(), selectedRow);
}

void CKelmoSettings::showCars(int selectedRow)
{
    m_cars->showList(m_carList->distanceModel(), selectedRow);
}

void CKelmoSettings::showDrivers(int selectedRow)
{
    m_drivers->showList(m_driverList->editorNameModel(), selectedRow);
}

bool CKelmoSettings::isDeletionWanted(const QString& title, const QString& question)
{
    return m_questions->ask(this, title, question, tr("&Ja"), tr("&Nein"));
}

QString CKelmoSettings::fileToImport(const QString& title)
{
    return m_questions->askOpenFileName(this, title, tr("CSV-Datei (*.csv)"));
}

QString CKelmoSettings::fileToExport(const QString& title, const QString& proposal)
{
    return m_questions->askSaveFileName(this, title, proposal, tr("CSV-Datei (*.csv)"));
}

QString CKelmoSettings::fileForCodes(const QString& title, const QString& proposal)
{
    return m_questions->askSaveFileName(this, title, proposal, tr("PDF-Datei (*.pdf)"));
}

// Raceways

void CKelmoSettings::vNewRaceway()
{
    CRaceway raceway;
    CRacewayWizard wizard(this);
    if (wizard.createRaceway(&raceway) != Accepted)
        return;
    const bool added = m_racewayList->addRaceway(raceway);
    showRaceways(added ? newestRow(*m_racewayList) : CListTab::NoRow);
}

void CKelmoSettings::vEditRaceway()
{
    const int row = m_raceways->selectedRow();
    if (row == CListTab::NoRow)
        return;
    CRaceway raceway = m_racewayList->racewayAt(row);
    CRacewayWizard wizard(this);
    if (wizard.editRaceway(&raceway) != Accepted)
        return;
    m_racewayList->updateRaceway(row, raceway);
    showRaceways(m_racewayList->rowOfId(raceway.id));
    Q_EMIT raceTrackChanged();
}

void CKelmoSettings::vDelRaceway()
{
    const int row = m_raceways->selectedRow();
    if (row == CListTab::NoRow)
        return;
    const QString name = m_racewayList->racewayAt(row).name;
    if (!isDeletionWanted(tr("Rennstrecke löschen"),
                          tr("Sind Sie sicher, dass Sie die Rennstrecke %1 löschen möchten?").arg(name)))
        return;
    m_racewayList->removeRaceway(row);
    showRaceways();
    Q_EMIT raceTrackChanged();
}

void CKelmoSettings::vSetCurrent()
{
    const int row = m_raceways->selectedRow();
    if (row == CListTab::NoRow)
        return;
    m_racewayList->setCurrentRow(row);
    showRaceways(row);
    Q_EMIT raceTrackChanged();
}

// Cars

void CKelmoSettings::vNewCar()
{
    CCar car;
    if (m_carEditor->newCar(&car) != Accepted)
        return;
    const bool added = m_carList->addCar(car);
    showCars(added ? newestRow(m_carList->allCars()) : CListTab::NoRow);
}

void CKelmoSettings::vEditCar()
{
    const int row = m_cars->selectedRow();
    if (row == CListTab::NoRow)
        return;
    CCar car = m_carList->carAt(row);
    if (m_carEditor->editCar(&car) != Accepted)
        return;
    m_carList->updateCar(row, car);
    showCars(m_carList->rowOfCar(car));
}

void CKelmoSettings::vDelCar()
{
    const int row = m_cars->selectedRow();
    if (row == CListTab::NoRow)
        return;
    const QString name = m_carList->carAt(row).name();
    if (!isDeletionWanted(tr("Fahrzeug löschen"),
                          tr("Sind Sie sicher, dass Sie das Fahrzeug %1 löschen möchten?").arg(name)))
        return;
    m_carList->removeCar(row);
    showCars();
}

void CKelmoSettings::vImportCars()
{
    const QString fileName = fileToImport(tr("Datei mit Fahrzeugliste für Import wählen"));
    if (fileName.isEmpty())
        return;
    const WaitCursor wait;
    m_carList->importCsv(fileName);
    showCars();
}

void CKelmoSettings::vExportCars()
{
    const QString fileName =
        fileToExport(tr("Fahrzeugliste exportieren nach ..."), QStringLiteral("carList.csv"));
    if (fileName.isEmpty())
        return;
    const WaitCursor wait;
    m_carList->exportCsv(fileName);
}

void CKelmoSettings::vGenerateQrCodesCars()
{
    const QString fileName =
        fileForCodes(tr("QR Code Liste für Fahrzeuge erstellen ..."), QStringLiteral("QrCodeCarList.pdf"));
    if (fileName.isEmpty())
        return;
    const WaitCursor wait;
    CQrCodeGenerator().generateCarCodes(fileName, m_carList.get());
}

void CKelmoSettings::vGenerateQrCodesCar()
{
    const int row = m_cars->selectedRow();
    if (row == CListTab::NoRow)
        return;
    const CCar car = m_carList->carAt(row);
    const QString fileName = fileForCodes(tr("QR Code für Fahrzeug erstellen ..."), pdfNameOf(car.name()));
    if (!fileName.isEmpty())
        CQrCodeGenerator().generateCarCodes(fileName, car);
}

// Drivers

void CKelmoSettings::vNewDriver()
{
    CDriver driver;
    if (m_driverEditor->newDriver(&driver) != Accepted)
        return;
    const bool added = m_driverList->addDriver(driver);
    showDrivers(added ? newestRow(m_driverList->allDrivers()) : CListTab::NoRow);
}

void CKelmoSettings::vEditDriver()
{
    const int row = m_drivers->selectedRow();
    if (row == CListTab::NoRow)
        return;
    CDriver driver = m_driverList->driverAt(row);
    if (m_driverEditor->editDriver(&driver) != Accepted)
        return;
    m_driverList->updateDriver(row, driver);
    showDrivers(m_driverList->rowOfDriver(driver));
}

void CKelmoSettings::vDelDriver()
{
    const int row = m_drivers->selectedRow();
    if (row == CListTab::NoRow)
        return;
    const QString name = m_driverList->driverAt(row).name();
    if (!isDeletionWanted(tr("Fahrer löschen"),
                          tr("Sind Sie sicher, dass Sie den Fahrer %1 löschen möchten?").arg(name)))
        return;
    m_driverList->removeDriver(row);
    showDrivers();
}

void CKelmoSettings::vImportDrivers()
{
    const QString fileName = fileToImport(tr("Datei mit Fahrerliste für Import wählen"));
    if (fileName.isEmpty())
        return;
    const WaitCursor wait;
    m_driverList->importCsv(fileName);
    showDrivers();
}

void CKelmoSettings::vExportDrivers()
{
    const QString fileName =
        fileToExport(tr("Fahrerliste exportieren nach ..."), QStringLiteral("driverList.csv"));
    if (fileName.isEmpty())
        return;
    const WaitCursor wait;
    m_driverList->exportCsv(fileName);
}

void CKelmoSettings::vGenerateQrCodesDrivers()
{
    const QString fileName = fileForCodes(tr("QR Code Liste für alle Fahrer erstellen ..."),
                                          QStringLiteral("QrCodeDriverList.pdf"));
    if (fileName.isEmpty())
        return;
    const WaitCursor wait;
    CQrCodeGenerator().generateDriverCodes(fileName, m_driverList.get());
}

void CKelmoSettings::vGenerateQrCodesDriver()
{
    const int row = m_drivers->selectedRow();
    if (row == CListTab::NoRow)
        return;
    const CDriver driver = m_driverList->driverAt(row);
    const QString fileName = fileForCodes(tr("QR Code für Fahrer erstellen ..."), pdfNameOf(driver.name()));
    if (!fileName.isEmpty())
        CQrCodeGenerator().generateDriverCodes(fileName, driver);
}
