#include "OvBase/OvTranslator.h"

#include "unit/OvBase/LoginFixture.h"

#include <QResource>
#include <QSignalSpy>
#include <QWidget>

namespace {

QString gather()
{
    return QCoreApplication::translate("Fixture", "gather");
}

QString offset()
{
    return QCoreApplication::translate("Fixture", "offset");
}

QString resourceFile(const char* name)
{
    return QFile::decodeName(qgetenv("TARNPICK_BUILD_DIR")) +
           QStringLiteral("/tests/unit/OvBase/") + QLatin1String(name);
}

/// Resource files that lend their catalogues while it lives.
class Catalogues
{
public:
    explicit Catalogues(const QStringList& names)
    {
        for (const QString& name : names) {
            const QString file = resourceFile(qPrintable(name + ".rcc"));
            if (QResource::registerResource(file))
                m_files.append(file);
            else
                QTest::qFail(qPrintable("cannot load " + file), __FILE__, __LINE__);
        }
    }
    ~Catalogues()
    {
        for (const QString& file : m_files)
            QResource::unregisterResource(file);
    }
    Q_DISABLE_COPY(Catalogues)

private:
    QStringList m_files;
};

/// Counts the language changes that reach a window.
class Window : public QWidget
{
public:
    int changes = 0;
    QString text;

protected:
    void changeEvent(QEvent* event) override
    {
        if (event->type() == QEvent::LanguageChange) {
            ++changes;
            text = gather();
        }
        QWidget::changeEvent(event);
    }
};

} // namespace

class tst_OvTranslator : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture = std::make_unique<LoginFixture>(); }
    void cleanup();

    void startsInEnglish();
    void switchesBothWays();
    void everyWindowHearsOfAChangeOnce();
    void theActiveLanguageIsHarmless();
    void theLocaleFollows();
    void theChoiceIsRemembered();
    void withoutAChoiceTheLanguageStays();
    void aStrangeChoiceIsChinese();
    void theSessionLanguageIsNotRemembered();
    void aPlugInsCatalogueIsTakenIn();
    void eachSwitchReportsADamagedCatalogueOnce();
    void theShellsCataloguesAreAllNeeded_data();
    void theShellsCataloguesAreAllNeeded();

private:
    OvTranslator& m_translator = OvTranslator::instance();
    std::unique_ptr<LoginFixture> m_fixture;
};

void tst_OvTranslator::cleanup()
{
    m_translator.setLanguageType(OvTranslator::English);
    const QString problems = m_fixture->warnings.problems();
    m_fixture.reset();
    QCOMPARE(problems, QString());
}

void tst_OvTranslator::startsInEnglish()
{
    QCOMPARE(m_translator.languageType(), OvTranslator::English);
    QCOMPARE(static_cast<int>(OvTranslator::English), 0);
    QCOMPARE(static_cast<int>(OvTranslator::Chinese), 1);
    QCOMPARE(gather(), QStringLiteral("gather"));
}

void tst_OvTranslator::switchesBothWays()
{
    for (int round = 0; round < 3; ++round) {
        m_translator.setLanguageType(OvTranslator::Chinese);
        QCOMPARE(m_translator.languageType(), OvTranslator::Chinese);
        QCOMPARE(gather(), QStringLiteral("道集"));
        m_translator.setLanguageType(OvTranslator::English);
        QCOMPARE(m_translator.languageType(), OvTranslator::English);
        QCOMPARE(gather(), QStringLiteral("gather"));
    }
}

void tst_OvTranslator::everyWindowHearsOfAChangeOnce()
{
    Window first;
    Window second;
    m_translator.setLanguageType(OvTranslator::Chinese);
    QCoreApplication::processEvents();
    for (const Window* window : {&first, &second}) {
        QCOMPARE(window->changes, 1);
        QCOMPARE(window->text, QStringLiteral("道集"));
    }
    m_translator.setLanguageType(OvTranslator::English);
    QCoreApplication::processEvents();
    QCOMPARE(first.changes, 2);
    QCOMPARE(first.text, QStringLiteral("gather"));
}

void tst_OvTranslator::theActiveLanguageIsHarmless()
{
    m_translator.setLanguageType(OvTranslator::Chinese);
    Window window;
    QCoreApplication::processEvents();
    window.changes = 0;
    m_translator.setLanguageType(OvTranslator::Chinese);
    m_translator.restore();
    m_translator.refreshCatalogues();
    QCoreApplication::processEvents();
    QCOMPARE(window.changes, 0);
    QCOMPARE(gather(), QStringLiteral("道集"));
}

void tst_OvTranslator::theLocaleFollows()
{
    m_translator.setLanguageType(OvTranslator::Chinese);
    QCOMPARE(QLocale().language(), QLocale::Chinese);
    QCOMPARE(QLocale().country(), QLocale::China);
    m_translator.setLanguageType(OvTranslator::English);
    QCOMPARE(QLocale().language(), QLocale::English);
}

