// SPDX-License-Identifier: MIT
// Thousands of random inputs at random moments of flights: the table always shows the game.
#include "tests/examples/klondike_app/window_game_test.h"

#include "examples/klondike/rules/advice.h"
#include "examples/klondike/rules/save_file.h"

#include <array>
#include <random>

using namespace klondike;

class InputFuzz : public WindowGame, public testing::WithParamInterface<unsigned>
{
protected:
    unsigned Below(unsigned limit) { return static_cast<unsigned>(random()) % limit; }
    cardkit::Pixel AnyPixel()
    {
        const int width = window.Width() + 60;
        const int height = window.Height() + 60;
        return {static_cast<int>(Below(static_cast<unsigned>(width))) - 30,
                static_cast<int>(Below(static_cast<unsigned>(height))) - 30};
    }
    /// Often a card, so that something comes of it.
    cardkit::Pixel SomePixel()
    {
        const std::size_t pile = Below(kNumPiles);
        return Below(4) == 0 ? AnyPixel() : On(pile, static_cast<long>(Below(20)));
    }
    void SomeKey()
    {
        constexpr std::array kKeys{SDLK_n,      SDLK_r,    SDLK_d,     SDLK_u,     SDLK_y,      SDLK_h,
                                   SDLK_f,      SDLK_m,    SDLK_c,     SDLK_F1,    SDLK_TAB,    SDLK_UP,
                                   SDLK_DOWN,   SDLK_LEFT, SDLK_RIGHT, SDLK_SPACE, SDLK_RETURN, SDLK_HOME,
                                   SDLK_ESCAPE, SDLK_1,    SDLK_7,     SDLK_q};
        Key(kKeys[Below(kKeys.size())], Below(10) == 0 ? KMOD_CTRL : KMOD_NONE);
    }
    /// Something that brings the game on, by hand.
    void PlayHint()
    {
        const std::vector<Move> hints = Hints(Game());
        if (hints.empty()) {
            Key(SDLK_ESCAPE);
            Key(SDLK_r);
            Key(SDLK_RETURN);
        } else if (hints[0].kind == Move::Kind::Cards) {
            const long position = static_cast<long>(Pile(hints[0].from).size() - hints[0].count + 1);
            Drag(On(hints[0].from, position), OnTop(hints[0].to));
        } else {
            Click(OnTop(kStock));
        }
    }
    void SomeInput();

    std::mt19937 random{GetParam()};
};

void InputFuzz::SomeInput()
{
    switch (Below(16)) {
    case 0:
    case 1:
        SomeKey();
        break;
    case 2:
        Key(SDLK_ESCAPE);
        break;
    case 3:
        Mouse(SDL_MOUSEBUTTONDOWN, SomePixel(), static_cast<int>(1 + Below(5)), static_cast<int>(1 + Below(3)));
        break;
    case 4:
        Mouse(SDL_MOUSEBUTTONUP, SomePixel(), static_cast<int>(1 + Below(5)));
        break;
    case 5:
    case 6:
        Mouse(SDL_MOUSEMOTION, SomePixel());
        break;
    case 7:
        Click(SomePixel());
        break;
    case 8:
        Drag(SomePixel(), SomePixel());
        break;
    case 9:
        Finger(Below(2) == 0 ? SDL_FINGERDOWN : SDL_FINGERUP, SomePixel(), static_cast<int>(Below(3)));
        break;
    case 10:
        Tap(SomePixel());
        break;
    case 11:
        if (Below(12) == 0) {
            window.SetSize(static_cast<int>(200 + Below(800)), static_cast<int>(150 + Below(500)));
        }
        break;
    case 12:
        Click(SomePixel(), SDL_BUTTON_RIGHT);
        break;
    default:
        PlayHint();
        break;
    }
}

TEST_P(InputFuzz, TheTableAlwaysShowsTheGame)
{
    Start(SetupOf(GetParam()));
    constexpr int kRounds = 60;
    for (int round = 0; round < kRounds && !HasFailure(); ++round) {
        const unsigned inputs = 5 + Below(30);
        for (unsigned i = 0; i < inputs && !program->Loop().HasEnded(); ++i) {
            SomeInput();
            for (unsigned frames = Below(7); frames > 0; --frames) {
                Frame();
            }
        }
        if (program->Loop().HasEnded()) { // the player has left; the game goes on the next time
            LoadedGame loaded = LoadOrSetAside(folder / "game");
            ASSERT_TRUE(loaded.game) << loaded.message;
            ASSERT_EQ(loaded.game->Table(), Game().Table());
            klondike::Setup setup = SetupOf(GetParam());
            setup.game = std::move(*loaded.game);
            setup.settings = LoadSettings(folder / "settings");
            Start(std::move(setup));
        }
        for (int button = 1; button <= 5; ++button) {
            Mouse(SDL_MOUSEBUTTONUP, {0, 0}, button);
        }
        for (int finger = 0; finger < 4; ++finger) {
            Finger(SDL_FINGERUP, {0, 0}, finger);
        }
        LeaveAlone();
        ExpectRight();
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, InputFuzz, testing::Range(1U, 7U));
