#include "OvTarnpick/gadget/OvMainBillBoard.h"

#include "OvBase/OvTranslator.h"
#include "fixtures/WarningTrap.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QtTest>

class tst_OvMainBillBoard : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void startsEmpty();
    void emptyFbFileDisablesItsField();
    void emptySegyFileLeavesItsFieldEnabled();
    void clearLeavesTheEnabledState();
    void retranslatesButKeepsTheNames();
    void toolTipShowsTheNameAsPlainText();

private:
    static QLineEdit* edit(const OvMainBillBoard& board, const char* name)
    {
        return board.findChild<QLineEdit*>(QLatin1String(name));
    }
    static QString labelText(const OvMainBillBoard& board, const char* name)
    {
        return board.findChild<QLabel*>(QLatin1String(name))->text();
    }
};

void tst_OvMainBillBoard::init()
{
    WarningTrap::start();
}

void tst_OvMainBillBoard::cleanup()
{
    OvTranslator::instance().setSessionLanguage(OvTranslator::English);
    QCOMPARE(WarningTrap::take(), QStringList());
}

void tst_OvMainBillBoard::startsEmpty()
{
    OvMainBillBoard board;
    QCOMPARE(board.objectName(), QStringLiteral("OvMainBillBoard"));
    QCOMPARE(board.size(), QSize(204, 58));
    QCOMPARE(board.layout()->contentsMargins(), QMargins(6, 6, 6, 6));
    QVERIFY(board.segyFile().isEmpty());
    QVERIFY(board.fbFile().isEmpty());
    QVERIFY(edit(board, "segyFile")->isReadOnly());
    QVERIFY(edit(board, "fbFile")->isReadOnly());
    QVERIFY(edit(board, "fbFile")->isEnabled());
    auto* grid = qobject_cast<QGridLayout*>(board.layout());
    QVERIFY(grid);
    QCOMPARE(grid->itemAtPosition(0, 0)->widget()->objectName(), QStringLiteral("label"));
    QCOMPARE(grid->itemAtPosition(0, 1)->widget()->objectName(), QStringLiteral("segyFile"));
    QCOMPARE(grid->itemAtPosition(1, 0)->widget()->objectName(), QStringLiteral("label_2"));
    QCOMPARE(grid->itemAtPosition(1, 1)->widget()->objectName(), QStringLiteral("fbFile"));
}

void tst_OvMainBillBoard::emptyFbFileDisablesItsField()
{
    OvMainBillBoard board;
    board.setFbFile(QString());
    QVERIFY(board.fbFile().isEmpty());
    QVERIFY(!edit(board, "fbFile")->isEnabled());
    board.setFbFile(QStringLiteral("/data/line7.fb"));
    QCOMPARE(board.fbFile(), QStringLiteral("/data/line7.fb"));
    QVERIFY(edit(board, "fbFile")->isEnabled());
}

void tst_OvMainBillBoard::emptySegyFileLeavesItsFieldEnabled()
{
    OvMainBillBoard board;
    board.setSegyFile(QStringLiteral("/data/line7.sgy"));
    QCOMPARE(board.segyFile(), QStringLiteral("/data/line7.sgy"));
    board.setSegyFile(QString());
    QVERIFY(board.segyFile().isEmpty());
    QVERIFY(edit(board, "segyFile")->isEnabled());
}

void tst_OvMainBillBoard::clearLeavesTheEnabledState()
{
    OvMainBillBoard board;
    board.setSegyFile(QStringLiteral("/data/line7.sgy"));
    board.setFbFile(QString());
    board.clear();
    QVERIFY(board.segyFile().isEmpty());
    QVERIFY(!edit(board, "fbFile")->isEnabled());
    board.setFbFile(QStringLiteral("/data/line7.fb"));
    board.clear();
    QVERIFY(board.fbFile().isEmpty());
    QVERIFY(edit(board, "fbFile")->isEnabled());
}

void tst_OvMainBillBoard::retranslatesButKeepsTheNames()
{
    OvMainBillBoard board;
    board.setSegyFile(QStringLiteral("/data/line7.sgy"));
    board.setFbFile(QStringLiteral("/data/line7.fb"));
    QCOMPARE(labelText(board, "label"), QStringLiteral("SEGY file"));
    QCOMPARE(labelText(board, "label_2"), QStringLiteral("FB file"));
    OvTranslator::instance().setSessionLanguage(OvTranslator::Chinese);
    QTRY_COMPARE(labelText(board, "label"), QStringLiteral("SEGY 文件"));
    QCOMPARE(labelText(board, "label_2"), QStringLiteral("初至文件"));
    QCOMPARE(board.segyFile(), QStringLiteral("/data/line7.sgy"));
    QCOMPARE(board.fbFile(), QStringLiteral("/data/line7.fb"));
}

void tst_OvMainBillBoard::toolTipShowsTheNameAsPlainText()
{
    OvMainBillBoard board;
    board.setSegyFile(QStringLiteral("/data/<b>7</b>.sgy"));
    QVERIFY(edit(board, "segyFile")->toolTip().contains(QLatin1String("&lt;b&gt;7&lt;/b&gt;")));
    board.clear();
    QVERIFY(edit(board, "segyFile")->toolTip().isEmpty());
}

QTEST_MAIN(tst_OvMainBillBoard)
#include "tst_OvMainBillBoard.moc"
