#pragma once

#include "OvSeismic/segy/OvSegyCensus.h"
#include "OvSeismic/segy/OvSegyDoctor.h"
#include "OvSeismic/segy/OvSegyTypes.h"

#include <QCoreApplication>

/// Puts what is known of a file and of the traces that were looked at into findings.
class OvSegyDiagnosis
{
    Q_DECLARE_TR_FUNCTIONS(OvSegyDoctor)

public:
    OvSegyDiagnosis(const OvSegyFileInfo& info, const OvSegyCensus& census,
                    const OvTraceHeaderMapping& mapping);

    /// Worst first, within a severity in the order of the file.
    std::vector<OvSegyFinding> findings() const { return m_findings; }

private:
    using Severity = OvSegyFinding::Severity;

    OvSegyFinding& add(Severity severity, const char* code, const QString& text,
                       const QString& advice = {});
    OvSegyFinding& add(Severity severity, const char* code, const OvSegyCensus::Tally& tally,
                       const QString& text, const QString& advice = {});
    void place(OvSegyFinding* finding, qint64 firstByte, qint64 lastByte) const;
    /// From the first byte of a word of the trace header to the last of another.
    void place(OvSegyFinding* finding, OvTraceHeaderMapping::Quantity first,
               OvTraceHeaderMapping::Quantity last) const;
    QString looked() const;
    void describeFile();
    void describeExtras();
    void takeWarnings();
    void judgeGeometry();
    void judgeOffsets();
    void judgeHeaders();
    void judgeNumbering();
    void judgeMissing();
    void judgeSamples();

    const OvSegyFileInfo& m_info;
    const OvSegyCensus& m_census;
    const OvTraceHeaderMapping& m_mapping;
    std::vector<OvSegyFinding> m_findings;
};
