#include "OvSeismic/picking/OvPickParameters.h"

#include <QCoreApplication>

#include <array>
#include <cmath>

namespace {

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(OvPickParameters)
};

struct IntegerField
{
    const char* name;
    int OvPickParameters::*member;
    int least;
    int most;
};

struct RealField
{
    const char* name;
    double OvPickParameters::*member;
    double least;
    double most;
};

const char polarityName[] = "polarity";

constexpr std::array<IntegerField, 7> integers{{
    {"processing_length_ms", &OvPickParameters::processingLengthMs, 0, 9999},
    {"quick_window_ms", &OvPickParameters::quickSearchWindowMs, 0, 9999},
    {"tuning_window_ms", &OvPickParameters::tuningSearchWindowMs, 0, 9999},
    {"min_offset_m", &OvPickParameters::minimumOffsetM, 0, 9999},
    {"max_offset_m", &OvPickParameters::maximumOffsetM, 0, 999999},
    {"total_shots", &OvPickParameters::totalShots, 0, 9999},
    {"shot_increment", &OvPickParameters::shotIncrement, 1, 9999},
}};

constexpr std::array<RealField, 2> reals{{
    {"amplitude_threshold", &OvPickParameters::amplitudeThreshold, 0.001, 100.0},
    {"snr_threshold", &OvPickParameters::snrThreshold, 0.0, 9999.0},
}};

QString polarityText(OvPickParameters::Polarity polarity)
{
    return polarity == OvPickParameters::Polarity::Negative ? QStringLiteral("negative")
                                                            : QStringLiteral("positive");
}

template <typename Number>
OvStatus outOfRange(const char* name, const QString& value, Number least, Number most)
{
    return OvStatus::failure(
        Texts::tr("%1 is \"%2\"; it must be a number from %3 to %4.")
            .arg(QLatin1String(name), value, QString::number(least), QString::number(most)));
}

OvStatus unknownPolarity(const QString& value)
{
    return OvStatus::failure(Texts::tr("%1 is \"%2\"; it must be \"negative\" or \"positive\".")
                                 .arg(QLatin1String(polarityName), value));
}

OvStatus setPolarity(const QString& text, OvPickParameters* parameters)
{
    using Polarity = OvPickParameters::Polarity;
    const QString word = text.trimmed().toLower();
    for (const Polarity polarity : {Polarity::Negative, Polarity::Positive}) {
        if (word == polarityText(polarity)) {
            parameters->polarity = polarity;
            return OvStatus::success();
        }
    }
    return unknownPolarity(text);
}

OvStatus setInteger(const IntegerField& field, const QString& text, OvPickParameters* parameters)
{
    bool ok = false;
    const int value = text.trimmed().toInt(&ok);
    if (!ok || value < field.least || value > field.most)
        return outOfRange(field.name, text, field.least, field.most);
    parameters->*field.member = value;
    return OvStatus::success();
}

bool isWithin(double value, const RealField& field)
{
    // Written so that NaN is outside.
    return value >= field.least && value <= field.most;
}

OvStatus setReal(const RealField& field, const QString& text, OvPickParameters* parameters)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    if (!ok || !isWithin(value, field))
        return outOfRange(field.name, text, field.least, field.most);
    parameters->*field.member = value;
    return OvStatus::success();
}

OvStatus validateRanges(const OvPickParameters& parameters)
{
    for (const IntegerField& field : integers) {
        const int value = parameters.*field.member;
        if (value < field.least || value > field.most)
            return outOfRange(field.name, QString::number(value), field.least, field.most);
    }
    for (const RealField& field : reals) {
        const double value = parameters.*field.member;
        if (!isWithin(value, field))
            return outOfRange(field.name, QString::number(value), field.least, field.most);
    }
    return OvStatus::success();
}

} // namespace

QStringList OvPickParameters::names()
{
    return {QStringLiteral("polarity"),
            QStringLiteral("processing_length_ms"),
            QStringLiteral("quick_window_ms"),
            QStringLiteral("tuning_window_ms"),
            QStringLiteral("min_offset_m"),
            QStringLiteral("max_offset_m"),
            QStringLiteral("amplitude_threshold"),
            QStringLiteral("snr_threshold"),
            QStringLiteral("total_shots"),
            QStringLiteral("shot_increment")};
}

OvStatus OvPickParameters::set(const QString& name, const QString& text)
{
    if (name == QLatin1String(polarityName))
        return setPolarity(text, this);
    for (const IntegerField& field : integers) {
        if (name == QLatin1String(field.name))
            return setInteger(field, text, this);
    }
    for (const RealField& field : reals) {
        if (name == QLatin1String(field.name))
            return setReal(field, text, this);
    }
    return OvStatus::failure(
        Texts::tr("There is no picking parameter \"%1\". The parameters are: %2.")
            .arg(name, names().join(QStringLiteral(", "))));
}

QVariantMap OvPickParameters::toMap() const
{
    QVariantMap map;
    map.insert(QLatin1String(polarityName), polarityText(polarity));
    for (const IntegerField& field : integers)
        map.insert(QLatin1String(field.name), this->*field.member);
    for (const RealField& field : reals)
        map.insert(QLatin1String(field.name), this->*field.member);
    return map;
}

OvPickParameters OvPickParameters::fromMap(const QVariantMap& map)
{
    OvPickParameters parameters;
    for (auto entry = map.begin(); entry != map.end(); ++entry) {
        const OvStatus status = parameters.set(entry.key(), entry.value().toString());
        // A map of another version keeps the default of what it does not know.
        Q_UNUSED(status)
    }
    return parameters;
}

OvStatus OvPickParameters::validate() const
{
    if (polarity != Polarity::Negative && polarity != Polarity::Positive)
        return unknownPolarity(QString::number(static_cast<int>(polarity)));
    OvStatus ranges = validateRanges(*this);
    if (!ranges)
        return ranges;
    if (maximumOffsetM > 0 && minimumOffsetM > maximumOffsetM)
        return OvStatus::failure(Texts::tr("min_offset_m (%1) is larger than max_offset_m (%2).")
                                     .arg(minimumOffsetM)
                                     .arg(maximumOffsetM));
    if (processingLengthMs > 0 && quickSearchWindowMs > processingLengthMs)
        return OvStatus::failure(
            Texts::tr("quick_window_ms (%1) is longer than processing_length_ms (%2).")
                .arg(quickSearchWindowMs)
                .arg(processingLengthMs));
    return OvStatus::success();
}
