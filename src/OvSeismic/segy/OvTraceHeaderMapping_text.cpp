#include "OvSeismic/segy/OvTraceHeaderMapping.h"

#include <QCoreApplication>

namespace {

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(OvTraceHeaderMapping)
};

using Mapping = OvTraceHeaderMapping;

// The last byte of the seventh extension header, the most that revision 2 knows of without a
// length of its own for each trace.
constexpr int largestPosition = 8 * 240;

struct QuantityName
{
    const char* identifier;
    const char* name;
};

const std::array<QuantityName, Mapping::quantityCount> quantities{{
    {"field_record", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Field record")},
    {"channel", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Channel")},
    {"source_point", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Source point")},
    {"receiver_point", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Receiver station")},
    {"cdp", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "CDP")},
    {"offset", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Offset")},
    {"source_x", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Source X")},
    {"source_y", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Source Y")},
    {"receiver_x", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Receiver X")},
    {"receiver_y", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Receiver Y")},
    {"coordinate_scalar", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Coordinate scalar")},
    {"coordinate_units", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Coordinate units")},
    {"source_elevation", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Source elevation")},
    {"receiver_elevation", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Receiver elevation")},
    {"source_depth", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Source depth")},
    {"source_datum", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Source datum")},
    {"receiver_datum", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Receiver datum")},
    {"elevation_scalar", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Elevation scalar")},
    {"delay", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Delay")},
    {"time_scalar", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Time scalar")},
    {"trace_id", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Trace identification")},
}};

const std::array<QuantityName, static_cast<int>(OvHeaderType::Float64) + 1> types{{
    {"int8", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "1-byte integer")},
    {"uint8", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "1-byte unsigned integer")},
    {"int16", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "2-byte integer")},
    {"uint16", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "2-byte unsigned integer")},
    {"int32", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "4-byte integer")},
    {"uint32", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "4-byte unsigned integer")},
    {"int64", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "8-byte integer")},
    {"float32", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "4-byte IEEE number")},
    {"ibm32", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "4-byte IBM number")},
    {"float64", QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "8-byte IEEE number")},
}};

constexpr std::array<const char*, 3> orders{{"file", "big", "little"}};

template <typename Names, typename IdentifierOf>
int indexOf(const Names& names, const QString& wanted, IdentifierOf identifierOf)
{
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (wanted == QLatin1String(identifierOf(names[i])))
            return static_cast<int>(i);
    }
    return -1;
}

const char* identifierOf(const QuantityName& entry)
{
    return entry.identifier;
}

/// False, with *word untouched, for what is no word.
bool read(const QString& position, const QString& type, const QString& order, OvHeaderWord* word)
{
    bool isNumber = false;
    const int number = position.toInt(&isNumber);
    const int typeIndex = indexOf(types, type, identifierOf);
    const int orderIndex = indexOf(orders, order, [](const char* name) { return name; });
    if (!isNumber || number < 0 || number > largestPosition || typeIndex < 0 || orderIndex < 0)
        return false;
    *word = {number, static_cast<OvHeaderType>(typeIndex), static_cast<OvHeaderOrder>(orderIndex)};
    return true;
}

QString orderText(OvHeaderOrder order)
{
    return QLatin1String(orders[static_cast<std::size_t>(order)]);
}

OvStatus notAWord(const QString& entry)
{
    return OvStatus::failure(Texts::tr("\"%1\" does not say where a trace-header word lies; it "
                                       "should read like field_record=9:int32:file.")
                                 .arg(entry));
}

bool readEntry(const QString& entry, OvTraceHeaderMapping* mapping)
{
    const QStringList sides = entry.split(QLatin1Char('='));
    const int quantity = indexOf(quantities, sides.first(), identifierOf);
    const QStringList parts = sides.last().split(QLatin1Char(':'));
    OvHeaderWord word;
    if (sides.size() != 2 || quantity < 0 || parts.size() != 3 ||
        !read(parts.at(0), parts.at(1), parts.at(2), &word))
        return false;
    mapping->setWord(static_cast<Mapping::Quantity>(quantity), word);
    return true;
}

} // namespace

QString OvTraceHeaderMapping::identifier(Quantity quantity)
{
    return QLatin1String(quantities[quantity].identifier);
}

QString OvTraceHeaderMapping::name(Quantity quantity)
{
    return QCoreApplication::translate("OvTraceHeaderMapping", quantities[quantity].name);
}

QString OvTraceHeaderMapping::identifier(OvHeaderType type)
{
    return QLatin1String(types[static_cast<std::size_t>(type)].identifier);
}

QString OvTraceHeaderMapping::name(OvHeaderType type)
{
    return QCoreApplication::translate("OvTraceHeaderMapping",
                                       types[static_cast<std::size_t>(type)].name);
}

QVariantMap OvTraceHeaderMapping::toMap() const
{
    QVariantMap map;
    for (int i = 0; i < quantityCount; ++i) {
        const auto quantity = static_cast<Quantity>(i);
        map.insert(identifier(quantity),
                   QVariantMap{{QStringLiteral("position"), word(quantity).position},
                               {QStringLiteral("type"), identifier(word(quantity).type)},
                               {QStringLiteral("order"), orderText(word(quantity).order)}});
    }
    return map;
}

OvTraceHeaderMapping OvTraceHeaderMapping::fromMap(const QVariantMap& map)
{
    OvTraceHeaderMapping mapping;
    for (int i = 0; i < quantityCount; ++i) {
        const auto quantity = static_cast<Quantity>(i);
        const QVariantMap entry = map.value(identifier(quantity)).toMap();
        OvHeaderWord word;
        if (read(entry.value(QStringLiteral("position")).toString(),
                 entry.value(QStringLiteral("type")).toString(),
                 entry.value(QStringLiteral("order")).toString(), &word))
            mapping.setWord(quantity, word);
    }
    return mapping;
}

QString OvTraceHeaderMapping::toText() const
{
    QStringList entries;
    for (int i = 0; i < quantityCount; ++i) {
        const auto quantity = static_cast<Quantity>(i);
        const OvHeaderWord& entry = word(quantity);
        entries += QStringLiteral("%1=%2:%3:%4")
                       .arg(identifier(quantity), QString::number(entry.position),
                            identifier(entry.type), orderText(entry.order));
    }
    return entries.join(QLatin1Char(' '));
}

OvStatus OvTraceHeaderMapping::fromText(const QString& text, OvTraceHeaderMapping* mapping)
{
    OvTraceHeaderMapping read;
    const QStringList entries = text.simplified().split(QLatin1Char(' '));
    for (const QString& entry : entries) {
        if (!readEntry(entry, &read))
            return notAWord(entry);
    }
    *mapping = read;
    return OvStatus::success();
}
