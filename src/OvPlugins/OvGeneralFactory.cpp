#include "OvPlugins/OvGeneralFactory.h"

#include "OvBase/OvTranslator.h"
#include "OvPlugins/OvGeneralPlugin.h"
#include "OvPlugins/OvPluginLoader_p.h"

#include <QCoreApplication>

namespace {

OvPluginSet<OvGeneralPlugin>& extensions()
{
    static OvPluginSet<OvGeneralPlugin> set({QStringLiteral("extension"),
                                             QStringLiteral("extensions"),
                                             QStringLiteral(OvGeneralPlugin_iid)});
    return set;
}

} // namespace

OvGeneralFactory& OvGeneralFactory::instance()
{
    static OvGeneralFactory factory;
    return factory;
}

QList<OvGeneralPlugin*> OvGeneralFactory::plugins()
{
    if (extensions().load()) {
        // Actions' owners cannot outlive the application object.
        qAddPostRoutine([] { extensions().clear(); });
        OvTranslator::instance().refreshCatalogues();
        extensions().keepIf([](OvGeneralPlugin*) { return QString(); });
    }
    return extensions().plugins();
}
