#pragma once

#include "OvGui/document/OvBackground.h"
#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"
#include "OvSeismic/segy/OvTraceHeaderMapping.h"

#include <QObject>
#include <QPointer>

#include <atomic>
#include <memory>

class OvAbstractJob;

/// Reads the header index of one file in worker threads: the first gather at once, then the rest as
/// a job of the task list that can be cancelled; a large file's index is kept in the user's cache
/// folder and taken from there the next time. GUI thread.
class OvIndexLoader : public QObject
{
    Q_OBJECT

public:
    OvIndexLoader(std::shared_ptr<const OvSegyFile> file, const OvTraceHeaderMapping& mapping,
                  QObject* parent = nullptr);
    /// Stops a scan that still runs, without waiting for it.
    ~OvIndexLoader() override;

    void start();
    /// Reads the headers by another mapping. A complete index stays as it is until the new one is
    /// complete, also when that fails.
    void setMapping(const OvTraceHeaderMapping& mapping);
    const OvTraceHeaderMapping& mapping() const { return m_mapping; }
    /// Whether the complete index was read by a mapping from before.
    bool isStale() const { return m_complete && m_index->mapping() != m_mapping; }
    bool isRunning() const { return m_running; }
    bool isComplete() const { return m_complete; }
    int percent() const { return m_percent; }
    /// Why there is no complete index.
    QString message() const { return m_cancelled ? cancelledMessage() : m_message; }
    std::shared_ptr<const OvSegyIndex> index() const { return m_index; }
    /// Names the job, and says why it ended, anew in the present language.
    void retranslate();

signals:
    void firstGatherReady();
    void progress(int percent);
    void completed();
    void failed(const QString& message);

private:
    using Flag = std::shared_ptr<std::atomic<bool>>;
    void startScan();
    void settle();
    void makeJob();
    void takeFirst(const OvStatus& status, const std::shared_ptr<OvSegyIndex>& index);
    void takeProgress(int percent);
    void takeAll(const OvStatus& status, const std::shared_ptr<OvSegyIndex>& index, bool cancelled);
    void finishJob(bool done);
    QString cancelledMessage() const;

    std::shared_ptr<const OvSegyFile> m_file;
    OvTraceHeaderMapping m_mapping;
    std::shared_ptr<const OvSegyIndex> m_index;
    Flag m_cancel; // of the scan at work; what another one finds is dropped
    QPointer<OvAbstractJob> m_job;
    bool m_running = false;
    bool m_complete = false;
    bool m_cancelled = false;
    int m_percent = 0;
    QString m_message;
    OvBackground m_reads;
    OvBackground m_scans;
};
