#include "fixtures/SegyWriter.h"

#include <QtTest>

/// The program as scripts see it: its output, its error output and its exit code.
class tst_InfoCommand : public QObject
{
    Q_OBJECT

private slots:
    void json();
    void findings();
    void jsonWithoutOffsets();
    void jsonIsTheSameInEveryLanguage();
    void text();
    void chineseText();
    void failures_data();
    void failures();
    void pathsWithPercentSigns();
    void wrongArguments_data();
    void wrongArguments();
    void helpAndVersion_data();
    void helpAndVersion();
    void recordedFiles_data();
    void recordedFiles();

private:
    int run(const QStringList& arguments, const char* language = "C.UTF-8");
    QJsonObject object() const { return QJsonDocument::fromJson(m_out).object(); }
    QString path(const char* name = "line.sgy") const
    {
        return m_folder.filePath(QLatin1String(name));
    }

    QTemporaryDir m_folder;
    QByteArray m_out;
    QByteArray m_error;
};

int tst_InfoCommand::run(const QStringList& arguments, const char* language)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"LANG", "LC_ALL", "LANGUAGE"})
        environment.insert(QLatin1String(name), QLatin1String(language));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(TARNPICK_BATCH), arguments);
    if (!program.waitForFinished(30000) || program.exitStatus() != QProcess::NormalExit)
        return -1;
    m_out = program.readAllStandardOutput();
    m_error = program.readAllStandardError();
    return program.exitCode();
}

void tst_InfoCommand::json()
{
    SegyWriter writer = SegyWriter::ramps(10, 20);
    writer.order = SegyWriter::Order::Little;
    writer.intervalUs = 250;
    writer.asciiText = true;
    writer.format = 3;
    QVERIFY(writer.write(path()));
    QCOMPARE(run({"info", path(), "--json"}), 0);
    QCOMPARE(m_error, QByteArray());
    QJsonObject read = object();
    const QJsonArray findings = read.take("findings").toArray();
    const QJsonObject expected = {
        {"file", path()},
        {"size", 3600 + 10 * 280},
        {"revision", "1.0"},
        {"byte_order", "little"},
        {"format", 3},
        {"declared_format", 3},
        {"format_name", "2-byte integer"},
        {"text_encoding", "ASCII"},
        {"samples", 20},
        {"interval_us", 250},
        {"traces", 10},
        {"gathers", 3},
        {"offset_min_m", 10},
        {"offset_max_m", 100},
        {"warnings", QJsonArray()},
    };
    QCOMPARE(read, expected);
    const QJsonObject format = {{"severity", "info"},
                                {"code", "format"},
                                {"text", "The samples are in format 3, 2-byte integer."},
                                {"first_byte", 3225},
                                {"last_byte", 3226}};
    QVERIFY2(findings.contains(format), m_out.constData());
}

void tst_InfoCommand::findings()
{
    const SegyWriter writer = SegyWriter::of(2000, 10, [](int i, SegyTrace* trace) {
        trace->channel = 1 + i % 1999;
        trace->offset = 25;
        if (i != 1500)
            trace->samples = {1.0F, 2.0F};
    });
    QVERIFY(writer.write(path()));
    const auto find = [this](const char* code) {
        for (const QJsonValue value : object().value("findings").toArray()) {
            if (value.toObject().value("code") == QLatin1String(code))
                return value.toObject();
        }
        return QJsonObject();
    };
    QCOMPARE(run({"info", "--json", path()}), 0);
    QVERIFY(find("dead-traces").isEmpty());
    QVERIFY(!find("sampled").isEmpty());
    QCOMPARE(run({"info", "--json", "--full", path()}), 0);
    QVERIFY(find("sampled").isEmpty());
    QCOMPARE(find("dead-traces").value("first_trace").toInt(), 1501);
    QCOMPARE(find("dead-traces").value("severity").toString(), QStringLiteral("warning"));
    QCOMPARE(find("duplicates").value("count").toInt(), 1);
    QVERIFY(!find("duplicates").value("advice").toString().isEmpty());
    QCOMPARE(run({"info", "--full", path()}), 0);
    QVERIFY2(m_out.contains("not marked as dead: 1 of 2000; the first is trace 1501"),
             m_out.constData());
    QVERIFY2(m_out.contains("Warning:"), m_out.constData());
}

void tst_InfoCommand::jsonWithoutOffsets()
{
    SegyWriter writer;
    writer.add({});
    QVERIFY(writer.write(path()));
    QCOMPARE(run({"info", "--json", path()}), 0);
    QCOMPARE(object().value("byte_order").toString(), QStringLiteral("big"));
    QCOMPARE(object().value("text_encoding").toString(), QStringLiteral("EBCDIC"));
    QVERIFY(object().value("offset_min_m").isNull() && object().contains("offset_max_m"));
    QCOMPARE(object().value("warnings").toArray().size(), 1);
}

