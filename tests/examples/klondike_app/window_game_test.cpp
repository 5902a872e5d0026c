// SPDX-License-Identifier: MIT
#include "tests/examples/klondike_app/window_game_test.h"

#include "host/globals.h"

#include <chrono>
#include <thread>
#include <utility>

namespace
{

orvane::Settings HostSettings()
{
    orvane::Settings settings;
    settings.width = 640;
    settings.height = 480;
    return settings;
}

orvane::WindowSettings Small()
{
    orvane::WindowSettings settings;
    settings.minimumWidth = 1;
    settings.minimumHeight = 1;
    return settings;
}

void Push(Uint32 type, const auto& change)
{
    SDL_Event event{};
    event.type = type;
    change(event);
    SDL_PushEvent(&event);
}

} // namespace

WindowGame::WindowGame() : host(HostSettings()), window(host, Small())
{
    WriteSheet(folder / "deck.png", 13, 5, 40, 56);
    WriteBack(folder / "back.png", 40, 56);
}

klondike::Setup WindowGame::SetupOf(std::uint64_t deal)
{
    klondike::Setup setup;
    setup.game = klondike::Game(deal, {});
    setup.saveFile = folder / "game";
    setup.settingsFile = folder / "settings";
    setup.decks = {(folder / ".").string(), {}, (folder / "cache").string()};
    setup.answers = &answers;
    setup.chooseDeal = [next = deal]() mutable { return ++next; };
    return setup;
}

void WindowGame::Start(klondike::Setup setup)
{
    program.reset();
    program = std::make_unique<klondike::Program>(host, window, std::move(setup), [this] { return now; });
    UntilQuiet();
    ASSERT_TRUE(program->View().HasDeck());
}

void WindowGame::Frame()
{
    program->Loop().Step();
    now += glb->framePeriod;
}

void WindowGame::UntilQuiet()
{
    constexpr int kMostFrames = 20000;
    for (int i = 0; i < kMostFrames && !program->Loop().HasEnded(); ++i) {
        Frame();
        if (!program->IsBusy()) {
            Frame(); // what the last frame has left is taken away
            Frame();
            if (!program->IsBusy()) {
                return;
            }
        }
        if (!program->View().Cards().IsMoving()) { // other threads are at work
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
    ASSERT_TRUE(program->Loop().HasEnded()) << "the game does not come to rest";
}

void WindowGame::LeaveAlone()
{
    UntilQuiet();
    now += 1000000;
    Frame();
    Frame();
}

void WindowGame::Key(SDL_Keycode key, int modifiers)
{
    for (const Uint32 type : {SDL_KEYDOWN, SDL_KEYUP}) {
        Push(type, [&](SDL_Event& event) {
            event.key.keysym.sym = key;
            event.key.keysym.mod = static_cast<Uint16>(modifiers);
        });
    }
}

void WindowGame::Mouse(Uint32 type, cardkit::Pixel pixel, int button, int clicks)
{
    Push(type, [&](SDL_Event& event) {
        if (type == SDL_MOUSEMOTION) {
            event.motion.x = pixel.x;
            event.motion.y = pixel.y;
        } else {
            event.button.button = static_cast<Uint8>(button);
            event.button.clicks = static_cast<Uint8>(clicks);
            event.button.x = pixel.x;
            event.button.y = pixel.y;
        }
    });
}

void WindowGame::Finger(Uint32 type, cardkit::Pixel pixel, int finger)
{
    Push(type, [&](SDL_Event& event) {
        event.tfinger.fingerId = finger;
        event.tfinger.x = (static_cast<float>(pixel.x) + 0.5F) / static_cast<float>(window.Width());
        event.tfinger.y = (static_cast<float>(pixel.y) + 0.5F) / static_cast<float>(window.Height());
    });
}

void WindowGame::Click(cardkit::Pixel pixel, int button)
{
    Mouse(SDL_MOUSEBUTTONDOWN, pixel, button);
    Mouse(SDL_MOUSEBUTTONUP, pixel, button);
    Frame();
}

void WindowGame::Tap(cardkit::Pixel pixel)
{
    Finger(SDL_FINGERDOWN, pixel, 3);
    Finger(SDL_FINGERUP, pixel, 3);
    Frame();
}

void WindowGame::Drag(cardkit::Pixel from, cardkit::Pixel to)
{
    Mouse(SDL_MOUSEBUTTONDOWN, from);
    Frame();
    for (int step = 1; step <= 4; ++step) {
        Mouse(SDL_MOUSEMOTION, {from.x + (to.x - from.x) * step / 4, from.y + (to.y - from.y) * step / 4});
        Frame();
    }
    Mouse(SDL_MOUSEBUTTONUP, to);
    Frame();
}

cardkit::Pixel WindowGame::On(std::size_t pile, long position) const
{
    const auto area = program->View().AreaOf({pile, position});
    return {area.x + area.width / 2, area.y + 3};
}

cardkit::Pixel WindowGame::OnTop(std::size_t pile) const
{
    return On(pile, static_cast<long>(Pile(pile).size()));
}

std::vector<std::uint8_t> WindowGame::Screen() const
{
    const Bitmap& screen = host.Screen();
    return {screen.Buffer(), screen.Buffer() + std::ptrdiff_t{4} * screen.Width() * screen.Height()};
}

void WindowGame::ExpectRight()
{
    EXPECT_TRUE(program->View().Agrees(Game())) << "the table shows other cards than the game has";
    const std::vector<std::uint8_t> shown = Screen();
    host.ComposeAll();
    EXPECT_EQ(shown == Screen(), true) << "the screen is not what its controls show";
    program->View().LayDown(Game());
    Frame();
    EXPECT_EQ(shown == Screen(), true) << "the picture is not that of a table laid out anew";
}
