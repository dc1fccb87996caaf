#include "OvPickJob.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace {

// Keeps one turn of the event loop well below a frame.
constexpr std::size_t gathersStoredAtOnce = 32;

} // namespace

void OvPickJob::Queue::add(int gather, const OvPickResult& result)
{
    const std::lock_guard<std::mutex> lock(mutex);
    gathers.push_back({gather, result});
}

std::vector<OvPickJob::Delivered> OvPickJob::Queue::take(std::size_t limit, bool* more)
{
    const std::lock_guard<std::mutex> lock(mutex);
    const auto end = gathers.begin() + static_cast<std::ptrdiff_t>(std::min(limit, gathers.size()));
    std::vector<Delivered> taken(std::make_move_iterator(gathers.begin()),
                                 std::make_move_iterator(end));
    gathers.erase(gathers.begin(), end);
    *more = !gathers.empty();
    return taken;
}

OvPickJob::OvPickJob(const QSharedPointer<OvSegyDocument>& document, const Options& options,
                     QObject* parent)
    : OvDocumentJob(document, parent)
    , m_options(options)
{
}

OvPickJob::~OvPickJob() = default;

QString OvPickJob::title() const
{
    return tr("Picking %1").arg(QFileInfo(document()->segyPath()).fileName());
}

OvDocumentJob::Work OvPickJob::makeWork()
{
    const std::shared_ptr<const OvSegyIndex> index = document()->index();
    return m_options.gather < 0 ? pickAll(index) : pickOne(index);
}

OvDocumentJob::Work OvPickJob::pickAll(const std::shared_ptr<const OvSegyIndex>& index) const
{
    OvPickRun::Request request;
    request.file = &document()->file();
    request.settings.parameters = m_options.parameters;
    return [request, index, shared = shared(), queue = m_queue]() mutable {
        request.index = index.get();
        const auto deliver = [&queue](const OvGather& gather, const OvPickResult& result) {
            queue->add(gather.ordinal, result);
            return OvStatus::success();
        };
        const auto progress = [&shared](int done, int total) {
            shared->total = total;
            shared->done = done;
        };
        return OvPickRun::run(request, deliver, progress, &shared->cancel);
    };
}

OvDocumentJob::Work OvPickJob::pickOne(const std::shared_ptr<const OvSegyIndex>& index) const
{
    const OvSegyFile* file = &document()->file();
    return [file, index, options = m_options, shared = shared(), queue = m_queue] {
        OvGather gather;
        OvStatus status = index->readGather(*file, options.gather, &gather);
        if (!status || shared->cancel)
            return status;
        OvPickSettings settings;
        settings.parameters = options.parameters;
        const OvPickResult result = OvPicker::create()->pick(gather, settings, &shared->cancel);
        if (!shared->cancel)
            queue->add(options.gather, result);
        return status;
    };
}

OvFirstBreaks OvPickJob::merged(OvFirstBreaks present, const OvPickResult& result,
                                bool keepManualPicks)
{
    present.resize(static_cast<int>(result.timesMs.size()));
    for (std::size_t row = 0; row < result.timesMs.size(); ++row) {
        if (keepManualPicks && present.states[row] == OvPickState::Manual)
            continue;
        const bool picked = !std::isnan(result.timesMs[row]);
        present.timesMs[row] = result.timesMs[row];
        present.confidences[row] = picked ? result.confidences[row] : 0.0F;
        present.states[row] = picked ? OvPickState::Automatic : OvPickState::None;
    }
    return present;
}

bool OvPickJob::takeResults()
{
    bool more = false;
    const std::vector<Delivered> gathers = m_queue->take(gathersStoredAtOnce, &more);
    QVector<QPair<int, OvFirstBreaks>> rows;
    for (const Delivered& delivered : gathers) {
        rows.append({delivered.gather, merged(document()->firstBreaks(delivered.gather),
                                              delivered.result, m_options.keepManualPicks)});
    }
    if (rows.isEmpty())
        return more;
    const OvStatus status = document()->setFirstBreaks(rows);
    if (!status) {
        fail(status.message());
        return false;
    }
    m_gathers += rows.size();
    for (const auto& row : qAsConst(rows)) {
        m_traces += row.second.size();
        m_picks += row.second.pickedCount();
    }
    return more;
}

QString OvPickJob::summary() const
{
    return tr("%1 of %2 traces in %3 gathers have a pick.")
        .arg(m_picks)
        .arg(m_traces)
        .arg(m_gathers);
}
