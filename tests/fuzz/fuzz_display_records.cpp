#include "fuzz/FuzzTarget.h"
#include "network/CDisplayFrameReader.h"
#include "network/WrittenAgain.h"

namespace {

/** What a stranger's record may grow by: texts and tracks that aren't there come as their defaults. */
constexpr int SizeOfDefaults = 0x2000;

/** Takes every record as a client does, and reads it whatever it is. */
int takeRecords(CDisplayFrameReader& reader, const QByteArray& bytes)
{
    reader.append(bytes);
    int taken = 0;
    QByteArray record;
    while (reader.takeRecord(&record)) {
        FUZZ_VERIFY(record.size() <= DisplayRecord::MaxSize);
        taken += 2 + record.size();
        const QByteArray once = writtenAgain(record);
        FUZZ_VERIFY(once.size() <= record.size() + SizeOfDefaults);
        FUZZ_VERIFY(writtenAgain(once) == once);
    }
    return taken;
}

void readWhole(const QByteArray& bytes)
{
    CDisplayFrameReader reader;
    const int taken = takeRecords(reader, bytes);
    FUZZ_VERIFY(bytes.size() - taken == (reader.isEmpty() ? 0 : 1));
}

void readInPieces(const QByteArray& bytes)
{
    CDisplayFrameReader reader;
    int taken = 0;
    for (const QByteArray& piece : FuzzTarget::pieces(bytes))
        taken += takeRecords(reader, piece);
    FUZZ_VERIFY(bytes.size() - taken == (reader.isEmpty() ? 0 : 1));
}

} // namespace

void FuzzTarget::read(const QByteArray& bytes)
{
    readWhole(bytes);
    readInPieces(bytes);
}
