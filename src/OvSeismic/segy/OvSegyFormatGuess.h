#pragma once

#include "OvSeismic/segy/OvSegyTypes.h"

class OvPositionalFile;

/// Tells the two 4-byte floating-point formats apart by the samples, because some writers declare
/// the one and write the other.
struct OvSegyFormatGuess
{
    /// 1 or 5 where the samples look so and the file declares the other; else what it declares.
    int code = 0;
    bool certain = false; ///< several traces speak for it

    /// Looks at a bounded number of traces. info: as the headers say.
    static OvSegyFormatGuess of(const OvPositionalFile& file, const OvSegyFileInfo& info);
};
