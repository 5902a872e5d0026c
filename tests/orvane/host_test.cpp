// SPDX-License-Identifier: MIT
#include "orvane/orvane.h"

#include "host/bitmap.h"
#include "host/globals.h"
#include "host/render.h"
#include "host/tick.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace
{

/// Taken before any test starts a host.
const SGlobals atLoad = *glb;

orvane::Settings SizedSettings(int width, int height)
{
    orvane::Settings settings;
    settings.width = width;
    settings.height = height;
    return settings;
}

TEST(Host, GlobalsAreThereFromLoad)
{
    EXPECT_NE(atLoad.polygonRender, nullptr);
    EXPECT_EQ(atLoad.framePeriod, 16667U);
}

TEST(Host, RunsOneAtATime)
{
    EXPECT_EQ(Render::Instance().GetActiveWidth(), 0);
    {
        auto settings = SizedSettings(80, 60);
        settings.framePeriod = 0;
        const orvane::Host host(settings);
        EXPECT_THROW(orvane::Host{settings}, std::logic_error);
        EXPECT_EQ(Render::Instance().GetActiveWidth(), 80);
        EXPECT_EQ(Render::Instance().GetActiveHeight(), 60);
        EXPECT_EQ(glb->framePeriod, 1U);
    }
    EXPECT_EQ(Render::Instance().GetActiveHeight(), 0);
    EXPECT_EQ(glb->framePeriod, 16667U);
    EXPECT_NO_THROW(orvane::Host{SizedSettings(1, 1)});
}

TEST(Host, RefusesSizesOutOfRangeAndChangesNothing)
{
    for (const auto& [width, height] : {std::pair{-1, 5}, {5, -1}, {Bitmap::kMaxSide + 1, 5}, {5, INT32_MAX}}) {
        EXPECT_THROW(orvane::Host{SizedSettings(width, height)}, std::invalid_argument);
        orvane::Host host(SizedSettings(8, 6));
        host.Compose();
        EXPECT_THROW(host.SetActiveSize(width, height), std::invalid_argument);
        EXPECT_EQ(host.Screen().Width(), 8);
        EXPECT_FALSE(host.HasDamage());
    }
}

TEST(Host, ResizingDamagesTheWholeScreenAndTheSameSizeNothing)
{
    using Areas = std::vector<render::Rectangle<int>>;
    orvane::Host host(SizedSettings(8, 6));
    EXPECT_EQ(host.Compose(), (Areas{{0, 0, 8, 6}}));
    EXPECT_FALSE(host.HasDamage());
    EXPECT_TRUE(host.Compose().empty());
    host.SetActiveSize(8, 6);
    EXPECT_FALSE(host.HasDamage());
    host.SetActiveSize(4, 9);
    EXPECT_EQ(host.Compose(), (Areas{{0, 0, 4, 9}}));
    EXPECT_EQ(host.Screen().Width(), 4);
    EXPECT_EQ(host.Screen().Height(), 9);
    host.SetActiveSize(0, 9);
    EXPECT_EQ(Render::Instance().GetActiveHeight(), 9);
    EXPECT_EQ(host.Screen().Buffer(), nullptr);
    EXPECT_FALSE(host.HasDamage());
    host.ComposeAll();
    EXPECT_TRUE(host.Compose().empty());
}

TEST(Tick, FollowsTheHostsClock)
{
    std::uint64_t now = 1000;
    auto settings = SizedSettings(1, 1);
    settings.clock = [&] { return now; };
    orvane::Host host(settings);
    Tick tick;
    EXPECT_EQ(tick.Elapsed(), 0U);
    now += 40;
    EXPECT_EQ(tick.Elapsed(), 40U);
    now = 999;
    EXPECT_EQ(tick.Elapsed(), 0U);
    now = 1000 + std::uint64_t{0xFFFFFFFF};
    EXPECT_EQ(tick.Elapsed(), 0xFFFFFFFFU);
    now = std::numeric_limits<std::uint64_t>::max();
    EXPECT_EQ(tick.Elapsed(), 0xFFFFFFFFU);
    tick.Update();
    EXPECT_EQ(tick.Elapsed(), 0U);

    host.SetClock([] { return std::uint64_t{77}; });
    tick.Update();
    host.SetClock([] { return std::uint64_t{100}; });
    EXPECT_EQ(tick.Elapsed(), 23U);
}

TEST(Tick, MeasuresRealTimeWithoutAHost)
{
    Tick tick;
    while (tick.Elapsed() < 200) {
    }
    EXPECT_LT(tick.Elapsed(), 10000000U);
}

} // namespace
