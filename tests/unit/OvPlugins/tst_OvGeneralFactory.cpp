#include "OvPlugins/OvGeneralFactory.h"

#include "OvPlugins/OvGeneralPlugin.h"
#include "PluginFolder.h"
#include "fixtures/MessageLog.h"

#include <QAction>
#include <QtTest>

class tst_OvGeneralFactory : public QObject
{
    Q_OBJECT

private slots:
    void loadsExtensionsThatLieDirectlyInAFolder();
};

void tst_OvGeneralFactory::loadsExtensionsThatLieDirectlyInAFolder()
{
    PluginFolder folder;
    QVERIFY(!folder.add(QStringLiteral("FixtureExtension"), QStringLiteral(".")).isEmpty());
    QVERIFY(!folder.add(QStringLiteral("FixtureFirst"), QStringLiteral(".")).isEmpty());
    const QString wrong = folder.add(QStringLiteral("FixtureSecond"), QStringLiteral("extensions"));
    qputenv("TARNPICK_PLUGIN_PATH", folder.path().toLocal8Bit());
    MessageLog log;
    const QList<OvGeneralPlugin*> plugins = OvGeneralFactory::instance().plugins();
    const QStringList warnings = log.takeAll();
    QCOMPARE(plugins.size(), 1);
    QCOMPARE(plugins.first()->name(), QStringLiteral("FixtureExtension"));
    QVERIFY(plugins.first()->needsProject());
    QCOMPARE(warnings.size(), 1);
    QVERIFY(warnings.first().contains(wrong));

    // The shell deletes actions before it asks for new ones.
    delete plugins.first()->action();
    QCOMPARE(plugins.first()->action()->text(), QStringLiteral("Fixture"));
}

QTEST_MAIN(tst_OvGeneralFactory)
#include "tst_OvGeneralFactory.moc"
