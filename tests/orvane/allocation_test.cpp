// SPDX-License-Identifier: MIT
// Every allocation of an operation fails once: it throws, or does without, and has changed nothing. A program of its
// own, since it replaces operator new.
#include "host/bitmap.h"
#include "host/bitmap_manager.h"
#include "host/llist.h"
#include "host/render.h"
#include "host/window.h"
#include "orvane/orvane.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <new>

namespace
{

long allocationsLeft = -1; ///< less than 0: no limit
std::size_t largestAllocation = 0;

} // namespace

// Never inlined: a compiler that sees one of a pair alone takes it for a mismatch.
[[gnu::noinline]] void* operator new(std::size_t size)
{
    if (allocationsLeft == 0)
        throw std::bad_alloc();
    if (allocationsLeft > 0)
        --allocationsLeft;
    largestAllocation = std::max(largestAllocation, size);
    if (void* const memory = std::malloc(size == 0 ? 1 : size))
        return memory;
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

/// Runs the operation with ever more allocations until it no longer throws; returns how often it threw.
template <typename Operation, typename Check> int FailEachAllocation(Operation operation, Check isUnchanged)
{
    for (int failures = 0;; ++failures) {
        allocationsLeft = failures;
        try {
            operation();
            allocationsLeft = -1;
            return failures;
        } catch (const std::bad_alloc&) {
            allocationsLeft = -1;
            EXPECT_TRUE(isUnchanged()) << "after allocation " << failures;
        }
    }
}

TEST(Allocation, ListsChangeNothingWhenItFails)
{
    std::array<char, 40> data{};
    CLList list;
    int failures = 0;
    for (char& item : data) {
        const long before = list.GetNumNodes();
        failures += FailEachAllocation([&] { list.IfNotInsertLast(&item); },
                                       [&] { return list.GetNumNodes() == before && list.DeleteItem(&item) == 0; });
    }
    EXPECT_GT(failures, 40);

    CLList target;
    target.InsertLast(&target, 0);
    EXPECT_GT(FailEachAllocation([&] { target = list; }, [&] { return target.GetNumNodes() == 1; }), 40);
    for (char& item : data)
        EXPECT_EQ(target.DeleteItem(&item), 1);
}

TEST(Allocation, BitmapsChangeNothingWhenItFails)
{
    Bitmap* bitmap = nullptr;
    EXPECT_GT(
        FailEachAllocation([&] { bitmap = BitmapManager::Instance().Create(4, 4); }, [&] { return bitmap == nullptr; }),
        0);
    EXPECT_GT(FailEachAllocation([&] { bitmap->Realloc(40, 40); }, [&] { return bitmap->Width() == 4; }), 0);
    EXPECT_EQ(FailEachAllocation([&] { bitmap->Realloc(39, 40); }, [] { return false; }), 0);
    BitmapManager::Instance().Destroy(bitmap);
}

TEST(Allocation, DamageIsNeverLost)
{
    orvane::Settings settings;
    settings.width = 400;
    settings.height = 300;
    orvane::Host host(settings);
    host.Compose();
    allocationsLeft = 0;
    for (int i = 0; i < 300; ++i)
        Render::Instance().InvalidateArea({i, i, 1, 1});
    allocationsLeft = -1;
    EXPECT_TRUE(host.HasDamage());
    FailEachAllocation([&] { host.Compose(); }, [&] { return host.HasDamage(); });
    host.ComposeAll();
    FailEachAllocation([&] { host.SetActiveSize(500, 500); }, [&] { return host.Screen().Width() == 400; });
    EXPECT_TRUE(host.HasDamage());
}

TEST(Allocation, DamageThatNobodyComposesTakesLittleMemory)
{
    orvane::Host host{orvane::Settings()};
    host.Compose();
    largestAllocation = 0;
    for (int i = 0; i < 200000; ++i)
        Render::Instance().InvalidateArea({i % 100, i % 70, 9, 9});
    EXPECT_LT(largestAllocation, 200000U);
}

TEST(Allocation, ComposingTheSameAgainNeedsNone)
{
    orvane::Host host{orvane::Settings()};
    const auto compose = [&] {
        for (int i = 0; i < 50; ++i)
            Render::Instance().InvalidateArea({i * 7, i * 3, 20, 20});
        host.Compose();
    };
    host.Compose();
    compose();
    EXPECT_EQ(FailEachAllocation(compose, [] { return false; }), 0);
}

} // namespace
