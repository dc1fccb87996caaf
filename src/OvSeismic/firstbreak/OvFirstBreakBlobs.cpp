#include "OvSeismic/firstbreak/OvFirstBreakBlobs.h"

#include <QtEndian>

#include <cstring>

namespace OvFirstBreakBlobs {

QByteArray fromFloats(const std::vector<float>& values)
{
    QByteArray blob(static_cast<int>(values.size() * sizeof(float)), Qt::Uninitialized);
    char* out = blob.data();
    for (const float value : values) {
        quint32 bits = 0;
        std::memcpy(&bits, &value, sizeof(bits));
        qToLittleEndian(bits, out);
        out += sizeof(bits);
    }
    return blob;
}

QByteArray fromStates(const std::vector<OvPickState>& states)
{
    QByteArray blob;
    blob.reserve(static_cast<int>(states.size()));
    for (const OvPickState state : states)
        blob += static_cast<char>(state);
    return blob;
}

bool toFloats(const QByteArray& blob, int count, std::vector<float>* values)
{
    if (blob.size() != count * static_cast<qint64>(sizeof(float)))
        return false;
    values->resize(static_cast<std::size_t>(count));
    const char* in = blob.constData();
    for (float& value : *values) {
        const auto bits = qFromLittleEndian<quint32>(in);
        std::memcpy(&value, &bits, sizeof(value));
        in += sizeof(bits);
    }
    return true;
}

bool toStates(const QByteArray& blob, int count, std::vector<OvPickState>* states)
{
    if (blob.size() != count)
        return false;
    states->clear();
    for (const char byte : blob) {
        if (byte < 0 || byte > static_cast<char>(OvPickState::Rejected))
            return false;
        states->push_back(static_cast<OvPickState>(byte));
    }
    return true;
}

} // namespace OvFirstBreakBlobs
