#include "ModuleFixture.h"
#include "fixtures/ModalProbe.h"

#include "OvBase/OvDisplayDefineNode.h"
#include "OvBase/OvTranslator.h"

#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QtTest>

class tst_SegyData : public QObject, private ModuleFixture
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(startModule("SegyData")); }
    void init() { begin(); }
    void cleanup() { QCOMPARE(end(), QStringList()); }

    void standsBeforeTheFirstBreakModule();
    void listsTheFilesOfTheProject();
    void givesFilesNoPlaceOnTheMainGadget();
    void saysThatAFolderIsEmpty();
    void noticesANewFile();
    void listsThirtyFilesAndLeavesTheRestToTheDialog();
    void opensAFileInAView();
    void opensAFileTwiceOnOneDocument();
    void namesAFileThatCannotBeOpened();
    void startsTheFileDialogInTheProjectFolder();
    void isOfNoUseWithoutAProject();
    void describesTheActiveFile();
    void asksForAFileToDescribe();
    void showsHeaderTextWithoutMarkup();
    void barShowsAndSetsTheDisplaySettings();
    void barFollowsTheProject();
    void everyFieldOfTheBarSaysWhatItDoes();
    void barFitsTheToolBar();
    void speaksChinese();

private:
    QStringList listed() const;
    QMenu* files() const { return m_menu->findChild<QMenu*>(QStringLiteral("menuSegy_Files")); }
    template <typename Field>
    Field* field(const char* name) const
    {
        return m_module->toolBarWidget()->findChild<Field*>(QLatin1String(name));
    }
    QDialog* information() const
    {
        return m_session->window()->findChild<QDialog*>(QStringLiteral("OvSegyInfoDlg"));
    }
    QString factsOf(const QDialog* dialog) const;
};

QStringList tst_SegyData::listed() const
{
    QStringList texts;
    for (const QAction* action : files()->actions()) {
        if (!action->isSeparator())
            texts.append(action->text());
    }
    return texts;
}

void tst_SegyData::standsBeforeTheFirstBreakModule()
{
    const QList<OvModulePlugin*> plugins = OvModuleFactory::instance().plugins();
    const int place = plugins.indexOf(PluginSession::module(QStringLiteral("FirstBreak")));
    QVERIFY(place > plugins.indexOf(m_module));
    QCOMPARE(m_menu->objectName(), QStringLiteral("menu_Data"));
    QCOMPARE(m_menu->title(), QStringLiteral("&Data"));
}

void tst_SegyData::listsTheFilesOfTheProject()
{
    for (const char* name :
         {"line10.sgy", "line9.SGY", "a&b.segy", "c.SEGY", "notes.txt", "line.fb"})
        QVERIFY(m_session->writeLine(QLatin1String(name), 1, 2, 10));
    QVERIFY(m_session->openProject());
    QTRY_COMPARE(listed(), QStringList({"a&&b.segy", "c.SEGY", "line9.SGY", "line10.sgy"}));
}

void tst_SegyData::givesFilesNoPlaceOnTheMainGadget()
{
    QVERIFY(m_session->writeLine(QStringLiteral("line.sgy"), 1, 2, 10));
    QVERIFY(m_session->openProject());
    QTRY_COMPARE(listed(), QStringList("line.sgy"));
    for (const QAction* action : files()->actions() + m_menu->actions())
        QVERIFY2(!action->data().isValid(), qPrintable(action->text()));
}

void tst_SegyData::saysThatAFolderIsEmpty()
{
    QVERIFY(m_session->openProject());
    QTRY_COMPARE(listed(), QStringList("No SEG-Y files in this folder"));
    QVERIFY(!files()->actions().first()->isEnabled());
}

void tst_SegyData::noticesANewFile()
{
    QVERIFY(m_session->openProject());
    QTRY_COMPARE(listed(), QStringList("No SEG-Y files in this folder"));
    QVERIFY(m_session->writeLine(QStringLiteral("new.sgy"), 1, 2, 10));
    QTRY_COMPARE(listed(), QStringList("new.sgy"));
    QVERIFY(QFile::remove(path(QStringLiteral("new.sgy"))));
    QTRY_COMPARE(listed(), QStringList("No SEG-Y files in this folder"));
}

void tst_SegyData::listsThirtyFilesAndLeavesTheRestToTheDialog()
{
    for (int i = 1; i <= 31; ++i)
        QVERIFY(m_session->writeLine(QStringLiteral("line%1.sgy").arg(i), 1, 1, 10));
    QVERIFY(m_session->openProject());
    QTRY_COMPARE(listed().size(), 31);
    QCOMPARE(listed().at(29), QStringLiteral("line30.sgy"));
    QCOMPARE(listed().last(), QStringLiteral("More..."));
    ModalProbe probe;
    QString folder;
    probe.next([&folder](QWidget* dialog) {
        folder = qobject_cast<QFileDialog*>(dialog)->directory().canonicalPath();
        qobject_cast<QDialog*>(dialog)->reject();
    });
    files()->actions().last()->trigger();
    QVERIFY(probe.isDone());
    QCOMPARE(folder, m_session->folder());
}

