#include "OvSeismic/segy/OvSegyDoctor.h"

#include "OvSeismic/segy/OvSegyFile.h"
#include "fixtures/SegyWriter.h"

#include <QtTest>

#include <cmath>
#include <limits>

namespace {

using Findings = std::vector<OvSegyFinding>;
using Severity = OvSegyFinding::Severity;

const OvSegyFinding* find(const Findings& findings, const char* code)
{
    for (const OvSegyFinding& finding : findings) {
        if (finding.code == QLatin1String(code))
            return &finding;
    }
    return nullptr;
}

QStringList codes(const Findings& findings, Severity severity)
{
    QStringList result;
    for (const OvSegyFinding& finding : findings) {
        if (finding.severity == severity)
            result += finding.code;
    }
    return result;
}

/// Three records of four channels with everything that a file should have.
std::vector<SegyTrace> wholeLine()
{
    std::vector<SegyTrace> traces;
    for (int i = 0; i < 12; ++i) {
        SegyTrace trace;
        trace.fieldRecord = 10 + i / 4;
        trace.channel = 1 + i % 4;
        trace.offset = 10 * (1 + i % 4);
        trace.sourceX = 1000 + i / 4;
        trace.receiverX = 1010 + i;
        trace.sourceElevation = 50;
        trace.samples.assign(20, 1.0F);
        trace.samples[5] = 7.0F;
        traces.push_back(trace);
    }
    return traces;
}

} // namespace

class tst_OvSegyDoctor : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void wholeFileHasNothingToSay();
    void duplicates();
    void missingChannels();
    void negativeNumbers();
    void missingRecords();
    void recordsInSteps();
    void notFinite();
    void deadTraces();
    void hugeSamples();
    void statedCountsAndIntervals();
    void oddScalars();
    void noGeometry();
    void offsetsFromCoordinates();
    void wordsElsewhere();
    void cutOffTail();
    void quickLooksAtAPart();
    void quickIsBoundedOnLongTraces();
    void progressAndCancel();
    void fileThatShrinks();
    void worstFirst();

private:
    Findings examine(const SegyWriter& writer,
                     OvSegyDoctor::Depth depth = OvSegyDoctor::Depth::Full);
    Findings examine(const std::vector<SegyTrace>& traces);
    QString path() const { return m_folder->filePath(QStringLiteral("test.sgy")); }

    std::unique_ptr<QTemporaryDir> m_folder;
    OvSegyFile m_file;
};

