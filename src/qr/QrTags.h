#ifndef TORNIK_QR_QRTAGS_H
#define TORNIK_QR_QRTAGS_H

#include <QLatin1String>

/** What the text of a code begins with: a car, or a driver; the name stands behind it. */
inline const QLatin1String qrTagCar("<car>");
inline const QLatin1String qrTagDriver("<drv>");

#endif
