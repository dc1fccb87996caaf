#pragma once

#include "OvBase/OvBaseExport.h"
#include "OvBase/OvDisplayDefine.h"

/// The open project's display settings. Made on the stack for each use. GUI thread.
///
/// setDefine() stores durably and makes OvProjectManager announce displayDefineChanged(), both only
/// when the value differs from the stored one. Without an open project the value lives in memory.
/// False when it could not be stored.
class OVBASE_EXPORT OvDisplayDefineNode
{
public:
    OvDisplayDefine define() const;
    bool setDefine(const OvDisplayDefine& define);
};

/// As OvDisplayDefineNode, for the scale; announces fitDisplayDefineChanged().
class OVBASE_EXPORT OvFitDisplayDefineNode
{
public:
    OvFitDisplayDefine define() const;
    bool setDefine(const OvFitDisplayDefine& define);
};

/// As OvDisplayDefineNode, for the trace-header words; announces traceHeaderDefineChanged().
class OVBASE_EXPORT OvTraceHeaderDefineNode
{
public:
    OvTraceHeaderDefine define() const;
    bool setDefine(const OvTraceHeaderDefine& define);
};
