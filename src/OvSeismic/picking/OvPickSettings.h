#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/picking/OvPickParameters.h"

#include <QStringList>

#include <memory>

class OvPickPrior;

/// The point of the first arrival that a pick marks; the same event on every trace.
enum class OvPickPhase {
    Onset = 0,       ///< where the first swing departs from rest
    Peak = 1,        ///< largest value of the first positive swing
    Trough = 2,      ///< smallest value of the first negative swing
    ZeroCrossing = 3 ///< between the first swing and the next one
};

/// All that a picker is told, apart from the gather.
struct OVSEISMIC_EXPORT OvPickSettings
{
    static constexpr double defaultConfidence = 0.3;

    OvPickParameters parameters;
    OvPickPhase phase = OvPickPhase::Onset;
    /// Picks that are less likely right than this are left out: 0 to 1.
    double minimumConfidence = defaultConfidence;
    std::shared_ptr<const OvPickPrior> prior; ///< may be null

    /// Names of the phases for text input, in their order: onset, peak, trough, zero-crossing.
    static QStringList phaseNames();
    /// Sets the phase from its name; names the choices when the text is none of them.
    OvStatus setPhase(const QString& name);
    /// Fails, naming the parameter (those of the parameters, phase, min_confidence), when a value
    /// is out of range or two contradict each other.
    OvStatus validate() const;
};
