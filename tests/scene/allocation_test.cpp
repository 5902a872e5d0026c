// SPDX-License-Identifier: MIT
// A steady frame allocates the sort's one array. A program of its own, since it replaces
// operator new.
#include "cardtable/cardtable.h"
#include "host/canvas.h"
#include "host/window.h"
#include "tests/support/card_table_test.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <new>
#include <vector>

namespace
{

long allocations = 0;

} // namespace

// Never inlined: a compiler that sees one of a pair alone takes it for a mismatch.
[[gnu::noinline]] void* operator new(std::size_t size)
{
    ++allocations;
    if (void* const memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

// The sanitizers' own array form would not come to the one above.
[[gnu::noinline]] void* operator new[](std::size_t size)
{
    return operator new(size);
}

[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete[](void* memory) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete[](void* memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}

namespace
{

class AllocationTest : public CardTableTest
{
protected:
    AllocationTest()
    {
        host.host.SetObserver(nullptr); // the test host's notes need memory
        Load();
        canvas.Create(0, 0, 800, 600);
        canvas.SetBitmap(target);
        dialog.AddCntrlBefore(&canvas, nullptr);
        dialog.Show();
        table.SetTargetBitmap(target);
        table.m_skipStampDrawBefore = 1;
    }

    /// Lays cards at rest, each shown by a control.
    void Rest(int count)
    {
        CPocket& pocket = *table.GetPocket(0);
        pocket.SetUseControls(&dialog, &canvas);
        for (int i = 0; i < count; ++i) {
            lists.push_back(Moves(i, 2));
            pocket.AddMove(lists.back().get());
            pocket.AddCard(i % 52);
            pocket.DrawCard(i + 1, 0, nullptr);
        }
    }

    void Fly(int count, long frames)
    {
        for (int i = 0; i < count; ++i) {
            cards.emplace_back(table.GetCardObj(i / 13 % 4, i % 13, 0, 0, 1, 1, 0));
            lists.push_back(Moves(i, frames));
            table.StartAnim(lists.back().get(), cards.back().get());
        }
    }

    static std::unique_ptr<C3DMoveList> Moves(int number, long frames)
    {
        auto moves = std::make_unique<C3DMoveList>();
        auto* const move = new C3DMove;
        move->Init(-10.0 + number % 9, -6.0, 60.0 + number % 5, 10.0 - number % 7, 6.0, 80.0, frames);
        move->SetRotX(0.0, 70.0);
        moves->AddMove(move);
        return moves;
    }

    const OwnBitmap target{800, 600};
    Canvas canvas;
    CDialog dialog;
    std::vector<std::unique_ptr<C3DMoveList>> lists;
    std::vector<std::unique_ptr<CObject>> cards;
};

TEST_F(AllocationTest, ASteadyFrameAllocatesTheSortsArray)
{
    constexpr int kFlying = 30;
    constexpr int kWarmUp = 10;
    constexpr int kFrames = 100;
    Rest(200);
    Fly(kFlying, kFrames);
    long most = 0; ///< rectangles that a frame had room for so far
    for (int frame = 0; frame < kFrames; ++frame) {
        host.now += 16667;
        table.m_sortByDepth = frame % 2;
        allocations = 0;
        table.Handler();
        const long inFrame = allocations;
        host.host.Compose();
        const long inComposing = allocations - inFrame;
        const auto recorded = std::distance(table.LastDrawnRectsBegin(), table.LastDrawnRectsEnd());
        ASSERT_GE(recorded, kFlying / 2);
        const long more = std::max(0L, recorded + 1 - most);
        most += more;
        if (frame >= kWarmUp) { // until then the composing's lists grow to their sizes
            ASSERT_GE(inFrame, table.m_sortByDepth) << "frame " << frame;
            ASSERT_LE(inFrame, table.m_sortByDepth + more) << "frame " << frame;
            ASSERT_EQ(inComposing, 0) << "frame " << frame;
        }
    }
}

TEST_F(AllocationTest, AFrameAtRestAllocatesNothing)
{
    Rest(200);
    for (int frame = 0; frame < 3; ++frame) {
        allocations = 0;
        table.Handler();
        host.host.Compose();
        if (frame > 0) {
            EXPECT_EQ(allocations, 0);
        }
    }
}

} // namespace
