#include "OvSeismic/segy/OvHeaderSurvey.h"

#include "OvSeismic/segy/OvSegyFile.h"
#include "fixtures/SegyWriter.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

using Mapping = OvTraceHeaderMapping;

constexpr qint64 all = 1000000;

Mapping mappingWith(Mapping::Quantity quantity, int position, OvHeaderType type)
{
    Mapping mapping;
    mapping.setWord(quantity, {position, type, OvHeaderOrder::File});
    return mapping;
}

} // namespace

class tst_OvHeaderSurvey : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder.reset(new QTemporaryDir); }

    void countsTheValuesOfEachWord();
    void remarksNothingOnAGoodFile();
    void takesASpreadOfALongFile();
    void aSpreadSeesEveryChannel();
    void reportsProgressAndStops();
    void refusesWordsBehindTheHeader();
    void readsExtensionHeaders();
    void remarksOnOneRecord();
    void remarksOnMissingOffsets();
    void remarksOnGarbageCoordinates();
    void remarksOnOddScalars();
    void remarksOnIntegersReadAsFloats();
    void remarksOnWhatIsNoNumber();
    void remarksOnFarOffsetsAndDelays();
    void remarksOnManyTraceCodes();
    void boundsTheValuesKept();

private:
    bool open(const SegyWriter& writer)
    {
        const QString path = m_folder->filePath(QStringLiteral("line.sgy"));
        return writer.write(path) && m_file.open(path).ok();
    }
    QStringList remarks(const Mapping& mapping = {})
    {
        QStringList texts;
        if (!m_survey.run(m_file, mapping, all))
            return {QStringLiteral("failed")};
        const auto found = m_survey.remarks();
        for (const auto& remark : found)
            texts += remark.message;
        return texts;
    }
    /// Traces of one shot, changed by a function, in two records.
    template <typename Change>
    bool openChanged(Change change)
    {
        return open(SegyWriter::of(40, 4, [&change](int i, SegyTrace* trace) {
            trace->fieldRecord = 1 + i / 20;
            trace->channel = 1 + i % 20;
            trace->offset = 10 * (i % 20) + 5;
            trace->sourceX = 1000;
            trace->receiverX = 1000 + trace->offset;
            change(i, trace);
        }));
    }

    QScopedPointer<QTemporaryDir> m_folder;
    OvSegyFile m_file;
    OvHeaderSurvey m_survey;
};

void tst_OvHeaderSurvey::countsTheValuesOfEachWord()
{
    QVERIFY(openChanged([](int i, SegyTrace* trace) { trace->cdp = i % 4 - 2; }));
    QCOMPARE(m_survey.traceCount(), qint64(0));
    QVERIFY(m_survey.run(m_file, {}, all));
    QCOMPARE(m_survey.traceCount(), qint64(40));
    QVERIFY(m_survey.isWhole());
    const auto& cdp = m_survey.word(Mapping::Cdp);
    QCOMPARE(cdp.minimum, -2.0);
    QCOMPARE(cdp.maximum, 1.0);
    QCOMPARE(cdp.values.size(), std::size_t(4));
    QCOMPARE(cdp.zeros, qint64(10));
    QCOMPARE(cdp.count, qint64(40));
    QVERIFY(!cdp.isConstant());
    QVERIFY(m_survey.word(Mapping::SourceX).isConstant());
    QVERIFY(m_survey.word(Mapping::SourceY).isZero());
    QCOMPARE(m_survey.word(Mapping::ReceiverPoint).count, qint64(0));
}

void tst_OvHeaderSurvey::remarksNothingOnAGoodFile()
{
    QVERIFY(openChanged([](int, SegyTrace*) {}));
    QCOMPARE(remarks(), QStringList());
}

