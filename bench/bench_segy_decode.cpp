#include "BenchSegy.h"
#include "Figure.h"
#include "Process.h"

#include "OvSeismic/segy/OvGather.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <segyio/segy.h>

#include <sys/mman.h>

// All samples of a file to float32, gather by gather on two threads: against two threads that only
// sum the bytes of a map, and against libsegyio on two threads.

namespace {

constexpr int rounds = 7;
constexpr int threads = 2;
constexpr double againstSum = 2.0;  // half its rate
constexpr double againstIeee = 0.5; // twice libsegyio's rate
constexpr double againstIbm = 0.2;  // five times its rate

/// Milliseconds that work(number) takes in all threads together.
template <typename Work>
double timed(const Work& work)
{
    QElapsedTimer clock;
    clock.start();
    std::thread other([&] { work(1); });
    work(0);
    other.join();
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

double decodeTime(const OvSegyFile& file, const OvSegyIndex& index, std::atomic<int>* failures)
{
    return timed([&](int number) {
        OvGather gather;
        for (int i = number; i < index.gatherCount(); i += threads) {
            gather.headers = index.gatherHeaders(file, i).headers;
            *failures += file.readSamples(&gather) ? 0 : 1;
        }
    });
}

double segyioTime(const QString& path, const BenchSegy& segy)
{
    return timed([&](int number) {
        segy_file* file = segy_open(QFile::encodeName(path).constData(), "rb");
        segy_mmap(file);
        const int bytes = segy.samples * segy.sampleBytes();
        std::vector<float> samples(static_cast<std::size_t>(segy.samples));
        for (qint64 i = number; i < segy.traces; i += threads) {
            segy_readtrace(file, static_cast<int>(i), samples.data(), 3600, bytes);
            segy_to_native(segy.format, segy.samples, samples.data());
        }
        segy_close(file);
    });
}

double sumTime(const QString& path, const BenchSegy& segy, std::atomic<quint64>* sink)
{
    const int handle = open(QFile::encodeName(path).constData(), O_RDONLY);
    const auto size = static_cast<std::size_t>(segy.fileBytes());
    void* map = mmap(nullptr, size, PROT_READ, MAP_SHARED, handle, 0);
    const double time = timed([&](int number) {
        const std::size_t half = size / threads / sizeof(quint64);
        const auto* words =
            static_cast<const quint64*>(map) + static_cast<std::size_t>(number) * half;
        quint64 sum = 0;
        for (std::size_t i = 0; i < half; ++i)
            sum += words[i];
        *sink += sum;
    });
    munmap(map, size);
    close(handle);
    return time;
}

void decode(const QString& path, qint16 format)
{
    BenchSegy segy;
    segy.traces = 253240;
    segy.samples = 1000;
    segy.format = format;
    OvSegyFile file;
    OvSegyIndex index;
    if (!segy.write(path) || !file.open(path) || !index.build(file)) {
        QTextStream(stderr) << "bench_segy_decode: cannot make " << path << '\n';
        std::exit(1);
    }
    std::atomic<int> failures{0};
    std::atomic<quint64> sink{0};
    std::vector<double> ours;
    std::vector<double> segyio;
    std::vector<double> sum;
    for (int round = 0; round < rounds; ++round) {
        ours.push_back(decodeTime(file, index, &failures));
        sum.push_back(sumTime(path, segy, &sink));
        segyio.push_back(segyioTime(path, segy));
    }
    const double median = failures == 0 && sink != 0 ? Figure::median(ours) : std::nan("");
    const bool ieee = format == 5;
    Figure::report(ieee ? "decode_ieee_sum" : "decode_ibm_sum", median, Figure::median(sum),
                   againstSum);
    Figure::report(ieee ? "decode_ieee_segyio" : "decode_ibm_segyio", median,
                   Figure::median(segyio), ieee ? againstIeee : againstIbm);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder(QCoreApplication::applicationDirPath() + "/segy-XXXXXX");
    decode(folder.filePath("samples.sgy"), 5);
    decode(folder.filePath("samples.sgy"), 1);
    return 0;
}
