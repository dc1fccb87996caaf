#pragma once

#include "OvGui/document/OvBackground.h"
#include "OvSeismic/segy/OvHeaderSurvey.h"

#include <QObject>

#include <atomic>
#include <memory>

class OvSegyFile;

/// Reads trace headers of a file for the mapping dialog in worker threads. GUI thread.
class OvHeaderExamination : public QObject
{
    Q_OBJECT

public:
    explicit OvHeaderExamination(std::shared_ptr<const OvSegyFile> file, QObject* parent = nullptr);
    /// Stops what still runs, without waiting for it.
    ~OvHeaderExamination() override;

    /// The first headers, as many bytes each; headersRead() answers.
    void readFirst(int traces, int bytesEach);
    /// Surveys the whole file, or a spread of its traces. What is still at work for an earlier call
    /// is stopped and not heard of again.
    void survey(const OvTraceHeaderMapping& mapping, bool wholeFile);
    /// failed() follows.
    void cancel();
    bool isRunning() const { return m_cancel != nullptr; }

signals:
    void headersRead(const QByteArray& headers);
    void progress(int percent);
    void surveyed(const OvHeaderSurvey& survey);
    void failed(const QString& message);

private:
    void take(const std::shared_ptr<std::atomic<bool>>& cancel, const OvStatus& status,
              const OvHeaderSurvey& survey);

    std::shared_ptr<const OvSegyFile> m_file;
    std::shared_ptr<std::atomic<bool>> m_cancel; // of the survey at work
    OvBackground m_reads;
    OvBackground m_scans;
};
