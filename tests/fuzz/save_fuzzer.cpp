// SPDX-License-Identifier: MIT
// Loading of saved games: any bytes give a game that the rules allow or one line for the player; every game that can be
// played comes back from its text, and does not when a byte of it is changed.
#include "examples/klondike/rules/save.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/input.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>

namespace
{

using namespace klondike;

Tally games("games loaded");
Tally moves("moves in them");
Tally refusals("texts refused");

std::optional<Game> Load(const std::string& text)
{
    try {
        return FromText(text);
    } catch (const std::runtime_error& error) {
        const std::string message = error.what();
        FUZZ_CHECK(!message.empty() && message.size() < 200);
        for (const char c : message) {
            FUZZ_CHECK(c >= ' ' && c <= '~');
        }
        ++refusals;
        return std::nullopt;
    }
}

/// A game of the deal, the options and the moves that the bytes stand for, as far as they are legal.
Game Play(Input& input)
{
    Options options{input.OneIn(2), input.OneIn(2) ? std::nullopt : std::optional(input.Word()),
                    static_cast<Scoring>(input.Below(3))};
    Game game(input.Word(), options);
    while (!input.IsEmpty()) {
        switch (input.Below(8)) {
        case 0:
            game.Undo();
            break;
        case 1:
            game.Redo();
            break;
        case 2:
            game.AddSeconds(input.OneIn(8) ? input.Word() : input.Byte());
            break;
        case 3:
            game.Apply({Move::Kind::Recycle});
            break;
        case 4:
        case 5:
            game.Apply({Move::Kind::Draw});
            break;
        default: {
            const std::size_t from = input.Below(kNumPiles);
            const std::size_t count = input.Below(4);
            for (std::size_t to = 0; to < kNumPiles; ++to) {
                if (!game.Apply({Move::Kind::Cards, from, to, count}).empty()) {
                    break;
                }
            }
            break;
        }
        }
    }
    return game;
}

/// Takes every move back, and plays it again.
void GoThrough(Game game)
{
    const std::string text = ToText(game);
    const std::size_t played = game.Played().size();
    const std::size_t undone = game.Undone().size();
    while (game.Undo()) {
    }
    const Game fresh(game.DealNumber(), game.GameOptions());
    FUZZ_CHECK(game.Table() == fresh.Table() && game.RedealsUsed() == 0);
    FUZZ_CHECK(game.Undone().size() == played + undone);
    for (std::size_t i = 0; i < played; ++i) {
        FUZZ_CHECK(game.Redo());
    }
    FUZZ_CHECK(ToText(game) == text);
    moves += played + undone;
    ++games;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(data, data + size);
    // Bytes hardly ever match their checksum, so they are also tried with the one they need.
    for (const std::string& text : {bytes, WithChecksum(bytes)}) {
        if (const std::optional<Game> game = Load(text)) {
            FUZZ_CHECK(ToText(*game) == text);
            GoThrough(*game);
        }
    }
    Input input(data, size);
    const Game game = Play(input);
    std::string text = ToText(game);
    const std::optional<Game> loaded = Load(text);
    FUZZ_CHECK(loaded && loaded->Table() == game.Table() && loaded->Score() == game.Score());
    GoThrough(*loaded);
    char& damaged = text[input.Below(text.size())];
    damaged = static_cast<char>(damaged ^ input.Between(1, 255));
    FUZZ_CHECK(!Load(text));
    return 0;
}
