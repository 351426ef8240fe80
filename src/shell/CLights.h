#ifndef TORNIK_SHELL_CLIGHTS_H
#define TORNIK_SHELL_CLIGHTS_H

#include <QPixmap>
#include <QVector>
#include <QWidget>

/** The row of start lamps on the dashboard; all are off at first. Owned by its Qt parent. */
class CLights : public QWidget
{
    Q_OBJECT

public:
    /** @param count number of lamps; clamped to 1 to 10 */
    explicit CLights(int count, QWidget* parent = nullptr);

    /** Turns the next lamp red; at the end of the row nothing changes. */
    void nextRed();
    void allGreen();
    void allRed();
    void allOff();
    /**
     * Turns one lamp red, unless lamps are being counted by nextRed(); nextRed() then does nothing
     * until all lamps were set at once.
     * @param index lamp from 0; clamped to the row
     */
    void setRed(int index);
    /** @param index lamp from 0; clamped to the row */
    void setOff(int index);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void setAll(const QPixmap& picture);
    int clampedIndex(int index) const;

    int m_lightCount;
    int m_redIndex = 0; ///< next lamp to turn red, or the mark that lamps were set one by one
    QPixmap m_red;
    QPixmap m_green;
    QPixmap m_off;
    QVector<QPixmap> m_lights;
};

#endif
