#include "OvBase/OvProjectDefineNode.h"

#include "OvBase/OvUserDefineNode.h"

#include <QTemporaryDir>
#include <QtTest>

class tst_OvProjectDefineNode : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void insertsAndFinds();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_OvProjectDefineNode::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY2(OvUserDefineNode::instance().login(m_folder->filePath(QStringLiteral("Tarnpick.db"))),
             qPrintable(OvUserDefineNode::instance().lastError()));
}

void tst_OvProjectDefineNode::cleanup()
{
    OvUserDefineNode::instance().logout();
}

void tst_OvProjectDefineNode::insertsAndFinds()
{
    OvProjectDefine define;
    define.name = QStringLiteral("Line 7");
    define.createTime = QDateTime::currentDateTime();
    define.id = OvProjectDefineNode().insertProject(define);
    QVERIFY(define.id >= 0);
    const OvProjectDefine found = OvProjectDefineNode().projectByName(define.name);
    QCOMPARE(found.id, define.id);
    QCOMPARE(found.createTime, define.createTime);
}

QTEST_MAIN(tst_OvProjectDefineNode)
#include "tst_OvProjectDefineNode.moc"
