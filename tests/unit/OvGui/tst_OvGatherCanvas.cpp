#include "OvGui/canvas/OvGatherCanvas.h"

#include "OvGui/canvas/OvCanvasTool.h"
#include "OvGui/canvas/OvPickPainter.h"
#include "OvGui/tools/OvPanTool.h"
#include "OvGui/tools/OvReadoutTool.h"
#include "OvGui/tools/OvZoomTool.h"
#include "Views.h"
#include "fixtures/WarningTrap.h"

#include <QScrollBar>

namespace {

// Uses every left press, as a picking tool would.
class Grabber : public OvCanvasTool
{
public:
    using OvCanvasTool::OvCanvasTool;
    bool mousePress(QMouseEvent* event) override
    {
        presses += event->button() == Qt::LeftButton ? 1 : 0;
        return event->button() == Qt::LeftButton;
    }
    bool mouseMove(QMouseEvent* event) override
    {
        moves += event->buttons() != Qt::NoButton ? 1 : 0;
        return false;
    }
    bool mouseRelease(QMouseEvent*) override
    {
        ++releases;
        return true;
    }
    int presses = 0;
    int moves = 0;
    int releases = 0;
};

} // namespace

class tst_OvGatherCanvas : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<OvGatherCanvas> m_canvas;

    QPoint middle() const { return m_canvas->dataRect().center(); }

