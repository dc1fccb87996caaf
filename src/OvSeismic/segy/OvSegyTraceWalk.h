#pragma once

#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvSegyTypes.h"
#include "OvSeismic/segy/OvTraceLocator.h"

#include <functional>

class OvPositionalFile;

/// A walk from trace header to trace header through a file whose traces differ in length.
struct OvSegyTraceWalk
{
    OvTraceLocator locator;
    QStringList warnings; ///< translated: why the walk ended before the end of the file
    bool complete = false;

    /// Locates traces from the first on, no more than maxTraces. info: as OvSegyLayout gives it.
    /// progress: bytes done and in all, at most 20 times a second; false cancels. May throw
    /// std::bad_alloc.
    OvStatus run(const OvPositionalFile& file, const OvSegyFileInfo& info, qint64 maxTraces,
                 const std::function<bool(qint64 done, qint64 total)>& progress);
};
