#include "OvSeismic/firstbreak/OvFirstBreakFile.h"
#include "OvSeismic/picking/OvPickSettings.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "fixtures/SegyWriter.h"

#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <cmath>

#ifdef Q_OS_UNIX
#include <signal.h>
#endif

/// The command as scripts see it: its table, its messages and its exit code.
class tst_PickCommand : public QObject
{
    Q_OBJECT

private slots:
    void writesATable();
    void rowsComeInFileOrder();
    void picksEveryOtherShot();
    void replacesAnOldTable();
    void sameTableFromAnyNumberOfThreads();
    void leavesTheTableAloneOnBadInput_data();
    void leavesTheTableAloneOnBadInput();
    void cannotWriteTheTable();
    void wrongArguments_data();
    void wrongArguments();
    void refusesToWriteOntoItsInput();
    void helps();
    void isGuidedByATableOrAFirstBreakFile();
    void refusesAGuideOfOtherTraces_data();
    void refusesAGuideOfOtherTraces();
    void takesEveryPhase();
    void tellsHowFarItIs();
    void aGuideOfVelocityChangesNothingClear();
#ifdef Q_OS_UNIX
    void interruptedItLeavesTheTableAlone();
#endif
    void endsWellOnRecordedFiles();

private:
    struct Row
    {
        int fieldRecord = 0;
        int channel = 0;
        QByteArray offset;
        QByteArray time;
        QByteArray confidence;
    };
    int run(const QStringList& arguments);
    QString path(const char* name) const
    {
        return m_folder.filePath(QLatin1String(name));
    }
    QByteArray content(const QString& name) const;
    std::vector<Row> table(const QString& name);
    void writeLine(const QString& name, int shots);

    QTemporaryDir m_folder;
    QByteArray m_out;
    QByteArray m_error;
};

int tst_PickCommand::run(const QStringList& arguments)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"LANG", "LC_ALL", "LANGUAGE"})
        environment.insert(QLatin1String(name), QStringLiteral("C.UTF-8"));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(TARNPICK_BATCH), arguments);
    if (!program.waitForFinished(60000) || program.exitStatus() != QProcess::NormalExit)
        return -1;
    m_out = program.readAllStandardOutput();
    m_error = program.readAllStandardError();
    return program.exitCode();
}

QByteArray tst_PickCommand::content(const QString& name) const
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::vector<tst_PickCommand::Row> tst_PickCommand::table(const QString& name)
{
    std::vector<Row> rows;
    QList<QByteArray> lines = content(name).split('\n');
    if (lines.takeFirst() != "trace,field_record,channel,offset_m,time_ms,confidence")
        return {};
    for (const QByteArray& line : lines) {
        const QList<QByteArray> cells = line.split(',');
        if (cells.size() == 6 && cells[0].toInt() == int(rows.size()))
            rows.push_back({cells[1].toInt(), cells[2].toInt(), cells[3], cells[4], cells[5]});
    }
    return rows;
}

void tst_PickCommand::writeLine(const QString& name, int shots)
{
    SegyWriter writer;
    writer.sampleCount = 300;
    for (int shot = 0; shot < shots; ++shot)
        writer.addShot(200 + shot, 10.0 * shot, 24, 10.0);
    QVERIFY(writer.write(name));
}

void tst_PickCommand::writesATable()
{
    writeLine(path("line.sgy"), 3);
    QCOMPARE(run({"pick", path("line.sgy"), "--out", path("picks.csv")}), 0);
    QCOMPARE(m_error, QByteArray());
    QVERIFY2(m_out.startsWith("Picked "), m_out.constData());
    const std::vector<Row> rows = table(path("picks.csv"));
    QCOMPARE(rows.size(), std::size_t(72));
    int good = 0;
    for (const Row& row : rows) {
        QCOMPARE(row.time.isEmpty(), row.confidence.isEmpty());
        if (row.time.isEmpty())
            continue;
        QCOMPARE(row.time.size() - row.time.indexOf('.'), 4);
        QCOMPARE(row.confidence.size(), 5);
        QVERIFY(row.confidence.toDouble() > 0.0 && row.confidence.toDouble() <= 1.0);
        const double truth = SegyWriter::firstBreakMs(std::abs(row.offset.toDouble()));
        good += std::abs(row.time.toDouble() - truth) <= 10.0;
    }
    QVERIFY2(good >= 65, qPrintable(QString::number(good)));
}

