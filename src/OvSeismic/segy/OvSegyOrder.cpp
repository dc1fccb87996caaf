#include "OvSeismic/segy/OvSegyOrder.h"

#include "OvSeismic/segy/OvSegySampleFormat.h"
#include "OvSeismic/segy/OvSegyText.h"
#include "OvSeismic/segy/OvSegyWords.h"

#include <segyio/segy.h>

#include <cstdlib>

namespace {

// libsegyio leaves the order to its caller and knows no pairs.
constexpr int binaryStart = OvSegyText::headerSize + 1;
constexpr int byteOrderConstant = 3297;
constexpr qint32 inOrder = 0x01020304;

constexpr OvByteOrder orders[] = {OvByteOrder::BigEndian, OvByteOrder::LittleEndian,
                                  OvByteOrder::PairSwapped};

bool knowsFormat(const QByteArray& binaryHeader, OvByteOrder order)
{
    const OvSegyWords words(binaryHeader.constData(), binaryStart, order);
    return ovSegySampleFormat(words.int16(SEGY_BIN_FORMAT)).bytes > 0;
}

/// How many more words are small numbers with pairs swapped than in little-endian order. Words of
/// 16 bits are the same in both.
int votesForPairs(const QByteArray& header, int firstByte, std::initializer_list<int> numbers)
{
    const OvSegyWords little(header.constData(), firstByte, OvByteOrder::LittleEndian);
    const OvSegyWords pairs(header.constData(), firstByte, OvByteOrder::PairSwapped);
    int votes = 0;
    for (const int number : numbers) {
        const qint64 asLittle = std::abs(qint64(little.int32(number)));
        const qint64 asPairs = std::abs(qint64(pairs.int32(number)));
        votes += (asPairs < asLittle) - (asPairs > asLittle);
    }
    return votes;
}

bool looksPairSwapped(const QByteArray& binaryHeader, const QByteArray& traceHeader)
{
    int votes = votesForPairs(binaryHeader, binaryStart,
                              {SEGY_BIN_JOB_ID, SEGY_BIN_LINE_NUMBER, SEGY_BIN_REEL_NUMBER});
    if (!traceHeader.isEmpty()) {
        votes += votesForPairs(
            traceHeader, 1,
            {SEGY_TR_SEQ_LINE, SEGY_TR_SEQ_FILE, SEGY_TR_FIELD_RECORD, SEGY_TR_NUMBER_ORIG_FIELD,
             SEGY_TR_ENERGY_SOURCE_POINT, SEGY_TR_ENSEMBLE, SEGY_TR_NUM_IN_ENSEMBLE, SEGY_TR_OFFSET,
             SEGY_TR_RECV_GROUP_ELEV, SEGY_TR_SOURCE_SURF_ELEV, SEGY_TR_SOURCE_DEPTH,
             SEGY_TR_SOURCE_X, SEGY_TR_SOURCE_Y, SEGY_TR_GROUP_X, SEGY_TR_GROUP_Y});
    }
    return votes > 0;
}

} // namespace

OvSegyOrder OvSegyOrder::find(const QByteArray& binaryHeader, const QByteArray& traceHeader)
{
    bool stated = false;
    OvByteOrder statedOrder = OvByteOrder::BigEndian;
    for (const OvByteOrder order : orders) {
        const OvSegyWords words(binaryHeader.constData(), binaryStart, order);
        if (words.int32(byteOrderConstant) != inOrder)
            continue;
        stated = true;
        statedOrder = order;
    }
    const bool big = knowsFormat(binaryHeader, OvByteOrder::BigEndian);
    const bool swapped = knowsFormat(binaryHeader, OvByteOrder::LittleEndian);
    if (stated && (knowsFormat(binaryHeader, statedOrder) || (!big && !swapped)))
        return {statedOrder, false};
    // A format code below 256 is known in one order only, so the code decides where the constant,
    // which came with revision 2, is missing or contradicts it.
    if (big || !swapped)
        return {OvByteOrder::BigEndian, stated};
    return {looksPairSwapped(binaryHeader, traceHeader) ? OvByteOrder::PairSwapped
                                                        : OvByteOrder::LittleEndian,
            stated};
}
