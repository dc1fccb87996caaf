#include "OvSeismic/segy/OvSegyFile.h"

#include "OvSeismic/segy/OvGather.h"
#include "OvSeismic/segy/OvPositionalFile.h"
#include "OvSeismic/segy/OvSegyLayout.h"
#include "OvSeismic/segy/OvSegySamples.h"
#include "OvSeismic/segy/OvSegyText.h"
#include "OvSeismic/segy/OvSegyTraceWalk.h"
#include "OvSeismic/segy/OvSegyTraceWords.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <new>

namespace {

constexpr qint64 blockBytes = 4 << 20;
// Beyond this trace size, reading the headers one by one beats copying the samples between them.
constexpr qint64 longTraceBytes = 4096;

/// What is known of the file at one time. Never changed once others can see it.
struct Knowledge
{
    OvSegyFileInfo info;
    OvTraceLocator locator; ///< empty where the traces have one length
    qint64 traceBytes = 0;  ///< from one trace to the next, where they have one length
    bool complete = true;   ///< every trace is located

    qint64 count() const { return info.fixedLength ? info.traceCount : locator.count(); }
    /// Also for count(): where the traces located end.
    qint64 position(qint64 trace) const
    {
        return info.fixedLength ? info.firstTraceOffset + trace * traceBytes
                                : locator.position(trace);
    }
    OvTraceLocator::Shape shape(qint64 trace) const
    {
        return info.fixedLength ? OvTraceLocator::Shape{info.sampleCount, info.extraTraceHeaders}
                                : locator.shape(trace);
    }
};

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
    using EachHeader = std::function<bool(const OvSegyTraceWords&)>;

    Private() { forget(); }
    const Knowledge& now() const { return *current.load(std::memory_order_acquire); }
    void forget();
    void learn(std::unique_ptr<const Knowledge> more);
    OvStatus badTrace(qint64 trace) const;
    OvStatus shortHeader(int wanted, int present) const;
    OvStatus noMemory() const;
    OvStatus walk(qint64 maxTraces, const Progress& progress);
    qint64 endOfBlock(const Knowledge& known, qint64 first, qint64 end) const;
    OvStatus scanBlock(const Knowledge& known, qint64 first, qint64 end, std::vector<char>* buffer,
                       const EachHeader& each, bool* go) const;
    Run runAt(const Knowledge& known, const std::vector<OvTraceHeader>& headers,
              std::size_t row) const;
    OvStatus readRun(const Knowledge& known, const Run& run, std::vector<char>* buffer, float* out,
                     int samplesARow) const;
    OvStatus readRows(const Knowledge& known, OvGather* gather) const;

    OvPositionalFile file;
    QByteArray text;
    std::atomic<const Knowledge*> current{nullptr};
    std::mutex learning;
    // What was once handed out stays until the file is closed.
    std::vector<std::unique_ptr<const Knowledge>> all;
};

void OvSegyFile::Private::forget()
{
    text.clear();
    auto nothing = std::make_unique<const Knowledge>();
    current.store(nothing.get(), std::memory_order_release);
    all.clear();
    all.push_back(std::move(nothing));
}

void OvSegyFile::Private::learn(std::unique_ptr<const Knowledge> more)
{
    const std::lock_guard<std::mutex> lock(learning);
    if (now().complete && !now().info.path.isEmpty())
        return;
    if (more->locator.count() >= now().locator.count()) {
        current.store(more.get(), std::memory_order_release);
        all.push_back(std::move(more));
    }
}

OvStatus OvSegyFile::Private::badTrace(qint64 trace) const
{
    return OvStatus::failure(tr("%1 has no trace %2; number of its traces: %3.")
                                 .arg(QDir::toNativeSeparators(now().info.path),
                                      QString::number(trace), QString::number(now().count())));
}

OvStatus OvSegyFile::Private::shortHeader(int wanted, int present) const
{
    return OvStatus::failure(
        tr("The trace headers of %1 have %2 bytes, but the header mapping wants %3.")
            .arg(QDir::toNativeSeparators(now().info.path), QString::number(present),
                 QString::number(wanted)));
}

OvStatus OvSegyFile::Private::noMemory() const
{
    return OvStatus::failure(tr("There is not enough memory to read %1.")
                                 .arg(QDir::toNativeSeparators(now().info.path)));
}

OvStatus OvSegyFile::Private::walk(qint64 maxTraces, const Progress& progress)
{
    OvSegyTraceWalk found;
    OvStatus status = found.run(file, now().info, maxTraces, progress);
    if (!status)
        return status;
    auto more = std::make_unique<Knowledge>();
    more->info = now().info;
    more->locator = std::move(found.locator);
    more->complete = found.complete;
    if (found.complete) {
        more->info.traceCount = more->locator.count();
        more->info.sampleCount = qMax(1, more->locator.longest());
        more->info.warnings += found.warnings;
    }
    learn(std::move(more));
    return {};
}

