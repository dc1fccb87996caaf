#include "OvGui/view/OvViewNotices.h"

#include "OvGui/view/OvBanner.h"

#include <cmath>

OvViewNotices::OvViewNotices(QSharedPointer<OvSegyDocument> document, OvBanner* banner)
    : QObject(banner)
    , m_document(std::move(document))
    , m_banner(banner)
{
    const OvSegyDocument* source = m_document.data();
    connect(source, &OvSegyDocument::fileStateChanged, this, &OvViewNotices::update);
    connect(source, &OvSegyDocument::indexComplete, this, &OvViewNotices::update);
    connect(source, &OvSegyDocument::indexFailed, this, &OvViewNotices::update);
    connect(banner, &OvBanner::reloadChosen, this, &OvViewNotices::reload);
    update();
}

void OvViewNotices::update()
{
    const QString change = m_document->fileMessage();
    m_banner->setNotice(change.isEmpty() ? oddities() : change, !change.isEmpty());
}

QString OvViewNotices::oddities() const
{
    QStringList sentences = m_document->file().info().warnings;
    OvStatus usable;
    m_document->mapping(&usable);
    if (!usable)
        sentences.prepend(tr("The header mapping of the project does not fit this file, which is "
                             "read by the standard positions: %1")
                              .arg(usable.message()));
    const auto index = m_document->index();
    if (m_document->isIndexComplete() && index->traceCount() > 0 &&
        std::isnan(index->minimumOffset()))
        sentences += tr("The traces have no offsets and no usable coordinates.");
    if (sentences.size() < 2)
        return sentences.join(QString());
    return tr("%1 (further remarks: %2)").arg(sentences.first()).arg(sentences.size() - 1);
}

void OvViewNotices::reload()
{
    const OvStatus status = m_document->reload();
    if (!status)
        emit info(status.message());
}
