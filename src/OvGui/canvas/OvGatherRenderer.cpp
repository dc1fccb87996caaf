#include "OvGui/canvas/OvGatherRenderer.h"

#include "OvGui/canvas/OvDensityRenderer.h"
#include "OvGui/canvas/OvWiggleRenderer.h"

QImage OvGatherRenderer::render(const OvDrawnGather& gather, const OvDisplayDefine& define,
                                const OvTileGeometry& geometry)
{
    if (define.mode == OvDisplayDefine::VariableDensity)
        return OvDensityRenderer(gather, define, geometry).render();
    return OvWiggleRenderer(gather, define, geometry).render();
}
