// SPDX-License-Identifier: MIT
// The inner loops of the fast renderer, for the instruction set that the including file is compiled for. No include
// guard: each of these files includes it once. Nothing of the standard library is called, since the linker might take
// such a function from here for the whole program, also on a machine that can't run it.
//
// All results are the same for every instruction set: multiplications and additions are never fused, and the colour
// arithmetic is of whole numbers.
#include "orvane/raster/instruction_sets.h"

#include <hwy/highway.h>

#include <cstring>

HWY_BEFORE_NAMESPACE();
namespace orvane::raster
{
namespace
{

namespace hn = hwy::HWY_NAMESPACE;

using Words = hn::ScalableTag<std::uint32_t>;
using Signed = hn::Repartition<std::int32_t, Words>;
using Floats = hn::Repartition<float, Words>;
using Pairs = hn::Repartition<std::uint64_t, Words>;
using Halves = hn::Repartition<std::uint16_t, Words>;
using SignedHalves = hn::Repartition<std::int16_t, Words>;
using Bytes = hn::Repartition<std::uint8_t, Words>;

using Pixels32 = hn::Vec<Words>;
using FloatLanes = hn::Vec<Floats>;
using Channels = hn::Vec<SignedHalves>;

constexpr Words words;
constexpr Signed integers;
constexpr Floats floats;
constexpr Pairs pairs;
constexpr Halves halves;
constexpr SignedHalves signedHalves;
constexpr Bytes bytes;

/// Pixels in a vector.
const int kStep = static_cast<int>(hn::Lanes(words));

int Least(int a, int b)
{
    return a < b ? a : b;
}
int Most(int a, int b)
{
    return a > b ? a : b;
}
double Least(double a, double b)
{
    return a < b ? a : b;
}
double Most(double a, double b)
{
    return a > b ? a : b;
}

// ---- rows that end within a vector

/// True when masked lanes of words are never touched: AVX2 has that for words, though not for bytes.
#define ORVANE_MASKS_GUARD_MEMORY (!HWY_MEM_OPS_MIGHT_FAULT || (HWY_TARGET == HWY_AVX2 && !HWY_IS_ASAN))

Pixels32 LoadFirst(const std::uint32_t* from, int count)
{
#if !ORVANE_MASKS_GUARD_MEMORY
    HWY_ALIGN std::uint32_t copy[hn::MaxLanes(words)] = {};
    for (int i = 0; i < count; ++i) {
        copy[i] = from[i];
    }
    return hn::Load(words, copy);
#else
    return hn::MaskedLoad(hn::FirstN(words, static_cast<std::size_t>(count)), words, from);
#endif
}

/// The words from a place on, which may be -1; 0 where they don't lie between 0 and the end.
Pixels32 LoadBetween(const std::uint32_t* row, int from, int end)
{
#if !ORVANE_MASKS_GUARD_MEMORY
    HWY_ALIGN std::uint32_t copy[hn::MaxLanes(words)] = {};
    for (int i = Most(0, -from); i < Least(kStep, end - from); ++i) {
        copy[i] = row[from + i];
    }
    return hn::Load(words, copy);
#else
    const auto place = hn::Add(hn::Iota(integers, 0), hn::Set(integers, from));
    const auto inside = hn::And(hn::Gt(place, hn::Set(integers, -1)), hn::Lt(place, hn::Set(integers, end)));
    return hn::MaskedLoad(hn::RebindMask(words, inside), words, row + from);
#endif
}

void StoreFirst(Pixels32 pixels, std::uint32_t* to, int count)
{
#if !ORVANE_MASKS_GUARD_MEMORY
    HWY_ALIGN std::uint32_t copy[hn::MaxLanes(words)];
    hn::Store(pixels, words, copy);
    for (int i = 0; i < count; ++i) {
        to[i] = copy[i];
    }
#else
    hn::BlendedStore(pixels, hn::FirstN(words, static_cast<std::size_t>(count)), words, to);
#endif
}

// ---- colours: a pixel as two pairs of 16-bit lanes, blue and red, green and alpha

/// Source-over with exact rounding, see SourceOver().
HWY_INLINE Pixels32 Over(Pixels32 destination, Pixels32 source)
{
    const auto low = hn::Set(halves, 0xFF);
    const auto half = hn::Set(halves, 128);
    const auto toByte = hn::Set(halves, 257);
    const auto alpha = hn::ShiftRight<24>(source);
    const auto alphaTwice = hn::BitCast(halves, hn::Or(alpha, hn::ShiftLeft<16>(alpha)));
    const auto keep = hn::Sub(low, alphaTwice);
    const auto under = hn::BitCast(halves, destination);
    const auto even = hn::MulHigh(hn::Add(hn::Mul(hn::And(under, low), keep), half), toByte);
    const auto odd = hn::MulHigh(hn::Add(hn::Mul(hn::ShiftRight<8>(under), keep), half), toByte);
    const auto kept = hn::BitCast(bytes, hn::Or(even, hn::ShiftLeft<8>(odd)));
    return hn::BitCast(words, hn::SaturatedAdd(kept, hn::BitCast(bytes, source)));
}

/// Blue and red of each pixel, in 8.7 bits.
HWY_INLINE Channels EvenOf(Pixels32 pixels)
{
    return hn::BitCast(signedHalves, hn::And(hn::ShiftLeft<7>(hn::BitCast(halves, pixels)), hn::Set(halves, 0x7F80)));
}

/// Green and alpha of each pixel, in 8.7 bits.
HWY_INLINE Channels OddOf(Pixels32 pixels)
{
    return hn::BitCast(signedHalves, hn::And(hn::ShiftRight<1>(hn::BitCast(halves, pixels)), hn::Set(halves, 0x7F80)));
}

/// The low half of each lane in both halves.
HWY_INLINE Channels LowTwice(Pixels32 lanes)
{
    const auto low = hn::And(lanes, hn::Set(words, 0xFFFF));
    return hn::BitCast(signedHalves, hn::Or(low, hn::ShiftLeft<16>(lanes)));
}

/// The high half of each lane in both halves.
HWY_INLINE Channels HighTwice(Pixels32 lanes)
{
    const auto high = hn::ShiftRight<16>(lanes);
    return hn::BitCast(signedHalves, hn::Or(high, hn::ShiftLeft<16>(high)));
}

/// Colours between two bytes, in 8.7 bits.
struct Colours {
    Channels even;
    Channels odd;

