// SPDX-License-Identifier: MIT
#pragma once

#include "kit/table.h"
#include "tests/support/picture_file.h"
#include "tests/support/test_host.h"

#include <cstdint>
#include <utility>
#include <vector>

/// A table of three piles with a deck of its own: a squared pile, one fanned down and one fanned right. Every frame it
/// holds the screen composed from damage against the whole picture.
class KitGame : public testing::Test
{
protected:
    static constexpr int kWidth = 480;
    static constexpr int kHeight = 361;
    static constexpr cardkit::CardSize kCard{31, 44};
    static constexpr cardkit::Flight kFlight{{120.0, 0.05, 20.0, 10.0}, 17, 0, true};

    KitGame();

    static std::vector<cardkit::PileLayout> Layouts();
    /// Runs one frame and looks at its picture.
    bool Frame();
    void UntilQuiet();
    std::vector<std::uint8_t> Screen();
    /// The cards of a pile, bottom to top.
    std::vector<long> Values(std::size_t pile) const;

    TestHost host{kWidth, kHeight};
    const PictureFile faces{kCard.width * 13, kCard.height * 4,
                            [](int x, int y) { return 0xFF000000U | static_cast<std::uint32_t>(x * 3 + y * 1001); }};
    const PictureFile back{kCard.width, kCard.height,
                           [](int x, int) { return 0xFF204080U + static_cast<unsigned>(x); }};
    cardkit::Table table{kWidth, kHeight, 3, {}};
};
