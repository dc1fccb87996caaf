#include "OvGui/canvas/OvGatherRenderer.h"

#include "Gathers.h"
#include "OvGui/canvas/OvColorMap.h"

#include <QtTest>

namespace {

constexpr int traces = 11;
constexpr int samples = 101;
constexpr int spikeRow = 5;
constexpr int spikeSample = 60;

OvDisplayDefine defineOf(OvDisplayDefine::Mode mode)
{
    OvDisplayDefine define;
    define.mode = mode;
    return define;
}

// 20 pixels a trace, 2 pixels a sample of 1 ms; sample centres lie on pixel edges 0, 2, 4 ...
OvTileGeometry wholeGather()
{
    OvTileGeometry geometry;
    geometry.width = traces * 20;
    geometry.height = 200;
    geometry.spacing = 20.0;
    geometry.pixelsPerMs = 2.0;
    return geometry;
}

QImage draw(const OvGather& gather, const OvDisplayDefine& define,
            const OvTileGeometry& geometry = wholeGather())
{
    const OvDrawnGather drawn(std::make_shared<const OvGather>(gather), define);
    return OvGatherRenderer::render(drawn, define, geometry);
}

bool isInked(const QImage& image, int x, int y)
{
    return qGray(image.pixel(x, y)) < 200;
}

// How far ink of a trace reaches from its middle in pixel row y, to the right (or to the left); the
// lines of the neighbours do not count.
int reach(const QImage& image, int row, int y, int direction)
{
    const QImage silence =
        draw(Gathers::silent(traces, samples, 1.0), defineOf(OvDisplayDefine::Wiggle));
    int distance = 0;
    const int middle = row * 20 + 10;
    for (int x = middle; x >= 0 && x < image.width(); x += direction)
        if (isInked(image, x, y) && !isInked(silence, x, y))
            distance = qAbs(x - middle);
    return distance;
}

} // namespace

class tst_OvGatherRenderer : public QObject
{
    Q_OBJECT

private slots:
    void wiggleSwingsAtTheSample()
    {
        const QImage image = draw(Gathers::spike(traces, samples, spikeRow, spikeSample, 5.0F),
                                  defineOf(OvDisplayDefine::Wiggle));
        const int y = spikeSample * 2;
        QVERIFY2(reach(image, spikeRow, y, 1) >= 18, "an amplitude of 1 swings one trace spacing");
        QVERIFY(reach(image, spikeRow, y, -1) <= 1);
        QVERIFY(reach(image, spikeRow, y - 4, 1) <= 1); // two samples off
        QVERIFY(reach(image, spikeRow, y + 4, 1) <= 1);
        QVERIFY(isInked(image, 10, 30)); // silent traces are lines
    }

    void wigglesAreHollow()
    {
        OvGather gather = Gathers::silent(traces, samples, 1.0);
        std::fill(gather.trace(spikeRow) + 40, gather.trace(spikeRow) + 60, 1.0F);
        const int x = spikeRow * 20 + 20; // half way to the plateau
        QVERIFY(!isInked(draw(gather, defineOf(OvDisplayDefine::Wiggle)), x, 100));
        QVERIFY(isInked(draw(gather, defineOf(OvDisplayDefine::VariableArea)), x, 100));
        QVERIFY(isInked(draw(gather, defineOf(OvDisplayDefine::WiggleVariableArea)), x, 100));
    }

    void variableAreaFillsPositiveSwingsOnly()
    {
        const QImage positive = draw(Gathers::spike(traces, samples, spikeRow, spikeSample, 5.0F),
                                     defineOf(OvDisplayDefine::VariableArea));
        const int y = spikeSample * 2;
        for (int x = spikeRow * 20 + 11; x < spikeRow * 20 + 20; ++x)
            QVERIFY2(isInked(positive, x, y), qPrintable(QString::number(x)));
        QVERIFY(!isInked(positive, 10, 30));
        const QImage negative = draw(Gathers::spike(traces, samples, spikeRow, spikeSample, -5.0F),
                                     defineOf(OvDisplayDefine::VariableArea));
        QCOMPARE(reach(negative, spikeRow, y, 1), 0);
        QCOMPARE(reach(negative, spikeRow, y, -1), 0);
    }