    /// By weights from 0 to -2^15: negative, since 16 bits can't hold the whole otherwise.
    HWY_INLINE Colours Weighted(Channels negativeWeight) const
    {
        return {hn::Neg(hn::MulFixedPoint15(even, negativeWeight)), hn::Neg(hn::MulFixedPoint15(odd, negativeWeight))};
    }
    HWY_INLINE Colours HeldAt255() const
    {
        const auto most = hn::Set(halves, 0x7F80);
        return {hn::BitCast(signedHalves, hn::Min(hn::BitCast(halves, even), most)),
                hn::BitCast(signedHalves, hn::Min(hn::BitCast(halves, odd), most))};
    }
    /// To nearest; at most 255.
    HWY_INLINE Pixels32 Rounded() const
    {
        const auto half = hn::Set(halves, 64);
        const auto low = hn::ShiftRight<7>(hn::Add(hn::BitCast(halves, even), half));
        const auto high = hn::ShiftLeft<1>(hn::Add(hn::BitCast(halves, odd), half));
        return hn::BitCast(words, hn::Or(low, hn::And(high, hn::Set(halves, 0xFF00))));
    }
    /// Source-over, rounded once.
    HWY_INLINE Pixels32 Over(Pixels32 destination) const
    {
        const auto keep = hn::Sub(hn::Set(signedHalves, 0x7F80), HighTwice(hn::BitCast(words, odd)));
        const auto share = hn::Add(keep, hn::ShiftRight<8>(keep)); // of 2^15 instead of 255 * 2^7
        return Colours{hn::Add(even, hn::MulFixedPoint15(EvenOf(destination), share)),
                       hn::Add(odd, hn::MulFixedPoint15(OddOf(destination), share))}
            .HeldAt255()
            .Rounded();
    }
    HWY_INLINE bool AreOpaque() const
    {
        const auto alpha = hn::And(hn::BitCast(words, odd), hn::Set(words, 0xFFFF0000U));
        return hn::AllTrue(words, hn::Eq(alpha, hn::Set(words, 0x7F800000U)));
    }
    HWY_INLINE bool AreClear() const
    {
        return hn::AllTrue(words, hn::Eq(hn::BitCast(words, hn::Or(even, odd)), hn::Zero(words)));
    }
};

HWY_INLINE void Put(std::uint32_t* destination, Pixels32 pixels, int count)
{
    if (count >= kStep) {
        hn::StoreU(pixels, words, destination);
    } else {
        StoreFirst(pixels, destination, count);
    }
}

HWY_INLINE Pixels32 Get(const std::uint32_t* source, int count)
{
    return count >= kStep ? hn::LoadU(words, source) : LoadFirst(source, count);
}

/// Blends a vector of pixels, of which the first count lie in the row.
HWY_INLINE void BlendInto(std::uint32_t* destination, Pixels32 source, int count)
{
    const auto colour = hn::Set(words, 0x00FFFFFFU);
    if (hn::AllTrue(words, hn::Eq(hn::Or(source, colour), hn::Set(words, 0xFFFFFFFFU)))) {
        Put(destination, source, count);
    } else if (!hn::AllTrue(words, hn::Eq(source, hn::Zero(words)))) {
        Put(destination, Over(Get(destination, count), source), count);
    }
}

/// The same for colours between bytes.
HWY_INLINE void BlendInto(std::uint32_t* destination, const Colours& source, int count)
{
    if (source.AreOpaque()) {
        Put(destination, source.Rounded(), count);
    } else if (!source.AreClear()) {
        Put(destination, source.Over(Get(destination, count)), count);
    }
}

void BlendRowOf(std::uint32_t* destination, const std::uint32_t* source, int count)
{
    int i = 0;
    for (; i + kStep <= count; i += kStep) {
        BlendInto(destination + i, hn::LoadU(words, source + i), kStep);
    }
    if (i < count) {
        BlendInto(destination + i, LoadFirst(source + i, count - i), count - i);
    }
}

// ---- upright pictures

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
        const auto quarter = [](Channels sum) { return hn::ShiftRight<2>(hn::BitCast(halves, sum)); };
        const auto mean = [&](const auto& channels) {
            return hn::BitCast(signedHalves, hn::Add(hn::Add(quarter(channels(a)), quarter(channels(b))),
                                                     hn::Add(quarter(channels(c)), quarter(channels(d)))));
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

void DrawUprightOf(const UprightJob& job)
{
    for (int y = job.top; y < job.bottom; ++y) {
        std::uint32_t* const target = job.target + (job.originY + y) * job.targetStride + job.originX + job.left;
        const std::uint32_t* const texels = job.source + y * job.sourceStride;
        if (!job.halfColumns && !job.halfRows) {
            BlendRowOf(target, texels + job.left, job.right - job.left);
            continue;
        }
        const std::uint32_t* const upper = !job.halfRows ? texels : y > 0 ? texels - job.sourceStride : nullptr;
        const std::uint32_t* const lower = y < job.height ? texels : nullptr;
        DrawHalfPixelRow({upper, lower, job.width, job.halfColumns}, target, job.left, job.right);
    }
}

// ---- coverage

/// An edge in a band of one row, which it crosses from top to bottom.
struct Crossing {
    float from = 0; ///< leftmost x
    float width = 0;
    float halfInverse = 0; ///< 1 / (2 * width)

    /// How much of the band lies right of the edge and left of x, in pixels.
    HWY_INLINE FloatLanes AreaUpTo(FloatLanes x) const
    {
        const auto way = hn::Sub(x, hn::Set(floats, from));
        const auto all = hn::Set(floats, width);
        const auto within = hn::Min(hn::Max(way, hn::Zero(floats)), all);
        const auto slanted = hn::Mul(hn::Mul(within, within), hn::Set(floats, halfInverse));
        return hn::Add(slanted, hn::Max(hn::Sub(way, all), hn::Zero(floats)));
    }
    HWY_INLINE FloatLanes AreaOf(FloatLanes x) const
    {
        return hn::Sub(AreaUpTo(hn::Add(x, hn::Set(floats, 1))), AreaUpTo(x));
    }
};

/// A row of the quadrilateral, cut where a corner lies in it: corners lie at halves of pixels.
struct CoverageRow {
    struct Band {
        Crossing left;
        Crossing right;
        float height;
    };
    Band bands[2];
    int count = 0;
    int begin = 0; ///< pixels that are covered at all
    int end = 0;
    int fullBegin = 0; ///< pixels that are covered wholly
    int fullEnd = 0;
    int leftmost = 0; ///< pixels at both ends, not cut to the target
    int rightmost = 0;

    /// Weights from 0 to -2^15 in both halves of each lane: negative, since 16 bits can't hold the whole otherwise. A
    /// pixel that is covered wholly has exactly the whole, however wide the quadrilateral is, so that it comes out the
    /// same in a vector with an edge in it as in one without.
    HWY_INLINE Channels At(int x) const
    {
        const auto columns = hn::Add(hn::Set(floats, static_cast<float>(x)), hn::Iota(floats, 0));
        auto sum = hn::Zero(floats);
        for (int i = 0; i < count; ++i) {
            const auto area = hn::Sub(bands[i].left.AreaOf(columns), bands[i].right.AreaOf(columns));
            sum = hn::Add(sum, hn::Mul(area, hn::Set(floats, bands[i].height)));
        }
        const auto scaled = hn::Add(hn::Mul(sum, hn::Set(floats, 32768)), hn::Set(floats, 0.5F));
        const auto held = hn::Min(hn::Max(scaled, hn::Zero(floats)), hn::Set(floats, 32768));
        const auto whole = hn::And(hn::Ge(columns, hn::Set(floats, static_cast<float>(fullBegin))),
                                   hn::Lt(columns, hn::Set(floats, static_cast<float>(fullEnd))));
        const auto share = hn::IfThenElse(whole, hn::Set(floats, 32768), held);
        const auto weight = hn::Sub(hn::Zero(integers), hn::ConvertTo(integers, share));
        return LowTwice(hn::BitCast(words, weight));
    }
};

struct CrossingEnds {
    double least;
    double most;
};

CrossingEnds Cross(const JobEdge& edge, double top, double bottom, Crossing& crossing)
{
    const auto at = [&edge](double y) {
        return Most(edge.least, Least(edge.most, edge.x + (y - edge.top) * edge.slope));
    };
    const double a = at(top);
    const double b = at(bottom);
    const double least = Least(a, b);
    const double most = Most(a, b);
    // Narrower than this, an edge is as good as upright.
    const double width = Most(most - least, 1.0 / 65536);
    crossing.from = static_cast<float>(least);
    crossing.width = static_cast<float>(width);
    crossing.halfInverse = static_cast<float>(0.5 / width);
    return {least, most};
}

int Floor(double value)
{
    const int whole = static_cast<int>(value);
    return whole - (value < whole ? 1 : 0);
}

int Ceiling(double value)
{
    const int whole = static_cast<int>(value);
    return whole + (value > whole ? 1 : 0);
}

/// Walks over the rows of a job from top to bottom.
class CoverageWalk
{
public:
    explicit CoverageWalk(const QuadJob& job) : m_job(job), m_left(job.leftEdges), m_right(job.rightEdges) {}

    /// False when there is nothing in the row. Rows come in growing order.
    bool Row(int y, CoverageRow& row)
    {
        row.count = 0;
        double covered = 0;
        CrossingEnds left{1e9, -1e9};
        CrossingEnds right{1e9, -1e9};
        for (double top = y; top < y + 1;) {
            Skip(m_left, m_job.leftEdges, top);
            Skip(m_right, m_job.rightEdges, top);
            if (m_left->bottom <= top || m_right->bottom <= top) {
                break;
            }
            const double begin = Most(top, m_left->top);
            const double bottom = Least(y + 1.0, Least(m_left->bottom, m_right->bottom));
            if (begin >= bottom) {
                break;
            }
            CoverageRow::Band& band = row.bands[row.count++];
            const CrossingEnds l = Cross(*m_left, begin, bottom, band.left);
            const CrossingEnds r = Cross(*m_right, begin, bottom, band.right);
            left = {Least(left.least, l.least), Most(left.most, l.most)};
            right = {Least(right.least, r.least), Most(right.most, r.most)};
            band.height = static_cast<float>(bottom - begin);
            covered += bottom - begin;
            top = bottom;
        }
        if (row.count == 0) {
            return false;
        }
        row.leftmost = Floor(left.least);
        row.rightmost = Ceiling(right.most) - 1;
        row.begin = Most(row.leftmost, m_job.left);
        row.end = Least(row.rightmost + 1, m_job.right);
        row.fullBegin = Ceiling(left.most);
        row.fullEnd = covered == 1 ? Floor(right.least) : row.fullBegin;
        return row.begin < row.end;
    }

private:
    static void Skip(const JobEdge*& edge, const JobEdge* first, double top)
    {
        while (edge->bottom <= top && edge != first + QuadJob::kMaxEdges - 1) {
            ++edge;
        }
    }

    const QuadJob& m_job;
    const JobEdge* m_left;
    const JobEdge* m_right;
};

// ---- sampling

/// A quadrilateral is drawn in strips of so many columns by so many rows: what one row of a strip reads of the source,
/// even turned by a right angle, stays in the nearest cache for the next row.
constexpr int kStripColumns = 256;
constexpr int kStripRows = 32;

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

/// A row of the target where a row of the quadrilateral goes.
class TargetRow
{
public:
    HWY_INLINE TargetRow(const QuadJob& job, const CoverageRow& coverage, int y)
        : m_first(job.target + (job.originY + y) * job.targetStride + job.originX), m_coverage(coverage),
          m_fullBegin(coverage.fullBegin), m_fullEnd(coverage.fullEnd)
    {
    }
    /// Blends the colours of pixels from x on, of which the first count lie in the row.
    HWY_INLINE void Blend(int x, const Colours& colours, int count) const
    {
        if (x >= m_fullBegin && x + kStep <= m_fullEnd) {
            BlendInto(m_first + x, colours, count);
        } else {
            BlendInto(m_first + x, colours.Weighted(m_coverage.At(x)), count);
        }
    }

private:
    std::uint32_t* m_first; ///< it may lie outside the target
    const CoverageRow& m_coverage;
    int m_fullBegin;
    int m_fullEnd;
};

int RoundedUp(int count)
{
    return (count + kStep - 1) / kStep * kStep;
}

/// A part of a row of the quadrilateral.
struct RowPart {
    const CoverageRow& row;
    int y;
    int begin;
    int end;
};

/// One sample a pixel.
template <bool kAffine> void DrawSampled(const QuadJob& job, const RowPart& part, Chunk& chunk)
{
    static_assert(kStripColumns <= kChunk);
    const Locator locator(job);
    const PointMap<kAffine> map(job, part.row, part.y);
    const TargetRow target(job, part.row, part.y);
    const int count = part.end - part.begin;
    for (int i = 0; i < count; i += kStep) {
        locator.Note(map.At(part.begin + i), chunk, i);
    }
    Fetch(job, RoundedUp(count), chunk);
    for (int i = 0; i < count; i += kStep) {
        target.Blend(part.begin + i, Bilinear(chunk, i), count - i);
    }
}

/// Sums of colours: in 16 bits for a few, in 32 bits for all.
class ColourSum
{
public:
    /// So many of 8.4 bits fit into 16.
    static constexpr int kMaxFew = 16;

    HWY_INLINE void Add(const Colours& colours)
    {
        const auto half = hn::Set(halves, 4);
        m_even = hn::Add(m_even, hn::ShiftRight<3>(hn::Add(hn::BitCast(halves, colours.even), half)));
        m_odd = hn::Add(m_odd, hn::ShiftRight<3>(hn::Add(hn::BitCast(halves, colours.odd), half)));
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
            return hn::BitCast(words, hn::ConvertTo(integers, held));
        };
        return {hn::BitCast(signedHalves, hn::Or(mean(m_sums[0]), hn::ShiftLeft<16>(mean(m_sums[2])))),
                hn::BitCast(signedHalves, hn::Or(mean(m_sums[1]), hn::ShiftLeft<16>(mean(m_sums[3]))))};
    }

private:
    hn::Vec<Halves> m_even = hn::Zero(halves);
    hn::Vec<Halves> m_odd = hn::Zero(halves);
    Pixels32 m_sums[4] = {hn::Zero(words), hn::Zero(words), hn::Zero(words), hn::Zero(words)};
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
    return hn::ConvertTo(integers, hn::Add(hn::Mul(share, hn::Set(floats, 240)), hn::Set(floats, 16.5F)));
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
    FootprintSampler(const QuadJob& job, Chunk& chunk) : m_job(job), m_locator(job), m_chunk(chunk) {}

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
            Fetch(m_job, few * kStep, m_chunk);
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
                    sum.Add(Bilinear(m_chunk, i * kStep));
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
                    sum.Add(Bilinear(m_chunk, i * kStep).Weighted(LowTwice(hn::BitCast(words, weight))));
                }
                sum.Flush();
            });
        return sum.Over(hn::Mul(hn::ConvertTo(floats, total), hn::Set(floats, 1.0F / 256)));
    }

    const QuadJob& m_job;
    Locator m_locator;
    Chunk& m_chunk;
};

