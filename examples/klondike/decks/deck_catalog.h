// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace klondike
{

/// A deck of cards somewhere on the disk, and how its pictures lie in its files.
struct Deck {
    enum class Kind {
        Sheet,       ///< a picture with one cell a card
        SvgGrid,     ///< a drawing of 13 x 5 cells: the four suits, then black joker, red joker, back
        SvgElements, ///< a drawing with an element for each card: 1_club to 10_club, jack_club ..., and back
    };

    std::string name; ///< for a menu, UTF-8; no two of a catalog are the same
    Kind kind = Kind::Sheet;
    std::string faces; ///< the picture or drawing; a setting that keeps the player's deck keeps this path

    ///@{
    /// Of a sheet alone. Its first 52 cells are the cards, suit by suit in the order clubs, diamonds, hearts, spades,
    /// from ace to king.
    std::string back; ///< its own picture; empty: the cell after the cards and two jokers, number 54 from 0
    int columns = 13;
    int rows = 5;
    ///@}
};

/// What was found, and for each deck that was left out one line that says which and why.
struct DeckCatalog {
    std::vector<Deck> decks;
    std::vector<std::string> problems;
};

/// Where decks may lie, those that exist: the player's own folder, then in each data folder of the system
/// ($XDG_DATA_DIRS) the decks of the packages that bring some.
std::vector<std::string> DeckFolders(const std::string& own);

/// The deck of the assets folder, deck.png and back.png; then the decks of the folders in their order, by name within a
/// folder. A folder that is missing has none. In a folder and the folders in it count:
///
/// - `index.desktop` of a folder of its own with its lines `SVG=` and `Name=`: a drawing with elements;
/// - `NAME.deck` beside `NAME.png`: a sheet. Its lines: `name`, `columns`, `rows` and `back` (a file beside it), each
///   with its value after blanks; all may be missing. Lines that start with # say nothing;
/// - any other `.svg` or `.svgz`: a drawing with elements when it has them, else a grid.
///
/// Every file is read to its end, so a damaged one is found here: about ten milliseconds a drawing.
DeckCatalog FindDecks(const std::string& assets, const std::vector<std::string>& folders);

/// Width by height of a card as the deck has drawn it; empty for a file that cannot be read or has no size. Of a
/// drawing this takes up to some tenths of a second.
std::optional<double> CardAspect(const Deck& deck);

} // namespace klondike
