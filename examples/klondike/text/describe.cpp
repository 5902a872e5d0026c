// SPDX-License-Identifier: MIT
#include "examples/klondike/text/describe.h"

namespace klondike
{

namespace
{

std::string CardText(const Card& card)
{
    if (!card.faceUp) {
        return "##";
    }
    static const char* const kRanks[] = {"A", "2", "3", "4", "5", "6", "7", "8", "9", "10", "J", "Q", "K"};
    return std::string(kRanks[card.rank - 1]) + "cdhs"[static_cast<std::size_t>(card.suit)];
}

} // namespace

std::string PileName(std::size_t pile)
{
    if (pile >= kNumPiles) {
        return "?";
    }
    if (IsTableau(pile)) {
        return "t" + std::to_string(pile - kFirstTableau + 1);
    }
    if (IsFoundation(pile)) {
        return "f" + std::to_string(pile - kFirstFoundation + 1);
    }
    return pile == kStock ? "stock" : "waste";
}

std::string Describe(const Game& game)
{
    std::string text = "deal " + std::to_string(game.DealNumber()) + "  score " + std::to_string(game.Score()) +
                       (game.IsWon() ? "  won\n" : "\n");
    for (std::size_t pile = 0; pile < kNumPiles; ++pile) {
        const std::vector<Card>& cards = game.Table()[pile];
        text += PileName(pile) + ":";
        if (pile == kStock) {
            text += " " + std::to_string(cards.size()) + " cards\n";
            continue;
        }
        for (const Card& card : cards) {
            text += " " + CardText(card);
        }
        text += "\n";
    }
    return text;
}

} // namespace klondike
