#include "OvPreviewPicker.h"

#include "OvPickWork.h"

#include <QFileInfo>

#include <exception>

namespace {

struct Outcome
{
    OvStatus status;
    std::shared_ptr<const OvGather> data;
    OvFirstBreaks breaks;
};

Outcome pickGather(const OvPickWork::Order& order, std::shared_ptr<const OvGather> data,
                   const std::atomic<bool>* cancel)
{
    Outcome outcome;
    outcome.data = std::move(data);
    OvFirstBreakFile file;
    // Looking makes no file.
    if (order.define.guide != OvPickDefine::Guide::None && QFileInfo::exists(order.firstBreakPath))
        outcome.status = file.open(order.firstBreakPath, order.segy->info());
    OvPickSettings settings = order.define.settings();
    if (outcome.status && !settings.prior)
        outcome.status = OvPickWork::learn(order, file, cancel, &settings.prior);
    if (outcome.status && !outcome.data && !*cancel) {
        auto read = std::make_shared<OvGather>();
        outcome.status = order.grouping().readGather(*order.segy, order.gather, read.get());
        outcome.data = read;
    }
    if (outcome.status && !*cancel)
        outcome.breaks =
            OvPickWork::breaksOf(OvPicker::create()->pick(*outcome.data, settings, cancel));
    return outcome;
}

Outcome guarded(const OvPickWork::Order& order, const std::shared_ptr<const OvGather>& data,
                const std::atomic<bool>* cancel)
{
    try {
        return pickGather(order, data, cancel);
    } catch (const std::exception& error) {
        Outcome outcome;
        outcome.status = OvStatus::failure(OvPreviewPicker::tr("The gather cannot be picked: %1")
                                               .arg(QString::fromLocal8Bit(error.what())));
        return outcome;
    }
}

std::vector<qint64> tracesOf(const OvGather& gather)
{
    std::vector<qint64> traces;
    traces.reserve(gather.headers.size());
    for (const OvTraceHeader& header : gather.headers)
        traces.push_back(header.traceIndex);
    return traces;
}

} // namespace

OvPreviewPicker::OvPreviewPicker(const QSharedPointer<OvSegyDocument>& document,
                                 std::shared_ptr<const OvSegyIndex> gathers, int gather,
                                 QObject* parent)
    : QObject(parent)
    , m_document(document)
    , m_gathers(std::move(gathers))
    , m_gather(gather)
    , m_background(&m_pool)
{
    m_pool.setMaxThreadCount(1);
}

OvPreviewPicker::~OvPreviewPicker()
{
    cancel();
    m_pool.waitForDone();
}

void OvPreviewPicker::cancel()
{
    if (m_cancel)
        *m_cancel = true;
    m_cancel.reset();
}

void OvPreviewPicker::pick(const OvPickDefine& define)
{
    cancel();
    const auto cancelled = std::make_shared<std::atomic<bool>>(false);
    m_cancel = cancelled;
    OvPickWork::Order order;
    order.segy = &m_document->file();
    order.index = m_document->index();
    order.gathers = m_gathers;
    order.firstBreakPath = m_document->firstBreakPath();
    order.define = define;
    order.gather = m_gather;
    m_background.run([this, order, cancelled, data = m_data](const OvBackground::Post& post) {
        if (*cancelled)
            return;
        const Outcome outcome = guarded(order, data, cancelled.get());
        post([this, outcome, cancelled] {
            if (*cancelled)
                return;
            m_data = outcome.data;
            if (outcome.status)
                emit picked(tracesOf(*m_data), outcome.breaks);
            else
                emit failed(outcome.status.message());
        });
    });
}