void tst_PickCommand::rowsComeInFileOrder()
{
    // The traces of two records take turns in the file.
    const SegyWriter writer = SegyWriter::of(8, 100, [](int i, SegyTrace* trace) {
        trace->fieldRecord = 30 + i % 2;
        trace->channel = 1 + i / 2;
        trace->samples = {1.0F, -1.0F};
    });
    QVERIFY(writer.write(path("turns.sgy")));
    QCOMPARE(run({"pick", path("turns.sgy"), "--out", path("turns.csv")}), 0);
    const std::vector<Row> rows = table(path("turns.csv"));
    QCOMPARE(rows.size(), std::size_t(8));
    for (std::size_t i = 0; i < 8; ++i) {
        QCOMPARE(rows[i].fieldRecord, int(30 + i % 2));
        QCOMPARE(rows[i].channel, int(1 + i / 2));
        QVERIFY(rows[i].offset.isEmpty());
    }
}

void tst_PickCommand::picksEveryOtherShot()
{
    writeLine(path("line.sgy"), 5);
    QCOMPARE(run({"pick", path("line.sgy"), "--out", path("some.csv"), "--param",
                  "shot_increment=2", "--param", "total_shots=2", "--param", "max_offset_m=100"}),
             0);
    for (const Row& row : table(path("some.csv"))) {
        const bool chosen = row.fieldRecord == 200 || row.fieldRecord == 202;
        const bool inRange = std::abs(row.offset.toDouble()) <= 100.0;
        if (!chosen || !inRange)
            QVERIFY(row.time.isEmpty());
    }
    QVERIFY2(m_out.contains("in 2 of 5 gathers"), m_out.constData());
    QVERIFY(!m_out.startsWith("Picked 0 "));
}

void tst_PickCommand::replacesAnOldTable()
{
    writeLine(path("line.sgy"), 1);
    QVERIFY(SegyWriter::writeBytes(path("old.csv"), "old"));
    QCOMPARE(run({"pick", path("line.sgy"), "--out", path("old.csv")}), 0);
    QCOMPARE(table(path("old.csv")).size(), std::size_t(24));
}

void tst_PickCommand::sameTableFromAnyNumberOfThreads()
{
    writeLine(path("line.sgy"), 6);
    QCOMPARE(run({"pick", path("line.sgy"), "--out", path("one.csv"), "--threads", "1"}), 0);
    QCOMPARE(run({"pick", path("line.sgy"), "--out", path("five.csv"), "--threads", "5"}), 0);
    QVERIFY(!content(path("one.csv")).isEmpty());
    QCOMPARE(content(path("five.csv")), content(path("one.csv")));
}

void tst_PickCommand::leavesTheTableAloneOnBadInput_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("This is no seismic file.\n");
    QTest::newRow("headers only") << SegyWriter().bytes();
    QTest::newRow("noise") << QByteArray(20000, '\x77');
}

void tst_PickCommand::leavesTheTableAloneOnBadInput()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(SegyWriter::writeBytes(path("bad.sgy"), bytes));
    QVERIFY(SegyWriter::writeBytes(path("kept.csv"), "kept"));
    QCOMPARE(run({"pick", path("bad.sgy"), "--out", path("kept.csv")}), 1);
    QVERIFY2(m_error.contains("bad.sgy"), m_error.constData());
    QCOMPARE(content(path("kept.csv")), QByteArray("kept"));
    QCOMPARE(run({"pick", path("bad.sgy"), "--out", path("none.csv")}), 1);
    QVERIFY(!QFile::exists(path("none.csv")));
    QCOMPARE(run({"pick", path("missing.sgy"), "--out", path("none.csv")}), 1);
    QVERIFY2(m_error.contains("missing.sgy"), m_error.constData());
}

void tst_PickCommand::cannotWriteTheTable()
{
    writeLine(path("line.sgy"), 1);
    QCOMPARE(run({"pick", path("line.sgy"), "--out", path("no such folder/picks.csv")}), 1);
    QVERIFY2(m_error.contains("no such folder"), m_error.constData());
}

