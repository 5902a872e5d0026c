// SPDX-License-Identifier: MIT
// Vectors of pixels of the instruction set, and how they are read and written where a row ends within one.
#pragma once

#include <hwy/highway.h>

#include <cstddef>
#include <cstdint>

HWY_BEFORE_NAMESPACE();
namespace orvane::raster
{
namespace
{

namespace hn = hwy::HWY_NAMESPACE;

using Words = hn::ScalableTag<std::uint32_t>;
using Signed = hn::Repartition<std::int32_t, Words>;
using Floats = hn::Repartition<float, Words>;
using Pairs = hn::Repartition<std::uint64_t, Words>;
using Halves = hn::Repartition<std::uint16_t, Words>;
using SignedHalves = hn::Repartition<std::int16_t, Words>;
using Bytes = hn::Repartition<std::uint8_t, Words>;

using Pixels32 = hn::Vec<Words>;
using FloatLanes = hn::Vec<Floats>;
using Channels = hn::Vec<SignedHalves>;

constexpr Words words;
constexpr Signed integers;
constexpr Floats floats;
constexpr Pairs pairs;
constexpr Halves halves;
constexpr SignedHalves signedHalves;
constexpr Bytes bytes;

static_assert(!HWY_HAVE_SCALABLE, "vectors of a fixed size are kept in structures");
/// Pixels in a vector.
constexpr int kStep = static_cast<int>(hn::MaxLanes(words));

int Least(int a, int b)
{
    return a < b ? a : b;
}
int Most(int a, int b)
{
    return a > b ? a : b;
}
double Least(double a, double b)
{
    return a < b ? a : b;
}
double Most(double a, double b)
{
    return a > b ? a : b;
}

/// Towards zero; the numbers lie in the range of 32 bits, so that no lane needs to be held there.
HWY_INLINE hn::Vec<Signed> Truncated(FloatLanes numbers)
{
#if HWY_TARGET == HWY_AVX3
    return hn::Vec<Signed>{_mm512_cvttps_epi32(numbers.raw)};
#elif HWY_TARGET == HWY_AVX2
    return hn::Vec<Signed>{_mm256_cvttps_epi32(numbers.raw)};
#elif HWY_TARGET == HWY_SSE4
    return hn::Vec<Signed>{_mm_cvttps_epi32(numbers.raw)};
#else
    return hn::ConvertTo(integers, numbers);
#endif
}

/// True when masked lanes of words are never touched: AVX2 has that for words, though not for bytes.
#define ORVANE_MASKS_GUARD_MEMORY (!HWY_MEM_OPS_MIGHT_FAULT || (HWY_TARGET == HWY_AVX2 && !HWY_IS_ASAN))

Pixels32 LoadFirst(const std::uint32_t* from, int count)
{
#if !ORVANE_MASKS_GUARD_MEMORY
    HWY_ALIGN std::uint32_t copy[hn::MaxLanes(words)] = {};
    for (int i = 0; i < count; ++i) {
        copy[i] = from[i];
    }
    return hn::Load(words, copy);
#else
    return hn::MaskedLoad(hn::FirstN(words, static_cast<std::size_t>(count)), words, from);
#endif
}

/// The words from a place on, which may be -1; 0 where they don't lie between 0 and the end.
Pixels32 LoadBetween(const std::uint32_t* row, int from, int end)
{
#if !ORVANE_MASKS_GUARD_MEMORY
    HWY_ALIGN std::uint32_t copy[hn::MaxLanes(words)] = {};
    for (int i = Most(0, -from); i < Least(kStep, end - from); ++i) {
        copy[i] = row[from + i];
    }
    return hn::Load(words, copy);
#else
    const auto place = hn::Add(hn::Iota(integers, 0), hn::Set(integers, from));
    const auto inside = hn::And(hn::Gt(place, hn::Set(integers, -1)), hn::Lt(place, hn::Set(integers, end)));
    return hn::MaskedLoad(hn::RebindMask(words, inside), words, row + from);
#endif
}

void StoreFirst(Pixels32 pixels, std::uint32_t* to, int count)
{
#if !ORVANE_MASKS_GUARD_MEMORY
    HWY_ALIGN std::uint32_t copy[hn::MaxLanes(words)];
    hn::Store(pixels, words, copy);
    for (int i = 0; i < count; ++i) {
        to[i] = copy[i];
    }
#else
    hn::BlendedStore(pixels, hn::FirstN(words, static_cast<std::size_t>(count)), words, to);
#endif
}

HWY_INLINE void Put(std::uint32_t* destination, Pixels32 pixels, int count)
{
    if (count >= kStep) {
        hn::StoreU(pixels, words, destination);
    } else {
        StoreFirst(pixels, destination, count);
    }
}

HWY_INLINE Pixels32 Get(const std::uint32_t* source, int count)
{
    return count >= kStep ? hn::LoadU(words, source) : LoadFirst(source, count);
}

} // namespace
} // namespace orvane::raster
HWY_AFTER_NAMESPACE();