    void wiggleAndAreaTogether()
    {
        const QImage image = draw(Gathers::spike(traces, samples, spikeRow, spikeSample, -5.0F),
                                  defineOf(OvDisplayDefine::WiggleVariableArea));
        const int y = spikeSample * 2;
        QVERIFY(reach(image, spikeRow, y, -1) >= 18);
        QVERIFY(reach(image, spikeRow, y, 1) <= 1);
        const QImage positive = draw(Gathers::spike(traces, samples, spikeRow, spikeSample, 5.0F),
                                     defineOf(OvDisplayDefine::WiggleVariableArea));
        QVERIFY(isInked(positive, spikeRow * 20 + 14, y));
    }

    void densityColoursTheCell_data()
    {
        QTest::addColumn<int>("map");
        QTest::addColumn<QColor>("positive");
        QTest::addColumn<QColor>("zero");
        QTest::newRow("grey") << int(OvDisplayDefine::Grey) << QColor(0, 0, 0)
                              << QColor(128, 128, 128);
        QTest::newRow("black white red")
            << int(OvDisplayDefine::BlackWhiteRed) << QColor(200, 0, 0) << QColor(255, 255, 255);
        QTest::newRow("blue white red")
            << int(OvDisplayDefine::BlueWhiteRed) << QColor(190, 10, 30) << QColor(255, 255, 255);
    }

    void densityColoursTheCell()
    {
        QFETCH(int, map);
        QFETCH(QColor, positive);
        QFETCH(QColor, zero);
        OvDisplayDefine define = defineOf(OvDisplayDefine::VariableDensity);
        define.colorMap = map;
        OvGather gather = Gathers::spike(traces, samples, spikeRow, spikeSample, 5.0F);
        gather.trace(spikeRow)[spikeSample + 1] = 5.0F;
        const QImage image = draw(gather, define);
        const int y = spikeSample * 2 + 1; // between the two equal samples
        QCOMPARE(QColor(image.pixel(spikeRow * 20 + 1, y)), positive);
        QCOMPARE(QColor(image.pixel(spikeRow * 20 + 18, y)), positive);
        QCOMPARE(QColor(image.pixel(spikeRow * 20 - 2, y)), zero);
        QCOMPARE(QColor(image.pixel(spikeRow * 20 + 10, y + 6)), zero);
    }

    void polarityTurnsThePictureOver()
    {
        OvDisplayDefine define = defineOf(OvDisplayDefine::Wiggle);
        define.reversePolarity = true;
        const QImage image =
            draw(Gathers::spike(traces, samples, spikeRow, spikeSample, 5.0F), define);
        QVERIFY(reach(image, spikeRow, spikeSample * 2, -1) >= 18);
        QVERIFY(reach(image, spikeRow, spikeSample * 2, 1) <= 1);
    }

    void gainScalesAndClipBounds()
    {
        const OvGather gather = Gathers::spike(traces, samples, spikeRow, spikeSample, 5.0F);
        OvDisplayDefine define = defineOf(OvDisplayDefine::Wiggle);
        define.gainDb = -6.0206;
        const int half = reach(draw(gather, define), spikeRow, spikeSample * 2, 1);
        QVERIFY2(qAbs(half - 10) <= 1, qPrintable(QString::number(half)));
        define.gainDb = 40.0;
        define.clip = 1.5;
        const int clipped = reach(draw(gather, define), spikeRow, spikeSample * 2, 1);
        QVERIFY2(qAbs(clipped - 30) <= 1, qPrintable(QString::number(clipped)));
    }

