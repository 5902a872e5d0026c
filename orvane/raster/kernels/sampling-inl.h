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
constexpr int kChunk = 256;

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
template <typename D> struct Texels {
    hn::Vec<D> upperLeft;
    hn::Vec<D> upperRight;
    hn::Vec<D> lowerLeft;
    hn::Vec<D> lowerRight;
};

/// Reads texels with plain loads, which are faster than gather instructions, straight into the halves of vectors.
class Fetcher
{
public:
    explicit HWY_INLINE Fetcher(const QuadJob& job) : m_upper(job.source), m_lower(job.source + job.sourceStride) {}

    template <typename D> HWY_INLINE Texels<D> Around(D d, const std::int32_t* place) const
    {
        const hn::Half<D> half;
        if constexpr (hn::MaxLanes(d) == 4) {
            const std::ptrdiff_t at[] = {place[0], place[1], place[2], place[3]};
            const auto two = [&](const std::uint32_t* row, int i) {
                return hn::Combine(d, hn::LoadU(half, row + at[i + 1]), hn::LoadU(half, row + at[i]));
            };
            const auto upper = two(m_upper, 0);
            const auto lower = two(m_lower, 0);
            const auto upperBehind = two(m_upper, 2);
            const auto lowerBehind = two(m_lower, 2);
            return {hn::ConcatEven(d, upperBehind, upper), hn::ConcatOdd(d, upperBehind, upper),
                    hn::ConcatEven(d, lowerBehind, lower), hn::ConcatOdd(d, lowerBehind, lower)};
        } else {
            const auto first = Around(half, place);
            const auto second = Around(half, place + hn::MaxLanes(half));
            return {
                hn::Combine(d, second.upperLeft, first.upperLeft), hn::Combine(d, second.upperRight, first.upperRight),
                hn::Combine(d, second.lowerLeft, first.lowerLeft), hn::Combine(d, second.lowerRight, first.lowerRight)};
        }
    }

private:
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
    const auto texels = fetcher.Around(words, chunk.place + i);
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
