// SPDX-License-Identifier: MIT
#include "court_card.h"

#include "card_body.h"
#include "court_figure.h"
#include "panel.h"
#include "pip.h"

#include <array>
#include <cmath>

namespace deck
{

namespace
{

// The sash parts the two heads; it rises to the right.
constexpr double kSashRise = 26.0;
constexpr double kSashRun = 104.0;
constexpr double kSashReach = 120.0; // past the panel on both sides
constexpr double kSashWidth = 17.0;
constexpr double kSashBorder = 3.0;
constexpr double kSashStep = 17.0;
constexpr double kSashGem = 11.0;
constexpr int kSashSideGems = 6; // on either side of the middle one

constexpr double kPipHeight = 29.0;
constexpr double kPipY = 41.0;
constexpr double kPipX = 52.0; // from the figure's axis

// Jack, queen and king of each suit, in the suits' order. A suit's figures hold their attributes now on the one side,
// now on the other.
constexpr std::array<std::array<CourtStyle, kKing - kTen>, kSuits.size()> kCourts{{
    {{
        {Headgear::Beret,
         Attribute::Feather,
         Pattern::Chevrons,
         Pattern::Stripes,
         {Ink::Blue, Ink::Red, Ink::Gold, Ink::DeepGold},
         false},
        {Headgear::LeafCoronet,
         Attribute::Tulip,
         Pattern::Scales,
         Pattern::Lozenges,
         {Ink::DeepBlue, Ink::Blue, Ink::Gold, Ink::Black},
         true},
        {Headgear::ArchedCrown,
         Attribute::Orb,
         Pattern::Checks,
         Pattern::Studs,
         {Ink::Red, Ink::Blue, Ink::Gold, Ink::DeepGold},
         false},
    }},
    {{
        {Headgear::RoundCap,
         Attribute::Torch,
         Pattern::Lozenges,
         Pattern::Studs,
         {Ink::Red, Ink::DeepBlue, Ink::Gold, Ink::Black},
         true},
        {Headgear::StarCoronet,
         Attribute::Fan,
         Pattern::Checks,
         Pattern::Stripes,
         {Ink::Gold, Ink::Red, Ink::PaleGold, Ink::DeepGold},
         false},
        {Headgear::TowerCrown,
         Attribute::Axe,
         Pattern::Studs,
         Pattern::Lozenges,
         {Ink::Blue, Ink::Red, Ink::Gold, Ink::Black},
         true},
    }},
    {{
        {Headgear::FeatheredCap,
         Attribute::Pennant,
         Pattern::Stripes,
         Pattern::Checks,
         {Ink::Blue, Ink::Red, Ink::Gold, Ink::Gold},
         false},
        {Headgear::HeartCoronet,
         Attribute::Rose,
         Pattern::Studs,
         Pattern::Scales,
         {Ink::Blue, Ink::Red, Ink::PaleGold, Ink::Gold},
         true},
        {Headgear::LilyCrown,
         Attribute::Sword,
         Pattern::Scales,
         Pattern::Chevrons,
         {Ink::Blue, Ink::Red, Ink::PaleGold, Ink::DeepGold},
         false},
    }},
    {{
        {Headgear::PointedCap,
         Attribute::Halberd,
         Pattern::Checks,
         Pattern::Chevrons,
         {Ink::Black, Ink::Blue, Ink::Gold, Ink::Gold},
         true},
        {Headgear::PearlCoronet,
         Attribute::Mirror,
         Pattern::Lozenges,
         Pattern::Studs,
         {Ink::Red, Ink::Black, Ink::Gold, Ink::Gold},
         false},
        {Headgear::SpikedCrown,
         Attribute::Sceptre,
         Pattern::Stripes,
         Pattern::Scales,
         {Ink::Red, Ink::DeepBlue, Ink::Gold, Ink::Black},
         true},
    }},
}};

const CourtStyle& StyleOf(Rank rank, Suit suit)
{
    return kCourts.at(static_cast<std::size_t>(suit)).at(static_cast<std::size_t>(rank - kJack));
}

void MirrorCard(Canvas& canvas)
{
    canvas.Translate(kCardWidth, 0.0);
    canvas.Scale(-1.0, 1.0);
}

void ClipToUpperHalf(Canvas& canvas)
{
    const double slope = kSashRise / kSashRun;
    const double left = kCentreY + slope * kCentreX;
    const double right = kCentreY - slope * kCentreX;
    canvas.Line(0.0, 0.0, kCardWidth, 0.0);
    canvas.ContinueTo(kCardWidth, right).ContinueTo(0.0, left).Clip();
}

void DrawUpperHalf(Canvas& canvas, Rank rank, Suit suit, const CourtStyle& style)
{
    const Canvas::Saved saved(canvas);
    ClipToUpperHalf(canvas);
    DrawRays(canvas, kCentreX, kFaceY);
    canvas.Translate(kCentreX, 0.0);
    DrawCourtFigure(canvas, rank, style);
    DrawPip(canvas, suit, kPipX, kPipY, kPipHeight, InkOf(suit));
}

void DrawSash(Canvas& canvas, Suit suit)
{
    const Canvas::Saved saved(canvas);
    canvas.Translate(kCentreX, kCentreY);
    canvas.Rotate(-std::atan2(kSashRise, kSashRun));
    const auto band = [&](double width, Ink ink) {
        canvas.Rectangle(-kSashReach, -width / 2.0, 2.0 * kSashReach, width).Fill(ink);
    };
    band(kSashWidth + 2.0 * (kSashBorder + kOutline), Ink::Black);
    band(kSashWidth + 2.0 * kSashBorder, Ink::Gold);
    band(kSashWidth, InkOf(suit));
    for (int gem = -kSashSideGems; gem <= kSashSideGems; ++gem) {
        DrawPip(canvas, Suit::Diamonds, gem * kSashStep, 0.0, kSashGem, Ink::PaleGold);
    }
}

void DrawPanel(Canvas& canvas, Rank rank, Suit suit, const CourtStyle& style)
{
    const Canvas::Saved saved(canvas);
    PanelPath(canvas).Clip();
    DrawPanelGround(canvas);
    if (style.mirrored) {
        MirrorCard(canvas);
    }
    DrawUpperHalf(canvas, rank, suit, style);
    {
        const Canvas::Saved upper(canvas);
        HalfTurn(canvas);
        DrawUpperHalf(canvas, rank, suit, style);
    }
    DrawSash(canvas, suit);
}

} // namespace

void DrawCourt(Canvas& canvas, Rank rank, Suit suit)
{
    DrawPanel(canvas, rank, suit, StyleOf(rank, suit));
    DrawPanelFrame(canvas, InkOf(suit));
}

} // namespace deck
