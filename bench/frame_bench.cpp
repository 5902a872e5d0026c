// SPDX-License-Identifier: MIT
// Frames: one card over resting ones, and many cards in flight.
#include "bench/table_scene.h"

#include <benchmark/benchmark.h>

namespace
{

using bench::TableScene;

void RunLoop(TableScene& scene)
{
    for (int i = 0; i < scene.LoopFrames(); ++i) {
        scene.Frame();
    }
}

/// Arguments: the screen's width and height, and the resting cards.
void OneFlying(benchmark::State& state)
{
    TableScene scene(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                     static_cast<int>(state.range(2)));
    scene.FlyOne();
    RunLoop(scene);
    for (auto _ : state) {
        scene.Frame();
    }
    TableScene::Pixels pixels;
    for (int i = 0; i < scene.LoopFrames(); ++i) {
        const TableScene::Pixels frame = scene.CountedFrame();
        pixels.composed += frame.composed;
        pixels.moved += frame.moved;
    }
    state.counters["pixels"] = static_cast<double>(pixels.composed) / scene.LoopFrames();
    state.counters["over_union"] = static_cast<double>(pixels.composed) / static_cast<double>(pixels.moved);
}
BENCHMARK(OneFlying)
    ->Args({800, 600, 51})
    ->Args({1920, 1080, 51})
    ->Args({1920, 1080, 10})
    ->Args({1920, 1080, 100})
    ->Args({1920, 1080, 1000})
    ->Args({1920, 1080, 10000})
    ->Unit(benchmark::kMicrosecond);

/// Arguments: the cards in flight, and whether they are drawn far to near.
void ManyFlying(benchmark::State& state)
{
    const auto cards = static_cast<int>(state.range(0));
    TableScene scene(1920, 1080, 0);
    scene.FlyMany(cards, state.range(1) != 0);
    scene.Frame();
    for (auto _ : state) {
        scene.Frame();
    }
}
BENCHMARK(ManyFlying)->ArgsProduct({{1, 10, 100, 1000, 10000}, {0, 1}})->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace
