#pragma once

#include "OvPlugins/OvPluginsExport.h"

#include <QList>

class OvGeneralPlugin;

/// The extension plug-ins, loaded on the first call of plugins(). GUI thread.
class OVPLUGINS_EXPORT OvGeneralFactory
{
public:
    static OvGeneralFactory& instance();
    /// By order number, then by name. The factory owns them for the life of the process.
    QList<OvGeneralPlugin*> plugins();

private:
    OvGeneralFactory() = default;
    Q_DISABLE_COPY(OvGeneralFactory)
};
