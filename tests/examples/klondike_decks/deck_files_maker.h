// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/decks/deck_catalog.h"

#include <cstdint>
#include <filesystem>
#include <string>

/// A folder of the test's own, with a name that a shell would stumble over; removed at the end.
class DeckFolder
{
public:
    DeckFolder();
    ~DeckFolder();
    DeckFolder(const DeckFolder&) = delete;
    DeckFolder& operator=(const DeckFolder&) = delete;

    std::filesystem::path operator/(const std::string& name) const { return m_folder / name; }

private:
    std::filesystem::path m_folder;
};

/// The one colour of a card in the decks made here: suit and rank from 0; the back is suit 4.
std::uint32_t ColourOf(int suit, int rank);
inline constexpr int kBackSuit = 4;

///@{
/// The texts of drawings of plain cards, ace to king of clubs, diamonds, hearts, spades. Cards with elements have a
/// border outside their outlines, and stand far apart within moved groups.
std::string GridDrawing();
std::string ElementsDrawing();
///@}

void Write(const std::filesystem::path& file, const std::string& text);
/// Packed as .svgz files are.
void WritePacked(const std::filesystem::path& file, const std::string& text);
std::string ReadAll(const std::filesystem::path& file);

/// A sheet of plain cells in that grid; cells 0 to 51 are the cards, 54 is the back.
void WriteSheet(const std::filesystem::path& file, int columns, int rows, int cellWidth, int cellHeight);
/// A picture of a back alone.
void WriteBack(const std::filesystem::path& file, int width, int height);
/// Columns of one pixel, black and white in turn, in every cell of a 13 x 5 grid.
void WriteStripes(const std::filesystem::path& file, int cellWidth, int cellHeight);

/// A deck of the kind as the catalog would give it.
klondike::Deck DeckOf(klondike::Deck::Kind kind, const std::filesystem::path& faces);
