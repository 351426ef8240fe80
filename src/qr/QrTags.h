#ifndef TORNIK_QR_QRTAGS_H
#define TORNIK_QR_QRTAGS_H

#include <QString>

/** What the text of a code begins with: a car, or a driver; the name stands behind it. */
inline const QString qrTagCar = QStringLiteral("<car>");
inline const QString qrTagDriver = QStringLiteral("<drv>");

#endif