void tst_PickCommand::wrongArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("named");
    const QStringList out{"x.sgy", "--out", "x.csv"};
    QTest::newRow("nothing") << QStringList() << QByteArray("file");
    QTest::newRow("no table") << QStringList{"x.sgy"} << QByteArray("--out");
    QTest::newRow("two files") << QStringList{"a", "b", "--out", "c"} << QByteArray("file");
    QTest::newRow("unknown option") << out + QStringList{"--fast"} << QByteArray("fast");
    QTest::newRow("unknown parameter")
        << out + QStringList{"--param", "speed=3"} << QByteArray("\"speed\"");
    QTest::newRow("no assignment")
        << out + QStringList{"--param", "snr_threshold"} << QByteArray("snr_threshold");
    QTest::newRow("out of range") << out + QStringList{"--param", "shot_increment=0"}
                                  << QByteArray("shot_increment");
    QTest::newRow("no number") << out + QStringList{"--param", "quick_window_ms=%1 %2"}
                               << QByteArray("%1 %2");
    QTest::newRow("contradiction")
        << out + QStringList{"--param", "min_offset_m=9", "--param", "max_offset_m=5"}
        << QByteArray("max_offset_m");
    QTest::newRow("no threads") << out + QStringList{"--threads", "0"} << QByteArray("--threads");
    QTest::newRow("threads as text")
        << out + QStringList{"--threads", "%2"} << QByteArray("\"%2\"");
    QTest::newRow("unknown phase") << out + QStringList{"--phase", "noon"} << QByteArray("onset");
    QTest::newRow("confidence of 2")
        << out + QStringList{"--min-confidence", "2"} << QByteArray("min_confidence");
    QTest::newRow("no confidence")
        << out + QStringList{"--min-confidence", "x"} << QByteArray("--min-confidence");
    QTest::newRow("two guides") << out + QStringList{"--guide", "a", "--velocity", "2000"}
                                << QByteArray("--velocity");
    QTest::newRow("velocity of 0")
        << out + QStringList{"--velocity", "0"} << QByteArray("velocity");
    QTest::newRow("intercept alone")
        << out + QStringList{"--intercept", "5"} << QByteArray("--intercept");
}

void tst_PickCommand::wrongArguments()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, named);
    QCOMPARE(run(QStringList{"pick"} + arguments), 2);
    const QByteArray message = m_error.left(m_error.indexOf("\n\n"));
    QVERIFY2(message.contains(named), m_error.constData());
    QVERIFY(m_error.contains("Usage"));
    QVERIFY(!QFile::exists("x.csv"));
}

void tst_PickCommand::refusesToWriteOntoItsInput()
{
    writeLine(path("line.sgy"), 1);
    const QByteArray before = content(path("line.sgy"));
    QVERIFY(QFile::link(path("line.sgy"), path("link.csv")));
    for (const char* name : {"line.sgy", "./line.sgy", "link.csv"}) {
        QCOMPARE(run({"pick", path("line.sgy"), "--out", path(name)}), 2);
        QVERIFY(m_error.contains("--out"));
    }
    QCOMPARE(content(path("line.sgy")), before);
}

void tst_PickCommand::helps()
{
    QCOMPARE(run({"pick", "--help"}), 0);
    QVERIFY(m_out.contains("snr_threshold"));
    QCOMPARE(run({"--help"}), 0);
    QVERIFY(m_out.contains("pick"));
}

void tst_PickCommand::isGuidedByATableOrAFirstBreakFile()
{
    writeLine(path("line.sgy"), 3);
    QCOMPARE(run({"pick", path("line.sgy"), "--out", path("first.csv")}), 0);
    QCOMPARE(
        run({"pick", path("line.sgy"), "--out", path("second.csv"), "--guide", path("first.csv")}),
        0);
    const std::vector<Row> rows = table(path("second.csv"));
    QCOMPARE(rows.size(), std::size_t(72));
    QVERIFY(std::count_if(rows.begin(), rows.end(),
                          [](const Row& row) { return !row.time.isEmpty(); }) >= 65);

    OvSegyFile segy;
    QVERIFY(segy.open(path("line.sgy")));
    OvFirstBreaks breaks;
    breaks.resize(24);
    std::vector<qint64> traces;
    for (std::size_t row = 0; row < 24; ++row) {
        breaks.timesMs[row] = table(path("first.csv"))[row].time.toFloat();
        breaks.states[row] = OvPickState::Manual;
        traces.push_back(qint64(row));
    }
    {
        OvFirstBreakFile file;
        QVERIFY(file.open(path("hand.fb"), segy.info()));
        QVERIFY(file.write(traces, breaks));
    }
    QCOMPARE(
        run({"pick", path("line.sgy"), "--out", path("third.csv"), "--guide", path("hand.fb")}), 0);
    QVERIFY(!table(path("third.csv"))[30].time.isEmpty());
}

void tst_PickCommand::refusesAGuideOfOtherTraces_data()
{
    QTest::addColumn<QByteArray>("guide");
    QTest::addColumn<QByteArray>("named");
    const QByteArray title("trace,field_record,channel,offset_m,time_ms,confidence\n");
    QTest::newRow("no table") << QByteArray("hello\n") << QByteArray("line 1");
    QTest::newRow("too few") << title << QByteArray("too few");
    QTest::newRow("short line") << title + "0,200\n" << QByteArray("line 2");
    QTest::newRow("no number") << title + "0,200,1,0,abc,1\n" << QByteArray("line 2");
    QTest::newRow("other record") << title + "0,200,1,0,,\n1,7,2,10,5,1\n" << QByteArray("line 3");
    QTest::newRow("no such trace") << title + "900,200,1,0,5,1\n" << QByteArray("line 2");
    QTest::newRow("no file") << QByteArray() << QByteArray("guide.csv");
}

