// SPDX-License-Identifier: MIT
#include "deck_files_maker.h"

#include "examples/klondike/decks/drawing_file.h"

#include <cairo.h>
#include <zlib.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>

namespace
{

constexpr int kRanks = 13;
constexpr int kSuits = 4;

std::string HexColour(int suit, int rank)
{
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%06x", static_cast<unsigned>(ColourOf(suit, rank) & 0xFFFFFFU));
    return text.data();
}

void WritePicture(const std::filesystem::path& file, int width, int height,
                  const std::function<std::uint32_t(int, int)>& pixelAt)
{
    cairo_surface_t* picture = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    auto* pixel = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(picture));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            *pixel++ = pixelAt(x, y);
        }
    }
    cairo_surface_mark_dirty(picture);
    cairo_surface_write_to_png(picture, file.c_str());
    cairo_surface_destroy(picture);
}

std::string Element(const std::string& name, int suit, int rank)
{
    const int left = 70 * rank;
    const int top = 100 * suit;
    return "<g transform='translate(" + std::to_string(left) + "," + std::to_string(top) + ")'><rect id='" + name +
           "' x='3' y='4' width='46' height='66' fill='" + HexColour(suit, rank) + "' stroke='" +
           HexColour(suit, rank) + "' stroke-width='4'/></g>";
}

} // namespace

DeckFolder::DeckFolder()
{
    std::random_device random;
    m_folder = std::filesystem::temp_directory_path() /
               ("decks of \"a\" & 'b'; $(exit) %s " + std::to_string(random()) + std::to_string(random()));
    std::filesystem::create_directories(m_folder);
}

DeckFolder::~DeckFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

std::uint32_t ColourOf(int suit, int rank)
{
    return 0xFF202040U + static_cast<std::uint32_t>(rank) * 0x100000U + static_cast<std::uint32_t>(suit) * 0x3000U;
}

std::string GridDrawing()
{
    std::string text = "<svg xmlns='http://www.w3.org/2000/svg' width='1300' height='700' viewBox='0 0 13 5' "
                       "preserveAspectRatio='none'>";
    for (int row = 0; row <= kSuits; ++row) {
        for (int column = 0; column < kRanks; ++column) {
            const bool isBack = row == kBackSuit;
            text += "<rect x='" + std::to_string(column) + "' y='" + std::to_string(row) +
                    "' width='1' height='1' fill='" + HexColour(row, isBack && column == 2 ? 0 : column) + "'/>";
        }
    }
    return text + "</svg>\n";
}

std::string ElementsDrawing()
{
    std::string text = "<?xml version='1.0'?>\n<svg xmlns='http://www.w3.org/2000/svg' width='910' height='500'>";
    for (int suit = 0; suit < kSuits; ++suit) {
        for (int rank = 0; rank < kRanks; ++rank) {
            text += Element(klondike::ElementName(suit, rank), suit, rank);
        }
    }
    return text + Element("back", kBackSuit, 0) + "</svg>\n";
}

void Write(const std::filesystem::path& file, const std::string& text)
{
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
}

void WritePacked(const std::filesystem::path& file, const std::string& text)
{
    std::filesystem::create_directories(file.parent_path());
    gzFile packed = gzopen(file.c_str(), "wb");
    gzwrite(packed, text.data(), static_cast<unsigned>(text.size()));
    gzclose(packed);
}

std::string ReadAll(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void WriteSheet(const std::filesystem::path& file, int columns, int rows, int cellWidth, int cellHeight)
{
    WritePicture(file, columns * cellWidth, rows * cellHeight, [&](int x, int y) {
        const int cell = y / cellHeight * columns + x / cellWidth;
        return cell == 54 ? ColourOf(kBackSuit, 0) : ColourOf(cell / kRanks % kSuits, cell % kRanks);
    });
}

void WriteBack(const std::filesystem::path& file, int width, int height)
{
    WritePicture(file, width, height, [](int, int) { return ColourOf(kBackSuit, 0); });
}

void WriteStripes(const std::filesystem::path& file, int cellWidth, int cellHeight)
{
    WritePicture(file, 13 * cellWidth, 5 * cellHeight,
                 [&](int x, int) { return x % cellWidth % 2 == 0 ? 0xFF000000U : 0xFFFFFFFFU; });
}

klondike::Deck DeckOf(klondike::Deck::Kind kind, const std::filesystem::path& faces)
{
    klondike::Deck deck;
    deck.name = "a deck";
    deck.kind = kind;
    deck.faces = faces.string();
    return deck;
}
