#include "OvSeismic/segy/OvSegyLayout.h"

#include "OvSeismic/segy/OvPositionalFile.h"
#include "OvSeismic/segy/OvSegySampleFormat.h"
#include "OvSeismic/segy/OvSegyText.h"
#include "OvSeismic/segy/OvSegyWords.h"

#include <segyio/segy.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cmath>

namespace {

// Words of revision 2 that libsegyio does not name.
constexpr int byteExtendedSamples = 3269;
constexpr int byteExtendedInterval = 3273;
constexpr int byteOrderConstant = 3297;
constexpr int byteExtraTraceHeaders = 3507;
constexpr int byteTraceCount = 3513;
constexpr int byteFirstTrace = 3521;
constexpr int byteTrailers = 3529;

constexpr double assumedIntervalUs = 4000.0;
constexpr double metresPerFoot = 0.3048;
constexpr int feet = 2;
// A row of textual headers without an end is not searched through a whole survey.
constexpr qint64 mostExtendedTexts = 4096;

class Reader
{
    Q_DECLARE_TR_FUNCTIONS(OvSegyFile)

public:
    Reader(const OvPositionalFile& file, const QString& path, OvSegyFileInfo* info)
        : m_file(file)
        , m_info(info)
        , m_name(QDir::toNativeSeparators(path))
    {
        info->path = QFileInfo(path).absoluteFilePath();
        info->fileSize = file.size();
    }

    OvStatus read(QByteArray* text);

private:
    OvStatus readFileHeaders(QByteArray* text);
    OvStatus findByteOrder();
    void readRevision();
    void readUnits();
    OvStatus placeTraces();
    OvStatus countExtendedTexts(int* count) const;
    OvStatus countToEndStanza(int* count) const;
    bool believeExtendedTexts(int count) const;
    OvStatus skipExtendedTexts(qint64* first);
    void skipToStatedTrace(qint64* first);

    OvStatus readFirstTraceHeader(qint64 at);
    int statedExtraHeaders(qint64 first) const;
    void chooseSampleCount(qint64 binarySamples, qint64 traceSamples);
    void chooseInterval(double traceInterval);
    OvStatus countTraces();
    void cutTrailer(qint64 traceBytes);

    OvSegyWords binary() const
    {
        return {m_binary.constData(), OvSegyText::headerSize + 1, m_info->byteOrder};
    }
    OvSegyWords trace() const { return {m_trace.constData(), 1, m_info->byteOrder}; }
    bool isRevision2() const { return m_info->revisionMajor >= 2; }
    qint64 traceBytes(qint64 samples, int extraHeaders) const;
    qint64 bytesFrom(qint64 first) const { return m_info->fileSize - first; }
    bool fitsBetter(qint64 first, qint64 other) const;
    bool fitsExactly(qint64 first, qint64 samples, int extraHeaders) const;
    bool fitsOnce(qint64 first, qint64 samples, int extraHeaders) const;
    bool looksLikeSu() const;
    OvStatus refuse(const QString& reason) const
    {
        return OvStatus::failure(tr("Cannot open %1: %2").arg(m_name, reason));
    }
    void warn(const QString& sentence) { m_info->warnings += sentence; }

