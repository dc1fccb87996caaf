#include "OvSeismic/picking/OvSlopeCourse.h"

#include "GuidedGather.h"
#include "OvSeismic/picking/OvRowMixer.h"

#include <QtTest>

#include <cmath>

/// Waves of known slopes that no single trace shows.
class tst_OvSlopeCourse : public QObject
{
    Q_OBJECT

private slots:
    void findsWhatTheGuideDoesNot();
    void waysAreUnknownWithoutOffsets();
    void stopsWhenCancelled();
};

namespace {

constexpr int rowCount = 60;

struct Setup : GuidedGather
{
    OvRowMixer mixer;
    OvSlopeCourse course;

    explicit Setup(double noise)
        : GuidedGather(rowCount)
    {
        synthetic.addNoise(noise, 3);
        prepare();
    }

    void prepare()
    {
        load();
        guide.find(grid, chain, {});
        mixer.load(guide, grid, std::vector<float>(rowCount, 1.0F));
    }

    bool find(const OvOnsetLimits& limits = {})
    {
        return course.find(&mixer, chain, limits, guide.times());
    }

    // Rows whose point lies no farther than a third of a period from the arrival.
    int right(const std::vector<double>& points) const
    {
        int count = 0;
        for (int link = 0; link < rowCount; ++link)
            count += std::abs(points[at(link)] - onset(link)) < 7.0 ? 1 : 0;
        return count;
    }
};

} // namespace

void tst_OvSlopeCourse::findsWhatTheGuideDoesNot()
{
    Setup setup(1.2);
    QVERIFY(setup.find());
    const int before = setup.right(setup.guide.times());
    const int after = setup.right(setup.course.times());
    QVERIFY2(after >= 40 && after > before + 20,
             qPrintable(QStringLiteral("%1, %2").arg(before).arg(after)));
}

// Channels run towards the shot, and nothing says so.
void tst_OvSlopeCourse::waysAreUnknownWithoutOffsets()
{
    Setup setup(1.2);
    OvGather& gather = setup.synthetic.gather;
    std::vector<float> turned;
    for (int row = rowCount - 1; row >= 0; --row)
        turned.insert(turned.end(), gather.trace(row), gather.trace(row) + gather.sampleCount);
    gather.samples = turned;
    std::reverse(setup.synthetic.onsetsMs.begin(), setup.synthetic.onsetsMs.end());
    for (OvTraceHeader& header : gather.headers)
        header.offset = std::numeric_limits<float>::quiet_NaN();
    setup.prepare();
    QVERIFY(!setup.chain.hasOffsets);
    QVERIFY(setup.find());
    const int found = setup.right(setup.course.times());
    QVERIFY2(found >= 28, qPrintable(QString::number(found)));
}

void tst_OvSlopeCourse::stopsWhenCancelled()
{
    Setup setup(0.5);
    const std::atomic<bool> cancel{true};
    OvOnsetLimits limits;
    limits.cancel = &cancel;
    QVERIFY(!setup.find(limits));
    QVERIFY(setup.find());
    QVERIFY(setup.right(setup.course.times()) >= 55);
}

QTEST_GUILESS_MAIN(tst_OvSlopeCourse)
#include "tst_OvSlopeCourse.moc"
