#ifndef TORNIK_SHELL_CRICHCOMBOBOX_H
#define TORNIK_SHELL_CRICHCOMBOBOX_H

#include <QColor>
#include <QComboBox>
#include <QFont>
#include <QString>

/**
 * A frameless selection whose text has a colour of its own and whose chosen entry doesn't light up.
 * Owned by its Qt parent.
 */
class CRichComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit CRichComboBox(QWidget* parent = nullptr);

    void setPointSize(int pointSize);
    /** @param name a colour name as QColor and style sheets know it */
    void setColor(const QString& name);

private:
    QFont m_font;
    int m_pointSize = 12;
    QColor m_color;
    QString m_colorName;
};

#endif
