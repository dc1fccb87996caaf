#include "OvTarnpick/OvTarnpickHelper.h"
#include "OvTarnpick/OvTarnpickHelper_p.h"
#include "OvTarnpick/controller/OvMdiArea.h"

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvDisplayDefine.h"
#include "OvBase/OvDisplayDefineNode.h"
#include "OvGui/OvAbstractViewController.h"

#include <QMdiSubWindow>

namespace {

constexpr const char* displayProperty = "DisplayDefine";
constexpr const char* fitProperty = "FitDisplayDefine";
constexpr const char* traceHeaderProperty = "TraceHeaderDefine";

/// Carrying the property is how a workspace takes part in a record.
bool takesPart(const OvAbstractViewController* workspace, const char* property)
{
    return workspace && OvBaseUtil::hasProperty(workspace, property);
}

template <typename Define>
Define carriedDefine(const OvAbstractViewController* workspace, const char* property)
{
    return qvariant_cast<Define>(workspace->property(property));
}

template <typename Define>
void storeDefine(OvAbstractViewController* workspace, const char* property, const Define& define)
{
    workspace->setProperty(property, QVariant::fromValue(define));
}

void storeDisplayDefine(OvAbstractViewController* workspace)
{
    if (!takesPart(workspace, displayProperty))
        return;
    OvDisplayDefine define = OvDisplayDefineNode().define();
    define.showPicks = carriedDefine<OvDisplayDefine>(workspace, displayProperty).showPicks;
    storeDefine(workspace, displayProperty, define);
}

void storeTraceHeaderDefine(OvAbstractViewController* workspace)
{
    if (takesPart(workspace, traceHeaderProperty))
        storeDefine(workspace, traceHeaderProperty, OvTraceHeaderDefineNode().define());
}

} // namespace

bool OvTarnpickHelperPrivate::primeWorkspaceDefines(OvAbstractViewController* workspace)
{
    storeDisplayDefine(workspace);
    if (takesPart(workspace, fitProperty)) {
        OvFitDisplayDefine define = OvFitDisplayDefineNode().define();
        define.fitted = false;
        storeDefine(workspace, fitProperty, define);
    }
    storeTraceHeaderDefine(workspace);
    return false;
}

bool OvTarnpickHelperPrivate::applyWorkspaceDefines(const OvAbstractViewController* workspace)
{
    if (takesPart(workspace, displayProperty))
        OvDisplayDefineNode().setDefine(carriedDefine<OvDisplayDefine>(workspace, displayProperty));
    if (takesPart(workspace, fitProperty))
        OvFitDisplayDefineNode().setDefine(
            carriedDefine<OvFitDisplayDefine>(workspace, fitProperty));
    if (takesPart(workspace, traceHeaderProperty))
        OvTraceHeaderDefineNode().setDefine(
            carriedDefine<OvTraceHeaderDefine>(workspace, traceHeaderProperty));
    return false;
}

void OvTarnpickHelper::changeDisplayDefine()
{
    storeDisplayDefine(d->activeWorkspace());
}

void OvTarnpickHelper::changeFitDisplayDefine()
{
    OvAbstractViewController* workspace = d->activeWorkspace();
    if (takesPart(workspace, fitProperty))
        storeDefine(workspace, fitProperty, OvFitDisplayDefineNode().define());
}

void OvTarnpickHelper::changeTraceHeaderDefine()
{
    storeTraceHeaderDefine(d->activeWorkspace());
}

void OvTarnpickHelper::processAutoSave()
{
    const auto subWindows = d->mdiArea->subWindowList(QMdiArea::CreationOrder);
    for (QMdiSubWindow* subWindow : subWindows) {
        auto* workspace = qobject_cast<OvAbstractViewController*>(subWindow->widget());
        if (workspace && workspace->saveable())
            QMetaObject::invokeMethod(workspace, "save", Qt::AutoConnection);
    }
}