/// Samples all over each pixel's footprint.
template <bool kAffine> void DrawFiltered(const QuadJob& job, const RowPart& part, Chunk& chunk)
{
    static_assert(kStripColumns % QuadJob::kTile == 0);
    const FootprintSampler sampler(job, chunk);
    const PointMap<kAffine> map(job, part.row, part.y);
    const TargetRow target(job, part.row, part.y);
    for (int x = part.begin; x < part.end;) {
        const int tile = x / QuadJob::kTile;
        const int end = Least(part.end, (tile + 1) * QuadJob::kTile);
        const JobPattern& pattern = job.patterns[kAffine ? 0 : tile];
        for (; x < end; x += kStep) {
            target.Blend(x, sampler.Mean(pattern, map.At(x)), end - x);
        }
        x = end;
    }
}

/// Rows that are drawn together.
struct Band {
    CoverageRow rows[kStripRows]; ///< of which those with nothing in them have begin = end
    int left;
    int right;
};

template <bool kAffine> void DrawBand(const QuadJob& job, const Band& band, int top, int bottom, Chunk& chunk)
{
    for (int strip = band.left / kStripColumns * kStripColumns; strip < band.right; strip += kStripColumns) {
        for (int y = top; y < bottom; ++y) {
            const CoverageRow& row = band.rows[y - top];
            const RowPart part{row, y, Most(row.begin, strip), Least(row.end, strip + kStripColumns)};
            if (part.begin >= part.end) {
                continue;
            }
            if (job.patterns == nullptr) {
                DrawSampled<kAffine>(job, part, chunk);
            } else {
                DrawFiltered<kAffine>(job, part, chunk);
            }
        }
    }
}

