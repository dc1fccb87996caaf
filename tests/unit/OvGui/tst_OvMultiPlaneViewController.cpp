#include "OvGui/OvMultiPlaneViewController.h"

#include "OvBase/OvBaseUtil.h"
#include "Views.h"
#include "fixtures/WarningTrap.h"

#include <QLabel>
#include <QTemporaryDir>

namespace {

// A plane view that is no gather view.
class Section : public OvPlaneViewController
{
public:
    Section()
        : m_canvas(new QLabel("section", this))
    {
        m_canvas->resize(120, 80);
        m_canvas->setStyleSheet("background: #123456");
    }
    QString description() const override { return "section"; }
    bool editable() const override { return false; }
    QWidget* canvas() const override { return m_canvas; }
    int currentGather() const override { return m_gather; }
    int gatherCount() const override { return 3; }
    void setCurrentGather(int gather) override
    {
        m_gather = gather;
        emit currentGatherChanged(gather);
    }

private:
    QLabel* m_canvas;
    int m_gather = 0;
};

} // namespace

class tst_OvMultiPlaneViewController : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<OvGatherViewController> m_first;
    std::unique_ptr<OvGatherViewController> m_second;
    std::unique_ptr<OvMultiPlaneViewController> m_parallel;

    std::unique_ptr<OvGatherViewController> viewOf(const QString& name, int shots, int firstRecord)
    {
        const QString path = m_folder->filePath(name);
        if (!Gathers::writeLine(path, shots, 24, firstRecord))
            return nullptr;
        return std::make_unique<OvGatherViewController>(Views::openComplete(path));
    }

    QList<OvGatherCanvas*> panels() const { return m_parallel->findChildren<OvGatherCanvas*>(); }
    bool isPainted() const
    {
        for (const OvGatherCanvas* panel : panels())
            if (!panel->isComplete())
                return false;
        return true;
    }