void tst_SegyData::opensAFileInAView()
{
    QVERIFY(m_session->writeLine(QStringLiteral("line.sgy"), 3));
    QVERIFY(m_session->openProject());
    QTRY_COMPARE(listed(), QStringList("line.sgy"));
    files()->actions().first()->trigger();
    QCOMPARE(m_session->views().size(), 1);
    QCOMPARE(m_session->lastView()->document()->segyPath(), path());
    QTRY_COMPARE(m_session->lastView()->gatherCount(), 3);
}

void tst_SegyData::opensAFileTwiceOnOneDocument()
{
    QVERIFY(m_session->writeLine(QStringLiteral("line.sgy"), 1));
    QVERIFY(m_session->openProject());
    QTRY_COMPARE(listed(), QStringList("line.sgy"));
    files()->actions().first()->trigger();
    files()->actions().first()->trigger();
    QCOMPARE(m_session->views().size(), 2);
    QCOMPARE(m_session->views().first()->document(), m_session->views().last()->document());
}

void tst_SegyData::namesAFileThatCannotBeOpened()
{
    QFile bad(path(QStringLiteral("bad.sgy")));
    QVERIFY(bad.open(QIODevice::WriteOnly));
    bad.write("much too short");
    bad.close();
    QVERIFY(m_session->writeLine(QStringLiteral("good.sgy"), 1));
    QVERIFY(m_session->openProject());
    QTRY_COMPARE(listed(), QStringList({"bad.sgy", "good.sgy"}));
    files()->actions().last()->trigger();
    ModalProbe probe;
    probe.nextBox(QMessageBox::Ok);
    files()->actions().first()->trigger();
    QTRY_VERIFY(probe.isDone());
    QCOMPARE(probe.boxes().size(), std::size_t(1));
    QVERIFY2(probe.boxes().front().text.contains(QLatin1String("bad.sgy")),
             qPrintable(probe.boxes().front().text));
    QCOMPARE(m_session->views().size(), 1);
    QVERIFY(m_session->lastView());
}

void tst_SegyData::startsTheFileDialogInTheProjectFolder()
{
    QVERIFY(m_session->writeLine(QStringLiteral("line.sgy"), 1));
    QVERIFY(m_session->openProject());
    ModalProbe probe;
    probe.next([this](QWidget* window) {
        auto* dialog = qobject_cast<QFileDialog*>(window);
        QCOMPARE(dialog->directory().canonicalPath(), m_session->folder());
        dialog->selectFile(path());
        QMetaObject::invokeMethod(dialog, "accept");
    });
    action("actionOpen_Segy")->trigger();
    QVERIFY(probe.isDone());
    QCOMPARE(m_session->views().size(), 1);
}

void tst_SegyData::isOfNoUseWithoutAProject()
{
    QAction* open = action("actionOpen_Segy");
    QVERIFY(!open->isEnabled());
    QVERIFY(!files()->isEnabled());
    QVERIFY(!m_module->toolBarWidget()->isEnabled());
    QVERIFY(action("actionSegy_Information")->isEnabled());
    QVERIFY(m_session->openProject());
    QVERIFY(open->isEnabled());
    QVERIFY(files()->isEnabled());
    QVERIFY(m_module->toolBarWidget()->isEnabled());
    QCOMPARE(open->shortcut(), QKeySequence(QStringLiteral("Ctrl+O")));
}

QString tst_SegyData::factsOf(const QDialog* dialog) const
{
    QStringList texts;
    for (const QLabel* label : dialog->findChildren<QLabel*>())
        texts.append(label->text());
    return texts.join(QLatin1Char('\n'));
}

void tst_SegyData::describesTheActiveFile()
{
    QVERIFY(m_session->writeLine(QStringLiteral("line.sgy"), 3, 24, 500));
    QVERIFY(m_session->openProject());
    QTRY_COMPARE(listed(), QStringList("line.sgy"));
    files()->actions().first()->trigger();
    action("actionSegy_Information")->trigger();
    QPointer<QDialog> dialog = information();
    QVERIFY(dialog);
    QTRY_VERIFY2(factsOf(dialog).contains(QLatin1String("Gathers:\n3")),
                 qPrintable(factsOf(dialog)));
    const QString facts = factsOf(dialog);
    QVERIFY2(facts.contains(path()), qPrintable(facts));
    for (const char* fact : {"Traces:\n72", "Samples per trace:\n500", "Revision:\n1.0", "1,000 µs",
                             "499 ms", "(code 5)", "big-endian", "EBCDIC"})
        QVERIFY2(facts.contains(QString::fromUtf8(fact)), fact);
    QTRY_VERIFY2(factsOf(dialog).contains(QLatin1String(" m to ")), qPrintable(facts));
    QTest::keyClick(dialog, Qt::Key_Escape);
    QTRY_VERIFY(!dialog);
}

