#include "OvSeismic/segy/OvSegyFormatGuess.h"

#include "OvSeismic/segy/OvPositionalFile.h"
#include "OvSeismic/segy/OvSegyLayout.h"
#include "OvSeismic/segy/OvSegySampleFormat.h"
#include "OvSeismic/segy/OvSegySamples.h"

#include <algorithm>
#include <bitset>
#include <cmath>
#include <vector>

namespace {

constexpr qint64 mostTraces = 12;
constexpr qint64 mostSamples = 2000;
// With fewer words that are not zero, chance may look like one format or the other.
constexpr qint64 leastWords = 200;
constexpr qint64 leastWordsForIbm = 2000;
// A single trace may be odd.
constexpr std::size_t leastTraces = 4;
// Recorded traces are smoother in the format that they are in: in the other, values jump at each
// step of an exponent. The ratio is that of the roughness as IBM to the one as IEEE.
constexpr double clearlyIeee = 1.3;
constexpr double clearlyIbm = 0.9;
// IBM floats are written with a first digit that is not zero; of IEEE floats, which have other bits
// in that place, one in sixteen looks as if it were.
constexpr double mostZeroDigitsOfIbm = 0.002;
constexpr double leastZeroDigitsOfIeee = 0.01;
// Some recorders write integers as IBM floats of one exponent, which looks smooth as IEEE.
constexpr int leastExponents = 3;

class Evidence
{
public:
    Evidence(const OvPositionalFile& file, const OvSegyFileInfo& info)
        : m_file(file)
        , m_info(info)
    {
    }

    void look();
    /// The format that the samples look like.
    int likely(int declared) const;
    bool isCertain() const { return m_ratios.size() >= leastTraces; }

private:
    void lookAt(qint64 trace, qint64 samples);
    void countDigits(const std::vector<char>& bytes);
    bool looksLikeIeee() const;
    bool looksLikeIbm() const;
    double zeroDigits() const { return double(m_zeroDigits) / double(m_words); }
    double smootherAsIeee() const;

    const OvPositionalFile& m_file;
    const OvSegyFileInfo& m_info;
    qint64 m_words = 0;
    qint64 m_zeroDigits = 0;
    bool m_ieeeIsSane = true;
    std::bitset<128> m_exponents;
    std::vector<double> m_ratios; ///< roughness as IBM by roughness as IEEE, of each trace
};

/// Squared differences of neighbours by squared values: small for what is well sampled, 2 for
/// noise. Negative where there is nothing to tell.
double roughness(const std::vector<float>& samples)
{
    double steps = 0.0;
    double power = 0.0;
    for (std::size_t i = 1; i < samples.size(); ++i) {
        const double step = double(samples[i]) - double(samples[i - 1]);
        steps += step * step;
        power += double(samples[i]) * double(samples[i]);
    }
    const double ratio = steps / power;
    return steps > 0.0 && std::isfinite(ratio) ? ratio : -1.0;
}

void Evidence::countDigits(const std::vector<char>& bytes)
{
    for (std::size_t at = 0; at + 4 <= bytes.size(); at += 4) {
        const auto byte = [&](std::size_t i) {
            const std::size_t place = m_info.byteOrder == OvByteOrder::BigEndian      ? i
                                      : m_info.byteOrder == OvByteOrder::LittleEndian ? 3 - i
                                                                                      : i ^ 1;
            return static_cast<quint8>(bytes[at + place]);
        };
        if (byte(0) == 0 && byte(1) == 0 && byte(2) == 0 && byte(3) == 0)
            continue;
        ++m_words;
        m_exponents.set(byte(0) & 0x7F);
        m_zeroDigits += (byte(1) >> 4) == 0;
    }
}

void Evidence::lookAt(qint64 trace, qint64 samples)
{
    const qint64 position = m_info.firstTraceOffset + trace * OvSegyLayout::traceSize(m_info) +
                            OvSegyLayout::traceHeaderSize * (1 + qint64(m_info.extraTraceHeaders));
    std::vector<char> bytes(static_cast<std::size_t>(samples * 4));
    if (!m_file.read(position, bytes.data(), samples * 4))
        return;
    countDigits(bytes);
    std::vector<float> decoded(static_cast<std::size_t>(samples));
    const auto roughnessAs = [&](int code) {
        OvSegySamples::toFloat(code, m_info.byteOrder, bytes.data(), samples, decoded.data());
        return roughness(decoded);
    };
    const double ibm = roughnessAs(OvSegyFormat::Ibm);
    const double ieee = roughnessAs(OvSegyFormat::Ieee);
    m_ieeeIsSane = m_ieeeIsSane && std::all_of(decoded.begin(), decoded.end(),
                                               [](float value) { return std::isfinite(value); });
    if (ibm > 0.0 && ieee > 0.0)
        m_ratios.push_back(ibm / ieee);
}

void Evidence::look()
{
    // Where traces differ in length only the first one's place is known.
    const qint64 traces = m_info.fixedLength ? m_info.traceCount : 1;
    const qint64 count = qMin(mostTraces, traces);
    const qint64 end = m_info.firstTraceOffset + OvSegyLayout::traceSize(m_info);
    if (end > m_info.fileSize)
        return;
    const qint64 samples = qMin<qint64>(mostSamples, m_info.sampleCount);
    for (qint64 i = 0; i < count; ++i)
        lookAt(count > 1 ? (traces - 1) / (count - 1) * i : 0, samples);
}

double Evidence::smootherAsIeee() const
{
    std::vector<double> ratios = m_ratios;
    const auto middle = ratios.begin() + static_cast<std::ptrdiff_t>(ratios.size() / 2);
    std::nth_element(ratios.begin(), middle, ratios.end());
    return *middle;
}

bool Evidence::looksLikeIeee() const
{
    return m_words >= leastWords && m_ieeeIsSane && zeroDigits() >= leastZeroDigitsOfIeee &&
           m_exponents.count() >= leastExponents && smootherAsIeee() > clearlyIeee;
}

bool Evidence::looksLikeIbm() const
{
    return m_words >= leastWordsForIbm && zeroDigits() <= mostZeroDigitsOfIbm &&
           smootherAsIeee() < clearlyIbm;
}

int Evidence::likely(int declared) const
{
    if (m_ratios.empty())
        return declared;
    if (declared == OvSegyFormat::Ibm)
        return looksLikeIeee() ? OvSegyFormat::Ieee : declared;
    return looksLikeIbm() ? OvSegyFormat::Ibm : declared;
}

} // namespace

OvSegyFormatGuess OvSegyFormatGuess::of(const OvPositionalFile& file, const OvSegyFileInfo& info)
{
    const int declared = info.declaredFormatCode;
    if (declared != OvSegyFormat::Ibm && declared != OvSegyFormat::Ieee)
        return {declared, true};
    Evidence evidence(file, info);
    evidence.look();
    return {evidence.likely(declared), evidence.isCertain()};
}
