#include "OvPlugins/OvModuleFactory.h"

#include "OvPlugins/OvModulePlugin.h"
#include "PluginFolder.h"
#include "fixtures/MessageLog.h"

#include <QMenu>
#include <QtTest>

class tst_OvModuleFactory : public QObject
{
    Q_OBJECT

private slots:
    void loadsTheGoodAndSkipsTheBad();
};

void tst_OvModuleFactory::loadsTheGoodAndSkipsTheBad()
{
    const QString modules = QStringLiteral("modules");
    PluginFolder folder;
    QVERIFY(!folder.add(QStringLiteral("FixtureFirst"), modules).isEmpty());
    QVERIFY(!folder.add(QStringLiteral("FixtureSecond"), modules).isEmpty());
    const QStringList bad{folder.add(QStringLiteral("FixtureOldVersion"), modules),
                          folder.add(QStringLiteral("FixtureThrowing"), modules),
                          folder.add(QStringLiteral("FixtureTwin"), modules),
                          folder.add(QStringLiteral("FixtureNoMenu"), modules),
                          folder.write(QStringLiteral("Text.so"), "not a library", modules)};
    qputenv("TARNPICK_PLUGIN_PATH", folder.path().toLocal8Bit());
    MessageLog log;
    const QList<OvModulePlugin*> plugins = OvModuleFactory::instance().plugins();
    const QStringList warnings = log.takeAll();

    QCOMPARE(plugins.size(), 2);
    QCOMPARE(plugins.at(0)->name(), QStringLiteral("FixtureSecond"));
    QCOMPARE(plugins.at(1)->name(), QStringLiteral("FixtureFirst"));
    QVERIFY(plugins.at(0)->menu());
    QCOMPARE(warnings.size(), bad.size());
    for (const QString& file : bad)
        QCOMPARE(warnings.filter(file).size(), 1);

    // Loaded once: what comes later is not looked at.
    folder.add(QStringLiteral("FixtureAlpha"), modules);
    QCOMPARE(OvModuleFactory::instance().plugins(), plugins);
    QCOMPARE(log.takeAll(), QStringList());
}

QTEST_MAIN(tst_OvModuleFactory)
#include "tst_OvModuleFactory.moc"