/// Behind the last trace of those from first that are read at once.
qint64 OvSegyFile::Private::endOfBlock(const Knowledge& known, qint64 first, qint64 end) const
{
    qint64 last = first + 1;
    const qint64 start = known.position(first);
    while (last < end && known.position(last + 1) - start <= blockBytes)
        ++last;
    return last;
}

OvStatus OvSegyFile::Private::scanBlock(const Knowledge& known, qint64 first, qint64 end,
                                        std::vector<char>* buffer, const EachHeader& each,
                                        bool* go) const
{
    const qint64 headerSize = OvSegyLayout::traceHeaderSize;
    const qint64 start = known.position(first);
    const bool single = known.position(end) - start > longTraceBytes * (end - first);
    const qint64 bytes = single ? headerSize : known.position(end - 1) - start + headerSize;
    buffer->resize(static_cast<std::size_t>(bytes));
    OvStatus status;
    if (single)
        file.prefetch(start, known.position(end) - start);
    else
        status = file.read(start, buffer->data(), bytes);
    for (qint64 trace = first; trace < end && status && *go; ++trace) {
        const qint64 offset = known.position(trace) - start;
        if (single)
            status = file.read(start + offset, buffer->data(), bytes);
        const char* header = buffer->data() + (single ? 0 : offset);
        if (status)
            *go = each(OvSegyTraceWords::decode(header, known.info.byteOrder));
    }
    return status;
}

OvSegyFile::Private::Run OvSegyFile::Private::runAt(const Knowledge& known,
                                                    const std::vector<OvTraceHeader>& headers,
                                                    std::size_t row) const
{
    Run run = {row, headers[row].traceIndex, 1};
    if (run.firstTrace < 0 || run.firstTrace >= known.count())
        return run;
    const qint64 start = known.position(run.firstTrace);
    while (row + static_cast<std::size_t>(run.count) < headers.size()) {
        const qint64 next = headers[row + static_cast<std::size_t>(run.count)].traceIndex;
        if (next != run.firstTrace + run.count || next >= known.count() ||
            known.position(next + 1) - start > blockBytes)
            break;
        ++run.count;
    }
    return run;
}

OvStatus OvSegyFile::Private::readRun(const Knowledge& known, const Run& run,
                                      std::vector<char>* buffer, float* out, int samplesARow) const
{
    if (run.firstTrace < 0 || run.firstTrace >= known.count())
        return badTrace(run.firstTrace);
    const qint64 start = known.position(run.firstTrace) + known.shape(run.firstTrace).headerBytes();
    const qint64 bytes = known.position(run.firstTrace + run.count) - start;
    return file.withBytes(start, bytes, buffer, [&](const char* in) {
        for (qint64 i = 0; i < run.count; ++i) {
            const OvTraceLocator::Shape shape = known.shape(run.firstTrace + i);
            const qint64 offset = known.position(run.firstTrace + i) + shape.headerBytes() - start;
            float* row = out + i * samplesARow;
            OvSegySamples::toFloat(known.info.formatCode, known.info.byteOrder, in + offset,
                                   shape.samples, row);
            std::fill(row + shape.samples, row + samplesARow, 0.0F);
        }
    });
}

OvStatus OvSegyFile::Private::readRows(const Knowledge& known, OvGather* gather) const
{
    const auto& headers = gather->headers;
    int longest = headers.empty() || known.info.fixedLength ? known.info.sampleCount : 1;
    for (std::size_t row = 0; row < headers.size() && !known.info.fixedLength; ++row) {
        const qint64 trace = headers[row].traceIndex;
        if (trace >= 0 && trace < known.count())
            longest = qMax(longest, known.shape(trace).samples);
    }
    const auto samples = static_cast<std::size_t>(longest);
    gather->sampleCount = longest;
    gather->intervalMs = known.info.intervalMs();
    gather->samples.resize(headers.size() * samples);
    std::vector<char> buffer;
    for (std::size_t row = 0; row < headers.size();) {
        const Run run = runAt(known, headers, row);
        OvStatus status =
            readRun(known, run, &buffer, gather->samples.data() + row * samples, longest);
        if (!status)
            return status;
        row += static_cast<std::size_t>(run.count);
    }
    return {};
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
    auto known = std::make_unique<Knowledge>();
    if (status)
        status = OvSegyLayout::read(d->file, path, &known->info, &d->text);
    if (!status) {
        close();
        return status;
    }
    known->complete = known->info.fixedLength;
    known->traceBytes = OvSegyLayout::traceSize(known->info);
    d->learn(std::move(known));
    return status;
}

void OvSegyFile::close()
{
    d->file.close();
    d->forget();
}

bool OvSegyFile::isOpen() const
{
    return d->file.isOpen();
}

const OvSegyFileInfo& OvSegyFile::info() const
{
    return d->now().info;
}

const OvPositionalFile& OvSegyFile::bytes() const
{
    return d->file;
}

QStringList OvSegyFile::textHeader() const
{
    return OvSegyText::lines(d->text, info().textEncoding);
}

