#include "OvBase/OvUserDefineNode.h"

#include "OvBase/OvProjectDefineNode.h"
#include "OvBase/OvTranslator.h"
#include "unit/OvBase/LoginFixture.h"

#include <pwd.h>
#include <unistd.h>

class tst_OvUserDefineNode : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture = std::make_unique<LoginFixture>(); }
    void cleanup();

    void nobodyIsLoggedInAtFirst();
    void theAccountBecomesTheUser();
    void theUserKeepsTheKey();
    void aDamagedFileIsRefusedWithAReason();
    void aFailedLoginKeepsTheFormerUser();
    void logsInAgainAfterFinish();
    void restoresTheLanguage();

private:
    OvUserDefineNode& m_node = OvUserDefineNode::instance();
    std::unique_ptr<LoginFixture> m_fixture;
};

void tst_OvUserDefineNode::cleanup()
{
    const QString problems = m_fixture->warnings.problems();
    m_fixture.reset();
    QCOMPARE(problems, QString());
}

void tst_OvUserDefineNode::nobodyIsLoggedInAtFirst()
{
    QVERIFY(!m_node.isLoggedIn());
    QCOMPARE(m_node.userID(), -1);
    QCOMPARE(m_node.userName(), QString());
    m_node.logout();
    QVERIFY(!m_node.isLoggedIn());
}

void tst_OvUserDefineNode::theAccountBecomesTheUser()
{
    QVERIFY(m_fixture->login());
    QVERIFY(m_node.isLoggedIn());
    QVERIFY(m_node.userID() > 0);
    QCOMPARE(m_node.userName(), QString::fromLocal8Bit(getpwuid(getuid())->pw_name));
    QCOMPARE(m_node.lastError(), QString());
    QVERIFY(OvBaseUtil::isInitialized());
}

void tst_OvUserDefineNode::theUserKeepsTheKey()
{
    QVERIFY(m_fixture->login());
    const int key = m_node.userID();
    m_node.logout();
    QCOMPARE(m_node.userID(), -1);
    QVERIFY(m_fixture->login());
    QCOMPARE(m_node.userID(), key);
    QVERIFY(m_fixture->login());
    QCOMPARE(m_node.userID(), key);
}

void tst_OvUserDefineNode::aDamagedFileIsRefusedWithAReason()
{
    QFile file(m_fixture->path());
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("no database") > 0);
    file.close();
    m_fixture->warnings.expect(QStringLiteral("damaged"));
    QVERIFY(!m_fixture->login());
    QVERIFY(!m_node.isLoggedIn());
    QVERIFY(m_node.lastError().contains(m_fixture->path()));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("no database"));
}

void tst_OvUserDefineNode::aFailedLoginKeepsTheFormerUser()
{
    QVERIFY(m_fixture->login());
    const int key = m_node.userID();
    m_fixture->warnings.expect(QStringLiteral("cannot be opened"));
    QVERIFY(!m_node.login(m_fixture->folder() + QStringLiteral("/nowhere/Tarnpick.db")));
    QVERIFY(!m_node.lastError().isEmpty());
    QCOMPARE(m_node.userID(), key);
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("k"), 1));
}

void tst_OvUserDefineNode::logsInAgainAfterFinish()
{
    QVERIFY(m_fixture->login());
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("k"), 1));
    OvBaseUtil::finish();
    OvBaseUtil::finish();
    QVERIFY(!m_node.isLoggedIn());
    QVERIFY(m_fixture->login());
    QCOMPARE(OvBaseUtil::globalValue(QStringLiteral("k")), QVariant(1));
}

void tst_OvUserDefineNode::restoresTheLanguage()
{
    QVERIFY(m_fixture->login());
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("language"), 1));
    QVERIFY(m_fixture->login());
    QCOMPARE(OvTranslator::instance().languageType(), OvTranslator::Chinese);
    OvTranslator::instance().setLanguageType(OvTranslator::English);
}

QTEST_MAIN(tst_OvUserDefineNode)
#include "tst_OvUserDefineNode.moc"
