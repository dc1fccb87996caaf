#pragma once

#include "OvPlugins/OvPluginsExport.h"

#include <QList>

class OvGeneralPlugin;

/// The extension plug-ins, loaded on the first call of plugins(). GUI thread.
///
/// plugins() never fails: what cannot be loaded is left out with a warning in the log that names
/// the file.
class OVPLUGINS_EXPORT OvGeneralFactory
{
public:
    static OvGeneralFactory& instance();
    /// By order number, then by name. The factory owns them for the life of the application object;
    /// while that is destroyed the list becomes empty.
    QList<OvGeneralPlugin*> plugins();

private:
    OvGeneralFactory() = default;
    Q_DISABLE_COPY(OvGeneralFactory)
};
