// SPDX-License-Identifier: MIT
#pragma once

#include "examples/deal/card_pile.h"
#include "examples/deal/deck_files.h"
#include "examples/deal/headless_table.h"
#include "examples/deal/table_layout.h"

#include <memory>
#include <vector>

namespace deal
{

/// A seven-pile patience laid out on a table: its pictures loaded, its piles in their places, the whole deck in the
/// stock.
class Patience
{
public:
    /// The order is that of the cards in the stock, bottom to top; values count through the sheet. Throws Failure when
    /// the deck's files cannot be used. The table outlives the patience.
    Patience(HeadlessTable& table, DeckFiles files, const std::vector<long>& order);

    HeadlessTable& Stage() { return m_stage; }
    const TableLayout& Layout() const { return *m_layout; }
    CardPile& Stock() { return *m_piles[0]; }
    CardPile& Waste() { return *m_piles[1]; }
    CardPile& Foundation(int index) { return *m_piles[static_cast<std::size_t>(kFirstFoundation + index)]; }
    CardPile& Column(int index) { return *m_piles[static_cast<std::size_t>(kFirstColumn + index)]; }
    const std::vector<std::unique_ptr<CardPile>>& Piles() const { return m_piles; }

private:
    static constexpr int kFirstFoundation = 2;
    static constexpr int kFirstColumn = kFirstFoundation + TableLayout::kFoundations;
    static constexpr int kPiles = kFirstColumn + TableLayout::kColumns;

    void AddPile(const PileShape& shape);

    HeadlessTable& m_stage;
    std::unique_ptr<TableLayout> m_layout;
    std::vector<std::unique_ptr<CardPile>> m_piles; ///< stock, waste, foundations, columns; as the table's pockets
};

} // namespace deal
