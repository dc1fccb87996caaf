#pragma once

#include "OvGui/document/OvBackground.h"
#include "OvGui/document/OvSegyDocument.h"
#include "OvSeismic/picking/OvPickDefine.h"

#include <QThreadPool>

#include <atomic>

/// Picks one gather of a document in a worker and says what was found. Nothing is stored.
///
/// GUI thread. A new request takes the place of the one before, which is not answered any more.
class OvGatherPicker : public QObject
{
    Q_OBJECT

public:
    explicit OvGatherPicker(const QSharedPointer<OvSegyDocument>& document,
                            QObject* parent = nullptr);
    ~OvGatherPicker() override;

    QSharedPointer<OvSegyDocument> document() const { return m_document; }
    void pick(int gather, const OvPickDefine& define);
    /// There will be no answer.
    void cancel();

signals:
    void picked(int gather, const OvFirstBreaks& breaks);
    void failed(const QString& message);

private:
    QSharedPointer<OvSegyDocument> m_document;
    std::shared_ptr<std::atomic<bool>> m_cancel;
    QThreadPool m_pool; // of one thread; emptied before the document goes
    OvBackground m_background;
};
