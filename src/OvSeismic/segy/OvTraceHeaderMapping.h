#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvSegyTypes.h"

#include <QVariantMap>
#include <QVector>

#include <array>

/// How the bytes of one header word are to be read.
enum class OvHeaderType : quint8 {
    Int8,
    UInt8,
    Int16,
    UInt16,
    Int32,
    UInt32,
    Int64,
    Float32, ///< IEEE
    IbmFloat32,
    Float64, ///< IEEE
};

enum class OvHeaderOrder : quint8 { File, Big, Little };

/// The place and form of one word of a trace header. A value.
struct OVSEISMIC_EXPORT OvHeaderWord
{
    /// Number of its first byte, from 1; 241 is the first byte of the first extension header. 0 for
    /// a word that the file does not have.
    int position = 0;
    OvHeaderType type = OvHeaderType::Int32;
    OvHeaderOrder order = OvHeaderOrder::File;

    bool exists() const { return position > 0; }
    /// Number of its last byte.
    int end() const { return position + bytes(type) - 1; }
    static int bytes(OvHeaderType type);
    static bool isFloatingPoint(OvHeaderType type);
    /// The value in a header that reaches as far as end(); 0 where the word does not exist. May be
    /// infinite or not a number where bytes that are no such word are read.
    double value(const char* header, OvByteOrder fileOrder) const;
    /// The word as a whole number: an integer's value, a floating-point number's bits. number() of
    /// it is value().
    qint64 bits(const char* header, OvByteOrder fileOrder) const;
    static double number(OvHeaderType type, qint64 bits);

    bool operator==(const OvHeaderWord& other) const
    {
        return position == other.position && type == other.type && order == other.order;
    }
    bool operator!=(const OvHeaderWord& other) const { return !(*this == other); }
};

/// Where a project's SEG-Y files keep what the program wants to know of a trace. A value; unless
/// changed, the positions of SEG-Y revision 1.
class OVSEISMIC_EXPORT OvTraceHeaderMapping
{
public:
    enum Quantity {
        FieldRecord,
        Channel,
        SourcePoint,
        ReceiverPoint,
        Cdp,
        Offset,
        SourceX,
        SourceY,
        ReceiverX,
        ReceiverY,
        CoordinateScalar,
        CoordinateUnits,
        SourceElevation,
        ReceiverElevation,
        SourceDepth,
        SourceDatum,
        ReceiverDatum,
        ElevationScalar,
        Delay,
        TimeScalar,
        TraceId,
    };
    static constexpr int quantityCount = TraceId + 1;

    enum Preset {
        Revision1,             ///< also revision 0
        Revision2,             ///< numbers, coordinates and offset of the first extension header
        InlineCrossline,       ///< inline (189) as field record, crossline (193) as channel and CDP
        SourceAndReceiver,     ///< source point (17) as field record, receiver station in 25
        FloatingPointOffset,   ///< offset as an IEEE number in 37
        FloatingPointGeometry, ///< coordinates, elevations and offset as IEEE numbers, no scalars
    };
    static constexpr int presetCount = FloatingPointGeometry + 1;

    struct Problem
    {
        enum Severity { Warning, Error };
        Severity severity;
        Quantity quantity;
        QString message; ///< translated, one sentence, names the quantity
    };

    OvTraceHeaderMapping();
    static OvTraceHeaderMapping preset(Preset preset);
    static QString presetName(Preset preset);

    const OvHeaderWord& word(Quantity quantity) const { return m_words[quantity]; }
    void setWord(Quantity quantity, const OvHeaderWord& word) { m_words[quantity] = word; }
    bool isDefault() const { return *this == OvTraceHeaderMapping(); }
    /// Number of the last byte that any word uses: how much of a header has to be read.
    int extent() const;

    /// What makes no sense in headers of that many bytes (240, and 240 more for each extension
    /// header). With an error the mapping cannot be used.
    QVector<Problem> problems(int headerBytes) const;
    /// The first error.
    OvStatus validate(int headerBytes) const;

    /// The words of one header that reaches as far as extent(), scalars applied, as OvTraceHeader
    /// says; offset and channel are 0 where the header has none. metresPerUnit is the file's.
    OvTraceHeader decode(const char* header, OvByteOrder fileOrder, qint64 traceIndex,
                         double metresPerUnit) const;

    /// By the identifiers of the quantities; {"position", "type", "order"} each.
    QVariantMap toMap() const;
    /// What is missing or does not fit takes the default.
    static OvTraceHeaderMapping fromMap(const QVariantMap& map);
    /// One line, the same for equal mappings, fit for files and keys:
    /// "field_record=9:int32 channel=13:int32:little ...".
    QString toText() const;
    static OvStatus fromText(const QString& text, OvTraceHeaderMapping* mapping);

    /// A name for files: "field_record".
    static QString identifier(Quantity quantity);
    /// The name for users, translated.
    static QString name(Quantity quantity);
    /// "int32"
    static QString identifier(OvHeaderType type);
    static QString name(OvHeaderType type);

    bool operator==(const OvTraceHeaderMapping& other) const { return m_words == other.m_words; }
    bool operator!=(const OvTraceHeaderMapping& other) const { return !(*this == other); }

private:
    std::array<OvHeaderWord, quantityCount> m_words;
};
