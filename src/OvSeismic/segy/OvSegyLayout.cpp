#include "OvSeismic/segy/OvSegyLayout.h"

#include "OvSeismic/segy/OvPositionalFile.h"
#include "OvSeismic/segy/OvSegyFormatGuess.h"
#include "OvSeismic/segy/OvSegyOrder.h"
#include "OvSeismic/segy/OvSegySampleFormat.h"
#include "OvSeismic/segy/OvSegyText.h"
#include "OvSeismic/segy/OvSegyTraceLength.h"
#include "OvSeismic/segy/OvSegyTraceProbe.h"
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
constexpr int byteFixedLength = 3503;
constexpr int byteExtraTraceHeaders = 3507;
constexpr int byteTraceCount = 3513;
constexpr int byteFirstTrace = 3521;
constexpr int byteTrailers = 3529;

constexpr int labelSize = 128;
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
    void findLabel();
    OvStatus findByteOrder();
    QByteArray someTraceHeader() const;
    OvStatus checkFormat();
    OvStatus refuseUnknownFormat() const;
    void readRevision();
    void readUnits();
    OvStatus placeTraces();
    OvStatus countExtendedTexts(int* count) const;
    OvStatus countToEndStanza(int* count) const;
    bool believeExtendedTexts(int count) const;
    OvStatus findFirstTrace(qint64* first);
    bool takeStatedTrace(qint64* first);

    OvStatus readFirstTraceHeader(qint64 at);
    int statedExtraHeaders(qint64 first) const;
    qint64 statedInTrace();
    void chooseSampleCount(qint64 binarySamples, qint64 traceSamples);
    void chooseInterval(double traceInterval);
    OvStatus countTraces();
    void cutTrailer(qint64 traceBytes);
    void judgeLength();
    void judgeFormat();
    void warnOfRest();

    OvSegyWords binary() const
    {
        return {m_binary.constData(), OvSegyText::headerSize + 1, m_info->byteOrder};
    }
    OvSegyWords trace() const { return {m_trace.constData(), 1, m_info->byteOrder}; }
    bool isRevision2() const { return m_info->revisionMajor >= 2; }
    qint64 traceBytes(qint64 samples, int extraHeaders) const;
    qint64 bytesFrom(qint64 first) const { return m_info->fileSize - first; }
    qint64 trailerBytes(qint64 first) const;
    bool fitsBetter(qint64 first, qint64 other) const;
    bool fitsExactly(qint64 first, qint64 samples, int extraHeaders) const;
    bool fitsOnce(qint64 first, qint64 samples, int extraHeaders) const;
    bool looksLikeSu() const;
    qint64 headersEnd() const { return m_info->labelBytes + OvSegyLayout::fileHeaderSize; }
    OvStatus refuse(const QString& reason) const
    {
        return OvStatus::failure(tr("Cannot open %1: %2").arg(m_name, reason));
    }
    void warn(const QString& sentence, qint64 firstByte = -1, qint64 lastByte = -1)
    {
        m_info->warnings += sentence;
        m_info->warningBytes.append({firstByte, lastByte});
    }

    const OvPositionalFile& m_file;
    OvSegyFileInfo* m_info;
    QString m_name;
    QByteArray m_binary;
    QByteArray m_trace;
    QString m_countWarning; ///< of no interest where traces differ in length anyway
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
    if (status)
        status = countTraces();
    if (status) {
        judgeLength();
        judgeFormat();
    }
    return status;
}

void Reader::findLabel()
{
    QByteArray label(labelSize, '\0');
    if (m_file.read(0, label.data(), label.size()) && OvSegyText::isTapeLabel(label))
        m_info->labelBytes = labelSize;
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
    findLabel();
    if (m_info->fileSize < headersEnd())
        return refuse(tr("it has a tape label but no whole file headers behind it."));
    QByteArray headers(OvSegyLayout::fileHeaderSize, '\0');
    OvStatus status = m_file.read(m_info->labelBytes, headers.data(), headers.size());
    *text = headers.left(OvSegyText::headerSize);
    m_binary = headers.mid(OvSegyText::headerSize);
    return status;
}

