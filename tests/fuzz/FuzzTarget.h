#ifndef TORNIK_TESTS_FUZZ_FUZZTARGET_H
#define TORNIK_TESTS_FUZZ_FUZZTARGET_H

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QLoggingCategory>

#include <cstdio>
#include <cstdlib>

/** Stops the fuzzer if something doesn't hold that should hold for all bytes. */
#define FUZZ_VERIFY(condition)                                                                               \
    do {                                                                                                     \
        if (!(condition)) {                                                                                  \
            std::fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #condition);                             \
            std::abort();                                                                                    \
        }                                                                                                    \
    } while (false)

namespace FuzzTarget {

/** Each target's own: reads bytes of any kind and verifies what holds for them all. */
void read(const QByteArray& bytes);

/** Makes the one application object, silent. */
inline void prepare(int* argc, char*** argv)
{
    static QCoreApplication application(*argc, *argv);
    QLoggingCategory::setFilterRules(QStringLiteral("*=false"));
}

/** Delivers what was posted. To all: what one receiver alone has got stays in the list of events. */
inline void deliver()
{
    QCoreApplication::sendPostedEvents();
}

/** @return the bytes in pieces, whose size follows from their number. */
inline QList<QByteArray> pieces(const QByteArray& bytes)
{
    constexpr int sizes = 7;
    const int size = 1 + bytes.size() % sizes;
    QList<QByteArray> pieces;
    for (int begin = 0; begin < bytes.size(); begin += size)
        pieces.append(bytes.mid(begin, size));
    return pieces;
}

} // namespace FuzzTarget

#endif
