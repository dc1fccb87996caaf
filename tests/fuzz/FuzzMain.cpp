#include "fuzz/Entry.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Fuzz::OV_FUZZ_ENTRY(QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    return 0;
}