/// The place of a trace header is not known before the byte order is; but the count of textual
/// headers reads the same in the two orders that it helps to tell apart.
QByteArray Reader::someTraceHeader() const
{
    const OvSegyWords words(m_binary.constData(), OvSegyText::headerSize + 1,
                            OvByteOrder::LittleEndian);
    const qint64 texts = qMax<qint64>(0, words.int16(SEGY_BIN_EXT_HEADERS));
    QByteArray header(OvSegyLayout::traceHeaderSize, '\0');
    for (const qint64 skipped : {texts, qint64(0)}) {
        const qint64 at = headersEnd() + skipped * OvSegyText::headerSize;
        if (bytesFrom(at) >= header.size() && m_file.read(at, header.data(), header.size()))
            return header;
    }
    return {};
}

OvStatus Reader::findByteOrder()
{
    const OvSegyOrder found = OvSegyOrder::find(m_binary, someTraceHeader());
    m_info->byteOrder = found.order;
    m_info->formatCode = binary().int16(SEGY_BIN_FORMAT);
    m_info->declaredFormatCode = m_info->formatCode;
    if (found.contradicted) {
        warn(tr("The byte-order constant in bytes 3297-3300 contradicts the sample format code; "
                "the file is read as %1.")
                 .arg(ovSegyByteOrderName(found.order)),
             3297, 3300);
    }
    return checkFormat();
}

OvStatus Reader::checkFormat()
{
    const OvSegySampleFormat format = ovSegySampleFormat(m_info->formatCode);
    if (format.bytes == 0)
        return refuseUnknownFormat();
    if (!format.supported) {
        return refuse(
            tr("its samples are in format %1 (%2), which is not supported. Convert it to format "
               "1 or 5.")
                .arg(m_info->formatCode)
                .arg(ovSegyFormatName(m_info->formatCode)));
    }
    constexpr int oddBytes = 3;
    if (format.bytes == oddBytes && m_info->byteOrder == OvByteOrder::PairSwapped)
        return refuse(tr("its samples of 3 bytes cannot be told apart in pair-swapped order. "
                         "Convert it to big-endian order."));
    return {};
}

