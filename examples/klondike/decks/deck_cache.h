// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/decks/card_size.h"
#include "examples/klondike/decks/deck_catalog.h"
#include "examples/klondike/decks/deck_error.h"

#include <cstdint>
#include <stop_token>
#include <string>

namespace klondike
{

/// A deck drawn for one size of card, as CCardTable::LoadTextures takes it.
struct DeckFiles {
    static constexpr int kColumns = 13; ///< ace to king
    static constexpr int kRows = 4;     ///< clubs, diamonds, hearts, spades; all full

    std::string sheet; ///< a PNG of kColumns x kRows cells without gaps, each exactly a card
    std::string back;  ///< a PNG of exactly a card
    int cardWidth = 0; ///< pixels
    int cardHeight = 0;
};

/// The bytes that the files of a cache folder may have together; the oldest go first, those just made stay.
inline constexpr std::uintmax_t kCacheLimit = 64U * 1024U * 1024U;

/// The deck's pictures for a size of card, kept in the folder (made if it is missing) under a name that depends on the
/// deck, on its files' times and lengths and on the size: the second call gives the same files and costs nothing. The
/// files appear whole or not at all, whatever happens to the program. From any thread, and from several programs on one
/// folder. Throws DeckError for a size out of range, a deck that cannot be drawn, a folder that cannot be written to,
/// and, between two cards, when a stop is asked for.
DeckFiles Rendered(const Deck& deck, int cardWidth, int cardHeight, const std::string& folder,
                   const std::stop_token& stop = {});

} // namespace klondike
