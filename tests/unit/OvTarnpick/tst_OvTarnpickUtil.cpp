#include "OvTarnpick/OvTarnpickUtil.h"

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvTranslator.h"
#include "fixtures/ModalProbe.h"
#include "fixtures/SegyWriter.h"
#include "fixtures/WarningTrap.h"

#include <QFile>
#include <QFontInfo>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

class tst_OvTarnpickUtil : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsTheWholeSummary();
    void countsToTheLastSample_data();
    void countsToTheLastSample();
    void missingFileIsSilent();
    void otherFileIsStillSummarised();
    void nameIsNoMarkup();
    void chineseLabelsKeepTheColumn();

private:
    QString shownFor(const QString& fileName);
    QString makeFile(int traces, int samples, int intervalUs, int format) const;

    QTemporaryDir m_folder;
};

void tst_OvTarnpickUtil::init()
{
    WarningTrap::start();
}

void tst_OvTarnpickUtil::cleanup()
{
    OvTranslator::instance().setSessionLanguage(OvTranslator::English);
    QCOMPARE(WarningTrap::take(), QStringList());
}

// Shows the box, checks everything but its text, which is returned.
QString tst_OvTarnpickUtil::shownFor(const QString& fileName)
{
    QWidget parent;
    ModalProbe probe;
    probe.nextBox(QMessageBox::Close);
    OvTarnpickUtil::displaySegyInfo(fileName, &parent);
    if (!probe.isDone() || probe.boxes().size() != 1)
        return QStringLiteral("no box");
    const ModalProbe::Box box = probe.boxes().front();
    const bool isPlain = box.buttons == QMessageBox::Close &&
                         box.defaultButton == QMessageBox::Close &&
                         box.icon == QMessageBox::Information && box.parent == &parent;
    return isPlain ? box.text : QStringLiteral("wrong kind of box");
}

QString tst_OvTarnpickUtil::makeFile(int traces, int samples, int intervalUs, int format) const
{
    SegyWriter writer;
    writer.sampleCount = samples;
    writer.intervalUs = intervalUs;
    writer.format = format;
    for (int i = 0; i < traces; ++i)
        writer.add(SegyTrace());
    const QString path = m_folder.filePath(
        QStringLiteral("%1x%2-%3-%4.sgy").arg(traces).arg(samples).arg(intervalUs).arg(format));
    return writer.write(path) ? path : QString();
}

void tst_OvTarnpickUtil::showsTheWholeSummary()
{
    const QString path = makeFile(1000, 1001, 2000, 1);
    QVERIFY(!path.isEmpty());
    const qint64 bytes = 3600 + 1000 * (240 + 1001 * 4);
    const QString expected = QStringLiteral("\n"
                                            "File:         %1.\n"
                                            "File Size:    %2 Bytes.\n"
                                            "Sample Rate:  2000 μs.\n"
                                            "Trace Length: 2000 ms.\n"
                                            "Data Format:  %3.\n"
                                            "Total Traces: 1000.\n")
                                 .arg(path, QString::number(bytes), OvBaseUtil::segyFormatInfo(1));
    QCOMPARE(shownFor(path), expected);
}

void tst_OvTarnpickUtil::countsToTheLastSample_data()
{
    QTest::addColumn<int>("samples");
    QTest::addColumn<int>("intervalUs");
    QTest::addColumn<int>("lengthMs");
    QTest::newRow("1001 at 1000") << 1001 << 1000 << 1000;
    QTest::newRow("1000 at 1000") << 1000 << 1000 << 999;
    QTest::newRow("501 at 250") << 501 << 250 << 125;
    QTest::newRow("3 at 333") << 3 << 333 << 0;
    // The product is beyond 16 bits.
    QTest::newRow("3001 at 4000") << 3001 << 4000 << 12000;
}

void tst_OvTarnpickUtil::countsToTheLastSample()
{
    QFETCH(int, samples);
    QFETCH(int, intervalUs);
    QFETCH(int, lengthMs);
    const QString text = shownFor(makeFile(2, samples, intervalUs, 5));
    QVERIFY2(text.contains(QStringLiteral("\nSample Rate:  %1 μs.\n").arg(intervalUs)),
             qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("\nTrace Length: %1 ms.\n").arg(lengthMs)),
             qPrintable(text));
    QVERIFY2(text.endsWith(QStringLiteral("\nTotal Traces: 2.\n")), qPrintable(text));
}

void tst_OvTarnpickUtil::missingFileIsSilent()
{
    ModalProbe probe;
    static int messages = 0;
    const QtMessageHandler former = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString&) { ++messages; });
    OvTarnpickUtil::displaySegyInfo(m_folder.filePath(QStringLiteral("none.sgy")), nullptr);
    qInstallMessageHandler(former);
    QCOMPARE(messages, 0);
    QVERIFY(probe.isDone());
    QVERIFY(probe.boxes().empty());
}

void tst_OvTarnpickUtil::otherFileIsStillSummarised()
{
    QFile file(m_folder.filePath(QStringLiteral("notes.sgy")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write("no seismic data"), qint64(15));
    file.close();
    const QString text = shownFor(file.fileName());
    QVERIFY2(text.contains(QStringLiteral("\nFile Size:    15 Bytes.\n")), qPrintable(text));
    QVERIFY2(text.endsWith(QStringLiteral("\nTotal Traces: 0.\n")), qPrintable(text));
}

void tst_OvTarnpickUtil::nameIsNoMarkup()
{
    const QString path = m_folder.filePath(QStringLiteral("<b>bold</b>.sgy"));
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QVERIFY(QFile::copy(makeFile(1, 10, 1000, 5), path));
    ModalProbe probe;
    Qt::TextFormat format = Qt::AutoText;
    QFont font;
    probe.next([&](QWidget* window) {
        format = qobject_cast<QMessageBox*>(window)->textFormat();
        font = window->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))->font();
        window->close();
    });
    OvTarnpickUtil::displaySegyInfo(path, nullptr);
    QVERIFY(probe.isDone());
    QCOMPARE(format, Qt::PlainText);
    QVERIFY2(QFontInfo(font).fixedPitch(), qPrintable(QFontInfo(font).family()));
}

void tst_OvTarnpickUtil::chineseLabelsKeepTheColumn()
{
    OvTranslator::instance().setSessionLanguage(OvTranslator::Chinese);
    const QString path = makeFile(2, 11, 1000, 5);
    QStringList lines = shownFor(path).split('\n');
    QCOMPARE(lines.size(), 8);
    for (const QString& line : lines.mid(1, 6)) {
        // Four ideographs and a full-width colon, two columns each, and four blanks: 14 columns.
        QCOMPARE(line.at(4), QChar(0xff1a));
        QCOMPARE(line.mid(5, 4), QStringLiteral("    "));
        QVERIFY(!line.at(9).isSpace());
    }
}

QTEST_MAIN(tst_OvTarnpickUtil)
#include "tst_OvTarnpickUtil.moc"