void tst_OvSegyDoctor::init()
{
    m_file.close();
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

Findings tst_OvSegyDoctor::examine(const SegyWriter& writer, OvSegyDoctor::Depth depth)
{
    Findings findings;
    if (!writer.write(path()) || !m_file.open(path()) ||
        !OvSegyDoctor::examine(m_file, depth, &findings))
        return {};
    return findings;
}

Findings tst_OvSegyDoctor::examine(const std::vector<SegyTrace>& traces)
{
    SegyWriter writer;
    writer.sampleCount = 20;
    for (const SegyTrace& trace : traces)
        writer.add(trace);
    return examine(writer);
}

void tst_OvSegyDoctor::wholeFileHasNothingToSay()
{
    const Findings findings = examine(wholeLine());
    QCOMPARE(codes(findings, Severity::Error), QStringList());
    QCOMPARE(codes(findings, Severity::Warning), QStringList());
    QCOMPARE(codes(findings, Severity::Info),
             QStringList({"revision", "byte-order", "text", "format", "traces"}));
    QCOMPARE(find(findings, "traces")->text,
             QStringLiteral("Traces: 12. Samples of a trace: 20, one every 1000 µs."));
    QCOMPARE(find(findings, "format")->firstByte, qint64(3225));
    QCOMPARE(find(findings, "format")->lastByte, qint64(3226));
}

void tst_OvSegyDoctor::duplicates()
{
    auto traces = wholeLine();
    traces.push_back(traces[5]);
    traces.push_back(traces[5]);
    const Findings findings = examine(traces);
    const OvSegyFinding* finding = find(findings, "duplicates");
    QVERIFY(finding);
    QCOMPARE(finding->severity, Severity::Warning);
    QCOMPARE(finding->count, qint64(2));
    QVERIFY2(finding->text.contains(QStringLiteral("record 11 and channel 2")),
             qPrintable(finding->text));
}

void tst_OvSegyDoctor::missingChannels()
{
    auto traces = wholeLine();
    traces.erase(traces.begin() + 5, traces.begin() + 7);
    const Findings findings = examine(traces);
    const OvSegyFinding* finding = find(findings, "missing-channels");
    QVERIFY(finding);
    QCOMPARE(finding->count, qint64(1));
    // One or many, the sentence is the same.
    QCOMPARE(finding->text, QStringLiteral("Field records that lack channels: 1; the first is "
                                           "record 11 without channel 2."));
}

void tst_OvSegyDoctor::negativeNumbers()
{
    auto traces = wholeLine();
    const qint32 channels[] = {-2, -1, 1, 2};
    for (std::size_t i = 0; i < traces.size(); ++i) {
        traces[i].fieldRecord -= 11;
        traces[i].channel = channels[i % 4];
    }
    const Findings findings = examine(traces);
    QCOMPARE(find(findings, "missing-channels")->count, qint64(3));
    QVERIFY2(find(findings, "missing-channels")->text.contains("record -1 without channel 0"),
             qPrintable(find(findings, "missing-channels")->text));
}

void tst_OvSegyDoctor::missingRecords()
{
    auto traces = wholeLine();
    for (std::size_t i = 8; i < 12; ++i)
        traces[i].fieldRecord = 15;
    for (const qint32 record : {9, 8, 7}) {
        traces.push_back(traces[0]);
        traces.back().fieldRecord = record;
    }
    const Findings findings = examine(traces);
    const OvSegyFinding* finding = find(findings, "missing-records");
    QVERIFY(finding);
    QCOMPARE(finding->count, qint64(3));
    QVERIFY2(finding->text.contains(QStringLiteral("missing between 7 and 15: 3; the first is 12")),
             qPrintable(finding->text));
}

void tst_OvSegyDoctor::recordsInSteps()
{
    auto traces = wholeLine();
    for (SegyTrace& trace : traces)
        trace.fieldRecord *= -10;
    QVERIFY(!find(examine(traces), "missing-records"));
}

void tst_OvSegyDoctor::notFinite()
{
    auto traces = wholeLine();
    traces[3].samples[7] = std::nanf("");
    traces[3].samples[8] = std::numeric_limits<float>::infinity();
    traces[9].samples[0] = -std::numeric_limits<float>::infinity();
    const Findings findings = examine(traces);
    QCOMPARE(codes(findings, Severity::Error), QStringList({"not-finite"}));
    QCOMPARE(findings.front().code, QStringLiteral("not-finite"));
    QCOMPARE(findings.front().count, qint64(2));
    QCOMPARE(findings.front().firstTrace, qint64(3));
    QVERIFY2(findings.front().text.startsWith(QStringLiteral(
                 "Samples that are infinite or no numbers: 3; traces with such samples: 2")),
             qPrintable(findings.front().text));
    QVERIFY(!findings.front().advice.isEmpty());
}

void tst_OvSegyDoctor::deadTraces()
{
    auto traces = wholeLine();
    traces[2].samples.assign(20, 0.0F);
    traces[4].samples.assign(20, -3.0F);
    traces[6].samples.clear();
    traces[6].traceId = 2;
    const Findings findings = examine(traces);
    QCOMPARE(find(findings, "dead-traces")->count, qint64(2));
    QCOMPARE(find(findings, "dead-traces")->firstTrace, qint64(2));
    QCOMPARE(find(findings, "marked-dead")->count, qint64(1));
    QCOMPARE(find(findings, "marked-dead")->firstTrace, qint64(6));
    QCOMPARE(find(findings, "marked-dead")->severity, Severity::Info);
}

void tst_OvSegyDoctor::hugeSamples()
{
    auto traces = wholeLine();
    traces[1].samples[0] = -1e30F;
    QCOMPARE(find(examine(traces), "huge-samples")->firstTrace, qint64(1));
}

void tst_OvSegyDoctor::statedCountsAndIntervals()
{
    auto traces = wholeLine();
    traces[7].words[115] = 1500;
    traces[8].words[115] = 0;
    traces[10].words[117] = 4000;
    traces[11].words[117] = 2000;
    const Findings findings = examine(traces);
    QCOMPARE(find(findings, "sample-counts")->count, qint64(1));
    QCOMPARE(find(findings, "sample-counts")->firstTrace, qint64(7));
    QCOMPARE(find(findings, "sample-intervals")->count, qint64(2));
    QCOMPARE(find(findings, "sample-intervals")->firstTrace, qint64(10));
}

void tst_OvSegyDoctor::oddScalars()
{
    auto traces = wholeLine();
    traces[0].coordinateScalar = -100;
    traces[4].elevationScalar = 7;
    QCOMPARE(find(examine(traces), "scalars")->firstTrace, qint64(4));
}

void tst_OvSegyDoctor::noGeometry()
{
    SegyTrace bare;
    bare.fieldRecord = 0;
    bare.samples = {1.0F, 2.0F};
    const Findings findings = examine({bare, bare});
    QCOMPARE(codes(findings, Severity::Warning), QStringList({"no-field-records", "no-offsets"}));
    for (const char* code :
         {"no-channels", "no-elevations", "no-source-positions", "no-receiver-positions"})
        QVERIFY2(find(findings, code), code);
    // Traces without numbers are no duplicates.
    QVERIFY(!find(findings, "duplicates"));
}

void tst_OvSegyDoctor::offsetsFromCoordinates()
{
    auto traces = wholeLine();
    for (SegyTrace& trace : traces)
        trace.offset = 0;
    const Findings findings = examine(traces);
    QCOMPARE(find(findings, "no-offsets")->severity, Severity::Info);
    QCOMPARE(codes(findings, Severity::Warning), QStringList());
}

void tst_OvSegyDoctor::wordsElsewhere()
{
    auto traces = wholeLine();
    for (SegyTrace& trace : traces) {
        trace.words[189] = 0;
        trace.words[191] = static_cast<qint16>(trace.fieldRecord);
        trace.fieldRecord = 0;
    }
    traces.erase(traces.begin() + 5);
    QVERIFY(find(examine(traces), "no-field-records"));
    OvTraceHeaderMapping mapping;
    mapping.setWord(OvTraceHeaderMapping::FieldRecord, {189, OvHeaderType::Int32});
    Findings findings;
    QVERIFY(OvSegyDoctor::examine(m_file, OvSegyDoctor::Depth::Full, &findings, {}, mapping));
    QVERIFY(!find(findings, "no-field-records"));
    QVERIFY2(find(findings, "missing-channels")->text.contains("record 11 without channel 2"),
             qPrintable(find(findings, "missing-channels")->text));
    // A header without room for the mapping is read by the standard places.
    mapping.setWord(OvTraceHeaderMapping::FieldRecord, {300, OvHeaderType::Int32});
    QVERIFY(OvSegyDoctor::examine(m_file, OvSegyDoctor::Depth::Full, &findings, {}, mapping));
    QVERIFY(find(findings, "no-field-records"));
}

void tst_OvSegyDoctor::cutOffTail()
{
    QVERIFY(SegyWriter::ramps(10, 20).write(path()));
    QVERIFY(QFile::resize(path(), QFileInfo(path()).size() - 1));
    QVERIFY(m_file.open(path()));
    Findings findings;
    QVERIFY(OvSegyDoctor::examine(m_file, OvSegyDoctor::Depth::Quick, &findings));
    QVERIFY(find(findings, "layout"));
    QVERIFY2(
        find(findings, "layout")->text.contains(QStringLiteral("Whole traces that are read: 9;")),
        qPrintable(find(findings, "layout")->text));
    QCOMPARE(find(findings, "layout")->firstByte, qint64(3600 + 9 * 320 + 1));
    QCOMPARE(find(findings, "layout")->lastByte, QFileInfo(path()).size());
}

void tst_OvSegyDoctor::quickLooksAtAPart()
{
    const SegyWriter writer = SegyWriter::of(3000, 2, [](int i, SegyTrace* trace) {
        trace->channel = i + 1;
        trace->samples = {1.0F, i == 2999 ? std::nanf("") : 2.0F};
    });
    const Findings quick = examine(writer, OvSegyDoctor::Depth::Quick);
    QVERIFY(find(quick, "sampled"));
    QVERIFY(find(quick, "sampled")->count < 1000);
    // The last trace is always among those that are looked at, and a part shows no gaps.
    QVERIFY(find(quick, "not-finite"));
    QVERIFY(!find(quick, "missing-channels"));
    QVERIFY(!find(examine(writer), "sampled"));
}

void tst_OvSegyDoctor::quickIsBoundedOnLongTraces()
{
    QVERIFY(SegyWriter::ramps(1, 60000).write(path()));
    constexpr qint64 traceBytes = 240 + 4 * 60000;
    if (!QFile::resize(path(), 3600 + traceBytes * 100000))
        QSKIP("The file system does not take a sparse file of 24 GB");
    QVERIFY(m_file.open(path()));
    Findings findings;
    QVERIFY(OvSegyDoctor::examine(m_file, OvSegyDoctor::Depth::Quick, &findings));
    QVERIFY(find(findings, "sampled"));
    QVERIFY(find(findings, "sampled")->count * traceBytes <= 64 << 20);
    QVERIFY(find(findings, "dead-traces"));
}

void tst_OvSegyDoctor::progressAndCancel()
{
    QVERIFY(SegyWriter::ramps(5000, 500).write(path()));
    QVERIFY(m_file.open(path()));
    Findings findings;
    qint64 last = -1;
    const auto watch = [&](qint64 done, qint64 total) {
        last = done >= last && total == 5000 ? done : 1000000;
        return true;
    };
    QVERIFY(OvSegyDoctor::examine(m_file, OvSegyDoctor::Depth::Full, &findings, watch));
    QCOMPARE(last, qint64(5000));
    QVERIFY(!findings.empty());
    const OvStatus status = OvSegyDoctor::examine(m_file, OvSegyDoctor::Depth::Full, &findings,
                                                  [](qint64, qint64) { return false; });
    QVERIFY(!status);
    QCOMPARE(status.message(), QStringLiteral("Cancelled."));
    QVERIFY(findings.empty());
}

void tst_OvSegyDoctor::fileThatShrinks()
{
    QVERIFY(SegyWriter::ramps(100, 50).write(path()));
    QVERIFY(m_file.open(path()));
    QVERIFY(QFile::resize(path(), 5000));
    Findings findings;
    const OvStatus status = OvSegyDoctor::examine(m_file, OvSegyDoctor::Depth::Full, &findings);
    QVERIFY(!status);
    QVERIFY2(status.message().contains(QStringLiteral("shorter")), qPrintable(status.message()));
    QVERIFY(findings.empty());
}

void tst_OvSegyDoctor::worstFirst()
{
    auto traces = wholeLine();
    traces[1].samples[0] = std::nanf("");
    traces.push_back(traces[5]);
    const Findings findings = examine(traces);
    for (std::size_t i = 1; i < findings.size(); ++i)
        QVERIFY(int(findings[i - 1].severity) >= int(findings[i].severity));
}

QTEST_GUILESS_MAIN(tst_OvSegyDoctor)
#include "tst_OvSegyDoctor.moc"
