#include "fuzz/Entry.h"

#include <QFile>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#ifdef OV_FUZZ_SEED
/// With TARNPICK_FUZZ_SEED the program writes what its target starts from to that file, and ends.
extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    const QString path = qEnvironmentVariable("TARNPICK_FUZZ_SEED");
    if (path.isEmpty())
        return 0;
    const QByteArray bytes = Fuzz::OV_FUZZ_SEED();
    QFile file(path);
    const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    if (!written)
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
    file.close();
    std::exit(written ? 0 : 1);
}
#endif

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Fuzz::OV_FUZZ_ENTRY(QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    return 0;
}
