// SPDX-License-Identifier: MIT
#include "examples/klondike/text/command.h"

#include "examples/klondike/rules/advice.h"
#include "examples/klondike/rules/value_text.h"
#include "examples/klondike/text/describe.h"

#include <algorithm>
#include <vector>

namespace klondike
{

namespace
{

using Words = std::vector<std::string>;
using Result = std::variant<Command, std::string>;

/// More words than any command has.
constexpr std::size_t kMostWords = 8;
constexpr std::size_t kMostQuoted = 20;

struct Form {
    const char* name;
    Command::Kind kind;
    const char* usage;
    const char* meaning;
};

constexpr Form kForms[] = {
    {"move", Command::Kind::Move, "move FROM TO [COUNT]",
     "move cards: move t3 t5 4, move waste f (t1 to t7: columns, f1 to f4: foundations, f: the one that fits)"},
    {"draw", Command::Kind::Draw, "draw", "turn cards of the stock, or the waste back when the stock is empty"},
    {"home", Command::Kind::Home, "home PILE", "send the top card of the waste or a column to a foundation"},
    {"auto", Command::Kind::Auto, "auto", "send all cards home, once all of them lie open"},
    {"undo", Command::Kind::Undo, "undo", "take a move back"},
    {"redo", Command::Kind::Redo, "redo", "play the move taken back again"},
    {"hint", Command::Kind::Hint, "hint", "show a move worth making"},
    {"new", Command::Kind::New, "new [NUMBER]", "deal anew, the deal with a number if it is given"},
    {"restart", Command::Kind::Restart, "restart", "lay out the same deal again"},
    {"describe", Command::Kind::Describe, "describe", "show the table"},
    {"help", Command::Kind::Help, "help", "show this list"},
    {"quit", Command::Kind::Quit, "quit", "leave the game"},
};

/// Small letters, in words; nothing depends on the language the computer is set to.
Words Split(std::string_view line)
{
    Words words;
    bool inWord = false;
    for (const char c : line) {
        const bool isSpace = c == ' ' || c == '\t' || c == '\r' || c == '\n';
        if (!isSpace && !inWord) {
            if (words.size() == kMostWords) {
                break;
            }
            words.emplace_back();
        }
        if (!isSpace) {
            words.back() += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        }
        inWord = !isSpace;
    }
    return words;
}

/// Safe to be sent to a terminal.
std::string Quoted(std::string_view word)
{
    std::string text(word.substr(0, kMostQuoted));
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
    return "'" + text + (word.size() > kMostQuoted ? "...'" : "'");
}

std::optional<std::size_t> PileNamed(std::string_view name)
{
    for (std::size_t pile = 0; pile < kNumPiles; ++pile) {
        if (PileName(pile) == name) {
            return pile;
        }
    }
    return std::nullopt;
}

std::string NoPile(std::string_view word)
{
    return "there is no pile " + Quoted(word) + "; the piles are waste, f1 to f4 and t1 to t7";
}

Result ReadMove(const Words& words)
{
    Command command{Command::Kind::Move};
    const std::optional<std::size_t> from = PileNamed(words[1]);
    if (!from) {
        return NoPile(words[1]);
    }
    command.from = *from;
    if (words[2] != "f") {
        command.to = PileNamed(words[2]);
        if (!command.to) {
            return NoPile(words[2]);
        }
    }
    if (words.size() == 4) {
        command.count = NumberFromText<std::size_t>(words[3]);
        if (!command.count || *command.count == 0) {
            return Quoted(words[3]) + " is not a number of cards";
        }
    }
    return command;
}

Result ReadHome(const Words& words)
{
    const std::optional<std::size_t> from = PileNamed(words[1]);
    return from ? Result(Command{Command::Kind::Home, *from}) : NoPile(words[1]);
}

Result ReadNew(const Words& words)
{
    Command command{Command::Kind::New};
    if (words.size() == 2) {
        command.deal = NumberFromText<std::uint64_t>(words[1]);
        if (!command.deal) {
            return Quoted(words[1]) + " is not the number of a deal, 0 to 18446744073709551615";
        }
    }
    return command;
}

bool HasWords(const Words& words, std::size_t least, std::size_t most)
{
    return words.size() >= least && words.size() <= most;
}

Result Read(const Form& form, const Words& words)
{
    switch (form.kind) {
    case Command::Kind::Move:
        if (HasWords(words, 3, 4)) {
            return ReadMove(words);
        }
        break;
    case Command::Kind::Home:
        if (HasWords(words, 2, 2)) {
            return ReadHome(words);
        }
        break;
    case Command::Kind::New:
        if (HasWords(words, 1, 2)) {
            return ReadNew(words);
        }
        break;
    default:
        if (HasWords(words, 1, 1)) {
            return Command{form.kind};
        }
        break;
    }
    return std::string("this is not how it goes: ") + form.usage;
}

/// Longest runs first. A card fits one foundation, or, as an ace, each empty one alike.
std::optional<Move> ToCards(const Game& game, const Command& command)
{
    if (!command.to) {
        return command.count.value_or(1) == 1 ? SendHome(game, command.from) : std::nullopt;
    }
    constexpr std::size_t kLongestRun = 13;
    for (std::size_t count = command.count.value_or(kLongestRun); count >= command.count.value_or(1); --count) {
        const Move move{Move::Kind::Cards, command.from, *command.to, count};
        if (game.IsLegal(move)) {
            return move;
        }
    }
    return std::nullopt;
}

} // namespace

std::variant<Command, std::string> ParseCommand(std::string_view line)
{
    const Words words = Split(line);
    if (words.empty()) {
        return std::string("type a command, or help");
    }
    for (const Form& form : kForms) {
        if (words[0] == form.name) {
            return Read(form, words);
        }
    }
    return "there is no command " + Quoted(words[0]) + "; help lists them";
}

std::optional<Move> ToMove(const Game& game, const Command& command)
{
    if (command.kind == Command::Kind::Move) {
        return ToCards(game, command);
    }
    if (command.kind == Command::Kind::Home) {
        return SendHome(game, command.from);
    }
    if (command.kind == Command::Kind::Draw) {
        const Move move{game.Table()[kStock].empty() ? Move::Kind::Recycle : Move::Kind::Draw};
        return game.IsLegal(move) ? std::optional(move) : std::nullopt;
    }
    return std::nullopt;
}

std::string CommandText(const Move& move)
{
    if (move.kind != Move::Kind::Cards) {
        return "draw";
    }
    const std::string text = "move " + PileName(move.from) + " " + PileName(move.to);
    return move.count == 1 ? text : text + " " + std::to_string(move.count);
}

std::string CommandHelp()
{
    std::string text;
    for (const Form& form : kForms) {
        const std::string usage = form.usage;
        constexpr std::size_t kColumn = 22;
        text += usage + std::string(kColumn - usage.size(), ' ') + form.meaning + "\n";
    }
    return text;
}

} // namespace klondike
