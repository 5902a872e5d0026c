// SPDX-License-Identifier: MIT
// Where pixels read the source.
#pragma once

#include "orvane/raster/kernels.h"
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

/// The same for a whole row of an affine map, in fixed point: 20 bits behind the texel's number.
class FixedLocator
{
public:
    explicit HWY_INLINE FixedLocator(const QuadJob& job)
        : m_u(job.u, job.leastU, job.mostU), m_v(job.v, job.leastV, job.mostV),
          m_stride(static_cast<std::int32_t>(job.sourceStride))
    {
    }
    /// Pixels from begin on. The anchor is a pixel of the row that does not depend on the clip.
    HWY_INLINE void NoteRow(int anchor, int y, int begin, int count, Chunk& chunk) const
    {
        const std::int64_t u = m_u.At(anchor, y) + m_u.step * (begin - anchor);
        const std::int64_t v = m_v.At(anchor, y) + m_v.step * (begin - anchor);
        const auto uStep = hn::Set(integers, static_cast<std::int32_t>(m_u.step * kStep));
        const auto vStep = hn::Set(integers, static_cast<std::int32_t>(m_v.step * kStep));
        auto us = m_u.Lanes(u);
        auto vs = m_v.Lanes(v);
        // Places change evenly: where those at both ends need not be held in the source, none between does.
        const int last = (count - 1) / kStep * kStep;
        const bool inside = last > kStep && m_u.Holds(u, kStep, last - 1) && m_v.Holds(v, kStep, last - 1);
        for (int i = 0; i < count; i += kStep) {
            if (inside && i > 0 && i < last) {
                Note(us, vs, chunk, i);
            } else {
                Note(m_u.Held(us), m_v.Held(vs), chunk, i);
            }
            us = hn::Add(us, uStep);
            vs = hn::Add(vs, vStep);
        }
    }

private:
    static constexpr double kPerUnit = 32;

    struct Axis {
        HWY_INLINE Axis(const JobPlane& ofPlane, float leastPlace, float mostPlace)
            : plane(ofPlane), step(static_cast<std::int64_t>(plane.x * kPerUnit)),
              least(static_cast<std::int32_t>(leastPlace * kPerUnit)),
              most(static_cast<std::int32_t>(mostPlace * kPerUnit))
        {
        }
        HWY_INLINE std::int64_t At(int x, int y) const
        {
            return static_cast<std::int64_t>((plane.x * (x + 0.5) + plane.y * (y + 0.5) + plane.constant) * kPerUnit);
        }
        /// True for the pixels from one to another, counted from the first.
        HWY_INLINE bool Holds(std::int64_t first, int from, int to) const
        {
            const std::int64_t a = first + step * from;
            const std::int64_t b = first + step * to;
            return a >= least && a <= most && b >= least && b <= most;
        }
        HWY_INLINE hn::Vec<Signed> Lanes(std::int64_t first) const
        {
            return hn::Add(hn::Set(integers, static_cast<std::int32_t>(first)),
                           hn::Mul(hn::Iota(integers, 0), hn::Set(integers, static_cast<std::int32_t>(step))));
        }
        HWY_INLINE hn::Vec<Signed> Held(hn::Vec<Signed> places) const
        {
            return hn::Min(hn::Max(places, hn::Set(integers, least)), hn::Set(integers, most));
        }
        JobPlane plane;
        std::int64_t step;
        std::int32_t least;
        std::int32_t most;
    };

    HWY_INLINE void Note(hn::Vec<Signed> u, hn::Vec<Signed> v, Chunk& chunk, int i) const
    {
        const auto row = hn::Mul(hn::ShiftRight<20>(v), hn::Set(integers, m_stride));
        const auto alongU = hn::And(hn::ShiftRight<5>(u), hn::Set(integers, 0x7FFF));
        const auto alongV = hn::And(hn::ShiftLeft<11>(v), hn::Set(integers, 0x7FFF0000));
        hn::Store(hn::Add(row, hn::ShiftRight<20>(u)), integers, chunk.place + i);
        hn::Store(hn::BitCast(words, hn::Or(alongU, alongV)), words, chunk.fraction + i);
    }

    Axis m_u;
    Axis m_v;
    std::int32_t m_stride;
};

} // namespace
} // namespace orvane::raster
HWY_AFTER_NAMESPACE();
