#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <QString>

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
