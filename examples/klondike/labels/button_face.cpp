// SPDX-License-Identifier: MIT
#include "examples/klondike/labels/button_face.h"

#include "examples/klondike/labels/button_symbol.h"
#include "examples/klondike/labels/shapes.h"

#include <algorithm>
#include <cmath>

namespace klondike
{

namespace
{

/// A plate's colours: see-through, so that the felt gives it its tint.
struct Look {
    Rgba top;
    Rgba bottom;
    Rgba edge;
    Rgba ink;
};

Look LookOf(ButtonState state)
{
    switch (state) {
    case ButtonState::Normal:
        return {{14, 40, 28, 150}, {6, 22, 15, 185}, {255, 255, 255, 46}, {246, 240, 220, 255}};
    case ButtonState::Hover:
        return {{70, 118, 92, 200}, {32, 74, 54, 210}, {255, 250, 225, 120}, {255, 252, 240, 255}};
    case ButtonState::Pressed:
        return {{3, 14, 9, 215}, {10, 32, 22, 205}, {255, 250, 225, 70}, {255, 228, 150, 255}};
    case ButtonState::Disabled:
        break;
    }
    return {{14, 40, 28, 70}, {6, 22, 15, 85}, {255, 255, 255, 22}, {246, 240, 220, 92}};
}

constexpr Rgba kFocus{255, 205, 92, 255};

/// The parts of a button of a height, pixels.
struct Measures {
    explicit Measures(int height)
        : line(std::max(1.0, std::round(height / 32.0))), textPixels(std::max(1, static_cast<int>(height * 0.42))),
          symbol(std::round(height * 0.56)), gap(std::round(height * 0.18)), padding(std::round(height * 0.34))
    {
    }

    double line;
    int textPixels;
    double symbol; ///< the side of its square
    double gap;    ///< between symbol and text
    double padding;
};

TextStyle StyleOf(const Measures& measures)
{
    return {measures.textPixels, FontWeight::Bold};
}

/// Symbol and text side by side.
double ContentWidth(const Measures& measures, const ButtonFace& face, int textWidth)
{
    const double symbol = face.symbol == ButtonSymbol::None ? 0.0 : measures.symbol;
    const double gap = symbol > 0.0 && textWidth > 0 ? measures.gap : 0.0;
    return symbol + gap + textWidth;
}

void DrawPlate(cairo_t* cairo, const ButtonFace& face, const Measures& measures, int width, int height)
{
    const Look look = LookOf(face.state);
    const double ring = 2.0 * measures.line; // kept free for the focus
    const RoundedBox whole{0.0, 0.0, static_cast<double>(width), static_cast<double>(height), 0.3 * height};
    const RoundedBox plate = whole.Inset(ring);
    FillDown(cairo, plate, look.top, look.bottom);
    StrokeInside(cairo, plate, measures.line, look.edge);
    if (face.isFocused) {
        StrokeInside(cairo, whole, ring, kFocus);
    }
}

} // namespace

int ButtonWidth(const TextPainter& painter, const ButtonFace& face, int height)
{
    const Measures measures(height);
    const int text = painter.Measure(face.text, StyleOf(measures)).width;
    const double width = ContentWidth(measures, face, text) + 2.0 * measures.padding;
    return text == 0 ? height : std::max(height, static_cast<int>(std::ceil(width)));
}

OwnedBitmap MakeButtonFace(const TextPainter& painter, const ButtonFace& face, int width, int height)
{
    OwnedBitmap bitmap(width > 0 && height > 0 ? BitmapManager::Instance().Create(width, height) : nullptr);
    if (bitmap == nullptr) {
        return bitmap;
    }
    const Measures measures(height);
    const Rgba ink = LookOf(face.state).ink;
    const double taken = ContentWidth(measures, face, 1) + 2.0 * measures.gap;
    const std::string fitting = painter.Fitting(face.text, StyleOf(measures), width - static_cast<int>(taken));
    const TextSize text = painter.Measure(fitting, StyleOf(measures));
    const double sunk = face.state == ButtonState::Pressed ? measures.line : 0.0;
    double x = std::max(measures.gap, std::round((width - ContentWidth(measures, face, text.width)) / 2.0));
    {
        const CairoContext cairo = DrawingOn(*bitmap);
        DrawPlate(cairo.get(), face, measures, width, height);
        if (face.symbol != ButtonSymbol::None) {
            const double y = std::round((height - measures.symbol) / 2.0) + sunk;
            DrawSymbol(cairo.get(), face.symbol, x, y, measures.symbol, ink);
            x += measures.symbol + measures.gap;
        }
    }
    painter.Draw(*bitmap, static_cast<int>(x), (height - text.height) / 2 + static_cast<int>(sunk), fitting,
                 StyleOf(measures), ink);
    return bitmap;
}

} // namespace klondike
