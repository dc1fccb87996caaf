#include "OvSeismic/picking/OvPickRun.h"
#include "OvSeismic/segy/OvSegyFile.h"

#include <QCryptographicHash>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

/// The generator from outside: what it writes, and how the picker fares on it.
class tst_DemoSurvey : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void hasCompleteHeaders();
    void saysWhatItIs();
    void truthHasARowForEveryTrace();
    void hasItsBlemishes();
    void noiseGrowsWithOffset();
    void pickerFindsTheTruth();
    void isTheSameEveryTime();
    void leavesACompleteSetAlone();
    void mendsADamagedSet_data();
    void mendsADamagedSet();
    void refusesWrongArguments_data();
    void refusesWrongArguments();
    void failsWithAMessage();
    void speaksChinese();

private:
    struct Truth
    {
        int fieldRecord = 0;
        int channel = 0;
        double offset = 0.0;
        double timeMs = 0.0; // NaN where nothing arrives
    };
    int run(const QStringList& arguments, const char* language = "C.UTF-8");
    QByteArray digest(const QString& folder) const;
    void readTruth();

    static constexpr int shots = 12;
    static constexpr int channels = 120;
    QTemporaryDir m_folder;
    QByteArray m_error;
    OvSegyFile m_file;
    OvSegyIndex m_index;
    std::vector<Truth> m_truth;
};

int tst_DemoSurvey::run(const QStringList& arguments, const char* language)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"LANG", "LC_ALL", "LANGUAGE"})
        environment.insert(QLatin1String(name), QLatin1String(language));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(TARNPICK_DEMO), arguments);
    if (!program.waitForFinished(120000) || program.exitStatus() != QProcess::NormalExit)
        return -1;
    m_error = program.readAllStandardError();
    return program.exitCode();
}

QByteArray tst_DemoSurvey::digest(const QString& folder) const
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const char* name : {"demo_line.sgy", "demo_line_truth.csv"}) {
        QFile file(QDir(folder).filePath(QLatin1String(name)));
        if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file))
            return {};
    }
    return hash.result();
}

