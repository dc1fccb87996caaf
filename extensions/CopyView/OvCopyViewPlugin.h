#pragma once

#include "OvPlugins/OvGeneralPlugin.h"

#include <QAction>
#include <QObject>
#include <QPointer>

/// The extension that copies a picture of the active view to the clipboard.
class OvCopyViewPlugin : public QObject, public OvGeneralPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID OvGeneralPlugin_iid FILE "CopyView.json")
    Q_INTERFACES(OvGeneralPlugin)

public:
    QString name() const override;
    bool needsProject() const override;
    QAction* action() override;

private:
    void copy();

    QPointer<QAction> m_action;
};
