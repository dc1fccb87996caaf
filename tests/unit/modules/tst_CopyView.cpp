#include "PluginSession.h"
#include "fixtures/MessageLog.h"

#include "OvBase/OvTranslator.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QStatusBar>
#include <QtTest>

class tst_CopyView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { m_session.reset(new PluginSession); }
    void cleanup() { m_session.reset(); }

    void copiesTheActiveView();
    void saysThatThereIsNoView();
    void makesANewActionForADeletedOne();

private:
    QScopedPointer<PluginSession> m_session;
    OvGeneralPlugin* m_extension = nullptr;
};

void tst_CopyView::initTestCase()
{
    QVERIFY(PluginSession::start());
    const QList<OvGeneralPlugin*> plugins = OvGeneralFactory::instance().plugins();
    for (OvGeneralPlugin* plugin : plugins) {
        if (plugin->name() == QLatin1String("CopyView"))
            m_extension = plugin;
    }
    QVERIFY(m_extension);
    QVERIFY(!m_extension->needsProject());
}

void tst_CopyView::copiesTheActiveView()
{
    QVERIFY(m_session->writeLine(QStringLiteral("line.sgy"), 2));
    QVERIFY(m_session->openProject());
    OvStatus status;
    const auto document =
        OvSegyDocument::open(m_session->path(QStringLiteral("line.sgy")), &status);
    QVERIFY2(document, qPrintable(status.message()));
    auto* view = new OvGatherViewController(document);
    OvProjectManager::instance().addWorkspace(view);
    view->resize(640, 480);
    view->show();
    QTRY_VERIFY(view->isShowingData());
    QGuiApplication::clipboard()->clear();
    m_extension->action()->trigger();
    const QImage copied = QGuiApplication::clipboard()->image();
    QVERIFY(!copied.isNull());
    QCOMPARE(copied.size(), view->picture().size());
    QCOMPARE(copied.convertToFormat(QImage::Format_RGB32),
             view->picture().convertToFormat(QImage::Format_RGB32));
    QCOMPARE(m_session->window()->statusBar()->currentMessage(),
             QStringLiteral("The picture of the view is on the clipboard."));
}

void tst_CopyView::saysThatThereIsNoView()
{
    QGuiApplication::clipboard()->setText(QStringLiteral("mine"));
    m_extension->action()->trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("mine"));
    QCOMPARE(m_session->window()->statusBar()->currentMessage(),
             QStringLiteral("There is no view to copy."));
}

void tst_CopyView::makesANewActionForADeletedOne()
{
    QCOMPARE(m_extension->action()->text(), QStringLiteral("Copy View to Clipboard"));
    QCOMPARE(m_extension->action(), m_extension->action());
    delete m_extension->action();
    OvTranslator::instance().setSessionLanguage(OvTranslator::Chinese);
    QCOMPARE(m_extension->action()->text(), QStringLiteral("复制视图到剪贴板"));
    OvTranslator::instance().setSessionLanguage(OvTranslator::English);
    m_extension->action()->trigger();
    QCOMPARE(m_session->window()->statusBar()->currentMessage(),
             QStringLiteral("There is no view to copy."));
}

QTEST_MAIN(tst_CopyView)
#include "tst_CopyView.moc"
