#include "OvSeismic/picking/OvPickTeacher.h"

#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"

#include <algorithm>

namespace {

bool hasManual(const OvFirstBreaks& breaks)
{
    return std::find(breaks.states.begin(), breaks.states.end(), OvPickState::Manual) !=
           breaks.states.end();
}

void addPicks(const OvGather& headers, const OvFirstBreaks& breaks, OvPickPriorBuilder* builder)
{
    for (int row = 0; row < breaks.size(); ++row) {
        const auto i = static_cast<std::size_t>(row);
        if (breaks.hasPick(row) && breaks.states[i] != OvPickState::Rejected)
            builder->add(headers.headers[i], static_cast<double>(breaks.timesMs[i]));
    }
}

} // namespace

OvPickTeacher::OvPickTeacher(const OvSegyFile& segy, const OvSegyIndex& index)
    : m_segy(segy)
    , m_index(index)
{
}

OvStatus OvPickTeacher::readGather(const OvFirstBreakFile& file, int gather, OvGather* headers,
                                   OvFirstBreaks* breaks) const
{
    OvStatus status = file.read(m_index.gatherTraces(gather), breaks);
    if (!breaks->isEmpty())
        *headers = m_index.gatherHeaders(m_segy, gather);
    return status;
}

OvStatus OvPickTeacher::learn(const OvFirstBreakFile& file, int except,
                              const std::atomic<bool>* cancel)
{
    OvStatus status;
    for (int gather = 0; gather < m_index.gatherCount() && status; ++gather) {
        if (cancel && *cancel)
            break;
        if (gather == except)
            continue;
        OvGather headers;
        OvFirstBreaks breaks;
        status = readGather(file, gather, &headers, &breaks);
        if (status)
            addPicks(headers, breaks, hasManual(breaks) ? &m_lookedAt : &m_automatic);
    }
    return status;
}

OvStatus OvPickTeacher::learnGather(const OvFirstBreakFile& file, int gather)
{
    OvGather headers;
    OvFirstBreaks breaks;
    OvStatus status = readGather(file, gather, &headers, &breaks);
    if (status)
        addPicks(headers, breaks, &m_lookedAt);
    return status;
}

std::shared_ptr<const OvPickPrior> OvPickTeacher::prior() const
{
    const auto lookedAt = m_lookedAt.build();
    return lookedAt ? lookedAt : m_automatic.build();
}
