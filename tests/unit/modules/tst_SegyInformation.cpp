#include "ModuleFixture.h"
#include "fixtures/ModalProbe.h"

#include "OvBase/OvTranslator.h"
#include "OvGui/document/OvBackground.h"
#include "OvGui/document/OvProjectMapping.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QTabWidget>
#include <QTableView>
#include <QtTest>

class tst_SegyInformation : public QObject, private ModuleFixture
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(startModule("SegyData")); }
    void init() { begin(); }
    void cleanup() { QCOMPARE(end(), QStringList()); }

    void showsWhatAQuickLookFinds();
    void sortsTheWorstFirst();
    void examinesTheWholeFile();
    void stopsTheExamination();
    void isQuickOnAHugeFile();
    void showsTheWordsByTheProjectsMapping();
    void copiesAllPagesAsText();
    void savesAllPagesAsText();
    void saysWhyTheTextCannotBeSaved();
    void closingStopsTheWork();
    void speaksChinese();

private:
    void openInformation(const SegyWriter& writer);
    void openInformation();
    static SegyWriter shots(int traces);
    template <typename Field>
    Field* field(const char* name) const
    {
        return m_dialog->findChild<Field*>(QLatin1String(name));
    }
    QStringList remarks() const;
    QString note() const { return field<QLabel>("note")->text(); }
    QString tab(int index) const { return m_dialog->findChild<QTabWidget*>()->tabText(index); }
    void click(const char* button)
    {
        QTest::mouseClick(field<QPushButton>(button), Qt::LeftButton);
    }
};

SegyWriter tst_SegyInformation::shots(int traces)
{
    return SegyWriter::of(traces, 4, [](int i, SegyTrace* trace) {
        trace->fieldRecord = 1 + i / 10;
        trace->channel = 1 + i % 10;
        trace->offset = 10 * (1 + i % 10);
        trace->sourceX = 100 * trace->fieldRecord;
        trace->receiverX = trace->sourceX + trace->offset;
        trace->samples = {1.0F, -2.0F, 3.0F, 1.0F};
    });
}

void tst_SegyInformation::openInformation(const SegyWriter& writer)
{
    QVERIFY(writer.write(path()));
    openInformation();
}

void tst_SegyInformation::openInformation()
{
    if (!OvProjectManager::instance().define().isValid())
        QVERIFY(m_session->openProject());
    QVERIFY(openView());
    QVERIFY(openDialog("actionSegy_Information", "OvSegyInfoDlg"));
    QVERIFY(m_dialog);
}

QStringList tst_SegyInformation::remarks() const
{
    QStringList texts;
    const auto* list = field<QListWidget>("remarks");
    for (int i = 0; i < list->count(); ++i)
        texts += list->item(i)->text();
    return texts;
}

void tst_SegyInformation::showsWhatAQuickLookFinds()
{
    openInformation(shots(40));
    QTRY_COMPARE(note(), QStringLiteral("All 40 traces were looked at."));
    QCOMPARE(tab(1), QStringLiteral("Remarks (0)"));
    QVERIFY2(remarks().join(QLatin1Char('\n')).contains(QLatin1String("(bytes 3501 to 3502)")),
             qPrintable(remarks().join(QLatin1Char('\n'))));
    const auto* list = field<QListWidget>("remarks");
    for (int i = 0; i < list->count(); ++i) {
        QVERIFY(!list->item(i)->icon().isNull());
        QCOMPARE(list->item(i)->toolTip(), QStringLiteral("note"));
    }
}

void tst_SegyInformation::sortsTheWorstFirst()
{
    SegyWriter writer = shots(20);
    SegyTrace again; // repeats record 1, channel 1
    again.fieldRecord = 1;
    again.channel = 1;
    again.offset = 10;
    again.samples = {1.0F, 1.0F, 1.0F, 1.0F};
    writer.add(again);
    openInformation(writer);
    QTRY_VERIFY(tab(1) != QLatin1String("Remarks (0)"));
    QVERIFY2(remarks().first().contains(QLatin1String("repeat the field record and channel")),
             qPrintable(remarks().first()));
    QVERIFY2(remarks().first().contains(QLatin1String("(bytes 9 to 16)")),
             qPrintable(remarks().first()));
    QCOMPARE(field<QListWidget>("remarks")->item(0)->toolTip(), QStringLiteral("warning"));
}

void tst_SegyInformation::examinesTheWholeFile()
{
    openInformation(shots(3000));
    QTRY_COMPARE(note(), QStringLiteral("All 3,000 traces were looked at."));
    QTRY_VERIFY(remarks().join(QLatin1Char('\n')).contains(QLatin1String("of the 3000 traces")));
    click("examine");
    QCOMPARE(field<QPushButton>("examine")->text(), QStringLiteral("&Stop"));
    QVERIFY(field<QProgressBar>("progress")->isVisible());
    QTRY_VERIFY(!field<QProgressBar>("progress")->isVisible());
    QCOMPARE(note(), QStringLiteral("All 3,000 traces were looked at."));
    QVERIFY2(!remarks().join(QLatin1Char('\n')).contains(QLatin1String("of the 3000 traces")),
             "nothing was left out");
}

void tst_SegyInformation::stopsTheExamination()
{
    openInformation(shots(1));
    QTRY_VERIFY(note() != QLatin1String("Examining..."));
    m_session->closeViews();
    delete m_dialog.data();
    QVERIFY(QFile::resize(path(), qint64(2) << 30));
    openInformation();
    QTRY_VERIFY(note() != QLatin1String("Examining..."));
    const QStringList before = remarks();
    click("examine");
    QTRY_VERIFY(field<QProgressBar>("progress")->value() > 0 ||
                !field<QProgressBar>("progress")->isVisible());
    click("examine");
    QTRY_COMPARE(note(), QStringLiteral("Cancelled."));
    QCOMPARE(remarks().first(), before.first()); // what was known stays
    QVERIFY(!field<QProgressBar>("progress")->isVisible());
}

