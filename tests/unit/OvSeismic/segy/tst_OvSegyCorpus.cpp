#include "OvSeismic/segy/OvSegyDoctor.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"

#include <QtTest>

#include <cmath>
#include <cstring>

namespace {

struct Expected
{
    const char* file;
    int traces;
    int samples;
    double intervalUs;
    int format;
    bool little;
    int major;
    int minor;
    bool ascii;
    int gathers;
    double nearest; ///< negative: unknown
    double farthest;
    const char* warning; ///< a part of the only warning expected, several after a bar; null: none
};

constexpr const char* noRecords = "no field records";
constexpr const char* noGeometry = "no usable coordinates|no field records";
constexpr const char* computed = "computed from the coordinates";
constexpr const char* staleCount = "462; 75 is used|no usable coordinates";

const Expected table[] = {
    {"formats/00001034.sgy_first_trace", 1, 2001, 2000, 1, true, 0, 0, true, 1, -1, -1,
     "no usable coordinates"},
    {"formats/1.sgy_first_trace", 1, 8000, 250, 2, false, 0, 0, true, 1, 3, 3, computed},
    {"formats/329.sgy", 3, 4096, 62, 2, false, 0, 0, true, 1, 0, 2, computed},
    {"formats/Format1lsb.sgy", 414, 75, 4000, 1, true, 1, 0, false, 23, -1, -1, staleCount},
    {"formats/Format1msb.sgy", 414, 75, 4000, 1, false, 1, 0, false, 23, -1, -1, staleCount},
    {"formats/Format2msb.sgy", 414, 75, 4000, 2, false, 1, 0, false, 23, -1, -1, staleCount},
    {"formats/Format3msb.sgy", 414, 75, 4000, 3, false, 1, 0, false, 23, -1, -1, staleCount},
    {"formats/Format5lsb.sgy", 414, 75, 4000, 5, true, 1, 0, false, 23, -1, -1, staleCount},
    {"formats/Format5msb.sgy", 414, 75, 4000, 5, false, 1, 0, false, 23, -1, -1, staleCount},
    {"formats/Format6msb.sgy", 414, 75, 4000, 6, false, 2, 0, false, 23, -1, -1, staleCount},
    {"formats/Format8msb.sgy", 414, 75, 4000, 8, false, 1, 0, false, 23, -1, -1, staleCount},
    {"formats/bigEndianIEEEFloat.sgy", 120, 751, 2000, 5, false, 0, 0, false, 1, 0, 3000,
     noRecords},
    {"formats/delay-scalar.sgy", 1, 251, 4000, 1, false, 1, 0, true, 1, -1, -1, noGeometry},
    {"formats/example.y_first_trace", 1, 500, 2000, 3, false, 0, 0, false, 1, -1, -1, noGeometry},
    {"formats/multi-text.sgy", 1, 1, 4000, 1, false, 0, 0, false, 1, -1, -1, noGeometry},
    {"formats/rotated-small-rev2.sgy", 25, 50, 4000, 1, false, 2, 0, false, 1, 1, 1, noRecords},
    {"formats/shot-gather.sgy", 61, 25, 1000, 1, false, 0, 0, false, 4, 1, 1, nullptr},
    {"formats/small-ieee.sgy", 25, 50, 4000, 5, false, 0, 0, false, 1, 1, 1, noRecords},
    {"formats/small-lsb.sgy", 25, 50, 4000, 1, true, 0, 0, false, 1, 1, 1, noRecords},
    {"formats/stanzas-known-count.sgy", 6, 4, 1000, 1, false, 0, 0, false, 1, 1, 1, noRecords},
    {"formats/trace-header-extension1.sgy", 6, 4, 1000, 1, false, 2, 1, false, 1, 1, 1, noRecords},
    {"gathers/judi_shot_record_250.segy", 99, 667, 750, 5, false, 0, 0, true, 1, 0, 740, computed},
    {"gathers/sardine_test.segy", 48, 12000, 250, 1, false, 1, 0, true, 1, -1, -1, noGeometry},
    {"gathers/viking_small.segy", 480, 600, 4000, 1, false, 0, 0, false, 4, 262, 3237,
     "1500; 600 is used"},
    {"gathers/walkaway_9B.sgy", 29, 1601, 125, 1, false, 0, 0, false, 1, 20, 160,
     "Every field record has one trace"},
    // The table of the corpus says 64 traces and means 63.7; only whole ones are read.
    {"odd/File010690.sgy", 63, 2000, 250, 2, false, 0, 0, true, 1, 403.1129, 1264.911,
     "Whole traces that are read: 63;|computed from the coordinates"},
    {"odd/corrupt_sin_wave.sgy", 3, 16666, 20000, 1, false, 1, 0, true, 1, -1, -1,
     "Whole traces that are read: 3;|no usable coordinates|no field records"},
    {"odd/interval-neg-bin-pos-trace.sgy", 1, 1, 4000, 1, false, 0, 0, false, 1, -1, -1,
     "no valid sample interval|no usable coordinates|no field records"},
    {"odd/long.sgy", 3, 60000, 1000, 1, false, 0, 0, false, 1, 0, 1082135296,
     "header of trace 2, at byte 243841, makes no sense|Every field record has one trace"},
    {"odd/small-duplicate-traceheaders.sgy", 25, 50, 4000, 1, false, 0, 0, false, 1, 1, 1,
     noRecords},
    {"odd/small-traceheader-samplerate.sgy", 25, 50, 4000, 1, false, 0, 0, false, 1, 1, 1,
     "no valid sample interval|no field records"},
    {"odd/小文件.sgy", 25, 50, 4000, 1, false, 0, 0, false, 1, 1, 1, noRecords},
};

const QPair<const char*, const char*> refused[] = {
    {"odd/ozdata.16", "Seismic Unix (SU) file"},
    {"odd/text.sgy", "not one trace"},
};

/// The values of an .npy file of little-endian float32.
std::vector<float> npyValues(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    const int start = 10 + static_cast<unsigned char>(bytes[8]) + 256 * bytes[9];
    std::vector<float> values(static_cast<std::size_t>(bytes.size() - start) / sizeof(float));
    std::memcpy(values.data(), bytes.constData() + start, values.size() * sizeof(float));
    return values;
}

} // namespace

