// SPDX-License-Identifier: MIT
// Runs a few frames of one scene, for an instruction counter that watches CountedFrames alone:
//
//     valgrind --tool=callgrind --collect-atstart=no --toggle-collect=CountedFrames count_frames over 1000
#include "bench/table_scene.h"

#include <cstdio>
#include <cstdlib>
#include <string>

/// Runs the frames; not inlined and not mangled, so that a tool finds it by its name.
extern "C" [[gnu::noinline]] void CountedFrames(bench::TableScene& scene, int frames)
{
    for (int i = 0; i < frames; ++i) {
        scene.Frame();
    }
}

int main(int argc, char** argv)
{
    const std::string what = argc == 4 ? argv[1] : "";
    const int count = argc == 4 ? std::atoi(argv[2]) : 0;
    const int frames = argc == 4 ? std::atoi(argv[3]) : 0;
    if ((what != "over" && what != "list" && what != "far") || count < 0 || frames < 1) {
        std::fprintf(stderr,
                     "usage: count_frames over|list|far CARDS FRAMES\n"
                     "one card flying over CARDS at rest, or CARDS flying, drawn in list order or far to near\n");
        return 2;
    }
    bench::TableScene scene(1920, 1080, what == "over" ? count : 0);
    if (what == "over") {
        scene.FlyOne();
    } else {
        scene.FlyMany(count, what == "far");
    }
    scene.Frame();
    CountedFrames(scene, frames);
    return 0;
}
