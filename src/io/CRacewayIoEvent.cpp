#include "io/CRacewayIoEvent.h"

#include <QByteArray>

void CRacewayIoEvent::setText(const char* text)
{
    qstrncpy(m_text, text, uint(TextSize));
}
