#pragma once

#include "OvSeismic/segy/OvSegyTypes.h"

class OvPositionalFile;

/// Whether the traces of a file all have the same length, judged from a bounded number of headers.
struct OvSegyTraceLength
{
    bool fixed = true;
    /// The first trace whose header cannot stand where it is looked for, -1 where all looked at
    /// can.
    qint64 damagedTrace = -1;

    /// info is complete for a file of fixed length. stated: what the binary header says of the
    /// length in bytes 3503-3504, where 1 is fixed.
    static OvSegyTraceLength judge(const OvPositionalFile& file, const OvSegyFileInfo& info,
                                   int stated);
};
