// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/save.h"

#include "examples/klondike/rules/value_text.h"

#include <algorithm>
#include <stdexcept>

namespace klondike
{

namespace
{

constexpr std::string_view kName = "klondike";
constexpr std::string_view kVersion = "1";
constexpr std::size_t kMovesPerLine = 16;

/// A pile in one letter: stock, waste, foundations a to d, columns 1 to 7.
constexpr std::string_view kPiles = "swabcd1234567";

/// Two letters, and the count of more cards than one; a letter for what needs no piles.
std::string MoveToText(const Move& move)
{
    switch (move.kind) {
    case Move::Kind::Draw:
        return "d";
    case Move::Kind::Recycle:
        return "r";
    case Move::Kind::Cards:
        break;
    }
    const std::string piles{kPiles[move.from], kPiles[move.to]};
    return move.count == 1 ? piles : piles + std::to_string(move.count);
}

template <typename Moves> void AddMoves(std::string& text, const char* name, Moves first, Moves end)
{
    text += std::string(name) + " " + std::to_string(end - first);
    for (std::size_t i = 0; first != end; ++first, ++i) {
        text += (i % kMovesPerLine == 0 ? "\n" : " ") + MoveToText(*first);
    }
    text += "\n";
}

[[noreturn]] void Reject(const std::string& why)
{
    throw std::runtime_error("the saved game " + why);
}

template <typename Number> Number ReadNumber(std::string_view word)
{
    const auto number = NumberFromText<Number>(word);
    if (!number) {
        Reject("holds something that should be a number");
    }
    return *number;
}

/// Takes the words of a text one after the other.
class Words
{
public:
    explicit Words(std::string_view text) : m_rest(text) {}

    std::string_view Next()
    {
        const std::size_t size = std::min(m_rest.find_first_of(" \n"), m_rest.size());
        const std::string_view word = m_rest.substr(0, size);
        m_rest.remove_prefix(std::min(size + 1, m_rest.size()));
        return word;
    }

    /// The word after a name.
    std::string_view Value(std::string_view name)
    {
        if (Next() != name) {
            Reject("has no " + std::string(name) + " where it should be");
        }
        return Next();
    }

private:
    std::string_view m_rest;
};

Options ReadOptions(Words& words)
{
    Options options;
    options.drawThree = words.Value("draw") == "3";
    if (!ReadRedeals(words.Value("redeals"), options.redeals)) {
        Reject("holds an unknown number of redeals");
    }
    if (!ReadScoring(words.Value("scoring"), options.scoring)) {
        Reject("counts points in an unknown way");
    }
    return options;
}

Move ReadMove(std::string_view word)
{
    if (word == "d" || word == "r") {
        return {word == "d" ? Move::Kind::Draw : Move::Kind::Recycle};
    }
    if (word.size() < 2) {
        Reject("holds a move that cannot be read");
    }
    // An unknown letter gives a pile out of range, which no legal move has.
    return {Move::Kind::Cards, kPiles.find(word[0]), kPiles.find(word[1]),
            word.size() == 2 ? 1 : ReadNumber<std::size_t>(word.substr(2))};
}

/// Plays a list of moves; returns how many.
std::size_t Replay(Words& words, std::string_view name, Game& game)
{
    const auto count = ReadNumber<std::size_t>(words.Value(name));
    for (std::size_t i = 0; i < count; ++i) {
        if (game.Apply(ReadMove(words.Next())).empty()) {
            Reject("holds a move against the rules");
        }
    }
    return count;
}

} // namespace

std::string ToText(const Game& game)
{
    const Options& options = game.GameOptions();
    std::string text(kName);
    text += " " + std::string(kVersion);
    text += "\ndeal " + std::to_string(game.DealNumber());
    text += std::string("\ndraw ") + (options.drawThree ? "3" : "1");
    text += "\nredeals " + RedealsText(options.redeals);
    text += "\nscoring " + ScoringText(options.scoring);
    text += "\nseconds " + std::to_string(game.Seconds()) + "\n";
    AddMoves(text, "played", game.Played().begin(), game.Played().end());
    AddMoves(text, "undone", game.Undone().rbegin(), game.Undone().rend());
    return WithChecksum(text);
}

std::string WithChecksum(std::string_view text)
{
    std::uint64_t sum = 0xCBF29CE484222325U; // FNV-1a
    for (const char c : text) {
        sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    }
    return std::string(text) + "checksum " + std::to_string(sum) + "\n";
}

Game FromText(std::string_view text)
{
    if (text.size() > kMostSaveSize) {
        Reject("is longer than any game");
    }
    Words words(text);
    if (words.Next() != kName || words.Next() != kVersion) {
        Reject("is not of a kind that this program knows");
    }
    const auto deal = ReadNumber<std::uint64_t>(words.Value("deal"));
    Game game(deal, ReadOptions(words));
    game.AddSeconds(ReadNumber<std::uint32_t>(words.Value("seconds"))); // before the moves: a game won takes no more
    Replay(words, "played", game);
    for (std::size_t undone = Replay(words, "undone", game); undone > 0; --undone) {
        game.Undo();
    }
    // One comparison for the checksum and for everything that the reading above lets pass.
    if (ToText(game) != text) {
        Reject("has been changed or cut short");
    }
    return game;
}

} // namespace klondike
