#pragma once

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>
#include <QtGlobal>

/// PairSwapped: the two bytes of every 16 bits are exchanged and nothing else, so that the
/// big-endian word 01 02 03 04 stands as 02 01 04 03. Single bytes and text are never exchanged.
enum class OvByteOrder { BigEndian, LittleEndian, PairSwapped };

enum class OvTextEncoding { Ebcdic, Ascii };

/// What the headers of a SEG-Y file say, after checks against the size of the file.
struct OvSegyFileInfo
{
    QString path;          ///< absolute path
    qint64 fileSize = 0;   ///< bytes
    int revisionMajor = 0; ///< 0 for files older than revision 1
    int revisionMinor = 0;
    OvByteOrder byteOrder = OvByteOrder::BigEndian;
    OvTextEncoding textEncoding = OvTextEncoding::Ebcdic;
    short formatCode = 0; ///< the sample format that the file is read in
    /// The code as stored in bytes 3225-3226; another than formatCode where it is clearly wrong.
    short declaredFormatCode = 0;
    /// The code that the samples look like, where that is not formatCode but too few traces speak
    /// for it to read them so; 0 otherwise.
    short likelyFormatCode = 0;
    int sampleCount = 0;         ///< samples a trace
    double intervalUs = 0.0;     ///< sample interval, microseconds
    qint64 traceCount = 0;       ///< whole traces in the file
    int extendedTextHeaders = 0; ///< 3200-byte records behind the binary header
    int extraTraceHeaders = 0;   ///< 240-byte extension headers in each trace
    qint64 labelBytes = 0;       ///< bytes of a tape label in front of the first textual header
    qint64 firstTraceOffset = 0; ///< byte position of the first trace header
    qint64 tracesEnd = 0;   ///< byte position behind the traces, where a data trailer may start
    int trailerRecords = 0; ///< 3200-byte records behind the traces; -1 for an unknown number
    /// False where traces differ in length. Then traceCount and sampleCount, the samples of the
    /// longest trace, are estimates until OvSegyFile::locate() has looked at all trace headers.
    bool fixedLength = true;
    double metresPerUnit = 1.0; ///< 0.3048 where the binary header says that lengths are in feet
    short coordinateScalar = 0; ///< bytes 71-72 of the first trace header as stored
    QStringList warnings; ///< translated, one sentence each: what was odd and what was assumed
    /// For each warning the first and last byte of the file that it is about, from 1 as the
    /// standard counts; -1 where it is about no place. Shorter where only the first warnings have
    /// places.
    QVector<QPair<qint64, qint64>> warningBytes;

    double intervalMs() const { return intervalUs / 1000.0; }
    /// Bytes of the headers of one trace, extension headers included.
    int traceHeaderBytes() const { return 240 * (1 + extraTraceHeaders); }
    /// Bytes of one trace's headers, extension headers included.
    int headerBytes() const { return 240 * (1 + extraTraceHeaders); }
};

/// The words of one trace header that the program uses, scalars applied.
struct OvTraceHeader
{
    qint64 traceIndex = 0;  ///< position in the file, from 0
    qint32 fieldRecord = 0; ///< bytes 9-12
    qint32 channel = 0; ///< bytes 13-16; position within its gather, from 1, when the file has none
    qint32 cdp = 0;     ///< bytes 21-24
    float offset =
        0.0F; ///< source-receiver distance, m; signed when the file signs it; NaN unknown
    double sourceX = 0.0; ///< file's coordinate units
    double sourceY = 0.0;
    double receiverX = 0.0;
    double receiverY = 0.0;
    float sourceElevation = 0.0F; ///< m
    float receiverElevation = 0.0F;
    float delayMs = 0.0F; ///< time of the first sample after the shot instant, ms
    qint16 traceId = 0;   ///< trace identification code, bytes 29-30; 2 is a dead trace

    bool isDead() const { return traceId == 2; }
};