void tst_SegyData::asksForAFileToDescribe()
{
    QVERIFY(m_session->writeLine(QStringLiteral("line.sgy"), 1));
    ModalProbe probe;
    probe.next([this](QWidget* window) {
        auto* dialog = qobject_cast<QFileDialog*>(window);
        dialog->selectFile(path());
        QMetaObject::invokeMethod(dialog, "accept");
    });
    action("actionSegy_Information")->trigger();
    QVERIFY(probe.isDone());
    QVERIFY(information());
    QVERIFY(factsOf(information()).contains(QLatin1String("line.sgy")));
}

void tst_SegyData::showsHeaderTextWithoutMarkup()
{
    const QString name = QStringLiteral("<b>bold<b>.sgy");
    QVERIFY(m_session->writeLine(name, 1));
    QVERIFY(m_session->openProject());
    QTRY_COMPARE(listed(), QStringList(name));
    files()->actions().first()->trigger();
    action("actionSegy_Information")->trigger();
    QVERIFY(information());
    for (const QLabel* label : information()->findChildren<QLabel*>())
        QCOMPARE(label->textFormat(), Qt::PlainText);
    const auto* header = information()->findChild<QPlainTextEdit*>(QStringLiteral("textHeader"));
    QVERIFY(header->isReadOnly());
    QCOMPARE(header->toPlainText().split(QLatin1Char('\n')),
             m_session->lastView()->document()->file().textHeader());
}

void tst_SegyData::barShowsAndSetsTheDisplaySettings()
{
    QVERIFY(m_session->openProject());
    auto* mode = field<QComboBox>("displayMode");
    auto* gain = field<QDoubleSpinBox>("displayGain");
    auto* agc = field<QSpinBox>("displayAgc");
    QCOMPARE(mode->currentIndex(), int(OvDisplayDefine::WiggleVariableArea));
    QCOMPARE(gain->text(), QStringLiteral("0.0 dB"));
    QCOMPARE(agc->text(), QStringLiteral("off"));

    QSignalSpy changed(&OvProjectManager::instance(), &OvProjectManager::displayDefineChanged);
    mode->setCurrentIndex(OvDisplayDefine::VariableDensity);
    gain->setValue(6.0);
    agc->setValue(250);
    field<QComboBox>("displayScaling")->setCurrentIndex(OvDisplayDefine::PerGather);
    QCOMPARE(changed.count(), 4);
    const OvDisplayDefine stored = OvDisplayDefineNode().define();
    QCOMPARE(stored.mode, int(OvDisplayDefine::VariableDensity));
    QCOMPARE(stored.gainDb, 6.0);
    QCOMPARE(stored.agcWindowMs, 250);
    QCOMPARE(stored.scaling, int(OvDisplayDefine::PerGather));
    QVERIFY(field<QComboBox>("displayColors")->isEnabled());
}

void tst_SegyData::barFollowsTheProject()
{
    QVERIFY(m_session->openProject());
    OvDisplayDefine define;
    define.gainDb = 12.0;
    define.mode = OvDisplayDefine::Wiggle;
    QVERIFY(OvDisplayDefineNode().setDefine(define));
    QCOMPARE(field<QDoubleSpinBox>("displayGain")->value(), 12.0);
    QCOMPARE(field<QComboBox>("displayMode")->currentIndex(), int(OvDisplayDefine::Wiggle));
    QVERIFY(!field<QComboBox>("displayColors")->isEnabled());

    QSignalSpy changed(&OvProjectManager::instance(), &OvProjectManager::displayDefineChanged);
    QVERIFY(QMetaObject::invokeMethod(m_module->toolBarWidget(), "reset"));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(field<QDoubleSpinBox>("displayGain")->value(), 12.0);

    PluginSession other;
    QVERIFY(other.openProject());
    QCOMPARE(field<QDoubleSpinBox>("displayGain")->value(), 0.0);
}

void tst_SegyData::everyFieldOfTheBarSaysWhatItDoes()
{
    const auto fields =
        m_module->toolBarWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(fields.size() > 6);
    for (const QWidget* field : fields)
        QVERIFY2(!field->toolTip().isEmpty(), qPrintable(field->objectName()));
}

void tst_SegyData::barFitsTheToolBar()
{
    QWidget* bar = m_module->toolBarWidget();
    QCOMPARE(bar->objectName(), QStringLiteral("segyDisplayBar"));
    QVERIFY2(bar->sizeHint().height() <= 64, qPrintable(QString::number(bar->sizeHint().height())));
    QCOMPARE(m_module->toolBarWidget(), bar);
}

void tst_SegyData::speaksChinese()
{
    OvTranslator::instance().setSessionLanguage(OvTranslator::Chinese);
    m_module->changeLanguage();
    QCOMPARE(m_menu->title(), QStringLiteral("数据(&D)"));
    QCOMPARE(field<QComboBox>("displayMode")->itemText(0), QStringLiteral("波形"));
    QCOMPARE(listed().size(), 1);
    QCOMPARE(listed().first(), QStringLiteral("此文件夹中没有 SEG-Y 文件"));
    OvTranslator::instance().setSessionLanguage(OvTranslator::English);
    m_module->changeLanguage();
    QCOMPARE(m_menu->title(), QStringLiteral("&Data"));
}

QTEST_MAIN(tst_SegyData)
#include "tst_SegyData.moc"