/// Recorded and odd files against the table that comes with them.
class tst_OvSegyCorpus : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void opens_data();
    void opens();
    void refusesWithReason_data();
    void refusesWithReason();
    void nothingIsLeftOut();
    void samplesAgainstNpy_data();
    void samplesAgainstNpy();
    void sameSamplesInEveryFormat_data();
    void sameSamplesInEveryFormat();
    void lineA_data();
    void lineA();
    void lineBOffsetsComeFromCoordinates();
    void vikingGathers();
    void shotGatherRecords();
    void delays_data();
    void delays();
    void wrongDeclaration_data();
    void wrongDeclaration();
    void oneTraceIsNoProof();

private:
    QString path(const QString& file) const { return m_root + QLatin1Char('/') + file; }
    OvGather gather(const QString& file, int number = 0)
    {
        OvGather result;
        OvSegyIndex index;
        if (!m_file.open(path(file)) || !index.build(m_file) ||
            !index.readGather(m_file, number, &result))
            return {};
        return result;
    }

    QString m_root;
    OvSegyFile m_file;
};

void tst_OvSegyCorpus::initTestCase()
{
    m_root = qEnvironmentVariable("TARNPICK_TEST_DATA");
    if (m_root.isEmpty())
        QSKIP("TARNPICK_TEST_DATA does not name the folder of recorded files");
}

void tst_OvSegyCorpus::opens_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < int(std::size(table)); ++row)
        QTest::newRow(table[row].file) << row;
}

void tst_OvSegyCorpus::opens()
{
    QFETCH(int, row);
    const Expected& expected = table[row];
    const OvStatus status = m_file.open(path(QString::fromUtf8(expected.file)));
    QVERIFY2(status, qPrintable(status.message()));
    const OvSegyFileInfo& info = m_file.info();
    QCOMPARE(info.traceCount, qint64(expected.traces));
    QCOMPARE(info.sampleCount, expected.samples);
    QCOMPARE(info.intervalUs, expected.intervalUs);
    QCOMPARE(int(info.formatCode), expected.format);
    QCOMPARE(info.byteOrder == OvByteOrder::LittleEndian, expected.little);
    QCOMPARE(info.revisionMajor, expected.major);
    QCOMPARE(info.revisionMinor, expected.minor);
    QCOMPARE(info.textEncoding == OvTextEncoding::Ascii, expected.ascii);
    OvSegyIndex index;
    QVERIFY(index.build(m_file));
    QCOMPARE(index.traceCount(), qint64(expected.traces));
    QCOMPARE(index.gatherCount(), expected.gathers);
    QCOMPARE(std::isnan(index.minimumOffset()), expected.nearest < 0);
    if (expected.nearest >= 0) {
        QCOMPARE(index.minimumOffset(), float(expected.nearest));
        QCOMPARE(index.maximumOffset(), float(expected.farthest));
    }
    const QStringList warnings = info.warnings + index.warnings();
    QStringList parts = QString::fromUtf8(expected.warning).split(QLatin1Char('|'));
    parts.removeAll(QString());
    QVERIFY2(warnings.size() == parts.size(), qPrintable(warnings.join(QLatin1Char('\n'))));
    for (int i = 0; i < parts.size(); ++i)
        QVERIFY2(warnings.at(i).contains(parts.at(i)), qPrintable(warnings.at(i)));
    OvGather last;
    QVERIFY(index.readGather(m_file, index.gatherCount() - 1, &last));
    QVERIFY(last.traceCount() > 0);
}

void tst_OvSegyCorpus::refusesWithReason_data()
{
    QTest::addColumn<QString>("reason");
    for (const auto& row : refused)
        QTest::newRow(row.first) << row.second;
}

void tst_OvSegyCorpus::refusesWithReason()
{
    QFETCH(QString, reason);
    const QString file = QString::fromUtf8(QTest::currentDataTag());
    const OvStatus status = m_file.open(path(file));
    QVERIFY(!status);
    QVERIFY2(status.message().contains(reason), qPrintable(status.message()));
    QVERIFY(status.message().contains(file));
}

void tst_OvSegyCorpus::nothingIsLeftOut()
{
    QStringList known;
    for (const Expected& row : table)
        known += QString::fromUtf8(row.file);
    for (const auto& row : refused)
        known += QString::fromUtf8(row.first);
    for (const char* folder : {"formats", "gathers", "odd"}) {
        const QDir files(path(QLatin1String(folder)));
        for (const QString& name : files.entryList(QDir::Files)) {
            const QString file = QLatin1String(folder) + QLatin1Char('/') + name;
            if (!name.endsWith(QLatin1String(".npy")))
                QVERIFY2(known.contains(file), qPrintable(file));
        }
    }
}

void tst_OvSegyCorpus::samplesAgainstNpy_data()
{
    QTest::addColumn<QString>("file");
    for (const char* name :
         {"00001034.sgy_first_trace", "1.sgy_first_trace", "example.y_first_trace"})
        QTest::newRow(name) << QStringLiteral("formats/") + QLatin1String(name);
}

void tst_OvSegyCorpus::samplesAgainstNpy()
{
    QFETCH(QString, file);
    const std::vector<float> expected = npyValues(path(file + QStringLiteral(".npy")));
    const OvGather read = gather(file);
    QVERIFY(!expected.empty());
    QVERIFY(
        std::any_of(expected.begin(), expected.end(), [](float value) { return value != 0.0F; }));
    QCOMPARE(read.samples, expected);
}

