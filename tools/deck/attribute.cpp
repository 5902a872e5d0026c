// SPDX-License-Identifier: MIT
#include "attribute.h"

#include <array>

namespace deck
{

namespace
{

constexpr auto kOrb = std::to_array<Layer>({
    {Ink::Gold, Ink::Black, kOutline,
     "M -3 -42 L -3 -58 L -11 -58 L -11 -65 L -3 -65 L -3 -76 L 3 -76 L 3 -65 L 11 -65 "
     "L 11 -58 L 3 -58 L 3 -42 Z"},
    {Ink::Blue, Ink::Black, kOutline, "O 0 -25 18"},
    {Ink::Gold, Ink::Black, 1.2, "M -18 -28 Q 0 -21 18 -28 L 18 -22 Q 0 -14 -18 -22 Z"},
    {Ink::Gold, Ink::Black, 1.2, "M -3 -43 L 3 -43 L 3 -25 L -3 -25 Z"},
    {Ink::White, Ink::None, 0, "O -9 -34 3"},
});

constexpr auto kAxe = std::to_array<Layer>({
    {Ink::DeepGold, Ink::Black, kOutline, "M -3 60 L -3 -112 L 3 -112 L 3 60 Z"},
    {Ink::White, Ink::Black, kOutline,
     "M 3 -102 C 9 -102 14 -107 18 -114 C 24 -96 24 -80 18 -64 C 14 -71 9 -76 3 -76 Z"},
    {Ink::White, Ink::Black, kOutline, "M -3 -98 L -12 -104 L -12 -74 L -3 -80 Z"},
    {Ink::None, Ink::Blue, 1.8, "M 15 -106 C 19 -94 19 -84 15 -72"},
    {Ink::Gold, Ink::Black, 1.4, "M -5 -104 L 5 -104 L 5 -74 L -5 -74 Z"},
    {Ink::Gold, Ink::Black, 1.4, "O 0 -114 5"},
});

constexpr auto kSword = std::to_array<Layer>({
    {Ink::White, Ink::Black, kOutline, "M -6 -16 L -6 -104 L 0 -120 L 6 -104 L 6 -16 Z"},
    {Ink::Blue, Ink::None, 0, "M 0 -18 L 0 -116 L 4.6 -103 L 4.6 -18 Z"},
    {Ink::Gold, Ink::Black, kOutline, "M -17 -22 L -17 -14 L 17 -14 L 17 -22 L 8 -19 L -8 -19 Z"},
    {Ink::Gold, Ink::Black, 1.4, "O -17 -18 4.5 O 17 -18 4.5"},
    {Ink::Red, Ink::Black, kOutline, "M -4 -14 L 4 -14 L 4 16 L -4 16 Z"},
});

constexpr auto kSceptre = std::to_array<Layer>({
    {Ink::Gold, Ink::Black, kOutline, "M -3.4 60 L -3.4 -78 L 3.4 -78 L 3.4 60 Z"},
    {Ink::Gold, Ink::Black, 1.4, "M -8 -60 L 8 -60 L 8 -66 L -8 -66 Z"},
    {Ink::Gold, Ink::Black, kOutline,
     "M -9 -72 C -20 -86 -16 -98 -8 -100 C -10 -92 -6 -88 -4 -86 L -6 -102 L 0 -120 L 6 -102 "
     "L 4 -86 C 6 -88 10 -92 8 -100 C 16 -98 20 -86 9 -72 Z"},
    {Ink::Red, Ink::Black, 1.2, "O 0 -80 5"},
});

constexpr auto kTulip = std::to_array<Layer>({
    {Ink::None, Ink::Black, 6, "M 0 40 C 2 0 2 -30 0 -56"},
    {Ink::None, Ink::DeepGold, 3, "M 0 40 C 2 0 2 -30 0 -56"},
    {Ink::Gold, Ink::Black, kOutline, "M 1 -14 C 14 -20 18 -36 16 -52 C 6 -44 2 -30 1 -14 Z"},
    {Ink::Gold, Ink::Black, kOutline, "M 1 -14 C -12 -18 -17 -30 -16 -42 C -6 -36 0 -26 1 -14 Z"},
    {Ink::Red, Ink::Black, kOutline,
     "M -15 -96 C -19 -72 -12 -56 0 -54 C 12 -56 19 -72 15 -96 L 7 -84 L 0 -102 L -7 -84 Z"},
    {Ink::Gold, Ink::Black, 1.4, "M 0 -102 C -9 -84 -9 -64 0 -56 C 9 -64 9 -84 0 -102 Z"},
});

constexpr auto kFan = std::to_array<Layer>({
    {Ink::White, Ink::Black, kOutline, "M 0 -4 L -31 -36 C -26 -60 26 -60 31 -36 Z"},
    {Ink::Red, Ink::None, 0, "M -23 -28 C -20 -42 20 -42 23 -28 L 29 -34 C 24 -56 -24 -56 -29 -34 Z"},
    {Ink::Gold, Ink::None, 0, "O 0 -46 3 O -13 -43 3 O 13 -43 3 O -24 -36 2.6 O 24 -36 2.6"},
    {Ink::None, Ink::Black, 1.2, "M 0 -4 L -20 -46 M 0 -4 L -7 -52 M 0 -4 L 7 -52 M 0 -4 L 20 -46"},
    {Ink::Gold, Ink::Black, 1.4, "M -5 4 L -11 -15 L 11 -15 L 5 4 Z"},
});

constexpr auto kRose = std::to_array<Layer>({
    {Ink::None, Ink::Black, 6, "M 0 40 C -2 0 2 -30 0 -60"},
    {Ink::None, Ink::DeepGold, 3, "M 0 40 C -2 0 2 -30 0 -60"},
    {Ink::Gold, Ink::Black, kOutline, "M 0 -18 C 12 -18 18 -30 18 -42 C 8 -40 0 -32 0 -18 Z"},
    {Ink::Gold, Ink::Black, kOutline, "M 0 -24 C -10 -24 -16 -34 -16 -46 C -6 -42 0 -36 0 -24 Z"},
    {Ink::Red, Ink::Black, kOutline, "O -9 -68 9 O 9 -68 9 O -11 -82 9 O 11 -82 9 O 0 -91 9"},
    {Ink::Red, Ink::Black, 1.4, "O 0 -77 12"},
    {Ink::None, Ink::PaleGold, 2, "M -7 -75 C -6 -67 7 -67 7 -77 C 7 -85 -3 -86 -4 -79 C -4 -75 1 -74 2 -77"},
});

constexpr auto kMirror = std::to_array<Layer>({
    {Ink::Gold, Ink::Black, kOutline, "M -3.4 36 L -3.4 -40 L 3.4 -40 L 3.4 36 Z"},
    {Ink::Gold, Ink::Black, kOutline, "M 0 -104 C 17.5 -104 17.5 -40 0 -40 C -17.5 -40 -17.5 -104 0 -104 Z"},
    {Ink::White, Ink::Black, 1.4, "M 0 -98.5 C 11.5 -98.5 11.5 -45.5 0 -45.5 C -11.5 -45.5 -11.5 -98.5 0 -98.5 Z"},
    {Ink::None, Ink::Blue, 2.4, "M -4 -62 L 4 -80 M 0 -56 L 6 -70"},
    {Ink::Red, Ink::Black, 1.4, "O 0 -107 5"},
    {Ink::Gold, Ink::Black, 1.4, "M -9 -34 L 9 -34 L 6 -42 L -6 -42 Z"},
});

constexpr auto kFeather = std::to_array<Layer>({
    {Ink::White, Ink::Black, kOutline, "M 0 -16 C -18 -40 -18 -88 4 -120 C 20 -90 20 -44 0 -16 Z"},
    {Ink::Blue, Ink::None, 0, "M 1 -19 C 16 -46 17 -88 4 -116 C 6 -80 4 -50 1 -19 Z"},
    {Ink::None, Ink::Black, 1.6, "M 0 30 C 0 -20 8 -70 4 -112"},
    {Ink::None, Ink::Black, 1.2, "M 2 -40 L -11 -52 M 4 -58 L -11 -72 M 5 -76 L -8 -90 M 5 -92 L -3 -102"},
});

constexpr auto kTorch = std::to_array<Layer>({
    {Ink::Red, Ink::Black, kOutline,
     "M -10 -58 C -22 -76 -12 -88 -8 -98 C -4 -92 -4 -90 -3 -88 C -2 -100 2 -110 -2 -121 "
     "C 14 -110 12 -98 12 -92 C 14 -94 15 -96 15 -100 C 22 -84 20 -70 10 -58 Z"},
    {Ink::Gold, Ink::None, 0,
     "M -6 -59 C -13 -70 -8 -78 -5 -84 C -3 -80 -1 -80 0 -82 C 2 -88 3 -92 4 -97 C 8 -88 14 -74 6 -59 Z"},
    {Ink::DeepGold, Ink::Black, kOutline, "M -4 60 L -5 -44 L 5 -44 L 4 60 Z"},
    {Ink::Gold, Ink::Black, kOutline, "M -8 -40 L -13 -58 L 13 -58 L 8 -40 Z"},
    {Ink::None, Ink::Black, 1.4, "M -10 -49 L 10 -49"},
});

constexpr auto kPennant = std::to_array<Layer>({
    {Ink::DeepGold, Ink::Black, kOutline, "M -2.8 60 L -2.8 -106 L 2.8 -106 L 2.8 60 Z"},
    {Ink::Red, Ink::Black, kOutline, "M 3 -103 C 10 -108 14 -98 20 -102 L 18 -86 L 20 -66 C 14 -62 10 -72 3 -67 Z"},
    {Ink::None, Ink::Gold, 3.6, "M 4 -85 C 10 -90 13 -80 17.5 -84.5"},
    {Ink::Gold, Ink::Black, kOutline, "M 0 -122 L 6 -108 L 0 -102 L -6 -108 Z"},
});

constexpr auto kHalberd = std::to_array<Layer>({
    {Ink::DeepGold, Ink::Black, kOutline, "M -3 60 L -3 -84 L 3 -84 L 3 60 Z"},
    {Ink::White, Ink::Black, kOutline, "M 3 -90 C 8 -90 13 -94 16 -98 C 21 -86 21 -76 16 -64 C 13 -68 8 -71 3 -71 Z"},
    {Ink::White, Ink::Black, kOutline, "M -3 -88 L -13 -96 L -9 -80 L -13 -66 L -3 -73 Z"},
    {Ink::White, Ink::Black, kOutline, "M -5 -92 L 0 -122 L 5 -92 Z"},
    {Ink::Gold, Ink::Black, 1.4, "M -5 -92 L 5 -92 L 5 -66 L -5 -66 Z"},
    {Ink::Red, Ink::Black, 1.4, "M -4 -66 L 4 -66 L 7 -50 L 2 -55 L 0 -48 L -2 -55 L -7 -50 Z"},
});

} // namespace

std::span<const Layer> AttributeLayers(Attribute attribute)
{
    switch (attribute) {
    case Attribute::Orb:
        return kOrb;
    case Attribute::Axe:
        return kAxe;
    case Attribute::Sword:
        return kSword;
    case Attribute::Sceptre:
        return kSceptre;
    case Attribute::Tulip:
        return kTulip;
    case Attribute::Fan:
        return kFan;
    case Attribute::Rose:
        return kRose;
    case Attribute::Mirror:
        return kMirror;
    case Attribute::Feather:
        return kFeather;
    case Attribute::Torch:
        return kTorch;
    case Attribute::Pennant:
        return kPennant;
    case Attribute::Halberd:
        break;
    }
    return kHalberd;
}

} // namespace deck
