#include "OvSeismic/segy/OvSegySampleFormat.h"

#include <QCoreApplication>

#include <iterator>

namespace {

struct Entry
{
    OvSegySampleFormat format;
    const char* name;
};

const Entry entries[] = {
    {{1, 4, true}, QT_TRANSLATE_NOOP("OvSegySampleFormat", "4-byte IBM floating point")},
    {{2, 4, true}, QT_TRANSLATE_NOOP("OvSegySampleFormat", "4-byte integer")},
    {{3, 2, true}, QT_TRANSLATE_NOOP("OvSegySampleFormat", "2-byte integer")},
    {{4, 4, false}, QT_TRANSLATE_NOOP("OvSegySampleFormat", "4-byte fixed point with gain")},
    {{5, 4, true}, QT_TRANSLATE_NOOP("OvSegySampleFormat", "4-byte IEEE floating point")},
    {{6, 8, true}, QT_TRANSLATE_NOOP("OvSegySampleFormat", "8-byte IEEE floating point")},
    {{7, 3, true}, QT_TRANSLATE_NOOP("OvSegySampleFormat", "3-byte integer")},
    {{8, 1, true}, QT_TRANSLATE_NOOP("OvSegySampleFormat", "1-byte integer")},
    {{9, 8, true}, QT_TRANSLATE_NOOP("OvSegySampleFormat", "8-byte integer")},
    {{10, 4, true}, QT_TRANSLATE_NOOP("OvSegySampleFormat", "4-byte unsigned integer")},
    {{11, 2, true}, QT_TRANSLATE_NOOP("OvSegySampleFormat", "2-byte unsigned integer")},
    {{12, 8, true}, QT_TRANSLATE_NOOP("OvSegySampleFormat", "8-byte unsigned integer")},
    {{15, 3, true}, QT_TRANSLATE_NOOP("OvSegySampleFormat", "3-byte unsigned integer")},
    {{16, 1, true}, QT_TRANSLATE_NOOP("OvSegySampleFormat", "1-byte unsigned integer")},
};

const Entry* find(int code)
{
    for (const Entry& entry : entries) {
        if (entry.format.code == code)
            return &entry;
    }
    return nullptr;
}

} // namespace

OvSegySampleFormat ovSegySampleFormat(int code)
{
    const Entry* entry = find(code);
    return entry ? entry->format : OvSegySampleFormat{code, 0, false};
}

QString ovSegyFormatName(int code)
{
    if (const Entry* entry = find(code))
        return QCoreApplication::translate("OvSegySampleFormat", entry->name);
    return QCoreApplication::translate("OvSegySampleFormat", "Unknown format %1").arg(code);
}

QString ovSegyByteOrderName(OvByteOrder order)
{
    switch (order) {
    case OvByteOrder::BigEndian:
        return QCoreApplication::translate("OvSegySampleFormat", "big-endian");
    case OvByteOrder::LittleEndian:
        return QCoreApplication::translate("OvSegySampleFormat", "little-endian");
    case OvByteOrder::PairSwapped:
        break;
    }
    return QCoreApplication::translate("OvSegySampleFormat", "pair-swapped");
}
