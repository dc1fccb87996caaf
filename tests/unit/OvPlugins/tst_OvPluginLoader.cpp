#include "OvPlugins/OvPluginLoader_p.h"

#include "OvPlugins/OvModulePlugin.h"
#include "PluginFolder.h"
#include "fixtures/MessageLog.h"

#include <QtTest>

namespace {

OvPluginLoader::Kind modules()
{
    return {QStringLiteral("module"), QStringLiteral("modules"),
            QStringLiteral(OvModulePlugin_iid)};
}

QStringList namesOf(const QList<OvPluginLoader::Plugin>& plugins)
{
    QStringList names;
    for (const OvPluginLoader::Plugin& plugin : plugins)
        names.append(plugin.name);
    return names;
}

void release(const QList<OvPluginLoader::Plugin>& plugins)
{
    for (const OvPluginLoader::Plugin& plugin : plugins)
        delete plugin.instance.data();
}

} // namespace

class tst_OvPluginLoader : public QObject
{
    Q_OBJECT

private slots:
    void ordersByNumberThenName();
    void skipsBadFiles_data();
    void skipsBadFiles();
    void keepsTheFirstOfTwoWithOneName();
    void takesTheOtherKindForGrantedInASharedFolder();
    void ignoresWhatIsNoLibrary();
    void refusesAPluginThatIsCutOff();
    void survivesMissingFolders();
    void warnsOnceAboutAFile();
    void searchesBesideTheExecutableTheInstallFolderAndTheEnvironment();
};

void tst_OvPluginLoader::ordersByNumberThenName()
{
    PluginFolder folder;
    for (const char* fixture : {"FixtureFirst", "FixtureSecond", "FixtureAlpha"})
        QVERIFY(!folder.add(QLatin1String(fixture), QStringLiteral("modules")).isEmpty());
    MessageLog log;
    const auto plugins = OvPluginLoader(modules()).load({folder.path() + "/modules"});
    QCOMPARE(namesOf(plugins), QStringList({"FixtureSecond", "FixtureAlpha", "FixtureFirst"}));
    QCOMPARE(log.takeAll(), QStringList());
    for (const auto& plugin : plugins)
        QCOMPARE(qobject_cast<OvModulePlugin*>(plugin.instance.data())->name(), plugin.name);
    release(plugins);
}

void tst_OvPluginLoader::skipsBadFiles_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QString>("reason");
    QTest::newRow("earlier version")
        << "FixtureOldVersion"
        << "version 0.9 of the interface, this program has version 1.0";
    QTest::newRow("throws") << "FixtureThrowing"
                            << "the table of stations is missing";
    QTest::newRow("throws a number") << "FixtureThrowingOddly"
                                     << "it failed to start";
    QTest::newRow("wrong kind") << "FixtureExtension"
                                << "it is no module but of the interface "
                                   "\"org.tarnpick.OvGeneralPlugin/1.0\"";
    QTest::newRow("wrong label") << "FixtureMislabelled"
                                 << "calls it \"extension\", not \"module\"";
    QTest::newRow("no description") << "FixtureNoDescription"
                                    << "lacks the name or the kind";
}

void tst_OvPluginLoader::skipsBadFiles()
{
    QFETCH(QString, fixture);
    QFETCH(QString, reason);
    PluginFolder folder;
    const QString file = folder.add(fixture, QStringLiteral("modules"));
    QVERIFY(!file.isEmpty());
    QVERIFY(!folder.add(QStringLiteral("FixtureFirst"), QStringLiteral("modules")).isEmpty());
    MessageLog log;
    const auto plugins = OvPluginLoader(modules()).load({folder.path() + "/modules"});
    const QStringList warnings = log.takeAll();
    QCOMPARE(namesOf(plugins), QStringList("FixtureFirst"));
    QCOMPARE(warnings.size(), 1);
    QVERIFY2(warnings.first().contains(file), qPrintable(warnings.first()));
    QVERIFY2(warnings.first().contains(reason), qPrintable(warnings.first()));
    release(plugins);
}

