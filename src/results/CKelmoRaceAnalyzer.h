#ifndef TORNIK_RESULTS_CKELMORACEANALYZER_H
#define TORNIK_RESULTS_CKELMORACEANALYZER_H

#include <QDialog>

#include <memory>

class CCarList;
class CDatabase;
class CDriverList;
class CFastestLapList;
class CFastestLapSorter;
class CQrCodeReaderDialog;
class CQrReaderButton;
class CRacewayList;
class CSettings;
class CUserQuestions;
class QComboBox;
class QGridLayout;
class QHBoxLayout;
class QPushButton;
class QTreeView;

/**
 * The list of fastest laps of one raceway, filtered by track, driver and car, sorted by a click on a
 * column and exported as CSV. Made once by the main dialog and kept; each showAnalyzer() reads the
 * lists anew. Main thread only.
 */
class CKelmoRaceAnalyzer : public QDialog
{
    Q_OBJECT

public:
    explicit CKelmoRaceAnalyzer(QWidget* parent = nullptr);
    ~CKelmoRaceAnalyzer() override;

    /**
     * Fills the filters, shows the laps of the current raceway and runs the dialog modally.
     * @param settings not owned
     * @param qrDialog reads a code from the camera; not owned, may be null
     */
    void showAnalyzer(const CSettings* settings, CQrCodeReaderDialog* qrDialog);

    /** Replaces the boxes that wait for the user, so that a test can answer. */
    void setUserQuestions(std::unique_ptr<CUserQuestions> questions);

private Q_SLOTS:
    void racewayChanged(int index);
    void trackChanged(int index);
    void driverChanged(int index);
    void carChanged(int index);
    void vExportFastestLapList();
    void showQrCodeDetectorDialog();

private:
    void createTree();
    void connectParts();
    QGridLayout* filterGrid();
    QHBoxLayout* buttonRow();

    void fillRacewayBox();
    void fillTrackBox();
    void fillDriverBox();
    void fillCarBox();
    void updateList();

    QTreeView* m_treeView;
    int m_filterRacewayId = -1;
    int m_filterTrackId = -1;  ///< -1 for any
    int m_filterDriverId = -1; ///< -1 for any
    int m_filterCarId = -1;    ///< -1 for any
    QComboBox* m_racewayBox;
    QComboBox* m_trackBox;
    QComboBox* m_driverBox;
    QComboBox* m_carBox;
    CQrReaderButton* m_qrButton;
    QPushButton* m_closeButton;
    QPushButton* m_exportButton;
    CDatabase* m_database;
    CFastestLapList* m_fastestLapList;
    CRacewayList* m_racewayList;
    CDriverList* m_driverList;
    CCarList* m_carList;
    const CSettings* m_settings = nullptr; ///< not owned; null until the first showAnalyzer()
    CFastestLapSorter* m_proxyModel;
    CQrCodeReaderDialog* m_qrDialog = nullptr; ///< not owned; null until the first showAnalyzer()
    std::unique_ptr<CUserQuestions> m_questions;
};

#endif
