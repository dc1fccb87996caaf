#include "OvBase/OvDisplayDefineNode.h"

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvProjectManager.h"

namespace {

/// The value of one of the records while no project is open.
template <class Define>
Define& unsaved()
{
    static Define define;
    return define;
}

int openProject()
{
    return OvProjectManager::instance().define().id;
}

template <class Define>
Define load(const QString& key)
{
    if (openProject() < 0)
        return unsaved<Define>();
    return Define::fromMap(OvBaseUtil::projectValue(openProject(), key).toMap());
}

template <class Define>
bool store(const QString& key, const Define& define)
{
    if (openProject() < 0) {
        unsaved<Define>() = define;
        return true;
    }
    const OvStatus status = OvBaseUtil::setProjectValue(openProject(), key, define.toMap());
    if (!status)
        qWarning("%s", qUtf8Printable(status.message()));
    return status.ok();
}

/// False when storing failed; *changed tells whether there was anything to store.
template <class Define>
bool replace(const QString& key, const Define& define, bool* changed)
{
    // Unfit members (not a number, say) would never equal what is read back, and so change for
    // ever.
    const Define fit = Define::fromMap(define.toMap());
    *changed = fit != load<Define>(key);
    return !*changed || store(key, fit);
}

const QString DisplayKey = QStringLiteral("DisplayDefine");
const QString FitKey = QStringLiteral("FitDisplayDefine");
const QString HeaderKey = QStringLiteral("TraceHeaderDefine");

} // namespace

OvDisplayDefine OvDisplayDefineNode::define() const
{
    return load<OvDisplayDefine>(DisplayKey);
}

bool OvDisplayDefineNode::setDefine(const OvDisplayDefine& define)
{
    bool changed = false;
    const bool stored = replace(DisplayKey, define, &changed);
    if (stored && changed)
        emit OvProjectManager::instance().displayDefineChanged();
    return stored;
}

OvFitDisplayDefine OvFitDisplayDefineNode::define() const
{
    return load<OvFitDisplayDefine>(FitKey);
}

bool OvFitDisplayDefineNode::setDefine(const OvFitDisplayDefine& define)
{
    bool changed = false;
    const bool stored = replace(FitKey, define, &changed);
    if (stored && changed)
        emit OvProjectManager::instance().fitDisplayDefineChanged();
    return stored;
}

OvTraceHeaderDefine OvTraceHeaderDefineNode::define() const
{
    return load<OvTraceHeaderDefine>(HeaderKey);
}

bool OvTraceHeaderDefineNode::setDefine(const OvTraceHeaderDefine& define)
{
    bool changed = false;
    const bool stored = replace(HeaderKey, define, &changed);
    if (stored && changed)
        emit OvProjectManager::instance().traceHeaderDefineChanged();
    return stored;
}