void tst_OvHeaderSurvey::takesASpreadOfALongFile()
{
    const SegyWriter writer =
        SegyWriter::of(3000, 1, [](int i, SegyTrace* trace) { trace->fieldRecord = i; });
    QVERIFY(open(writer));
    QVERIFY(m_survey.run(m_file, {}, 640));
    QCOMPARE(m_survey.traceCount(), qint64(640));
    QVERIFY(!m_survey.isWhole());
    const auto& record = m_survey.word(Mapping::FieldRecord);
    QCOMPARE(record.values.size(), std::size_t(640)); // none looked at twice
    QCOMPARE(record.minimum, 0.0);
    QCOMPARE(record.maximum, 2999.0);
    QVERIFY(m_survey.run(m_file, {}, 3000));
    QVERIFY(m_survey.isWhole());
}

void tst_OvHeaderSurvey::aSpreadSeesEveryChannel()
{
    const SegyWriter writer = SegyWriter::of(6000, 1, [](int i, SegyTrace* trace) {
        trace->fieldRecord = i / 60;
        trace->channel = 1 + i % 60;
    });
    QVERIFY(open(writer));
    QVERIFY(m_survey.run(m_file, {}, 128));
    QCOMPARE(m_survey.word(Mapping::Channel).values.size(), std::size_t(60));
}

void tst_OvHeaderSurvey::reportsProgressAndStops()
{
    QVERIFY(openChanged([](int, SegyTrace*) {}));
    QVector<qint64> calls;
    QVERIFY(m_survey.run(m_file, {}, all, [&](qint64 done, qint64 total) {
        calls += {done, total};
        return true;
    }));
    QVERIFY(calls.size() >= 2);
    QCOMPARE(calls.mid(calls.size() - 2), QVector<qint64>({40, 40}));
    QVERIFY(!m_survey.run(m_file, {}, all, [](qint64, qint64) { return false; }));
    QCOMPARE(m_survey.traceCount(), qint64(0));
    QCOMPARE(m_survey.remarks().size(), 0);
}

void tst_OvHeaderSurvey::refusesWordsBehindTheHeader()
{
    QVERIFY(openChanged([](int, SegyTrace*) {}));
    const OvStatus status =
        m_survey.run(m_file, mappingWith(Mapping::Cdp, 241, OvHeaderType::Int32), all);
    QVERIFY(!status);
    QVERIFY2(status.message().contains(QLatin1String("240")), qPrintable(status.message()));
    QVERIFY2(status.message().contains(QLatin1String("244")), qPrintable(status.message()));
}

void tst_OvHeaderSurvey::readsExtensionHeaders()
{
    SegyWriter writer;
    writer.revision = 0x0200;
    writer.extraTraceHeaders = 1;
    writer.sampleCount = 4;
    writer.add({});
    writer.add({});
    QByteArray bytes = writer.bytes();
    bytes[3600 + 240 + 24 - 1] = 77; // low byte of the long field record
    const QString path = m_folder->filePath(QStringLiteral("line.sgy"));
    QVERIFY(SegyWriter::writeBytes(path, bytes));
    QVERIFY(m_file.open(path));
    QVERIFY(m_survey.run(m_file, Mapping::preset(Mapping::Revision2), all));
    QCOMPARE(m_survey.word(Mapping::FieldRecord).maximum, 77.0);
    QCOMPARE(m_survey.word(Mapping::FieldRecord).zeros, qint64(1));
}

void tst_OvHeaderSurvey::remarksOnOneRecord()
{
    QVERIFY(openChanged([](int, SegyTrace* trace) { trace->fieldRecord = 9; }));
    QCOMPARE(remarks(),
             QStringList(QStringLiteral("Field record is 9 in all traces; they form one gather.")));
}

void tst_OvHeaderSurvey::remarksOnMissingOffsets()
{
    QVERIFY(openChanged([](int, SegyTrace* trace) { trace->offset = 0; }));
    QCOMPARE(remarks().size(), 1);
    QVERIFY(remarks().first().contains(QLatin1String("computed from the coordinates")));
    QVERIFY(openChanged(
        [](int, SegyTrace* trace) { trace->offset = trace->sourceX = trace->receiverX = 0; }));
    QCOMPARE(remarks().size(), 1);
    QVERIFY(remarks().first().contains(QLatin1String("unknown")));
}

