// SPDX-License-Identifier: MIT
#pragma once

#include "host/canvas.h"
#include "host/owned_bitmap.h"
#include "host/rectangle.h"
#include "host/rgba.h"
#include "host/window.h"

namespace klondike
{

/// A frame around cards: the keyboard's place, what is selected, a hint.
class Highlight
{
public:
    /// Hidden, on top of the dialog's controls.
    Highlight(CDialog& dialog, const Rgba& colour);

    /// Shows it around an area of the dialog, pixels; the line has a part of the card's width. An empty area hides it.
    void Show(const render::Rectangle<int>& area, int cardWidth);
    void Hide();

private:
    Canvas m_canvas;
    Rgba m_colour;
    OwnedBitmap m_picture;
    render::Rectangle<int> m_drawn{0, 0, 0, 0};
    int m_cardWidth = 0;
};

} // namespace klondike