void tst_DemoSurvey::readTruth()
{
    QFile file(m_folder.filePath("demo_line_truth.csv"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readLine(),
             QByteArray("trace,field_record,channel,offset_m,time_ms,confidence\n"));
    while (!file.atEnd()) {
        const QList<QByteArray> cells = file.readLine().trimmed().split(',');
        QCOMPARE(cells.size(), 6);
        QCOMPARE(cells[0].toInt(), int(m_truth.size()));
        QCOMPARE(cells[4].isEmpty(), cells[5].isEmpty());
        const double time = cells[4].isEmpty() ? std::nan("") : cells[4].toDouble();
        m_truth.push_back({cells[1].toInt(), cells[2].toInt(), cells[3].toDouble(), time});
    }
}

void tst_DemoSurvey::initTestCase()
{
    QCOMPARE(run({m_folder.path(), "--shots", QString::number(shots)}), 0);
    const OvStatus opened = m_file.open(m_folder.filePath("demo_line.sgy"));
    QVERIFY2(opened, qPrintable(opened.message()));
    QVERIFY(m_index.build(m_file));
    readTruth();
}

void tst_DemoSurvey::hasCompleteHeaders()
{
    const OvSegyFileInfo& info = m_file.info();
    QCOMPARE(info.revisionMajor, 1);
    QCOMPARE(info.intervalUs, 1000.0);
    QCOMPARE(info.traceCount, qint64(shots * channels));
    QVERIFY2(info.warnings.isEmpty(), qPrintable(info.warnings.join(' ')));
    QVERIFY2(m_index.warnings().isEmpty(), qPrintable(m_index.warnings().join(' ')));
    QCOMPARE(m_index.gatherCount(), shots);
    std::vector<OvTraceHeader> headers;
    QVERIFY(m_file.readHeaders(0, shots * channels, &headers));
    for (const OvTraceHeader& header : headers) {
        const double distance =
            std::hypot(header.receiverX - header.sourceX, header.receiverY - header.sourceY);
        QVERIFY(std::abs(distance - std::abs(static_cast<double>(header.offset))) < 0.02);
        QVERIFY(header.sourceElevation > 200.0F && header.sourceElevation < 280.0F);
        QVERIFY(header.receiverElevation > 200.0F && header.receiverElevation < 280.0F);
        QCOMPARE(header.delayMs, -20.0F);
        QVERIFY(header.cdp > 0);
    }
    // The spread stands still at the end of the line and rolls from the middle on.
    QCOMPARE(headers.front().offset, -3.0F);
    QVERIFY(headers[channels * 11].offset < -100.0F);
}

void tst_DemoSurvey::saysWhatItIs()
{
    const QStringList text = m_file.textHeader();
    QCOMPARE(text.size(), 40);
    QVERIFY(text.first().startsWith("C 1 SYNTHETIC REFRACTION LINE"));
    QVERIFY(text.at(38).startsWith("C39 SEG Y REV1"));
    QVERIFY(text.last().startsWith("C40 END TEXTUAL HEADER"));
    QVERIFY(m_file.info().textEncoding == OvTextEncoding::Ebcdic);
}

void tst_DemoSurvey::truthHasARowForEveryTrace()
{
    QCOMPARE(int(m_truth.size()), shots * channels);
    for (int gather = 0; gather < shots; ++gather) {
        for (const OvTraceHeader& header : m_index.gatherHeaders(m_file, gather).headers) {
            const Truth& truth = m_truth[static_cast<std::size_t>(header.traceIndex)];
            QCOMPARE(truth.fieldRecord, int(header.fieldRecord));
            QCOMPARE(truth.channel, int(header.channel));
            QCOMPARE(truth.offset, double(header.offset));
            // No wave runs slower than the weathering or faster than the deep refractor.
            const double distance = std::abs(truth.offset);
            QVERIFY(!(truth.timeMs > distance / 650.0 * 1000.0 + 0.001));
            QVERIFY(!(truth.timeMs < distance / 3700.0 * 1000.0));
        }
    }
}

void tst_DemoSurvey::hasItsBlemishes()
{
    int dead = 0;
    int silentShots = 0;
    for (int gather = 0; gather < shots; ++gather) {
        OvGather whole;
        QVERIFY(m_index.readGather(m_file, gather, &whole));
        int arrivals = 0;
        for (int row = 0; row < channels; ++row) {
            const OvTraceHeader& header = whole.headers[static_cast<std::size_t>(row)];
            const float* trace = whole.trace(row);
            const bool still = std::all_of(trace, trace + whole.sampleCount,
                                           [](float value) { return value == 0.0F; });
            QCOMPARE(still, header.isDead());
            dead += still;
            arrivals += std::isfinite(m_truth[static_cast<std::size_t>(header.traceIndex)].timeMs);
        }
        silentShots += arrivals == 0;
    }
    QVERIFY(dead >= shots && dead < 5 * shots);
    QCOMPARE(silentShots, 1);
}

void tst_DemoSurvey::noiseGrowsWithOffset()
{
    OvGather whole;
    QVERIFY(m_index.readGather(m_file, 0, &whole));
    const auto noise = [&](int first, int last) {
        double energy = 0.0;
        for (int row = first; row < last; ++row) {
            for (int i = 0; i < 20; ++i)
                energy += static_cast<double>(whole.trace(row)[i]) *
                          static_cast<double>(whole.trace(row)[i]);
        }
        return std::sqrt(energy / (20.0 * (last - first)));
    };
    QVERIFY(noise(95, 120) > 2.0 * noise(0, 25));
}

void tst_DemoSurvey::pickerFindsTheTruth()
{
    OvPickRun::Request request;
    request.file = &m_file;
    request.index = &m_index;
    int live = 0;
    int good = 0;
    int invented = 0;
    const auto compare = [&](const OvGather& gather, const OvPickResult& result) {
        for (std::size_t row = 0; row < gather.headers.size(); ++row) {
            const double truth =
                m_truth[static_cast<std::size_t>(gather.headers[row].traceIndex)].timeMs;
            const auto time = static_cast<double>(result.timesMs[row]);
            live += std::isfinite(truth);
            good += std::abs(time - truth) <= 8.0;
            invented += std::isnan(truth) && std::isfinite(time);
        }
        return OvStatus::success();
    };
    QVERIFY(OvPickRun::run(request, compare, {}, nullptr));
    qInfo("%d of %d within 8 ms", good, live);
    QVERIFY(live > 1000);
    QVERIFY(good >= 0.98 * live);
    QCOMPARE(invented, 0);
}

void tst_DemoSurvey::isTheSameEveryTime()
{
    QTemporaryDir other;
    QCOMPARE(run({other.path(), "--shots", QString::number(shots)}), 0);
    QVERIFY(!digest(other.path()).isEmpty());
    QCOMPARE(digest(other.path()), digest(m_folder.path()));
}

void tst_DemoSurvey::leavesACompleteSetAlone()
{
    QTemporaryDir folder;
    const QString inner = folder.filePath("made/for it");
    QCOMPARE(run({inner, "--shots", "1"}), 0);
    QFile file(QDir(inner).filePath("demo_line.sgy"));
    QVERIFY(file.open(QIODevice::ReadWrite));
    const QDateTime old = QDateTime::currentDateTime().addDays(-3);
    QVERIFY(file.setFileTime(old, QFileDevice::FileModificationTime));
    file.close();
    QCOMPARE(run({inner, "--shots", "1"}), 0);
    QVERIFY(QFileInfo(file.fileName()).lastModified() < QDateTime::currentDateTime().addDays(-2));
}

void tst_DemoSurvey::mendsADamagedSet_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("size"); // -1 removes it
    QTest::newRow("cut off") << "demo_line.sgy" << 5000;
    QTest::newRow("no SEG-Y") << "demo_line.sgy" << -1;
    QTest::newRow("no truth") << "demo_line_truth.csv" << -1;
    QTest::newRow("no stamp") << "demo_line_version.txt" << -1;
    QTest::newRow("empty stamp") << "demo_line_version.txt" << 0;
}

