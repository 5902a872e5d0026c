// SPDX-License-Identifier: MIT
#include "costume.h"

#include <array>

namespace deck
{

namespace
{

// King: a wide mantle with an ermine cape.
constexpr std::string_view kKingRobe =
    "M -16 122 C -40 124 -60 128 -72 136 L -64 240 L 64 240 L 72 136 C 60 128 40 124 16 122 Z";
constexpr std::string_view kKingSleeves =
    "M -70 134 C -92 140 -108 152 -114 170 L -114 240 L -62 240 C -64 200 -66 170 -62 146 Z "
    "M 70 134 C 92 140 108 152 114 170 L 114 240 L 62 240 C 64 200 66 170 62 146 Z";
constexpr auto kKingOver = std::to_array<Layer>({
    {Ink::White, Ink::Black, kOutline,
     "M -16 114 C -38 117 -54 121 -66 129 C -64 140 -54 146 -44 143 C -38 152 -28 155 -20 151 "
     "C -14 158 14 158 20 151 C 28 155 38 152 44 143 C 54 146 64 140 66 129 "
     "C 54 121 38 117 16 114 Q 0 126 -16 114 Z"},
    {Ink::Black, Ink::None, 0,
     "M -28 122 L -25 131 L -31 131 Z M 28 122 L 31 131 L 25 131 Z M -42 124 L -39 133 L -45 133 Z "
     "M 42 124 L 45 133 L 39 133 Z M -56 127 L -53 136 L -59 136 Z M 56 127 L 59 136 L 53 136 Z "
     "M -33 137 L -30 146 L -36 146 Z M 33 137 L 36 146 L 30 146 Z M -19 137 L -16 146 L -22 146 Z "
     "M 19 137 L 22 146 L 16 146 Z"},
});

// Queen: a standing lace collar, puffed sleeves and a low neckline with a necklace.
constexpr auto kQueenBehind = std::to_array<Layer>({
    {Ink::White, Ink::Black, kOutline,
     "M -10 132 L -48 126 C -58 118 -64 106 -62 92 Q -57 84 -51 91 Q -45 86 -40 95 L -20 112 "
     "L 20 112 L 40 95 Q 45 86 51 91 Q 57 84 62 92 C 64 106 58 118 48 126 L 10 132 Z"},
    {Ink::None, Ink::Trim, 2, "M -53 98 C -54 108 -50 116 -42 121 M 53 98 C 54 108 50 116 42 121"},
    {Ink::Trim, Ink::None, 0, "O -45 100 2.4 O 45 100 2.4 O -40 109 2.4 O 40 109 2.4"},
});
constexpr std::string_view kQueenRobe =
    "M -14 124 C -36 124 -52 126 -62 132 L -44 240 L 44 240 L 62 132 C 52 126 36 124 14 124 Z";
constexpr std::string_view kQueenSleeves =
    "M -58 129 C -90 122 -114 144 -112 174 C -112 196 -98 204 -84 202 C -64 204 -48 190 -48 168 C -48 152 -50 138 -58 "
    "129 Z "
    "M 58 129 C 90 122 114 144 112 174 C 112 196 98 204 84 202 C 64 204 48 190 48 168 C 48 152 50 138 58 129 Z";
constexpr auto kQueenOver = std::to_array<Layer>({
    {Ink::Skin, Ink::Black, kOutline,
     "M -32 124 C -26 148 -12 155 0 156 C 12 155 26 148 32 124 Q 12 126 10 116 L -10 116 "
     "Q -12 126 -32 124 Z"},
    {Ink::None, Ink::Black, 6, "M -33 123 C -26 149 -12 157 0 158 C 12 157 26 149 33 123"},
    {Ink::None, Ink::Trim, 3.6, "M -33 123 C -26 149 -12 157 0 158 C 12 157 26 149 33 123"},
    {Ink::White, Ink::Black, 1, "O -14 129 2.6 O -9 134 2.6 O -3.5 137 2.6 O 3.5 137 2.6 O 9 134 2.6 O 14 129 2.6"},
    {Ink::Red, Ink::Black, 1, "M 0 139 L 4 145 L 0 151 L -4 145 Z"},
});

// Jack: a buttoned doublet with slashed sleeves and a turned-down collar.
constexpr std::string_view kJackRobe =
    "M -14 120 C -40 124 -58 128 -68 136 L -62 240 L 62 240 L 68 136 C 58 128 40 124 14 120 Z";
constexpr std::string_view kJackSleeves =
    "M -64 132 C -86 134 -104 148 -112 178 L -114 240 L -66 240 C -66 200 -62 160 -58 140 Z "
    "M 64 132 C 86 134 104 148 112 178 L 114 240 L 66 240 C 66 200 62 160 58 140 Z";
constexpr auto kJackOver = std::to_array<Layer>({
    {Ink::Trim, Ink::Black, kOutline, "M -7 136 L 7 136 L 7 200 L -7 200 Z"},
    {Ink::White, Ink::Black, 1.2, "O 0 147 3.2 O 0 157 3.2"},
    {Ink::White, Ink::Black, kOutline,
     "M -12 112 L -44 121 C -42 132 -32 142 -20 146 L 0 131 L 20 146 C 32 142 42 132 44 121 "
     "L 12 112 L 0 124 Z"},
    {Ink::None, Ink::Trim, 2, "M -38 124 C -36 131 -30 137 -21 140 L -6 129 M 38 124 C 36 131 30 137 21 140 L 6 129"},
});

} // namespace

Costume CostumeOf(Rank rank)
{
    if (rank == kKing) {
        return {{}, kKingRobe, kKingSleeves, kKingOver};
    }
    if (rank == kQueen) {
        return {kQueenBehind, kQueenRobe, kQueenSleeves, kQueenOver};
    }
    return {{}, kJackRobe, kJackSleeves, kJackOver};
}

} // namespace deck
