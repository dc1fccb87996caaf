#pragma once

#include "OvSeismic/segy/OvSegyColumns.h"
#include "OvSeismic/segy/OvSegyGrouping.h"
#include "OvSeismic/segy/OvSegyIndex.h"

#include <QCoreApplication>

struct OvSegyIndex::Private
{
    Q_DECLARE_TR_FUNCTIONS(OvSegyIndex)

public:
    OvStatus tooMany(const OvSegyFile& file) const;
    OvStatus noMemory(const OvSegyFile& file) const;
    OvStatus noGather(const OvSegyFile& file, int gather) const;
    OvStatus scan(const OvSegyFile& file, const Progress& progress);
    OvStatus scanFirstGather(const OvSegyFile& file, qint64 maxTraces);
    /// Takes the words of all traces and forms the gathers.
    void finish(OvSegyColumns&& all);
    /// As finish(), with words that have been through it before.
    void take(OvSegyColumns&& finished);
    bool hasGather(int gather) const { return gather >= 0 && gather < grouping.gatherCount(); }
    qint64 firstTrace(int gather) const { return grouping.trace(gather, 0); }
    /// Of a gather's traces in row order; none when there is no such gather.
    std::vector<OvTraceHeader> headers(int gather) const;
    void sortRows(std::vector<OvTraceHeader>* headers) const;
    /// The number that gathers by CDP or offset are sorted by.
    qint64 sortedKey(qint64 trace) const;
    int gatherOfSortedKey(qint64 key) const;
    /// m; NaN where the offset is unknown.
    double binStart(qint64 trace) const;
    QString positionLabel(int gather, OvSegyColumns::Column x, OvSegyColumns::Column y) const;
    QString binLabel(int gather) const;
    QString joinedWarning() const;

    OvTraceHeaderMapping mapping;
    OvGatherOrder order;
    std::shared_ptr<const OvSegyColumns> columns = std::make_shared<OvSegyColumns>();
    OvSegyGrouping grouping;
};