    void scalingIsByTraceOrByGather()
    {
        OvGather gather = Gathers::silent(traces, samples, 1.0);
        gather.trace(2)[spikeSample] = 100.0F;
        gather.trace(8)[spikeSample] = 25.0F;
        OvDisplayDefine define = defineOf(OvDisplayDefine::Wiggle);
        define.scaling = OvDisplayDefine::PerTrace;
        QVERIFY(reach(draw(gather, define), 8, spikeSample * 2, 1) >= 18);
        define.scaling = OvDisplayDefine::PerGather;
        const QImage byGather = draw(gather, define);
        QVERIFY(reach(byGather, 2, spikeSample * 2, 1) >= 18);
        QVERIFY(qAbs(reach(byGather, 8, spikeSample * 2, 1) - 5) <= 1);
    }

    void agcRaisesWeakArrivals()
    {
        std::vector<float> trace(400, 0.0F);
        for (std::size_t i = 0; i < trace.size(); ++i)
            trace[i] = (i % 2 == 0 ? 1.0F : -1.0F) * (i < 200 ? 1000.0F : 1.0F);
        OvDrawnGather::applyAgc(trace.data(), 400, 21);
        QVERIFY(qAbs(qAbs(trace[50]) - 1.0F) < 1e-3F);
        QVERIFY(qAbs(qAbs(trace[350]) - 1.0F) < 1e-3F);
        std::vector<float> silence(50, 0.0F);
        OvDrawnGather::applyAgc(silence.data(), 50, 11);
        QCOMPARE(silence, std::vector<float>(50, 0.0F));
    }

    void referenceIgnoresSilenceAndOutliers()
    {
        std::vector<float> trace(1000, 0.0F);
        QCOMPARE(OvDrawnGather::reference(trace.data(), trace.size()), 0.0F);
        std::fill(trace.begin() + 500, trace.end(), -2.0F);
        trace[999] = 1e6F;
        QCOMPARE(OvDrawnGather::reference(trace.data(), trace.size()), 2.0F);
    }

    void samplesThatAreNoNumbersAreSilence()
    {
        OvGather gather = Gathers::spike(traces, samples, spikeRow, spikeSample, 5.0F);
        gather.trace(1)[10] = std::numeric_limits<float>::quiet_NaN();
        gather.trace(1)[11] = std::numeric_limits<float>::infinity();
        const OvDrawnGather drawn(std::make_shared<const OvGather>(gather), OvDisplayDefine());
        for (int i = 0; i < samples; ++i)
            QCOMPARE(drawn.trace(1)[i], 0.0F);
        QVERIFY(reach(draw(gather, defineOf(OvDisplayDefine::Wiggle)), spikeRow, spikeSample * 2,
                      1) >= 18);
    }

    void deadTracesAreHatchedNotDrawn_data()
    {
        QTest::addColumn<int>("mode");
        QTest::newRow("wiggle") << int(OvDisplayDefine::WiggleVariableArea);
        QTest::newRow("density") << int(OvDisplayDefine::VariableDensity);
    }

    void deadTracesAreHatchedNotDrawn()
    {
        QFETCH(int, mode);
        OvGather gather = Gathers::spike(traces, samples, spikeRow, spikeSample, 5.0F);
        gather.headers[spikeRow].traceId = 2;
        const QImage image = draw(gather, defineOf(static_cast<OvDisplayDefine::Mode>(mode)));
        int hatched = 0;
        for (int x = spikeRow * 20 + 3; x < spikeRow * 20 + 17; ++x) {
            const int grey = qGray(image.pixel(x, spikeSample * 2));
            QVERIFY2(grey == 0xe2 || grey == 0xc2, qPrintable(QString::number(grey)));
            hatched += grey == 0xc2 ? 1 : 0;
        }
        QVERIFY(hatched >= 2);
    }

    void deadTracesEndWithTheirSamples_data() { deadTracesAreHatchedNotDrawn_data(); }