OvStatus OvSegyFile::locate(const Progress& progress, qint64 maxTraces) const
{
    const Knowledge& known = d->now();
    if (known.complete || known.count() >= maxTraces)
        return {};
    try {
        return d->walk(maxTraces, progress);
    } catch (const std::exception&) {
        return d->noMemory();
    }
}

qint64 OvSegyFile::locatedCount() const
{
    return d->now().count();
}

QByteArray OvSegyFile::savedLocator() const
{
    const Knowledge& known = d->now();
    return known.complete && !known.info.fixedLength ? known.locator.save() : QByteArray();
}

bool OvSegyFile::restoreLocator(const QByteArray& bytes) const
{
    const Knowledge& known = d->now();
    auto more = std::make_unique<Knowledge>();
    more->info = known.info;
    if (known.info.fixedLength ||
        !OvTraceLocator::restore(bytes, known.info.tracesEnd, &more->locator))
        return false;
    if (more->locator.count() == 0 || more->locator.position(0) != known.info.firstTraceOffset)
        return false;
    more->info.traceCount = more->locator.count();
    more->info.sampleCount = qMax(1, more->locator.longest());
    d->learn(std::move(more));
    return true;
}

qint64 OvSegyFile::position(qint64 trace) const
{
    const Knowledge& known = d->now();
    return trace >= 0 && trace < known.count() ? known.position(trace) : -1;
}

qint64 OvSegyFile::headerBytes(qint64 trace) const
{
    const Knowledge& known = d->now();
    return trace >= 0 && trace < known.count() ? known.shape(trace).headerBytes() : 0;
}

int OvSegyFile::sampleCount(qint64 trace) const
{
    const Knowledge& known = d->now();
    return trace >= 0 && trace < known.count() ? known.shape(trace).samples : 0;
}

OvStatus OvSegyFile::scanHeaders(qint64 first, qint64 count,
                                 const std::function<bool(const OvSegyTraceWords&)>& each) const
{
    if (first < 0 || count < 0)
        return d->badTrace(first);
    const qint64 most = std::numeric_limits<qint64>::max();
    OvStatus status = locate({}, count > most - first ? most : first + count);
    const Knowledge& known = d->now();
    if (status && first > known.count())
        status = d->badTrace(first);
    const qint64 end = first + qMin(count, known.count() - first);
    std::vector<char> buffer;
    bool go = true;
    for (qint64 trace = first; trace < end && go && status;) {
        const qint64 next = d->endOfBlock(known, trace, end);
        status = d->scanBlock(known, trace, next, &buffer, each, &go);
        trace = next;
    }
    return status;
}

OvStatus OvSegyFile::readHeaders(qint64 first, qint64 count,
                                 std::vector<OvTraceHeader>* headers) const
{
    headers->clear();
    qint64 trace = first;
    try {
        return scanHeaders(first, count, [&](const OvSegyTraceWords& words) {
            headers->push_back(words.toHeader(trace++, info().metresPerUnit));
            return true;
        });
    } catch (const std::bad_alloc&) {
        headers->clear();
        return d->noMemory();
    }
}

OvStatus OvSegyFile::readHeaderBytes(qint64 trace, int count, char* out) const
{
    const Knowledge& known = d->now();
    if (trace < 0 || trace >= known.count())
        return d->badTrace(trace);
    const auto present = static_cast<int>(known.shape(trace).headerBytes());
    if (count > present)
        return d->shortHeader(count, present);
    return d->file.read(known.position(trace), out, count);
}

OvStatus OvSegyFile::readSamples(qint64 trace, float* out) const
{
    const Knowledge& known = d->now();
    if (trace < 0 || trace >= known.count())
        return d->badTrace(trace);
    std::vector<char> buffer;
    return d->readRun(known, {0, trace, 1}, &buffer, out, known.shape(trace).samples);
}

OvStatus OvSegyFile::readSamples(OvGather* gather) const
{
    OvStatus status;
    try {
        status = d->readRows(d->now(), gather);
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
    const Knowledge& known = d->now();
    if (first < 0 || count < 0 || first > known.count())
        return d->badTrace(first);
    const qint64 end = first + qMin(count, known.count() - first);
    std::vector<char> buffer;
    std::vector<float> samples;
    for (qint64 trace = first; trace < end; ++trace) {
        const OvTraceLocator::Shape shape = known.shape(trace);
        const qint64 bytes = known.position(trace + 1) - known.position(trace);
        buffer.resize(static_cast<std::size_t>(bytes));
        samples.resize(static_cast<std::size_t>(shape.samples));
        OvStatus status = d->file.read(known.position(trace), buffer.data(), bytes);
        if (!status)
            return status;
        OvSegySamples::toFloat(known.info.formatCode, known.info.byteOrder,
                               buffer.data() + shape.headerBytes(), shape.samples, samples.data());
        if (!each(buffer.data(), samples.data(), shape.samples))
            break;
    }
    return {};
}
