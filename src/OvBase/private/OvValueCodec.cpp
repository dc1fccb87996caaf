#include "OvBase/private/OvValueCodec.h"

#include <QDataStream>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <optional>

// Text and truth values are plain JSON; everything else is {"type": name, "value": ...}. Numbers go
// as text, because a JSON number is a double and forgets what it was.

namespace {

using Json = std::optional<QJsonValue>;

Json toJson(const QVariant& value);
QVariant fromJson(const QJsonValue& json);

Json tagged(const QVariant& value, const Json& content)
{
    if (!content)
        return {};
    return QJsonObject{{QStringLiteral("type"), QLatin1String(value.typeName())},
                       {QStringLiteral("value"), *content}};
}

template <class List>
Json listToJson(const List& list)
{
    QJsonArray array;
    for (const auto& item : list) {
        const Json json = toJson(item);
        if (!json)
            return {};
        array.append(*json);
    }
    return QJsonValue(array);
}

Json mapToJson(const QVariantMap& map)
{
    QJsonObject object;
    for (auto it = map.cbegin(); it != map.cend(); ++it) {
        const Json json = toJson(it.value());
        if (!json)
            return {};
        object.insert(it.key(), *json);
    }
    return QJsonValue(object);
}

bool isNumber(int type)
{
    switch (type) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::Double:
    case QMetaType::Float:
        return true;
    default:
        return false;
    }
}

// Only types without a count of elements: such a count would be trusted when it is read back.
bool isStreamed(int type)
{
    switch (type) {
    case QMetaType::QChar:
    case QMetaType::QByteArray:
    case QMetaType::QDate:
    case QMetaType::QTime:
    case QMetaType::QDateTime:
    case QMetaType::QUrl:
    case QMetaType::QUuid:
    case QMetaType::QPoint:
    case QMetaType::QPointF:
    case QMetaType::QSize:
    case QMetaType::QSizeF:
    case QMetaType::QRect:
    case QMetaType::QRectF:
    case QMetaType::QColor:
        return true;
    default:
        return false;
    }
}

QString numberText(const QVariant& value)
{
    const int type = value.userType();
    if (type == QMetaType::Double || type == QMetaType::Float)
        return QString::number(value.toDouble(), 'g', 17);
    return value.toString();
}

QString streamText(const QVariant& value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_9);
    QMetaType::save(stream, value.userType(), value.constData());
    return QString::fromLatin1(bytes.toBase64());
}

Json toJson(const QVariant& value)
{
    const int type = value.userType();
    if (!value.isValid())
        return QJsonValue();
    if (type == QMetaType::QString)
        return QJsonValue(value.toString());
    if (type == QMetaType::Bool)
        return QJsonValue(value.toBool());
    if (isNumber(type))
        return tagged(value, QJsonValue(numberText(value)));
    if (type == QMetaType::QStringList)
        return tagged(value, listToJson(value.toStringList()));
    if (type == QMetaType::QVariantList)
        return tagged(value, listToJson(value.toList()));
    if (type == QMetaType::QVariantMap || type == QMetaType::QVariantHash)
        return tagged(value, mapToJson(value.toMap()));
    return isStreamed(type) ? tagged(value, QJsonValue(streamText(value))) : Json();
}

QVariantList listFromJson(const QJsonArray& array)
{
    QVariantList list;
    for (const QJsonValue& item : array)
        list.append(fromJson(item));
    return list;
}

QVariantMap mapFromJson(const QJsonObject& object)
{
    QVariantMap map;
    for (auto it = object.constBegin(); it != object.constEnd(); ++it)
        map.insert(it.key(), fromJson(it.value()));
    return map;
}

QVariant numberFromText(const QString& text, int type)
{
    QVariant value(text);
    return value.convert(type) ? value : QVariant();
}

QVariant streamedFromText(const QString& text, int type)
{
    const QByteArray bytes = QByteArray::fromBase64(text.toLatin1());
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_5_9);
    QVariant value(type, nullptr);
    const bool read = QMetaType::load(stream, type, value.data());
    return read && stream.status() == QDataStream::Ok ? value : QVariant();
}

QVariant taggedFromJson(const QJsonObject& object)
{
    const int type = QMetaType::type(object.value(QStringLiteral("type")).toString().toLatin1());
    const QJsonValue content = object.value(QStringLiteral("value"));
    if (isNumber(type))
        return numberFromText(content.toString(), type);
    if (isStreamed(type))
        return streamedFromText(content.toString(), type);
    if (type == QMetaType::QStringList)
        return QVariant(listFromJson(content.toArray())).toStringList();
    if (type == QMetaType::QVariantList)
        return listFromJson(content.toArray());
    QVariant value(mapFromJson(content.toObject()));
    const bool isMap = type == QMetaType::QVariantMap || type == QMetaType::QVariantHash;
    return isMap && value.convert(type) ? value : QVariant();
}

QVariant fromJson(const QJsonValue& json)
{
    if (json.isString())
        return json.toString();
    if (json.isBool())
        return json.toBool();
    return json.isObject() ? taggedFromJson(json.toObject()) : QVariant();
}

} // namespace

QString OvValueCodec::encode(const QVariant& value)
{
    const Json json = toJson(value);
    if (!json)
        return {};
    const QByteArray text = QJsonDocument(QJsonArray{*json}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(text);
}

QVariant OvValueCodec::decode(const QString& text)
{
    const QJsonArray array = QJsonDocument::fromJson(text.toUtf8()).array();
    return array.size() == 1 ? fromJson(array.first()) : QVariant();
}
