#include "OvTarnpick/gadget/OvObjectBoard.h"

#include "fixtures/WarningTrap.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QtTest>

class tst_OvObjectBoard : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void captionStandsLeftValueInTheBox();
    void emptyCaptionShowsTheFormsText();
    void emptyCaptionGoesWithAValueChange();
    void sameValueRefreshesOnce();
    void languageChangeRefreshesFromTheStore();

private:
    static QLabel* label(const OvObjectBoard& board, const char* name)
    {
        return board.findChild<QLabel*>(QLatin1String(name));
    }
};

void tst_OvObjectBoard::init()
{
    WarningTrap::start();
}

void tst_OvObjectBoard::cleanup()
{
    QCOMPARE(WarningTrap::take(), QStringList());
}

void tst_OvObjectBoard::captionStandsLeftValueInTheBox()
{
    OvObjectBoard board(QStringLiteral("Horizon"));
    board.setValue(QStringLiteral("Base of weathering"));
    QCOMPARE(board.objectName(), QStringLiteral("OvObjectBoard"));
    QCOMPARE(board.layout()->contentsMargins(), QMargins(6, 0, 6, 0));
    QLabel* caption = label(board, "objectName");
    QLabel* value = label(board, "objectTitle");
    QCOMPARE(caption->text(), QStringLiteral("Horizon"));
    QCOMPARE(value->text(), QStringLiteral("Base of weathering"));
    QCOMPARE(board.value(), QStringLiteral("Base of weathering"));
    auto* grid = qobject_cast<QGridLayout*>(board.layout());
    QCOMPARE(grid->itemAtPosition(0, 0)->widget(), caption);
    QCOMPARE(grid->itemAtPosition(0, 1)->widget(), value);
    QCOMPARE(value->frameShape(), QFrame::Box);
    QCOMPARE(value->frameShadow(), QFrame::Sunken);
    QCOMPARE(value->minimumSize(), QSize(0, 20));
    QCOMPARE(value->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(value->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
}

void tst_OvObjectBoard::emptyCaptionShowsTheFormsText()
{
    OvObjectBoard board{QString()};
    QCOMPARE(label(board, "objectName")->text(), QStringLiteral("ObjectName"));
    QEvent event(QEvent::LanguageChange);
    QApplication::sendEvent(&board, &event);
    QCOMPARE(label(board, "objectName")->text(), QString());
}

void tst_OvObjectBoard::emptyCaptionGoesWithAValueChange()
{
    OvObjectBoard board{QString()};
    board.setValue(QString());
    QCOMPARE(label(board, "objectName")->text(), QStringLiteral("ObjectName"));
    board.setValue(QStringLiteral("A"));
    QCOMPARE(label(board, "objectName")->text(), QString());
    QCOMPARE(label(board, "objectTitle")->text(), QStringLiteral("A"));
}

void tst_OvObjectBoard::sameValueRefreshesOnce()
{
    OvObjectBoard board(QStringLiteral("Shot"));
    board.setValue(QStringLiteral("12"));
    // A mark that the next refresh would wipe away.
    label(board, "objectTitle")->setText(QStringLiteral("mark"));
    board.setValue(QStringLiteral("12"));
    QCOMPARE(label(board, "objectTitle")->text(), QStringLiteral("mark"));
    board.setCaption(QStringLiteral("Shot"));
    QCOMPARE(label(board, "objectTitle")->text(), QStringLiteral("mark"));
    board.setCaption(QStringLiteral("Gather"));
    QCOMPARE(label(board, "objectTitle")->text(), QStringLiteral("12"));
}

void tst_OvObjectBoard::languageChangeRefreshesFromTheStore()
{
    OvObjectBoard board(QStringLiteral("Shot"));
    board.setValue(QStringLiteral("12"));
    label(board, "objectName")->setText(QStringLiteral("mark"));
    QEvent event(QEvent::LanguageChange);
    QApplication::sendEvent(&board, &event);
    QCOMPARE(label(board, "objectName")->text(), QStringLiteral("Shot"));
    QCOMPARE(label(board, "objectTitle")->text(), QStringLiteral("12"));
}

QTEST_MAIN(tst_OvObjectBoard)
#include "tst_OvObjectBoard.moc"