    const OvPositionalFile& m_file;
    OvSegyFileInfo* m_info;
    QString m_name;
    QByteArray m_binary;
    QByteArray m_trace;
};

OvStatus Reader::read(QByteArray* text)
{
    OvStatus status = readFileHeaders(text);
    if (status)
        status = findByteOrder();
    if (!status)
        return status;
    readRevision();
    m_info->textEncoding = OvSegyText::encodingOf(*text);
    status = placeTraces();
    return status ? countTraces() : status;
}

OvStatus Reader::readFileHeaders(QByteArray* text)
{
    if (m_info->fileSize == 0)
        return refuse(tr("the file is empty."));
    if (m_info->fileSize < OvSegyLayout::fileHeaderSize) {
        return refuse(
            tr("it is no SEG-Y file; it has %1 bytes and the file headers alone take 3600.")
                .arg(m_info->fileSize));
    }
    QByteArray headers(OvSegyLayout::fileHeaderSize, '\0');
    OvStatus status = m_file.read(0, headers.data(), headers.size());
    *text = headers.left(OvSegyText::headerSize);
    m_binary = headers.mid(OvSegyText::headerSize);
    return status;
}

OvStatus Reader::findByteOrder()
{
    const OvSegyWords big(m_binary.constData(), OvSegyText::headerSize + 1, OvByteOrder::BigEndian);
    const OvSegyWords little(m_binary.constData(), OvSegyText::headerSize + 1,
                             OvByteOrder::LittleEndian);
    const auto known = [](const OvSegyWords& words) {
        return ovSegySampleFormat(words.int16(SEGY_BIN_FORMAT)).bytes > 0;
    };
    constexpr qint32 inOrder = 16909060;
    // A format code below 256 is known in one order only, so the code decides where the constant,
    // which came with revision 2, is missing or contradicts it.
    const bool isLittle =
        known(little) || (!known(big) && little.int32(byteOrderConstant) == inOrder);
    m_info->byteOrder = isLittle ? OvByteOrder::LittleEndian : OvByteOrder::BigEndian;
    m_info->formatCode = binary().int16(SEGY_BIN_FORMAT);
    if (ovSegySampleFormat(m_info->formatCode).supported)
        return {};
    if (!known(big) && looksLikeSu()) {
        return refuse(tr("it looks like a Seismic Unix (SU) file, which has no SEG-Y file headers. "
                         "Convert it to SEG-Y first."));
    }
    if (!known(binary())) {
        return refuse(tr("it is no SEG-Y file, or its binary header is damaged: the sample format "
                         "code in bytes 3225-3226 is %1.")
                          .arg(m_info->formatCode));
    }
    return refuse(
        tr("its samples are in format %1 (%2), which is not supported. Convert it to format "
           "1 or 5.")
            .arg(m_info->formatCode)
            .arg(ovSegyFormatName(m_info->formatCode)));
}

bool Reader::looksLikeSu() const
{
    QByteArray header(OvSegyLayout::traceHeaderSize, '\0');
    if (!m_file.read(0, header.data(), header.size()))
        return false;
    for (const auto order : {OvByteOrder::BigEndian, OvByteOrder::LittleEndian}) {
        const OvSegyWords words(header.constData(), 1, order);
        const qint64 samples = words.uint16(SEGY_TR_SAMPLE_COUNT);
        const qint64 bytes = OvSegyLayout::traceHeaderSize + samples * 4;
        if (samples > 0 && words.uint16(SEGY_TR_SAMPLE_INTER) > 0 && m_info->fileSize % bytes == 0)
            return true;
    }
    return false;
}

void Reader::readRevision()
{
    int major = binary().byte(SEGY_BIN_SEGY_REVISION);
    int minor = binary().byte(SEGY_BIN_SEGY_REVISION + 1);
    // There is no revision 0.1 or 0.2: writers that store the number as a swapped word
    // mean 1.0, 2.0.
    if (major == 0 && (minor == 1 || minor == 2))
        std::swap(major, minor);
    if (major > 2 || minor > 9 || (major == 0 && minor > 0)) {
        warn(tr("The revision number %1.%2 is unknown; the file is read as revision 0.")
                 .arg(major)
                 .arg(minor));
        major = 0;
        minor = 0;
    }
    m_info->revisionMajor = major;
    m_info->revisionMinor = minor;
}

qint64 Reader::traceBytes(qint64 samples, int extraHeaders) const
{
    const int sampleBytes = ovSegySampleFormat(m_info->formatCode).bytes;
    return OvSegyLayout::traceHeaderSize * (1 + qint64(extraHeaders)) + samples * sampleBytes;
}

bool Reader::fitsExactly(qint64 first, qint64 samples, int extraHeaders) const
{
    return fitsOnce(first, samples, extraHeaders) &&
           bytesFrom(first) % traceBytes(samples, extraHeaders) == 0;
}

/// Whether the size of the file speaks for traces from first and against traces from other.
bool Reader::fitsBetter(qint64 first, qint64 other) const
{
    const qint64 samples = binary().uint16(SEGY_BIN_SAMPLES);
    const int extra = statedExtraHeaders(first);
    return fitsExactly(first, samples, extra) && !fitsExactly(other, samples, extra);
}

bool Reader::fitsOnce(qint64 first, qint64 samples, int extraHeaders) const
{
    return samples > 0 && bytesFrom(first) >= traceBytes(samples, extraHeaders);
}

OvStatus Reader::countToEndStanza(int* count) const
{
    const qint64 limit =
        qMin(mostExtendedTexts, bytesFrom(OvSegyLayout::fileHeaderSize) / OvSegyText::headerSize);
    QByteArray record(OvSegyText::headerSize, '\0');
    for (int number = 0; number < limit; ++number) {
        const qint64 at = OvSegyLayout::fileHeaderSize + qint64(number) * OvSegyText::headerSize;
        OvStatus status = m_file.read(at, record.data(), record.size());
        if (!status)
            return status;
        if (OvSegyText::isEndStanza(record)) {
            *count = number + 1;
            return {};
        }
    }
    *count = -1;
    return {};
}

/// What the binary header says, as far as it fits the file; -1 when it does not.
OvStatus Reader::countExtendedTexts(int* count) const
{
    *count = binary().int16(SEGY_BIN_EXT_HEADERS);
    if (*count == -1)
        return countToEndStanza(count);
    if (*count != 0 && !believeExtendedTexts(*count))
        *count = -1;
    return {};
}

bool Reader::believeExtendedTexts(int count) const
{
    const qint64 first = OvSegyLayout::fileHeaderSize + qint64(count) * OvSegyText::headerSize;
    if (count < 0 || bytesFrom(first) < traceBytes(1, 0))
        return false;
    // Before revision 1 the word was free for anything, so the size has to speak for it; since then
    // the size may only speak against it.
    return m_info->revisionMajor > 0 ? !fitsBetter(OvSegyLayout::fileHeaderSize, first)
                                     : fitsBetter(first, OvSegyLayout::fileHeaderSize);
}

OvStatus Reader::readFirstTraceHeader(qint64 at)
{
    if (bytesFrom(at) < OvSegyLayout::traceHeaderSize)
        return refuse(tr("it has file headers but not one trace."));
    m_trace.resize(OvSegyLayout::traceHeaderSize);
    m_info->firstTraceOffset = at;
    return m_file.read(at, m_trace.data(), m_trace.size());
}

OvStatus Reader::skipExtendedTexts(qint64* first)
{
    int texts = 0;
    OvStatus status = countExtendedTexts(&texts);
    if (texts < 0) {
        warn(tr("The number of extended textual headers, %1, does not fit the file; none is "
                "assumed.")
                 .arg(binary().int16(SEGY_BIN_EXT_HEADERS)));
        texts = 0;
    }
    m_info->extendedTextHeaders = texts;
    *first = OvSegyLayout::fileHeaderSize + qint64(texts) * OvSegyText::headerSize;
    return status;
}

void Reader::skipToStatedTrace(qint64* first)
{
    const qint64 stated = isRevision2() ? binary().int64(byteFirstTrace) : 0;
    if (stated == 0 || stated == *first)
        return;
    const bool inside = stated > *first && stated <= m_info->fileSize - traceBytes(1, 0);
    if (inside && !fitsBetter(*first, stated)) {
        *first = stated;
    } else {
        warn(tr("The position of the first trace, byte %1, does not fit the file; byte %2 is used.")
                 .arg(stated)
                 .arg(*first));
    }
}

OvStatus Reader::placeTraces()
{
    qint64 first = 0;
    OvStatus status = skipExtendedTexts(&first);
    if (status) {
        skipToStatedTrace(&first);
        status = readFirstTraceHeader(first);
    }
    if (!status)
        return status;
    const qint64 extended = isRevision2() ? binary().int32(byteExtendedSamples) : 0;
    chooseSampleCount(extended > 0 ? extended : binary().uint16(SEGY_BIN_SAMPLES),
                      trace().uint16(SEGY_TR_SAMPLE_COUNT));
    chooseInterval(trace().int16(SEGY_TR_SAMPLE_INTER));
    readUnits();
    return {};
}

void Reader::readUnits()
{
    m_info->coordinateScalar = trace().int16(SEGY_TR_SOURCE_GROUP_SCALAR);
    if (binary().int16(SEGY_BIN_MEASUREMENT_SYSTEM) != feet)
        return;
    m_info->metresPerUnit = metresPerFoot;
    warn(tr("Lengths in the file are in feet; offsets and elevations are converted to metres."));
}

/// Revision 2.0 has a 4-byte count here, revision 2.1 a 2-byte one; before that the word is free.
int Reader::statedExtraHeaders(qint64 first) const
{
    if (!isRevision2())
        return 0;
    const qint64 limit = bytesFrom(first) / OvSegyLayout::traceHeaderSize;
    const qint64 wide = binary().int32(byteExtraTraceHeaders);
    const qint64 narrow = binary().int16(byteExtraTraceHeaders);
    const qint64 stated = wide >= 0 && wide < limit ? wide : narrow;
    return stated > 0 && stated < limit ? static_cast<int>(stated) : 0;
}

void Reader::chooseSampleCount(qint64 binarySamples, qint64 traceSamples)
{
    const qint64 first = m_info->firstTraceOffset;
    const int stated = statedExtraHeaders(first);
    const auto choose = [this](qint64 samples, int extraHeaders) {
        m_info->sampleCount = static_cast<int>(samples);
        m_info->extraTraceHeaders = extraHeaders;
    };
    const qint64 counts[] = {binarySamples, traceSamples};
    choose(binarySamples > 0 ? binarySamples : traceSamples, stated);
    if (!fitsOnce(first, binarySamples, stated) && fitsOnce(first, traceSamples, stated))
        choose(traceSamples, stated);
    const auto findExact = [&] {
        for (const qint64 samples : counts) {
            for (const int extra : {stated, 0}) {
                if (fitsExactly(first, samples, extra))
                    return choose(samples, extra);
            }
        }
    };
    findExact();
    if (binarySamples != traceSamples && traceSamples > 0 && binarySamples > 0) {
        warn(tr("The binary header says %1 samples a trace, the first trace header %2; %3 is used.")
                 .arg(binarySamples)
                 .arg(traceSamples)
                 .arg(m_info->sampleCount));
    }
    if (stated != m_info->extraTraceHeaders)
        warn(tr("The number of extra trace headers, %1, does not fit the file; none is assumed.")
                 .arg(stated));
}

void Reader::chooseInterval(double traceInterval)
{
    double interval = binary().int16(SEGY_BIN_INTERVAL);
    const double extended = isRevision2() ? binary().float64(byteExtendedInterval) : 0.0;
    if (std::isfinite(extended) && extended > 1e-3 && extended < 1e9)
        interval = extended;
    if (interval > 0.0) {
        m_info->intervalUs = interval;
        if (traceInterval > 0.0 && std::abs(traceInterval - interval) >= 1.0) {
            warn(tr("The binary header says a sample interval of %1 µs, the first trace header %2 "
                    "µs; "
                    "%1 µs is used.")
                     .arg(interval)
                     .arg(traceInterval));
        }
        return;
    }
    m_info->intervalUs = traceInterval > 0.0 ? traceInterval : assumedIntervalUs;
    if (traceInterval > 0.0) {
        warn(tr("The binary header has no valid sample interval; the %1 µs of the first trace "
                "header "
                "are used.")
                 .arg(traceInterval));
    } else {
        warn(
            tr("The file has no valid sample interval; %1 µs are assumed.").arg(assumedIntervalUs));
    }
}

OvStatus Reader::countTraces()
{
    if (m_info->sampleCount <= 0)
        return refuse(tr("the binary header and the first trace header say 0 samples a trace."));
    const qint64 bytes = OvSegyLayout::traceSize(*m_info);
    const qint64 available = bytesFrom(m_info->firstTraceOffset);
    m_info->traceCount = available / bytes;
    if (m_info->traceCount == 0) {
        return refuse(
            tr("it does not hold one whole trace: a trace of %1 samples takes %2 bytes and "
               "the file has %3 for traces.")
                .arg(m_info->sampleCount)
                .arg(bytes)
                .arg(available));
    }
    cutTrailer(bytes);
    return {};
}

void Reader::cutTrailer(qint64 traceBytes)
{
    const qint64 available = bytesFrom(m_info->firstTraceOffset);
    if (isRevision2()) {
        const qint64 trailers = binary().int32(byteTrailers);
        const qint64 stated = binary().int64(byteTraceCount);
        const qint64 trailer = trailers * OvSegyText::headerSize;
        if (trailers > 0 && available - trailer >= traceBytes)
            m_info->traceCount = (available - trailer) / traceBytes;
        else if (trailers == -1 && stated > 0 && stated < m_info->traceCount)
            m_info->traceCount = stated;
        if (trailers != 0 && m_info->traceCount < available / traceBytes)
            return;
    }
    const qint64 rest = available - m_info->traceCount * traceBytes;
    if (rest > 0) {
        warn(
            tr("The file ends in the middle of a trace or is damaged: %1 whole traces are read, %2 "
               "bytes behind them are left out.")
                .arg(m_info->traceCount)
                .arg(rest));
    }
}

} // namespace

OvStatus OvSegyLayout::read(const OvPositionalFile& file, const QString& path, OvSegyFileInfo* info,
                            QByteArray* text)
{
    return Reader(file, path, info).read(text);
}

qint64 OvSegyLayout::traceSize(const OvSegyFileInfo& info)
{
    return traceHeaderSize * (1 + qint64(info.extraTraceHeaders)) +
           qint64(info.sampleCount) * ovSegySampleFormat(info.formatCode).bytes;
}
