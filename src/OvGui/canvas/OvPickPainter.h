#pragma once

#include "OvGui/OvGuiExport.h"
#include "OvGui/canvas/OvViewState.h"
#include "OvSeismic/firstbreak/OvFirstBreaks.h"

#include <QColor>
#include <QRect>

class QPainter;

/// First breaks over the traces. Colour and shape both tell the states apart: a bar for automatic
/// ones, a disc for manual ones, a cross for rejected ones, each with an outline that keeps it
/// legible on ink and on colour. Picks that are only proposed are rings.
namespace OvPickPainter {

OVGUI_EXPORT QColor color(OvPickState state);

/// Paints into area, the data area in the painter's coordinates.
OVGUI_EXPORT void paint(QPainter* painter, const QRect& area, const OvViewState& state,
                        const OvFirstBreaks& breaks);

OVGUI_EXPORT QColor previewColor();
/// Picks that are proposed and not stored, whatever their states.
OVGUI_EXPORT void paintPreview(QPainter* painter, const QRect& area, const OvViewState& state,
                               const OvFirstBreaks& breaks);

} // namespace OvPickPainter
