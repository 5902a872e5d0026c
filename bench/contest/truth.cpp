// SPDX-License-Identifier: MIT
#include "bench/contest/truth.h"

#include "bench/contest/projective_map.h"

#include <algorithm>
#include <cmath>

namespace contest
{

namespace
{

/// Red, green, blue and alpha, premultiplied, 0 to 255.
using Sample = std::array<float, 4>;

constexpr int kShifts[] = {16, 8, 0, 24};
constexpr float kFull = 255.0F;
constexpr float kOpaque = 254.5F;  ///< hides what lies below, as far as 8 bits tell
constexpr double kEdgeReach = 1.5; ///< pixels outside a card that still count as its edge
constexpr double kTexelCentre = 0.5;

class TexelReader
{
public:
    explicit TexelReader(const Picture& picture) : m_width(picture.width), m_height(picture.height)
    {
        for (const std::uint32_t word : picture.premultiplied) {
            Sample& texel = m_texels.emplace_back();
            for (std::size_t channel = 0; channel < texel.size(); ++channel) {
                texel[channel] = static_cast<float>((word >> kShifts[channel]) & 255U);
            }
        }
    }

    /// The texel at column and row; beyond the picture, the nearest.
    const Sample& At(int column, int row) const
    {
        column = std::clamp(column, 0, m_width - 1);
        row = std::clamp(row, 0, m_height - 1);
        return m_texels[static_cast<std::size_t>(row) * static_cast<std::size_t>(m_width) +
                        static_cast<std::size_t>(column)];
    }

    Sample Bilinear(const Point& place) const
    {
        const double x = place.x - kTexelCentre;
        const double y = place.y - kTexelCentre;
        const int column = static_cast<int>(std::floor(x));
        const int row = static_cast<int>(std::floor(y));
        const auto right = static_cast<float>(x - column);
        const auto down = static_cast<float>(y - row);
        Sample sample{};
        for (std::size_t channel = 0; channel < sample.size(); ++channel) {
            const float upper = std::lerp(At(column, row)[channel], At(column + 1, row)[channel], right);
            const float lower = std::lerp(At(column, row + 1)[channel], At(column + 1, row + 1)[channel], right);
            sample[channel] = std::lerp(upper, lower, down);
        }
        return sample;
    }

    bool Contains(double x, double y) const { return x >= 0.0 && y >= 0.0 && x < m_width && y < m_height; }
    int Width() const { return m_width; }
    int Height() const { return m_height; }

private:
    int m_width;
    int m_height;
    std::vector<Sample> m_texels;
};

/// What a card does to a pixel.
struct Cover {
    int hits = 0;  ///< of the pixel's points
    Sample area{}; ///< the mean over all points, transparent where the card is not
};

class CardTruth
{
public:
    CardTruth(const Quad& quad, const TexelReader& texels, int samples)
        : m_texels(texels), m_map(ProjectiveMap::OfPicture(texels.Width(), texels.Height(), quad).Inverse()),
          m_samples(samples)
    {
    }

    Cover At(int x, int y) const
    {
        Cover cover;
        for (int row = 0; row < m_samples; ++row) {
            for (int column = 0; column < m_samples; ++column) {
                AddPoint(x + (column + 0.5) / m_samples, y + (row + 0.5) / m_samples, cover);
            }
        }
        for (float& channel : cover.area) {
            channel /= static_cast<float>(AllPoints());
        }
        return cover;
    }

    Sample BilinearAt(int x, int y, const Cover& cover) const
    {
        Sample sample = m_texels.Bilinear(m_map({x + 0.5, y + 0.5}));
        for (float& channel : sample) {
            channel *= static_cast<float>(cover.hits) / static_cast<float>(AllPoints());
        }
        return sample;
    }

    /// For a pixel that the card does not touch.
    bool IsNear(int x, int y) const
    {
        const Point place = m_map({x + 0.5, y + 0.5});
        const double depth = std::abs(m_map.Row(2, x + 0.5, y + 0.5));
        // how far the place in the picture moves for a pixel of the target, at most
        const double alongX = std::hypot(m_map(0, 0) - place.x * m_map(2, 0), m_map(0, 1) - place.x * m_map(2, 1));
        const double alongY = std::hypot(m_map(1, 0) - place.y * m_map(2, 0), m_map(1, 1) - place.y * m_map(2, 1));
        const double reach = kEdgeReach * std::max(alongX, alongY) / depth;
        return place.x > -reach && place.y > -reach && place.x < m_texels.Width() + reach &&
               place.y < m_texels.Height() + reach;
    }

    int AllPoints() const { return m_samples * m_samples; }

private:
    void AddPoint(double x, double y, Cover& cover) const
    {
        const double depth = 1.0 / m_map.Row(2, x, y);
        const double column = m_map.Row(0, x, y) * depth;
        const double row = m_map.Row(1, x, y) * depth;
        if (!(depth > 0.0) || !m_texels.Contains(column, row)) {
            return;
        }
        ++cover.hits;
        const Sample& texel = m_texels.At(static_cast<int>(column), static_cast<int>(row));
        for (std::size_t channel = 0; channel < texel.size(); ++channel) {
            cover.area[channel] += texel[channel];
        }
    }

    const TexelReader& m_texels;
    ProjectiveMap m_map;
    int m_samples;
};

void PutOver(TrueColour& below, const Sample& sample)
{
    for (std::size_t channel = 0; channel < below.size(); ++channel) {
        below[channel] = sample[channel] + below[channel] * (1.0F - sample[3] / kFull);
    }
}

void DrawCard(const CardTruth& card, const Box& box, Truth& truth)
{
    for (int y = box.top; y < box.bottom; ++y) {
        for (int x = box.left; x < box.right; ++x) {
            const auto pixel =
                static_cast<std::size_t>(y) * static_cast<std::size_t>(truth.width) + static_cast<std::size_t>(x);
            Place& place = truth.places[pixel];
            const Cover cover = card.At(x, y);
            if (cover.hits == 0) {
                place = card.IsNear(x, y) ? Place::Edge : place;
                continue;
            }
            PutOver(truth.area[pixel], cover.area);
            PutOver(truth.bilinear[pixel], card.BilinearAt(x, y, cover));
            if (cover.hits < card.AllPoints()) {
                place = Place::Edge;
            } else if (cover.area[3] > kOpaque || place == Place::Outside) {
                place = Place::Inside;
            }
        }
    }
}

} // namespace

Truth RenderTruth(int width, int height, const Frame& frame, const Picture& picture, int samples)
{
    const TexelReader texels(picture);
    TrueColour table{};
    for (std::size_t channel = 0; channel < table.size(); ++channel) {
        table[channel] = static_cast<float>((kTable >> kShifts[channel]) & 255U);
    }
    const std::size_t pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    Truth truth{width, height, std::vector<TrueColour>(pixels, table), std::vector<TrueColour>(pixels, table),
                std::vector<Place>(pixels, Place::Outside)};
    for (const Quad& quad : frame) {
        DrawCard(CardTruth(quad, texels, samples), PixelBox(quad, width, height, 1), truth);
    }
    return truth;
}

} // namespace contest
