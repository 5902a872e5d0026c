// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/app/program.h"
#include "tests/examples/klondike_decks/deck_files_maker.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

/// A game in a window of the system's dummy display, with a clock of its own and a small deck.
class WindowGame : public testing::Test
{
protected:
    static constexpr int kWidth = 640;
    static constexpr int kHeight = 480;

    WindowGame();

    /// Starts, or starts again; the first deck is there and the game is dealt.
    void Start(klondike::Setup setup);
    /// A setup with the test's folders and that deal.
    klondike::Setup SetupOf(std::uint64_t deal);

    /// One step of the loop, and a frame's time.
    void Frame();
    /// Until nothing goes on by itself, whatever is pressed.
    void UntilQuiet();
    /// Time for what the game does when it is left alone.
    void LeaveAlone();

    ///@{
    /// Input, as the system gives it. It takes effect at the next frame.
    void Key(SDL_Keycode key, int modifiers = KMOD_NONE);
    void Mouse(Uint32 type, cardkit::Pixel pixel, int button = SDL_BUTTON_LEFT, int clicks = 1);
    void Finger(Uint32 type, cardkit::Pixel pixel, int finger);
    void Click(cardkit::Pixel pixel, int button = SDL_BUTTON_LEFT);
    void Tap(cardkit::Pixel pixel);
    /// Presses, moves and lets go, with some frames in between.
    void Drag(cardkit::Pixel from, cardkit::Pixel to);
    ///@}

    const klondike::Game& Game() const { return program->TheGame(); }
    const std::vector<klondike::Card>& Pile(std::size_t pile) const { return Game().Table()[pile]; }
    /// A pixel of a card's upper part, which no card above covers; of the place of an empty pile.
    cardkit::Pixel On(std::size_t pile, long position) const;
    cardkit::Pixel OnTop(std::size_t pile) const;
    std::vector<std::uint8_t> Screen() const;
    /// The piles are the game's, and the picture is that of a table laid out anew.
    void ExpectRight();

    const int dummyDriver = SDL_setenv("SDL_VIDEODRIVER", "dummy", 1);
    DeckFolder folder;
    std::uint64_t now = 0;
    std::ostringstream answers;
    orvane::Host host;
    orvane::Window window;
    std::unique_ptr<klondike::Program> program;
};
