#include "OvPlugins/OvModuleFactory.h"

#include "OvBase/OvTranslator.h"
#include "OvPlugins/OvModulePlugin.h"
#include "OvPlugins/OvPluginLoader_p.h"

#include <QCoreApplication>

namespace {

OvPluginSet<OvModulePlugin>& modules()
{
    static OvPluginSet<OvModulePlugin> set(
        {QStringLiteral("module"), QStringLiteral("modules"), QStringLiteral(OvModulePlugin_iid)});
    return set;
}

// The shell inserts every module's menu without asking whether there is one.
QString menuFault(OvModulePlugin* plugin)
{
    return plugin->menu() ? QString() : OvPluginLoader::tr("it gives no menu");
}

} // namespace

OvModuleFactory& OvModuleFactory::instance()
{
    static OvModuleFactory factory;
    return factory;
}

QList<OvModulePlugin*> OvModuleFactory::plugins()
{
    if (modules().load()) {
        // Menus cannot outlive the application object.
        qAddPostRoutine([] { modules().clear(); });
        OvTranslator::instance().refreshCatalogues();
        modules().keepIf(menuFault);
    }
    return modules().plugins();
}
