// SPDX-License-Identifier: MIT
// How much of each pixel a quadrilateral covers, row by row.
#pragma once

#include "orvane/raster/kernels.h"
#include "orvane/raster/kernels/vectors-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane::raster
{
namespace
{

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
    int fullBegin = 0; ///< pixels that are covered wholly; no left edge passes the first or one further right
    int fullEnd = 0;
    int rightBegin = 0; ///< the first pixel that a right edge passes
    int leftmost = 0;   ///< pixels at both ends, not cut to the target
    int rightmost = 0;

    /// Weights from 0 to -2^15 in both halves of each lane: negative, since 16 bits can't hold the whole otherwise.
    /// What an edge does not pass counts exactly, however wide the quadrilateral is, so that a pixel comes out the same
    /// in a vector with an edge in it as in one without.
    HWY_INLINE Channels At(int x) const
    {
        const auto columns = hn::Add(hn::Set(floats, static_cast<float>(x)), hn::Iota(floats, 0));
        auto sum = hn::Zero(floats);
        for (int i = 0; i < count; ++i) {
            auto area = hn::Set(floats, 1);
            if (x < fullBegin) {
                const auto passed = hn::Lt(columns, hn::Set(floats, static_cast<float>(fullBegin)));
                area = hn::IfThenElse(passed, bands[i].left.AreaOf(columns), area);
            }
            if (x + kStep > rightBegin) {
                area = hn::Sub(area, bands[i].right.AreaOf(columns));
            }
            sum = hn::Add(sum, hn::Mul(area, hn::Set(floats, bands[i].height)));
        }
        const auto scaled = hn::Add(hn::Mul(sum, hn::Set(floats, 32768)), hn::Set(floats, 0.5F));
        const auto held = hn::Min(hn::Max(scaled, hn::Zero(floats)), hn::Set(floats, 32768));
        return LowTwice(hn::BitCast(words, hn::Sub(hn::Zero(integers), Truncated(held))));
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
        row.rightBegin = Floor(right.least);
        row.fullEnd = covered == 1 ? row.rightBegin : row.fullBegin;
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

} // namespace
} // namespace orvane::raster
HWY_AFTER_NAMESPACE();
