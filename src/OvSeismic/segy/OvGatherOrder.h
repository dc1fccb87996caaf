#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <QVariantMap>

/// What the traces of one gather have in common.
enum class OvGatherKey : quint8 {
    FieldRecord, ///< gathers in the order of their first traces
    Source,      ///< source position; in the order of their first traces
    Receiver,    ///< receiver position; in the order of their first traces
    Cdp,         ///< CDP number, ascending
    OffsetBin,   ///< absolute offset in bins of one width, ascending; unknown offsets last
};

/// What the traces of a gather are sorted by. Equal ones, and FileOrder, stay as in the file.
enum class OvGatherSort : quint8 {
    FileOrder,
    Channel,
    Offset, ///< signed, where the file signs it
    AbsoluteOffset,
    FieldRecord,
    Cdp,
    SourceX,
    SourceY,
    ReceiverX,
    ReceiverY,
    SourceElevation,
    ReceiverElevation,
    Delay,
    TraceId,
};

/// Which traces form a gather, and in which order. A value.
struct OVSEISMIC_EXPORT OvGatherOrder
{
    OvGatherKey key = OvGatherKey::FieldRecord;
    double binWidthM = 25.0; ///< of OffsetBin, m; values that are not positive count as 25
    OvGatherSort sort = OvGatherSort::FileOrder;
    bool descending = false; ///< of sort; no effect on FileOrder

    bool isDefault() const { return *this == OvGatherOrder(); }
    bool operator==(const OvGatherOrder& other) const;
    bool operator!=(const OvGatherOrder& other) const { return !(*this == other); }

    /// For settings: {"key", "binWidthM", "sort", "descending"}, the first and third as
    /// identifiers.
    QVariantMap toMap() const;
    /// What is missing or unknown takes the default.
    static OvGatherOrder fromMap(const QVariantMap& map);

    /// "field_record"
    static QString identifier(OvGatherKey key);
    static QString identifier(OvGatherSort sort);
    /// For users, translated.
    static QString name(OvGatherKey key);
    static QString name(OvGatherSort sort);
    static constexpr int keyCount = static_cast<int>(OvGatherKey::OffsetBin) + 1;
    static constexpr int sortCount = static_cast<int>(OvGatherSort::TraceId) + 1;
};
