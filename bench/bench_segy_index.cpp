#include "BenchSegy.h"
#include "Figure.h"
#include "Process.h"

#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <segyio/segy.h>

#include <array>
#include <sys/mman.h>

// The header index of a million traces: against a loop that copies the same words through a bare
// map, against libsegyio, against reading the file once from a cold disk; and the memory it takes.

namespace {

constexpr int rounds = 7;
constexpr int coldRounds = 3;
constexpr double againstBareLoop = 3.0;
constexpr double againstSegyio = 1.0;
constexpr double againstColdRead = 1.2;
constexpr double bytesBuilding = 80.0;
constexpr double bytesBuilt = 32.0;

constexpr std::array<int, 16> words = {9,  13, 21, 29, 37, 41, 45,  69,
                                       71, 73, 77, 81, 85, 89, 109, 215};

double indexTime(const QString& path, OvSegyIndex* index)
{
    QElapsedTimer clock;
    clock.start();
    OvSegyFile file;
    OvStatus status = file.open(path);
    if (status)
        status = index->build(file);
    if (status)
        return Figure::milliseconds(clock);
    QTextStream(stderr) << status.message() << '\n';
    return std::nan("");
}

double bareLoopTime(const QString& path, const BenchSegy& segy, std::vector<qint32>* out)
{
    QElapsedTimer clock;
    clock.start();
    const int handle = open(QFile::encodeName(path).constData(), O_RDONLY);
    const auto size = static_cast<std::size_t>(segy.fileBytes());
    void* map = mmap(nullptr, size, PROT_READ, MAP_SHARED, handle, 0);
    const char* trace = static_cast<const char*>(map) + 3600;
    qint32* place = out->data();
    for (qint64 i = 0; i < segy.traces; ++i, trace += segy.traceBytes()) {
        for (const int word : words)
            std::memcpy(place++, trace + word - 1, sizeof(qint32));
    }
    munmap(map, size);
    close(handle);
    return Figure::milliseconds(clock);
}

double segyioTime(const QString& path, const BenchSegy& segy, std::vector<qint32>* out)
{
    QElapsedTimer clock;
    clock.start();
    segy_file* file = segy_open(QFile::encodeName(path).constData(), "rb");
    segy_mmap(file);
    const auto traces = static_cast<std::size_t>(segy.traces);
    for (std::size_t i = 0; i < words.size(); ++i)
        segy_field_forall(file, words[i], 0, static_cast<int>(segy.traces), 1,
                          out->data() + i * traces, 3600, segy.samples * segy.sampleBytes());
    segy_close(file);
    return Figure::milliseconds(clock);
}

void warmIndex(const QString& path, const BenchSegy& segy)
{
    std::vector<qint32> out(static_cast<std::size_t>(segy.traces) * words.size());
    std::vector<double> ours;
    std::vector<double> bare;
    std::vector<double> segyio;
    Process::warm(path);
    for (int round = 0; round < rounds; ++round) {
        OvSegyIndex index;
        ours.push_back(indexTime(path, &index));
        bare.push_back(bareLoopTime(path, segy, &out));
        segyio.push_back(segyioTime(path, segy, &out));
    }
    Figure::report("index_bare_loop", Figure::median(ours), Figure::median(bare), againstBareLoop);
    Figure::report("index_segyio", Figure::median(ours), Figure::median(segyio), againstSegyio);
}

void memory(const QString& path, const BenchSegy& segy)
{
    OvSegyIndex index;
    const qint64 before = Process::tidyAnonymousBytes();
    const qint64 peak = Process::peakOf([&] { indexTime(path, &index); });
    const auto traces = static_cast<double>(segy.traces);
    const auto built = static_cast<double>(Process::tidyAnonymousBytes() - before);
    Figure::report("index_memory_building", static_cast<double>(peak) / traces, bytesBuilding, 1.0,
                   "bytes a trace");
    Figure::report("index_memory_built", built / traces, bytesBuilt, 1.0, "bytes a trace");
}

void coldIndex(const QString& path)
{
    const auto index = [&path] {
        Process::forget(path);
        OvSegyIndex cold;
        return indexTime(path, &cold);
    };
    const auto read = [&path] {
        Process::forget(path);
        return Figure::timed([&path] { Process::warm(path); });
    };
    Figure::race("index_cold", coldRounds, againstColdRead, index, read);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    // Beside the program: a folder for temporary files may lie in memory.
    const QTemporaryDir folder(QCoreApplication::applicationDirPath() + "/segy-XXXXXX");
    const QString path = folder.filePath("million.sgy");
    BenchSegy segy;
    segy.traces = 1000000;
    segy.samples = 750;
    segy.format = 5;
    if (!segy.write(path)) {
        QTextStream(stderr) << "bench_segy_index: cannot write " << path << '\n';
        return 1;
    }
    warmIndex(path, segy);
    memory(path, segy);
    coldIndex(path);
    return 0;
}
