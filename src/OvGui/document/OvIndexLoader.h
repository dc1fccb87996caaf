#pragma once

#include "OvGui/document/OvBackground.h"
#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"

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
    explicit OvIndexLoader(std::shared_ptr<const OvSegyFile> file, QObject* parent = nullptr);
    /// Stops a scan that still runs, without waiting for it.
    ~OvIndexLoader() override;

    void start();
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
    void startScan();
    void makeJob();
    void takeFirst(const OvStatus& status, const std::shared_ptr<OvSegyIndex>& index);
    void takeProgress(int percent);
    void takeAll(const OvStatus& status, const std::shared_ptr<OvSegyIndex>& index, bool cancelled);
    void finishJob();
    QString cancelledMessage() const;

    std::shared_ptr<const OvSegyFile> m_file;
    std::shared_ptr<const OvSegyIndex> m_index;
    std::shared_ptr<std::atomic<bool>> m_cancel;
    QPointer<OvAbstractJob> m_job;
    bool m_running = false;
    bool m_complete = false;
    bool m_cancelled = false;
    int m_percent = 0;
    QString m_message;
    OvBackground m_reads;
    OvBackground m_scans;
};
