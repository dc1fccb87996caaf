#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"
#include "fixtures/SegyWriter.h"

#include <QtTest>

#include <atomic>
#include <thread>

/// A SEG-Y file that another program cuts short, lengthens or writes anew while it is mapped.
class tst_OvFileMap : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cutShortBeforeReading();
    void cutInsideAPage();
    void cutShortWhileThreadsRead();
    void cutShortWhileIndexed();
    void grownAgain();
    void growing();
    void replacedByAnotherFile();
    void manyFiles();
    void emptyAndTiny();

private:
    void resize(qint64 bytes) { QVERIFY(QFile::resize(m_path, bytes)); }
    OvStatus readAll() const;

    static constexpr int traces = 2000;
    static constexpr int samples = 500;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
    std::unique_ptr<OvSegyFile> m_file;
    OvSegyIndex m_index;
};

void tst_OvFileMap::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(QStringLiteral("shared.sgy"));
    QVERIFY(SegyWriter::ramps(traces, samples).write(m_path));
    m_file = std::make_unique<OvSegyFile>();
    QVERIFY(m_file->open(m_path));
    QVERIFY(m_index.build(*m_file));
}

OvStatus tst_OvFileMap::readAll() const
{
    OvGather gather;
    OvStatus status;
    for (int i = 0; i < m_index.gatherCount() && status; ++i)
        status = m_index.readGather(*m_file, i, &gather);
    return status;
}

void tst_OvFileMap::cutShortBeforeReading()
{
    QVERIFY(readAll());
    resize(100000);
    OvGather gather;
    QVERIFY(m_index.readGather(*m_file, 0, &gather));
    QCOMPARE(gather.trace(3)[7], SegyWriter::rampValue(3, 7));
    const OvStatus status = m_index.readGather(*m_file, m_index.gatherCount() - 1, &gather);
    QVERIFY(!status);
    QVERIFY(status.message().contains(QStringLiteral("shared.sgy")));
    QVERIFY(status.message().contains(QStringLiteral("Open it again")));
    QVERIFY(gather.samples.empty());
    // What is there stays readable.
    QVERIFY(m_index.readGather(*m_file, 1, &gather));
    QCOMPARE(gather.trace(0)[1], SegyWriter::rampValue(4, 1));
}

void tst_OvFileMap::cutInsideAPage()
{
    // Nothing faults: the rest of the last page reads as zeros.
    const qint64 size = QFileInfo(m_path).size();
    resize(size - 5);
    OvGather gather;
    QVERIFY(!m_index.readGather(*m_file, m_index.gatherCount() - 1, &gather));
    QVERIFY(m_index.readGather(*m_file, m_index.gatherCount() - 2, &gather));
}

void tst_OvFileMap::cutShortWhileThreadsRead()
{
    std::atomic<int> wrong{0};
    std::atomic<int> failed{0};
    std::atomic<int> rounds{0};
    std::vector<std::thread> readers;
    for (int number = 0; number < 4; ++number) {
        readers.emplace_back([&, number] {
            for (int i = number; failed < 4 || i % 97 != 0; ++i) {
                OvGather gather;
                const int which = (i * 31) % m_index.gatherCount();
                const bool good = m_index.readGather(*m_file, which, &gather).ok();
                ++rounds;
                if (!good)
                    ++failed;
                for (int row = 0; good && row < gather.traceCount(); ++row) {
                    for (int k = 1; k < samples; k += 71)
                        wrong += gather.trace(row)[k] == SegyWriter::rampValue(4 * which + row, k)
                                     ? 0
                                     : 1;
                }
            }
        });
    }
    while (rounds < 100)
        std::this_thread::yield();
    resize(QFileInfo(m_path).size() / 3);
    for (std::thread& reader : readers)
        reader.join();
    QVERIFY(failed >= 4);
    QCOMPARE(wrong.load(), 0);
}

void tst_OvFileMap::cutShortWhileIndexed()
{
    bool cut = false;
    std::atomic<bool> done{false};
    std::thread cutter;
    OvSegyIndex index;
    OvStatus status;
    // Again and again, until the cut meets a scan.
    cutter = std::thread([&] {
        QTest::qSleep(5);
        cut = QFile::resize(m_path, 500000);
        done = true;
    });
    do {
        status = index.build(*m_file);
    } while (status && !done);
    cutter.join();
    QVERIFY(cut);
    if (status)
        status = index.build(*m_file);
    QVERIFY(!status);
    QVERIFY(status.message().contains(QStringLiteral("shared.sgy")));
    QCOMPARE(index.traceCount(), qint64(0));
}

void tst_OvFileMap::grownAgain()
{
    const QByteArray bytes = SegyWriter::ramps(traces, samples).bytes();
    resize(50000);
    QVERIFY(!readAll());
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
    file.close();
    // The map has holes now; the file itself is read.
    OvSegyIndex again;
    QVERIFY(again.build(*m_file));
    QCOMPARE(again.gatherCount(), m_index.gatherCount());
    OvGather gather;
    for (int i = 0; i < m_index.gatherCount(); ++i) {
        QVERIFY(m_index.readGather(*m_file, i, &gather));
        QCOMPARE(gather.trace(2)[11], SegyWriter::rampValue(4 * i + 2, 11));
    }
}

void tst_OvFileMap::growing()
{
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::Append));
    QVERIFY(file.write(QByteArray(100000, 'x')) > 0);
    file.close();
    QVERIFY(readAll());
    OvSegyIndex again;
    QVERIFY(again.build(*m_file));
    QCOMPARE(again.traceCount(), qint64(traces));
}

void tst_OvFileMap::replacedByAnotherFile()
{
    QVERIFY(QFile::rename(m_path, m_path + ".old"));
    QVERIFY(SegyWriter::ramps(3, 10).write(m_path));
    QVERIFY(readAll());
    QVERIFY(QFile::remove(m_path + ".old"));
    QVERIFY(readAll());
}

void tst_OvFileMap::manyFiles()
{
    // More than there are places for maps: the rest is read.
    const QString path = m_folder->filePath(QStringLiteral("small.sgy"));
    QVERIFY(SegyWriter::ramps(8, 5).write(path));
    std::vector<std::unique_ptr<OvSegyFile>> files;
    for (int i = 0; i < 300; ++i) {
        files.push_back(std::make_unique<OvSegyFile>());
        QVERIFY(files.back()->open(path));
        OvSegyIndex index;
        QVERIFY(index.build(*files.back()));
        OvGather gather;
        QVERIFY(index.readGather(*files.back(), 1, &gather));
        QCOMPARE(gather.trace(1)[2], SegyWriter::rampValue(5, 2));
    }
}

void tst_OvFileMap::emptyAndTiny()
{
    for (const int bytes : {0, 1, 3599, 3600}) {
        resize(bytes);
        QVERIFY(!OvSegyFile().open(m_path));
    }
}

QTEST_GUILESS_MAIN(tst_OvFileMap)
#include "tst_OvFileMap.moc"
