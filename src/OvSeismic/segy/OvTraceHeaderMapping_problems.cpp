#include "OvSeismic/segy/OvTraceHeaderMapping.h"

#include <QCoreApplication>

namespace {

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(OvTraceHeaderMapping)
};

using Mapping = OvTraceHeaderMapping;
using Problem = OvTraceHeaderMapping::Problem;

/// Words that are codes or powers of ten, so never fractions.
bool isCode(Mapping::Quantity quantity)
{
    switch (quantity) {
    case Mapping::CoordinateScalar:
    case Mapping::CoordinateUnits:
    case Mapping::ElevationScalar:
    case Mapping::TimeScalar:
    case Mapping::TraceId:
        return true;
    default:
        return false;
    }
}

bool isNumbering(Mapping::Quantity quantity)
{
    switch (quantity) {
    case Mapping::FieldRecord:
    case Mapping::Channel:
    case Mapping::SourcePoint:
    case Mapping::ReceiverPoint:
    case Mapping::Cdp:
        return true;
    default:
        return false;
    }
}

class Check
{
public:
    Check(const Mapping& mapping, int headerBytes)
        : m_mapping(mapping)
        , m_headerBytes(headerBytes)
    {
        for (int i = 0; i < Mapping::quantityCount; ++i)
            check(static_cast<Mapping::Quantity>(i));
        checkMissing();
    }

    QVector<Problem> problems() const { return m_problems; }

private:
    void add(Problem::Severity severity, Mapping::Quantity quantity, const QString& message)
    {
        m_problems.append({severity, quantity, message});
    }

    void check(Mapping::Quantity quantity)
    {
        if (!m_mapping.word(quantity).exists())
            return;
        checkPlace(quantity);
        checkType(quantity);
        for (int i = 0; i < quantity; ++i)
            checkPair(static_cast<Mapping::Quantity>(i), quantity);
    }

    void checkPlace(Mapping::Quantity quantity)
    {
        const OvHeaderWord& word = m_mapping.word(quantity);
        if (word.end() > m_headerBytes)
            add(Problem::Error, quantity,
                Texts::tr("%1 at bytes %2 to %3 lies behind the trace header, which has %4 bytes.")
                    .arg(Mapping::name(quantity))
                    .arg(word.position)
                    .arg(word.end())
                    .arg(m_headerBytes));
    }

    void checkType(Mapping::Quantity quantity)
    {
        const OvHeaderType type = m_mapping.word(quantity).type;
        if (!OvHeaderWord::isFloatingPoint(type))
            return;
        if (isCode(quantity))
            add(Problem::Error, quantity,
                Texts::tr("%1 is a code; it cannot be a %2.")
                    .arg(Mapping::name(quantity), Mapping::name(type)));
        else if (isNumbering(quantity))
            add(Problem::Warning, quantity,
                Texts::tr("%1 is read as a %2 and rounded to whole numbers.")
                    .arg(Mapping::name(quantity), Mapping::name(type)));
    }

    void checkPair(Mapping::Quantity first, Mapping::Quantity second)
    {
        const OvHeaderWord& a = m_mapping.word(first);
        const OvHeaderWord& b = m_mapping.word(second);
        if (!a.exists() || a.end() < b.position || b.end() < a.position)
            return;
        // Two names for one word: common for numbers that count the same thing.
        const bool sameWord = a.position == b.position && a.end() == b.end();
        const bool recordAndChannel = first == Mapping::FieldRecord && second == Mapping::Channel;
        if (sameWord && isNumbering(first) && isNumbering(second) && !recordAndChannel)
            return;
        add(sameWord ? Problem::Warning : Problem::Error, second,
            (sameWord ? Texts::tr("%1 and %2 are read from the same bytes, %3 to %4.")
                      : Texts::tr("%1 and %2 overlap at bytes %3 to %4."))
                .arg(Mapping::name(first), Mapping::name(second))
                .arg(std::max(a.position, b.position))
                .arg(std::min(a.end(), b.end())));
    }

    void checkMissing()
    {
        if (!m_mapping.word(Mapping::FieldRecord).exists())
            add(Problem::Warning, Mapping::FieldRecord,
                Texts::tr("There is no field record; all traces form one gather."));
        const bool pairs[][2] = {{hasWord(Mapping::SourceX), hasWord(Mapping::SourceY)},
                                 {hasWord(Mapping::ReceiverX), hasWord(Mapping::ReceiverY)},
                                 {hasWord(Mapping::SourceX), hasWord(Mapping::ReceiverX)}};
        for (const auto& pair : pairs) {
            if (pair[0] == pair[1])
                continue;
            add(Problem::Warning, pair[0] ? Mapping::ReceiverX : Mapping::SourceX,
                Texts::tr("Coordinates are incomplete: source and receiver need X and Y each."));
            return;
        }
    }

    bool hasWord(Mapping::Quantity quantity) const { return m_mapping.word(quantity).exists(); }

    const Mapping& m_mapping;
    int m_headerBytes;
    QVector<Problem> m_problems;
};

} // namespace

QVector<OvTraceHeaderMapping::Problem> OvTraceHeaderMapping::problems(int headerBytes) const
{
    return Check(*this, headerBytes).problems();
}
