#include "OvGui/canvas/OvTraceAxis.h"

#include "Gathers.h"
#include "OvBase/OvDisplayDefine.h"

#include <QFontMetrics>
#include <QtTest>

class tst_OvTraceAxis : public QObject
{
    Q_OBJECT

private:
    static std::shared_ptr<const OvGather> line()
    {
        OvGather gather = Gathers::silent(60, 10, 1.0);
        for (int row = 0; row < 60; ++row) {
            OvTraceHeader& header = gather.headers[static_cast<std::size_t>(row)];
            header.traceIndex = 1000 + row;
            header.offset = static_cast<float>(-150.5 + 5.0 * row);
            header.receiverX = 250.0 + 5.0 * row;
            header.cdp = 300 - row;
        }
        return std::make_shared<const OvGather>(gather);
    }

    static OvViewState viewOf(const OvGather& gather)
    {
        OvViewState state;
        state.setViewSize({600.0, 100.0});
        state.setExtent(OvGatherExtent::of(gather));
        state.fit();
        return state;
    }

private slots:
    void wordsAndTitles_data()
    {
        QTest::addColumn<int>("word");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("third");
        QTest::newRow("channel") << int(OvTraceHeaderDefine::Channel) << "Channel"
                                 << "3";
        QTest::newRow("offset") << int(OvTraceHeaderDefine::Offset) << "Offset (m)"
                                << "-140.5";
        QTest::newRow("receiver") << int(OvTraceHeaderDefine::ReceiverX) << "Receiver X"
                                  << "260";
        QTest::newRow("trace") << int(OvTraceHeaderDefine::TraceNumber) << "Trace number"
                               << "1003";
        QTest::newRow("cdp") << int(OvTraceHeaderDefine::Cdp) << "CDP"
                             << "298";
    }

    void wordsAndTitles()
    {
        QFETCH(int, word);
        QFETCH(QString, title);
        QFETCH(QString, third);
        const OvTraceAxis axis(line(), word);
        QCOMPARE(axis.title(), title);
        QCOMPARE(axis.label(2), third);
    }

    void labelsDoNotOverlap()
    {
        const QFontMetrics metrics{QFont()};
        const auto gather = line();
        const OvViewState state = viewOf(*gather);
        for (int word = OvTraceHeaderDefine::Channel; word <= OvTraceHeaderDefine::Cdp; ++word) {
            const auto ticks = OvTraceAxis(gather, word).ticks(state, metrics);
            QVERIFY(ticks.size() >= 3);
            for (int i = 1; i < ticks.size(); ++i) {
                const double apart = state.xOfRow(ticks[i].row) - state.xOfRow(ticks[i - 1].row);
                QVERIFY(apart > metrics.boundingRect(ticks[i].label).width());
            }
        }
    }

    void countingWordsAreLabelledAtRoundValues()
    {
        const auto gather = line();
        const OvViewState state = viewOf(*gather);
        for (const int word : {int(OvTraceHeaderDefine::Channel), int(OvTraceHeaderDefine::Cdp)}) {
            const auto ticks = OvTraceAxis(gather, word).ticks(state, QFontMetrics{QFont()});
            for (const auto& tick : ticks)
                QCOMPARE(tick.label.toInt() % 5, 0);
        }
    }

    void unknownOffsetsHaveNoLabel()
    {
        OvGather gather = *line();
        gather.headers[0].offset = std::numeric_limits<float>::quiet_NaN();
        const OvTraceAxis axis(std::make_shared<const OvGather>(gather),
                               OvTraceHeaderDefine::Offset);
        QCOMPARE(axis.label(0), QString());
        QCOMPARE(axis.label(1), QString("-145.5"));
    }

    void aFileWithoutOffsetsSaysSo()
    {
        OvGather gather = *line();
        for (OvTraceHeader& header : gather.headers)
            header.offset = std::numeric_limits<float>::quiet_NaN();
        const auto shared = std::make_shared<const OvGather>(gather);
        QCOMPARE(OvTraceAxis(shared, OvTraceHeaderDefine::Offset).title(),
                 QString("Offset (m), not in the file"));
        QCOMPARE(OvTraceAxis(shared, OvTraceHeaderDefine::Channel).title(), QString("Channel"));
    }

    void noGatherNoTicks()
    {
        QVERIFY(OvTraceAxis().ticks(OvViewState(), QFontMetrics{QFont()}).isEmpty());
    }
};

QTEST_MAIN(tst_OvTraceAxis)
#include "tst_OvTraceAxis.moc"
