// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/labels/text_painter.h"
#include "host/owned_bitmap.h"
#include "host/rectangle.h"

#include <string>
#include <vector>

namespace klondike
{

/// A line of a panel.
struct PanelLine {
    enum class Kind {
        Text,
        Title,     ///< bold and larger, in the middle
        Note,      ///< paler
        Item,      ///< to choose: does not wrap
        Separator, ///< a thin line; shows no text
    };

    std::string text{};
    Kind kind = Kind::Text;
    std::string end{};      ///< at the right edge: a key, a value
    bool isMarked = false;  ///< the item under the pointer or the keyboard
    bool isChecked = false; ///< the item that holds now: a tick before it
};

struct PanelStyle {
    int textPixels = 16; ///< all else follows from it
    int minWidth = 0;    ///< of the picture, pixels
    int maxWidth = 640;  ///< text wraps, items are cut
};

struct Panel {
    OwnedBitmap picture;                       ///< null when it would be larger than a bitmap can be
    std::vector<render::Rectangle<int>> lines; ///< where each line lies in the picture, over the panel's whole width
};

/// A rounded, slightly see-through panel as large as its lines: a menu, a message, help.
Panel MakePanel(const TextPainter& painter, const std::vector<PanelLine>& lines, const PanelStyle& style);

} // namespace klondike
