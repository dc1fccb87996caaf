#include "OvSeismic/segy/OvSegyIndexCache.h"

#include "OvSeismic/segy/OvSegyFile.h"
#include "fixtures/SegyWriter.h"

#include <QtTest>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <thread>

class tst_OvSegyIndexCache : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void roundTrip();
    void variableLength();
    void nothingKept();
    void otherMappingIsAnotherIndex();
    void everyByteFlipped();
    void everyTruncation();
    void bytesBehind();
    void lyingCounts();
    void damagedIsBuiltAnew();
    void changedFile_data();
    void changedFile();
    void changedWhileOpenIsNotKept();
    void smallFilesAreNotKept();
    void folderThatCannotBeMade();
    void twoWriters();
    void leastRecentlyUsedGoes();
    void abandonedFilesGo();

private:
    void write(const SegyWriter& writer);
    void open();
    int cacheFiles() const { return QDir(m_cacheFolder).entryList(QDir::Files).size(); }
    std::vector<char> encoded(OvSegyIndexCache::Key* key);

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_cacheFolder;
    QString m_path;
    std::unique_ptr<OvSegyFile> m_file;
    OvSegyIndexCache::Limits m_limits;
};

namespace {

const OvTraceHeaderMapping standard;

using FileTime = std::filesystem::file_time_type;

std::filesystem::path nativePath(const QString& path)
{
    return std::filesystem::path(QFile::encodeName(path).toStdString());
}

void setAge(const QString& path, int days)
{
    std::filesystem::last_write_time(nativePath(path),
                                     FileTime::clock::now() - std::chrono::hours(24 * days));
}

bool sameIndex(const OvSegyFile& file, const OvSegyIndex& a, const OvSegyIndex& b)
{
    bool same = a.traceCount() == b.traceCount() && a.gatherCount() == b.gatherCount() &&
                a.warnings() == b.warnings() && qFuzzyCompare(a.maximumOffset(), b.maximumOffset());
    for (int gather = 0; gather < a.gatherCount() && same; ++gather) {
        const OvGather left = a.gatherHeaders(file, gather);
        const OvGather right = b.gatherHeaders(file, gather);
        same = left.traceCount() == right.traceCount();
        for (std::size_t row = 0; row < left.headers.size() && same; ++row)
            same = left.headers[row].traceIndex == right.headers[row].traceIndex &&
                   left.headers[row].channel == right.headers[row].channel &&
                   !(left.headers[row].offset < right.headers[row].offset) &&
                   !(left.headers[row].offset > right.headers[row].offset);
    }
    return same;
}

} // namespace

void tst_OvSegyIndexCache::init()
{
    m_file.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    m_cacheFolder = m_folder->filePath(QStringLiteral("cache"));
    m_path = m_folder->filePath(QStringLiteral("炮集.sgy"));
    m_limits = {};
    m_limits.smallestTraces = 1;
    write(SegyWriter::ramps(1300, 3));
    open();
}

void tst_OvSegyIndexCache::write(const SegyWriter& writer)
{
    QVERIFY(writer.write(m_path));
}

void tst_OvSegyIndexCache::open()
{
    m_file = std::make_unique<OvSegyFile>();
    const OvStatus status = m_file->open(m_path);
    QVERIFY2(status, qPrintable(status.message()));
}

std::vector<char> tst_OvSegyIndexCache::encoded(OvSegyIndexCache::Key* key)
{
    OvSegyIndex index;
    const bool built =
        index.build(*m_file).ok() && OvSegyIndexCache::keyOf(*m_file, standard, key).ok();
    return built ? OvSegyIndexCache::encode(index, *key, m_file->savedLocator())
                 : std::vector<char>();
}

void tst_OvSegyIndexCache::roundTrip()
{
    const OvSegyIndexCache cache(m_cacheFolder, m_limits);
    OvSegyIndex built;
    int calls = 0;
    const auto progress = [&](qint64, qint64) { return ++calls > 0; };
    QVERIFY(cache.obtain(*m_file, standard, progress, &built));
    QVERIFY(calls > 0);
    QCOMPARE(cacheFiles(), 1);
    QVERIFY(QFileInfo::exists(cache.pathFor(m_path, standard)));

    calls = 0;
    open();
    OvSegyIndex kept;
    QVERIFY(cache.obtain(*m_file, standard, progress, &kept));
    QCOMPARE(calls, 0);
    QVERIFY(sameIndex(*m_file, built, kept));
    OvGather gather;
    QVERIFY(kept.readGather(*m_file, 7, &gather));
    QCOMPARE(gather.trace(1)[2], SegyWriter::rampValue(29, 2));
    OvGatherOrder order;
    order.key = OvGatherKey::OffsetBin;
    QCOMPARE(kept.regrouped(order).gatherCount(), built.regrouped(order).gatherCount());
}

