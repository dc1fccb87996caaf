#include "OvGatherPicker.h"

#include "OvPickWork.h"

#include <QFileInfo>

#include <exception>

namespace {

struct Outcome
{
    OvStatus status;
    OvFirstBreaks breaks;
};

Outcome pickGather(const OvPickWork::Order& order, std::shared_ptr<const OvGather> data,
                   const std::atomic<bool>* cancel)
{
    Outcome outcome;
    OvFirstBreakFile file;
    // Looking makes no file.
    if (order.define.guide != OvPickDefine::Guide::None && QFileInfo::exists(order.firstBreakPath))
        outcome.status = file.open(order.firstBreakPath, order.segy->info());
    OvPickSettings settings = order.define.settings();
    if (outcome.status && !settings.prior)
        outcome.status = OvPickWork::learn(order, file, cancel, &settings.prior);
    if (outcome.status && !data && !*cancel) {
        auto read = std::make_shared<OvGather>();
        outcome.status = order.index->readGather(*order.segy, order.gather, read.get());
        data = read;
    }
    if (outcome.status && !*cancel)
        outcome.breaks = OvPickWork::breaksOf(OvPicker::create()->pick(*data, settings, cancel));
    return outcome;
}

Outcome guarded(const OvPickWork::Order& order, const std::shared_ptr<const OvGather>& data,
                const std::atomic<bool>* cancel)
{
    try {
        return pickGather(order, data, cancel);
    } catch (const std::exception& error) {
        return {OvStatus::failure(OvGatherPicker::tr("The gather cannot be picked: %1")
                                      .arg(QString::fromLocal8Bit(error.what()))),
                {}};
    }
}

} // namespace

OvGatherPicker::OvGatherPicker(const QSharedPointer<OvSegyDocument>& document, QObject* parent)
    : QObject(parent)
    , m_document(document)
    , m_background(&m_pool)
{
    m_pool.setMaxThreadCount(1);
}

OvGatherPicker::~OvGatherPicker()
{
    cancel();
    m_pool.waitForDone();
}

void OvGatherPicker::cancel()
{
    if (m_cancel)
        *m_cancel = true;
    m_cancel.reset();
}

void OvGatherPicker::pick(int gather, const OvPickDefine& define)
{
    cancel();
    const auto cancelled = std::make_shared<std::atomic<bool>>(false);
    m_cancel = cancelled;
    OvPickWork::Order order;
    order.segy = &m_document->file();
    order.index = m_document->index();
    order.firstBreakPath = m_document->firstBreakPath();
    order.define = define;
    order.gather = gather;
    m_background.run([this, order, cancelled,
                      data = m_document->cachedGather(gather)](const OvBackground::Post& post) {
        if (*cancelled)
            return;
        const Outcome outcome = guarded(order, data, cancelled.get());
        post([this, gather = order.gather, outcome, cancelled] {
            if (*cancelled)
                return;
            if (outcome.status)
                emit picked(gather, outcome.breaks);
            else
                emit failed(outcome.status.message());
        });
    });
}
