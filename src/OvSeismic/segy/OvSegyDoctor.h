#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvTraceHeaderMapping.h"

#include <QString>
#include <QtGlobal>

#include <functional>
#include <vector>

class OvSegyFile;

/// One thing that the examination of a SEG-Y file has found.
struct OvSegyFinding
{
    enum class Severity { Info, Warning, Error };

    Severity severity = Severity::Info;
    QString code; ///< the kind of finding, the same in every language: "duplicates", "dead-traces"
    QString text; ///< one translated sentence
    QString advice;         ///< what to do, translated; may be empty
    qint64 firstByte = -1;  ///< byte of the file, from 1 as the standard counts; -1 where none
    qint64 lastByte = -1;   ///< the last byte meant, firstByte or greater; -1 where none
    qint64 firstTrace = -1; ///< the first trace meant, from 0; -1 where none
    qint64 count = 0;       ///< traces, samples or headers that the finding is about; 0: no number
};

/// Examines an open SEG-Y file: how its headers and samples fit together and what is missing.
class OVSEISMIC_EXPORT OvSegyDoctor
{
public:
    enum class Depth {
        Quick, ///< the file headers and a bounded number of traces, however large the file
        Full,  ///< every trace
    };
    /// Called from the thread that runs examine(), at most 20 times a second, with traces done and
    /// in all. Returning false cancels.
    using Progress = std::function<bool(qint64 done, qint64 total)>;

    /// Fills *findings, worst first, within a severity in the order of the file. mapping: where the
    /// words of trace headers lie; a header too short for it is read by the standard places. Reads
    /// from the file, so not on the GUI thread; several may run at once. Fails when it is cancelled
    /// and when the file cannot be read; *findings is then empty.
    static OvStatus examine(const OvSegyFile& file, Depth depth,
                            std::vector<OvSegyFinding>* findings, const Progress& progress = {},
                            const OvTraceHeaderMapping& mapping = OvTraceHeaderMapping());
};
