#pragma once

#include "OvGui/document/OvBackground.h"
#include "OvGui/document/OvSegyDocument.h"
#include "OvSeismic/segy/OvGatherOrder.h"

#include <QObject>

#include <memory>

class OvGatherReader;

/// The gathers of a document in one window's own order. The document's own order shares its index
/// and what it has read; any other is worked out in a worker from the same header words.
///
/// GUI thread. Until the document's index is complete, and while another order is worked out, the
/// gathers are those from before.
class OVGUI_EXPORT OvGatherSource : public QObject
{
    Q_OBJECT

public:
    explicit OvGatherSource(QSharedPointer<OvSegyDocument> document, QObject* parent = nullptr);
    ~OvGatherSource() override;

    QSharedPointer<OvSegyDocument> document() const { return m_document; }
    /// The order asked for last.
    const OvGatherOrder& order() const { return m_order; }
    void setOrder(const OvGatherOrder& order);
    /// Whether index() is not yet in order().
    bool isOrdering() const;

    std::shared_ptr<const OvSegyIndex> index() const;
    int gatherCount() const { return index()->gatherCount(); }
    /// Reads a gather in a worker thread; gatherLoaded() answers.
    void requestGather(int gather);
    /// The gather when it is in memory, else null.
    std::shared_ptr<const OvGather> cachedGather(int gather);

    OvFirstBreaks firstBreaks(int gather) const;
    /// Whether one of these traces of the file is in the gather.
    bool holdsAny(int gather, const std::vector<qint64>& traces) const;

signals:
    void gatherLoaded(int gather, std::shared_ptr<const OvGather> data, const QString& message);
    /// Gathers have become others: new numbers, other traces.
    void indexChanged();

private:
    bool isOwn() const { return m_ordered != nullptr; }
    void followDocument();
    void makeReader();
    void regroup();
    void takeOrdered(const std::shared_ptr<const OvSegyIndex>& base,
                     const std::shared_ptr<const OvSegyIndex>& ordered);

    QSharedPointer<OvSegyDocument> m_document;
    OvGatherOrder m_order;
    std::shared_ptr<const OvSegyIndex> m_ordered; // null in the document's own order
    std::unique_ptr<OvGatherReader> m_reader;     // of m_ordered
    OvBackground m_background;
};
