#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvSegyTypes.h"

#include <functional>
#include <limits>
#include <memory>
#include <vector>

class OvPositionalFile;
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

    /// Stays valid until close(). On a file whose traces differ in length, ask again after
    /// locate().
    const OvSegyFileInfo& info() const;
    /// The first textual header: 40 lines of 80 characters, decoded.
    QStringList textHeader() const;

    /// Whether all traces have the same number of samples and headers, so that position() is known
    /// from the start.
    bool hasFixedLength() const { return info().fixedLength; }
    /// Called from the thread that runs locate(), at most 20 times a second, with bytes done and in
    /// all. Returning false cancels.
    using Progress = std::function<bool(qint64 done, qint64 total)>;
    /// Finds the traces of a file whose traces differ in length, by a walk over their headers, and
    /// puts their number, the longest of them and warnings into info(). Everything below fails for
    /// traces that are not located yet. Nothing to do on other files or where it is done already.
    /// maxTraces: how many from the start are wanted now. May run in several threads at once.
    OvStatus locate(const Progress& progress = {},
                    qint64 maxTraces = std::numeric_limits<qint64>::max()) const;
    /// How many traces are located: all of them but while hasFixedLength() is false and locate()
    /// has not ended.
    qint64 locatedCount() const;
    /// What locate() has found, for restoreLocator() on the same, unchanged file; empty where there
    /// is nothing to keep. False for bytes that do not fit the file.
    QByteArray savedLocator() const;
    bool restoreLocator(const QByteArray& bytes) const;
    /// Byte position of a trace header from the start of the file; -1 for a trace that there is not
    /// or that is not located.
    qint64 position(qint64 trace) const;
    /// Bytes of the trace's headers, that is from position() to its samples.
    qint64 headerBytes(qint64 trace) const;
    /// Samples of one trace; 0 where position() is -1.
    int sampleCount(qint64 trace) const;

    /// Headers of count traces from first; fewer only at the end of the file. Offsets and channels
    /// are the file's words, 0 where it has none; OvSegyIndex applies the rules that look at all
    /// traces.
    OvStatus readHeaders(qint64 first, qint64 count, std::vector<OvTraceHeader>* headers) const;
    /// The first count bytes of a trace's header, as they stand in the file, extension headers
    /// (240 bytes each) included.
    OvStatus readHeaderBytes(qint64 trace, int count, char* out) const;
    /// Samples of one trace as float32 into sampleCount(trace) values at out.
    OvStatus readSamples(qint64 trace, float* out) const;
    /// Fills gather->samples for the traces that gather->headers names, and sets the sample count
    /// and interval. Where its traces differ in length the gather is as long as the longest of
    /// them, and zeros follow the others: silence, which no picker takes for an arrival. On failure
    /// the gather has no samples.
    OvStatus readSamples(OvGather* gather) const;
    /// Hands count traces from first to each, one after the other: the 240 bytes of the header as
    /// they stand in the file, and the samples. Stops early when it returns false.
    OvStatus scanTraces(qint64 first, qint64 count,
                        const std::function<bool(const char* header, const float* samples,
                                                 int sampleCount)>& each) const;

    /// What the file is read through; for this library.
    const OvPositionalFile& bytes() const;

private:
    /// Hands the raw words of count traces from first to each; stops early when it returns false.
    OvStatus scanHeaders(qint64 first, qint64 count,
                         const std::function<bool(const OvSegyTraceWords& words)>& each) const;

    struct Private;
    std::unique_ptr<Private> d;
};
