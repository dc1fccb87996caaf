#include "Scores.h"

#include "../Figure.h"

#include <algorithm>
#include <array>
#include <cmath>

void Scores::add(double errorMs, double confidence)
{
    m_all.push_back({errorMs, confidence});
}

double Scores::within(double toleranceMs, double confidentPart) const
{
    std::vector<Entry> sorted = m_all;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const Entry& a, const Entry& b) { return a.confidence > b.confidence; });
    sorted.resize(static_cast<std::size_t>(confidentPart * static_cast<double>(sorted.size())));
    const auto right =
        std::count_if(sorted.begin(), sorted.end(), [toleranceMs](const Entry& entry) {
            return std::abs(entry.errorMs) <= toleranceMs;
        });
    return static_cast<double>(right) / static_cast<double>(sorted.size());
}

std::vector<double> Scores::errors(bool absolute) const
{
    std::vector<double> errors;
    for (const Entry& entry : m_all) {
        if (std::isfinite(entry.errorMs))
            errors.push_back(absolute ? std::abs(entry.errorMs) : entry.errorMs);
    }
    return errors;
}

double Scores::picked() const
{
    return static_cast<double>(errors(false).size()) / static_cast<double>(m_all.size());
}

double Scores::biasMs() const
{
    return Figure::median(errors(false));
}

double Scores::medianAbsoluteMs() const
{
    return Figure::median(errors(true));
}

std::vector<Scores::Bin> Scores::reliability(double toleranceMs) const
{
    constexpr std::size_t tenths = 10;
    std::array<Bin, tenths> bins;
    for (const Entry& entry : m_all) {
        if (!std::isfinite(entry.errorMs))
            continue;
        Bin& bin = bins[std::min(static_cast<std::size_t>(entry.confidence * tenths), tenths - 1)];
        ++bin.count;
        bin.confidence += entry.confidence;
        bin.right += std::abs(entry.errorMs) <= toleranceMs ? 1.0 : 0.0;
    }
    std::vector<Bin> filled;
    for (Bin& bin : bins) {
        if (bin.count == 0)
            continue;
        bin.confidence /= bin.count;
        bin.right /= bin.count;
        filled.push_back(bin);
    }
    return filled;
}
