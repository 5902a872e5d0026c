// SPDX-License-Identifier: MIT
#pragma once

#include "host/rectangle.h"

#include <vector>

namespace orvane
{

/// Turns rectangles that may overlap into disjoint ones that cover the same pixels. Keeps its working memory.
class DisjointSweep
{
public:
    using Rectangles = std::vector<render::Rectangle<int>>;

    /// Replaces the result by the union of the rectangles, cut as coarsely as bands of y allow, sorted by y, then x.
    /// The rectangles are not empty and their edges lie in the range of int; they are left in another order.
    /// Costs n log n, and in each band as much as there are rectangles that reach into it.
    void Run(Rectangles& rectangles, Rectangles& result);

private:
    /// A rectangle that reaches into the present band.
    struct Active {
        int left;
        int right;
        int bottom;
    };
    /// A rectangle of the result that may still grow downwards.
    struct Open {
        int left;
        int right;
        int top;
    };

    void FindBands(const Rectangles& rectangles);
    void Enter(Rectangles::const_iterator first, Rectangles::const_iterator last, int y);
    void EmitBand(int y, Rectangles& result);

    std::vector<int> m_bands;                   ///< every y where a rectangle starts or ends, ascending
    std::vector<Active> m_active, m_nextActive; ///< sorted by left
    std::vector<Open> m_open, m_nextOpen;       ///< sorted by left, apart from each other
};

} // namespace orvane
