#pragma once

#include "OvSeismic/firstbreak/OvFirstBreaks.h"

#include <QMetaType>
#include <QVector>

/// The first break of one trace.
struct OvTracePick
{
    int row = -1;
    float timeMs = OvFirstBreaks::noPick;
    OvPickState state = OvPickState::None;
    float confidence = 0.0F;

    static OvTracePick of(const OvFirstBreaks& breaks, int row)
    {
        const auto i = static_cast<std::size_t>(row);
        return {row, breaks.timesMs[i], breaks.states[i], breaks.confidences[i]};
    }
    static OvTracePick none(int row)
    {
        OvTracePick pick;
        pick.row = row;
        return pick;
    }
    /// A pick made by hand: certain.
    static OvTracePick manual(int row, double timeMs)
    {
        return {row, static_cast<float>(timeMs), OvPickState::Manual, 1.0F};
    }
    bool isPicked() const { return !std::isnan(timeMs); }
    void putInto(OvFirstBreaks* breaks) const
    {
        const auto i = static_cast<std::size_t>(row);
        breaks->timesMs[i] = timeMs;
        breaks->states[i] = state;
        breaks->confidences[i] = confidence;
    }
    bool isSame(const OvTracePick& other) const
    {
        const bool sameTime =
            isPicked() ? !(timeMs < other.timeMs) && !(timeMs > other.timeMs) : !other.isPicked();
        return row == other.row && state == other.state && sameTime &&
               isPicked() == other.isPicked();
    }
};
Q_DECLARE_METATYPE(QVector<OvTracePick>)
