// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/rules/table.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace klondike
{

enum class Scoring : std::uint8_t { None, Standard, Vegas };

struct Options {
    bool drawThree = false;
    std::optional<std::uint32_t> redeals; ///< how often the waste may be turned back; empty: without limit
    Scoring scoring = Scoring::Standard;

    bool operator==(const Options&) const = default;
};

/// A move a player can make. The piles and the count matter to Cards alone.
struct Move {
    enum class Kind : std::uint8_t { Cards, Draw, Recycle };
    Kind kind = Kind::Cards;
    std::size_t from = kStock;
    std::size_t to = kStock;
    std::size_t count = 1;

    bool operator==(const Move&) const = default;
};

/// No game needs as many moves; the limit keeps a game and its file small.
inline constexpr std::size_t kMostMoves = 100000;

/// Something that happened on the table, in order. Moved: the top count cards of a pile went to another; reversed when
/// the topmost arrived first, as from the stock. TurnedOver: the top card of `from` turned its face up.
struct Event {
    enum class Kind : std::uint8_t { Moved, TurnedOver };
    Kind kind = Kind::Moved;
    std::size_t from = kStock;
    std::size_t to = kStock;
    std::size_t count = 1;
    bool reversed = false;
};

/// A game of one deal: what may be played, what was played, and the score.
class Game
{
public:
    Game(std::uint64_t dealNumber, Options options);

    const Piles& Table() const { return m_piles; }
    std::uint64_t DealNumber() const { return m_dealNumber; }
    const Options& GameOptions() const { return m_options; }
    std::uint32_t RedealsUsed() const { return m_redealsUsed; }

    /// The moves that led here, oldest first. Of a draw and a recycling they tell the piles and the count, too.
    const std::vector<Move>& Played() const { return m_played; }
    /// The moves taken back; the one that is redone next comes last.
    const std::vector<Move>& Undone() const { return m_undone; }

    /// Any values may be asked about: a pile or a count out of range is not legal. Nothing is after kMostMoves moves.
    bool IsLegal(const Move& move) const;
    /// Plays a move, and forgets what could be redone. An illegal move changes nothing and gives an empty list; a legal
    /// one always gives at least one event.
    std::vector<Event> Apply(Move move);
    /// Takes a move back, its points too. False when there is none. Time is not taken back.
    bool Undo();
    bool Redo();
    /// Lays the same deal out again and sets the time to 0; nothing can be undone or redone after it.
    void Restart();

    /// Counts played time; nothing after the game is won.
    void AddSeconds(std::uint32_t seconds);
    std::uint32_t Seconds() const { return m_seconds; }
    /// Standard: at least 0, less 2 points each 10 seconds, and 700000 / seconds more for a game won in 30 seconds or
    /// longer. Vegas: dollars, from -52.
    std::int64_t Score() const;
    bool IsWon() const;

private:
    /// What a move doesn't tell about the table before it.
    struct Before {
        std::int64_t points = 0;
        bool turnedOver = false; ///< the move turned a card over
    };

    void LayOut();
    std::vector<Event> Play(Move move);
    std::vector<Event> TurnPile(const Move& move);
    std::vector<Event> MoveCards(const Move& move);
    void AddPoints(std::int64_t points);
    void ScoreCards(const Move& move);
    void ScoreRecycle();

    std::uint64_t m_dealNumber;
    Options m_options;
    Piles m_piles;
    std::int64_t m_points = 0; ///< without time
    std::uint32_t m_redealsUsed = 0;
    std::uint32_t m_seconds = 0;
    std::vector<Move> m_played;
    std::vector<Before> m_before; ///< one for each move played
    std::vector<Move> m_undone;
};

} // namespace klondike