void tst_SegyInformation::isQuickOnAHugeFile()
{
    SegyWriter writer = shots(1);
    writer.sampleCount = 2000;
    QVERIFY(writer.write(path()));
    if (!QFile::resize(path(), qint64(500) << 30))
        QSKIP("This file system holds no sparse file of 500 GiB.");
    QElapsedTimer clock;
    clock.start();
    openInformation();
    QVERIFY2(clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
    QTRY_VERIFY_WITH_TIMEOUT(note().startsWith(QLatin1String("A part of the ")), 20000);
}

void tst_SegyInformation::showsTheWordsByTheProjectsMapping()
{
    QVERIFY(m_session->openProject());
    OvTraceHeaderMapping mapping;
    mapping.setWord(OvTraceHeaderMapping::Cdp, {37, OvHeaderType::Int32, OvHeaderOrder::File});
    mapping.setWord(OvTraceHeaderMapping::Offset, {0, OvHeaderType::Int32, OvHeaderOrder::File});
    QVERIFY(OvProjectMapping::setMapping(mapping));
    openInformation(shots(20));
    const QAbstractItemModel* words = field<QTableView>("words")->model();
    const auto text = [words](int row, int column) {
        return words->index(row, column).data().toString();
    };
    QCOMPARE(text(OvTraceHeaderMapping::Cdp, 1), QStringLiteral("37"));
    QTRY_COMPARE(text(OvTraceHeaderMapping::Cdp, 5), QStringLiteral("100"));
    QCOMPARE(field<QTableView>("words")->editTriggers(), QAbstractItemView::NoEditTriggers);
}

void tst_SegyInformation::copiesAllPagesAsText()
{
    openInformation(shots(20));
    QTRY_COMPARE(note(), QStringLiteral("All 20 traces were looked at."));
    QTRY_VERIFY(m_session->lastView()->document()->isIndexComplete());
    click("copyText");
    QCOMPARE(note(), QStringLiteral("Copied."));
    const QString text = QApplication::clipboard()->text();
    for (const char* part :
         {"line.sgy", "Traces: 20", "Gathers: 2", "[note] ", "(bytes 3501 to 3502)",
          "Offset (byte 37): 10 to 100, 0 of 20 are zero", "C 1 TEST FILE"})
        QVERIFY2(text.contains(QLatin1String(part)), part);
}

void tst_SegyInformation::savesAllPagesAsText()
{
    openInformation(shots(20));
    QTRY_COMPARE(note(), QStringLiteral("All 20 traces were looked at."));
    const QString target = path(QStringLiteral("说明.txt"));
    ModalProbe probe;
    probe.next([&](QWidget* window) {
        auto* dialog = qobject_cast<QFileDialog*>(window);
        QCOMPARE(QFileInfo(dialog->selectedFiles().value(0)).fileName(),
                 QStringLiteral("line_info.txt"));
        dialog->selectFile(target);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    click("saveText");
    QVERIFY(probe.isDone());
    click("copyText");
    QFile file(target);
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    QCOMPARE(QString::fromUtf8(file.readAll()), QApplication::clipboard()->text());
}

void tst_SegyInformation::saysWhyTheTextCannotBeSaved()
{
    openInformation(shots(20));
    ModalProbe probe;
    probe.next([&](QWidget* window) {
        auto* dialog = qobject_cast<QFileDialog*>(window);
        dialog->selectFile(QStringLiteral("/proc/text.txt")); // nobody writes there
        QMetaObject::invokeMethod(dialog, "accept");
    });
    probe.nextBox(QMessageBox::Ok);
    click("saveText");
    QTRY_VERIFY(probe.isDone());
    QVERIFY2(probe.boxes().front().text.contains(QLatin1String("text.txt")),
             qPrintable(probe.boxes().front().text));
}

void tst_SegyInformation::closingStopsTheWork()
{
    openInformation(shots(1));
    QTRY_VERIFY(note() != QLatin1String("Examining..."));
    m_session->closeViews();
    delete m_dialog.data();
    QVERIFY(QFile::resize(path(), qint64(4) << 30));
    openInformation();
    click("examine");
    QElapsedTimer clock;
    clock.start();
    delete m_dialog.data();
    QVERIFY(clock.elapsed() < 1000);
    // A worker that went on would hold up whoever comes next for minutes.
    bool ran = false;
    OvBackground next(OvBackground::scanPool());
    OvBackground other(OvBackground::scanPool());
    for (OvBackground* background : {&next, &other})
        background->run([&](const OvBackground::Post& post) { post([&] { ran = true; }); });
    QTRY_VERIFY(ran);
}

void tst_SegyInformation::speaksChinese()
{
    openInformation(shots(20));
    QTRY_COMPARE(note(), QStringLiteral("All 20 traces were looked at."));
    OvTranslator::instance().setSessionLanguage(OvTranslator::Chinese);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("SEG-Y 信息"));
    QCOMPARE(field<QPushButton>("examine")->text(), QStringLiteral("检查整个文件(&E)"));
    QCOMPARE(tab(2), QStringLiteral("道头"));
    OvTranslator::instance().setSessionLanguage(OvTranslator::English);
    QCoreApplication::sendPostedEvents();
}

QTEST_MAIN(tst_SegyInformation)
#include "tst_SegyInformation.moc"
