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

/// The byte of each 16-bit lane whose factor is 0x80, times -128; the other's factor is 0.
HWY_INLINE Channels NegativeBytes(Pixels32 pixels, std::uint16_t factors)
{
#if HWY_TARGET == HWY_AVX3
    return Channels{_mm512_maddubs_epi16(pixels.raw, hn::Set(halves, factors).raw)};
#elif HWY_TARGET == HWY_AVX2
    return Channels{_mm256_maddubs_epi16(pixels.raw, hn::Set(halves, factors).raw)};
#elif HWY_TARGET == HWY_SSE4
    return Channels{_mm_maddubs_epi16(pixels.raw, hn::Set(halves, factors).raw)};
#else
    const auto both = hn::BitCast(halves, pixels);
    const auto shifted = factors == 0x0080 ? hn::ShiftLeft<7>(both) : hn::ShiftRight<1>(both);
    return hn::Neg(hn::BitCast(signedHalves, hn::And(shifted, hn::Set(halves, 0x7F80))));
#endif
}

/// Blue and red of each pixel, as Colours hold them.
HWY_INLINE Channels EvenOf(Pixels32 pixels)
{
    return NegativeBytes(pixels, 0x0080);
}

/// Green and alpha of each pixel, as Colours hold them.
HWY_INLINE Channels OddOf(Pixels32 pixels)
{
    return NegativeBytes(pixels, 0x8000);
}

/// Two bytes of each lane, twice: their numbers, from the lowest on.
HWY_INLINE Channels Twice(Pixels32 lanes, std::uint32_t numbers)
{
    const auto ofLane = hn::And(hn::Iota(words, 0), hn::Set(words, 3)); // in its block of 16 bytes
    const auto places = hn::Add(hn::Set(words, numbers), hn::Mul(ofLane, hn::Set(words, 0x04040404)));
    return hn::BitCast(signedHalves, hn::TableLookupBytes(hn::BitCast(bytes, lanes), hn::BitCast(bytes, places)));
}

/// The low half of each lane in both halves.
HWY_INLINE Channels LowTwice(Pixels32 lanes)
{
    return Twice(lanes, 0x01000100);
}

/// The high half of each lane in both halves.
HWY_INLINE Channels HighTwice(Pixels32 lanes)
{
    return Twice(lanes, 0x03020302);
}

/// Colours between two bytes, in 8.7 bits and negative: -255 * 2^7 is a whole channel. Bytes are multiplied by -2^7 in
/// one step, since 2^7 itself does not fit into the signed byte that it takes.
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
        const auto whole = hn::Set(signedHalves, -0x7F80);
        return {hn::Max(even, whole), hn::Max(odd, whole)};
    }
    /// To nearest; at most 255.
    HWY_INLINE Pixels32 Rounded() const
    {
        const auto half = hn::Set(halves, 64);
        const auto low = hn::ShiftRight<7>(hn::Sub(half, hn::BitCast(halves, even)));
        const auto high = hn::ShiftLeft<1>(hn::Sub(half, hn::BitCast(halves, odd)));
        return hn::BitCast(words, hn::Or(low, hn::And(high, hn::Set(halves, 0xFF00))));
    }
    /// Source-over, rounded once.
    HWY_INLINE Pixels32 Over(Pixels32 destination) const
    {
        const auto keep = hn::Add(hn::Set(signedHalves, 0x7F80), HighTwice(hn::BitCast(words, odd)));
        const auto share = hn::Add(keep, hn::ShiftRight<8>(keep)); // of 2^15 instead of 255 * 2^7
        return Colours{hn::SaturatedAdd(even, hn::MulFixedPoint15(EvenOf(destination), share)),
                       hn::SaturatedAdd(odd, hn::MulFixedPoint15(OddOf(destination), share))}
            .HeldAt255()
            .Rounded();
    }
    HWY_INLINE bool AreOpaque() const
    {
        const auto alpha = hn::And(hn::BitCast(words, odd), hn::Set(words, 0xFFFF0000U));
        return hn::AllTrue(words, hn::Eq(alpha, hn::Set(words, 0x80800000U)));
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
    // Most of a card is opaque: one test for as much as may be copied at once.
    for (; i + 4 * kStep <= count; i += 4 * kStep) {
        const auto a = hn::LoadU(words, source + i);
        const auto b = hn::LoadU(words, source + i + kStep);
        const auto c = hn::LoadU(words, source + i + 2 * kStep);
        const auto d = hn::LoadU(words, source + i + 3 * kStep);
        if (AreOpaque(hn::And(hn::And(a, b), hn::And(c, d)))) {
            hn::StoreU(a, words, destination + i);
            hn::StoreU(b, words, destination + i + kStep);
            hn::StoreU(c, words, destination + i + 2 * kStep);
            hn::StoreU(d, words, destination + i + 3 * kStep);
        } else {
            BlendInto(destination + i, a, kStep);
            BlendInto(destination + i + kStep, b, kStep);
            BlendInto(destination + i + 2 * kStep, c, kStep);
            BlendInto(destination + i + 3 * kStep, d, kStep);
        }
    }
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