private slots:
    void init()
    {
        WarningTrap::start();
        m_canvas = std::make_unique<OvGatherCanvas>();
        new OvPanTool(m_canvas.get());
        new OvZoomTool(m_canvas.get());
        m_canvas->resize(800, 500);
        OvGather gather = Gathers::silent(60, 501, 1.0);
        std::fill(gather.trace(30) + 240, gather.trace(30) + 261, 1000.0F);
        m_canvas->setGather(std::make_shared<const OvGather>(gather));
        m_canvas->fit();
        m_canvas->show();
        QTRY_VERIFY(m_canvas->isComplete());
    }

    void cleanup()
    {
        m_canvas.reset();
        QCOMPARE(WarningTrap::take(), QStringList());
    }

    void announcesThePaintedGatherOnce()
    {
        QSignalSpy painted(m_canvas.get(), &OvGatherCanvas::gatherPainted);
        m_canvas->setGather(std::make_shared<const OvGather>(Gathers::silent(60, 501, 1.0)));
        QVERIFY(!m_canvas->isComplete());
        QVERIFY(painted.wait());
        QVERIFY(m_canvas->isComplete());
        m_canvas->update();
        m_canvas->zoomBy(1.5);
        QTRY_VERIFY(m_canvas->isComplete());
        QTest::qWait(20);
        QCOMPARE(painted.size(), 1);
    }

    void theScreenShowsWhatThePictureShows()
    {
        const QPointF spike = m_canvas->pointOf(30, 250.0) + QPointF(5.0, 0.0);
        const QImage screen = m_canvas->grab().toImage();
        const QImage picture = m_canvas->picture();
        QVERIFY(qGray(screen.pixel(spike.toPoint())) < 100);
        QVERIFY(qGray(picture.pixel(spike.toPoint())) < 100);
        QCOMPARE(picture.size(), m_canvas->size() * m_canvas->devicePixelRatio());
    }

    void pixelsAndDataCorrespond()
    {
        for (const int row : {0, 17, 59}) {
            const QPointF point = m_canvas->pointOf(row, 123.0);
            QCOMPARE(m_canvas->rowAt(point), row);
            QCOMPARE(m_canvas->timeAt(point), 123.0);
        }
        QCOMPARE(m_canvas->rowAt(QPointF(2.0, 2.0)), -1);
    }

    void wheelZoomsAtTheMouse_data()
    {
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<bool>("traces");
        QTest::addColumn<bool>("times");
        QTest::newRow("both") << int(Qt::NoModifier) << true << true;
        QTest::newRow("time") << int(Qt::ControlModifier) << false << true;
        QTest::newRow("traces") << int(Qt::ShiftModifier) << true << false;
    }

    void wheelZoomsAtTheMouse()
    {
        QFETCH(int, modifiers);
        QFETCH(bool, traces);
        QFETCH(bool, times);
        const QPointF mouse = QPointF(middle()) + QPointF(101.0, -37.0);
        const OvViewState before = m_canvas->viewState();
        const double time = m_canvas->timeAt(mouse);
        const int row = m_canvas->rowAt(mouse);
        QSignalSpy chosen(m_canvas.get(), &OvGatherCanvas::scaleChosen);
        Views::wheel(m_canvas.get(), mouse, 120, Qt::KeyboardModifiers(modifiers));
        QCOMPARE(chosen.size(), 1);
        QVERIFY(qAbs(m_canvas->timeAt(mouse) - time) < 0.5);
        QCOMPARE(m_canvas->rowAt(mouse), row);
        QCOMPARE(m_canvas->viewState().traceSpacing() > before.traceSpacing() * 1.1, traces);
        QCOMPARE(m_canvas->viewState().pixelsPerMs() > before.pixelsPerMs() * 1.1, times);
    }

    void dragPans()
    {
        m_canvas->zoomBy(4.0);
        const QPointF before = m_canvas->pointOf(30, 250.0);
        Views::drag(m_canvas.get(), middle(), middle() + QPoint(40, -30), Qt::LeftButton);
        const QPointF moved = m_canvas->pointOf(30, 250.0) - before;
        QVERIFY(qAbs(moved.x() - 40.0) < 1e-6 && qAbs(moved.y() + 30.0) < 1e-6);
    }

    void rubberBandZooms_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("right") << int(Qt::RightButton) << int(Qt::NoModifier);
        QTest::newRow("shift") << int(Qt::LeftButton) << int(Qt::ShiftModifier);
    }

    void rubberBandZooms()
    {
        QFETCH(int, button);
        QFETCH(int, modifiers);
        const QPoint from = middle() - QPoint(60, 40);
        const double time = m_canvas->timeAt(from);
        Views::drag(m_canvas.get(), from, middle() + QPoint(60, 40), Qt::MouseButton(button),
                    Qt::KeyboardModifiers(modifiers));
        QVERIFY(!m_canvas->viewState().isFitted());
        QVERIFY(qAbs(m_canvas->timeAt(m_canvas->dataRect().topLeft()) - time) < 1.0);
        const double shown = m_canvas->viewState().visibleTraces();
        QVERIFY(qAbs(shown - 120.0 * 61.0 / m_canvas->dataRect().width()) < 0.5);
    }

    void aSlipOfTheHandIsNoRubberBand()
    {
        Views::drag(m_canvas.get(), middle(), middle() + QPoint(2, 2), Qt::RightButton);
        QVERIFY(m_canvas->viewState().isFitted());
    }

    void doubleClickFits()
    {
        m_canvas->zoomBy(3.0);
        QVERIFY(!m_canvas->viewState().isFitted());
        QTest::mouseDClick(m_canvas.get(), Qt::LeftButton, {}, middle());
        QVERIFY(m_canvas->viewState().isFitted());
    }

    void scrollBarsFollowAndLead()
    {
        auto* bar = m_canvas->findChild<QScrollBar*>("verticalBar");
        QVERIFY(!bar->isVisible());
        m_canvas->zoomBy(4.0);
        QVERIFY(bar->isVisible());
        bar->setValue(0);
        QCOMPARE(m_canvas->viewState().topMs(), 0.0);
        bar->setValue(bar->maximum());
        QVERIFY(qAbs(m_canvas->viewState().topMs() - m_canvas->viewState().maximumTopMs()) < 1.0);
    }

    void theHorizontalBarShowsWhereTheViewStands()
    {
        auto* bar = m_canvas->findChild<QScrollBar*>("horizontalBar");
        m_canvas->setScale(4.0 * m_canvas->dataRect().width() / 60.0, 1.0);
        m_canvas->panBy({1e6, 0.0});
        QVERIFY(bar->isVisible());
        QCOMPARE(bar->value(), bar->minimum());
        // A handle is as long as the page is of the whole: a quarter.
        const double whole = bar->maximum() - bar->minimum() + bar->pageStep();
        QVERIFY2(qAbs(bar->pageStep() / whole - 0.25) < 0.01, qPrintable(QString::number(whole)));
        m_canvas->panBy({-1e6, 0.0});
        QCOMPARE(bar->value(), bar->maximum());
    }

    void picksAreDrawnWhereTheyAre_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<int>("mode");
        for (const int mode : {0, 1, 2, 3})
            for (const int state : {1, 2, 3})
                QTest::newRow(qPrintable(QString("mode %1 state %2").arg(mode).arg(state)))
                    << state << mode;
    }

    void picksAreDrawnWhereTheyAre()
    {
        QFETCH(int, state);
        QFETCH(int, mode);
        OvFirstBreaks breaks;
        breaks.resize(60);
        breaks.timesMs[30] = 250.0F;
        breaks.states[30] = static_cast<OvPickState>(state);
        OvDisplayDefine define;
        define.mode = mode;
        m_canvas->setDisplayDefine(define);
        m_canvas->setFirstBreaks(breaks);
        const QPoint at = m_canvas->pointOf(30, 250.0).toPoint();
        const QColor expected = OvPickPainter::color(static_cast<OvPickState>(state));
        const QColor seen(m_canvas->picture().pixel(at));
        const int far = qAbs(seen.red() - expected.red()) + qAbs(seen.green() - expected.green()) +
                        qAbs(seen.blue() - expected.blue());
        QVERIFY2(far < 60, qPrintable(seen.name() + " for " + expected.name()));
        define.showPicks = false;
        m_canvas->setDisplayDefine(define);
        QVERIFY(QColor(m_canvas->picture().pixel(at)) != seen);
    }

    void readoutNamesTraceTimeAndAmplitude()
    {
        const auto* readout = new OvReadoutTool(m_canvas.get());
        QSignalSpy text(readout, &OvReadoutTool::textChanged);
        Views::hover(m_canvas.get(), m_canvas->pointOf(30, 250.0));
        QCOMPARE(text.size(), 1);
        const QString said = text[0][0].toString();
        QVERIFY2(said.contains("250.0 ms") && said.contains("Channel 31") &&
                     said.contains("300.0 m") && said.contains("Amplitude 1000"),
                 qPrintable(said));
        Views::hover(m_canvas.get(), QPointF(2.0, 2.0));
        QCOMPARE(text.last()[0].toString(), QString());
    }

    void aToolAddedLaterIsAskedFirst()
    {
        m_canvas->zoomBy(4.0);
        auto* grabber = new Grabber(m_canvas.get());
        const OvViewState before = m_canvas->viewState();
        Views::drag(m_canvas.get(), middle(), middle() + QPoint(40, 30), Qt::LeftButton);
        QCOMPARE(grabber->presses, 1);
        QCOMPARE(grabber->moves, 2);
        QCOMPARE(grabber->releases, 1);
        QVERIFY(m_canvas->viewState() == before);
        delete grabber;
        Views::drag(m_canvas.get(), middle(), middle() + QPoint(40, 30), Qt::LeftButton);
        QVERIFY(m_canvas->viewState() != before);
    }

    void scaleAndScrollStayFromGatherToGather()
    {
        m_canvas->zoomBy(4.0);
        const OvViewState before = m_canvas->viewState();
        m_canvas->setGather(std::make_shared<const OvGather>(Gathers::silent(60, 501, 1.0)));
        QVERIFY(m_canvas->viewState() == before);
    }

    void theOldGatherStaysUntilTheNewOneIsWhole()
    {
        const QPoint spike = (m_canvas->pointOf(30, 250.0) + QPointF(5.0, 0.0)).toPoint();
        m_canvas->setGather(std::make_shared<const OvGather>(Gathers::silent(60, 501, 1.0)));
        QVERIFY(!m_canvas->isComplete());
        QVERIFY(qGray(m_canvas->grab().toImage().pixel(spike)) < 100);
        QTRY_VERIFY(m_canvas->isComplete());
        QVERIFY(qGray(m_canvas->grab().toImage().pixel(spike)) > 200);
    }

    void messagesStandInPlaceOfTheData()
    {
        m_canvas->setGather(nullptr);
        QVERIFY(!m_canvas->isComplete());
        const QImage empty = m_canvas->picture();
        m_canvas->setMessage("The file cannot be read.");
        QVERIFY(m_canvas->picture() != empty);
        m_canvas->setMessage(QString());
        QCOMPARE(m_canvas->picture(), empty);
    }

    void axesFollowThePalette()
    {
        QPalette dark;
        dark.setColor(QPalette::Window, QColor(40, 40, 40));
        dark.setColor(QPalette::WindowText, Qt::white);
        m_canvas->setPalette(dark);
        const QImage image = m_canvas->picture();
        QCOMPARE(QColor(image.pixel(1, 1)), QColor(40, 40, 40));
        QCOMPARE(QColor(image.pixel(m_canvas->dataRect().topLeft() + QPoint(1, 5))),
                 QColor(Qt::white));
    }

    void deletingTheCanvasWhileItDrawsIsSafe()
    {
        for (int i = 0; i < 6; ++i) {
            OvGatherCanvas canvas;
            canvas.resize(600, 400);
            canvas.setGather(std::make_shared<const OvGather>(Gathers::silent(100, 1000, 1.0)));
            canvas.show();
            QCoreApplication::processEvents();
        }
    }
};

QTEST_MAIN(tst_OvGatherCanvas)
#include "tst_OvGatherCanvas.moc"