void tst_OvHeaderSurvey::remarksOnGarbageCoordinates()
{
    QVERIFY(openChanged([](int, SegyTrace* trace) { trace->sourceY = 0x64000000; }));
    QCOMPARE(remarks().size(), 1);
    QVERIFY(remarks().first().startsWith(QLatin1String("Coordinates go up to")));
    // The scalar makes them sensible.
    QVERIFY(openChanged([](int, SegyTrace* trace) {
        trace->sourceY = 0x64000000;
        trace->coordinateScalar = -1000;
    }));
    QCOMPARE(remarks(), QStringList());
}

void tst_OvHeaderSurvey::remarksOnOddScalars()
{
    QVERIFY(openChanged([](int i, SegyTrace* trace) {
        trace->coordinateScalar = i == 7 ? 3 : -100;
        trace->elevationScalar = -10000;
    }));
    QCOMPARE(remarks().size(), 1);
    QVERIFY(remarks().first().startsWith(QLatin1String("Coordinate scalar ranges from -100 to 3")));
}

void tst_OvHeaderSurvey::remarksOnIntegersReadAsFloats()
{
    QVERIFY(openChanged([](int, SegyTrace*) {}));
    const QStringList found = remarks(mappingWith(Mapping::Offset, 37, OvHeaderType::Float32));
    QCOMPARE(found.size(), 1);
    QVERIFY2(found.first().startsWith(QLatin1String("Offset is next to nothing in 40 of 40")),
             qPrintable(found.first()));
}

void tst_OvHeaderSurvey::remarksOnWhatIsNoNumber()
{
    QVERIFY(openChanged([](int i, SegyTrace* trace) { trace->offset = i < 5 ? -1 : 0x41200000; }));
    const QStringList found = remarks(mappingWith(Mapping::Offset, 37, OvHeaderType::Float32));
    QCOMPARE(found.size(), 1);
    QVERIFY2(found.first().startsWith(QLatin1String("Offset is not a number in 5 of 40")),
             qPrintable(found.first()));
    QCOMPARE(m_survey.word(Mapping::Offset).minimum, 10.0);
}

void tst_OvHeaderSurvey::remarksOnFarOffsetsAndDelays()
{
    QVERIFY(openChanged([](int, SegyTrace* trace) {
        trace->offset = -2000000;
        trace->delay = -31000;
    }));
    QCOMPARE(remarks().size(), 2);
    QVERIFY(remarks().first().startsWith(QLatin1String("Offset goes up to 2000000")));
    QVERIFY(remarks().last().startsWith(QLatin1String("Delay ranges from -31000 to -31000")));
}

void tst_OvHeaderSurvey::remarksOnManyTraceCodes()
{
    QVERIFY(openChanged([](int i, SegyTrace* trace) { trace->traceId = static_cast<qint16>(i); }));
    QCOMPARE(remarks().size(), 1);
    QVERIFY(remarks().first().startsWith(QLatin1String("Trace identification takes 40 values")));
}

void tst_OvHeaderSurvey::boundsTheValuesKept()
{
    const SegyWriter writer =
        SegyWriter::of(70000, 1, [](int i, SegyTrace* trace) { trace->cdp = i; });
    QVERIFY(open(writer));
    QVERIFY(m_survey.run(m_file, {}, all));
    QVERIFY(m_survey.word(Mapping::Cdp).hasMoreValues());
    QCOMPARE(m_survey.word(Mapping::Cdp).values.size(), OvHeaderSurvey::mostValues);
    QCOMPARE(m_survey.word(Mapping::Cdp).maximum, 69999.0);
}

QTEST_GUILESS_MAIN(tst_OvHeaderSurvey)
#include "tst_OvHeaderSurvey.moc"
