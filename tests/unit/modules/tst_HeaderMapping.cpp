#include "ModuleFixture.h"
#include "fixtures/ModalProbe.h"

#include "OvBase/OvTranslator.h"
#include "OvGui/document/OvProjectMapping.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QScopeGuard>
#include <QScrollBar>
#include <QSpinBox>
#include <QSplitter>
#include <QTableView>
#include <QtTest>

namespace {

using Mapping = OvTraceHeaderMapping;

enum Column { Name, Byte, Type, Order, Minimum, Maximum, Values, Zeros };

class UrlCatcher : public QObject
{
    Q_OBJECT

public:
    UrlCatcher() { QDesktopServices::setUrlHandler(QStringLiteral("http"), this, "take"); }
    ~UrlCatcher() override { QDesktopServices::unsetUrlHandler(QStringLiteral("http")); }
    QUrl url;
    Q_INVOKABLE void take(const QUrl& opened) { url = opened; }
};

} // namespace

class tst_HeaderMapping : public QObject, private ModuleFixture
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(startModule("SegyData")); }
    void init() { begin(); }
    void cleanup() { QCOMPARE(end(), QStringList()); }

    void isOfNoUseWithoutAProject();
    void asksForAFileWhenNoneIsOpen();
    void showsTheFirstTraces();
    void showsWhatTheFileHolds();
    void valuesFollowTheMapping();
    void presetFillsTheTable();
    void editingGoesToOwnPositions();
    void deleteTakesAWordAway();
    void choosesTypeAndOrder();
    void remarksOnWhatMakesNoSense();
    void refusesAMappingThatCannotBe();
    void clickingARemarkGoesToItsWord();
    void examinesTheWholeFile();
    void surveysASpreadOfALongFile();
    void keepsTheMappingWithTheProject();
    void readsTheHeadersOfOpenFilesAgain();
    void aFileOpenedLaterIsReadByIt();
    void aCancelKeepsTheGathersFromBefore();
    void aFileWithoutSuchBytesKeepsTheStandard();
    void cancelKeepsNothing();
    void showsAllColumnsAtFirst_data();
    void showsAllColumnsAtFirst();
    void remembersItsPlace();
    void opensItsPageWithF1();
    void speaksChinese();

private:
    void openDialog(const SegyWriter& writer);
    void openDialog();
    static SegyWriter twoShots();
    template <typename Field>
    Field* field(const char* name) const
    {
        return m_dialog->findChild<Field*>(QLatin1String(name));
    }
    QTableView* table() const { return field<QTableView>("mappingTable"); }
    QAbstractItemModel* values() const { return field<QTableView>("valueTable")->model(); }
    QModelIndex cell(int quantity, int column) const
    {
        return table()->model()->index(quantity, column);
    }
    QString text(int quantity, int column) const
    {
        return cell(quantity, column).data().toString();
    }
    QString value(int trace, int quantity) const
    {
        return values()->index(trace, quantity).data().toString();
    }
    void set(int quantity, int column, int value)
    {
        QVERIFY(table()->model()->setData(cell(quantity, column), value, Qt::EditRole));
    }
    QStringList remarks() const;
    void press(QDialogButtonBox::StandardButton button)
    {
        QTest::mouseClick(m_dialog->findChild<QDialogButtonBox*>()->button(button), Qt::LeftButton);
    }
};

SegyWriter tst_HeaderMapping::twoShots()
{
    return SegyWriter::of(20, 10, [](int i, SegyTrace* trace) {
        trace->fieldRecord = 100 + i / 10;
        trace->channel = 1 + i % 10;
        trace->offset = 25 * (i % 10) + 5;
        trace->receiverX = trace->offset;
        // Inline and crossline, low halves of the words.
        trace->words = {{191, static_cast<qint16>(7 + i / 10)}, {195, static_cast<qint16>(50 + i)}};
    });
}

void tst_HeaderMapping::openDialog(const SegyWriter& writer)
{
    QVERIFY(writer.write(path()));
    QVERIFY(m_session->openProject());
    QVERIFY(openView());
    openDialog();
}

