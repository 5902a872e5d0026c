// SPDX-License-Identifier: MIT
#include "bench/contest/picture_error.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace contest
{

namespace
{

class ErrorSum
{
public:
    void Add(double difference)
    {
        m_squares += difference * difference;
        ++m_count;
        m_worst = std::max(m_worst, std::abs(difference));
    }

    double Decibels() const
    {
        constexpr double kPeak = 255.0;
        if (m_count == 0 || m_squares <= 0.0) {
            return kPerfect;
        }
        const double mean = m_squares / static_cast<double>(m_count);
        return std::min(10.0 * std::log10(kPeak * kPeak / mean), kPerfect);
    }
    double Worst() const { return m_worst; }

private:
    double m_squares = 0.0;
    double m_worst = 0.0;
    std::size_t m_count = 0;
};

} // namespace

PictureError Compare(const Pixmap& picture, const Truth& truth)
{
    if (picture.width != truth.width || picture.height != truth.height) {
        throw std::invalid_argument("the picture has another size than the truth");
    }
    ErrorSum area;
    ErrorSum conformance;
    ErrorSum edges;
    for (std::size_t pixel = 0; pixel < truth.places.size(); ++pixel) {
        if (truth.places[pixel] == Place::Outside) {
            continue;
        }
        for (std::size_t channel = 0; channel < truth.area[pixel].size(); ++channel) {
            const double drawn = picture.bytes[pixel * truth.area[pixel].size() + channel];
            area.Add(drawn - truth.area[pixel][channel]);
            conformance.Add(drawn - truth.bilinear[pixel][channel]);
            if (truth.places[pixel] == Place::Edge) {
                edges.Add(drawn - truth.bilinear[pixel][channel]);
            }
        }
    }
    return {area.Decibels(), conformance.Decibels(), edges.Decibels(), conformance.Worst()};
}

} // namespace contest
