#include "OvTarnpick/utility/OvConsole.h"

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvTranslator.h"

#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QMenu>
#include <QMetaMethod>
#include <QSet>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextTable>
#include <QTimer>
#include <QtTest>

#include <atomic>
#include <thread>
#include <vector>

namespace {

constexpr int loadThreads = 8;
#if defined(__SANITIZE_THREAD__)
constexpr int loadMessages = 1000;
#elif defined(__SANITIZE_ADDRESS__)
constexpr int loadMessages = 8000;
#else
constexpr int loadMessages = 25000;
#endif

} // namespace

class tst_OvConsole : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();
    void withoutTheFrameworkItStaysEmpty();
    void metaObjectOrder();
    void formAndTextArea();
    void prefixesEachType_data();
    void prefixesEachType();
    void messagesAreNarrowed_data();
    void messagesAreNarrowed();
    void workerMessageWaitsForTheEventLoop();
    void manyThreadsLoseNothing();
    void aLoggingThreadDoesNotWaitForever();
    void pairsBecomeATable();
    void pairsWithoutARow_data();
    void pairsWithoutARow();
    void contextMenuClears();
    void languageChangeKeepsTheTitle();
    void destructionRestoresTheDefaultHandler();

private:
    static CustomTextEdit* area() { return dynamic_cast<CustomTextEdit*>(console().widget()); }
    static OvConsole& console() { return OvConsole::instance(); }
    static QStringList lines() { return area()->toPlainText().split('\n'); }
    // Logs, and gives the one line that the console showed for it.
    static QString lineFor(QtMsgType type, const QString& text);

    QTemporaryDir m_folder;
};

// No warning trap: the console's handler is the one under test.
void tst_OvConsole::initTestCase()
{
    OvBaseUtil::setLocalPath(m_folder.path());
}

void tst_OvConsole::init()
{
    if (OvBaseUtil::isInitialized())
        area()->clear();
}

void tst_OvConsole::cleanupTestCase()
{
    OvBaseUtil::finish();
}

QString tst_OvConsole::lineFor(QtMsgType type, const QString& text)
{
    QSignalSpy spy(&console(), &OvConsole::output);
    const QByteArray bytes = text.toUtf8();
    QMessageLogger logger;
    if (type == QtDebugMsg)
        logger.debug("%s", bytes.constData());
    else if (type == QtInfoMsg)
        logger.info("%s", bytes.constData());
    else if (type == QtWarningMsg)
        logger.warning("%s", bytes.constData());
    else if (type == QtCriticalMsg)
        logger.critical("%s", bytes.constData());
    else
        // A logged fatal message would end the process, so it goes past the logger.
        console().qOutput(type, text.toLatin1().constData());
    return spy.count() == 1 ? spy.first().first().toString() : QStringLiteral("not one line");
}

void tst_OvConsole::withoutTheFrameworkItStaysEmpty()
{
    QVERIFY(!OvBaseUtil::isInitialized());
    OvConsole early;
    QVERIFY(!early.widget());
    QCOMPARE(early.windowTitle(), QStringLiteral("Form"));
    QSignalSpy spy(&early, &OvConsole::output);
    early.outputPairInfos({QStringLiteral("File"), QStringLiteral("x.sgy")});
    QTest::ignoreMessage(QtDebugMsg, "to the default output");
    qDebug("to the default output");
    QCOMPARE(spy.count(), 0);
    // A later start of the framework changes nothing for it.
    QVERIFY(OvBaseUtil::initialize().ok());
    QVERIFY(!early.widget());
    QCOMPARE(early.windowTitle(), QStringLiteral("Form"));
}

void tst_OvConsole::metaObjectOrder()
{
    const QMetaObject& meta = OvConsole::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 3);
    const auto signature = [](int i) {
        const QMetaObject& own = OvConsole::staticMetaObject;
        return own.method(own.methodOffset() + i).methodSignature();
    };
    QCOMPARE(signature(0), QByteArray("output(QString)"));
    QCOMPARE(signature(1), QByteArray("qOutput(QtMsgType,const char*)"));
    QCOMPARE(signature(2), QByteArray("outputPairInfos(QStringList)"));
    QVERIFY(QMetaType::type("QtMsgType") != QMetaType::UnknownType);
}

