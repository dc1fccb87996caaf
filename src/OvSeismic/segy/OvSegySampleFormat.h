#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/segy/OvSegyTypes.h"

#include <QString>

/// The codes of the formats that the standard defines.
namespace OvSegyFormat {

enum Code {
    Ibm = 1,
    Int32 = 2,
    Int16 = 3,
    FixedPoint = 4, ///< with gain; obsolete
    Ieee = 5,
    Double = 6,
    Int24 = 7,
    Int8 = 8,
    Int64 = 9,
    UInt32 = 10,
    UInt16 = 11,
    UInt64 = 12,
    UInt24 = 15,
    UInt8 = 16,
};

} // namespace OvSegyFormat

/// One data sample format of the SEG-Y standard, by its code in bytes 3225-3226.
struct OvSegySampleFormat
{
    int code = 0;
    int bytes = 0;          ///< bytes a sample; 0 for a code that the standard does not define
    bool supported = false; ///< whether the program reads it
};

OVSEISMIC_EXPORT OvSegySampleFormat ovSegySampleFormat(int code);

/// The name of a sample format, translated; for an unknown code a name with the number in it.
OVSEISMIC_EXPORT QString ovSegyFormatName(int code);

/// The name of a byte order, translated: "big-endian".
OVSEISMIC_EXPORT QString ovSegyByteOrderName(OvByteOrder order);
