#include "OvGui/document/OvProjectMapping.h"

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvProjectManager.h"

#include <QCoreApplication>

namespace {

const QString storeKey = QStringLiteral("headerMapping");

} // namespace

OvTraceHeaderMapping OvProjectMapping::mapping()
{
    const OvProjectDefine& project = OvProjectManager::instance().define();
    if (!project.isValid())
        return {};
    return OvTraceHeaderMapping::fromMap(OvBaseUtil::projectValue(project.id, storeKey).toMap());
}

OvStatus OvProjectMapping::setMapping(const OvTraceHeaderMapping& mapping)
{
    const OvProjectDefine& project = OvProjectManager::instance().define();
    if (!project.isValid())
        return OvStatus::failure(QCoreApplication::translate(
            "OvProjectMapping",
            "The header mapping belongs to a project. Open a project, then set it."));
    return OvBaseUtil::setProjectValue(project.id, storeKey,
                                       mapping.isDefault() ? QVariant() : mapping.toMap());
}