void tst_OvConsole::formAndTextArea()
{
    QCOMPARE(console().objectName(), QStringLiteral("OvConsole"));
    QCOMPARE(console().size(), QSize(400, 300));
    QCOMPARE(console().windowTitle(), QStringLiteral("Console"));
    QCOMPARE(&OvConsole::instance(), &console());
    QVERIFY(area());
    QVERIFY(area()->isReadOnly());
    QCOMPARE(area()->sizeHint(), QSize(100, 30));
    QCOMPARE(area()->font().family(), QStringLiteral("simsun"));
    QCOMPARE(area()->font().pointSize(), 9);
}

void tst_OvConsole::prefixesEachType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("line");
    const auto row = [](const char* name, QtMsgType type, const char* text, const char* line) {
        QTest::newRow(name) << int(type) << QString::fromLatin1(text) << QString::fromLatin1(line);
    };
    row("warning of two lines", QtWarningMsg, "a\nb", "Warning: ab");
    row("critical", QtCriticalMsg, "disk", "Critical: disk");
    row("fatal", QtFatalMsg, "end", "Fatal: end");
    row("info", QtInfoMsg, "opened", "opened");
    row("debug", QtDebugMsg, "opened", "opened");
    row("one line feed stays", QtDebugMsg, "\n", "\n");
    row("two characters stay", QtDebugMsg, "a\r", "a\r");
    row("three characters do not", QtDebugMsg, "ab\r", "ab");
    row("a prefix counts", QtWarningMsg, "\n", "Warning: ");
    row("empty", QtDebugMsg, "", "");
}

void tst_OvConsole::prefixesEachType()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    QFETCH(QString, line);
    QCOMPARE(lineFor(static_cast<QtMsgType>(type), text), line);
}

void tst_OvConsole::messagesAreNarrowed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("line");
    QTest::newRow("Latin-1 letter") << QStringLiteral("caf\u00e9") << QStringLiteral("caf\ufffd");
    QTest::newRow("beyond Latin-1") << QStringLiteral("道 12") << QStringLiteral("? 12");
}

void tst_OvConsole::messagesAreNarrowed()
{
    QFETCH(QString, text);
    QFETCH(QString, line);
    QCOMPARE(lineFor(QtInfoMsg, text), line);
    QCOMPARE(lines(), QStringList{line});
}

void tst_OvConsole::workerMessageWaitsForTheEventLoop()
{
    console();
    std::thread worker([] { qWarning("from a worker"); });
    worker.join();
    QCOMPARE(area()->toPlainText(), QString());
    QTRY_COMPARE(lines(), QStringList{QStringLiteral("Warning: from a worker")});
}

void tst_OvConsole::manyThreadsLoseNothing()
{
    console().show();
    std::atomic<int> touches{0};
    const QObject scope;
    // Heard in the thread that changes the text.
    connect(
        area()->document(), &QTextDocument::contentsChanged, &scope,
        [&touches] { touches += QThread::currentThread() == qApp->thread() ? 0 : 1; },
        Qt::DirectConnection);
    int turns = 0;
    QTimer pulse;
    connect(&pulse, &QTimer::timeout, [&turns] { ++turns; });
    pulse.start(0);
    std::vector<std::thread> workers;
    for (int t = 0; t < loadThreads; ++t)
        workers.emplace_back([t] {
            for (int i = 0; i < loadMessages; ++i)
                qInfo("thread %d message %d", t, i);
        });
    constexpr int all = loadThreads * loadMessages;
    const auto isShown = [] { return area()->document()->blockCount() >= all; };
    const bool shown = QTest::qWaitFor(isShown, 240000);
    for (std::thread& worker : workers)
        worker.join();
    QVERIFY(shown);
    QCOMPARE(touches.load(), 0);
    // The window has had a turn at least every so many lines.
    QVERIFY2(turns > all / 1000, qPrintable(QString::number(turns)));
    // Each thread's messages are all there, whole and in its own order.
    std::vector<int> next(loadThreads, 0);
    const QStringList said = lines().filter(QStringLiteral("thread "));
    QCOMPARE(said.size(), all);
    for (const QString& line : said) {
        const QStringList words = line.split(' ');
        QCOMPARE(words.size(), 4);
        QCOMPARE(words.at(3).toInt(), next[size_t(words.at(1).toInt())]++);
    }
    area()->clear();
    console().hide();
}

