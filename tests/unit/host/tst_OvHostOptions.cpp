#include "host/OvHostOptions.h"

#include <QtTest>

class tst_OvHostOptions : public QObject
{
    Q_OBJECT

private slots:
    void plainStart();
    void everyOption();
    void entersByItself_data();
    void entersByItself();
    void refusals_data();
    void refusals();
    void helpNamesEveryOption();
    void versionIsOneLine();
    void textNeedsNoDisplay();
};

namespace {

OvHostOptions parsed(const QStringList& arguments)
{
    return OvHostOptions::parse(QStringList("tarnpick") + arguments);
}

} // namespace

void tst_OvHostOptions::plainStart()
{
    const OvHostOptions options = parsed({});
    QVERIFY(options.action == OvHostOptions::Action::Run);
    QVERIFY(!options.entersByItself());
    QVERIFY(options.home.isEmpty() && options.file.isEmpty() && options.screenshots.isEmpty());
}

void tst_OvHostOptions::everyOption()
{
    const OvHostOptions options =
        parsed({"--lang", "zh", "--home", "/tmp/../tmp/h", "--project", "Line 1", "--open", "a.sgy",
                "--login", "--screenshots=shots"});
    QVERIFY(options.action == OvHostOptions::Action::Run);
    QCOMPARE(options.language, QString("zh"));
    QCOMPARE(options.home, QString("/tmp/h"));
    QCOMPARE(options.project, QString("Line 1"));
    QCOMPARE(options.file, QDir::current().absoluteFilePath("a.sgy"));
    QCOMPARE(options.screenshots, QDir::current().absoluteFilePath("shots"));
    QVERIFY(options.login);
    QVERIFY(!options.demo);
}

void tst_OvHostOptions::entersByItself_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("enters");
    QTest::newRow("login") << QStringList{"--login"} << true;
    QTest::newRow("demo") << QStringList{"--demo"} << true;
    QTest::newRow("project") << QStringList{"--project", "A"} << true;
    QTest::newRow("screenshots") << QStringList{"--screenshots", "s"} << true;
    QTest::newRow("a file alone") << QStringList{"--open", "a.sgy"} << false;
    QTest::newRow("a language alone") << QStringList{"--lang", "en"} << false;
}

void tst_OvHostOptions::entersByItself()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, enters);
    QCOMPARE(parsed(arguments).entersByItself(), enters);
}

void tst_OvHostOptions::refusals_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named");
    QTest::newRow("unknown option") << QStringList{"--frobnicate"} << "frobnicate";
    QTest::newRow("stray argument") << QStringList{"line.sgy"} << "line.sgy";
    QTest::newRow("unknown language") << QStringList{"--lang", "fr"} << "fr";
    QTest::newRow("missing value") << QStringList{"--home"} << "home";
    QTest::newRow("empty value") << QStringList{"--open="} << "--open";
    QTest::newRow("two projects") << QStringList{"--demo", "--project", "A"} << "--demo";
}

void tst_OvHostOptions::refusals()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    const OvHostOptions options = parsed(arguments);
    QVERIFY(options.action == OvHostOptions::Action::Refuse);
    QVERIFY2(options.text.contains(named), qPrintable(options.text));
}

void tst_OvHostOptions::helpNamesEveryOption()
{
    const OvHostOptions options = parsed({"--help"});
    QVERIFY(options.action == OvHostOptions::Action::Print);
    for (const char* name : {"--help", "--version", "--lang", "--home", "--demo", "--project",
                             "--open", "--login", "--screenshots"})
        QVERIFY2(options.text.contains(name), name);
}

void tst_OvHostOptions::versionIsOneLine()
{
    QCoreApplication::setApplicationName("Tarnpick");
    QCoreApplication::setApplicationVersion("2.1.0");
    const OvHostOptions options = parsed({"--version"});
    QVERIFY(options.action == OvHostOptions::Action::Print);
    QCOMPARE(options.text, QString("Tarnpick 2.1.0\n"));
}

void tst_OvHostOptions::textNeedsNoDisplay()
{
    const char* const help[] = {"tarnpick", "--demo", "-h"};
    QVERIFY(OvHostOptions::asksForText(3, help));
    const char* const start[] = {"tarnpick", "--demo"};
    QVERIFY(!OvHostOptions::asksForText(2, start));
}

QTEST_GUILESS_MAIN(tst_OvHostOptions)
#include "tst_OvHostOptions.moc"