void tst_OvTranslator::theChoiceIsRemembered()
{
    QVERIFY(m_fixture->login());
    m_translator.setLanguageType(OvTranslator::Chinese);
    QCOMPARE(OvBaseUtil::globalValue(QStringLiteral("language")), QVariant(1));
    OvBaseUtil::finish();
    m_translator.setLanguageType(OvTranslator::English);
    QVERIFY(m_fixture->login());
    QCOMPARE(m_translator.languageType(), OvTranslator::Chinese);
}

void tst_OvTranslator::withoutAChoiceTheLanguageStays()
{
    m_translator.setLanguageType(OvTranslator::Chinese);
    QVERIFY(m_fixture->login());
    QCOMPARE(m_translator.languageType(), OvTranslator::Chinese);
}

void tst_OvTranslator::aStrangeChoiceIsChinese()
{
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("language"), 7));
    m_translator.restore();
    QCOMPARE(m_translator.languageType(), OvTranslator::Chinese);
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("language"), 0));
    m_translator.restore();
    QCOMPARE(m_translator.languageType(), OvTranslator::English);
}

void tst_OvTranslator::theSessionLanguageIsNotRemembered()
{
    m_translator.setSessionLanguage(OvTranslator::Chinese);
    QVERIFY(!OvBaseUtil::globalValue(QStringLiteral("language")).isValid());
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("language"), 0));
    m_translator.restore();
    QCOMPARE(m_translator.languageType(), OvTranslator::Chinese);
    m_translator.setLanguageType(OvTranslator::English);
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("language"), 1));
    m_translator.restore();
    QCOMPARE(m_translator.languageType(), OvTranslator::Chinese);
}

void tst_OvTranslator::aPlugInsCatalogueIsTakenIn()
{
    m_translator.setLanguageType(OvTranslator::Chinese);
    QCOMPARE(offset(), QStringLiteral("offset"));
    QVERIFY(QResource::registerResource(resourceFile("late_cn.rcc")));
    m_translator.refreshCatalogues();
    QCOMPARE(offset(), QStringLiteral("炮检距"));
    m_translator.setLanguageType(OvTranslator::English);
    QCOMPARE(offset(), QStringLiteral("offset"));
    m_translator.setLanguageType(OvTranslator::Chinese);
    QCOMPARE(offset(), QStringLiteral("炮检距"));
}

void tst_OvTranslator::eachSwitchReportsADamagedCatalogueOnce()
{
    const Catalogues resources({QStringLiteral("damaged_cn")});
    for (int round = 0; round < 2; ++round) {
        m_fixture->warnings.expect(QStringLiteral("damaged_cn.qm"));
        m_translator.setLanguageType(OvTranslator::Chinese);
        m_translator.refreshCatalogues();
        QCOMPARE(gather(), QStringLiteral("道集"));
        m_translator.setLanguageType(OvTranslator::English);
    }
}

void tst_OvTranslator::theShellsCataloguesAreAllNeeded_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QString>("inChinese"); // what the warning names; empty for no warning
    QTest::addColumn<QString>("inEnglish");
    const QString none;
    const QString en("Tarnpick_en.qm"), cn("Tarnpick_cn.qm"), toolkit("qt_zh_CN.qm");
    const QString wholeEn("whole_Tarnpick_en"), wholeCn("whole_Tarnpick_cn"),
        wholeToolkit("whole_qt_zh_CN");
    QTest::newRow("all") << QStringList{wholeEn, wholeCn, wholeToolkit} << none << none;
    QTest::newRow("no toolkit") << QStringList{wholeEn, wholeCn} << toolkit << none;
    QTest::newRow("no Chinese") << QStringList{wholeEn, wholeToolkit} << cn << none;
    QTest::newRow("no English") << QStringList{wholeCn, wholeToolkit} << none << en;
    QTest::newRow("English alone") << QStringList{wholeEn} << toolkit + ", " + cn << none;
    QTest::newRow("broken toolkit")
        << QStringList{wholeEn, wholeCn, "broken_qt_zh_CN"} << toolkit << none;
    QTest::newRow("broken Chinese")
        << QStringList{wholeEn, "broken_Tarnpick_cn", wholeToolkit} << cn << none;
    QTest::newRow("broken English")
        << QStringList{"broken_Tarnpick_en", wholeCn, wholeToolkit} << none << en;
}

void tst_OvTranslator::theShellsCataloguesAreAllNeeded()
{
    QFETCH(QStringList, present);
    QFETCH(QString, inChinese);
    QFETCH(QString, inEnglish);
    const Catalogues resources(present);
    for (int round = 0; round < 2; ++round) {
        if (!inChinese.isEmpty())
            m_fixture->warnings.expect("The translations " + inChinese + " are missing or damaged");
        m_translator.setLanguageType(OvTranslator::Chinese);
        m_translator.refreshCatalogues();
        // The other catalogues still work.
        QCOMPARE(gather(), QStringLiteral("道集"));
        if (!inEnglish.isEmpty())
            m_fixture->warnings.expect("The translations " + inEnglish + " are missing or damaged");
        m_translator.setLanguageType(OvTranslator::English);
        QCOMPARE(m_fixture->warnings.problems(), QString());
    }
}

QTEST_MAIN(tst_OvTranslator)
#include "tst_OvTranslator.moc"