OvStatus Reader::refuseUnknownFormat() const
{
    if (looksLikeSu()) {
        return refuse(tr("it looks like a Seismic Unix (SU) file, which has no SEG-Y file headers. "
                         "Convert it to SEG-Y first."));
    }
    return refuse(tr("it is no SEG-Y file, or its binary header is damaged: the sample format "
                     "code in bytes 3225-3226 is %1.")
                      .arg(m_info->formatCode));
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
    // There is no revision 0.1, 0.2 or 1.2: writers that store the number as a swapped word mean
    // 1.0, 2.0 and 2.1.
    if ((major == 0 && (minor == 1 || minor == 2)) || (major == 1 && minor == 2))
        std::swap(major, minor);
    if (major > 2 || minor > 9 || (major == 0 && minor > 0)) {
        warn(tr("The revision number %1.%2 is unknown; the file is read as revision 0.")
                 .arg(major)
                 .arg(minor),
             3501, 3502);
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

/// What the binary header says, as far as there is room for it.
qint64 Reader::trailerBytes(qint64 first) const
{
    const qint64 records = isRevision2() ? binary().int32(byteTrailers) : 0;
    const qint64 bytes = records * OvSegyText::headerSize;
    return records > 0 && bytes < bytesFrom(first) ? bytes : 0;
}

bool Reader::fitsExactly(qint64 first, qint64 samples, int extraHeaders) const
{
    return fitsOnce(first, samples, extraHeaders) &&
           (bytesFrom(first) - trailerBytes(first)) % traceBytes(samples, extraHeaders) == 0;
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
    const qint64 limit = qMin(mostExtendedTexts, bytesFrom(headersEnd()) / OvSegyText::headerSize);
    QByteArray record(OvSegyText::headerSize, '\0');
    for (int number = 0; number < limit; ++number) {
        const qint64 at = headersEnd() + qint64(number) * OvSegyText::headerSize;
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
    const qint64 first = headersEnd() + qint64(count) * OvSegyText::headerSize;
    if (count < 0 || bytesFrom(first) < traceBytes(1, 0))
        return false;
    // Before revision 1 the word was free for anything, so the size has to speak for it; since then
    // the size may only speak against it.
    return m_info->revisionMajor > 0 ? !fitsBetter(headersEnd(), first)
                                     : fitsBetter(first, headersEnd());
}

OvStatus Reader::readFirstTraceHeader(qint64 at)
{
    if (bytesFrom(at) < OvSegyLayout::traceHeaderSize)
        return refuse(tr("it has file headers but not one trace."));
    m_trace.resize(OvSegyLayout::traceHeaderSize);
    m_info->firstTraceOffset = at;
    return m_file.read(at, m_trace.data(), m_trace.size());
}

/// Where the traces begin by the count of textual headers, or by the stated position.
OvStatus Reader::findFirstTrace(qint64* first)
{
    int texts = 0;
    OvStatus status = countExtendedTexts(&texts);
    const bool counted = texts >= 0;
    *first = headersEnd() + qint64(qMax(0, texts)) * OvSegyText::headerSize;
    if (!takeStatedTrace(first) && !counted) {
        warn(tr("The number of extended textual headers, %1, does not fit the file; none is "
                "assumed.")
                 .arg(binary().int16(SEGY_BIN_EXT_HEADERS)),
             3505, 3506);
    }
    m_info->extendedTextHeaders =
        static_cast<int>((*first - headersEnd()) / OvSegyText::headerSize);
    return status;
}

/// Whether the file states a position, which then wins unless its size speaks against it.
bool Reader::takeStatedTrace(qint64* first)
{
    const qint64 stated = isRevision2() ? binary().int64(byteFirstTrace) : 0;
    if (stated == 0 || stated == *first)
        return stated != 0;
    const bool inside = stated >= headersEnd() && stated <= m_info->fileSize - traceBytes(1, 0);
    if (inside && !fitsBetter(*first, stated)) {
        *first = stated;
        return true;
    }
    warn(tr("The position of the first trace, byte %1, does not fit the file; byte %2 is used.")
             .arg(stated)
             .arg(*first),
         3521, 3528);
    return false;
}

OvStatus Reader::placeTraces()
{
    qint64 first = 0;
    OvStatus status = findFirstTrace(&first);
    if (status)
        status = readFirstTraceHeader(first);
    if (!status)
        return status;
    const qint64 extended = isRevision2() ? binary().int32(byteExtendedSamples) : 0;
    chooseSampleCount(extended > 0 ? extended : binary().uint16(SEGY_BIN_SAMPLES), statedInTrace());
    chooseInterval(trace().int16(SEGY_TR_SAMPLE_INTER));
    readUnits();
    return {};
}

/// The first additional trace header has room for counts beyond 65,535.
qint64 Reader::statedInTrace()
{
    m_info->extraTraceHeaders = statedExtraHeaders(m_info->firstTraceOffset);
    OvSegyTraceProbe probe(m_file, *m_info);
    const qint64 extended = m_info->extraTraceHeaders > 0 && probe.read(m_info->firstTraceOffset)
                                ? probe.shape().samples
                                : 0;
    return extended > 0 ? extended : trace().uint16(SEGY_TR_SAMPLE_COUNT);
}

void Reader::readUnits()
{
    m_info->coordinateScalar = trace().int16(SEGY_TR_SOURCE_GROUP_SCALAR);
    if (binary().int16(SEGY_BIN_MEASUREMENT_SYSTEM) != feet)
        return;
    m_info->metresPerUnit = metresPerFoot;
    warn(tr("Lengths in the file are in feet; offsets and elevations are converted to metres."),
         3255, 3256);
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
        m_countWarning =
            tr("The binary header says %1 samples a trace, the first trace header %2; %3 is used.")
                .arg(binarySamples)
                .arg(traceSamples)
                .arg(m_info->sampleCount);
    }
    if (stated != m_info->extraTraceHeaders)
        warn(tr("The number of extra trace headers, %1, does not fit the file; none is assumed.")
                 .arg(stated),
             3507, 3510);
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
                     .arg(traceInterval),
                 3217, 3218);
        }
        return;
    }
    m_info->intervalUs = traceInterval > 0.0 ? traceInterval : assumedIntervalUs;
    if (traceInterval > 0.0) {
        warn(tr("The binary header has no valid sample interval; the %1 µs of the first trace "
                "header "
                "are used.")
                 .arg(traceInterval),
             3217, 3218);
    } else {
        warn(tr("The file has no valid sample interval; %1 µs are assumed.").arg(assumedIntervalUs),
             3217, 3218);
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
    m_info->tracesEnd = m_info->fileSize;
    if (!isRevision2())
        return;
    const qint64 available = bytesFrom(m_info->firstTraceOffset);
    const int trailers = binary().int32(byteTrailers);
    const qint64 stated = binary().int64(byteTraceCount);
    const qint64 trailer = trailerBytes(m_info->firstTraceOffset);
    if (trailer > 0 && available - trailer >= traceBytes) {
        m_info->trailerRecords = trailers;
        m_info->tracesEnd -= trailer;
        m_info->traceCount = (available - trailer) / traceBytes;
    } else if (trailers == -1) {
        m_info->trailerRecords = -1;
        if (stated > 0 && stated < m_info->traceCount) {
            m_info->traceCount = stated;
            m_info->tracesEnd = m_info->firstTraceOffset + stated * traceBytes;
        }
    }
}