    void deadTracesEndWithTheirSamples()
    {
        QFETCH(int, mode);
        OvGather gather = Gathers::silent(traces, samples / 2, 1.0);
        gather.headers[spikeRow].traceId = 2;
        gather.headers[spikeRow].delayMs = 10.0F;
        const QImage image = draw(gather, defineOf(static_cast<OvDisplayDefine::Mode>(mode)));
        const auto isHatched = [&image](int y) {
            return qGray(image.pixel(spikeRow * 20 + 10, y)) < 0xf0;
        };
        const int last = (10 + samples / 2 - 1) * 2;
        QVERIFY(!isHatched(10 * 2 - 1));
        QVERIFY(isHatched(10 * 2));
        QVERIFY(isHatched(last - 1));
        QVERIFY(!isHatched(last));
    }

    void delaysMoveTraces()
    {
        OvGather gather = Gathers::spike(traces, samples, spikeRow, spikeSample, 5.0F);
        gather.headers[spikeRow].delayMs = -20.0F;
        const QImage image = draw(gather, defineOf(OvDisplayDefine::Wiggle));
        QVERIFY(reach(image, spikeRow, (spikeSample - 20) * 2, 1) >= 18);
        QVERIFY(reach(image, spikeRow, spikeSample * 2, 1) <= 1);
    }

    void noSampleIsSkippedWhereManyShareAPixel_data()
    {
        QTest::addColumn<int>("sample");
        for (const int sample : {5003, 5017, 5031, 5049})
            QTest::newRow(qPrintable(QString::number(sample))) << sample;
    }

    void noSampleIsSkippedWhereManyShareAPixel()
    {
        QFETCH(int, sample);
        OvTileGeometry geometry = wholeGather();
        geometry.pixelsPerMs = 0.02; // 50 samples a pixel
        const QImage image = draw(Gathers::spike(traces, 10000, spikeRow, sample, 5.0F),
                                  defineOf(OvDisplayDefine::Wiggle), geometry);
        QVERIFY(reach(image, spikeRow, 100, 1) >= 18 || reach(image, spikeRow, 99, 1) >= 18 ||
                qGray(image.pixel(spikeRow * 20 + 25, 100)) < 255);
    }

    void tilesJoinWithoutASeam()
    {
        OvGather gather = Gathers::silent(40, 400, 1.0);
        for (int row = 0; row < 40; ++row)
            for (int i = 0; i < 400; ++i)
                gather.trace(row)[i] =
                    static_cast<float>(std::sin(i * 0.21 + row * 0.4) * (row + 1));
        for (const auto mode :
             {OvDisplayDefine::WiggleVariableArea, OvDisplayDefine::VariableDensity}) {
            OvTileGeometry whole;
            whole.width = 320;
            whole.height = 256;
            whole.left = 3.0;
            whole.topMs = 20.0;
            const QImage at = draw(gather, defineOf(mode), whole);
            OvTileGeometry part = whole;
            part.width = 96;
            part.height = 64;
            part.left = whole.traceAt(128);
            part.topMs = whole.timeAt(64);
            QCOMPARE(draw(gather, defineOf(mode), part), at.copy(128, 64, 96, 64));
        }
    }

    void colourMapsEndAtFullAmplitude()
    {
        const OvColorMap map(OvDisplayDefine::BlueWhiteRed);
        QCOMPARE(map.color(1.0F), map.color(7.0F));
        QCOMPARE(map.color(-1.0F), map.color(-1e6F));
        QVERIFY(map.color(-1.0F) != map.color(1.0F));
    }

    void anEmptyGatherIsWhitePaper()
    {
        const QImage image = draw(Gathers::silent(0, 0, 1.0), OvDisplayDefine());
        QCOMPARE(image.pixel(50, 50), 0xffffffffU);
    }
};

QTEST_MAIN(tst_OvGatherRenderer)
#include "tst_OvGatherRenderer.moc"