void tst_OvSegyCorpus::sameSamplesInEveryFormat_data()
{
    QTest::addColumn<QString>("file");
    for (const char* name : {"1lsb", "2msb", "3msb", "5msb", "5lsb", "6msb"})
        QTest::newRow(name) << QStringLiteral("formats/Format%1.sgy").arg(QLatin1String(name));
}

void tst_OvSegyCorpus::sameSamplesInEveryFormat()
{
    QFETCH(QString, file);
    for (int number = 0; number < 23; ++number) {
        const OvGather reference = gather(QStringLiteral("formats/Format1msb.sgy"), number);
        QCOMPARE(reference.traceCount(), 18);
        QCOMPARE(gather(file, number).samples, reference.samples);
    }
}

void tst_OvSegyCorpus::lineA_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<double>("shot");
    for (const int metre : {846, 870, 894, 918, 966, 1014, 1062, 1086}) {
        QTest::addRow("%d", metre) << QStringLiteral("gathers/refr_line_A/shot_%1m_stacked.sgy")
                                          .arg(metre, 5, 10, QLatin1Char('0'))
                                   << double(metre);
    }
}

void tst_OvSegyCorpus::lineA()
{
    QFETCH(QString, file);
    QFETCH(double, shot);
    const OvGather read = gather(file);
    QCOMPARE(read.traceCount(), 48);
    QCOMPARE(read.sampleCount, 1500);
    for (int row = 0; row < 48; ++row) {
        const OvTraceHeader& header = read.headers[std::size_t(row)];
        QCOMPARE(header.channel, row + 1);
        QCOMPARE(header.delayMs, -5.0F);
        QCOMPARE(std::abs(header.offset), float(std::abs(header.receiverX - header.sourceX)));
        QVERIFY(std::abs(header.sourceX - shot) <= 6.0);
    }
}

void tst_OvSegyCorpus::lineBOffsetsComeFromCoordinates()
{
    const QDir folder(path(QStringLiteral("gathers/refr_line_B_swave")));
    const QStringList files = folder.entryList({QStringLiteral("*.sgy")});
    QCOMPARE(files.size(), 22);
    for (const QString& file : files) {
        const OvGather read = gather(QStringLiteral("gathers/refr_line_B_swave/") + file);
        QCOMPARE(read.traceCount(), 96);
        const double shot = file.mid(8).remove(QStringLiteral("m.sgy")).toDouble();
        for (const OvTraceHeader& header : read.headers) {
            QCOMPARE(header.sourceX, shot);
            QCOMPARE(header.offset, float(std::abs(header.receiverX - header.sourceX)));
            QCOMPARE(header.delayMs, -10.0F);
        }
    }
}

void tst_OvSegyCorpus::vikingGathers()
{
    for (int number = 0; number < 4; ++number) {
        const OvGather read = gather(QStringLiteral("gathers/viking_small.segy"), number);
        QCOMPARE(read.fieldRecord, 3 + number);
        QCOMPARE(read.traceCount(), 120);
        QCOMPARE(read.headers.front().offset, -3237.0F);
        QCOMPARE(read.headers.back().offset, -262.0F);
    }
}

void tst_OvSegyCorpus::shotGatherRecords()
{
    const QString file = QStringLiteral("formats/shot-gather.sgy");
    QVector<qint32> records;
    qint64 traces = 0;
    for (int number = 0; number < 4; ++number) {
        const OvGather read = gather(file, number);
        records += read.fieldRecord;
        for (const OvTraceHeader& header : read.headers)
            QCOMPARE(header.fieldRecord, read.fieldRecord);
        traces += read.traceCount();
    }
    QCOMPARE(records, (QVector<qint32>{2, 3, 5, 8}));
    QCOMPARE(traces, qint64(61));
}

