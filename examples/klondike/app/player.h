// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/app/cursor.h"
#include "examples/klondike/app/highlight.h"
#include "examples/klondike/app/table_view.h"
#include "examples/klondike/rules/game.h"
#include "kit/hand.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace klondike
{

/// Who hears of what happens in a game. Called in the middle of a player's call.
class GameListener
{
public:
    virtual ~GameListener() = default;
    virtual void GameChanged() = 0;
    /// A line for the player.
    virtual void Say(const std::string& text) = 0;
};

/// Plays a game at a table: turns what mouse, finger and keyboard do into moves, has the cards follow, and makes the
/// moves that go by themselves. A tap on cards selects them; a second one there plays them where they go best, one on
/// another pile plays them there.
class Player final : public cardkit::HandRules
{
public:
    /// All outlive the player.
    Player(Game& game, TableView& view, GameListener& listener);

    ///@{
    /// What the player asks for. Whatever was dragged or selected is let go first.
    void Draw();
    void Undo();
    void Redo();
    void Restart();
    void Begin(Game game);
    void SendHome(std::size_t pile);
    /// Sends all cards home, when nothing else is left to do.
    void Finish();
    /// Shows a move worth making; the next one each time.
    void ShowHint();
    ///@}
    /// The game was changed by other means: the table follows.
    void Follow();
    void SetAutoMove(bool on) { m_autoMove = on; }

    ///@{
    /// The pointer, screen pixels.
    void Press(cardkit::Pixel pixel, int clicks);
    void Move(cardkit::Pixel pixel) { m_hand.Move(pixel); }
    void Release(cardkit::Pixel pixel);
    void SendHomeAt(cardkit::Pixel pixel);
    bool IsPressed() const { return m_hand.IsPressed(); }
    ///@}
    /// Lets go whatever is dragged, selected or shown.
    void Cancel();
    ///@{
    /// The keyboard: its place shows from the first of these calls to the next press.
    void StepCursor(Cursor::Direction direction);
    void GoToPile(std::size_t pile);
    void ChooseAtCursor();
    void SendHomeAtCursor();
    void HideCursor();
    ///@}

    /// Before each frame of the table: moves that go by themselves. True when there may be more of them.
    bool Frame();
    /// After a change of places or sizes.
    void PlaceHighlights();

    ///@{
    /// For the hand.
    bool MayTake(const cardkit::Spot& spot) override;
    bool MayDrop(const cardkit::Spot& from, std::size_t pile) override;
    void Dropped(const cardkit::Spot& from, std::size_t pile) override;
    void Tapped(const std::optional<cardkit::Spot>& spot, int clicks) override;
    ///@}

private:
    klondike::Move MoveOf(const cardkit::Spot& from, std::size_t to) const;
    bool Play(const klondike::Move& move);
    void Changed();
    void DealOut();
    void LetGo();
    void Select(const std::optional<cardkit::Spot>& spot);
    void HideHint();
    std::optional<klondike::Move> NextByItself() const;

    Game& m_game;
    TableView& m_view;
    GameListener& m_listener;
    cardkit::Hand m_hand;

    Highlight m_hintFrom;
    Highlight m_hintTo;
    Highlight m_selectionFrame;
    Highlight m_cursorFrame;
    Cursor m_cursor;
    bool m_cursorShown = false;
    std::optional<cardkit::Spot> m_selection;
    std::vector<klondike::Move> m_hints; ///< of the game as it is, when they were asked for
    std::size_t m_nextHint = 0;

    bool m_autoMove = true;
    bool m_mayMoveByItself = false; ///< since the player's last move
    bool m_finishing = false;
    int m_framesSinceOwn = 0; ///< since the last move that went by itself
    bool m_isRow = false;     ///< that move was not the first
};

} // namespace klondike
