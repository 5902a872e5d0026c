// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/decks/card_size.h"
#include "examples/klondike/decks/deck_catalog.h"
#include "examples/klondike/decks/deck_error.h"

#include <cairo.h>

#include <memory>
#include <stop_token>

namespace klondike
{

/// Draws the cards of one deck, whatever kind it is of. Each drawing fills its cells whatever their shape; the context
/// is clipped to them.
class DeckPainter
{
public:
    virtual ~DeckPainter() = default;

    /// Width by height of a card as the deck has drawn it.
    virtual double Aspect() = 0;
    /// The cards of a suit (0 to 3: clubs, diamonds, hearts, spades) side by side from the origin, ace to king. Throws
    /// DeckError, also between two cards when a stop is asked for.
    virtual void DrawSuit(cairo_t* cairo, int suit, CardSize size, const std::stop_token& stop) = 0;
    /// The back, at the origin. Throws DeckError.
    virtual void DrawBack(cairo_t* cairo, CardSize size) = 0;
};

/// Reads the deck's files. Throws DeckError for a file that cannot be read or holds no such deck.
std::unique_ptr<DeckPainter> OpenDeck(const Deck& deck);

///@{
/// One for each kind.
std::unique_ptr<DeckPainter> OpenSheet(const Deck& deck);
std::unique_ptr<DeckPainter> OpenSvgGrid(const Deck& deck);
std::unique_ptr<DeckPainter> OpenSvgElements(const Deck& deck);
///@}

} // namespace klondike
