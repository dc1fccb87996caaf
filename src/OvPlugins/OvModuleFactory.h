#pragma once

#include "OvPlugins/OvPluginsExport.h"

#include <QList>

class OvModulePlugin;

/// The module plug-ins, loaded on the first call of plugins(). GUI thread.
class OVPLUGINS_EXPORT OvModuleFactory
{
public:
    static OvModuleFactory& instance();
    /// By order number, then by name. The factory owns them for the life of the process.
    QList<OvModulePlugin*> plugins();

private:
    OvModuleFactory() = default;
    Q_DISABLE_COPY(OvModuleFactory)
};
