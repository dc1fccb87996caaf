#pragma once

#include "OvGui/OvGuiExport.h"
#include "OvGui/canvas/OvDrawnGather.h"
#include "OvGui/canvas/OvTileGeometry.h"

#include <QImage>

/// Draws pieces of a gather. Pure functions, for any thread.
namespace OvGatherRenderer {

/// An opaque picture on white paper of geometry.width by geometry.height physical pixels. Of the
/// settings it uses mode, clip and colour map; the others are in the drawn gather already.
OVGUI_EXPORT QImage render(const OvDrawnGather& gather, const OvDisplayDefine& define,
                           const OvTileGeometry& geometry);

} // namespace OvGatherRenderer
