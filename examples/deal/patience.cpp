// SPDX-License-Identifier: MIT
#include "examples/deal/patience.h"

#include "examples/deal/failure.h"
#include "examples/deal/felt.h"

#include <string>

namespace deal
{

namespace
{

/// How much of a shaded card is left: it is see-through, and the table shines through it.
constexpr double kShadeFactor = 0.4;

} // namespace

Patience::Patience(HeadlessTable& table, DeckFiles files, const std::vector<long>& order) : m_stage(table)
{
    CheckDeck(files, table.LastError());
    m_layout = std::make_unique<TableLayout>(table.Width(), table.Height(), files.cellWidth, files.cellHeight);
    table.SetPicture(MakeFelt(table.Width(), table.Height(), m_layout->Slots()));

    CCardTable& cards = table.Table();
    cards.SetCardSize(files.cellWidth, files.cellHeight);
    cards.SetCardDimension(m_layout->CardWidth() / 2.0, m_layout->CardHeight() / 2.0);
    table.Init(kPiles, files.rows, files.columns, files.lastRow);
    if (cards.LoadTextures(files.sheet.c_str(), files.back.c_str(), 1, kShadeFactor) == 0) {
        throw Failure("cannot cut the cards out of '" + files.sheet + "': " + table.LastError());
    }

    AddPile(m_layout->Stock());
    AddPile(m_layout->Waste());
    for (int i = 0; i < TableLayout::kFoundations; ++i) {
        AddPile(m_layout->Foundation(i));
    }
    for (int i = 0; i < TableLayout::kColumns; ++i) {
        AddPile(m_layout->Column(i));
    }
    for (const long value : order) {
        Stock().Add(value, Facing::Down);
    }
    Stock().LayDownVisible();
}

void Patience::AddPile(const PileShape& shape)
{
    m_piles.push_back(std::make_unique<CardPile>(m_stage.Table(), static_cast<long>(m_piles.size()), m_stage.View(),
                                                 m_stage.Dialog(), m_stage.FlightControl(), m_layout->CardWidth(),
                                                 m_layout->CardHeight(), shape));
}

} // namespace deal
