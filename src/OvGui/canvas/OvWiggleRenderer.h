#pragma once

#include "OvGui/canvas/OvDrawnGather.h"
#include "OvGui/canvas/OvTileGeometry.h"

#include <QImage>

#include <vector>

/// Wiggles, filled areas, or both.
///
/// Works on sub-rows, a quarter of a pixel row each: the extremes of the trace within a sub-row
/// give a span of ink, and the spans of a pixel row add up to its coverage. So no sample is ever
/// skipped, however many fall into one pixel. Any thread; one use.
class OvWiggleRenderer
{
public:
    OvWiggleRenderer(const OvDrawnGather& gather, const OvDisplayDefine& define,
                     const OvTileGeometry& geometry);

    QImage render();

private:
    struct Span
    {
        float low;
        float high;
    };
    void drawDead(int row);
    quint8* paperLine(int y);
    void drawTrace(int row);
    void measure(int row);
    Span extremes(const float* samples, double from, double to) const;
    Span ink(int subRow) const;
    void drawRow(int y, double center);
    void cover(double from, double to);
    void blend(int y);
    QImage picture() const;

    const OvDrawnGather& m_gather;
    OvTileGeometry m_geometry;
    bool m_line;
    bool m_area;
    float m_clip;
    int m_step = 1;             // every how-manieth trace is drawn
    double m_excursion;         // pixels for an amplitude of 1
    double m_penWidth;          // pixels
    int m_reach;                // sub-rows that the pen reaches up and down
    std::vector<Span> m_spans;  // amplitudes by sub-row; low > high where there is no trace
    std::vector<float> m_cover; // ink of one pixel row, 0 to 1
    int m_coverBegin = 0;
    int m_coverEnd = 0;
    std::vector<quint8> m_paper;
};
