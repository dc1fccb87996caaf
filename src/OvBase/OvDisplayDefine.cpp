#include "OvBase/OvDisplayDefine.h"

#include <tuple>

namespace {

const QString ModeKey = QStringLiteral("mode");
const QString GainKey = QStringLiteral("gainDb");
const QString ScalingKey = QStringLiteral("scaling");
const QString AgcKey = QStringLiteral("agcWindowMs");
const QString ClipKey = QStringLiteral("clip");
const QString ColorKey = QStringLiteral("colorMap");
const QString PolarityKey = QStringLiteral("reversePolarity");
const QString PicksKey = QStringLiteral("showPicks");
const QString FittedKey = QStringLiteral("fitted");
const QString SpacingKey = QStringLiteral("traceSpacing");
const QString TimeScaleKey = QStringLiteral("pixelsPerSecond");
const QString AxisKey = QStringLiteral("axisWord");
const QString MappingKey = QStringLiteral("mapping");

void read(const QVariantMap& map, const QString& key, int lowest, int highest, int* value)
{
    bool isNumber = false;
    const int number = map.value(key).toInt(&isNumber);
    if (isNumber && number >= lowest && number <= highest)
        *value = number;
}

void read(const QVariantMap& map, const QString& key, double lowest, double highest, double* value)
{
    bool isNumber = false;
    const double number = map.value(key).toDouble(&isNumber);
    if (isNumber && number >= lowest && number <= highest)
        *value = number;
}

void read(const QVariantMap& map, const QString& key, bool* value)
{
    const QVariant entry = map.value(key);
    if (entry.userType() == QMetaType::Bool)
        *value = entry.toBool();
}

} // namespace

bool OvDisplayDefine::operator==(const OvDisplayDefine& other) const
{
    return std::tie(mode, gainDb, scaling, agcWindowMs, clip, colorMap, reversePolarity,
                    showPicks) == std::tie(other.mode, other.gainDb, other.scaling,
                                           other.agcWindowMs, other.clip, other.colorMap,
                                           other.reversePolarity, other.showPicks);
}

QVariantMap OvDisplayDefine::toMap() const
{
    return {{ModeKey, mode},
            {GainKey, gainDb},
            {ScalingKey, scaling},
            {AgcKey, agcWindowMs},
            {ClipKey, clip},
            {ColorKey, colorMap},
            {PolarityKey, reversePolarity},
            {PicksKey, showPicks}};
}

OvDisplayDefine OvDisplayDefine::fromMap(const QVariantMap& map)
{
    OvDisplayDefine define;
    read(map, ModeKey, Wiggle, VariableDensity, &define.mode);
    read(map, GainKey, -200.0, 200.0, &define.gainDb);
    read(map, ScalingKey, PerTrace, PerGather, &define.scaling);
    read(map, AgcKey, 0, 1000000, &define.agcWindowMs);
    read(map, ClipKey, 0.01, 1000.0, &define.clip);
    read(map, ColorKey, Grey, BlueWhiteRed, &define.colorMap);
    read(map, PolarityKey, &define.reversePolarity);
    read(map, PicksKey, &define.showPicks);
    return define;
}

bool OvFitDisplayDefine::operator==(const OvFitDisplayDefine& other) const
{
    return std::tie(fitted, traceSpacing, pixelsPerSecond) ==
           std::tie(other.fitted, other.traceSpacing, other.pixelsPerSecond);
}

QVariantMap OvFitDisplayDefine::toMap() const
{
    return {{FittedKey, fitted}, {SpacingKey, traceSpacing}, {TimeScaleKey, pixelsPerSecond}};
}

OvFitDisplayDefine OvFitDisplayDefine::fromMap(const QVariantMap& map)
{
    OvFitDisplayDefine define;
    read(map, FittedKey, &define.fitted);
    read(map, SpacingKey, 1e-6, 1e6, &define.traceSpacing);
    read(map, TimeScaleKey, 1e-6, 1e9, &define.pixelsPerSecond);
    return define;
}

bool OvTraceHeaderDefine::operator==(const OvTraceHeaderDefine& other) const
{
    return axisWord == other.axisWord && mapping == other.mapping;
}

QVariantMap OvTraceHeaderDefine::toMap() const
{
    QVariantMap map{{AxisKey, axisWord}};
    if (!mapping.isDefault())
        map.insert(MappingKey, mapping.toMap());
    return map;
}

OvTraceHeaderDefine OvTraceHeaderDefine::fromMap(const QVariantMap& map)
{
    OvTraceHeaderDefine define;
    read(map, AxisKey, Channel, Cdp, &define.axisWord);
    define.mapping = OvTraceHeaderMapping::fromMap(map.value(MappingKey).toMap());
    return define;
}