void tst_DemoSurvey::mendsADamagedSet()
{
    QFETCH(QString, file);
    QFETCH(int, size);
    QTemporaryDir folder;
    QCOMPARE(run({folder.path(), "--shots", "1"}), 0);
    const QByteArray whole = digest(folder.path());
    const QString path = folder.filePath(file);
    QVERIFY(size < 0 ? QFile::remove(path) : QFile::resize(path, size));
    QCOMPARE(run({folder.path(), "--shots", "1"}), 0);
    QCOMPARE(digest(folder.path()), whole);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 3);
}

void tst_DemoSurvey::refusesWrongArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("no folder") << QStringList();
    QTest::newRow("two folders") << QStringList{"a", "b"};
    QTest::newRow("no shots") << QStringList{"a", "--shots", "0"};
    QTest::newRow("too many shots") << QStringList{"a", "--shots", "241"};
    QTest::newRow("unknown option") << QStringList{"a", "--fast"};
    QTest::newRow("no number") << QStringList{"a", "--shots", "few"};
}

void tst_DemoSurvey::refusesWrongArguments()
{
    QFETCH(QStringList, arguments);
    QCOMPARE(run(arguments), 2);
    QVERIFY(m_error.contains("FOLDER"));
}

void tst_DemoSurvey::failsWithAMessage()
{
    QTemporaryDir folder;
    QFile file(folder.filePath("taken"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QCOMPARE(run({folder.filePath("taken/below"), "--shots", "1"}), 1);
    QVERIFY2(m_error.contains("taken"), m_error.constData());
}

void tst_DemoSurvey::speaksChinese()
{
    QCOMPARE(run({"--shots", "0"}, "zh_CN.UTF-8"), 2);
    QVERIFY2(QString::fromUtf8(m_error).contains(QStringLiteral("初至")), m_error.constData());
}

QTEST_GUILESS_MAIN(tst_DemoSurvey)
#include "tst_DemoSurvey.moc"
