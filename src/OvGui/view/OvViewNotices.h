#pragma once

#include "OvGui/document/OvSegyDocument.h"

#include <QObject>

class OvBanner;

/// Says on the banner of a view what the user should know of its file before working on: that it
/// has changed, that the project's header mapping does not fit it, what was odd about it. GUI
/// thread.
class OvViewNotices : public QObject
{
    Q_OBJECT

public:
    /// banner is the parent.
    OvViewNotices(QSharedPointer<OvSegyDocument> document, OvBanner* banner);

    void update();

signals:
    /// A line for the status bar.
    void info(const QString& text);

private:
    QString oddities() const;
    void reload();

    QSharedPointer<OvSegyDocument> m_document;
    OvBanner* m_banner;
};
