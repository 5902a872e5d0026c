// SPDX-License-Identifier: MIT
#include "palette.h"

namespace deck
{

namespace
{

constexpr Colour FromHex(unsigned rgb)
{
    return {static_cast<double>(rgb >> 16 & 0xff) / 255.0, static_cast<double>(rgb >> 8 & 0xff) / 255.0,
            static_cast<double>(rgb & 0xff) / 255.0};
}

} // namespace

Ink Resolve(Ink ink, const Dress& dress)
{
    switch (ink) {
    case Ink::Primary:
        return dress.primary;
    case Ink::Secondary:
        return dress.secondary;
    case Ink::Trim:
        return dress.trim;
    case Ink::Hair:
        return dress.hair;
    default:
        return ink;
    }
}

Colour ColourOf(Ink ink)
{
    switch (ink) {
    case Ink::Paper:
        return FromHex(0xfffdf8);
    case Ink::Panel:
        return FromHex(0xfdf4dd);
    case Ink::PanelRay:
        return FromHex(0xf8e7bf);
    case Ink::Edge:
        return FromHex(0xaca393);
    case Ink::Red:
        return FromHex(0xc9202c);
    case Ink::DeepRed:
        return FromHex(0x8c1420);
    case Ink::Gold:
        return FromHex(0xe9ac2f);
    case Ink::PaleGold:
        return FromHex(0xf8d98a);
    case Ink::DeepGold:
        return FromHex(0xa5681b);
    case Ink::Blue:
        return FromHex(0x24569c);
    case Ink::DeepBlue:
        return FromHex(0x163562);
    case Ink::Skin:
        return FromHex(0xf9dcc0);
    case Ink::SkinShade:
        return FromHex(0xeab993);
    case Ink::White:
        return FromHex(0xffffff);
    default:
        return FromHex(0x1d1a22);
    }
}

} // namespace deck
