#include "OvPickPanel.h"

#include <algorithm>
#include <iterator>

namespace {

template <typename Number>
struct Field
{
    const char* parameter; // by its name in text input
    const char* widget;    // object name of the panel's field
    Number OvPickFBDefine::*shown;
    Number OvPickParameters::*meant;
};

using Shown = OvPickFBDefine;
using Meant = OvPickParameters;

constexpr char polarityParameter[] = "polarity";
constexpr char polarityWidget[] = "polarity_2";

constexpr Field<int> wholeFields[] = {
    {"processing_length_ms", "sbProl", &Shown::processingLengthMs, &Meant::processingLengthMs},
    {"quick_window_ms", "sbQwin", &Shown::quickSearchWindowMs, &Meant::quickSearchWindowMs},
    {"tuning_window_ms", "sbBwin", &Shown::tuningSearchWindowMs, &Meant::tuningSearchWindowMs},
    {"min_offset_m", "sbMinOff", &Shown::minimumOffsetM, &Meant::minimumOffsetM},
    {"max_offset_m", "sbMaxOff", &Shown::maximumOffsetM, &Meant::maximumOffsetM},
    {"total_shots", "sbShots", &Shown::totalShots, &Meant::totalShots},
    {"shot_increment", "sbShotStep", &Shown::shotIncrement, &Meant::shotIncrement},
};

constexpr Field<double> realFields[] = {
    {"amplitude_threshold", "dbFBAmp", &Shown::amplitudeThreshold, &Meant::amplitudeThreshold},
    {"snr_threshold", "dbSNR", &Shown::snrThreshold, &Meant::snrThreshold},
};

template <typename Visit>
void forEachField(const Visit& visit)
{
    std::for_each(std::begin(wholeFields), std::end(wholeFields), visit);
    std::for_each(std::begin(realFields), std::end(realFields), visit);
}

} // namespace

OvPickParameters OvPickPanel::parametersOf(const OvPickFBDefine& define)
{
    using Polarity = OvPickParameters::Polarity;
    OvPickParameters parameters;
    parameters.polarity = define.positivePolarity ? Polarity::Positive : Polarity::Negative;
    forEachField([&](const auto& field) { parameters.*field.meant = define.*field.shown; });
    return parameters;
}

OvPickFBDefine OvPickPanel::defineOf(const OvPickParameters& parameters)
{
    OvPickFBDefine define;
    define.positivePolarity = parameters.polarity == OvPickParameters::Polarity::Positive;
    forEachField([&](const auto& field) { define.*field.shown = parameters.*field.meant; });
    return define;
}

QString OvPickPanel::fieldOf(const QString& parameter)
{
    QString widget;
    if (parameter == QLatin1String(polarityParameter))
        widget = QLatin1String(polarityWidget);
    forEachField([&](const auto& field) {
        if (parameter == QLatin1String(field.parameter))
            widget = QLatin1String(field.widget);
    });
    return widget;
}
