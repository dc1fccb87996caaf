#pragma once

#include "OvPlugins/OvPluginsExport.h"

#include <QList>

class OvModulePlugin;

/// The module plug-ins, loaded on the first call of plugins(). GUI thread.
///
/// plugins() never fails: what cannot be loaded, or gives no menu, is left out with a warning in
/// the log that names the file.
class OVPLUGINS_EXPORT OvModuleFactory
{
public:
    static OvModuleFactory& instance();
    /// By order number, then by name. The factory owns them for the life of the application object;
    /// while that is destroyed the list becomes empty.
    QList<OvModulePlugin*> plugins();

private:
    OvModuleFactory() = default;
    Q_DISABLE_COPY(OvModuleFactory)
};
