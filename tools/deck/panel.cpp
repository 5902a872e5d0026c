// SPDX-License-Identifier: MIT
#include "panel.h"

#include "card.h"

#include <cmath>
#include <numbers>

namespace deck
{

namespace
{

constexpr double kFrameWidth = 5.0;
constexpr double kFrameInlay = 1.5;

constexpr int kRays = 16;
constexpr double kRayLength = kCardHeight + kCardWidth; // from any point past every corner

} // namespace

Canvas& PanelPath(Canvas& canvas)
{
    return canvas.Path("M 56 14 L 218 14 Q 226 14 226 22 L 226 236 Q 226 244 218 244 L 200 244 Q 192 244 192 252 "
                       "L 192 314 Q 192 322 184 322 L 22 322 Q 14 322 14 314 L 14 100 Q 14 92 22 92 L 40 92 "
                       "Q 48 92 48 84 L 48 22 Q 48 14 56 14 Z");
}

void DrawPanelGround(Canvas& canvas)
{
    PanelPath(canvas).Fill(Ink::Panel);
}

void DrawRays(Canvas& canvas, double x, double y)
{
    constexpr double kStep = 2.0 * std::numbers::pi / kRays;
    const double halfSpread = kRayLength * std::tan(kStep / 4.0);
    const Canvas::Saved saved(canvas);
    canvas.Translate(x, y);
    for (int ray = 0; ray < kRays; ++ray) {
        canvas.Rotate(kStep);
        canvas.Line(0.0, 0.0, kRayLength, -halfSpread).ContinueTo(kRayLength, halfSpread).Fill(Ink::PanelRay);
    }
}

void DrawPanelFrame(Canvas& canvas, Ink ink)
{
    PanelPath(canvas).Stroke(ink, kFrameWidth);
    PanelPath(canvas).Stroke(Ink::Gold, kFrameInlay);
}

} // namespace deck
