// SPDX-License-Identifier: MIT
#pragma once

namespace deck
{

struct Colour {
    double red;
    double green;
    double blue;
};

/// The inks of the deck. The last four are roles that a Dress fills, so that one drawing serves several courts.
enum class Ink {
    None,
    Paper,
    Panel,
    PanelRay,
    Edge,
    Black,
    Red,
    DeepRed,
    Gold,
    PaleGold,
    DeepGold,
    Blue,
    DeepBlue,
    Skin,
    SkinShade,
    White,
    Primary,
    Secondary,
    Trim,
    Hair,
};

/// What the role inks stand for in one figure. Each is a real ink, not a role.
struct Dress {
    Ink primary = Ink::Red;
    Ink secondary = Ink::Blue;
    Ink trim = Ink::Gold;
    Ink hair = Ink::Black;
};

/// The real ink behind a role; any other ink is itself.
Ink Resolve(Ink ink, const Dress& dress);

/// The colour of an ink, straight, 0 to 1. A role has none of its own: resolve it first.
Colour ColourOf(Ink ink);

} // namespace deck
