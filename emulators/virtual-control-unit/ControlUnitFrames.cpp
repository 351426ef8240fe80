#include "ControlUnitFrames.h"

namespace {

constexpr int FuelFields = 8;
constexpr char End = '$';

char digit(int nibble)
{
    return char('0' + (nibble & 15));
}

QByteArray closed(const QByteArray& body)
{
    return body + ControlUnitFrames::checksum(body) + End;
}

} // namespace

namespace ControlUnitFrames {

char checksum(const QByteArray& withoutChecksum)
{
    int sum = 0;
    for (int i = 1; i < withoutChecksum.size(); ++i)
        sum += withoutChecksum.at(i) & 15;
    return digit(sum);
}

bool looksValid(const QByteArray& frame)
{
    return frame.size() > 2 && frame.at(frame.size() - 2) == checksum(frame.left(frame.size() - 2));
}

QByteArray lap(const Crossing& crossing)
{
    QByteArray body("?");
    body += digit(crossing.car);
    for (int shift = 24; shift >= 0; shift -= 8) {
        const int byte = int(crossing.stamp >> shift & 255);
        body += digit(byte);
        body += digit(byte >> 4);
    }
    return closed(body + digit(crossing.group));
}

QByteArray status(const QVector<int>& fuel, int startLight, int size)
{
    QByteArray body("?:");
    for (int car = 0; car < FuelFields; ++car)
        body += digit(fuel.value(car));
    body += digit(startLight);
    const QByteArray rest = "00" + QByteArray(size - StatusSize, '0') + '0' + digit(fuel.size());
    return closed(body + rest);
}

} // namespace ControlUnitFrames
