#ifndef TORNIK_DATA_STREAMVALUE_H
#define TORNIK_DATA_STREAMVALUE_H

#include <QDataStream>

/**
 * Takes one value out of a stream, for records that are filled by setters.
 * @return the default of the type when the stream has run dry
 */
template <typename T>
T readValue(QDataStream& stream)
{
    T value{};
    stream >> value;
    return value;
}

#endif
