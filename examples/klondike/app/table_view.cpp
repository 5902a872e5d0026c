// SPDX-License-Identifier: MIT
#include "examples/klondike/app/table_view.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace klondike
{

namespace
{

using cardkit::Facing;
using cardkit::FlightStyle;

constexpr int kMoveFrames = 22;
constexpr int kDealFrames = 30;
constexpr int kDropFrames = 6;
/// Frames between the starts of two cards.
constexpr double kMoveStagger = 1.5;
constexpr int kDealStagger = 3;
constexpr int kManyCards = 6; ///< from here on a move's cards follow each other faster

cardkit::SheetGrid DeckGrid()
{
    return {DeckFiles::kRows, DeckFiles::kColumns, DeckFiles::kColumns};
}

cardkit::Card OnTable(const Card& card)
{
    return {static_cast<long>(card.suit) * DeckFiles::kColumns + card.rank - 1,
            card.faceUp ? Facing::Up : Facing::Down};
}

std::vector<std::vector<cardkit::Card>> OnTable(const Piles& piles)
{
    std::vector<std::vector<cardkit::Card>> cards(piles.size());
    for (std::size_t i = 0; i < piles.size(); ++i) {
        std::transform(piles[i].begin(), piles[i].end(), std::back_inserter(cards[i]),
                       [](const Card& card) { return OnTable(card); });
    }
    return cards;
}

/// A card of a fresh game that is dealt, and the column it goes to.
struct Dealt {
    cardkit::Card card;
    std::size_t pile;
};

/// The cards of the columns in the order in which a dealer deals them: row by row.
std::vector<Dealt> DealingOrder(const std::vector<std::vector<cardkit::Card>>& piles)
{
    std::vector<Dealt> order;
    for (std::size_t row = 0; row < kNumTableau; ++row) {
        for (std::size_t pile = kFirstTableau; pile < kNumPiles; ++pile) {
            if (row < piles[pile].size()) {
                order.push_back({piles[pile][row], pile});
            }
        }
    }
    return order;
}

/// How many cards are not where the game has them.
std::size_t NumAway(const cardkit::Table& table, const std::vector<std::vector<cardkit::Card>>& wanted)
{
    std::size_t away = 0;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        const std::vector<cardkit::Card> present = table.At(i).Cards();
        const auto [end, ignored] = std::mismatch(wanted[i].begin(), wanted[i].end(), present.begin(), present.end());
        away += static_cast<std::size_t>(wanted[i].end() - end);
    }
    return away;
}

} // namespace

TableView::TableView(int width, int height) : m_table(width, height, kNumPiles, DeckGrid())
{
    Resize(MakeLayout(width, height, {}));
}

void TableView::Resize(const Layout& layout)
{
    const bool hasPicture = m_picture != nullptr && layout == m_layout;
    m_layout = layout;
    m_table.Resize(layout.width, layout.height, layout.card, layout.piles);
    if (!hasPicture) {
        OwnedBitmap picture = MakeTablePicture(layout.width, layout.height, layout.Slots(m_stockSign));
        m_picture = picture.get();
        m_table.SetPicture(std::move(picture));
    }
}

void TableView::UseDeck(const DeckFiles& files)
{
    m_table.UseSheet({files.sheet, files.back, files.cardWidth, files.cardHeight});
    m_hasDeck = true;
}

void TableView::SetStockSign(SlotSign sign)
{
    if (sign == m_stockSign) {
        return;
    }
    m_stockSign = sign;
    if (m_picture != nullptr) {
        const TableSlot slot{m_layout.Place(kStock), sign};
        RepaintSlot(*m_picture, slot);
        m_table.PictureControl().Invalidate();
    }
}

void TableView::Follow(const Game& game)
{
    if (!m_hasDeck) {
        return;
    }
    const auto wanted = OnTable(game.Table());
    const std::size_t away = NumAway(m_table, wanted);
    const bool isMany = away >= static_cast<std::size_t>(kManyCards);
    const double height = m_table.Plane().HeightForScale(isMany ? 1.15 : 1.3);
    const double stagger = isMany ? kMoveStagger * kManyCards / static_cast<double>(away) : kMoveStagger;
    m_table.Arrange(wanted, {FlightStyle{height, 0.06, 24.0, -10.0}, kMoveFrames, 0, true}, stagger);
}

void TableView::DealOut(const Game& game)
{
    if (!m_hasDeck) {
        return;
    }
    const auto wanted = OnTable(game.Table());
    const std::vector<Dealt> order = DealingOrder(wanted);
    std::vector<cardkit::Card> stock = wanted[kStock];
    std::for_each(order.rbegin(), order.rend(), [&](const Dealt& dealt) {
        stock.push_back({dealt.card.value, Facing::Down});
    });
    m_table.Lay({stock});

    const FlightStyle style{m_table.Plane().HeightForScale(1.4), 0.07, 26.0, -18.0};
    int delay = 0;
    for (const Dealt& dealt : order) {
        m_table.Order(kStock, dealt.card.value, dealt.pile, dealt.card.facing, {style, kDealFrames, delay, true});
        delay += kDealStagger;
    }
}

void TableView::LayDown(const Game& game)
{
    if (m_hasDeck) {
        m_table.Lay(OnTable(game.Table()));
    }
}

void TableView::Drop(std::size_t from, long position, std::size_t to)
{
    const std::vector<cardkit::Card> cards = m_table.At(from).Cards();
    for (auto i = static_cast<std::size_t>(std::max(position, 1L)) - 1; i < cards.size(); ++i) {
        m_table.Order(from, cards[i].value, to, cards[i].facing, {FlightStyle{}, kDropFrames, 0, false});
    }
}

render::Rectangle<int> TableView::AreaOf(const cardkit::Spot& spot) const
{
    const cardkit::Pile& pile = m_table.At(spot.pile);
    const cardkit::CardSize card = m_layout.card;
    if (spot.position < 1 || spot.position > pile.NumCards()) {
        return m_layout.Place(spot.pile);
    }
    const cardkit::Pixel first = pile.HomePixel(spot.position);
    const cardkit::Pixel last = pile.HomePixel(pile.NumCards());
    const int left = std::min(first.x, last.x);
    const int top = std::min(first.y, last.y);
    return {left, top, std::max(first.x, last.x) + card.width - left, std::max(first.y, last.y) + card.height - top};
}

bool TableView::Agrees(const Game& game) const
{
    const auto wanted = OnTable(game.Table());
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        if (m_table.At(i).Cards() != wanted[i]) {
            return false;
        }
    }
    return true;
}

} // namespace klondike