private slots:
    void initTestCase() { QVERIFY(OvBaseUtil::initialize()); }
    void cleanupTestCase() { OvBaseUtil::finish(); }

    void init()
    {
        WarningTrap::start();
        m_folder = std::make_unique<QTemporaryDir>();
        m_first = viewOf("a.sgy", 5, 100);
        m_second = viewOf("b.sgy", 4, 110);
        m_parallel = std::make_unique<OvMultiPlaneViewController>();
        m_parallel->resize(1000, 500);
        m_parallel->setUsedViewControllers({m_first.get(), m_second.get()});
        m_parallel->show();
        QTRY_VERIFY(panels().size() == 2 && isPainted());
    }

    void saysWhetherItsPicturesAreThere()
    {
        QTRY_VERIFY(m_parallel->isShowingData());
        m_first->setCurrentGather(3);
        QVERIFY(!m_parallel->isShowingData());
        QTRY_VERIFY(m_parallel->isShowingData());
        m_parallel->setUsedViewControllers({});
        QVERIFY(!m_parallel->isShowingData());
    }

    void cleanup()
    {
        m_parallel.reset();
        m_first.reset();
        m_second.reset();
        QCOMPARE(WarningTrap::take(), QStringList());
    }

    void showsMirrorsInOrder()
    {
        QCOMPARE(m_parallel->usedViewControllers(),
                 (QList<OvPlaneViewController*>{m_first.get(), m_second.get()}));
        QCOMPARE(panels()[0]->gather()->fieldRecord, 100);
        QCOMPARE(panels()[1]->gather()->fieldRecord, 110);
        QVERIFY(panels()[0]->mapTo(m_parallel.get(), QPoint()).x() <
                panels()[1]->mapTo(m_parallel.get(), QPoint()).x());
        QVERIFY(m_first->parentWidget() == nullptr);
        QCOMPARE(m_parallel->description(), QString("Parallel View"));
    }

    void orderAndChoiceCanChange()
    {
        auto third = viewOf("c.sgy", 2, 100);
        m_parallel->setUsedViewControllers({third.get(), m_second.get()});
        QCOMPARE(m_parallel->usedViewControllers(),
                 (QList<OvPlaneViewController*>{third.get(), m_second.get()}));
        QCOMPARE(panels().size(), 2);
        m_parallel->setUsedViewControllers({});
        QVERIFY(m_parallel->usedViewControllers().isEmpty());
    }

    void dropsADeletedView()
    {
        m_first.reset();
        QCOMPARE(m_parallel->usedViewControllers(), QList<OvPlaneViewController*>{m_second.get()});
        QTRY_COMPARE(panels().size(), 1);
        m_second.reset();
        QVERIFY(m_parallel->usedViewControllers().isEmpty());
        QTest::keyClick(m_parallel.get(), Qt::Key_PageDown);
    }

    void pagingMovesEveryViewThatHasTheRecord()
    {
        m_first->setCurrentGather(3); // record 130: gather 2 of the second file
        QCOMPARE(m_second->currentGather(), 2);
        QTRY_VERIFY(panels()[0]->gather()->fieldRecord == 130 &&
                    panels()[1]->gather()->fieldRecord == 130);
        m_second->setCurrentGather(0); // record 110
        QCOMPARE(m_first->currentGather(), 1);
        m_first->setCurrentGather(0); // record 100, which the second has not
        QCOMPARE(m_second->currentGather(), 0);
    }

    void keysPageTheFirstView()
    {
        QTest::keyClick(m_parallel.get(), Qt::Key_End);
        QCOMPARE(m_first->currentGather(), 4);
        QCOMPARE(m_second->currentGather(), 3);
    }

    void zoomAndScrollAreCommon()
    {
        OvGatherCanvas* left = panels()[0];
        Views::wheel(left, left->dataRect().center(), 360);
        const OvViewState& a = panels()[0]->viewState();
        const OvViewState& b = panels()[1]->viewState();
        QCOMPARE(a.pixelsPerMs(), b.pixelsPerMs());
        QCOMPARE(a.topMs(), b.topMs());
        QCOMPARE(a.traceSpacing(), b.traceSpacing());
        panels()[1]->panBy({0.0, -25.0});
        QCOMPARE(a.topMs(), b.topMs());
        panels()[1]->fit();
        QVERIFY(panels()[0]->viewState().isFitted());
    }

    void settingsOfTheSourceAreMirrored()
    {
        OvDisplayDefine define;
        define.mode = OvDisplayDefine::VariableDensity;
        m_second->setProperty("DisplayDefine", QVariant::fromValue(define));
        QCOMPARE(panels()[1]->displayDefine().mode, int(OvDisplayDefine::VariableDensity));
        QVERIFY(panels()[0]->displayDefine().mode != int(OvDisplayDefine::VariableDensity));
    }

    void picksAreMirrored()
    {
        QVERIFY(m_first->document()->setFirstBreaks(0, Gathers::breaksAt(24, 80.0F)));
        QCOMPARE(panels()[0]->firstBreaks().pickedCount(), 24);
    }

    void otherViewsAreMirroredAsPictures()
    {
        Section section;
        m_parallel->setUsedViewControllers({&section, m_first.get()});
        const auto hasPicture = [this] {
            for (const QLabel* label : m_parallel->findChildren<QLabel*>())
                if (label->pixmap() != nullptr && !label->pixmap()->isNull())
                    return true;
            return false;
        };
        QTRY_VERIFY(hasPicture());
        QKeyEvent event(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
        m_parallel->handleKeyEvent(&event);
        m_parallel->setUsedViewControllers({m_first.get()});
    }

    void timesAreCommonThoughRecordsDiffer()
    {
        SegyWriter longer;
        longer.sampleCount = 400;
        longer.intervalUs = 2000;
        longer.addShot(100, 0.0, 24, 10.0);
        QVERIFY(longer.write(m_folder->filePath("long.sgy")));
        OvGatherViewController view(Views::openComplete(m_folder->filePath("long.sgy")));
        m_parallel->setUsedViewControllers({m_first.get(), &view});
        QTRY_VERIFY(panels().size() == 2 && panels()[1]->gather() && isPainted());
        QTRY_COMPARE(panels()[0]->viewState().pixelsPerMs(),
                     panels()[1]->viewState().pixelsPerMs());
        QCOMPARE(panels()[0]->viewState().extent().endMs, 798.0);
        m_parallel->setUsedViewControllers({m_first.get()});
    }
};

QTEST_MAIN(tst_OvMultiPlaneViewController)
#include "tst_OvMultiPlaneViewController.moc"
