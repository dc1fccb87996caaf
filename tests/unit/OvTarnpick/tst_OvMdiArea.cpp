#include "OvTarnpick/controller/OvMdiArea.h"

#include "OvGui/OvMultiPlaneViewController.h"

#include "TestSession.h"
#include "TestView.h"

#include <QMdiSubWindow>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

class tst_OvMdiArea : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void declaresItsMethodsInOrder();
    void prefersAFixedSize();
    void tilesSideBySide();
    void tilesOneAboveAnother();
    void tilesInStackingOrder();
    void advancesByTheActualSize();
    void leavesShadedAndHiddenAlone();
    void tilingNothingDoesNothing();
    void announcesTheTopMostWorkspace();
    void announcesAnotherWidgetAsNone();
    void closingTheLastAnnouncesNoneOnce();
    void forgetsADeletedWorkspace();
    void announcesAWorkspaceAtAUsedAddress();
    void paintsTheLogoInTheMiddle_data();
    void paintsTheLogoInTheMiddle();
    void deletesTheParallelViewFirst();

private:
    QMdiSubWindow* add(const QString& name);
    QList<QRect> geometries() const;

    std::unique_ptr<OvMdiArea> m_area;
};

void tst_OvMdiArea::initTestCase()
{
    qRegisterMetaType<OvAbstractViewController*>();
}

void tst_OvMdiArea::init()
{
    m_area = std::make_unique<OvMdiArea>(nullptr);
    m_area->resize(1000, 600);
    m_area->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_area.get()));
}

void tst_OvMdiArea::cleanup()
{
    m_area.reset();
}

QMdiSubWindow* tst_OvMdiArea::add(const QString& name)
{
    QMdiSubWindow* subWindow = m_area->addSubWindow(new TestView(name));
    subWindow->show();
    return subWindow;
}

QList<QRect> tst_OvMdiArea::geometries() const
{
    QList<QRect> list;
    for (const QMdiSubWindow* subWindow : m_area->subWindowList(QMdiArea::StackingOrder))
        list.append(subWindow->geometry());
    return list;
}

void tst_OvMdiArea::declaresItsMethodsInOrder()
{
    const QStringList expected{QStringLiteral("workspaceActivated(OvAbstractViewController*)"),
                               QStringLiteral("tileHorizontally()"),
                               QStringLiteral("tileVertically()"),
                               QStringLiteral("slotActiveSubWindowChanged(QMdiSubWindow*)")};
    QCOMPARE(ownMethods(OvMdiArea::staticMetaObject), expected);
}

