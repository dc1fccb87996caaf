#pragma once

#include "OvSeismic/firstbreak/OvFirstBreakFile.h"
#include "OvSeismic/picking/OvPickDefine.h"
#include "OvSeismic/picking/OvPickRun.h"

#include <QCoreApplication>
#include <QElapsedTimer>

/// Picks gathers of one SEG-Y file and stores them as they are found, on the thread that calls
/// run(), with a connection of its own to the first-break file.
class OvPickWork
{
    Q_DECLARE_TR_FUNCTIONS(OvPickWork)

public:
    struct Order
    {
        const OvSegyFile* segy = nullptr;         ///< not owned
        std::shared_ptr<const OvSegyIndex> index; ///< all traces, by field record
        /// In which gather is one, in any order; null where that is index.
        std::shared_ptr<const OvSegyIndex> gathers;
        QString firstBreakPath;
        OvPickDefine define;
        int gather = -1; ///< the only one to pick; -1 for those of the parameters
        bool keepManualPicks = true;
        bool resume = false; ///< go on where an equal run stopped

        const OvSegyIndex& grouping() const { return gathers ? *gathers : *index; }
    };
    /// Takes what has been stored; the only gather to pick comes with what it had before.
    using Stored = std::function<void(std::vector<OvFirstBreakUpdate>&& updates)>;

    /// A result as automatic picks.
    static OvFirstBreaks breaksOf(const OvPickResult& result);
    /// What a run over all gathers does, as a text that an equal run shares: settings and gathers.
    static QString runText(const OvPickDefine& define, const QString& gatheringText);
    /// Tells index's gathers from others, as a short text.
    static QString gatheringText(const OvSegyIndex& index);
    /// The guide that needs picks, for one gather or (-1) for a run over all. Null where the define
    /// asks for no such guide; a failure where there are too few picks to learn from.
    static OvStatus learn(const Order& order, const OvFirstBreakFile& file,
                          const std::atomic<bool>* cancel,
                          std::shared_ptr<const OvPickPrior>* prior);

    OvPickWork(Order order, Stored stored);
    /// What was found before a failure or a cancel is stored.
    OvStatus run(const OvPickRun::Progress& progress, const std::atomic<bool>* cancel);

private:
    OvStatus open();
    OvStatus startRun(std::vector<int>* done);
    OvStatus pickAll(const OvPickRun::Progress& progress, const std::atomic<bool>* cancel);
    OvStatus pickOne(const std::atomic<bool>* cancel);
    OvStatus take(const OvGather& gather, const OvPickResult& result);
    OvStatus flush();

    Order m_order;
    Stored m_stored;
    OvFirstBreakFile m_file;
    OvPickSettings m_settings;
    std::vector<OvFirstBreakUpdate> m_waiting;
    QElapsedTimer m_sinceFlush;
};
