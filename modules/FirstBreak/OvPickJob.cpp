#include "OvPickJob.h"

#include "OvGui/document/OvPickHistory.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace {

// Keeps one turn of the event loop well below a frame.
constexpr std::size_t gathersShownAtOnce = 32;

} // namespace

void OvPickJob::Queue::add(std::vector<OvFirstBreakUpdate>&& stored)
{
    const std::lock_guard<std::mutex> lock(mutex);
    std::move(stored.begin(), stored.end(), std::back_inserter(updates));
}

std::vector<OvFirstBreakUpdate> OvPickJob::Queue::take(std::size_t limit, bool* more)
{
    const std::lock_guard<std::mutex> lock(mutex);
    const auto end = updates.begin() + static_cast<std::ptrdiff_t>(std::min(limit, updates.size()));
    std::vector<OvFirstBreakUpdate> taken(std::make_move_iterator(updates.begin()),
                                          std::make_move_iterator(end));
    updates.erase(updates.begin(), end);
    *more = !updates.empty();
    return taken;
}

OvPickJob::OvPickJob(const QSharedPointer<OvSegyDocument>& document, const Options& options,
                     QObject* parent)
    : OvDocumentJob(document, parent)
    , m_options(options)
{
    connect(this, &OvAbstractJob::stateChanged, this, [this] {
        if (!isRunning())
            stopFollowing();
    });
}

OvPickJob::~OvPickJob()
{
    stopFollowing();
}

void OvPickJob::stopFollowing()
{
    if (m_following)
        document()->endJobStorage();
    m_following = false;
}

QString OvPickJob::title() const
{
    const QString file = QFileInfo(document()->segyPath()).fileName();
    return isOfOneGather() ? tr("Picking a gather of %1").arg(file) : tr("Picking %1").arg(file);
}

// A gather from before all headers were read may be a part of what it is now.
void OvPickJob::placeGather(OvPickWork::Order* order) const
{
    order->gather = m_options.gather;
    if (!m_options.gathers || !isOfOneGather())
        return;
    order->gathers = m_options.gathers;
    const std::vector<qint64> traces = order->gathers->gatherTraces(order->gather);
    if (traces.empty() || !order->gathers->order().isDefault())
        return;
    const int gather = order->index->gatherOfTrace(traces.front());
    if (gather < 0)
        return;
    order->gathers = order->index;
    order->gather = gather;
}

OvDocumentJob::Work OvPickJob::makeWork()
{
    m_following = true;
    document()->beginJobStorage();
    OvPickWork::Order order;
    order.segy = &document()->file();
    order.index = document()->index();
    order.firstBreakPath = document()->firstBreakPath();
    order.define = m_options.define;
    placeGather(&order);
    order.keepManualPicks = m_options.keepManualPicks;
    order.resume = m_options.resume;
    return [order, shared = shared(), queue = m_queue] {
        OvPickWork work(order, [queue](std::vector<OvFirstBreakUpdate>&& stored) {
            queue->add(std::move(stored));
        });
        const auto progress = [&shared](int done, int total) {
            shared->total = total;
            shared->done = done;
        };
        return work.run(progress, &shared->cancel);
    };
}

bool OvPickJob::takeResults()
{
    bool more = false;
    const std::vector<OvFirstBreakUpdate> stored = m_queue->take(gathersShownAtOnce, &more);
    for (const OvFirstBreakUpdate& update : stored) {
        ++m_gathers;
        m_traces += update.breaks.size();
        m_picks += update.breaks.pickedCount();
    }
    if (!stored.empty())
        document()->takeStored(stored);
    if (isOfOneGather() && !stored.empty())
        noteStep(stored.front());
    return more;
}

void OvPickJob::noteStep(const OvFirstBreakUpdate& update)
{
    document()->pickHistory()->note(update.traces, update.before, update.breaks,
                                    tr("Pick This Gather"));
}

QString OvPickJob::summary() const
{
    if (isOfOneGather())
        return tr("Picked traces of the gather: %1 of %2.").arg(m_picks).arg(m_traces);
    return tr("Picked traces: %1 of %2. Gathers: %3.").arg(m_picks).arg(m_traces).arg(m_gathers);
}
