// SPDX-License-Identifier: MIT
#include "court_figure.h"

#include "costume.h"

#include <array>

namespace deck
{

namespace
{

constexpr double kHandX = -57.0;
constexpr double kHandY = 146.0;

// Around the hand's middle: the forearm comes from below.
constexpr auto kForearm = std::to_array<Layer>({
    {Ink::Secondary, Ink::Black, kOutline, "M -17 20 L 16 20 L 34 90 L -60 90 Z"},
    {Ink::Trim, Ink::Black, kOutline, "M -13 10 L 12 10 L 17 22 L -18 22 Z"},
});
constexpr auto kFist = std::to_array<Layer>({
    {Ink::Skin, Ink::Black, kOutline, "M -11 -7 C -11 -12 10 -12 11 -7 L 11 7 C 10 13 -11 13 -12 7 Z"},
    {Ink::None, Ink::Black, 1.2, "M -11 -4 L 4 -4 M -12 1 L 4 1 M -11 6 L 4 6"},
});

void DrawCostume(Canvas& canvas, Rank rank, const CourtStyle& style)
{
    const Costume costume = CostumeOf(rank);
    const Dress& dress = style.dress;
    DrawLayers(canvas, costume.behind, dress);
    DrawGarment(canvas, costume.robe, style.robe, dress.primary, dress.trim);
    DrawGarment(canvas, costume.sleeves, style.sleeves, dress.secondary, dress.trim);
    DrawLayers(canvas, costume.over, dress);
}

void DrawHead(Canvas& canvas, Rank rank, const CourtStyle& style)
{
    const Canvas::Saved saved(canvas);
    canvas.Translate(0.0, kFaceY);
    DrawLayers(canvas, BackHairLayers(rank), style.dress);
    DrawLayers(canvas, FaceLayers(), style.dress);
    DrawLayers(canvas, FaceDetailLayers(rank), style.dress);
    DrawLayers(canvas, HeadgearLayers(style.headgear), style.dress);
}

} // namespace

void DrawHandWith(Canvas& canvas, std::span<const Layer> held, const Dress& dress)
{
    const Canvas::Saved saved(canvas);
    canvas.Translate(kHandX, kHandY);
    DrawLayers(canvas, kForearm, dress);
    DrawLayers(canvas, held, dress);
    DrawLayers(canvas, kFist, dress);
}

void DrawCourtFigure(Canvas& canvas, Rank rank, const CourtStyle& style)
{
    DrawCostume(canvas, rank, style);
    DrawHead(canvas, rank, style);
    DrawHandWith(canvas, AttributeLayers(style.attribute), style.dress);
}

} // namespace deck
