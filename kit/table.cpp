// SPDX-License-Identifier: MIT
#include "kit/table.h"

#include "animation/object.h"
#include "host/globals.h"
#include "kit/edge_on.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace cardkit
{

namespace
{

/// How much of a shaded card is left: it is see-through, and the table shines through it.
constexpr double kShadeFactor = 0.4;

/// A slide of reduced motion, and that of a card that makes room, frames.
constexpr int kSlideFrames = 9;

void CheckPicture(const std::string& file, int width, int height)
{
    const OwnedBitmap picture(BitmapManager::Instance().Load(file, true));
    if (picture == nullptr) {
        throw std::runtime_error("cannot read the picture '" + file + "'");
    }
    if (picture->Width() < width || picture->Height() < height) {
        throw std::runtime_error("the picture '" + file + "' is too small for its cards");
    }
}

/// A flight that is only a slide over the table.
Flight Flat(const Flight& flight)
{
    return {FlightStyle{}, std::min(flight.frames, kSlideFrames), flight.delay, false};
}

} // namespace

Table::Table(int width, int height, std::size_t numPiles, const SheetGrid& grid)
    : m_plane(width, height), m_target(BitmapManager::Instance().Create(width, height)), m_grid(grid)
{
    m_pictureCanvas.Create(0, 0, width, height);
    m_flightCanvas.Create(0, 0, width, height);
    m_flightCanvas.SetBitmap(m_target.get());
    m_dialog.AddCntrlBefore(&m_pictureCanvas, nullptr);
    m_dialog.AddCntrlBefore(&m_flightCanvas, nullptr);
    m_dialog.Show();

    m_scene.SetCardDimension(m_size.width / 2.0, m_size.height / 2.0);
    m_scene.Init(static_cast<long>(numPiles), grid.rows, grid.columns, grid.lastRow);
    m_scene.SetTargetBitmap(m_target.get());
    m_scene.m_sortByDepth = 1;         // of two cards in the air the one nearer to the viewer covers the other
    m_scene.m_skipStampDrawBefore = 1; // a card that comes to rest is drawn once, not twice over itself
    m_plane.Apply(m_scene);
    for (std::size_t i = 0; i < numPiles; ++i) {
        m_piles.push_back(std::make_unique<Pile>(m_scene, static_cast<long>(i), m_plane, m_dialog, m_flightCanvas,
                                                 m_size, PileLayout{}));
    }
}

Table::~Table() = default;

void Table::UseSheet(const CardSheet& sheet)
{
    if (sheet.cellWidth < 1 || sheet.cellHeight < 1) {
        throw std::runtime_error("the cards of '" + sheet.faces + "' have no size");
    }
    // Looked at first: the table would lose its back when only the faces cannot be loaded.
    CheckPicture(sheet.back, 1, 1);
    CheckPicture(sheet.faces, sheet.cellWidth * m_grid.columns, sheet.cellHeight * m_grid.rows);
    FinishAll();
    m_scene.SetCardSize(sheet.cellWidth, sheet.cellHeight);
    if (m_scene.LoadTextures(sheet.faces.c_str(), sheet.back.c_str(), 1, kShadeFactor) == 0) {
        throw std::runtime_error("cannot cut the cards out of '" + sheet.faces + "'");
    }
    std::vector<PileLayout> layouts;
    for (const auto& pile : m_piles) {
        layouts.push_back(pile->Layout());
    }
    RebuildPiles(layouts);
}

void Table::Resize(int width, int height, CardSize card, const std::vector<PileLayout>& layouts)
{
    if (layouts.size() != m_piles.size()) {
        throw std::invalid_argument("a table needs a layout for each of its piles");
    }
    FinishAll();
    if (width != m_plane.Width() || height != m_plane.Height()) {
        OwnedBitmap target(BitmapManager::Instance().Create(width, height));
        m_flightCanvas.SetBitmap(target.get());
        m_flightCanvas.SetSize(width, height);
        m_pictureCanvas.SetSize(width, height);
        m_scene.EraseLastDrawnRegions();
        m_scene.SetTargetBitmap(target.get());
        m_target = std::move(target);
    }
    m_plane = TablePlane(width, height);
    m_plane.Apply(m_scene);
    m_size = {std::max(card.width, 1), std::max(card.height, 1)};
    m_scene.SetCardDimension(m_size.width / 2.0, m_size.height / 2.0);
    m_shadows = std::make_unique<ShadowCaster>(m_plane, m_size);
    RebuildPiles(layouts);
}

void Table::RebuildPiles(const std::vector<PileLayout>& layouts)
{
    for (std::size_t i = 0; i < m_piles.size(); ++i) {
        m_piles[i]->Rebuild(m_size, layouts[i]);
    }
}

void Table::SetPicture(OwnedBitmap picture)
{
    m_pictureCanvas.SetBitmap(picture.get());
    m_picture = std::move(picture);
}

void Table::SetSpeed(double speed)
{
    m_speed = speed >= 0.0 && std::isfinite(speed) ? speed : kNormalSpeed;
    if (m_speed == kInstant) {
        FinishAll();
    }
}

int Table::Frames(double atNormalSpeed) const
{
    constexpr double kMost = 100000.0;
    return static_cast<int>(std::clamp(std::round(atNormalSpeed / m_speed), 1.0, kMost));
}

void Table::Lay(const std::vector<std::vector<Card>>& piles)
{
    FinishAll();
    for (std::size_t i = 0; i < m_piles.size(); ++i) {
        Pile& pile = *m_piles[i];
        while (pile.NumCards() > 0) {
            pile.Remove(pile.NumCards());
        }
        if (i < piles.size()) {
            for (const Card& card : piles[i]) {
                pile.Add(card);
            }
        }
        pile.LayDownAll();
    }
}

void Table::Add(std::size_t pile, const Card& card)
{
    Pile& to = At(pile);
    if (to.Add(card) != nullptr) {
        to.LayDown(to.NumCards());
    }
}

void Table::Arrange(const std::vector<std::vector<Card>>& piles, const Flight& flight, double stagger)
{
    StartWaiting();
    // What agrees from the bottom up stays; all above it is loose.
    std::vector<std::vector<Card>> loose(m_piles.size());
    std::vector<std::size_t> kept(m_piles.size(), 0);
    for (std::size_t i = 0; i < m_piles.size(); ++i) {
        const std::vector<Card> present = m_piles[i]->Cards();
        const std::size_t wanted = i < piles.size() ? piles[i].size() : 0;
        std::size_t& same = kept[i];
        while (same < present.size() && same < wanted && present[same].value == piles[i][same].value) {
            ++same;
        }
        loose[i].assign(present.begin() + static_cast<std::ptrdiff_t>(same), present.end());
    }
    const auto take = [&loose](long value) -> std::optional<std::size_t> {
        for (std::size_t i = 0; i < loose.size(); ++i) {
            const auto found =
                std::find_if(loose[i].begin(), loose[i].end(), [&](const Card& card) { return card.value == value; });
            if (found != loose[i].end()) {
                loose[i].erase(found);
                return i;
            }
        }
        return std::nullopt;
    };

    double delay = flight.delay;
    const auto next = [&] {
        Flight delayed = flight;
        delayed.delay = static_cast<int>(std::lround(delay));
        delay += stagger;
        return delayed;
    };
    const std::size_t numPiles = std::min(piles.size(), m_piles.size());
    const auto turnKept = [&](Facing facing) {
        for (std::size_t i = 0; i < numPiles; ++i) {
            for (std::size_t k = 0; k < kept[i]; ++k) {
                if (piles[i][k].facing == facing && m_piles[i]->FacingAt(static_cast<long>(k) + 1) != facing) {
                    Order(i, piles[i][k].value, i, facing, next());
                }
            }
        }
    };
    // A card turns its back before others come to lie on it, and its face when they have left.
    turnKept(Facing::Down);
    std::vector<std::pair<std::size_t, Card>> missing;
    for (std::size_t i = 0; i < numPiles; ++i) {
        for (std::size_t k = kept[i]; k < piles[i].size(); ++k) {
            const Card& card = piles[i][k];
            if (const auto from = take(card.value)) {
                Enqueue({m_time, *from, card.value, i, card.facing, next(), true});
            } else {
                missing.emplace_back(i, card);
            }
        }
    }
    turnKept(Facing::Up);
    for (std::size_t i = 0; i < loose.size(); ++i) {
        for (const Card& card : loose[i]) {
            StartWaiting();
            Pile& pile = *m_piles[i];
            const long position = pile.PositionOfValue(card.value);
            if (CObject* const object = pile.CardAt(position)) {
                m_flights.Stop(*object);
                ForgetHeld(*object);
                pile.Remove(position);
            }
        }
    }
    for (const auto& [pile, card] : missing) {
        Add(pile, card);
    }
}

void Table::Order(std::size_t from, long value, std::size_t to, Facing facing, const Flight& flight)
{
    if (from < m_piles.size() && to < m_piles.size()) {
        Enqueue({m_time, from, value, to, facing, flight, from != to});
    }
}

void Table::Enqueue(Waiting order)
{
    if (m_speed != kInstant && order.flight.delay > 0) {
        order.start += static_cast<std::uint64_t>(Frames(order.flight.delay)) * glb->framePeriod;
    }
    if (!m_waiting.empty()) {
        order.start = std::max(order.start, m_waiting.back().start);
    }
    if (order.start == m_time && m_waiting.empty()) {
        Execute(order);
    } else {
        m_waiting.push_back(order);
    }
}

void Table::Execute(const Waiting& order)
{
    Pile& from = *m_piles[order.from];
    Pile& to = *m_piles[order.to];
    long position = from.PositionOfValue(order.value);
    CObject* card = from.CardAt(position);
    if (card == nullptr) {
        return;
    }
    if (!order.toTop) {
        ForgetHeld(*card);
        if (to.IsResting(position)) {
            to.PickUp(position);
        }
        to.SetFacing(position, order.facing);
    } else {
        card = Transfer(order.from, position, order.to, order.facing);
        position = to.NumCards();
    }
    if (card != nullptr) {
        Fly(to, position, order.flight);
    }
    SlideDisplaced(from);
    SlideDisplaced(to);
}

CObject* Table::Transfer(std::size_t from, long position, std::size_t to, Facing facing)
{
    // No card passes from one pocket to another: the new pile makes its own, placed where the old one is seen.
    Pile& source = *m_piles[from];
    CObject* const old = source.CardAt(position);
    const Placement seen = PlacementOf(*old);
    m_flights.Stop(*old);
    ForgetHeld(*old);
    const Card card{source.ValueAt(position), facing};
    source.Remove(position);
    CObject* const moved = m_piles[to]->Add(card);
    if (moved != nullptr) {
        Place(*moved, seen);
    }
    return moved;
}

void Table::Fly(Pile& pile, long position, const Flight& flight)
{
    CObject* const card = pile.CardAt(position);
    if (card == nullptr) {
        return;
    }
    const Placement seen = m_plane.SeenUnscaled(PlacementOf(*card));
    const Placement home = pile.Home(position);
    const bool isThere = seen == home && flight.style.arch == 0.0;
    if (m_speed == kInstant || isThere) {
        m_flights.Stop(*card);
        m_scene.RemoveObject(card);
        pile.LayDown(position);
        return;
    }
    Placement start = seen;
    const Flight& flown = m_reducedMotion ? Flat(flight) : flight;
    if (m_reducedMotion) {
        start.rotX = home.rotX;
        start.rotY = home.rotY;
        start.rotZ = home.rotZ;
    }
    const FlightPath path(m_plane, start, home, flown.style);
    const int frames = FramesNeverEdgeOn(m_scene, path, Frames(flown.frames), m_size);
    m_flights.Launch(
        pile, position, [&path](double progress) { return path.At(progress); }, frames,
        flown.shadow ? m_shadows.get() : nullptr);
}

void Table::SlideDisplaced(Pile& pile)
{
    const Flight slide{FlightStyle{}, kSlideFrames, 0, false};
    for (const long position : pile.Displaced()) {
        Fly(pile, position, slide);
    }
}

void Table::FlyHome(std::size_t pile, long position, const Flight& flight)
{
    if (CObject* const card = At(pile).CardAt(position)) {
        ForgetHeld(*card);
        Fly(At(pile), position, flight);
    }
}

void Table::FlyAlong(std::size_t pile, long position, const Way& way, int frames, bool shadow)
{
    CObject* const card = At(pile).CardAt(position);
    if (card != nullptr && m_speed != kInstant && !m_reducedMotion) {
        ForgetHeld(*card);
        m_flights.Launch(At(pile), position, way, Frames(frames), shadow ? m_shadows.get() : nullptr);
    }
}

void Table::StartWaiting()
{
    while (!m_waiting.empty()) {
        const Waiting order = m_waiting.front();
        m_waiting.pop_front();
        Execute(order);
    }
}

void Table::FinishAll()
{
    StartWaiting();
    m_flights.FinishAll();
    for (const Held& held : std::exchange(m_held, {})) {
        m_scene.RemoveObject(held.card);
        held.pile->LayDown(held.pile->PositionOf(*held.card));
    }
    for (const auto& pile : m_piles) {
        pile->LayDownAll();
    }
}

void Table::StartDue()
{
    while (!m_waiting.empty() && m_waiting.front().start <= m_time) {
        const Waiting order = m_waiting.front();
        m_waiting.pop_front();
        Execute(order);
    }
}

bool Table::Frame()
{
    m_time += m_tick.Elapsed();
    m_tick.Update();
    m_flights.Land();
    StartDue();
    m_scene.Handler();
    return IsMoving() || (m_held.empty() && m_scene.LastDrawnRectsBegin() != m_scene.LastDrawnRectsEnd());
}

std::optional<Spot> Table::SpotAt(Pixel pixel)
{
    // The test is in half pixels; this is the pixel's middle.
    const long x = 2L * pixel.x + 1;
    const long y = 2L * pixel.y + 1;
    const auto isHit = [&](CObject* card) { return m_scene.IsPointInside(x, y, card) != 0; };

    std::optional<Spot> nearest;
    double nearestZ = 0.0;
    for (CObject* card : m_flights.Cards()) {
        const double z = PlacementOf(*card).z;
        if (isHit(card) && (!nearest || z <= nearestZ)) {
            for (std::size_t i = 0; i < m_piles.size(); ++i) {
                if (const long position = m_piles[i]->PositionOf(*card)) {
                    nearest = Spot{i, position};
                    nearestZ = z;
                }
            }
        }
    }
    if (nearest) {
        return nearest;
    }
    for (std::size_t i = m_piles.size(); i-- > 0;) {
        for (long position = m_piles[i]->NumCards(); position > 0; --position) {
            if (m_piles[i]->IsResting(position) && isHit(m_piles[i]->CardAt(position))) {
                return Spot{i, position};
            }
        }
    }
    for (std::size_t i = m_piles.size(); i-- > 0;) {
        const Pixel place = m_piles[i]->Layout().place;
        if (pixel.x >= place.x && pixel.x < place.x + m_size.width && pixel.y >= place.y &&
            pixel.y < place.y + m_size.height) {
            return Spot{i, 0};
        }
    }
    return std::nullopt;
}

void Table::Hold(std::size_t pile, long position)
{
    LetGo(Flight{});
    Pile& from = At(pile);
    for (long p = std::max(position, 1L); p <= from.NumCards(); ++p) {
        CObject* const card = from.CardAt(p);
        m_flights.Stop(*card);
        from.PickUp(p);
        const Placement start = m_plane.SeenAt(m_plane.SeenUnscaled(PlacementOf(*card)), m_plane.Foremost());
        m_scene.RemoveObject(card);
        Place(*card, start);
        m_scene.AddObject(card);
        card->On();
        m_held.push_back({&from, card, start});
    }
}

void Table::MoveHeld(int dx, int dy)
{
    const double shrinkage = m_plane.Shrinkage(m_plane.Foremost());
    for (const Held& held : m_held) {
        Placement place = held.start;
        place.x += dx * shrinkage;
        place.y -= dy * shrinkage;
        Place(*held.card, place);
    }
}

void Table::LetGo(const Flight& flight)
{
    for (const Held& held : std::exchange(m_held, {})) {
        Fly(*held.pile, held.pile->PositionOf(*held.card), flight);
    }
}

render::Rectangle<int> Table::HeldArea() const
{
    if (m_held.empty()) {
        return {0, 0, 0, 0};
    }
    const Pixel place = m_plane.TopLeft(PlacementOf(*m_held.front().card), m_size);
    return {place.x, place.y, m_size.width, m_size.height};
}

void Table::ForgetHeld(const CObject& card)
{
    std::erase_if(m_held, [&](const Held& held) { return held.card == &card; });
}

} // namespace cardkit
