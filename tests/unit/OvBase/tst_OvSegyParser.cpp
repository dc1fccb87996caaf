#include "OvBase/OvSegyParser.h"

#include "OvSeismic/segy/OvSegyFile.h"
#include "fixtures/SegyWriter.h"

#include <QTemporaryDir>
#include <QtTest>

class tst_OvSegyParser : public QObject
{
    Q_OBJECT

private slots:
    void readsTheHeaders();
    void aMissingFileIsAllZero();
    void aFileOfAnotherKindIsAllZero();
    void longTracesAreShownSigned();
    void theFormatIsTheDeclaredOne();

private:
    QString write(const SegyWriter& writer);

    QTemporaryDir m_folder;
};

QString tst_OvSegyParser::write(const SegyWriter& writer)
{
    const QString path = m_folder.filePath(QStringLiteral("测线 7.sgy"));
    return writer.write(path) ? path : QString();
}

void tst_OvSegyParser::readsTheHeaders()
{
    SegyWriter writer;
    writer.format = 1;
    writer.sampleCount = 101;
    writer.intervalUs = 2000;
    for (int i = 0; i < 7; ++i)
        writer.add(SegyTrace());
    const OvSegyParser parser(write(writer));
    QVERIFY2(parser.status(), qPrintable(parser.status().message()));
    QCOMPARE(parser.traceLength(), qint16(101));
    QCOMPARE(parser.sampleRate(), qint16(2000));
    QCOMPARE(parser.formatCode(), qint16(1));
    QCOMPARE(parser.totalTraces(), 7);
}

/// Also where the samples are read in another, because the headers are what is shown.
void tst_OvSegyParser::theFormatIsTheDeclaredOne()
{
    SegyWriter writer;
    writer.sampleCount = 500;
    writer.addShot(1, 0.0, 12, 25.0);
    writer.setWord16(3225, 1);
    const QString path = write(writer);
    OvSegyFile file;
    QVERIFY(file.open(path));
    QCOMPARE(file.info().formatCode, short(5));
    QCOMPARE(OvSegyParser(path).formatCode(), qint16(1));
}

void tst_OvSegyParser::aMissingFileIsAllZero()
{
    const QString path = m_folder.filePath(QStringLiteral("missing.sgy"));
    const OvSegyParser parser(path);
    QVERIFY(!parser.status());
    QVERIFY2(parser.status().message().contains(path), qPrintable(parser.status().message()));
    QCOMPARE(
        parser.traceLength() + parser.sampleRate() + parser.formatCode() + parser.totalTraces(), 0);
}

void tst_OvSegyParser::aFileOfAnotherKindIsAllZero()
{
    QFile file(m_folder.filePath(QStringLiteral("letter.sgy")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("Dear reader") > 0);
    file.close();
    const OvSegyParser parser(file.fileName());
    QVERIFY(!parser.status());
    QCOMPARE(
        parser.traceLength() + parser.sampleRate() + parser.formatCode() + parser.totalTraces(), 0);
}

void tst_OvSegyParser::longTracesAreShownSigned()
{
    SegyWriter writer;
    writer.sampleCount = 40000;
    writer.add(SegyTrace());
    const OvSegyParser parser(write(writer));
    QVERIFY2(parser.status(), qPrintable(parser.status().message()));
    QCOMPARE(parser.traceLength(), static_cast<qint16>(40000 - 65536));
}

QTEST_MAIN(tst_OvSegyParser)
#include "tst_OvSegyParser.moc"
