#include "OvSeismic/segy/OvSegyIndexCache.h"

#include "OvSeismic/segy/OvPositionalFile.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex_p.h"
#include "OvSeismic/segy/OvSegyLayout.h"

#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

namespace {

constexpr std::array<char, 8> magic = {'O', 'V', 'I', 'N', 'D', 'E', 'X', '\n'};
// Counts up with every change of the form below or of OvPackedColumn's.
constexpr quint32 version = 1;
// Read back in another byte order it is another number.
constexpr quint32 orderMark = 0x01020304;

#ifdef FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION
// Bytes of chance never have the right sum, and what lies behind would not be tried.
constexpr bool sumsCount = false;
#else
constexpr bool sumsCount = true;
#endif

struct Head
{
    std::array<char, 8> magic{};
    quint32 version = 0;
    quint32 orderMark = 0;
    qint64 size = 0;      ///< of the file
    quint64 checksum = 0; ///< of this head, with the checksum of what follows in this place
    qint64 traces = 0;
    qint64 keyBytes = 0;
    qint64 locatorBytes = 0;
};

quint64 turned(quint64 word)
{
    constexpr unsigned turn = 29;
    return (word << turn) | (word >> (64 - turn));
}

/// Every step can be undone, so that no change of a single word goes unnoticed; four lanes, so that
/// the processor need not wait for one step before the next.
quint64 checksum(const char* bytes, qint64 size)
{
    constexpr quint64 prime = 0x9E3779B185EBCA87U;
    std::array<quint64, 4> lanes = {1, 2, 3, 4};
    constexpr qint64 stride = sizeof(lanes);
    std::array<quint64, 4> words{};
    const qint64 whole = size - size % stride;
    for (qint64 at = 0; at < whole; at += stride) {
        std::memcpy(words.data(), bytes + at, sizeof(words));
        for (std::size_t i = 0; i < lanes.size(); ++i)
            lanes[i] = turned((lanes[i] ^ words[i]) * prime);
    }
    words = {};
    if (size > whole)
        std::memcpy(words.data(), bytes + whole, static_cast<std::size_t>(size - whole));
    quint64 sum = static_cast<quint64>(size);
    for (std::size_t i = 0; i < lanes.size(); ++i)
        sum = turned((sum ^ turned((lanes[i] ^ words[i]) * prime)) * prime);
    return sum;
}

quint64 checksum(Head head, const char* body)
{
    head.checksum = checksum(body, head.size - static_cast<qint64>(sizeof(Head)));
    return checksum(reinterpret_cast<const char*>(&head), sizeof(head));
}

OvStatus useless(const QString& reason)
{
    return OvStatus::failure(
        QCoreApplication::translate("OvSegyIndexCache",
                                    "A kept header index cannot be used and is made anew: %1")
            .arg(reason));
}

QString tr(const char* text)
{
    return QCoreApplication::translate("OvSegyIndexCache", text);
}

OvStatus check(const Head& head, const char* bytes, qint64 size)
{
    if (head.magic != magic || head.version != version || head.orderMark != orderMark)
        return useless(
            tr(QT_TRANSLATE_NOOP("OvSegyIndexCache", "it is of another kind or version.")));
    const qint64 rest = size - static_cast<qint64>(sizeof(Head));
    const bool fits = head.size == size && head.keyBytes >= 0 && head.locatorBytes >= 0 &&
                      head.keyBytes <= rest && head.locatorBytes <= rest - head.keyBytes &&
                      head.locatorBytes <= std::numeric_limits<int>::max() && head.traces > 0 &&
                      head.traces <= std::numeric_limits<qint32>::max();
    if (!fits || (sumsCount && checksum(head, bytes + sizeof(Head)) != head.checksum))
        return useless(tr(QT_TRANSLATE_NOOP("OvSegyIndexCache", "it is damaged.")));
    return {};
}

/// The headers that change when a program writes other traces into the file.
OvStatus fingerprint(const OvSegyFile& file, quint64* sum)
{
    // Where traces differ in length, the last one is found by a walk through the file only.
    const qint64 last = file.hasFixedLength() ? file.position(file.locatedCount() - 1) : -1;
    const qint64 first = file.info().firstTraceOffset;
    const qint64 front = qMin<qint64>(first, OvSegyLayout::fileHeaderSize);
    constexpr qint64 header = OvSegyLayout::traceHeaderSize;
    std::vector<char> bytes(static_cast<std::size_t>(front + 2 * header));
    OvStatus status = file.bytes().read(0, bytes.data(), front);
    if (status)
        status = file.bytes().read(first, bytes.data() + front, header);
    if (status && last >= 0)
        status = file.bytes().read(last, bytes.data() + front + header, header);
    *sum = checksum(bytes.data(), static_cast<qint64>(bytes.size()));
    return status;
}

} // namespace

