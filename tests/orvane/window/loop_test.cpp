// SPDX-License-Identifier: MIT
#include "orvane/window/loop.h"

#include "host/bitmap.h"
#include "host/render.h"
#include "host/tick.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace
{

constexpr std::uint32_t kPeriod = 10000;

class RecordingProgram : public orvane::Program
{
public:
    bool Frame() override
    {
        times.push_back(tick.Elapsed());
        return frames > 0 && --frames > 0;
    }
    void Pointer(const orvane::PointerEvent& event) override { pointers.push_back(event); }
    void Key(const orvane::KeyEvent& event) override { keys.push_back(event); }
    void Resized(int width, int height) override { sizes.emplace_back(width, height); }
    void Woken() override
    {
        ++woken;
        loop->Stop();
    }

    orvane::Loop* loop = nullptr;
    Tick tick;
    int frames = 0;
    int woken = 0;
    std::vector<std::uint32_t> times;
    std::vector<orvane::PointerEvent> pointers;
    std::vector<orvane::KeyEvent> keys;
    std::vector<std::pair<int, int>> sizes;
};

orvane::Settings ScreenSettings()
{
    orvane::Settings settings;
    settings.width = 400;
    settings.height = 300;
    settings.background = {10, 20, 30, 255};
    settings.framePeriod = kPeriod;
    return settings;
}

class LoopTest : public testing::Test
{
protected:
    LoopTest()
    {
        program.loop = &loop;
        for (int i = 0; i < 3; ++i) {
            loop.Step(); // the events of opening
            now += kPeriod;
        }
        program.times.clear();
        program.tick.Update();
    }

    static void Push(Uint32 type, auto change)
    {
        SDL_Event event{};
        event.type = type;
        change(event);
        SDL_PushEvent(&event);
    }
    static void PushButton(Uint32 type, Uint32 mouse = 0)
    {
        Push(type, [&](SDL_Event& event) {
            event.button.which = mouse;
            event.button.button = SDL_BUTTON_LEFT;
            event.button.clicks = 2;
            event.button.x = 7;
            event.button.y = 9;
        });
    }
    SDL_Surface* Shown() const { return SDL_GetWindowSurface(SDL_GetWindowFromID(window.Id())); }

    const int dummyDriver = SDL_setenv("SDL_VIDEODRIVER", "dummy", 1);
    std::uint64_t now = 1000000;
    orvane::Host host{ScreenSettings()};
    orvane::Window window{host, {}};
    RecordingProgram program;
    orvane::Loop loop{host, window, program, [this] { return now; }};
};

TEST_F(LoopTest, EveryPressHasOneEnd)
{
    PushButton(SDL_MOUSEBUTTONDOWN);
    PushButton(SDL_MOUSEBUTTONDOWN, SDL_TOUCH_MOUSEID); // the system's copy of a finger
    Push(SDL_FINGERDOWN, [](SDL_Event& event) {
        event.tfinger.fingerId = 5;
        event.tfinger.x = 0.5F;
        event.tfinger.y = 0.5F;
    });
    PushButton(SDL_MOUSEBUTTONUP);
    Push(SDL_WINDOWEVENT, [](SDL_Event& event) { event.window.event = SDL_WINDOWEVENT_FOCUS_LOST; });
    Push(SDL_FINGERUP, [](SDL_Event& event) { event.tfinger.fingerId = 5; });
    loop.Step();
    using orvane::PointerAction;
    ASSERT_EQ(program.pointers.size(), 4U);
    EXPECT_EQ(program.pointers[0].action, PointerAction::Down);
    EXPECT_EQ(program.pointers[0].clicks, 2);
    EXPECT_EQ(program.pointers[0].x, 7);
    EXPECT_EQ(program.pointers[1].kind, orvane::PointerKind::Touch);
    EXPECT_EQ(program.pointers[1].x, 200);
    EXPECT_EQ(program.pointers[1].y, 150);
    EXPECT_EQ(program.pointers[2].action, PointerAction::Up);
    EXPECT_EQ(program.pointers[3].action, PointerAction::Cancel);
    EXPECT_EQ(program.pointers[3].finger, 5);
}

TEST_F(LoopTest, KeysAreNamedOrCharacters)
{
    for (const SDL_Keycode code : {SDL_Keycode{SDLK_ESCAPE}, SDL_Keycode{SDLK_u}, SDL_Keycode{SDLK_LSHIFT}}) {
        Push(SDL_KEYDOWN, [&](SDL_Event& event) {
            event.key.keysym.sym = code;
            event.key.keysym.mod = KMOD_LCTRL;
        });
    }
    loop.Step();
    ASSERT_EQ(program.keys.size(), 3U);
    EXPECT_EQ(program.keys[0].key, orvane::Key::Escape);
    EXPECT_EQ(program.keys[1].character, U'u');
    EXPECT_EQ(program.keys[2].key, orvane::Key::Other);
    EXPECT_TRUE(program.keys[1].modifiers.control);
}

TEST_F(LoopTest, ScreenFollowsTheWindow)
{
    window.SetSize(500, 350);
    loop.Step();
    EXPECT_EQ(program.sizes.back(), std::pair(500, 350));
    EXPECT_EQ(host.Screen().Width(), 500);
    const orvane::PixelScale twice{400, 300, 800, 600};
    EXPECT_EQ(twice.PixelX(399), 798);
    EXPECT_EQ(twice.PixelY(-1), -2);
    const orvane::PixelScale oneAndHalf{401, 300, 601, 450};
    EXPECT_EQ(oneAndHalf.PixelX(400), 599);
}

TEST_F(LoopTest, OnlyDamageIsShown)
{
    SDL_FillRect(Shown(), nullptr, 0);
    Render::Instance().InvalidateArea({10, 20, 30, 5});
    const auto before = loop.Counters().pixelsPresented;
    loop.RequestFrame();
    loop.Step();
    EXPECT_EQ(loop.Counters().pixelsPresented - before, 150U);
    const SDL_Surface* const surface = Shown();
    int painted = 0;
    for (int y = 0; y < surface->h; ++y) {
        const auto* const row =
            reinterpret_cast<const Uint32*>(static_cast<const Uint8*>(surface->pixels) + y * surface->pitch);
        for (int x = 0; x < surface->w; ++x) {
            const bool isDamaged = x >= 10 && x < 40 && y >= 20 && y < 25;
            painted += (row[x] & 0xFFFFFFU) == 0x0A141EU && isDamaged ? 1 : 0;
            ASSERT_TRUE(isDamaged || row[x] == 0) << x << ", " << y;
        }
    }
    EXPECT_EQ(painted, 150);
    Push(SDL_WINDOWEVENT, [](SDL_Event& event) { event.window.event = SDL_WINDOWEVENT_EXPOSED; });
    loop.Step();
    EXPECT_EQ(loop.Counters().pixelsPresented - before, 150U + 400U * 300U);
}

TEST_F(LoopTest, FramesKeepTheirPeriodOnADisplayOf144Hertz)
{
    program.frames = 20;
    loop.RequestFrame();
    const std::uint64_t start = now;
    for (; now < start + 15 * kPeriod; now += 6944) {
        loop.Step();
    }
    EXPECT_EQ(program.times.size(), 15U);
}

TEST_F(LoopTest, APauseIsNoBurst)
{
    program.frames = 3;
    loop.RequestFrame();
    loop.Step();
    now += 3600000000U;
    loop.Step();
    EXPECT_EQ(program.times.back() - program.times.front(), 4 * kPeriod);
    loop.Step();
    EXPECT_EQ(program.times.size(), 2U);
    EXPECT_EQ(loop.Step(), kPeriod);
}

TEST_F(LoopTest, IdleRunsNothingUntilATimer)
{
    const auto before = loop.Counters();
    EXPECT_EQ(loop.Step(), std::nullopt);
    int called = 0;
    loop.CallAt(now + 5000, [&] { ++called; });
    loop.Cancel(loop.CallAt(now + 1000, [&] { called += 100; }));
    EXPECT_EQ(loop.Step(), 5000U);
    EXPECT_EQ(loop.Counters().framesRun, before.framesRun);
    EXPECT_EQ(loop.Counters().pixelsPresented, before.pixelsPresented);
    now += 5000;
    loop.Step();
    EXPECT_EQ(called, 1);
    EXPECT_EQ(loop.Counters().framesRun, before.framesRun + 1);
}

TEST_F(LoopTest, AnotherThreadWakesIt)
{
    std::thread other([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(30)); // it sleeps by then
        loop.Wake();
        loop.Wake();
    });
    loop.Run();
    other.join();
    EXPECT_EQ(program.woken, 1);
}

TEST(WindowTest, AMissingDisplayIsOneLine)
{
    SDL_setenv("SDL_VIDEODRIVER", "none such", 1);
    orvane::Host host(ScreenSettings());
    try {
        const orvane::Window window(host, {});
        FAIL() << "a window opened";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(std::string(error.what()).find("orvane: there is no display"), 0U);
    }
}

} // namespace
