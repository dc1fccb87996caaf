#include "OvGui/document/OvProjectMapping.h"

#include "OvBase/OvDisplayDefineNode.h"
#include "OvBase/OvProjectManager.h"

#include <QCoreApplication>

namespace {

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(OvProjectMapping)
};

} // namespace

OvTraceHeaderMapping OvProjectMapping::mapping()
{
    if (!OvProjectManager::instance().define().isValid())
        return {};
    return OvTraceHeaderDefineNode().define().mapping;
}

OvStatus OvProjectMapping::setMapping(const OvTraceHeaderMapping& mapping)
{
    if (!OvProjectManager::instance().define().isValid())
        return OvStatus::failure(
            Texts::tr("The header mapping belongs to a project. Open a project, then set it."));
    OvTraceHeaderDefine define = OvTraceHeaderDefineNode().define();
    define.mapping = mapping;
    if (OvTraceHeaderDefineNode().setDefine(define))
        return OvStatus::success();
    return OvStatus::failure(Texts::tr("The header mapping cannot be stored with the project; the "
                                       "message console says why. The previous one stays."));
}
