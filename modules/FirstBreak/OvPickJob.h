#pragma once

#include "OvDocumentJob.h"

#include "OvSeismic/picking/OvPickRun.h"

#include <mutex>

/// Picks the first breaks of a document automatically. Picks are stored as gathers finish; a
/// cancelled or failed run keeps what was stored.
class OvPickJob : public OvDocumentJob
{
    Q_OBJECT

public:
    struct Options
    {
        OvPickParameters parameters;
        int gather = -1; ///< the only gather to pick; -1 for those of the parameters
        bool keepManualPicks = true;
    };

    OvPickJob(const QSharedPointer<OvSegyDocument>& document, const Options& options,
              QObject* parent);
    ~OvPickJob() override;

    /// New picks over old ones: a manual pick stays when keepManualPicks says so.
    static OvFirstBreaks merged(OvFirstBreaks present, const OvPickResult& result,
                                bool keepManualPicks);

protected:
    Work makeWork() override;
    bool takeResults() override;
    QString title() const override;
    QString summary() const override;

private:
    struct Delivered
    {
        int gather = -1;
        OvPickResult result;
    };
    struct Queue
    {
        std::mutex mutex;
        std::vector<Delivered> gathers;

        void add(int gather, const OvPickResult& result);
        /// The oldest entries, at most limit; *more tells whether others are left.
        std::vector<Delivered> take(std::size_t limit, bool* more);
    };

    Work pickAll(const std::shared_ptr<const OvSegyIndex>& index) const;
    Work pickOne(const std::shared_ptr<const OvSegyIndex>& index) const;

    Options m_options;
    std::shared_ptr<Queue> m_queue = std::make_shared<Queue>();
    int m_gathers = 0;
    qint64 m_traces = 0;
    qint64 m_picks = 0;
};
