#include "OvSeismic/segy/OvSegyFile.h"

#include "OvSeismic/segy/OvGather.h"
#include "OvSeismic/segy/OvPositionalFile.h"
#include "OvSeismic/segy/OvSegyLayout.h"
#include "OvSeismic/segy/OvSegySampleFormat.h"
#include "OvSeismic/segy/OvSegySamples.h"
#include "OvSeismic/segy/OvSegyText.h"
#include "OvSeismic/segy/OvSegyTraceWords.h"

#include <QCoreApplication>
#include <QDir>

#include <new>

namespace {

constexpr qint64 blockBytes = 4 << 20;
// Beyond this trace size, reading the headers one by one beats copying the samples between them.
constexpr qint64 longTraceBytes = 4096;

} // namespace

struct OvSegyFile::Private
{
    Q_DECLARE_TR_FUNCTIONS(OvSegyFile)

public:
    /// A row of the gather's traces that follow each other in the file.
    struct Run
    {
        std::size_t row;
        qint64 firstTrace;
        qint64 count;
    };

    qint64 traceSize() const { return OvSegyLayout::traceSize(info); }
    qint64 traceOffset(qint64 trace) const { return info.firstTraceOffset + trace * traceSize(); }
    qint64 samplesOffset() const
    {
        return OvSegyLayout::traceHeaderSize * (1 + qint64(info.extraTraceHeaders));
    }
    qint64 tracesInBlock() const { return qMax<qint64>(1, blockBytes / traceSize()); }
    void toFloat(const char* in, float* out) const
    {
        OvSegySamples::toFloat(info.formatCode, info.byteOrder, in, info.sampleCount, out);
    }
    OvStatus badTrace(qint64 trace) const;
    OvStatus shortHeader(int wanted, int present) const;
    OvStatus noMemory() const;
    OvStatus scanBlock(qint64 first, qint64 count, std::vector<char>* buffer,
                       const std::function<bool(const OvSegyTraceWords&)>& each, bool* go) const;
    Run runAt(const std::vector<OvTraceHeader>& headers, std::size_t row) const;
    OvStatus readRun(const Run& run, std::vector<char>* buffer, float* out) const;

    OvPositionalFile file;
    OvSegyFileInfo info;
    QByteArray text;
};

OvStatus OvSegyFile::Private::badTrace(qint64 trace) const
{
    return OvStatus::failure(tr("%1 has no trace %2; it has %3 traces.")
                                 .arg(QDir::toNativeSeparators(info.path), QString::number(trace),
                                      QString::number(info.traceCount)));
}

OvStatus OvSegyFile::Private::shortHeader(int wanted, int present) const
{
    return OvStatus::failure(
        tr("The trace headers of %1 have %2 bytes, but the header mapping wants %3.")
            .arg(QDir::toNativeSeparators(info.path), QString::number(present),
                 QString::number(wanted)));
}

OvStatus OvSegyFile::Private::noMemory() const
{
    return OvStatus::failure(
        tr("There is not enough memory to read %1.").arg(QDir::toNativeSeparators(info.path)));
}

OvStatus OvSegyFile::Private::scanBlock(qint64 first, qint64 count, std::vector<char>* buffer,
                                        const std::function<bool(const OvSegyTraceWords&)>& each,
                                        bool* go) const
{
    const bool single = traceSize() > longTraceBytes;
    const qint64 headerSize = OvSegyLayout::traceHeaderSize;
    const qint64 bytes = single ? headerSize : (count - 1) * traceSize() + headerSize;
    buffer->resize(static_cast<std::size_t>(bytes));
    OvStatus status;
    if (single)
        file.prefetch(traceOffset(first), count * traceSize());
    else
        status = file.read(traceOffset(first), buffer->data(), bytes);
    for (qint64 i = 0; i < count && status && *go; ++i) {
        if (single)
            status = file.read(traceOffset(first + i), buffer->data(), bytes);
        const char* header = buffer->data() + (single ? 0 : i * traceSize());
        if (status)
            *go = each(OvSegyTraceWords::decode(header, info.byteOrder));
    }
    return status;
}

OvSegyFile::Private::Run OvSegyFile::Private::runAt(const std::vector<OvTraceHeader>& headers,
                                                    std::size_t row) const
{
    Run run = {row, headers[row].traceIndex, 1};
    while (row + static_cast<std::size_t>(run.count) < headers.size() &&
           run.count < tracesInBlock()) {
        const qint64 next = headers[row + static_cast<std::size_t>(run.count)].traceIndex;
        if (next != run.firstTrace + run.count)
            break;
        ++run.count;
    }
    return run;
}