void Reader::judgeLength()
{
    const auto length = OvSegyTraceLength::judge(m_file, *m_info, binary().int16(byteFixedLength));
    m_info->fixedLength = length.fixed;
    if (!length.fixed) {
        warn(tr("The traces differ in length; shorter ones are filled up with zeros."), 3503, 3504);
        return;
    }
    if (!m_countWarning.isEmpty())
        warn(m_countWarning, 3221, 3222);
    if (length.damagedTrace > 0) {
        const qint64 at =
            m_info->firstTraceOffset + length.damagedTrace * OvSegyLayout::traceSize(*m_info);
        warn(tr("The header of trace %1, at byte %2, makes no sense: the file may be damaged from "
                "there on.")
                 .arg(length.damagedTrace + 1)
                 .arg(at + 1),
             at + 1, at + OvSegyLayout::traceHeaderSize);
    }
    warnOfRest();
}

void Reader::judgeFormat()
{
    const auto guess = OvSegyFormatGuess::of(m_file, *m_info);
    if (guess.code == m_info->declaredFormatCode)
        return;
    if (!guess.certain) {
        m_info->likelyFormatCode = static_cast<short>(guess.code);
        return;
    }
    m_info->formatCode = static_cast<short>(guess.code);
    warn(
        tr("The samples are declared as format %1 (%2), but clearly are in format %3 (%4) and read "
           "so.")
            .arg(QString::number(m_info->declaredFormatCode),
                 ovSegyFormatName(m_info->declaredFormatCode), QString::number(guess.code),
                 ovSegyFormatName(guess.code)),
        3225, 3226);
}

void Reader::warnOfRest()
{
    const qint64 rest = m_info->tracesEnd - m_info->firstTraceOffset -
                        m_info->traceCount * OvSegyLayout::traceSize(*m_info);
    if (rest > 0) {
        warn(tr("The file ends in the middle of a trace or is damaged. Whole traces that are read: "
                "%1; bytes behind them that are left out: %2.")
                 .arg(m_info->traceCount)
                 .arg(rest),
             m_info->tracesEnd - rest + 1, m_info->tracesEnd);
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