void tst_OvConsole::aLoggingThreadDoesNotWaitForever()
{
    console();
    QElapsedTimer clock;
    clock.start();
    std::thread worker([] {
        for (int i = 0; i < 5000; ++i)
            qInfo("message %d", i);
    });
    // Nobody reads meanwhile.
    worker.join();
    QVERIFY(clock.elapsed() < 20000);
    QCOMPARE(area()->toPlainText(), QString());
    QTRY_COMPARE_WITH_TIMEOUT(lines().size(), 5000, 60000);
}

void tst_OvConsole::pairsBecomeATable()
{
    qInfo("before");
    console().outputPairInfos({QStringLiteral("File"), QStringLiteral("x.sgy"),
                               QStringLiteral("Traces"), QStringLiteral("48"),
                               QStringLiteral("Size")});
    QTextFrame* root = area()->document()->rootFrame();
    QCOMPARE(root->childFrames().size(), 1);
    auto* table = qobject_cast<QTextTable*>(root->childFrames().first());
    QVERIFY(table);
    QCOMPARE(table->rows(), 2);
    QCOMPARE(table->columns(), 2);
    QCOMPARE(table->format().border(), 0.0);
    const auto block = [table](int row, int column) {
        return table->cellAt(row, column).firstCursorPosition().block();
    };
    QCOMPARE(block(0, 0).text(), QStringLiteral("File: "));
    QCOMPARE(block(0, 0).blockFormat().alignment(), Qt::AlignRight);
    QCOMPARE(block(0, 1).text(), QStringLiteral("x.sgy"));
    QCOMPARE(block(0, 1).blockFormat().alignment(), Qt::AlignLeft);
    QCOMPARE(block(1, 0).text(), QStringLiteral("Traces: "));
    QCOMPARE(block(1, 1).text(), QStringLiteral("48"));
    QVERIFY(!area()->toPlainText().contains(QLatin1String("Size")));
}

void tst_OvConsole::pairsWithoutARow_data()
{
    QTest::addColumn<QStringList>("infos");
    QTest::newRow("none") << QStringList();
    QTest::newRow("a key alone") << QStringList{QStringLiteral("File")};
}

void tst_OvConsole::pairsWithoutARow()
{
    QFETCH(QStringList, infos);
    qInfo("before");
    console().outputPairInfos(infos);
    QVERIFY(area()->document()->rootFrame()->childFrames().isEmpty());
    QCOMPARE(area()->toPlainText(), QStringLiteral("before"));
}

void tst_OvConsole::contextMenuClears()
{
    qInfo("one");
    console().show();
    QStringList texts;
    bool edits = false;
    QTimer::singleShot(0, this, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        for (QAction* action : menu->actions()) {
            texts.append(action->isSeparator() ? QStringLiteral("-") : action->text());
            const bool changes = action->objectName() == QLatin1String("edit-cut") ||
                                 action->objectName() == QLatin1String("edit-paste");
            edits = edits || (changes && action->isEnabled());
        }
        menu->actions().last()->trigger();
        menu->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                            area()->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(area()->viewport(), &event);
    QVERIFY2(texts.size() >= 4, qPrintable(texts.join(',')));
    QCOMPARE(texts.mid(texts.size() - 2),
             QStringList({QStringLiteral("-"), QStringLiteral("Clear")}));
    QVERIFY(texts.first().startsWith(QLatin1String("&Copy")));
    QVERIFY(!edits);
    QCOMPARE(area()->toPlainText(), QString());
    QVERIFY(area()->findChildren<QMenu*>().isEmpty());
}

void tst_OvConsole::languageChangeKeepsTheTitle()
{
    console();
    OvTranslator::instance().setSessionLanguage(OvTranslator::Chinese);
    QTRY_COMPARE(console().windowTitle(), QStringLiteral("控制台"));
    QCOMPARE(lineFor(QtWarningMsg, QStringLiteral("x")), QStringLiteral("警告：x"));
    OvTranslator::instance().setSessionLanguage(OvTranslator::English);
    QTRY_COMPARE(console().windowTitle(), QStringLiteral("Console"));
}

void tst_OvConsole::destructionRestoresTheDefaultHandler()
{
    delete &console();
    // Installing hands back the handler that was in force.
    const QtMessageHandler current = qInstallMessageHandler(nullptr);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    qInstallMessageHandler(nullptr);
    const QtMessageHandler fallback = qInstallMessageHandler(nullptr);
    QVERIFY(current == fallback);
}

QTEST_MAIN(tst_OvConsole)
#include "tst_OvConsole.moc"
