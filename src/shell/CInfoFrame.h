#ifndef TORNIK_SHELL_CINFOFRAME_H
#define TORNIK_SHELL_CINFOFRAME_H

#include <QWidget>

class CClickableLabel;
class CRaceSettings;
class QGridLayout;
class QGroupBox;
class QHBoxLayout;
class QLabel;

/**
 * The box below the track panels: the raceway, the rules of the race, its clock, and a red line for
 * messages. All texts are shown as they are, never as markup. Owned by its Qt parent.
 */
class CInfoFrame : public QWidget
{
    Q_OBJECT

public:
    explicit CInfoFrame(QWidget* parent = nullptr);

    /** @param raceSettings read at once; not owned */
    void setRaceSettings(CRaceSettings* raceSettings);
    void setRacewayName(const QString& name);
    /** @param time the clock as it is to be shown */
    void setRaceTime(const QString& time);
    /** Shows the red line; an empty text clears it. */
    void setAdditionalInfo(const QString& text);

Q_SIGNALS:
    /** The red line was clicked. */
    void infoClicked();

private Q_SLOTS:
    void additionalInfoClicked();

private:
    QLabel* addRow(int row, QLabel* caption, QLabel* value);
    void addAdditionalInfoRow();
    void keepRoomForAMessage();
    QString startText() const;
    QString endText() const;
    static QString lapLimitText(int laps);
    QString winningText() const;

    QHBoxLayout* m_layout;
    QGroupBox* m_groupBox;
    QGridLayout* m_gridLayout;
    QLabel* m_racewayName;
    QLabel* m_startCondition;
    QLabel* m_endCondition;
    QLabel* m_winningCondition;
    QLabel* m_raceTimeCaption;
    QLabel* m_raceTime;
    QLabel* m_additionalInfoCaption;
    CClickableLabel* m_additionalInfo;
    CRaceSettings* m_raceSettings = nullptr; ///< last shown; not owned
};

#endif
