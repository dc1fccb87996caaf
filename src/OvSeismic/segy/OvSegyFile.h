#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvSegyTypes.h"

#include <functional>
#include <memory>
#include <vector>

struct OvGather;
struct OvSegyTraceWords;

/// A SEG-Y file opened for reading. The file is never written.
///
/// open() reads and checks the file headers only. After it has succeeded every const operation may
/// be called from several threads at once.
class OVSEISMIC_EXPORT OvSegyFile
{
public:
    OvSegyFile();
    ~OvSegyFile();
    OvSegyFile(const OvSegyFile&) = delete;
    OvSegyFile& operator=(const OvSegyFile&) = delete;

    /// Opens path. Refuses what is no readable SEG-Y file with a message that names the file, the
    /// reason and, where it helps, what to do. A failed open leaves this object closed.
    OvStatus open(const QString& path);
    void close();
    bool isOpen() const;

    const OvSegyFileInfo& info() const;
    /// The first textual header: 40 lines of 80 characters, decoded.
    QStringList textHeader() const;

    /// Headers of count traces from first; fewer only at the end of the file. Offsets and channels
    /// are the file's words, 0 where it has none; OvSegyIndex applies the rules that look at all
    /// traces.
    OvStatus readHeaders(qint64 first, qint64 count, std::vector<OvTraceHeader>* headers) const;
    /// The first count bytes of a trace's header, as they stand in the file, extension headers
    /// (240 bytes each) included.
    OvStatus readHeaderBytes(qint64 trace, int count, char* out) const;
    /// Samples of one trace as float32 into sampleCount values at out.
    OvStatus readSamples(qint64 trace, float* out) const;
    /// Fills gather->samples for the traces that gather->headers names, and sets the sample count
    /// and interval. On failure the gather has no samples.
    OvStatus readSamples(OvGather* gather) const;
    /// Hands count traces from first to each, one after the other: the 240 bytes of the header as
    /// they stand in the file, and the samples. Stops early when it returns false.
    OvStatus scanTraces(qint64 first, qint64 count,
                        const std::function<bool(const char* header, const float* samples,
                                                 int sampleCount)>& each) const;

private:
    friend class OvSegyIndex;
    /// Hands the raw words of count traces from first to each; stops early when it returns false.
    OvStatus scanHeaders(qint64 first, qint64 count,
                         const std::function<bool(const OvSegyTraceWords& words)>& each) const;

    struct Private;
    std::unique_ptr<Private> d;
};
