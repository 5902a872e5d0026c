// SPDX-License-Identifier: MIT
#include "court_head.h"

#include <array>

namespace deck
{

namespace
{

constexpr auto kFace = std::to_array<Layer>({
    {Ink::SkinShade, Ink::None, 0, "M -10 20 L -11 42 Q 0 50 11 42 L 10 20 Z"},
    {Ink::Skin, Ink::None, 0, "M -10 24 L -11 42 Q -6 46 -2 46 L -6 27 Z"},
    {Ink::Skin, Ink::Black, kOutline,
     "M -21 -12 C -22 -34 22 -34 21 -12 L 20 6 C 19 17 10 28 0 28 C -10 28 -19 17 -20 6 Z"},
    {Ink::SkinShade, Ink::None, 0,
     "M 3 -27 C 16 -27 20 -21 20 -12 L 19 6 C 18 16 10 27 1 27 C 6 22 5 17 4 12 L 1 10 L 3 -8 Z"},
    {Ink::White, Ink::Black, 1.2,
     "M -16 -2 Q -10 -8 -4.5 -2 Q -10 1.5 -16 -2 Z M 6.5 -2 Q 12 -8 17 -2 Q 12 1.5 6.5 -2 Z"},
    {Ink::Black, Ink::None, 0, "O -10.5 -3 2.5 O 11.5 -3 2.5"},
    {Ink::None, Ink::Black, 1.8, "M -17 -8 Q -11 -13 -3 -9 M 5.5 -9 Q 12 -13 17.5 -8"},
    {Ink::None, Ink::Black, 1.5, "M 2.5 -8 L -3 8 L 2 10"},
});

constexpr auto kKingBackHair = std::to_array<Layer>({
    {Ink::Hair, Ink::Black, kOutline,
     "M -22 -20 C -36 -8 -28 8 -35 22 C -38 32 -24 38 -17 26 L 17 26 C 24 38 38 32 35 22 "
     "C 28 8 36 -8 22 -20 Z"},
    {Ink::None, Ink::Paper, 1.2, "M -26 -4 C -25 8 -30 16 -29 25 M 26 -4 C 25 8 30 16 29 25"},
});

constexpr auto kQueenBackHair = std::to_array<Layer>({
    {Ink::Hair, Ink::Black, kOutline,
     "M 0 -34 C -31 -36 -36 -8 -32 10 C -30 24 -42 34 -40 50 C -32 60 -17 54 -13 36 L 13 36 "
     "C 17 54 32 60 40 50 C 42 34 30 24 32 10 C 36 -8 31 -36 0 -34 Z"},
    {Ink::None, Ink::Paper, 1.2,
     "M -27 0 C -24 18 -33 32 -31 47 M 27 0 C 24 18 33 32 31 47 M -22 20 C -21 30 -24 38 -23 45 "
     "M 22 20 C 21 30 24 38 23 45"},
});

constexpr auto kJackBackHair = std::to_array<Layer>({
    {Ink::Hair, Ink::Black, kOutline,
     "M 0 -33 C -30 -34 -31 -8 -29 8 C -28 20 -36 24 -39 17 C -46 30 -30 37 -19 29 L 19 29 "
     "C 30 37 46 30 39 17 C 36 24 28 20 29 8 C 31 -8 30 -34 0 -33 Z"},
    {Ink::None, Ink::Paper, 1.2, "M -25 -6 C -22 10 -24 24 -32 26 M 25 -6 C 22 10 24 24 32 26"},
});

constexpr auto kKingDetail = std::to_array<Layer>({
    {Ink::Hair, Ink::Black, kOutline,
     "M -20.5 0 C -22 22 -18 34 -13 43 C -9 50 -4 52 0 56 C 4 52 9 50 13 43 C 18 34 22 22 "
     "20.5 0 C 17 10 12 12 7 12 Q 0 9 -7 12 C -12 12 -17 10 -20.5 0 Z"},
    {Ink::Red, Ink::Black, 0.8, "M -6 21 Q 0 18 6 21 Q 0 26 -6 21 Z"},
    {Ink::Hair, Ink::Paper, 1.2,
     "M 0 13 C -6 9 -13 13 -19 21 C -11 24 -4 21 0 17 C 4 21 11 24 19 21 C 13 13 6 9 0 13 Z"},
    {Ink::None, Ink::Paper, 1.2,
     "M 0 29 L 0 50 M -7 28 Q -8 38 -5 46 M 7 28 Q 8 38 5 46 M -13 26 Q -13 34 -10 40 "
     "M 13 26 Q 13 34 10 40"},
});

constexpr auto kQueenDetail = std::to_array<Layer>({
    {Ink::Red, Ink::Black, 0.8, "M -7 17 Q -3 14 0 16 Q 3 14 7 17 Q 0 22.5 -7 17 Z"},
    {Ink::Hair, Ink::Black, kOutline,
     "M 0 -29 C -12 -27 -19 -17 -21 4 C -29 -10 -27 -33 0 -34 C 27 -33 29 -10 21 4 "
     "C 19 -17 12 -27 0 -29 Z"},
    {Ink::Gold, Ink::Black, 1.2, "O -23 12 3.2 O 23 12 3.2"},
});

constexpr auto kJackDetail = std::to_array<Layer>({
    {Ink::None, Ink::DeepRed, 2, "M -6 17 Q 0 19 7 16.5"},
    {Ink::None, Ink::Black, 1.2, "M -2 22 L 3 22"},
    {Ink::Hair, Ink::Black, kOutline,
     "M -21 -4 C -26 -34 26 -34 21 -4 C 19 -14 12 -17 0 -17 C -12 -17 -19 -14 -21 -4 Z"},
});

// Crowns and caps rest on the forehead, about 18 above the middle of the face.
constexpr std::string_view kBand = "M -26 -17 Q 0 -25 26 -17 L 25 -27 Q 0 -35 -25 -27 Z";
constexpr Layer kGoldBand{Ink::Gold, Ink::Black, kOutline, kBand};
constexpr Layer kTrimBand{Ink::Trim, Ink::Black, kOutline, kBand};
constexpr Layer kBandGems{Ink::Red, Ink::Black, 1, "M 0 -31 L 5 -26 L 0 -21 L -5 -26 Z O -15 -24 3 O 15 -24 3"};
constexpr Layer kBandSapphires{Ink::Blue, Ink::Black, 1, "O 0 -26 3.6 O -15 -24 3 O 15 -24 3"};

constexpr auto kSpikedCrown = std::to_array<Layer>({
    {Ink::Gold, Ink::Black, kOutline,
     "M -25 -26 L -32 -50 L -15 -40 L 0 -58 L 15 -40 L 32 -50 L 25 -26 Q 0 -34 -25 -26 Z"},
    {Ink::White, Ink::Black, 1.4, "O -32 -51 3.8 O 0 -58 4.2 O 32 -51 3.8"},
    kGoldBand,
    kBandGems,
});

constexpr auto kArchedCrown = std::to_array<Layer>({
    {Ink::Red, Ink::Black, kOutline, "M -25 -26 C -40 -54 -8 -56 0 -46 C 8 -56 40 -54 25 -26 Q 0 -34 -25 -26 Z"},
    {Ink::None, Ink::Black, 7, "M -25 -28 C -38 -54 -6 -54 0 -46 C 6 -54 38 -54 25 -28 M 0 -30 L 0 -47"},
    {Ink::None, Ink::Gold, 4.4, "M -25 -28 C -38 -54 -6 -54 0 -46 C 6 -54 38 -54 25 -28 M 0 -30 L 0 -47"},
    {Ink::Gold, Ink::Black, 1.4,
     "M -2.5 -48 L -2.5 -53 L -7 -53 L -7 -58 L -2.5 -58 L -2.5 -62 L 2.5 -62 L 2.5 -58 L 7 -58 "
     "L 7 -53 L 2.5 -53 L 2.5 -48 Z"},
    kGoldBand,
    kBandSapphires,
});

constexpr auto kLilyCrown = std::to_array<Layer>({
    {Ink::Gold, Ink::Black, kOutline,
     "M -25 -26 L -27 -38 C -36 -36 -38 -46 -32 -50 C -26 -50 -22 -44 -22 -38 L -16 -36 L -8 -38 C -14 -50 -6 -56 0 "
     "-61 "
     "C 6 -56 14 -50 8 -38 L 16 -36 L 22 -38 C 22 -44 26 -50 32 -50 C 38 -46 36 -36 27 -38 L 25 -26 Q 0 -34 -25 -26 Z"},
    {Ink::Blue, Ink::Black, 1, "O 0 -45 4"},
    kGoldBand,
    kBandGems,
});

constexpr auto kTowerCrown = std::to_array<Layer>({
    {Ink::Gold, Ink::Black, kOutline,
     "M -25 -26 L -32 -52 L -20 -54 L -18 -45 L -8 -46 L -8 -57 L 8 -57 L 8 -46 L 18 -45 "
     "L 20 -54 L 32 -52 L 25 -26 Q 0 -34 -25 -26 Z"},
    {Ink::Blue, Ink::Black, 1, "M 0 -52 L 4 -46 L 0 -40 L -4 -46 Z"},
    {Ink::Red, Ink::Black, 1, "O -22 -42 3 O 22 -42 3"},
    kGoldBand,
    kBandSapphires,
});

constexpr Layer kCoronetBand{Ink::Gold, Ink::Black, kOutline, "M -23 -21 Q 0 -31 23 -21 L 24 -29 Q 0 -39 -24 -29 Z"};

constexpr auto kPearlCoronet = std::to_array<Layer>({
    {Ink::Gold, Ink::Black, kOutline,
     "M -24 -28 L -26 -41 L -13 -38 L 0 -50 L 13 -38 L 26 -41 L 24 -28 Q 0 -38 -24 -28 Z"},
    {Ink::White, Ink::Black, 1.2, "O -26 -43 3.6 O -13 -41 3.2 O 0 -52 4.2 O 13 -41 3.2 O 26 -43 3.6"},
    kCoronetBand,
});

constexpr auto kHeartCoronet = std::to_array<Layer>({
    {Ink::Gold, Ink::Black, kOutline,
     "M -24 -28 C -34 -40 -22 -48 -17 -38 C -16 -50 -4 -50 -3 -40 L 3 -40 C 4 -50 16 -50 17 -38 "
     "C 22 -48 34 -40 24 -28 Q 0 -38 -24 -28 Z"},
    {Ink::Red, Ink::Black, 1.2,
     "M 0 -42 C -3 -47 -10 -49 -9 -55 C -7 -60 -1 -58 0 -54 C 1 -58 7 -60 9 -55 C 10 -49 3 -47 0 -42 Z"},
    kCoronetBand,
});

constexpr auto kStarCoronet = std::to_array<Layer>({
    {Ink::Gold, Ink::Black, kOutline,
     "M -24 -28 L -20 -36 L -26 -46 L -14 -40 L -8 -44 L 0 -60 L 8 -44 L 14 -40 L 26 -46 L 20 -36 "
     "L 24 -28 Q 0 -38 -24 -28 Z"},
    {Ink::Blue, Ink::Black, 1.2, "M 0 -52 L 5 -44 L 0 -36 L -5 -44 Z"},
    kCoronetBand,
});

constexpr auto kLeafCoronet = std::to_array<Layer>({
    {Ink::Gold, Ink::Black, kOutline,
     "M -24 -28 Q -34 -36 -28 -48 Q -18 -44 -16 -36 Q -16 -46 -8 -50 Q -4 -44 -4 -38 L 4 -38 "
     "Q 4 -44 8 -50 Q 16 -46 16 -36 Q 18 -44 28 -48 Q 34 -36 24 -28 Q 0 -38 -24 -28 Z"},
    {Ink::Red, Ink::Black, 1.2, "O 0 -43 4.6"},
    kCoronetBand,
});

constexpr auto kBeret = std::to_array<Layer>({
    {Ink::Primary, Ink::Black, kOutline,
     "M -27 -22 C -40 -26 -42 -46 -14 -50 C 14 -55 40 -46 38 -34 C 37 -27 32 -24 27 -22 "
     "Q 0 -31 -27 -22 Z"},
    {Ink::None, Ink::Trim, 2, "M -30 -34 C -20 -44 12 -48 30 -36"},
    kTrimBand,
    {Ink::White, Ink::Black, kOutline, "M 14 -26 C 30 -28 36 -46 30 -61 C 19 -57 10 -44 14 -26 Z"},
    {Ink::None, Ink::Black, 1.2, "M 15 -27 C 21 -36 26 -46 29 -57"},
    {Ink::Red, Ink::Black, 1.2, "O 14 -26 4"},
});

constexpr auto kFeatheredCap = std::to_array<Layer>({
    {Ink::Primary, Ink::Black, kOutline, "M -26 -22 C -28 -42 -16 -50 0 -50 C 16 -50 28 -42 26 -22 Q 0 -31 -26 -22 Z"},
    {Ink::Trim, Ink::Black, kOutline,
     "M -32 -15 Q 0 -26 32 -15 L 36 -26 Q 24 -24 18 -31 Q 0 -36 -18 -31 Q -24 -24 -36 -26 Z"},
    {Ink::Red, Ink::Black, kOutline, "M 4 -32 C 24 -32 32 -44 32 -61 C 16 -61 4 -52 4 -32 Z"},
    {Ink::None, Ink::Black, 1.2, "M 5 -33 C 14 -42 22 -50 30 -59"},
    {Ink::Gold, Ink::Black, 1.2, "O 5 -31 4"},
});

constexpr auto kPointedCap = std::to_array<Layer>({
    {Ink::Primary, Ink::Black, kOutline, "M -26 -22 C -24 -40 -8 -46 4 -60 C 12 -58 26 -44 26 -22 Q 0 -31 -26 -22 Z"},
    {Ink::Secondary, Ink::Black, 1.4, "M 4 -60 C 12 -58 26 -44 26 -22 L 8 -26 C 12 -38 10 -50 4 -60 Z"},
    kTrimBand,
    {Ink::Gold, Ink::Black, 1.4, "O 4 -59 4.6"},
    {Ink::Red, Ink::Black, 1, "O -14 -24 3 O 0 -26 3 O 14 -24 3"},
});

constexpr auto kRoundCap = std::to_array<Layer>({
    {Ink::Primary, Ink::Black, kOutline, "M -27 -20 C -40 -40 -22 -56 0 -56 C 22 -56 40 -40 27 -20 Q 0 -31 -27 -20 Z"},
    {Ink::None, Ink::Trim, 2.4, "M 0 -55 L 0 -28 M -14 -52 Q -20 -40 -16 -26 M 14 -52 Q 20 -40 16 -26"},
    kTrimBand,
    {Ink::Blue, Ink::Black, 1, "O -14 -24 3 O 0 -26 3.6 O 14 -24 3"},
    {Ink::Gold, Ink::Black, 1.4, "O 0 -57 4.4"},
});

} // namespace

std::span<const Layer> FaceLayers()
{
    return kFace;
}

std::span<const Layer> BackHairLayers(Rank rank)
{
    if (rank == kKing) {
        return kKingBackHair;
    }
    if (rank == kQueen) {
        return kQueenBackHair;
    }
    return kJackBackHair;
}

std::span<const Layer> FaceDetailLayers(Rank rank)
{
    if (rank == kKing) {
        return kKingDetail;
    }
    if (rank == kQueen) {
        return kQueenDetail;
    }
    return kJackDetail;
}

std::span<const Layer> HeadgearLayers(Headgear headgear)
{
    switch (headgear) {
    case Headgear::SpikedCrown:
        return kSpikedCrown;
    case Headgear::ArchedCrown:
        return kArchedCrown;
    case Headgear::LilyCrown:
        return kLilyCrown;
    case Headgear::TowerCrown:
        return kTowerCrown;
    case Headgear::PearlCoronet:
        return kPearlCoronet;
    case Headgear::HeartCoronet:
        return kHeartCoronet;
    case Headgear::StarCoronet:
        return kStarCoronet;
    case Headgear::LeafCoronet:
        return kLeafCoronet;
    case Headgear::Beret:
        return kBeret;
    case Headgear::FeatheredCap:
        return kFeatheredCap;
    case Headgear::PointedCap:
        return kPointedCap;
    case Headgear::RoundCap:
        break;
    }
    return kRoundCap;
}

} // namespace deck
