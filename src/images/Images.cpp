#include "images/Images.h"

#include <QtGlobal>

void initImages()
{
    Q_INIT_RESOURCE(images);
}
