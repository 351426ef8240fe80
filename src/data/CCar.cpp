#include "data/CCar.h"

#include "data/StreamValue.h"

namespace {

bool isFreeField(int index)
{
    return index >= 0 && index < CCar::NumberOfFreeFields;
}

} // namespace

QString CCar::freeField(int index) const
{
    return isFreeField(index) ? m_freeFields[std::size_t(index)] : QString();
}

void CCar::setFreeField(int index, const QString& text)
{
    if (isFreeField(index))
        m_freeFields[std::size_t(index)] = text;
}

QDataStream& operator<<(QDataStream& stream, const CCar& car)
{
    stream << car.name() << car.originalManufacturer() << car.originalType() << car.startNumber();
    stream << car.modelManufacturer();
    // The scale stands before the class: the order of the format, not that of the record.
    stream << qint32(car.scale()) << qint32(car.speedClass()) << qint32(car.id());
    stream << car.chassis() << car.comment() << car.fuelTank() << qint32(car.distanceDriven());
    for (int i = 0; i < CCar::NumberOfFreeFields; ++i)
        stream << car.freeField(i);
    return stream;
}

QDataStream& operator>>(QDataStream& stream, CCar& car)
{
    car.setName(readValue<QString>(stream));
    car.setOriginalManufacturer(readValue<QString>(stream));
    car.setOriginalType(readValue<QString>(stream));
    car.setStartNumber(readValue<QString>(stream));
    car.setModelManufacturer(readValue<QString>(stream));
    car.setScale(readValue<qint32>(stream));
    car.setSpeedClass(readValue<qint32>(stream));
    car.setId(readValue<qint32>(stream));
    car.setChassis(readValue<QString>(stream));
    car.setComment(readValue<QString>(stream));
    car.setFuelTank(readValue<CFuelTank>(stream));
    car.setDistanceDriven(readValue<qint32>(stream));
    for (int i = 0; i < CCar::NumberOfFreeFields; ++i)
        car.setFreeField(i, readValue<QString>(stream));
    return stream;
}
