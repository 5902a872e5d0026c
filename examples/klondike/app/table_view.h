// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/app/layout.h"
#include "examples/klondike/decks/deck_cache.h"
#include "examples/klondike/rules/game.h"
#include "kit/table.h"

#include <cstddef>

namespace klondike
{

/// The cards of a game on the card table: whatever happens to the game, one call has the table follow.
class TableView
{
public:
    /// An empty table in a window of that size, pixels. Cards appear with the first deck.
    TableView(int width, int height);

    cardkit::Table& Cards() { return m_table; }
    const cardkit::Table& Cards() const { return m_table; }
    const Layout& Places() const { return m_layout; }
    bool HasDeck() const { return m_hasDeck; }

    /// Takes another size or other places; cards rest at their homes then.
    void Resize(const Layout& layout);
    /// Takes a deck's pictures; throws std::runtime_error as cardkit::Table::UseSheet.
    void UseDeck(const DeckFiles& files);
    /// What the empty stock shows.
    void SetStockSign(SlotSign sign);

    ///@{
    /// Has the table show the game: cards fly where they belong; those of a fresh game out of the stock; or at once.
    /// Nothing before the first deck.
    void Follow(const Game& game);
    void DealOut(const Game& game);
    void LayDown(const Game& game);
    ///@}
    /// Cards that the player holds go the short rest of their way to the pile they were dropped on.
    void Drop(std::size_t from, long position, std::size_t to);

    /// What the cards of a pile cover at their homes, from a position to the top; the pile's place out of range.
    render::Rectangle<int> AreaOf(const cardkit::Spot& spot) const;

    /// True when the table holds exactly the game's cards.
    bool Agrees(const Game& game) const;

private:
    cardkit::Table m_table;
    Layout m_layout;
    Bitmap* m_picture = nullptr; ///< the table's; for its slots' signs
    SlotSign m_stockSign = SlotSign::Recycle;
    bool m_hasDeck = false;
};

} // namespace klondike
