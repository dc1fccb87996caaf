#pragma once

#include "OvPlugins/OvGeneralPlugin.h"

#include <QObject>

/// Ends the program as soon as its main window has been painted.
class LeavePlugin : public QObject, public OvGeneralPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID OvGeneralPlugin_iid FILE "Leave.json")
    Q_INTERFACES(OvGeneralPlugin)

public:
    LeavePlugin();

    QString name() const override;
    bool needsProject() const override;
    QAction* action() override;
    bool eventFilter(QObject* watched, QEvent* event) override;
};