void tst_OvSegyCorpus::delays_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<float>("delay");
    QTest::newRow("scaled") << QStringLiteral("formats/delay-scalar.sgy") << 1000.0F;
    QTest::newRow("negative") << QStringLiteral("formats/1.sgy_first_trace") << -100.0F;
    QTest::newRow("odd scalar") << QStringLiteral("gathers/walkaway_9B.sgy") << 0.0F;
}

void tst_OvSegyCorpus::delays()
{
    QFETCH(QString, file);
    QFETCH(float, delay);
    const OvGather read = gather(file);
    QVERIFY(read.traceCount() > 0);
    QCOMPARE(read.headers.front().delayMs, delay);
    QCOMPARE(read.timeMs(0, 2.0), double(delay) + 2.0 * read.intervalMs);
    QCOMPARE(read.sampleAt(0, read.timeMs(0, 7.5)), 7.5);
}

void tst_OvSegyCorpus::wrongDeclaration_data()
{
    QTest::addColumn<QString>("file");
    for (const int metre : {846, 870, 894, 918, 966, 1014, 1062, 1086}) {
        const QString file = QStringLiteral("gathers/refr_line_A/shot_%1m_stacked.sgy")
                                 .arg(metre, 5, 10, QLatin1Char('0'));
        QTest::newRow(qPrintable(file)) << file;
    }
    for (const char* file :
         {"gathers/sardine_test.segy", "gathers/viking_small.segy", "gathers/walkaway_9B.sgy",
          "gathers/judi_shot_record_250.segy", "formats/bigEndianIEEEFloat.sgy"})
        QTest::newRow(file) << QString::fromLatin1(file);
}

/// Each gather under the other of the two floating-point formats is read in its own all the same.
void tst_OvSegyCorpus::wrongDeclaration()
{
    QFETCH(QString, file);
    const OvGather right = gather(file);
    QVERIFY(right.traceCount() > 0);
    const int real = m_file.info().formatCode;
    QFile original(path(file));
    QVERIFY(original.open(QIODevice::ReadOnly));
    QByteArray bytes = original.readAll();
    QCOMPARE(int(bytes[3225]), real);
    bytes[3225] = static_cast<char>(6 - real);
    QTemporaryFile wrong;
    QVERIFY(wrong.open() && wrong.write(bytes) == bytes.size() && wrong.flush());
    QVERIFY(m_file.open(wrong.fileName()));
    QCOMPARE(int(m_file.info().formatCode), real);
    QCOMPARE(int(m_file.info().declaredFormatCode), 6 - real);
    QCOMPARE(m_file.info().warnings.filter(QStringLiteral("clearly are in format")).size(), 1);
    OvSegyIndex index;
    OvGather read;
    QVERIFY(index.build(m_file) && index.readGather(m_file, 0, &read));
    QCOMPARE(read.samples, right.samples);
}

/// The recorded trace that is declared as IBM and looks like IEEE is read as declared, as the
/// values that come with it are.
void tst_OvSegyCorpus::oneTraceIsNoProof()
{
    QVERIFY(m_file.open(path(QStringLiteral("formats/00001034.sgy_first_trace"))));
    QCOMPARE(int(m_file.info().formatCode), 1);
    QCOMPARE(int(m_file.info().likelyFormatCode), 5);
    std::vector<OvSegyFinding> findings;
    QVERIFY(OvSegyDoctor::examine(m_file, OvSegyDoctor::Depth::Quick, &findings));
    const auto doubt = std::find_if(findings.begin(), findings.end(), [](const auto& finding) {
        return finding.code == QStringLiteral("likely-format");
    });
    QVERIFY(doubt != findings.end());
    QCOMPARE(doubt->severity, OvSegyFinding::Severity::Warning);
}

QTEST_GUILESS_MAIN(tst_OvSegyCorpus)
#include "tst_OvSegyCorpus.moc"