void tst_OvSegyIndexCache::variableLength()
{
    SegyWriter writer = SegyWriter::ramps(40, 6);
    QByteArray bytes = writer.bytes();
    // One trace loses its last two samples, and its header and the file say so.
    const int traceBytes = 240 + 6 * 4;
    const int third = 3600 + 2 * traceBytes;
    qToBigEndian<qint16>(4, bytes.data() + third + 114);
    bytes.remove(third + 240 + 4 * 4, 2 * 4);
    qToBigEndian<qint16>(0x0200, bytes.data() + 3500);
    qToBigEndian<qint16>(0, bytes.data() + 3502);
    QVERIFY(SegyWriter::writeBytes(m_path, bytes));
    open();
    QVERIFY(!m_file->hasFixedLength());
    const OvSegyIndexCache cache(m_cacheFolder, m_limits);
    OvSegyIndex built;
    QVERIFY(cache.obtain(*m_file, standard, {}, &built));
    QCOMPARE(built.traceCount(), qint64(40));

    open();
    QVERIFY(m_file->locatedCount() < 40);
    OvSegyIndex kept;
    QVERIFY(cache.load(*m_file, standard, &kept));
    QCOMPARE(kept.traceCount(), qint64(40));
    QCOMPARE(m_file->locatedCount(), qint64(40));
    QVERIFY(sameIndex(*m_file, built, kept));
    QCOMPARE(m_file->sampleCount(2), 4);
}

void tst_OvSegyIndexCache::nothingKept()
{
    OvSegyIndex index;
    QVERIFY(OvSegyIndexCache(m_cacheFolder, m_limits).load(*m_file, standard, &index));
    QCOMPARE(index.traceCount(), qint64(0));
    QVERIFY(OvSegyIndexCache(QString(), m_limits).obtain(*m_file, standard, {}, &index));
    QCOMPARE(index.traceCount(), qint64(1300));
    QVERIFY(!QFileInfo::exists(m_cacheFolder));
}

void tst_OvSegyIndexCache::otherMappingIsAnotherIndex()
{
    const OvSegyIndexCache cache(m_cacheFolder, m_limits);
    OvTraceHeaderMapping other;
    other.setWord(OvTraceHeaderMapping::FieldRecord, other.word(OvTraceHeaderMapping::Offset));
    OvSegyIndex index;
    QVERIFY(cache.obtain(*m_file, standard, {}, &index));
    const int gathers = index.gatherCount();
    QVERIFY(cache.obtain(*m_file, other, {}, &index));
    QVERIFY(index.gatherCount() != gathers);
    QCOMPARE(cacheFiles(), 2);
    QVERIFY(cache.load(*m_file, other, &index));
    QVERIFY(index.mapping() == other);
    QCOMPARE(index.gatherHeaders(*m_file, 0).headers.at(0).fieldRecord, 10);
    QVERIFY(cache.load(*m_file, standard, &index));
    QCOMPARE(index.gatherCount(), gathers);
}

void tst_OvSegyIndexCache::everyByteFlipped()
{
    OvSegyIndexCache::Key key;
    std::vector<char> bytes = encoded(&key);
    QVERIFY(bytes.size() > 1000 && bytes.size() < 100000);
    OvSegyIndex index;
    QByteArray locator;
    const auto size = static_cast<qint64>(bytes.size());
    QVERIFY(OvSegyIndexCache::decode(bytes.data(), size, key, &index, &locator));
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        for (const int bit : {1, 0x80}) {
            bytes[i] = static_cast<char>(bytes[i] ^ bit);
            QVERIFY2(!OvSegyIndexCache::decode(bytes.data(), size, key, &index, &locator),
                     qPrintable(QString::number(i)));
            QCOMPARE(index.traceCount(), qint64(0));
            bytes[i] = static_cast<char>(bytes[i] ^ bit);
        }
    }
}

