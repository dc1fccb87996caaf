#pragma once

#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvSegyTypes.h"
#include "OvSeismic/segy/OvTraceLocator.h"

class OvPositionalFile;

/// Reads trace headers at any place of a file, tells whether one can stand there, and how long its
/// trace is by its own words. Not for several threads at once.
class OvSegyTraceProbe
{
public:
    /// info says where the first trace is, in which order bytes stand, and how many samples and
    /// additional headers a trace usually has. It and file outlive this object.
    OvSegyTraceProbe(const OvPositionalFile& file, const OvSegyFileInfo& info);

    /// Reads the header at a byte position. False where the file has no room for one or cannot be
    /// read; status() then says why.
    bool read(qint64 position);
    const OvStatus& status() const { return m_status; }
    /// Whether the header that was read resembles the first one of the file.
    bool isPlausible() const;
    OvTraceLocator::Shape shape() const;
    /// Bytes of header and samples together.
    qint64 traceBytes() const;

private:
    struct Words;
    static Words decode(const char* header, OvByteOrder order);
    bool hasExtension() const;
    bool window(qint64 position, qint64 bytes);

    const OvPositionalFile& m_file;
    const OvSegyFileInfo& m_info;
    OvStatus m_status;
    QByteArray m_first;
    QByteArray m_header; ///< 240 bytes, 480 where additional headers follow
    QByteArray m_window;
    qint64 m_windowStart = 0;
    qint64 m_lastPosition = -1;
};
