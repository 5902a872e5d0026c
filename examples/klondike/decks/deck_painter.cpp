// SPDX-License-Identifier: MIT
#include "examples/klondike/decks/deck_painter.h"

#include <cmath>

namespace klondike
{

std::unique_ptr<DeckPainter> OpenDeck(const Deck& deck)
{
    switch (deck.kind) {
    case Deck::Kind::Sheet:
        return OpenSheet(deck);
    case Deck::Kind::SvgGrid:
        return OpenSvgGrid(deck);
    case Deck::Kind::SvgElements:
        break;
    }
    return OpenSvgElements(deck);
}

std::optional<double> CardAspect(const Deck& deck)
{
    try {
        const double aspect = OpenDeck(deck)->Aspect();
        return std::isfinite(aspect) && aspect > 0.0 ? std::optional(aspect) : std::nullopt;
    } catch (const DeckError&) {
        return std::nullopt;
    }
}

} // namespace klondike
