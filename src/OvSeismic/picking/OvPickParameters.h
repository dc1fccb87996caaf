#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/OvStatus.h"

#include <QStringList>
#include <QVariantMap>

/// The ten parameters of automatic picking.
struct OVSEISMIC_EXPORT OvPickParameters
{
    enum class Polarity { Negative = 0, Positive = 1 };

    Polarity polarity = Polarity::Positive; ///< sign of the first swing that is picked
    int processingLengthMs = 0; ///< time after the first sample that is searched; 0 the whole trace
    int quickSearchWindowMs = 0; ///< length of what must be signal from a pick on; 0 from the data
    int tuningSearchWindowMs =
        0;                  ///< half-width of the search for the onset; 0 chosen from the data
    int minimumOffsetM = 0; ///< traces nearer than this are left without a pick
    int maximumOffsetM = 0; ///< traces farther than this are left without a pick; 0 no limit
                            ///< (a trace of unknown offset passes both)
    double amplitudeThreshold =
        0.001; ///< least amplitude of the arrival, as a share of the trace's largest
    double snrThreshold = 0.0; ///< least ratio of the RMS after to the RMS before the pick
    int totalShots = 0;        ///< gathers that are picked; 0 all
    int shotIncrement = 1;     ///< every how-manieth gather is picked

    /// Names for text input, in the order of the fields: polarity, processing_length_ms,
    /// quick_window_ms, tuning_window_ms, min_offset_m, max_offset_m, amplitude_threshold,
    /// snr_threshold, total_shots, shot_increment.
    static QStringList names();
    /// Sets one field from text; names the field and its range when the text does not fit.
    OvStatus set(const QString& name, const QString& text);
    /// By the names above; the polarity as text.
    QVariantMap toMap() const;
    /// Fields that the map lacks or whose value does not fit keep their default.
    static OvPickParameters fromMap(const QVariantMap& map);
    /// Fails, naming the parameter, when a value is out of range or two contradict each other.
    OvStatus validate() const;
};
