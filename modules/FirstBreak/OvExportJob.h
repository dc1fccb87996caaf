#pragma once

#include "OvDocumentJob.h"

/// Writes the first breaks of a document to a text file, as they are stored when the job runs.
class OvExportJob : public OvDocumentJob
{
    Q_OBJECT

public:
    OvExportJob(const QSharedPointer<OvSegyDocument>& document, const QString& outPath,
                QObject* parent);
    ~OvExportJob() override;

protected:
    Work makeWork() override;
    QString title() const override;
    QString summary() const override;

private:
    QString m_outPath;
    std::shared_ptr<std::atomic<qint64>> m_picks = std::make_shared<std::atomic<qint64>>(0);
};
