#pragma once

#include "OvPlugins/OvGeneralPlugin.h"

#include <QLocalServer>
#include <QObject>

class QLocalSocket;

/// Answers questions about the running program's windows over a local socket, one JSON line each
/// way.
///
/// It listens at the path that TARNPICK_PROBE names. It only looks: whatever happens in the program
/// is done with mouse and keys from outside.
class ProbePlugin : public QObject, public OvGeneralPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID OvGeneralPlugin_iid FILE "Probe.json")
    Q_INTERFACES(OvGeneralPlugin)

public:
    ProbePlugin();
    ~ProbePlugin() override;

    QString name() const override;
    bool needsProject() const override;
    QAction* action() override;

private:
    void accept();
    void answer(QLocalSocket* socket);

    QLocalServer server;
};