void tst_HeaderMapping::openDialog()
{
    QVERIFY(ModuleFixture::openDialog("actionHeader_Mapping", "OvHeaderMappingDlg"));
    QTRY_VERIFY(values()->rowCount() > 0);
    QTRY_VERIFY(field<QLabel>("found")->text().startsWith(QLatin1String("Found in ")));
}

QStringList tst_HeaderMapping::remarks() const
{
    QStringList texts;
    const auto* list = field<QListWidget>("problems");
    for (int i = 0; i < list->count(); ++i)
        texts += list->item(i)->text();
    return texts;
}

void tst_HeaderMapping::isOfNoUseWithoutAProject()
{
    const QAction* entry = action("actionHeader_Mapping");
    QVERIFY(!entry->isEnabled());
    QVERIFY(!OvProjectMapping::setMapping({}));
    QVERIFY(m_session->openProject());
    QVERIFY(entry->isEnabled());
    QCOMPARE(entry->shortcut(), QKeySequence(QStringLiteral("Ctrl+H")));
    QVERIFY(!entry->toolTip().isEmpty());
}

void tst_HeaderMapping::asksForAFileWhenNoneIsOpen()
{
    QVERIFY(m_session->writeLine(QStringLiteral("line.sgy"), 1));
    QVERIFY(m_session->openProject());
    ModalProbe probe;
    probe.next([this](QWidget* window) {
        auto* dialog = qobject_cast<QFileDialog*>(window);
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Header Mapping"));
        dialog->selectFile(path());
        QMetaObject::invokeMethod(dialog, "accept");
    });
    action("actionHeader_Mapping")->trigger();
    QVERIFY(probe.isDone());
    m_dialog = m_session->window()->findChild<QDialog*>(QStringLiteral("OvHeaderMappingDlg"));
    QVERIFY(m_dialog);
}

void tst_HeaderMapping::showsTheFirstTraces()
{
    const SegyWriter writer = SegyWriter::of(300, 2, [](int i, SegyTrace* trace) {
        trace->fieldRecord = 1 + i / 10;
        trace->channel = i;
        trace->coordinateScalar = -100;
        trace->sourceX = 123456789;
    });
    openDialog(writer);
    QCOMPARE(values()->rowCount(), 200);
    QCOMPARE(values()->columnCount(), int(Mapping::quantityCount));
    QCOMPARE(value(0, Mapping::FieldRecord), QStringLiteral("1"));
    QCOMPARE(value(199, Mapping::Channel), QStringLiteral("199"));
    QCOMPARE(value(0, Mapping::SourceX), QStringLiteral("123456789")); // as it stands
    QCOMPARE(value(0, Mapping::ReceiverPoint), QString());
    QCOMPARE(values()->headerData(Mapping::Offset, Qt::Horizontal).toString(),
             QStringLiteral("Offset"));
}

void tst_HeaderMapping::showsWhatTheFileHolds()
{
    openDialog(twoShots());
    QCOMPARE(text(Mapping::FieldRecord, Name), QStringLiteral("Field record"));
    QCOMPARE(text(Mapping::FieldRecord, Byte), QStringLiteral("9"));
    QCOMPARE(text(Mapping::FieldRecord, Type), QStringLiteral("4-byte integer"));
    QCOMPARE(text(Mapping::FieldRecord, Minimum), QStringLiteral("100"));
    QCOMPARE(text(Mapping::FieldRecord, Maximum), QStringLiteral("101"));
    QCOMPARE(text(Mapping::FieldRecord, Values), QStringLiteral("2"));
    QCOMPARE(text(Mapping::SourceX, Zeros), QStringLiteral("20"));
    QCOMPARE(text(Mapping::ReceiverPoint, Byte), QStringLiteral("none"));
    QCOMPARE(text(Mapping::ReceiverPoint, Minimum), QString());
    QCOMPARE(field<QLabel>("found")->text(), QStringLiteral("Found in all 20 traces."));
    QCOMPARE(remarks(), QStringList(QStringLiteral("Nothing to remark.")));
}

void tst_HeaderMapping::valuesFollowTheMapping()
{
    openDialog(twoShots());
    set(Mapping::FieldRecord, Byte, 189);
    QCOMPARE(value(0, Mapping::FieldRecord), QStringLiteral("7"));
    QTRY_COMPARE(text(Mapping::FieldRecord, Maximum), QStringLiteral("8"));
    set(Mapping::FieldRecord, Order, int(OvHeaderOrder::Little));
    QCOMPARE(value(0, Mapping::FieldRecord), QString::number(7 << 24));
}