OvStatus OvSegyIndexCache::keyOf(const OvSegyFile& file, const OvTraceHeaderMapping& mapping,
                                 Key* key)
{
    quint64 sum = 0;
    OvStatus status = fingerprint(file, &sum);
    const OvSegyFileInfo& info = file.info();
    key->text = QString("%1\n%2 %3 %4\n%5 %6 %7 %8")
                    .arg(QFileInfo(info.path).canonicalFilePath())
                    .arg(file.bytes().size())
                    .arg(file.bytes().modifiedNs())
                    .arg(sum)
                    .arg(info.firstTraceOffset)
                    .arg(static_cast<int>(info.byteOrder))
                    .arg(info.fixedLength ? OvSegyLayout::traceSize(info) : 0)
                    .arg(mapping.toText())
                    .toUtf8();
    key->mapping = mapping;
    key->metresPerUnit = info.metresPerUnit;
    return status;
}

std::vector<char> OvSegyIndexCache::encode(const OvSegyIndex& index, const Key& key,
                                           const QByteArray& locator)
{
    std::vector<char> bytes(sizeof(Head));
    bytes.reserve(static_cast<std::size_t>(index.memoryBytes()));
    bytes.insert(bytes.end(), key.text.begin(), key.text.end());
    bytes.insert(bytes.end(), locator.begin(), locator.end());
    index.d->columns->save(&bytes);
    Head head;
    head.magic = magic;
    head.version = version;
    head.orderMark = orderMark;
    head.size = static_cast<qint64>(bytes.size());
    head.traces = index.traceCount();
    head.keyBytes = key.text.size();
    head.locatorBytes = locator.size();
    head.checksum = checksum(head, bytes.data() + sizeof(Head));
    std::memcpy(bytes.data(), &head, sizeof(head));
    return bytes;
}

OvStatus OvSegyIndexCache::decode(const char* bytes, qint64 size, const Key& key,
                                  OvSegyIndex* index, QByteArray* locator)
{
    *index = OvSegyIndex();
    Head head;
    if (size >= static_cast<qint64>(sizeof(Head)))
        std::memcpy(&head, bytes, sizeof(head));
    OvStatus status = check(head, bytes, size);
    if (!status)
        return status;
    const char* at = bytes + sizeof(Head);
    if (head.keyBytes != key.text.size() || !std::equal(key.text.begin(), key.text.end(), at))
        return useless(
            tr(QT_TRANSLATE_NOOP("OvSegyIndexCache", "the SEG-Y file has changed since.")));
    at += head.keyBytes;
    *locator = QByteArray(at, static_cast<int>(head.locatorBytes));
    at += head.locatorBytes;
    OvSegyColumns columns(key.mapping, key.metresPerUnit);
    if (!columns.load(&at, bytes + size, head.traces) || at != bytes + size)
        return useless(tr(QT_TRANSLATE_NOOP("OvSegyIndexCache", "it is damaged.")));
    index->d->mapping = key.mapping;
    index->d->take(std::move(columns));
    return status;
}
