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
    void aDamagedCatalogueIsReportedOnce();

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

void tst_OvTranslator::aDamagedCatalogueIsReportedOnce()
{
    QVERIFY(QResource::registerResource(resourceFile("damaged_cn.rcc")));
    m_fixture->warnings.expect(QStringLiteral("damaged_cn.qm"));
    for (int round = 0; round < 2; ++round) {
        m_translator.setLanguageType(OvTranslator::Chinese);
        QCOMPARE(gather(), QStringLiteral("道集"));
        m_translator.setLanguageType(OvTranslator::English);
    }
    QVERIFY(QResource::unregisterResource(resourceFile("damaged_cn.rcc")));
}

QTEST_MAIN(tst_OvTranslator)
#include "tst_OvTranslator.moc"
