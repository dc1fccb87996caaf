#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/picking/OvPickSettings.h"

#include <QStringList>
#include <QVariantMap>

/// Everything that a user decides on before picking: the parameters, and where the guide comes
/// from. A value; what a project remembers.
struct OVSEISMIC_EXPORT OvPickDefine
{
    enum class Guide {
        None = 0,
        Velocity = 1,       ///< a straight line of time over offset
        Picks = 2,          ///< learned from picks that are there (OvPickTeacher)
        PreviousGather = 3, ///< each gather by what was found in the one before
    };

    OvPickParameters parameters;
    OvPickPhase phase = OvPickPhase::Onset;
    double minimumConfidence = OvPickSettings::defaultConfidence;
    Guide guide = Guide::None;
    double velocity = 2000.0; ///< m/s, of the guide
    double interceptMs = 0.0; ///< ms, of the guide

    /// Names of the guides for text input, in their order: none, velocity, picks, previous-gather.
    static QStringList guideNames();
    /// The names of OvPickParameters, and phase, min_confidence, guide, velocity, intercept.
    QVariantMap toMap() const;
    /// Entries that the map lacks or whose value does not fit keep their default.
    static OvPickDefine fromMap(const QVariantMap& map);
    /// Fails, naming the parameter, when a value is out of range or two contradict each other.
    OvStatus validate() const;
    /// The name of the first parameter that validate() objects to; empty when there is none.
    QString offender() const;
    /// The same text for all that picks alike: what the chosen guide does not use is left out.
    QString canonicalText() const;
    /// What the picker is told, with the guide of Guide::Velocity; the other guides need data.
    OvPickSettings settings() const;
};
