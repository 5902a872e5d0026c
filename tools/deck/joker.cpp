// SPDX-License-Identifier: MIT
#include "joker.h"

#include "card.h"
#include "costume.h"
#include "court_figure.h"
#include "court_head.h"
#include "garment_pattern.h"
#include "panel.h"

#include <array>

namespace deck
{

namespace
{

// The jester is one figure, larger than the courts, that fills the whole panel.
constexpr double kScale = 1.36;
constexpr double kDrop = 24.0;

constexpr Dress kBlackDress{Ink::Black, Ink::Gold, Ink::PaleGold, Ink::Black};
constexpr Dress kRedDress{Ink::Red, Ink::Blue, Ink::Gold, Ink::DeepGold};

// The ruff's points end in bells.
constexpr auto kRuff = std::to_array<Layer>({
    {Ink::Secondary, Ink::Black, kOutline,
     "M -12 112 C -28 114 -40 118 -46 122 L -60 144 L -40 142 L -31 164 L -16 149 L 0 172 "
     "L 16 149 L 31 164 L 40 142 L 60 144 L 46 122 C 40 118 28 114 12 112 Q 0 124 -12 112 Z"},
    {Ink::Primary, Ink::Black, kOutline,
     "M -12 112 C -20 113 -25 114 -29 115 L -40 142 L -31 164 L -16 149 L -8 116 Z "
     "M 12 112 C 20 113 25 114 29 115 L 40 142 L 31 164 L 16 149 L 8 116 Z"},
    {Ink::Gold, Ink::Black, 1.4, "O -61 146 5 O -31 166 5 O 0 174 5 O 31 166 5 O 61 146 5"},
    {Ink::None, Ink::Black, 1.2,
     "M -64 147 L -58 147 M -34 167 L -28 167 M -3 175 L 3 175 M 28 167 L 34 167 M 58 147 L 64 147"},
    {Ink::White, Ink::Black, 1.4, "O 0 194 4.5 O 0 210 4.5"},
});

constexpr auto kGrin = std::to_array<Layer>({
    {Ink::Red, Ink::None, 0, "M -12 2 L -8.5 8 L -12 14 L -15.5 8 Z M 12.5 2 L 16 8 L 12.5 14 L 9 8 Z"},
    {Ink::White, Ink::Black, 1.4, "M -12 14 Q 0 20 12 14 Q 9 26 0 26 Q -9 26 -12 14 Z"},
    {Ink::Red, Ink::None, 0, "M -9 20.5 Q 0 24 9 20.5 Q 6 25.4 0 25.4 Q -6 25.4 -9 20.5 Z"},
});

// A hood with three horns, each with a bell.
constexpr auto kFoolsCap = std::to_array<Layer>({
    {Ink::Secondary, Ink::Black, kOutline,
     "M -10 -26 C -20 -44 -14 -58 4 -66 C 12 -62 14 -56 14 -56 C 6 -48 8 -38 16 -26 Z"},
    {Ink::Primary, Ink::Black, kOutline,
     "M -25 14 C -34 16 -36 4 -40 -4 C -46 -10 -52 -4 -54 4 C -64 -12 -52 -38 -30 -36 "
     "C -18 -36 -8 -34 0 -28 L 0 -19 C -14 -20 -22 -14 -20 6 Z"},
    {Ink::Secondary, Ink::Black, kOutline,
     "M 25 14 C 34 16 36 4 39 -4 C 43 -8 46 -2 46 6 C 56 -10 48 -36 28 -36 "
     "C 16 -36 8 -34 0 -28 L 0 -19 C 14 -20 22 -14 20 6 Z"},
    {Ink::Gold, Ink::Black, 1.4, "O -54 8 5.4 O 46 10 5.4 O 10 -64 5.4"},
    {Ink::None, Ink::Black, 1.2, "M -57.5 9.5 L -50.5 9.5 M 42.5 11.5 L 49.5 11.5 M 6.5 -63 L 13.5 -63"},
});

// A fool's sceptre: a small laughing head on a stick.
constexpr auto kFoolsHead = std::to_array<Layer>({
    {Ink::DeepGold, Ink::Black, kOutline, "M -3 60 L -3 -60 L 3 -60 L 3 60 Z"},
    {Ink::Primary, Ink::Black, kOutline,
     "M -11 -84 C -19 -92 -15 -112 -6 -112 L 0 -100 L 6 -112 C 15 -112 19 -92 11 -84 Z"},
    {Ink::Gold, Ink::Black, 1.2, "O -6 -113 3.4 O 6 -113 3.4"},
    {Ink::Skin, Ink::Black, kOutline, "O 0 -76 13"},
    {Ink::Black, Ink::None, 0, "O -5 -79 1.8 O 5 -79 1.8"},
    {Ink::None, Ink::Red, 2, "M -7 -72 Q 0 -65 7 -72"},
    {Ink::Secondary, Ink::Black, kOutline,
     "M -4 -64 L -16 -58 L -8 -56 L -6 -48 L 0 -54 L 6 -48 L 8 -56 L 16 -58 L 4 -64 Z"},
});

void DrawJester(Canvas& canvas, const Dress& dress)
{
    const Costume costume = CostumeOf(kJack);
    DrawGarment(canvas, costume.robe, Pattern::Lozenges, dress.primary, dress.secondary);
    DrawGarment(canvas, costume.sleeves, Pattern::Studs, dress.secondary, dress.primary);
    DrawLayers(canvas, kRuff, dress);
    {
        const Canvas::Saved saved(canvas);
        canvas.Translate(0.0, kFaceY);
        DrawLayers(canvas, FaceLayers(), dress);
        DrawLayers(canvas, kGrin, dress);
        DrawLayers(canvas, kFoolsCap, dress);
    }
    DrawHandWith(canvas, kFoolsHead, dress);
}

} // namespace

void DrawJoker(Canvas& canvas, Ink ink)
{
    {
        const Canvas::Saved saved(canvas);
        PanelPath(canvas).Clip();
        DrawPanelGround(canvas);
        DrawRays(canvas, kCentreX, kDrop + kScale * kFaceY);
        canvas.Translate(kCentreX, kDrop);
        // Mirrored: the hand is on the side where no notch is above it.
        canvas.Scale(-kScale, kScale);
        DrawJester(canvas, ink == Ink::Red ? kRedDress : kBlackDress);
    }
    DrawPanelFrame(canvas, ink);
}

} // namespace deck
