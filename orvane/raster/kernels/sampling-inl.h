// SPDX-License-Identifier: MIT
// Where pixels read the source, and what a bilinear sample there is.
#pragma once

#include "orvane/raster/kernels.h"
#include "orvane/raster/kernels/colours-inl.h"
#include "orvane/raster/kernels/coverage-inl.h"

#include <cstring>

HWY_BEFORE_NAMESPACE();
namespace orvane::raster
{
namespace
{

/// Pixels or samples that pass through the buffers together.
constexpr int kChunk = 256;

/// What is known of the pixels of a chunk on their way: first where they read, then what they read.
struct Chunk {
    HWY_ALIGN std::int32_t place[kChunk];     ///< of the upper left texel, from the source's first
    HWY_ALIGN std::uint32_t fraction[kChunk]; ///< 15 bits along u, 15 along v in the upper half
    HWY_ALIGN std::uint64_t upper[kChunk];    ///< two neighbouring texels
    HWY_ALIGN std::uint64_t lower[kChunk];
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
    HWY_INLINE Points At(int x) const
    {
        const auto column = hn::Add(hn::Set(floats, static_cast<float>(x - m_anchor)), hn::Iota(floats, 0));
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
        const auto u =
            hn::ConvertTo(integers, hn::Min(hn::Max(points.u, hn::Set(floats, m_leastU)), hn::Set(floats, m_mostU)));
        const auto v =
            hn::ConvertTo(integers, hn::Min(hn::Max(points.v, hn::Set(floats, m_leastV)), hn::Set(floats, m_mostV)));
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

/// Plain loads, which are faster than gather instructions; four pixels in a go, so that loads don't wait for stores
/// that might change the places. The count is a multiple of four.
HWY_INLINE void Fetch(const QuadJob& job, int count, Chunk& chunk)
{
    static_assert(hn::MaxLanes(words) % 4 == 0);
    const std::uint32_t* const source = job.source;
    const std::ptrdiff_t stride = job.sourceStride;
    const auto two = [](const std::uint32_t* texels) {
        std::uint64_t pair;
        std::memcpy(&pair, texels, sizeof(pair));
        return pair;
    };
    for (int i = 0; i < count; i += 4) {
        const std::uint32_t* const a = source + chunk.place[i];
        const std::uint32_t* const b = source + chunk.place[i + 1];
        const std::uint32_t* const c = source + chunk.place[i + 2];
        const std::uint32_t* const d = source + chunk.place[i + 3];
        const std::uint64_t aUpper = two(a), bUpper = two(b), cUpper = two(c), dUpper = two(d);
        const std::uint64_t aLower = two(a + stride), bLower = two(b + stride);
        const std::uint64_t cLower = two(c + stride), dLower = two(d + stride);
        const auto put = [i](std::uint64_t* row, std::uint64_t p, std::uint64_t q, std::uint64_t r, std::uint64_t s) {
            row[i] = p;
            row[i + 1] = q;
            row[i + 2] = r;
            row[i + 3] = s;
        };
        put(chunk.upper, aUpper, bUpper, cUpper, dUpper);
        put(chunk.lower, aLower, bLower, cLower, dLower);
    }
}

/// Two channels of each pixel: a + (b - a) * weight.
HWY_INLINE Channels Mix(Channels a, Channels b, Channels weight)
{
    return hn::Add(a, hn::MulFixedPoint15(hn::Sub(b, a), weight));
}

HWY_INLINE Colours Bilinear(const Chunk& chunk, int i)
{
    const auto texels = [i](const std::uint64_t* row, Pixels32& left, Pixels32& right) {
        const auto first = hn::BitCast(words, hn::Load(pairs, row + i));
        const auto second = hn::BitCast(words, hn::Load(pairs, row + i + kStep / 2));
        left = hn::ConcatEven(words, second, first);
        right = hn::ConcatOdd(words, second, first);
    };
    Pixels32 upperLeft;
    Pixels32 upperRight;
    Pixels32 lowerLeft;
    Pixels32 lowerRight;
    texels(chunk.upper, upperLeft, upperRight);
    texels(chunk.lower, lowerLeft, lowerRight);
    const auto fraction = hn::Load(words, chunk.fraction + i);
    const auto alongU = LowTwice(fraction);
    const auto alongV = HighTwice(fraction);
    return {Mix(Mix(EvenOf(upperLeft), EvenOf(upperRight), alongU), Mix(EvenOf(lowerLeft), EvenOf(lowerRight), alongU),
                alongV),
            Mix(Mix(OddOf(upperLeft), OddOf(upperRight), alongU), Mix(OddOf(lowerLeft), OddOf(lowerRight), alongU),
                alongV)};
}

} // namespace
} // namespace orvane::raster
HWY_AFTER_NAMESPACE();
