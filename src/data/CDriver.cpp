#include "data/CDriver.h"

#include <QDataStream>

QDataStream& operator<<(QDataStream& stream, const CDriver& driver)
{
    return stream << driver.name() << qint32(driver.id());
}

QDataStream& operator>>(QDataStream& stream, CDriver& driver)
{
    QString name;
    qint32 id = 0;
    stream >> name >> id;
    driver.setName(name);
    driver.setId(id);
    return stream;
}