void tst_HeaderMapping::presetFillsTheTable()
{
    openDialog(twoShots());
    auto* presets = field<QComboBox>("presets");
    QCOMPARE(presets->currentIndex(), int(Mapping::Revision1));
    QTest::keyClick(presets, Qt::Key_Down);
    QTest::keyClick(presets, Qt::Key_Down);
    QCOMPARE(presets->currentIndex(), int(Mapping::InlineCrossline));
    QCOMPARE(text(Mapping::FieldRecord, Byte), QStringLiteral("189"));
    QCOMPARE(text(Mapping::Channel, Byte), QStringLiteral("193"));
    QCOMPARE(value(3, Mapping::Channel), QStringLiteral("53"));
}

void tst_HeaderMapping::editingGoesToOwnPositions()
{
    openDialog(twoShots());
    auto* presets = field<QComboBox>("presets");
    table()->setFocus();
    table()->setCurrentIndex(cell(Mapping::Channel, Byte));
    QTest::keyClick(table(), Qt::Key_F2);
    auto* editor = table()->findChild<QSpinBox*>();
    QVERIFY(editor);
    QCOMPARE(editor->value(), 13);
    QCOMPARE(editor->maximum(), 240);
    editor->selectAll();
    QTest::keyClicks(editor, QStringLiteral("193"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(text(Mapping::Channel, Byte), QStringLiteral("193"));
    QCOMPARE(presets->currentIndex(), int(Mapping::presetCount));
    QCOMPARE(presets->currentText(), QStringLiteral("Own positions"));
    set(Mapping::Channel, Byte, 13);
    QCOMPARE(presets->currentIndex(), int(Mapping::Revision1));
}

void tst_HeaderMapping::deleteTakesAWordAway()
{
    openDialog(twoShots());
    table()->setFocus();
    table()->setCurrentIndex(cell(Mapping::Offset, Name));
    QTest::keyClick(table(), Qt::Key_Delete);
    QCOMPARE(text(Mapping::Offset, Byte), QStringLiteral("none"));
    QCOMPARE(value(0, Mapping::Offset), QString());
}

void tst_HeaderMapping::choosesTypeAndOrder()
{
    openDialog(twoShots());
    m_dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog));
    table()->setCurrentIndex(cell(Mapping::Offset, Type));
    table()->edit(cell(Mapping::Offset, Type));
    QPointer<QComboBox> editor = table()->findChild<QComboBox*>();
    QVERIFY(editor);
    QCOMPARE(editor->count(), 10);
    QCOMPARE(editor->currentText(), QStringLiteral("4-byte integer"));
    QTest::keyClick(editor, Qt::Key_Up); // counts at once
    QCOMPARE(text(Mapping::Offset, Type), QStringLiteral("2-byte unsigned integer"));
    QTRY_VERIFY(!editor);
}

void tst_HeaderMapping::remarksOnWhatMakesNoSense()
{
    openDialog(twoShots());
    set(Mapping::FieldRecord, Byte, 25);
    QTRY_VERIFY2(remarks().first().contains(QLatin1String("Field record is 0 in all traces")),
                 qPrintable(remarks().first()));
    set(Mapping::Offset, Byte, 0);
    QTRY_COMPARE(remarks().size(), 2);
    QVERIFY(remarks().last().contains(QLatin1String("computed from the coordinates")));
    QVERIFY(!cell(Mapping::Offset, Name).data(Qt::DecorationRole).isNull());
    QVERIFY(cell(Mapping::Channel, Name).data(Qt::DecorationRole).isNull());
    QVERIFY(cell(Mapping::Offset, Name)
                .data(Qt::ToolTipRole)
                .toString()
                .contains(QLatin1String("computed")));
}