template <bool kAffine> DrawnArea DrawRows(const QuadJob& job)
{
    DrawnArea drawn{job.right, 0, job.left, 0};
    CoverageWalk walk(job);
    Chunk chunk;
    Band band;
    for (int top = job.top; top < job.bottom; top += kStripRows) {
        const int bottom = Least(top + kStripRows, job.bottom);
        band.left = job.right;
        band.right = job.left;
        for (int y = top; y < bottom; ++y) {
            CoverageRow& row = band.rows[y - top];
            if (!walk.Row(y, row)) {
                row.begin = row.end = 0;
                continue;
            }
            if (drawn.bottom == 0) {
                drawn.top = y;
            }
            drawn.bottom = y + 1;
            band.left = Least(band.left, row.begin);
            band.right = Most(band.right, row.end);
        }
        DrawBand<kAffine>(job, band, top, bottom, chunk);
        drawn.left = Least(drawn.left, band.left);
        drawn.right = Most(drawn.right, band.right);
    }
    return drawn;
}

DrawnArea DrawQuadOf(const QuadJob& job)
{
    return job.affine ? DrawRows<true>(job) : DrawRows<false>(job);
}

} // namespace

const Kernels ORVANE_KERNELS{ORVANE_KERNELS_NAME, BlendRowOf, DrawUprightOf, DrawQuadOf};

} // namespace orvane::raster
HWY_AFTER_NAMESPACE();
