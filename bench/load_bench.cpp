// SPDX-License-Identifier: MIT
// Loading without the decoding: cutting and shading a sheet, against copying its bytes into fresh memory.
#include "bench/card_sheet.h"
#include "cardtable/texture_list.h"
#include "host/llist.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <malloc.h>

namespace
{

constexpr SheetGrid kGrid{5, 13, 13, 240, 336};
constexpr std::size_t kSheetBytes = std::size_t{4} * 3120 * 1680;

const Bitmap& Sheet()
{
    static const OwnedBitmap sheet = bench::DrawSheet(13, 5, 240, 336);
    return *sheet;
}

/// Gives all that has been freed back to the system, so that the next round gets fresh memory, as a loading game does.
void ReturnMemory()
{
    malloc_trim(0);
}

void CopySheet(benchmark::State& state)
{
    const Bitmap& sheet = Sheet();
    ReturnMemory();
    for (auto _ : state) {
        void* const copy = std::malloc(kSheetBytes);
        std::memcpy(copy, sheet.Buffer(), kSheetBytes);
        benchmark::DoNotOptimize(copy);
        benchmark::ClobberMemory();
        state.PauseTiming();
        std::free(copy);
        ReturnMemory();
        state.ResumeTiming();
    }
}
BENCHMARK(CopySheet)->Unit(benchmark::kMicrosecond);

/// Argument: whether shaded copies are made too.
void CutSheetIntoCards(benchmark::State& state)
{
    const Bitmap& sheet = Sheet();
    ReturnMemory();
    for (auto _ : state) {
        CLList faces;
        CLList shaded;
        CutSheet(sheet, kGrid, faces);
        if (state.range(0) != 0) {
            ShadeTextures(faces, 0.6, shaded);
        }
        benchmark::ClobberMemory();
        state.PauseTiming();
        DestroyTextures(faces);
        DestroyTextures(shaded);
        ReturnMemory();
        state.ResumeTiming();
    }
}
BENCHMARK(CutSheetIntoCards)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

} // namespace
