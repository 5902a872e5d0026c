// SPDX-License-Identifier: MIT
#include "host/memory.h"
#include "host/rect.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>

namespace
{

constexpr long kMin = std::numeric_limits<std::int32_t>::min();
constexpr long kMax = std::numeric_limits<std::int32_t>::max();

std::array<long, 4> Edges(const CRect& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

CRect MakeRect(const std::array<long, 4>& edges)
{
    CRect rect;
    rect.Set(edges[0], edges[1], edges[2], edges[3]);
    return rect;
}

TEST(Rect, MeasuresByItsEdges)
{
    struct Case {
        std::array<long, 4> edges;
        long width;
        long height;
        bool isEmpty;
    };
    const Case cases[] = {
        {{0, 0, 0, 0}, 0, 0, true},       {{10, 20, 81, 116}, 71, 96, false},          {{5, 5, 5, 9}, 0, 4, true},
        {{9, 0, 5, 4}, -4, 4, true},      {{kMin, 0, kMax, 1}, -1, 1, false}, // the width wraps, the pixels are there
        {{kMax, 0, kMin, 1}, 1, 1, true}, {{kMin, kMin, kMin + 3, 0}, 3, kMin, false},
    };
    EXPECT_EQ(Edges(CRect()), Edges(MakeRect({0, 0, 0, 0})));
    for (const Case& c : cases) {
        const CRect rect = MakeRect(c.edges);
        EXPECT_EQ(Edges(rect), c.edges);
        EXPECT_EQ(rect.Width(), c.width);
        EXPECT_EQ(rect.Height(), c.height);
        EXPECT_EQ(rect.IsEmpty(), c.isEmpty);
    }
}

TEST(Rect, ValuesBeyond32BitsWrap)
{
    if (sizeof(long) == 4)
        GTEST_SKIP() << "long has 32 bits";
    const long turn = static_cast<long>(std::int64_t{1} << 32);
    const CRect rect = MakeRect({turn + 1, -turn - 2, static_cast<long>(std::int64_t{kMax} + 1), turn * 5 + 4});
    EXPECT_EQ(Edges(rect), (std::array<long, 4>{1, -2, kMin, 4}));
    CRect direct;
    direct.right = turn + 7;
    EXPECT_EQ(direct.Width(), 7);
    CRect copy;
    copy.Copy(&direct);
    EXPECT_EQ(copy.right, 7);
}

TEST(Rect, UnionHoldsBoth)
{
    struct Case {
        std::array<long, 4> first;
        std::array<long, 4> second;
        std::array<long, 4> united;
    };
    const Case cases[] = {
        {{0, 0, 10, 10}, {5, -5, 20, 8}, {0, -5, 20, 10}},      {{0, 0, 0, 0}, {5, 5, 6, 6}, {5, 5, 6, 6}},
        {{5, 5, 6, 6}, {100, 0, 50, 9}, {5, 5, 6, 6}},          {{3, 3, 3, 3}, {4, 4, 4, 4}, {3, 3, 3, 3}},
        {{kMin, 0, 0, 1}, {0, 0, kMax, 1}, {kMin, 0, kMax, 1}},
    };
    for (const Case& c : cases) {
        CRect first = MakeRect(c.first);
        CRect second = MakeRect(c.second);
        CRect united;
        united.Union(&first, &second);
        EXPECT_EQ(Edges(united), c.united);
        first.Union(&first, &second);
        EXPECT_EQ(Edges(first), c.united);
    }
    CRect rect = MakeRect({1, 2, 3, 4});
    CRect other = MakeRect({9, 9, 10, 10});
    rect.Union(nullptr, nullptr);
    rect.Copy(nullptr);
    EXPECT_EQ(Edges(rect), (std::array<long, 4>{1, 2, 3, 4}));
    rect.Union(nullptr, &other);
    EXPECT_EQ(Edges(rect), Edges(other));
}

TEST(Memory, CopiesBytesAndTakesNoBytesFromNowhere)
{
    char to[4] = "abc";
    EXPECT_EQ(xMemcpy(to, "xyz", 2), to);
    EXPECT_STREQ(to, "xyc");
    EXPECT_EQ(xMemcpy(nullptr, nullptr, 0), nullptr);
}

} // namespace
