#pragma once

#include "OvGui/OvGuiExport.h"
#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvTraceHeaderMapping.h"

/// Where the SEG-Y files of the open project keep the words of their trace headers: one mapping a
/// project, stored with it in its OvTraceHeaderDefine. GUI thread.
namespace OvProjectMapping {

/// The standard positions without a project, and for one that has never chosen others.
OVGUI_EXPORT OvTraceHeaderMapping mapping();
/// Stores the mapping with the open project. Fails without one, and when it cannot be stored.
OVGUI_EXPORT OvStatus setMapping(const OvTraceHeaderMapping& mapping);

} // namespace OvProjectMapping
