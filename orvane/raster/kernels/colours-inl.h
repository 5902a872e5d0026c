// SPDX-License-Identifier: MIT
// The arithmetic of colours and source-over: a pixel is two pairs of 16-bit lanes, blue and red, green and alpha.
#pragma once

#include "orvane/raster/kernels/vectors-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane::raster
{
namespace
{

/// Source-over with exact rounding, see SourceOver().
HWY_INLINE Pixels32 Over(Pixels32 destination, Pixels32 source)
{
    const auto low = hn::Set(halves, 0xFF);
    const auto half = hn::Set(halves, 128);
    const auto toByte = hn::Set(halves, 257);
    const auto alpha = hn::ShiftRight<24>(source);
    const auto alphaTwice = hn::BitCast(halves, hn::Or(alpha, hn::ShiftLeft<16>(alpha)));
    const auto keep = hn::Sub(low, alphaTwice);
    const auto under = hn::BitCast(halves, destination);
    const auto even = hn::MulHigh(hn::Add(hn::Mul(hn::And(under, low), keep), half), toByte);
    const auto odd = hn::MulHigh(hn::Add(hn::Mul(hn::ShiftRight<8>(under), keep), half), toByte);
    const auto kept = hn::BitCast(bytes, hn::Or(even, hn::ShiftLeft<8>(odd)));
    return hn::BitCast(words, hn::SaturatedAdd(kept, hn::BitCast(bytes, source)));
}

/// Blue and red of each pixel, in 8.7 bits.
HWY_INLINE Channels EvenOf(Pixels32 pixels)
{
    return hn::BitCast(signedHalves, hn::And(hn::ShiftLeft<7>(hn::BitCast(halves, pixels)), hn::Set(halves, 0x7F80)));
}

/// Green and alpha of each pixel, in 8.7 bits.
HWY_INLINE Channels OddOf(Pixels32 pixels)
{
    return hn::BitCast(signedHalves, hn::And(hn::ShiftRight<1>(hn::BitCast(halves, pixels)), hn::Set(halves, 0x7F80)));
}

/// The low half of each lane in both halves.
HWY_INLINE Channels LowTwice(Pixels32 lanes)
{
    const auto low = hn::And(lanes, hn::Set(words, 0xFFFF));
    return hn::BitCast(signedHalves, hn::Or(low, hn::ShiftLeft<16>(lanes)));
}

/// The high half of each lane in both halves.
HWY_INLINE Channels HighTwice(Pixels32 lanes)
{
    const auto high = hn::ShiftRight<16>(lanes);
    return hn::BitCast(signedHalves, hn::Or(high, hn::ShiftLeft<16>(high)));
}

/// Colours between two bytes, in 8.7 bits.
struct Colours {
    Channels even;
    Channels odd;

    /// By weights from 0 to -2^15: negative, since 16 bits can't hold the whole otherwise.
    HWY_INLINE Colours Weighted(Channels negativeWeight) const
    {
        return {hn::Neg(hn::MulFixedPoint15(even, negativeWeight)), hn::Neg(hn::MulFixedPoint15(odd, negativeWeight))};
    }
    HWY_INLINE Colours HeldAt255() const
    {
        const auto most = hn::Set(halves, 0x7F80);
        return {hn::BitCast(signedHalves, hn::Min(hn::BitCast(halves, even), most)),
                hn::BitCast(signedHalves, hn::Min(hn::BitCast(halves, odd), most))};
    }
    /// To nearest; at most 255.
    HWY_INLINE Pixels32 Rounded() const
    {
        const auto half = hn::Set(halves, 64);
        const auto low = hn::ShiftRight<7>(hn::Add(hn::BitCast(halves, even), half));
        const auto high = hn::ShiftLeft<1>(hn::Add(hn::BitCast(halves, odd), half));
        return hn::BitCast(words, hn::Or(low, hn::And(high, hn::Set(halves, 0xFF00))));
    }
    /// Source-over, rounded once.
    HWY_INLINE Pixels32 Over(Pixels32 destination) const
    {
        const auto keep = hn::Sub(hn::Set(signedHalves, 0x7F80), HighTwice(hn::BitCast(words, odd)));
        const auto share = hn::Add(keep, hn::ShiftRight<8>(keep)); // of 2^15 instead of 255 * 2^7
        return Colours{hn::Add(even, hn::MulFixedPoint15(EvenOf(destination), share)),
                       hn::Add(odd, hn::MulFixedPoint15(OddOf(destination), share))}
            .HeldAt255()
            .Rounded();
    }
    HWY_INLINE bool AreOpaque() const
    {
        const auto alpha = hn::And(hn::BitCast(words, odd), hn::Set(words, 0xFFFF0000U));
        return hn::AllTrue(words, hn::Eq(alpha, hn::Set(words, 0x7F800000U)));
    }
    HWY_INLINE bool AreClear() const
    {
        return hn::AllTrue(words, hn::Eq(hn::BitCast(words, hn::Or(even, odd)), hn::Zero(words)));
    }
};

HWY_INLINE bool AreOpaque(Pixels32 pixels)
{
    const auto colour = hn::Set(words, 0x00FFFFFFU);
    return hn::AllTrue(words, hn::Eq(hn::Or(pixels, colour), hn::Set(words, 0xFFFFFFFFU)));
}

/// Blends a vector of pixels, of which the first count lie in the row.
HWY_INLINE void BlendInto(std::uint32_t* destination, Pixels32 source, int count)
{
    if (AreOpaque(source)) {
        Put(destination, source, count);
    } else if (!hn::AllTrue(words, hn::Eq(source, hn::Zero(words)))) {
        Put(destination, Over(Get(destination, count), source), count);
    }
}

/// The same for colours between bytes.
HWY_INLINE void BlendInto(std::uint32_t* destination, const Colours& source, int count)
{
    if (source.AreOpaque()) {
        Put(destination, source.Rounded(), count);
    } else if (!source.AreClear()) {
        Put(destination, source.Over(Get(destination, count)), count);
    }
}

HWY_INLINE void BlendRowInto(std::uint32_t* destination, const std::uint32_t* source, int count)
{
    int i = 0;
    for (; i + kStep <= count; i += kStep) {
        BlendInto(destination + i, hn::LoadU(words, source + i), kStep);
    }
    if (i == count) {
        return;
    }
    if (i > 0) {
        // A whole vector takes less than a part of one; what is opaque may be written twice.
        const auto last = hn::LoadU(words, source + count - kStep);
        if (AreOpaque(last)) {
            hn::StoreU(last, words, destination + count - kStep);
            return;
        }
    }
    BlendInto(destination + i, LoadFirst(source + i, count - i), count - i);
}

void BlendRowOf(std::uint32_t* destination, const std::uint32_t* source, int count)
{
    BlendRowInto(destination, source, count);
}

} // namespace
} // namespace orvane::raster
HWY_AFTER_NAMESPACE();
