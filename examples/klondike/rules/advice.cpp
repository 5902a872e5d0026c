// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/advice.h"

#include "examples/klondike/rules/progress.h"

#include <algorithm>
#include <tuple>

namespace klondike
{

namespace
{

bool IsFromHand(std::size_t pile)
{
    return pile == kWaste || IsTableau(pile);
}

std::size_t NumFaceDown(const std::vector<Card>& pile)
{
    return static_cast<std::size_t>(
        std::count_if(pile.begin(), pile.end(), [](const Card& card) { return !card.faceUp; }));
}

/// No card of the other colour that could still be played needs this one to lie on.
bool IsSafeAtHome(const Card& card, const Piles& piles)
{
    if (card.rank <= 2) {
        return true;
    }
    const auto reached = std::count_if(
        piles.begin() + kFirstFoundation, piles.begin() + kFirstTableau, [&card](const std::vector<Card>& pile) {
            return !pile.empty() && pile.back().IsRed() != card.IsRed() && pile.back().rank + 1 >= card.rank;
        });
    return reached == 2;
}

/// Greater is better: safe moves home, then what turns a card over, where most lie hidden first, then other moves home.
std::tuple<bool, std::size_t, bool> Worth(const Piles& piles, const Move& move)
{
    const std::vector<Card>& from = piles[move.from];
    const std::size_t hidden = NumFaceDown(from);
    const bool goesHome = IsFoundation(move.to);
    return {goesHome && IsSafeAtHome(from.back(), piles), from.size() == hidden + move.count ? hidden : 0, goesHome};
}

std::optional<Move> FirstLegal(const Game& game, std::size_t from, std::size_t firstTo, std::size_t endTo,
                               std::size_t count)
{
    for (std::size_t to = firstTo; to < endTo; ++to) {
        const Move move{Move::Kind::Cards, from, to, count};
        if (game.IsLegal(move)) {
            return move;
        }
    }
    return std::nullopt;
}

} // namespace

std::vector<Move> Hints(const Game& game)
{
    if (game.IsWon()) {
        return {};
    }
    const Piles& piles = game.Table();
    std::vector<Move> hints = ProgressMoves(game);
    std::stable_sort(hints.begin(), hints.end(),
                     [&piles](const Move& a, const Move& b) { return Worth(piles, a) > Worth(piles, b); });
    ProgressSearch search;
    for (const Reach reach : {Reach::Table, Reach::Stock, Reach::PullBacks}) {
        if (!hints.empty()) {
            break;
        }
        search = FindProgress(game, reach);
        if (search.first) {
            hints.push_back(*search.first);
        }
    }
    const Move turnStock{piles[kStock].empty() ? Move::Kind::Recycle : Move::Kind::Draw};
    if (search.outcome != ProgressSearch::Outcome::None && (hints.empty() || hints.back().kind == Move::Kind::Cards)) {
        hints.push_back(turnStock);
    }
    hints.erase(std::remove_if(hints.begin(), hints.end(), [&game](const Move& move) { return !game.IsLegal(move); }),
                hints.end());
    return hints;
}

std::optional<Move> SendHome(const Game& game, std::size_t pile)
{
    return IsFromHand(pile) ? FirstLegal(game, pile, kFirstFoundation, kFirstTableau, 1) : std::nullopt;
}

std::optional<Move> BestMove(const Game& game, std::size_t pile, std::size_t count)
{
    if (!IsFromHand(pile)) {
        return std::nullopt;
    }
    if (count == 1) {
        if (const std::optional<Move> home = SendHome(game, pile)) {
            return home;
        }
    }
    // A king alone fits an empty column, and nothing else; so the first column that fits is as good as any.
    const bool isWholeColumn = IsTableau(pile) && count == game.Table()[pile].size();
    const std::optional<Move> move = FirstLegal(game, pile, kFirstTableau, kNumPiles, count);
    return move && isWholeColumn && game.Table()[move->to].empty() ? std::nullopt : move;
}

std::optional<Move> SafeAutoMove(const Game& game)
{
    for (std::size_t pile = kWaste; pile < kNumPiles; ++pile) {
        const std::optional<Move> home = SendHome(game, pile);
        if (home && IsSafeAtHome(game.Table()[pile].back(), game.Table())) {
            return home;
        }
    }
    return std::nullopt;
}

bool CanFinish(const Game& game)
{
    const Piles& piles = game.Table();
    return piles[kStock].empty() && piles[kWaste].empty() && !game.IsWon() &&
           std::all_of(piles.begin() + kFirstTableau, piles.end(),
                       [](const std::vector<Card>& pile) { return NumFaceDown(pile) == 0; });
}

std::optional<Move> FinishMove(const Game& game)
{
    if (!CanFinish(game)) {
        return std::nullopt;
    }
    std::optional<Move> finish;
    for (std::size_t pile = kFirstTableau; pile < kNumPiles; ++pile) {
        const std::optional<Move> home = SendHome(game, pile);
        if (home && (!finish || game.Table()[pile].back().rank < game.Table()[finish->from].back().rank)) {
            finish = home;
        }
    }
    return finish;
}

bool IsStuck(const Game& game)
{
    return !game.IsWon() && FindProgress(game, Reach::PullBacks).outcome == ProgressSearch::Outcome::None;
}

} // namespace klondike
