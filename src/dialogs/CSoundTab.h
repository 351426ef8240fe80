#ifndef TORNIK_DIALOGS_CSOUNDTAB_H
#define TORNIK_DIALOGS_CSOUNDTAB_H

#include <QWidget>

#include <array>

class CFlagBox;
class CSettings;
class QGridLayout;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

/**
 * The files of the sounds, and what is spoken. A tab of the settings dialog, which says when a rule
 * applies and asks for the files.
 */
class CSoundTab : public QWidget
{
    Q_OBJECT

public:
    enum Sound
    {
        NewBestLap,
        DriveThrough,
        RedLight,
        GreenLight
    };
    static constexpr int Sounds = GreenLight + 1;

    explicit CSoundTab(QWidget* parent = nullptr);

    void showSettings(const CSettings& settings);
    void storeSettings(CSettings& settings) const;

    QPushButton* browseButton(Sound sound) const { return m_files[std::size_t(sound)].browse; }
    void setFile(Sound sound, const QString& name);

    int enhancedState() const;
    int lapTimeState() const;
    void enableVoice(bool on);
    void enableBestLapTime(bool on);
    bool isLapTimeEnabled() const;

Q_SIGNALS:
    void enhancedChanged(int state);
    void lapTimeChanged(int state);

private:
    struct File
    {
        QLineEdit* name = nullptr;
        QPushButton* browse = nullptr;
    };

    QGridLayout* createFiles();
    File addFile(QGridLayout* grid, int row, const QString& caption, const QString& name);
    QVBoxLayout* createVoice();

    std::array<File, Sounds> m_files;
    CFlagBox* m_enhanced = nullptr;
    CFlagBox* m_laps = nullptr;
    CFlagBox* m_lapTime = nullptr;
    CFlagBox* m_bestLapTime = nullptr;
};

#endif
