// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/labels/text_painter.h"
#include "host/owned_bitmap.h"

#include <string>

namespace klondike
{

/// A sign on a button, drawn from lines and arcs.
enum class ButtonSymbol { None, NewGame, Restart, Undo, Redo, Hint, Finish, Menu, Deck, Help, Close };

enum class ButtonState { Normal, Hover, Pressed, Disabled };

/// What a button shows; any of symbol and text may be missing.
struct ButtonFace {
    ButtonSymbol symbol = ButtonSymbol::None;
    std::string text{};
    ButtonState state = ButtonState::Normal;
    bool isFocused = false; ///< by the keyboard: a ring
};

/// The width at which a button of that height holds its symbol and its text, pixels. A symbol alone: a square.
int ButtonWidth(const TextPainter& painter, const ButtonFace& face, int height);

/// The picture of a button: a rounded plate, see-through around it, text and symbol in its middle. Text that does not
/// fit is cut. Null for a side of 0 or less or one above Bitmap::kMaxSide.
OwnedBitmap MakeButtonFace(const TextPainter& painter, const ButtonFace& face, int width, int height);

} // namespace klondike