void tst_OvPluginLoader::keepsTheFirstOfTwoWithOneName()
{
    PluginFolder folder;
    const QString first = folder.add(QStringLiteral("FixtureFirst"), QStringLiteral("a/modules"));
    const QString twin = folder.add(QStringLiteral("FixtureTwin"), QStringLiteral("b/modules"));
    MessageLog log;
    const auto plugins = OvPluginLoader(modules()).load(
        {folder.path() + "/a/modules", folder.path() + "/b/modules"});
    QCOMPARE(plugins.size(), 1);
    QCOMPARE(plugins.first().file, first);
    const QStringList warnings = log.takeAll();
    QCOMPARE(warnings.size(), 1);
    QVERIFY(warnings.first().contains(twin));
    QVERIFY(warnings.first().contains(QLatin1String("another module is called \"FixtureFirst\"")));
    release(plugins);
}

void tst_OvPluginLoader::takesTheOtherKindForGrantedInASharedFolder()
{
    PluginFolder folder;
    QVERIFY(!folder.add(QStringLiteral("FixtureExtension"), QStringLiteral("both")).isEmpty());
    QVERIFY(!folder.add(QStringLiteral("FixtureFirst"), QStringLiteral("both")).isEmpty());
    MessageLog log;
    const auto plugins = OvPluginLoader(modules()).load({folder.path() + "/both"});
    QCOMPARE(namesOf(plugins), QStringList("FixtureFirst"));
    QCOMPARE(log.takeAll(), QStringList());
    release(plugins);
}

void tst_OvPluginLoader::ignoresWhatIsNoLibrary()
{
    PluginFolder folder;
    folder.write(QStringLiteral("README.txt"), "notes", QStringLiteral("modules"));
    const QString empty = folder.write(QStringLiteral("Empty.so"), "", QStringLiteral("modules"));
    const QString text =
        folder.write(QStringLiteral("Text.so"), "not a library", QStringLiteral("modules"));
    MessageLog log;
    QVERIFY(OvPluginLoader(modules()).load({folder.path() + "/modules"}).isEmpty());
    const QStringList warnings = log.takeAll();
    QCOMPARE(warnings.size(), 2);
    QVERIFY(warnings.at(0).contains(empty));
    QVERIFY(warnings.at(1).contains(text));
    for (const QString& warning : warnings)
        QVERIFY2(warning.contains(QLatin1String("it is no plug-in")), qPrintable(warning));
}

void tst_OvPluginLoader::refusesAPluginThatIsCutOff()
{
    PluginFolder folder;
    QFile whole(folder.add(QStringLiteral("FixtureFirst"), QStringLiteral("whole")));
    QVERIFY(whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = whole.readAll();
    QVERIFY(bytes.size() > 1000);
    for (const int length : {64, 1000, bytes.size() / 2, bytes.size() - 100}) {
        folder.write(QStringLiteral("Cut%1.so").arg(length), bytes.left(length),
                     QStringLiteral("modules"));
    }
    MessageLog log;
    QVERIFY(OvPluginLoader(modules()).load({folder.path() + "/modules"}).isEmpty());
    QCOMPARE(log.takeAll().size(), 4);
}

void tst_OvPluginLoader::survivesMissingFolders()
{
    MessageLog log;
    QVERIFY(
        OvPluginLoader(modules()).load({QStringLiteral("/nowhere/at/all"), QString()}).isEmpty());
    QCOMPARE(log.takeAll(), QStringList());
}

void tst_OvPluginLoader::warnsOnceAboutAFile()
{
    PluginFolder folder;
    const QString text =
        folder.write(QStringLiteral("Text.so"), "not a library", QStringLiteral("x"));
    MessageLog log;
    const QStringList twice{folder.path() + "/x", folder.path() + "/x/../x"};
    QVERIFY(OvPluginLoader(modules()).load(twice).isEmpty());
    QVERIFY(OvPluginLoader(modules()).load(twice).isEmpty());
    QCOMPARE(log.takeAll().filter(text).size(), 1);
}

void tst_OvPluginLoader::searchesBesideTheExecutableTheInstallFolderAndTheEnvironment()
{
    qputenv("TARNPICK_PLUGIN_PATH", "/one::/two");
    const QStringList folders = OvPluginLoader(modules()).searchFolders();
    qunsetenv("TARNPICK_PLUGIN_PATH");
    QCOMPARE(folders.size(), 6);
    QCOMPARE(folders.at(0), QCoreApplication::applicationDirPath() + "/plugins/modules");
    QVERIFY(folders.at(1).endsWith(QLatin1String("/tarnpick/plugins/modules")));
    QCOMPARE(folders.mid(2), QStringList({"/one/modules", "/one", "/two/modules", "/two"}));
}

QTEST_MAIN(tst_OvPluginLoader)
#include "tst_OvPluginLoader.moc"
