#pragma once

#include "OvDocumentJob.h"
#include "OvPickWork.h"

#include <mutex>

/// Picks the first breaks of a document automatically. Picks are stored as gathers finish, by the
/// worker; a cancelled or failed run keeps what was stored, and an equal one can go on from there.
/// What is done to a single gather is one step of the document's history.
class OvPickJob : public OvDocumentJob
{
    Q_OBJECT

public:
    struct Options
    {
        OvPickDefine define;
        int gather = -1; ///< the only gather to pick; -1 for those of the parameters
        /// Which gather is one of, in any order; null for the document's own gathers.
        std::shared_ptr<const OvSegyIndex> gathers;
        bool keepManualPicks = true;
        bool resume = false; ///< go on where an equal run stopped
    };

    OvPickJob(const QSharedPointer<OvSegyDocument>& document, const Options& options,
              QObject* parent);
    ~OvPickJob() override;

    bool isOfOneGather() const { return m_options.gather >= 0; }

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

    void placeGather(OvPickWork::Order* order) const;
    void noteStep(const OvFirstBreakUpdate& update);
    void stopFollowing();

    Options m_options;
    std::shared_ptr<Queue> m_queue = std::make_shared<Queue>();
    bool m_following = false;
    int m_gathers = 0;
    qint64 m_traces = 0;
    qint64 m_picks = 0;
};
