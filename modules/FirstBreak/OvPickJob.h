#pragma once

#include "OvDocumentJob.h"
#include "OvPickWork.h"

#include <mutex>

/// Picks the first breaks of a document automatically. Picks are stored as gathers finish, by the
/// worker; a cancelled or failed run keeps what was stored, and an equal one can go on from there.
class OvPickJob : public OvDocumentJob
{
    Q_OBJECT

public:
    struct Options
    {
        OvPickDefine define;
        int gather = -1; ///< the only gather to pick; -1 for those of the parameters
        bool keepManualPicks = true;
        bool resume = false; ///< go on where an equal run stopped
    };

    OvPickJob(const QSharedPointer<OvSegyDocument>& document, const Options& options,
              QObject* parent);
    ~OvPickJob() override;

protected:
    Work makeWork() override;
    bool takeResults() override;
    QString title() const override;
    QString summary() const override;

private:
    struct Queue
    {
        std::mutex mutex;
        std::vector<OvFirstBreakUpdate> updates;

        void add(std::vector<OvFirstBreakUpdate>&& stored);
        /// The oldest entries, at most limit; *more tells whether others are left.
        std::vector<OvFirstBreakUpdate> take(std::size_t limit, bool* more);
    };

    void stopFollowing();

    Options m_options;
    std::shared_ptr<Queue> m_queue = std::make_shared<Queue>();
    bool m_following = false;
    int m_gathers = 0;
    qint64 m_traces = 0;
    qint64 m_picks = 0;
};
