#include "fuzz/FuzzTarget.h"

// What a fuzzer and the replay of the kept inputs call.

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    FuzzTarget::prepare(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, std::size_t size)
{
    FuzzTarget::read(QByteArray(reinterpret_cast<const char*>(data), int(size)));
    return 0;
}
