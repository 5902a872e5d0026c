// SPDX-License-Identifier: MIT
#include "examples/klondike/app/highlight.h"

#include "examples/klondike/labels/shapes.h"

#include <algorithm>
#include <utility>

namespace klondike
{

namespace
{

constexpr double kLineShare = 0.045; ///< of a card's width
constexpr double kRadiusShare = 0.08;
constexpr int kWidest = 30000; ///< of what is framed, pixels
constexpr Rgba kDark{0, 0, 0, 150};

/// A bright line between two thin dark ones: it is seen on white cards as well as on felt.
OwnedBitmap MakeFrame(int width, int height, int cardWidth, const Rgba& colour)
{
    OwnedBitmap picture(BitmapManager::Instance().Create(width, height));
    const double line = std::max(cardWidth * kLineShare, 2.0);
    const double edge = std::max(line / 3.0, 1.0);
    const RoundedBox box{0.0, 0.0, static_cast<double>(width), static_cast<double>(height),
                         cardWidth * kRadiusShare + line};
    {
        const CairoContext cairo = DrawingOn(*picture);
        StrokeInside(cairo.get(), box, line + 2.0 * edge, kDark);
        StrokeInside(cairo.get(), box.Inset(edge), line, colour);
    }
    picture->Changed();
    return picture;
}

} // namespace

Highlight::Highlight(CDialog& dialog, const Rgba& colour) : m_colour(colour)
{
    m_canvas.Create(0, 0, 0, 0);
    m_canvas.SetState(CControlBase::kStateHidden);
    dialog.AddCntrlBefore(&m_canvas, nullptr);
}

void Highlight::Show(const render::Rectangle<int>& area, int cardWidth)
{
    if (area.width < 1 || area.height < 1 || area.width > kWidest || area.height > kWidest) {
        Hide();
        return;
    }
    const int outside = std::max(static_cast<int>(cardWidth * kLineShare), 2);
    const render::Rectangle<int> frame{area.x - outside, area.y - outside, area.width + 2 * outside,
                                       area.height + 2 * outside};
    if (frame.width != m_drawn.width || frame.height != m_drawn.height || cardWidth != m_cardWidth) {
        OwnedBitmap picture = MakeFrame(frame.width, frame.height, cardWidth, m_colour);
        m_canvas.SetBitmap(picture.get());
        m_canvas.SetSize(frame.width, frame.height);
        m_picture = std::move(picture);
        m_cardWidth = cardWidth;
    }
    m_drawn = frame;
    m_canvas.SetPos(frame.x, frame.y);
    m_canvas.SetState(CControlBase::kStateShown);
}

void Highlight::Hide()
{
    m_canvas.SetState(CControlBase::kStateHidden);
}

} // namespace klondike
