// SPDX-License-Identifier: MIT
// Where pixels read the source, and what a bilinear sample there is.
#pragma once

#include "orvane/raster/kernels.h"
#include "orvane/raster/kernels/colours-inl.h"
#include "orvane/raster/kernels/coverage-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane::raster
{
namespace
{

/// Pixels or samples that pass through the buffers together.
constexpr int kChunk = 512;

/// Where the pixels of a chunk read.
struct Chunk {
    HWY_ALIGN std::int32_t place[kChunk];     ///< of the upper left texel, from the source's first
    HWY_ALIGN std::uint32_t fraction[kChunk]; ///< 15 bits along u, 15 along v in the upper half
};

/// Points of the source at pixels x and further right, in the units of the job.
struct Points {
    FloatLanes u;
    FloatLanes v;
};

template <bool kAffine> class PointMap
{
public:
    /// Counts from the end of the row where w is least: there is no cancellation then, and the same at every clip.
    HWY_INLINE PointMap(const QuadJob& job, const CoverageRow& row, int y)
        : m_anchor(job.w.x < 0 ? row.rightmost : row.leftmost), m_u(job.u, m_anchor, y), m_v(job.v, m_anchor, y),
          m_w(job.w, m_anchor, y), m_leastW(job.leastW)
    {
    }
    /// Pixels x and further right, in the map's own columns; the next vector is kStep columns further.
    HWY_INLINE FloatLanes ColumnsFrom(int x) const
    {
        return hn::Add(hn::Set(floats, static_cast<float>(x - m_anchor)), hn::Iota(floats, 0));
    }
    HWY_INLINE Points At(FloatLanes column) const
    {
        if constexpr (kAffine) {
            return {m_u.At(column), m_v.At(column)};
        }
        const auto scale = hn::Div(hn::Set(floats, 1), hn::Max(m_w.At(column), hn::Set(floats, m_leastW)));
        const auto toCentre = hn::Set(floats, 16384);
        return {hn::Sub(hn::Mul(m_u.At(column), scale), toCentre), hn::Sub(hn::Mul(m_v.At(column), scale), toCentre)};
    }

private:
    /// A plane along the row.
    struct Line {
        HWY_INLINE Line(const JobPlane& plane, int x, int y)
            : slope(static_cast<float>(plane.x)),
              start(static_cast<float>(plane.x * (x + 0.5) + plane.y * (y + 0.5) + plane.constant))
        {
        }
        HWY_INLINE FloatLanes At(FloatLanes column) const
        {
            return hn::Add(hn::Mul(column, hn::Set(floats, slope)), hn::Set(floats, start));
        }
        float slope;
        float start;
    };

    int m_anchor;
    Line m_u;
    Line m_v;
    Line m_w;
    float m_leastW;
};

/// Writes down the texels and weights of points, from place i of the chunk on.
class Locator
{
public:
    explicit HWY_INLINE Locator(const QuadJob& job)
        : m_leastU(job.leastU), m_leastV(job.leastV), m_mostU(job.mostU), m_mostV(job.mostV),
          m_stride(static_cast<std::int32_t>(job.sourceStride))
    {
    }
    HWY_INLINE void Note(const Points& points, Chunk& chunk, int i) const
    {
        const auto fraction = hn::Set(integers, 0x7FFF);
        const auto u = Truncated(hn::Min(hn::Max(points.u, hn::Set(floats, m_leastU)), hn::Set(floats, m_mostU)));
        const auto v = Truncated(hn::Min(hn::Max(points.v, hn::Set(floats, m_leastV)), hn::Set(floats, m_mostV)));
        const auto row = hn::Mul(hn::ShiftRight<15>(v), hn::Set(integers, m_stride));
        const auto along = hn::Or(hn::And(u, fraction), hn::ShiftLeft<16>(hn::And(v, fraction)));
        hn::Store(hn::Add(row, hn::ShiftRight<15>(u)), integers, chunk.place + i);
        hn::Store(hn::BitCast(words, along), words, chunk.fraction + i);
    }

private:
    float m_leastU;
    float m_leastV;
    float m_mostU;
    float m_mostV;
    std::int32_t m_stride;
};

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
