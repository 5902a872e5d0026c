// SPDX-License-Identifier: MIT
#pragma once

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
    /// the deck's files cannot be used. The
    /// table has kPiles piles and outlives the patience.
    Patience(HeadlessTable& table, DeckFiles files, const std::vector<long>& order);

    HeadlessTable& Stage() { return m_stage; }
    const TableLayout& Layout() const { return *m_layout; }

    ///@{
    /// The numbers of the piles.
    static constexpr std::size_t kStock = 0;
    static constexpr std::size_t kWaste = 1;
    static constexpr std::size_t kFirstFoundation = 2;
    static constexpr std::size_t kFirstColumn = kFirstFoundation + TableLayout::kFoundations;
    static constexpr std::size_t kPiles = kFirstColumn + TableLayout::kColumns;
    ///@}

private:
    HeadlessTable& m_stage;
    std::unique_ptr<TableLayout> m_layout;
};

} // namespace deal
