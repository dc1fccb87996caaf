#include "OvSeismic/segy/OvPackedColumn.h"

#include <cstring>

namespace {

unsigned bitsOf(quint64 value)
{
    unsigned bits = 0;
    for (; value != 0; value >>= 1U)
        ++bits;
    return bits;
}

quint64 wordsOf(int count, quint32 width)
{
    return (static_cast<quint64>(count) * width + 63) / 64;
}

template <typename T>
void put(const std::vector<T>& values, std::vector<char>* out)
{
    const auto* bytes = reinterpret_cast<const char*>(values.data());
    out->insert(out->end(), bytes, bytes + values.size() * sizeof(T));
}

template <typename T>
bool take(const char** bytes, const char* end, quint64 count, std::vector<T>* values)
{
    if (count > static_cast<quint64>(end - *bytes) / sizeof(T))
        return false;
    values->resize(static_cast<std::size_t>(count));
    if (count > 0)
        std::memcpy(values->data(), *bytes, values->size() * sizeof(T));
    *bytes += values->size() * sizeof(T);
    return true;
}

} // namespace

void OvPackedColumn::append(const qint32* values, int count)
{
    appendBlock(values, count);
}

void OvPackedColumn::append(const qint64* values, int count)
{
    appendBlock(values, count);
}

template <typename Value>
void OvPackedColumn::appendBlock(const Value* values, int count)
{
    Value least = values[0];
    Value most = values[0];
    for (int i = 1; i < count; ++i) {
        least = values[i] < least ? values[i] : least;
        most = values[i] > most ? values[i] : most;
    }
    const quint64 range = static_cast<quint64>(qint64(most)) - static_cast<quint64>(qint64(least));
    const Block block = {least, static_cast<quint32>(m_words.size()), bitsOf(range)};
    m_blocks.push_back(block);
    m_size += count;
    if (block.width > 0)
        pack(values, count, block);
}

template <typename Value>
void OvPackedColumn::pack(const Value* values, int count, const Block& block)
{
    m_words.resize(m_words.size() + static_cast<std::size_t>(wordsOf(count, block.width)));
    quint64* word = m_words.data() + block.firstWord;
    quint64 pending = 0;
    unsigned used = 0;
    for (int i = 0; i < count; ++i) {
        const quint64 above =
            static_cast<quint64>(qint64(values[i])) - static_cast<quint64>(block.base);
        pending |= above << used;
        used += block.width;
        if (used < 64)
            continue;
        *word++ = pending;
        used -= 64;
        pending = used > 0 ? above >> (block.width - used) : 0;
    }
    if (used > 0)
        *word = pending;
}

void OvPackedColumn::append(const OvPackedColumn& other)
{
    const auto shift = static_cast<quint32>(m_words.size());
    m_words.insert(m_words.end(), other.m_words.begin(), other.m_words.end());
    for (Block block : other.m_blocks) {
        block.firstWord += shift;
        m_blocks.push_back(block);
    }
    m_size += other.m_size;
}

void OvPackedColumn::shrink()
{
    m_blocks.shrink_to_fit();
    m_words.shrink_to_fit();
}

qint64 OvPackedColumn::bytes() const
{
    const std::size_t sum =
        m_blocks.capacity() * sizeof(Block) + m_words.capacity() * sizeof(quint64);
    return static_cast<qint64>(sum);
}

void OvPackedColumn::save(std::vector<char>* out) const
{
    put(std::vector<quint64>{m_words.size()}, out);
    put(m_blocks, out);
    put(m_words, out);
}

bool OvPackedColumn::load(const char** bytes, const char* end, qint64 size)
{
    std::vector<quint64> wordCount;
    const auto blocks = static_cast<quint64>((size + blockSize - 1) / blockSize);
    const bool taken = take(bytes, end, 1, &wordCount) && take(bytes, end, blocks, &m_blocks) &&
                       take(bytes, end, wordCount[0], &m_words);
    m_size = size;
    if (taken && isSound())
        return true;
    *this = {};
    return false;
}

bool OvPackedColumn::isSound() const
{
    qint64 left = m_size;
    for (const Block& block : m_blocks) {
        const int count = static_cast<int>(qMin<qint64>(left, blockSize));
        left -= count;
        if (block.width > 64 || block.firstWord > m_words.size() ||
            wordsOf(count, block.width) > m_words.size() - block.firstWord)
            return false;
    }
    return true;
}