void tst_InfoCommand::jsonIsTheSameInEveryLanguage()
{
    SegyWriter writer;
    writer.add({});
    QVERIFY(writer.write(path()));
    QCOMPARE(run({"info", "--json", path()}), 0);
    const QByteArray english = m_out;
    QCOMPARE(run({"info", "--json", path()}, "zh_CN.UTF-8"), 0);
    QCOMPARE(m_out, english);
}

void tst_InfoCommand::text()
{
    QVERIFY(SegyWriter::ramps(10, 20).write(path()));
    QCOMPARE(run({"info", path()}), 0);
    for (const char* part : {"line.sgy\n", " 1.0\n", "big-endian", "5 (4-byte IEEE floating point)",
                             "1000 µs", "10 to 100 m"})
        QVERIFY2(m_out.contains(part), part);
    QVERIFY(!m_out.contains("Warning"));
    QVERIFY(QFile::resize(path(), QFileInfo(path()).size() - 1));
    QCOMPARE(run({"info", path()}), 0);
    QVERIFY2(m_out.contains("Whole traces that are read: 9;"), m_out.constData());
}

void tst_InfoCommand::chineseText()
{
    QVERIFY(SegyWriter::ramps(10, 20).write(path()));
    QCOMPARE(run({"info", path()}, "zh_CN.UTF-8"), 0);
    QVERIFY2(m_out.contains("炮检距"), m_out.constData());
    QCOMPARE(run({"info", path("missing.sgy")}, "zh_CN.UTF-8"), 1);
    QVERIFY2(m_error.contains("无法打开"), m_error.constData());
}

void tst_InfoCommand::failures_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("empty") << QByteArray() << QByteArray("is empty");
    QTest::newRow("text") << QByteArray(5000, 'x') << QByteArray("no SEG-Y file");
}

void tst_InfoCommand::failures()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, reason);
    QVERIFY(SegyWriter::writeBytes(path(), bytes));
    QCOMPARE(run({"info", path(), "--json"}), 1);
    QCOMPARE(m_out, QByteArray());
    QVERIFY2(m_error.contains(reason) && m_error.contains("line.sgy"), m_error.constData());
}

void tst_InfoCommand::pathsWithPercentSigns()
{
    const QString odd = path("100%1 %2 %3.sgy");
    QVERIFY(SegyWriter::writeBytes(odd, "x"));
    QCOMPARE(run({"info", odd}), 1);
    QVERIFY2(m_error.contains("100%1 %2 %3.sgy: it is no SEG-Y file"), m_error.constData());
}

void tst_InfoCommand::wrongArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("none") << QStringList();
    QTest::newRow("unknown command") << QStringList{"inform"};
    QTest::newRow("no file") << QStringList{"info"};
    QTest::newRow("two files") << QStringList{"info", "a.sgy", "b.sgy"};
    QTest::newRow("unknown option") << QStringList{"info", "a.sgy", "--xml"};
    QTest::newRow("value for a switch") << QStringList{"info", "a.sgy", "--json=1"};
}

void tst_InfoCommand::wrongArguments()
{
    QFETCH(QStringList, arguments);
    QCOMPARE(run(arguments), 2);
    QCOMPARE(m_out, QByteArray());
    QVERIFY2(m_error.contains("Usage"), m_error.constData());
}

void tst_InfoCommand::helpAndVersion_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("part");
    QTest::newRow("help") << QStringList{"--help"} << QByteArray("info");
    QTest::newRow("help of info") << QStringList{"info", "--help"} << QByteArray("--json");
    QTest::newRow("version") << QStringList{"--version"} << QByteArray("tarnpick-batch 2.");
}

void tst_InfoCommand::helpAndVersion()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, part);
    QCOMPARE(run(arguments), 0);
    QCOMPARE(m_error, QByteArray());
    QVERIFY2(m_out.contains(part), m_out.constData());
}

void tst_InfoCommand::recordedFiles_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("traces");
    QTest::addColumn<int>("gathers");
    QTest::newRow("viking") << "gathers/viking_small.segy" << 480 << 4;
    QTest::newRow("chinese name") << QStringLiteral("odd/小文件.sgy") << 25 << 1;
}

void tst_InfoCommand::recordedFiles()
{
    QFETCH(QString, file);
    QFETCH(int, traces);
    QFETCH(int, gathers);
    const QString root = qEnvironmentVariable("TARNPICK_TEST_DATA");
    if (root.isEmpty())
        QSKIP("TARNPICK_TEST_DATA does not name the folder of recorded files");
    QCOMPARE(run({"info", root + QLatin1Char('/') + file, "--json"}), 0);
    QCOMPARE(object().value("traces").toInt(), traces);
    QCOMPARE(object().value("gathers").toInt(), gathers);
}

QTEST_GUILESS_MAIN(tst_InfoCommand)
#include "tst_InfoCommand.moc"
