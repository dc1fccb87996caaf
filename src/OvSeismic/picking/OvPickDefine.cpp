#include "OvSeismic/picking/OvPickDefine.h"

#include "OvSeismic/picking/OvPickPrior.h"

#include <QCoreApplication>

namespace {

constexpr double leastVelocity = 1.0;
constexpr double mostVelocity = 20000.0;
constexpr double mostIntercept = 10000.0;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(OvPickDefine)

public:
    static OvStatus outOfRange(const char* name, double value, double least, double most)
    {
        return OvStatus::failure(tr("%1 is \"%2\"; it must be a number from %3 to %4.")
                                     .arg(QLatin1String(name))
                                     .arg(value)
                                     .arg(least)
                                     .arg(most));
    }
};

// Written so that NaN is outside.
bool isWithin(double value, double least, double most)
{
    return value >= least && value <= most;
}

void takeReal(const QVariantMap& map, const char* name, double least, double most, double* value)
{
    bool ok = false;
    const double stored = map.value(QLatin1String(name)).toDouble(&ok);
    if (ok && isWithin(stored, least, most))
        *value = stored;
}

QString textOf(const QVariant& value)
{
    return value.type() == QVariant::Double ? QString::number(value.toDouble(), 'g', 12)
                                            : value.toString();
}

} // namespace

QStringList OvPickDefine::guideNames()
{
    return {QStringLiteral("none"), QStringLiteral("velocity"), QStringLiteral("picks"),
            QStringLiteral("previous-gather")};
}

QVariantMap OvPickDefine::toMap() const
{
    QVariantMap map = parameters.toMap();
    map.insert(QStringLiteral("phase"),
               OvPickSettings::phaseNames().value(static_cast<int>(phase)));
    map.insert(QStringLiteral("min_confidence"), minimumConfidence);
    map.insert(QStringLiteral("guide"), guideNames().value(static_cast<int>(guide)));
    map.insert(QStringLiteral("velocity"), velocity);
    map.insert(QStringLiteral("intercept"), interceptMs);
    return map;
}

OvPickDefine OvPickDefine::fromMap(const QVariantMap& map)
{
    OvPickDefine define;
    QVariantMap tenFields;
    const QStringList names = OvPickParameters::names();
    for (const QString& name : names) {
        if (map.contains(name))
            tenFields.insert(name, map.value(name));
    }
    define.parameters = OvPickParameters::fromMap(tenFields);
    const int phase =
        OvPickSettings::phaseNames().indexOf(map.value(QStringLiteral("phase")).toString());
    if (phase >= 0)
        define.phase = static_cast<OvPickPhase>(phase);
    const int guide = guideNames().indexOf(map.value(QStringLiteral("guide")).toString());
    if (guide >= 0)
        define.guide = static_cast<Guide>(guide);
    takeReal(map, "min_confidence", 0.0, 1.0, &define.minimumConfidence);
    takeReal(map, "velocity", leastVelocity, mostVelocity, &define.velocity);
    takeReal(map, "intercept", -mostIntercept, mostIntercept, &define.interceptMs);
    return define;
}

OvPickSettings OvPickDefine::settings() const
{
    OvPickSettings settings;
    settings.parameters = parameters;
    settings.phase = phase;
    settings.minimumConfidence = minimumConfidence;
    if (guide == Guide::Velocity)
        settings.prior = OvPickPrior::fromVelocity(velocity, interceptMs);
    return settings;
}

OvStatus OvPickDefine::validate() const
{
    OvStatus status = settings().validate();
    if (!status || guide != Guide::Velocity)
        return status;
    if (!isWithin(velocity, leastVelocity, mostVelocity))
        return Texts::outOfRange("velocity", velocity, leastVelocity, mostVelocity);
    if (!isWithin(interceptMs, -mostIntercept, mostIntercept))
        return Texts::outOfRange("intercept", interceptMs, -mostIntercept, mostIntercept);
    return status;
}

QString OvPickDefine::offender() const
{
    // Every message begins with the name of the parameter that it is about.
    const QString message = validate().message();
    const QStringList names = toMap().keys();
    for (const QString& name : names) {
        if (message.startsWith(name + QLatin1Char(' ')))
            return name;
    }
    return {};
}

QString OvPickDefine::canonicalText() const
{
    QVariantMap map = toMap();
    if (guide != Guide::Velocity) {
        map.remove(QStringLiteral("velocity"));
        map.remove(QStringLiteral("intercept"));
    }
    QStringList entries;
    for (auto entry = map.begin(); entry != map.end(); ++entry)
        entries += entry.key() + QLatin1Char('=') + textOf(entry.value());
    return entries.join(QLatin1Char(';'));
}
