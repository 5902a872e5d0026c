// SPDX-License-Identifier: MIT
#include "examples/deal/options.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <system_error>

namespace deal
{

namespace
{

/// The cells of the sheet in the assets folder, pixels.
constexpr int kOwnCellWidth = 240;
constexpr int kOwnCellHeight = 336;

constexpr int kMostCards = 100; // rows or columns of a sheet
constexpr int kMostCellSide = 4096;
constexpr int kLeastWidth = 320;
constexpr int kLeastHeight = 240;
constexpr int kMostWidth = 7680;
constexpr int kMostHeight = 4320;
constexpr double kLeastSpeed = 0.1;
constexpr double kMostSpeed = 10.0;

std::string Text(double number)
{
    return number == std::floor(number) ? std::to_string(static_cast<long>(number))
                                        : std::to_string(number).substr(0, 3);
}

[[noreturn]] void Reject(const std::string& option, const std::string& value, const std::string& wanted)
{
    throw UsageError(option + ": '" + value + "' is not " + wanted);
}

/// True when the whole text is one decimal number that the type can hold.
template <typename Number> bool ReadWhole(const std::string& text, Number& number)
{
    const char* const end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end;
}

int ReadInt(const std::string& option, const std::string& value, int least, int most)
{
    int number = 0;
    if (!ReadWhole(value, number) || number < least || number > most) {
        Reject(option, value, "a whole number from " + std::to_string(least) + " to " + std::to_string(most));
    }
    return number;
}

std::uint64_t ReadSeed(const std::string& option, const std::string& value)
{
    std::uint64_t seed = 0;
    if (!ReadWhole(value, seed)) {
        Reject(option, value, "a whole number from 0 to 18446744073709551615");
    }
    return seed;
}

double ReadSpeed(const std::string& option, const std::string& value)
{
    // Digits and a point only: no hexadecimal, no infinity, no white space.
    const bool plain = !value.empty() && value.find_first_not_of("0123456789.") == std::string::npos;
    char* end = nullptr;
    const double speed = plain ? std::strtod(value.c_str(), &end) : 0.0;
    if (!plain || *end != '\0' || !(speed >= kLeastSpeed && speed <= kMostSpeed)) {
        Reject(option, value, "a number from " + Text(kLeastSpeed) + " to " + Text(kMostSpeed));
    }
    return speed;
}

struct Size {
    int width;
    int height;
};

Size ReadSize(const std::string& option, const std::string& value, const Size& least, const Size& most)
{
    const std::size_t cross = value.find('x');
    Size size{};
    if (cross == std::string::npos || !ReadWhole(value.substr(0, cross), size.width) ||
        !ReadWhole(value.substr(cross + 1), size.height) || size.width < least.width || size.height < least.height ||
        size.width > most.width || size.height > most.height) {
        const auto text = [](const Size& s) { return std::to_string(s.width) + "x" + std::to_string(s.height); };
        Reject(option, value, "a size WIDTHxHEIGHT from " + text(least) + " to " + text(most));
    }
    return size;
}

std::string ReadPath(const std::string& option, const std::string& value)
{
    if (value.empty()) {
        throw UsageError(option + ": the name is empty");
    }
    return value;
}

void CheckGrid(const DeckFiles& deck)
{
    const int cards = (deck.rows - 1) * deck.columns + deck.lastRow;
    if (deck.lastRow > deck.columns) {
        throw UsageError("--last-row: " + std::to_string(deck.lastRow) + " cards do not fit into a row of " +
                         std::to_string(deck.columns));
    }
    if (cards < DeckFiles::kCards) {
        throw UsageError("the sheet's grid holds " + std::to_string(cards) + " cards, a deck needs " +
                         std::to_string(DeckFiles::kCards));
    }
}

class Parser
{
public:
    explicit Parser(const std::vector<std::string>& arguments) : m_arguments(arguments) {}

    bool Next(std::string& option)
    {
        if (m_next == m_arguments.size()) {
            return false;
        }
        option = m_arguments[m_next++];
        return true;
    }

    const std::string& Value(const std::string& option)
    {
        if (m_next == m_arguments.size()) {
            throw UsageError(option + ": a value is missing");
        }
        return m_arguments[m_next++];
    }

private:
    const std::vector<std::string>& m_arguments;
    std::size_t m_next = 0;
};

} // namespace

Options ParseOptions(const std::vector<std::string>& arguments, const std::string& assetsFolder)
{
    Options options;
    DeckFiles& deck = options.deck;
    deck.sheet = assetsFolder + "/deck.png";
    deck.back = assetsFolder + "/back.png";
    bool ownSheet = true;
    Parser parser(arguments);
    for (std::string option; parser.Next(option);) {
        if (option == "--help" || option == "-h") {
            options.help = true;
            return options;
        }
        if (option == "--deck") {
            deck.sheet = ReadPath(option, parser.Value(option));
            ownSheet = false;
        } else if (option == "--back") {
            deck.back = ReadPath(option, parser.Value(option));
        } else if (option == "--rows") {
            deck.rows = ReadInt(option, parser.Value(option), 1, kMostCards);
        } else if (option == "--columns") {
            deck.columns = ReadInt(option, parser.Value(option), 1, kMostCards);
        } else if (option == "--last-row") {
            deck.lastRow = ReadInt(option, parser.Value(option), 1, kMostCards);
        } else if (option == "--card") {
            const Size cell = ReadSize(option, parser.Value(option), {8, 8}, {kMostCellSide, kMostCellSide});
            deck.cellWidth = cell.width;
            deck.cellHeight = cell.height;
        } else if (option == "--size") {
            const Size size =
                ReadSize(option, parser.Value(option), {kLeastWidth, kLeastHeight}, {kMostWidth, kMostHeight});
            options.width = size.width;
            options.height = size.height;
        } else if (option == "--seed") {
            options.seed = ReadSeed(option, parser.Value(option));
        } else if (option == "--speed") {
            options.speed = ReadSpeed(option, parser.Value(option));
        } else if (option == "--out") {
            options.outputFolder = ReadPath(option, parser.Value(option));
        } else {
            throw UsageError("unknown option '" + option + "'");
        }
    }
    if (ownSheet && deck.cellWidth == 0) {
        deck.cellWidth = kOwnCellWidth;
        deck.cellHeight = kOwnCellHeight;
    }
    CheckGrid(deck);
    return options;
}

std::string HelpText()
{
    return "deal [OPTION]...\n"
           "Deals a patience onto a table without a window and writes what is to be seen:\n"
           "deal.webp (the film), film.png (moments of it) and table.png (the end).\n"
           "\n"
           "  --deck SHEET    the card faces in a grid: four suits from ace to king\n"
           "  --rows R        rows of the grid (5)\n"
           "  --columns C     columns of the grid (13)\n"
           "  --last-row L    cards in the last row (2)\n"
           "  --card WxH      size of a card in the sheet, pixels (240x336; of another sheet: its share)\n"
           "  --back FILE     the card back\n"
           "  --size WxH      size of the screen, pixels (1280x720)\n"
           "  --seed N        number of the deal (1)\n"
           "  --speed X       speed of the flights, " +
           Text(kLeastSpeed) + " to " + Text(kMostSpeed) +
           " (1)\n"
           "  --out DIR       folder to write to, made if it is missing (out)\n"
           "  --help          this text\n";
}

} // namespace deal