void tst_PickCommand::refusesAGuideOfOtherTraces()
{
    QFETCH(QByteArray, guide);
    QFETCH(QByteArray, named);
    writeLine(path("line.sgy"), 1);
    QFile::remove(path("guide.csv"));
    if (!guide.isEmpty())
        QVERIFY(SegyWriter::writeBytes(path("guide.csv"), guide));
    QFile::remove(path("none.csv"));
    QCOMPARE(
        run({"pick", path("line.sgy"), "--out", path("none.csv"), "--guide", path("guide.csv")}),
        1);
    QVERIFY2(m_error.contains(named) && m_error.contains("guide.csv"), m_error.constData());
    QVERIFY(!QFile::exists(path("none.csv")));
}

void tst_PickCommand::takesEveryPhase()
{
    writeLine(path("line.sgy"), 1);
    for (const QString& phase : OvPickSettings::phaseNames()) {
        QCOMPARE(run({"pick", path("line.sgy"), "--out", path("phase.csv"), "--phase", phase,
                      "--min-confidence", "0.1"}),
                 0);
        QCOMPARE(table(path("phase.csv")).size(), std::size_t(24));
    }
}

void tst_PickCommand::aGuideOfVelocityChangesNothingClear()
{
    writeLine(path("line.sgy"), 2);
    QCOMPARE(run({"pick", path("line.sgy"), "--out", path("velocity.csv"), "--velocity", "2500",
                  "--intercept", "10"}),
             0);
    int good = 0;
    for (const Row& row : table(path("velocity.csv"))) {
        const double truth = SegyWriter::firstBreakMs(std::abs(row.offset.toDouble()));
        good += !row.time.isEmpty() && std::abs(row.time.toDouble() - truth) <= 10.0;
    }
    QVERIFY2(good >= 43, qPrintable(QString::number(good)));
}

void tst_PickCommand::tellsHowFarItIs()
{
    writeLine(path("line.sgy"), 3);
    QCOMPARE(run({"pick", path("line.sgy"), "--out", path("picks.csv"), "--progress"}), 0);
    QVERIFY2(m_error.endsWith("Gather 3 of 3 (100 %)\n"), m_error.constData());
    QVERIFY(m_error.count('\n') < 4);
}

#ifdef Q_OS_UNIX
void tst_PickCommand::interruptedItLeavesTheTableAlone()
{
    writeLine(path("long.sgy"), 4000);
    QVERIFY(SegyWriter::writeBytes(path("old.csv"), "old\n"));
    const QDir folder(m_folder.path());
    const QStringList before = folder.entryList(QDir::Files | QDir::Hidden);
    QProcess program;
    program.setReadChannel(QProcess::StandardError);
    program.start(QStringLiteral(TARNPICK_BATCH),
                  {"pick", path("long.sgy"), "--out", path("old.csv"), "--progress"});
    QVERIFY(program.waitForReadyRead(30000));
    ::kill(static_cast<pid_t>(program.processId()), SIGINT);
    QVERIFY(program.waitForFinished(20000));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 1);
    const QByteArray error = program.readAllStandardError();
    QVERIFY2(error.contains("old.csv"), error.constData());
    QCOMPARE(content(path("old.csv")), QByteArray("old\n"));
    QCOMPARE(folder.entryList(QDir::Files | QDir::Hidden), before);
}
#endif

void tst_PickCommand::endsWellOnRecordedFiles()
{
    const QString data = qEnvironmentVariable("TARNPICK_TEST_DATA");
    if (data.isEmpty())
        QSKIP("TARNPICK_TEST_DATA names no folder of recorded files.");
    int picked = 0;
    for (const char* folder : {"gathers", "formats", "odd"}) {
        QDirIterator files(QDir(data).filePath(QLatin1String(folder)), QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString file = files.next();
            QFile::remove(path("any.csv"));
            const int code = run({"pick", file, "--out", path("any.csv")});
            QVERIFY2(code == 0 || code == 1, qPrintable(file));
            QCOMPARE(QFile::exists(path("any.csv")), code == 0);
            if (code == 1)
                QVERIFY2(m_error.contains(QFileInfo(file).fileName().toUtf8()),
                         m_error.constData());
            picked += code == 0;
        }
    }
    QVERIFY2(picked >= 50, qPrintable(QString::number(picked)));
}

QTEST_GUILESS_MAIN(tst_PickCommand)
#include "tst_PickCommand.moc"
