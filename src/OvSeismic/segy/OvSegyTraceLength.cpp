#include "OvSeismic/segy/OvSegyTraceLength.h"

#include "OvSeismic/segy/OvSegyLayout.h"
#include "OvSeismic/segy/OvSegyTraceProbe.h"

namespace {

constexpr qint64 leadingTraces = 4;
constexpr qint64 spreadTraces = 8;
// How many traces of differing length in a row are proof enough.
constexpr int tracesToFollow = 8;

class Judge
{
public:
    Judge(const OvPositionalFile& file, const OvSegyFileInfo& info)
        : m_probe(file, info)
        , m_info(info)
        , m_size(OvSegyLayout::traceSize(info))
    {
    }

    /// Whether one of the next traces has another length by its own header, and headers follow each
    /// other so.
    bool goesOnOtherwise(qint64 trace);
    qint64 someBadTrace();
    /// The first bad one, where bad is one and the traces before the first bad are good.
    qint64 firstBadTrace(qint64 bad);

private:
    bool isGood(qint64 trace)
    {
        return m_probe.read(m_info.firstTraceOffset + trace * m_size) && m_probe.isPlausible();
    }

    OvSegyTraceProbe m_probe;
    const OvSegyFileInfo& m_info;
    qint64 m_size;
};

qint64 Judge::someBadTrace()
{
    const qint64 last = m_info.traceCount - 1;
    for (qint64 trace = 1; trace <= qMin(last, leadingTraces); ++trace) {
        if (!isGood(trace))
            return trace;
    }
    for (qint64 i = 1; i <= spreadTraces && last > leadingTraces; ++i) {
        const qint64 trace = static_cast<qint64>(double(last) * double(i) / spreadTraces);
        if (!isGood(trace))
            return trace;
    }
    return -1;
}

qint64 Judge::firstBadTrace(qint64 bad)
{
    qint64 good = 0;
    while (bad - good > 1) {
        const qint64 middle = good + (bad - good) / 2;
        if (isGood(middle))
            good = middle;
        else
            bad = middle;
    }
    return bad;
}

bool Judge::goesOnOtherwise(qint64 trace)
{
    qint64 position = m_info.firstTraceOffset + trace * m_size;
    bool otherwise = false;
    int followed = 0;
    while (followed < tracesToFollow && m_probe.read(position) && m_probe.isPlausible()) {
        otherwise = otherwise || m_probe.traceBytes() != m_size;
        position += m_probe.traceBytes();
        ++followed;
    }
    const bool toTheEnd = position == m_info.tracesEnd;
    return otherwise && (toTheEnd || followed == tracesToFollow);
}

} // namespace

OvSegyTraceLength OvSegyTraceLength::judge(const OvPositionalFile& file, const OvSegyFileInfo& info,
                                           int stated)
{
    const qint64 size = OvSegyLayout::traceSize(info);
    const bool exact = info.firstTraceOffset + info.traceCount * size == info.tracesEnd;
    constexpr int statedFixed = 1;
    if (exact && (stated == statedFixed || info.traceCount == 1))
        return {};
    Judge judge(file, info);
    const qint64 bad = judge.someBadTrace();
    if (bad < 0)
        return {exact || !judge.goesOnOtherwise(info.traceCount - 1), -1};
    const qint64 first = judge.firstBadTrace(bad);
    // The trace before the first bad header is the one whose length is not the usual one.
    return judge.goesOnOtherwise(first - 1) ? OvSegyTraceLength{false, -1}
                                            : OvSegyTraceLength{true, first};
}
