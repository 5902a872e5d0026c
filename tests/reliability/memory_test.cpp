// SPDX-License-Identifier: MIT
// Memory that fails at every point of a deal, and memory that stays flat over many deals.
#include "host/bitmap_manager.h"
#include "tests/reliability/failing_memory.h"
#include "tests/reliability/scripted_deal.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <vector>

namespace
{

/// How many deals the soak plays.
long SoakDeals()
{
    const char* const wanted = std::getenv("CARDTABLE_SOAK_DEALS");
    return wanted != nullptr ? std::atol(wanted) : 300;
}

void Play(const ScriptedDeal::Steps& steps)
{
    for (const ScriptedDeal::Step& step : steps)
        step();
}

/// Runs the steps; when memory runs out in one, does it again.
int PlayAgainAfterFailure(const ScriptedDeal::Steps& steps)
{
    int failed = 0;
    for (const ScriptedDeal::Step& step : steps) {
        try {
            step();
        } catch (const std::bad_alloc&) {
            ++failed;
            step();
        }
    }
    return failed;
}

class Memory : public testing::Test
{
protected:
    Memory()
    {
        // Records of dead bitmaps are kept for a while, and used again from then on.
        std::vector<Bitmap*> bitmaps(17000);
        for (Bitmap*& bitmap : bitmaps)
            bitmap = BitmapManager::Instance().Create(0, 0);
        for (Bitmap*& bitmap : bitmaps)
            BitmapManager::Instance().Destroy(bitmap);
        // What is made once in a process is made in the first deals.
        for (int i = 0; i < 2; ++i)
            WholeDeal();
    }

    void WholeDeal()
    {
        ScriptedDeal game(pictures);
        const long before = failing_memory::Allocations();
        Play(game.start);
        Play(game.deal);
        allocations = failing_memory::Allocations() - before;
        atRest = game.AtRest();
    }

    const DealPictures pictures;
    long allocations = 0; ///< of a whole deal
    std::uint64_t atRest = 0;
};

// Once, at every allocation: the exception reaches the caller, who tries again and gets the same game.
TEST_F(Memory, FailsOnceAndTheGameGoesOn)
{
    ASSERT_GT(allocations, 300);
    const long live = failing_memory::LiveBlocks();
    int reached = 0;
    for (long n = 1; n <= allocations; ++n) {
        {
            ScriptedDeal game(pictures);
            failing_memory::FailAt(n, false);
            reached += PlayAgainAfterFailure(game.start);
            reached += PlayAgainAfterFailure(game.deal);
            ASSERT_EQ(failing_memory::Recover(), 1) << "allocation " << n;
            ASSERT_EQ(game.AtRest(), atRest) << "allocation " << n;
        }
        ASSERT_EQ(failing_memory::LiveBlocks(), live) << "allocation " << n;
    }
    EXPECT_GT(reached, allocations / 2) << "of " << allocations;
    RecordProperty("allocation_points", std::to_string(allocations));
}

// From every allocation on: everything can be destroyed without any memory, and nothing leaks.
TEST_F(Memory, StaysAwayAndTheGameCanEnd)
{
    const long live = failing_memory::LiveBlocks();
    for (long n = 1; n <= allocations; ++n) {
        {
            ScriptedDeal game(pictures);
            failing_memory::FailAt(n, true);
            try {
                Play(game.start);
                Play(game.deal);
            } catch (const std::bad_alloc&) { // the end of the game follows
            }
        }
        ASSERT_GE(failing_memory::Recover(), 1) << "allocation " << n;
        ASSERT_EQ(failing_memory::LiveBlocks(), live) << "allocation " << n;
    }
    const std::uint64_t before = atRest;
    WholeDeal();
    EXPECT_EQ(atRest, before) << "what the process keeps is whole";
}

// On one table, deal after deal: no block more, no card elsewhere, no pixel else.
TEST_F(Memory, IsFlatOverManyDeals)
{
    ScriptedDeal game(pictures);
    Play(game.start);
    Play(game.deal);
    const long live = failing_memory::LiveBlocks();
    const long deals = SoakDeals();
    ASSERT_GT(deals, 0);
    for (long i = 0; i < deals; ++i) {
        Play(game.deal);
        ASSERT_EQ(game.AtRest(), atRest) << "deal " << i;
        ASSERT_EQ(failing_memory::LiveBlocks(), live) << "deal " << i;
    }
    std::printf("%ld deals, %ld frames\n", deals, game.NumFrames());
}

} // namespace
