#pragma once

#include "OvGui/document/OvBackground.h"
#include "OvGui/document/OvSegyDocument.h"
#include "OvSeismic/picking/OvPickDefine.h"

#include <QThreadPool>

#include <atomic>

/// Picks one gather of a document in a worker, again and again with other values, and says what was
/// found. Nothing is stored.
///
/// GUI thread. A new request takes the place of the one before, which is not answered any more.
class OvPreviewPicker : public QObject
{
    Q_OBJECT

public:
    /// gather is one of gathers, which may be in any order; of the document's own without any.
    OvPreviewPicker(const QSharedPointer<OvSegyDocument>& document,
                    std::shared_ptr<const OvSegyIndex> gathers, int gather,
                    QObject* parent = nullptr);
    ~OvPreviewPicker() override;

    void pick(const OvPickDefine& define);
    /// There will be no answer.
    void cancel();

signals:
    /// One entry for each of traces, positions in the file.
    void picked(const std::vector<qint64>& traces, const OvFirstBreaks& breaks);
    void failed(const QString& message);

private:
    QSharedPointer<OvSegyDocument> m_document;
    std::shared_ptr<const OvSegyIndex> m_gathers;
    int m_gather;
    std::shared_ptr<const OvGather> m_data; // null until it has been read
    std::shared_ptr<std::atomic<bool>> m_cancel;
    QThreadPool m_pool; // of one thread; emptied before the document goes
    OvBackground m_background;
};
