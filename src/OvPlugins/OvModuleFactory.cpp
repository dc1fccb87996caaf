#include "OvPlugins/OvModuleFactory.h"

OvModuleFactory& OvModuleFactory::instance()
{
    static OvModuleFactory factory;
    return factory;
}
