// SPDX-License-Identifier: MIT
#include "examples/klondike/app/player.h"

#include "examples/klondike/rules/advice.h"

#include <algorithm>
#include <utility>

namespace klondike
{

namespace
{

constexpr Rgba kCursorColour{50, 130, 255, 255};
constexpr Rgba kSelectionColour{255, 205, 92, 255};
constexpr Rgba kHintFromColour{196, 130, 255, 255};
constexpr Rgba kHintToColour{150, 255, 150, 255};

/// Frames between two moves of a row that goes by itself.
constexpr int kFramesInRow = 7;

using MoveKind = klondike::Move::Kind;

} // namespace

Player::Player(Game& game, TableView& view, GameListener& listener)
    : m_game(game), m_view(view), m_listener(listener), m_hand(view.Cards(), *this),
      m_hintFrom(view.Cards().Dialog(), kHintFromColour), m_hintTo(view.Cards().Dialog(), kHintToColour),
      m_selectionFrame(view.Cards().Dialog(), kSelectionColour), m_cursorFrame(view.Cards().Dialog(), kCursorColour)
{
}

klondike::Move Player::MoveOf(const cardkit::Spot& from, std::size_t to) const
{
    klondike::Move move{MoveKind::Cards, from.pile, to, 0};
    const std::size_t cards = from.pile < kNumPiles ? m_game.Table()[from.pile].size() : 0;
    const auto position = static_cast<std::size_t>(std::max(from.position, 0L));
    move.count = position >= 1 && position <= cards ? cards - position + 1 : 0;
    return move;
}

bool Player::MayTake(const cardkit::Spot& spot)
{
    const std::vector<Card>& pile = m_game.Table()[spot.pile];
    const std::size_t count = MoveOf(spot, spot.pile).count;
    if (count == 0 || spot.pile == kStock || !pile[pile.size() - count].faceUp) {
        return false;
    }
    return count == 1 || IsTableau(spot.pile);
}

bool Player::MayDrop(const cardkit::Spot& from, std::size_t pile)
{
    return m_game.IsLegal(MoveOf(from, pile));
}

void Player::Dropped(const cardkit::Spot& from, std::size_t pile)
{
    const klondike::Move move = MoveOf(from, pile);
    m_view.Drop(from.pile, from.position, pile);
    Play(move);
}

void Player::Tapped(const std::optional<cardkit::Spot>& spot, int /*clicks*/)
{
    const std::optional<cardkit::Spot> selected = std::exchange(m_selection, std::nullopt);
    Select(std::nullopt);
    if (!spot) {
        return;
    }
    if (spot->pile == kStock) {
        Draw();
        return;
    }
    if (selected && selected->pile != spot->pile && Play(MoveOf(*selected, spot->pile))) {
        return;
    }
    if (selected == spot) {
        if (const auto best = BestMove(m_game, spot->pile, MoveOf(*spot, spot->pile).count)) {
            Play(*best);
        }
        return;
    }
    if (MayTake(*spot)) {
        Select(spot);
    }
}

bool Player::Play(const klondike::Move& move)
{
    if (m_game.Apply(move).empty()) {
        return false;
    }
    m_mayMoveByItself = true;
    m_finishing = false;
    m_isRow = false;
    Changed();
    return true;
}

void Player::Changed()
{
    m_hints.clear();
    m_nextHint = 0;
    HideHint();
    Select(std::nullopt);
    m_view.Follow(m_game);
    PlaceHighlights();
    m_listener.GameChanged();
}

void Player::LetGo()
{
    m_hand.Cancel();
    Select(std::nullopt);
    m_finishing = false;
}

void Player::Draw()
{
    LetGo();
    const bool isEmpty = m_game.Table()[kStock].empty();
    if (!Play({isEmpty ? MoveKind::Recycle : MoveKind::Draw}) && !m_game.Table()[kWaste].empty()) {
        m_listener.Say("The waste may not be turned over again");
    }
}

void Player::Undo()
{
    LetGo();
    if (m_game.Undo()) {
        m_mayMoveByItself = false;
        Changed();
    }
}

void Player::Redo()
{
    LetGo();
    if (m_game.Redo()) {
        m_mayMoveByItself = false;
        Changed();
    }
}

void Player::Restart()
{
    LetGo();
    m_game.Restart();
    DealOut();
}

void Player::Begin(Game game)
{
    LetGo();
    m_game = std::move(game);
    DealOut();
}

void Player::DealOut()
{
    m_mayMoveByItself = false;
    m_view.DealOut(m_game);
    m_hints.clear();
    m_nextHint = 0;
    HideHint();
    PlaceHighlights();
    m_listener.GameChanged();
}

void Player::SendHome(std::size_t pile)
{
    LetGo();
    if (const auto move = klondike::SendHome(m_game, pile)) {
        Play(*move);
    }
}

void Player::Finish()
{
    LetGo();
    if (CanFinish(m_game)) {
        m_mayMoveByItself = true;
        m_finishing = true;
    }
}

void Player::ShowHint()
{
    LetGo();
    if (m_hints.empty()) {
        m_hints = Hints(m_game);
        m_nextHint = 0;
    }
    HideHint();
    if (m_hints.empty()) {
        m_listener.Say(m_game.IsWon() ? "The game is won" : "No move brings this game on");
        return;
    }
    m_view.Cards().StartWaiting();
    const klondike::Move hint = m_hints[m_nextHint++ % m_hints.size()];
    const int width = m_view.Places().card.width;
    if (hint.kind != MoveKind::Cards) {
        m_hintFrom.Show(m_view.Places().Place(kStock), width);
        return;
    }
    const std::vector<Card>& from = m_game.Table()[hint.from];
    const std::vector<Card>& to = m_game.Table()[hint.to];
    m_hintFrom.Show(m_view.AreaOf({hint.from, static_cast<long>(from.size() - hint.count + 1)}), width);
    m_hintTo.Show(m_view.AreaOf({hint.to, static_cast<long>(to.size())}), width);
}

void Player::HideHint()
{
    m_hintFrom.Hide();
    m_hintTo.Hide();
}

void Player::Follow()
{
    LetGo();
    m_mayMoveByItself = false;
    Changed();
}

void Player::Press(cardkit::Pixel pixel, int clicks)
{
    HideHint();
    HideCursor();
    m_hand.Press(pixel, clicks);
}

void Player::Release(cardkit::Pixel pixel)
{
    m_hand.Release(pixel);
}

void Player::SendHomeAt(cardkit::Pixel pixel)
{
    LetGo();
    HideHint();
    m_view.Cards().StartWaiting();
    if (const auto spot = m_view.Cards().SpotAt(pixel)) {
        SendHome(spot->pile);
    }
}

void Player::Cancel()
{
    LetGo();
    HideHint();
}

void Player::StepCursor(Cursor::Direction direction)
{
    HideHint();
    if (std::exchange(m_cursorShown, true)) { // the first key only shows where it stands
        m_cursor.Step(direction, m_game.Table(), m_view.Places());
    }
    PlaceHighlights();
}

void Player::GoToPile(std::size_t pile)
{
    HideHint();
    m_cursorShown = true;
    m_cursor.GoTo(pile);
    PlaceHighlights();
}

void Player::ChooseAtCursor()
{
    HideHint();
    m_hand.Cancel();
    if (std::exchange(m_cursorShown, true)) {
        Tapped(m_cursor.Place(m_game.Table()), 1);
    }
    PlaceHighlights();
}

void Player::SendHomeAtCursor()
{
    if (std::exchange(m_cursorShown, true)) {
        SendHome(m_cursor.Pile());
    }
    PlaceHighlights();
}

void Player::HideCursor()
{
    m_cursorShown = false;
    PlaceHighlights();
}

void Player::Select(const std::optional<cardkit::Spot>& spot)
{
    m_selection = spot;
    PlaceHighlights();
}

void Player::PlaceHighlights()
{
    const int width = m_view.Places().card.width;
    if (m_selection) {
        m_selectionFrame.Show(m_view.AreaOf(*m_selection), width);
    } else {
        m_selectionFrame.Hide();
    }
    if (m_cursorShown) {
        m_cursorFrame.Show(m_view.AreaOf(m_cursor.Place(m_game.Table())), width);
    } else {
        m_cursorFrame.Hide();
    }
}

std::optional<klondike::Move> Player::NextByItself() const
{
    if ((m_finishing || m_autoMove) && CanFinish(m_game)) {
        return FinishMove(m_game);
    }
    if (!m_autoMove) {
        return std::nullopt;
    }
    const std::optional<klondike::Move> move = SafeAutoMove(m_game);
    // With three cards a draw, a card less on the waste changes what is drawn later.
    return move && move->from == kWaste && m_game.GameOptions().drawThree ? std::nullopt : move;
}

bool Player::Frame()
{
    // While cards wait for their flights their places in the piles change.
    const bool isMoving = m_view.Cards().IsMoving();
    if (isMoving && (m_cursorShown || m_selection)) {
        PlaceHighlights();
    }
    ++m_framesSinceOwn;
    while (m_mayMoveByItself && !m_hand.IsPressed() && !m_selection) {
        const bool isDue = m_isRow ? m_framesSinceOwn >= kFramesInRow : !m_view.Cards().IsMoving();
        if (!isDue && m_view.Cards().Speed() != cardkit::Table::kInstant) {
            return true;
        }
        const std::optional<klondike::Move> move = NextByItself();
        if (!move || m_game.Apply(*move).empty()) {
            m_mayMoveByItself = false;
            m_finishing = false;
            break;
        }
        m_framesSinceOwn = 0;
        m_isRow = true;
        Changed();
    }
    return false;
}

} // namespace klondike
