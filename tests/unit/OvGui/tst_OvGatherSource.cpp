#include "OvGui/document/OvGatherSource.h"

#include "LineFixture.h"
#include "OvGui/OvMultiPlaneViewController.h"

#include <QSpinBox>

namespace {

OvGatherOrder by(OvGatherKey key, OvGatherSort sort = OvGatherSort::FileOrder)
{
    OvGatherOrder order;
    order.key = key;
    order.sort = sort;
    return order;
}

std::vector<qint64> tracesOf(const OvGather& gather)
{
    std::vector<qint64> traces;
    for (const OvTraceHeader& header : gather.headers)
        traces.push_back(header.traceIndex);
    return traces;
}

} // namespace

/// Gathers in the order of one window: read, shown, picked.
class tst_OvGatherSource : public QObject, private LineFixture
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(startProgram()); }
    void cleanupTestCase() { endProgram(); }
    void init()
    {
        begin();
        QVERIFY(openLine(5));
    }
    void cleanup() { QCOMPARE(end(), QStringList()); }

    void sharesTheDocumentsOwnOrder()
    {
        OvGatherSource source(m_document);
        QCOMPARE(source.index(), m_document->index());
        QVERIFY(!source.isOrdering());
        QSignalSpy loaded(&source, &OvGatherSource::gatherLoaded);
        source.requestGather(1);
        QTRY_COMPARE(loaded.size(), 1);
        QCOMPARE(source.cachedGather(1), m_document->cachedGather(1));
    }

    void ordersInAWorker()
    {
        OvGatherSource source(m_document);
        QSignalSpy changed(&source, &OvGatherSource::indexChanged);
        source.setOrder(by(OvGatherKey::Receiver, OvGatherSort::Offset));
        QVERIFY(source.isOrdering());
        QCOMPARE(source.gatherCount(), 5); // until the other gathers are there
        QTRY_COMPARE(changed.size(), 1);
        QVERIFY(!source.isOrdering());
        QVERIFY(source.gatherCount() == 24);
        source.setOrder({});
        QCOMPARE(changed.size(), 2);
        QCOMPARE(source.index(), m_document->index());
    }

    void theLastOrderAskedForCounts()
    {
        OvGatherSource source(m_document);
        QSignalSpy changed(&source, &OvGatherSource::indexChanged);
        source.setOrder(by(OvGatherKey::Receiver));
        source.setOrder(by(OvGatherKey::Source));
        source.setOrder(by(OvGatherKey::OffsetBin));
        QTRY_VERIFY(!source.isOrdering());
        QCOMPARE(source.index()->order().key, OvGatherKey::OffsetBin);
        QTest::qWait(0);
        QCOMPARE(changed.size(), 1);
    }

    void readsGathersInTheirOrder()
    {
        OvGatherSource source(m_document);
        QSignalSpy loaded(&source, &OvGatherSource::gatherLoaded);
        source.setOrder(by(OvGatherKey::Receiver, OvGatherSort::FieldRecord));
        QTRY_VERIFY(!source.isOrdering());
        const int gather = widest(source);
        source.requestGather(gather);
        QTRY_COMPARE(loaded.size(), 1);
        const auto data = source.cachedGather(gather);
        QVERIFY(data);
        QCOMPARE(tracesOf(*data), source.index()->gatherTraces(gather));
        for (int row = 1; row < data->traceCount(); ++row) {
            QCOMPARE(data->headers[static_cast<std::size_t>(row)].receiverX,
                     data->headers[0].receiverX);
            QVERIFY(data->headers[static_cast<std::size_t>(row)].fieldRecord >
                    data->headers[static_cast<std::size_t>(row) - 1].fieldRecord);
        }
        // Samples belong to their traces.
        const auto first = data->headers[0];
        const auto shot = m_document->index()->gatherOfTrace(first.traceIndex);
        OvGather whole;
        QVERIFY(m_document->index()->readGather(m_document->file(), shot, &whole));
        const auto all = m_document->index()->gatherTraces(shot);
        const auto row = std::find(all.begin(), all.end(), first.traceIndex) - all.begin();
        QVERIFY(std::equal(data->trace(0), data->trace(0) + data->sampleCount,
                           whole.trace(static_cast<int>(row))));
    }

    void picksShowInEveryOrder()
    {
        QVERIFY(m_document->setFirstBreaks(2, Gathers::breaksAt(24, 33.0F)));
        OvGatherSource source(m_document);
        source.setOrder(by(OvGatherKey::Receiver));
        QTRY_VERIFY(!source.isOrdering());
        int picked = 0;
        for (int gather = 0; gather < source.gatherCount(); ++gather)
            picked += source.firstBreaks(gather).pickedCount();
        QCOMPARE(picked, 24);
        const qint64 trace = m_document->index()->gatherTraces(2).front();
        const int gather = source.index()->gatherOfTrace(trace);
        QVERIFY(source.holdsAny(gather, {trace}));
        QVERIFY(!source.holdsAny(gather == 0 ? 1 : 0, {trace}));
    }

    void aWindowHasItsOwnOrder()
    {
        OvGatherViewController own(m_document);
        OvGatherViewController other(m_document);
        QVERIFY(Views::show(own));
        QVERIFY(Views::show(other));
        QSignalSpy changed(&own, &OvGatherViewController::gatherOrderChanged);
        own.setGatherOrder(by(OvGatherKey::Receiver));
        QCOMPARE(changed.size(), 1);
        QTRY_VERIFY(own.gatherCount() == 24 && own.isShowingData());
        QCOMPARE(other.gatherCount(), 5);
        QVERIFY2(Views::canvasOf(own)->title().contains(QLatin1String("Receiver position ")),
                 qPrintable(Views::canvasOf(own)->title()));
    }

    void orderingLeavesNothingOnTheStatusBar()
    {
        OvGatherViewController view(m_document);
        QVERIFY(Views::show(view));
        QSignalSpy info(&view, &OvAbstractViewController::outputInfo);
        view.setGatherOrder(by(OvGatherKey::Receiver));
        QCOMPARE(info.last()[0].toString(), QString::fromUtf8("Ordering the traces…"));
        QTRY_VERIFY(view.gatherCount() == 24 && view.isShowingData());
        QCOMPARE(info.last()[0].toString(), QString());
    }

    void theAxisShowsWhatTracesAreSortedBy()
    {
        OvGatherViewController view(m_document);
        QCOMPARE(view.traceLabels().axisWord, int(OvTraceHeaderDefine::Channel));
        view.setGatherOrder(by(OvGatherKey::Receiver, OvGatherSort::AbsoluteOffset));
        QCOMPARE(view.traceLabels().axisWord, int(OvTraceHeaderDefine::Offset));
        // The setting that the project keeps is not touched.
        QCOMPARE(qvariant_cast<OvTraceHeaderDefine>(view.property("TraceHeaderDefine")).axisWord,
                 int(OvTraceHeaderDefine::Channel));
        view.setGatherOrder({});
        QCOMPARE(view.traceLabels().axisWord, int(OvTraceHeaderDefine::Channel));
    }

    void theTraceInViewStaysInView()
    {
        OvGatherViewController view(m_document);
        QVERIFY(Views::show(view));
        view.setCurrentGather(3);
        QTRY_VERIFY(view.isShowingData());
        const qint64 first = Views::canvasOf(view)->gather()->headers.front().traceIndex;
        view.setGatherOrder(by(OvGatherKey::Receiver));
        QTRY_VERIFY(view.gatherCount() == 24 && view.isShowingData());
        const auto traces = tracesOf(*Views::canvasOf(view)->gather());
        QVERIFY(std::find(traces.begin(), traces.end(), first) != traces.end());
        view.setGatherOrder({});
        QTRY_COMPARE(view.gatherCount(), 5);
    }

    void theStripNamesTheKey()
    {
        OvGatherViewController view(m_document);
        QVERIFY(Views::show(view));
        auto* box = view.findChild<QSpinBox*>(QStringLiteral("fieldRecordBox"));
        OvGatherOrder order = by(OvGatherKey::OffsetBin);
        order.binWidthM = 50.0;
        view.setGatherOrder(order);
        QTRY_VERIFY(view.gatherIndex()->order().key == OvGatherKey::OffsetBin);
        QTRY_VERIFY(view.isShowingData());
        QCOMPARE(box->suffix(), QStringLiteral(" m"));
        box->setValue(77); // falls into the bin from 50 on
        QCOMPARE(view.gatherIndex()->keyValue(view.currentGather()), 50.0);
        QCOMPARE(box->value(), 50);
        QTRY_VERIFY(Views::canvasOf(view)->title().contains(QLatin1String("50 - 100 m")));
        QSignalSpy info(&view, &OvAbstractViewController::outputInfo);
        box->setValue(99999);
        QCOMPARE(box->value(), 50);
        QCOMPARE(info.last()[0].toString(), QStringLiteral("Common offset 99999 does not exist."));
    }

    void picksAreEditedAndUndoneInEveryOrder()
    {
        OvGatherViewController view(m_document);
        QVERIFY(Views::show(view));
        view.setGatherOrder(by(OvGatherKey::Receiver, OvGatherSort::FieldRecord));
        QTRY_VERIFY(view.gatherCount() == 24 && view.isShowingData());
        const int gather = widest(view.gatherIndex());
        view.setCurrentGather(gather);
        QTRY_VERIFY(view.isShowingData());
        view.setSnapWindow(0);
        view.setEditing(true);
        QVERIFY(view.isEditing());
        OvGatherCanvas* canvas = Views::canvasOf(view);
        const int traces = canvas->gather()->traceCount();
        QVERIFY(traces >= 4);
        Views::drag(canvas, canvas->pointOf(0, 60.0).toPoint(),
                    canvas->pointOf(traces - 1, 90.0).toPoint(), Qt::LeftButton);
        QCOMPARE(canvas->firstBreaks().pickedCount(), traces);
        int stored = 0;
        for (int shot = 0; shot < 5; ++shot)
            stored += m_document->firstBreaks(shot).pickedCount();
        QCOMPARE(stored, traces);
        view.setGatherOrder({});
        QTRY_VERIFY(view.gatherCount() == 5 && view.isShowingData());
        view.setCurrentGather(4);
        view.undoPickEdit();
        for (int shot = 0; shot < 5; ++shot)
            QCOMPARE(m_document->firstBreaks(shot).pickedCount(), 0);
        QVERIFY(view.currentGather() != 4); // went where the first of the picks was
    }

    void aParallelViewMirrorsTheOrder()
    {
        OvGatherViewController left(m_document);
        OvGatherViewController right(m_document);
        QVERIFY(Views::show(left));
        QVERIFY(Views::show(right));
        OvMultiPlaneViewController both;
        both.setUsedViewControllers({&left, &right});
        both.resize(900, 500);
        both.show();
        QTRY_VERIFY(both.isShowingData());
        left.setGatherOrder(by(OvGatherKey::Receiver));
        QTRY_VERIFY(left.gatherCount() == 24 && left.isShowingData());
        const auto canvases = both.findChildren<OvGatherCanvas*>();
        QTRY_COMPARE(tracesOf(*canvases.first()->gather()),
                     tracesOf(*Views::canvasOf(left)->gather()));
        // Receivers and records have nothing to do with each other.
        const int before = right.currentGather();
        left.setCurrentGather(7);
        QTRY_VERIFY(both.isShowingData());
        QCOMPARE(right.currentGather(), before);
        right.setGatherOrder(by(OvGatherKey::Receiver));
        QTRY_VERIFY(right.gatherCount() == 24);
        left.setCurrentGather(9);
        QTRY_COMPARE(right.currentGather(), 9);
    }

private:
    static int widest(const std::shared_ptr<const OvSegyIndex>& index)
    {
        int best = 0;
        for (int gather = 1; gather < index->gatherCount(); ++gather) {
            if (index->gatherTraceCount(gather) > index->gatherTraceCount(best))
                best = gather;
        }
        return best;
    }
    static int widest(const OvGatherSource& source) { return widest(source.index()); }
};

QTEST_MAIN(tst_OvGatherSource)
#include "tst_OvGatherSource.moc"
