#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/dsp/OvFir.h"
#include "OvSeismic/dsp/OvNoiseLevel.h"
#include "OvSeismic/picking/OvOnsetLattice.h"

#include <vector>

class OvOnsetGuide;

/// Rows of a gather mixed with their neighbours, shifted onto each other along a course: what runs
/// along the course adds up, noise does not (Mayne, W., 1962, Common reflection point horizontal
/// data stacking techniques, Geophysics 27, 927-938). Keeps its memory from gather to gather.
class OVSEISMIC_EXPORT OvRowMixer
{
public:
    /// Takes the rows as the guide searched them, in units of their noise, what is much louder cut
    /// off. signs holds 1 or, on a channel of reversed polarity, -1 of each row. Guide and grid are
    /// used until the next load.
    void load(const OvOnsetGuide& guide, const OvTraceGrid& grid, const std::vector<float>& signs);
    /// Each row with up to `reach` neighbours of its cable on either side, weights falling with
    /// distance; course holds a point of each row.
    void mix(const OvTraceChain& chain, const std::vector<double>& course, int reach);

    const float* row(int row) const { return m_mixed.row(row); } ///< grid.points() values
    float noise(int row) const { return m_noise[static_cast<std::size_t>(row)]; } ///< its RMS
    /// The mixed rows, to be searched.
    OvOnsetLattice::Rows rows() const;

private:
    // A row that is mixed into another one, and by how much it lies behind that.
    struct Part
    {
        const float* samples;
        float weight;
        int shift;
    };
    void mixRow(int first, int last, float* mixed);
    void measureNoise();

    const OvOnsetGuide* m_guide = nullptr;
    const OvTraceGrid* m_grid = nullptr;
    int m_points = 0;
    OvScoreLattice m_clipped;
    OvScoreLattice m_mixed;
    std::vector<Part> m_parts;
    std::vector<OvFir::Part> m_shifted;
    std::vector<float> m_noise;
    OvNoiseLevel::Meter m_meter;
};