void tst_OvSegyIndexCache::everyTruncation()
{
    OvSegyIndexCache::Key key;
    const std::vector<char> bytes = encoded(&key);
    OvSegyIndex index;
    QByteArray locator;
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        // A copy of that size, so that the sanitizer sees a read behind it.
        const std::vector<char> cut(bytes.begin(), bytes.begin() + static_cast<long>(size));
        QVERIFY(!OvSegyIndexCache::decode(cut.data(), static_cast<qint64>(size), key, &index,
                                          &locator));
    }
}

void tst_OvSegyIndexCache::bytesBehind()
{
    OvSegyIndexCache::Key key;
    std::vector<char> bytes = encoded(&key);
    bytes.push_back(0);
    OvSegyIndex index;
    QByteArray locator;
    QVERIFY(!OvSegyIndexCache::decode(bytes.data(), static_cast<qint64>(bytes.size()), key, &index,
                                      &locator));
}

void tst_OvSegyIndexCache::lyingCounts()
{
    OvSegyIndexCache::Key key;
    const std::vector<char> good = encoded(&key);
    OvSegyIndex index;
    QByteArray locator;
    // The counts of the head, each made huge, negative and zero.
    for (std::size_t at = 16; at + 8 <= 56; at += 8) {
        for (const qint64 lie : {qint64(0), qint64(-1), std::numeric_limits<qint64>::max(),
                                 std::numeric_limits<qint64>::min(), qint64(1) << 40}) {
            std::vector<char> bytes = good;
            std::memcpy(bytes.data() + at, &lie, sizeof(lie));
            QVERIFY(bytes == good ||
                    !OvSegyIndexCache::decode(bytes.data(), static_cast<qint64>(bytes.size()), key,
                                              &index, &locator));
        }
    }
}

void tst_OvSegyIndexCache::damagedIsBuiltAnew()
{
    const OvSegyIndexCache cache(m_cacheFolder, m_limits);
    OvSegyIndex index;
    QVERIFY(cache.obtain(*m_file, standard, {}, &index));
    const QString path = cache.pathFor(m_path, standard);
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        file.seek(file.size() / 2);
        file.write("damage");
    }
    const OvStatus status = cache.load(*m_file, standard, &index);
    QVERIFY(!status);
    QVERIFY(status.message().contains(QStringLiteral("damaged")));
    QCOMPARE(index.traceCount(), qint64(0));
    QTest::ignoreMessage(QtInfoMsg, QRegularExpression(QStringLiteral("made anew: it is damaged")));
    QVERIFY(cache.obtain(*m_file, standard, {}, &index));
    QCOMPARE(index.traceCount(), qint64(1300));
    QVERIFY(cache.load(*m_file, standard, &index));
    QCOMPARE(index.traceCount(), qint64(1300));
}

void tst_OvSegyIndexCache::changedFile_data()
{
    QTest::addColumn<QString>("change");
    QTest::newRow("another length") << "length";
    QTest::newRow("another time") << "time";
    QTest::newRow("another first header, same size and time") << "first";
    QTest::newRow("another last header, same size and time") << "last";
}

void tst_OvSegyIndexCache::changedFile()
{
    QFETCH(QString, change);
    const OvSegyIndexCache cache(m_cacheFolder, m_limits);
    OvSegyIndex index;
    QVERIFY(cache.obtain(*m_file, standard, {}, &index));
    const FileTime time = std::filesystem::last_write_time(nativePath(m_path));
    SegyWriter writer = SegyWriter::ramps(change == "length" ? 1000 : 1300, 3);
    QByteArray bytes = writer.bytes();
    const int lastHeader = bytes.size() - 240 - 3 * 4;
    if (change == "first")
        bytes[3600 + 11] = 77;
    if (change == "last")
        bytes[lastHeader + 11] = 77;
    QVERIFY(SegyWriter::writeBytes(m_path, bytes));
    std::filesystem::last_write_time(nativePath(m_path),
                                     change == "time" ? time + std::chrono::microseconds(1) : time);
    open();
    QVERIFY(!cache.load(*m_file, standard, &index));
    QTest::ignoreMessage(QtInfoMsg, QRegularExpression(QStringLiteral("changed since")));
    QVERIFY(cache.obtain(*m_file, standard, {}, &index));
    QCOMPARE(index.traceCount(), qint64(change == "length" ? 1000 : 1300));
    QVERIFY(cache.load(*m_file, standard, &index));
    QCOMPARE(cacheFiles(), 1);
}

void tst_OvSegyIndexCache::changedWhileOpenIsNotKept()
{
    const OvSegyIndexCache cache(m_cacheFolder, m_limits);
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::Append));
    file.write("more");
    file.close();
    OvSegyIndex index;
    QVERIFY(cache.obtain(*m_file, standard, {}, &index));
    QCOMPARE(index.traceCount(), qint64(1300));
    QCOMPARE(cacheFiles(), 0);
}

