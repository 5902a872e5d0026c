// SPDX-License-Identifier: MIT
#pragma once

#include "kit/table.h"

#include <string>

namespace deal
{

/// The pictures of a deck. The sheet is a grid of cells from its top-left corner, all rows full but the last one; its
/// first 52 cells are the cards, suit by suit from ace to king.
struct DeckFiles {
    static constexpr int kCards = 52;
    static constexpr int kSuitCards = 13;

    std::string sheet;
    std::string back;
    int rows = 5;
    int columns = 13;
    int lastRow = 2;
    int cellWidth = 0; ///< pixels; with 0 the sheet is divided into whole cells
    int cellHeight = 0;
};

/// The grid of the sheet.
cardkit::SheetGrid GridOf(const DeckFiles& deck);

/// Looks at the files with a running host, and fills in the cell size when it is 0. Throws Failure, with a message for
/// the user, for a file that cannot be read and for a sheet that is too small for its grid.
void CheckDeck(DeckFiles& deck, const std::string& hostError);

} // namespace deal
