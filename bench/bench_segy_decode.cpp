#include "BenchSegy.h"
#include "Figure.h"
#include "Process.h"

#include "OvSeismic/segy/OvGather.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <segyio/segy.h>

#include <array>
#include <cstdlib>
#include <sys/mman.h>

// All samples of a file to float32, gather by gather on two threads: against two threads that only
// sum the bytes of a map, and against libsegyio on two threads and on one.

namespace {

constexpr int rounds = 7;
constexpr std::size_t threads = 2;
constexpr double againstSum = 2.0;  // half its rate
constexpr double againstIeee = 0.5; // twice libsegyio's rate
constexpr double againstIbm = 0.2;  // five times its rate

/// Milliseconds that work(number) takes in all threads together.
template <typename Work>
double timed(const Work& work)
{
    return Figure::timed([&] {
        std::thread other([&] { work(1); });
        work(0);
        other.join();
    });
}

using Headers = std::vector<std::vector<OvTraceHeader>>;

Headers headersOf(const OvSegyFile& file, const OvSegyIndex& index)
{
    Headers headers;
    for (int gather = 0; gather < index.gatherCount(); ++gather)
        headers.push_back(index.gatherHeaders(file, gather).headers);
    return headers;
}

double decodeTime(const OvSegyFile& file, const Headers& headers, std::atomic<int>* failures)
{
    return timed([&](std::size_t number) {
        OvGather gather;
        for (std::size_t i = number; i < headers.size(); i += threads) {
            gather.headers = headers[i];
            *failures += file.readSamples(&gather) ? 0 : 1;
        }
    });
}

/// A file opened by libsegyio for each thread.
class Segyio
{
public:
    explicit Segyio(const QString& path)
    {
        for (segy_file*& file : m_files) {
            file = segy_open(QFile::encodeName(path).constData(), "rb");
            segy_mmap(file);
        }
    }
    ~Segyio()
    {
        for (segy_file* file : m_files)
            segy_close(file);
    }
    double time(const BenchSegy& segy) const
    {
        return timed([&](std::size_t number) { decode(segy, number, threads); });
    }
    /// As the library works by itself: on one thread.
    double timeAlone(const BenchSegy& segy) const
    {
        return timed([&](std::size_t number) {
            if (number == 0)
                decode(segy, 0, 1);
        });
    }

private:
    void decode(const BenchSegy& segy, std::size_t first, qint64 step) const
    {
        const int bytes = segy.samples * segy.sampleBytes();
        std::vector<float> samples(static_cast<std::size_t>(segy.samples));
        for (qint64 i = static_cast<qint64>(first); i < segy.traces; i += step) {
            segy_readtrace(m_files[first], static_cast<int>(i), samples.data(), 3600, bytes);
            segy_to_native(segy.format, segy.samples, samples.data());
        }
    }

    std::array<segy_file*, threads> m_files{};
};

double sumTime(const void* map, qint64 size, std::atomic<quint64>* sink)
{
    return timed([&](std::size_t number) {
        const std::size_t half = static_cast<std::size_t>(size) / threads / sizeof(quint64);
        const char* bytes = static_cast<const char*>(map) + number * half * sizeof(quint64);
        quint64 sum = 0;
        for (std::size_t i = 0; i < half; ++i) {
            quint64 word = 0;
            std::memcpy(&word, bytes + i * sizeof(word), sizeof(word));
            sum += word;
        }
        *sink += sum;
    });
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
    const Headers headers = headersOf(file, index);
    const Segyio peer(path);
    const int handle = open(QFile::encodeName(path).constData(), O_RDONLY);
    const auto size = static_cast<std::size_t>(segy.fileBytes());
    void* map = mmap(nullptr, size, PROT_READ, MAP_SHARED, handle, 0);
    close(handle);
    std::atomic<int> failures{0};
    std::atomic<quint64> sink{0};
    std::vector<double> ours;
    std::vector<double> segyio;
    std::vector<double> alone;
    std::vector<double> sum;
    for (int round = -1; round < rounds; ++round) { // all pages are mapped after the first
        const double decoded = decodeTime(file, headers, &failures);
        const double summed = sumTime(map, segy.fileBytes(), &sink);
        const double peers = peer.time(segy);
        const double single = peer.timeAlone(segy);
        if (round < 0)
            continue;
        ours.push_back(decoded);
        sum.push_back(summed);
        segyio.push_back(peers);
        alone.push_back(single);
    }
    munmap(map, size);
    const double median = failures == 0 && sink != 0 ? Figure::median(ours) : std::nan("");
    const bool ieee = format == 5;
    Figure::report(ieee ? "decode_ieee_sum" : "decode_ibm_sum", median, Figure::median(sum),
                   againstSum);
    Figure::report(ieee ? "decode_ieee_segyio" : "decode_ibm_segyio", median,
                   Figure::median(segyio), ieee ? againstIeee : againstIbm);
    Figure::report(ieee ? "decode_ieee_segyio_alone" : "decode_ibm_segyio_alone", median,
                   Figure::median(alone), ieee ? againstIeee : againstIbm);
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
