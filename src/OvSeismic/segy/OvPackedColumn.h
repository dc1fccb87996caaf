#pragma once

#include <QtGlobal>

#include <vector>

/// A column of whole numbers in blocks: each block keeps its smallest value and, in as many bits as
/// its range needs, how far above it each value lies. Header words vary little from trace to trace,
/// so that most take a few bits, and a constant none.
class OvPackedColumn
{
public:
    static constexpr int blockSize = 512;

    /// Adds count values, which form the next block. Every block but the last is full.
    void append(const qint32* values, int count);
    void append(const qint64* values, int count);
    /// Adds the blocks of another column behind this one's, which must all be full.
    void append(const OvPackedColumn& other);
    /// Gives back the room kept for growth.
    void shrink();

    qint64 size() const { return m_size; }
    qint64 at(qint64 i) const
    {
        const Block& block = m_blocks[static_cast<std::size_t>(i / blockSize)];
        return block.width == 0 ? block.base
                                : unpacked(block, static_cast<unsigned>(i % blockSize));
    }
    /// Whether the values of the block that holds i are all the same.
    bool isConstantAround(qint64 i) const
    {
        return m_blocks[static_cast<std::size_t>(i / blockSize)].width == 0;
    }
    /// Bytes that the values take.
    qint64 bytes() const;

    /// The form in files: load() takes what save() gave. The bytes are those of this machine.
    void save(std::vector<char>* out) const;
    /// Takes a column of size values from *bytes on and moves *bytes behind it. False, with the
    /// column empty, when what stands there is no such column; nothing is trusted.
    bool load(const char** bytes, const char* end, qint64 size);

private:
    struct Block
    {
        qint64 base;
        quint32 firstWord;
        quint32 width;
    };

    qint64 unpacked(const Block& block, unsigned i) const
    {
        const unsigned bit = i * block.width;
        const quint64* word = m_words.data() + block.firstWord + bit / 64;
        const unsigned shift = bit % 64;
        quint64 value = word[0] >> shift;
        if (shift + block.width > 64)
            value |= word[1] << (64 - shift);
        if (block.width < 64)
            value &= (quint64(1) << block.width) - 1;
        return static_cast<qint64>(static_cast<quint64>(block.base) + value);
    }
    template <typename Value>
    void appendBlock(const Value* values, int count);
    template <typename Value>
    void pack(const Value* values, int count, const Block& block);
    bool isSound() const;

    std::vector<Block> m_blocks;
    std::vector<quint64> m_words;
    qint64 m_size = 0;
};