void tst_OvSegyIndexCache::smallFilesAreNotKept()
{
    m_limits.smallestTraces = 1301;
    OvSegyIndex index;
    QVERIFY(OvSegyIndexCache(m_cacheFolder, m_limits).obtain(*m_file, standard, {}, &index));
    QVERIFY(!QFileInfo::exists(m_cacheFolder));
    m_limits.smallestTraces = 1300;
    QVERIFY(OvSegyIndexCache(m_cacheFolder, m_limits).obtain(*m_file, standard, {}, &index));
    QCOMPARE(cacheFiles(), 1);
}

void tst_OvSegyIndexCache::folderThatCannotBeMade()
{
    // A file where the folder would be.
    QVERIFY(SegyWriter::writeBytes(m_cacheFolder, "x"));
    const OvSegyIndexCache cache(m_cacheFolder, m_limits);
    OvSegyIndex index;
    QTest::ignoreMessage(QtInfoMsg, QRegularExpression(QStringLiteral("Cannot keep")));
    QVERIFY(cache.obtain(*m_file, standard, {}, &index));
    QCOMPARE(index.traceCount(), qint64(1300));
    QVERIFY(!cache.save(*m_file, index));
}

void tst_OvSegyIndexCache::twoWriters()
{
    const OvSegyIndexCache cache(m_cacheFolder, m_limits);
    OvSegyIndex index;
    QVERIFY(index.build(*m_file));
    std::atomic<int> failures{0};
    const auto work = [&] {
        for (int round = 0; round < 20; ++round) {
            OvSegyIndex read;
            const bool good = cache.save(*m_file, index).ok() &&
                              cache.load(*m_file, standard, &read).ok() &&
                              read.traceCount() == 1300;
            failures += good ? 0 : 1;
        }
    };
    std::thread other(work);
    work();
    other.join();
    QCOMPARE(failures.load(), 0);
    QCOMPARE(cacheFiles(), 1);
}

void tst_OvSegyIndexCache::leastRecentlyUsedGoes()
{
    m_limits.files = 2;
    const OvSegyIndexCache cache(m_cacheFolder, m_limits);
    QStringList kept;
    OvSegyIndex index;
    for (const int number : {1, 2, 3}) {
        m_path = m_folder->filePath(QString("%1.sgy").arg(number));
        write(SegyWriter::ramps(100 * number, 3));
        open();
        kept += cache.pathFor(m_path, standard);
        QVERIFY(cache.obtain(*m_file, standard, {}, &index));
        setAge(kept.last(), number == 1 ? 1 : 2);
        if (number < 3)
            QVERIFY(cache.load(*m_file, standard, &index)); // used now
    }
    // The third was kept last, but its making has dropped the first, which was used before the
    // second.
    QVERIFY(!QFileInfo::exists(kept.at(0)));
    QVERIFY(QFileInfo::exists(kept.at(1)));
    QVERIFY(QFileInfo::exists(kept.at(2)));
    m_limits.bytes = 1;
    QVERIFY(OvSegyIndexCache(m_cacheFolder, m_limits).save(*m_file, index));
    QCOMPARE(cacheFiles(), 1);
    QVERIFY(QFileInfo::exists(kept.at(2)));
}

void tst_OvSegyIndexCache::abandonedFilesGo()
{
    const OvSegyIndexCache cache(m_cacheFolder, m_limits);
    QVERIFY(QDir().mkpath(m_cacheFolder));
    const QString rest = m_cacheFolder + "/0a1b.segyindex.QwErTy";
    const QString fresh = m_cacheFolder + "/0a1b.segyindex.AsDfGh";
    const QString foreign = m_cacheFolder + "/notes.txt";
    for (const QString& path : {rest, fresh, foreign}) {
        QVERIFY(SegyWriter::writeBytes(path, "x"));
        if (path != fresh)
            setAge(path, 3);
    }
    OvSegyIndex index;
    QVERIFY(cache.obtain(*m_file, standard, {}, &index));
    QVERIFY(!QFileInfo::exists(rest));
    QVERIFY(QFileInfo::exists(fresh));
    QVERIFY(QFileInfo::exists(foreign));
}

QTEST_GUILESS_MAIN(tst_OvSegyIndexCache)
#include "tst_OvSegyIndexCache.moc"
