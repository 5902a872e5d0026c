// SPDX-License-Identifier: MIT
#include "animation/point_move.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <set>
#include <vector>

namespace
{

constexpr long kMost = std::numeric_limits<std::int32_t>::max();
constexpr long kLeast = std::numeric_limits<std::int32_t>::min();

std::vector<double> Values(CPointMove move, int count)
{
    std::vector<double> values;
    for (move.First(); count > 0; --count, move.Next()) {
        values.push_back(move.GetPoint());
    }
    return values;
}

CPointMove Linear(double start, double end, long frames)
{
    CPointMove move;
    move.Set(start, end, frames);
    return move;
}

CPointMove Curved(double start, double startBend, double end, double endBend, long frames)
{
    CPointMove move;
    move.Set(start, startBend, end, endBend, frames);
    return move;
}

TEST(PointMove, ValuesFrameByFrame)
{
    using V = std::vector<double>;
    EXPECT_EQ(Values(Linear(0, 100, 11), 13), (V{0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 100, 100}));
    const V arch = Values(Curved(0, 0.5, 100, 0.5, 11), 13);
    EXPECT_EQ(V(arch.begin(), arch.begin() + 6), (V{0, 20.25, 39.6484375, 56.40625, 70.5234375, 82}));
    EXPECT_EQ(V(arch.begin() + 9, arch.end()), (V{101.5234375, 100, 100, 100}));
    // Only the sum of the bends counts here, and without them the path is not the linear one.
    EXPECT_EQ(Values(Curved(0, 1.0, 100, 0.0, 11), 13), arch);
    EXPECT_EQ(Values(Curved(0, 0, 128, 0, 4), 5), (V{0, 42, 85, 128, 128}));
    EXPECT_EQ(Values(Linear(0, 128, 4), 2)[1], 128 * 1.0 / 3);
    // The last frame comes out of the formula too; only past it the end value stands as it was given.
    EXPECT_EQ(Values(Linear(0.1, 0.5, 4), 5)[3], (0.5 - 0.1) * 3 / 3 + 0.1);
    EXPECT_NE(Values(Linear(0.1, 0.5, 4), 5)[3], 0.5);
    EXPECT_EQ(Values(Linear(0.1, 0.5, 4), 5)[4], 0.5);
    EXPECT_EQ(Values(CPointMove(), 3), (V{-1, -1, -1}));
    // More frames than steps of the grid repeat values.
    const V slow = Values(Curved(0, 0, 128, 0, 257), 3);
    EXPECT_EQ(slow, (V{0, 0, 1}));
}

TEST(PointMove, GridHas127StepsWhereTheQuotientFallsShort)
{
    const std::set<long> shorter{49, 98, 103, 107, 161, 187, 196, 197, 206, 214};
    for (long last = 2; last <= 220; ++last) {
        // With this end value the result is 128 or 127 times the step reached, so it tells the number of steps.
        CPointMove move = Curved(0, 0, 127.0 * 128.0, 0, last + 1);
        const auto half = static_cast<std::size_t>((last + 1) / 2);
        const double value = Values(move, static_cast<int>(half) + 1)[half];
        const double step =
            static_cast<double>(static_cast<int>(128.0 / static_cast<double>(last) * static_cast<double>(half)));
        EXPECT_EQ(value, step * (shorter.count(last) != 0 ? 128 : 127)) << last;
        move.Last();
        EXPECT_NEAR(move.GetPoint(), 127.0 * 128.0, 1e-9) << last;
    }
    EXPECT_EQ(Values(Curved(0, 0, 127, 0, 50), 25)[24], 62);
}

TEST(PointMove, CursorAndFrameCounts)
{
    const struct {
        long frames;
        const char* steps; ///< N next, P previous, L last, F first
        long exists, isLast;
        double value;
    } cases[] = {
        {1, "", 1, 1, 7},
        {1, "N", 0, 1, 7},
        {1, "NP", 1, 1, 7},
        {1, "P", 1, 1, 7},
        {3, "", 1, 0, 5},
        {3, "N", 1, 0, 6},
        {3, "NN", 1, 1, 7},
        {3, "NNN", 0, 1, 7},
        {3, "LPP", 1, 0, 5},
        {3, "NNF", 1, 0, 5},
        {0, "", 0, 1, 7},
        {0, "L", 1, 1, 7},
        {0, "LP", 1, 0, 9},
        {0, "LNN", 0, 1, 7},
        {-5, "", 0, 1, 7},
        {-5, "L", 1, 1, 7},
        {kMost, "", 1, 0, 5},
        {kMost, "L", 1, 1, 7},
        {kMost, "LN", 0, 1, 7},
        {kLeast, "", 1, 0, 5},
        {kLeast, "L", 1, 1, 7},
        {kLeast, "LNN", 1, 1, 7},
        {kLeast + 1, "LPPP", 0, 1, 7},
    };
    for (const auto& c : cases) {
        CPointMove linear = Linear(5, 7, c.frames);
        CPointMove curved = Curved(5, 0, 7, 0, c.frames);
        for (CPointMove* move : {&linear, &curved}) {
            for (const char* step = c.steps; *step != '\0'; ++step) {
                switch (*step) {
                case 'N':
                    move->Next();
                    break;
                case 'P':
                    move->Prev();
                    break;
                case 'L':
                    move->Last();
                    break;
                default:
                    move->First();
                    break;
                }
            }
            const auto which = ::testing::Message() << c.frames << ' ' << c.steps << (move == &curved ? " curved" : "");
            EXPECT_EQ(move->Exists(), c.exists) << which;
            EXPECT_EQ(move->IsLast(), c.isLast) << which;
            EXPECT_EQ(move->GetPoint(), c.value) << which;
        }
    }
    EXPECT_EQ(CPointMove().Exists(), 1);
    EXPECT_EQ(CPointMove().IsLast(), 1);
}

TEST(PointMove, LinearSetKeepsTheCursorCurvedSetRewinds)
{
    CPointMove move = Linear(0, 10, 11);
    for (int i = 0; i < 5; ++i) {
        move.Next();
    }
    move.Set(100, 110, 11);
    EXPECT_EQ(move.GetPoint(), 105);
    move.Set(0, 1, 128, 1, 129);
    EXPECT_EQ(move.GetPoint(), 0);
    move.Next();
    move.Set(0, 10, 11);
    EXPECT_EQ(move.GetPoint(), 1);
}

TEST(PointMove, AnyNumbersAreDefined)
{
    const double odd[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), 1e308};
    for (const double number : odd) {
        for (const long frames : {kLeast, -1L, 0L, 2L, kMost}) {
            CPointMove move = Curved(number, -number, -number, number, frames);
            move.Last();
            move.GetPoint();
            move.Prev();
            move.GetPoint();
        }
    }
    CPointMove past = Linear(3, 4, kMost);
    past.Last();
    for (int i = 0; i < 5; ++i) {
        past.Next(); // stays at the largest number instead of beginning again
    }
    EXPECT_EQ(past.Exists(), 0);
    EXPECT_EQ(past.GetPoint(), 4);
}

TEST(PointMove, AdvancesByAnyCount)
{
    CPointMove move = Linear(0, 10, 11);
    move.Advance(3);
    move.Advance(std::numeric_limits<long>::min());
    EXPECT_EQ(move.GetPoint(), 3);
    move.Advance(std::numeric_limits<long>::max());
    EXPECT_EQ(move.Exists(), 0);
    EXPECT_EQ(move.GetPoint(), 10);
}

} // namespace
