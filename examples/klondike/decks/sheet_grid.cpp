// SPDX-License-Identifier: MIT
#include "examples/klondike/decks/sheet_grid.h"

#include "examples/klondike/decks/deck_error.h"
#include "examples/klondike/decks/png_size.h"

#include <string>

namespace klondike
{

namespace
{

constexpr int kCards = 52;

PngSize RequirePng(const std::string& file)
{
    const std::optional<PngSize> size = ReadPngSize(file);
    if (!size) {
        throw DeckError("'" + file + "' is no whole PNG picture, or too large");
    }
    return *size;
}

} // namespace

CardSize CellSize(const Deck& sheet)
{
    const PngSize size = RequirePng(sheet.faces);
    if (!sheet.back.empty()) {
        RequirePng(sheet.back);
    }
    const int cells = sheet.back.empty() ? kBackCell + 1 : kCards;
    if (sheet.columns < 1 || sheet.rows < 1 || sheet.rows < (cells - 1) / sheet.columns + 1) {
        throw DeckError("the grid of '" + sheet.faces + "' has fewer than " + std::to_string(cells) + " cells");
    }
    const CardSize cell{size.width / sheet.columns, size.height / sheet.rows};
    if (cell.width == 0 || cell.height == 0) {
        throw DeckError("'" + sheet.faces + "' is too small for its grid");
    }
    return cell;
}

} // namespace klondike
