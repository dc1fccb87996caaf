#pragma once

#include "OvSeismic/segy/OvSegyTypes.h"

/// In which order the bytes of a file's words stand.
struct OvSegyOrder
{
    OvByteOrder order = OvByteOrder::BigEndian;
    /// The byte-order constant says otherwise than the sample format code, which decides.
    bool contradicted = false;

    /// binaryHeader: 400 bytes. traceHeader: 240 bytes of some trace, or empty.
    static OvSegyOrder find(const QByteArray& binaryHeader, const QByteArray& traceHeader);
};
