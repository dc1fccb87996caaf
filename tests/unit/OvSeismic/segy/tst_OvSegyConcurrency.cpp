#include "OvSeismic/firstbreak/OvFirstBreakFile.h"
#include "OvSeismic/segy/OvSegyDoctor.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"
#include "fixtures/SegyFormWriter.h"
#include "fixtures/SegyWriter.h"

#include <QtTest>

#include <atomic>
#include <thread>

/// One open file and one index, read by several threads at once.
class tst_OvSegyConcurrency : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void gathersFromManyThreads();
    void headersAndSamplesAndIndexAtOnce();
    void otherOrdersFromManyThreads();
    void tracesOfDifferentLengthAreLocatedByMany();
    void examinedByMany();
    void firstBreakFilesOfManyThreads();

private:
    template <typename Work>
    void inThreads(const Work& work)
    {
        std::vector<std::thread> threads;
        for (int number = 0; number < threadCount; ++number)
            threads.emplace_back(work, number);
        for (std::thread& thread : threads)
            thread.join();
        QCOMPARE(m_failures.load(), 0);
    }
    void check(bool good)
    {
        if (!good)
            ++m_failures;
    }

    static constexpr int threadCount = 6;
    static constexpr int traceCount = 400;
    static constexpr int sampleCount = 200;
    QTemporaryDir m_folder;
    OvSegyFile m_file;
    OvSegyIndex m_index;
    std::atomic<int> m_failures{0};
};

void tst_OvSegyConcurrency::initTestCase()
{
    const QString path = m_folder.filePath(QStringLiteral("shared.sgy"));
    SegyWriter writer = SegyWriter::ramps(traceCount, sampleCount);
    writer.format = 1;
    QVERIFY(writer.write(path));
    QVERIFY(m_file.open(path));
    QVERIFY(m_index.build(m_file));
}

void tst_OvSegyConcurrency::gathersFromManyThreads()
{
    inThreads([this](int number) {
        for (int i = 0; i < 2 * m_index.gatherCount(); ++i) {
            const int which = (i * (number + 1)) % m_index.gatherCount();
            OvGather gather;
            check(m_index.readGather(m_file, which, &gather).ok());
            for (int row = 0; row < gather.traceCount(); ++row) {
                for (int k = 0; k < sampleCount; k += 17)
                    check(gather.trace(row)[k] == SegyWriter::rampValue(4 * which + row, k));
            }
        }
    });
}

void tst_OvSegyConcurrency::otherOrdersFromManyThreads()
{
    inThreads([this](int number) {
        OvGatherOrder order;
        order.key = number % 2 ? OvGatherKey::OffsetBin : OvGatherKey::FieldRecord;
        order.sort = OvGatherSort::Offset;
        order.descending = true;
        const OvSegyIndex mine = m_index.regrouped(order);
        for (int which = 0; which < mine.gatherCount(); ++which) {
            OvGather gather;
            mine.prefetchGather(m_file, which + 1);
            check(mine.readGather(m_file, which, &gather).ok());
            for (int row = 0; row < gather.traceCount(); ++row) {
                const auto& header = gather.headers[static_cast<std::size_t>(row)];
                const int trace = static_cast<int>(header.traceIndex);
                check(gather.trace(row)[5] == SegyWriter::rampValue(trace, 5));
                check(mine.gatherOfTrace(header.traceIndex) == which);
            }
        }
    });
}

void tst_OvSegyConcurrency::headersAndSamplesAndIndexAtOnce()
{
    inThreads([this](int number) {
        std::vector<float> samples(sampleCount);
        std::vector<OvTraceHeader> headers;
        for (qint64 trace = number; trace < traceCount; trace += threadCount) {
            check(m_file.readSamples(trace, samples.data()).ok());
            check(samples[3] == SegyWriter::rampValue(int(trace), 3));
            check(m_file.readHeaders(trace, 5, &headers).ok());
            check(headers.front().offset == float(10 * (trace + 1)));
        }
        OvSegyIndex own;
        check(own.build(m_file).ok());
        check(own.gatherCount() == m_index.gatherCount());
    });
}

/// Whoever comes first locates; the others use what is known, be it a part or all.
void tst_OvSegyConcurrency::tracesOfDifferentLengthAreLocatedByMany()
{
    SegyFormWriter writer;
    writer.fixedLength = 0;
    writer.samplesStated = 20;
    for (int i = 0; i < traceCount; ++i) {
        writer.traces.emplace_back();
        writer.traces.back().samples = SegyFormWriter::ramp(i, 10 + i * 7 % 30);
    }
    const QString path = m_folder.filePath(QStringLiteral("variable.sgy"));
    QVERIFY(SegyWriter::writeBytes(path, writer.bytes()));
    OvSegyFile file;
    QVERIFY(file.open(path));
    QVERIFY(!file.hasFixedLength());
    inThreads([&](int number) {
        check(file.locate({}, 50 * (1 + number)).ok());
        const qint64 known = file.locatedCount();
        check(known >= 50 * (1 + number));
        for (qint64 trace = number; trace < known; trace += threadCount) {
            std::vector<float> read(std::size_t(file.sampleCount(trace)));
            const auto& expected = writer.traces[std::size_t(trace)].samples;
            check(file.readSamples(trace, read.data()).ok());
            check(std::equal(read.begin(), read.end(), expected.begin(), expected.end()));
        }
        check(file.locate().ok());
        check(file.info().traceCount == traceCount && file.info().sampleCount == 39);
        check(file.savedLocator().size() > traceCount * 4);
    });
}

void tst_OvSegyConcurrency::examinedByMany()
{
    inThreads([this](int number) {
        std::vector<OvSegyFinding> findings;
        const auto depth = number % 2 == 0 ? OvSegyDoctor::Depth::Full : OvSegyDoctor::Depth::Quick;
        check(OvSegyDoctor::examine(m_file, depth, &findings).ok() && !findings.empty());
    });
}

void tst_OvSegyConcurrency::firstBreakFilesOfManyThreads()
{
    const QString path = m_folder.filePath(QStringLiteral("shared.fb"));
    const OvSegyFileInfo info = m_file.info();
    // All write to the same block.
    const auto tracesOf = [](int number) {
        return std::vector<qint64>{2 * number, 2 * number + 1};
    };
    inThreads([&](int number) {
        OvFirstBreakFile file;
        check(file.open(path, info).ok());
        OvFirstBreaks breaks;
        breaks.resize(2);
        for (int round = 0; round < 5; ++round) {
            breaks.timesMs.assign(2, float(round));
            check(file.write(tracesOf(number), breaks).ok());
            OvFirstBreaks read;
            check(file.read(tracesOf(number), &read).ok());
            check(read.timesMs == breaks.timesMs);
        }
    });
    OvFirstBreakFile file;
    QVERIFY(file.open(path, info));
    for (int number = 0; number < int(threadCount); ++number) {
        OvFirstBreaks read;
        QVERIFY(file.read(tracesOf(number), &read));
        QCOMPARE(read.timesMs, std::vector<float>(2, 4.0F));
    }
}

QTEST_GUILESS_MAIN(tst_OvSegyConcurrency)
#include "tst_OvSegyConcurrency.moc"
