// SPDX-License-Identifier: MIT
// The mean of samples all over the footprint of a pixel.
#pragma once

#include "orvane/raster/kernels/sampling-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane::raster
{
namespace
{

/// Sums of colours: in 16 bits for a few, in 32 bits for all.
class ColourSum
{
public:
    /// So many of 8.4 bits fit into 16.
    static constexpr int kMaxFew = 16;

    /// Written out, since compilers give an implicit constructor no instruction set but that of the whole file.
    HWY_INLINE ColourSum()
        : m_even(hn::Zero(halves)),
          m_odd(hn::Zero(halves)), m_sums{hn::Zero(words), hn::Zero(words), hn::Zero(words), hn::Zero(words)}
    {
    }
    HWY_INLINE void Add(const Colours& colours)
    {
        const auto half = hn::Set(halves, 4);
        m_even = hn::Add(m_even, hn::ShiftRight<3>(hn::Sub(half, hn::BitCast(halves, colours.even))));
        m_odd = hn::Add(m_odd, hn::ShiftRight<3>(hn::Sub(half, hn::BitCast(halves, colours.odd))));
    }
    /// After kMaxFew additions at most.
    HWY_INLINE void Flush()
    {
        const auto low = hn::Set(words, 0xFFFF);
        const auto even = hn::BitCast(words, m_even);
        const auto odd = hn::BitCast(words, m_odd);
        m_sums[0] = hn::Add(m_sums[0], hn::And(even, low));
        m_sums[1] = hn::Add(m_sums[1], hn::And(odd, low));
        m_sums[2] = hn::Add(m_sums[2], hn::ShiftRight<16>(even));
        m_sums[3] = hn::Add(m_sums[3], hn::ShiftRight<16>(odd));
        m_even = hn::Zero(halves);
        m_odd = hn::Zero(halves);
    }
    /// The sum over the number of colours.
    HWY_INLINE Colours Over(FloatLanes number) const
    {
        const auto scale = hn::Div(hn::Set(floats, 8), number);
        const auto mean = [&scale](Pixels32 sum) {
            const auto value = hn::Mul(hn::ConvertTo(floats, hn::BitCast(integers, sum)), scale);
            const auto held = hn::Min(hn::Add(value, hn::Set(floats, 0.5F)), hn::Set(floats, 0x7F80));
            return hn::BitCast(words, Truncated(held));
        };
        return {hn::Neg(hn::BitCast(signedHalves, hn::Or(mean(m_sums[0]), hn::ShiftLeft<16>(mean(m_sums[2]))))),
                hn::Neg(hn::BitCast(signedHalves, hn::Or(mean(m_sums[1]), hn::ShiftLeft<16>(mean(m_sums[3])))))};
    }

private:
    hn::Vec<Halves> m_even;
    hn::Vec<Halves> m_odd;
    Pixels32 m_sums[4];
};

/// How much a sample at each point counts, in 256ths: by how far the square of a texel around it lies inside the
/// borders.
HWY_INLINE hn::Vec<Signed> ShareInside(const QuadJob& job, const Points& points)
{
    const auto along = [](FloatLanes at, float least, float most) {
        const auto half = hn::Set(floats, 16384);
        const auto length = hn::Sub(hn::Min(hn::Add(at, half), hn::Set(floats, most)),
                                    hn::Max(hn::Sub(at, half), hn::Set(floats, least)));
        return hn::Mul(hn::Max(length, hn::Zero(floats)), hn::Set(floats, 1.0F / 32768));
    };
    const auto share =
        hn::Mul(along(points.u, job.borderLeastU, job.borderMostU), along(points.v, job.borderLeastV, job.borderMostV));
    // Never nothing, so that the mean of samples that all lie outside, or nearly, is as exact as any other.
    return Truncated(hn::Add(hn::Mul(share, hn::Set(floats, 240)), hn::Set(floats, 16.5F)));
}

/// True when all samples around the points count wholly.
HWY_INLINE bool LieInside(const QuadJob& job, const JobPattern& pattern, const Points& points)
{
    const auto within = [](FloatLanes at, float reach, float least, float most) {
        const float margin = reach + 16384 + 8; // and a little for rounding
        return hn::And(hn::Ge(at, hn::Set(floats, least + margin)), hn::Le(at, hn::Set(floats, most - margin)));
    };
    return hn::AllTrue(floats, hn::And(within(points.u, pattern.reachU, job.borderLeastU, job.borderMostU),
                                       within(points.v, pattern.reachV, job.borderLeastV, job.borderMostV)));
}

/// The mean of the samples around each point.
class FootprintSampler
{
public:
    FootprintSampler(const QuadJob& job, Chunk& chunk) : m_job(job), m_locator(job), m_fetcher(job), m_chunk(chunk) {}

    HWY_INLINE Colours Mean(const JobPattern& pattern, const Points& points) const
    {
        if (LieInside(m_job, pattern, points)) {
            return MeanOfAll(pattern, points);
        }
        return MeanOfShares(pattern, points);
    }

private:
    /// Calls take(first, count) with the samples' points noted and fetched, a few at a time; note(i, point) for each.
    template <typename Note, typename Take>
    HWY_INLINE void ForFew(const JobPattern& pattern, const Points& points, const Note& note, const Take& take) const
    {
        const int count = pattern.columns * pattern.rows;
        int column = 0;
        int row = 0;
        for (int done = 0; done < count; done += ColourSum::kMaxFew) {
            const int few = Least(ColourSum::kMaxFew, count - done);
            for (int i = 0; i < few; ++i) {
                const float across = static_cast<float>(column);
                const float down = static_cast<float>(row);
                const float u = pattern.firstU + pattern.acrossU * across + pattern.downU * down;
                const float v = pattern.firstV + pattern.acrossV * across + pattern.downV * down;
                const Points place{hn::Add(points.u, hn::Set(floats, u)), hn::Add(points.v, hn::Set(floats, v))};
                m_locator.Note(place, m_chunk, i * kStep);
                note(i, place);
                if (++column == pattern.columns) {
                    column = 0;
                    ++row;
                }
            }
            take(few);
        }
    }

    Colours MeanOfAll(const JobPattern& pattern, const Points& points) const
    {
        ColourSum sum;
        ForFew(
            pattern, points, [](int, const Points&) {},
            [&](int few) {
                for (int i = 0; i < few; ++i) {
                    sum.Add(Bilinear(m_fetcher, m_chunk, i * kStep));
                }
                sum.Flush();
            });
        return sum.Over(hn::Set(floats, static_cast<float>(pattern.columns * pattern.rows)));
    }

    Colours MeanOfShares(const JobPattern& pattern, const Points& points) const
    {
        HWY_ALIGN std::int32_t shares[ColourSum::kMaxFew * hn::MaxLanes(words)];
        ColourSum sum;
        auto total = hn::Zero(integers);
        ForFew(
            pattern, points,
            [&](int i, const Points& place) {
                const auto share = ShareInside(m_job, place);
                hn::Store(share, integers, shares + i * kStep);
                total = hn::Add(total, share);
            },
            [&](int few) {
                for (int i = 0; i < few; ++i) {
                    const auto weight = hn::Neg(hn::ShiftLeft<7>(hn::Load(integers, shares + i * kStep)));
                    sum.Add(Bilinear(m_fetcher, m_chunk, i * kStep).Weighted(LowTwice(hn::BitCast(words, weight))));
                }
                sum.Flush();
            });
        return sum.Over(hn::Mul(hn::ConvertTo(floats, total), hn::Set(floats, 1.0F / 256)));
    }

    const QuadJob& m_job;
    Locator m_locator;
    Fetcher m_fetcher;
    Chunk& m_chunk;
};

} // namespace
} // namespace orvane::raster
HWY_AFTER_NAMESPACE();
