#include "OvLatestWork.h"

namespace {

int percentOf(qint64 done, qint64 total)
{
    return total > 0 ? static_cast<int>(done * 100 / total) : 0;
}

} // namespace

OvLatestWork::OvLatestWork(QObject* parent)
    : QObject(parent)
    , m_short(OvBackground::readPool())
    , m_long(OvBackground::scanPool())
{
}

OvLatestWork::~OvLatestWork()
{
    cancel();
}

void OvLatestWork::start(Length length, const Work& work)
{
    cancel();
    m_cancel = std::make_shared<std::atomic<bool>>(false);
    OvBackground& background = length == Short ? m_short : m_long;
    background.run([this, work, cancel = m_cancel](const OvBackground::Post& post) {
        const Take take = work([&](qint64 done, qint64 total) {
            post([this, cancel, percent = percentOf(done, total)] {
                if (cancel == m_cancel)
                    emit progress(percent);
            });
            return !cancel->load();
        });
        post([this, cancel, take] { finish(cancel, take); });
    });
}

void OvLatestWork::finish(const Flag& cancel, const Take& take)
{
    if (cancel != m_cancel)
        return;
    m_cancel.reset();
    take();
}

void OvLatestWork::cancel()
{
    if (m_cancel)
        m_cancel->store(true);
}
