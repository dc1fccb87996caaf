#pragma once

#include "OvLatestWork.h"

#include "OvSeismic/segy/OvHeaderSurvey.h"

#include <QObject>

#include <memory>

class OvSegyFile;

/// Reads trace headers of a file for the mapping dialog in worker threads. GUI thread.
class OvHeaderExamination : public QObject
{
    Q_OBJECT

public:
    /// Its end stops what still runs, without waiting for it.
    explicit OvHeaderExamination(std::shared_ptr<const OvSegyFile> file, QObject* parent = nullptr);

    /// The first headers, as many bytes each; headersRead() answers.
    void readFirst(int traces, int bytesEach);
    /// Surveys the whole file, or a spread of its traces. What is still at work for an earlier call
    /// is stopped and not heard of again.
    void survey(const OvTraceHeaderMapping& mapping, bool wholeFile);
    /// failed() follows.
    void cancel() { m_survey.cancel(); }

signals:
    void headersRead(const QByteArray& headers);
    void progress(int percent);
    void surveyed(const OvHeaderSurvey& survey);
    void failed(const QString& message);

private:
    std::shared_ptr<const OvSegyFile> m_file;
    OvBackground m_reads;
    OvLatestWork m_survey;
};
