// SPDX-License-Identifier: MIT
#include "tests/examples/klondike/play_support.h"

#include "examples/klondike/rules/advice.h"

#include <stdexcept>

namespace klondike
{

std::vector<Move> LegalMoves(const Game& game)
{
    std::vector<Move> moves;
    for (const Move& move : {Move{Move::Kind::Draw}, Move{Move::Kind::Recycle}}) {
        if (game.IsLegal(move)) {
            moves.push_back(move);
        }
    }
    for (std::size_t from = 0; from <= kNumPiles; ++from) {
        for (std::size_t to = 0; to <= kNumPiles; ++to) {
            for (std::size_t count = 0; count <= 14; ++count) {
                const Move move{Move::Kind::Cards, from, to, count};
                if (game.IsLegal(move)) {
                    moves.push_back(move);
                }
            }
        }
    }
    return moves;
}

Game RandomGame(std::uint64_t deal, const Options& options, int moves, std::mt19937& random)
{
    Game game(deal, options);
    for (int i = 0; i < moves; ++i) {
        const std::vector<Move> legal = LegalMoves(game);
        if (legal.empty()) {
            break;
        }
        game.Apply(legal[random() % legal.size()]);
    }
    return game;
}

Game HintedGame(std::uint64_t deal, const Options& options, std::size_t moves)
{
    Game game(deal, options);
    while (game.Played().size() < moves) {
        const std::vector<Move> hints = Hints(game);
        if (hints.empty()) {
            break;
        }
        game.Apply(hints.front());
    }
    return game;
}

Game WonGame(const Options& options)
{
    for (std::uint64_t deal = 0; deal < 100; ++deal) {
        Game game = HintedGame(deal, options, 1000);
        if (game.IsWon()) {
            return game;
        }
    }
    throw std::runtime_error("the hints win none of a hundred deals");
}

} // namespace klondike
