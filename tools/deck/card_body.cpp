// SPDX-License-Identifier: MIT
#include "card_body.h"

#include "card.h"

#include <algorithm>

namespace deck
{

namespace
{

constexpr double kCornerRadius = 0.06 * kCardWidth;
constexpr double kEdgeWidth = 1.8;

} // namespace

void DrawCardBody(Canvas& canvas)
{
    canvas.RoundedRectangle(0.0, 0.0, kCardWidth, kCardHeight, kCornerRadius).Fill(Ink::Edge);
    PaperPath(canvas, 0.0).Fill(Ink::Paper);
}

Canvas& PaperPath(Canvas& canvas, double inset)
{
    const double margin = kEdgeWidth + inset;
    return canvas.RoundedRectangle(margin, margin, kCardWidth - 2.0 * margin, kCardHeight - 2.0 * margin,
                                   std::max(kCornerRadius - margin, 0.0));
}

void HalfTurn(Canvas& canvas)
{
    canvas.Translate(kCardWidth, kCardHeight);
    canvas.Scale(-1.0, -1.0);
}

} // namespace deck