void tst_OvMdiArea::prefersAFixedSize()
{
    QCOMPARE(m_area->sizeHint(), QSize(800, 600));
    QCOMPARE(m_area->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QCOMPARE(m_area->horizontalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    add(QStringLiteral("A"));
    QCOMPARE(m_area->sizeHint(), QSize(800, 600));
}

void tst_OvMdiArea::tilesSideBySide()
{
    for (const char* name : {"A", "B", "C"})
        add(QString::fromLatin1(name));
    m_area->tileHorizontally();
    const QList<QRect> expected{QRect(0, 0, 333, 600), QRect(333, 0, 333, 600),
                                QRect(666, 0, 333, 600)};
    QCOMPARE(geometries(), expected);
}

void tst_OvMdiArea::tilesOneAboveAnother()
{
    m_area->resize(1000, 605);
    for (const char* name : {"A", "B", "C"})
        add(QString::fromLatin1(name))->showMaximized();
    m_area->tileVertically();
    const QList<QRect> expected{QRect(0, 0, 1000, 201), QRect(0, 201, 1000, 201),
                                QRect(0, 402, 1000, 201)};
    QCOMPARE(geometries(), expected);
}

void tst_OvMdiArea::tilesInStackingOrder()
{
    QMdiSubWindow* first = add(QStringLiteral("A"));
    QMdiSubWindow* second = add(QStringLiteral("B"));
    m_area->setActiveSubWindow(first);
    m_area->tileHorizontally();
    QCOMPARE(second->pos(), QPoint(0, 0));
    QCOMPARE(first->pos(), QPoint(500, 0));
}

void tst_OvMdiArea::advancesByTheActualSize()
{
    QMdiSubWindow* wide = add(QStringLiteral("A"));
    QMdiSubWindow* other = add(QStringLiteral("B"));
    wide->setMinimumSize(700, 400);
    m_area->tileHorizontally();
    QCOMPARE(wide->geometry(), QRect(0, 0, 700, 600));
    QCOMPARE(other->geometry(), QRect(700, 0, 500, 600));
    m_area->tileVertically();
    QCOMPARE(wide->geometry(), QRect(0, 0, 1000, 400));
    QCOMPARE(other->geometry(), QRect(0, 400, 1000, 300));
}

void tst_OvMdiArea::leavesShadedAndHiddenAlone()
{
    QMdiSubWindow* shaded = add(QStringLiteral("A"));
    QMdiSubWindow* hidden = add(QStringLiteral("B"));
    QMdiSubWindow* third = add(QStringLiteral("C"));
    QMdiSubWindow* fourth = add(QStringLiteral("D"));
    shaded->move(10, 20);
    shaded->showShaded();
    hidden->setGeometry(30, 40, 200, 150);
    hidden->hide();
    const QRect shadedPlace = shaded->geometry();
    m_area->tileHorizontally();
    QVERIFY(shaded->isShaded());
    QCOMPARE(shaded->geometry(), shadedPlace);
    QVERIFY(hidden->isHidden());
    QCOMPARE(hidden->geometry(), QRect(30, 40, 200, 150));
    QCOMPARE(third->width() + fourth->width(), 1000);
    m_area->tileVertically();
    QCOMPARE(shaded->geometry(), shadedPlace);
    QCOMPARE(hidden->geometry(), QRect(30, 40, 200, 150));
    QCOMPARE(third->height() + fourth->height(), 600);
}

void tst_OvMdiArea::tilingNothingDoesNothing()
{
    m_area->tileHorizontally();
    m_area->tileVertically();
    QVERIFY(m_area->subWindowList().isEmpty());
    QMdiSubWindow* hidden = add(QStringLiteral("A"));
    hidden->hide();
    m_area->tileHorizontally();
    QVERIFY(hidden->isHidden());
}

void tst_OvMdiArea::announcesTheTopMostWorkspace()
{
    QSignalSpy spy(m_area.get(), &OvMdiArea::workspaceActivated);
    QMdiSubWindow* first = add(QStringLiteral("A"));
    QMdiSubWindow* second = add(QStringLiteral("B"));
    QCOMPARE(spy.count(), 2);
    QCOMPARE(m_area->activeWorkspace(), second->widget());
    m_area->setActiveSubWindow(first);
    QCOMPARE(spy.count(), 3);
    QCOMPARE(spy.last().first().value<OvAbstractViewController*>(), first->widget());
    QCOMPARE(m_area->activeWorkspace(), first->widget());
    m_area->setActiveSubWindow(first);
    QCOMPARE(spy.count(), 3);
}

void tst_OvMdiArea::announcesAnotherWidgetAsNone()
{
    add(QStringLiteral("A"));
    QSignalSpy spy(m_area.get(), &OvMdiArea::workspaceActivated);
    m_area->addSubWindow(new QWidget)->show();
    QCOMPARE(spy.count(), 1);
    QVERIFY(!spy.first().first().value<OvAbstractViewController*>());
    m_area->addSubWindow(new QWidget)->show();
    QCOMPARE(spy.count(), 1);
    QVERIFY(!m_area->activeWorkspace());
}

void tst_OvMdiArea::closingTheLastAnnouncesNoneOnce()
{
    QMdiSubWindow* subWindow = add(QStringLiteral("A"));
    QSignalSpy spy(m_area.get(), &OvMdiArea::workspaceActivated);
    const QPointer<QWidget> view = subWindow->widget();
    subWindow->close();
    QTRY_VERIFY(!view);
    QCOMPARE(spy.count(), 1);
    QVERIFY(!spy.first().first().value<OvAbstractViewController*>());
    QVERIFY(!m_area->activeWorkspace());
}

void tst_OvMdiArea::forgetsADeletedWorkspace()
{
    QMdiSubWindow* subWindow = add(QStringLiteral("A"));
    delete subWindow->widget();
    QVERIFY(!m_area->activeWorkspace());
    QSignalSpy spy(m_area.get(), &OvMdiArea::workspaceActivated);
    delete subWindow;
    QCOMPARE(spy.count(), 1);
    QVERIFY(!spy.first().first().value<OvAbstractViewController*>());
}

void tst_OvMdiArea::announcesAWorkspaceAtAUsedAddress()
{
    // Two views in turn in the same memory.
    std::aligned_storage_t<sizeof(TestView), alignof(TestView)> memory;
    auto* first = new (&memory) TestView(QStringLiteral("A"));
    QMdiSubWindow* subWindow = m_area->addSubWindow(first);
    subWindow->show();
    QCOMPARE(m_area->activeWorkspace(), first);
    first->~TestView();

    QSignalSpy spy(m_area.get(), &OvMdiArea::workspaceActivated);
    auto* second = new (&memory) TestView(QStringLiteral("B"));
    QMdiSubWindow* next = m_area->addSubWindow(second);
    next->show();
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.first().first().value<OvAbstractViewController*>(), second);
    second->~TestView();
    delete next;
}

void tst_OvMdiArea::paintsTheLogoInTheMiddle_data()
{
    QTest::addColumn<bool>("scrolled");
    QTest::newRow("plain") << false;
    QTest::newRow("with scroll bars") << true;
}

void tst_OvMdiArea::paintsTheLogoInTheMiddle()
{
    QFETCH(bool, scrolled);
    const QImage logo(QStringLiteral(":/resource/images/Maravel_logo_200x260_trans.png"));
    QCOMPARE(logo.size(), QSize(200, 260));
    m_area->resize(901, 601);
    m_area->setBackground(Qt::white);
    if (scrolled) {
        QMdiSubWindow* far = add(QStringLiteral("A"));
        far->setGeometry(850, 560, 300, 200);
        QTRY_VERIFY(m_area->verticalScrollBar()->isVisible());
        QTRY_VERIFY(m_area->horizontalScrollBar()->isVisible());
        QVERIFY(m_area->viewport()->width() < m_area->width());
    }

    QImage expected(m_area->size(), QImage::Format_RGB32);
    expected.fill(Qt::white);
    const QRect place(QPoint((901 - 200) / 2, (601 - 260) / 2), logo.size());
    QPainter(&expected).drawImage(place.topLeft(), logo);
    QImage painted(m_area->size(), QImage::Format_RGB32);
    painted.fill(Qt::white);
    m_area->render(&painted);
    const QRect around = place.adjusted(-60, -60, 60, 60);
    QCOMPARE(painted.copy(around), expected.copy(around));
    QVERIFY(expected.copy(place) != expected.copy(place.translated(0, -170)));
}

void tst_OvMdiArea::deletesTheParallelViewFirst()
{
    QStringList gone;
    for (const char* name : {"A", "B"}) {
        QWidget* view = add(QString::fromLatin1(name))->widget();
        connect(view, &QObject::destroyed, this, [&gone, name] { gone.append(name); });
    }
    auto* parallel = new OvMultiPlaneViewController;
    connect(parallel, &QObject::destroyed, this, [&gone] { gone.append("parallel"); });
    m_area->addSubWindow(parallel)->show();
    m_area.reset();
    QCOMPARE(gone, (QStringList{"parallel", "A", "B"}));
}

QTEST_MAIN(tst_OvMdiArea)
#include "tst_OvMdiArea.moc"
