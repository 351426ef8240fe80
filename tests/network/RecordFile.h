#ifndef TORNIK_TESTS_RECORDFILE_H
#define TORNIK_TESTS_RECORDFILE_H

#include <QByteArray>
#include <QFile>
#include <QString>

/**
 * A whole frame written by hand: one field a line in hexadecimal digits, then "#" and its name.
 * @param name without directory and ".hex"
 * @return the bytes; empty if there is no such file
 */
inline QByteArray frameFromFile(const QString& name)
{
    QFile file(QStringLiteral(TORNIK_TEST_DATA "/display-records/%1.hex").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray digits;
    for (const QByteArray& line : file.readAll().split('\n'))
        digits += line.left(line.indexOf('#'));
    return QByteArray::fromHex(digits);
}

#endif
