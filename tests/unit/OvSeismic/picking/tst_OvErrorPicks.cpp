#include "OvSeismic/picking/OvErrorPicks.h"

#include "OvSeismic/dsp/OvDominantPeriod.h"
#include "OvSeismic/firstbreak/OvFirstBreaks.h"
#include "SyntheticGather.h"

#include <QtTest>

class tst_OvErrorPicks : public QObject
{
    Q_OBJECT

private:
    // Picks 1 ms about the true onsets.
    static OvFirstBreaks goodPicks(const SyntheticGather& line)
    {
        OvFirstBreaks breaks;
        breaks.resize(line.gather.traceCount());
        for (std::size_t row = 0; row < line.onsetsMs.size(); ++row) {
            const double jitter = static_cast<double>(row * 7 % 5) * 0.5 - 1.0;
            breaks.timesMs[row] = static_cast<float>(line.onsetsMs[row] + jitter);
            breaks.states[row] = OvPickState::Automatic;
            breaks.confidences[row] = 0.9F;
        }
        return breaks;
    }

    static double periodAfterOnset(const SyntheticGather& line)
    {
        const auto onset = static_cast<int>(line.gather.sampleAt(20, line.onsetsMs[20]));
        return 2.0 * ovDominantPeriod(line.gather.trace(20), onset, onset + 50);
    }

private slots:
    void goodPicksAreSpared()
    {
        const SyntheticGather line(48);
        QCOMPARE(OvErrorPicks::find(line.gather, goodPicks(line)), std::vector<int>());
    }

    void plantedErrorsAreFound()
    {
        const SyntheticGather line(48);
        OvFirstBreaks breaks = goodPicks(line);
        const std::vector<int> wrong{0, 9, 10, 11, 30, 47};
        for (const int row : wrong)
            breaks.timesMs[static_cast<std::size_t>(row)] += row % 2 == 0 ? 40.0F : -25.0F;
        QCOMPARE(OvErrorPicks::find(line.gather, breaks), wrong);
    }

    // Two cables whose statics differ by more than two periods.
    void eachCableHasACourseOfItsOwn()
    {
        SyntheticGather line(40);
        for (int row = 0; row < 40; ++row) {
            const auto i = static_cast<std::size_t>(row);
            OvTraceHeader& header = line.gather.headers[i];
            header.receiverX = 10.0 * (row % 20 + 1);
            header.receiverY = row < 20 ? 5.0 : 105.0;
            header.offset = static_cast<float>(std::hypot(header.receiverX, header.receiverY));
            line.silence(row);
            line.onsetsMs[i] = 30.0 + 0.5 * static_cast<double>(header.offset) + 100.0 * (row / 20);
            line.add(row, line.onsetsMs[i], 1.0, 25.0);
        }
        OvFirstBreaks breaks = goodPicks(line);
        QCOMPARE(OvErrorPicks::find(line.gather, breaks), std::vector<int>());
        breaks.timesMs[8] += 100.0F; // as on the other cable
        breaks.timesMs[33] -= 45.0F;
        QCOMPARE(OvErrorPicks::find(line.gather, breaks), (std::vector<int>{8, 33}));
        for (const int row : {20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35, 36})
            breaks.states[static_cast<std::size_t>(row)] = OvPickState::Rejected;
        QCOMPARE(OvErrorPicks::find(line.gather, breaks), std::vector<int>{8});
    }

    void theShotInTheMiddleAndABendAreNoErrors()
    {
        SyntheticGather line(48);
        OvFirstBreaks breaks = goodPicks(line);
        for (int row = 0; row < 48; ++row) {
            const auto i = static_cast<std::size_t>(row);
            const float offset = 20.0F * static_cast<float>(row - 24);
            line.gather.headers[i].offset = offset;
            const float distance = std::abs(offset);
            breaks.timesMs[i] = std::min(distance, 120.0F + 0.3F * (distance - 120.0F));
        }
        QCOMPARE(OvErrorPicks::find(line.gather, breaks), std::vector<int>());
        breaks.timesMs[24] += 30.0F;
        QCOMPARE(OvErrorPicks::find(line.gather, breaks), std::vector<int>{24});
    }

    void lowConfidenceIsAllowedLess()
    {
        const SyntheticGather line(48);
        OvFirstBreaks breaks = goodPicks(line);
        const double tolerance = periodAfterOnset(line) / 2.0;
        breaks.timesMs[20] = static_cast<float>(line.onsetsMs[20] + 0.8 * tolerance);
        QCOMPARE(OvErrorPicks::find(line.gather, breaks), std::vector<int>());
        breaks.confidences[20] = 0.02F;
        QCOMPARE(OvErrorPicks::find(line.gather, breaks), std::vector<int>{20});
    }

    void manualPicksAreNeverNamedAndRejectedOnesLeftOut()
    {
        const SyntheticGather line(48);
        OvFirstBreaks breaks = goodPicks(line);
        breaks.timesMs[15] += 60.0F;
        breaks.states[15] = OvPickState::Manual;
        for (std::size_t row = 30; row < 38; ++row) {
            breaks.timesMs[row] += 60.0F;
            breaks.states[row] = OvPickState::Rejected;
        }
        QCOMPARE(OvErrorPicks::find(line.gather, breaks), std::vector<int>());
    }

    void fewPicksAreNoLine()
    {
        const SyntheticGather line(3);
        OvFirstBreaks breaks = goodPicks(line);
        breaks.timesMs[1] += 100.0F;
        QCOMPARE(OvErrorPicks::find(line.gather, breaks), std::vector<int>());
        QCOMPARE(OvErrorPicks::find(line.gather, OvFirstBreaks()), std::vector<int>());
    }
};

QTEST_GUILESS_MAIN(tst_OvErrorPicks)
#include "tst_OvErrorPicks.moc"
