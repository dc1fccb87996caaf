#pragma once

#include "OvGui/canvas/OvColorMap.h"
#include "OvGui/canvas/OvDrawnGather.h"
#include "OvGui/canvas/OvTileGeometry.h"

#include <QImage>

#include <vector>

/// Variable density: each trace a strip of colour. Where a pixel holds several samples or traces it
/// takes their mean, so that nothing is drawn that the data do not hold. Any thread; one use.
class OvDensityRenderer
{
public:
    OvDensityRenderer(const OvDrawnGather& gather, const OvDisplayDefine& define,
                      const OvTileGeometry& geometry);

    QImage render();

private:
    struct Rows
    {
        int first;
        int end; // one behind
    };
    Rows rowsAt(int x) const;
    const std::vector<float>& column(int row);
    float amplitude(int row, double sample, double samplesPerPixel) const;
    void fill(int x, const Rows& rows);
    void hatch(int x, int row);
    void copyColumn(int from, int to);

    const OvDrawnGather& m_gather;
    OvTileGeometry m_geometry;
    OvColorMap m_colors;
    QImage m_image;
    bool m_lastWasDead = false; // hatching differs from column to column
    int m_columnRow = -1;
    std::vector<float> m_column;
};
