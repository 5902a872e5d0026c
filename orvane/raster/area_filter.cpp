// SPDX-License-Identifier: MIT
#include "orvane/raster/area_filter.h"

#include "orvane/raster/wide_colour.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace orvane::raster
{

namespace
{

/// The sums of four channels; at most 255 * 32767 * 32767, so far from an overflow.
using Sums = std::array<std::uint64_t, 4>;

void Add(Sums& sums, const Sums& colour, std::uint64_t weight)
{
    for (std::size_t i = 0; i < sums.size(); ++i) {
        sums[i] += colour[i] * weight;
    }
}

Sums ChannelsOf(std::uint32_t pixel)
{
    return {pixel & 0xFFU, pixel >> 8 & 0xFFU, pixel >> 16 & 0xFFU, pixel >> 24};
}

std::uint32_t Mean(const Sums& sums, std::uint64_t total)
{
    std::uint32_t pixel = 0;
    for (std::size_t i = 0; i < sums.size(); ++i) {
        pixel |= static_cast<std::uint32_t>((sums[i] + total / 2) / total) << (8 * i);
    }
    return pixel;
}

/// Shares out one axis: calls share(to, weight) for each new step that the old step "from" overlaps (one or two). An
/// old step is newCount units long and a new one oldCount, so that all weights are whole.
template <typename Share> void ShareStep(int from, int oldCount, int newCount, const Share& share)
{
    const std::int64_t begin = std::int64_t{from} * newCount;
    const std::int64_t end = begin + newCount;
    const int to = static_cast<int>(begin / oldCount);
    const std::int64_t border = std::int64_t{to + 1} * oldCount;
    share(to, static_cast<std::uint64_t>(std::min(end, border) - begin));
    if (end > border) {
        share(to + 1, static_cast<std::uint64_t>(end - border));
    }
}

void ShrinkRow(const std::uint32_t* texels, int oldWidth, std::vector<Sums>& row)
{
    std::fill(row.begin(), row.end(), Sums{});
    const int width = static_cast<int>(row.size());
    for (int x = 0; x < oldWidth; ++x) {
        const Sums colour = ChannelsOf(texels[x]);
        ShareStep(x, oldWidth, width,
                  [&](int to, std::uint64_t weight) { Add(row[static_cast<std::size_t>(to)], colour, weight); });
    }
}

/// A pixel with its neighbours, where there are any; read(i) gives the colour at i.
template <typename Read> WideColour WeightedSum(const Read& read, int at, int count, std::uint32_t neighbour)
{
    WideColour sum = read(at) * kBlurWhole;
    if (at > 0) {
        sum = sum + read(at - 1) * neighbour;
    }
    if (at + 1 < count) {
        sum = sum + read(at + 1) * neighbour;
    }
    return sum;
}

std::uint32_t TotalWeight(int at, int count, std::uint32_t neighbour)
{
    return kBlurWhole + (at > 0 ? neighbour : 0) + (at + 1 < count ? neighbour : 0);
}

} // namespace

std::vector<std::uint32_t> ShrinkByArea(const TexelSource& source, int width, int height)
{
    const std::size_t columns = static_cast<std::size_t>(width);
    std::vector<std::uint32_t> picture(columns * static_cast<std::size_t>(height));
    std::vector<Sums> row(columns);
    // A source row reaches into two rows of the picture at most: the one being summed up and the next.
    std::vector<Sums> current(columns);
    std::vector<Sums> next(columns);
    const std::uint64_t total = static_cast<std::uint64_t>(source.width) * static_cast<std::uint64_t>(source.height);
    int currentY = 0;
    const auto finishRow = [&] {
        std::uint32_t* pixels = picture.data() + columns * static_cast<std::size_t>(currentY);
        std::transform(current.begin(), current.end(), pixels, [total](const Sums& sums) { return Mean(sums, total); });
        current.swap(next);
        std::fill(next.begin(), next.end(), Sums{});
        ++currentY;
    };
    for (int y = 0; y < source.height; ++y) {
        ShrinkRow(source.Row(y), source.width, row);
        if (std::int64_t{y} * height >= std::int64_t{currentY + 1} * source.height) {
            finishRow();
        }
        ShareStep(y, source.height, height, [&](int to, std::uint64_t weight) {
            std::vector<Sums>& sums = to == currentY ? current : next;
            for (std::size_t x = 0; x < columns; ++x) {
                Add(sums[x], row[x], weight);
            }
        });
    }
    finishRow();
    return picture;
}

void Blur(std::vector<std::uint32_t>& pixels, int width, int height, const BlurWeights& weights)
{
    const std::size_t columns = static_cast<std::size_t>(width);
    // Rows summed along themselves; of three that follow each other, each stands at its number modulo 3.
    std::array<std::vector<WideColour>, 3> rows;
    rows.fill(std::vector<WideColour>(columns));
    const auto rowAt = [&](int y) -> std::vector<WideColour>& { return rows[static_cast<std::size_t>(y % 3)]; };
    const auto sumRow = [&](int y) {
        const std::uint32_t* row = pixels.data() + columns * static_cast<std::size_t>(y);
        const auto read = [row](int x) { return WideColour::From(row[x]); };
        for (int x = 0; x < width; ++x) {
            rowAt(y)[static_cast<std::size_t>(x)] = WeightedSum(read, x, width, weights.horizontal);
        }
    };
    sumRow(0);
    for (int y = 0; y < height; ++y) {
        if (y + 1 < height) {
            sumRow(y + 1);
        }
        const std::uint32_t total = TotalWeight(y, height, weights.vertical);
        std::uint32_t* row = pixels.data() + columns * static_cast<std::size_t>(y);
        for (int x = 0; x < width; ++x) {
            const auto read = [&](int neighbour) { return rowAt(neighbour)[static_cast<std::size_t>(x)]; };
            row[x] = WeightedSum(read, y, height, weights.vertical)
                         .DividedBy(total * TotalWeight(x, width, weights.horizontal))
                         .LowBytes();
        }
    }
}

} // namespace orvane::raster
