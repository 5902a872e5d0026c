// SPDX-License-Identifier: MIT
// Drawing allocates only for what it has not had before, and loses nothing without memory. A program of its own, since
// it replaces operator new.
#include "tests/orvane/raster/quad_shot.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace
{

long allocations = 0;
bool memoryIsGone = false;

} // namespace

// Not inlined: the compiler would take malloc and free for a pair that does not match.
[[gnu::noinline]] void* operator new(std::size_t size)
{
    ++allocations;
    if (!memoryIsGone) {
        if (void* const memory = std::malloc(size == 0 ? 1 : size))
            return memory;
    }
    throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}

namespace
{

const std::array<HalfPixels, 3> kQuads{Upright(5, 7, 60, 80), HalfPixels{40, 11, 180, 31, 160, 190, 20, 140},
                                       Upright(11, 13, 20, 30)};

TEST(RasterAllocation, SteadyDrawingNeedsNone)
{
    const OwnedBitmap texture = MakeFilled(100, 120, kWhite);
    const OwnedBitmap target = MakeFilled(100, 100, kGreen);
    const auto frame = [&] {
        for (const HalfPixels& corners : kQuads)
            for (const long state : {0L, 1L})
                DrawQuad(target.get(), texture.get(), corners, WholeOf(*texture), state);
    };
    frame();
    const long before = allocations;
    frame();
    EXPECT_EQ(allocations, before);
}

TEST(RasterAllocation, WithoutMemoryASmallPictureIsDrawnUnfiltered)
{
    const OwnedBitmap target = MakeFilled(100, 100, kGreen);
    const OwnedBitmap texture = MakeFilled(100, 120, kWhite);
    DrawQuad(target.get(), texture.get(), kQuads[1], WholeOf(*texture));
    for (const long state : {0L, 1L}) {
        Fill(*target, kGreen);
        memoryIsGone = true;
        const CRect clip = DrawQuad(target.get(), texture.get(), Upright(10, 14, 20, 30), WholeOf(*texture), state);
        memoryIsGone = false;
        EXPECT_EQ(clip.Width(), 10);
        EXPECT_EQ(PixelAt(*target, 8, 10), kWhite);
    }
}

TEST(RasterAllocation, WithoutMemoryForItsRowsADrawChangesNothing)
{
    const OwnedBitmap texture = MakeFilled(10, 10, kWhite);
    const OwnedBitmap target = MakeFilled(5000, 2, kGreen);
    memoryIsGone = true;
    EXPECT_THROW(DrawQuad(target.get(), texture.get(), Upright(0, 0, 10000, 4), WholeOf(*texture)), std::bad_alloc);
    memoryIsGone = false;
    EXPECT_EQ(PixelsOf(*target), std::vector<std::uint32_t>(10000, kGreen));
    EXPECT_EQ(glb->polygonRender->GetLastDrawnRect(), nullptr);
    DrawQuad(target.get(), texture.get(), Upright(0, 0, 10000, 4), WholeOf(*texture));
    EXPECT_EQ(PixelsOf(*target), std::vector<std::uint32_t>(10000, kWhite));
}

} // namespace
