// SPDX-License-Identifier: MIT
#include "examples/deal/patience.h"

#include "examples/deal/table_picture.h"

namespace deal
{

Patience::Patience(HeadlessTable& table, DeckFiles files, const std::vector<long>& order) : m_stage(table)
{
    CheckDeck(files, table.LastError());
    m_layout = std::make_unique<TableLayout>(table.Width(), table.Height(), files.cellWidth, files.cellHeight);
    cardkit::Table& cards = table.Table();
    cards.SetPicture(MakeTablePicture(table.Width(), table.Height(), m_layout->Slots()));
    cards.Resize(table.Width(), table.Height(), m_layout->Card(), m_layout->Piles());
    cards.UseSheet({files.sheet, files.back, files.cellWidth, files.cellHeight});

    std::vector<cardkit::Card> stock;
    stock.reserve(order.size());
    for (const long value : order) {
        stock.push_back({value, cardkit::Facing::Down});
    }
    cards.Lay({stock});
}

} // namespace deal
