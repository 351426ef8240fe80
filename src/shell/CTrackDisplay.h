#ifndef TORNIK_SHELL_CTRACKDISPLAY_H
#define TORNIK_SHELL_CTRACKDISPLAY_H

#include <QTime>
#include <QVector>
#include <QWidget>

#include <memory>

class CQrReaderButton;
class CRichComboBox;
class CRichLabel;
class CRichProgressBar;
class CSettings;
class CSoundOutput;
struct CPanelTier;
struct CTrackTier;
class QAbstractItemModel;
class QHBoxLayout;
class QVBoxLayout;

/**
 * One column of the dashboard: the panel of a track with its figures, its driver and its car, or
 * the legend between two of them with the words of the rows.
 *
 * Shows no label until the settings are applied by setSettings(). Owned by CTrackPanels and built
 * anew when the raceway changes; main thread. Setters marked so do nothing on a legend.
 */
class CTrackDisplay : public QWidget
{
    Q_OBJECT

public:
    enum Type
    {
        TrackPanel = 1,
        LegendPanel = 2
    };

    /**
     * @param type a Type; any other value means a legend
     * @param settings not owned; null only until setSettings()
     * @param rows 1 to 3, any other value means 1; see CTrackRows
     * @param sections number of sectors of the raceway: how many section rows may show
     */
    CTrackDisplay(int type, CSettings* settings, QWidget* parent, int rows, int sections);
    /** A legend with one row and one section. */
    explicit CTrackDisplay(QWidget* parent);
    ~CTrackDisplay() override;

    int type() const { return m_type; }
    int rows() const { return m_rows; }

    /** Applies the settings: what is shown, how large, the common colour and the voice. */
    void setSettings(CSettings* settings);
    /** Colour of the track; track panels only. */
    void setColor(const QString& name);
    /** For good: the boxes show the names of another machine and can't be used. */
    void setClientMode(bool clientMode);
    /** Replaces the voice, so that a test can listen; it takes its samples at the next setSettings(). */
    void setSoundOutput(std::unique_ptr<CSoundOutput> soundOutput);

    /** Shows at least three characters and at most four, four of them smaller. */
    void setLaps(int laps);
    void setLastLap(const QTime& time);
    void setBestLap(const QTime& time);
    /** @param status a CRaceMemberStatus */
    void setStatus(int status);
    void setAverageLap(const QTime& time);
    void setSection1(const QTime& time);
    void setSection2(const QTime& time);
    void setSection3(const QTime& time);
    /** @param speed in the unit of the setting speedDisplayType; track panels only */
    void setSpeed(double speed);
    /** @param percent 0 to 100 */
    void setFuel(int percent);
    /** Figures of a race that hasn't begun; track panels only. */
    void reset();
    /**
     * Speaks the lap as it stands on the panel; track panels only.
     * @param lapKind a CRaceEvent::LapKind
     */
    void voiceOutput(int lapKind);

    void lockBoxes(bool lock);
    /** @param model not owned */
    void setDriverModel(QAbstractItemModel* model);
    void setCarModel(QAbstractItemModel* model);
    void setDriverIndex(int index);
    void setCarIndex(int index);
    int driverIndex() const;
    int carIndex() const;
    /** @return the name that the box shows. */
    QString driverName() const;
    void setDriverName(const QString& name);
    void setCarName(const QString& name);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /** One of the two code buttons was pressed. */
    void triggerQrReader(CTrackDisplay* panel);

private Q_SLOTS:
    void qrReaderButtonPressed();

private:
    bool isTrackPanel() const { return m_type == TrackPanel; }
    QVector<CRichLabel*> labels() const;
    static QString inBrackets(const QString& word);

    void createLabels();
    CRichLabel* createLabel(const char* name, const char* trackColor, const QString& trackText,
                            const QString& legendText);
    void createControls();
    CQrReaderButton* createQrButton(const char* name);
    void createLayout();
    QHBoxLayout* addBoxRow(CRichComboBox* box, CQrReaderButton* button);
    void speakLap(bool isBestLap);

    void showLabels();
    void showSections();
    void applyToTrackPanel();
    void applyToLegend();
    void loadVoice();
    void applyLabelTier(const CPanelTier& tier);
    void applyTrackTier(const CTrackTier& tier);
    void fitFigures();
    void scaleLapCount();

    int m_type;
    int m_rows;
    int m_sections;
    QVBoxLayout* m_mainLayout = nullptr;
    QHBoxLayout* m_driverBoxLayout = nullptr;
    QHBoxLayout* m_carBoxLayout = nullptr;
    CRichLabel* m_lapCount = nullptr;
    CRichLabel* m_lastLap = nullptr;
    CRichLabel* m_bestLap = nullptr;
    CRichLabel* m_status = nullptr;
    CRichLabel* m_averageLap = nullptr;
    CRichLabel* m_section1 = nullptr;
    CRichLabel* m_section2 = nullptr;
    CRichLabel* m_section3 = nullptr;
    CRichLabel* m_speed = nullptr;
    CRichLabel* m_driverLabel = nullptr;
    CRichLabel* m_carLabel = nullptr;
    CRichLabel* m_fuelLabel = nullptr;
    CRichComboBox* m_driverBox = nullptr;
    CRichComboBox* m_carBox = nullptr;
    CQrReaderButton* m_driverQrButton = nullptr;
    CQrReaderButton* m_carQrButton = nullptr;
    CRichProgressBar* m_fuelBar = nullptr;
    std::unique_ptr<CSoundOutput> m_soundOutput;
    int m_lapsStretch = 100; ///< percent; of a lap count of three characters
    int m_longLapsStretch = 100;
    bool m_clientMode = false;
    CSettings* m_settings; ///< not owned
};

#endif