void tst_HeaderMapping::refusesAMappingThatCannotBe()
{
    openDialog(twoShots());
    set(Mapping::Channel, Byte, 11);
    QCOMPARE(remarks().first(),
             QStringLiteral("Field record and Channel overlap at bytes 11 to 12."));
    QTRY_VERIFY(!field<QPushButton>("examine")->isEnabled());
    table()->setCurrentIndex(cell(Mapping::Delay, Byte));
    ModalProbe probe;
    probe.nextBox(QMessageBox::Ok);
    press(QDialogButtonBox::Ok);
    QTRY_VERIFY(probe.isDone());
    QCOMPARE(probe.boxes().front().text, remarks().first());
    QVERIFY(m_dialog && m_dialog->isVisible());
    QCOMPARE(table()->currentIndex(), cell(Mapping::Channel, Byte));
    QVERIFY(OvProjectMapping::mapping().isDefault());
}

void tst_HeaderMapping::clickingARemarkGoesToItsWord()
{
    openDialog(twoShots());
    set(Mapping::CoordinateScalar, Byte, 115); // samples a trace: 10, which is one; then 117: 1000
    set(Mapping::CoordinateScalar, Byte, 193); // the upper half of the crossline: 0
    set(Mapping::CoordinateScalar, Byte, 195); // its lower half: 50 and so on
    QTRY_VERIFY(remarks().first().startsWith(QLatin1String("Coordinate scalar ranges")));
    auto* list = field<QListWidget>("problems");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(0)).center());
    QCOMPARE(table()->currentIndex().row(), int(Mapping::CoordinateScalar));
}

void tst_HeaderMapping::examinesTheWholeFile()
{
    const SegyWriter writer = SegyWriter::of(30000, 1, [](int i, SegyTrace* trace) {
        trace->fieldRecord = i / 100;
        // Not among those of the spread: groups of 64 lie 96 apart.
        trace->cdp = i == 80 ? 999 : 1;
    });
    openDialog(writer);
    QVERIFY2(field<QLabel>("found")->text().endsWith(
                 QLatin1String("of 30,000 traces, spread over the file.")),
             qPrintable(field<QLabel>("found")->text()));
    QCOMPARE(text(Mapping::Cdp, Maximum), QStringLiteral("1"));
    auto* button = field<QPushButton>("examine");
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(button->text(), QStringLiteral("&Stop"));
    QVERIFY(field<QProgressBar>("progress")->isVisible());
    QTRY_COMPARE(field<QLabel>("found")->text(), QStringLiteral("Found in all 30,000 traces."));
    QCOMPARE(text(Mapping::Cdp, Maximum), QStringLiteral("999"));
    QCOMPARE(button->text(), QStringLiteral("&Examine Whole File"));
    QVERIFY(!field<QProgressBar>("progress")->isVisible());
}

void tst_HeaderMapping::surveysASpreadOfALongFile()
{
    // A million traces in a sparse file: the spread is found without reading them all.
    SegyWriter writer;
    writer.sampleCount = 1;
    writer.add({});
    QVERIFY(writer.write(path()));
    QVERIFY(QFile::resize(path(), 3600 + qint64(1000000) * 244));
    QVERIFY(m_session->openProject());
    QVERIFY(openView());
    openDialog();
    QTest::mouseClick(field<QPushButton>("examine"), Qt::LeftButton);
    QTRY_VERIFY(field<QProgressBar>("progress")->value() > 0 ||
                !field<QProgressBar>("progress")->isVisible());
    QTest::mouseClick(field<QPushButton>("examine"), Qt::LeftButton); // stops
    QTRY_COMPARE(field<QLabel>("found")->text(), QStringLiteral("Cancelled."));
    QVERIFY(!field<QProgressBar>("progress")->isVisible());
}

void tst_HeaderMapping::keepsTheMappingWithTheProject()
{
    openDialog(twoShots());
    set(Mapping::FieldRecord, Byte, 189);
    press(QDialogButtonBox::Ok);
    QTRY_VERIFY(!m_dialog);
    QCOMPARE(OvProjectMapping::mapping().word(Mapping::FieldRecord).position, 189);
    openDialog();
    QCOMPARE(text(Mapping::FieldRecord, Byte), QStringLiteral("189"));
    delete m_dialog.data();
    PluginSession other;
    QVERIFY(other.openProject());
    QVERIFY(OvProjectMapping::mapping().isDefault());
}

