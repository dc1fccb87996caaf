#pragma once

#include "OvBase/OvDisplayDefine.h"
#include "OvGui/OvGuiExport.h"
#include "OvSeismic/segy/OvGather.h"

#include <memory>
#include <vector>

/// A gather made ready to draw: automatic gain, polarity, scaling and gain applied.
///
/// An amplitude of 1 swings one trace spacing as a wiggle and takes the end of the colour map. Any
/// thread; a value.
class OVGUI_EXPORT OvDrawnGather
{
public:
    OvDrawnGather(std::shared_ptr<const OvGather> gather, const OvDisplayDefine& define);

    const OvGather& gather() const { return *m_gather; }
    int traceCount() const { return m_gather->traceCount(); }
    int sampleCount() const { return m_gather->sampleCount; }
    /// sampleCount() finite amplitudes.
    const float* trace(int row) const
    {
        return m_amplitudes.data() +
               static_cast<std::size_t>(row) * static_cast<std::size_t>(sampleCount());
    }

    /// Divides each sample by the root mean square of the window of that many samples around it.
    static void applyAgc(float* samples, int count, int window);
    /// The amplitude that 99 in 100 of the samples that are not zero stay below; 0 for a silent
    /// trace.
    static float reference(const float* samples, std::size_t count);

private:
    void copySamples();
    void scaleBy(std::size_t first, std::size_t count, double gain);

    std::shared_ptr<const OvGather> m_gather;
    std::vector<float> m_amplitudes;
};
