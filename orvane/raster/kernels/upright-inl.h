// SPDX-License-Identifier: MIT
// Pictures that are drawn upright and unscaled.
#pragma once

#include "orvane/raster/kernels.h"
#include "orvane/raster/kernels/colours-inl.h"

#include <hwy/cache_control.h>

HWY_BEFORE_NAMESPACE();
namespace orvane::raster
{
namespace
{

/// (a + b + c + d + 2) / 4 of each byte. Averages that round up go too far by one when both of the inner ones did, or
/// one did and the outer one too; the low bits tell.
HWY_INLINE Pixels32 Mean(Pixels32 a, Pixels32 b, Pixels32 c, Pixels32 d)
{
    const auto ab = hn::AverageRound(hn::BitCast(bytes, a), hn::BitCast(bytes, b));
    const auto cd = hn::AverageRound(hn::BitCast(bytes, c), hn::BitCast(bytes, d));
    const auto inexact = hn::BitCast(bytes, hn::Or(hn::Xor(a, b), hn::Xor(c, d)));
    const auto excess = hn::And(hn::And(inexact, hn::Xor(ab, cd)), hn::Set(bytes, 1));
    return hn::BitCast(words, hn::Sub(hn::AverageRound(ab, cd), excess));
}

/// A pixel at half pixels is the mean of the four texels that it shows a quarter of; what lies outside the picture is
/// clear, and so its borders come out covered by half.
struct HalfPixelRow {
    const std::uint32_t* upper; ///< null outside the picture
    const std::uint32_t* lower;
    int width;
    bool halfColumns;

    /// Pixels from a column on: each over the texels of its column and of the one to the left.
    HWY_INLINE void Draw(std::uint32_t* target, int column, int count) const
    {
        const int left = column - (halfColumns ? 1 : 0);
        DrawMean(target, Texels(upper, left), Texels(upper, column), Texels(lower, left), Texels(lower, column), count);
    }

private:
    /// Clear outside the picture.
    HWY_INLINE Pixels32 Texels(const std::uint32_t* row, int from) const
    {
        if (row == nullptr) {
            return hn::Zero(words);
        }
        if (from >= 0 && from + kStep <= width) {
            return hn::LoadU(words, row + from);
        }
        return LoadBetween(row, from, width);
    }
    static HWY_INLINE void DrawMean(std::uint32_t* target, Pixels32 a, Pixels32 b, Pixels32 c, Pixels32 d, int count)
    {
        const auto colour = hn::Set(words, 0x00FFFFFFU);
        const auto common = hn::And(hn::And(a, b), hn::And(c, d));
        if (hn::AllTrue(words, hn::Eq(hn::Or(common, colour), hn::Set(words, 0xFFFFFFFFU)))) {
            Put(target, Mean(a, b, c, d), count);
            return;
        }
        const auto mean = [&](const auto& channels) {
            const auto quarter = [&](Pixels32 texels) { return hn::ShiftRight<2>(channels(texels)); };
            return hn::Add(hn::Add(quarter(a), quarter(b)), hn::Add(quarter(c), quarter(d)));
        };
        BlendInto(target,
                  Colours{mean([](Pixels32 p) { return EvenOf(p); }), mean([](Pixels32 p) { return OddOf(p); })},
                  count);
    }
};

/// The target begins at the column left.
void DrawHalfPixelRow(const HalfPixelRow& row, std::uint32_t* target, int left, int right)
{
    for (int column = left; column < right; column += kStep) {
        row.Draw(target + (column - left), column, right - column);
    }
}

/// Asks for a row that is read soon. Pictures that no near cache holds come from far with each card of a deck; those
/// that one holds are not worth the asking.
HWY_INLINE void FetchAhead(const UprightJob& job, int y)
{
    constexpr int kRowsAhead = 3;
    constexpr int kLeastTexels = 16384;
    constexpr int kTexelsPerLine = 16;
    if (std::int64_t{job.width} * job.height < kLeastTexels || y < 0 || y + kRowsAhead >= job.height) {
        return;
    }
    const std::uint32_t* const row = job.source + (y + kRowsAhead) * job.sourceStride;
    for (int column = job.left; column < job.right; column += kTexelsPerLine) {
        hwy::Prefetch(row + column);
    }
}

void DrawUprightOf(const UprightJob& job)
{
    for (int y = job.top; y < job.bottom; ++y) {
        std::uint32_t* const target = job.target + (job.originY + y) * job.targetStride + job.originX + job.left;
        const std::uint32_t* const texels = job.source + y * job.sourceStride;
        if (!job.halfColumns && !job.halfRows) {
            BlendRowInto(target, texels + job.left, job.right - job.left);
            continue;
        }
        FetchAhead(job, y);
        const std::uint32_t* const upper = !job.halfRows ? texels : y > 0 ? texels - job.sourceStride : nullptr;
        const std::uint32_t* const lower = y < job.height ? texels : nullptr;
        DrawHalfPixelRow({upper, lower, job.width, job.halfColumns}, target, job.left, job.right);
    }
}

} // namespace
} // namespace orvane::raster
HWY_AFTER_NAMESPACE();
