#include "OvBase/OvSegyParser.h"

#include "OvSeismic/segy/OvSegyFile.h"

#include <limits>

namespace {

// Header words are 16 bits wide and shown signed, as they are stored; only what some files keep in
// a wider word is cut to the largest number.
qint16 headerWord(double value)
{
    if (value > std::numeric_limits<quint16>::max())
        return std::numeric_limits<qint16>::max();
    return static_cast<qint16>(static_cast<quint16>(qRound(value)));
}

qint32 boundedCount(qint64 count)
{
    return static_cast<qint32>(qMin<qint64>(count, std::numeric_limits<qint32>::max()));
}

} // namespace

struct OvSegyParser::Private
{
    OvStatus status;
    qint16 traceLength = 0;
    qint16 sampleRate = 0;
    qint16 formatCode = 0;
    qint32 totalTraces = 0;
};

OvSegyParser::OvSegyParser(const QString& fileName, QObject* parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    OvSegyFile file;
    d->status = file.open(fileName);
    if (!d->status)
        return;
    const OvSegyFileInfo& info = file.info();
    d->traceLength = headerWord(info.sampleCount);
    d->sampleRate = headerWord(info.intervalUs);
    d->formatCode = info.declaredFormatCode;
    d->totalTraces = boundedCount(info.traceCount);
}

OvSegyParser::~OvSegyParser() = default;

OvStatus OvSegyParser::status() const
{
    return d->status;
}

qint16 OvSegyParser::traceLength() const
{
    return d->traceLength;
}

qint16 OvSegyParser::sampleRate() const
{
    return d->sampleRate;
}

qint16 OvSegyParser::formatCode() const
{
    return d->formatCode;
}

qint32 OvSegyParser::totalTraces() const
{
    return d->totalTraces;
}
