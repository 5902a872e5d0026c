// SPDX-License-Identifier: MIT
#include "tests/kit/kit_game.h"

#include "host/globals.h"

KitGame::KitGame()
{
    table.Resize(kWidth, kHeight, kCard, Layouts());
    table.UseSheet({faces.Path(), back.Path(), kCard.width, kCard.height});
}

std::vector<cardkit::PileLayout> KitGame::Layouts()
{
    return {cardkit::Squared({20, 30}), cardkit::FannedDown({150, 40}, 15, 6, 200),
            cardkit::FannedRight({260, 41}, 13, 120)};
}

bool KitGame::Frame()
{
    host.now += glb->framePeriod;
    const bool goesOn = table.Frame();
    host.host.Compose();
    const std::vector<std::uint8_t> composed = Screen();
    host.host.ComposeAll();
    EXPECT_EQ(composed, Screen()) << "composed from damage, the picture differs from the whole one";
    return goesOn;
}

void KitGame::UntilQuiet()
{
    for (int frames = 0; Frame(); ++frames) {
        ASSERT_LT(frames, 1000);
    }
}

std::vector<std::uint8_t> KitGame::Screen()
{
    const Bitmap& screen = host.host.Screen();
    return {screen.Buffer(), screen.Buffer() + std::size_t{4} * kWidth * kHeight};
}

std::vector<long> KitGame::Values(std::size_t pile) const
{
    std::vector<long> values;
    for (const cardkit::Card& card : table.At(pile).Cards()) {
        values.push_back(card.value);
    }
    return values;
}
