// SPDX-License-Identifier: MIT
// Bilinear samples.
#pragma once

#include "orvane/raster/kernels/colours-inl.h"
#include "orvane/raster/kernels/places-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane::raster
{
namespace
{

/// The four texels around each pixel of a vector.
struct Texels {
    Pixels32 upperLeft;
    Pixels32 upperRight;
    Pixels32 lowerLeft;
    Pixels32 lowerRight;
};

/// Reads texels with plain loads, which are faster than gather instructions, straight into the blocks of vectors.
class Fetcher
{
public:
    explicit HWY_INLINE Fetcher(const QuadJob& job) : m_upper(job.source), m_lower(job.source + job.sourceStride) {}

    HWY_INLINE Texels At(const std::int32_t* place) const
    {
        const auto read = Read(words, place);
        const auto lefts = [](Pixels32 first, Pixels32 second) {
            return hn::BitCast(words,
                               hn::InterleaveLower(pairs, hn::BitCast(pairs, first), hn::BitCast(pairs, second)));
        };
        const auto rights = [](Pixels32 first, Pixels32 second) {
            return hn::BitCast(words,
                               hn::InterleaveUpper(pairs, hn::BitCast(pairs, first), hn::BitCast(pairs, second)));
        };
        return {lefts(read.upper[0], read.upper[1]), rights(read.upper[0], read.upper[1]),
                lefts(read.lower[0], read.lower[1]), rights(read.lower[0], read.lower[1])};
    }

private:
    /// Of the four pixels of each block the first two, and the others: the left texels of both, then the right ones.
    template <typename D> struct Pairs32 {
        hn::Vec<D> upper[2];
        hn::Vec<D> lower[2];
    };

    template <typename D> HWY_INLINE Pairs32<D> Read(D d, const std::int32_t* place) const
    {
        const hn::Half<D> half;
        if constexpr (hn::MaxLanes(d) == 4) {
            const auto two = [&](const std::uint32_t* a, const std::uint32_t* b) {
                return hn::InterleaveLower(d, hn::ZeroExtendVector(d, hn::LoadU(half, a)),
                                           hn::ZeroExtendVector(d, hn::LoadU(half, b)));
            };
            // Each place is read once, or registers run short.
            const std::ptrdiff_t at[] = {place[0], place[1], place[2], place[3]};
            const auto upper = two(m_upper + at[0], m_upper + at[1]);
            const auto lower = two(m_lower + at[0], m_lower + at[1]);
            return {{upper, two(m_upper + at[2], m_upper + at[3])}, {lower, two(m_lower + at[2], m_lower + at[3])}};
        } else {
            const auto low = Read(half, place);
            const auto high = Read(half, place + hn::MaxLanes(half));
            return {{hn::Combine(d, high.upper[0], low.upper[0]), hn::Combine(d, high.upper[1], low.upper[1])},
                    {hn::Combine(d, high.lower[0], low.lower[0]), hn::Combine(d, high.lower[1], low.lower[1])}};
        }
    }

    const std::uint32_t* m_upper;
    const std::uint32_t* m_lower;
};

/// Two channels of each pixel: a + (b - a) * weight.
HWY_INLINE Channels Mix(Channels a, Channels b, Channels weight)
{
    return hn::Add(a, hn::MulFixedPoint15(hn::Sub(b, a), weight));
}

HWY_INLINE Colours Bilinear(const Fetcher& fetcher, const Chunk& chunk, int i)
{
    const auto texels = fetcher.At(chunk.place + i);
    const auto fraction = hn::Load(words, chunk.fraction + i);
    const auto alongU = LowTwice(fraction);
    const auto alongV = HighTwice(fraction);
    return {Mix(Mix(EvenOf(texels.upperLeft), EvenOf(texels.upperRight), alongU),
                Mix(EvenOf(texels.lowerLeft), EvenOf(texels.lowerRight), alongU), alongV),
            Mix(Mix(OddOf(texels.upperLeft), OddOf(texels.upperRight), alongU),
                Mix(OddOf(texels.lowerLeft), OddOf(texels.lowerRight), alongU), alongV)};
}

} // namespace
} // namespace orvane::raster
HWY_AFTER_NAMESPACE();
