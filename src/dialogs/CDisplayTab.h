#ifndef TORNIK_DIALOGS_CDISPLAYTAB_H
#define TORNIK_DIALOGS_CDISPLAYTAB_H

#include "dialogs/CFlagBox.h"

#include <QWidget>

#include <array>

class QButtonGroup;
class QComboBox;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

/**
 * What the panels of the tracks show, how large and in which colours. A tab of the settings dialog,
 * which says when a rule applies and asks for the colours.
 */
class CDisplayTab : public QWidget
{
    Q_OBJECT

public:
    explicit CDisplayTab(QWidget* parent = nullptr);

    void showSettings(const CSettings& settings);
    /** All but the colours, which are in the settings from the moment they are chosen. */
    void storeSettings(CSettings& settings) const;

    int sectorTimesState() const;
    int speedState() const;
    void enableIntermediateTimes(bool on);
    void enableUnits(bool on);

    /** @param track from 0 */
    QPushButton* trackColorButton(int track) const { return m_trackColors[std::size_t(track)].button; }
    QPushButton* commonColorButton() const { return m_commonColor.button; }
    void showTrackColor(int track, const QString& name);
    void showCommonColor(const QString& name);

Q_SIGNALS:
    void sectorTimesChanged(int state);
    void speedChanged(int state);

private:
    /** A button and what a text looks like in its colour. */
    struct ColorChoice
    {
        QPushButton* button = nullptr;
        QLabel* sample = nullptr;
    };

    CFlagBox* addFlag(const char* name, const QString& text, CFlagBox::Getter getter,
                      CFlagBox::Setter setter);
    QVBoxLayout* createFlags();
    void addSectionFlags(QVBoxLayout* column);
    void addSpeedFlags(QVBoxLayout* column);
    QHBoxLayout* createSize();
    QGridLayout* createColors();
    ColorChoice addColor(QGridLayout* grid, int row, const QString& name, const QString& text);

    QList<CFlagBox*> m_flags;
    CFlagBox* m_sectorTimes = nullptr;
    CFlagBox* m_intermediateTimes = nullptr;
    CFlagBox* m_speed = nullptr;
    QButtonGroup* m_units;
    QComboBox* m_size = nullptr;
    std::array<ColorChoice, CSettings::Tracks> m_trackColors;
    ColorChoice m_commonColor;
};

#endif