void tst_HeaderMapping::readsTheHeadersOfOpenFilesAgain()
{
    openDialog(twoShots());
    const auto document = m_session->lastView()->document();
    QTRY_VERIFY(document->isIndexComplete());
    QCOMPARE(document->index()->fieldRecord(0), 100);
    OvFirstBreaks breaks;
    breaks.resize(10);
    breaks.timesMs[3] = 12.0F;
    breaks.states[3] = OvPickState::Manual;
    QVERIFY(document->setFirstBreaks(1, breaks));
    // The last digits of the crossline: five traces a record.
    set(Mapping::FieldRecord, Byte, 195);
    set(Mapping::FieldRecord, Type, int(OvHeaderType::Int16));
    press(QDialogButtonBox::Ok);
    QTRY_COMPARE(document->gatherCount(), 1); // each trace a record of its own: one gather
    QCOMPARE(document->index()->fieldRecord(0), 50);
    QVERIFY(document->isIndexComplete() && !document->isIndexStale());
    QCOMPARE(document->firstBreaks(0).timesMs[13], 12.0F); // the pick is with its trace
    QTRY_COMPARE(m_session->lastView()->gatherCount(), 1);
}

void tst_HeaderMapping::aFileOpenedLaterIsReadByIt()
{
    QVERIFY(m_session->openProject());
    Mapping mapping;
    mapping.setWord(Mapping::FieldRecord, {189, OvHeaderType::Int32, OvHeaderOrder::File});
    QVERIFY(OvProjectMapping::setMapping(mapping));
    QVERIFY(twoShots().write(path()));
    const auto document = openDocument();
    QVERIFY(document);
    QTRY_VERIFY(document->isIndexComplete());
    QCOMPARE(document->index()->fieldRecord(0), 7);
    QCOMPARE(document->index()->fieldRecord(1), 8);
    // Another project, another mapping.
    PluginSession other;
    QVERIFY(other.openProject());
    QCOMPARE(openDocument(), document);
    QTRY_COMPARE(document->index()->fieldRecord(0), 100);
}

void tst_HeaderMapping::aCancelKeepsTheGathersFromBefore()
{
    QVERIFY(twoShots().write(path()));
    QVERIFY(QFile::resize(path(), 3600 + qint64(3000000) * 280)); // enough to be caught at it
    QVERIFY(m_session->openProject());
    const auto document = openDocument();
    QVERIFY(document);
    QTRY_VERIFY_WITH_TIMEOUT(document->isIndexComplete(), 60000);
    const auto before = document->index();
    Mapping mapping;
    mapping.setWord(Mapping::FieldRecord, {189, OvHeaderType::Int32, OvHeaderOrder::File});
    QVERIFY(OvProjectMapping::setMapping(mapping));
    QVERIFY(document->isIndexing() && document->isIndexStale());
    for (OvAbstractJob* job : OvTaskManager::instance().tasks())
        job->requestCancel();
    QTRY_VERIFY(!document->isIndexing());
    QCOMPARE(document->index(), before);
    QVERIFY(document->isIndexComplete() && document->isIndexStale());
    QVERIFY2(document->indexMessage().contains(QLatin1String("mapping before")),
             qPrintable(document->indexMessage()));
    // Back to what it was read by: nothing is left to do.
    QVERIFY(OvProjectMapping::setMapping({}));
    QVERIFY(!document->isIndexing() && !document->isIndexStale());
    QCOMPARE(document->indexMessage(), QString());
}

void tst_HeaderMapping::aFileWithoutSuchBytesKeepsTheStandard()
{
    QVERIFY(m_session->openProject());
    QVERIFY(OvProjectMapping::setMapping(Mapping::preset(Mapping::Revision2)));
    QVERIFY(twoShots().write(path()));
    const auto document = openDocument();
    QVERIFY(document);
    QTRY_VERIFY(document->isIndexComplete());
    QCOMPARE(document->index()->fieldRecord(0), 100);
    OvStatus status;
    QVERIFY(document->mapping(&status).isDefault());
    QVERIFY2(status.message().contains(QLatin1String("240 bytes")), qPrintable(status.message()));
}

