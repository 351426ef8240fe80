#ifndef TORNIK_DIALOGS_CTICKEDSLIDER_H
#define TORNIK_DIALOGS_CTICKEDSLIDER_H

#include <QSlider>

/** A horizontal slider with ticks below it, also under a style sheet, whose sliders have none. */
class CTickedSlider : public QSlider
{
    Q_OBJECT

public:
    explicit CTickedSlider(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /** @return where the handle's middle is at a value, in pixels from the left. */
    int placeOf(int value) const;
};

#endif
