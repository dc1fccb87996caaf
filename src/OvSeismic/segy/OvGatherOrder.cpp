#include "OvSeismic/segy/OvGatherOrder.h"

#include <QCoreApplication>

#include <array>

namespace {

struct Name
{
    const char* identifier;
    const char* text;
};

constexpr const char* context = "OvGatherOrder";

constexpr std::array<Name, OvGatherOrder::keyCount> keyNames = {{
    {"field_record", QT_TRANSLATE_NOOP("OvGatherOrder", "Field record")},
    {"source", QT_TRANSLATE_NOOP("OvGatherOrder", "Source position")},
    {"receiver", QT_TRANSLATE_NOOP("OvGatherOrder", "Receiver position")},
    {"cdp", QT_TRANSLATE_NOOP("OvGatherOrder", "CDP")},
    {"offset_bin", QT_TRANSLATE_NOOP("OvGatherOrder", "Common offset")},
}};

constexpr std::array<Name, OvGatherOrder::sortCount> sortNames = {{
    {"file_order", QT_TRANSLATE_NOOP("OvGatherOrder", "File order")},
    {"channel", QT_TRANSLATE_NOOP("OvGatherOrder", "Channel")},
    {"offset", QT_TRANSLATE_NOOP("OvGatherOrder", "Offset")},
    {"absolute_offset", QT_TRANSLATE_NOOP("OvGatherOrder", "Absolute offset")},
    {"field_record", QT_TRANSLATE_NOOP("OvGatherOrder", "Field record")},
    {"cdp", QT_TRANSLATE_NOOP("OvGatherOrder", "CDP")},
    {"source_x", QT_TRANSLATE_NOOP("OvGatherOrder", "Source X")},
    {"source_y", QT_TRANSLATE_NOOP("OvGatherOrder", "Source Y")},
    {"receiver_x", QT_TRANSLATE_NOOP("OvGatherOrder", "Receiver X")},
    {"receiver_y", QT_TRANSLATE_NOOP("OvGatherOrder", "Receiver Y")},
    {"source_elevation", QT_TRANSLATE_NOOP("OvGatherOrder", "Source elevation")},
    {"receiver_elevation", QT_TRANSLATE_NOOP("OvGatherOrder", "Receiver elevation")},
    {"delay", QT_TRANSLATE_NOOP("OvGatherOrder", "Delay")},
    {"trace_id", QT_TRANSLATE_NOOP("OvGatherOrder", "Trace identification code")},
}};

template <typename Enum, std::size_t Count>
Enum parse(const QVariant& identifier, const std::array<Name, Count>& names, Enum otherwise)
{
    for (std::size_t i = 0; i < Count; ++i) {
        if (identifier.toString() == QLatin1String(names[i].identifier))
            return static_cast<Enum>(i);
    }
    return otherwise;
}

template <typename Enum, std::size_t Count>
const Name& nameOf(Enum value, const std::array<Name, Count>& names)
{
    const auto i = static_cast<std::size_t>(value);
    return names[i < Count ? i : 0];
}

} // namespace

bool OvGatherOrder::operator==(const OvGatherOrder& other) const
{
    const bool sameBins = key != OvGatherKey::OffsetBin ||
                          !(binWidthM < other.binWidthM || binWidthM > other.binWidthM);
    return key == other.key && sameBins && sort == other.sort && descending == other.descending;
}

QVariantMap OvGatherOrder::toMap() const
{
    return {{QStringLiteral("key"), identifier(key)},
            {QStringLiteral("binWidthM"), binWidthM},
            {QStringLiteral("sort"), identifier(sort)},
            {QStringLiteral("descending"), descending}};
}

OvGatherOrder OvGatherOrder::fromMap(const QVariantMap& map)
{
    OvGatherOrder order;
    order.key = parse(map.value(QStringLiteral("key")), keyNames, order.key);
    const double width = map.value(QStringLiteral("binWidthM")).toDouble();
    order.binWidthM = width > 0.0 ? width : order.binWidthM;
    order.sort = parse(map.value(QStringLiteral("sort")), sortNames, order.sort);
    order.descending = map.value(QStringLiteral("descending")).toBool();
    return order;
}

QString OvGatherOrder::identifier(OvGatherKey key)
{
    return QString::fromLatin1(nameOf(key, keyNames).identifier);
}

QString OvGatherOrder::identifier(OvGatherSort sort)
{
    return QString::fromLatin1(nameOf(sort, sortNames).identifier);
}

QString OvGatherOrder::name(OvGatherKey key)
{
    return QCoreApplication::translate(context, nameOf(key, keyNames).text);
}

QString OvGatherOrder::name(OvGatherSort sort)
{
    return QCoreApplication::translate(context, nameOf(sort, sortNames).text);
}
