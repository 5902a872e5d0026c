// SPDX-License-Identifier: MIT
#include "orvane/raster/area_filter.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace orvane::raster
{

namespace
{

constexpr std::size_t kChannels = 4;

// Sums of weighted channels are whole numbers and exact in floating point, which compilers make vectors of where wide
// whole numbers stay scalar: over a column of 32767 texels at most 2^23, over a rectangle 2^38.

/// A row of sums over columns, channel by channel.
using ColumnSums = std::vector<float>;
/// The four sums over a rectangle.
using Sums = std::array<double, kChannels>;

void AddTexels(ColumnSums& sums, const std::uint32_t* texels, float weight)
{
    const std::uint8_t* const channels = reinterpret_cast<const std::uint8_t*>(texels);
    for (std::size_t i = 0; i < sums.size(); ++i) {
        sums[i] += static_cast<float>(channels[i]) * weight;
    }
}

void Add(Sums& sums, const float* colour, double weight)
{
    for (std::size_t i = 0; i < sums.size(); ++i) {
        sums[i] += static_cast<double>(colour[i]) * weight;
    }
}

/// Divides sums by their total weight, to nearest.
class Divider
{
public:
    explicit Divider(double total) : m_inverse(1 / total), m_half((total + 0.5) / 2 * m_inverse) {}
    /// Halves, which go up, lie a quarter of a unit above the border, more than rounding errors reach.
    std::uint8_t operator()(double sum) const
    {
        return static_cast<std::uint8_t>(static_cast<int>(sum * m_inverse + m_half));
    }

private:
    double m_inverse;
    double m_half;
};

/// What an old step gives to the new steps that it overlaps, one or two. An old step is newCount units long and a new
/// one oldCount, so that all weights are whole.
struct Share {
    std::size_t to;
    double first;
    double second; ///< to the step behind
};

Share ShareOf(int from, int oldCount, int newCount)
{
    const std::int64_t begin = std::int64_t{from} * newCount;
    const std::int64_t end = begin + newCount;
    const std::int64_t to = begin / oldCount;
    const std::int64_t border = std::min(end, (to + 1) * oldCount);
    return {static_cast<std::size_t>(to), static_cast<double>(border - begin), static_cast<double>(end - border)};
}

std::vector<Share> SharesOf(int oldCount, int newCount)
{
    std::vector<Share> shares(static_cast<std::size_t>(oldCount));
    for (int i = 0; i < oldCount; ++i) {
        shares[static_cast<std::size_t>(i)] = ShareOf(i, oldCount, newCount);
    }
    return shares;
}

/// Makes a row of the smaller picture from sums over columns.
class RowShrinker
{
public:
    RowShrinker(const TexelSource& source, int width)
        : m_shares(SharesOf(source.width, width)), m_sums(static_cast<std::size_t>(width)),
          m_mean(static_cast<double>(source.width) * source.height), m_columnMean(source.height)
    {
    }
    void operator()(const ColumnSums& columns, std::uint32_t* pixels)
    {
        std::uint8_t* const channels = reinterpret_cast<std::uint8_t*>(pixels);
        if (m_sums.size() == m_shares.size()) {
            std::transform(columns.begin(), columns.end(), channels, m_columnMean);
            return;
        }
        std::fill(m_sums.begin(), m_sums.end(), Sums{});
        for (std::size_t x = 0; x < m_shares.size(); ++x) {
            const Share& share = m_shares[x];
            Add(m_sums[share.to], columns.data() + kChannels * x, share.first);
            if (share.second > 0) {
                Add(m_sums[share.to + 1], columns.data() + kChannels * x, share.second);
            }
        }
        std::transform(m_sums.front().data(), m_sums.back().data() + kChannels, channels, m_mean);
    }

private:
    std::vector<Share> m_shares;
    std::vector<Sums> m_sums;
    Divider m_mean;
    Divider m_columnMean;
};

/// A value and its neighbours on both sides: weights of 2^16 together. Blurring takes nothing wider than 16 bits, so
/// that compilers put as many channels as they can into a vector.
class BlurAxis
{
public:
    explicit BlurAxis(std::uint32_t neighbour)
        : m_beside(static_cast<std::uint16_t>(kWhole * neighbour / (kBlurWhole + 2 * neighbour) * 2)),
          m_here(static_cast<std::uint16_t>(kWhole - m_beside))
    {
    }
    /// What stands beyond a border so that the blurred pixel there is the mean of it and its one neighbour alone.
    std::uint16_t Beyond(std::uint16_t border, std::uint16_t inner) const
    {
        const std::uint32_t half = m_beside / 2U;
        return static_cast<std::uint16_t>((border * (kWhole - m_beside) + inner * half) / (kWhole - half));
    }
    /// For colours in 8.8 bits; 255 comes out at most 2^-8 too small, 0 stays.
    std::uint16_t operator()(std::uint16_t before, std::uint16_t here, std::uint16_t behind) const
    {
        if (m_beside == 0) {
            return here;
        }
        const std::uint16_t mean = static_cast<std::uint16_t>((before & behind) + ((before ^ behind) >> 1));
        return static_cast<std::uint16_t>(Share(here, m_here) + Share(mean, m_beside));
    }

private:
    static constexpr std::uint32_t kWhole = 65536;

    static std::uint16_t Share(std::uint16_t colour, std::uint16_t weight)
    {
        return static_cast<std::uint16_t>(std::uint32_t{colour} * weight >> 16);
    }

    std::uint16_t m_beside; ///< the weight of both neighbours
    std::uint16_t m_here;   ///< the rest; without neighbours it is the whole and does not fit
};

/// A row of channels in 8.8 bits; in a row to be blurred along itself, a pixel stands beyond either end.
using BlurRow = std::vector<std::uint16_t>;

void Unpack(const std::uint32_t* texels, const BlurAxis& axis, BlurRow& row)
{
    const std::size_t inner = row.size() - 2 * kChannels;
    const auto unpack = [](std::uint8_t channel) { return static_cast<std::uint16_t>(channel << 8); };
    const std::uint8_t* const channels = reinterpret_cast<const std::uint8_t*>(texels);
    std::uint16_t* const first = row.data() + kChannels;
    std::uint16_t* const last = row.data() + inner;
    const std::size_t step = inner > kChannels ? kChannels : 0;
    std::transform(channels, channels + inner, first, unpack);
    for (std::size_t i = 0; i < kChannels; ++i) {
        row[i] = axis.Beyond(first[i], first[step + i]);
        last[kChannels + i] = axis.Beyond(last[i], *(last + i - step));
    }
}

BlurRow RowBeyond(const BlurAxis& axis, const std::uint16_t* border, const std::uint16_t* inner, std::size_t size)
{
    BlurRow row(size);
    for (std::size_t i = 0; i < size; ++i) {
        row[i] = axis.Beyond(border[i], inner[i]);
    }
    return row;
}

// What a loop reads is copied first: for all that compilers know, what it writes may lie over it.

void BlurAlong(const BlurRow& texels, const BlurAxis& axis, std::uint16_t* row)
{
    const BlurAxis blur = axis;
    const std::uint16_t* const before = texels.data();
    const std::size_t count = texels.size() - 2 * kChannels;
    for (std::size_t i = 0; i < count; ++i) {
        row[i] = blur(before[i], before[i + kChannels], before[i + 2 * kChannels]);
    }
}

/// Three rows that lie over each other.
struct BlurColumn {
    const std::uint16_t* before;
    const std::uint16_t* here;
    const std::uint16_t* behind;
};

void BlurAcross(const BlurColumn& column, const BlurAxis& axis, std::uint32_t* pixels, std::size_t width)
{
    const BlurAxis blur = axis;
    const auto [before, here, behind] = column;
    std::uint8_t* const channels = reinterpret_cast<std::uint8_t*>(pixels);
    for (std::size_t i = 0; i < width * kChannels; ++i) {
        const std::uint16_t colour = blur(before[i], here[i], behind[i]);
        channels[i] = static_cast<std::uint8_t>(static_cast<std::uint16_t>(colour + 128) >> 8);
    }
}

} // namespace

std::vector<std::uint32_t> ShrinkByArea(const TexelSource& source, int width, int height)
{
    const std::size_t columns = static_cast<std::size_t>(width);
    std::vector<std::uint32_t> picture(columns * static_cast<std::size_t>(height));
    RowShrinker shrinkRow(source, width);
    // A source row reaches into two rows of the picture at most: the one being summed up and the next.
    ColumnSums current(static_cast<std::size_t>(source.width) * kChannels);
    ColumnSums next(current.size());
    std::size_t currentY = 0;
    const auto finishRow = [&] {
        shrinkRow(current, picture.data() + columns * currentY);
        current.swap(next);
        std::fill(next.begin(), next.end(), 0.0F);
        ++currentY;
    };
    for (int y = 0; y < source.height; ++y) {
        const Share share = ShareOf(y, source.height, height);
        if (share.to != currentY) {
            finishRow();
        }
        AddTexels(current, source.Row(y), static_cast<float>(share.first));
        if (share.second > 0) {
            AddTexels(next, source.Row(y), static_cast<float>(share.second));
        }
    }
    finishRow();
    return picture;
}

std::vector<std::uint32_t> Blurred(const TexelSource& source, const BlurWeights& weights)
{
    const BlurAxis along(weights.horizontal);
    const BlurAxis across(weights.vertical);
    const std::size_t columns = static_cast<std::size_t>(source.width);
    std::vector<std::uint32_t> picture(columns * static_cast<std::size_t>(source.height));
    BlurRow texels((columns + 2) * kChannels);
    // Blurred along themselves; of three that follow each other, each stands at its number modulo 3.
    std::array<BlurRow, 3> rows;
    rows.fill(BlurRow(columns * kChannels));
    const auto rowAt = [&](int y) { return rows[static_cast<std::size_t>(y % 3)].data(); };
    const auto blurRow = [&](int y) {
        Unpack(source.Row(y), along, texels);
        BlurAlong(texels, along, rowAt(y));
    };
    const int last = source.height - 1;
    const int inner = std::min(last, 1);
    blurRow(0);
    blurRow(inner);
    BlurRow beyond = RowBeyond(across, rowAt(0), rowAt(inner), columns * kChannels);
    for (int y = 0; y <= last; ++y) {
        if (y > 0 && y < last) {
            blurRow(y + 1);
        } else if (y == last) {
            beyond = RowBeyond(across, rowAt(y), rowAt(last - inner), columns * kChannels);
        }
        const BlurColumn column{y > 0 ? rowAt(y - 1) : beyond.data(), rowAt(y),
                                y < last ? rowAt(y + 1) : beyond.data()};
        BlurAcross(column, across, picture.data() + columns * static_cast<std::size_t>(y), columns);
    }
    return picture;
}

} // namespace orvane::raster