void tst_HeaderMapping::cancelKeepsNothing()
{
    openDialog(twoShots());
    set(Mapping::FieldRecord, Byte, 189);
    press(QDialogButtonBox::Cancel);
    QTRY_VERIFY(!m_dialog);
    QVERIFY(OvProjectMapping::mapping().isDefault());
}

void tst_HeaderMapping::showsAllColumnsAtFirst_data()
{
    QTest::addColumn<bool>("chinese");
    QTest::addColumn<double>("pointSize");
    QTest::addColumn<bool>("fits");
    // Small fonts, for the screen of the tests is small.
    QTest::newRow("English") << false << 5.0 << true;
    QTest::newRow("English, 150 %") << false << 7.5 << true;
    QTest::newRow("Chinese") << true << 5.0 << true;
    QTest::newRow("Chinese, 150 %") << true << 7.5 << true;
    QTest::newRow("English, wider than the screen") << false << 14.0 << false;
    QTest::newRow("Chinese, wider than the screen") << true << 14.0 << false;
}

void tst_HeaderMapping::showsAllColumnsAtFirst()
{
    QFETCH(bool, chinese);
    QFETCH(double, pointSize);
    QFETCH(bool, fits);
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("headerMappingDialog"), QVariant()));
    const QFont usual = QApplication::font();
    const auto putBack = qScopeGuard([&] {
        delete m_dialog.data();
        QApplication::setFont(usual);
        OvTranslator::instance().setSessionLanguage(OvTranslator::English);
    });
    QFont font = usual;
    font.setPointSizeF(pointSize);
    QApplication::setFont(font);
    OvTranslator::instance().setSessionLanguage(chinese ? OvTranslator::Chinese
                                                        : OvTranslator::English);
    // Large values, many of them, and some that are remarked on.
    const SegyWriter writer = SegyWriter::of(1200, 2, [](int i, SegyTrace* trace) {
        trace->fieldRecord = 1;
        trace->channel = i;
        trace->sourceX = -1234567890 + i;
        trace->receiverX = 1234567890 + i;
    });
    QVERIFY(writer.write(path()));
    QVERIFY(m_session->openProject());
    QVERIFY(openView());
    QVERIFY(ModuleFixture::openDialog("actionHeader_Mapping", "OvHeaderMappingDlg"));
    QTRY_VERIFY(!text(Mapping::FieldRecord, Minimum).isEmpty());
    QVERIFY(!cell(Mapping::FieldRecord, Name).data(Qt::DecorationRole).isNull());
    QTRY_VERIFY(values()->rowCount() > 0);
    const auto* splitter = m_dialog->findChild<QSplitter*>();
    if (fits)
        QCOMPARE(table()->horizontalScrollBar()->maximum(), 0);
    else // then the words have all that the values can do without
        QCOMPARE(splitter->sizes().at(1), splitter->widget(1)->minimumSizeHint().width());
}

void tst_HeaderMapping::remembersItsPlace()
{
    openDialog(twoShots());
    m_dialog->resize(1000, 555);
    press(QDialogButtonBox::Cancel);
    QTRY_VERIFY(!m_dialog);
    openDialog();
    QCOMPARE(m_dialog->height(), 555);
}

void tst_HeaderMapping::opensItsPageWithF1()
{
    openDialog(twoShots());
    UrlCatcher catcher;
    QTest::keyClick(m_dialog, Qt::Key_F1);
    QVERIFY2(catcher.url.path().endsWith(QLatin1String("/mapping.html")),
             qPrintable(catcher.url.toString()));
}

void tst_HeaderMapping::speaksChinese()
{
    openDialog(twoShots());
    OvTranslator::instance().setSessionLanguage(OvTranslator::Chinese);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("道头映射"));
    QCOMPARE(text(Mapping::FieldRecord, Name), QStringLiteral("野外文件号"));
    QCOMPARE(text(Mapping::FieldRecord, Type), QStringLiteral("4 字节整数"));
    QCOMPARE(field<QComboBox>("presets")->itemText(0), QStringLiteral("SEG-Y 修订版 0 或 1"));
    OvTranslator::instance().setSessionLanguage(OvTranslator::English);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Header Mapping"));
}

QTEST_MAIN(tst_HeaderMapping)
#include "tst_HeaderMapping.moc"
