#include "OvSeismic/segy/OvHeaderSurvey.h"

#include <QCoreApplication>

namespace {

using Mapping = OvTraceHeaderMapping;
using Remark = OvHeaderSurvey::Remark;

// Larger than any projected coordinate, m or ft, and than the seconds of arc of a circle with two
// decimals.
constexpr double largestCoordinate = 2.0e8;
// No first break is heard this far from the shot, m or ft.
constexpr double largestOffset = 1.0e6;
constexpr double longestDelay = 30000.0;
constexpr std::size_t mostTraceCodes = 32;

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(OvHeaderSurvey)
};

QString number(double value)
{
    return QString::number(value, 'g', 10);
}

/// The remarks on one survey.
class Remarks
{
public:
    Remarks(const OvHeaderSurvey& survey, double coordinate, double offset)
        : m_survey(survey)
        , m_largestCoordinate(coordinate)
        , m_largestOffset(offset)
    {
        for (int i = 0; i < Mapping::quantityCount; ++i)
            remarkOn(static_cast<Mapping::Quantity>(i));
    }

    QVector<Remark> remarks() const { return m_remarks; }

private:
    using Quantity = Mapping::Quantity;

    const OvHeaderSurvey::Word& word(Quantity quantity) const { return m_survey.word(quantity); }

    void add(Quantity quantity, const QString& message)
    {
        m_remarks.append({Remark::Warning, quantity, message});
    }

    void remarkOn(Quantity quantity)
    {
        remarkOnNumbers(quantity);
        switch (quantity) {
        case Mapping::FieldRecord:
            remarkOnRecords();
            break;
        case Mapping::Channel:
            remarkOnChannels();
            break;
        case Mapping::Offset:
            remarkOnOffsets();
            break;
        case Mapping::SourceX:
            remarkOnCoordinates();
            break;
        case Mapping::Delay:
            remarkOnDelays();
            break;
        case Mapping::TraceId:
            remarkOnCodes();
            break;
        default:
            break;
        }
    }

    void remarkOnNumbers(Quantity quantity)
    {
        const OvHeaderSurvey::Word& found = word(quantity);
        if (found.invalid > 0)
            add(quantity, Texts::tr("%1 is not a number in %2 of %3 traces; its type, byte order "
                                    "or position is wrong.")
                              .arg(Mapping::name(quantity))
                              .arg(found.invalid)
                              .arg(found.count));
        else if (found.tiny > 0)
            add(quantity, Texts::tr("%1 is next to nothing in %2 of %3 traces; it is probably a "
                                    "whole number that is read as a floating-point one.")
                              .arg(Mapping::name(quantity))
                              .arg(found.tiny)
                              .arg(found.count));
        if (found.oddScalars > 0)
            add(quantity,
                Texts::tr("%1 ranges from %2 to %3; the standard allows 1, 10, 100, 1000 "
                          "and 10000, with a minus to divide.")
                    .arg(Mapping::name(quantity), number(found.minimum), number(found.maximum)));
    }

    void remarkOnRecords()
    {
        const OvHeaderSurvey::Word& record = word(Mapping::FieldRecord);
        if (record.count > 1 && record.isConstant())
            add(Mapping::FieldRecord,
                Texts::tr("Field record is %1 in all traces; they form one gather.")
                    .arg(number(record.minimum)));
    }

    void remarkOnChannels()
    {
        const OvHeaderSurvey::Word& channel = word(Mapping::Channel);
        if (channel.count > 1 && channel.isZero())
            add(Mapping::Channel,
                Texts::tr("Channel is 0 in all traces; channels are counted in file order."));
        else if (channel.count > 1 && channel.isConstant())
            add(Mapping::Channel,
                Texts::tr("Channel is %1 in all traces.").arg(number(channel.minimum)));
    }

    void remarkOnOffsets()
    {
        const bool missing = word(Mapping::Offset).count == 0 || word(Mapping::Offset).isZero();
        if (missing && m_survey.traceCount() > 0)
            add(Mapping::Offset,
                hasCoordinates()
                    ? Texts::tr("Offset is 0 in all traces; it is computed from the coordinates.")
                    : Texts::tr("Offset is 0 in all traces and there are no coordinates; offsets "
                                "are unknown."));
        else if (m_largestOffset > largestOffset)
            add(Mapping::Offset, Texts::tr("Offset goes up to %1, farther than any first break; "
                                           "its position, type or byte order is wrong.")
                                     .arg(number(m_largestOffset)));
    }

    bool hasCoordinates() const
    {
        for (const Quantity quantity :
             {Mapping::SourceX, Mapping::SourceY, Mapping::ReceiverX, Mapping::ReceiverY}) {
            if (word(quantity).count > 0 && !word(quantity).isZero())
                return true;
        }
        return false;
    }

    void remarkOnCoordinates()
    {
        if (m_largestCoordinate > largestCoordinate)
            add(Mapping::SourceX,
                Texts::tr("Coordinates go up to %1; their position, type, byte order or scalar is "
                          "wrong.")
                    .arg(number(m_largestCoordinate)));
    }

    void remarkOnDelays()
    {
        const OvHeaderSurvey::Word& delay = word(Mapping::Delay);
        if (delay.maximum > longestDelay || delay.minimum < -longestDelay)
            add(Mapping::Delay,
                Texts::tr("Delay ranges from %1 to %2; its position or byte order may be wrong.")
                    .arg(number(delay.minimum), number(delay.maximum)));
    }

    void remarkOnCodes()
    {
        const OvHeaderSurvey::Word& code = word(Mapping::TraceId);
        if (code.values.size() > mostTraceCodes)
            add(Mapping::TraceId, Texts::tr("Trace identification takes %1 values, more than there "
                                            "are kinds of traces; its position is wrong.")
                                      .arg(code.values.size()));
    }

    const OvHeaderSurvey& m_survey;
    double m_largestCoordinate;
    double m_largestOffset;
    QVector<Remark> m_remarks;
};

} // namespace

QVector<OvHeaderSurvey::Remark> OvHeaderSurvey::remarks() const
{
    return Remarks(*this, m_largestCoordinate, m_largestOffset).remarks();
}