OvStatus OvSegyFile::Private::readRun(const Run& run, std::vector<char>* buffer, float* out) const
{
    if (run.firstTrace < 0 || run.firstTrace > info.traceCount - run.count)
        return badTrace(run.firstTrace < 0 ? run.firstTrace : run.firstTrace + run.count - 1);
    const qint64 bytes = run.count * traceSize() - samplesOffset();
    buffer->resize(static_cast<std::size_t>(bytes));
    OvStatus status =
        file.read(traceOffset(run.firstTrace) + samplesOffset(), buffer->data(), bytes);
    for (qint64 i = 0; i < run.count && status; ++i)
        toFloat(buffer->data() + i * traceSize(), out + i * info.sampleCount);
    return status;
}

OvSegyFile::OvSegyFile()
    : d(std::make_unique<Private>())
{
}

OvSegyFile::~OvSegyFile() = default;

OvStatus OvSegyFile::open(const QString& path)
{
    close();
    OvStatus status = d->file.open(path);
    if (status)
        status = OvSegyLayout::read(d->file, path, &d->info, &d->text);
    if (!status)
        close();
    return status;
}

void OvSegyFile::close()
{
    d->file.close();
    d->info = {};
    d->text.clear();
}

bool OvSegyFile::isOpen() const
{
    return d->file.isOpen();
}

const OvSegyFileInfo& OvSegyFile::info() const
{
    return d->info;
}

QStringList OvSegyFile::textHeader() const
{
    return OvSegyText::lines(d->text, d->info.textEncoding);
}

OvStatus OvSegyFile::scanHeaders(qint64 first, qint64 count,
                                 const std::function<bool(const OvSegyTraceWords&)>& each) const
{
    if (first < 0 || first > d->info.traceCount || count < 0)
        return d->badTrace(first);
    const qint64 end = first + qMin(count, d->info.traceCount - first);
    std::vector<char> buffer;
    bool go = true;
    for (qint64 trace = first; trace < end && go;) {
        const qint64 inBlock = qMin(d->tracesInBlock(), end - trace);
        OvStatus status = d->scanBlock(trace, inBlock, &buffer, each, &go);
        if (!status)
            return status;
        trace += inBlock;
    }
    return {};
}

OvStatus OvSegyFile::readHeaders(qint64 first, qint64 count,
                                 std::vector<OvTraceHeader>* headers) const
{
    headers->clear();
    qint64 trace = first;
    try {
        return scanHeaders(first, count, [&](const OvSegyTraceWords& words) {
            headers->push_back(words.toHeader(trace++, d->info.metresPerUnit));
            return true;
        });
    } catch (const std::bad_alloc&) {
        headers->clear();
        return d->noMemory();
    }
}

OvStatus OvSegyFile::readHeaderBytes(qint64 trace, int count, char* out) const
{
    if (trace < 0 || trace >= d->info.traceCount)
        return d->badTrace(trace);
    const int present = OvSegyLayout::traceHeaderSize * (1 + d->info.extraTraceHeaders);
    if (count > present)
        return d->shortHeader(count, present);
    return d->file.read(d->traceOffset(trace), out, count);
}

OvStatus OvSegyFile::readSamples(qint64 trace, float* out) const
{
    if (trace < 0 || trace >= d->info.traceCount)
        return d->badTrace(trace);
    std::vector<char> buffer;
    return d->readRun({0, trace, 1}, &buffer, out);
}

OvStatus OvSegyFile::readSamples(OvGather* gather) const
{
    const auto samples = static_cast<std::size_t>(d->info.sampleCount);
    const auto& headers = gather->headers;
    OvStatus status;
    try {
        gather->sampleCount = d->info.sampleCount;
        gather->intervalMs = d->info.intervalMs();
        gather->samples.resize(headers.size() * samples);
        std::vector<char> buffer;
        for (std::size_t row = 0; row < headers.size() && status;) {
            const Private::Run run = d->runAt(headers, row);
            status = d->readRun(run, &buffer, gather->samples.data() + row * samples);
            row += static_cast<std::size_t>(run.count);
        }
    } catch (const std::exception&) {
        status = d->noMemory();
    }
    if (!status)
        gather->samples.clear();
    return status;
}

OvStatus OvSegyFile::scanTraces(qint64 first, qint64 count,
                                const std::function<bool(const char* header, const float* samples,
                                                         int sampleCount)>& each) const
{
    if (first < 0 || count < 0 || first > d->info.traceCount)
        return d->badTrace(first);
    const qint64 end = first + qMin(count, d->info.traceCount - first);
    std::vector<char> buffer(static_cast<std::size_t>(d->traceSize()));
    std::vector<float> samples(static_cast<std::size_t>(d->info.sampleCount));
    for (qint64 trace = first; trace < end; ++trace) {
        OvStatus status = d->file.read(d->traceOffset(trace), buffer.data(), d->traceSize());
        if (!status)
            return status;
        d->toFloat(buffer.data() + d->samplesOffset(), samples.data());
        if (!each(buffer.data(), samples.data(), d->info.sampleCount))
            break;
    }
    return {};
}
