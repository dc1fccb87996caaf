#include "OvTarnpick/gadget/OvMainGadget.h"

#include "fixtures/WarningTrap.h"

#include <QAction>
#include <QGridLayout>
#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QToolButton>
#include <QtTest>

class tst_OvMainGadget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void formIsBuilt();
    void threeActionsFillColumnByColumn();
    void buttonFollowsItsAction();
    void oneActionGetsAFiller();
    void emptyListRemovesButtonsOnly();
    void pruneSkipsTheNextEntry();
    void buttonsAreRebuiltEachTime();
    void sameActionTwiceIsKnownOnce();
    void actionDeletedElsewhereIsForgotten();
    void keepsActionsWhenDestroyed();

private:
    static QPoint cellOf(const OvMainGadget& gadget, QAction* action);
};

void tst_OvMainGadget::init()
{
    WarningTrap::start();
}

void tst_OvMainGadget::cleanup()
{
    QCOMPARE(WarningTrap::take(), QStringList());
}

// Column and row of an action's button; (-1, -1) for none.
QPoint tst_OvMainGadget::cellOf(const OvMainGadget& gadget, QAction* action)
{
    auto* grid = gadget.findChild<QGridLayout*>(QStringLiteral("gridLayout"));
    for (QToolButton* button : gadget.findChildren<QToolButton*>()) {
        if (button->defaultAction() != action)
            continue;
        int row = -1;
        int column = -1;
        int rowSpan = 0;
        int columnSpan = 0;
        grid->getItemPosition(grid->indexOf(button), &row, &column, &rowSpan, &columnSpan);
        return {column, row};
    }
    return {-1, -1};
}

void tst_OvMainGadget::formIsBuilt()
{
    OvMainGadget gadget;
    QCOMPARE(gadget.objectName(), QStringLiteral("OvMainGadget"));
    QCOMPARE(gadget.size(), QSize(94, 16));
    QCOMPARE(gadget.windowTitle(), QStringLiteral("Form"));
    auto* outer = qobject_cast<QGridLayout*>(gadget.layout());
    QVERIFY(outer);
    QCOMPARE(outer->objectName(), QStringLiteral("gridLayout_2"));
    QCOMPARE(outer->spacing(), 0);
    QCOMPARE(outer->contentsMargins(), QMargins());
    QVERIFY(outer->itemAtPosition(0, 0)->layout());
    QCOMPARE(outer->itemAtPosition(0, 0)->layout()->objectName(), QStringLiteral("gridLayout"));
}

void tst_OvMainGadget::threeActionsFillColumnByColumn()
{
    OvMainGadget gadget;
    QAction a, b, c;
    QVERIFY(gadget.setActions({&a, &b, &c}));
    QCOMPARE(cellOf(gadget, &a), QPoint(1, 0));
    QCOMPARE(cellOf(gadget, &b), QPoint(1, 1));
    QCOMPARE(cellOf(gadget, &c), QPoint(2, 0));
    QVERIFY(gadget.findChildren<QLabel*>().isEmpty());
}

void tst_OvMainGadget::buttonFollowsItsAction()
{
    OvMainGadget gadget;
    QAction action(QStringLiteral("Snapshot"), nullptr);
    gadget.setActions({&action});
    auto* button = gadget.findChild<QToolButton*>();
    QVERIFY(button->autoRaise());
    QCOMPARE(button->minimumSize(), QSize(32, 32));
    QCOMPARE(button->maximumSize(), QSize(32, 32));
    QCOMPARE(button->iconSize(), QSize(24, 24));
    QCOMPARE(button->text(), QStringLiteral("Snapshot"));
    QSignalSpy triggered(&action, &QAction::triggered);
    button->click();
    QCOMPARE(triggered.count(), 1);
    action.setEnabled(false);
    QVERIFY(!button->isEnabled());
}

void tst_OvMainGadget::oneActionGetsAFiller()
{
    OvMainGadget gadget;
    QAction action;
    gadget.setActions({&action});
    QCOMPARE(cellOf(gadget, &action), QPoint(1, 0));
    auto* grid = gadget.findChild<QGridLayout*>(QStringLiteral("gridLayout"));
    auto* filler = qobject_cast<QLabel*>(grid->itemAtPosition(1, 0)->widget());
    QVERIFY(filler);
    QVERIFY(filler->text().isEmpty());
    QAction second;
    gadget.setActions({&action, &second});
    QVERIFY(gadget.findChildren<QLabel*>().isEmpty());
}

void tst_OvMainGadget::emptyListRemovesButtonsOnly()
{
    OvMainGadget gadget;
    QPointer<QAction> a = new QAction(this);
    QPointer<QAction> b = new QAction(this);
    gadget.setActions({a, b});
    QVERIFY(gadget.setActions({}));
    QVERIFY(gadget.findChildren<QToolButton*>().isEmpty());
    QVERIFY(a);
    QVERIFY(b);
    // The list of known actions is as before: leaving b out now deletes it.
    gadget.setActions({a});
    QVERIFY(a);
    QVERIFY(!b);
}

void tst_OvMainGadget::pruneSkipsTheNextEntry()
{
    OvMainGadget gadget;
    QPointer<QAction> a = new QAction(this);
    QPointer<QAction> b = new QAction(this);
    QPointer<QAction> c = new QAction(this);
    gadget.setActions({a, b, c});
    gadget.setActions({a});
    QVERIFY(a);
    QVERIFY(!b);
    QVERIFY(c);
    gadget.setActions({a});
    QVERIFY(a);
    QVERIFY(!c);
}

void tst_OvMainGadget::buttonsAreRebuiltEachTime()
{
    OvMainGadget gadget;
    QAction action;
    gadget.setActions({&action});
    const QPointer<QToolButton> former = gadget.findChild<QToolButton*>();
    gadget.setActions({&action});
    QVERIFY(!former);
    QCOMPARE(gadget.findChildren<QToolButton*>().size(), 1);
    gadget.clearButtons();
    QVERIFY(gadget.findChildren<QToolButton*>().isEmpty());
}

void tst_OvMainGadget::sameActionTwiceIsKnownOnce()
{
    OvMainGadget gadget;
    QPointer<QAction> a = new QAction(this);
    QAction b;
    gadget.setActions({a});
    gadget.setActions({a, &b});
    // Were a known twice, its second entry would be a dangling one after this call.
    gadget.setActions({&b});
    QVERIFY(!a);
    gadget.setActions({&b});
    QCOMPARE(gadget.findChildren<QToolButton*>().size(), 1);
}

void tst_OvMainGadget::actionDeletedElsewhereIsForgotten()
{
    OvMainGadget gadget;
    auto* a = new QAction(this);
    QAction b;
    gadget.setActions({a, &b});
    delete a;
    gadget.setActions({&b});
    QCOMPARE(cellOf(gadget, &b), QPoint(1, 0));
}

void tst_OvMainGadget::keepsActionsWhenDestroyed()
{
    QPointer<QAction> a = new QAction(this);
    {
        OvMainGadget gadget;
        gadget.setActions({a});
    }
    QVERIFY(a);
}

QTEST_MAIN(tst_OvMainGadget)
#include "tst_OvMainGadget.moc"
